// PCertListProcess: one X.509 CRL decoded, checked against the certificate
// it covers and the certificate of its issuer, and asked about serials.
//
// parseCertList decodes the CertificateList except its revokedCertificates,
// which stay as their encodings: each entry's outline (SEQUENCE { INTEGER,
// Time, Extensions OPTIONAL }) is checked and its serial located, and
// getRevokedCertificate decodes the one entry asked for. The serials are
// indexed once, at the end of the parse: a hash of each serial's octets,
// with its CRL position, grouped by the hash's top bits and ordered by hash
// inside a group. A lookup hashes the serial, searches its group and
// compares octets, so it decodes nothing and costs the same on the first
// call as on the next. Equal hashes keep CRL order, so of equal serials the
// first listed answers, and crafted colliding serials cost no more than a
// plain scan of the list.
//
// Every method returns 0 or a positive code and leaves the failure in the
// trace (PTrace.h); a callee's failure passes its code through unchanged.
#pragma once

#include <cstdint>
#include <ctime>
#include <memory>
#include <vector>

#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RIssuingDistributionPoint.h"
#include "ZENALib/QSProcess/PCertMessages.h"
#include "ZENALib/QSProcess/PTrace.h"

class PCertUtil;

// Room in the index of CRL extensions.
constexpr int CRL_EXTENSION_MAX_CNT = 15;

// Codes of this class besides PCERT_ERR_ABSENT (4096) and the callees' own.
constexpr int PCRL_ERR_NOT_PARSED = 1;   // an accessor before a successful parse
constexpr int PCRL_ERR_DECODE = 2;       // a revokedCertificates entry of another outline
constexpr int PCRL_ERR_MEMORY = 3;
constexpr int PCRL_ERR_VERSION = 4;
constexpr int PCRL_ERR_V1_EXTENSIONS = 5;
constexpr int PCRL_ERR_DN = 6;
constexpr int PCRL_ERR_DP_ISSUER = 10;
constexpr int PCRL_ERR_ONLY_USER = 11;
constexpr int PCRL_ERR_ONLY_CA = 12;
constexpr int PCRL_ERR_ONLY_ATTRIBUTE = 13;
constexpr int PCRL_ERR_NOT_INDIRECT = 14;
constexpr int PCRL_ERR_ISSUER_DN = 20;
constexpr int PCRL_ERR_CRL_SIGN = 21;
constexpr int PCRL_ERR_KEY_DIGEST = 22;
constexpr int PCRL_ERR_AKI_KEYID = 23;
constexpr int PCRL_ERR_AKI_NOT_DIRNAME = 24;
constexpr int PCRL_ERR_AKI_ISSUER = 25;
constexpr int PCRL_ERR_AKI_SERIAL = 26;
constexpr int PCRL_ERR_ALT_NAME = 27;
constexpr int PCRL_ERR_EXT_MAX = 30;
constexpr int PCRL_ERR_UNKNOWN_CRITICAL = 31;
constexpr int PCRL_ERR_INDEX = 40;
constexpr int PCRL_ERR_REVOKED_AFTER = 41;
constexpr int PCRL_ERR_REASON = 42;
constexpr int PCRL_ERR_CERT_ISSUER = 43;

// CRLReason (RFC 5280 5.3.1); 7 is not used.
constexpr int PCRL_REASON_NONE = -1;  // the entry has no reasonCode
constexpr int PCRL_REASON_CERTIFICATE_HOLD = 6;
constexpr int PCRL_REASON_AA_COMPROMISE = 10;

// One revoked entry as getRevokedCertificate gives it.
struct PRevokedEntry {
  RRevokedCertificate entry;        // the decoded entry, extensions included
  ByteString serial;                // the INTEGER's content octets
  std::time_t revocationDate = 0;
  int reason = PCRL_REASON_NONE;    // reasonCode, or PCRL_REASON_NONE
  ByteString holdInstruction;       // blank-separated arcs, empty when absent
  bool hasInvalidityDate = false;
  std::time_t invalidityDate = 0;
  ByteString certificateIssuer;     // the directory name as text, empty when absent
};

class PCertListProcess : public PTrace {
 public:
  PCertListProcess();
  ~PCertListProcess();
  PCertListProcess(const PCertListProcess&) = delete;
  PCertListProcess& operator=(const PCertListProcess&) = delete;

