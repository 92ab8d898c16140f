// SPDX-License-Identifier: MIT
#include <corvane/html/caption_page.h>
#include <corvane/runtime/strings.h>

namespace corvane {

namespace {
constexpr const char* kHtmlMarker = "*HTMLCntrl*";

bool isHtmlView(const ObjectRef& control) { return control->get("Caption").toString() == kHtmlMarker; }

std::string helpText() {
  return Join({"<b> + </b>  = Bold", "<i> + </i>    = Italic", "<u> + </u>  = Underline",
               "<s> + </s>   = Strike", "<br>           = BreakLine", "<c[Color]> + </c> = TextColor"},
              "\r\n");
}
}  // namespace

CaptionPage::CaptionPage() : PropertyPage("Caption", 5850, 3465) {
  addTextBox("txtCaption", 120, 120, 3480, 3225).multiLine = true;
  addLabel("lblAnleitung", helpText(), 3720, 120, 2010, 1800);
}

std::string CaptionPage::normaliseColourTags(const std::string& text) {
  std::string s = Replace(text, "<c&h", "<c&H");
  for (const char* zeros :
       {"<c&H0000000", "<c&H000000", "<c&H00000", "<c&H0000", "<c&H000", "<c&H00", "<c&H0"})
    s = Replace(s, zeros, "<c&H");
  return Replace(s, "<c&H&", "<c&H0&");
}

void CaptionPage::typeIntoCaption(int16_t keyAscii) {
  if (keyAscii == 13) keyAscii = 10;
  setText("txtCaption", field("txtCaption").text + static_cast<char>(keyAscii));
}

void CaptionPage::SelectionChanged() {
  ObjectRef control = first();
  fieldRef("txtCaption").text = control->get(isHtmlView(control) ? "Text" : "Caption").toString();
}

void CaptionPage::ApplyChanges() {
  ObjectRef control = first();
  const std::string text = normaliseColourTags(field("txtCaption").text);
  // Set through the late-bound object, so that the host's design state follows.
  control->let(isHtmlView(control) ? "Text" : "Caption", Variant(text));
}

}  // namespace corvane
