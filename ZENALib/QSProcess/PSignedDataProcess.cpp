#include "ZENALib/QSProcess/PSignedDataProcess.h"

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RRSASSA_PSS_params.h"
#include "ZENALib/ASN1Pkix/RSigningCertificate.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PNameMatch.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "ZENALib/QSProcess/PSignedDataMessages.h"

namespace {

// Counter-signatures of counter-signatures are followed this deep, no
// deeper: a hostile input could nest them to exhaust the stack.
constexpr int kMaxCounterDepth = 4;

// The elements inside the constructed element (p, n), each as received.
bool Children(const unsigned char* p, int n, std::vector<ByteString>* out) {
  RElementHeader h;
  if (RReadHeader(p, n, &h) || h.contentLength < 0) return false;
  const unsigned char* q = p + h.headerLength;
  int left = h.contentLength;
  while (left > 0) {
    RElementHeader c;
    if (RReadHeader(q, left, &c)) return false;
    out->emplace_back(q, c.totalLength);
    q += c.totalLength;
    left -= c.totalLength;
  }
  return true;
}

// The certificates field ([0]) of a DER SignedData, each element as received.
bool RawCertificates(const ByteString& bsSignedData, std::vector<ByteString>* out) {
  std::vector<ByteString> parts;
  if (!Children(bsSignedData.data(), bsSignedData.length(), &parts)) return false;
  for (const ByteString& part : parts) {
    if (part.data()[0] == 0xA0) return Children(part.data(), part.length(), out);
  }
  return true;
}

// The first value of the first attribute of a type, or null.
const RAny* AttrValue(const RAttributes& attrs, const char* pszOID) {
  for (int i = 0; i < attrs.getCount(); ++i) {
    RAttribute a = *attrs.getAt(i);
    if (a.getType().getOID() == pszOID) return attrs.getAt(i)->getValues().getAt(0);
  }
  return nullptr;
}

// True when RSASSA-PSS parameters hash with SHA-1 throughout (message and
// mask function; either left out means SHA-1); *pnSalt their salt length.
bool PssWithSha1(const RAlgorithmIdentifier& alg, int* pnSalt) {
  RAlgorithmIdentifier a = alg;
  RRSASSA_PSS_params params;
  if (!a.hasParameters() || params.fromASN1Object(a.getParameters().getElement())) return false;
  *pnSalt = params.getSaltLengthValue();
  if (params.hasHashAlgorithm() && params.getHashAlgorithm().getAlgorithm().getOID() != poid::kSHA1) return false;
  if (!params.hasMaskGenAlgorithm()) return true;
  RAlgorithmIdentifier& mgf = params.getMaskGenAlgorithm();
  RAlgorithmIdentifier mgfHash;
  return mgf.hasParameters() && mgfHash.fromASN1Object(mgf.getParameters().getElement()) == 0 &&
         mgfHash.getAlgorithm().getOID() == poid::kSHA1;
}

}  // namespace

void PSignedDataProcess::clear() {
  m_signedData = RSignedData();
  m_bsContent = ByteString();
  m_bsContentType = ByteString();
  m_nEmbedded = 0;
  m_certs.clear();
  m_signerCertIndex.clear();
  m_bParsed = false;
  m_nDepth = 0;
}

int PSignedDataProcess::parseSignedData(const ByteString& bsSignedData, const std::vector<ByteString>& addCerts) {
  clear();
  if (int rc = processContentInfo(bsSignedData)) return rc;
  if (int rc = processEncapContentInfo()) return rc;
  if (int rc = processCertificateSet()) return rc;
  for (const ByteString& c : addCerts) m_certs.push_back(c);
  if (int rc = processSignerInfos()) {
    const ByteString trace = m_bsErrorMsg;
    const int code = m_nErrorCode;
    clear();
    m_bsErrorMsg = trace;
    m_nErrorCode = code;
    return rc;
  }
  m_bParsed = true;
  return 0;
}

int PSignedDataProcess::processContentInfo(const ByteString& bsContentInfo) {
  static const char kM[] = "processContentInfo";
  RContentInfo ci;
  if (ci.fromASN1Object(bsContentInfo)) return P_FAIL(kM, "contentInfo", ERR_DECODE, ci.getErrorMessage().c_str());
  if (ci.getContentType().getOID() != psdoid::kSignedData) {
    return P_FAIL(kM, "contentType", ERR_NOT_SIGNED_DATA, psdmsg::kNotSignedData);
  }
  const ByteString& sd = ci.getContent().getElement();
  if (m_signedData.fromASN1Object(sd)) {
    return P_FAIL(kM, "signedData", ERR_DECODE, m_signedData.getErrorMessage().c_str());
  }
  if (m_signedData.getVersion().getValue().length() != 1 || m_signedData.getVersion().getInteger() != 1) {
    return P_FAIL(kM, "version", ERR_VERSION, psdmsg::kOnlyV1SignedData);
  }
  std::vector<ByteString> raw;
  if (RawCertificates(sd, &raw) && static_cast<int>(raw.size()) == m_signedData.getCertificates().getCount()) {
    m_certs = std::move(raw);
    return 0;
  }
  // A BER (indefinite-length) SignedData: the certificates as re-encoded.
  m_certs.clear();
  for (const RCertificateChoices& choice : m_signedData.getCertificates().items()) {
    RCertificateChoices copy = choice;
    m_certs.push_back(copy.isCertificate() ? copy.getCertificate().toASN1Object() : ByteString());
  }
  return 0;
}

