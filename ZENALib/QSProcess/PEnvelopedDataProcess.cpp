#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RRC2_CBC_Parameter.h"
#include "ZENALib/ASN1Pkix/RRSAES_OAEP_params.h"
#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PKEKAlgorithm.h"
#include "ZENALib/QSProcess/PPrivateKey.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "ZENALib/QSProcess/UDNSettings.h"

namespace {

// RC2 parameter versions (RFC 2268 6) and the RC2 codes they name.
struct RC2Row {
  int nVersion, nAlg;
};
constexpr RC2Row kRC2[] = {{160, 3050}, {120, 3051}, {58, 3052}, {256, 3054}};

int RC2Code(int nVersion) {
  for (const RC2Row& r : kRC2) {
    if (r.nVersion == nVersion) return r.nAlg;
  }
  return 0;
}

// The identifiers of a certificate that a RecipientInfo can name it by.
struct CertIds {
  ByteString issuerDN, serial, keyHash, ski;
};

int ReadCertIds(const ByteString& bsCert, CertIds* ids, ByteString* trace) {
  PCertUtil util;
  if (int rc = util.parseCertificate(bsCert)) {
    *trace = util.getErrorMessage();
    return rc;
  }
  RRDNSequence issuer;
  util.getIssuer(&issuer);
  if (int rc = UDNSettings::RDN2Str(issuer, &ids->issuerDN)) {
    *trace = penv::kMakeDNFailed;
    return rc;
  }
  util.getSerialNumber(&ids->serial);
  ByteString bits;
  util.getSubjectPublicKey(&bits);
  QSHash hash;
  if (int rc = hash.DigestData(QSAlgorithm::SHA1(), bits, ids->keyHash)) {
    *trace = hash.GetErrorMsg();
    return rc;
  }
  if (util.get_SubjectKeyIdentifier_value(&ids->ski)) ids->ski.clear();
  return 0;
}

// The code of an RC2 or Triple-DES key-wrap AlgorithmIdentifier: 0 with
// *pnAlg set, 1 for another algorithm, 2 for an RC2 version without a code
// (*pnVersion set).
int WrapCode(RAlgorithmIdentifier& alg, int* pnAlg, int* pnVersion) {
  const ByteString oid = alg.getAlgorithm().getOID();
  if (oid == poid::kTripleDESWrap) {
    *pnAlg = QSAlgorithm::TripleDES();
    return 0;
  }
  if (oid != poid::kRC2Wrap) return 1;
  ASN1Integer version;
  *pnVersion = -1;
  if (alg.hasParameters() && version.fromASN1Object(alg.getParameters().getElement()) == 0) {
    *pnVersion = version.getInteger();
  }
  *pnAlg = RC2Code(*pnVersion);
  return *pnAlg ? 0 : 2;
}

}  // namespace

PEnvelopedDataProcess::PEnvelopedDataProcess() : PTrace("PEnvelopedDataProcess") {}

PEnvelopedDataProcess::~PEnvelopedDataProcess() {
  m_bsKeyOf.zeroize();
  m_bsKEK.zeroize();
  m_bsPrivateKey.zeroize();
  m_bsCEK.zeroize();
}

int PEnvelopedDataProcess::getPureEnvData(const ByteString& bsDer, ByteString& bsEnvData) {
  RContentInfo ci;
  if (int rc = ci.fromASN1Object(bsDer)) {
    return P_FAIL("getPureEnvData", "contentInfo", rc, ci.getErrorMessage().c_str());
  }
  if (ci.getContentType().getOID() != penv::kOidEnvelopedData || !ci.hasContent()) {
    return P_FAIL("getPureEnvData", "contentType", penv::ERR_NOT_ENVELOPED_DATA, penv::kNotEnvelopedData);
  }
  bsEnvData = ci.getContent().getElement();
  return 0;
}

int PEnvelopedDataProcess::setRecipientIdentifier(const ByteString& bsCert) {
  CertIds ids;
  ByteString trace;
  if (int rc = ReadCertIds(bsCert, &ids, &trace)) return P_FAIL("setRecipientIdentifier", "cert", rc, trace.c_str());
  m_bsIssuerDN = ids.issuerDN;
  m_bsSerial = ids.serial;
  m_bsKeyHash = ids.keyHash;
  m_bsSubjectKeyIdentifier = ids.ski;
  return 0;
}

