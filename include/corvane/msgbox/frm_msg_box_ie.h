// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/form.h>
#include <corvane/host/std_picture.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class Label;
class Msg;
class MsgButton;
class MsgTimer;
class PictureBox;
class VexHTML;

// What one MsgBoxEx call asks for.
struct CORVANE_API MsgBoxRequest {
  std::string Prompt;
  int32_t buttons = 0;
  std::string Title = "App.title";
  std::string HelpFile;
  int32_t Context = 0;
  int32_t exOptions = 0;
  std::string Details;
  bool DetailsCopySendButton = false;
  PictureRef Icon;
  bool UseCustomButtonText = false;
};

// The message box's window, one shared instance per process. MsgBoxEx builds it from the
// options of a Msg control (icon, text, buttons, check box and details, measured and arranged in
// twips) and runs it; while it shows, its handlers below apply the closing rules, the details
// toggle, copy and mail, the check box and the two countdowns. The window has a drawn frame
// with a caption bar; its controls sit on the client area.
class CORVANE_API frmMsgBoxIe {
 public:
  static frmMsgBoxIe& instance();

  // Builds the box (a box still on the screen is replaced) and returns the title it shows.
  std::string build(const Msg& options, const MsgBoxRequest& request);
  // Shows modally and returns when the box has closed; the window is gone then.
  void showModal();
  void showModeless();
  bool noModal() const { return m_noModal; }
  // Whether the box is on the screen.
  bool isOpen() const;

  // The shared state of the box.
  int32_t result = 0;
  bool showAgain = true;
  bool autoCloseOn = false;
  bool waitTimeOn = false;
  int32_t defaultButtonIndex = 0;
  std::string mailSubject, mailBody;
  bool sendFlag = false;
  bool SystemModal = false;
  bool sendAuto = false, sendManual = false;
  std::string Tag;  // the window's Tag
  std::string txtDetailTag, cmdDetailTag;
  int32_t HelpContextID = 0;

  // The window and its controls; null while no box is built.
  Form* form() const;
  FormRef formRef() const { return m_form.lock(); }
  Label* lblMsg() const;
  PictureBox* ImIco() const;
  MsgButton* cmdSys(int index) const;
  MsgButton* cmdDetail() const;
  MsgButton* cmdCopier() const;
  MsgButton* chkMsg() const;
  VexHTML* txtDetail() const;
  MsgTimer* Timer1() const;
  MsgTimer* tmrSysModal() const;

  // Geometry of the window in twips; frameW and frameH are what the frame takes.
  int32_t Width() const;
  int32_t Height() const;
  int32_t ScaleWidth() const { return Width() - frameW(); }
  int32_t ScaleHeight() const { return Height() - frameH(); }
  int32_t Left() const;
  int32_t Top() const;
  static int32_t frameW();
  static int32_t frameH();
  void setWidth(int32_t twips) { Move(Left(), Top(), twips, Height()); }
  void setHeight(int32_t twips) { Move(Left(), Top(), Width(), twips); }
  void Move(int32_t left, int32_t top, int32_t width, int32_t height);
  std::string Caption() const;
  void setCaption(const std::string& value);

  // A control's place on the client area, in twips.
  struct Place {
    int32_t Left, Top, Width, Height;
  };
  Place placeOf(const HostedControl& control) const;
  void setPlace(HostedControl& control, int32_t left, int32_t top, int32_t width, int32_t height);

  // The entries of the window's system menu; "-" is a separator.
  const std::vector<std::string>& systemMenu() const { return m_systemMenu; }

  // Handlers of the window and its controls.
  void Form_Activate();
  // True when the unload is cancelled.
  bool Form_QueryUnload();
  void Form_KeyPress(int16_t key);
  // The close command of the system menu (the close box of the caption bar, Alt+F4).
  void systemClose();
  void cmdSys_Click(int index);
  void Timer1_Timer();
  void tmrSysModal_Timer();
  void cmdDetail_Click();
  void chkMsg_Click();
  void cmdCopier_Click();
  void txtDetail_HyperlinkClick(const std::string& address);

  // The report that the copy button puts on the clipboard.
  std::string reportText() const;
  // The version word as the report shows it.
  static std::string reportVersionWord();
  // The link handed to the mail client, with the body escaped.
  static std::string mailToLink(const std::string& address, const std::string& subject,
                                const std::string& body);
  static void MailTo(const std::string& address, const std::string& subject, const std::string& body);

  // Ends the box: the window is hidden at once and removed when the caller is out of its handlers.
  void Unload();
  // Removes a closed window; runs where no handler of the window is active.
  void dispose();

 private:
  frmMsgBoxIe() = default;
  void createWindow();
  void drawFrame();
  void makeFirstInTabOrder(int index);
  void setIcon(const PictureRef& picture);
  void wrapPrompt(const std::string& prompt, int32_t maxWidth);
  int32_t labelWidth() const;
  int32_t labelHeight() const;
  void onFrameMouseUp(float x, float y);

  std::weak_ptr<Form> m_form;
  bool m_open = false;
  bool m_noModal = false;
  bool m_grayScale = false;
  std::vector<std::string> m_systemMenu;
  std::vector<std::string> m_buttonNames;
  int m_cancelIndex = 0;
  int32_t m_context = 0;
};

}  // namespace corvane
