// SPDX-License-Identifier: MIT
#pragma once
#include <stdexcept>
#include <string>

#include <corvane/export.h>
#include <corvane/host/form.h>

namespace corvane {

// A form file that cannot be read: malformed JSON, a missing or wrongly typed entry, an unknown
// class. The message names the place.
class CORVANE_API FormFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Form files in JSON: one form with its size and caption, and its controls in order, each with
// class, name, container, position and size in the container's scale, visibility, and the
// property bag its WriteProperties filled. Values carry their type:
//   {"Long": 255}, {"String": "x"}, {"Boolean": true}, {"Font": {...}},
//   {"Picture": {"type": 1, "data": "<base64>"}} (type 1 a bitmap, 3 an icon, 0 none).
// Files keep what they were given: a text that is no well-formed UTF-8 (a caption may hold any
// bytes; so may a name or a key) is stored as {"base64": "<its bytes>"} wherever a string goes,
// and a Single or Double that is no finite number as "NaN", "Infinity" or "-Infinity".
class CORVANE_API FormFile {
 public:
  // Fails with FormFileError only.
  static std::string save(const Form& form);
  static void saveToFile(const Form& form, const std::string& path);
  // Checks the whole text first and creates nothing when any part is wrong; then creates the
  // form with its controls through ReadProperties. A window side (the form's or a control's)
  // above 16384 pixels is refused before anything is made: no screen needs one, and a file must
  // not make the host load for seconds into gigabytes.
  static FormRef load(const std::string& json);
  static FormRef loadFromFile(const std::string& path);

 private:
  static FormRef loadChecked(const std::string& json);
};

}  // namespace corvane
