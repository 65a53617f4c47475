#include "ZENALib/QSProcess/PSignedData.h"

#include <algorithm>
#include <cstring>
#include <ctime>

#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RKCDSAParameters.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RSigningCertificate.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PPrivateKey.h"
#include "ZENALib/QSProcess/PSignedDataMessages.h"

namespace {

// One DER element from its tag and contents (lengths of up to four octets).
ByteString Tlv(unsigned char tag, const ByteString& body) {
  ByteString out(&tag, 1);
  const unsigned n = static_cast<unsigned>(body.length());
  if (n < 0x80) {
    out += static_cast<char>(n);
  } else {
    unsigned char len[5];
    int k = 0;
    for (unsigned v = n; v; v >>= 8) ++k;
    len[0] = static_cast<unsigned char>(0x80 | k);
    for (int i = 0; i < k; ++i) len[k - i] = static_cast<unsigned char>(n >> (8 * i));
    out.append(len, k + 1);
  }
  out += body;
  return out;
}

RAttribute MakeAttr(const char* pszOID, const ByteString& bsValue) {
  RAttribute attr;
  attr.getType().setOID(pszOID);
  RAny value;
  value.setElement(bsValue);
  attr.getValues().add(value);
  return attr;
}

// The signature code for an RSA size code (4000-4002) and a hash code.
int RsaSignCode(int nSize, int nHash) {
  const int i = nSize - QSAlgorithm::RSA512();
  if (i < 0 || i > 2) return 0;
  if (nHash == QSAlgorithm::MD5()) return QSAlgorithm::MD5WithRSA512() + i;
  if (nHash == QSAlgorithm::SHA1()) return QSAlgorithm::SHA1WithRSA512() + i;
  if (nHash == QSAlgorithm::SHA256() && i > 0) return QSAlgorithm::SHA256WithRSA1024() + i - 1;
  return 0;
}

}  // namespace

PSignedData::PSignedData() : PTrace("PSignedData"), m_bsContentType(psdoid::kData) {
  m_signedData.getVersion().setInteger(1);
}

int PSignedData::setTobeSignedData(const ByteString& bsContent, bool bDetached, bool bAsn1,
                                   const char* pszContentType) {
  if (bAsn1) {
    RElementHeader h;
    if (RReadHeader(bsContent.data(), bsContent.length(), &h) || h.totalLength != bsContent.length()) {
      return P_FAIL("setTobeSignedData", "bsContent", 1, psdmsg::kNotAsn1);
    }
  }
  m_bsContent = bsContent;
  m_bHaveContent = true;
  m_bDetached = bDetached;
  if (pszContentType) m_bsContentType = pszContentType;
  return 0;
}

int PSignedData::setSignedData(const ByteString& bsContentInfo) {
  static const char kM[] = "setSignedData";
  RContentInfo ci;
  if (ci.fromASN1Object(bsContentInfo)) return P_FAIL(kM, "contentInfo", 1, ci.getErrorMessage().c_str());
  if (ci.getContentType().getOID() != psdoid::kSignedData) return P_FAIL(kM, "contentType", 2, psdmsg::kNotSignedData);
  RSignedData sd;
  if (sd.fromASN1Object(ci.getContent().getElement())) {
    return P_FAIL(kM, "signedData", 3, sd.getErrorMessage().c_str());
  }
  m_signedData = sd;
  m_bsContentType = m_signedData.getEncapContentInfo().getEContentType().getOID();
  if (!m_signedData.getEncapContentInfo().hasEContent()) {
    m_bHaveContent = false;
    m_bDetached = true;
    return P_FAIL(kM, "eContent", 4, psdmsg::kNoContent);
  }
  m_bsContent = m_signedData.getEncapContentInfo().getEContent().getValue();
  m_bHaveContent = true;
  m_bDetached = false;
  return 0;
}

