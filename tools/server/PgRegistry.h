// PgRegistry: the registry in a PostgreSQL database that several servers
// share, through a small pool of connections.
//
// A connection found broken (the database restarted, the network dropped)
// is closed with every idle one beside it, and a registration that met it
// is tried once more on a fresh connection: the insert is idempotent, so a
// second try cannot make a second row. While the database is away every
// registration fails at once with the database's own error, and the pool
// reconnects by itself on the first request after it is back.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include "tools/server/Registry.h"

typedef struct pg_conn PGconn;

namespace qvaserver {

class PgRegistry : public Registry {
 public:
  // uri: a libpq connection URI; connections: the most kept open at once.
  PgRegistry(std::string uri, std::size_t connections);
  ~PgRegistry() override;
  PgRegistry(const PgRegistry&) = delete;
  PgRegistry& operator=(const PgRegistry&) = delete;

  // Connects once and creates the table when absent; false with *error.
  bool Open(std::string* error);
  bool Store(const ByteString& der, std::string* error, bool* known) override;
  long Count() override;

 private:
  // A connection for one statement: an idle one, or a new one while fewer
  // than the limit are open; waits a bounded time for one to come back.
  PGconn* Acquire(std::string* error);
  // Gives the connection back, or closes it (and the idle ones beside it)
  // when it was lost.
  void Release(PGconn* c, bool lost = false);
  PGconn* Connect(std::string* error);

  std::string uri_;
  std::size_t max_;
  std::mutex lock_;
  std::condition_variable returned_;
  std::vector<PGconn*> idle_;
  std::size_t open_ = 0;  // idle and leased
};

}  // namespace qvaserver
