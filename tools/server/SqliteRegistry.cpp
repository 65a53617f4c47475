#include "tools/server/SqliteRegistry.h"

#include <sqlite3.h>

namespace qvaserver {

SqliteRegistry::~SqliteRegistry() {
  if (db_) sqlite3_close(db_);
}

bool SqliteRegistry::Open(const std::string& path, std::string* error) {
  if (sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX,
                      nullptr) != SQLITE_OK) {
    *error = db_ ? sqlite3_errmsg(db_) : "cannot open the database";
    return false;
  }
  char* message = nullptr;
  // FULL synchronous: a row acknowledged to the client survives a crash of the server or the machine.
  const char* setup =
      "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
      "CREATE TABLE IF NOT EXISTS registered ("
      " fingerprint BLOB PRIMARY KEY, certificate BLOB NOT NULL, registered_at INTEGER NOT NULL)";
  if (sqlite3_exec(db_, setup, nullptr, nullptr, &message) != SQLITE_OK) {
    *error = message ? message : "cannot set the database up";
    sqlite3_free(message);
    return false;
  }
  sqlite3_busy_timeout(db_, 5000);
  return true;
}

bool SqliteRegistry::Store(const ByteString& der, std::string* error, bool* known) {
  ByteString digest;
  if (!Fingerprint(der, &digest)) {
    *error = "cannot hash the certificate";
    return false;
  }
  std::lock_guard<std::mutex> guard(lock_);
  sqlite3_stmt* st = nullptr;
  // The primary key's own conflict handling makes a second registration a no-op.
  if (sqlite3_prepare_v2(db_,
                         "INSERT INTO registered (fingerprint, certificate, registered_at) VALUES (?, ?, "
                         "strftime('%s','now')) ON CONFLICT(fingerprint) DO NOTHING",
                         -1, &st, nullptr) != SQLITE_OK) {
    *error = sqlite3_errmsg(db_);
    return false;
  }
  sqlite3_bind_blob(st, 1, digest.data(), digest.length(), SQLITE_TRANSIENT);
  sqlite3_bind_blob(st, 2, der.data(), der.length(), SQLITE_TRANSIENT);
  const int rc = sqlite3_step(st);
  sqlite3_finalize(st);
  // Autocommit: SQLITE_DONE means the statement's transaction has committed.
  if (rc != SQLITE_DONE) {
    *error = sqlite3_errmsg(db_);
    return false;
  }
  if (known) *known = sqlite3_changes(db_) == 0;
  return true;
}

long SqliteRegistry::Count() {
  std::lock_guard<std::mutex> guard(lock_);
  sqlite3_stmt* st = nullptr;
  long n = -1;
  if (sqlite3_prepare_v2(db_, "SELECT COUNT(*) FROM registered", -1, &st, nullptr) == SQLITE_OK &&
      sqlite3_step(st) == SQLITE_ROW)
    n = static_cast<long>(sqlite3_column_int64(st, 0));
  sqlite3_finalize(st);
  return n;
}

}  // namespace qvaserver
