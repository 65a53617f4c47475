// The crypto core: block ciphers, digests, MACs, public-key operations and
// the random generator behind the QS service classes.
//
// Every operation returns a core result code (0 on success). A staged call
// adds its stage to the code: 1000 Init, 2000 Update, 3000 Final, so that
// code % 1000 is always one of the rows of the result table below.
//
// Algorithm numbers are the core's own (ecsp::k...); the service classes
// translate the library's numbers into them. The core numbers keep the
// family in the leading digits and the variant in the last ones.
//
// Key forms (what ECSP_GenerateKey accepts):
//   - block ciphers: the raw key bytes (DES 8, Triple-DES 24, SEED 16,
//     RC2 1..128);
//   - RSA, EC, DSA, DH: DER, a PKCS#8 PrivateKeyInfo or traditional private
//     key for the private side and a SubjectPublicKeyInfo (or PKCS#1
//     RSAPublicKey) for the public side;
//   - KCDSA: DER SEQUENCE { p, q, g, y [, x] } of INTEGERs (see KCDSA.h).
// Signatures: RSA raw PKCS#1 octets; ECDSA and DSA the DER SEQUENCE { r, s };
// KCDSA r || s (r as long as the digest, s as long as q).
#pragma once

#include <cstddef>

#include "base/ByteString.h"

constexpr int ECSP_OK = 0;
constexpr int ECSP_FAIL = 1;
constexpr int ECSP_INVALID_DATA = 101;
constexpr int ECSP_MEMORY_ERROR = 102;
constexpr int ECSP_NOT_ENOUGH_BUFFER = 103;
constexpr int ECSP_INVALID_MODE = 104;
constexpr int ECSP_INVALID_ALGORITHM = 105;
constexpr int ECSP_INVALID_KEY_POINTER = 106;
constexpr int ECSP_INVALID_KEY = 107;
constexpr int ECSP_INVALID_DATA_POINTER = 108;
constexpr int ECSP_INVALID_INIT_VECTOR = 109;
constexpr int ECSP_STAGED_OPERATION_FAILED = 110;
constexpr int ECSP_INVALID_FILE_POINTER = 111;
constexpr int ECSP_INVALID_CLASS = 112;
constexpr int ECSP_ASN1_OPERATION_FAILED = 113;
constexpr int ECSP_INVALID_ENCRYPTED_DATA = 114;
constexpr int ECSP_INVALID_SIGNATURE = 115;
constexpr int ECSP_VERIFY_FAIL = 116;

constexpr int ECSP_STAGE_INIT = 1000;
constexpr int ECSP_STAGE_UPDATE = 2000;
constexpr int ECSP_STAGE_FINAL = 3000;

// Text of a result code: "<stage text> <row text>(<code>)". The text lives
// in a buffer of 100 characters owned by the calling thread (one buffer per
// thread rather than one per process, so that two threads formatting at once
// never see each other's text); it stays valid until the thread's next call.
const char* getECSPErrorText(int nCode);

namespace ecsp {

// Digests.
constexpr int kMD2 = 1000;
constexpr int kMD4 = 1100;
constexpr int kMD5 = 1200;
constexpr int kSHA1 = 1400;
constexpr int kSHA256 = 1500;
constexpr int kSHA224 = 1510;  // the wider SHA-2 digests, for ECSP_VerifyDataEx and ECSP_DigestData
constexpr int kSHA384 = 1520;
constexpr int kSHA512 = 1530;
constexpr int kHAS160 = 1800;
// Random generators: all three are served by OpenSSL's DRBG.
constexpr int kRandom0 = 3400;
constexpr int kRandom1 = 3410;
constexpr int kRandom2 = 3420;
// Block ciphers.
constexpr int kDES = 11001;
constexpr int kDES2 = 11002;  // two-key Triple-DES (16-byte key)
constexpr int kTripleDES = 11003;
constexpr int kSEED = 11110;
constexpr int kRC2_40 = 11240;   // the last two digits name the effective key bits
constexpr int kRC2_64 = 11264;
constexpr int kRC2_128 = 11228;
constexpr int kRC2_192 = 11292;
constexpr int kRC2_256 = 11256;
// RSA encryption: PKCS#1 v1.5 (512/1024/2048) and OAEP with SHA-1 (1024/2048).
constexpr int kRSA512 = 12000;
constexpr int kRSA1024 = 12001;
constexpr int kRSA2048 = 12002;
constexpr int kRSAOAEP1024 = 13101;
constexpr int kRSAOAEP2048 = 13102;
// MACs: HMAC over the digest named by the last four digits.
constexpr int kHMAC_MD5 = 31200;
constexpr int kHMAC_SHA1 = 31400;
constexpr int kHMAC_SHA256 = 31500;
constexpr int kHMAC_HAS160 = 31800;
// Key agreement: ECDH on sect163k1 / c2pnb163v1 / secp160r1, and finite-field DH.
constexpr int kECDH_K163 = 42001;
constexpr int kDH = 42002;
constexpr int kECDH_C2PNB163V1 = 42004;
constexpr int kECDH_P160 = 42008;
// Signatures.
constexpr int kMD5RSA512 = 121200;
constexpr int kMD5RSA1024 = 121201;
constexpr int kMD5RSA2048 = 121202;
constexpr int kSHA1RSA512 = 121400;
constexpr int kSHA1RSA1024 = 121401;
constexpr int kSHA1RSA2048 = 121402;
constexpr int kSHA256RSA1024 = 121501;
constexpr int kSHA256RSA2048 = 121502;
constexpr int kPSSSHA1RSA1024 = 131401;
constexpr int kPSSSHA1RSA2048 = 131402;
constexpr int kKCDSA_SHA1_512 = 141400;
constexpr int kKCDSA_SHA1_1024 = 141401;
constexpr int kKCDSA_SHA1_2048 = 141402;
constexpr int kKCDSA_HAS160_512 = 141800;
constexpr int kKCDSA_HAS160_1024 = 141801;
constexpr int kKCDSA_HAS160_2048 = 141802;
constexpr int kDSA_SHA1 = 161400;
constexpr int kECDSA_SHA1_K163 = 171401;
constexpr int kECDSA_SHA1_C2PNB163V1 = 171404;
constexpr int kECDSA_SHA1_P160 = 171408;

}  // namespace ecsp

