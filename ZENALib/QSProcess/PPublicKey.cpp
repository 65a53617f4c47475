#include "ZENALib/QSProcess/PPublicKey.h"

#include <cstring>
#include <string>

#include "ZENALib/ASN1Pkix/RECC_CMS_SharedInfo.h"
#include "ZENALib/ASN1Pkix/RKCDSAParameters.h"
#include "ZENALib/ASN1Pkix/ROtherInfo.h"
#include "ZENALib/ASN1Pkix/RRSAPublicKey.h"
#include "ZENALib/ASN1Pkix/RRSASSA_PSS_params.h"
#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"
#include "ZENALib/ASN1Pkix/RecpkParameters.h"
#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "ZENALib/QSProcess/PAlgorithmMessages.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PKeyDer.h"

namespace {

enum KeyKind { kKeyRSA, kKeyKCDSA, kKeyEC, kKeyDSA, kKeyDH, kKeyUnknown };

KeyKind KindOf(const ByteString& oid) {
  if (oid == poid::kRSA || oid == poid::kRSASSA_PSS) return kKeyRSA;
  if (oid == poid::kKCDSA || oid == poid::kKCDSA1) return kKeyKCDSA;
  if (oid == poid::kECPublicKey || oid == poid::kECKey2 || oid == poid::kECDSAWithSHA1) return kKeyEC;
  if (oid == poid::kDSA) return kKeyDSA;
  if (oid == poid::kDH) return kKeyDH;
  return kKeyUnknown;
}

// The parts of a SubjectPublicKeyInfo the operations need, read once.
struct KeyParts {
  ByteString oid;         // key algorithm OID text
  KeyKind kind = kKeyUnknown;
  ByteString params;      // parameters element, empty when absent
  ByteString key;         // subjectPublicKey contents without the unused-bits octet
};

struct CurveRow {
  const char* oid;
  int nSignAlg;
  int nAgreeAlg;  // library code of ECDH on the curve; 0: the core's own code below
  int nCoreAgree;
};
constexpr CurveRow kCurves[] = {
    {poid::kCurveK163, 7050, 6010, 0},
    {poid::kCurveC2PNB163V1, 7051, 6011, 0},
    {poid::kCurveP160, 7052, 0, ecsp::kECDH_P160},
};

const CurveRow* FindCurve(const ByteString& oid) {
  for (const CurveRow& r : kCurves) {
    if (oid == r.oid) return &r;
  }
  return nullptr;
}

int SizeCode(int nModulusBytes) {
  return nModulusBytes == 64 ? QSAlgorithm::RSA512() : nModulusBytes == 128 ? QSAlgorithm::RSA1024()
                                                   : nModulusBytes == 256   ? QSAlgorithm::RSA2048()
                                                                            : 0;
}

// The core's KCDSA key form, SEQUENCE { p, q, g, y }, from the parameters
// element and the subjectPublicKey (an INTEGER y); empty when they do not
// have that outline.
ByteString KcdsaCoreKey(const KeyParts& k) {
  pkeyder::Element params, pqg[3], y;
  if (!pkeyder::Read(k.params.data(), k.params.length(), &params) || pkeyder::Components(params, pqg, 3) != 3 ||
      !pkeyder::Read(k.key.data(), k.key.length(), &y) || y.first != 0x02 || y.n != k.key.length()) {
    return ByteString();
  }
  ByteString body(pqg[0].p, pqg[0].n + pqg[1].n + pqg[2].n);
  body.append(y.p, y.n);
  return pkeyder::Sequence(body);
}

// The modulus length of an RSA SubjectPublicKeyInfo read by a bounded walk
// of its outline, without building the structure objects (the common case
// of a certificate check); false sends the caller to the full decode, which
// also names what is wrong.
bool RsaModulusLength(const ByteString& bsSPKI, int* pnLen) {
  static const unsigned char kRsaOid[] = {0x06, 0x09, 0x2A, 0x86, 0x48, 0x86, 0xF7, 0x0D, 0x01, 0x01, 0x01};
  pkeyder::Element spki, parts[2], alg[2], key, rsa[2];
  if (!pkeyder::Read(bsSPKI.data(), bsSPKI.length(), &spki) || spki.n != bsSPKI.length() || spki.first != 0x30 ||
      pkeyder::Components(spki, parts, 2) != 2 || parts[0].n + parts[1].n != spki.contentLength() ||
      parts[0].first != 0x30 || parts[1].first != 0x03 || pkeyder::Components(parts[0], alg, 2) < 1 ||
      alg[0].n != static_cast<int>(sizeof(kRsaOid)) ||
      std::memcmp(alg[0].p, kRsaOid, sizeof(kRsaOid)) != 0 || parts[1].contentLength() < 2 ||
      parts[1].content()[0] != 0) {
    return false;
  }
  if (!pkeyder::Read(parts[1].content() + 1, parts[1].contentLength() - 1, &key) ||
      key.n != parts[1].contentLength() - 1 || key.first != 0x30 || pkeyder::Components(key, rsa, 2) != 2 ||
      rsa[0].first != 0x02 || rsa[1].first != 0x02 || rsa[0].n + rsa[1].n != key.contentLength()) {
    return false;
  }
  *pnLen = pkeyder::IntegerBytes(rsa[0]);
  return true;
}

// The key bytes the crypto core takes: KCDSA as SEQUENCE { p, q, g, y }; an
// EC key named by one of the other EC OIDs as an id-ecPublicKey
// SubjectPublicKeyInfo (the core reads the standard form only); others as
// they are.
ByteString CoreKey(const KeyParts& k, const ByteString& bsSPKI) {
  if (k.kind == kKeyKCDSA) return KcdsaCoreKey(k);
  if (k.kind != kKeyEC || k.oid == poid::kECPublicKey) return bsSPKI;
  RSubjectPublicKeyInfo spki;
  if (spki.fromASN1Object(bsSPKI) || spki.getAlgorithm().getAlgorithm().setOID(poid::kECPublicKey)) return bsSPKI;
  return spki.toASN1Object();
}

}  // namespace

