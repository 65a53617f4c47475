#include "ZENALib/QSProcess/PAlgorithmUtil.h"

#include <cstring>

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RRC2_CBC_Parameter.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PAlgorithmMessages.h"

namespace {

struct HashRow {
  int nCode;
  const char* oid;
};
constexpr HashRow kHashes[] = {
    {QSAlgorithm::MD2(), poid::kMD2},       {QSAlgorithm::MD4(), poid::kMD4},
    {QSAlgorithm::MD5(), poid::kMD5},       {QSAlgorithm::SHA1(), poid::kSHA1},
    {QSAlgorithm::SHA256(), poid::kSHA256}, {QSAlgorithm::HAS160(), poid::kHAS160},
};

// RC2 codes and their RC2-CBC parameter versions (RFC 2268 6).
struct RC2Row {
  int nCode;
  int nVersion;
};
constexpr RC2Row kRC2[] = {
    {QSAlgorithm::RC2_40(), 160}, {QSAlgorithm::RC2_64(), 120}, {QSAlgorithm::RC2_128(), 58}, {QSAlgorithm::RC2_256(), 256}};

// The hash of each signature OID that names one.
constexpr HashRow kSignHashes[] = {
    {QSAlgorithm::SHA1(), poid::kSHA1WithRSA},       {QSAlgorithm::SHA1(), poid::kECDSAWithSHA1},
    {QSAlgorithm::SHA1(), poid::kSHA1WithKCDSA},     {QSAlgorithm::SHA1(), poid::kSHA1WithKCDSA1},
    {QSAlgorithm::SHA1(), poid::kDSAWithSHA1},       {QSAlgorithm::MD5(), poid::kMD5WithRSA},
    {QSAlgorithm::MD4(), poid::kMD4WithRSA},         {QSAlgorithm::MD2(), poid::kMD2WithRSA},
    {QSAlgorithm::HAS160(), poid::kHAS160WithKCDSA}, {QSAlgorithm::HAS160(), poid::kHAS160WithKCDSA1},
    {QSAlgorithm::HAS160(), poid::kHAS160WithEC2},   {QSAlgorithm::HAS160(), poid::kHAS160WithRSA},
    {QSAlgorithm::SHA256(), poid::kSHA256WithRSA},   {QSAlgorithm::SHA256(), poid::kECDSAWithSHA256},
};

bool Is(const ByteString& bs, const char* oid) { return bs == oid; }

// Sets the identifier's OID and, when pElement is given, its parameters.
int SetAlgID(RAlgorithmIdentifier& algID, const char* oid, const ByteString* pElement) {
  algID = RAlgorithmIdentifier();
  if (int rc = algID.getAlgorithm().setOID(oid)) return rc;
  if (!pElement) return 0;
  RAny any;
  if (int rc = any.setElement(*pElement)) return rc;
  algID.setParameters(any);
  return 0;
}

const ByteString& NullElement() {
  static const ByteString bs("\x05\x00", 2);
  return bs;
}

}  // namespace

const char* PAlgorithmUtil::hashOID(int nHashAlg) {
  for (const HashRow& r : kHashes) {
    if (r.nCode == nHashAlg) return r.oid;
  }
  return nullptr;
}

int PAlgorithmUtil::hashCode(const char* pszOID) {
  for (const HashRow& r : kHashes) {
    if (std::strcmp(r.oid, pszOID) == 0) return r.nCode;
  }
  return 0;
}

