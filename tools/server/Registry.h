// Registry: the registered certificates in an SQLite database (WAL), one row
// per SHA-256 fingerprint of the DER.
#pragma once

#include <mutex>
#include <string>

#include "base/ByteString.h"

struct sqlite3;

namespace qvaserver {

class Registry {
 public:
  Registry() = default;
  ~Registry();
  Registry(const Registry&) = delete;
  Registry& operator=(const Registry&) = delete;

  // Opens (creating when absent) the database; false with *error otherwise.
  bool Open(const std::string& path, std::string* error);
  // Stores the certificate; true once the row is committed (or was already
  // there: the same certificate twice is one row).
  bool Store(const ByteString& der, std::string* error);
  // The number of rows, or -1.
  long Count();

 private:
  std::mutex lock_;  // one connection, used by one worker at a time
  sqlite3* db_ = nullptr;
};

}  // namespace qvaserver