int PSignedData::addSignerCert(const ByteString& bsCert) {
  RCertificateChoices choice;
  RCertificate cert;
  if (cert.fromASN1Object(bsCert)) {
    return P_FAIL("addSignerCert", "bsCert", 1, cert.getErrorMessage().c_str());
  }
  RCertificateSet& set = m_signedData.getCertificates();
  for (int i = 0; i < set.getCount(); ++i) {
    if (set.getAt(i)->toASN1Object() == bsCert) return 0;
  }
  choice.setCertificate(cert);
  set.add(choice);
  m_signedData.setPresent(set, true);
  return 0;
}

int PSignedData::addAlgToDigestAlgorithmIdentifiers(int nHashAlg) {
  const char* oid = PAlgorithmUtil::hashOID(nHashAlg ? nHashAlg : QSAlgorithm::SHA1());
  PAlgorithmUtil util;
  RAlgorithmIdentifier alg;
  if (!oid) return P_FAILF("addAlgToDigestAlgorithmIdentifiers", "nHashAlg", 1, "nHashAlg(%d)", nHashAlg);
  if (int rc = util.makeDigestAlgID(oid, alg)) {
    return P_FAIL("addAlgToDigestAlgorithmIdentifiers", "makeDigestAlgID", rc, util.getErrorMessage().c_str());
  }
  const ByteString der = alg.toASN1Object();
  RDigestAlgorithmIdentifiers& set = m_signedData.getDigestAlgorithms();
  for (int i = 0; i < set.getCount(); ++i) {
    if (set.getAt(i)->toASN1Object() == der) return 0;
  }
  set.add(alg);
  return 0;
}

int PSignedData::makeSignedAttrs(const ByteString& bsCert, int nHashAlg, RAttributes& attrs) {
  static const char kM[] = "makeSignedAttrs";
  const int hash = nHashAlg ? nHashAlg : QSAlgorithm::SHA1();
  if (4 + static_cast<int>(m_extraAttrs.size()) > MAX_SIGNED_ATTRS) {
    return P_FAIL(kM, "nAttrCount", 1, psdmsg::kAttrMax);
  }
  if (!m_bHaveContent) return P_FAIL(kM, "m_bsContent", 2, psdmsg::kNoContent);
  RAttributes list;
  ASN1ObjectIdentifier type;
  type.setOID(m_bsContentType.c_str());
  list.add(MakeAttr(psdoid::kContentType, type.toASN1Object()));
  ASN1UTCTime now;
  now.setGMTTime(std::time(nullptr));
  list.add(MakeAttr(psdoid::kSigningTime, now.toASN1Object()));
  QSHash hasher;
  ByteString digest, certHash;
  if (int rc = hasher.DigestData(hash, m_bsContent, digest)) {
    return P_FAIL(kM, "hash.DigestData", rc, hasher.GetErrorMsg().c_str());
  }
  ASN1OctetString md;
  md.setValue(digest);
  list.add(MakeAttr(psdoid::kMessageDigest, md.toASN1Object()));
  if (int rc = hasher.DigestData(QSAlgorithm::SHA1(), bsCert, certHash)) {
    return P_FAIL(kM, "hash.DigestData", rc, hasher.GetErrorMsg().c_str());
  }
  RSigningCertificate sc;
  RESSCertID id;
  id.getCertHash().setValue(certHash);
  sc.getCerts().add(id);
  list.add(MakeAttr(psdoid::kSigningCertificate, sc.toASN1Object()));
  for (const RAttribute& a : m_extraAttrs) list.add(a);
  ByteString der;
  return BER2DER(list, attrs, der);
}

int PSignedData::BER2DER(const RAttributes& attrs, RAttributes& sorted, ByteString& bsDER) {
  std::vector<std::pair<ByteString, int>> enc;
  for (int i = 0; i < attrs.getCount(); ++i) {
    RAttribute copy = *attrs.getAt(i);
    enc.emplace_back(copy.toASN1Object(), i);
  }
  // X.690 11.6: the encodings compared as octet strings, the shorter padded
  // with zeros at its end (so a prefix sorts first).
  std::stable_sort(enc.begin(), enc.end(), [](const auto& a, const auto& b) {
    const int n = std::min(a.first.length(), b.first.length());
    const int c = std::memcmp(a.first.data(), b.first.data(), static_cast<size_t>(n));
    return c != 0 ? c < 0 : a.first.length() < b.first.length();
  });
  sorted.removeAll();
  ByteString body;
  for (const auto& e : enc) {
    sorted.add(*attrs.getAt(e.second));
    body += e.first;
  }
  bsDER = Tlv(0x31, body);
  return 0;
}

