// PPublicKey: operations with a public key given as a DER
// SubjectPublicKeyInfo or taken from a DER certificate: choosing the
// algorithm code of the key, verifying signatures, RSA encryption (PKCS#1
// v1.5 or OAEP) and the key-encryption key of CMS key agreement.
//
// Signatures are in the crypto core's forms: RSA the raw octets, ECDSA and
// DSA DER SEQUENCE { r, s }, KCDSA r || s.
//
// Every method returns 0 or a positive code and leaves the failure in the
// trace (PTrace.h); a callee's failure passes its code through unchanged.
#pragma once

#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PPublicKey : public PTrace {
 public:
  // Certificate kinds of getPublicKeyInfoFromCert: X.509 only.
  static constexpr int CERT_KIND_X509 = 1;

  PPublicKey() : PTrace("PPublicKey") {}

  // GetPublicKeyAlgorithm: the algorithm code of the key in *pnAlg. RSA
  // keys give their size code (4000/4001/4002 for 512/1024/2048 bits, else
  // code 5); KCDSA and KCDSA1 keys the signature code for nHashAlg (SHA-1
  // or 0: 7031-7033, HAS-160: 7040-7042, by the size of p); EC keys on
  // sect163k1, c2pnb163v1 and secp160r1 7050, 7051, 7052 with SHA-1 or 0.
  //   code 1  the SubjectPublicKeyInfo does not decode (its trace follows)
  //   code 5  "nLen(%d) is not proper RSA public key length." (octets)
  //   code 9  "The %d with KCDSA is not supported." (the hash code)
  //   code 12 "The SHA1 with KCDSA %dbit ..."/"The HAS160 with KCDSA %dbit ..."
  //   code 36 "bsNamedCurve length error." (no named curve in the parameters)
  //   code 39 "The named curve(%s) is not supported."
  //   code 40 the same for SHA-256, code 41 "The ECDSA algorithm only
  //           support SHA1 and SHA256 algorithm." for another hash
  //   code 50 "bsPublicKeyAlgorithm(%s) is unknwon algorithm."
  //   code 51 "The %s algorithm is not supported." (a DSA or DH key)
  // Decoding failures of the key parts return the codec's code under the
  // fields "rsaPublicKey", "kcdsaParams", "ecpkParams".
  int GetPublicKeyAlgorithm(const ByteString& bsSubjectPublicKeyInfo, int nHashAlg, int* pnAlg);

  // verifySignature: 0 when bsSignature is the key's signature of bsData
  // with the hash nHashAlgo (0 is SHA-1) and, for RSA, PKCS#1 v1.5 or PSS
  // (SHA-1, MGF1-SHA-1, salt 20). RSA refusals: 5 PSS with MD5 or SHA-256,
  // 6 PSS with a 512-bit key, 7/8/9 another hash for a 512/1024/2048-bit
  // key, 14 another size ("The RSA(%d) signature is not supported.", bits),
  // 15 "signature length error."; KCDSA and EC keys as GetPublicKeyAlgorithm.
  // A signature that does not hold: the service's 116 (field
  // "sign.VerifyData", or "ECSP_VerifyData" for PSS).
  int verifySignature(const ByteString& bsSubjectPublicKeyInfo, int nHashAlgo, bool bUsePss, const ByteString& bsData,
                      const ByteString& bsSignature);
  // verifySignatureWithCert: the same with the key of a DER certificate.
  int verifySignatureWithCert(const ByteString& bsCert, int nHashAlgo, bool bUsePss, const ByteString& bsData,
                              const ByteString& bsSignature);
  // getPublicKeyInfoFromCert: the certificate's SubjectPublicKeyInfo (DER,
  // as it stands in the certificate). 1 "Unknown certificate type." (field
  // "unCertKind") for another kind; 2 for a certificate that cannot be read.
  int getPublicKeyInfoFromCert(const ByteString& bsCert, int unCertKind, ByteString& bsSubjectPublicKeyInfo);

  // verifySignatureWithAlgID: the wider verification a certificate path
  // needs, driven by the signature AlgorithmIdentifier (DER) rather than by
  // a hash code: RSA PKCS#1 v1.5 with MD5, SHA-1, SHA-224/256/384/512; RSA-PSS
  // with the hash, MGF1 hash and salt of its parameters; ECDSA with SHA-1,
  // SHA-224/256/384/512 on any named curve; DSA with SHA-1, SHA-224/256;
  // KCDSA and KCDSA1 with SHA-1 and HAS-160; any key size.
  //   code 60 "The signature algorithm(%s) is not supported."
  //   code 61 "The key(%s) does not match the signature algorithm."
  //   code 62 "The RSASSA-PSS parameters are not supported."
  //   codes 1, 50 as GetPublicKeyAlgorithm for the key; the core's code
  //   (field "ECSP_VerifyDataEx"): 116 a signature that does not hold, 115
  //   a malformed one, 107 a key the core cannot use.
  int verifySignatureWithAlgID(const ByteString& bsSubjectPublicKeyInfo, const ByteString& bsSignatureAlgID,
                               const ByteString& bsData, const ByteString& bsSignature);
  // verifyCertificateSignature: the signature of a DER certificate (or
  // CRL: any SEQUENCE { tbs, AlgorithmIdentifier, BIT STRING }) under the
  // issuer's SubjectPublicKeyInfo, over the signed bytes as received.
  // code 63 for an outline that cannot be read; otherwise as
  // verifySignatureWithAlgID.
  int verifyCertificateSignature(const ByteString& bsSigned, const ByteString& bsIssuerSubjectPublicKeyInfo);

  // encrypt: RSA encryption of bsData with the key, PKCS#1 v1.5 (size codes
  // 4000-4002) or OAEP with SHA-1 (4021/4022, 1024 and 2048 bits only).
  //   code 3  "bsPublicKeyAlgorithm(%s) is unknwon algorithm." (not RSA)
  //   code 4  "The RSA OAEP supported only 1024, 2048bit"
  //   code 5  "nLen(%d) is not proper RSA public key length."
  //   code 6  "data length error"
  //   the service's code under "encrypt.EncryptData"
  int encrypt(const ByteString& bsSubjectPublicKeyInfo, bool bUseOaep, const ByteString& bsData,
              ByteString& bsCipher);
  int encryptWithCert(const ByteString& bsCert, bool bUseOaep, const ByteString& bsData, ByteString& bsCipher);

  // encrypt, key-agreement form: the key-encryption key for CMS key
  // agreement between our private key (PKCS#8 DER) and the peer's ECDH or DH
  // key, for the wrap algorithm of nSymmetricAlg (3011 Triple-DES wrap, 24
  // octets; RC2 codes: RC2 wrap, 16 octets). ECDH: the X9.63 key derivation
  // with SHA-1 over ECC-CMS-SharedInfo (RFC 3278 8.2); DH: RFC 2631 2.1.2
  // with OtherInfo. bsUKM is the user keying material (empty or 64 octets).
  //   code 20 "Only support for ECDH and DH Algorithm."
  //   code 21 "partAInfo MUST contain 512 bits."
  //   code 22 "nSymmetricAlg(%d) is not supported."
  //   the service's code under "key.GenerateSharedKey"
  int encrypt(const ByteString& bsPeerSubjectPublicKeyInfo, const ByteString& bsPrivateKey, int nSymmetricAlg,
              const ByteString& bsUKM, ByteString& bsKEK);

 private:
  // The RSA steps of verifySignature for a modulus of nLen octets.
  int verifyRsa(const ByteString& bsSubjectPublicKeyInfo, int nLen, int nHashAlgo, bool bUsePss,
                const ByteString& bsData, const ByteString& bsSignature);
};
