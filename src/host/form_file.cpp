#include <corvane/host/form_file.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/base64.h"
#include <corvane/host/extender.h>
#include <corvane/host/std_font.h>
#include <corvane/host/std_picture.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/runtime/strings.h>

namespace corvane {

using nlohmann::json;

namespace {

json encodeValue(const Variant& v) {
  switch (v.type()) {
    case Variant::Type::Empty: return json{{"Empty", nullptr}};
    case Variant::Type::Boolean: return json{{"Boolean", v.toBool()}};
    case Variant::Type::Byte: return json{{"Byte", v.toByte()}};
    case Variant::Type::Integer: return json{{"Integer", v.toInteger()}};
    case Variant::Type::Long: return json{{"Long", v.toLong()}};
    case Variant::Type::Single: return json{{"Single", v.toSingle()}};
    case Variant::Type::Double: return json{{"Double", v.toDouble()}};
    case Variant::Type::String: return json{{"String", v.toString()}};
    case Variant::Type::Object: {
      ObjectRef o = v.toObject();
      if (auto f = std::dynamic_pointer_cast<StdFont>(o))
        return json{{"Font",
                     {{"name", f->Name()}, {"size", f->Size()}, {"bold", f->Bold()}, {"italic", f->Italic()},
                      {"underline", f->Underline()}, {"strikethrough", f->Strikethrough()}}}};
      if (auto p = std::dynamic_pointer_cast<StdPicture>(o)) return json{{"Picture", base64Encode(p->bytes())}};
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
  if (type == "Single") { need(v.is_number()); return Variant(v.get<float>()); }
  if (type == "Double") { need(v.is_number()); return Variant(v.get<double>()); }
  if (type == "String") { need(v.is_string()); return Variant(v.get<std::string>()); }
  if (type == "Font") {
    FontSpec s;
    s.name = member(v, "name", json::value_t::string, where).get<std::string>();
    s.size = member(v, "size", json::value_t::number_float, where).get<double>();
    s.bold = member(v, "bold", json::value_t::boolean, where).get<bool>();
    s.italic = member(v, "italic", json::value_t::boolean, where).get<bool>();
    s.underline = member(v, "underline", json::value_t::boolean, where).get<bool>();
    s.strikethrough = member(v, "strikethrough", json::value_t::boolean, where).get<bool>();
    if (!(s.size > 0 && s.size < 2048)) fail(where, "font size out of range");
    return Variant(StdFont::create(s));
  }
  if (type == "Picture") {
    need(v.is_string());
    auto bytes = base64Decode(v.get<std::string>());
    if (!bytes) fail(where, "picture data is no base64");
    if (bytes->empty()) return Variant(StdPicture::empty());
    auto pic = StdPicture::fromBytes(std::move(*bytes));
    if (!pic) fail(where, "picture data is no picture");
    return Variant(pic);
  }
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

}  // namespace

std::string FormFile::save(const Form& form) {
  json controls = json::array();
  for (const HostedControlRef& c : form.controls()) {
    PropertyBag bag;
    c->WriteProperties(bag);
    json props = json::array();
    for (const auto& [k, v] : bag.entries()) props.push_back(json::array({k, encodeValue(v)}));
    const ControlSite& site = c->controlSite();
    Extender& e = c->extenderObject();
    controls.push_back({{"class", form.classNameOf(*c)},
                        {"name", site.name},
                        {"container", site.container ? site.container->controlSite().name : std::string()},
                        {"left", e.Left()},
                        {"top", e.Top()},
                        {"width", e.Width()},
                        {"height", e.Height()},
                        {"visible", e.Visible()},
                        {"properties", props}});
  }
  json doc = {{"format", "corvane-form"},
              {"version", 1},
              {"form",
               {{"name", form.Name()},
                {"caption", form.Caption()},
                {"width", form.surface().Width()},
                {"height", form.surface().Height()},
                {"backColor", form.surface().BackColor()},
                {"font", encodeValue(Variant(form.Font()))}}},
              {"controls", controls}};
  return doc.dump(2);
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
  std::string name = member(f, "name", json::value_t::string, "form").get<std::string>();
  std::string caption = member(f, "caption", json::value_t::string, "form").get<std::string>();
  float width = member(f, "width", json::value_t::number_float, "form").get<float>();
  float height = member(f, "height", json::value_t::number_float, "form").get<float>();
  Variant back = decodeValue(json{{"Long", member(f, "backColor", json::value_t::number_integer, "form")}}, "form.backColor");
  FontRef font = decodeValue(member(f, "font", json::value_t::object, "form"), "form.font").as<FontRef>();
  if (!font) fail("form.font", "expected a font");
  if (name.empty()) fail("form.name", "empty");
  if (!(width >= 0 && height >= 0 && width < 1e7 && height < 1e7)) fail("form", "size out of range");
  if (Forms::find(name)) fail("form.name", "a form named '" + name + "' is loaded already");

  std::vector<ControlEntry> entries;
  const json& list = member(doc, "controls", json::value_t::array, "document");
  for (size_t i = 0; i < list.size(); ++i) {
    std::string where = "controls[" + std::to_string(i) + "]";
    const json& c = list[i];
    if (!c.is_object()) fail(where, "expected an object");
    ControlEntry e;
    e.className = member(c, "class", json::value_t::string, where).get<std::string>();
    e.name = member(c, "name", json::value_t::string, where).get<std::string>();
    e.container = member(c, "container", json::value_t::string, where).get<std::string>();
    e.left = member(c, "left", json::value_t::number_float, where).get<float>();
    e.top = member(c, "top", json::value_t::number_float, where).get<float>();
    e.width = member(c, "width", json::value_t::number_float, where).get<float>();
    e.height = member(c, "height", json::value_t::number_float, where).get<float>();
    e.visible = member(c, "visible", json::value_t::boolean, where).get<bool>();
    if (!knownClass(e.className)) fail(where + ".class", "unknown class '" + e.className + "'");
    if (e.name.empty()) fail(where + ".name", "empty");
    if (!(e.width >= 0 && e.height >= 0)) fail(where, "negative size");
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
      if (!p.is_array() || p.size() != 2 || !p[0].is_string()) fail(pw, "expected [key, value]");
      e.bag->set(p[0].get<std::string>(), decodeValue(p[1], pw));
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
