#include "ZENALib/QSProcess/PEnvelopedData.h"

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/REnvelopedData.h"
#include "ZENALib/ASN1Pkix/RRSAES_OAEP_params.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSRandom.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"
#include "ZENALib/QSProcess/PKEKAlgorithm.h"
#include "ZENALib/QSProcess/PPublicKey.h"

namespace {

// Content key and IV lengths drawn by makeSymetricKey.
struct KeyRow {
  int nAlg, nKey, nIv;
};
constexpr KeyRow kKeyTable[] = {
    {3000, 8, 8},   {3051, 8, 8},   {3010, 16, 8},  {3052, 16, 8},  {3011, 24, 8}, {3020, 16, 16},
    {3090, 16, 16}, {3091, 16, 16}, {3200, 16, 16}, {3050, 5, 8},   {3060, 0, 16},
};

// RC2 codes and their RC2 parameter version (RFC 2268 6): the version also
// goes into the RC2 key-wrap AlgorithmIdentifier.
struct RC2Row {
  int nAlg, nVersion;
};
constexpr RC2Row kRC2Versions[] = {{3050, 160}, {3051, 120}, {3052, 58}, {3054, 256}};

int RC2Version(int nAlg) {
  for (const RC2Row& r : kRC2Versions) {
    if (r.nAlg == nAlg) return r.nVersion;
  }
  return 0;
}

const ByteString kNull("\x05\x00", 2);

ByteString AlgorithmID(const char* pszOid, const ByteString& bsParams) {
  RAlgorithmIdentifier alg;
  alg.getAlgorithm().setOID(pszOid);
  if (bsParams.length() > 0) {
    RAny any;
    any.setElement(bsParams);
    alg.setParameters(any);
  }
  return alg.toASN1Object();
}

}  // namespace

PEnvelopedData::~PEnvelopedData() {
  m_bsKey.zeroize();
  m_bsKEK.zeroize();
  m_bsOriginatorPrivateKey.zeroize();
}

int PEnvelopedData::choiceRecipientType(int nType) {
  if (nType != penv::KEY_TRANS_RECIPIENT_INFO && nType != penv::KEY_AGREE_RECIPIENT_INFO &&
      nType != penv::KEK_RECIPIENT_INFO) {
    return P_FAIL("choiceRecipientType", "nType", penv::ERR_UNKNOWN_SYMMETRIC, penv::kRecipientTypeInput);
  }
  m_nRecipientType = nType;
  return 0;
}

int PEnvelopedData::choiceRecipientIdentifier(int nIdentifier) {
  if (nIdentifier != penv::ISSUERANDSERIALNUMBER && nIdentifier != penv::SUBJECT_KEY_IDENTIFIER) {
    return P_FAIL("choiceRecipientIdentifier", "nIdentifier", penv::ERR_RECIPIENT_ID_INPUT, penv::kRecipientIdInput);
  }
  m_nRecIdentifier = nIdentifier;
  return 0;
}

int PEnvelopedData::makeSymetricKey(int nEncAlg, ByteString& bsKey, ByteString& bsIv) {
  const KeyRow* row = nullptr;
  for (const KeyRow& r : kKeyTable) {
    if (r.nAlg == nEncAlg) row = &r;
  }
  if (!row) return P_FAIL("makeSymetricKey", "nEncAlg", penv::ERR_UNKNOWN_SYMMETRIC, penv::kUnknownSymmetric);
  QSRandom random;
  ByteString key, iv;
  if (row->nKey > 0) {
    if (int rc = random.GenerateRandom(QSAlgorithm::Random(), row->nKey, key)) {
      return P_FAIL("makeSymetricKey", "random.GenerateRandom", rc, random.GetErrorMsg().c_str());
    }
  }
  if (int rc = random.GenerateRandom(QSAlgorithm::Random(), row->nIv, iv)) {
    key.zeroize();
    return P_FAIL("makeSymetricKey", "random.GenerateRandom", rc, random.GetErrorMsg().c_str());
  }
  setSymmetricKey(nEncAlg, key, iv);
  bsKey = key;
  bsIv = iv;
  key.zeroize();
  return 0;
}

void PEnvelopedData::setSymmetricKey(int nEncAlg, const ByteString& bsKey, const ByteString& bsIv) {
  m_nSymmetricAlgorithmId = nEncAlg;
  m_nSymmetricMode = QSAlgorithm::ModeCBC();
  m_bsKey.zeroize();
  m_bsKey = bsKey;
  m_bsIv = bsIv;
}

