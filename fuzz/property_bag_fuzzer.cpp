// SPDX-License-Identifier: MIT
// Property bags as ReadProperties of each control finds them, with values of any type under
// the control's own keys. The first byte chooses the control; then each entry is a key byte, a
// type byte and the value. The loaded control is shown, hovered, left and written back.
#include <corvane/host/property_bag.h>
#include <corvane/host/std_font.h>
#include <corvane/host/std_picture.h>

#include <array>
#include <string>
#include <vector>

#include "fuzz_desktop.h"
#include "fuzz_input.h"

using namespace corvane;

namespace {

struct ControlKeys {
  const char* className;
  std::vector<std::string> keys;
};

const std::array<ControlKeys, 5> kControls = {{
    {"VexColorLabel",
     {"ForeColor", "BackColor", "Font", "Caption", "Autosize", "WordWrap", "Enabled", "MouseIcon", "MousePointer"}},
    {"VexPane",
     {"BackColor", "BackColor2", "Gradient", "GradientAngle", "BorderStyle", "CrossColor1", "CrossColor2",
      "MousePointer", "MouseIcon", "ScaleHeight", "ScaleLeft", "ScaleTop", "ScaleWidth", "Enabled"}},
    {"VexLFrame", {"BackColor", "BorderColor", "BorderColorDisabled", "Enabled"}},
    {"VexLPane", {"BackColor", "Enabled"}},
    {"VexHoverPic",
     {"Enabled", "ImageDown", "ImageHot", "ImageDisabled", "ImageUp", "Style", "Value", "MaskColor", "BackStyle",
      "BackColor", "IconShadow", "MouseIcon", "AutoSize", "Sound"}},
}};

// One value of the types a form file can hold, with the limits a form file sets.
Variant valueFrom(fuzz::FuzzInput& in) {
  switch (in.byte() % 11) {
    case 0: return Variant();
    case 1: return Variant::null();
    case 2: return Variant(in.byte() != 0);
    case 3: return Variant(in.byte());
    case 4: return Variant(in.number<int16_t>());
    case 5: return Variant(in.number<int32_t>());
    case 6: return Variant(in.number<float>());
    case 7: return Variant(in.number<double>());
    case 8: return Variant(in.text(in.byte()));
    case 9: {
      FontSpec fontSpec;
      fontSpec.name = in.text(in.byte() % 32);
      fontSpec.size = 1 + in.number<uint16_t>() % 2047;
      const uint8_t style = in.byte();
      fontSpec.bold = style & 1;
      fontSpec.italic = style & 2;
      fontSpec.underline = style & 4;
      fontSpec.strikethrough = style & 8;
      return Variant(StdFont::create(fontSpec));
    }
    default: {
      PictureRef picture = StdPicture::fromBytes(in.bytes(in.number<uint16_t>()));
      return picture ? Variant(picture) : Variant(StdPicture::empty());
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Desktop& desktop = fuzz::headlessDesktop();
  fuzz::FormsUnloader unload;
  fuzz::FuzzInput in(data, size);
  const ControlKeys& control = kControls[in.byte() % kControls.size()];
  PropertyBag bag;
  while (!in.empty()) {
    const std::string& key = control.keys[in.byte() % control.keys.size()];
    bag.set(key, valueFrom(in));
  }
  FormRef form = Form::create("Form1", 6000, 4500);
  form->Show();
  HostedControlRef loaded = form->add(control.className, "Control1", nullptr, 300, 300, -1, -1, &bag);
  if (!loaded) __builtin_trap();
  desktop.mouseMove(30, 30);
  desktop.mouseMove(2, 2);
  PropertyBag written;
  loaded->WriteProperties(written);
  return 0;
}
