// SPDX-License-Identifier: MIT
#include "desktop/desktop_registry.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "desktop/gdi.h"

namespace corvane {

DesktopRegistry::DesktopRegistry(DesktopGdi& handles) : m_handles(handles) {}

DesktopRegistry::~DesktopRegistry() = default;

void DesktopRegistry::useFile(const std::string& path) {
  m_file = path;
  m_store.reset();
}

RegistryStore& DesktopRegistry::store() {
  if (!m_store) m_store = std::make_unique<RegistryStore>(m_file);
  return *m_store;
}

int32_t DesktopRegistry::openKeys() const { return m_handles.openKeyHandles(); }

std::string DesktopRegistry::defaultFilePath() {
  std::string config;
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  if (xdg && xdg[0] == '/') {
    config = xdg;
  } else {
    const char* home = std::getenv("HOME");
    if (!home || !*home) {
      const passwd* user = getpwuid(getuid());
      home = user ? user->pw_dir : "/tmp";
    }
    config = std::string(home) + "/.config";
  }
  return config + "/corvane/registry.sqlite";
}

int32_t DesktopRegistry::resolve(HKEY key, int64_t& id, int32_t* access) {
  if (int64_t root = RegistryStore::rootId(key)) {
    id = root;
    if (access) *access = KEY_ALL_ACCESS;
    return store().keyExists(root);  // fails when the store cannot be used
  }
  const GdiObject* open = m_handles.keyHandle(key);
  if (!open) return ERROR_INVALID_HANDLE;
  id = open->keyId;
  if (access) *access = open->keyAccess;
  return store().keyExists(id);
}

int32_t DesktopRegistry::splitPath(const std::string& path, std::vector<std::string>& names) {
  names.clear();
  if (path.empty()) return ERROR_SUCCESS;
  if (path[0] == '\\') return ERROR_BAD_PATHNAME;
  size_t start = 0;
  while (start < path.size()) {
    size_t end = path.find('\\', start);
    if (end == std::string::npos) end = path.size();
    if (end == start) return ERROR_BAD_PATHNAME;  // "a\\b"
    names.emplace_back(path, start, end - start);
    start = end + 1;
  }
  return ERROR_SUCCESS;
}

int32_t DesktopRegistry::walk(HKEY key, const std::string& subKey, int64_t& id) {
  std::vector<std::string> names;
  int32_t rc = resolve(key, id);
  if (rc == ERROR_SUCCESS) rc = splitPath(subKey, names);
  for (size_t i = 0; rc == ERROR_SUCCESS && i < names.size(); ++i) rc = store().findChild(id, names[i], id);
  return rc;
}

int32_t DesktopRegistry::RegOpenKeyExA(HKEY key, const std::string& subKey, int32_t, int32_t samDesired,
                                       HKEY& result) {
  int64_t id = 0;
  int32_t rc = walk(key, subKey, id);
  if (rc != ERROR_SUCCESS) return rc;
  result = m_handles.addKeyHandle(id, samDesired);
  return ERROR_SUCCESS;
}

int32_t DesktopRegistry::RegOpenKeyA(HKEY key, const std::string& subKey, HKEY& result) {
  return RegOpenKeyExA(key, subKey, 0, KEY_ALL_ACCESS, result);
}

int32_t DesktopRegistry::RegCreateKeyExA(HKEY key, const std::string& subKey, int32_t, const std::string&,
                                         int32_t, int32_t samDesired, HKEY& result, int32_t* disposition) {
  int64_t from = 0, id = 0;
  std::vector<std::string> names;
  int32_t rc = resolve(key, from);
  if (rc == ERROR_SUCCESS) rc = splitPath(subKey, names);
  bool created = false;
  if (rc == ERROR_SUCCESS) rc = store().createPath(from, names, id, created);
  if (rc != ERROR_SUCCESS) return rc;
  result = m_handles.addKeyHandle(id, samDesired);
  if (disposition) *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
  return ERROR_SUCCESS;
}

int32_t DesktopRegistry::RegQueryValueExA(HKEY key, const std::string& valueName, int32_t* type,
                                          uint8_t* data, int32_t* dataSize) {
  if (data && !dataSize) return ERROR_INVALID_PARAMETER;
  int64_t id = 0;
  int32_t rc = resolve(key, id);
  int32_t storedType = 0;
  std::string bytes;
  if (rc == ERROR_SUCCESS) rc = store().getValue(id, valueName, storedType, bytes);
  if (rc != ERROR_SUCCESS) return rc;
  if (type) *type = storedType;
  const auto size = static_cast<int32_t>(bytes.size());
  if (data && *dataSize < size) {
    *dataSize = size;
    return ERROR_MORE_DATA;
  }
  if (data) std::memcpy(data, bytes.data(), bytes.size());
  if (dataSize) *dataSize = size;
  return ERROR_SUCCESS;
}

int32_t DesktopRegistry::RegSetValueExA(HKEY key, const std::string& valueName, int32_t, int32_t type,
                                        const uint8_t* data, int32_t dataSize) {
  if (dataSize < 0 || (!data && dataSize > 0)) return ERROR_INVALID_PARAMETER;
  int64_t id = 0;
  int32_t access = 0;
  int32_t rc = resolve(key, id, &access);
  if (rc != ERROR_SUCCESS) return rc;
  if (!(access & KEY_SET_VALUE)) return ERROR_ACCESS_DENIED;
  std::string_view bytes(reinterpret_cast<const char*>(data), data ? static_cast<size_t>(dataSize) : 0);
  return store().setValue(id, valueName, type, bytes);
}

int32_t DesktopRegistry::RegQueryInfoKeyA(HKEY key, int32_t* subKeys, int32_t* maxSubKeyLen, int32_t* values,
                                          int32_t* maxValueNameLen, int32_t* maxValueLen) {
  int64_t id = 0;
  RegistryStore::KeyInfo info;
  int32_t rc = resolve(key, id);
  if (rc == ERROR_SUCCESS) rc = store().info(id, info);
  if (rc != ERROR_SUCCESS) return rc;
  if (subKeys) *subKeys = info.subKeys;
  if (maxSubKeyLen) *maxSubKeyLen = info.maxSubKeyLen;
  if (values) *values = info.values;
  if (maxValueNameLen) *maxValueNameLen = info.maxValueNameLen;
  if (maxValueLen) *maxValueLen = info.maxValueLen;
  return ERROR_SUCCESS;
}

int32_t DesktopRegistry::RegEnumKeyExA(HKEY key, int32_t index, std::string& name) {
  int64_t id = 0;
  int32_t rc = resolve(key, id);
  return rc == ERROR_SUCCESS ? store().subKeyAt(id, index, name) : rc;
}

int32_t DesktopRegistry::RegEnumValueA(HKEY key, int32_t index, std::string& name, int32_t* type,
                                       std::vector<uint8_t>* data) {
  int64_t id = 0;
  int32_t storedType = 0;
  std::string bytes;
  int32_t rc = resolve(key, id);
  if (rc == ERROR_SUCCESS) rc = store().valueAt(id, index, name, storedType, bytes);
  if (rc != ERROR_SUCCESS) return rc;
  if (type) *type = storedType;
  if (data) data->assign(bytes.begin(), bytes.end());
  return ERROR_SUCCESS;
}

int32_t DesktopRegistry::RegDeleteKeyA(HKEY key, const std::string& subKey) {
  int64_t id = 0;
  int32_t rc = walk(key, subKey, id);
  return rc == ERROR_SUCCESS ? store().deleteKey(id) : rc;
}

int32_t DesktopRegistry::RegDeleteValueA(HKEY key, const std::string& valueName) {
  int64_t id = 0;
  int32_t access = 0;
  int32_t rc = resolve(key, id, &access);
  if (rc != ERROR_SUCCESS) return rc;
  if (!(access & KEY_SET_VALUE)) return ERROR_ACCESS_DENIED;
  return store().deleteValue(id, valueName);
}

// The predefined roots are never really opened, so closing one succeeds and changes nothing.
int32_t DesktopRegistry::RegCloseKey(HKEY key) {
  if (RegistryStore::rootId(key)) return ERROR_SUCCESS;
  return m_handles.removeKeyHandle(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

}  // namespace corvane