// Splits the key (bounded: the structure class decodes it).
static int ReadKey(const ByteString& bsSPKI, KeyParts* k, ByteString* pTrace) {
  RSubjectPublicKeyInfo spki;
  if (int rc = spki.fromASN1Object(bsSPKI)) {
    *pTrace = spki.getErrorMessage();
    return rc;
  }
  k->oid = spki.getAlgorithm().getAlgorithm().getOID();
  k->kind = KindOf(k->oid);
  if (spki.getAlgorithm().hasParameters()) k->params = spki.getAlgorithm().getParameters().getElement();
  int unused = 0;
  k->key = spki.getSubjectPublicKey().getBitString(&unused);
  return 0;
}

int PPublicKey::GetPublicKeyAlgorithm(const ByteString& bsSubjectPublicKeyInfo, int nHashAlg, int* pnAlg) {
  static const char kM[] = "GetPublicKeyAlgorithm";
  KeyParts k;
  ByteString trace;
  if (ReadKey(bsSubjectPublicKeyInfo, &k, &trace)) return P_FAIL(kM, "subjectPublicKeyInfo", 1, trace.c_str());
  int nAlg = 0;
  const int hash = nHashAlg == 0 ? QSAlgorithm::SHA1() : nHashAlg;
  switch (k.kind) {
    case kKeyRSA: {
      RRSAPublicKey rsa;
      if (int rc = rsa.fromASN1Object(k.key)) return P_FAIL(kM, "rsaPublicKey", rc, rsa.getErrorMessage().c_str());
      pkeyder::Element n;
      const ByteString modulus = rsa.getModulus().toASN1Object();
      pkeyder::Read(modulus.data(), modulus.length(), &n);
      const int len = pkeyder::IntegerBytes(n);
      if (!(nAlg = SizeCode(len))) return P_FAILF(kM, "nLen", 5, pmsg::kRsaPublicKeyLength, len);
      break;
    }
    case kKeyKCDSA: {
      RKCDSAParameters params;
      if (int rc = params.fromASN1Object(k.params)) {
        return P_FAIL(kM, "kcdsaParams", rc, params.getErrorMessage().c_str());
      }
      const ByteString p = params.getP().toASN1Object();
      pkeyder::Element pe;
      pkeyder::Read(p.data(), p.length(), &pe);
      const int len = pkeyder::IntegerBytes(pe);
      const int index = len == 64 ? 0 : len == 128 ? 1 : len == 256 ? 2 : -1;
      if (hash == QSAlgorithm::SHA1()) {
        if (index < 0) return P_FAILF(kM, "nLen", 12, pmsg::kSha1KcdsaBits, len * 8);
        nAlg = QSAlgorithm::SHA1WithKCDSA512() + index;
      } else if (hash == QSAlgorithm::HAS160()) {
        if (index < 0) return P_FAILF(kM, "nLen", 12, pmsg::kHas160KcdsaBits, len * 8);
        nAlg = QSAlgorithm::HAS160WithKCDSA512() + index;
      } else {
        return P_FAILF(kM, "nHashAlg", 9, pmsg::kHashWithKcdsa, nHashAlg);
      }
      break;
    }
    case kKeyEC: {
      RecpkParameters params;
      if (k.params.length() > 0) {
        if (int rc = params.fromASN1Object(k.params)) {
          return P_FAIL(kM, "ecpkParams", rc, params.getErrorMessage().c_str());
        }
      }
      if (!params.isNamedCurve()) return P_FAIL(kM, "bsNamedCurve", 36, pmsg::kNamedCurveLength);
      const ByteString curve = params.getNamedCurve().getOID();
      if (hash == QSAlgorithm::SHA256()) return P_FAILF(kM, "bsNamedCurve", 40, pmsg::kNamedCurveNotSupported, curve.c_str());
      if (hash != QSAlgorithm::SHA1()) return P_FAIL(kM, "nHashAlg", 41, pmsg::kEcdsaOnlySha1Sha256);
      const CurveRow* row = FindCurve(curve);
      if (!row) return P_FAILF(kM, "bsNamedCurve", 39, pmsg::kNamedCurveNotSupported, curve.c_str());
      nAlg = row->nSignAlg;
      break;
    }
    case kKeyDSA:
    case kKeyDH:
      return P_FAILF(kM, "bsPublicKeyAlgorithm", 51, pmsg::kAlgorithmNotSupported, k.oid.c_str());
    default:
      return P_FAILF(kM, "bsPublicKeyAlgorithm", 50, pmsg::kPublicKeyAlgUnknown, k.oid.c_str());
  }
  if (pnAlg) *pnAlg = nAlg;
  return 0;
}

