// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <cstdint>
#include <string_view>

// The tag vocabulary of the HTML view: every later stage switches on these ids. An opening id and
// its closing id are adjacent.
namespace corvane::html {

enum TagId : int32_t {
  TagText = 0,
  TagUnknown = 1,
  TagHead = 2,
  TagHeadEnd = 3,
  TagTitle = 4,
  TagTitleEnd = 5,
  TagBody = 6,  // BODY or NOFRAMES
  TagBodyEnd = 7,
  TagComment = 8,     // "!--"
  TagCommentEnd = 9,  // "--"
  TagBold = 10,       // STRONG or B
  TagBoldEnd = 11,
  TagItalic = 12,  // EM or I
  TagItalicEnd = 13,
  TagUnderline = 14,
  TagUnderlineEnd = 15,
  TagParagraph = 16,
  TagParagraphEnd = 17,
  TagDiv = 18,
  TagDivEnd = 19,
  TagBreak = 20,
  TagRule = 21,
  TagList = 22,  // UL
  TagListEnd = 23,
  TagOrderedList = 24,
  TagOrderedListEnd = 25,
  TagListItem = 26,  // LI has no closing id
  TagTable = 27,
  TagTableEnd = 28,
  TagTableHead = 29,
  TagTableHeadEnd = 30,
  TagTableBody = 31,
  TagTableBodyEnd = 32,
  TagTableFoot = 33,
  TagTableFootEnd = 34,
  TagRow = 35,
  TagRowEnd = 36,
  TagCell = 37,  // TD or TH
  TagCellEnd = 38,
  TagFont = 39,
  TagFontEnd = 40,
  TagAnchor = 41,
  TagAnchorEnd = 42,
  TagImage = 43,
  TagBlockquote = 44,
  TagBlockquoteEnd = 45,
  TagHeading = 46,  // H1 to H6
  TagHeadingEnd = 47,
  TagBig = 48,
  TagBigEnd = 49,
  TagSmall = 50,
  TagSmallEnd = 51,
  TagCenter = 52,
  TagCenterEnd = 53,
  TagSub = 54,
  TagSubEnd = 55,
  TagSup = 56,
  TagSupEnd = 57,
  TagForm = 58,
  TagFormEnd = 59,
  TagScript = 60,
  TagScriptEnd = 61,
  TagStyle = 62,
  TagStyleEnd = 63,
};

// The id of an upper-cased tag name; a name outside the vocabulary is TagUnknown.
CORVANE_API int32_t tagIdOfName(std::string_view upperName);

// Containers open a level of the document tree; their closers (id + 1) end one. Everything else,
// and every id above TagCenterEnd, is a leaf.
CORVANE_API bool isContainerTag(int32_t id);
CORVANE_API bool isCloserTag(int32_t id);

}  // namespace corvane::html
