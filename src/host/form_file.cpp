// SPDX-License-Identifier: MIT
#include <corvane/host/form_file.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/base64.h"
#include <corvane/host/extender.h>
#include <corvane/host/screen.h>
#include <corvane/platform/types.h>
#include <corvane/host/std_font.h>
#include <corvane/host/std_picture.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/utf8.h>

namespace corvane {

using nlohmann::json;

namespace {

bool wellFormedUtf8(const std::string& s) {
  if (utf8::isAscii(s)) return true;
  for (size_t i = 0; i < s.size();) {
    const size_t n = utf8::charSize(s, i);
    if (n == 1 && static_cast<unsigned char>(s[i]) >= 0x80) return false;
    i += n;
  }
  return true;
}

// A JSON string holds UTF-8 only. Text that is no well-formed UTF-8 (a caption may hold any
// bytes) is stored as {"base64": "<its bytes>"} and read back byte for byte.
json encodeText(const std::string& s) {
  if (wellFormedUtf8(s)) return json(s);
  return json{{"base64", base64Encode(std::vector<unsigned char>(s.begin(), s.end()))}};
}

// JSON has no NaN or infinity: those are stored as the strings "NaN", "Infinity", "-Infinity".
json encodeNumber(double d) {
  if (std::isnan(d)) return json("NaN");
  if (std::isinf(d)) return json(d > 0 ? "Infinity" : "-Infinity");
  return json(d);
}

json encodePicture(const StdPicture& p) {
  return json{{"type", p.Handle() ? p.Type() : int16_t{StdPicture::vbPicTypeNone}}, {"data", base64Encode(p.bytes())}};
}

json encodeValue(const Variant& v) {
  switch (v.type()) {
    case Variant::Type::Empty: return json{{"Empty", nullptr}};
    case Variant::Type::Boolean: return json{{"Boolean", v.toBool()}};
    case Variant::Type::Byte: return json{{"Byte", v.toByte()}};
    case Variant::Type::Integer: return json{{"Integer", v.toInteger()}};
    case Variant::Type::Long: return json{{"Long", v.toLong()}};
    case Variant::Type::Single: return json{{"Single", encodeNumber(v.toSingle())}};
    case Variant::Type::Double: return json{{"Double", encodeNumber(v.toDouble())}};
    case Variant::Type::String: return json{{"String", encodeText(v.toString())}};
    case Variant::Type::Object: {
      ObjectRef o = v.toObject();
      if (auto f = std::dynamic_pointer_cast<StdFont>(o))
        return json{{"Font",
                     {{"name", encodeText(f->Name())},
                      {"size", f->Size()},
                      {"bold", f->Bold()},
                      {"italic", f->Italic()},
                      {"underline", f->Underline()}, {"strikethrough", f->Strikethrough()}}}};
      if (auto p = std::dynamic_pointer_cast<StdPicture>(o)) return json{{"Picture", encodePicture(*p)}};
      if (!o) return json{{"Nothing", nullptr}};
      throw FormFileError("a property holds an object of type " + o->typeName() + ", which a form file cannot store");
    }
    case Variant::Type::Null: return json{{"Null", nullptr}};
  }
  return json{};
}

[[noreturn]] void fail(const std::string& where, const std::string& what) {
  throw FormFileError("form file: " + where + ": " + what);
}

const json& member(const json& obj, const char* key, json::value_t type, const std::string& where) {
  if (!obj.is_object() || !obj.contains(key)) fail(where, std::string("missing \"") + key + "\"");
  const json& v = obj.at(key);
  // A positive whole number parses as unsigned: it is an integer all the same.
  bool ok = v.type() == type || (type == json::value_t::number_float && v.is_number()) ||
            (type == json::value_t::number_integer && v.is_number_integer());
  if (!ok) fail(where + "." + key, std::string("expected ") + json(type).type_name() + ", found " + v.type_name());
  return v;
}

std::string decodeText(const json& v, const std::string& where) {
  if (v.is_string()) return v.get<std::string>();
  if (v.is_object() && v.size() == 1 && v.contains("base64") && v.at("base64").is_string()) {
    auto bytes = base64Decode(v.at("base64").get<std::string>());
    if (!bytes) fail(where, "text data is no base64");
    return std::string(bytes->begin(), bytes->end());
  }
  fail(where, std::string("expected a string or {\"base64\": ...}, found ") + v.type_name());
}

std::string textMember(const json& obj, const char* key, const std::string& where) {
  if (!obj.is_object() || !obj.contains(key)) fail(where, std::string("missing \"") + key + "\"");
  return decodeText(obj.at(key), where + "." + key);
}

double decodeNumber(const json& v, const std::string& where) {
  if (v.is_number()) return v.get<double>();
  if (v == "NaN") return std::numeric_limits<double>::quiet_NaN();
  if (v == "Infinity") return std::numeric_limits<double>::infinity();
  if (v == "-Infinity") return -std::numeric_limits<double>::infinity();
  fail(where, "the value does not fit its number type");
}

// {"type": 1 or 3, "data": "<base64>"}; a bare base64 string (older files) takes its type from
// the bytes.
PictureRef decodePicture(const json& v, const std::string& where) {
  int64_t type = -1;
  std::string data;
  if (v.is_string()) {
    data = v.get<std::string>();
  } else {
    type = member(v, "type", json::value_t::number_integer, where).get<int64_t>();
    data = member(v, "data", json::value_t::string, where).get<std::string>();
    if (type != StdPicture::vbPicTypeNone && type != StdPicture::vbPicTypeBitmap && type != StdPicture::vbPicTypeIcon)
      fail(where + ".type", "unknown picture type " + std::to_string(type));
  }
  auto bytes = base64Decode(data);
  if (!bytes) fail(where, "picture data is no base64");
  if (bytes->empty() || type == StdPicture::vbPicTypeNone) return StdPicture::empty();
  auto pic = StdPicture::fromBytes(std::move(*bytes), type == StdPicture::vbPicTypeIcon);
  if (!pic) fail(where, "picture data is no picture");
  if (type != -1 && pic->Type() != type) fail(where, "picture data does not fit its type");
  return pic;
}

Variant decodeValue(const json& j, const std::string& where) {
  if (!j.is_object() || j.size() != 1) fail(where, "a value is an object with one typed entry");
  const std::string type = j.begin().key();
  const json& v = j.begin().value();
  auto need = [&](bool ok) {
    if (!ok) fail(where, "the value does not fit its type " + type);
  };
  if (type == "Empty" || type == "Nothing") return Variant();
  if (type == "Null") return Variant::null();
  if (type == "Boolean") { need(v.is_boolean()); return Variant(v.get<bool>()); }
  if (type == "Byte") { need(v.is_number_integer() && v.get<int64_t>() >= 0 && v.get<int64_t>() <= 255); return Variant(v.get<uint8_t>()); }
  if (type == "Integer") { need(v.is_number_integer() && v.get<int64_t>() >= -32768 && v.get<int64_t>() <= 32767); return Variant(v.get<int16_t>()); }
  if (type == "Long") { need(v.is_number_integer() && v.get<int64_t>() >= INT32_MIN && v.get<int64_t>() <= INT32_MAX); return Variant(v.get<int32_t>()); }
  if (type == "Single") return Variant(static_cast<float>(decodeNumber(v, where)));
  if (type == "Double") return Variant(decodeNumber(v, where));
  if (type == "String") return Variant(decodeText(v, where));
  if (type == "Font") {
    FontSpec s;
    s.name = textMember(v, "name", where);
    s.size = member(v, "size", json::value_t::number_float, where).get<double>();
    s.bold = member(v, "bold", json::value_t::boolean, where).get<bool>();
    s.italic = member(v, "italic", json::value_t::boolean, where).get<bool>();
    s.underline = member(v, "underline", json::value_t::boolean, where).get<bool>();
    s.strikethrough = member(v, "strikethrough", json::value_t::boolean, where).get<bool>();
    if (!(s.size > 0 && s.size < 2048)) fail(where, "font size out of range");
    return Variant(StdFont::create(s));
  }
  if (type == "Picture") return Variant(decodePicture(v, where));
  fail(where, "unknown value type \"" + type + "\"");
}

struct ControlEntry {
  std::string className, name, container;
  float left, top, width, height;
  bool visible;
  std::shared_ptr<PropertyBag> bag;
};

bool knownClass(const std::string& name) {
  if (LCase(name) == "picturebox") return true;
  return ClassRegistry::instance().find(name) != nullptr;
}

// A window of that many units of a scale, at pixels per unit, must stay within the largest side.
void checkWindowSide(double units, double pixelsPerUnit, const std::string& where) {
  const double pixels = units * pixelsPerUnit;
  if (!(pixels <= kMaxWindowSide))
    fail(where, "a window side of " + std::to_string(static_cast<int64_t>(std::min(pixels, 1e18))) +
                    " pixels is larger than " + std::to_string(static_cast<int64_t>(kMaxWindowSide)));
}

json formDocument(const Form& form) {
  json controls = json::array();
  for (const HostedControlRef& c : form.controls()) {
    PropertyBag bag;
    c->WriteProperties(bag);
    json props = json::array();
    for (const auto& [k, v] : bag.entries()) props.push_back(json::array({encodeText(k), encodeValue(v)}));
    const ControlSite& site = c->controlSite();
    Extender& e = c->extenderObject();
    controls.push_back({{"class", encodeText(form.classNameOf(*c))},
                        {"name", encodeText(site.name)},
                        {"container", encodeText(site.container ? site.container->controlSite().name : std::string())},
                        {"left", e.Left()},
                        {"top", e.Top()},
                        {"width", e.Width()},
                        {"height", e.Height()},
                        {"visible", e.Visible()},
                        {"properties", props}});
  }
  return {{"format", "corvane-form"},
          {"version", 1},
          {"form",
           {{"name", encodeText(form.Name())},
            {"caption", encodeText(form.Caption())},
            {"width", form.surface().Width()},
            {"height", form.surface().Height()},
            {"backColor", form.surface().BackColor()},
            {"font", encodeValue(Variant(form.Font()))}}},
          {"controls", controls}};
}

}  // namespace

std::string FormFile::save(const Form& form) {
  // Whatever goes wrong while storing is a form file error, never another exception.
  try {
    return formDocument(form).dump(2);
  } catch (const FormFileError&) {
    throw;
  } catch (const std::exception& e) {
    throw FormFileError(std::string("form file: saving failed: ") + e.what());
  }
}

void FormFile::saveToFile(const Form& form, const std::string& path) {
  std::string text = save(form);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out || !(out << text)) throw FormFileError("form file: cannot write " + path);
}

