// CLZENAWrapper: the one door from the protocol and client code into the
// PKI toolkit. Each method makes one short-lived wrapper object, runs one
// operation on it, copies the result into the caller's string and lets the
// object go; on failure it puts one trace line over the wrapper's trace and
// returns the wrapper's code unchanged. It keeps no state of its own.
#pragma once

#include <cstdint>

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLZENAWrapper : public CErrorTrace {
 public:
  CLZENAWrapper();
  ~CLZENAWrapper() override;

  // Triple-DES (3011), CBC, padding type 2; key 24 bytes, iv 8 bytes.
  int Encrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out);
  int Decrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out);
  int Random(int length, ByteString& out);
  // algorithm 1002 MD5, 1011 SHA-1, 1020 HAS-160.
  int MakeHash(const ByteString& data, ByteString& out, int algorithm);
  int MakeHashBig(const char* path, ByteString& out, int algorithm);
  int Base64Enc(const ByteString& in, ByteString& out);
  int Base64Dec(const ByteString& in, ByteString& out);

  // A CMS EnvelopedData of content for the certificate's holder.
  int EnvelopData(const ByteString& certificate, const ByteString& content, ByteString& out);
  // The content of envelope, opened with the recipient's certificate and
  // PKCS#8 private key.
  int OpenEnvelopedData(const ByteString& envelope, const ByteString& certificate, const ByteString& privateKey,
                        ByteString& out);

  // Certificate checks. Every method that parses refuses a certificate
  // without certificatePolicies (42).
  // 0 for any input: path and signature checks are the server's.
  int VerifyCert(const ByteString& certificate);
  // The parse code; then, as the protocol has always answered, 90 when the
  // certificate's first policy OID equals oid (blank-separated arcs) and 0
  // when it differs.
  int CheckCertPolicyOID(const ByteString& certificate, const ByteString& oid);
  // The first policy OID; does nothing (0) when either pointer is null.
  int GetPolicyOID(const ByteString* certificate, ByteString* oid);
  // The "o=" value of the issuer name.
  int GetIssuerDNOrganization(const ByteString& certificate, ByteString& organization);
  int GetSubjectFullDN(const ByteString& certificate, ByteString& subjectDN);
  // "YYYY/MM/DD hh:mm:ss" (UTC) of notBefore and notAfter.
  int GetTermOfValidity(const ByteString& certificate, ByteString& startDate, ByteString& endDate);
  // Display fields, three levels of detail.
  int ParseCert(const ByteString& certificate, ByteString& subjectDN);
  int ParseCert(const ByteString& certificate, ByteString& subjectDN, ByteString& issuerDN, ByteString& serial);
  int ParseCert(const ByteString& certificate, ByteString& subjectDN, ByteString& issuerDN, ByteString& serial,
                ByteString& startDate, ByteString& endDate, ByteString& policyOID, ByteString& signatureAlgorithm);

  // CRL and time stamp.
  // Whether the certificate is listed in its issuer's CRL: 0 with *revoked 1
  // or 0; 45, 46, 47 or the certificate's parse code.
  int ParseCRL(const ByteString& crl, const ByteString& certificate, unsigned char* revoked);
  // The CRL's issuer name, thisUpdate, nextUpdate (0 when absent) and entry count.
  int getParseCRLInfo(const ByteString& crl, ByteString& issuerDN, std::int64_t* thisUpdate,
                      std::int64_t* nextUpdate, int* revokedCount);
  // The token's TSA certificate (DER) and its subject name.
  int ParseTimeStampToken(const ByteString& token, ByteString& tsaCertificate, ByteString& tsaSubjectDN);

 private:
  // Records method/what over the wrapper's code and trace; returns the code.
  int Fail(const char* method, const char* what, const CErrorTrace& wrapper);
};
