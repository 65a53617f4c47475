#include "ZENALib/QSProcess/WCertUtil.h"

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RRSAPublicKey.h"
#include "ZENALib/QSProcess/PCertMessages.h"
#include "base/ByteReader.h"

namespace {

constexpr const char kMsgTruncated[] = "The certificate ends before its fields do.";

// WTLS names its curves by parameter index 1-12 (wap-wsg-idm-ecid-wtls1..12).
constexpr int kMaxCurveIndex = 12;

}  // namespace

void WCertUtil::clear() {
  m_nVersion = m_eSignAlg = m_eIssuer = m_nIssuerCharSet = 0;
  m_eSubject = m_nSubjectCharSet = m_ePublicType = m_nParameterIndex = 0;
  m_nBefore = m_nAfter = 0;
  m_bsIssuer.clear();
  m_bsSubject.clear();
  m_bsECCPublicKey.clear();
  m_bsExponent.clear();
  m_bsModulus.clear();
  m_bsSignature.clear();
  m_bsToBeSigned.clear();
}

int WCertUtil::readIdentifier(ByteReader& r, bool bIssuer) {
  static const char* kMethod = "parseWTLSCertificate";
  const char* field = bIssuer ? "m_eIssuer" : "m_eSubject";
  std::uint8_t type = 0;
  if (r.readU8(&type) != 0) return P_FAIL(kMethod, field, W_ERR_TRUNCATED, kMsgTruncated);
  (bIssuer ? m_eIssuer : m_eSubject) = type;
  const int typeCode = bIssuer ? W_ERR_ISSUER_TYPE : W_ERR_SUBJECT_TYPE;
  switch (type) {
    case ID_TEXT:
      break;
    case ID_NULL:
      return P_FAIL(kMethod, field, typeCode, kMsgWIdNull);
    case ID_BINARY:
      return P_FAIL(kMethod, field, typeCode, kMsgWIdBinary);
    case ID_KEY_HASH_SHA:
      return P_FAIL(kMethod, field, typeCode, kMsgWIdKeyHash);
    case ID_X509_NAME:
      return P_FAIL(kMethod, field, typeCode, kMsgWIdX509Name);
    default:
      return P_FAILF(kMethod, field, typeCode, bIssuer ? kFmtWIssuerType : kFmtWSubjectType, type);
  }
  std::uint16_t charset = 0;
  std::uint8_t len = 0;
  if (r.readU16BE(&charset) != 0 || r.readU8(&len) != 0)
    return P_FAIL(kMethod, field, W_ERR_TRUNCATED, kMsgTruncated);
  (bIssuer ? m_nIssuerCharSet : m_nSubjectCharSet) = charset;
  if (len > r.remaining())
    return P_FAILF(kMethod, bIssuer ? "m_bsIssuer" : "m_bsSubject", bIssuer ? W_ERR_ISSUER_LENGTH : W_ERR_SUBJECT_LENGTH,
                   bIssuer ? kFmtWIssuerTooLarge : kFmtWSubjectTooLarge, len);
  r.readBytes(len, bIssuer ? &m_bsIssuer : &m_bsSubject);
  return 0;
}

