// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/frame/gradient.h>
#include <corvane/notify/vex_alert.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/val.h>

namespace corvane {

namespace {
const char* const kDefaultOptionHeader = "Bitte wählen:";
constexpr OLE_COLOR kDefaultBackColor = 0x40;

// The system fades windows unless its version word is one of the old ones.
bool systemCanFade() {
  std::string os = Global::OSName();
  return os != "98" && os != "95" && os != "NT";
}
}  // namespace

void VexAlert::changed(const std::string& key) { PropertyChanged(key); }

void VexAlert::setEffekt(myFX v) {
  m_Effekt = v;
  changed("Effekt");
}
void VexAlert::setTimeMove(int32_t v) {
  m_TimeMove = v;
  changed("TimeMove");
}
void VexAlert::setTimewait(int32_t v) {
  m_Timewait = v < 1 ? 0 : v;
  changed("TimeWait");
}
void VexAlert::setAutoMaxHeight(int32_t v) {
  m_AutoMaxHeight = v;
  changed("AutoMaxHeight");
}
void VexAlert::setBackColor(OLE_COLOR v) {
  surface().setBackColor(v);
  changed("BackColor");
}
void VexAlert::setBackColorAlt(OLE_COLOR v) {
  m_BackColorAlt = v;
  changed("BackColorAlt");
}
void VexAlert::setForeColor(OLE_COLOR v) {
  m_ForeColor = v;
  changed("ForeColor");
}
void VexAlert::setForeColorHead(OLE_COLOR v) {
  m_ForeColorHead = v;
  changed("ForeColorHead");
}
void VexAlert::setForeColorHyper(OLE_COLOR v) {
  m_ForeColorHyper = v;
  changed("ForeColorHyper");
}
void VexAlert::setBannerColor(OLE_COLOR v) {
  m_BannerColor = v;
  changed("BannerColor");
}
void VexAlert::setMoveBarColor1(OLE_COLOR v) {
  m_MoveBarColor1 = v;
  changed("MoveBarColor1");
}
void VexAlert::setMoveBarColor2(OLE_COLOR v) {
  m_MoveBarColor2 = v;
  changed("MoveBarColor2");
}
void VexAlert::setBorderStyle(myBorderStyle v) {
  m_BorderStyle = v;
  changed("BorderStyle");
}
void VexAlert::setAlignment(myAlignment v) {
  m_Alignment = v;
  changed("Alignment");
}
void VexAlert::setGradientAngle(float v) {
  m_GradientAngle = v;
  changed("GradientAngle");
}
void VexAlert::setSound(bool v) {
  m_Sound = v;
  changed("Sound");
}
void VexAlert::setWaveFile(const std::string& v) {
  m_WaveFile = v;
  changed("WaveFile");
}
void VexAlert::setOptionHeader(const std::string& v) {
  m_OptionHeader = v;
  changed("OptionHeader");
}
void VexAlert::setMouseIcon(const PictureRef& v) {
  surface().setMouseIcon(v);
  changed("MouseIcon");
}

// ---- lifecycle ----

void VexAlert::InitProperties() {
  m_Effekt = FX1Scroll;
  m_TimeMove = 10;
  m_Timewait = 0;
  m_AutoMaxHeight = 4500;
  guarded([&] { surface().setBackColor(kDefaultBackColor); });
  m_BackColorAlt = 0xFF;
  m_ForeColor = 0xFFFFFF;
  m_ForeColorHead = 0x404040;
  m_ForeColorHyper = 0x99FFFF;
  m_BannerColor = 0xFFFFFF;
  m_MoveBarColor1 = 0xF5AB7A;
  m_MoveBarColor2 = 0x993F11;
  m_BorderStyle = B0Normal;
  m_Alignment = Zentriert;
  m_GradientAngle = 130;
  m_Sound = true;
  m_WaveFile.clear();
  m_OptionHeader = kDefaultOptionHeader;
  // A control made at run time without a stored state is in the state of a read one.
  m_canFade = systemCanFade();
}

void VexAlert::ReadProperties(PropertyBag& bag) {
  auto num = [&](const char* key, int32_t def) { return bag.ReadProperty(key, def).toLong(); };
  guarded([&] { m_Effekt = static_cast<myFX>(num("Effekt", FX1Scroll)); });
  guarded([&] { m_TimeMove = num("TimeMove", 10); });
  guarded([&] { m_Timewait = num("TimeWait", 0); });
  guarded([&] { m_AutoMaxHeight = num("AutoMaxHeight", 4500); });
  guarded([&] { surface().setBackColor(num("BackColor", kDefaultBackColor)); });
  guarded([&] { m_BackColorAlt = num("BackColorAlt", 0xFF); });
  guarded([&] { m_ForeColor = num("ForeColor", 0xFFFFFF); });
  guarded([&] { m_ForeColorHead = num("ForeColorHead", 0x404040); });
  guarded([&] { m_ForeColorHyper = num("ForeColorHyper", 0x99FFFF); });
  guarded([&] { m_BannerColor = num("BannerColor", 0xFFFFFF); });
  guarded([&] { m_MoveBarColor1 = num("MoveBarColor1", 0xF5AB7A); });
  guarded([&] { m_MoveBarColor2 = num("MoveBarColor2", 0x993F11); });
  guarded([&] { m_BorderStyle = static_cast<myBorderStyle>(num("BorderStyle", B0Normal)); });
  guarded([&] { m_Alignment = static_cast<myAlignment>(num("Alignment", Zentriert)); });
  guarded([&] { m_GradientAngle = bag.ReadProperty("GradientAngle", 130.0f).toSingle(); });
  guarded([&] { m_Sound = bag.ReadProperty("Sound", true).toBool(); });
  guarded([&] { m_WaveFile = bag.ReadProperty("WaveFile", std::string()).toString(); });
  guarded([&] {
    m_OptionHeader = bag.ReadProperty("OptionHeader", std::string(kDefaultOptionHeader)).toString();
  });
  guarded([&] { surface().setMouseIcon(bag.ReadProperty("MouseIcon", Variant()).as<PictureRef>()); });
  m_canFade = systemCanFade();
}

void VexAlert::WriteProperties(PropertyBag& bag) {
  guarded(
      [&] { bag.WriteProperty("Effekt", static_cast<int32_t>(m_Effekt), static_cast<int32_t>(FX1Scroll)); });
  guarded([&] { bag.WriteProperty("TimeMove", m_TimeMove, 10); });
  guarded([&] { bag.WriteProperty("TimeWait", m_Timewait, 0); });
  guarded([&] { bag.WriteProperty("AutoMaxHeight", m_AutoMaxHeight, 4500); });
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kDefaultBackColor); });
  guarded([&] { bag.WriteProperty("BackColorAlt", m_BackColorAlt, 0xFF); });
  guarded([&] { bag.WriteProperty("ForeColor", m_ForeColor, 0xFFFFFF); });
  guarded([&] { bag.WriteProperty("ForeColorHead", m_ForeColorHead, 0x404040); });
  guarded([&] { bag.WriteProperty("ForeColorHyper", m_ForeColorHyper, 0x99FFFF); });
  guarded([&] { bag.WriteProperty("BannerColor", m_BannerColor, 0xFFFFFF); });
  guarded([&] { bag.WriteProperty("MoveBarColor1", m_MoveBarColor1, 0xF5AB7A); });
  guarded([&] { bag.WriteProperty("MoveBarColor2", m_MoveBarColor2, 0x993F11); });
  guarded([&] {
    bag.WriteProperty("BorderStyle", static_cast<int32_t>(m_BorderStyle), static_cast<int32_t>(B0Normal));
  });
  guarded([&] {
    bag.WriteProperty("Alignment", static_cast<int32_t>(m_Alignment), static_cast<int32_t>(Zentriert));
  });
  guarded([&] { bag.WriteProperty("GradientAngle", m_GradientAngle, 130.0f); });
  guarded([&] { bag.WriteProperty("Sound", m_Sound, true); });
  guarded([&] { bag.WriteProperty("WaveFile", m_WaveFile, std::string()); });
  guarded([&] { bag.WriteProperty("OptionHeader", m_OptionHeader, std::string(kDefaultOptionHeader)); });
  guarded([&] { bag.WriteProperty("MouseIcon", surface().MouseIcon(), Variant()); });
}

