// PExtKeyUsageUtil: the extended key usage extension, a list of key-purpose
// identifiers, decoded and named.
#pragma once

#include "ZENALib/ASN1Pkix/RExtKeyUsageSyntax.h"
#include "ZENALib/QSProcess/PTrace.h"

class PExtKeyUsageUtil : public PTrace {
 public:
  PExtKeyUsageUtil() : PTrace("PExtKeyUsageUtil") {}

  // Decodes the extension value (the octets inside extnValue); 0 or the
  // decoder's code under field "extKeyUsage".
  int parseExtKeyUsage(const ByteString& bsExtValue);
  int getCount() const { return m_extKeyUsage.getCount(); }
  // The i-th purpose as blank-separated arcs; 0, or 1 when i is out of range.
  int getKeyPurposeID(int i, ByteString* out);
  // Every purpose by its name where it has one ("TLS Web Server Authentication"),
  // otherwise dotted, joined by ", ".
  int makeExtKeyUsageMessage(ByteString* out);
  // The name of a key purpose given as blank-separated arcs, or null.
  static const char* PurposeName(const char* szOid);

 private:
  RExtKeyUsageSyntax m_extKeyUsage;
};