const char* PAlgorithmUtil::displayName(const char* pszOID) {
  struct Name {
    const char* oid;
    const char* name;
  };
  static constexpr Name kNames[] = {
      {poid::kMD2WithRSA, "md2 With RSAEncryption"},    {poid::kMD4WithRSA, "md4 With RSAEncryption"},
      {poid::kMD5WithRSA, "md5 With RSAEncryption"},    {poid::kSHA1WithRSA, "sha1 With RSAEncryption"},
      {poid::kSHA256WithRSA, "sha256 With RSAEncryption"}, {poid::kSHA1WithKCDSA, "KCDSA With SHA1"},
      {poid::kSHA1WithKCDSA1, "KCDSA1 With SHA1"},      {poid::kHAS160WithKCDSA, "KCDSA With HAS160"},
      {poid::kHAS160WithKCDSA1, "KCDSA1 With HAS160"},  {poid::kECDSAWithSHA1, "ECDSA with SHA1"},
      {poid::kDSAWithSHA1, "DSA with Sha1"},            {poid::kHAS160WithRSA, "RSA With HAS160"},
      {poid::kSHA1, "SHA1"},                            {poid::kSHA256, "SHA256"},
      {poid::kHAS160, "HAS160"},
  };
  for (const Name& n : kNames) {
    if (pszOID && std::strcmp(n.oid, pszOID) == 0) return n.name;
  }
  return nullptr;
}

int PAlgorithmUtil::code2oid(int nAlg, ByteString& bsOID, int nMode) {
  const char* oid = hashOID(nAlg);
  if (nAlg == QSAlgorithm::DES() || nAlg == QSAlgorithm::SEED()) {
    const bool des = nAlg == QSAlgorithm::DES();
    oid = nMode == QSAlgorithm::ModeECB()   ? (des ? poid::kDES_ECB : poid::kSEED_ECB)
          : nMode == QSAlgorithm::ModeCBC() ? (des ? poid::kDES_CBC : poid::kSEED_CBC)
          : nMode == QSAlgorithm::ModeOFB() ? (des ? poid::kDES_OFB : poid::kSEED_OFB)
                                            : nullptr;
    if (!oid) return P_FAILF("code2oid", "nMode", des ? 1 : 2, pmsg::kEncModeNotSupported, nMode);
  } else if (nAlg == QSAlgorithm::TripleDES()) {
    oid = poid::kTripleDES_CBC;
  } else if (nAlg == QSAlgorithm::Cipher3090() || nAlg == QSAlgorithm::Cipher3091()) {
    if (nMode != QSAlgorithm::ModeCBC()) return P_FAILF("code2oid", "nMode", 4, pmsg::kEncModeNotSupported, nMode);
    oid = poid::kCipher3090;
  } else {
    for (const RC2Row& r : kRC2) {
      if (r.nCode == nAlg) oid = poid::kRC2_CBC;
    }
  }
  if (!oid) return P_FAILF("code2oid", "nAlg", 6, pmsg::kAlgCodeNotSupported, nAlg);
  bsOID = oid;
  return 0;
}

int PAlgorithmUtil::oid2code(const ByteString& bsOID, int nParamVer, int* pnAlg, int* pnMode) {
  int nAlg = 0, nNullCode = 0;
  if (Is(bsOID, poid::kSEED_CBC)) {
    nAlg = QSAlgorithm::SEED(), nNullCode = 14;
  } else if (Is(bsOID, poid::kTripleDES_CBC)) {
    nAlg = QSAlgorithm::TripleDES(), nNullCode = 16;
  } else if (Is(bsOID, poid::kRC2_CBC)) {
    for (const RC2Row& r : kRC2) {
      if (r.nVersion == nParamVer) nAlg = r.nCode;
    }
    if (!nAlg) return P_FAILF("oid2code", "nParamVer", 17, pmsg::kParamVerNotSupported, nParamVer);
    nNullCode = 19;
  } else if (Is(bsOID, poid::kCipher3090)) {
    nAlg = QSAlgorithm::Cipher3091(), nNullCode = 25;
  } else {
    return P_FAILF("oid2code", "bsOID", 29, pmsg::kOidAlgNotSupported, bsOID.c_str());
  }
  if (!pnMode) return P_FAIL("oid2code", "pMode", nNullCode, pmsg::kModeIsNull);
  // Refuse rather than write through a null output.
  if (!pnAlg) return P_FAIL("oid2code", "pAlg", nNullCode, pmsg::kAlgIsNull);
  *pnAlg = nAlg;
  *pnMode = QSAlgorithm::ModeCBC();
  return 0;
}