// The size at design time is fixed.
void VexAlert::onResize() {
  if (m_sizing) return;
  m_sizing = true;
  guarded([&] {
    surface().setHeight(450);
    surface().setWidth(480);
  });
  m_sizing = false;
  redraw();
}

// Invisible at run time.
void VexAlert::Show() {
  if (ambient().UserMode()) guarded([&] { user().ShowWindow(surface().hWnd(), SW_HIDE); });
}

// At design time: a small gradient in the alert's colours with a banner strip.
void VexAlert::redraw() {
  guarded([&] {
    auto g = std::make_shared<CGradient>();
    g->setAngle(m_GradientAngle);
    g->setColor1(m_BackColorAlt);
    g->setColor2(surface().BackColor());
    HDC hdc = surface().hdc();
    g->DrawGradient(hdc, surface().pixelWidth(), surface().pixelHeight());
    HBRUSH banner = gdi().CreateSolidBrush(translateColor(m_BannerColor));
    gdi().FillRect(hdc, RECT{0, 0, surface().pixelWidth(), 7}, banner);
    gdi().DeleteObject(banner);
    HBRUSH frame = gdi().CreateSolidBrush(0);
    gdi().FrameRect(hdc, RECT{0, 0, surface().pixelWidth(), surface().pixelHeight()}, frame);
    gdi().DeleteObject(frame);
  });
}

