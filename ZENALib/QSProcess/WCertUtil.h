// WCertUtil: the compact certificate form of WTLS (WAP wireless TLS).
//
//   uint8   certificate_version          (1)
//   uint8   signature_algorithm          anonymous 0, ecdsa_sha 1, rsa_sha 2
//   Identifier issuer
//   uint32  valid_not_before, valid_not_after   (seconds since 1970, big-endian)
//   Identifier subject
//   uint8   public_key_type              rsa 2, ecdh 3, ecdsa 4
//   uint8   parameter_index              255: a parameter set follows (uint16 length + bytes)
//   public key    rsa: uint16 length + exponent, uint16 length + modulus
//                 ecdh, ecdsa: uint8 length + point
//   signature     uint16 length + bytes (none for anonymous)
//
//   Identifier: uint8 type (null 0, text 1, binary 2, key_hash_sha 254,
//   x509_name 255); text: uint16 character set, uint8 length + name.
//
// Only text identifiers are taken; the other kinds are refused by name.
// Every length is checked against the bytes left before anything is read.
#pragma once

#include <cstdint>

#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"
#include "ZENALib/QSProcess/PTrace.h"

class WCertUtil : public PTrace {
 public:
  WCertUtil() : PTrace("WCertUtil") {}

  // Parses the certificate; 0 or the failing code. A failure leaves the
  // fields cleared.
  int parseWTLSCertificate(const ByteString& bsCert);
  // The public key as a SubjectPublicKeyInfo: rsaEncryption with an
  // RSAPublicKey (modulus of 512, 1024 or 2048 bits), or id-ecPublicKey with
  // the WTLS curve "2 23 43 1 4 <parameter index>" and the point.
  int getPublicKeyInfo(RSubjectPublicKeyInfo* out);

  enum SignAlg { SIGN_ANONYMOUS = 0, SIGN_ECDSA_SHA = 1, SIGN_RSA_SHA = 2 };
  enum IdType { ID_NULL = 0, ID_TEXT = 1, ID_BINARY = 2, ID_KEY_HASH_SHA = 254, ID_X509_NAME = 255 };
  enum KeyType { KEY_RSA = 2, KEY_ECDH = 3, KEY_ECDSA = 4 };

  int m_nVersion = 0;
  int m_eSignAlg = 0;
  int m_eIssuer = 0;
  int m_nIssuerCharSet = 0;
  ByteString m_bsIssuer;
  std::uint32_t m_nBefore = 0;
  std::uint32_t m_nAfter = 0;
  int m_eSubject = 0;
  int m_nSubjectCharSet = 0;
  ByteString m_bsSubject;
  int m_ePublicType = 0;
  int m_nParameterIndex = 0;
  ByteString m_bsECCPublicKey;
  ByteString m_bsExponent;
  ByteString m_bsModulus;
  ByteString m_bsSignature;
  ByteString m_bsToBeSigned;  // the bytes the signature covers

  // Codes, one per refusal.
  static constexpr int W_ERR_VERSION = 1, W_ERR_SIGN_ALG = 2, W_ERR_ISSUER_TYPE = 3, W_ERR_ISSUER_LENGTH = 4,
                       W_ERR_VALIDITY = 5, W_ERR_SUBJECT_TYPE = 6, W_ERR_SUBJECT_LENGTH = 7,
                       W_ERR_PUBLIC_TYPE = 8, W_ERR_PARAMETER_INDEX = 9, W_ERR_TYPE_INDEX = 10,
                       W_ERR_RSA_PARAMETER = 11, W_ERR_ECC_KEY_LENGTH = 12, W_ERR_EXPONENT_LENGTH = 13,
                       W_ERR_MODULUS_LENGTH = 14, W_ERR_SIGNATURE_LENGTH = 15, W_ERR_TRAILING = 16,
                       W_ERR_TRUNCATED = 17, W_ERR_RSA_MODULUS = 18, W_ERR_ENCODE = 19;

 private:
  void clear();
  // An Identifier; bIssuer picks the issuer's texts and codes.
  int readIdentifier(class ByteReader& r, bool bIssuer);
};
