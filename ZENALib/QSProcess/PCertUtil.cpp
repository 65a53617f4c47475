#include "ZENALib/QSProcess/PCertUtil.h"

#include <cstring>

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/UDNSettings.h"

namespace {

// The known extensions in the order their identifiers are tested.
struct KnownExtension {
  const char* oid;
  int PCertUtil::*position;
};
const KnownExtension kKnown[] = {
    {"2 5 29 35", &PCertUtil::m_nAuthorityKeyIdentifier},
    {"2 5 29 14", &PCertUtil::m_nSubjectKeyIdentifier},
    {"2 5 29 15", &PCertUtil::m_nKeyUsage},
    {"2 5 29 16", &PCertUtil::m_nPrivateKeyUsagePeriod},
    {"2 5 29 32", &PCertUtil::m_nCertificatePolicies},
    {"2 5 29 33", &PCertUtil::m_nPolicyMappings},
    {"2 5 29 18", &PCertUtil::m_nIssuerAlterNames},
    {"2 5 29 17", &PCertUtil::m_nSubjectAlternativeNames},
    {"2 5 29 9", &PCertUtil::m_nSubjectDirectoryAttributes},
    {"2 5 29 19", &PCertUtil::m_nBasicConstraints},
    {"2 5 29 30", &PCertUtil::m_nNameConstraints},
    {"2 5 29 36", &PCertUtil::m_nPolicyConstraints},
    {"2 5 29 37", &PCertUtil::m_nExtendedKeyUsage},
    {"2 5 29 31", &PCertUtil::m_nCRLDistributionPoints},
    {"1 3 6 1 5 5 7 1 1", &PCertUtil::m_nAuthorityInformationAccess},
    {"1 2 410 200004 4 1", &PCertUtil::m_nProcuration},
    {"2 23 43 3 1", &PCertUtil::m_nDomainInformation},
    {"2 5 29 54", &PCertUtil::m_nInhibitAnyPolicy},
    {"2 5 29 46", &PCertUtil::m_nFreshestCRL},
    {"1 3 6 1 5 5 7 1 11", &PCertUtil::m_nSubjectInfoAccess},
    {"1 3 6 1 5 5 7 1 3", &PCertUtil::m_nQCStatements},
    {"1 2 410 200012 1 2 1", &PCertUtil::m_nSubjectAnnexedInfo},
};
constexpr int kKnownCount = static_cast<int>(sizeof(kKnown) / sizeof(kKnown[0]));

// The content octets of each known identifier, made once: extensions are
// matched on their encoded identifiers, without turning each into text.
const ByteString* KnownEncodings() {
  static const struct Table {
    ByteString enc[kKnownCount];
    Table() {
      for (int i = 0; i < kKnownCount; ++i) {
        ASN1ObjectIdentifier oid;
        oid.setOID(kKnown[i].oid);
        enc[i] = oid.getValue();
      }
    }
  } table;
  return table.enc;
}

struct AlgorithmName {
  const char* oid;
  const char* name;
};
// Subject key algorithms by identifier.
const AlgorithmName kKeyNames[] = {
    {"1 2 840 113549 1 1 1", "rsaEncryption"}, {"1 2 410 200004 1 1", "kcdsa"},
    {"1 2 410 200004 1 21", "kcdsa1"},         {"1 2 840 10045 2 1", "ecPublicKey"},
    {"1 2 840 10046 2 1", "dhpublicnumber"},
};

template <std::size_t N>
const char* NameOf(const AlgorithmName (&table)[N], const char* oid) {
  for (const auto& a : table)
    if (std::strcmp(a.oid, oid) == 0) return a.name;
  return nullptr;
}

ByteString OidOf(const ASN1ObjectIdentifier& oid) { return const_cast<ASN1ObjectIdentifier&>(oid).getOID(' '); }

// The bits of a BIT STRING content without its unused-bits octet.
ByteString Bits(const ASN1BitString& b) {
  const ByteString& v = b.getValue();
  return v.length() > 0 ? v.mid(1, v.length() - 1) : ByteString("");
}

}  // namespace

