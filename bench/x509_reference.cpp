// Certificate and CRL decoding beside fair references: an ASN1_ITEM template
// decoder of the certificate structure built with OpenSSL's own template
// macros (the public key left as a BIT STRING, names as plain SEQUENCE OF SET
// OF type-and-value, so neither side builds key objects or canonical names),
// the same with every extension value decoded, OpenSSL's bare
// ASN1_get_object walk, and d2i_X509_CRL on generated CRLs of 1k-100k entries.
#include <benchmark/benchmark.h>
#include <openssl/asn1t.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <fstream>
#include <sstream>
#include <string>

#include "bench/BenchData.h"
#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAuthorityInfoAccessSyntax.h"
#include "ZENALib/ASN1Pkix/RAuthorityKeyIdentifier.h"
#include "ZENALib/ASN1Pkix/RBasicConstraints.h"
#include "ZENALib/ASN1Pkix/RCRLDistPointsSyntax.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RCertificatePolicies.h"
#include "ZENALib/ASN1Pkix/RExtKeyUsageSyntax.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"

// ---- the template reference (bench only) ----

typedef struct {
  ASN1_OBJECT* algorithm;
  ASN1_TYPE* parameter;
} BenchAlg;
ASN1_SEQUENCE(BenchAlg) = {ASN1_SIMPLE(BenchAlg, algorithm, ASN1_OBJECT),
                           ASN1_OPT(BenchAlg, parameter, ASN1_ANY)} ASN1_SEQUENCE_END(BenchAlg)

typedef struct {
  ASN1_OBJECT* type;
  ASN1_TYPE* value;
} BenchAva;
ASN1_SEQUENCE(BenchAva) = {ASN1_SIMPLE(BenchAva, type, ASN1_OBJECT),
                           ASN1_SIMPLE(BenchAva, value, ASN1_ANY)} ASN1_SEQUENCE_END(BenchAva)
DEFINE_STACK_OF(BenchAva)

ASN1_ITEM_TEMPLATE(BenchRdn) = ASN1_EX_TEMPLATE_TYPE(ASN1_TFLG_SET_OF, 0, BenchRdn, BenchAva)
ASN1_ITEM_TEMPLATE_END(BenchRdn)
ASN1_ITEM_TEMPLATE(BenchName) = ASN1_EX_TEMPLATE_TYPE(ASN1_TFLG_SEQUENCE_OF, 0, BenchName, BenchRdn)
ASN1_ITEM_TEMPLATE_END(BenchName)

typedef struct {
  ASN1_TIME* notBefore;
  ASN1_TIME* notAfter;
} BenchValidity;
ASN1_SEQUENCE(BenchValidity) = {ASN1_SIMPLE(BenchValidity, notBefore, ASN1_TIME),
                                ASN1_SIMPLE(BenchValidity, notAfter, ASN1_TIME)} ASN1_SEQUENCE_END(BenchValidity)

typedef struct {
  BenchAlg* algorithm;
  ASN1_BIT_STRING* key;
} BenchSpki;
ASN1_SEQUENCE(BenchSpki) = {ASN1_SIMPLE(BenchSpki, algorithm, BenchAlg),
                            ASN1_SIMPLE(BenchSpki, key, ASN1_BIT_STRING)} ASN1_SEQUENCE_END(BenchSpki)

typedef struct {
  ASN1_INTEGER* version;
  ASN1_INTEGER* serial;
  BenchAlg* signature;
  ASN1_VALUE* issuer;
  BenchValidity* validity;
  ASN1_VALUE* subject;
  BenchSpki* key;
  ASN1_BIT_STRING* issuerUID;
  ASN1_BIT_STRING* subjectUID;
  STACK_OF(X509_EXTENSION) * extensions;
} BenchTbs;
ASN1_SEQUENCE(BenchTbs) = {
    ASN1_EXP_OPT(BenchTbs, version, ASN1_INTEGER, 0),
    ASN1_SIMPLE(BenchTbs, serial, ASN1_INTEGER),
    ASN1_SIMPLE(BenchTbs, signature, BenchAlg),
    ASN1_SIMPLE(BenchTbs, issuer, BenchName),
    ASN1_SIMPLE(BenchTbs, validity, BenchValidity),
    ASN1_SIMPLE(BenchTbs, subject, BenchName),
    ASN1_SIMPLE(BenchTbs, key, BenchSpki),
    ASN1_IMP_OPT(BenchTbs, issuerUID, ASN1_BIT_STRING, 1),
    ASN1_IMP_OPT(BenchTbs, subjectUID, ASN1_BIT_STRING, 2),
    ASN1_EXP_SEQUENCE_OF_OPT(BenchTbs, extensions, X509_EXTENSION, 3),
} ASN1_SEQUENCE_END(BenchTbs)