FormRef FormFile::load(const std::string& text) {
  // Wrong values inside a well-formed document surface as form file errors too.
  try {
    return loadChecked(text);
  } catch (const RuntimeError& e) {
    throw FormFileError(std::string("form file: ") + e.what());
  } catch (const json::exception& e) {
    throw FormFileError(std::string("form file: ") + e.what());
  }
}

FormRef FormFile::loadChecked(const std::string& text) {
  json doc = json::parse(text, nullptr, false);
  if (doc.is_discarded()) throw FormFileError("form file: the text is no valid JSON");
  if (!doc.is_object()) fail("document", "expected an object");
  if (member(doc, "format", json::value_t::string, "document").get<std::string>() != "corvane-form")
    fail("document.format", "not a form file");
  if (member(doc, "version", json::value_t::number_unsigned, "document").get<int>() != 1)
    fail("document.version", "unsupported version");

  // Read and check everything before anything is created.
  const json& f = member(doc, "form", json::value_t::object, "document");
  std::string name = textMember(f, "name", "form");
  std::string caption = textMember(f, "caption", "form");
  float width = member(f, "width", json::value_t::number_float, "form").get<float>();
  float height = member(f, "height", json::value_t::number_float, "form").get<float>();
  Variant back = decodeValue(json{{"Long", member(f, "backColor", json::value_t::number_integer, "form")}}, "form.backColor");
  FontRef font = decodeValue(member(f, "font", json::value_t::object, "form"), "form.font").as<FontRef>();
  if (!font) fail("form.font", "expected a font");
  if (name.empty()) fail("form.name", "empty");
  if (!(width >= 0 && height >= 0)) fail("form", "negative size");
  Screen& screen = Screen::instance();
  checkWindowSide(width, 1.0 / screen.TwipsPerPixelX(), "form.width");
  checkWindowSide(height, 1.0 / screen.TwipsPerPixelY(), "form.height");
  if (Forms::find(name)) fail("form.name", "a form named '" + name + "' is loaded already");

  std::vector<ControlEntry> entries;
  const json& list = member(doc, "controls", json::value_t::array, "document");
  for (size_t i = 0; i < list.size(); ++i) {
    std::string where = "controls[" + std::to_string(i) + "]";
    const json& c = list[i];
    if (!c.is_object()) fail(where, "expected an object");
    ControlEntry e;
    e.className = textMember(c, "class", where);
    e.name = textMember(c, "name", where);
    e.container = textMember(c, "container", where);
    e.left = member(c, "left", json::value_t::number_float, where).get<float>();
    e.top = member(c, "top", json::value_t::number_float, where).get<float>();
    e.width = member(c, "width", json::value_t::number_float, where).get<float>();
    e.height = member(c, "height", json::value_t::number_float, where).get<float>();
    e.visible = member(c, "visible", json::value_t::boolean, where).get<bool>();
    if (!knownClass(e.className)) fail(where + ".class", "unknown class '" + e.className + "'");
    if (e.name.empty()) fail(where + ".name", "empty");
    if (!(e.width >= 0 && e.height >= 0)) fail(where, "negative size");
    if (e.container.empty()) {  // on the form, in twips; a container's own scale is checked on creation
      checkWindowSide(e.width, 1.0 / screen.TwipsPerPixelX(), where + ".width");
      checkWindowSide(e.height, 1.0 / screen.TwipsPerPixelY(), where + ".height");
    }
    for (const ControlEntry& before : entries)
      if (LCase(before.name) == LCase(e.name)) fail(where + ".name", "'" + e.name + "' is used twice");
    if (!e.container.empty() &&
        std::none_of(entries.begin(), entries.end(), [&](auto& b) { return LCase(b.name) == LCase(e.container); }))
      fail(where + ".container", "'" + e.container + "' is no control before this one");
    e.bag = std::make_shared<PropertyBag>();
    const json& props = member(c, "properties", json::value_t::array, where);
    for (size_t k = 0; k < props.size(); ++k) {
      std::string pw = where + ".properties[" + std::to_string(k) + "]";
      const json& p = props[k];
      if (!p.is_array() || p.size() != 2) fail(pw, "expected [key, value]");
      e.bag->set(decodeText(p[0], pw), decodeValue(p[1], pw));
    }
    entries.push_back(std::move(e));
  }

  FormRef form = Form::create(name, width, height);
  try {
    form->setCaption(caption);
    form->surface().setBackColor(back.toLong());
    form->surface().setFont(font);
    for (ControlEntry& e : entries) {
      HostedControl* container = e.container.empty() ? nullptr : form->control(e.container).get();
      const Surface& place = container ? container->surface() : form->surface();
      checkWindowSide(place.ScaleX(e.width, -1, 3), 1, e.name + ".width");
      checkWindowSide(place.ScaleY(e.height, -1, 3), 1, e.name + ".height");
      HostedControlRef c = form->add(e.className, e.name, container, e.left, e.top, e.width, e.height, e.bag.get());
      c->extenderObject().setVisible(e.visible);
    }
  } catch (const std::exception& ex) {
    form->Unload();
    throw FormFileError(std::string("form file: loading failed: ") + ex.what());
  }
  form->setDirty(false);
  return form;
}

FormRef FormFile::loadFromFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw FormFileError("form file: cannot open " + path);
  std::stringstream ss;
  ss << in.rdbuf();
  return load(ss.str());
}

}  // namespace corvane
