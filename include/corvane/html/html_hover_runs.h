// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/host/surface.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::html {

// The printed runs of text whose colour comes from a link's hover state, kept by a drawing pass
// with the page pixels each one was printed onto. A hover changes nothing but those colours, so
// putting the old pixels back under the runs of the two links concerned and printing the runs
// again in their new colour gives the page a whole pass would give, for a fraction of its work.
class CORVANE_API HtmlHoverRuns {
 public:
  HtmlHoverRuns() = default;
  ~HtmlHoverRuns();
  HtmlHoverRuns(const HtmlHoverRuns&) = delete;
  HtmlHoverRuns& operator=(const HtmlHoverRuns&) = delete;

  // A pass starts recording; until it ends the runs are not usable.
  void begin();
  // Keeps the pixels under the text about to be printed at the page's current position in the
  // page's current font, for the link with the given chunk index.
  void record(Surface& page, int16_t link, const std::string& text);
  // The pass is over: the runs describe the page as it stands now.
  void end() { m_valid = !m_overflow; }
  // Something else drew on the page or changed what a pass would draw.
  void invalidate() { m_valid = false; }
  bool valid() const { return m_valid; }
  size_t runCount() const { return m_runs.size(); }

  // Repaints the runs of two links (0 for none) in the colours a pass would give them with
  // hovered as the link under the mouse. False, with nothing done, when the runs are not valid.
  bool repaint(Surface& page, int16_t a, int16_t b, int16_t hovered, OLE_COLOR linkColour,
               OLE_COLOR hoverColour);
  // Frees the kept pixels (while the platform is still there).
  void release();

 private:
  struct Run {
    int16_t link;
    int32_t x, y, width, height;
    std::string text, fontName;
    double fontSize;
    bool bold, italic, underline, strike;
    size_t sheet;
    int32_t sheetX, sheetY;
  };
  bool place(int32_t width, int32_t height, size_t& sheet, int32_t& x, int32_t& y);

  std::vector<Run> m_runs;
  std::vector<HBITMAP> m_sheets;
  HDC m_dc = 0;
  HGDIOBJ m_original = 0;
  size_t m_selected = SIZE_MAX;
  int32_t m_shelfX = 0, m_shelfY = 0, m_shelfHeight = 0;
  size_t m_sheet = 0;
  bool m_valid = false, m_overflow = false;
};

}  // namespace corvane::html
