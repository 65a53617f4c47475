#include "tools/server/PgRegistry.h"

#include <libpq-fe.h>

#include <chrono>
#include <cstdlib>
#include <cstring>

namespace qvaserver {
namespace {

// How long a request waits for a pooled connection before it is refused.
constexpr auto kAcquireWait = std::chrono::seconds(5);

// Two servers starting at once must not both create the table: the
// creation runs under a transaction-scoped advisory lock of this key.
constexpr const char* kSchema =
    "BEGIN;"
    "SELECT pg_advisory_xact_lock(7301017);"
    "CREATE TABLE IF NOT EXISTS registered ("
    " fingerprint bytea PRIMARY KEY, certificate bytea NOT NULL, registered_at bigint NOT NULL);"
    "COMMIT";

constexpr const char* kInsert =
    "INSERT INTO registered (fingerprint, certificate, registered_at)"
    " VALUES ($1, $2, extract(epoch from now())::bigint) ON CONFLICT (fingerprint) DO NOTHING";

// True when a failed statement says its connection is gone: libpq has
// marked it bad, or the failure carries no state from the server (a lost
// socket may still read as open until the next call), or the state is a
// connection failure (08...) or the server going down (57P...).
bool ConnectionLost(PGconn* c, const PGresult* r) {
  if (PQstatus(c) != CONNECTION_OK) return true;
  const char* state = r ? PQresultErrorField(r, PG_DIAG_SQLSTATE) : nullptr;
  return state == nullptr || std::strncmp(state, "08", 2) == 0 || std::strncmp(state, "57P", 3) == 0;
}

// libpq's texts run over several lines; the access log keeps one line per
// request, so line breaks and tabs become single blanks.
std::string Trimmed(const char* text) {
  std::string s;
  for (const char* p = text ? text : ""; *p; ++p) {
    const bool blank = *p == '\n' || *p == '\r' || *p == '\t' || *p == ' ';
    if (!blank)
      s += *p;
    else if (!s.empty() && s.back() != ' ')
      s += ' ';
  }
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s.empty() ? "database error" : s;
}

}  // namespace

PgRegistry::PgRegistry(std::string uri, std::size_t connections)
    : uri_(std::move(uri)), max_(connections ? connections : 1) {}

PgRegistry::~PgRegistry() {
  for (PGconn* c : idle_) PQfinish(c);
}

PGconn* PgRegistry::Connect(std::string* error) {
  // Bounded connects and a bounded wait on a silent peer; the URI's own
  // settings come later and win.
  const char* keys[] = {"connect_timeout", "tcp_user_timeout", "keepalives_idle", "dbname", nullptr};
  const char* values[] = {"5", "10000", "10", uri_.c_str(), nullptr};
  PGconn* c = PQconnectdbParams(keys, values, 1);
  if (c == nullptr) {
    *error = "cannot allocate a database connection";
    return nullptr;
  }
  if (PQstatus(c) != CONNECTION_OK) {
    *error = Trimmed(PQerrorMessage(c));
    PQfinish(c);
    return nullptr;
  }
  // The database's notices ("already exists, skipping") are not the server's to print.
  PQsetNoticeProcessor(
      c, [](void*, const char*) {}, nullptr);
  // The answer "0" must mean the row is durable: a server-wide asynchronous
  // commit is overridden for these sessions. A statement is never left
  // waiting without end.
  PGresult* r = PQexec(c, "SET synchronous_commit = on; SET statement_timeout = 10000");
  const bool ok = PQresultStatus(r) == PGRES_COMMAND_OK;
  PQclear(r);
  if (!ok) {
    *error = Trimmed(PQerrorMessage(c));
    PQfinish(c);
    return nullptr;
  }
  return c;
}

bool PgRegistry::Open(std::string* error) {
  PGconn* c = Connect(error);
  if (c == nullptr) return false;
  PGresult* r = PQexec(c, kSchema);
  const bool ok = PQresultStatus(r) == PGRES_COMMAND_OK;
  if (!ok) *error = Trimmed(PQerrorMessage(c));
  PQclear(r);
  std::lock_guard<std::mutex> guard(lock_);
  ++open_;
  idle_.push_back(c);
  return ok;
}

PGconn* PgRegistry::Acquire(std::string* error) {
  PGconn* c = nullptr;
  {
    std::unique_lock<std::mutex> guard(lock_);
    if (!returned_.wait_for(guard, kAcquireWait, [this] { return !idle_.empty() || open_ < max_; })) {
      *error = "no database connection became free";
      return nullptr;
    }
    if (!idle_.empty()) {
      c = idle_.back();
      idle_.pop_back();
      return c;
    }
    ++open_;  // a place for the new connection, kept while it connects
  }
  c = Connect(error);
  if (c == nullptr) {
    std::lock_guard<std::mutex> guard(lock_);
    --open_;
    returned_.notify_one();
  }
  return c;
}

void PgRegistry::Release(PGconn* c, bool lost) {
  std::vector<PGconn*> stale;
  {
    std::lock_guard<std::mutex> guard(lock_);
    if (!lost && PQstatus(c) == CONNECTION_OK) {
      idle_.push_back(c);
    } else {
      // The idle connections went to the same server: most likely broken too.
      stale.swap(idle_);
      stale.push_back(c);
      open_ -= stale.size();
    }
  }
  for (PGconn* s : stale) PQfinish(s);
  returned_.notify_all();
}

bool PgRegistry::Store(const ByteString& der, std::string* error, bool* known) {
  ByteString digest;
  if (!Fingerprint(der, &digest)) {
    *error = "cannot hash the certificate";
    return false;
  }
  const char* values[] = {reinterpret_cast<const char*>(digest.data()), reinterpret_cast<const char*>(der.data())};
  const int lengths[] = {digest.length(), der.length()};
  const int binary[] = {1, 1};
  // One more try only when the connection itself broke.
  for (int attempt = 0; attempt < 2; ++attempt) {
    PGconn* c = Acquire(error);
    if (c == nullptr) return false;
    PGresult* r = PQexecParams(c, kInsert, 2, nullptr, values, lengths, binary, 0);
    // An autocommit statement that reports success has committed.
    const bool ok = PQresultStatus(r) == PGRES_COMMAND_OK;
    if (ok && known) *known = std::strcmp(PQcmdTuples(r), "0") == 0;
    if (!ok) *error = Trimmed(r ? PQresultErrorMessage(r) : PQerrorMessage(c));
    const bool lost = !ok && ConnectionLost(c, r);
    PQclear(r);
    Release(c, lost);
    if (ok) return true;
    if (!lost) return false;
  }
  return false;
}

long PgRegistry::Count() {
  std::string error;
  for (int attempt = 0; attempt < 2; ++attempt) {
    PGconn* c = Acquire(&error);
    if (c == nullptr) return -1;
    PGresult* r = PQexec(c, "SELECT COUNT(*) FROM registered");
    long n = -1;
    const bool ok = PQresultStatus(r) == PGRES_TUPLES_OK && PQntuples(r) == 1;
    if (ok) n = std::strtol(PQgetvalue(r, 0, 0), nullptr, 10);
    const bool lost = !ok && ConnectionLost(c, r);
    PQclear(r);
    Release(c, lost);
    if (!lost) return n;
  }
  return -1;
}

}  // namespace qvaserver