void PEnvelopedData::setOriginator(const ByteString& bsCertOrPubKeyInfo, int nOriginatorIdentifierorKey,
                                   const ByteString& bsPrivateKey) {
  m_bsOriginatorCertOrPubKeyInfo = bsCertOrPubKeyInfo;
  m_nOriginatorIdentifierorKey = nOriginatorIdentifierorKey;
  m_bsOriginatorPrivateKey.zeroize();
  m_bsOriginatorPrivateKey = bsPrivateKey;
}

void PEnvelopedData::setKeyEncryptionKey(const ByteString& bsKEK, const ByteString& bsKeyIdentifier) {
  m_bsKEK.zeroize();
  m_bsKEK = bsKEK;
  m_bsKEKIdentifier = bsKeyIdentifier;
}

int PEnvelopedData::addRecipientByCert(const ByteString& bsCert) { return addRecipient(bsCert); }

int PEnvelopedData::addRecipient(const ByteString& bsCert) {
  static const char kM[] = "addRecipient";
  RRecipientInfo ri;
  int rc = 0;
  if (m_nRecipientType == penv::KEK_RECIPIENT_INFO) {
    rc = recipientInfoIsKEKRI(ri);
  } else if (m_nRecipientType == penv::KEY_TRANS_RECIPIENT_INFO || m_nRecipientType == penv::KEY_AGREE_RECIPIENT_INFO) {
    RCertificate cert;
    if ((rc = cert.fromASN1Object(bsCert)) != 0) return P_FAIL(kM, "cert", rc, cert.getErrorMessage().c_str());
    PPublicKey pk;
    ByteString spki;
    if ((rc = pk.getPublicKeyInfoFromCert(bsCert, PPublicKey::CERT_KIND_X509, spki)) != 0) {
      return P_FAIL(kM, "pk.getPublicKeyInfoFromCert", rc, pk.getErrorMessage().c_str());
    }
    const ByteString oid = cert.getTbsCertificate().getSubjectPublicKeyInfo().getAlgorithm().getAlgorithm().getOID();
    if (oid == poid::kDSA || oid == poid::kKCDSA) return P_FAIL(kM, "bsAlgorithm", penv::ERR_DSA_KCDSA, penv::kDsaKcdsa);
    Recipient recipient{bsCert, cert, spki, oid};
    rc = m_nRecipientType == penv::KEY_TRANS_RECIPIENT_INFO ? recipientInfoIsKTRI(recipient, ri)
                                                             : recipientInfoIsKARI(recipient, ri);
  } else {
    return P_FAIL(kM, "m_nRecipientType", penv::ERR_UNKNOWN_SYMMETRIC, penv::kRecipientTypeInput);
  }
  if (rc) return rc;
  m_pRecipientInfos.add(ri);
  return 0;
}

namespace {

// The recipient (or originator) named as the form asks: issuerAndSerialNumber
// or the key identifier of the certificate.
int NameCertificate(const ByteString& bsCert, const RCertificate& cert, int nForm, RIssuerAndSerialNumber* pIas,
                    ASN1OctetString* pSki, ByteString* pTrace) {
  if (nForm == penv::SUBJECT_KEY_IDENTIFIER) {
    ByteString id;
    PEnvelopedDataProcess proc;
    if (int rc = proc.setRecipientIdentifier(bsCert)) {
      *pTrace = proc.getErrorMessage();
      return rc;
    }
    pSki->setValue(proc.getKeyIdentifier());
    return 0;
  }
  pIas->setIssuer(cert.getTbsCertificate().getIssuer());
  pIas->setSerialNumber(cert.getTbsCertificate().getSerialNumber());
  return 0;
}

}  // namespace

