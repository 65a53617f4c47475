// PCertListProcess::parseCertList on arbitrary bytes, alone and with the
// CRL checked against a fixed issuer and subject certificate (the openssl
// made CA and user of tests/data/crl, compiled in). After a successful
// parse every entry is read and every serial must answer with a position
// at or before its own holding the same serial; a failed parse keeps nothing.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "ZENALib/QSProcess/PCertListProcess.h"

namespace {

// An EC CA certificate and a user certificate it issued (tests/data/crl).
#include "process_crl_certs.inc"

void Check(PCertListProcess& p, int rc) {
  if (rc != 0) {
    if (p.isParsed() || p.getRevokedCount() != 0) std::abort();
    return;
  }
  for (int i = 0; i < p.getRevokedCount(); ++i) {
    PRevokedEntry e;
    if (p.getRevokedCertificate(i, &e) != 0) continue;  // a refused entry is reported, not fatal
    int at = -1;
    bool listed = false;
    if (p.isRevoked(e.serial, &at, &listed) != 0 || !listed || at < 0 || at > i) std::abort();
    PRevokedEntry first;
    if (at != i && p.getRevokedCertificate(at, &first) == 0 && !(first.serial == e.serial)) std::abort();
  }
  ByteString s;
  std::time_t t;
  RIssuingDistributionPoint idp;
  p.getCRLNumber(&s);
  p.getDeltaCRLIndicator(&s);
  p.getIssuingDistributionPoint(&idp);
  p.getNextUpdate(&t);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  const ByteString der(data, static_cast<int>(size));
  static const ByteString ca(kCaCert, sizeof kCaCert), user(kUserCert, sizeof kUserCert);
  PCertListProcess p;
  Check(p, p.parseCertList(der, nullptr, nullptr));
  PCertListProcess q;
  Check(q, q.parseCertList(der, &user, &ca));
  return 0;
}
