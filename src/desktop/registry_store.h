// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/types.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace corvane {

// The tree of settings keys and their typed values in an SQLite database: a file, shared safely by
// several processes (write-ahead log, one transaction per write, a busy timeout), or memory.
//
// Keys are rows with a parent; the seven roots are the rows 1 to 7. Names are kept as given and
// found through their folded form (UCase), so they compare without regard to case.
//
// A file that is no usable database (not a database, truncated, damaged) is never written: the
// store says so once on the error stream and every call fails with ERROR_REGISTRY_CORRUPT.
class RegistryStore {
 public:
  struct KeyInfo {
    int32_t subKeys = 0, maxSubKeyLen = 0, values = 0, maxValueNameLen = 0, maxValueLen = 0;
  };

  // An empty path keeps the store in memory. Nothing is opened before the first call.
  explicit RegistryStore(std::string path);
  ~RegistryStore();
  RegistryStore(const RegistryStore&) = delete;
  RegistryStore& operator=(const RegistryStore&) = delete;

  const std::string& path() const { return m_path; }

  // The row of a predefined root, 0 for any other handle value.
  static int64_t rootId(HKEY root);
  // The form under which names are compared.
  static std::string fold(std::string_view name);

  // Each returns ERROR_SUCCESS or an error code.
  int32_t findChild(int64_t parent, const std::string& name, int64_t& child);
  // Walks the names from a key, creating what is missing, in one transaction.
  int32_t createPath(int64_t from, const std::vector<std::string>& names, int64_t& key, bool& created);
  int32_t keyExists(int64_t key);  // ERROR_SUCCESS or ERROR_KEY_DELETED
  int32_t getValue(int64_t key, const std::string& name, int32_t& type, std::string& data);
  int32_t setValue(int64_t key, const std::string& name, int32_t type, std::string_view data);
  int32_t deleteValue(int64_t key, const std::string& name);
  // Deletes a key that has no subkeys, with its values; roots cannot be deleted.
  int32_t deleteKey(int64_t key);
  int32_t info(int64_t key, KeyInfo& info);
  int32_t subKeyAt(int64_t key, int32_t index, std::string& name);
  int32_t valueAt(int64_t key, int32_t index, std::string& name, int32_t& type, std::string& data);

  // The answer of PRAGMA integrity_check ("ok" for a sound store), or why it could not run.
  std::string integrityCheck();

 private:
  bool open();
  // The checks and the schema of a store just opened; the result code of the step that failed.
  int prepare(std::string& why);
  void fail(const std::string& why);
  sqlite3_stmt* statement(const char* sql);
  int32_t failure(int rc);  // maps an SQLite result to an error code, noting damage
  bool exec(const char* sql);

  std::string m_path;
  sqlite3* m_db = nullptr;
  bool m_opened = false, m_broken = false;
  int m_lastCode = 0;  // result of the last exec or integrity check
  std::map<const char*, sqlite3_stmt*> m_statements;
};

}  // namespace corvane