int PSignedDataProcess::processEncapContentInfo() {
  REncapsulatedContentInfo& eci = m_signedData.getEncapContentInfo();
  m_bsContentType = eci.getEContentType().getOID();
  if (eci.hasEContent()) {
    m_bsContent = eci.getEContent().getValue();
  } else if (m_bHaveDetached) {
    m_bsContent = m_bsDetached;
  }
  return 0;
}

int PSignedDataProcess::processCertificateSet() {
  static const char kM[] = "processCertificateSet";
  // m_certs holds the elements as received; the choice tells their kind.
  const RCertificateSet& set = m_signedData.getCertificates();
  for (int i = 0; i < set.getCount(); ++i) {
    const RCertificateChoices& choice = *set.getAt(i);
    if (choice.isExtendedCertificate())
      return P_FAIL(kM, "extendedCertificate", ERR_EXTENDED_CERT, psdmsg::kExtendedCert);
    if (!choice.isCertificate()) return P_FAIL(kM, "certificateChoices", ERR_CERT_TYPE, psdmsg::kUnknownCertType);
  }
  if (static_cast<int>(m_certs.size()) != set.getCount()) return P_FAIL(kM, "certificates", ERR_DECODE, nullptr);
  m_nEmbedded = set.getCount();
  return 0;
}

int PSignedDataProcess::processSignerInfos() {
  static const char kM[] = "processSignerInfos";
  const RSignerInfos& infos = m_signedData.getSignerInfos();
  if (infos.getCount() == 0) return P_FAIL(kM, "signerInfos", ERR_NO_SIGNER_INFO, psdmsg::kNoSignerInfo);
  for (int i = 0; i < infos.getCount(); ++i) {
    int index = -1;
    if (int rc = verifySigner(kM, *infos.getAt(i), m_bsContent, false, &index)) return rc;
    m_signerCertIndex.push_back(index);
  }
  return 0;
}

int PSignedDataProcess::processCounterSignature(const RSignerInfo& counter, const ByteString& bsSignatureValue) {
  int index = -1;
  return verifySigner("processCounterSignature", counter, bsSignatureValue, true, &index);
}

int PSignedDataProcess::haveValidSignerIdentifier(const RSignerIdentifier& sid, int* pnCertIndex) {
  static const char kM[] = "haveValidSignerIdentifier";
  RSignerIdentifier id = sid;
  ByteString issuer, serial, keyId;
  if (id.isIssuerAndSerialNumber()) {
    issuer = id.getIssuerAndSerialNumber().getIssuer().toASN1Object();
    serial = id.getIssuerAndSerialNumber().getSerialNumber().getValue();
  } else if (id.isSubjectKeyIdentifier()) {
    keyId = id.getSubjectKeyIdentifier().getValue();
  }
  for (size_t i = 0; i < m_certs.size(); ++i) {
    RCertificate cert;
    if (cert.fromASN1Object(m_certs[i])) continue;
    RTBSCertificate& tbs = cert.getTbsCertificate();
    bool match = false;
    if (issuer.length() > 0) {
      // A signer may write the issuer in other string types than the certificate.
      match = tbs.getSerialNumber().getValue() == serial &&
              (tbs.getIssuer().toASN1Object() == issuer ||
               PNameMatch::SameName(tbs.getIssuer(), id.getIssuerAndSerialNumber().getIssuer()));
    } else if (keyId.length() > 0) {
      // QSHash::DigestData: SHA-1 of the subjectPublicKey bits (RFC 5280 4.2.1.2 (1)).
      QSHash hasher;
      ByteString digest;
      const ByteString bits = tbs.getSubjectPublicKeyInfo().getSubjectPublicKey().getBitString(nullptr);
      match = hasher.DigestData(QSAlgorithm::SHA1(), bits, digest) == 0 && digest == keyId;
    }
    if (match) {
      *pnCertIndex = static_cast<int>(i);
      return 0;
    }
  }
  return P_FAIL(kM, "signerCert", ERR_NO_SIGNER_CERT, psdmsg::kNoSignerCert);
}

