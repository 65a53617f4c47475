// A CRL of 100,000 entries (CrlFixture.h): parseCertList beside
// d2i_X509_CRL, isRevoked beside X509_CRL_get0_by_serial on the listed
// serials and on as many absent ones, and a parse followed by one lookup,
// where libcrypto sorts its entries on the first lookup and we have
// indexed them during the parse.
#include <benchmark/benchmark.h>

#include "CrlFixture.h"
#include "ZENALib/QSProcess/PCertListProcess.h"

namespace {

constexpr int kEntries = 100000;

struct Shared {
  CrlFixture f = MakeCrlFixture(kEntries);
  ByteString der{f.der.data(), static_cast<int>(f.der.size())};
  // Listed serials, then the same serials with their last octet changed
  // (absent, barring a one-in-256 coincidence the counters report).
  std::vector<ByteString> ours;
  std::vector<ASN1_INTEGER*> theirs;
  Shared() {
    for (int pass = 0; pass < 2; ++pass)
      for (const auto& s : f.serials) {
        std::vector<unsigned char> v = s;
        if (pass) v.back() ^= 0x5A;
        ours.emplace_back(v.data(), static_cast<int>(v.size()));
        BIGNUM* bn = BN_bin2bn(v.data(), static_cast<int>(v.size()), nullptr);
        theirs.push_back(BN_to_ASN1_INTEGER(bn, nullptr));
        BN_free(bn);
      }
  }
};

const Shared& Data() {
  static const Shared s;
  return s;
}

void ParseOurs(benchmark::State& st) {
  const Shared& d = Data();
  for (auto _ : st) {
    PCertListProcess p;
    if (p.parseCertList(d.der, nullptr, nullptr) != 0 || p.getRevokedCount() != kEntries)
      return st.SkipWithError("parseCertList failed");
  }
  st.SetItemsProcessed(st.iterations() * kEntries);
}

void ParseOpenssl(benchmark::State& st) {
  const Shared& d = Data();
  for (auto _ : st) {
    const unsigned char* p = d.der.data();
    X509_CRL* crl = d2i_X509_CRL(nullptr, &p, d.der.length());
    if (!crl) return st.SkipWithError("d2i_X509_CRL failed");
    X509_CRL_free(crl);
  }
  st.SetItemsProcessed(st.iterations() * kEntries);
}

void LookupOurs(benchmark::State& st) {
  const Shared& d = Data();
  PCertListProcess p;
  if (p.parseCertList(d.der, nullptr, nullptr) != 0) return st.SkipWithError("parseCertList failed");
  std::size_t i = 0;
  long found = 0;
  for (auto _ : st) {
    int at;
    bool revoked;
    p.isRevoked(d.ours[i], &at, &revoked);
    found += revoked;
    if (++i == d.ours.size()) i = 0;
  }
  st.counters["found"] = static_cast<double>(found) / static_cast<double>(st.iterations());
  st.SetItemsProcessed(st.iterations());
}

void LookupOpenssl(benchmark::State& st) {
  const Shared& d = Data();
  const unsigned char* q = d.der.data();
  X509_CRL* crl = d2i_X509_CRL(nullptr, &q, d.der.length());
  if (!crl) return st.SkipWithError("d2i_X509_CRL failed");
  X509_REVOKED* r;
  X509_CRL_get0_by_serial(crl, &r, d.theirs[0]);  // its one-time sort, outside the loop
  std::size_t i = 0;
  long found = 0;
  for (auto _ : st) {
    found += X509_CRL_get0_by_serial(crl, &r, d.theirs[i]) == 1;
    if (++i == d.theirs.size()) i = 0;
  }
  X509_CRL_free(crl);
  st.counters["found"] = static_cast<double>(found) / static_cast<double>(st.iterations());
  st.SetItemsProcessed(st.iterations());
}

void FirstLookupOurs(benchmark::State& st) {
  const Shared& d = Data();
  for (auto _ : st) {
    PCertListProcess p;
    int at;
    bool revoked = false;
    if (p.parseCertList(d.der, nullptr, nullptr) != 0 || p.isRevoked(d.ours[777], &at, &revoked) != 0 || !revoked)
      return st.SkipWithError("lookup failed");
  }
}

void FirstLookupOpenssl(benchmark::State& st) {
  const Shared& d = Data();
  for (auto _ : st) {
    const unsigned char* p = d.der.data();
    X509_CRL* crl = d2i_X509_CRL(nullptr, &p, d.der.length());
    X509_REVOKED* r;
    if (!crl || X509_CRL_get0_by_serial(crl, &r, d.theirs[777]) != 1) return st.SkipWithError("lookup failed");
    X509_CRL_free(crl);
  }
}

}  // namespace

BENCHMARK(ParseOurs)->Name("crl_parse_100k/ours");
BENCHMARK(ParseOpenssl)->Name("crl_parse_100k/openssl");
BENCHMARK(LookupOurs)->Name("crl_lookup_100k/ours");
BENCHMARK(LookupOpenssl)->Name("crl_lookup_100k/openssl");
BENCHMARK(FirstLookupOurs)->Name("crl_parse_first_lookup_100k/ours");
BENCHMARK(FirstLookupOpenssl)->Name("crl_parse_first_lookup_100k/openssl");