// ---- methods ----

void VexAlert::AlertShow(const std::string& AlertText, bool CloseButton, bool BannerShow,
                         const std::string& AlertHeader, const std::string& EchoString,
                         const std::string& vTag, const std::string& OptionHeader,
                         const std::string& OptionTxt1, const std::string& OptionTxt2,
                         const std::string& OptionTxt3, int32_t PopupHeight, int32_t PopupWidth,
                         int32_t Timewait, OLE_COLOR BackColor, OLE_COLOR BackColorAlt,
                         const PictureRef& IconPic, int32_t IconX, int32_t IconY, int32_t TextX,
                         int32_t TextY, const PictureRef& WallPic) {
  auto alert = frmAlert::Load();
  alert->setParent(shared_from_this());
  if (PopupHeight > 0 && PopupHeight < 345) PopupHeight = 345;
  if (PopupWidth < 345) PopupWidth = 345;
  if (BackColor == -1) BackColor = surface().BackColor();
  if (BackColorAlt == -1) BackColorAlt = m_BackColorAlt;
  std::string header = OptionHeader.empty() ? m_OptionHeader : OptionHeader;
  if (!AlertHeader.empty() || BannerShow) TextY += 270;
  if (!m_canFade) m_Effekt = FX1Scroll;  // the property itself, not only this call
  alert->DisplayAlert(AlertHeader, AlertText, EchoString, vTag, header, OptionTxt1, OptionTxt2, OptionTxt3,
                      m_WaveFile, m_Sound, CloseButton, BannerShow, m_BannerColor, m_ForeColorHead,
                      m_ForeColor, m_ForeColorHyper, BackColor, BackColorAlt, m_MoveBarColor1,
                      m_MoveBarColor2, m_BorderStyle, m_Effekt, m_Alignment, PopupHeight, PopupWidth,
                      m_GradientAngle, m_TimeMove, Timewait, IconPic, IconX, IconY, TextX, TextY,
                      m_AutoMaxHeight, WallPic);
}

void VexAlert::AlertReplace(const std::string& EchoString, const std::string& AlertText, bool CloseButton,
                            bool BannerShow, const std::string& vTag, const std::string& AlertHeader,
                            const std::string& OptionHeader, const std::string& OptionTxt1,
                            const std::string& OptionTxt2, const std::string& OptionTxt3, int32_t PopupHeight,
                            int32_t PopupWidth, int32_t Timewait, OLE_COLOR BackColor, OLE_COLOR BackColorAlt,
                            const PictureRef& IconPic, int32_t IconX, int32_t IconY, int32_t TextX,
                            int32_t TextY, const PictureRef& WallPic) {
  for (const auto& old : frmAlert::loaded()) {
    if (old->EchoString != EchoString) continue;
    std::string oldTag = old->headTag();
    int32_t aktTop = CLng(Val(old->Tag));
    AlertClosed(EchoString, oldTag, aktTop);
    old->Tag = "0";
    old->EchoString = frmAlert::kKilled;
    old->tmrWarten_Timer();
  }
  AlertShow(AlertText, CloseButton, BannerShow, AlertHeader, EchoString, vTag, OptionHeader, OptionTxt1,
            OptionTxt2, OptionTxt3, PopupHeight, PopupWidth, Timewait, BackColor, BackColorAlt, IconPic,
            IconX, IconY, TextX, TextY, WallPic);
}

bool VexAlert::AlertClose(const std::string& EchoString) {
  frmAlert::closeAll(EchoString);
  return false;
}

bool VexAlert::IsAlertShowed(const std::string& EchoString) { return frmAlert::isShowed(EchoString); }

void VexAlert::AlertClick(const std::string& EchoString, const std::string& vTag, int16_t OptionID) {
  Click(EchoString, vTag, OptionID);
}

void VexAlert::AlertClosed(const std::string& EchoString, const std::string& vTag, int32_t aktTop) {
  frmAlert::repairStack(aktTop);
  AlertClosedEvent(EchoString, vTag);
}

void VexAlert::AlertMouseMove(const std::string& EchoString, const std::string& vTag, int16_t Button,
                              int16_t Shift, float x, float Y) {
  MouseMove(EchoString, vTag, Button, Shift, x, Y);
}

void VexAlert::AlertShowed(const std::string& EchoString, const std::string& vTag) {
  AlertShowedEvent(EchoString, vTag);
}

