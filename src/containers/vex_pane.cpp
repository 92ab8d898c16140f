// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_pane.h>

#include <memory>

#include <corvane/frame/gradient.h>
#include <corvane/host/screen.h>
#include <corvane/host/std_picture.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kDefaultBackColor = static_cast<OLE_COLOR>(0x8000000F);
constexpr OLE_COLOR kDefaultBackColor2 = 255;
constexpr float kDefaultGradientAngle = 130;
constexpr OLE_COLOR kDefaultCrossColor1 = 0x808080;
constexpr OLE_COLOR kDefaultCrossColor2 = 0xFFFFFF;
// The defaults of the scale keys, which a new pane takes as well.
constexpr float kDefaultScaleHeight = 6300;
constexpr float kDefaultScaleLeft = 0;
constexpr float kDefaultScaleTop = 0;
constexpr float kDefaultScaleWidth = 8025;

constexpr OLE_COLOR kShadow = 0x808080;
constexpr OLE_COLOR kLight = 0xFFFFFF;

float tx() { return Screen::instance().TwipsPerPixelX(); }
float ty() { return Screen::instance().TwipsPerPixelY(); }
}  // namespace

// ---- properties ----

void VexPane::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  PropertyChanged("BackColor");
  DrawPane();
}

void VexPane::setBackColor2(OLE_COLOR value) {
  m_BackColor2 = value;
  PropertyChanged("BackColor2");
  DrawPane();
}

void VexPane::setGradient(bool value) {
  m_Gradient = value;
  PropertyChanged("Gradient");
  DrawPane();
}

void VexPane::setGradientAngle(float value) {
  m_GradientAngle = value;
  PropertyChanged("GradientAngle");
  DrawPane();
}

void VexPane::setBorderStyle(BorderType value) {
  m_BorderStyle = value;
  PropertyChanged("BorderStyle");
  DrawPane();
}

void VexPane::setCrossColor1(OLE_COLOR value) {
  m_CrossColor1 = value;
  PropertyChanged("CrossColor1");
  DrawPane();
}

void VexPane::setCrossColor2(OLE_COLOR value) {
  m_CrossColor2 = value;
  PropertyChanged("CrossColor2");
  DrawPane();
}

void VexPane::setMousePointer(int16_t value) {
  surface().setMousePointer(value);
  PropertyChanged("MousePointer");
}

void VexPane::setMouseIcon(const PictureRef& value) {
  surface().setMouseIcon(value);
  PropertyChanged("MouseIcon");
}

void VexPane::setScaleHeight(float value) {
  surface().setScaleHeight(value);
  PropertyChanged("ScaleHeight");
}

void VexPane::setScaleLeft(float value) {
  surface().setScaleLeft(value);
  PropertyChanged("ScaleLeft");
}

void VexPane::setScaleTop(float value) {
  surface().setScaleTop(value);
  PropertyChanged("ScaleTop");
}

void VexPane::setScaleWidth(float value) {
  surface().setScaleWidth(value);
  PropertyChanged("ScaleWidth");
}

Variant VexPane::ChangeColors(OLE_COLOR lBackColor1, OLE_COLOR lBackColor2) {
  surface().setBackColor(lBackColor1);
  m_BackColor2 = lBackColor2;
  PropertyChanged("BackColor");
  PropertyChanged("BackColor2");
  DrawPane();
  return Variant();
}

// ---- lifecycle ----

void VexPane::InitProperties() {
  guarded([&] { surface().setBackColor(containerMember("BackColor").toLong()); });  // match the container
  m_BackColor2 = kDefaultBackColor2;
  m_Gradient = false;
  m_GradientAngle = kDefaultGradientAngle;
  m_BorderStyle = btNone;
  m_CrossColor1 = kDefaultCrossColor1;
  m_CrossColor2 = kDefaultCrossColor2;
  guarded([&] { surface().setMousePointer(0); });
  guarded([&] { surface().setMouseIcon(LoadPicture()); });
  guarded([&] { surface().setScaleHeight(kDefaultScaleHeight); });
  guarded([&] { surface().setScaleLeft(kDefaultScaleLeft); });
  guarded([&] { surface().setScaleTop(kDefaultScaleTop); });
  guarded([&] { surface().setScaleWidth(kDefaultScaleWidth); });
  m_Enabled = true;
}