void PEnvelopedDataProcess::setKeyEncryptionKey(const ByteString& bsKEK, const ByteString& bsKeyIdentifier) {
  m_bsKEK.zeroize();
  m_bsKEK = bsKEK;
  m_bsKEKIdentifier = bsKeyIdentifier;
}

int PEnvelopedDataProcess::decodeEnvelopedData(const ByteString& bsDer) {
  m_bDecoded = false;
  m_nRecipientIndex = -1;
  m_bsCEK.zeroize();
  // A ContentInfo starts with its content type (an OID), an EnvelopedData
  // with its version (an INTEGER).
  RElementHeader h;
  ByteString env;
  if (RReadHeader(bsDer.data(), bsDer.length(), &h) == 0 && h.headerLength < bsDer.length() &&
      bsDer.data()[h.headerLength] == ASN1_TAG_OID) {
    if (int rc = getPureEnvData(bsDer, env)) return rc;
  } else {
    env = bsDer;
  }
  m_env = REnvelopedData();
  if (int rc = m_env.fromASN1Object(env)) {
    return P_FAIL("parseEnvelopedData", "envelopedData", rc, m_env.getErrorMessage().c_str());
  }
  m_bDecoded = true;
  return 0;
}

int PEnvelopedDataProcess::parseEnvelopedData(const ByteString& bsDer, const ByteString& bsPrivateKey) {
  if (int rc = decodeEnvelopedData(bsDer)) return rc;
  m_bsPrivateKey.zeroize();
  m_bsPrivateKey = bsPrivateKey;
  int rc = findMyRecipientInfo();
  m_bsPrivateKey.zeroize();
  if (rc) return rc;
  return contentAlgorithm();
}

int PEnvelopedDataProcess::findMyRecipientInfo() {
  static const char kM[] = "findMyRecipientInfo";
  RRecipientInfos& infos = m_env.getRecipientInfos();
  // An entry of a kind we cannot open (a password or other recipient) may
  // stand before ours: it is refused only when no entry is ours.
  bool unknown = false;
  for (int i = 0; i < infos.getCount(); ++i) {
    RRecipientInfo& ri = *infos.getAt(i);
    bool found = false;
    int rc = 0;
    if (ri.isKtri()) {
      rc = findInKeyTransRecipientInfo(ri.getKtri(), &found);
    } else if (ri.isKari()) {
      rc = findInKeyAgreeRecipientInfo(ri.getKari(), &found);
    } else if (ri.isKekri()) {
      rc = findInKEKRecipientInfo(ri.getKekri(), &found);
    } else {
      unknown = true;
    }
    if (rc) return rc;
    if (found) {
      m_nRecipientIndex = i;
      return 0;
    }
  }
  if (unknown) {
    return P_FAIL(kM, "recipientInfo", penv::ERR_UNKNOWN_RECIPIENT_INFO_TYPE, penv::kUnknownRecipientInfoType);
  }
  return P_FAIL(kM, "recipientInfos", penv::ERR_NOT_IN_RECIPIENT_INFOS, penv::kNotInRecipientInfos);
}

int PEnvelopedDataProcess::matchIssuerAndSerial(const char* pszMethod, const RIssuerAndSerialNumber& ias,
                                                bool* pbMatch) {
  ByteString dn;
  if (UDNSettings::RDN2Str(ias.getIssuer(), &dn)) {
    return P_FAIL(pszMethod, "UDNSettings::RDN2Str", penv::ERR_MAKE_DN, penv::kMakeDNFailed);
  }
  *pbMatch = m_bsIssuerDN.length() > 0 && dn == m_bsIssuerDN && ias.getSerialNumber().getValue() == m_bsSerial;
  return 0;
}

bool PEnvelopedDataProcess::matchKeyIdentifier(const ByteString& bsKeyId) const {
  return bsKeyId.length() > 0 && (bsKeyId == m_bsKeyHash || bsKeyId == m_bsSubjectKeyIdentifier);
}