int WCertUtil::parseWTLSCertificate(const ByteString& bsCert) {
  static const char* kMethod = "parseWTLSCertificate";
  clear();
  ByteReader r(bsCert);
  std::uint8_t u8 = 0;
  int rc = 0;
  auto cleared = [&](int code) {
    clear();
    return code;
  };

  if (r.readU8(&u8) != 0) return cleared(P_FAIL(kMethod, "m_nVersion", W_ERR_TRUNCATED, kMsgTruncated));
  m_nVersion = u8;
  if (m_nVersion != 1) return cleared(P_FAILF(kMethod, "m_nVersion", W_ERR_VERSION, kFmtWVersion, m_nVersion));
  if (r.readU8(&u8) != 0) return cleared(P_FAIL(kMethod, "m_eSignAlg", W_ERR_TRUNCATED, kMsgTruncated));
  m_eSignAlg = u8;
  if (m_eSignAlg > SIGN_RSA_SHA) return cleared(P_FAILF(kMethod, "m_eSignAlg", W_ERR_SIGN_ALG, kFmtWSignAlg, m_eSignAlg));
  if ((rc = readIdentifier(r, true)) != 0) return cleared(rc);
  if (r.readU32BE(&m_nBefore) != 0 || r.readU32BE(&m_nAfter) != 0)
    return cleared(P_FAIL(kMethod, "m_nBefore", W_ERR_TRUNCATED, kMsgTruncated));
  if (m_nBefore >= m_nAfter)
    return cleared(P_FAILF(kMethod, "m_nBefore", W_ERR_VALIDITY, kFmtWValidity, static_cast<int>(m_nBefore),
                        static_cast<int>(m_nAfter)));
  if ((rc = readIdentifier(r, false)) != 0) return cleared(rc);

  if (r.readU8(&u8) != 0) return cleared(P_FAIL(kMethod, "m_ePublicType", W_ERR_TRUNCATED, kMsgTruncated));
  m_ePublicType = u8;
  if (m_ePublicType < KEY_RSA || m_ePublicType > KEY_ECDSA)
    return cleared(P_FAILF(kMethod, "m_ePublicType", W_ERR_PUBLIC_TYPE, kFmtWPublicType, m_ePublicType));
  if (r.readU8(&u8) != 0) return cleared(P_FAIL(kMethod, "m_nParameterIndex", W_ERR_TRUNCATED, kMsgTruncated));
  m_nParameterIndex = u8;
  if (m_ePublicType == KEY_RSA) {
    if (m_nParameterIndex == 255) {
      // An RSA key has no parameters: the set must be empty.
      const unsigned char* p = nullptr;
      if (r.readBytes(2, &p) != 0) return cleared(P_FAIL(kMethod, "m_nParameterIndex", W_ERR_TRUNCATED, kMsgTruncated));
      if (p[0] != 0 || p[1] != 0)
        return cleared(P_FAILF(kMethod, "m_nParameterIndex", W_ERR_RSA_PARAMETER, kFmtWRsaParameterSet, p[0], p[1]));
    } else if (m_nParameterIndex != 0) {
      return cleared(P_FAILF(kMethod, "m_nParameterIndex", W_ERR_TYPE_INDEX, kFmtWTypeIndex, m_ePublicType,
                          m_nParameterIndex));
    }
    std::uint16_t len = 0;
    if (r.readU16BE(&len) != 0) return cleared(P_FAIL(kMethod, "m_bsExponent", W_ERR_TRUNCATED, kMsgTruncated));
    if (len > r.remaining())
      return cleared(P_FAILF(kMethod, "m_bsExponent", W_ERR_EXPONENT_LENGTH, kFmtWExponentTooLarge, len));
    r.readBytes(len, &m_bsExponent);
    if (r.readU16BE(&len) != 0) return cleared(P_FAIL(kMethod, "m_bsModulus", W_ERR_TRUNCATED, kMsgTruncated));
    if (len > r.remaining())
      return cleared(P_FAILF(kMethod, "m_bsModulus", W_ERR_MODULUS_LENGTH, kFmtWModulusTooLarge, len));
    r.readBytes(len, &m_bsModulus);
  } else {
    if (m_nParameterIndex == 255)  // explicit curve parameters are not taken
      return cleared(P_FAILF(kMethod, "m_nParameterIndex", W_ERR_TYPE_INDEX, kFmtWTypeIndex, m_ePublicType,
                          m_nParameterIndex));
    if (m_nParameterIndex < 1 || m_nParameterIndex > kMaxCurveIndex)
      return cleared(P_FAILF(kMethod, "m_nParameterIndex", W_ERR_PARAMETER_INDEX, kFmtWParameterIndex, m_nParameterIndex));
    if (r.readU8(&u8) != 0) return cleared(P_FAIL(kMethod, "m_bsECCPublicKey", W_ERR_TRUNCATED, kMsgTruncated));
    if (u8 > r.remaining())
      return cleared(P_FAILF(kMethod, "m_bsECCPublicKey", W_ERR_ECC_KEY_LENGTH, kFmtWEccKeyTooLarge, u8));
    r.readBytes(u8, &m_bsECCPublicKey);
  }
  const std::size_t signedLength = bsCert.length() - r.remaining();
  if (m_eSignAlg != SIGN_ANONYMOUS) {
    std::uint16_t len = 0;
    if (r.readU16BE(&len) != 0) return cleared(P_FAIL(kMethod, "m_bsSignature", W_ERR_TRUNCATED, kMsgTruncated));
    if (len > r.remaining())
      return cleared(P_FAILF(kMethod, "m_bsSignature", W_ERR_SIGNATURE_LENGTH, kFmtWSignatureTooLarge, len));
    r.readBytes(len, &m_bsSignature);
  }
  if (!r.empty()) return cleared(P_FAIL(kMethod, "m_nIndex", W_ERR_TRAILING, kMsgWTrailing));
  m_bsToBeSigned = bsCert.mid(0, static_cast<int>(signedLength));
  return 0;
}

int WCertUtil::getPublicKeyInfo(RSubjectPublicKeyInfo* out) {
  static const char* kMethod = "getPublicKeyInfo";
  RAlgorithmIdentifier alg;
  ASN1BitString key;
  if (m_ePublicType == KEY_RSA) {
    int n = m_bsModulus.length();
    const unsigned char* m = m_bsModulus.data();
    int skip = 0;
    while (skip < n && m[skip] == 0) ++skip;
    n -= skip;
    if (n != 64 && n != 128 && n != 256) return P_FAILF(kMethod, "m_bsModulus", W_ERR_RSA_MODULUS, kFmtWRsaModulus, n);
    RRSAPublicKey rsa;
    rsa.getModulus().setInteger(m_bsModulus, 1);
    rsa.getPublicExponent().setInteger(m_bsExponent, 1);
    alg.getAlgorithm().setOID("1 2 840 113549 1 1 1");
    RAny null;
    null.setElement(ByteString("\x05\x00", 2));
    alg.setParameters(null);
    key.setBitString(rsa.toASN1Object(), 0);
  } else if (m_ePublicType == KEY_ECDH || m_ePublicType == KEY_ECDSA) {
    ByteString curve;
    curve.format("2 23 43 1 4 %d", m_nParameterIndex);
    ASN1ObjectIdentifier oid;
    oid.setOID(curve.c_str());
    alg.getAlgorithm().setOID("1 2 840 10045 2 1");
    RAny params;
    params.setElement(oid.toASN1Object());
    alg.setParameters(params);
    key.setBitString(m_bsECCPublicKey, 0);
  } else {
    return P_FAILF(kMethod, "m_ePublicType", W_ERR_PUBLIC_TYPE, kFmtWPublicType, m_ePublicType);
  }
  out->setAlgorithm(alg);
  out->setSubjectPublicKey(key);
  if (out->toASN1Object().length() == 0)
    return P_FAIL(kMethod, "subjectPublicKeyInfo", W_ERR_ENCODE, out->getErrorMessage().c_str());
  return 0;
}
