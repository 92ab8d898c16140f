// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include <corvane/export.h>
#include <corvane/host/form.h>
#include <corvane/host/std_picture.h>
#include <corvane/runtime/vb_array.h>

// The library's shared helpers: version facts, icons from the resources, form fades, byte text,
// short paths and sound.
namespace corvane::Global {

// Platform, major, minor and build of the system version, joined by "|".
CORVANE_API std::string OSVersionText();
// The version word: "95", "98", "ME", "NT", "2k", "XP", "Vista", "W7", or "Failed".
CORVANE_API std::string OSName();
// The library's icon resource of that name as a picture; a missing one gives handle 0.
CORVANE_API PictureRef LoadIconPicture(const std::string& id);
// Fades a form in, or out and unloads it; speed and alpha are the caller's variables.
CORVANE_API void FadeInForm(Form& form, float& speed, uint8_t& alpha);
CORVANE_API void FadeOutForm(FormRef& form, float& speed, uint8_t& alpha);
// The characters of the bytes from the lower bound on, up to the first 0.
CORVANE_API std::string BytesToText(const VbArray<uint8_t>& bytes);
CORVANE_API std::string ShortPathName(const std::string& path);
// Plays a wave file when flag is set, file is not empty and the library's sound is on.
CORVANE_API void PlayWav(const std::string& file, bool flag, std::optional<std::string> path = std::nullopt);

// The library-wide sound switch; it starts as on.
CORVANE_API bool soundOn();
CORVANE_API void setSoundOn(bool on);

}  // namespace corvane::Global
