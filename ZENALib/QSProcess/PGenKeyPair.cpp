#include "ZENALib/QSProcess/PGenKeyPair.h"

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSProcess/PAlgorithmMessages.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PKeyDer.h"

namespace {

enum Family { kRsa, kEc, kKcdsa, kNone };

Family FamilyOf(int nAlgo) {
  namespace A = QSAlgorithm;
  const int rsa[] = {A::RSA512(),         A::RSA1024(),         A::RSA2048(),         A::RSAOAEP1024(),
                     A::RSAOAEP2048(),    A::MD5WithRSA512(),   A::MD5WithRSA1024(),  A::MD5WithRSA2048(),
                     A::SHA1WithRSA512(), A::SHA1WithRSA1024(), A::SHA1WithRSA2048(), A::SHA256WithRSA1024(),
                     A::SHA256WithRSA2048()};
  for (int c : rsa) {
    if (c == nAlgo) return kRsa;
  }
  if (nAlgo >= A::SHA1WithKCDSA512() && nAlgo <= A::SHA1WithKCDSA2048()) return kKcdsa;
  if (nAlgo >= A::HAS160WithKCDSA512() && nAlgo <= A::HAS160WithKCDSA2048()) return kKcdsa;
  if (nAlgo == A::ECDSAWithSHA1_K163() || nAlgo == A::ECDSAWithSHA1_C2PNB163V1() || nAlgo == A::ECDSAWithSHA1_P160() ||
      nAlgo == A::ECDH_K163() || nAlgo == A::ECDH_C2PNB163V1()) {
    return kEc;
  }
  return kNone;
}

}  // namespace

int PGenKeyPair::GetOIDbyAlgorithm(int nAlgo, ByteString& bsOID, bool bKCDSA1) {
  switch (FamilyOf(nAlgo)) {
    case kRsa:
      bsOID = poid::kRSA;
      return 0;
    case kEc:
      bsOID = poid::kECPublicKey;
      return 0;
    case kKcdsa:
      bsOID = bKCDSA1 ? poid::kKCDSA1 : poid::kKCDSA;
      return 0;
    default:
      return P_FAILF("GetOIDbyAlgorithm", "nAlgo", 1, pmsg::kAlgoUnknown, nAlgo);
  }
}

int PGenKeyPair::GetEccOID(int nAlgo, ByteString& bsCurveOID) {
  namespace A = QSAlgorithm;
  const char* oid = nAlgo == A::ECDSAWithSHA1_K163() || nAlgo == A::ECDH_K163() ? poid::kCurveK163
                    : nAlgo == A::ECDSAWithSHA1_C2PNB163V1() || nAlgo == A::ECDH_C2PNB163V1()
                        ? poid::kCurveC2PNB163V1
                    : nAlgo == A::ECDSAWithSHA1_P160() ? poid::kCurveP160
                                                       : nullptr;
  if (!oid) return P_FAILF("GetEccOID", "nAlgo", 2, pmsg::kAlgoUnknown, nAlgo);
  bsCurveOID = oid;
  return 0;
}

int PGenKeyPair::splitKcdsa(const char* pszMethod, const ByteString& bsKey, int nParts, ByteString* pDomain,
                            ByteString* pY, ByteString* pX) {
  pkeyder::Element seq, parts[5];
  if (!pkeyder::Read(bsKey.data(), bsKey.length(), &seq) || seq.n != bsKey.length() || seq.first != 0x30 ||
      pkeyder::Components(seq, parts, 5) != nParts) {
    return fail(__FILE__, __LINE__, pszMethod, "bsGeneratedKey", 3, nullptr);
  }
  for (int i = 0; i < nParts; ++i) {
    if (parts[i].first != 0x02) return fail(__FILE__, __LINE__, pszMethod, "bsGeneratedKey", 3, nullptr);
  }
  *pDomain = pkeyder::Sequence(ByteString(parts[0].p, parts[0].n + parts[1].n + parts[2].n));
  pY->setData(parts[3].p, parts[3].n);
  if (pX) pX->setData(parts[4].p, parts[4].n);
  return 0;
}

int PGenKeyPair::makeKeyPairWithGeneratedKey(int nAlgo, const ByteString& bsDomain, ByteString& bsPrivateKeyInfo,
                                             ByteString& bsSubjectPublicKeyInfo) {
  ByteString oid;
  if (int rc = GetOIDbyAlgorithm(nAlgo, oid)) return rc;
  QSKey key;
  ByteString priv, pub;
  if (int rc = key.GenerateKeyPair(nAlgo, bsDomain, priv, pub)) {
    return P_FAIL("makeKeyPairWithGeneratedKey", "key.GenerateKeyPair", rc, key.GetErrorMsg().c_str());
  }
  int rc = makePrivateKeyInfoWithGeneratedKey(nAlgo, priv, bsPrivateKeyInfo);
  priv.zeroize();
  if (rc == 0) rc = makePublicKeyInfoWithGeneratedKey(nAlgo, pub, bsSubjectPublicKeyInfo);
  return rc;
}

int PGenKeyPair::makePrivateKeyInfoWithGeneratedKey(int nAlgo, const ByteString& bsGeneratedKey,
                                                    ByteString& bsPrivateKeyInfo) {
  static const char kM[] = "makePrivateKeyInfoWithGeneratedKey";
  ByteString oid;
  if (int rc = GetOIDbyAlgorithm(nAlgo, oid)) return rc;
  if (FamilyOf(nAlgo) != kKcdsa) {
    // The core writes PKCS#8 itself: check that it names the expected key.
    RPrivateKeyInfo info;
    if (int rc = info.fromASN1Object(bsGeneratedKey)) return P_FAIL(kM, "privateKeyInfo", rc, info.getErrorMessage().c_str());
    const ByteString got = info.getPrivateKeyAlgorithm().getAlgorithm().getOID();
    if (got != oid) return P_FAILF(kM, "privateKeyAlgorithm", 4, pmsg::kQuotedNotSupported, got.c_str());
    bsPrivateKeyInfo = bsGeneratedKey;
    return 0;
  }
  ByteString domain, y, x;
  if (int rc = splitKcdsa(kM, bsGeneratedKey, 5, &domain, &y, &x)) return rc;
  RPrivateKeyInfo info;
  info.setVersion(ASN1Integer(0));
  RAlgorithmIdentifier alg;
  alg.getAlgorithm().setOID(oid.c_str());
  RAny params;
  params.setElement(domain);
  alg.setParameters(params);
  info.setPrivateKeyAlgorithm(alg);
  ASN1OctetString key;
  key.setValue(x);
  x.zeroize();
  info.setPrivateKey(key);
  const ByteString& der = info.toASN1Object();
  if (der.length() == 0) return P_FAIL(kM, "privateKeyInfo", 5, info.getErrorMessage().c_str());
  bsPrivateKeyInfo = der;
  key.getValue().zeroize();
  return 0;
}

int PGenKeyPair::makePublicKeyInfoWithGeneratedKey(int nAlgo, const ByteString& bsGeneratedKey,
                                                   ByteString& bsSubjectPublicKeyInfo) {
  static const char kM[] = "makePublicKeyInfoWithGeneratedKey";
  ByteString oid;
  if (int rc = GetOIDbyAlgorithm(nAlgo, oid)) return rc;
  if (FamilyOf(nAlgo) != kKcdsa) {
    RSubjectPublicKeyInfo info;
    if (int rc = info.fromASN1Object(bsGeneratedKey)) {
      return P_FAIL(kM, "subjectPublicKeyInfo", rc, info.getErrorMessage().c_str());
    }
    const ByteString got = info.getAlgorithm().getAlgorithm().getOID();
    if (got != oid) return P_FAILF(kM, "algorithm", 4, pmsg::kQuotedNotSupported, got.c_str());
    if (FamilyOf(nAlgo) == kEc) {
      // EC keys carry the named curve of the code.
      ByteString curve, named;
      if (int rc = GetEccOID(nAlgo, curve)) return rc;
      ASN1ObjectIdentifier param;
      if (!info.getAlgorithm().hasParameters() ||
          param.fromASN1Object(info.getAlgorithm().getParameters().getElement()) || (named = param.getOID()) != curve) {
        return P_FAILF(kM, "namedCurve", 4, pmsg::kQuotedNotSupported, named.c_str());
      }
    }
    bsSubjectPublicKeyInfo = bsGeneratedKey;
    return 0;
  }
  ByteString domain, y;
  if (int rc = splitKcdsa(kM, bsGeneratedKey, 4, &domain, &y, nullptr)) return rc;
  RSubjectPublicKeyInfo info;
  RAlgorithmIdentifier alg;
  alg.getAlgorithm().setOID(oid.c_str());
  RAny params;
  params.setElement(domain);
  alg.setParameters(params);
  info.setAlgorithm(alg);
  ASN1BitString bits;
  bits.setBitString(y, 0);
  info.setSubjectPublicKey(bits);
  const ByteString& der = info.toASN1Object();
  if (der.length() == 0) return P_FAIL(kM, "subjectPublicKeyInfo", 5, info.getErrorMessage().c_str());
  bsSubjectPublicKeyInfo = der;
  return 0;
}