int PSignedData::getTBSData(const RAttributes* pAttrs, ByteString& bsTBS) {
  if (pAttrs && pAttrs->getCount() > 0) {
    RAttributes sorted;
    return BER2DER(*pAttrs, sorted, bsTBS);
  }
  if (!m_bHaveContent) return P_FAIL("getTBSData", "m_bsContent", 1, psdmsg::kNoContent);
  bsTBS = m_bsContent;
  return 0;
}

int PSignedData::signingKey(const ByteString& bsCert, const ByteString& bsPrivateKey, int nHashAlg,
                            ByteString& bsCoreKey, int* pnSignAlg) {
  static const char kM[] = "addSignerInfo";
  RPrivateKeyInfo info;
  if (int rc = info.fromASN1Object(bsPrivateKey))
    return P_FAIL(kM, "privateKeyInfo", rc, info.getErrorMessage().c_str());
  const ByteString oid = info.getPrivateKeyAlgorithm().getAlgorithm().getOID();
  RCertificate cert;
  if (int rc = cert.fromASN1Object(bsCert)) return P_FAIL(kM, "bsCert", rc, cert.getErrorMessage().c_str());
  RSubjectPublicKeyInfo& spki = cert.getTbsCertificate().getSubjectPublicKeyInfo();
  // A KCDSA private key may leave its domain parameters to the certificate.
  ByteString params = info.getPrivateKeyAlgorithm().hasParameters()
                          ? info.getPrivateKeyAlgorithm().getParameters().getElement()
                          : ByteString();
  if (params.length() == 0 && spki.getAlgorithm().hasParameters())
    params = spki.getAlgorithm().getParameters().getElement();
  PPrivateKey pk;
  int alg = 0;
  if (int rc = pk.GetPrivateKeyAlgorithm(oid, info.getPrivateKey().getValue(), params, nHashAlg, &alg)) {
    return P_FAIL(kM, "privateKey.GetPrivateKeyAlgorithm", rc, pk.getErrorMessage().c_str());
  }
  bsCoreKey = bsPrivateKey;
  if (oid == poid::kRSA) {
    alg = RsaSignCode(alg, nHashAlg);
    if (!alg) return P_FAILF(kM, "nHashAlg", 3, "The RSA signature with the hash(%d) is not supported.", nHashAlg);
  } else if (oid == poid::kKCDSA || oid == poid::kKCDSA1) {
    // The core signs with SEQUENCE { p, q, g, y, x }: y comes from the
    // signer certificate, which PKCS#8 does not carry.
    RKCDSAParameters domain;
    if (int rc = domain.fromASN1Object(params)) return P_FAIL(kM, "kcdsaParams", rc, domain.getErrorMessage().c_str());
    const ByteString y = spki.getSubjectPublicKey().getBitString(nullptr);
    ByteString body = domain.getP().toASN1Object();
    body += domain.getQ().toASN1Object();
    body += domain.getG().toASN1Object();
    body += y;
    body += info.getPrivateKey().getValue();
    bsCoreKey = Tlv(0x30, body);
  }
  *pnSignAlg = alg;
  return 0;
}

