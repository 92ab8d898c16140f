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
//   {"Long": 255}, {"String": "x"}, {"Boolean": true}, {"Font": {...}}, {"Picture": "<base64>"}.
class CORVANE_API FormFile {
 public:
  static std::string save(const Form& form);
  static void saveToFile(const Form& form, const std::string& path);
  // Checks the whole text first and creates nothing when any part is wrong; then creates the
  // form with its controls through ReadProperties.
  static FormRef load(const std::string& json);
  static FormRef loadFromFile(const std::string& path);

 private:
  static FormRef loadChecked(const std::string& json);
};

}  // namespace corvane
