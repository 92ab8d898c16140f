// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/platform/types.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/variant.h>

#include <climits>
#include <cstdint>
#include <string>

namespace corvane {

enum HKeyRoot : int32_t {
  HKY_CLASSES_ROOT = INT32_MIN,
  HKY_CURRENT_USER = INT32_MIN + 1,
  HKY_LOCAL_MACHINE = INT32_MIN + 2,
  HKY_USERS = INT32_MIN + 3,
  HKY_PERFORMANCE_DATA = INT32_MIN + 4,
  HKY_CURRENT_CONFIG = INT32_MIN + 5,
  HKY_DYN_DATA = INT32_MIN + 6,
};

// Reads and writes the settings of an application below its default key
// "Software\<Company>\<AppName>" of RootHKey, or anywhere under a given root. No operation raises
// an error: reading gives the Default or an empty Variant, writing gives False, deleting gives
// nothing.
class CORVANE_API cRegSettings : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "cRegSettings"; }

  // Company and AppName are stored trimmed. An empty Company is "Ostwind", an empty AppName the
  // running application's name. A DefaultPath still of the form "Software\Company\AppName" is
  // rebuilt from the new values; one the host set by hand stays.
  const std::string& Company() const { return m_Company; }
  void setCompany(const std::string& value);
  const std::string& AppName() const { return m_AppName; }
  void setAppName(const std::string& value);
  HKeyRoot RootHKey() const { return m_RootHKey; }
  void setRootHKey(HKeyRoot value) { m_RootHKey = value; }
  const std::string& DefaultPath() const { return m_DefaultPath; }
  void setDefaultPath(const std::string& value);

  // DefaultPath + "\" + strPath, or DefaultPath alone for an empty strPath.
  std::string FullPath(const std::string& strPath) const;

  // RegDeleteKeyA(keyRoot, strPath) and, for DeleteKey, the value Key of the key strPath; the
  // paths are complete. The result is always an empty Variant.
  Variant DeletePath(HKeyRoot keyRoot, const std::string& strPath);
  Variant DeleteKey(HKeyRoot keyRoot, const std::string& strPath, const std::string& Key);

  // A text value reads up to its first NUL (so a multi-string as its first string, an expandable
  // one unexpanded), a binary one as hexadecimal text, a number as its decimal text; anything
  // missing or of another type gives Default. When the value cannot be found, or its data not
  // read, the key opened for it stays open.
  Variant GetSetting(const std::string& strPath, const std::string& Key, const Variant& Default = Variant());
  // Writes Setting as text (REG_SZ, without a terminating NUL) or, with IsNumberValue, as a
  // 32-bit number (REG_DWORD); the Key "*" is the key's unnamed default value. True when the
  // key could be created and the last write that ran succeeded.
  bool SetSetting(const std::string& strPath, const std::string& Key, const Variant& Setting,
                  bool IsNumberValue = false);
  // The names of the subkeys, as an ArrayObject with bounds 0 to count - 1, or Empty.
  Variant GetAllSections(const std::string& strPath = "");
  // Names and data of the values as an Array2DObject (0 to 1, 0 to count - 1): the name in
  // column 0, the data in column 1 as text whatever its type, less its last byte; or Empty.
  Variant GetAllSettings(const std::string& strPath = "");
  // As GetSetting and SetSetting, on the given root and exactly the given path.
  Variant GetKeyValue(HKeyRoot keyRoot, const std::string& strPath, const std::string& Key,
                      const Variant& Default = Variant());
  bool SetKeyValue(int32_t keyRoot, const std::string& strPath, const std::string& Key,
                   const Variant& Setting, bool IsNumberValue = false);

  // The text of binary data: each byte as two hexadecimal digits put through Format "00" and a
  // blank, with fixed pieces for the bytes whose digits would read as a time of day ("1A " ...
  // "9A "); the byte 42 is not among them and comes out as "00 ".
  static std::string HexText(const std::string& bytes);

 protected:
  const Dispatch* dispatch() const override;

 private:
  bool hasDefaultPath() const;
  Variant readValue(HKEY root, const std::string& path, const std::string& Key, const Variant& Default);
  bool writeValue(HKEY root, const std::string& path, const std::string& Key, const Variant& Setting,
                  bool IsNumberValue);

  std::string m_Company = "Ostwind";
  std::string m_AppName = "OstApp";
  HKeyRoot m_RootHKey = HKY_CURRENT_USER;
  std::string m_DefaultPath = "Software\\Ostwind\\OstApp";
};

}  // namespace corvane
