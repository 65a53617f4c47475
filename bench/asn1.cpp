// ASN.1 decoding: a recursive walk of every component of real certificates,
// decoding every primitive with its type's class, beside OpenSSL's
// ASN1_get_object walk and d2i_X509 of the same bytes.
#include <benchmark/benchmark.h>
#include <openssl/asn1.h>
#include <openssl/x509.h>

#include <cstdio>
#include <string>

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1Sequence.h"
#include "ZENALib/ASN1/ASN1Set.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"

namespace {

ByteString ReadData(const char* relative) {
  const std::string path = std::string(QVA_SOURCE_DIR) + "/tests/data/asn1/" + relative;
  ByteString out;
  if (FILE* f = std::fopen(path.c_str(), "rb")) {
    char buf[65536];
    std::size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) out.append(buf, static_cast<int>(n));
    std::fclose(f);
  }
  return out;
}

// Decodes a primitive with its type's class and touches its typed value.
long DecodePrimitive(unsigned char tag, const ByteString& der) {
  switch (tag) {
    case ASN1_TAG_INTEGER: {
      ASN1Integer o;
      return o.fromASN1Object(der) == 0 ? o.getInteger() : -1;
    }
    case ASN1_TAG_OID: {
      ASN1ObjectIdentifier o;
      return o.fromASN1Object(der) == 0 ? o.getOID(' ').length() : -1;
    }
    case ASN1_TAG_BITSTRING: {
      ASN1BitString o;
      int unused = 0;
      return o.fromASN1Object(der) == 0 ? o.getBitString(&unused).length() : -1;
    }
    case ASN1_TAG_BOOLEAN: {
      ASN1Boolean o;
      return o.fromASN1Object(der) == 0 ? o.getBoolean() : -1;
    }
    case ASN1_TAG_UTCTIME: {
      ASN1UTCTime o;
      return o.fromASN1Object(der) == 0 ? static_cast<long>(o.getGMTTime()) : -1;
    }
    case ASN1_TAG_GENERALIZEDTIME: {
      ASN1GeneralizedTime o;
      return o.fromASN1Object(der) == 0 ? static_cast<long>(o.getGMTTime()) : -1;
    }
    default: {
      ASN1Object o;
      return o.fromASN1Object(der) == 0 ? o.getValueLength() : -1;
    }
  }
}

long WalkOurs(const ByteString& der);

long WalkComponents(ASN1Sequence& seq) {
  long sum = seq.getComponentCount();
  for (int i = 0; i < seq.getComponentCount(); ++i) sum += WalkOurs(seq.getComponent(i));
  return sum;
}

// Sequences and sets are split through their component table; an explicit
// tag is read through to what it wraps.
long WalkOurs(const ByteString& der) {
  const unsigned char first = der.data()[0];
  if (first == 0x30) {
    ASN1Sequence seq;
    return seq.fromASN1Object(der) == 0 ? WalkComponents(seq) : -1;
  }
  if (first == 0x31) {
    ASN1Set set;
    return set.fromASN1Object(der) == 0 ? WalkComponents(set) : -1;
  }
  if (first & 0xC0) {
    if (!(first & ASN1_CONSTRUCTED)) return DecodePrimitive(0, der);
    ASN1Object tagged;
    if (tagged.fromASN1Object(der) != 0) return -1;
    const unsigned char inner = tagged.getPrimitiveTag();
    if (inner == ASN1_TAG_SEQUENCE || inner == ASN1_TAG_SET) {
      ASN1Sequence seq;
      return seq.setValue(tagged.getValue()) == 0 ? WalkComponents(seq) : -1;
    }
    return DecodePrimitive(inner, der);
  }
  return DecodePrimitive(first & 0x1F, der);
}

long WalkOpenssl(const unsigned char* p, long len) {
  const unsigned char* end = p + len;
  long sum = 0;
  while (p < end) {
    long l = 0;
    int tag = 0, cls = 0;
    const int r = ASN1_get_object(&p, &l, &tag, &cls, end - p);
    if (r & 0x80) return -1;
    ++sum;
    if (r & V_ASN1_CONSTRUCTED) sum += WalkOpenssl(p, l);
    p += l;
  }
  return sum;
}

void Ours(benchmark::State& state, const char* file) {
  const ByteString der = ReadData(file);
  if (WalkOurs(der) < 0) state.SkipWithError("walk failed");
  for (auto _ : state) benchmark::DoNotOptimize(WalkOurs(der));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * der.length());
}

void OpensslWalk(benchmark::State& state, const char* file) {
  const ByteString der = ReadData(file);
  for (auto _ : state) benchmark::DoNotOptimize(WalkOpenssl(der.data(), der.length()));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * der.length());
}

void OpensslD2i(benchmark::State& state, const char* file) {
  const ByteString der = ReadData(file);
  for (auto _ : state) {
    const unsigned char* p = der.data();
    X509* x = d2i_X509(nullptr, &p, der.length());
    if (!x) state.SkipWithError("d2i_X509 failed");
    X509_free(x);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * der.length());
}

}  // namespace

BENCHMARK_CAPTURE(Ours, ec, "leaf.der")->Name("asn1_walk_ec_cert/ours");
BENCHMARK_CAPTURE(OpensslWalk, ec, "leaf.der")->Name("asn1_walk_ec_cert/openssl");
BENCHMARK_CAPTURE(OpensslD2i, ec, "leaf.der")->Name("asn1_walk_ec_cert/openssl_d2i_X509");
BENCHMARK_CAPTURE(Ours, kr, "korean-pki/test_KTNET_signCert.der")->Name("asn1_walk_korean_cert/ours");
BENCHMARK_CAPTURE(OpensslWalk, kr, "korean-pki/test_KTNET_signCert.der")->Name("asn1_walk_korean_cert/openssl");
BENCHMARK_CAPTURE(OpensslD2i, kr, "korean-pki/test_KTNET_signCert.der")
    ->Name("asn1_walk_korean_cert/openssl_d2i_X509");
