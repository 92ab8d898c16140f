// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_check.h>

#include <memory>
#include <string>

#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel
constexpr OLE_COLOR kMarkColour = 0x21A121;

std::shared_ptr<VexCheck> addCheck(Form& f, const std::string& name, const std::string& caption, int32_t x,
                                   int32_t y) {
  auto c = std::dynamic_pointer_cast<VexCheck>(
      f.add("VexCheck", name, nullptr, x * kTwips, y * kTwips, 120 * kTwips, 14 * kTwips));
  c->setCaption(caption);
  c->setCheckColor(kMarkColour);
  return c;
}

// A mouse move as the control's window gets it, with or without the left button (MK_LBUTTON), so
// that several controls can show their hover or pressed look in one picture. The real cursor rests
// on the form (see restCursorOn), as the control asks what lies under it.
void sendMove(const VexCheck& c, bool leftButton) {
  const int32_t x = 4, y = 4;
  user().SendMessageA(c.hWnd(), wm::MOUSEMOVE, leftButton ? 1 : 0, (y << 16) | x);
}

// Puts the cursor on an empty corner of the form: a control that gets a move asks which window is
// under the cursor and holds back when that window has the capture, which is so when the cursor
// is over no window at all and nothing has the capture.
void restCursorOn(const Form& f) {
  RECT client{};
  user().GetClientRect(f.hWnd(), client);
  POINTAPI corner{client.Right - 2, client.Bottom - 2};
  user().ClientToScreen(f.hWnd(), corner);
  user().SetCursorPos(corner.x, corner.y);
}
}  // namespace

std::vector<Scene> checkScenes();
namespace {
SceneRegistrar registerCheck("check", checkScenes);
}

std::vector<Scene> checkScenes() {
  return {
      {"check_states",
       "the three states (rows) in the four looks (columns): normal, hover, pressed, disabled",
       [] {
         FormRef f = makeSceneForm("GalleryCheckStates", 540 * kTwips, 80 * kTwips, 8);
         const CheckState states[] = {Unchecked, Checked, Mixed};
         const char* stateNames[] = {"Unchecked", "Checked", "Mixed"};
         const char* lookNames[] = {"normal", "hover", "pressed", "disabled"};
         restCursorOn(*f);
         for (int row = 0; row < 3; ++row) {
           for (int col = 0; col < 4; ++col) {
             std::string caption = std::string(stateNames[row]) + ", " + lookNames[col];
             auto c = addCheck(*f, "chk" + std::to_string(row) + std::to_string(col), caption, 10 + col * 132,
                               10 + row * 22);
             c->setValue(states[row]);
             if (col == 1) sendMove(*c, false);
             if (col == 2) sendMove(*c, true);
             if (col == 3) c->setEnabled(false);
           }
         }
         return f;
       }},
      {"check_marks",
       "the five marks: Haken, HakenWing, Kreuz, Kreis, Dreieck; a person can toggle each in the live "
       "gallery",
       [] {
         FormRef f = makeSceneForm("GalleryCheckMarks", 660 * kTwips, 36 * kTwips, 8);
         const CheckMark kinds[] = {Haken, HakenWing, Kreuz, Kreis, Dreieck};
         const char* names[] = {"Haken", "HakenWing", "Kreuz", "Kreis", "Dreieck"};
         for (int i = 0; i < 5; ++i) {
           auto c = addCheck(*f, "chkMark" + std::to_string(i), names[i], 10 + i * 130, 12);
           c->setChecker(kinds[i]);
           c->setValue(Checked);
         }
         return f;
       }},
  };
}

}  // namespace corvane::gallery
