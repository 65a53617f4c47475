// PCertUtil: one DER certificate, decoded once, read field by field and
// extension by extension.
//
// parseCertificate decodes the Certificate and indexes its extensions: each
// known extension's zero-based position in the list goes into its position
// field (-1 when absent; a repeated extension overwrites, so the last one
// wins); the positions of the others go into a list with room for
// PCERT_MAX_UNKNOWN entries (further ones are not listed). No extension is
// refused here, critical or not: that decision is the caller's. Extension
// values stay as their octets until a getter decodes one.
//
// Every getter returns 0 and copies the value out, or a positive code with
// the trace recorded (GetErrorCode/GetErrorMsg). An extension getter on a
// certificate without that extension fails with PCERT_ERR_ABSENT (4096) and
// the extension's "does not exist" text of PCertMessages.h.
//
// Procuration ("1 2 410 200004 4 1"), DomainInformation ("2 23 43 3 1") and
// SubjectAnnexedInfo ("1 2 410 200012 1 2 1") have no published syntax we
// could rely on: their getters hand the extension value back verbatim in an
// RAny (one whole DER element, checked as such; getElement() gives its bytes).
#pragma once

#include <memory>

#include "ZENALib/ASN1Pkix/RAuthorityInfoAccessSyntax.h"
#include "ZENALib/ASN1Pkix/RAuthorityKeyIdentifier.h"
#include "ZENALib/ASN1Pkix/RBasicConstraints.h"
#include "ZENALib/ASN1Pkix/RCRLDistPointsSyntax.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RCertificatePolicies.h"
#include "ZENALib/ASN1Pkix/RExtKeyUsageSyntax.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RNameConstraints.h"
#include "ZENALib/ASN1Pkix/RPolicyConstraints.h"
#include "ZENALib/ASN1Pkix/RPolicyMappings.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyUsagePeriod.h"
#include "ZENALib/ASN1Pkix/RQCStatements.h"
#include "ZENALib/ASN1Pkix/RSubjectDirectoryAttributes.h"
#include "ZENALib/ASN1Pkix/RSubjectInfoAccessSyntax.h"
#include "ZENALib/QSProcess/PCertMessages.h"
#include "ZENALib/QSProcess/PTrace.h"

// Room in the list of unrecognised extensions.
constexpr int PCERT_MAX_UNKNOWN = 10;
// Codes of this class besides PCERT_ERR_ABSENT and the decoders' own.
constexpr int PCERT_ERR_NOT_PARSED = 1;  // a getter before a successful parse
constexpr int PCERT_ERR_INDEX = 7;       // an extension or item index out of range
constexpr int PCERT_ERR_DN = 9;          // a name that cannot be written as text
constexpr int PCERT_ERR_ALGORITHM = 10;  // an algorithm without a display name or hash

// KeyUsage named bits as get_KeyUsage_value returns them: bit n of the
// BIT STRING (RFC 5280 4.2.1.3) is 1 << n.
constexpr int PCERT_KU_DIGITAL_SIGNATURE = 1 << 0;
constexpr int PCERT_KU_NON_REPUDIATION = 1 << 1;
constexpr int PCERT_KU_KEY_ENCIPHERMENT = 1 << 2;
constexpr int PCERT_KU_DATA_ENCIPHERMENT = 1 << 3;
constexpr int PCERT_KU_KEY_AGREEMENT = 1 << 4;
constexpr int PCERT_KU_KEY_CERT_SIGN = 1 << 5;
constexpr int PCERT_KU_CRL_SIGN = 1 << 6;
constexpr int PCERT_KU_ENCIPHER_ONLY = 1 << 7;
constexpr int PCERT_KU_DECIPHER_ONLY = 1 << 8;

class PCertUtil : public PTrace {
 public:
  PCertUtil();
  ~PCertUtil();
  PCertUtil(const PCertUtil&) = delete;
  PCertUtil& operator=(const PCertUtil&) = delete;

