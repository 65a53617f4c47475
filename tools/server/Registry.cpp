#include "tools/server/Registry.h"

#include "ZENALib/QSCrypto/ECSP.h"
#include "tools/server/SqliteRegistry.h"
#ifdef QVA_WITH_POSTGRESQL
#include "tools/server/PgRegistry.h"
#endif

namespace qvaserver {

bool Fingerprint(const ByteString& der, ByteString* digest) {
  return ECSP_DigestData(ecsp::kSHA256, der.data(), der.length(), digest) == 0;
}

bool Registry::IsPostgresUri(const std::string& where) {
  return where.rfind("postgresql://", 0) == 0 || where.rfind("postgres://", 0) == 0;
}

bool Registry::HasPostgres() {
#ifdef QVA_WITH_POSTGRESQL
  return true;
#else
  return false;
#endif
}

std::unique_ptr<Registry> Registry::Open(const std::string& where, std::size_t connections, std::string* error) {
  if (IsPostgresUri(where)) {
#ifdef QVA_WITH_POSTGRESQL
    auto pg = std::make_unique<PgRegistry>(where, connections);
    if (!pg->Open(error)) return nullptr;
    return pg;
#else
    (void)connections;
    *error = "this qva-server was built without PostgreSQL support";
    return nullptr;
#endif
  }
  auto lite = std::make_unique<SqliteRegistry>();
  if (!lite->Open(where, error)) return nullptr;
  return lite;
}

}  // namespace qvaserver