int PEnvelopedData::recipientInfoIsKTRI(const Recipient& recipient, RRecipientInfo& ri) {
  static const char kM[] = "recipientInfoIsKTRI";
  if (m_bsKey.length() == 0) return P_FAIL(kM, "m_bsKey", penv::ERR_SYMMETRIC_KEY_NOT_SET, penv::kSymmetricKeyNotSet);
  RKeyTransRecipientInfo ktri;
  RIssuerAndSerialNumber ias;
  ASN1OctetString ski;
  ByteString trace;
  const int form = m_nRecIdentifier == penv::SUBJECT_KEY_IDENTIFIER ? penv::SUBJECT_KEY_IDENTIFIER
                                                                     : penv::ISSUERANDSERIALNUMBER;
  if (int rc = NameCertificate(recipient.der, recipient.cert, form, &ias, &ski, &trace)) {
    return P_FAIL(kM, "rid", rc, trace.c_str());
  }
  if (form == penv::SUBJECT_KEY_IDENTIFIER) {
    ktri.getRid().setSubjectKeyIdentifier(ski);
    ktri.setVersion(ASN1Integer(2));
  } else {
    ktri.getRid().setIssuerAndSerialNumber(ias);
    ktri.setVersion(ASN1Integer(0));
  }
  const bool rsa = recipient.oid == poid::kRSA;
  RAlgorithmIdentifier keyAlg;
  if (rsa && m_bOaep) {
    // RSAES-OAEP-params with every member at its SHA-1 default: an empty SEQUENCE.
    keyAlg.fromASN1Object(AlgorithmID(poid::kRSAES_OAEP, ByteString("\x30\x00", 2)));
  } else if (rsa) {
    keyAlg.fromASN1Object(AlgorithmID(poid::kRSA, kNull));
  } else {
    keyAlg = recipient.cert.getTbsCertificate().getSubjectPublicKeyInfo().getAlgorithm();
  }
  ktri.setKeyEncryptionAlgorithm(keyAlg);
  PPublicKey pk;
  ByteString encrypted;
  if (int rc = pk.encrypt(recipient.spki, rsa && m_bOaep, m_bsKey, encrypted)) {
    if (rc == 4) return P_FAIL(kM, "nLen", penv::ERR_OAEP_SIZE, penv::kOaepOnly);
    return P_FAIL(kM, "pk.encrypt", rc, pk.getErrorMessage().c_str());
  }
  ktri.getEncryptedKey().setValue(encrypted);
  ri.setKtri(ktri);
  return 0;
}

int PEnvelopedData::keyWrapAlgorithm(const char* pszMethod, bool bKeyAgreement, ByteString& bsWrapAlgID) {
  const int nAlg = m_nSymmetricAlgorithmId;
  if (nAlg == QSAlgorithm::TripleDES()) {
    bsWrapAlgID = AlgorithmID(poid::kTripleDESWrap, kNull);
    return 0;
  }
  if (const int version = RC2Version(nAlg)) {
    bsWrapAlgID = AlgorithmID(poid::kRC2Wrap, ASN1Integer(version).toASN1Object());
    return 0;
  }
  if (!bKeyAgreement) {
    return P_FAIL(pszMethod, "m_nSymmetricAlgorithmId", penv::ERR_KEK_ALG_NOT_SUPPORTED, penv::kKekAlgNotSupported);
  }
  return P_FAILF(pszMethod, "m_nSymmetricAlgorithmId", penv::ERR_SYM_ALG_NOT_SUPPORTED,
                 nAlg < 3000 || nAlg > 3200 ? penv::kSymAlgAlgorithmNotSupported : penv::kSymAlgNotSupported, nAlg);
}

int PEnvelopedData::wrapKey(const char* pszMethod, const ByteString& bsKEK, ByteString& bsWrapped) {
  PKEKAlgorithm wrap;
  const int rc = m_nSymmetricAlgorithmId == QSAlgorithm::TripleDES()
                     ? wrap.wrapTripleDESKey(bsKEK, m_bsKey, bsWrapped)
                     : wrap.wrapRC2Key(m_nSymmetricAlgorithmId, bsKEK, m_bsKey, bsWrapped);
  return rc ? P_FAIL(pszMethod, "kek.wrap", rc, wrap.getErrorMessage().c_str()) : 0;
}

