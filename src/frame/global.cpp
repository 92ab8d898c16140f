// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>

#include <cmath>

#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include "resources/embedded.h"
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/win1252.h>

namespace corvane::Global {

namespace {
bool g_soundOn = true;

bool isOneOf(const std::string& s, std::initializer_list<const char*> words) {
  for (const char* w : words)
    if (s == w) return true;
  return false;
}

void setLayered(HWND h, bool on) {
  int32_t ex = user().GetWindowLongA(h, GWL_EXSTYLE);
  user().SetWindowLongA(h, GWL_EXSTYLE, on ? (ex | WS_EX_LAYERED) : (ex & ~WS_EX_LAYERED));
}
}  // namespace

std::string OSVersionText() {
  OSVERSIONINFO v;
  sys().GetVersionExA(v);
  return std::to_string(v.dwPlatformId) + "|" + std::to_string(v.dwMajorVersion) + "|" +
         std::to_string(v.dwMinorVersion) + "|" + std::to_string(v.dwBuildNumber);
}

std::string OSName() {
  std::string name;
  guarded([&] {
    OSVERSIONINFO v;
    sys().GetVersionExA(v);
    if (v.dwPlatformId == 1) {
      switch (v.dwMinorVersion) {
        case 0: name = "95"; break;
        case 10: name = "98"; break;
        case 90: name = "ME"; break;
        default: name = ""; break;
      }
    } else if (v.dwPlatformId == 2) {
      switch (v.dwMajorVersion) {
        case 3: case 4: name = "NT"; break;
        case 5: name = v.dwMinorVersion != 0 ? "XP" : "2k"; break;
        case 6: name = "Vista"; break;  // 6.1 and 6.2 report "Vista" as well
        case 7: name = "W7"; break;
        default: name = "Failed"; break;
      }
    } else {
      name = "Failed";
    }
  });
  return name;
}

PictureRef LoadIconPicture(const std::string& id) {
  for (const EmbeddedResource& r : embeddedResources())
    if (id == r.name)
      if (auto p = StdPicture::fromBytes(std::vector<unsigned char>(r.data, r.data + r.size), true)) return p;
  return StdPicture::empty();
}

void FadeInForm(Form& form, float& speed, uint8_t& alpha) {
  bool wasEnabled = true;
  guarded([&] { wasEnabled = form.Enabled(); });
  guarded([&] { form.setEnabled(false); });
  std::string os = OSName();
  if (!isOneOf(os, {"2k", "XP", "W7", "Vista", "Failed"})) {
    guarded([&] { user().ShowWindow(form.hWnd(), SW_SHOWNOACTIVATE); });
    guarded([&] { form.setEnabled(wasEnabled); });
    return;
  }
  guarded([&] { setLayered(form.hWnd(), true); });
  guarded([&] { user().ShowWindow(form.hWnd(), SW_SHOWNOACTIVATE); });
  if (alpha == 0) {
    guarded([&] { setLayered(form.hWnd(), false); });
    guarded([&] { form.setEnabled(wasEnabled); });
    return;
  }
  guarded([&] {
    if (speed <= 0) speed = (form.surface().Height() / 100) * (form.surface().Width() / 100) / 2500;
    else speed = speed / 80;
  });
  // A form without size would never get there; it shows at once instead of hanging.
  if (speed > 0) {
    float current = 0;
    while (current < alpha) {
      guarded([&] { user().DoEvents(); });
      guarded([&] { user().SetLayeredWindowAttributes(form.hWnd(), 0, CByte(current), LWA_ALPHA); });
      current = current + speed;
    }
  }
  if (alpha >= 254) guarded([&] { setLayered(form.hWnd(), false); });
  guarded([&] { form.setEnabled(wasEnabled); });
}

void FadeOutForm(FormRef& form, float& speed, uint8_t& alpha) {
  if (!form) return;
  std::string os = OSName();
  if (isOneOf(os, {"2k", "XP", "Failed"})) {
    guarded([&] {
      if (speed <= 0) speed = (form->surface().Height() / 100) * (form->surface().Width() / 100) / 1200;
      else speed = speed / 20;
    });
    if (os == "2k") speed = speed * 2;
    if (speed > 0) {
      float current = alpha;
      while (current > 0) {
        guarded([&] { user().SetLayeredWindowAttributes(form->hWnd(), 0, CByte(current), LWA_ALPHA); });
        guarded([&] { user().DoEvents(); });
        current = current - speed;
      }
    }
  }
  guarded([&] { form->Unload(); });
  form = nullptr;
}

std::string BytesToText(const VbArray<uint8_t>& bytes) {
  std::string out;
  if (bytes.empty()) return out;
  for (int32_t i = bytes.lbound(); i <= bytes.ubound(); ++i) {
    if (bytes(i) == 0) break;
    out += Chr(bytes(i));
  }
  return out;
}

std::string ShortPathName(const std::string& path) {
  std::string buffer(1024, '\0');
  int32_t n = sys().GetShortPathNameA(path, buffer, 1024);
  return Left(buffer, std::max(n, 0));
}

void PlayWav(const std::string& file, bool flag, std::optional<std::string> path) {
  guarded([&] {
    if (!flag || file.empty() || !g_soundOn) return;
    std::string p;
    if (Mid(file, 2, 1) == ":") {
      p.clear();  // the file is absolute
    } else if (!path) {
      p = App::instance().Path() + "\\";
    } else if (Mid(*path, 2, 1) == ":") {
      p = *path;
      if (Right(p, 1) != "\\") p += "\\";
    } else {
      p = App::instance().Path() + (Left(*path, 1) == "\\" ? "" : "\\") + *path + (Right(*path, 1) == "\\" ? "" : "\\");
    }
    sys().sndPlaySoundA(p + file, 1);
  });
}

bool soundOn() { return g_soundOn; }
void setSoundOn(bool on) { g_soundOn = on; }

}  // namespace corvane::Global
