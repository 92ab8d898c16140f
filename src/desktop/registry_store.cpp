// SPDX-License-Identifier: MIT
#include "desktop/registry_store.h"

#include <corvane/runtime/strings.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <thread>

namespace corvane {

namespace {

constexpr int BusyTimeoutMs = 10000;

constexpr const char* Schema = R"(
CREATE TABLE IF NOT EXISTS keys(
  id INTEGER PRIMARY KEY,
  parent INTEGER NOT NULL,
  name TEXT NOT NULL,
  folded TEXT NOT NULL,
  UNIQUE(parent, folded));
CREATE TABLE IF NOT EXISTS vals(
  key INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,
  name TEXT NOT NULL,
  folded TEXT NOT NULL,
  type INTEGER NOT NULL,
  data BLOB NOT NULL,
  UNIQUE(key, folded));
INSERT OR IGNORE INTO keys(id, parent, name, folded) VALUES
  (1, 0, 'HKEY_CLASSES_ROOT', 'HKEY_CLASSES_ROOT'), (2, 0, 'HKEY_CURRENT_USER', 'HKEY_CURRENT_USER'),
  (3, 0, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE'), (4, 0, 'HKEY_USERS', 'HKEY_USERS'),
  (5, 0, 'HKEY_PERFORMANCE_DATA', 'HKEY_PERFORMANCE_DATA'), (6, 0, 'HKEY_CURRENT_CONFIG', 'HKEY_CURRENT_CONFIG'),
  (7, 0, 'HKEY_DYN_DATA', 'HKEY_DYN_DATA');
)";

// Resets a cached statement when the call that used it ends, whatever way it ends.
class Use {
 public:
  explicit Use(sqlite3_stmt* s) : m_s(s) {}
  ~Use() {
    if (m_s) {
      sqlite3_reset(m_s);
      sqlite3_clear_bindings(m_s);
    }
  }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;