int PSignedDataProcess::verifySigner(const char* pszMethod, const RSignerInfo& si, const ByteString& bsContent,
                                     bool bCounter, int* pnCertIndex) {
  RSignerInfo info = si;
  if (info.getVersion().getValue().length() != 1 || info.getVersion().getInteger() != 1) {
    return P_FAIL(pszMethod, "signerInfo.version", ERR_SIGNER_VERSION, psdmsg::kOnlyV1SignerInfo);
  }
  if (int rc = haveValidSignerIdentifier(info.getSid(), pnCertIndex)) return rc;
  const ByteString& cert = m_certs[static_cast<size_t>(*pnCertIndex)];

  PAlgorithmUtil util;
  int hash = 0;
  if (util.parseHashAlgID(info.getDigestAlgorithm().toASN1Object(), &hash)) {
    return P_FAIL(pszMethod, "digestAlgorithm", ERR_ALGORITHM, util.getErrorMessage().c_str());
  }
  const bool pss = info.getSignatureAlgorithm().getAlgorithm().getOID() == poid::kRSASSA_PSS;
  int salt = 20;
  if (pss && (hash != QSAlgorithm::SHA1() || !PssWithSha1(info.getSignatureAlgorithm(), &salt)))
    return P_FAIL(pszMethod, "signatureAlgorithm", ERR_PSS_HASH, psdmsg::kPssSha1Only);

  QSHash hasher;
  ByteString signedBytes = bsContent;
  if (info.hasSignedAttrs()) {
    const RAttributes& attrs = info.getSignedAttrs();
    if (!bCounter) {
      const RAny* type = AttrValue(attrs, psdoid::kContentType);
      ASN1ObjectIdentifier oid;
      if (!type || oid.fromASN1Object(type->getElement()) || oid.getOID() != m_bsContentType) {
        return P_FAIL(pszMethod, "contentType", ERR_CONTENT_TYPE, psdmsg::kContentTypeDiffers);
      }
    }
    const RAny* md = AttrValue(attrs, psdoid::kMessageDigest);
    ASN1OctetString mdValue;
    ByteString digest;
    if (int rc = hasher.DigestData(hash, bsContent, digest)) {
      return P_FAIL(pszMethod, "hash.DigestData", rc, hasher.GetErrorMsg().c_str());
    }
    if (!md || mdValue.fromASN1Object(md->getElement()) || mdValue.getValue() != digest) {
      return P_FAIL(pszMethod, "messageDigest", ERR_CONTENT_HASH, psdmsg::kContentHash);
    }
    if (const RAny* scValue = AttrValue(attrs, psdoid::kSigningCertificate)) {
      RSigningCertificate sc;
      ByteString certHash;
      if (hasher.DigestData(QSAlgorithm::SHA1(), cert, certHash) || sc.fromASN1Object(scValue->getElement()) ||
          sc.getCerts().getCount() == 0 || sc.getCerts().getAt(0)->getCertHash().getValue() != certHash) {
        return P_FAIL(pszMethod, "signingCertificate", ERR_CERT_HASH, psdmsg::kCertHash);
      }
    }
    signedBytes = info.getRawSignedAttrs();
  }
  PPublicKey pk;
  ByteString spki;
  int size = 0;
  if (pss && salt != 20 && pk.getPublicKeyInfoFromCert(cert, PPublicKey::CERT_KIND_X509, spki) == 0 &&
      pk.GetPublicKeyAlgorithm(spki, 0, &size) == 0 &&
      (size == QSAlgorithm::RSA1024() || size == QSAlgorithm::RSA2048())) {
    // The salt length is the signer's choice and stands in the parameters
    // (signers commonly take the longest the key allows); the key sizes
    // stay those of the fixed form, whose refusals the other sizes get.
    if (int rc = pk.verifySignatureWithAlgID(spki, info.getSignatureAlgorithm().toASN1Object(), signedBytes,
                                             info.getSignature().getValue())) {
      return P_FAIL(pszMethod, "publicKey.verifySignatureWithAlgID", rc, pk.getErrorMessage().c_str());
    }
  } else if (int rc = pk.verifySignatureWithCert(cert, hash, pss, signedBytes, info.getSignature().getValue())) {
    return P_FAIL(pszMethod, "publicKey.verifySignatureWithCert", rc, pk.getErrorMessage().c_str());
  }
  if (info.hasUnsignedAttrs()) {
    const RAttributes& unsignedAttrs = info.getUnsignedAttrs();
    for (int i = 0; i < unsignedAttrs.getCount(); ++i) {
      RAttribute a = *unsignedAttrs.getAt(i);
      if (a.getType().getOID() != psdoid::kCounterSignature) continue;
      if (m_nDepth >= kMaxCounterDepth) return P_FAIL(pszMethod, "counterSignature", ERR_ATTRIBUTE, nullptr);
      for (const RAny& v : a.getValues().items()) {
        RSignerInfo counter;
        if (counter.fromASN1Object(v.getElement())) {
          return P_FAIL(pszMethod, "counterSignature", ERR_ATTRIBUTE, counter.getErrorMessage().c_str());
        }
        ++m_nDepth;
        const int rc = processCounterSignature(counter, info.getSignature().getValue());
        --m_nDepth;
        if (rc) return rc;
      }
    }
  }
  return 0;
}