int PPublicKey::verifySignature(const ByteString& bsSubjectPublicKeyInfo, int nHashAlgo, bool bUsePss,
                                const ByteString& bsData, const ByteString& bsSignature) {
  static const char kM[] = "verifySignature";
  int len = 0;
  if (RsaModulusLength(bsSubjectPublicKeyInfo, &len)) {
    return verifyRsa(bsSubjectPublicKeyInfo, len, nHashAlgo, bUsePss, bsData, bsSignature);
  }
  KeyParts k;
  ByteString trace;
  if (ReadKey(bsSubjectPublicKeyInfo, &k, &trace)) return P_FAIL(kM, "subjectPublicKeyInfo", 1, trace.c_str());
  if (k.kind != kKeyRSA) {
    int nAlg = 0;
    if (int rc = GetPublicKeyAlgorithm(bsSubjectPublicKeyInfo, nHashAlgo, &nAlg)) return rc;
    const ByteString key = CoreKey(k, bsSubjectPublicKeyInfo);
    QSSign sign;
    if (int rc = sign.VerifyData(nAlg, key, bsData, bsSignature)) {
      return P_FAIL(kM, "sign.VerifyData", rc, sign.GetErrorMsg().c_str());
    }
    return 0;
  }
  RRSAPublicKey rsa;
  if (int rc = rsa.fromASN1Object(k.key)) return P_FAIL(kM, "rsaPublicKey", rc, rsa.getErrorMessage().c_str());
  const ByteString modulus = rsa.getModulus().toASN1Object();
  pkeyder::Element n;
  pkeyder::Read(modulus.data(), modulus.length(), &n);
  return verifyRsa(bsSubjectPublicKeyInfo, pkeyder::IntegerBytes(n), nHashAlgo, bUsePss, bsData, bsSignature);
}

