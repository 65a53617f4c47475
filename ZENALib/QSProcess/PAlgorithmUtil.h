// PAlgorithmUtil: the algorithm registry. Translates the library's
// algorithm codes (QSAlgorithm.h) to and from the OIDs of certificates, CMS
// and PKCS#8/#12, and builds the AlgorithmIdentifiers of content encryption,
// digests and signer infos.
//
// OIDs travel as text with single blanks between arcs ("1 2 840 113549 3 7").
// Every method returns 0 or a positive code and leaves the failure in the
// trace (PTrace.h); the object keeps nothing else between calls.
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

// Object identifiers of the registry, as text.
namespace poid {
inline constexpr char kMD2[] = "1 2 840 113549 2 2";
inline constexpr char kMD4[] = "1 2 840 113549 2 4";
inline constexpr char kMD5[] = "1 2 840 113549 2 5";
inline constexpr char kSHA1[] = "1 3 14 3 2 26";
inline constexpr char kSHA256[] = "2 16 840 1 101 3 4 2 1";
inline constexpr char kSHA384[] = "2 16 840 1 101 3 4 2 2";
inline constexpr char kSHA512[] = "2 16 840 1 101 3 4 2 3";
inline constexpr char kSHA224[] = "2 16 840 1 101 3 4 2 4";
inline constexpr char kHAS160[] = "1 2 410 200004 1 2";
inline constexpr char kDigest25[] = "1 2 410 200004 1 25";
inline constexpr char kDES_ECB[] = "1 3 14 3 2 6";
inline constexpr char kDES_CBC[] = "1 3 14 3 2 7";
inline constexpr char kDES_OFB[] = "1 3 14 3 2 8";
inline constexpr char kTripleDES_CBC[] = "1 2 840 113549 3 7";
inline constexpr char kSEED_ECB[] = "1 2 410 200004 1 3";
inline constexpr char kSEED_CBC[] = "1 2 410 200004 1 4";
inline constexpr char kSEED_OFB[] = "1 2 410 200004 1 5";
inline constexpr char kRC2_CBC[] = "1 2 840 113549 3 2";
inline constexpr char kCipher3090[] = "1 2 410 200004 5 100 2 1";
inline constexpr char kRSA[] = "1 2 840 113549 1 1 1";
inline constexpr char kMD2WithRSA[] = "1 2 840 113549 1 1 2";
inline constexpr char kMD4WithRSA[] = "1 2 840 113549 1 1 3";
inline constexpr char kMD5WithRSA[] = "1 2 840 113549 1 1 4";
inline constexpr char kSHA1WithRSA[] = "1 2 840 113549 1 1 5";
inline constexpr char kRSAES_OAEP[] = "1 2 840 113549 1 1 7";
inline constexpr char kMGF1[] = "1 2 840 113549 1 1 8";
inline constexpr char kRSASSA_PSS[] = "1 2 840 113549 1 1 10";
inline constexpr char kSHA256WithRSA[] = "1 2 840 113549 1 1 11";
inline constexpr char kSHA384WithRSA[] = "1 2 840 113549 1 1 12";
inline constexpr char kSHA512WithRSA[] = "1 2 840 113549 1 1 13";
inline constexpr char kSHA224WithRSA[] = "1 2 840 113549 1 1 14";
inline constexpr char kHAS160WithRSA[] = "1 2 410 200004 1 20";
inline constexpr char kKCDSA[] = "1 2 410 200004 1 1";
inline constexpr char kKCDSA1[] = "1 2 410 200004 1 21";
inline constexpr char kHAS160WithKCDSA[] = "1 2 410 200004 1 8";
inline constexpr char kSHA1WithKCDSA[] = "1 2 410 200004 1 9";
inline constexpr char kHAS160WithKCDSA1[] = "1 2 410 200004 1 22";
inline constexpr char kSHA1WithKCDSA1[] = "1 2 410 200004 1 23";
inline constexpr char kHAS160WithEC2[] = "1 2 410 200004 1 100 4 1";
inline constexpr char kECPublicKey[] = "1 2 840 10045 2 1";
inline constexpr char kECKey2[] = "1 2 410 200004 1 100 2 1";
inline constexpr char kECDSAWithSHA1[] = "1 2 840 10045 4 1";
inline constexpr char kECDSAWithSHA224[] = "1 2 840 10045 4 3 1";
inline constexpr char kECDSAWithSHA256[] = "1 2 840 10045 4 3 2";
inline constexpr char kECDSAWithSHA384[] = "1 2 840 10045 4 3 3";
inline constexpr char kECDSAWithSHA512[] = "1 2 840 10045 4 3 4";
inline constexpr char kDSA[] = "1 2 840 10040 4 1";
inline constexpr char kDSAWithSHA1[] = "1 2 840 10040 4 3";
inline constexpr char kDH[] = "1 2 840 10046 2 1";
inline constexpr char kCurveK163[] = "1 3 132 0 1";
inline constexpr char kCurveC2PNB163V1[] = "1 2 840 10045 3 0 1";
inline constexpr char kCurveP160[] = "1 3 132 0 8";
inline constexpr char kTripleDESWrap[] = "1 2 840 113549 1 9 16 3 6";
inline constexpr char kRC2Wrap[] = "1 2 840 113549 1 9 16 3 7";
}  // namespace poid

