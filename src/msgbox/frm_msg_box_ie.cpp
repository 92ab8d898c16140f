// SPDX-License-Identifier: MIT
#include <corvane/host/label.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/html/vex_html.h>
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/msgbox/msg.h>
#include <corvane/msgbox/msg_button.h>
#include <corvane/msgbox/msg_timer.h>
#include <corvane/platform/api.h>
#include <corvane/platform/modal_loop.h>
#include <corvane/platform/shell.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/datetime.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/val.h>
#include <corvane/system/my_tools.h>

#include <algorithm>

#include "host/window_geometry.h"

namespace corvane {

namespace {
constexpr const char* kFormName = "frmMsgBoxIe";
// The drawn frame: a border round the window and a caption bar under the top border, in pixels.
constexpr int32_t kBorder = 3, kCaptionBar = 18, kCloseBox = 14;
// How often the top-most guard looks at the window.
constexpr int32_t kSysModalInterval = 200;
constexpr int32_t COLOR_ACTIVECAPTION = 2, COLOR_CAPTIONTEXT = 9, COLOR_BTNFACE = 15;
const char* const kCrLf = "\r\n";

int32_t tx() { return CLng(Screen::instance().TwipsPerPixelX()); }
int32_t ty() { return CLng(Screen::instance().TwipsPerPixelY()); }
int32_t toPxX(int32_t twips) { return CLng(static_cast<double>(twips) / tx()); }
int32_t toPxY(int32_t twips) { return CLng(static_cast<double>(twips) / ty()); }

template <class T>
T* controlAs(const std::weak_ptr<Form>& form, const std::string& name) {
  FormRef f = form.lock();
  if (!f) return nullptr;
  return dynamic_cast<T*>(f->control(name).get());
}

// Takes the value off the front of the flags when it is there, as the box decodes its styles.
bool takeFlag(int32_t& rest, int32_t flag) {
  if (rest < flag) return false;
  rest -= flag;
  return true;
}
}  // namespace

frmMsgBoxIe& frmMsgBoxIe::instance() {
  static frmMsgBoxIe box;
  return box;
}

Form* frmMsgBoxIe::form() const { return m_form.lock().get(); }
Label* frmMsgBoxIe::lblMsg() const { return controlAs<Label>(m_form, "lblMsg"); }
PictureBox* frmMsgBoxIe::ImIco() const { return controlAs<PictureBox>(m_form, "ImIco"); }
MsgButton* frmMsgBoxIe::cmdSys(int index) const {
  if (index < 0 || index > 3) return nullptr;
  return controlAs<MsgButton>(m_form, "cmdSys" + std::to_string(index));
}
MsgButton* frmMsgBoxIe::cmdDetail() const { return controlAs<MsgButton>(m_form, "cmdDetail"); }
MsgButton* frmMsgBoxIe::cmdCopier() const { return controlAs<MsgButton>(m_form, "cmdCopier"); }
MsgButton* frmMsgBoxIe::chkMsg() const { return controlAs<MsgButton>(m_form, "chkMsg"); }
VexHTML* frmMsgBoxIe::txtDetail() const { return controlAs<VexHTML>(m_form, "txtDetail"); }
MsgTimer* frmMsgBoxIe::Timer1() const { return controlAs<MsgTimer>(m_form, "Timer1"); }
MsgTimer* frmMsgBoxIe::tmrSysModal() const { return controlAs<MsgTimer>(m_form, "tmrSysModal"); }

bool frmMsgBoxIe::isOpen() const { return m_open && form() != nullptr; }

int32_t frmMsgBoxIe::frameW() { return 2 * kBorder * tx(); }
int32_t frmMsgBoxIe::frameH() { return (2 * kBorder + kCaptionBar) * ty(); }

int32_t frmMsgBoxIe::Width() const {
  Form* f = form();
  return f ? f->surface().pixelWidth() * tx() : 0;
}
int32_t frmMsgBoxIe::Height() const {
  Form* f = form();
  return f ? f->surface().pixelHeight() * ty() : 0;
}
int32_t frmMsgBoxIe::Left() const {
  Form* f = form();
  return f ? CLng(f->Left()) : 0;
}
int32_t frmMsgBoxIe::Top() const {
  Form* f = form();
  return f ? CLng(f->Top()) : 0;
}

void frmMsgBoxIe::Move(int32_t left, int32_t top, int32_t width, int32_t height) {
  Form* f = form();
  if (!f) return;
  int32_t w = std::max(toPxX(width), 2 * kBorder), h = std::max(toPxY(height), 2 * kBorder + kCaptionBar);
  user().MoveWindow(f->hWnd(), toPxX(left), toPxY(top), w, h, true);
  if (HostedControlRef client = f->control("picClient"))
    user().MoveWindow(client->surface().hWnd(), kBorder, kBorder + kCaptionBar, w - 2 * kBorder,
                      h - 2 * kBorder - kCaptionBar, true);
  drawFrame();
}

std::string frmMsgBoxIe::Caption() const {
  Form* f = form();
  return f ? f->Caption() : std::string();
}

void frmMsgBoxIe::setCaption(const std::string& value) {
  Form* f = form();
  if (!f) return;
  f->setCaption(value);
  drawFrame();
}

frmMsgBoxIe::Place frmMsgBoxIe::placeOf(const HostedControl& control) const {
  RECT r = clientRectInParent(control);
  return Place{r.Left * tx(), r.Top * ty(), (r.Right - r.Left) * tx(), (r.Bottom - r.Top) * ty()};
}

void frmMsgBoxIe::setPlace(HostedControl& control, int32_t left, int32_t top, int32_t width, int32_t height) {
  user().MoveWindow(control.surface().hWnd(), toPxX(left), toPxY(top), std::max(toPxX(width), 0),
                    std::max(toPxY(height), 0), true);
}

// ---- the window ----

void frmMsgBoxIe::createWindow() {
  FormRef f = Form::create(kFormName, 6000, 3000, true);
  m_form = f;
  f->surface().setFont(StdFont::create(FontSpec{"Tahoma", 8}));
  auto client = std::make_shared<PictureBox>();
  f->add(client, "PictureBox", "picClient", nullptr, kBorder * tx(), (kBorder + kCaptionBar) * ty(), 6000,
         2000);
  client->surface().setScaleMode(Surface::Twips);
  auto label = std::make_shared<Label>();
  f->add(label, "Label", "lblMsg", client.get(), 0, 0, 1000, 200);
  label->surface().setScaleMode(Surface::Pixels);
  label->setFont(StdFont::create(FontSpec{"Tahoma", 8}));
  label->setBackColor(static_cast<OLE_COLOR>(0x80000000 | COLOR_BTNFACE));
  label->setAutoSize(true);
  auto icon = std::make_shared<PictureBox>();
  f->add(icon, "PictureBox", "ImIco", client.get(), 0, 0, 480, 480);
  user().ShowWindow(icon->surface().hWnd(), SW_HIDE);
  auto addButton = [&](const std::string& name, MsgButton::Kind kind) {
    auto b = std::make_shared<MsgButton>(kind);
    f->add(b, b->typeName(), name, client.get(), 0, 0, 1200, 360);
    b->setVisible(false);
    b->KeyPress.connect([this](int16_t& key) { Form_KeyPress(key); });
    return b;
  };
  for (int i = 0; i < 4; ++i) {
    auto b = addButton("cmdSys" + std::to_string(i), MsgButton::PushButton);
    b->Click.connect([this, i] { cmdSys_Click(i); });
  }
  addButton("cmdDetail", MsgButton::PushButton)->Click.connect([this] { cmdDetail_Click(); });
  addButton("cmdCopier", MsgButton::PushButton)->Click.connect([this] { cmdCopier_Click(); });
  addButton("chkMsg", MsgButton::CheckBox)->Click.connect([this] { chkMsg_Click(); });
  auto details = std::make_shared<VexHTML>();
  f->add(details, "VexHTML", "txtDetail", client.get(), 0, 3000, 3000, 2070);
  details->HyperlinkClick.connect([this](std::string&, std::string& href) { txtDetail_HyperlinkClick(href); });
  user().ShowWindow(details->surface().hWnd(), SW_HIDE);
  auto timer = std::make_shared<MsgTimer>(1000);
  f->add(timer, "Timer", "Timer1", nullptr, 0, 0, 0, 0);
  timer->Timer.connect([this] { Timer1_Timer(); });
  auto guard = std::make_shared<MsgTimer>(kSysModalInterval);
  f->add(guard, "Timer", "tmrSysModal", nullptr, 0, 0, 0, 0);
  guard->Timer.connect([this] { tmrSysModal_Timer(); });

  f->surface().KeyPress.connect([this](int16_t& key) { Form_KeyPress(key); });
  client->surface().KeyPress.connect([this](int16_t& key) { Form_KeyPress(key); });
  f->surface().MouseUp.connect([this](int16_t& button, int16_t&, float& x, float& y) {
    if (button == 1) onFrameMouseUp(x, y);
  });
  f->surface().Paint.connect([this] { drawFrame(); });
  f->QueryUnload.connect([this](int16_t& cancel, int16_t&) {
    // The user's close goes through the system menu's rules; the window itself stays until the
    // box is done with it.
    systemClose();
    cancel = 1;
  });
  m_systemMenu = {"Verschieben", "-", "Schließen"};
}

void frmMsgBoxIe::drawFrame() {
  Form* f = form();
  if (!f) return;
  Surface& s = f->surface();
  HDC hdc = s.hdc();
  int32_t w = s.pixelWidth(), h = s.pixelHeight();
  HBRUSH face = gdi().CreateSolidBrush(gdi().GetSysColor(COLOR_BTNFACE));
  gdi().FillRect(hdc, RECT{0, 0, w, h}, face);
  gdi().DeleteObject(face);
  RECT edge{0, 0, w, h};
  gdi().DrawEdge(hdc, edge, EDGE_RAISED, BF_RECT);
  RECT bar{kBorder, kBorder, w - kBorder, kBorder + kCaptionBar};
  HBRUSH caption = gdi().CreateSolidBrush(gdi().GetSysColor(COLOR_ACTIVECAPTION));
  gdi().FillRect(hdc, bar, caption);
  gdi().DeleteObject(caption);
  FontSpec bold{"Tahoma", 8};
  bold.bold = true;
  OLE_COLOR text = static_cast<OLE_COLOR>(0x80000000 | COLOR_CAPTIONTEXT);
  Label::drawText(hdc, bold, text, f->Caption(),
                  RECT{bar.Left + 2, bar.Top, bar.Right - kCloseBox - 4, bar.Bottom},
                  DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  if (std::find(m_systemMenu.begin(), m_systemMenu.end(), "Schließen") != m_systemMenu.end()) {
    RECT box{bar.Right - kCloseBox - 2, bar.Top + 2, bar.Right - 2, bar.Bottom - 2};
    HBRUSH boxFace = gdi().CreateSolidBrush(gdi().GetSysColor(COLOR_BTNFACE));
    gdi().FillRect(hdc, box, boxFace);
    gdi().DeleteObject(boxFace);
    RECT boxEdge = box;
    gdi().DrawEdge(hdc, boxEdge, EDGE_RAISED, BF_RECT);
    Label::drawText(hdc, bold, static_cast<OLE_COLOR>(0), "x", box, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  }
}

void frmMsgBoxIe::onFrameMouseUp(float x, float y) {
  Form* f = form();
  if (!f) return;
  int32_t px = CLng(x / tx()), py = CLng(y / ty());
  int32_t right = f->surface().pixelWidth() - kBorder;
  if (py >= kBorder && py < kBorder + kCaptionBar && px >= right - kCloseBox - 2 && px < right - 2)
    systemClose();
}

// ---- building ----

int32_t frmMsgBoxIe::labelWidth() const { return lblMsg()->Width() * tx(); }
int32_t frmMsgBoxIe::labelHeight() const { return lblMsg()->Height() * ty(); }

void frmMsgBoxIe::makeFirstInTabOrder(int index) {
  // As the form engine does: the others that stood before it move one place back.
  int old = cmdSys(index)->TabIndex;
  for (int i = 0; i < 4; ++i)
    if (i != index && cmdSys(i)->TabIndex < old) cmdSys(i)->TabIndex += 1;
  cmdSys(index)->TabIndex = 0;
}

void frmMsgBoxIe::setIcon(const PictureRef& picture) {
  PictureBox* ico = ImIco();
  ico->surface().setPicture(picture);
  SIZE size = picture && picture->Handle() ? gdi().GetImageSize(picture->Handle()) : SIZE{32, 32};
  RECT r = clientRectInParent(*ico);
  user().MoveWindow(ico->surface().hWnd(), r.Left, r.Top, size.cx, size.cy, true);
  ico->surface().Cls();
  if (m_grayScale && picture && picture->Handle()) {
    // Each pixel as its brightness, and the grey copy becomes the picture, so that a repaint
    // shows it grey too.
    HDC hdc = ico->surface().hdc();
    for (int32_t y = 0; y < size.cy; ++y)
      for (int32_t x = 0; x < size.cx; ++x) {
        COLORREF c = gdi().GetPixel(hdc, x, y);
        if (c == static_cast<COLORREF>(-1)) continue;
        int32_t level = ((c & 0xFF) * 299 + ((c >> 8) & 0xFF) * 587 + ((c >> 16) & 0xFF) * 114) / 1000;
        gdi().SetPixel(hdc, x, y, static_cast<COLORREF>(level | (level << 8) | (level << 16)));
      }
    ico->surface().setPicture(ico->surface().Image());
    ico->surface().Cls();
  }
  user().ShowWindow(ico->surface().hWnd(), SW_SHOWNOACTIVATE);
}

void frmMsgBoxIe::wrapPrompt(const std::string& prompt, int32_t maxWidth) {
  Label* label = lblMsg();
  // Each line is measured by itself: the lines before it are done and stay within the limit, or
  // hold one word that is wider on its own.
  std::vector<std::string> words = Split(prompt, " ");
  std::string done, line;
  label->setCaption("");
  label->setAutoSize(false);
  label->setAutoSize(true);
  for (const std::string& word : words) {
    std::string tried = line + word + " ";
    label->setCaption(tried);
    if (labelWidth() > maxWidth && !line.empty()) {
      // Cut back at the last blank: the word goes to a line of its own.
      done += line + kCrLf;
      line = word + " ";
    } else {
      line = tried;
    }
  }
  label->setCaption(done + line);
}

std::string frmMsgBoxIe::build(const Msg& o, const MsgBoxRequest& rq) {
  dispose();
  createWindow();
  m_open = false;
  // 1. Reset.
  result = 0;
  showAgain = true;
  autoCloseOn = waitTimeOn = false;
  sendFlag = false;
  tmrSysModal()->setEnabled(false);
  Timer1()->setEnabled(false);
  SystemModal = false;
  m_grayScale = o.GrayScale();
  sendAuto = o.SendMethode() == exSendAuto;
  sendManual = o.SendMethode() == exSendManual;
  defaultButtonIndex = 0;
  mailSubject.clear();
  mailBody.clear();
  Tag.clear();
  m_context = rq.Context;

  // 2. The extended options.
  int32_t ex = rq.exOptions, rest = ex;
  bool centerText = false, manualPos = false, centerOwner = false, showCheck = false;
  if (rest < 0) rest = 0;
  rest &= 255;  // other bits are ignored
  autoCloseOn = takeFlag(rest, 128);
  centerText = takeFlag(rest, 64);
  manualPos = takeFlag(rest, 32);
  centerOwner = takeFlag(rest, 16);
  waitTimeOn = takeFlag(rest, 8);
  m_noModal = takeFlag(rest, 4);
  showCheck = takeFlag(rest, 2);
  if (centerText) lblMsg()->setAlignment(2);

  // 3. The first button starts as OK.
  for (int i = 0; i < 4; ++i) {
    cmdSys(i)->Tag.clear();
    cmdSys(i)->TabIndex = i;
    cmdSys(i)->setEnabled(true);
  }
  cmdSys(0)->setCaption(o.strOk());
  cmdSys(0)->setVisible(true);
  cmdSys(0)->Tag = "1";
  m_cancelIndex = 0;

  // 4. Style flags, by the same descending subtraction.
  int32_t b = rq.buttons;
  takeFlag(b, 1048576);
  if (takeFlag(b, 524288)) lblMsg()->setAlignment(1);
  if (takeFlag(b, 65536)) SystemModal = true;
  if (takeFlag(b, 16384)) {
    cmdSys(3)->setVisible(true);
    cmdSys(3)->setCaption(o.strHelp());
    cmdSys(3)->Tag = o.strHelp();
    HelpContextID = rq.Context;
  }
  if (takeFlag(b, 4096)) SystemModal = true;
  for (int index : {3, 2, 1}) {
    if (!takeFlag(b, index * 256)) continue;
    makeFirstInTabOrder(index);
    m_cancelIndex = index;
  }
  // 5. The icon, continuing the subtraction.
  if (takeFlag(b, 64)) setIcon(o.imgInformation());
  if (takeFlag(b, 48)) setIcon(o.imgExclamation());
  if (takeFlag(b, 32)) setIcon(o.imgQuestion());
  if (takeFlag(b, 16)) setIcon(o.imgCritical());

  // 6. The button set by what is left.
  struct Button {
    std::string caption, tag;
  };
  std::vector<Button> set;
  int32_t start = 1;
  switch (b) {
    case 1:
      set = {{o.strOk(), "1"}, {o.strCancel(), "2"}}, start = 2;
      break;
    case 2:
      set = {{o.strAbord(), "3"}, {o.strRetry(), "4"}, {o.strIgnore(), "5"}}, start = 2;
      break;
    case 3:
      set = {{o.strYes(), "6"}, {o.strNo(), "7"}, {o.strCancel(), "2"}}, start = 2;
      break;
    case 4:
      set = {{o.strYes(), "6"}, {o.strNo(), "7"}}, start = 0;
      break;
    case 5:
      set = {{o.strRetry(), "4"}, {o.strCancel(), "2"}}, start = 2;
      break;
    case 0:
      set = {{o.strOk(), "1"}}, start = 1;
      break;
    default:
      start = 0;
      break;  // no set of that value: the OK button alone, and no way to cancel
  }
  for (size_t i = 0; i < set.size(); ++i) {
    cmdSys(static_cast<int>(i))->setCaption(set[i].caption);
    cmdSys(static_cast<int>(i))->Tag = set[i].tag;
    cmdSys(static_cast<int>(i))->setVisible(true);
  }
  if (set.size() > 1) m_cancelIndex = static_cast<int>(set.size()) - 1;
  result = start;

  std::string title = rq.Title;
  // 7. A delete confirmation.
  if (title == o.strDelText()) {
    setIcon(o.imDelete());
    SystemModal = true;
  }
  // 8. The second meaning of Context.
  if (rq.Context == -1 || rq.Context == -2 || rq.Context == -3) {
    setIcon(rq.Context == -1 ? o.imFehler() : rq.Context == -2 ? o.imDelete() : o.imSave());
    SystemModal = true;
  }
  // 9. An icon given by the caller overrides, and only then is one laid out.
  bool icon = rq.Icon != nullptr;
  if (icon) setIcon(rq.Icon);
  // 10. The application's title.
  if (title == "App.title") title = App::instance().Title();

  // 11. The least text width.
  Label* label = lblMsg();
  int32_t w = o.formMinWidth();
  label->setCaption(title);
  if (labelWidth() + 900 > w) w = labelWidth() + 900;
  if (!rq.Details.empty()) w = std::max(w, 6000);
  // 12. The message, wrapped by hand when it is wider than the widest box.
  label->setCaption(rq.Prompt);
  if (labelWidth() > o.formMaxWidth()) wrapPrompt(rq.Prompt, o.formMaxWidth());
  // 13.
  if (labelWidth() > w) w = labelWidth();
  // 14. Icon and text side by side.
  Place ico = placeOf(*ImIco());
  Place lbl = placeOf(*label);
  if (icon) {
    setPlace(*ImIco(), o.spHleft(), ico.Top, ico.Width, ico.Height);
    lbl.Left = o.spHleft() + ico.Width + o.spHicon_Label();
    w += ico.Width + o.spHicon_Label();
  } else {
    lbl.Left = o.spHleft();
  }
  setPlace(*label, lbl.Left, lbl.Top, labelWidth(), labelHeight());
  // 15. Custom button texts.
  int32_t bw = o.ButtonsWidth();
  if (rq.UseCustomButtonText) {
    for (int i = 0; i < 4; ++i)
      if (!o.tempButtonsText(i).empty()) cmdSys(i)->setCaption(o.tempButtonsText(i));
    bw = o.tempButtonsWidth();
  }
  // 16. The buttons' widths.
  int32_t x = o.spHbuttons();
  for (int i = 0; i < 4; ++i) {
    MsgButton* btn = cmdSys(i);
    if (btn->Tag.empty()) continue;
    Place p = placeOf(*btn);
    setPlace(*btn, p.Left, p.Top, bw, o.ButtonsHeight());
    x += placeOf(*btn).Width + o.spHbuttons();
  }
  // 17. The window's width.
  int32_t labelW;
  int32_t winW;
  if (x > w) {
    winW = x + 2 * o.spHleftButtons() + frameW();
    labelW = x;
  } else {
    labelW = w;
    winW = w + o.spHleft() + o.spHrightLabel() + frameW();
  }
  if (icon) labelW -= ico.Width + o.spHicon_Label();
  Move(0, 0, winW, Height());
  lbl = placeOf(*label);
  setPlace(*label, lbl.Left, lbl.Top, labelW, lbl.Height);
  // 18. Text and icon heights.
  int32_t h = labelHeight();
  if (icon) {
    if (ico.Height > h) {
      h = ico.Height;
      setPlace(*ImIco(), o.spHleft(), o.spVup(), ico.Width, ico.Height);
      setPlace(*label, lbl.Left, (h - labelHeight()) / 2 + o.spVup(), labelW, lbl.Height);
    } else {
      setPlace(*label, lbl.Left, o.spVup(), labelW, lbl.Height);
      setPlace(*ImIco(), o.spHleft(), (h - ico.Height) / 2 + o.spVup(), ico.Width, ico.Height);
    }
  } else {
    setPlace(*label, lbl.Left, o.spVup(), labelW, lbl.Height);
  }
  // 19. The buttons, right to left; 165 is fixed here.
  x = Width() - frameW() - 165 + tx();
  for (int i = 3; i >= 0; --i) {
    MsgButton* btn = cmdSys(i);
    if (btn->Tag.empty()) continue;
    Place p = placeOf(*btn);
    x -= p.Width + o.spHbuttons();
    setPlace(*btn, x, h + o.spVup() + o.spVmiddle(), p.Width, p.Height);
  }
  // 20. Height and caption.
  Move(0, 0, Width(), o.spVup() + h + o.spVmiddle() + o.ButtonsHeight() + o.spVdown() + frameH());
  setCaption(" " + title);
  // 21. Details.
  txtDetailTag.clear();
  cmdDetailTag.clear();
  if (!rq.Details.empty()) {
    MsgButton* more = cmdDetail();
    setHeight(Height() + o.cmdMoreHeight() + o.spVdownMore());
    setPlace(*more, ScaleWidth() - o.spHrightMore() - o.cmdMoreWidth() - tx(),
             ScaleHeight() - o.spVdownMore() - o.cmdMoreHeight() - ty(), o.cmdMoreWidth(), o.cmdMoreHeight());
    more->setCaption(o.strMoreOpen());
    more->setVisible(true);
    cmdDetailTag = o.strMoreClose();
    txtDetailTag = o.strMoreOpen();
    setPlace(*txtDetail(), 4 * tx(), Height(), ScaleWidth() - 8 * tx(), o.textMoreHeight());
    txtDetail()->setText(rq.Details);
  }
  // 22. Copy and send.
  if (rq.DetailsCopySendButton) {
    MsgButton* copier = cmdCopier();
    Place d = placeOf(*txtDetail());
    copier->setCaption(o.strCopy());
    copier->Tag.clear();
    if (sendAuto) {
      copier->setCaption(o.strSend());
    } else if (sendManual) {
      copier->setCaption(o.strSend());
      copier->Tag = o.strMailAdress();
      mailSubject = o.strMailSubject();
      mailBody = o.strMailBody();
    }
    setPlace(*copier, ScaleWidth() - o.cmdSendWidth() - tx() - 4 * tx(), d.Top + d.Height + 4 * ty(),
             o.cmdSendWidth(), o.cmdSendHeight());
    copier->setVisible(true);
  }
  // 23. The check box.
  if (showCheck) {
    MsgButton* check = chkMsg();
    if (rq.Details.empty()) setHeight(Height() + placeOf(*check).Height + o.spVdownCheck());
    check->setCaption(o.strCheck());
    Place c = placeOf(*check);
    setPlace(*check, o.spHleftCheck(), ScaleHeight() - o.spVdownCheck() - c.Height - ty(), o.CheckWidth(),
             c.Height);
    check->setVisible(true);
  }
  // 24. Position.
  Screen& screen = Screen::instance();
  Form* owner = o.isSited() ? o.controlSite().form : nullptr;
  if (centerOwner && owner) {
    int32_t ownerW = owner->surface().pixelWidth() * tx(), ownerH = owner->surface().pixelHeight() * ty();
    Move(CLng(owner->Left()) + (ownerW - Width()) / 2, CLng(owner->Top()) + (ownerH - Height()) / 2, Width(),
         Height());
  } else if (manualPos) {
    Move(o.FormLeft(), o.FormTop(), Width(), Height());
  } else {
    Move((CLng(screen.Width()) - Width()) / 2, (CLng(screen.Height()) - Height()) / 2, Width(), Height());
  }
  // 25. Timers.
  if (waitTimeOn) {
    result = 0;
    Timer1()->Tag = std::to_string(o.DelaySec());
    Timer1()->setEnabled(true);
    Tag = Caption();
    for (int i = 0; i < 3; ++i) cmdSys(i)->setEnabled(false);
  } else if (autoCloseOn) {
    for (int i = 0; i < 3; ++i) {
      if (cmdSys(i)->TabIndex != 0) continue;
      result = static_cast<int32_t>(Val(cmdSys(i)->Tag));
      Tag = cmdSys(i)->Caption();
      defaultButtonIndex = i;
    }
    Timer1()->Tag = std::to_string(o.DelaySec());
    Timer1()->setEnabled(true);
  }
  drawFrame();
  return title;
}

// ---- showing ----

void frmMsgBoxIe::showModeless() {
  Form* f = form();
  if (!f) return;
  m_open = true;
  f->Show();
  user().SetFocus(f->hWnd());
  Form_Activate();
  user().SetForegroundWindow(f->hWnd());
}

void frmMsgBoxIe::showModal() {
  Form* f = form();
  if (!f) return;
  m_open = true;
  f->Show();
  user().SetFocus(f->hWnd());
  Form_Activate();
  try {
    ModalLoop::run([this] { return !isOpen(); });
  } catch (...) {
    Unload();
    dispose();
    throw;
  }
  dispose();
}

void frmMsgBoxIe::Unload() {
  Form* f = form();
  m_open = false;
  if (!f) return;
  if (MsgTimer* t = Timer1()) t->setEnabled(false);
  if (MsgTimer* t = tmrSysModal()) t->setEnabled(false);
  f->Hide();
}

void frmMsgBoxIe::dispose() {
  if (FormRef f = m_form.lock()) f->Unload();
  m_form.reset();
  m_open = false;
}

// ---- behaviour ----

void frmMsgBoxIe::Form_Activate() {
  // 1. No way to cancel: the close entry and its separator leave the system menu.
  if (result == 0) {
    int32_t count = static_cast<int32_t>(m_systemMenu.size());
    for (int32_t position : {count - 1, count - 2})
      if (position >= 0 && position < static_cast<int32_t>(m_systemMenu.size()))
        m_systemMenu.erase(m_systemMenu.begin() + position);
    drawFrame();
  }
  // 2. and 3. The countdowns show from the start.
  if (waitTimeOn) setCaption(" " + Timer1()->Tag + " " + Trim(Caption()));
  if (autoCloseOn) {
    MsgButton* b = cmdSys(defaultButtonIndex);
    b->setCaption(Timer1()->Tag + " " + b->Caption());
  }
  // 4. The top-most guard runs in every box.
  tmrSysModal()->setEnabled(true);
}

bool frmMsgBoxIe::Form_QueryUnload() { return result == 0; }

void frmMsgBoxIe::Form_KeyPress(int16_t key) {
  if (key == 27 && !Form_QueryUnload()) Unload();
}

void frmMsgBoxIe::systemClose() {
  if (std::find(m_systemMenu.begin(), m_systemMenu.end(), "Schließen") == m_systemMenu.end()) return;
  if (!Form_QueryUnload()) Unload();
}

void frmMsgBoxIe::cmdSys_Click(int index) {
  tmrSysModal()->setEnabled(false);
  if (index == 3) {
    // Help for the box's context, and the box stays.
    const std::string& helpFile = App::instance().HelpFile();
    if (!helpFile.empty())
      ShellExecuteA(0, "open", helpFile + "#" + std::to_string(HelpContextID), "", "", 1);
    return;
  }
  result = static_cast<int32_t>(Val(cmdSys(index)->Tag));
  Unload();
}

void frmMsgBoxIe::Timer1_Timer() {
  MsgTimer* timer = Timer1();
  int32_t left = static_cast<int32_t>(Val(timer->Tag)) - 1;
  timer->Tag = std::to_string(left);
  if (waitTimeOn) {
    setCaption(" " + timer->Tag + " " + Tag);
    if (left <= 0) {
      timer->setEnabled(false);
      for (int i = 0; i < 3; ++i) cmdSys(i)->setEnabled(true);
      setCaption(" " + Tag);
    }
  }
  if (autoCloseOn) {
    cmdSys(defaultButtonIndex)->setCaption(timer->Tag + " " + Tag);
    if (left <= 0) {
      timer->setEnabled(false);
      Unload();
    }
  }
}

void frmMsgBoxIe::tmrSysModal_Timer() {
  Form* f = form();
  if (!f) return;
  // The whole extended style is tested: once any bit is set the guard does nothing more.
  if (user().GetWindowLongA(f->hWnd(), GWL_EXSTYLE) == 0) user().SetWindowPos(f->hWnd(), -1, 0, 0, 0, 0, 19);
}

void frmMsgBoxIe::cmdDetail_Click() {
  MsgButton* more = cmdDetail();
  VexHTML* details = txtDetail();
  int32_t d = placeOf(*details).Height + 8 * ty();
  MsgButton* copier = cmdCopier();
  if (copier->Visible()) d = placeOf(*copier).Height + placeOf(*details).Height + 12 * ty();
  if (more->Caption() == txtDetailTag) {
    user().ShowWindow(details->surface().hWnd(), SW_SHOWNOACTIVATE);
    setHeight(Height() + d);
    more->setCaption(cmdDetailTag);
  } else {
    setHeight(Height() - d);
    more->setCaption(txtDetailTag);
  }
}

void frmMsgBoxIe::chkMsg_Click() { showAgain = chkMsg()->Value() != 1; }

std::string frmMsgBoxIe::reportVersionWord() {
  cMyTools tools;
  return Replace(Replace(tools.OSVersion(), "Vista", "W6"), "Failed", "F");
}

std::string frmMsgBoxIe::reportText() const {
  const std::string sep = "-------------------------------------";
  std::string details = txtDetail() ? txtDetail()->Text() : std::string();
  details = Replace(Replace(details, "<b>", ""), "</b>", "");
  std::string out;
  out += sep + kCrLf;
  out += FormatDate(Now(), "<dd.mm.yyyy hh:nn:ss> - ") + reportVersionWord() + ":" + kCrLf;
  out += sep + kCrLf;
  out += Trim(Caption()) + kCrLf;
  out += sep + kCrLf;
  out += (lblMsg() ? lblMsg()->Caption() : std::string()) + kCrLf;
  out += sep + kCrLf;
  out += details + kCrLf;
  out += sep + kCrLf;
  return out;
}

void frmMsgBoxIe::cmdCopier_Click() {
  std::string report = reportText();
  if (!user().setClipboardText(report)) throw RuntimeError(521, "Can't open Clipboard");
  const std::string& address = cmdCopier()->Tag;
  if (!address.empty() && sendManual) {
    if (!Trim(mailBody).empty()) {
      MailTo(address, mailSubject, mailBody);
    } else {
      std::string text = "Bitte eine möglichst genaue Fehlerbeschreibung angeben:";
      for (int i = 0; i < 7; ++i) text += kCrLf;
      text += "*******************************************************************";
      text += kCrLf;
      text += report;
      MailTo(address, mailSubject, text);
    }
  } else if (address.empty()) {
    sendFlag = true;
  }
}

std::string frmMsgBoxIe::mailToLink(const std::string& address, const std::string& subject,
                                    const std::string& body) {
  std::string b = Replace(body, "\t", " ");
  b = Replace(b, " ", "%20");
  b = Replace(b, "\"", "'");
  b = Replace(b, "&", "%26");
  b = Replace(b, "\r\n", "%0D%0A");
  return "mailto:" + address + "?subject=" + subject + "&body=" + b;
}

void frmMsgBoxIe::MailTo(const std::string& address, const std::string& subject, const std::string& body) {
  // A failure of the shell is not looked at.
  ShellExecuteA(0, "open", mailToLink(address, subject, body), "", "", 1);
}

void frmMsgBoxIe::txtDetail_HyperlinkClick(const std::string& address) {
  ShellExecuteA(0, "open", address, "", "", 1);
}

}  // namespace corvane