// Cipher modes of the core: 2 ECB, 3 CBC, 4 CFB (full-block feedback),
// 5 OFB. 6 and 7 have no cipher here and fail with ECSP_INVALID_MODE.
constexpr int ECSP_MODE_ECB = 2;
constexpr int ECSP_MODE_CBC = 3;
constexpr int ECSP_MODE_CFB = 4;
constexpr int ECSP_MODE_OFB = 5;

// Paddings of the core, used by ECB and CBC (the stream modes CFB and OFB
// never pad):
//   0  none: the input must be a whole number of blocks;
//   3  zero bytes up to the block boundary, none when already aligned; the
//      zeros cannot be told from data, so decryption leaves them in place;
//   8  PKCS#5/#7: 1..block-size bytes each holding the count;
//   10 ISO/IEC 9797-1 method 2: 0x80 and zeros, always added, removed on
//      decryption (malformed padding fails with ECSP_INVALID_ENCRYPTED_DATA).
constexpr int ECSP_PAD_NONE = 0;
constexpr int ECSP_PAD_ZERO = 3;
constexpr int ECSP_PAD_PKCS = 8;
constexpr int ECSP_PAD_ISO9797_2 = 10;

struct ECSP_PKEY;  // a parsed public-key object (OpenSSL or KCDSA)

// The core's key object. For a block cipher it is a view of the key bytes;
// ECSP_GenerateKey copies them into bsKey and, for public-key algorithms,
// parses them once into pPKey. A key built by hand (the service classes'
// _NoGenKey forms) only sets nAlgID, pbKey and nKeyLen; the parse then
// happens inside the call that uses it.
struct ECSP_KEY {
  ECSP_KEY() = default;
  ECSP_KEY(const ECSP_KEY&) = delete;
  ECSP_KEY& operator=(const ECSP_KEY&) = delete;
  ~ECSP_KEY();  // zeroizes the copied bytes and frees pPKey

  int nAlgID = 0;
  const unsigned char* pbKey = nullptr;
  int nKeyLen = 0;
  ByteString bsKey;
  ECSP_PKEY* pPKey = nullptr;
};

// Checks and copies key bytes into *pKey for the algorithm.
int ECSP_GenerateKey(int nAlgID, const unsigned char* pbKey, int nKeyLen, ECSP_KEY* pKey);

// Upper bound of the output of ECSP_EncryptData/ECSP_DecryptData for nInLen
// input bytes (exact for symmetric encryption).
int ECSP_GetOutputLength(int nAlgID, int nMode, int nPadding, int nInLen, bool bEncrypt);

// Symmetric or RSA encryption. *pnOutLen holds the room at pOut on entry and
// the bytes written on return (ECSP_NOT_ENOUGH_BUFFER if the room is short).
// RSA ignores mode, padding and IV and encrypts with the public key.
int ECSP_EncryptData(int nAlgID, int nMode, int nPadding, const ECSP_KEY* pKey, const unsigned char* pIV,
                     int nIVLen, const unsigned char* pIn, int nInLen, unsigned char* pOut, int* pnOutLen);
int ECSP_DecryptData(int nAlgID, int nMode, int nPadding, const ECSP_KEY* pKey, const unsigned char* pIV,
                     int nIVLen, const unsigned char* pIn, int nInLen, unsigned char* pOut, int* pnOutLen);

// Digests (MD2 and MD4 have no digest here: ECSP_INVALID_ALGORITHM).
// A staged digest lives in a context from ECSP_DigestDataNew; Init may be
// called again on a used context to start over.
struct ECSP_DIGEST_CTX;
int ECSP_DigestData(int nAlgID, const unsigned char* pIn, int nInLen, ByteString* pDigest);
ECSP_DIGEST_CTX* ECSP_DigestDataNew();  // null when out of memory
void ECSP_DigestDataFree(ECSP_DIGEST_CTX* pCtx);
int ECSP_DigestDataInit(int nAlgID, ECSP_DIGEST_CTX* pCtx);
int ECSP_DigestDataUpdate(ECSP_DIGEST_CTX* pCtx, const unsigned char* pIn, int nInLen);
int ECSP_DigestDataFinal(ECSP_DIGEST_CTX* pCtx, ByteString* pDigest);