void VexPane::ReadProperties(PropertyBag& bag) {
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", kDefaultBackColor).toLong()); });
  guarded([&] { m_BackColor2 = bag.ReadProperty("BackColor2", kDefaultBackColor2).toLong(); });
  guarded([&] { m_Gradient = bag.ReadProperty("Gradient", false).toBool(); });
  guarded([&] { m_GradientAngle = bag.ReadProperty("GradientAngle", kDefaultGradientAngle).toSingle(); });
  guarded([&] {
    m_BorderStyle = static_cast<BorderType>(bag.ReadProperty("BorderStyle", static_cast<int16_t>(btNone)).toInteger());
  });
  guarded([&] { m_CrossColor1 = bag.ReadProperty("CrossColor1", kDefaultCrossColor1).toLong(); });
  guarded([&] { m_CrossColor2 = bag.ReadProperty("CrossColor2", kDefaultCrossColor2).toLong(); });
  guarded([&] { surface().setMousePointer(bag.ReadProperty("MousePointer", static_cast<int16_t>(0)).toInteger()); });
  guarded([&] {
    PictureRef icon = bag.ReadProperty("MouseIcon", Variant()).as<PictureRef>();
    surface().setMouseIcon(icon ? icon : LoadPicture());
  });
  guarded([&] { surface().setScaleHeight(bag.ReadProperty("ScaleHeight", kDefaultScaleHeight).toSingle()); });
  guarded([&] { surface().setScaleLeft(bag.ReadProperty("ScaleLeft", kDefaultScaleLeft).toSingle()); });
  guarded([&] { surface().setScaleTop(bag.ReadProperty("ScaleTop", kDefaultScaleTop).toSingle()); });
  guarded([&] { surface().setScaleWidth(bag.ReadProperty("ScaleWidth", kDefaultScaleWidth).toSingle()); });
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    applyEnabledToSurface();
  });
  DrawPane();
}

void VexPane::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kDefaultBackColor); });
  guarded([&] { bag.WriteProperty("BackColor2", m_BackColor2, kDefaultBackColor2); });
  guarded([&] { bag.WriteProperty("Gradient", m_Gradient, false); });
  guarded([&] { bag.WriteProperty("GradientAngle", m_GradientAngle, kDefaultGradientAngle); });
  guarded([&] { bag.WriteProperty("BorderStyle", static_cast<int16_t>(m_BorderStyle), static_cast<int16_t>(btNone)); });
  guarded([&] { bag.WriteProperty("CrossColor1", m_CrossColor1, kDefaultCrossColor1); });
  guarded([&] { bag.WriteProperty("CrossColor2", m_CrossColor2, kDefaultCrossColor2); });
  guarded([&] { bag.WriteProperty("MousePointer", surface().MousePointer(), static_cast<int16_t>(0)); });
  guarded([&] {
    // An empty picture is stored as none.
    const PictureRef& icon = surface().MouseIcon();
    bag.WriteProperty("MouseIcon", icon && icon->Handle() ? Variant(icon) : Variant(), Variant());
  });
  guarded([&] { bag.WriteProperty("ScaleHeight", surface().ScaleHeight(), kDefaultScaleHeight); });
  guarded([&] { bag.WriteProperty("ScaleLeft", surface().ScaleLeft(), kDefaultScaleLeft); });
  guarded([&] { bag.WriteProperty("ScaleTop", surface().ScaleTop(), kDefaultScaleTop); });
  guarded([&] { bag.WriteProperty("ScaleWidth", surface().ScaleWidth(), kDefaultScaleWidth); });
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
}

void VexPane::onResize() {
  guarded([&] { DrawPane(); });
  guarded([&] { Resize(); });
}

// ---- drawing ----