  // Decodes bsCRL and checks it, in order: the version, the issuer name,
  // against the subject certificate (DER, may be null) and against the
  // issuer certificate (DER, may be null; its name, keyUsage, key
  // identifiers, alternative names and the CRL's signature), then collects
  // the serials and indexes the CRL extensions. A failure leaves the object
  // empty.
  int parseCertList(const ByteString& bsCRL, const ByteString* pSubjectCert, const ByteString* pIssuerCert);
  bool isParsed() const { return m_pTBSCertList != nullptr; }

  // Whether bsSerial (an INTEGER's content octets) is listed: *pbRevoked and
  // the first position in *pnIndex (-1 when not listed). 0 either way.
  int isRevoked(const ByteString& bsSerial, int* pnIndex, bool* pbRevoked);
  // The entry at nIndex (CRL order) with its entry extensions read.
  int getRevokedCertificate(int nIndex, PRevokedEntry* out);
  // The reasonCode of the entry at nIndex; PCERT_ERR_ABSENT when it has none.
  int getRevokedReason(int nIndex, int* pnReason);
  // Compares the CRL's authorityKeyIdentifier with the parsed issuer
  // certificate; 0 when the CRL has none.
  int checkAuthorityKeyIdentifier(PCertUtil& issuer);
  // True when a name of the first set equals a name of the second (same
  // alternative, same encoding).
  static bool existMatchName(const RGeneralNames& a, const RGeneralNames& b);

  // Accessors of the parsed CRL.
  int getVersion(int* pnVersion);  // 0 for v1, 1 for v2
  int getIssuer(RRDNSequence* out);
  int getIssuerDN(ByteString* out);
  int getThisUpdate(std::time_t* out);
  int getNextUpdate(std::time_t* out);
  int getCRLNumber(ByteString* out);          // the INTEGER's content octets
  int getDeltaCRLIndicator(ByteString* out);  // the base CRL number's octets
  int getIssuingDistributionPoint(RIssuingDistributionPoint* out);
  int getSignatureAlgorithm(RAlgorithmIdentifier* out);
  int getRevokedCount() const { return static_cast<int>(m_pSerialNums.size()); }
  int getCrlExtensionCount() const { return m_nCrlExtCount; }
  int getCrlExtension(int nIndex, RExtension* out);

 private:
  // One revoked entry inside m_bsCRL.
  struct EntryRef {
    std::uint32_t offset;        // the entry element
    std::uint32_t length;
    std::uint32_t serialOffset;  // the serial's content octets
    std::uint32_t serialLength;
  };
  // The lookup index: a serial's hash and its position, sorted.
  struct IndexKey {
    std::uint64_t hash;
    std::uint32_t position;
  };

  void clear();
  int notParsed(const char* pszMethod);
  int decode(const ByteString& bsCRL);
  int walkRevoked(const unsigned char* p, int n);
  int checkSubject(const ByteString& bsSubjectCert);
  int checkIssuer(const ByteString& bsCRL, const ByteString& bsIssuerCert);
  int indexSerials();
  int indexExtensions();
  // Position of the CRL extension oid (encoded content octets), -1 when absent.
  int findCrlExtension(const char* pszOid) const;
  // Decodes the value of the CRL extension pszOid into out; PCERT_ERR_ABSENT
  // with pszAbsent when the CRL lacks it.
  int decodeCrlExtension(const char* pszMethod, const char* pszOid, const char* pszAbsent, ASN1Object* out);
  int firstPosition(const unsigned char* p, std::uint32_t n) const;
  const unsigned char* serialAt(std::uint32_t i) const { return m_bsCRL.data() + m_pSerialNums[i].serialOffset; }

  ByteString m_bsCRL;  // the CRL as received; entries point into it
  std::unique_ptr<RTBSCertList> m_pTBSCertList;
  RAlgorithmIdentifier m_signatureAlgorithm;
  int m_nVersion = 0;
  ByteString m_bsIssuerDN;
  std::vector<EntryRef> m_pSerialNums;
  std::vector<IndexKey> m_index;
  std::vector<std::uint32_t> m_buckets;  // 2^m_nBucketBits + 1 starts into m_index
  int m_nBucketBits = 0;
  const RExtensions* m_pCrlExtensions = nullptr;
  int m_pCrlExtIndex[CRL_EXTENSION_MAX_CNT];
  int m_nCrlExtCount = 0;
};