PCertUtil::PCertUtil() : PTrace("PCertUtil") { clear(); }
PCertUtil::~PCertUtil() = default;

void PCertUtil::clear() {
  m_pCert.reset();
  m_pTBSCert = nullptr;
  m_pSignatureAlgorithm = nullptr;
  m_pIssuer = nullptr;
  m_pValidity = nullptr;
  m_pSubject = nullptr;
  m_pSubjectPublicKeyInfo = nullptr;
  m_pSignature = nullptr;
  m_pExtensions = nullptr;
  m_nVersion = 0;
  m_nExtensionCount = 0;
  m_bsIssuerUniqueID.clear();
  m_bsSubjectUniqueID.clear();
  m_bIssuerUniqueID = m_bSubjectUniqueID = false;
  for (const auto& k : kKnown) this->*k.position = -1;
  for (int& p : m_anUnknownExtensions) p = -1;
  m_nUnknownExtensionCount = 0;
}

int PCertUtil::parseCertificate(const ByteString& bsCert) {
  clear();
  m_nErrorCode = 0;
  m_bsErrorMsg.clear();
  auto cert = std::make_unique<RCertificate>();
  if (int rc = cert->fromASN1Object(bsCert)) return P_FAIL("parseCertificate", "asnSeq", rc, cert->getErrorMessage().c_str());

  const RTBSCertificate& tbs = cert->getTbsCertificate();
  if (tbs.hasIssuerUniqueID()) {
    m_bIssuerUniqueID = true;
    m_bsIssuerUniqueID = Bits(tbs.getIssuerUniqueID());
  }
  if (tbs.hasSubjectUniqueID()) {
    m_bSubjectUniqueID = true;
    m_bsSubjectUniqueID = Bits(tbs.getSubjectUniqueID());
  }
  if (tbs.hasExtensions()) {
    const ByteString* known = KnownEncodings();
    const RExtensions& exts = tbs.getExtensions();
    m_nExtensionCount = exts.getCount();
    for (int i = 0; i < m_nExtensionCount; ++i) {
      const ByteString& id = exts.getAt(i)->getExtnID().getValue();
      int k = 0;
      while (k < kKnownCount && !(id == known[k])) ++k;
      if (k < kKnownCount)
        this->*kKnown[k].position = i;  // a repeated extension: the last one wins
      else if (m_nUnknownExtensionCount < PCERT_MAX_UNKNOWN)
        m_anUnknownExtensions[m_nUnknownExtensionCount++] = i;  // bounded: further ones are not listed
    }
    m_pExtensions = &exts;
  }
  m_nVersion = tbs.getVersion().getInteger();
  m_pTBSCert = &tbs;
  m_pSignatureAlgorithm = &cert->getSignatureAlgorithm();
  m_pIssuer = &tbs.getIssuer();
  m_pValidity = &tbs.getValidity();
  m_pSubject = &tbs.getSubject();
  m_pSubjectPublicKeyInfo = &tbs.getSubjectPublicKeyInfo();
  m_pSignature = &cert->getSignature();
  m_pCert = std::move(cert);
  return 0;
}

int PCertUtil::notParsed(const char* pszMethod) {
  return P_FAIL(pszMethod, "m_pCert", PCERT_ERR_NOT_PARSED, "The m_pCert is NULL.");
}

int PCertUtil::checkIndex(const char* pszMethod, int nIndex) {
  if (nIndex >= 0 && nIndex < m_nExtensionCount) return 0;
  return P_FAILF(pszMethod, "nIndex", PCERT_ERR_INDEX, kFmtIndexOutOfRange, nIndex);
}

int PCertUtil::getVersion(int* pnVersion) {
  if (!m_pTBSCert) return notParsed("getVersion");
  *pnVersion = m_nVersion;
  return 0;
}