int PSignedData::addSignerInfo(const ByteString& bsCert, const ByteString& bsPrivateKey, int nHashAlg,
                               bool bSignedAttrs) {
  static const char kM[] = "addSignerInfo";
  const int hash = nHashAlg ? nHashAlg : QSAlgorithm::SHA1();
  if (!m_bHaveContent) return P_FAIL(kM, "m_bsContent", 1, psdmsg::kNoContent);
  RCertificate cert;
  if (cert.fromASN1Object(bsCert)) return P_FAIL(kM, "bsCert", 2, cert.getErrorMessage().c_str());
  ByteString coreKey;
  int signAlg = 0;
  if (int rc = signingKey(bsCert, bsPrivateKey, hash, coreKey, &signAlg)) return rc;

  RSignerInfo si;
  si.getVersion().setInteger(1);
  RIssuerAndSerialNumber ias;
  ias.setIssuer(cert.getTbsCertificate().getIssuer());
  ias.setSerialNumber(cert.getTbsCertificate().getSerialNumber());
  si.getSid().setIssuerAndSerialNumber(ias);
  PAlgorithmUtil util;
  RAlgorithmIdentifier digestAlg, signatureAlg;
  if (int rc = util.makeDigestAlgID(PAlgorithmUtil::hashOID(hash) ? PAlgorithmUtil::hashOID(hash) : "", digestAlg)) {
    return P_FAIL(kM, "algUtil.makeDigestAlgID", rc, util.getErrorMessage().c_str());
  }
  si.setDigestAlgorithm(digestAlg);
  const ByteString keyOID = cert.getTbsCertificate().getSubjectPublicKeyInfo().getAlgorithm().getAlgorithm().getOID();
  if (int rc = util.makeDigestEncAlgID(keyOID, hash, ByteString(), signatureAlg)) {
    return P_FAIL(kM, "algUtil.makeDigestEncAlgID", rc, util.getErrorMessage().c_str());
  }
  si.setSignatureAlgorithm(signatureAlg);

  ByteString tbs;
  if (bSignedAttrs) {
    RAttributes attrs;
    if (int rc = makeSignedAttrs(bsCert, hash, attrs)) return rc;
    if (int rc = getTBSData(&attrs, tbs)) return rc;
    si.setSignedAttrs(attrs);
  } else if (int rc = getTBSData(nullptr, tbs)) {
    return rc;
  }
  QSSign signer;
  ByteString signature;
  if (int rc = signer.SignData(signAlg, coreKey, tbs, signature)) {
    coreKey.zeroize();
    return P_FAIL(kM, "sign.SignData", rc, signer.GetErrorMsg().c_str());
  }
  coreKey.zeroize();
  si.getSignature().setValue(signature);
  if (int rc = addAlgToDigestAlgorithmIdentifiers(hash)) return rc;
  if (int rc = addSignerCert(bsCert)) return rc;
  m_signedData.getSignerInfos().add(si);
  return 0;
}

int PSignedData::makeSignedData(ByteString& bsOut) {
  static const char kM[] = "makeSignedData";
  if (m_signedData.getSignerInfos().getCount() == 0) return P_FAIL(kM, "signerInfos", 1, psdmsg::kNoSignerInfo);
  // Signers made here are version 1; a loaded SignedData keeps a higher version.
  if (m_signedData.getVersion().getInteger() < 1) m_signedData.getVersion().setInteger(1);
  REncapsulatedContentInfo& eci = m_signedData.getEncapContentInfo();
  eci.getEContentType().setOID(m_bsContentType.c_str());
  if (m_bDetached) {
    eci.setPresent(eci.getEContent(), false);
  } else {
    ROctetString content;
    content.setValue(m_bsContent);
    eci.setEContent(content);
  }
  const ByteString sd = m_signedData.toASN1Object();
  if (sd.length() == 0) return P_FAIL(kM, "signedData", 2, m_signedData.getErrorMessage().c_str());
  RContentInfo ci;
  ci.getContentType().setOID(psdoid::kSignedData);
  RAny any;
  if (int rc = any.setElement(sd)) return P_FAIL(kM, "content", rc, nullptr);
  ci.setContent(any);
  bsOut = ci.toASN1Object();
  if (bsOut.length() == 0) return P_FAIL(kM, "contentInfo", 3, ci.getErrorMessage().c_str());
  return 0;
}