int PEnvelopedData::recipientInfoIsKARI(const Recipient& recipient, RRecipientInfo& ri) {
  static const char kM[] = "recipientInfoIsKARI";
  if (m_bsOriginatorCertOrPubKeyInfo.length() == 0 || m_bsOriginatorPrivateKey.length() == 0) {
    return P_FAIL(kM, "m_bsOriginatorCertOrPubKeyInfo", penv::ERR_SET_ORIGINATOR, penv::kSetOriginator);
  }
  const int origForm = m_nOriginatorIdentifierorKey;
  if (origForm != penv::ISSUERANDSERIALNUMBER && origForm != penv::SUBJECT_KEY_IDENTIFIER &&
      origForm != penv::ORIGINATOR_KEY) {
    return P_FAIL(kM, "m_nOriginatorIdentifierorKey", penv::ERR_CHOOSE_ORIGINATOR, penv::kChooseOriginator);
  }
  if (m_nRecIdentifier != penv::ISSUERANDSERIALNUMBER && m_nRecIdentifier != penv::SUBJECT_KEY_IDENTIFIER) {
    return P_FAIL(kM, "m_nRecIdentifier", penv::ERR_CHOOSE_RECIPIENT_ID, penv::kChooseRecipientId);
  }
  if (m_bsKey.length() == 0) return P_FAIL(kM, "m_bsKey", penv::ERR_SYMMETRIC_KEY_NOT_SET, penv::kSymmetricKeyNotSet);

  // The originator: a certificate, or (named by its key only) a SubjectPublicKeyInfo.
  RCertificate origCert;
  const bool origIsCert = origCert.fromASN1Object(m_bsOriginatorCertOrPubKeyInfo) == 0;
  RSubjectPublicKeyInfo origKey;
  if (origIsCert) {
    origKey = origCert.getTbsCertificate().getSubjectPublicKeyInfo();
  } else if (origForm != penv::ORIGINATOR_KEY || origKey.fromASN1Object(m_bsOriginatorCertOrPubKeyInfo) != 0) {
    return P_FAIL(kM, "m_bsOriginatorCertOrPubKeyInfo", penv::ERR_SET_ORIGINATOR, penv::kSetOriginator);
  }

  const ByteString& oid = recipient.oid;
  const char* agreement = nullptr;
  if (oid == poid::kDH) {
    agreement = origForm == penv::ORIGINATOR_KEY ? penv::kOidESDH : penv::kOidSSDH;
  } else if (oid == poid::kECPublicKey) {
    if (m_bEcmqv) return P_FAIL(kM, "m_bEcmqv", penv::ERR_ECMQV, penv::kEcmqv);
    agreement = penv::kOidStdDHSha1Kdf;
  } else {
    return P_FAIL(kM, "bsAlgorithm", penv::ERR_UNKNOWN_KEY_AGREEMENT, penv::kUnknownKeyAgreement);
  }
  ByteString wrapAlgID;
  if (int rc = keyWrapAlgorithm(kM, true, wrapAlgID)) return rc;

  QSRandom random;
  ByteString ukm, kek, wrapped;
  if (int rc = random.GenerateRandom(QSAlgorithm::Random(), 64, ukm)) {
    return P_FAIL(kM, "random.GenerateRandom", rc, random.GetErrorMsg().c_str());
  }
  PPublicKey pk;
  if (int rc = pk.encrypt(recipient.spki, m_bsOriginatorPrivateKey, m_nSymmetricAlgorithmId, ukm, kek)) {
    return P_FAIL(kM, "pk.encrypt", rc, pk.getErrorMessage().c_str());
  }
  const int rcWrap = wrapKey(kM, kek, wrapped);
  kek.zeroize();
  if (rcWrap) return rcWrap;

  RKeyAgreeRecipientInfo kari;
  kari.setVersion(ASN1Integer(3));
  RIssuerAndSerialNumber ias;
  ASN1OctetString ski;
  ByteString trace;
  if (origForm == penv::ORIGINATOR_KEY) {
    ROriginatorPublicKey opk;
    opk.setAlgorithm(origKey.getAlgorithm());
    opk.setPublicKey(origKey.getSubjectPublicKey());
    kari.getOriginator().setOriginatorKey(opk);
  } else if (int rc = NameCertificate(m_bsOriginatorCertOrPubKeyInfo, origCert, origForm, &ias, &ski, &trace)) {
    return P_FAIL(kM, "originator", rc, trace.c_str());
  } else if (origForm == penv::SUBJECT_KEY_IDENTIFIER) {
    kari.getOriginator().setSubjectKeyIdentifier(ski);
  } else {
    kari.getOriginator().setIssuerAndSerialNumber(ias);
  }
  ROctetString ukmOct;
  ukmOct.setValue(ukm);
  kari.setUkm(ukmOct);
  RAlgorithmIdentifier keyAlg;
  keyAlg.fromASN1Object(AlgorithmID(agreement, wrapAlgID));
  kari.setKeyEncryptionAlgorithm(keyAlg);

  RRecipientEncryptedKey rek;
  if (int rc = NameCertificate(recipient.der, recipient.cert, m_nRecIdentifier, &ias, &ski, &trace)) {
    return P_FAIL(kM, "rid", rc, trace.c_str());
  }
  if (m_nRecIdentifier == penv::SUBJECT_KEY_IDENTIFIER) {
    RRecipientKeyIdentifier rkid;
    rkid.setSubjectKeyIdentifier(ski);
    rek.getRid().setRKeyId(rkid);
  } else {
    rek.getRid().setIssuerAndSerialNumber(ias);
  }
  rek.getEncryptedKey().setValue(wrapped);
  kari.getRecipientEncryptedKeys().add(rek);
  ri.setKari(kari);
  return 0;
}

