// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/array2d_object.h>
#include <corvane/runtime/array_object.h>
#include <corvane/runtime/format.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/utf8.h>
#include <corvane/system/reg_settings.h>

#include <cstring>
#include <memory>
#include <vector>

namespace corvane {

namespace {

std::string defaultPathOf(const std::string& company, const std::string& app) {
  return "Software\\" + company + "\\" + app;
}

// The first n bytes of data as text; a character that the cut would split is left out whole.
std::string textOf(const std::string& data, size_t n) {
  size_t end = 0;
  while (end < n) {
    size_t next = end + utf8::charSize(data, end);
    if (next > n) break;
    end = next;
  }
  return data.substr(0, end);
}

std::string bytesOf(const std::vector<uint8_t>& data) { return std::string(data.begin(), data.end()); }

}  // namespace

void cRegSettings::setCompany(const std::string& value) {
  const bool rebuild = hasDefaultPath();
  std::string company = Trim(value);
  m_Company = company.empty() ? "Ostwind" : company;
  if (rebuild) m_DefaultPath = defaultPathOf(m_Company, m_AppName);
}

void cRegSettings::setAppName(const std::string& value) {
  const bool rebuild = hasDefaultPath();
  std::string app = Trim(value);
  m_AppName = app.empty() ? sys().applicationName() : app;
  if (rebuild) m_DefaultPath = defaultPathOf(m_Company, m_AppName);
}

void cRegSettings::setDefaultPath(const std::string& value) { m_DefaultPath = Trim(value); }

bool cRegSettings::hasDefaultPath() const { return m_DefaultPath == defaultPathOf(m_Company, m_AppName); }

std::string cRegSettings::FullPath(const std::string& strPath) const {
  return strPath.empty() ? m_DefaultPath : m_DefaultPath + "\\" + strPath;
}

std::string cRegSettings::HexText(const std::string& bytes) {
  std::string text;
  for (unsigned char byte : bytes) {
    switch (byte) {
      case 26:
        text += "1A ";
        break;
      case 58:
        text += "3A ";
        break;
      case 74:
        text += "4A ";
        break;
      case 90:
        text += "5A ";
        break;
      case 106:
        text += "6A ";
        break;
      case 122:
        text += "7A ";
        break;
      case 138:
        text += "8A ";
        break;
      case 154:
        text += "9A ";
        break;
      default:
        text += Format(Hex(static_cast<int32_t>(byte)), "00") + " ";
    }
  }
  return text;
}

Variant cRegSettings::readValue(HKEY root, const std::string& path, const std::string& Key,
                                const Variant& Default) {
  Variant result = Default;
  try {
    RegistryApi& r = reg();
    HKEY key = 0;
    if (r.RegOpenKeyExA(root, path, 0, KEY_READ, key) != ERROR_SUCCESS) return result;
    int32_t type = 0, size = 0;
    // On failure the key is not closed here, as the component has always done.
    if (r.RegQueryValueExA(key, Key, &type, nullptr, &size) != ERROR_SUCCESS) return result;
    int32_t rc = ERROR_SUCCESS;
    if (type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ || type == REG_BINARY) {
      std::vector<uint8_t> buffer(static_cast<size_t>(size) + 1, 0);
      rc = r.RegQueryValueExA(key, Key, &type, buffer.data(), &size);
      if (rc != ERROR_SUCCESS) return Default;  // the key stays open, as above
      std::string data(reinterpret_cast<const char*>(buffer.data()), static_cast<size_t>(size));
      if (type == REG_BINARY) {
        result = HexText(data);
      } else {
        size_t nul = data.find('\0');
        result = nul == std::string::npos ? data : data.substr(0, nul);
      }
    } else if (type == REG_DWORD) {
      uint8_t buffer[4] = {};
      size = 4;
      rc = r.RegQueryValueExA(key, Key, &type, buffer, &size);
      if (rc != ERROR_SUCCESS) return Default;
      int32_t number = 0;
      std::memcpy(&number, buffer, 4);
      result = std::to_string(number);  // Trim(Str(number))
    }
    r.RegCloseKey(key);
  } catch (const std::exception&) {
    return Default;
  }
  return result;
}

bool cRegSettings::writeValue(HKEY root, const std::string& path, const std::string& Key,
                              const Variant& Setting, bool IsNumberValue) {
  try {
    RegistryApi& r = reg();
    HKEY key = 0;
    int32_t rc = r.RegCreateKeyExA(root, path, 0, "", 0, KEY_ALL_ACCESS, key, nullptr);
    if (rc != ERROR_SUCCESS) return false;
    const std::string name = Key == "*" ? std::string() : Key;
    // Errors are ignored: a Setting that does not convert skips the write, and the result is
    // that of the call before it.
    try {
      if (IsNumberValue) {
        const int32_t number = Setting.toLong();
        uint8_t bytes[4];
        std::memcpy(bytes, &number, 4);
        rc = r.RegSetValueExA(key, name, 0, REG_DWORD, bytes, 4);
      } else {
        const std::string text = Setting.toString();
        rc = r.RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const uint8_t*>(text.data()),
                              static_cast<int32_t>(text.size()));
      }
    } catch (const RuntimeError&) {
    }
    r.RegCloseKey(key);
    return rc == ERROR_SUCCESS;
  } catch (const std::exception&) {
    return false;
  }
}