  // Clears any earlier result and decodes der; 0, or the decoder's code
  // (field "asnSeq"), leaving the object empty.
  int parseCertificate(const ByteString& bsCert);
  bool isParsed() const { return m_pCert != nullptr; }
  // The decoded certificate (null before a successful parse).
  const RCertificate* getCertificate() const { return m_pCert.get(); }

  // Fields.
  int getVersion(int* pnVersion);  // 0 for v1, 2 for v3
  int getSerialNumber(ByteString* out);  // the INTEGER's content octets
  int getSignatureAlgorithm(RAlgorithmIdentifier* out);
  int getSignature(ByteString* out);  // the signature bits (no unused-bits octet)
  int getIssuer(RRDNSequence* out);
  int getIssuerDN(ByteString* out);
  int getValidity(RValidity* out);
  int getSubject(RRDNSequence* out);
  int getSubjectDN(ByteString* out);
  int getSubjectPublicKeyInfo(RSubjectPublicKeyInfo* out);
  // The display name of the key algorithm: "rsaEncryption", "kcdsa",
  // "kcdsa1", "ecPublicKey", "dhpublicnumber"; another algorithm fails with
  // "<oid> : UnKnown Subject Algorithm", which is also written to out.
  int getSubjectPublicKeyAlgorithm(ByteString* out);
  int getSubjectPublicKey(ByteString* out);  // the key bits (no unused-bits octet)
  int getIssuerUniqueID(ByteString* out);
  int getSubjectUniqueID(ByteString* out);
  // The encoded TBSCertificate as received.
  int getTBSCertificate(ByteString* out);

  // Extensions by position.
  int getExtensionCount() const { return m_nExtensionCount; }
  int getExtensions(RExtensions* out);
  int getExtension(int nIndex, RExtension* out);
  int getExtensionID(int nIndex, ByteString* out);  // blank-separated arcs
  int getExtensionCritical(int nIndex, bool* pbCritical);
  int getExtensionValue(int nIndex, ByteString* out);  // the octets inside extnValue
  int getUnknownExtensionCount() const { return m_nUnknownExtensionCount; }
  // Position of the i-th unrecognised extension, or -1.
  int getUnknownExtensionPosition(int i) const {
    return i >= 0 && i < m_nUnknownExtensionCount ? m_anUnknownExtensions[i] : -1;
  }

  // Extension getters, in the order parseCertificate tests the identifiers.
  int getAuthorityKeyIdentifier(RAuthorityKeyIdentifier* out);
  int get_SubjectKeyIdentifier_value(ByteString* out);  // the key identifier octets
  int get_KeyUsage_value(int* pnKeyUsage);              // PCERT_KU_* bits
  int getPrivateKeyUsagePeriod(RPrivateKeyUsagePeriod* out);
  int getPriKeyUsagePeriod_Before(ASN1GeneralizedTime* out);
  int getPriKeyUsagePeriod_After(ASN1GeneralizedTime* out);
  int getCertPolicy(RCertificatePolicies* out);
  int getcertPolicyCNT(int* pnCount);
  int getPolicyIdentifier(int nIndex, ByteString* out);  // blank-separated arcs
  int getploicyMapping(RPolicyMappings* out);
  int getIssuerAltNames(RGeneralNames* out);
  int getSubjectAltNames(RGeneralNames* out);
  int getSubjectDirAttributes(RSubjectDirectoryAttributes* out);
  int getSubjectDirAttribute_CNT(int* pnCount);
  int getSubjectDirAttribute_Type(int nIndex, ByteString* out);   // blank-separated arcs
  int getSubjectDirAttribute_Value(int nIndex, ByteString* out);  // the first value's element
  int getBasicConstraints(RBasicConstraints* out);
  int getBasicConstraints_cA(bool* pbCA);
  int getBasicConstraints_pathLenConstraint(int* pnPathLen);
  int getNameConstraints(RNameConstraints* out);
  int getploicyConstraints(RPolicyConstraints* out);
  int getExtendedKeyUsage(RExtKeyUsageSyntax* out);
  int getCRLDistributionPoints(RCRLDistPointsSyntax* out);
  int getAuthorityInformationAccess(RAuthorityInfoAccessSyntax* out);
  int getProcuration(RAny* out);  // verbatim, see above
  int getDomainInformation(RAny* out);  // verbatim, see above
  int getInhibitAnyPolicy(int* pnSkipCerts);
  int getFreshestCRL(RCRLDistPointsSyntax* out);
  int getSubjectInfoAccess(RSubjectInfoAccessSyntax* out);
  int getQCStatements(RQCStatements* out);
  int getSubjectAnnexedInfo(RAny* out);  // verbatim, see above