class PAlgorithmUtil : public PTrace {
 public:
  PAlgorithmUtil() : PTrace("PAlgorithmUtil") {}

  // code2oid: the OID of a hash or cipher code into bsOID. DES and SEED take
  // the mode (3 ECB, 4 CBC, 6 OFB; codes 1 and 2 otherwise), 3090/3091 only
  // CBC (4); Triple-DES and RC2 ignore it; any other code fails with 6.
  int code2oid(int nAlg, ByteString& bsOID, int nMode);
  // oid2code: a content-encryption OID to its code and mode (always CBC).
  // RC2 takes the RC2-CBC parameter version (160, 120, 58, 256; else 17);
  // a null pnMode fails (14, 16, 19, 25 by algorithm), any other OID 29.
  int oid2code(const ByteString& bsOID, int nParamVer, int* pnAlg, int* pnMode);
  // makeSymmetricAlgID: the content-encryption AlgorithmIdentifier for the
  // code, mode and IV (RC2: RC2-CBC-Parameter; others: the IV as an OCTET
  // STRING).
  int makeSymmetricAlgID(int nAlg, int nMode, const ByteString& bsIV, RAlgorithmIdentifier& algID);
  // makeDigestAlgID: a digest AlgorithmIdentifier (MD2 and MD5 with NULL
  // parameters, SHA-1, SHA-256, HAS-160 and 1 2 410 200004 1 25 without).
  int makeDigestAlgID(const ByteString& bsOID, RAlgorithmIdentifier& algID);
  // parseHashAlgID: the hash code of a digest AlgorithmIdentifier (its DER).
  int parseHashAlgID(const ByteString& bsHashAlgID, int* pnHashAlg);
  // getHashAlgFromSignAlg: the hash code of a signature AlgorithmIdentifier
  // (its DER).
  int getHashAlgFromSignAlg(const ByteString& bsSignAlgID, int* pnHashAlg);
  // makeDigestEncAlgID: the signer's digestEncryptionAlgorithm for a key
  // algorithm OID and hash code (0 is SHA-1). RSA-PSS takes bsParams as its
  // RSASSA-PSS-params when given (the defaults otherwise).
  int makeDigestEncAlgID(const ByteString& bsPubKeyAlgOID, int nHashAlg, const ByteString& bsParams,
                         RAlgorithmIdentifier& algID);

  // The OID text of a hash code (MD2 ... HAS-160), null for another code.
  static const char* hashOID(int nHashAlg);
  // The hash code of a digest OID text, 0 for another OID.
  static int hashCode(const char* pszOID);
  // The display name of a signature or digest OID text ("sha1 With
  // RSAEncryption", "KCDSA1 With HAS160", "SHA256" ...), null for an OID
  // without one.
  static const char* displayName(const char* pszOID);
};