Variant cRegSettings::DeletePath(HKeyRoot keyRoot, const std::string& strPath) {
  try {
    reg().RegDeleteKeyA(keyRoot, strPath);
  } catch (const std::exception&) {
  }
  return Variant();
}

Variant cRegSettings::DeleteKey(HKeyRoot keyRoot, const std::string& strPath, const std::string& Key) {
  try {
    RegistryApi& r = reg();
    HKEY key = 0;
    if (r.RegOpenKeyA(keyRoot, strPath, key) == ERROR_SUCCESS) {
      r.RegDeleteValueA(key, Key);
      r.RegCloseKey(key);
    }
  } catch (const std::exception&) {
  }
  return Variant();
}

Variant cRegSettings::GetSetting(const std::string& strPath, const std::string& Key, const Variant& Default) {
  return readValue(m_RootHKey, FullPath(strPath), Key, Default);
}

bool cRegSettings::SetSetting(const std::string& strPath, const std::string& Key, const Variant& Setting,
                              bool IsNumberValue) {
  return writeValue(m_RootHKey, FullPath(strPath), Key, Setting, IsNumberValue);
}

Variant cRegSettings::GetKeyValue(HKeyRoot keyRoot, const std::string& strPath, const std::string& Key,
                                  const Variant& Default) {
  return readValue(keyRoot, strPath, Key, Default);
}

bool cRegSettings::SetKeyValue(int32_t keyRoot, const std::string& strPath, const std::string& Key,
                               const Variant& Setting, bool IsNumberValue) {
  return writeValue(keyRoot, strPath, Key, Setting, IsNumberValue);
}

Variant cRegSettings::GetAllSections(const std::string& strPath) {
  Variant result;
  HKEY key = 0;
  try {
    RegistryApi& r = reg();
    if (r.RegOpenKeyExA(m_RootHKey, FullPath(strPath), 0, KEY_READ, key) != ERROR_SUCCESS) return result;
    int32_t count = 0, longest = 0;
    if (r.RegQueryInfoKeyA(key, &count, &longest, nullptr, nullptr, nullptr) == ERROR_SUCCESS && count > 0) {
      auto names = std::make_shared<ArrayObject>();
      names->items().redim(0, count - 1);
      std::string name;
      // A key added meanwhile has no place in the array and is left out.
      for (int32_t i = 0; i < count && r.RegEnumKeyExA(key, i, name) == ERROR_SUCCESS; ++i)
        names->items()(i) = name;
      result = Variant(names);
    }
    r.RegCloseKey(key);
  } catch (const std::exception&) {
    return Variant();
  }
  return result;
}