int PPublicKey::verifyRsa(const ByteString& bsSubjectPublicKeyInfo, int len, int nHashAlgo, bool bUsePss,
                          const ByteString& bsData, const ByteString& bsSignature) {
  static const char kM[] = "verifySignature";
  const int size = SizeCode(len);
  const int hash = nHashAlgo == 0 ? QSAlgorithm::SHA1() : nHashAlgo;
  const bool md5 = hash == QSAlgorithm::MD5(), sha1 = hash == QSAlgorithm::SHA1(), sha256 = hash == QSAlgorithm::SHA256();
  if (bUsePss && (md5 || sha256)) return P_FAIL(kM, "bUsePss", 5, pmsg::kPssSha256Md5);
  int nAlg = 0, nCorePss = 0;
  if (size == QSAlgorithm::RSA512()) {
    if (bUsePss) return P_FAIL(kM, "bUsePss", 6, pmsg::kPssOnly1024_2048);
    nAlg = md5 ? QSAlgorithm::MD5WithRSA512() : sha1 ? QSAlgorithm::SHA1WithRSA512() : 0;
    if (!nAlg) return P_FAILF(kM, "nHashAlgo", 7, pmsg::kRsaHashNotSupported, nHashAlgo);
  } else if (size == QSAlgorithm::RSA1024()) {
    nAlg = md5 ? QSAlgorithm::MD5WithRSA1024() : sha1 ? QSAlgorithm::SHA1WithRSA1024()
                                      : sha256 ? QSAlgorithm::SHA256WithRSA1024() : 0;
    if (!nAlg) return P_FAILF(kM, "nHashAlgo", 8, pmsg::kRsaHashNotSupported, nHashAlgo);
    if (bUsePss) nAlg = QSAlgorithm::RSAPSSWithSHA1_1024(), nCorePss = ecsp::kPSSSHA1RSA1024;
  } else if (size == QSAlgorithm::RSA2048()) {
    nAlg = md5 ? QSAlgorithm::MD5WithRSA2048() : sha1 ? QSAlgorithm::SHA1WithRSA2048()
                                      : sha256 ? QSAlgorithm::SHA256WithRSA2048() : 0;
    if (!nAlg) return P_FAILF(kM, "nHashAlgo", 9, pmsg::kRsaHashNotSupported, nHashAlgo);
    if (bUsePss) nAlg = QSAlgorithm::RSAPSSWithSHA1_2048(), nCorePss = ecsp::kPSSSHA1RSA2048;
  } else {
    return P_FAILF(kM, "nKeySize", 14, pmsg::kRsaSignatureSize, len * 8);
  }
  if (bsSignature.length() != len) return P_FAIL(kM, "bsSignature", 15, pmsg::kSignatureLength);
  if (nCorePss) {
    // The service classes have no number for RSA-PSS; the core has.
    const int rc = ECSP_VerifyData(nCorePss, bsSubjectPublicKeyInfo.data(), bsSubjectPublicKeyInfo.length(),
                                   bsData.data(), bsData.length(), bsSignature.data(), bsSignature.length());
    return rc ? P_FAIL(kM, "ECSP_VerifyData", rc, getECSPErrorText(rc)) : 0;
  }
  QSSign sign;
  if (int rc = sign.VerifyData(nAlg, bsSubjectPublicKeyInfo, bsData, bsSignature)) {
    return P_FAIL(kM, "sign.VerifyData", rc, sign.GetErrorMsg().c_str());
  }
  return 0;
}

int PPublicKey::getPublicKeyInfoFromCert(const ByteString& bsCert, int unCertKind, ByteString& bsSubjectPublicKeyInfo) {
  if (unCertKind != CERT_KIND_X509) return P_FAIL("getPublicKeyInfoFromCert", "unCertKind", 1, pmsg::kUnknownCertType);
  pkeyder::Element spki;
  if (!pkeyder::CertificateSPKI(bsCert, &spki)) return P_FAIL("getPublicKeyInfoFromCert", "bsCert", 2, nullptr);
  bsSubjectPublicKeyInfo.setData(spki.p, spki.n);
  return 0;
}

int PPublicKey::verifySignatureWithCert(const ByteString& bsCert, int nHashAlgo, bool bUsePss,
                                        const ByteString& bsData, const ByteString& bsSignature) {
  ByteString spki;
  if (int rc = getPublicKeyInfoFromCert(bsCert, CERT_KIND_X509, spki)) return rc;
  return verifySignature(spki, nHashAlgo, bUsePss, bsData, bsSignature);
}