int PCertUtil::getSerialNumber(ByteString* out) {
  if (!m_pTBSCert) return notParsed("getSerialNumber");
  *out = m_pTBSCert->getSerialNumber().getValue();
  return 0;
}

int PCertUtil::getSignatureAlgorithm(RAlgorithmIdentifier* out) {
  if (!m_pSignatureAlgorithm) return notParsed("getSignatureAlgorithm");
  *out = *m_pSignatureAlgorithm;
  return 0;
}

int PCertUtil::getSignature(ByteString* out) {
  if (!m_pSignature) return P_FAIL("getSignature", "m_pSignature", PCERT_ERR_NOT_PARSED, kMsgNoSignature);
  *out = Bits(*m_pSignature);
  return 0;
}

int PCertUtil::getIssuer(RRDNSequence* out) {
  if (!m_pIssuer) return P_FAIL("getIssuer", "m_pIssuer", PCERT_ERR_NOT_PARSED, kMsgNoIssuer);
  *out = *m_pIssuer;
  return 0;
}

int PCertUtil::getIssuerDN(ByteString* out) {
  if (!m_pIssuer) return P_FAIL("getIssuerDN", "m_pIssuer", PCERT_ERR_NOT_PARSED, kMsgNoIssuer);
  if (int rc = getDN(*m_pIssuer, out)) return P_FAIL("getIssuerDN", "getDN", rc, m_bsErrorMsg.c_str());
  return 0;
}

int PCertUtil::getValidity(RValidity* out) {
  if (!m_pValidity) return notParsed("getValidity");
  *out = *m_pValidity;
  return 0;
}

int PCertUtil::getSubject(RRDNSequence* out) {
  if (!m_pSubject) return P_FAIL("getSubject", "m_pSubject", PCERT_ERR_NOT_PARSED, kMsgNoSubject);
  *out = *m_pSubject;
  return 0;
}

int PCertUtil::getSubjectDN(ByteString* out) {
  if (!m_pSubject) return P_FAIL("getSubjectDN", "m_pSubject", PCERT_ERR_NOT_PARSED, kMsgNoSubject);
  if (int rc = getDN(*m_pSubject, out)) return P_FAIL("getSubjectDN", "getDN", rc, m_bsErrorMsg.c_str());
  return 0;
}

int PCertUtil::getSubjectPublicKeyInfo(RSubjectPublicKeyInfo* out) {
  if (!m_pSubjectPublicKeyInfo)
    return P_FAIL("getSubjectPublicKeyInfo", "m_pSubjectPublicKeyInfo", PCERT_ERR_NOT_PARSED,
                  kMsgNoSubjectPublicKeyInfo);
  *out = *m_pSubjectPublicKeyInfo;
  return 0;
}

int PCertUtil::getSubjectPublicKeyAlgorithm(ByteString* out) {
  if (!m_pSubjectPublicKeyInfo)
    return P_FAIL("getSubjectPublicKeyAlgorithm", "m_pSubjectPublicKeyInfo", PCERT_ERR_NOT_PARSED,
                  kMsgNoSubjectPublicKeyInfo);
  const ByteString oid = OidOf(m_pSubjectPublicKeyInfo->getAlgorithm().getAlgorithm());
  if (const char* name = NameOf(kKeyNames, oid.c_str())) {
    *out = name;
    return 0;
  }
  out->format(kFmtUnknownSubjectAlgorithm, oid.c_str());
  return P_FAIL("getSubjectPublicKeyAlgorithm", "algorithm", PCERT_ERR_ALGORITHM, out->c_str());
}

int PCertUtil::getSubjectPublicKey(ByteString* out) {
  if (!m_pSubjectPublicKeyInfo)
    return P_FAIL("getSubjectPublicKey", "m_pSubjectPublicKeyInfo", PCERT_ERR_NOT_PARSED, kMsgNoSubjectPublicKeyInfo);
  *out = Bits(m_pSubjectPublicKeyInfo->getSubjectPublicKey());
  return 0;
}

