// SPDX-License-Identifier: MIT
// The first program: an application, a form with a gradient pane, a label with markup and a
// hover button with a Click handler; the form saved as a form file, loaded again and saved as
// a PNG picture. Usage: getting_started [output folder]
#include <cstdio>
#include <string>

#include <corvane/corvane.h>

int main(int argc, char** argv) {
  const std::string out = argc > 1 ? argv[1] : ".";

  // The application comes first: it sets up the display the controls draw on (headless here:
  // the screen is an image) and ends everything in order when main returns.
  corvane::Application app;

  // A form; sizes and positions are in twips (15 twips are one pixel on this display).
  corvane::FormRef form = corvane::Form::create("frmHello", 4800, 2700);
  form->setCaption("Hallo Corvane");
  form->Show();

  // A pane that fills the form with a gradient. Colours are OLE colours, &H00BBGGRR.
  auto pane = form->add<corvane::VexPane>("paneBack", 0, 0, 4800, 2700);
  pane->setBackColor(0xF0D8C0);
  pane->setBackColor2(0xFFFFFF);
  pane->setGradient(true);
  pane->setBorderStyle(corvane::VexPane::btFlat);

  // A label with inline markup, inside the pane (in the pane's scale, twips).
  auto label = form->add<corvane::VexColorLabel>("lblTitle", *pane, 300, 300, 4200, 900);
  label->setWordWrap(true);
  label->setCaption("<b>Hallo</b> <c&HC00000>Corvane</c>: <i>a label with markup</i>");

  // A hover button: a picture that lights up under the mouse and is pressed like a button.
  auto button = form->add<corvane::VexHoverPic>("hovGo", *pane, 300, 1500);
  button->setImageUp(corvane::LoadResPicture("hover_demo"));
  int clicks = 0;
  button->Click.connect([&] {
    ++clicks;
    label->setCaption("<b>Clicked</b> " + std::to_string(clicks) + " time(s)");
  });

  // Headless, the mouse is synthetic: a click in the middle of the button, in screen pixels.
  corvane::HeadlessDisplay& display = app.headless();
  display.click(300 / 15 + 16, 1500 / 15 + 16);

  // Save the form to a form file, unload it, and load it again: the controls come back with
  // their properties (the label's caption is the one the click set).
  const std::string formFile = out + "/hello.form.json";
  corvane::FormFile::saveToFile(*form, formFile);
  form->Unload();
  corvane::FormRef again = corvane::FormFile::loadFromFile(formFile);
  again->Show();

  // The loaded form as a picture.
  const std::string png = out + "/hello.png";
  if (!display.saveFormPng(*again, png)) {
    std::fprintf(stderr, "could not write %s\n", png.c_str());
    return 1;
  }
  auto title = again->control("lblTitle");
  std::printf("clicks: %d, caption after loading: %s\nwrote %s and %s\n", clicks,
              title->get("Caption").toString().c_str(), formFile.c_str(), png.c_str());
  return clicks == 1 ? 0 : 1;
}
