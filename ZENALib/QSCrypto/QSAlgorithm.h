// Algorithm numbers of the library and their translation into the crypto
// core's numbers.
//
// The library numbers are returned by parameterless accessors so that no
// caller writes a number itself. Translations return -1 for a number that
// has no core counterpart.
#pragma once

namespace QSAlgorithm {

// Digests.
constexpr int MD2() { return 1000; }
constexpr int MD4() { return 1001; }
constexpr int MD5() { return 1002; }
constexpr int SHA1() { return 1011; }
constexpr int SHA256() { return 1012; }
constexpr int HAS160() { return 1020; }
// Random generators.
constexpr int Random() { return 2000; }
constexpr int Random2() { return 2010; }
constexpr int Random3() { return 2020; }
// Block ciphers.
constexpr int DES() { return 3000; }
constexpr int DES_EDE2() { return 3010; }
constexpr int TripleDES() { return 3011; }
constexpr int SEED() { return 3020; }
constexpr int RC2_40() { return 3050; }
constexpr int RC2_64() { return 3051; }
constexpr int RC2_128() { return 3052; }
constexpr int RC2_192() { return 3053; }
constexpr int RC2_256() { return 3054; }
constexpr int Cipher3060() { return 3060; }
constexpr int Cipher3090() { return 3090; }
constexpr int Cipher3091() { return 3091; }
// Public-key encryption.
constexpr int RSA512() { return 4000; }
constexpr int RSA1024() { return 4001; }
constexpr int RSA2048() { return 4002; }
constexpr int RSA4010() { return 4010; }
constexpr int RSA4011() { return 4011; }
constexpr int RSAOAEP1024() { return 4021; }
constexpr int RSAOAEP2048() { return 4022; }
// MACs.
constexpr int MAC5010() { return 5010; }
constexpr int HMAC_MD5() { return 5020; }
constexpr int HMAC_SHA1() { return 5030; }
// Key agreement.
constexpr int ECDH_K163() { return 6010; }
constexpr int ECDH_C2PNB163V1() { return 6011; }
constexpr int DH() { return 6012; }
// Signatures.
constexpr int MD5WithRSA512() { return 7000; }
constexpr int MD5WithRSA1024() { return 7001; }
constexpr int MD5WithRSA2048() { return 7002; }
constexpr int SHA1WithRSA512() { return 7010; }
constexpr int SHA1WithRSA1024() { return 7011; }
constexpr int SHA1WithRSA2048() { return 7012; }
constexpr int KCDSA() { return 7030; }
constexpr int SHA1WithKCDSA512() { return 7031; }
constexpr int SHA1WithKCDSA1024() { return 7032; }
constexpr int SHA1WithKCDSA2048() { return 7033; }
constexpr int HAS160WithKCDSA512() { return 7040; }
constexpr int HAS160WithKCDSA1024() { return 7041; }
constexpr int HAS160WithKCDSA2048() { return 7042; }
constexpr int ECDSAWithSHA1_K163() { return 7050; }
constexpr int ECDSAWithSHA1_C2PNB163V1() { return 7051; }
constexpr int ECDSAWithSHA1_P160() { return 7052; }
constexpr int RSAPSSWithSHA1_1024() { return 7060; }
constexpr int RSAPSSWithSHA1_2048() { return 7061; }
constexpr int SHA256WithRSA1024() { return 7070; }
constexpr int SHA256WithRSA2048() { return 7071; }
// Cipher modes and padding types.
constexpr int ModeECB() { return 3; }
constexpr int ModeCBC() { return 4; }
constexpr int ModeOFB() { return 6; }
constexpr int PaddingNone() { return 0; }
constexpr int PaddingZero() { return 1; }
constexpr int PaddingPKCS() { return 2; }
constexpr int PaddingISO() { return 3; }

// Library number to core number, or -1.
int TranslateAlgID(int nAlgID);
int TranslateMode(int nMode);
int TranslatePadding(int nPaddingType);

}  // namespace QSAlgorithm