Variant cRegSettings::GetAllSettings(const std::string& strPath) {
  Variant result;
  try {
    RegistryApi& r = reg();
    HKEY key = 0;
    if (r.RegOpenKeyExA(m_RootHKey, FullPath(strPath), 0, KEY_READ, key) != ERROR_SUCCESS) return result;
    int32_t count = 0;
    if (r.RegQueryInfoKeyA(key, nullptr, nullptr, &count, nullptr, nullptr) == ERROR_SUCCESS && count > 0) {
      auto table = std::make_shared<Array2DObject>(0, 1, 0, count - 1);
      std::string name;
      std::vector<uint8_t> data;
      for (int32_t i = 0; i < count && r.RegEnumValueA(key, i, name, nullptr, &data) == ERROR_SUCCESS; ++i) {
        (*table)(0, i) = name;
        // The data up to the returned size less one, whatever the type.
        (*table)(1, i) = data.empty() ? std::string() : textOf(bytesOf(data), data.size() - 1);
      }
      result = Variant(table);
    }
    r.RegCloseKey(key);
  } catch (const std::exception&) {
    return Variant();
  }
  return result;
}

namespace {

const Variant& required(const Dispatch::Args& a, size_t i) {
  if (a.size() <= i) throw RuntimeError(449, "Argument not optional");
  return a[i];
}

Variant optional(const Dispatch::Args& a, size_t i) { return a.size() > i ? a[i] : Variant(); }

}  // namespace

const Dispatch* cRegSettings::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<cRegSettings>(t)
        .prop("Company", &cRegSettings::Company, &cRegSettings::setCompany)
        .prop("AppName", &cRegSettings::AppName, &cRegSettings::setAppName)
        .prop("RootHKey", &cRegSettings::RootHKey, &cRegSettings::setRootHKey)
        .prop("DefaultPath", &cRegSettings::DefaultPath, &cRegSettings::setDefaultPath)
        .method("DeletePath",
                [](cRegSettings& s, Dispatch::Args& a) {
                  return s.DeletePath(required(a, 0).as<HKeyRoot>(), required(a, 1).toString());
                })
        .method("DeleteKey",
                [](cRegSettings& s, Dispatch::Args& a) {
                  return s.DeleteKey(required(a, 0).as<HKeyRoot>(), required(a, 1).toString(),
                                     required(a, 2).toString());
                })
        .method("GetSetting",
                [](cRegSettings& s, Dispatch::Args& a) {
                  return s.GetSetting(required(a, 0).toString(), required(a, 1).toString(), optional(a, 2));
                })
        .method("SetSetting",
                [](cRegSettings& s, Dispatch::Args& a) {
                  return s.SetSetting(required(a, 0).toString(), required(a, 1).toString(), required(a, 2),
                                      optional(a, 3).toBool());
                })
        .method(
            "GetAllSections",
            [](cRegSettings& s, Dispatch::Args& a) { return s.GetAllSections(optional(a, 0).toString()); })
        .method(
            "GetAllSettings",
            [](cRegSettings& s, Dispatch::Args& a) { return s.GetAllSettings(optional(a, 0).toString()); })
        .method("GetKeyValue",
                [](cRegSettings& s, Dispatch::Args& a) {
                  return s.GetKeyValue(required(a, 0).as<HKeyRoot>(), required(a, 1).toString(),
                                       required(a, 2).toString(), optional(a, 3));
                })
        .method("SetKeyValue", [](cRegSettings& s, Dispatch::Args& a) {
          return s.SetKeyValue(required(a, 0).toLong(), required(a, 1).toString(), required(a, 2).toString(),
                               required(a, 3), optional(a, 4).toBool());
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane
