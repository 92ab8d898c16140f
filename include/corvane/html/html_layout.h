// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/host/std_picture.h>
#include <corvane/host/surface.h>
#include <corvane/html/html_document.h>
#include <corvane/html/html_hover_runs.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace corvane::html {

// The view's values that one pass reads.
struct CORVANE_API HtmlLayoutSettings {
  int16_t DefaultPadding = 4;
  int16_t DefaultSpacing = 4;
  int32_t LinkColor = 0xFF0000;
  int32_t LinkHoverColor = 0x800080;
  bool UnderlineLinks = true;
  int16_t EnableScroll = 0;
  int16_t HoverIndex = 0;     // the link under the mouse, 0 for none
  int32_t ViewportWidth = 0;  // scale size of the viewport, pixels
  int32_t ViewportHeight = 0;
};

// One open table of the walk.
struct HtmlTableFrame {
  int16_t SavedCenter = 0;
  int16_t Border = 0;
  int32_t Left = 0, Top = 0, Width = 0, Height = 0, RowTop = 0, RowHeight = 0, CellX = 0, CellRight = 0;
  int16_t Column = 0;
  std::array<std::array<int32_t, 2>, 17> Columns{};
  int16_t CellPadding = 0, CellSpacing = 0, ChunkIndex = 0;
};

// One pass over the page: walks the chunks in array order and lays them out on the page surface,
// drawing as it goes. Measuring uses the surface's current font, so layout and drawing cannot
// disagree. Results that later passes and the mouse need are stored in the chunks.
class CORVANE_API HtmlLayout {
 public:
  using LoadImageHandler = std::function<void(std::string&, PictureRef&)>;

  HtmlLayout(HtmlDocument& document, Surface& page, std::vector<PictureRef>& images,
             HtmlLayoutSettings settings, LoadImageHandler loadImage);

  // The walk; the page must already be cleared and its background drawn.
  void mRender(bool final);
  void mResetFont();
  static bool mIsInlineTag(int32_t tagId);
  // Keeps the runs printed in a link's hover-dependent colour (null: none kept).
  void setHoverRuns(HtmlHoverRuns* runs) { m_hoverRuns = runs; }

  int32_t mDocWidth = 0;
  int32_t mDocHeight = 0;

 private:
  void handleTag(HtmlChunk& c, bool final);
  void mFlowText(bool right, bool center, int32_t rightLimit, int32_t leftLimit, int32_t spacing);
  void mApplyInlineTag(int32_t index);
  void mTileBackground(int32_t offset);
  void handleImage(HtmlChunk& c, bool final);
  void closeBlock(HtmlChunk& c);
  void alignFromAncestors(const HtmlChunk& c);
  // Tables.
  HtmlTableFrame& frame(int32_t depth);
  void handleTable(HtmlChunk& c, bool final);
  void handleRow(HtmlChunk& c);
  void handleCell(HtmlChunk& d, bool final);
  void handleCellEnd(HtmlChunk& c, bool final);
  void handleRowEnd(HtmlChunk& c, bool final);
  void handleTableEnd(HtmlChunk& c, bool final);
  void mColumnWidths(HtmlChunk& table);
  void draw3DFrame(bool sunken, int32_t x1, int32_t y1, int32_t x2, int32_t y2);

  int32_t lineHeightOfFont();
  int32_t indentOfFont();
  void blockBreak();
  // Prints at the current position and keeps the run when its colour comes from a link.
  void print(const std::string& text);
  void linkColourFrom(int32_t link);
  void marginReturn() { X = LM + LI; }
  int32_t width(const std::string& s) { return static_cast<int32_t>(m_page.TextWidth(s)); }

  HtmlDocument& m_doc;
  Surface& m_page;
  std::vector<PictureRef>& m_images;
  HtmlLayoutSettings m_set;
  LoadImageHandler m_loadImage;

  // The state of one run.
  int32_t i = 0;
  int32_t X = 0, Y = 0, LM = 0, RM = 0, LH = 0, IND = 0, LI = 0, XO = 0;
  float curSize = 0;
  bool centerOn = false, rightOn = false, lineFresh = false, skipText = false, inTable = false;
  int16_t listDepth = 0;
  std::array<int16_t, 17> listKind{}, listCount{};
  int32_t openAnchor = -1;
  bool linkPending = false;
  int32_t lineEndX = 0;
  std::array<HtmlTableFrame, 16> tables{};
  int16_t tableDepth = 0;
  // The link whose hover state chose the pen colour, -1 for none, and that colour.
  int32_t m_linkColourOf = -1, m_linkColour = 0;
  HtmlHoverRuns* m_hoverRuns = nullptr;
};

}  // namespace corvane::html