namespace {

// What a signature OID asks for: the core scheme and digest, and the key
// kind it needs.
struct SignRow {
  const char* oid;
  int nScheme;
  int nDigest;
  KeyKind key;
};
constexpr SignRow kSignRows[] = {
    {poid::kMD5WithRSA, ECSP_SCHEME_RSA_PKCS1, ecsp::kMD5, kKeyRSA},
    {poid::kSHA1WithRSA, ECSP_SCHEME_RSA_PKCS1, ecsp::kSHA1, kKeyRSA},
    {poid::kSHA224WithRSA, ECSP_SCHEME_RSA_PKCS1, ecsp::kSHA224, kKeyRSA},
    {poid::kSHA256WithRSA, ECSP_SCHEME_RSA_PKCS1, ecsp::kSHA256, kKeyRSA},
    {poid::kSHA384WithRSA, ECSP_SCHEME_RSA_PKCS1, ecsp::kSHA384, kKeyRSA},
    {poid::kSHA512WithRSA, ECSP_SCHEME_RSA_PKCS1, ecsp::kSHA512, kKeyRSA},
    {poid::kRSASSA_PSS, ECSP_SCHEME_RSA_PSS, 0, kKeyRSA},
    {poid::kECDSAWithSHA1, ECSP_SCHEME_ECDSA, ecsp::kSHA1, kKeyEC},
    {poid::kECDSAWithSHA224, ECSP_SCHEME_ECDSA, ecsp::kSHA224, kKeyEC},
    {poid::kECDSAWithSHA256, ECSP_SCHEME_ECDSA, ecsp::kSHA256, kKeyEC},
    {poid::kECDSAWithSHA384, ECSP_SCHEME_ECDSA, ecsp::kSHA384, kKeyEC},
    {poid::kECDSAWithSHA512, ECSP_SCHEME_ECDSA, ecsp::kSHA512, kKeyEC},
    {poid::kDSAWithSHA1, ECSP_SCHEME_DSA, ecsp::kSHA1, kKeyDSA},
    {"2 16 840 1 101 3 4 3 1", ECSP_SCHEME_DSA, ecsp::kSHA224, kKeyDSA},
    {"2 16 840 1 101 3 4 3 2", ECSP_SCHEME_DSA, ecsp::kSHA256, kKeyDSA},
    {poid::kSHA1WithKCDSA, ECSP_SCHEME_KCDSA, ecsp::kSHA1, kKeyKCDSA},
    {poid::kHAS160WithKCDSA, ECSP_SCHEME_KCDSA, ecsp::kHAS160, kKeyKCDSA},
    {poid::kSHA1WithKCDSA1, ECSP_SCHEME_KCDSA, ecsp::kSHA1, kKeyKCDSA},
    {poid::kHAS160WithKCDSA1, ECSP_SCHEME_KCDSA, ecsp::kHAS160, kKeyKCDSA},
};

// Core digest code of a digest AlgorithmIdentifier's OID, 0 for none.
int CoreDigest(const ByteString& oid) {
  struct {
    const char* oid;
    int core;
  } static constexpr kDigests[] = {{poid::kSHA1, ecsp::kSHA1},     {poid::kSHA224, ecsp::kSHA224},
                                   {poid::kSHA256, ecsp::kSHA256}, {poid::kSHA384, ecsp::kSHA384},
                                   {poid::kSHA512, ecsp::kSHA512}};
  for (const auto& d : kDigests) {
    if (oid == d.oid) return d.core;
  }
  return 0;
}

// RSASSA-PSS-params (RFC 4055 3.1) into the core's parameters; false for a
// form we do not verify (another mask function, trailer field other than 1).
bool ReadPssParams(const ByteString& element, ECSP_VERIFY_PARAMS* v) {
  RRSASSA_PSS_params params;
  // Absent parameters are not allowed for id-RSASSA-PSS in a signature.
  if (element.length() == 0 || params.fromASN1Object(element)) return false;
  v->nDigest = params.hasHashAlgorithm() ? CoreDigest(params.getHashAlgorithm().getAlgorithm().getOID()) : ecsp::kSHA1;
  v->nMgfDigest = ecsp::kSHA1;
  if (params.hasMaskGenAlgorithm()) {
    RAlgorithmIdentifier& mgf = params.getMaskGenAlgorithm();
    RAlgorithmIdentifier mgfHash;
    if (!(mgf.getAlgorithm().getOID() == poid::kMGF1) || !mgf.hasParameters() ||
        mgfHash.fromASN1Object(mgf.getParameters().getElement())) {
      return false;
    }
    v->nMgfDigest = CoreDigest(mgfHash.getAlgorithm().getOID());
  }
  v->nSaltLen = params.getSaltLengthValue();
  return v->nDigest && v->nMgfDigest && v->nSaltLen >= 0 && params.getTrailerFieldValue() == 1;
}

}  // namespace