int PCertUtil::getIssuerUniqueID(ByteString* out) {
  if (!m_bIssuerUniqueID)
    return P_FAIL("getIssuerUniqueID", "m_bsIssuerUniqueID", PCERT_ERR_ABSENT, kMsgNoIssuerUniqueID);
  *out = m_bsIssuerUniqueID;
  return 0;
}

int PCertUtil::getSubjectUniqueID(ByteString* out) {
  if (!m_bSubjectUniqueID)
    return P_FAIL("getSubjectUniqueID", "m_bsSubjectUniqueID", PCERT_ERR_ABSENT, kMsgNoSubjectUniqueID);
  *out = m_bsSubjectUniqueID;
  return 0;
}

int PCertUtil::getTBSCertificate(ByteString* out) {
  if (!m_pCert) return notParsed("getTBSCertificate");
  *out = m_pCert->getRawTBSCertificate();
  return 0;
}

int PCertUtil::getExtensions(RExtensions* out) {
  if (!m_pCert) return notParsed("getExtensions");
  if (m_pExtensions)
    *out = *m_pExtensions;
  else
    out->removeAll();
  return 0;
}

int PCertUtil::getExtension(int nIndex, RExtension* out) {
  if (int rc = checkIndex("getExtension", nIndex)) return rc;
  *out = *m_pExtensions->getAt(nIndex);
  return 0;
}

int PCertUtil::getExtensionID(int nIndex, ByteString* out) {
  if (int rc = checkIndex("getExtensionID", nIndex)) return rc;
  *out = OidOf(m_pExtensions->getAt(nIndex)->getExtnID());
  return 0;
}

int PCertUtil::getExtensionCritical(int nIndex, bool* pbCritical) {
  if (int rc = checkIndex("getExtensionCritical", nIndex)) return rc;
  const RExtension& e = *m_pExtensions->getAt(nIndex);
  *pbCritical = e.hasCritical() && e.getCritical().getBoolean();  // DEFAULT FALSE
  return 0;
}

int PCertUtil::getExtensionValue(int nIndex, ByteString* out) {
  if (int rc = checkIndex("getExtensionValue", nIndex)) return rc;
  *out = m_pExtensions->getAt(nIndex)->getExtnValue().getValue();
  return 0;
}

int PCertUtil::decodeExtension(const char* pszMethod, const char* pszField, const char* pszAbsent, int nPos,
                               ASN1Object* out) {
  if (nPos < 0) return P_FAIL(pszMethod, pszField, PCERT_ERR_ABSENT, pszAbsent);
  const ByteString& value = m_pExtensions->getAt(nPos)->getExtnValue().getValue();
  if (int rc = out->fromASN1Object(value)) return P_FAIL(pszMethod, "extnValue", rc, out->getErrorMessage().c_str());
  return 0;
}