int PSignedDataProcess::checkParsed(const char* pszMethod) {
  return m_bParsed ? 0 : P_FAIL(pszMethod, "m_bParsed", ERR_NOT_PARSED, psdmsg::kNotParsed);
}

int PSignedDataProcess::getCerts(std::vector<ByteString>* out) {
  if (int rc = checkParsed("getCerts")) return rc;
  if (m_nEmbedded == 0) return P_FAIL("getCerts", "certificates", ERR_NO_CERTS, psdmsg::kNoCerts);
  out->assign(m_certs.begin(), m_certs.begin() + m_nEmbedded);
  return 0;
}

int PSignedDataProcess::getCert(int nIndex, ByteString* out) {
  if (int rc = checkParsed("getCert")) return rc;
  if (m_nEmbedded == 0) return P_FAIL("getCert", "certificates", ERR_NO_CERTS, psdmsg::kNoCerts);
  if (nIndex < 0 || nIndex >= m_nEmbedded) return P_FAILF("getCert", "nIndex", ERR_INDEX, "nIndex(%d)", nIndex);
  *out = m_certs[static_cast<size_t>(nIndex)];
  return 0;
}

int PSignedDataProcess::getSignerCert(int nIndex, ByteString* out) {
  if (int rc = checkParsed("getSignerCert")) return rc;
  if (nIndex < 0 || nIndex >= static_cast<int>(m_signerCertIndex.size())) {
    return P_FAILF("getSignerCert", "nIndex", ERR_INDEX, "nIndex(%d)", nIndex);
  }
  *out = m_certs[static_cast<size_t>(m_signerCertIndex[static_cast<size_t>(nIndex)])];
  return 0;
}

int PSignedDataProcess::getSignerInfoCnt(int* pnCount) {
  if (int rc = checkParsed("getSignerInfoCnt")) return rc;
  *pnCount = m_signedData.getSignerInfos().getCount();
  return 0;
}

int PSignedDataProcess::getSignerInfo(int nIndex, RSignerInfo* out) {
  if (int rc = checkParsed("getSignerInfo")) return rc;
  const RSignerInfo* si = m_signedData.getSignerInfos().getAt(nIndex);
  if (!si) return P_FAILF("getSignerInfo", "nIndex", ERR_INDEX, "nIndex(%d)", nIndex);
  *out = *si;
  return 0;
}

int PSignedDataProcess::getSignerAttribute(int nIndex, const char* pszOID, RAttribute* out) {
  if (int rc = checkParsed("getSignerAttribute")) return rc;
  const RSignerInfo* si = m_signedData.getSignerInfos().getAt(nIndex);
  if (!si) return P_FAILF("getSignerAttribute", "nIndex", ERR_INDEX, "nIndex(%d)", nIndex);
  const RAttributes& attrs = si->getSignedAttrs();
  for (int i = 0; si->hasSignedAttrs() && i < attrs.getCount(); ++i) {
    RAttribute a = *attrs.getAt(i);
    if (a.getType().getOID() == pszOID) {
      *out = a;
      return 0;
    }
  }
  return P_FAILF("getSignerAttribute", "signedAttrs", ERR_ATTRIBUTE, "%s does not exist.", pszOID);
}

int PSignedDataProcess::getSigningTime(int nIndex, std::time_t* ptTime) {
  RAttribute attr;
  if (int rc = getSignerAttribute(nIndex, psdoid::kSigningTime, &attr)) return rc;
  const RAny* v = attr.getValues().getAt(0);
  if (v && v->getIdentifier() == 0x17) {
    ASN1UTCTime t;
    if (t.fromASN1Object(v->getElement()) == 0) return *ptTime = t.getGMTTime(), 0;
  } else if (v && v->getIdentifier() == 0x18) {
    ASN1GeneralizedTime t;
    if (t.fromASN1Object(v->getElement()) == 0) return *ptTime = t.getGMTTime(), 0;
  }
  return P_FAIL("getSigningTime", "signingTime", ERR_ATTRIBUTE, nullptr);
}