int PPublicKey::verifySignatureWithAlgID(const ByteString& bsSubjectPublicKeyInfo, const ByteString& bsSignatureAlgID,
                                         const ByteString& bsData, const ByteString& bsSignature) {
  static const char kM[] = "verifySignatureWithAlgID";
  KeyParts k;
  ByteString trace;
  if (ReadKey(bsSubjectPublicKeyInfo, &k, &trace)) return P_FAIL(kM, "subjectPublicKeyInfo", 1, trace.c_str());
  RAlgorithmIdentifier algID;
  if (int rc = algID.fromASN1Object(bsSignatureAlgID)) {
    return P_FAIL(kM, "pSignAlgID", rc, algID.getErrorMessage().c_str());
  }
  const ByteString oid = algID.getAlgorithm().getOID();
  const SignRow* row = nullptr;
  for (const SignRow& r : kSignRows) {
    if (oid == r.oid) row = &r;
  }
  if (!row) return P_FAILF(kM, "pSignAlgID", 60, pmsg::kSignatureAlgUnknown, oid.c_str());
  if (k.kind == kKeyUnknown) return P_FAILF(kM, "bsPublicKeyAlgorithm", 50, pmsg::kPublicKeyAlgUnknown, k.oid.c_str());
  // An RSA-PSS key signs with PSS only (RFC 4055 1.2).
  if (row->key != k.kind || (k.oid == poid::kRSASSA_PSS && row->nScheme != ECSP_SCHEME_RSA_PSS)) {
    return P_FAILF(kM, "bsPublicKeyAlgorithm", 61, pmsg::kSignatureKeyMismatch, k.oid.c_str());
  }
  ECSP_VERIFY_PARAMS v;
  v.nScheme = row->nScheme;
  v.nDigest = row->nDigest;
  if (row->nScheme == ECSP_SCHEME_RSA_PSS &&
      !ReadPssParams(algID.hasParameters() ? algID.getParameters().getElement() : ByteString(), &v)) {
    return P_FAIL(kM, "pssParams", 62, pmsg::kPssParams);
  }
  const ByteString key = CoreKey(k, bsSubjectPublicKeyInfo);
  const int rc = ECSP_VerifyDataEx(v, key.data(), key.length(), bsData.data(), bsData.length(), bsSignature.data(),
                                   bsSignature.length());
  return rc ? P_FAIL(kM, "ECSP_VerifyDataEx", rc, getECSPErrorText(rc)) : 0;
}

int PPublicKey::verifyCertificateSignature(const ByteString& bsSigned, const ByteString& bsIssuerSubjectPublicKeyInfo) {
  pkeyder::Element outer, parts[3];
  if (!pkeyder::Read(bsSigned.data(), bsSigned.length(), &outer) || outer.first != 0x30 ||
      pkeyder::Components(outer, parts, 3) != 3 || parts[0].n + parts[1].n + parts[2].n != outer.contentLength() ||
      parts[1].first != 0x30 || parts[2].first != 0x03 || parts[2].contentLength() < 1 || parts[2].content()[0] != 0) {
    return P_FAIL("verifyCertificateSignature", "bsSigned", 63, nullptr);
  }
  return verifySignatureWithAlgID(bsIssuerSubjectPublicKeyInfo, ByteString(parts[1].p, parts[1].n),
                                  ByteString(parts[0].p, parts[0].n),
                                  ByteString(parts[2].content() + 1, parts[2].contentLength() - 1));
}

