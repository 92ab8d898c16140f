// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane::html {

// One tag or run of text of a parsed HTML document, and a node of its tree at the same time.
// The fields stand in their fixed order; booleans are 16-bit with true as -1. Layout results
// (Top to IndentX, LayoutWidth, LayoutHeight, RowHeight, the image fields) stay from pass to pass.
struct CORVANE_API HtmlChunk {
  std::string Source;  // the chunk's text as it stood, brackets included
  int16_t IsTag = 0;
  int32_t TagID = 0;
  std::string ID;    // value of ID or NAME
  int16_t Glue = 0;  // text only: no blank separates it from the word before
  int16_t HasBgColor = 0;
  std::vector<std::string> Words;  // text only: the decoded text split at blanks
  std::string FontFace;
  float FontSize = 0;
  int32_t Color = 0;
  std::string Href;
  std::string Title;
  int32_t Top = 0;
  int32_t Left = 0;
  int32_t Bottom = 0;
  int32_t Right = 0;
  int32_t IndentX = 0;
  int16_t AlignCenter = 0;
  int16_t AlignRight = 0;
  int32_t ImageSlot = 0;
  int32_t ImageWidth = 0;
  int32_t ImageHeight = 0;
  std::string ImageSource;
  std::string Alt;
  int16_t HSpace = 0;
  int16_t VSpace = 0;
  int16_t IsNumbered = 0;
  int16_t ItemNumber = 0;
  float Width = 0;  // below 1.0 a fraction, 1.0 not given, above 1.0 pixels
  int32_t LayoutWidth = 0;
  float Height = 0;  // coded as Width
  int16_t Border = 0;
  int16_t CellPadding = 0;
  int16_t CellSpacing = 0;
  int16_t ColSpan = 0;
  int32_t LayoutHeight = 0;
  int32_t RowHeight = 0;
  int32_t VAlign = 0;  // 3 top, 4 centre, 5 bottom
  int32_t BgColor = 0;
  int16_t ChildCount = 0;         // the closer that ends a level is not counted
  std::vector<int16_t> Children;  // indices in the chunk array, the closer included
  int16_t Parent = 0;
  int16_t ChildPos = 0;
  int16_t Index = 0;  // own place in the chunk array
};

}  // namespace corvane::html