#define P_EXTENSION(method, field, absent, out) \
  decodeExtension((method), #field, (absent), field, (out))

int PCertUtil::getAuthorityKeyIdentifier(RAuthorityKeyIdentifier* out) {
  return P_EXTENSION("getAuthorityKeyIdentifier", m_nAuthorityKeyIdentifier, kMsgNoAuthorityKeyIdentifier, out);
}

int PCertUtil::get_SubjectKeyIdentifier_value(ByteString* out) {
  ASN1OctetString id;
  if (int rc = P_EXTENSION("get_SubjectKeyIdentifier_value", m_nSubjectKeyIdentifier, kMsgNoSubjectKeyIdentifier, &id))
    return rc;
  *out = id.getValue();
  return 0;
}

int PCertUtil::get_KeyUsage_value(int* pnKeyUsage) {
  ASN1BitString bits;
  if (int rc = P_EXTENSION("get_KeyUsage_value", m_nKeyUsage, kMsgNoKeyUsage, &bits)) return rc;
  const ByteString& v = bits.getValue();
  int usage = 0;
  for (int i = 0; i < 9; ++i) {
    const int byte = 1 + i / 8;
    if (byte < v.length() && (v.data()[byte] & (0x80 >> (i % 8)))) usage |= 1 << i;
  }
  *pnKeyUsage = usage;
  return 0;
}

int PCertUtil::getPrivateKeyUsagePeriod(RPrivateKeyUsagePeriod* out) {
  return P_EXTENSION("getPrivateKeyUsagePeriod", m_nPrivateKeyUsagePeriod, kMsgNoPrivateKeyUsagePeriod, out);
}

int PCertUtil::getPriKeyUsagePeriod_Before(ASN1GeneralizedTime* out) {
  RPrivateKeyUsagePeriod period;
  if (int rc = P_EXTENSION("getPriKeyUsagePeriod_Before", m_nPrivateKeyUsagePeriod, kMsgNoPrivateKeyUsagePeriod,
                           &period))
    return rc;
  if (!period.hasNotBefore())
    return P_FAIL("getPriKeyUsagePeriod_Before", "notBefore", PCERT_ERR_ABSENT, "notBefore does not exist.");
  *out = period.getNotBefore();
  return 0;
}

int PCertUtil::getPriKeyUsagePeriod_After(ASN1GeneralizedTime* out) {
  RPrivateKeyUsagePeriod period;
  if (int rc = P_EXTENSION("getPriKeyUsagePeriod_After", m_nPrivateKeyUsagePeriod, kMsgNoPrivateKeyUsagePeriod,
                           &period))
    return rc;
  if (!period.hasNotAfter())
    return P_FAIL("getPriKeyUsagePeriod_After", "notAfter", PCERT_ERR_ABSENT, "notAfter does not exist.");
  *out = period.getNotAfter();
  return 0;
}

int PCertUtil::getCertPolicy(RCertificatePolicies* out) {
  return P_EXTENSION("getCertPolicy", m_nCertificatePolicies, kMsgNoCertificatePolicies, out);
}

int PCertUtil::getcertPolicyCNT(int* pnCount) {
  RCertificatePolicies policies;
  if (int rc = P_EXTENSION("getcertPolicyCNT", m_nCertificatePolicies, kMsgNoCertificatePolicies, &policies))
    return rc;
  *pnCount = policies.getCount();
  return 0;
}

int PCertUtil::getPolicyIdentifier(int nIndex, ByteString* out) {
  RCertificatePolicies policies;
  if (int rc = P_EXTENSION("getPolicyIdentifier", m_nCertificatePolicies, kMsgNoCertificatePolicies, &policies))
    return rc;
  const RPolicyInformation* p = policies.getAt(nIndex);
  if (!p) return P_FAILF("getPolicyIdentifier", "nIndex", PCERT_ERR_INDEX, kFmtIndexOutOfRange, nIndex);
  *out = OidOf(p->getPolicyIdentifier());
  return 0;
}

int PCertUtil::getploicyMapping(RPolicyMappings* out) {
  return P_EXTENSION("getploicyMapping", m_nPolicyMappings, kMsgNoPolicyMappings, out);
}

int PCertUtil::getIssuerAltNames(RGeneralNames* out) {
  return P_EXTENSION("getIssuerAltNames", m_nIssuerAlterNames, kMsgNoIssuerAltNames, out);
}

int PCertUtil::getSubjectAltNames(RGeneralNames* out) {
  return P_EXTENSION("getSubjectAltNames", m_nSubjectAlternativeNames, kMsgNoSubjectAltNames, out);
}

int PCertUtil::getSubjectDirAttributes(RSubjectDirectoryAttributes* out) {
  return P_EXTENSION("getSubjectDirAttributes", m_nSubjectDirectoryAttributes, kMsgNoSubjectDirectoryAttributes,
                     out);
}

int PCertUtil::getSubjectDirAttribute_CNT(int* pnCount) {
  RSubjectDirectoryAttributes attrs;
  if (int rc = P_EXTENSION("getSubjectDirAttribute_CNT", m_nSubjectDirectoryAttributes,
                           kMsgNoSubjectDirectoryAttributes, &attrs))
    return rc;
  *pnCount = attrs.getCount();
  return 0;
}

int PCertUtil::getSubjectDirAttribute_Type(int nIndex, ByteString* out) {
  RSubjectDirectoryAttributes attrs;
  if (int rc = P_EXTENSION("getSubjectDirAttribute_Type", m_nSubjectDirectoryAttributes,
                           kMsgNoSubjectDirectoryAttributes, &attrs))
    return rc;
  const RAttribute* a = attrs.getAt(nIndex);
  if (!a)
    return P_FAILF("getSubjectDirAttribute_Type", "nIndex", PCERT_ERR_INDEX, kFmtIndexOutOfRange, nIndex);
  *out = OidOf(a->getType());
  return 0;
}

int PCertUtil::getSubjectDirAttribute_Value(int nIndex, ByteString* out) {
  RSubjectDirectoryAttributes attrs;
  if (int rc = P_EXTENSION("getSubjectDirAttribute_Value", m_nSubjectDirectoryAttributes,
                           kMsgNoSubjectDirectoryAttributes, &attrs))
    return rc;
  const RAttribute* a = attrs.getAt(nIndex);
  if (!a || a->getValues().getCount() < 1)
    return P_FAILF("getSubjectDirAttribute_Value", "nIndex", PCERT_ERR_INDEX, kFmtIndexOutOfRange, nIndex);
  *out = a->getValues().getAt(0)->getElement();
  return 0;
}

int PCertUtil::getBasicConstraints(RBasicConstraints* out) {
  return P_EXTENSION("getBasicConstraints", m_nBasicConstraints, kMsgNoBasicConstraints, out);
}

int PCertUtil::getBasicConstraints_cA(bool* pbCA) {
  RBasicConstraints bc;
  if (int rc = P_EXTENSION("getBasicConstraints_cA", m_nBasicConstraints, kMsgNoBasicConstraints, &bc)) return rc;
  *pbCA = bc.isCA();
  return 0;
}

int PCertUtil::getBasicConstraints_pathLenConstraint(int* pnPathLen) {
  RBasicConstraints bc;
  if (int rc = P_EXTENSION("getBasicConstraints_pathLenConstraint", m_nBasicConstraints, kMsgNoBasicConstraints, &bc))
    return rc;
  if (!bc.hasPathLenConstraint())
    return P_FAIL("getBasicConstraints_pathLenConstraint", "pathLenConstraint", PCERT_ERR_ABSENT,
                  kMsgNoPathLenConstraint);
  *pnPathLen = bc.getPathLenConstraint().getInteger();
  return 0;
}

int PCertUtil::getNameConstraints(RNameConstraints* out) {
  return P_EXTENSION("getNameConstraints", m_nNameConstraints, kMsgNoNameConstraints, out);
}

int PCertUtil::getploicyConstraints(RPolicyConstraints* out) {
  return P_EXTENSION("getploicyConstraints", m_nPolicyConstraints, kMsgNoPolicyConstraints, out);
}

int PCertUtil::getExtendedKeyUsage(RExtKeyUsageSyntax* out) {
  return P_EXTENSION("getExtendedKeyUsage", m_nExtendedKeyUsage, kMsgNoExtendedKeyUsage, out);
}

int PCertUtil::getCRLDistributionPoints(RCRLDistPointsSyntax* out) {
  return P_EXTENSION("getCRLDistributionPoints", m_nCRLDistributionPoints, kMsgNoCRLDistributionPoints, out);
}

int PCertUtil::getAuthorityInformationAccess(RAuthorityInfoAccessSyntax* out) {
  return P_EXTENSION("getAuthorityInformationAccess", m_nAuthorityInformationAccess,
                     kMsgNoAuthorityInformationAccess, out);
}

int PCertUtil::getProcuration(RAny* out) {
  return P_EXTENSION("getProcuration", m_nProcuration, kMsgNoProcuration, out);
}

int PCertUtil::getDomainInformation(RAny* out) {
  return P_EXTENSION("getDomainInformation", m_nDomainInformation, kMsgNoDomainInformation, out);
}

int PCertUtil::getInhibitAnyPolicy(int* pnSkipCerts) {
  ASN1Integer skip;
  if (int rc = P_EXTENSION("getInhibitAnyPolicy", m_nInhibitAnyPolicy, kMsgNoInhibitAnyPolicy, &skip)) return rc;
  *pnSkipCerts = skip.getInteger();
  return 0;
}

int PCertUtil::getFreshestCRL(RCRLDistPointsSyntax* out) {
  return P_EXTENSION("getFreshestCRL", m_nFreshestCRL, kMsgNoFreshestCRL, out);
}

int PCertUtil::getSubjectInfoAccess(RSubjectInfoAccessSyntax* out) {
  return P_EXTENSION("getSubjectInfoAccess", m_nSubjectInfoAccess, kMsgNoSubjectInfoAccess, out);
}

int PCertUtil::getQCStatements(RQCStatements* out) {
  return P_EXTENSION("getQCStatements", m_nQCStatements, kMsgNoQCStatements, out);
}

int PCertUtil::getSubjectAnnexedInfo(RAny* out) {
  return P_EXTENSION("getSubjectAnnexedInfo", m_nSubjectAnnexedInfo, kMsgNoSubjectAnnexedInfo, out);
}

int PCertUtil::getDN(const RRDNSequence& name, ByteString* out) {
  if (UDNSettings::RDN2Str(name, out) != 0) return P_FAIL("getDN", "UDNSettings::RDN2Str", PCERT_ERR_DN, kMsgMakeDNFailed);
  return 0;
}

int PCertUtil::getCertSignatureAlgorithmValue(const RAlgorithmIdentifier& alg, ByteString* out) {
  const ByteString oid = OidOf(alg.getAlgorithm());
  // The registry's display names cover digests too; a digest is no signature algorithm.
  const char* name = PAlgorithmUtil::hashCode(oid.c_str()) == 0 ? PAlgorithmUtil::displayName(oid.c_str()) : nullptr;
  if (name) {
    *out = name;
    return 0;
  }
  out->format(kFmtUnknownSignatureAlgorithm, oid.c_str());
  return P_FAIL("getCertSignatureAlgorithmValue", "algorithm", PCERT_ERR_ALGORITHM, out->c_str());
}

int PCertUtil::getCertTBSCertificateHash(ByteString* pDigest, ByteString* pHashName) {
  static const char* kMethod = "getCertTBSCertificateHash";
  if (!m_pCert) return notParsed(kMethod);
  RAlgorithmIdentifier alg(*m_pSignatureAlgorithm);
  PAlgorithmUtil registry;
  int hash = 0;
  if (int rc = registry.getHashAlgFromSignAlg(alg.toASN1Object(), &hash))
    return P_FAIL(kMethod, "PAlgorithmUtil.getHashAlgFromSignAlg", rc, registry.getErrorMessage().c_str());
  // Only these digests have a display name here (MD5 and the others do not).
  const char* name = hash == QSAlgorithm::SHA1() || hash == QSAlgorithm::HAS160() || hash == QSAlgorithm::SHA256()
                         ? PAlgorithmUtil::displayName(PAlgorithmUtil::hashOID(hash))
                         : nullptr;
  if (!name) return P_FAIL(kMethod, "nHashAlg", PCERT_ERR_ALGORITHM, kMsgUnknownHashAlgorithm);
  QSHash digest;
  if (int rc = digest.DigestData(hash, m_pCert->getRawTBSCertificate(), *pDigest))
    return P_FAIL(kMethod, "QSHash.DigestData", rc, digest.GetErrorMsg().c_str());
  *pHashName = name;
  return 0;
}
