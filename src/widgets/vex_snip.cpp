// SPDX-License-Identifier: MIT
#include <corvane/runtime/guard.h>
#include <corvane/widgets/vex_snip.h>

namespace corvane {

namespace {
constexpr const char* kDefaultTitel = "Daten";
// The label's place in pixels, as it was laid out at design.
constexpr int32_t kTitelLeft = 4, kTitelTop = 2;
}  // namespace

VexSnip::VexSnip() {
  m_lblTitel.Caption = kDefaultTitel;
  m_lblTitel.Font = StdFont::create(FontSpec{"Tahoma", 8});
  m_lblTitel.Left = kTitelLeft;
  m_lblTitel.Top = kTitelTop;
}

DesignForm VexSnip::designForm() const {
  DesignForm d;
  d.width = 1215;
  d.height = 375;
  d.scaleMode = Surface::Twips;
  return d;
}

void VexSnip::setText(const std::string& value) {
  m_Text = value;
  PropertyChanged("Text");
}

void VexSnip::setTitel(const std::string& value) {
  m_lblTitel.Caption = value;
  PropertyChanged("Titel");
  render();
}

void VexSnip::render() {
  if (!isSited()) return;
  surface().setAutoRedraw(true);
  guarded([&] { surface().Cls(); });
  guarded([&] { m_lblTitel.paint(hdc()); });
}

void VexSnip::onResize() {
  // The label keeps its left and top; it reaches to the right edge and takes the full height.
  guarded([&] { m_lblTitel.Width = surface().pixelWidth() - m_lblTitel.Left; });
  guarded([&] { m_lblTitel.Height = surface().pixelHeight(); });
  render();
}

void VexSnip::ReadProperties(PropertyBag& bag) {
  guarded([&] { m_Text = bag.ReadProperty("Text", std::string()).toString(); });
  guarded([&] { m_lblTitel.Caption = bag.ReadProperty("Titel", std::string()).toString(); });
}

void VexSnip::WriteProperties(PropertyBag& bag) {
  // No default for the text: it is always stored.
  guarded([&] { bag.WriteProperty("Text", m_Text, Variant()); });
  guarded([&] { bag.WriteProperty("Titel", m_lblTitel.Caption, std::string(kDefaultTitel)); });
}

const Dispatch* VexSnip::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexSnip>(t)
        .prop("Text", &VexSnip::Text, &VexSnip::setText)
        .prop("Titel", &VexSnip::Titel, &VexSnip::setTitel);
    return t;
  }();
  return &d;
}

}  // namespace corvane