int PPublicKey::encrypt(const ByteString& bsSubjectPublicKeyInfo, bool bUseOaep, const ByteString& bsData,
                        ByteString& bsCipher) {
  static const char kM[] = "encrypt";
  KeyParts k;
  ByteString trace;
  if (ReadKey(bsSubjectPublicKeyInfo, &k, &trace)) return P_FAIL(kM, "subjectPublicKeyInfo", 1, trace.c_str());
  if (k.oid != poid::kRSA) return P_FAILF(kM, "bsPublicKeyAlgorithm", 3, pmsg::kPublicKeyAlgUnknown, k.oid.c_str());
  RRSAPublicKey rsa;
  if (int rc = rsa.fromASN1Object(k.key)) return P_FAIL(kM, "rsaPublicKey", rc, rsa.getErrorMessage().c_str());
  const ByteString modulus = rsa.getModulus().toASN1Object();
  pkeyder::Element n;
  pkeyder::Read(modulus.data(), modulus.length(), &n);
  const int len = pkeyder::IntegerBytes(n);
  int nAlg = SizeCode(len);
  if (bUseOaep) {
    nAlg = nAlg == QSAlgorithm::RSA1024()   ? QSAlgorithm::RSAOAEP1024()
           : nAlg == QSAlgorithm::RSA2048() ? QSAlgorithm::RSAOAEP2048()
                                            : 0;
    if (!nAlg) return P_FAIL(kM, "nLen", 4, pmsg::kOaepOnly1024_2048);
  } else if (!nAlg) {
    return P_FAILF(kM, "nLen", 5, pmsg::kRsaPublicKeyLength, len);
  }
  // PKCS#1: at most k - 11 octets under v1.5, k - 2 * 20 - 2 under OAEP-SHA-1.
  if (bsData.length() > len - (bUseOaep ? 42 : 11)) return P_FAIL(kM, "bsData", 6, pmsg::kDataLength);
  QSEncrypt encrypt;
  if (int rc = encrypt.EncryptData(nAlg, QSAlgorithm::ModeCBC(), QSAlgorithm::PaddingPKCS(), bsSubjectPublicKeyInfo,
                                   ByteString(), bsData, bsCipher)) {
    return P_FAIL(kM, "encrypt.EncryptData", rc, encrypt.GetErrorMsg().c_str());
  }
  return 0;
}

int PPublicKey::encryptWithCert(const ByteString& bsCert, bool bUseOaep, const ByteString& bsData,
                                ByteString& bsCipher) {
  ByteString spki;
  if (int rc = getPublicKeyInfoFromCert(bsCert, CERT_KIND_X509, spki)) return rc;
  return encrypt(spki, bUseOaep, bsData, bsCipher);
}

