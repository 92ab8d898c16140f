// SPDX-License-Identifier: MIT
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/format.h>
#include <corvane/runtime/guard.h>
#include <corvane/widgets/vex_progress.h>

#include <algorithm>

namespace corvane {

namespace {
constexpr OLE_COLOR kBorderColour = 0xC0C0C0, kBarColour = 0xB3783E, kWhite = 0xFFFFFF;
constexpr int32_t kMinLabelPixels = 7;
const FontSpec kNumberFont{"MS Sans Serif", 8};

float pixelX() { return static_cast<float>(Screen::instance().TwipsPerPixelX()); }
float pixelY() { return static_cast<float>(Screen::instance().TwipsPerPixelY()); }

// A child's box in pixels of the control.
RECT pixelBox(const VexProgress::Child& c) {
  const float px = pixelX(), py = pixelY();
  int32_t left = CLng(c.Left / px), top = CLng(c.Top / py);
  return RECT{left, top, left + CLng(c.Width / px), top + CLng(c.Height / py)};
}
}  // namespace

VexProgress::VexProgress() {
  m_prgBorder.BackColor = kBorderColour;
  m_prgBar.BackColor = kBarColour;
  m_txtPer.BackColor = kBarColour;
}

DesignForm VexProgress::designForm() const {
  DesignForm d;
  d.width = 3000;
  d.height = 285;
  d.scaleMode = Surface::Twips;
  d.backColor = kWhite;
  return d;
}

// ---- members ----

void VexProgress::Reset(int32_t lBackColor, int32_t lBarColor, int32_t lBorderColor, int32_t lTextColor) {
  UpdateTo(0);
  if (lBackColor != -1) surface().setBackColor(lBackColor);
  if (lBarColor != -1) {
    m_prgBar.BackColor = lBarColor;
    m_txtPer.BackColor = lBarColor;
  }
  if (lBorderColor != -1) m_prgBorder.BackColor = lBorderColor;
  if (lTextColor != -1) m_txtPerForeColor = lTextColor;
  render();
}

void VexProgress::UpdateTo(int32_t CurrentValue) {
  if (CurrentValue >= m_MaxValue) {
    m_prgBar.Width = m_FullWidth;
    m_txtPerText = "100%";
  } else {
    // With MaxValue 0 only a negative value comes here, and that is division by zero.
    if (m_MaxValue == 0) throw RuntimeError(err::DivisionByZero);
    const double share = static_cast<double>(CurrentValue) / m_MaxValue;
    const double width = m_FullWidth * share;
    // A child's width cannot be negative.
    if (width < 0) throw RuntimeError(err::InvalidPropertyValue);
    m_prgBar.Width = static_cast<float>(width);
    m_txtPerText = Format(Variant(share), "0%");
  }
  m_txtPer.Width = m_prgBar.Width;
  if (CurrentValue < 1) {
    m_txtPer.Visible = false;
    m_prgBar.Visible = false;
  } else if (!m_txtPer.Visible) {
    // Once shown, the number stays until the value falls below 1.
    m_txtPer.Visible = m_txtPer.Width > m_MinLabelWidth;
    m_prgBar.Visible = m_prgBar.Width > pixelX();
  }
  render();
}

// ---- drawing ----

float VexProgress::textBoxHeight() {
  TEXTMETRIC tm{};
  gdi().SetDCFont(hdc(), kNumberFont);
  gdi().GetTextMetricsA(hdc(), tm);
  return static_cast<float>(tm.tmHeight) * pixelY();
}

void VexProgress::render() {
  if (!isSited()) return;
  Surface& s = surface();
  HDC dc = s.hdc();
  guarded([&] { s.Cls(); });
  auto fill = [&](const Child& c) {
    if (!c.Visible) return;
    HBRUSH brush = gdi().CreateSolidBrush(translateColor(c.BackColor));
    gdi().FillRect(dc, pixelBox(c), brush);
    gdi().DeleteObject(brush);
  };
  guarded([&] {
    HBRUSH brush = gdi().CreateSolidBrush(translateColor(m_prgBorder.BackColor));
    gdi().FrameRect(dc, pixelBox(m_prgBorder), brush);
    gdi().DeleteObject(brush);
  });
  guarded([&] { fill(m_prgBar); });
  guarded([&] {
    if (!m_txtPer.Visible) return;
    fill(m_txtPer);
    RECT box = pixelBox(m_txtPer);
    gdi().SetDCFont(dc, kNumberFont);
    gdi().SetTextColor(dc, translateColor(m_txtPerForeColor));
    gdi().SetBkMode(dc, 1);
    gdi().DrawTextA(dc, m_txtPerText, -1, box, DT_CENTER | DT_SINGLELINE);
    gdi().SetDCFont(dc, s.Font()->desc());
  });
}

// ---- lifecycle ----

void VexProgress::Initialize() {
  surface().setAutoRedraw(true);
  surface().setBackColor(kWhite);
  m_MinLabelWidth = kMinLabelPixels * pixelX();
  m_MaxValue = 100;
}

void VexProgress::onResize() {
  Surface& s = surface();
  const float px = pixelX(), py = pixelY();
  m_prgBorder.Left = 0;
  m_prgBorder.Top = 0;
  m_prgBorder.Width = s.Width();
  m_prgBorder.Height = s.Height();
  m_FullWidth = s.Width() - 2 * px;
  m_prgBar.Left = px;
  m_prgBar.Top = py;
  m_prgBar.Width = 0;
  m_prgBar.Height = std::max(0.0f, s.Height() - 2 * py);
  guarded([&] { m_txtPer.Height = textBoxHeight(); });
  m_txtPer.Top = m_prgBar.Height / 2 - m_txtPer.Height / 2 + py;
  m_txtPer.Left = m_prgBar.Left;
  m_txtPer.Visible = false;
  render();
}

// ---- by name ----

const Dispatch* VexProgress::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexProgress>(t)
        .prop("MaxValue", &VexProgress::MaxValue, &VexProgress::setMaxValue)
        .method("UpdateTo", [](VexProgress& p, Dispatch::Args& a) { p.UpdateTo(a.at(0).toLong()); })
        .method("Reset", [](VexProgress& p, Dispatch::Args& a) {
          auto arg = [&](size_t i) { return i < a.size() && !a[i].isEmpty() ? a[i].toLong() : -1; };
          p.Reset(arg(0), arg(1), arg(2), arg(3));
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane
