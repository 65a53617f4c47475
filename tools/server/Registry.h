// Registry: the registered certificates, one row per SHA-256 fingerprint of
// the DER. Two backends behave alike: an embedded SQLite file for one server
// (the default), and a PostgreSQL database that several servers share.
//
// Store answers true only once the row is committed. The same certificate
// twice is one row: the database's unique key settles it, also between
// servers that register it at the same moment.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "base/ByteString.h"

namespace qvaserver {

class Registry {
 public:
  virtual ~Registry() = default;

  // Stores the certificate; true once the row is committed or was already
  // there (*known, when given, tells which). False with *error otherwise.
  virtual bool Store(const ByteString& der, std::string* error, bool* known = nullptr) = 0;
  // The number of rows, or -1.
  virtual long Count() = 0;

  // Opens the registry named by `where`: a postgresql:// or postgres:// URI
  // chooses PostgreSQL with up to `connections` pooled connections, anything
  // else is an SQLite file (created when absent). Null with *error otherwise.
  static std::unique_ptr<Registry> Open(const std::string& where, std::size_t connections, std::string* error);
  // True when `where` names a PostgreSQL database.
  static bool IsPostgresUri(const std::string& where);
  // False when this build has no PostgreSQL backend.
  static bool HasPostgres();
};

// SHA-256 of the DER, the row's key; false when the hash cannot be made.
bool Fingerprint(const ByteString& der, ByteString* digest);

}  // namespace qvaserver