int PPublicKey::encrypt(const ByteString& bsPeerSubjectPublicKeyInfo, const ByteString& bsPrivateKey,
                        int nSymmetricAlg, const ByteString& bsUKM, ByteString& bsKEK) {
  static const char kM[] = "encrypt";
  KeyParts k;
  ByteString trace;
  if (ReadKey(bsPeerSubjectPublicKeyInfo, &k, &trace)) return P_FAIL(kM, "subjectPublicKeyInfo", 1, trace.c_str());
  const bool ecdh = k.oid == poid::kECPublicKey;
  if (!ecdh && k.oid != poid::kDH) return P_FAIL(kM, "bsPublicKeyAlgorithm", 20, pmsg::kOnlyEcdhDh);
  if (bsUKM.length() != 0 && bsUKM.length() != 64) return P_FAIL(kM, "bsUKM", 21, pmsg::kPartAInfo512);
  // The wrap algorithm, its parameters (RFC 3370 4.3: NULL for Triple-DES
  // wrap, the RC2 parameter version for RC2 wrap) and the KEK length.
  const char* wrapOID = nullptr;
  int kekLength = 0, rc2Version = 0;
  if (nSymmetricAlg == QSAlgorithm::TripleDES()) {
    wrapOID = poid::kTripleDESWrap, kekLength = 24;
  } else {
    const int versions[][2] = {{QSAlgorithm::RC2_40(), 160}, {QSAlgorithm::RC2_64(), 120},
                               {QSAlgorithm::RC2_128(), 58}, {QSAlgorithm::RC2_256(), 256}};
    for (const auto& v : versions) {
      if (v[0] == nSymmetricAlg) wrapOID = poid::kRC2Wrap, kekLength = 16, rc2Version = v[1];
    }
  }
  if (!wrapOID) return P_FAILF(kM, "nSymmetricAlg", 22, pmsg::kSymmetricAlgNotSupported, nSymmetricAlg);

  // The shared secret Z (ZZ of RFC 2631, left-padded to the size of p).
  ByteString z;
  if (ecdh) {
    RecpkParameters params;
    if (k.params.length() == 0 || params.fromASN1Object(k.params) || !params.isNamedCurve()) {
      return P_FAIL(kM, "bsNamedCurve", 36, pmsg::kNamedCurveLength);
    }
    const ByteString curve = params.getNamedCurve().getOID();
    const CurveRow* row = FindCurve(curve);
    if (!row) return P_FAILF(kM, "bsNamedCurve", 39, pmsg::kNamedCurveNotSupported, curve.c_str());
    if (row->nAgreeAlg) {
      QSKey key;
      if (int rc = key.GenerateSharedKey(row->nAgreeAlg, bsPrivateKey, bsPeerSubjectPublicKeyInfo, z)) {
        return P_FAIL(kM, "key.GenerateSharedKey", rc, key.GetErrorMsg().c_str());
      }
    } else if (int rc = ECSP_GenerateSharedKey(row->nCoreAgree, bsPrivateKey.data(), bsPrivateKey.length(),
                                               bsPeerSubjectPublicKeyInfo.data(), bsPeerSubjectPublicKeyInfo.length(),
                                               &z)) {
      return P_FAIL(kM, "ECSP_GenerateSharedKey", rc, getECSPErrorText(rc));
    }
  } else {
    QSKey key;
    if (int rc = key.GenerateSharedKey(QSAlgorithm::DH(), bsPrivateKey, bsPeerSubjectPublicKeyInfo, z)) {
      return P_FAIL(kM, "key.GenerateSharedKey", rc, key.GetErrorMsg().c_str());
    }
    pkeyder::Element params, p;
    if (pkeyder::Read(k.params.data(), k.params.length(), &params) && pkeyder::Components(params, &p, 1) == 1) {
      const int pLen = pkeyder::IntegerBytes(p);
      if (z.length() < pLen) {
        const std::string zeros(static_cast<std::size_t>(pLen - z.length()), '\0');
        ByteString padded(zeros.data(), pLen - z.length());
        padded += z;
        z.zeroize();
        z = padded;
      }
    }
  }

  // suppPubInfo: the KEK length in bits, 32-bit big-endian.
  const unsigned int bits = static_cast<unsigned int>(kekLength) * 8;
  const unsigned char supp[4] = {static_cast<unsigned char>(bits >> 24), static_cast<unsigned char>(bits >> 16),
                                 static_cast<unsigned char>(bits >> 8), static_cast<unsigned char>(bits)};
  ASN1OctetString suppPubInfo, ukm;
  suppPubInfo.setValue(supp, 4);
  ukm.setValue(bsUKM);
  ByteString out;
  for (unsigned int counter = 1; out.length() < kekLength; ++counter) {
    const unsigned char cnt[4] = {static_cast<unsigned char>(counter >> 24), static_cast<unsigned char>(counter >> 16),
                                  static_cast<unsigned char>(counter >> 8), static_cast<unsigned char>(counter)};
    ByteString info;
    if (ecdh) {
      // X9.63 KDF: Hash(Z || counter || ECC-CMS-SharedInfo).
      RECC_CMS_SharedInfo shared;
      RAlgorithmIdentifier keyInfo;
      keyInfo.getAlgorithm().setOID(wrapOID);
      RAny any;
      if (rc2Version) {
        ASN1Integer v(rc2Version);
        any.setElement(v.toASN1Object());
      } else {
        any.setElement(ByteString("\x05\x00", 2));
      }
      keyInfo.setParameters(any);
      shared.setKeyInfo(keyInfo);
      if (bsUKM.length() > 0) shared.setEntityUInfo(ukm);
      shared.setSuppPubInfo(suppPubInfo);
      info = z;
      info.append(cnt, 4);
      info += shared.toASN1Object();
    } else {
      // RFC 2631 2.1.2: Hash(ZZ || OtherInfo), the counter inside OtherInfo.
      ROtherInfo other;
      RKeySpecificInfo keyInfo;
      keyInfo.getAlgorithm().setOID(wrapOID);
      ASN1OctetString counterOct;
      counterOct.setValue(cnt, 4);
      keyInfo.setCounter(counterOct);
      other.setKeyInfo(keyInfo);
      if (bsUKM.length() > 0) other.setPartyAInfo(ukm);
      other.setSuppPubInfo(suppPubInfo);
      info = z;
      info += other.toASN1Object();
    }
    QSHash qsHash;
    ByteString block;
    if (int rc = qsHash.DigestData(QSAlgorithm::SHA1(), info, block)) {
      info.zeroize();
      z.zeroize();
      return P_FAIL(kM, "qsHash.DigestData", rc, qsHash.GetErrorMsg().c_str());
    }
    info.zeroize();
    out += block;
    block.zeroize();
  }
  z.zeroize();
  bsKEK = out.mid(0, kekLength);
  out.zeroize();
  return 0;
}