int PEnvelopedDataProcess::findInKeyTransRecipientInfo(RKeyTransRecipientInfo& ktri, bool* pbFound) {
  static const char kM[] = "findInKeyTransRecipientInfo";
  *pbFound = false;
  bool match = false;
  if (ktri.getRid().isIssuerAndSerialNumber()) {
    if (int rc = matchIssuerAndSerial(kM, ktri.getRid().getIssuerAndSerialNumber(), &match)) return rc;
  } else if (ktri.getRid().isSubjectKeyIdentifier()) {
    match = matchKeyIdentifier(ktri.getRid().getSubjectKeyIdentifier().getValue());
  } else {
    return P_FAIL(kM, "rid", penv::ERR_UNKNOWN_RECIPIENT_ID, penv::kUnknownRecipientId);
  }
  if (!match) return 0;

  RAlgorithmIdentifier& alg = ktri.getKeyEncryptionAlgorithm();
  const ByteString oid = alg.getAlgorithm().getOID();
  const bool oaep = oid == poid::kRSAES_OAEP;
  if (oaep && alg.hasParameters()) {
    RRSAES_OAEP_params params;
    bool sha1 = params.fromASN1Object(alg.getParameters().getElement()) == 0;
    if (sha1 && params.hasHashAlgorithm()) {
      sha1 = params.getHashAlgorithm().getAlgorithm().getOID() == poid::kSHA1;
    }
    if (sha1 && params.hasMaskGenAlgorithm()) {
      RAlgorithmIdentifier mgfHash;
      RAlgorithmIdentifier& mgf = params.getMaskGenAlgorithm();
      sha1 = mgf.getAlgorithm().getOID() == poid::kMGF1 && mgf.hasParameters() &&
             mgfHash.fromASN1Object(mgf.getParameters().getElement()) == 0 &&
             mgfHash.getAlgorithm().getOID() == poid::kSHA1;
    }
    if (!sha1) return P_FAIL(kM, "hashAlgorithm", penv::ERR_ONLY_SHA1_OAEP, penv::kOnlySha1Oaep);
  }
  if (int rc = decryptKey(kM, oaep, ktri.getEncryptedKey().getValue())) return rc;
  *pbFound = true;
  return 0;
}

int PEnvelopedDataProcess::decryptKey(const char* pszMethod, bool bOaep, const ByteString& bsEncrypted) {
  if (!m_pKey || m_bsKeyOf != m_bsPrivateKey) {
    m_pKey.reset();
    m_bsKeyOf.zeroize();
    RPrivateKeyInfo key;
    if (int rc = key.fromASN1Object(m_bsPrivateKey)) {
      return P_FAIL(pszMethod, "privateKeyInfo", rc, key.getErrorMessage().c_str());
    }
    const ByteString params = key.getPrivateKeyAlgorithm().hasParameters()
                                  ? key.getPrivateKeyAlgorithm().getParameters().getElement()
                                  : ByteString();
    PPrivateKey priv;
    int nAlg = 0;
    if (int rc = priv.GetPrivateKeyAlgorithm(key.getPrivateKeyAlgorithm().getAlgorithm().getOID(),
                                             key.getPrivateKey().getValue(), params, 0, &nAlg)) {
      return P_FAIL(pszMethod, "priKey.GetPrivateKeyAlgorithm", rc, priv.getErrorMessage().c_str());
    }
    const int nParseAlg = nAlg == QSAlgorithm::RSA512()    ? ecsp::kRSA512
                          : nAlg == QSAlgorithm::RSA1024() ? ecsp::kRSA1024
                                                           : ecsp::kRSA2048;
    std::unique_ptr<ECSP_KEY> parsed(new ECSP_KEY);
    if (int rc = ECSP_GenerateKey(nParseAlg, m_bsPrivateKey.data(), m_bsPrivateKey.length(), parsed.get())) {
      return P_FAIL(pszMethod, "ECSP_GenerateKey", rc, getECSPErrorText(rc));
    }
    m_pKey = std::move(parsed);
    m_bsKeyOf = m_bsPrivateKey;
    m_nKeyAlg = nAlg;
  }
  // The core's RSA numbers: PKCS#1 v1.5 by size, OAEP (SHA-1) for 1024 and 2048 bits.
  int nCore = m_nKeyAlg == QSAlgorithm::RSA512()    ? ecsp::kRSA512
              : m_nKeyAlg == QSAlgorithm::RSA1024() ? (bOaep ? ecsp::kRSAOAEP1024 : ecsp::kRSA1024)
              : m_nKeyAlg == QSAlgorithm::RSA2048() ? (bOaep ? ecsp::kRSAOAEP2048 : ecsp::kRSA2048)
                                                    : 0;
  if (bOaep && nCore == ecsp::kRSA512) nCore = 0;
  if (!nCore) return P_FAIL(pszMethod, "nAlg", penv::ERR_OAEP_SIZE, penv::kOaepOnly);
  ByteString out;
  int nOut = ECSP_GetOutputLength(nCore, ECSP_MODE_CBC, ECSP_PAD_PKCS, bsEncrypted.length(), false);
  if (nOut <= 0 || out.resize(nOut) != BS_OK) return P_FAIL(pszMethod, "ECSP_DecryptData", ECSP_MEMORY_ERROR, "");
  if (int rc = ECSP_DecryptData(nCore, ECSP_MODE_CBC, ECSP_PAD_PKCS, m_pKey.get(), nullptr, 0, bsEncrypted.data(),
                                bsEncrypted.length(), out.buffer(), &nOut)) {
    out.zeroize();
    return P_FAIL(pszMethod, "ECSP_DecryptData", rc, getECSPErrorText(rc));
  }
  m_bsCEK.zeroize();
  m_bsCEK = out.mid(0, nOut);
  out.zeroize();
  return 0;
}