void VexPane::DrawPane() {
  auto line = [&](float x1, float y1, float x2, float y2, OLE_COLOR colour) {
    guarded([&] { surface().Line(x1, y1, x2, y2, colour); });
  };

  guarded([&] { surface().Cls(); });

  if (m_Gradient) {
    std::shared_ptr<CGradient> gradient;
    guarded([&] { gradient = std::make_shared<CGradient>(); });
    guarded([&] { gradient->setAngle(m_GradientAngle); });
    guarded([&] { gradient->setColor1(surface().BackColor()); });
    guarded([&] { gradient->setColor2(m_BackColor2); });
    // The extender passes hWnd and hDC on to the pane.
    guarded([&] { gradient->Draw(extenderRef()); });
    gradient.reset();
  }

  if (m_BorderStyle == btNone) return;

  // Draw in twips over the real size.
  guarded([&] { surface().setScaleLeft(0); });
  guarded([&] { surface().setScaleWidth(surface().Width()); });
  guarded([&] { surface().setScaleTop(0); });
  guarded([&] { surface().setScaleHeight(surface().Height()); });

  // The border sits 4 twips in, with a far margin of 8.
  float left = 4, top = 4, right = 0, bottom = 0;
  guarded([&] { right = surface().Width() - 8; });
  guarded([&] { bottom = surface().Height() - 8; });

  OLE_COLOR cTop = 0, cRight = 0, cBottom = 0, cLeft = 0;
  switch (m_BorderStyle) {
    case btFlat:
      cTop = cRight = cBottom = cLeft = m_CrossColor1;
      break;
    case btFrame:
    case btInset:
      cTop = kShadow, cRight = kLight, cBottom = kLight, cLeft = kShadow;
      break;
    case btRaised:
      cTop = kLight, cRight = kShadow, cBottom = kShadow, cLeft = kLight;
      break;
    default:
      break;
  }

  if (m_BorderStyle == btHeadLines) {
    // A double rule across the middle, indented 17 pixels on the left.
    float y = (bottom / 2) - ty();
    line(17 * tx(), y, right, y, m_CrossColor1);
    y = y + ty();
    line(17 * tx(), y, right, y, m_CrossColor2);
    guarded([&] { surface().Refresh(); });
    return;
  }

  if (m_BorderStyle == btCrossSingle || m_BorderStyle == btCrossFull) {
    // The offsets mix the horizontal and the vertical factor on purpose: the ornament at the
    // bottom right is no exact mirror of the one at the top left.
    float hw = right / 2, hh = bottom / 2;
    line(left, top + 10 * ty(), hw - hw / 2, top + 10 * ty(), m_CrossColor1);
    line(left + 50, top + 190, hw - hw / 2 + 60, top + 190, m_CrossColor2);
    line(left + 10 * tx(), top + 3 * ty(), left + 10 * tx(), hh, m_CrossColor2);
    line(left + 13 * tx(), 13 * tx(), left + 13 * tx(), hh - 4 * ty(), m_CrossColor1);
    if (m_BorderStyle == btCrossFull) {
      line(hw / 2 + hw - 3 * tx(), bottom - 13 * tx(), right - 3 * tx(), bottom - 13 * ty(), m_CrossColor2);
      line(hw / 2 + hw, bottom - 10 * tx(), right + tx(), bottom - 10 * tx(), m_CrossColor1);
      line(right - 10 * tx(), hh + tx(), right - 150, bottom - 3 * tx(), m_CrossColor2);
      line(right - 13 * tx(), hh + 5 * tx(), right - 13 * tx(), bottom + ty(), m_CrossColor1);
    }
    guarded([&] { surface().Refresh(); });
    return;
  }

  if (m_BorderStyle == btFlat || m_BorderStyle == btFrame || m_BorderStyle == btInset || m_BorderStyle == btRaised) {
    line(left, top, right, top, cTop);
    line(right, top, right, bottom, cRight);
    line(left + 1, bottom, right + 1, bottom, cBottom);
    line(left, top, left, bottom, cLeft);
  }

  if (m_BorderStyle == btFrame) {
    // The groove: the same box 15 twips inward with light and shadow swapped.
    constexpr float in = 15;
    line(left + in, top + in, right - in, top + in, kLight);
    line(right - in, top + in, right - in, bottom - in, kShadow);
    line(left + in + 1, bottom - in, right - in + 1, bottom - in, kShadow);
    line(left + in, top + in, left + in, bottom - in, kLight);
  }

  // Children placed by scale keep clear of the border.
  guarded([&] { surface().setScaleLeft(left + 4); });
  guarded([&] { surface().setScaleWidth(right - 4); });
  guarded([&] { surface().setScaleTop(top + 4); });
  guarded([&] { surface().setScaleHeight(bottom - 4); });

  guarded([&] { surface().Refresh(); });
}

// ---- members by name ----

const Dispatch* VexPane::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexPane>(t)
        .prop("BackColor", &VexPane::BackColor, &VexPane::setBackColor)
        .prop("BackColor2", &VexPane::BackColor2, &VexPane::setBackColor2)
        .prop("Gradient", &VexPane::Gradient, &VexPane::setGradient)
        .prop("GradientAngle", &VexPane::GradientAngle, &VexPane::setGradientAngle)
        .get("BorderStyle", [](VexPane& p) { return static_cast<int16_t>(p.BorderStyle()); })
        .let("BorderStyle", &VexPane::setBorderStyle)
        .prop("CrossColor1", &VexPane::CrossColor1, &VexPane::setCrossColor1)
        .prop("CrossColor2", &VexPane::CrossColor2, &VexPane::setCrossColor2)
        .prop("MousePointer", &VexPane::MousePointer, &VexPane::setMousePointer)
        .prop("MouseIcon", &VexPane::MouseIcon, &VexPane::setMouseIcon)
        .prop("ScaleHeight", &VexPane::ScaleHeight, &VexPane::setScaleHeight)
        .prop("ScaleLeft", &VexPane::ScaleLeft, &VexPane::setScaleLeft)
        .prop("ScaleTop", &VexPane::ScaleTop, &VexPane::setScaleTop)
        .prop("ScaleWidth", &VexPane::ScaleWidth, &VexPane::setScaleWidth)
        .method("ChangeColors", [](VexPane& p, Dispatch::Args& a) {
          return p.ChangeColors(a.at(0).toLong(), a.at(1).toLong());
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane
