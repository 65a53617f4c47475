#include "ZENALib/QSProcess/PPrivateKey.h"

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RECPrivateKey.h"
#include "ZENALib/ASN1Pkix/RKCDSAParameters.h"
#include "ZENALib/ASN1Pkix/RRSAPrivateKey.h"
#include "ZENALib/ASN1Pkix/RecpkParameters.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PAlgorithmMessages.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PKeyDer.h"

namespace {

// Octets of an INTEGER's magnitude.
int MagnitudeLength(ASN1Integer& value) {
  const ByteString der = value.toASN1Object();
  pkeyder::Element e;
  return pkeyder::Read(der.data(), der.length(), &e) ? pkeyder::IntegerBytes(e) : 0;
}

}  // namespace

int PPrivateKey::GetPrivateKeyAlgorithm(const ByteString& bsPrivateKeyAlgorithm, const ByteString& bsPrivateKey,
                                        const ByteString& bsParameters, int nHashAlg, int* pnAlg) {
  static const char kM[] = "GetPrivateKeyAlgorithm";
  const ByteString& oid = bsPrivateKeyAlgorithm;
  const int hash = nHashAlg == 0 ? QSAlgorithm::SHA1() : nHashAlg;
  int nAlg = 0;
  if (oid == poid::kRSA) {
    RRSAPrivateKey rsa;
    if (int rc = rsa.fromASN1Object(bsPrivateKey)) return P_FAIL(kM, "rsaPrivateKey", rc, rsa.getErrorMessage().c_str());
    const int len = MagnitudeLength(rsa.getModulus());
    nAlg = len == 64 ? QSAlgorithm::RSA512() : len == 128 ? QSAlgorithm::RSA1024() : len == 256 ? QSAlgorithm::RSA2048() : 0;
    if (!nAlg) return P_FAILF(kM, "nLen", 5, pmsg::kRsaBitsNotSupported, len * 8);
  } else if (oid == poid::kKCDSA || oid == poid::kKCDSA1) {
    RKCDSAParameters params;
    if (int rc = params.fromASN1Object(bsParameters)) {
      return P_FAIL(kM, "kcdsaParams", rc, params.getErrorMessage().c_str());
    }
    if (bsPrivateKey.length() == 0) return P_FAIL(kM, "pPubKey", 13, pmsg::kPubKeyIsNull);
    ASN1Integer x;
    if (int rc = x.fromASN1Object(bsPrivateKey)) return P_FAIL(kM, "kcdsaPrivateKey", rc, x.getErrorMessage().c_str());
    if (hash != QSAlgorithm::SHA1() && hash != QSAlgorithm::HAS160()) return P_FAIL(kM, "nHashAlg", 9, pmsg::kOnlyKcdsaHashes);
    const int len = MagnitudeLength(params.getP());
    const int index = len == 64 ? 0 : len == 128 ? 1 : len == 256 ? 2 : -1;
    const bool sha1 = hash == QSAlgorithm::SHA1();
    if (index < 0) return P_FAILF(kM, "nLen", 12, sha1 ? pmsg::kSha1KcdsaBits : pmsg::kHas160KcdsaBits, len * 8);
    nAlg = (sha1 ? QSAlgorithm::SHA1WithKCDSA512() : QSAlgorithm::HAS160WithKCDSA512()) + index;
  } else if (oid == poid::kECPublicKey || oid == poid::kECKey2 || oid == poid::kECDSAWithSHA1) {
    RecpkParameters params;
    if (bsParameters.length() > 0) {
      if (int rc = params.fromASN1Object(bsParameters)) {
        return P_FAIL(kM, "ecpkParams", rc, params.getErrorMessage().c_str());
      }
    }
    if (!params.isNamedCurve()) return P_FAIL(kM, "bsNamedCurve", 36, pmsg::kNamedCurveValue);
    const ByteString curve = params.getNamedCurve().getOID();
    if (hash == QSAlgorithm::SHA256()) return P_FAILF(kM, "bsNamedCurve", 40, pmsg::kEccCurveNotSupported, curve.c_str());
    if (hash != QSAlgorithm::SHA1()) return P_FAIL(kM, "nHashAlg", 41, pmsg::kEcdsaOnlySha1Sha256);
    nAlg = curve == poid::kCurveP160           ? QSAlgorithm::ECDSAWithSHA1_P160()
           : curve == poid::kCurveC2PNB163V1 ? QSAlgorithm::ECDSAWithSHA1_C2PNB163V1()
           : curve == poid::kCurveK163       ? QSAlgorithm::ECDSAWithSHA1_K163()
                                              : 0;
    if (!nAlg) return P_FAILF(kM, "bsNamedCurve", 39, pmsg::kEccCurveNotSupported, curve.c_str());
    RECPrivateKey ec;
    if (int rc = ec.fromASN1Object(bsPrivateKey)) return P_FAIL(kM, "ecPrivateKey", rc, ec.getErrorMessage().c_str());
    if (ec.getPrivateKey().getValueLength() == 0) return P_FAIL(kM, "asnOct", 42, nullptr);
  } else {
    return P_FAILF(kM, "bsPrivateKeyAlgorithm", 50, pmsg::kPrivateKeyAlgUnknown, oid.c_str());
  }
  if (pnAlg) *pnAlg = nAlg;
  return 0;
}