// Random bytes from generator nAlgID (3400, 3410, 3420).
int ECSP_GenerateRandom(int nAlgID, unsigned char* pOut, int nLen);

// HMAC. The staged contexts are released by the Final call.
struct ECSP_MAC_CTX;
int ECSP_GenerateMAC(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                     ByteString* pMac);
int ECSP_VerifyMAC(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                   const unsigned char* pMac, int nMacLen);
int ECSP_GenerateMACInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_MAC_CTX** ppCtx);
int ECSP_GenerateMACUpdate(ECSP_MAC_CTX* pCtx, const unsigned char* pIn, int nInLen);
int ECSP_GenerateMACFinal(ECSP_MAC_CTX* pCtx, ByteString* pMac);
int ECSP_VerifyMACInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_MAC_CTX** ppCtx);
int ECSP_VerifyMACUpdate(ECSP_MAC_CTX* pCtx, const unsigned char* pIn, int nInLen);
int ECSP_VerifyMACFinal(ECSP_MAC_CTX* pCtx, const unsigned char* pMac, int nMacLen);

// Key pairs: RSA (the RSA encryption and signature codes give the size),
// EC (the ECDSA and ECDH codes give the curve), DSA (1024/160), DH
// (ffdhe2048) and KCDSA (the code gives the size of p; pDomain, when not
// empty, supplies p, q, g as DER SEQUENCE { p, q, g } and saves their
// generation). Private key out as PKCS#8 (KCDSA: SEQUENCE { p, q, g, y, x }),
// public key as SubjectPublicKeyInfo (KCDSA: SEQUENCE { p, q, g, y }).
int ECSP_GenerateKeyPair(int nAlgID, const ByteString& bsDomain, ByteString* pPrivateKey, ByteString* pPublicKey);

// Shared secret of our private key and the peer's public key (ECDH or DH).
int ECSP_GenerateSharedKey(int nAlgID, const unsigned char* pPrivKey, int nPrivLen, const unsigned char* pPeerKey,
                           int nPeerLen, ByteString* pShared);

// Signatures over a message (the core hashes it with the code's digest).
struct ECSP_SIGN_CTX;
int ECSP_SignData(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                  ByteString* pSignature);
int ECSP_VerifyData(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                    const unsigned char* pSig, int nSigLen);
int ECSP_SignDataInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_SIGN_CTX** ppCtx);
int ECSP_SignDataUpdate(ECSP_SIGN_CTX* pCtx, const unsigned char* pIn, int nInLen);
int ECSP_SignDataFinal(ECSP_SIGN_CTX* pCtx, ByteString* pSignature);
int ECSP_VerifyDataInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_SIGN_CTX** ppCtx);
int ECSP_VerifyDataUpdate(ECSP_SIGN_CTX* pCtx, const unsigned char* pIn, int nInLen);
int ECSP_VerifyDataFinal(ECSP_SIGN_CTX* pCtx, const unsigned char* pSig, int nSigLen);

// Verification by scheme and digest rather than by code, for the keys and
// digests a certificate path may carry beyond the codes above: any RSA size,
// any named EC curve, any DSA domain, KCDSA of any size.
//   nScheme    ECSP_SCHEME_* below
//   nDigest    core digest code (kMD5, kSHA1, kSHA224, kSHA256, kSHA384,
//              kSHA512, kHAS160; HAS-160 with KCDSA only)
//   nMgfDigest RSA-PSS: the MGF1 digest (core digest code)
//   nSaltLen   RSA-PSS: the exact salt length (RFC 8017 9.1.2)
// Key forms and signature forms as for ECSP_VerifyData. A key of another
// kind than the scheme is ECSP_INVALID_KEY.
constexpr int ECSP_SCHEME_RSA_PKCS1 = 1;
constexpr int ECSP_SCHEME_RSA_PSS = 2;
constexpr int ECSP_SCHEME_ECDSA = 3;
constexpr int ECSP_SCHEME_DSA = 4;
constexpr int ECSP_SCHEME_KCDSA = 5;
struct ECSP_VERIFY_PARAMS {
  int nScheme = 0;
  int nDigest = 0;
  int nMgfDigest = 0;
  int nSaltLen = 0;
};
int ECSP_VerifyDataEx(const ECSP_VERIFY_PARAMS& params, const unsigned char* pKey, int nKeyLen,
                      const unsigned char* pIn, int nInLen, const unsigned char* pSig, int nSigLen);

// Releases a staged sign/verify or MAC context that will not be finished.
void ECSP_SignDataFree(ECSP_SIGN_CTX* pCtx);
void ECSP_MACFree(ECSP_MAC_CTX* pCtx);

// The licence gate of the service classes: 0 admits. This core admits every
// caller; the gate stays so that a licensed build can refuse here.
int ECSP_CheckLicense();