int PEnvelopedDataProcess::unwrapKey(const char* pszMethod, RAlgorithmIdentifier& wrapAlg, const ByteString& bsKEK,
                                     const ByteString& bsWrapped, int nUnknownCode, const char* pszUnknown) {
  int nAlg = 0, nVersion = 0;
  switch (WrapCode(wrapAlg, &nAlg, &nVersion)) {
    case 1:
      return P_FAILF(pszMethod, "bsKeyWrapAlgorithm", nUnknownCode, pszUnknown,
                     wrapAlg.getAlgorithm().getOID().c_str());
    case 2:
      return P_FAILF(pszMethod, "lRC2Version", penv::ERR_RC2_VERSION, penv::kRC2VersionNotSupported, nVersion);
    default:
      break;
  }
  PKEKAlgorithm kek;
  const int rc = nAlg == QSAlgorithm::TripleDES() ? kek.unwrapTripleDESKey(bsKEK, bsWrapped, m_bsCEK)
                                                  : kek.unwrapRC2Key(nAlg, bsKEK, bsWrapped, m_bsCEK);
  return rc ? P_FAIL(pszMethod, "kek.unwrap", rc, kek.getErrorMessage().c_str()) : 0;
}

int PEnvelopedDataProcess::findInKeyAgreeRecipientInfo(RKeyAgreeRecipientInfo& kari, bool* pbFound) {
  static const char kM[] = "findInKeyAgreeRecipientInfo";
  *pbFound = false;
  if (kari.getVersion().getInteger() != 3) {
    return P_FAIL(kM, "version", penv::ERR_KARI_VERSION, penv::kKariVersion);
  }
  ROriginatorIdentifierOrKey& originator = kari.getOriginator();
  if (!originator.isIssuerAndSerialNumber() && !originator.isSubjectKeyIdentifier() && !originator.isOriginatorKey()) {
    return P_FAIL(kM, "originator", penv::ERR_UNKNOWN_ORIGINATOR, penv::kUnknownOriginator);
  }
  RRecipientEncryptedKey* mine = nullptr;
  RRecipientEncryptedKeys& keys = kari.getRecipientEncryptedKeys();
  for (int i = 0; i < keys.getCount() && !mine; ++i) {
    RKeyAgreeRecipientIdentifier& rid = keys.getAt(i)->getRid();
    bool match = false;
    if (rid.isIssuerAndSerialNumber()) {
      if (int rc = matchIssuerAndSerial(kM, rid.getIssuerAndSerialNumber(), &match)) return rc;
    } else if (rid.isRKeyId()) {
      match = matchKeyIdentifier(rid.getRKeyId().getSubjectKeyIdentifier().getValue());
    } else {
      return P_FAIL(kM, "rid", penv::ERR_UNKNOWN_KARI_RID, penv::kUnknownKariRid);
    }
    if (match) mine = keys.getAt(i);
  }
  if (!mine) return 0;

  RAlgorithmIdentifier& alg = kari.getKeyEncryptionAlgorithm();
  const ByteString oid = alg.getAlgorithm().getOID();
  if (oid != penv::kOidESDH && oid != penv::kOidSSDH && oid != penv::kOidStdDHSha1Kdf &&
      oid != penv::kOidCofactorDHSha1Kdf) {
    return P_FAILF(kM, "bsAlgorithm", penv::ERR_ALGORITHM_UNKNOWN, penv::kAlgorithmUnknown, oid.c_str());
  }
  RAlgorithmIdentifier wrapAlg;
  if (!alg.hasParameters() || wrapAlg.fromASN1Object(alg.getParameters().getElement()) != 0) {
    return P_FAILF(kM, "bsKeyWrapAlgorithm", penv::ERR_KEY_WRAP_UNKNOWN, penv::kKeyWrapUnknown, "");
  }
  int nWrapAlg = 0, nVersion = 0;
  const int wrapRc = WrapCode(wrapAlg, &nWrapAlg, &nVersion);
  if (wrapRc == 1) {
    return P_FAILF(kM, "bsKeyWrapAlgorithm", penv::ERR_KEY_WRAP_UNKNOWN, penv::kKeyWrapUnknown,
                   wrapAlg.getAlgorithm().getOID().c_str());
  }
  if (wrapRc == 2) return P_FAILF(kM, "lRC2Version", penv::ERR_RC2_VERSION, penv::kRC2VersionNotSupported, nVersion);

  // The originator's public key as a SubjectPublicKeyInfo. A bare
  // originatorKey may leave its domain out (RFC 5753 7.1.1): it is ours.
  ByteString originatorKey;
  if (originator.isOriginatorKey()) {
    RPrivateKeyInfo key;
    if (int rc = key.fromASN1Object(m_bsPrivateKey)) {
      return P_FAIL(kM, "privateKeyInfo", rc, key.getErrorMessage().c_str());
    }
    RSubjectPublicKeyInfo spki;
    spki.setAlgorithm(originator.getOriginatorKey().getAlgorithm());
    const RAny& params = spki.getAlgorithm().getParameters();
    const bool noDomain = !spki.getAlgorithm().hasParameters() || params.getIdentifier() == ASN1_TAG_NULLTAG;
    if (noDomain && key.getPrivateKeyAlgorithm().hasParameters()) {
      spki.getAlgorithm().setParameters(key.getPrivateKeyAlgorithm().getParameters());
    }
    spki.setSubjectPublicKey(originator.getOriginatorKey().getPublicKey());
    originatorKey = spki.toASN1Object();
  } else if (int rc = findOriginaterPubKey(originator, originatorKey)) {
    return rc;
  }
  const ByteString ukm = kari.hasUkm() ? kari.getUkm().getValue() : ByteString();
  PPublicKey pk;
  ByteString kek;
  if (int rc = pk.encrypt(originatorKey, m_bsPrivateKey, nWrapAlg, ukm, kek)) {
    return P_FAIL(kM, "pk.encrypt", rc, pk.getErrorMessage().c_str());
  }
  const int rc = unwrapKey(kM, wrapAlg, kek, mine->getEncryptedKey().getValue(), penv::ERR_KEY_WRAP_UNKNOWN,
                           penv::kKeyWrapUnknown);
  kek.zeroize();
  if (rc) return rc;
  *pbFound = true;
  return 0;
}

