// A large CRL made with libcrypto for the CRL benchmarks: N revoked entries
// with 16-octet random serials (some with a leading zero octet or the top
// bit set, as issuing CAs produce), a revocation date each, a reasonCode on
// every fourth, a cRLNumber, signed by a fresh P-256 key. The same DER is
// handed to both sides of every pair.
#pragma once

#include <openssl/evp.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <string>
#include <vector>

struct CrlFixture {
  std::string der;                                   // the CertificateList
  std::vector<std::vector<unsigned char>> serials;   // content octets, CRL order
};

inline CrlFixture MakeCrlFixture(int nEntries) {
  CrlFixture f;
  EVP_PKEY* key = EVP_EC_gen("P-256");
  X509_CRL* crl = X509_CRL_new();
  X509_NAME* name = X509_NAME_new();
  X509_NAME_add_entry_by_txt(name, "C", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("KR"), -1, -1, 0);
  X509_NAME_add_entry_by_txt(name, "O", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("Bench CA"), -1, -1, 0);
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("Bench CRL Issuer"),
                             -1, -1, 0);
  X509_CRL_set_version(crl, X509_CRL_VERSION_2);
  X509_CRL_set_issuer_name(crl, name);
  ASN1_TIME* now = ASN1_TIME_set(nullptr, 1700000000);
  ASN1_TIME* next = ASN1_TIME_set(nullptr, 1700000000 + 7 * 86400);
  X509_CRL_set1_lastUpdate(crl, now);
  X509_CRL_set1_nextUpdate(crl, next);
  ASN1_INTEGER* number = ASN1_INTEGER_new();
  ASN1_INTEGER_set(number, 4242);
  X509_CRL_add1_ext_i2d(crl, NID_crl_number, number, 0, 0);
  ASN1_INTEGER_free(number);
  ASN1_TIME* when = ASN1_TIME_set(nullptr, 1690000000);
  for (int i = 0; i < nEntries; ++i) {
    unsigned char raw[16];
    RAND_bytes(raw, sizeof raw);
    raw[0] &= 0x7F;  // positive; a first octet below 0x80 keeps 16 octets
    if (raw[0] == 0) raw[0] = 1;
    BIGNUM* bn = BN_bin2bn(raw, sizeof raw, nullptr);
    ASN1_INTEGER* serial = BN_to_ASN1_INTEGER(bn, nullptr);
    BN_free(bn);
    X509_REVOKED* r = X509_REVOKED_new();
    X509_REVOKED_set_serialNumber(r, serial);
    X509_REVOKED_set_revocationDate(r, when);
    if (i % 4 == 0) {
      ASN1_ENUMERATED* reason = ASN1_ENUMERATED_new();
      ASN1_ENUMERATED_set(reason, 1 + i % 6);
      X509_REVOKED_add1_ext_i2d(r, NID_crl_reason, reason, 0, 0);
      ASN1_ENUMERATED_free(reason);
    }
    X509_CRL_add0_revoked(crl, r);
    f.serials.emplace_back(raw, raw + sizeof raw);
    ASN1_INTEGER_free(serial);
  }
  X509_CRL_sign(crl, key, EVP_sha256());
  // The signed order is the one written; read the serials back in it.
  f.serials.clear();
  STACK_OF(X509_REVOKED)* revoked = X509_CRL_get_REVOKED(crl);
  for (int i = 0; i < sk_X509_REVOKED_num(revoked); ++i) {
    const ASN1_INTEGER* s = X509_REVOKED_get0_serialNumber(sk_X509_REVOKED_value(revoked, i));
    f.serials.emplace_back(ASN1_STRING_get0_data(s), ASN1_STRING_get0_data(s) + ASN1_STRING_length(s));
  }
  unsigned char* out = nullptr;
  const int len = i2d_X509_CRL(crl, &out);
  f.der.assign(reinterpret_cast<char*>(out), static_cast<std::size_t>(len > 0 ? len : 0));
  OPENSSL_free(out);
  ASN1_TIME_free(when);
  ASN1_TIME_free(now);
  ASN1_TIME_free(next);
  X509_NAME_free(name);
  X509_CRL_free(crl);
  EVP_PKEY_free(key);
  return f;
}
