// CLCertListProcess: whether a certificate is revoked by a CRL of its
// issuer, and the CRL's details and entries for display.
#pragma once

#include <cstdint>

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLCertListProcess : public CErrorTrace {
 public:
  CLCertListProcess();
  ~CLCertListProcess() override;

  // 0 with *revoked 1 or 0; the certificate's parse code (41, 42 ...); 46
  // when the CRL does not parse or the certificate was not valid at its
  // thisUpdate; 45 when the CRL is not its issuer's; 47 when the lookup fails.
  int isRevocked(const ByteString& crl, const ByteString& certificate, unsigned char* revoked);
  // Parses the CRL (no certificate checks) and keeps its details: 0 or 46.
  int ParseCRL(const ByteString& crl);
  // The entry at index (CRL order): 0, 46 for a CRL that does not parse, 47
  // for an index out of range.
  int getRevokedCertificate(const ByteString& crl, int index, ByteString* serial, std::int64_t* revocationDate,
                            int* reason);

  const ByteString& GetIssuerDN() const { return m_bsIssuerDN; }
  std::int64_t GetThisUpdate() const { return m_nThisUpdate; }
  std::int64_t GetNextUpdate() const { return m_nNextUpdate; }  // 0 when absent
  int GetRevokedCount() const { return m_nRevokedCount; }

 private:
  int Fail(const char* method, const char* what, int code, const char* detail);

  ByteString m_bsIssuerDN;
  std::int64_t m_nThisUpdate = 0;
  std::int64_t m_nNextUpdate = 0;
  int m_nRevokedCount = 0;
};