  // A name as UDNSettings::RDN2Str writes it; fails with "Make DN String failed.".
  int getDN(const RRDNSequence& name, ByteString* out);
  // The display name of a signature algorithm ("sha1 With RSAEncryption",
  // "KCDSA1 With HAS160", ...); another algorithm fails with "<oid> : Unknown
  // AlgorithmIdentifier", which is also written to out.
  int getCertSignatureAlgorithmValue(const RAlgorithmIdentifier& alg, ByteString* out);
  // The digest of the TBSCertificate as received, with the hash of the
  // signature algorithm, and its name ("SHA1", "HAS160", "SHA256").
  int getCertTBSCertificateHash(ByteString* pDigest, ByteString* pHashName);

  // Position fields: the index of each known extension, -1 when absent.
  int m_nAuthorityKeyIdentifier;
  int m_nSubjectKeyIdentifier;
  int m_nKeyUsage;
  int m_nPrivateKeyUsagePeriod;
  int m_nCertificatePolicies;
  int m_nPolicyMappings;
  int m_nIssuerAlterNames;
  int m_nSubjectAlternativeNames;
  int m_nSubjectDirectoryAttributes;
  int m_nBasicConstraints;
  int m_nNameConstraints;
  int m_nPolicyConstraints;
  int m_nExtendedKeyUsage;
  int m_nCRLDistributionPoints;
  int m_nAuthorityInformationAccess;
  int m_nProcuration;
  int m_nDomainInformation;
  int m_nInhibitAnyPolicy;
  int m_nFreshestCRL;
  int m_nSubjectInfoAccess;
  int m_nQCStatements;
  int m_nSubjectAnnexedInfo;

 private:
  void clear();
  int notParsed(const char* pszMethod);
  int checkIndex(const char* pszMethod, int nIndex);
  // Decodes the value of the extension at nPos into out; PCERT_ERR_ABSENT
  // with szAbsent when nPos is -1.
  int decodeExtension(const char* pszMethod, const char* pszField, const char* pszAbsent, int nPos,
                      ASN1Object* out);

  std::unique_ptr<RCertificate> m_pCert;
  const RTBSCertificate* m_pTBSCert = nullptr;
  const RAlgorithmIdentifier* m_pSignatureAlgorithm = nullptr;
  const RRDNSequence* m_pIssuer = nullptr;
  const RValidity* m_pValidity = nullptr;
  const RRDNSequence* m_pSubject = nullptr;
  const RSubjectPublicKeyInfo* m_pSubjectPublicKeyInfo = nullptr;
  const ASN1BitString* m_pSignature = nullptr;
  const RExtensions* m_pExtensions = nullptr;
  int m_nVersion = 0;
  int m_nExtensionCount = 0;
  ByteString m_bsIssuerUniqueID;
  ByteString m_bsSubjectUniqueID;
  bool m_bIssuerUniqueID = false;
  bool m_bSubjectUniqueID = false;
  int m_anUnknownExtensions[PCERT_MAX_UNKNOWN];
  int m_nUnknownExtensionCount = 0;
};