const Dispatch* VexAlert::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    auto str = [](Dispatch::Args& a, size_t i, const std::string& def = {}) {
      return a.size() > i && !a[i].isEmpty() ? a[i].toString() : def;
    };
    auto lng = [](Dispatch::Args& a, size_t i, int32_t def) {
      return a.size() > i && !a[i].isEmpty() ? a[i].toLong() : def;
    };
    auto pic = [](Dispatch::Args& a, size_t i) {
      return a.size() > i && !a[i].isEmpty() ? a[i].as<PictureRef>() : PictureRef();
    };
    DispatchBuilder<VexAlert>(t)
        .prop("TimeMove", &VexAlert::TimeMove, &VexAlert::setTimeMove)
        .prop("Timewait", &VexAlert::Timewait, &VexAlert::setTimewait)
        .prop("AutoMaxHeight", &VexAlert::AutoMaxHeight, &VexAlert::setAutoMaxHeight)
        .prop("BackColorAlt", &VexAlert::BackColorAlt, &VexAlert::setBackColorAlt)
        .prop("ForeColor", &VexAlert::ForeColor, &VexAlert::setForeColor)
        .prop("ForeColorHead", &VexAlert::ForeColorHead, &VexAlert::setForeColorHead)
        .prop("ForeColorHyper", &VexAlert::ForeColorHyper, &VexAlert::setForeColorHyper)
        .prop("BannerColor", &VexAlert::BannerColor, &VexAlert::setBannerColor)
        .prop("MoveBarColor1", &VexAlert::MoveBarColor1, &VexAlert::setMoveBarColor1)
        .prop("MoveBarColor2", &VexAlert::MoveBarColor2, &VexAlert::setMoveBarColor2)
        .prop("GradientAngle", &VexAlert::GradientAngle, &VexAlert::setGradientAngle)
        .prop("Sound", &VexAlert::Sound, &VexAlert::setSound)
        .prop("WaveFile", &VexAlert::WaveFile, &VexAlert::setWaveFile)
        .prop("OptionHeader", &VexAlert::OptionHeader, &VexAlert::setOptionHeader)
        .get("Effekt", [](VexAlert& c) { return static_cast<int32_t>(c.Effekt()); })
        .get("BorderStyle", [](VexAlert& c) { return static_cast<int32_t>(c.BorderStyle()); })
        .get("Alignment", [](VexAlert& c) { return static_cast<int32_t>(c.Alignment()); })
        .method("AlertShow",
                [str, lng, pic](VexAlert& c, Dispatch::Args& a) {
                  c.AlertShow(str(a, 0), a.size() > 1 && a[1].toBool(),
                              a.size() > 2 && !a[2].isEmpty() ? a[2].toBool() : true, str(a, 3), str(a, 4),
                              str(a, 5), str(a, 6), str(a, 7), str(a, 8), str(a, 9), lng(a, 10, 2000),
                              lng(a, 11, 2000), lng(a, 12, 0), lng(a, 13, -1), lng(a, 14, -1), pic(a, 15),
                              lng(a, 16, 30), lng(a, 17, 30), lng(a, 18, 60), lng(a, 19, 30), pic(a, 20));
                })
        .method("AlertClose", [str](VexAlert& c, Dispatch::Args& a) { return c.AlertClose(str(a, 0)); })
        .method("IsAlertShowed", [str](VexAlert& c, Dispatch::Args& a) { return c.IsAlertShowed(str(a, 0)); })
        .method("AlertClick",
                [str](VexAlert& c, Dispatch::Args& a) {
                  c.AlertClick(str(a, 0), str(a, 1), static_cast<int16_t>(a.at(2).toInteger()));
                })
        .method(
            "AlertClosed",
            [str, lng](VexAlert& c, Dispatch::Args& a) { c.AlertClosed(str(a, 0), str(a, 1), lng(a, 2, 0)); })
        .method("AlertMouseMove",
                [str](VexAlert& c, Dispatch::Args& a) {
                  c.AlertMouseMove(str(a, 0), str(a, 1), static_cast<int16_t>(a.at(2).toInteger()),
                                   static_cast<int16_t>(a.at(3).toInteger()), a.at(4).toSingle(),
                                   a.at(5).toSingle());
                })
        .method("AlertShowed",
                [str](VexAlert& c, Dispatch::Args& a) { c.AlertShowed(str(a, 0), str(a, 1)); });
    t.addSetter("Effekt", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexAlert&>(o).setEffekt(static_cast<myFX>(v.toLong()));
    });
    t.addSetter("BorderStyle", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexAlert&>(o).setBorderStyle(static_cast<myBorderStyle>(v.toLong()));
    });
    t.addSetter("Alignment", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexAlert&>(o).setAlignment(static_cast<myAlignment>(v.toLong()));
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane
