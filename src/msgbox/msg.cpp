// SPDX-License-Identifier: MIT
#include <corvane/host/screen.h>
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/msgbox/msg.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>

namespace corvane {

namespace {
// The side of the control at design time, which every resize restores.
constexpr float kDesignSide = 480;

bool hasPicture(const PictureRef& p) { return p && p->Handle() != 0; }
Variant pictureToStore(const PictureRef& p) { return hasPicture(p) ? Variant(p) : Variant(); }
}  // namespace

const std::map<std::string, std::string>& Msg::textDefaults() {
  static const std::map<std::string, std::string> d = {
      {"strOk", "OK"},
      {"strRetry", "Wieder&holen"},
      {"strCancel", "Abbrechen"},
      {"strYes", "&Ja"},
      {"strNo", "&Nein"},
      {"strIgnore", "&Ignorieren"},
      {"strAbord", "&Abbrechen"},
      {"strHelp", "Hilfe"},
      {"strMoreOpen", "&Details >>"},
      {"strMoreClose", "<< &Details"},
      {"strSend", "Meldung per E-Mail versenden..."},
      {"strCopy", "Meldung in die Zwischenablage kopieren"},
      {"strCheck", "Diese Meldung nicht mehr anzeigen"},
      {"strDelText", "Löschbestätigung erforderlich!"},
      {"strMailAdress", ""},
      {"strMailSubject", ""},
      {"strMailBody", ""},
      {"AppPath", ""},
  };
  return d;
}

const std::map<std::string, int32_t>& Msg::lengthDefaults() {
  static const std::map<std::string, int32_t> d = {
      {"spHleft", 165},       {"spHicon_Label", 240}, {"spHbuttons", 105},      {"spHleftButtons", 165},
      {"spHrightLabel", 165}, {"spVmiddle", 255},     {"spVup", 165},           {"spVdown", 165},
      {"spHleftCheck", 90},   {"spVdownCheck", 90},   {"ButtonsWidth", 1200},   {"ButtonsHeight", 360},
      {"CheckWidth", 3130},   {"CheckHeight", 300},   {"textMoreHeight", 2070}, {"cmdSendWidth", 3500},
      {"cmdSendHeight", 360}, {"cmdMoreWidth", 1200}, {"cmdMoreHeight", 360},   {"formMaxWidth", 9990},
      {"formMinWidth", 4000}, {"spHrightMore", 150},  {"spVdownMore", 90},      {"FormTop", 0},
      {"FormLeft", 0},        {"DelaySec", 3},
  };
  return d;
}

const std::vector<std::string>& Msg::pictureKeys() {
  static const std::vector<std::string> k = {
      "imgCritical", "imgQuestion", "imgExclamation", "imgInformation", "imOk",     "imYes",
      "imNo",        "imCancel",    "imRetry",        "imAbort",        "imIgnore", "imCmdSend",
      "imCmdMore",   "imCmdHelp",   "imDelete",       "imFehler",       "imSave"};
  return k;
}

// The mail fields and the kept path are the host's data, not part of the factory look.
static bool keptByInitialise(const std::string& key) {
  return key == "strMailAdress" || key == "strMailSubject" || key == "strMailBody" || key == "AppPath";
}

Msg::Msg() {
  m_texts = textDefaults();
  m_lengths = lengthDefaults();
  for (const auto& k : pictureKeys()) m_pictures[k] = nullptr;
}

void Msg::setTextValue(const std::string& key, const std::string& value) {
  m_texts[key] = value;
  PropertyChanged(key);
}

void Msg::setLengthValue(const std::string& key, int32_t value) {
  m_lengths[key] = value;
  PropertyChanged(key);
}

void Msg::setPictureValue(const std::string& key, const PictureRef& value) {
  m_pictures[key] = value;
  PropertyChanged(key);
}

void Msg::setGrayScale(bool value) {
  m_GrayScale = value;
  PropertyChanged("GrayScale");
}

void Msg::setSendMethode(exSendMethode value) {
  m_SendMethode = value;
  PropertyChanged("SendMethode");
}

void Msg::Initialise() {
  for (const auto& [key, value] : textDefaults())
    if (!keptByInitialise(key)) setTextValue(key, value);
  for (const auto& [key, value] : lengthDefaults()) setLengthValue(key, value);
  setGrayScale(false);
  for (const auto& key : pictureKeys()) setPictureValue(key, nullptr);
}

void Msg::InitProperties() { Initialise(); }

void Msg::ReadProperties(PropertyBag& bag) {
  // Pairs, not structured bindings: Clang 14 cannot capture those in a lambda.
  for (const auto& entry : textDefaults())
    guarded([&] { m_texts[entry.first] = bag.ReadProperty(entry.first, entry.second).toString(); });
  for (const auto& entry : lengthDefaults())
    guarded([&] { m_lengths[entry.first] = bag.ReadProperty(entry.first, entry.second).toLong(); });
  for (const auto& key : pictureKeys())
    guarded([&] { m_pictures[key] = bag.ReadProperty(key, Variant()).as<PictureRef>(); });
  guarded([&] { m_GrayScale = bag.ReadProperty("GrayScale", false).toBool(); });
  guarded([&] {
    m_SendMethode =
        static_cast<exSendMethode>(bag.ReadProperty("SendMethode", static_cast<int32_t>(exNone)).toLong());
  });
}

void Msg::WriteProperties(PropertyBag& bag) {
  for (const auto& entry : textDefaults())
    guarded([&] { bag.WriteProperty(entry.first, m_texts.at(entry.first), entry.second); });
  for (const auto& entry : lengthDefaults())
    guarded([&] { bag.WriteProperty(entry.first, m_lengths.at(entry.first), entry.second); });
  for (const auto& key : pictureKeys())
    guarded([&] { bag.WriteProperty(key, pictureToStore(m_pictures.at(key)), Variant()); });
  guarded([&] { bag.WriteProperty("GrayScale", m_GrayScale, false); });
  guarded([&] {
    bag.WriteProperty("SendMethode", static_cast<int32_t>(m_SendMethode), static_cast<int32_t>(exNone));
  });
}

void Msg::onResize() {
  // The control's size is fixed; moving the window raises another resize, which must not loop.
  if (m_resizing || !isSited()) return;
  m_resizing = true;
  guarded([&] {
    Screen& s = Screen::instance();
    int32_t side = CLng(kDesignSide / s.TwipsPerPixelX()), sideY = CLng(kDesignSide / s.TwipsPerPixelY());
    RECT r;
    user().GetWindowRect(hWnd(), r);
    POINTAPI p{r.Left, r.Top};
    HWND parent = user().GetParent(hWnd());
    if (parent) user().ScreenToClient(parent, p);
    user().MoveWindow(hWnd(), p.x, p.y, side, sideY, true);
  });
  m_resizing = false;
}

int32_t Msg::MsgBoxEx(const std::string& Prompt, int32_t buttons, const std::string& Title,
                      const std::string& HelpFile, int32_t Context, int32_t exOptions,
                      const std::string& Details, bool DetailsCopySendButton, const PictureRef& Icon,
                      bool UseCustomButtonText) {
  frmMsgBoxIe& box = frmMsgBoxIe::instance();
  MsgBoxRequest request{Prompt,  buttons,
                        Title,   HelpFile,
                        Context, exOptions,
                        Details, DetailsCopySendButton,
                        Icon,    UseCustomButtonText};
  std::string shownTitle = box.build(*this, request);
  if (UseCustomButtonText) {
    // The custom texts serve one box only.
    m_TempButtonsWidth = 0;
    for (auto& t : m_TempButtonsText) t.clear();
  }
  std::string oldHelpFile = App::instance().HelpFile();
  if (!HelpFile.empty()) App::instance().setHelpFile(HelpFile);
  if (box.noModal()) {
    box.showModeless();
  } else {
    box.showModal();
  }
  int32_t value = box.result;
  DisplayAgain = box.showAgain;
  if (box.sendFlag && !box.noModal()) SendClick(shownTitle, Prompt, Details);
  if (!HelpFile.empty() && !box.noModal()) App::instance().setHelpFile(oldHelpFile);
  Closed(shownTitle);
  return value;
}

const Dispatch* Msg::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    for (const auto& [key, value] : textDefaults()) {
      std::string k = key;
      t.addGetter(k, [k](Object& o, Dispatch::Args&) { return Variant(static_cast<Msg&>(o).m_texts.at(k)); });
      t.addSetter(k, [k](Object& o, Dispatch::Args&, const Variant& v) {
        static_cast<Msg&>(o).setTextValue(k, v.toString());
      });
    }
    for (const auto& [key, value] : lengthDefaults()) {
      std::string k = key;
      t.addGetter(k,
                  [k](Object& o, Dispatch::Args&) { return Variant(static_cast<Msg&>(o).m_lengths.at(k)); });
      t.addSetter(k, [k](Object& o, Dispatch::Args&, const Variant& v) {
        static_cast<Msg&>(o).setLengthValue(k, v.toLong());
      });
    }
    for (const auto& key : pictureKeys()) {
      std::string k = key;
      t.addGetter(k,
                  [k](Object& o, Dispatch::Args&) { return Variant(static_cast<Msg&>(o).m_pictures.at(k)); });
      t.addSetter(k, [k](Object& o, Dispatch::Args&, const Variant& v) {
        static_cast<Msg&>(o).setPictureValue(k, v.as<PictureRef>());
      });
    }
    DispatchBuilder<Msg>(t)
        .prop("GrayScale", &Msg::GrayScale, &Msg::setGrayScale)
        .get("SendMethode", [](Msg& m) { return static_cast<int32_t>(m.SendMethode()); })
        .get("DisplayAgain", [](Msg& m) { return m.DisplayAgain; })
        .method("Initialise", [](Msg& m, Dispatch::Args&) { m.Initialise(); })
        .method("MsgBoxEx", [](Msg& m, Dispatch::Args& a) {
          auto arg = [&](size_t i) { return i < a.size() && !a[i].isEmpty(); };
          return m.MsgBoxEx(a.at(0).toString(), arg(1) ? a[1].toLong() : 0,
                            arg(2) ? a[2].toString() : std::string("App.title"),
                            arg(3) ? a[3].toString() : "", arg(4) ? a[4].toLong() : 0,
                            arg(5) ? a[5].toLong() : 0, arg(6) ? a[6].toString() : "",
                            arg(7) ? a[7].toBool() : false, arg(8) ? a[8].as<PictureRef>() : nullptr,
                            arg(9) ? a[9].toBool() : false);
        });
    t.addSetter("SendMethode", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<Msg&>(o).setSendMethode(static_cast<exSendMethode>(v.toLong()));
    });
    t.addSetter("DisplayAgain", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<Msg&>(o).DisplayAgain = v.toBool();
    });
    t.addSetter("TempButtonsWidth", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<Msg&>(o).setTempButtonsWidth(v.toLong());
    });
    for (int i = 0; i < 4; ++i)
      t.addSetter("TempButtonsText" + std::to_string(i + 1),
                  [i](Object& o, Dispatch::Args&, const Variant& v) {
                    static_cast<Msg&>(o).m_TempButtonsText[i] = v.toString();
                  });
    return t;
  }();
  return &d;
}

}  // namespace corvane