 private:
  sqlite3_stmt* m_s;
};

void bindText(sqlite3_stmt* s, int i, std::string_view text) {
  sqlite3_bind_text(s, i, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

std::string columnBytes(sqlite3_stmt* s, int i) {
  const void* p = sqlite3_column_blob(s, i);
  int n = sqlite3_column_bytes(s, i);
  return p ? std::string(static_cast<const char*>(p), static_cast<size_t>(n)) : std::string();
}

}  // namespace

RegistryStore::RegistryStore(std::string path) : m_path(std::move(path)) {}

RegistryStore::~RegistryStore() {
  for (auto& [sql, s] : m_statements) sqlite3_finalize(s);
  if (m_db) sqlite3_close_v2(m_db);
}

int64_t RegistryStore::rootId(HKEY root) {
  if (root < HKEY_CLASSES_ROOT || root > HKEY_DYN_DATA) return 0;
  return static_cast<int64_t>(root) - HKEY_CLASSES_ROOT + 1;
}

std::string RegistryStore::fold(std::string_view name) { return UCase(name); }

void RegistryStore::fail(const std::string& why) {
  if (!m_broken)
    std::cerr << "corvane: the settings store '" << m_path << "' cannot be used (" << why
              << "); settings are neither read nor written, and the file is left as it is\n";
  m_broken = true;
}

bool RegistryStore::exec(const char* sql) {
  char* message = nullptr;
  int rc = sqlite3_exec(m_db, sql, nullptr, nullptr, &message);
  m_lastCode = rc;
  if (rc != SQLITE_OK) {
    std::string why = message ? message : sqlite3_errstr(rc);
    sqlite3_free(message);
    if (rc == SQLITE_CORRUPT || rc == SQLITE_NOTADB) fail(why);
    return false;
  }
  return true;
}

// Opens at the first call. The file is checked before anything could be written to it: a file
// that fails the check is left alone for good.
bool RegistryStore::open() {
  if (m_opened) return !m_broken;
  m_opened = true;
  const bool memory = m_path.empty();
  if (!memory) {
    std::error_code ec;
    auto folder = std::filesystem::path(m_path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ec);
  }
  int rc = sqlite3_open_v2(memory ? ":memory:" : m_path.c_str(), &m_db,
                           SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (rc != SQLITE_OK) {
    fail(m_db ? sqlite3_errmsg(m_db) : sqlite3_errstr(rc));
    return false;
  }
  sqlite3_busy_timeout(m_db, BusyTimeoutMs);
  sqlite3_extended_result_codes(m_db, 0);

  // Two processes opening a new store at once can find it locked while the other one turns on
  // the write-ahead log or creates the tables, sometimes without SQLite's own wait: that is a
  // wait too, not a broken store.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(BusyTimeoutMs);
  for (;;) {
    std::string why;
    const int rc = prepare(why);
    if (rc == SQLITE_OK) return true;
    const bool busy = rc == SQLITE_BUSY || rc == SQLITE_LOCKED;
    if (!busy || std::chrono::steady_clock::now() >= deadline) {
      fail(why);
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

int RegistryStore::prepare(std::string& why) {
  std::string verdict = integrityCheck();
  if (verdict != "ok") {
    why = verdict;
    return m_lastCode == SQLITE_OK ? SQLITE_CORRUPT : m_lastCode;
  }
  // The write-ahead log lets readers go on while one process writes; FULL makes each commit
  // durable before the call returns.
  const bool memory = m_path.empty();
  if (!memory && (!exec("PRAGMA journal_mode=WAL") || !exec("PRAGMA synchronous=FULL"))) {
    why = sqlite3_errmsg(m_db);
    return m_lastCode;
  }
  if (!exec("PRAGMA foreign_keys=ON") || !exec("BEGIN IMMEDIATE")) {
    why = sqlite3_errmsg(m_db);
    return m_lastCode;
  }
  if (!exec(Schema) || !exec("COMMIT")) {
    why = sqlite3_errmsg(m_db);
    const int rc = m_lastCode;
    exec("ROLLBACK");
    return rc;
  }
  return SQLITE_OK;
}

std::string RegistryStore::integrityCheck() {
  if (!m_db && !open()) return "not open";
  sqlite3_stmt* s = nullptr;
  int rc = sqlite3_prepare_v2(m_db, "PRAGMA integrity_check", -1, &s, nullptr);
  std::string answer;
  if (rc == SQLITE_OK) {
    while ((rc = sqlite3_step(s)) == SQLITE_ROW) {
      if (!answer.empty()) answer += "; ";
      answer += columnBytes(s, 0);
    }
  }
  m_lastCode = rc == SQLITE_DONE ? SQLITE_OK : rc;
  if (rc != SQLITE_DONE) answer = sqlite3_errmsg(m_db);
  sqlite3_finalize(s);
  return answer;
}

sqlite3_stmt* RegistryStore::statement(const char* sql) {
  auto it = m_statements.find(sql);
  if (it != m_statements.end()) return it->second;
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v3(m_db, sql, -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr) != SQLITE_OK) {
    failure(sqlite3_errcode(m_db));
    return nullptr;
  }
  m_statements.emplace(sql, s);
  return s;
}

int32_t RegistryStore::failure(int rc) {
  if (rc == SQLITE_CORRUPT || rc == SQLITE_NOTADB) {
    fail(sqlite3_errmsg(m_db));
    return ERROR_REGISTRY_CORRUPT;
  }
  return ERROR_REGISTRY_IO_FAILED;
}

int32_t RegistryStore::findChild(int64_t parent, const std::string& name, int64_t& child) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  sqlite3_stmt* s = statement("SELECT id FROM keys WHERE parent = ?1 AND folded = ?2");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, parent);
  bindText(s, 2, fold(name));
  int rc = sqlite3_step(s);
  if (rc == SQLITE_ROW) {
    child = sqlite3_column_int64(s, 0);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : failure(rc);
}

int32_t RegistryStore::createPath(int64_t from, const std::vector<std::string>& names, int64_t& key,
                                  bool& created) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  created = false;
  if (!exec("BEGIN IMMEDIATE")) return failure(sqlite3_errcode(m_db));
  int32_t result = keyExists(from);
  int64_t at = from;
  sqlite3_stmt* insert = statement("INSERT INTO keys(parent, name, folded) VALUES (?1, ?2, ?3)");
  if (!insert) result = ERROR_REGISTRY_IO_FAILED;
  for (size_t i = 0; result == ERROR_SUCCESS && i < names.size(); ++i) {
    int64_t child = 0;
    result = findChild(at, names[i], child);
    if (result == ERROR_FILE_NOT_FOUND) {
      Use use(insert);
      sqlite3_bind_int64(insert, 1, at);
      bindText(insert, 2, names[i]);
      bindText(insert, 3, fold(names[i]));
      int rc = sqlite3_step(insert);
      result = rc == SQLITE_DONE ? ERROR_SUCCESS : failure(rc);
      child = sqlite3_last_insert_rowid(m_db);
      created = true;
    }
    at = child;
  }
  if (result == ERROR_SUCCESS && !exec("COMMIT")) result = failure(sqlite3_errcode(m_db));
  if (result != ERROR_SUCCESS) {
    exec("ROLLBACK");
    created = false;
    return result;
  }
  key = at;
  return ERROR_SUCCESS;
}

int32_t RegistryStore::keyExists(int64_t key) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  sqlite3_stmt* s = statement("SELECT 1 FROM keys WHERE id = ?1");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, key);
  int rc = sqlite3_step(s);
  if (rc == SQLITE_ROW) return ERROR_SUCCESS;
  return rc == SQLITE_DONE ? ERROR_KEY_DELETED : failure(rc);
}

int32_t RegistryStore::getValue(int64_t key, const std::string& name, int32_t& type, std::string& data) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  sqlite3_stmt* s = statement("SELECT type, data FROM vals WHERE key = ?1 AND folded = ?2");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, key);
  bindText(s, 2, fold(name));
  int rc = sqlite3_step(s);
  if (rc == SQLITE_ROW) {
    type = sqlite3_column_int(s, 0);
    data = columnBytes(s, 1);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : failure(rc);
}

// One statement, so one transaction; a value written again keeps its place and its name.
int32_t RegistryStore::setValue(int64_t key, const std::string& name, int32_t type, std::string_view data) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  sqlite3_stmt* s = statement(
      "INSERT INTO vals(key, name, folded, type, data) VALUES (?1, ?2, ?3, ?4, ?5) "
      "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, key);
  bindText(s, 2, name);
  bindText(s, 3, fold(name));
  sqlite3_bind_int(s, 4, type);
  sqlite3_bind_blob(s, 5, data.data(), static_cast<int>(data.size()), SQLITE_TRANSIENT);
  int rc = sqlite3_step(s);
  if (rc == SQLITE_DONE) return ERROR_SUCCESS;
  return rc == SQLITE_CONSTRAINT ? ERROR_KEY_DELETED : failure(rc);
}

int32_t RegistryStore::deleteValue(int64_t key, const std::string& name) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  sqlite3_stmt* s = statement("DELETE FROM vals WHERE key = ?1 AND folded = ?2");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, key);
  bindText(s, 2, fold(name));
  int rc = sqlite3_step(s);
  if (rc != SQLITE_DONE) return failure(rc);
  return sqlite3_changes(m_db) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}

