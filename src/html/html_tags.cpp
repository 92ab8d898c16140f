// SPDX-License-Identifier: MIT
#include <corvane/html/html_tags.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

namespace corvane::html {

namespace {

const std::unordered_map<std::string_view, int32_t>& nameTable() {
  static const std::unordered_map<std::string_view, int32_t> table = {
      {"HEAD", TagHead},
      {"/HEAD", TagHeadEnd},
      {"TITLE", TagTitle},
      {"/TITLE", TagTitleEnd},
      {"BODY", TagBody},
      {"NOFRAMES", TagBody},
      {"/BODY", TagBodyEnd},
      {"/NOFRAMES", TagBodyEnd},
      {"!--", TagComment},
      {"--", TagCommentEnd},
      {"STRONG", TagBold},
      {"B", TagBold},
      {"/STRONG", TagBoldEnd},
      {"/B", TagBoldEnd},
      {"EM", TagItalic},
      {"I", TagItalic},
      {"/EM", TagItalicEnd},
      {"/I", TagItalicEnd},
      {"U", TagUnderline},
      {"/U", TagUnderlineEnd},
      {"P", TagParagraph},
      {"/P", TagParagraphEnd},
      {"DIV", TagDiv},
      {"/DIV", TagDivEnd},
      {"BR", TagBreak},
      {"HR", TagRule},
      {"UL", TagList},
      {"/UL", TagListEnd},
      {"OL", TagOrderedList},
      {"/OL", TagOrderedListEnd},
      {"LI", TagListItem},
      {"TABLE", TagTable},
      {"/TABLE", TagTableEnd},
      {"THEAD", TagTableHead},
      {"/THEAD", TagTableHeadEnd},
      {"TBODY", TagTableBody},
      {"/TBODY", TagTableBodyEnd},
      {"TFOOT", TagTableFoot},
      {"/TFOOT", TagTableFootEnd},
      {"TR", TagRow},
      {"/TR", TagRowEnd},
      {"TD", TagCell},
      {"TH", TagCell},
      {"/TD", TagCellEnd},
      {"/TH", TagCellEnd},
      {"FONT", TagFont},
      {"/FONT", TagFontEnd},
      {"A", TagAnchor},
      {"/A", TagAnchorEnd},
      {"IMG", TagImage},
      {"BLOCKQUOTE", TagBlockquote},
      {"/BLOCKQUOTE", TagBlockquoteEnd},
      {"H1", TagHeading},
      {"H2", TagHeading},
      {"H3", TagHeading},
      {"H4", TagHeading},
      {"H5", TagHeading},
      {"H6", TagHeading},
      {"/H1", TagHeadingEnd},
      {"/H2", TagHeadingEnd},
      {"/H3", TagHeadingEnd},
      {"/H4", TagHeadingEnd},
      {"/H5", TagHeadingEnd},
      {"/H6", TagHeadingEnd},
      {"BIG", TagBig},
      {"/BIG", TagBigEnd},
      {"SMALL", TagSmall},
      {"/SMALL", TagSmallEnd},
      {"CENTER", TagCenter},
      {"/CENTER", TagCenterEnd},
      {"SUB", TagSub},
      {"/SUB", TagSubEnd},
      {"SUP", TagSup},
      {"/SUP", TagSupEnd},
      {"FORM", TagForm},
      {"/FORM", TagFormEnd},
      {"SCRIPT", TagScript},
      {"/SCRIPT", TagScriptEnd},
      {"STYLE", TagStyle},
      {"/STYLE", TagStyleEnd},
  };
  return table;
}

constexpr std::array<int32_t, 20> kContainers = {
    TagHead,   TagTitle,      TagBody,        TagBold,  TagItalic, TagUnderline, TagParagraph,
    TagDiv,    TagList,       TagOrderedList, TagTable, TagRow,    TagCell,      TagFont,
    TagAnchor, TagBlockquote, TagHeading,     TagBig,   TagSmall,  TagCenter};

}  // namespace

int32_t tagIdOfName(std::string_view upperName) {
  const auto& table = nameTable();
  auto it = table.find(upperName);
  return it == table.end() ? TagUnknown : it->second;
}

bool isContainerTag(int32_t id) {
  return std::find(kContainers.begin(), kContainers.end(), id) != kContainers.end();
}

bool isCloserTag(int32_t id) { return id > 0 && isContainerTag(id - 1); }

}  // namespace corvane::html
