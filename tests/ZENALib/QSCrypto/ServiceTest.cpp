// QSMac and QSRandom, the HMAC core with HAS-160, and the per-thread error
// text of the core.
#include <gtest/gtest.h>

#include <set>
#include <thread>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSMac.h"
#include "ZENALib/QSCrypto/QSRandom.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"

using cryptotest::UpperHex;
using qvatest::Hex;

// RFC 2202 (HMAC-MD5, HMAC-SHA-1) through QSMac: generation, verification,
// a changed or shortened MAC refused. HMAC-HAS-160 (Botan's vectors) in the
// core, one-shot and staged in pieces of 7, generated and verified; a
// generation context takes no verification step.
TEST(QSMac, PublishedVectors) {
  const auto rfc = cryptotest::Vectors("hmac_rfc2202.txt");
  ASSERT_EQ(rfc.size(), 8u);
  for (auto r : rfc) {
    SCOPED_TRACE(r["Alg"] + " " + r["Key"].substr(0, 8));
    const int alg = r["Alg"] == "MD5" ? QSAlgorithm::HMAC_MD5() : QSAlgorithm::HMAC_SHA1();
    const ByteString key = Hex(r["Key"]), msg = Hex(r["Msg"]);
    QSMac m;
    ByteString mac;
    ASSERT_EQ(m.GenerateMAC(alg, key, msg, mac), 0);
    EXPECT_EQ(UpperHex(mac), r["MAC"]);
    EXPECT_EQ(m.VerifyMAC(alg, key, msg, mac), 0);
    ByteString bad = mac;
    bad.setAt(3, static_cast<char>(mac.data()[3] ^ 4));
    EXPECT_EQ(m.VerifyMAC(alg, key, msg, bad), 116);
    EXPECT_TRUE(cryptotest::TraceTail(m.GetErrorMsg(), "QSMac.cpp",
                                      "QSMac::VerifyMAC-ECSP_VerifyMAC(116),  Verification of signature or MAC failed.(116)"));
    EXPECT_EQ(m.VerifyMAC(alg, key, msg, mac.mid(0, mac.length() - 1)), 116);
  }
  const auto has160 = cryptotest::Vectors("hmac_has160_botan.txt");
  ASSERT_EQ(has160.size(), 6u);
  for (auto r : has160) {
    SCOPED_TRACE("HAS-160 " + r["Key"].substr(0, 8));
    const ByteString key = Hex(r["Key"]), msg = Hex(r["Msg"]);
    ByteString mac, staged;
    ASSERT_EQ(ECSP_GenerateMAC(ecsp::kHMAC_HAS160, key.data(), key.length(), msg.data(), msg.length(), &mac), 0);
    EXPECT_EQ(UpperHex(mac), r["MAC"]);
    ECSP_MAC_CTX *gen = nullptr, *ver = nullptr;  // staged: a generation and a verification context
    ASSERT_EQ(ECSP_GenerateMACInit(ecsp::kHMAC_HAS160, key.data(), key.length(), &gen), 0);
    ASSERT_EQ(ECSP_VerifyMACInit(ecsp::kHMAC_HAS160, key.data(), key.length(), &ver), 0);
    for (int at = 0; at < msg.length(); at += 7) {
      ASSERT_EQ(ECSP_GenerateMACUpdate(gen, msg.data() + at, std::min(7, msg.length() - at)), 0);
      ASSERT_EQ(ECSP_VerifyMACUpdate(ver, msg.data() + at, std::min(7, msg.length() - at)), 0);
    }
    EXPECT_EQ(ECSP_VerifyMACUpdate(gen, nullptr, 0), 2112);  // the stages are not interchangeable
    EXPECT_EQ(ECSP_VerifyMACFinal(gen, nullptr, 0), 3112);
    ASSERT_EQ(ECSP_GenerateMACFinal(gen, &staged), 0);
    EXPECT_EQ(UpperHex(staged), r["MAC"]);
    EXPECT_EQ(ECSP_VerifyMACFinal(ver, mac.data(), mac.length()), 0);
  }
  ECSP_MAC_CTX* ctx = nullptr;
  EXPECT_EQ(ECSP_GenerateMACInit(ecsp::kSHA1, nullptr, 0, &ctx), 1105);  // a digest number is no MAC
}

// Random bytes from every generator number, without repeats.
TEST(QSRandom, GeneratorsAndRefusals) {
  std::set<std::string> seen;
  QSRandom r;
  ByteString out;
  for (int alg : {QSAlgorithm::Random(), QSAlgorithm::Random2(), QSAlgorithm::Random3()}) {
    for (int len : {0, 1, 32, 1000}) {
      ASSERT_EQ(r.GenerateRandom(alg, len, out), 0);
      EXPECT_EQ(out.length(), len);
      EXPECT_TRUE(len != 32 || seen.insert(qvatest::ToHex(out)).second);  // no repeats
    }
  }
}

// Threads formatting different codes at once each read their own text, and
// draw random bytes under the core lock without interference.
TEST(ECSPErrorText, EachThreadHasItsOwnText) {
  std::vector<std::thread> threads;
  std::vector<int> mismatches(4, 0);
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t, &mismatches] {
      const std::string want = getECSPErrorText(101 + t);
      unsigned char buf[16];
      for (int i = 0; i < 2000; ++i) {
        mismatches[t] += want != getECSPErrorText(101 + t);
        mismatches[t] += ECSP_GenerateRandom(ecsp::kRandom2, buf, sizeof(buf)) != 0;
      }
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(mismatches, std::vector<int>(4, 0));
}
