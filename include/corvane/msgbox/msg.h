// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/host/std_picture.h>
#include <corvane/msgbox/ex_msg_box_style.h>
#include <corvane/msgbox/ex_send_methode.h>
#include <corvane/runtime/msg_box_result.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <cstdint>
#include <map>
#include <string>
// <X11/X.h> names a visual class GrayScale; it is set aside here like the other system macros.
#pragma push_macro("GrayScale")
#undef GrayScale

// A text, a length or a picture of the box: a getter and a setter under the property's name.
#define CORVANE_MSG_TEXT(Name)                                  \
  const std::string& Name() const { return m_texts.at(#Name); } \
  void set##Name(const std::string& value) { setTextValue(#Name, value); }
#define CORVANE_MSG_LENGTH(Name)                       \
  int32_t Name() const { return m_lengths.at(#Name); } \
  void set##Name(int32_t value) { setLengthValue(#Name, value); }
#define CORVANE_MSG_PICTURE(Name)                          \
  PictureRef Name() const { return m_pictures.at(#Name); } \
  void set##Name(const PictureRef& value) { setPictureValue(#Name, value); }

namespace corvane {

// The extended message box's control: invisible at run time, it holds every text, spacing, size
// and picture of the box, which MsgBoxEx reads each time it builds one. All default texts are
// German; a host translates or restyles the box by setting these properties.
class CORVANE_API Msg : public ControlBase {
 public:
  Msg();
  std::string typeName() const override { return "Msg"; }
  DesignForm designForm() const override {
    return {480, 480, Surface::Twips, static_cast<OLE_COLOR>(0x8000000F)};
  }

  CORVANE_MSG_TEXT(strOk)
  CORVANE_MSG_TEXT(strRetry)
  CORVANE_MSG_TEXT(strCancel)
  CORVANE_MSG_TEXT(strYes)
  CORVANE_MSG_TEXT(strNo)
  CORVANE_MSG_TEXT(strIgnore)
  CORVANE_MSG_TEXT(strAbord)
  CORVANE_MSG_TEXT(strHelp)
  CORVANE_MSG_TEXT(strMoreOpen)
  CORVANE_MSG_TEXT(strMoreClose)
  CORVANE_MSG_TEXT(strSend)
  CORVANE_MSG_TEXT(strCopy)
  CORVANE_MSG_TEXT(strCheck)
  CORVANE_MSG_TEXT(strDelText)
  CORVANE_MSG_TEXT(strMailAdress)
  CORVANE_MSG_TEXT(strMailSubject)
  CORVANE_MSG_TEXT(strMailBody)
  CORVANE_MSG_TEXT(AppPath)

  CORVANE_MSG_LENGTH(spHleft)
  CORVANE_MSG_LENGTH(spHicon_Label)
  CORVANE_MSG_LENGTH(spHbuttons)
  CORVANE_MSG_LENGTH(spHleftButtons)
  CORVANE_MSG_LENGTH(spHrightLabel)
  CORVANE_MSG_LENGTH(spVmiddle)
  CORVANE_MSG_LENGTH(spVup)
  CORVANE_MSG_LENGTH(spVdown)
  CORVANE_MSG_LENGTH(spHleftCheck)
  CORVANE_MSG_LENGTH(spVdownCheck)
  CORVANE_MSG_LENGTH(ButtonsWidth)
  CORVANE_MSG_LENGTH(ButtonsHeight)
  CORVANE_MSG_LENGTH(CheckWidth)
  CORVANE_MSG_LENGTH(CheckHeight)
  CORVANE_MSG_LENGTH(textMoreHeight)
  CORVANE_MSG_LENGTH(cmdSendWidth)
  CORVANE_MSG_LENGTH(cmdSendHeight)
  CORVANE_MSG_LENGTH(cmdMoreWidth)
  CORVANE_MSG_LENGTH(cmdMoreHeight)
  CORVANE_MSG_LENGTH(formMaxWidth)
  CORVANE_MSG_LENGTH(formMinWidth)
  CORVANE_MSG_LENGTH(spHrightMore)
  CORVANE_MSG_LENGTH(spVdownMore)
  CORVANE_MSG_LENGTH(FormTop)
  CORVANE_MSG_LENGTH(FormLeft)
  CORVANE_MSG_LENGTH(DelaySec)

  CORVANE_MSG_PICTURE(imgCritical)
  CORVANE_MSG_PICTURE(imgQuestion)
  CORVANE_MSG_PICTURE(imgExclamation)
  CORVANE_MSG_PICTURE(imgInformation)
  CORVANE_MSG_PICTURE(imOk)
  CORVANE_MSG_PICTURE(imYes)
  CORVANE_MSG_PICTURE(imNo)
  CORVANE_MSG_PICTURE(imCancel)
  CORVANE_MSG_PICTURE(imRetry)
  CORVANE_MSG_PICTURE(imAbort)
  CORVANE_MSG_PICTURE(imIgnore)
  CORVANE_MSG_PICTURE(imCmdSend)
  CORVANE_MSG_PICTURE(imCmdMore)
  CORVANE_MSG_PICTURE(imCmdHelp)
  CORVANE_MSG_PICTURE(imDelete)
  CORVANE_MSG_PICTURE(imFehler)
  CORVANE_MSG_PICTURE(imSave)

  bool GrayScale() const { return m_GrayScale; }
  void setGrayScale(bool value);
  exSendMethode SendMethode() const { return m_SendMethode; }
  void setSendMethode(exSendMethode value);

  // Used once, by the next MsgBoxEx with custom button texts; not persisted.
  void setTempButtonsWidth(int32_t value) { m_TempButtonsWidth = value; }
  void setTempButtonsText1(const std::string& value) { m_TempButtonsText[0] = value; }
  void setTempButtonsText2(const std::string& value) { m_TempButtonsText[1] = value; }
  void setTempButtonsText3(const std::string& value) { m_TempButtonsText[2] = value; }
  void setTempButtonsText4(const std::string& value) { m_TempButtonsText[3] = value; }
  int32_t tempButtonsWidth() const { return m_TempButtonsWidth; }
  const std::string& tempButtonsText(int index) const { return m_TempButtonsText[index]; }

  // Set by the box from its check box; the host reads it after the box has closed.
  bool DisplayAgain = true;

  // Back to the factory texts, sizes and pictures; the mail fields, AppPath and SendMethode stay.
  void Initialise();

  // Builds and runs a box and returns the pressed button's value (with exNoModal at once, with
  // the value a closed box would give).
  int32_t MsgBoxEx(const std::string& Prompt, int32_t buttons = 0, const std::string& Title = "App.title",
                   const std::string& HelpFile = "", int32_t Context = 0, int32_t exOptions = 0,
                   const std::string& Details = "", bool DetailsCopySendButton = false,
                   const PictureRef& Icon = nullptr, bool UseCustomButtonText = false);

  // SendClick (Title, Message, Detail) after a box whose send button asked the host to send.
  Event<const std::string&, const std::string&, const std::string&> SendClick;
  // Closed (Title), raised last.
  Event<const std::string&> Closed;

  // The persisted keys of each kind, in the order of their tables.
  static const std::map<std::string, std::string>& textDefaults();
  static const std::map<std::string, int32_t>& lengthDefaults();
  static const std::vector<std::string>& pictureKeys();

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;

 protected:
  const Dispatch* dispatch() const override;

 private:
  void setTextValue(const std::string& key, const std::string& value);
  void setLengthValue(const std::string& key, int32_t value);
  void setPictureValue(const std::string& key, const PictureRef& value);

  std::map<std::string, std::string> m_texts;
  std::map<std::string, int32_t> m_lengths;
  std::map<std::string, PictureRef> m_pictures;
  bool m_GrayScale = false;
  exSendMethode m_SendMethode = exNone;
  int32_t m_TempButtonsWidth = 0;
  std::string m_TempButtonsText[4];
  bool m_resizing = false;
};

}  // namespace corvane

#undef CORVANE_MSG_TEXT
#undef CORVANE_MSG_LENGTH
#undef CORVANE_MSG_PICTURE

#pragma pop_macro("GrayScale")
#include <corvane/platform/system_macros_end.h>
