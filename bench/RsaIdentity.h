// A self-signed RSA-2048 certificate and its key, made once per process with
// libcrypto, for the benchmarks that need a recipient or a server identity.
#pragma once

#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

#include "base/ByteString.h"

struct BenchRsaIdentity {
  EVP_PKEY* pkey = nullptr;
  X509* x509 = nullptr;
  ByteString cert, key;  // DER certificate, PKCS#8 DER key
};

inline BenchRsaIdentity MakeBenchRsaIdentity(long serial) {
  BenchRsaIdentity out;
  out.pkey = EVP_RSA_gen(2048);
  out.x509 = X509_new();
  ASN1_INTEGER_set(X509_get_serialNumber(out.x509), serial);
  X509_gmtime_adj(X509_getm_notBefore(out.x509), 0);
  X509_gmtime_adj(X509_getm_notAfter(out.x509), 86400);
  X509_NAME* name = X509_get_subject_name(out.x509);
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("bench"), -1, -1, 0);
  X509_set_issuer_name(out.x509, name);
  X509_set_pubkey(out.x509, out.pkey);
  X509_sign(out.x509, out.pkey, EVP_sha256());
  unsigned char* p = nullptr;
  int n = i2d_X509(out.x509, &p);
  out.cert = ByteString(p, n);
  OPENSSL_free(p);
  PKCS8_PRIV_KEY_INFO* p8 = EVP_PKEY2PKCS8(out.pkey);
  p = nullptr;
  n = i2d_PKCS8_PRIV_KEY_INFO(p8, &p);
  out.key = ByteString(p, n);
  OPENSSL_free(p);
  PKCS8_PRIV_KEY_INFO_free(p8);
  return out;
}