int PEnvelopedDataProcess::findOriginaterPubKey(ROriginatorIdentifierOrKey& originator, ByteString& bsPubKeyInfo) {
  static const char kM[] = "findOriginaterPubKey";
  if (!m_env.hasOriginatorInfo() || !m_env.getOriginatorInfo().hasCerts() ||
      m_env.getOriginatorInfo().getCerts().getCount() == 0) {
    return P_FAIL(kM, "originatorInfo", penv::ERR_NEED_ORIGINATOR_CERT, penv::kNeedOriginatorCert);
  }
  RCertificateSet& certs = m_env.getOriginatorInfo().getCerts();
  for (int i = 0; i < certs.getCount(); ++i) {
    RCertificateChoices& choice = *certs.getAt(i);
    if (!choice.isCertificate()) return P_FAIL(kM, "certificate", penv::ERR_ONLY_X509, penv::kOnlyX509);
    const ByteString der = choice.getCertificate().toASN1Object();
    CertIds ids;
    ByteString trace;
    if (int rc = ReadCertIds(der, &ids, &trace)) return P_FAIL(kM, "cert", rc, trace.c_str());
    bool match = false;
    if (originator.isIssuerAndSerialNumber()) {
      ByteString dn;
      RIssuerAndSerialNumber& ias = originator.getIssuerAndSerialNumber();
      if (UDNSettings::RDN2Str(ias.getIssuer(), &dn)) {
        return P_FAIL(kM, "UDNSettings::RDN2Str", penv::ERR_MAKE_DN, penv::kMakeDNFailed);
      }
      match = dn == ids.issuerDN && ias.getSerialNumber().getValue() == ids.serial;
    } else {
      const ByteString& id = originator.getSubjectKeyIdentifier().getValue();
      match = id.length() > 0 && (id == ids.keyHash || id == ids.ski);
    }
    if (match) {
      bsPubKeyInfo = choice.getCertificate().getTbsCertificate().getSubjectPublicKeyInfo().toASN1Object();
      return 0;
    }
  }
  return P_FAIL(kM, "originator", penv::ERR_FIND_ORIGINATOR, penv::kFindOriginatorFailed);
}

