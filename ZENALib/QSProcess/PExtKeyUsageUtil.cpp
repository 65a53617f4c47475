#include "ZENALib/QSProcess/PExtKeyUsageUtil.h"

#include <cstring>

#include "ZENALib/QSProcess/PCertMessages.h"
#include "ZENALib/QSProcess/UDNSettings.h"

namespace {

// RFC 5280 4.2.1.12 and RFC 3161 2.3.
const struct {
  const char* oid;
  const char* name;
} kPurposes[] = {
    {"1 3 6 1 5 5 7 3 1", "TLS Web Server Authentication"},
    {"1 3 6 1 5 5 7 3 2", "TLS Web Client Authentication"},
    {"1 3 6 1 5 5 7 3 3", "Code Signing"},
    {"1 3 6 1 5 5 7 3 4", "E-mail Protection"},
    {"1 3 6 1 5 5 7 3 8", "Time Stamping"},
    {"1 3 6 1 5 5 7 3 9", "OCSP Signing"},
    {"2 5 29 37 0", "Any Extended Key Usage"},
};

}  // namespace

const char* PExtKeyUsageUtil::PurposeName(const char* szOid) {
  for (const auto& p : kPurposes)
    if (std::strcmp(p.oid, szOid) == 0) return p.name;
  return nullptr;
}

int PExtKeyUsageUtil::parseExtKeyUsage(const ByteString& bsExtValue) {
  m_extKeyUsage.removeAll();
  if (int rc = m_extKeyUsage.fromASN1Object(bsExtValue)) {
    m_extKeyUsage.removeAll();
    return P_FAIL("parseExtKeyUsage", "extKeyUsage", rc, m_extKeyUsage.getErrorMessage().c_str());
  }
  return 0;
}

int PExtKeyUsageUtil::getKeyPurposeID(int i, ByteString* out) {
  auto* item = m_extKeyUsage.getAt(i);
  if (!item) return P_FAILF("getKeyPurposeID", "nIndex", 1, kFmtIndexOutOfRange, i);
  *out = item->getOID(' ');
  return 0;
}

int PExtKeyUsageUtil::makeExtKeyUsageMessage(ByteString* out) {
  ByteString text;
  for (int i = 0; i < getCount(); ++i) {
    const ByteString oid = m_extKeyUsage.getAt(i)->getOID(' ');
    if (i) text += ", ";
    const char* name = PurposeName(oid.c_str());
    if (name)
      text += name;
    else
      text += UDNSettings::Dotted(oid);
  }
  *out = text;
  return 0;
}
