// What decoding costs the heap and leaves in it: allocation counts against
// the figures recorded in tests/data/pkix/x509/decode_allocations.txt, and no
// freed block that still holds a decoded private key's secret.
#include <cstdio>
#include <cstring>

#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RECPrivateKey.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RRSAPrivateKey.h"
#include "tests/ZENALib/ASN1Pkix/Pkix.h"
#include "tests/support/HeapHook.h"

namespace {

TEST(Heap, DecodeAllocationsStayWithinTheRecord) {
  ASSERT_TRUE(qvatest::HeapHookAvailable());
  const auto records = pkixtest::Vectors("x509/decode_allocations.txt");
  ASSERT_FALSE(records.empty());
  for (const auto& r : records) {
    SCOPED_TRACE(r.at("Name"));
    const ByteString der = pkixtest::Load(r.at("File"));
    ASSERT_GT(der.length(), 0);
    auto obj = pkixtest::Make(r.at("Class"));
    ASSERT_NE(nullptr, obj);
    qvatest::HeapHookStart();
    const int rc = obj->fromASN1Object(der);
    const qvatest::HeapCounts counts = qvatest::HeapHookStop();
    ASSERT_EQ(0, rc) << obj->getErrorMessage().c_str();
    EXPECT_LE(counts.allocations, std::stol(r.at("Allocations")) + std::stol(r.at("Slack")))
        << "allocations now: " << counts.allocations << " (" << counts.bytes << " bytes)";
  }
}

// A decoded CRL keeps its entries as received: the heap is asked for a few
// times the list's size, not for an object per entry; an entry built on
// request reads like any other, and a change made to it is what the list
// encodes while its neighbours stay as they were.
TEST(Heap, DecodedCrlKeepsItsEntriesAsBytes) {
  ASSERT_TRUE(qvatest::HeapHookAvailable());
  RCertificateList crl;
  ASSERT_EQ(0, crl.fromASN1Object(pkixtest::Load("x509/crls/v2-entries-rsa2048.der")));
  RRevokedCertificates& list = crl.getTbsCertList().getRevokedCertificates();
  ASSERT_GT(list.getCount(), 0);
  const RRevokedCertificate model = *list.getAt(0);
  list.removeAll();
  constexpr int kEntries = 5000;
  for (int i = 0; i < kEntries; ++i) {
    RRevokedCertificate e = model;
    e.setUserCertificate(ASN1Integer(0x10000 + i));
    list.add(e);
  }
  const ByteString der = crl.toASN1Object();
  ASSERT_GT(der.length(), kEntries * 10);

  RCertificateList big;
  qvatest::HeapHookStart();
  const int rc = big.fromASN1Object(der);
  const qvatest::HeapCounts counts = qvatest::HeapHookStop();
  ASSERT_EQ(0, rc) << big.getErrorMessage().c_str();
  EXPECT_LT(counts.bytes, 3L * der.length());
  RRevokedCertificates& got = big.getTbsCertList().getRevokedCertificates();
  ASSERT_EQ(kEntries, got.getCount());
  EXPECT_EQ(nullptr, got.getAt(kEntries));
  for (int i : {0, 4321, kEntries - 1})
    EXPECT_EQ(ASN1Integer(0x10000 + i).getValue(), got.getAt(i)->getUserCertificate().getValue()) << i;
  EXPECT_EQ(der, big.toASN1Object());

  got.getAt(4321)->setUserCertificate(ASN1Integer(7));
  RCertificateList again;
  ASSERT_EQ(0, again.fromASN1Object(big.toASN1Object()));
  const RRevokedCertificates& back = again.getTbsCertList().getRevokedCertificates();
  ASSERT_EQ(kEntries, back.getCount());
  EXPECT_EQ(ASN1Integer(7).getValue(), back.getAt(4321)->getUserCertificate().getValue());
  for (int i : {0, 4320, 4322, kEntries - 1})
    EXPECT_EQ(ASN1Integer(0x10000 + i).getValue(), back.getAt(i)->getUserCertificate().getValue()) << i;
  EXPECT_EQ(static_cast<std::size_t>(kEntries), back.items().size());
}

// Every CRL of the tables encodes back to its own bytes once every entry of
// its revoked list is built (left as received, X509Corpus.Crls covers it).
TEST(Heap, KeptAndBuiltRevokedListsEncodeAlike) {
  const auto files = qvatest::DerFiles(qvatest::DataPath("pkix/x509/crls"));
  ASSERT_FALSE(files.empty());
  for (const std::string& file : files) {
    SCOPED_TRACE(file);
    const ByteString der = qvatest::ReadFileBs(file);
    RCertificateList built;
    ASSERT_EQ(0, built.fromASN1Object(der)) << built.getErrorMessage().c_str();
    built.getTbsCertList().getRevokedCertificates().items();
    EXPECT_EQ(der, built.toASN1Object());
  }
}

// A key file read straight into its ByteString: no other copy of the key
// is made (and freed unwiped) before the scan starts.
ByteString LoadKey(const char* file) {
  const std::string path = qvatest::DataPath(std::string("pkix/") + file);
  ByteString out;
  if (FILE* f = std::fopen(path.c_str(), "rb")) {
    std::setvbuf(f, nullptr, _IONBF, 0);  // no stdio buffer holding the key
    std::fseek(f, 0, SEEK_END);
    const long n = std::ftell(f);
    std::fseek(f, 0, SEEK_SET);
    if (n > 0 && out.resize(static_cast<int>(n)) == BS_OK &&
        std::fread(out.buffer(), 1, static_cast<std::size_t>(n), f) != static_cast<std::size_t>(n))
      out.clear();
    std::fclose(f);
  }
  return out;
}

// Counts freed blocks that contain the secret.
struct SecretScan {
  unsigned char secret[16];
  int found = 0;
  static void Inspect(const void* block, std::size_t size, void* context) {
    auto* scan = static_cast<SecretScan*>(context);
    const auto* p = static_cast<const unsigned char*>(block);
    for (std::size_t i = 0; i + sizeof scan->secret <= size; ++i)
      if (p[i] == scan->secret[0] && std::memcmp(p + i, scan->secret, sizeof scan->secret) == 0) ++scan->found;
  }
};

TEST(Heap, DecodedPrivateKeysLeaveNoSecretInFreedMemory) {
  ASSERT_TRUE(qvatest::HeapHookAvailable());
  struct Case {
    const char* file;
    const char* cls;
    const ByteString& (*secret)(ASN1Object& key);
  } cases[] = {
      {"keys/rsa2048.rsa.der", "RRSAPrivateKey",
       [](ASN1Object& k) -> const ByteString& { return static_cast<RRSAPrivateKey&>(k).getPrivateExponent().getValue(); }},
      {"keys/rsa3p.rsa.der", "RRSAPrivateKey",
       [](ASN1Object& k) -> const ByteString& {
         return static_cast<RRSAPrivateKey&>(k).getOtherPrimeInfos().getAt(0)->getExponent().getValue();
       }},
      {"keys/ec-prime256v1-named_curve.ec.der", "RECPrivateKey",
       [](ASN1Object& k) -> const ByteString& { return static_cast<RECPrivateKey&>(k).getPrivateKey().getValue(); }},
      {"keys/rsa2048.pk8.der", "RPrivateKeyInfo",
       [](ASN1Object& k) -> const ByteString& { return static_cast<RPrivateKeyInfo&>(k).getPrivateKey().getValue(); }},
  };
  for (const auto& k : cases) {
    SCOPED_TRACE(k.file);
    ByteString der = LoadKey(k.file);
    ASSERT_GT(der.length(), 0);
    SecretScan scan;
    {
      auto probe = pkixtest::Make(k.cls);
      ASSERT_EQ(0, probe->fromASN1Object(der)) << probe->getErrorMessage().c_str();
      const ByteString& secret = k.secret(*probe);
      ASSERT_GE(secret.length(), static_cast<int>(sizeof scan.secret));
      // The secret's last octets: an INTEGER's first may be a sign octet.
      std::memcpy(scan.secret, secret.data() + secret.length() - sizeof scan.secret, sizeof scan.secret);
    }
    qvatest::SetFreeInspector(&SecretScan::Inspect, &scan);
    {
      auto key = pkixtest::Make(k.cls);
      const int rc = key->fromASN1Object(der);
      auto copy = pkixtest::Make(k.cls);
      copy->fromASN1Object(der);
      const int again = key->fromASN1Object(der);  // a second decode replaces the first's values
      EXPECT_EQ(0, rc);
      EXPECT_EQ(0, again);
    }
    qvatest::SetFreeInspector(nullptr, nullptr);
    der.zeroize();
    EXPECT_EQ(0, scan.found);
  }
}

}  // namespace
