// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/platform.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desktop/registry_store.h"

namespace corvane {

class DesktopGdi;

// The registry operations of the desktop, over a RegistryStore. Open keys are handles in the
// desktop's handle table; the predefined roots need no opening.
//
// Paths are names separated by "\". A leading "\" or an empty name inside a path is
// ERROR_BAD_PATHNAME; a trailing "\" is ignored, and an empty path is the key itself. Access is
// checked as on the platform: a key opened for reading cannot take values.
class DesktopRegistry : public RegistryApi {
 public:
  explicit DesktopRegistry(DesktopGdi& handles);
  ~DesktopRegistry() override;

  // The store behind the operations: a file, or memory for an empty path. Handles still open
  // keep their numbers but refer to the new store's keys of the same row.
  void useFile(const std::string& path);
  const std::string& file() const { return m_file; }
  RegistryStore& store();
  // Keys opened and not yet closed.
  int32_t openKeys() const;

  // Where the live display keeps its settings: $XDG_CONFIG_HOME/corvane/registry.sqlite, with
  // ~/.config when the variable is unset or not an absolute path.
  static std::string defaultFilePath();

  int32_t RegOpenKeyExA(HKEY key, const std::string& subKey, int32_t options, int32_t samDesired,
                        HKEY& result) override;
  int32_t RegOpenKeyA(HKEY key, const std::string& subKey, HKEY& result) override;
  int32_t RegCreateKeyExA(HKEY key, const std::string& subKey, int32_t reserved, const std::string& className,
                          int32_t options, int32_t samDesired, HKEY& result, int32_t* disposition) override;
  int32_t RegQueryValueExA(HKEY key, const std::string& valueName, int32_t* type, uint8_t* data,
                           int32_t* dataSize) override;
  int32_t RegSetValueExA(HKEY key, const std::string& valueName, int32_t reserved, int32_t type,
                         const uint8_t* data, int32_t dataSize) override;
  int32_t RegQueryInfoKeyA(HKEY key, int32_t* subKeys, int32_t* maxSubKeyLen, int32_t* values,
                           int32_t* maxValueNameLen, int32_t* maxValueLen) override;
  int32_t RegEnumKeyExA(HKEY key, int32_t index, std::string& name) override;
  int32_t RegEnumValueA(HKEY key, int32_t index, std::string& name, int32_t* type,
                        std::vector<uint8_t>* data) override;
  int32_t RegDeleteKeyA(HKEY key, const std::string& subKey) override;
  int32_t RegDeleteValueA(HKEY key, const std::string& valueName) override;
  int32_t RegCloseKey(HKEY key) override;

 private:
  // The store row of a root or an open key, and the access it carries.
  int32_t resolve(HKEY key, int64_t& id, int32_t* access = nullptr);
  static int32_t splitPath(const std::string& path, std::vector<std::string>& names);
  int32_t walk(HKEY key, const std::string& subKey, int64_t& id);

  DesktopGdi& m_handles;
  std::string m_file;
  std::unique_ptr<RegistryStore> m_store;
};

}  // namespace corvane