int PEnvelopedDataProcess::findInKEKRecipientInfo(RKEKRecipientInfo& kekri, bool* pbFound) {
  static const char kM[] = "findInKEKRecipientInfo";
  *pbFound = false;
  if (kekri.getVersion().getInteger() != 4) {
    return P_FAIL(kM, "version", penv::ERR_KEKRI_VERSION, penv::kKekriVersion);
  }
  if (m_bsKEK.length() == 0 || kekri.getKekid().getKeyIdentifier().getValue() != m_bsKEKIdentifier) return 0;
  if (int rc = unwrapKey(kM, kekri.getKeyEncryptionAlgorithm(), m_bsKEK, kekri.getEncryptedKey().getValue(),
                         penv::ERR_UNKNOWN_KEK_ALG, penv::kUnknownKekAlg)) {
    return rc;
  }
  *pbFound = true;
  return 0;
}

int PEnvelopedDataProcess::contentAlgorithm() {
  static const char kM[] = "parseEnvelopedData";
  RAlgorithmIdentifier& alg = m_env.getEncryptedContentInfo().getContentEncryptionAlgorithm();
  const ByteString oid = alg.getAlgorithm().getOID();
  const ByteString params = alg.hasParameters() ? alg.getParameters().getElement() : ByteString();
  int nVersion = 0;
  m_bsIv.clear();
  if (oid == poid::kRC2_CBC) {
    RRC2_CBC_Parameter rc2;
    if (params.length() == 0 || rc2.fromASN1Object(params) != 0) {
      return P_FAIL(kM, "rc2Param", penv::ERR_IV_NOT_EXIST, penv::kIVNotExist);
    }
    nVersion = rc2.hasRc2ParameterVersion() ? rc2.getRc2ParameterVersion().getInteger() : 32;
    m_bsIv = rc2.getIv().getValue();
  } else if (oid != penv::kOidCipher3060) {
    ASN1OctetString iv;
    if (params.length() == 0 || iv.fromASN1Object(params) != 0) {
      return P_FAIL(kM, "iv", penv::ERR_IV_NOT_EXIST, penv::kIVNotExist);
    }
    m_bsIv = iv.getValue();
  }
  PAlgorithmUtil util;
  if (int rc = util.oid2code(oid, nVersion, &m_nContentAlg, &m_nContentMode)) {
    return P_FAIL(kM, "algUtil.oid2code", rc, util.getErrorMessage().c_str());
  }
  return 0;
}

int PEnvelopedDataProcess::getContent(ByteString& bsContent) {
  static const char kM[] = "getContent";
  if (!m_bDecoded || m_nRecipientIndex < 0) return P_FAIL(kM, "m_bsCEK", penv::ERR_NOT_PARSED, penv::kNotInRecipientInfos);
  REncryptedContentInfo& eci = m_env.getEncryptedContentInfo();
  if (!eci.hasEncryptedContent()) {
    return P_FAIL(kM, "encryptedContent", penv::ERR_NO_ENCRYPTED_CONTENT, penv::kNoEncryptedContent);
  }
  QSEncrypt decrypt;
  if (int rc = decrypt.DecryptData(m_nContentAlg, m_nContentMode, QSAlgorithm::PaddingPKCS(), m_bsCEK, m_bsIv,
                                   eci.getEncryptedContent().getValue(), bsContent)) {
    return P_FAIL(kM, "decrypt.DecryptData", rc, decrypt.GetErrorMsg().c_str());
  }
  return 0;
}
