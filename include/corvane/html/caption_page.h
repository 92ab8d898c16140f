// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/property_page.h>

#include <string>

namespace corvane {

// The designer's page "Caption": a multi-line edit txtCaption for the text of the selected
// control and a help label lblAnleitung listing the colour label's markup. A control whose
// Caption is the HTML view's marker "*HTMLCntrl*" is edited through Text, any other through
// Caption. On apply the edit's colour tags lose the leading zeros of their hex colour.
class CORVANE_API CaptionPage : public PropertyPage {
 public:
  CaptionPage();
  std::string typeName() const override { return "Caption"; }  // its public class name

  // The colour-tag normalisation the page applies: "<c&h" becomes "<c&H", the leading zeros of
  // the hex colour go, and a colour that was all zeros stays 0.
  static std::string normaliseColourTags(const std::string& text);
  // A key typed into the edit: Return comes through as a line feed.
  void typeIntoCaption(int16_t keyAscii);

 protected:
  void SelectionChanged() override;
  void ApplyChanges() override;
};

}  // namespace corvane
