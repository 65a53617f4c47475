// SqliteRegistry: the registry in an SQLite file (WAL), for one server.
#pragma once

#include <mutex>

#include "tools/server/Registry.h"

struct sqlite3;

namespace qvaserver {

class SqliteRegistry : public Registry {
 public:
  SqliteRegistry() = default;
  ~SqliteRegistry() override;
  SqliteRegistry(const SqliteRegistry&) = delete;
  SqliteRegistry& operator=(const SqliteRegistry&) = delete;

  // Opens (creating when absent) the database; false with *error otherwise.
  bool Open(const std::string& path, std::string* error);
  bool Store(const ByteString& der, std::string* error, bool* known) override;
  long Count() override;

 private:
  std::mutex lock_;  // one connection, used by one worker at a time
  sqlite3* db_ = nullptr;
};

}  // namespace qvaserver