int PEnvelopedData::recipientInfoIsKEKRI(RRecipientInfo& ri) {
  static const char kM[] = "recipientInfoIsKEKRI";
  if (m_bsKey.length() == 0) return P_FAIL(kM, "m_bsKey", penv::ERR_CEK_NOT_SET, penv::kCekNotSet);
  if (m_bsKEK.length() == 0) return P_FAIL(kM, "m_bsKEK", penv::ERR_KEK_NOT_SET, penv::kKekNotSet);
  ByteString wrapAlgID, wrapped;
  if (int rc = keyWrapAlgorithm(kM, false, wrapAlgID)) return rc;
  if (int rc = wrapKey(kM, m_bsKEK, wrapped)) return rc;
  RKEKRecipientInfo kekri;
  kekri.setVersion(ASN1Integer(4));
  kekri.getKekid().getKeyIdentifier().setValue(m_bsKEKIdentifier);
  RAlgorithmIdentifier keyAlg;
  keyAlg.fromASN1Object(wrapAlgID);
  kekri.setKeyEncryptionAlgorithm(keyAlg);
  kekri.getEncryptedKey().setValue(wrapped);
  ri.setKekri(kekri);
  return 0;
}

int PEnvelopedData::makeEnvelopedData(const ByteString& bsContent, ByteString& bsDer) {
  static const char kM[] = "makeEnvelopedData";
  if (m_bsIv.length() == 0) return P_FAIL(kM, "m_bsKey", penv::ERR_SYMMETRIC_KEY_NOT_SET, penv::kSymmetricKeyNotSet);
  if (m_pRecipientInfos.getCount() == 0) {
    return P_FAIL(kM, "m_pRecipientInfos", penv::ERR_NO_RECIPIENT, penv::kNoRecipient);
  }
  QSEncrypt encrypt;
  ByteString cipher;
  if (int rc = encrypt.EncryptData(m_nSymmetricAlgorithmId, m_nSymmetricMode, QSAlgorithm::PaddingPKCS(), m_bsKey,
                                   m_bsIv, bsContent, cipher)) {
    return P_FAIL(kM, "encrypt.EncryptData", rc, encrypt.GetErrorMsg().c_str());
  }
  PAlgorithmUtil algUtil;
  REncryptedContentInfo eci;
  if (int rc = algUtil.makeSymmetricAlgID(m_nSymmetricAlgorithmId, m_nSymmetricMode, m_bsIv,
                                          eci.getContentEncryptionAlgorithm())) {
    return P_FAIL(kM, "algUtil.makeSymmetricAlgID", rc, algUtil.getErrorMessage().c_str());
  }
  eci.getContentType().setOID(penv::kOidData);
  ROctetString content;
  content.setValue(cipher);
  eci.setEncryptedContent(content);

  // RFC 5652 6.1: version 0 when every RecipientInfo is a version 0 key
  // transport entry, 2 otherwise (no originatorInfo or attributes here).
  int version = 0;
  for (const RRecipientInfo& ri : m_pRecipientInfos.items()) {
    if (!ri.isKtri() || ri.getKtri().getVersion().getInteger() != 0) version = 2;
  }
  REnvelopedData env;
  env.setVersion(ASN1Integer(version));
  env.setRecipientInfos(m_pRecipientInfos);
  env.setEncryptedContentInfo(eci);
  const ByteString& envDer = env.toASN1Object();
  if (envDer.length() == 0) return P_FAIL(kM, "envelopedData", env.getErrorCode(), env.getErrorMessage().c_str());

  RContentInfo ci;
  ci.getContentType().setOID(penv::kOidEnvelopedData);
  RAny any;
  any.setElement(envDer);
  ci.setContent(any);
  const ByteString& der = ci.toASN1Object();
  if (der.length() == 0) return P_FAIL(kM, "contentInfo", ci.getErrorCode(), ci.getErrorMessage().c_str());
  bsDer = der;
  return 0;
}