typedef struct {
  BenchTbs* tbs;
  BenchAlg* algorithm;
  ASN1_BIT_STRING* signature;
} BenchCert;
ASN1_SEQUENCE(BenchCert) = {ASN1_SIMPLE(BenchCert, tbs, BenchTbs), ASN1_SIMPLE(BenchCert, algorithm, BenchAlg),
                            ASN1_SIMPLE(BenchCert, signature, ASN1_BIT_STRING)} ASN1_SEQUENCE_END(BenchCert)

DECLARE_ASN1_FUNCTIONS(BenchCert)
IMPLEMENT_ASN1_FUNCTIONS(BenchCert)

namespace {

const ByteString& Certificate() {
  static const ByteString der = ReadSourceFile("/tests/data/pkix/cms/korean/test_KTNET_signCert.der");
  return der;
}

// Decodes the value of one extension with the class its identifier names
// (id-ce 2.5.29.x and id-pe 1.3.6.1.5.5.7.1.x); returns false on a failure.
bool DecodeExtensionValue(const RExtension& e) {
  const ByteString& id = e.getExtnID().getValue();
  const ByteString& v = e.getExtnValue().getValue();
  const unsigned char* d = id.data();
  auto decode = [&](auto&& obj) { return obj.fromASN1Object(v) == 0; };
  if (id.length() == 3 && d[0] == 0x55 && d[1] == 0x1d) {
    switch (d[2]) {
      case 14: return decode(ASN1OctetString());
      case 15: return decode(ASN1BitString());
      case 17:
      case 18: return decode(RGeneralNames());
      case 19: return decode(RBasicConstraints());
      case 31: return decode(RCRLDistPointsSyntax());
      case 32: return decode(RCertificatePolicies());
      case 35: return decode(RAuthorityKeyIdentifier());
      case 37: return decode(RExtKeyUsageSyntax());
      default: return true;
    }
  }
  if (id.length() == 8 && d[7] == 1) return decode(RAuthorityInfoAccessSyntax());
  return true;
}

void DecodeOurs(benchmark::State& st, bool extensions) {
  const ByteString& der = Certificate();
  for (auto _ : st) {
    RCertificate cert;
    if (cert.fromASN1Object(der) != 0) return st.SkipWithError("decode failed");
    if (extensions)
      for (const RExtension& e : cert.getTbsCertificate().getExtensions().items())
        if (!DecodeExtensionValue(e)) return st.SkipWithError("extension decode failed");
    benchmark::DoNotOptimize(cert.getTbsCertificate().getSerialNumber().getValue().data());
  }
  st.SetBytesProcessed(st.iterations() * der.length());
}

void DecodeTemplate(benchmark::State& st, bool extensions) {
  const ByteString& der = Certificate();
  for (auto _ : st) {
    const unsigned char* p = der.data();
    BenchCert* c = d2i_BenchCert(nullptr, &p, der.length());
    if (!c) return st.SkipWithError("template decode failed");
    if (extensions) {
      for (int i = 0; i < sk_X509_EXTENSION_num(c->tbs->extensions); ++i) {
        X509_EXTENSION* e = sk_X509_EXTENSION_value(c->tbs->extensions, i);
        const X509V3_EXT_METHOD* m = X509V3_EXT_get(e);
        if (!m) continue;
        void* v = X509V3_EXT_d2i(e);
        if (!v) return st.SkipWithError("extension decode failed");
        if (m->it)
          ASN1_item_free(static_cast<ASN1_VALUE*>(v), ASN1_ITEM_ptr(m->it));
        else
          m->ext_free(v);
      }
    }
    benchmark::DoNotOptimize(c->tbs->serial);
    BenchCert_free(c);
  }
  st.SetBytesProcessed(st.iterations() * der.length());
}

void DecodeD2iX509(benchmark::State& st) {
  const ByteString& der = Certificate();
  for (auto _ : st) {
    const unsigned char* p = der.data();
    X509* x = d2i_X509(nullptr, &p, der.length());
    if (!x) return st.SkipWithError("d2i_X509 failed");
    benchmark::DoNotOptimize(X509_get0_serialNumber(x));
    X509_free(x);
  }
  st.SetBytesProcessed(st.iterations() * der.length());
}

// Every element's header, recursing into constructed ones: the least any
// decoder of the whole certificate must do.
long BareWalk(const unsigned char* p, long n) {
  long count = 0;
  const unsigned char* end = p + n;
  while (p < end) {
    long len = 0;
    int tag = 0, cls = 0;
    const unsigned char* q = p;
    const int rc = ASN1_get_object(&q, &len, &tag, &cls, end - p);
    if (rc & 0x80) return -1;
    ++count;
    if (rc & V_ASN1_CONSTRUCTED) {
      const long inner = BareWalk(q, len);
      if (inner < 0) return -1;
      count += inner;
    }
    p = q + len;
  }
  return count;
}

void DecodeBareWalk(benchmark::State& st) {
  const ByteString& der = Certificate();
  for (auto _ : st) {
    const long n = BareWalk(der.data(), der.length());
    if (n <= 0) return st.SkipWithError("walk failed");
    benchmark::DoNotOptimize(n);
  }
  st.SetBytesProcessed(st.iterations() * der.length());
}

// ---- generated CRLs ----

std::string Tlv(unsigned char tag, const std::string& content) {
  std::string out(1, static_cast<char>(tag));
  const std::size_t n = content.size();
  if (n < 0x80) {
    out += static_cast<char>(n);
  } else {
    std::string digits;
    for (std::size_t v = n; v; v >>= 8) digits.insert(digits.begin(), static_cast<char>(v & 0xFF));
    out += static_cast<char>(0x80 | digits.size());
    out += digits;
  }
  return out + content;
}

// A v2 CRL with `entries` revoked certificates, each with a reason code; the
// signature is filler (neither side checks it).
const ByteString& Crl(int entries) {
  static std::string cache[3];
  const int slot = entries >= 100000 ? 2 : entries >= 10000 ? 1 : 0;
  if (cache[slot].empty()) {
    const std::string alg = Tlv(0x30, Tlv(0x06, "\x2a\x86\x48\x86\xf7\x0d\x01\x01\x0b") + std::string("\x05\x00", 2));
    const std::string name =
        Tlv(0x30, Tlv(0x31, Tlv(0x30, Tlv(0x06, "\x55\x04\x03") + Tlv(0x0c, "Bench CRL Issuer"))));
    const std::string reason = Tlv(0x30, Tlv(0x30, Tlv(0x06, "\x55\x1d\x15") + Tlv(0x04, Tlv(0x0a, "\x01"))));
    std::string revoked;
    for (int i = 0; i < entries; ++i) {
      std::string serial;
      for (unsigned v = 0x10000000u + static_cast<unsigned>(i); v; v >>= 8)
        serial.insert(serial.begin(), static_cast<char>(v & 0xFF));
      revoked += Tlv(0x30, Tlv(0x02, serial) + Tlv(0x17, "240101000000Z") + reason);
    }
    const std::string tbs = Tlv(0x30, Tlv(0x02, std::string("\x01", 1)) + alg + name + Tlv(0x17, "240101000000Z") +
                                          Tlv(0x17, "240201000000Z") + Tlv(0x30, revoked));
    cache[slot] = Tlv(0x30, tbs + alg + Tlv(0x03, std::string("\x00", 1) + std::string(256, '\x5a')));
  }
  static ByteString der[3];
  if (der[slot].length() == 0) der[slot] = ByteString(cache[slot].data(), static_cast<int>(cache[slot].size()));
  return der[slot];
}

void CrlOurs(benchmark::State& st) {
  const int n = static_cast<int>(st.range(0));
  const ByteString& der = Crl(n);
  for (auto _ : st) {
    RCertificateList crl;
    if (crl.fromASN1Object(der) != 0) return st.SkipWithError("decode failed");
    benchmark::DoNotOptimize(crl.getTbsCertList().getRevokedCertificates().getCount());
  }
  st.SetItemsProcessed(st.iterations() * n);
}

void CrlOpenssl(benchmark::State& st) {
  const int n = static_cast<int>(st.range(0));
  const ByteString& der = Crl(n);
  for (auto _ : st) {
    const unsigned char* p = der.data();
    X509_CRL* crl = d2i_X509_CRL(nullptr, &p, der.length());
    if (!crl) return st.SkipWithError("d2i_X509_CRL failed");
    benchmark::DoNotOptimize(sk_X509_REVOKED_num(X509_CRL_get_REVOKED(crl)));
    X509_CRL_free(crl);
  }
  st.SetItemsProcessed(st.iterations() * n);
}

// ---- a long SEQUENCE OF: 10,000 INTEGERs ----

typedef STACK_OF(ASN1_INTEGER) BenchIntegers;
ASN1_ITEM_TEMPLATE(BenchIntegerList) =
    ASN1_EX_TEMPLATE_TYPE(ASN1_TFLG_SEQUENCE_OF, 0, BenchIntegerList, ASN1_INTEGER)
ASN1_ITEM_TEMPLATE_END(BenchIntegerList)

class IntegerList : public RListOf<ASN1Integer> {
 public:
  IntegerList() : RListOf("IntegerList") {}
};

void SequenceOfOurs(benchmark::State& st) {
  IntegerList list;
  for (int i = 0; i < st.range(0); ++i) list.add(ASN1Integer(i * 7919));
  for (auto _ : st) {
    const ByteString& der = list.toASN1Object();
    if (der.length() == 0) return st.SkipWithError("encode failed");
    benchmark::DoNotOptimize(der.data());
  }
  st.SetItemsProcessed(st.iterations() * st.range(0));
}

void SequenceOfOpenssl(benchmark::State& st) {
  STACK_OF(ASN1_INTEGER)* list = sk_ASN1_INTEGER_new_null();
  for (int i = 0; i < st.range(0); ++i) {
    ASN1_INTEGER* v = ASN1_INTEGER_new();
    ASN1_INTEGER_set(v, i * 7919);
    sk_ASN1_INTEGER_push(list, v);
  }
  for (auto _ : st) {
    unsigned char* out = nullptr;
    const int n = ASN1_item_i2d(reinterpret_cast<ASN1_VALUE*>(list), &out, ASN1_ITEM_rptr(BenchIntegerList));
    if (n <= 0) return st.SkipWithError("encode failed");
    benchmark::DoNotOptimize(out);
    OPENSSL_free(out);
  }
  sk_ASN1_INTEGER_pop_free(list, ASN1_INTEGER_free);
  st.SetItemsProcessed(st.iterations() * st.range(0));
}

}  // namespace

BENCHMARK_CAPTURE(DecodeOurs, plain, false)->Name("certificate_decode_fair/ours");
BENCHMARK_CAPTURE(DecodeTemplate, plain, false)->Name("certificate_decode_fair/template");
BENCHMARK(DecodeD2iX509)->Name("certificate_decode_fair/d2i_X509");
BENCHMARK(DecodeBareWalk)->Name("certificate_decode_fair/ASN1_get_object_walk");
BENCHMARK_CAPTURE(DecodeOurs, extensions, true)->Name("certificate_decode_extensions/ours");
BENCHMARK_CAPTURE(DecodeTemplate, extensions, true)->Name("certificate_decode_extensions/template");
BENCHMARK(CrlOurs)->Name("crl_decode_per_entry/ours")->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(CrlOpenssl)->Name("crl_decode_per_entry/d2i_X509_CRL")->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(SequenceOfOurs)->Name("sequence_of_encode/ours")->Arg(10000);
BENCHMARK(SequenceOfOpenssl)->Name("sequence_of_encode/openssl")->Arg(10000);