int32_t RegistryStore::deleteKey(int64_t key) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  if (key >= 1 && key <= 7) return ERROR_ACCESS_DENIED;  // the roots
  // The statement deletes the key only while it has no subkeys; its values follow it.
  sqlite3_stmt* s =
      statement("DELETE FROM keys WHERE id = ?1 AND NOT EXISTS (SELECT 1 FROM keys WHERE parent = ?1)");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, key);
  int rc = sqlite3_step(s);
  if (rc != SQLITE_DONE) return failure(rc);
  if (sqlite3_changes(m_db)) return ERROR_SUCCESS;
  int32_t exists = keyExists(key);
  return exists == ERROR_SUCCESS ? ERROR_ACCESS_DENIED : exists;
}

int32_t RegistryStore::info(int64_t key, KeyInfo& info) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  sqlite3_stmt* k =
      statement("SELECT count(*), coalesce(max(length(CAST(name AS BLOB))), 0) FROM keys WHERE parent = ?1");
  sqlite3_stmt* v = statement(
      "SELECT count(*), coalesce(max(length(CAST(name AS BLOB))), 0), coalesce(max(length(data)), 0) "
      "FROM vals WHERE key = ?1");
  if (!k || !v) return ERROR_REGISTRY_IO_FAILED;
  Use useK(k), useV(v);
  sqlite3_bind_int64(k, 1, key);
  sqlite3_bind_int64(v, 1, key);
  int rc = sqlite3_step(k);
  if (rc != SQLITE_ROW) return failure(rc);
  info.subKeys = sqlite3_column_int(k, 0);
  info.maxSubKeyLen = sqlite3_column_int(k, 1);
  rc = sqlite3_step(v);
  if (rc != SQLITE_ROW) return failure(rc);
  info.values = sqlite3_column_int(v, 0);
  info.maxValueNameLen = sqlite3_column_int(v, 1);
  info.maxValueLen = sqlite3_column_int(v, 2);
  return ERROR_SUCCESS;
}

int32_t RegistryStore::subKeyAt(int64_t key, int32_t index, std::string& name) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  if (index < 0) return ERROR_NO_MORE_ITEMS;
  sqlite3_stmt* s =
      statement("SELECT name FROM keys WHERE parent = ?1 ORDER BY folded, name LIMIT 1 OFFSET ?2");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, key);
  sqlite3_bind_int(s, 2, index);
  int rc = sqlite3_step(s);
  if (rc == SQLITE_ROW) {
    name = columnBytes(s, 0);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? ERROR_NO_MORE_ITEMS : failure(rc);
}

int32_t RegistryStore::valueAt(int64_t key, int32_t index, std::string& name, int32_t& type,
                               std::string& data) {
  if (!open()) return ERROR_REGISTRY_CORRUPT;
  if (index < 0) return ERROR_NO_MORE_ITEMS;
  sqlite3_stmt* s =
      statement("SELECT name, type, data FROM vals WHERE key = ?1 ORDER BY rowid LIMIT 1 OFFSET ?2");
  if (!s) return ERROR_REGISTRY_IO_FAILED;
  Use use(s);
  sqlite3_bind_int64(s, 1, key);
  sqlite3_bind_int(s, 2, index);
  int rc = sqlite3_step(s);
  if (rc == SQLITE_ROW) {
    name = columnBytes(s, 0);
    type = sqlite3_column_int(s, 1);
    data = columnBytes(s, 2);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? ERROR_NO_MORE_ITEMS : failure(rc);
}

}  // namespace corvane