int PAlgorithmUtil::makeSymmetricAlgID(int nAlg, int nMode, const ByteString& bsIV, RAlgorithmIdentifier& algID) {
  const char* oid = nullptr;
  int nVersion = 0;
  if (nAlg == QSAlgorithm::DES() || nAlg == QSAlgorithm::SEED()) {
    const bool des = nAlg == QSAlgorithm::DES();
    oid = nMode == QSAlgorithm::ModeECB()   ? (des ? poid::kDES_ECB : poid::kSEED_ECB)
          : nMode == QSAlgorithm::ModeCBC() ? (des ? poid::kDES_CBC : poid::kSEED_CBC)
          : nMode == QSAlgorithm::ModeOFB() ? (des ? poid::kDES_OFB : poid::kSEED_OFB)
                                            : nullptr;
    if (!oid) return P_FAILF("makeSymmetricAlgID", "nMode", des ? 1 : 2, pmsg::kModeIsNotSupported, nMode);
  } else if (nAlg == QSAlgorithm::TripleDES()) {
    oid = poid::kTripleDES_CBC;
  } else if (nAlg == QSAlgorithm::Cipher3090() || nAlg == QSAlgorithm::Cipher3091()) {
    if (nMode != QSAlgorithm::ModeCBC()) {
      return P_FAILF("makeSymmetricAlgID", "nMode", 6, pmsg::kModeDoesNotSupported, nMode);
    }
    oid = poid::kCipher3090;
  } else {
    for (const RC2Row& r : kRC2) {
      if (r.nCode == nAlg) oid = poid::kRC2_CBC, nVersion = r.nVersion;
    }
    if (!oid) return P_FAILF("makeSymmetricAlgID", "nAlg", 7, pmsg::kUnknownAlgCode, nAlg);
  }
  ASN1OctetString asnIv;
  if (asnIv.setValue(bsIV)) {
    return failAs(__FILE__, __LINE__, "PEnvelopedData", "makeSymmetricAlgID", "asnIv", 10,
                  asnIv.getErrorMessage().c_str());
  }
  ByteString bsParams;
  if (nVersion) {
    RRC2_CBC_Parameter rc2;
    rc2.setRc2ParameterVersion(ASN1Integer(nVersion));
    rc2.setIv(asnIv);
    bsParams = rc2.toASN1Object();
    if (bsParams.length() == 0) return P_FAIL("makeSymmetricAlgID", "rc2Param", 8, rc2.getErrorMessage().c_str());
  } else {
    bsParams = asnIv.toASN1Object();
    if (bsParams.length() == 0) {
      return failAs(__FILE__, __LINE__, "PEnvelopedData", "makeSymmetricAlgID", "asnIv", 11,
                    asnIv.getErrorMessage().c_str());
    }
  }
  if (SetAlgID(algID, oid, &bsParams)) return P_FAIL("makeSymmetricAlgID", "algID", 9, nullptr);
  return 0;
}

int PAlgorithmUtil::makeDigestAlgID(const ByteString& bsOID, RAlgorithmIdentifier& algID) {
  const bool withNull = Is(bsOID, poid::kMD2) || Is(bsOID, poid::kMD5);
  if (!withNull && !Is(bsOID, poid::kSHA1) && !Is(bsOID, poid::kHAS160) && !Is(bsOID, poid::kSHA256) &&
      !Is(bsOID, poid::kDigest25)) {
    return P_FAILF("makeDigestAlgID", "bsOID", 3, pmsg::kDigestAlgNotSupported, bsOID.c_str());
  }
  if (SetAlgID(algID, bsOID.c_str(), withNull ? &NullElement() : nullptr)) {
    return P_FAIL("makeDigestAlgID", "algID", 1, algID.getAlgorithm().getErrorMessage().c_str());
  }
  return 0;
}

int PAlgorithmUtil::parseHashAlgID(const ByteString& bsHashAlgID, int* pnHashAlg) {
  RAlgorithmIdentifier algID;
  if (algID.fromASN1Object(bsHashAlgID)) {
    return P_FAIL("parseHashAlgID", "pHashAlgID", 1, algID.getErrorMessage().c_str());
  }
  const ByteString bsOID = algID.getAlgorithm().getOID();
  const int nCode = hashCode(bsOID.c_str());
  if (!nCode) return P_FAILF("parseHashAlgID", "bsOID", 2, pmsg::kHashAlgNotSupported, bsOID.c_str());
  // Refuse rather than write through a null output.
  if (!pnHashAlg) return P_FAIL("parseHashAlgID", "pnHashAlg", 3, nullptr);
  *pnHashAlg = nCode;
  return 0;
}

