// KCDSA: the Korean certificate-based digital signature algorithm of
// TTAS.KO-12.0001/R1, on OpenSSL's BIGNUM.
//
// Key bytes are DER: SEQUENCE { p, q, g, y } for a public key and
// SEQUENCE { p, q, g, y, x } for a private key, all INTEGERs.
// With l the digest's block length in bits (512 for every digest here):
//   Z = y mod 2^l, H = Hash(Z || M), W = g^k mod p, R = Hash(W),
//   E = (R xor H) mod q, S = x (k - E) mod q; the signature is R || S.
// When the digest is longer than q (the later revision's SHA-224/256 with a
// shorter q), R and H keep their rightmost |q| bytes.
#pragma once

#include "ZENALib/QSCrypto/ECSPInternal.h"
#include "base/ByteString.h"

struct KCDSA_KEY;

int KCDSA_ParseKey(const unsigned char* p, int n, KCDSA_KEY** ppKey);
void KCDSA_FreeKey(KCDSA_KEY* pKey);
int KCDSA_PBits(const KCDSA_KEY* pKey);
bool KCDSA_HasPrivate(const KCDSA_KEY* pKey);

// Starts the message digest of a signature: Init and the Z block.
int KCDSA_Start(const KCDSA_KEY* pKey, ecsp_internal::DigestKind kind, ecsp_internal::Digest* pDigest);
// Finishes a signature over what went into pDigest. pFixedK, when not null,
// is the nonce k as big-endian bytes (known-answer tests only).
int KCDSA_FinishSign(const KCDSA_KEY* pKey, ecsp_internal::Digest* pDigest, const ByteString* pFixedK,
                     ByteString* pSignature);
int KCDSA_FinishVerify(const KCDSA_KEY* pKey, ecsp_internal::Digest* pDigest, const unsigned char* pSig,
                       int nSigLen);

// A key pair with p of nPBits bits. bsDomain, when not empty, gives
// SEQUENCE { p, q, g }; otherwise q (160 bits), p = 2qJ + 1 and g are made.
int KCDSA_GenerateKeyPair(int nPBits, const ByteString& bsDomain, ByteString* pPrivateKey, ByteString* pPublicKey);
