// CLCertificate: one certificate parsed once, its display fields kept as
// text, and the few checks the client makes by itself: the validity period
// now or at a given instant, the first certificate policy, the CRL
// distribution point's file name and the components of a name. Path and
// signature checks are the validation server's: VerifyCertificate accepts
// every certificate.
//
// A certificate without certificatePolicies is refused (42) by every
// operation that parses. Times are seconds since 1970-01-01 UTC on both
// sides of every comparison.
#pragma once

#include <cstdint>

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLCertificate : public CErrorTrace {
 public:
  enum DNComponent { kCommonName = 0, kOrganization = 1 };

  CLCertificate();
  ~CLCertificate() override;

  // 0; 41 when the certificate does not decode, 42 when it has no policy,
  // a getter's code, or the formatter's code ("Fail Format2K").
  int ParseCertificate(const ByteString& certificate);
  // 0 when notBefore <= now <= notAfter; 43 otherwise; 41 when the parse fails.
  int CheckTermOfValidaty(const ByteString& certificate);
  // The same at the given instant.
  int CheckValidityTermAtSpecialDate(const ByteString& certificate, std::int64_t when);
  // Always 0: the server verifies.
  int VerifyCertificate(const ByteString& certificate);
  // The CRL file name: what follows the last "/" of the distribution point
  // text; 43 "CRL_DP" when the text has no "/".
  int CheckCRLDP(const ByteString& distributionPoint);
  // The value after "cn=" (kCommonName) or "o=" (kOrganization) up to the
  // next "," (or the end) of a name as text; empty when the key is absent.
  static ByteString GetDNComponent(const ByteString& dn, int component);

  const ByteString& GetVersion() const { return m_bsVersion; }
  const ByteString& GetPolicyOID() const { return m_bsPolicyOID; }
  const ByteString& GetSignatureAlgorithm() const { return m_bsSignatureAlgorithm; }
  const ByteString& GetIssuerDN() const { return m_bsIssuerDN; }
  const ByteString& GetSubjectDN() const { return m_bsSubjectDN; }
  const ByteString& GetCRLDistributionPoint() const { return m_bsCRLDP; }
  const ByteString& GetSerialNumber() const { return m_bsSerialNumber; }  // the INTEGER's content octets
  std::int64_t GetNotBefore() const { return m_nNotBefore; }
  std::int64_t GetNotAfter() const { return m_nNotAfter; }
  const ByteString& GetStartDate() const { return m_bsStartDate; }  // "YYYY/MM/DD hh:mm:ss"
  const ByteString& GetEndDate() const { return m_bsEndDate; }
  const ByteString& GetCRLFileName() const { return m_bsCRLFileName; }

 private:
  int Fail(const char* method, const char* what, int code, const char* detail);
  int CheckAt(const char* method, const ByteString& certificate, std::int64_t when, int parseCode,
              const char* parseWhat, const char* outsideDetail);

  ByteString m_bsVersion;
  ByteString m_bsPolicyOID;
  ByteString m_bsSignatureAlgorithm;
  ByteString m_bsIssuerDN;
  ByteString m_bsSubjectDN;
  ByteString m_bsCRLDP;
  ByteString m_bsSerialNumber;
  std::int64_t m_nNotBefore = 0;  // 64 bits: no year-2038 wrap
  std::int64_t m_nNotAfter = 0;
  ByteString m_bsStartDate;
  ByteString m_bsEndDate;
  ByteString m_bsCRLFileName;
};