int PAlgorithmUtil::getHashAlgFromSignAlg(const ByteString& bsSignAlgID, int* pnHashAlg) {
  RAlgorithmIdentifier algID;
  if (algID.fromASN1Object(bsSignAlgID)) {
    return P_FAIL("getHashAlgFromSignAlg", "pSignAlgID", 1, algID.getErrorMessage().c_str());
  }
  const ByteString bsOID = algID.getAlgorithm().getOID();
  for (const HashRow& r : kSignHashes) {
    if (Is(bsOID, r.oid)) {
      if (!pnHashAlg) return P_FAIL("getHashAlgFromSignAlg", "pnHashAlg", 3, nullptr);
      *pnHashAlg = r.nCode;
      return 0;
    }
  }
  return P_FAILF("getHashAlgFromSignAlg", "bsOID", 2, pmsg::kSignAlgNotSupported, bsOID.c_str());
}

int PAlgorithmUtil::makeDigestEncAlgID(const ByteString& bsPubKeyAlgOID, int nHashAlg, const ByteString& bsParams,
                                       RAlgorithmIdentifier& algID) {
  // A hash code of 0 is the default, SHA-1, as wherever a signature is chosen.
  const int nHash = nHashAlg == 0 ? QSAlgorithm::SHA1() : nHashAlg;
  const bool sha1 = nHash == QSAlgorithm::SHA1(), has160 = nHash == QSAlgorithm::HAS160();
  const char* oid = nullptr;
  const ByteString* pParams = nullptr;
  static const ByteString kPssDefaults("\x30\x00", 2);  // RSASSA-PSS-params, every field at its default
  if (Is(bsPubKeyAlgOID, poid::kRSA)) {
    oid = poid::kRSA;
    pParams = &NullElement();
  } else if (Is(bsPubKeyAlgOID, poid::kRSASSA_PSS)) {
    if (!sha1) return P_FAILF("makeDigestEncAlgID", "nHashAlg", 2, pmsg::kPssHashNotSupported, nHashAlg);
    oid = poid::kRSASSA_PSS;
    pParams = bsParams.length() > 0 ? &bsParams : &kPssDefaults;
  } else if (Is(bsPubKeyAlgOID, poid::kKCDSA)) {
    if (!sha1 && !has160) {
      return failf(__FILE__, __LINE__, "makeSignAlgID", "nHashAlg", 4, pmsg::kHashNotSupport, nHashAlg);
    }
    oid = sha1 ? poid::kSHA1WithKCDSA : poid::kHAS160WithKCDSA;
  } else if (Is(bsPubKeyAlgOID, poid::kKCDSA1)) {
    if (!sha1 && !has160) return P_FAILF("makeDigestEncAlgID", "nHashAlg", 6, pmsg::kHashNotSupport, nHashAlg);
    oid = sha1 ? poid::kSHA1WithKCDSA1 : poid::kHAS160WithKCDSA1;
  } else if (Is(bsPubKeyAlgOID, poid::kECPublicKey)) {
    if (!sha1 && nHash != QSAlgorithm::SHA256()) {
      return P_FAILF("makeDigestEncAlgID", "nHashAlg", 10, pmsg::kHashNotSupport, nHashAlg);
    }
    oid = sha1 ? poid::kECDSAWithSHA1 : poid::kECDSAWithSHA256;
  } else {
    return P_FAILF("makeDigestEncAlgID", "bsPubKeyAlgOID", 16, pmsg::kAsymmetricNotSupport, bsPubKeyAlgOID.c_str());
  }
  if (SetAlgID(algID, oid, pParams) || algID.toASN1Object().length() == 0) {
    return P_FAIL("makeDigestEncAlgID", "pDigestEncAlg", 17, algID.getErrorMessage().c_str());
  }
  return 0;
}
