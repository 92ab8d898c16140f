// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/system/font_view_dlg.h>

namespace corvane {

bool FontViewDLG::Show() {
  m_Bold = m_Italic = m_Underline = m_StrikeOut = false;
  CHOOSEFONT cf;
  cf.lStructSize = 60;
  cf.hwndOwner = m_Owner;
  cf.lf = LOGFONT{};  // an empty font in a zeroed block
  cf.Flags = CF_SCREENFONTS + CF_EFFECTS;
  const int32_t result = dlg().ChooseFontA(cf);
  if (result == 1) {
    m_Bold = cf.lf.lfWeight >= 700;
    m_Italic = cf.lf.lfItalic == 1;
    m_Underline = cf.lf.lfUnderline == 1;
    m_StrikeOut = cf.lf.lfStrikeOut == 1;
    m_Color = cf.rgbColors;
    m_FontName = bufferText(cf.lf.lfFaceName);
    m_FontSize = CLng(cf.iPointSize / 10.0);
    return !m_FontName.empty();
  }
  if (result == 0 && m_CancelError) throw RuntimeError(err::CancelError);
  return false;
}

const Dispatch* FontViewDLG::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    using F = FontViewDLG;
    DispatchBuilder<F>(t)
        .prop("CancelError", &F::CancelError, &F::setCancelError)
        .get("Italic", &F::Italic)
        .get("StrikeOut", &F::StrikeOut)
        .get("Underline", &F::Underline)
        .get("Bold", &F::Bold)
        .method("Show", [](F& o, Dispatch::Args&) { return o.Show(); })
        .get("FontSize", &F::FontSize)
        .get("FontName", &F::FontName)
        .prop("Owner", &F::Owner, &F::setOwner)
        .get("Color", &F::Color);
    return t;
  }();
  return &d;
}

}  // namespace corvane
