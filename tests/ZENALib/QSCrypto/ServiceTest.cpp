// QSMac and QSRandom, the HMAC core with HAS-160, and the per-thread error
// text of the core.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSMac.h"
#include "ZENALib/QSCrypto/QSRandom.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"
#include "tests/support/TestUtil.h"

using cryptotest::UpperHex;
using qvatest::DataPath;
using qvatest::Hex;

// RFC 2202 through QSMac: generation, verification, and a changed MAC refused.
TEST(QSMac, Rfc2202Vectors) {
  const auto records = qvatest::ReadVectors(DataPath("crypto/hmac_rfc2202.txt"));
  ASSERT_EQ(records.size(), 8u);
  for (auto r : records) {
    SCOPED_TRACE(r["Alg"] + " " + r["Key"].substr(0, 8));
    const int alg = r["Alg"] == "MD5" ? QSAlgorithm::HMAC_MD5() : QSAlgorithm::HMAC_SHA1();
    QSMac m;
    ByteString mac;
    ASSERT_EQ(m.GenerateMAC(alg, Hex(r["Key"]), Hex(r["Msg"]), mac), 0);
    EXPECT_EQ(UpperHex(mac), r["MAC"]);
    EXPECT_EQ(m.VerifyMAC(alg, Hex(r["Key"]), Hex(r["Msg"]), mac), 0);
    ByteString bad = mac;
    bad.setAt(3, static_cast<char>(mac.data()[3] ^ 4));
    EXPECT_EQ(m.VerifyMAC(alg, Hex(r["Key"]), Hex(r["Msg"]), bad), 116);
    EXPECT_TRUE(cryptotest::TraceIs(m.GetErrorMsg(), "QSMac.cpp", "QSMac::VerifyMAC", "ECSP_VerifyMAC", 116,
                                    " Verification of signature or MAC failed.(116)"));
    EXPECT_EQ(m.VerifyMAC(alg, Hex(r["Key"]), Hex(r["Msg"]), mac.mid(0, mac.length() - 1)), 116);
  }
}

// HMAC-HAS-160 (Botan's validation file, MSG:MAC:KEY with continued lines),
// one-shot and staged in the core.
TEST(QSMac, HmacHas160VectorsOneShotAndStaged) {
  std::istringstream in(qvatest::ReadFile(DataPath("crypto/hmac_has160_botan.txt")));
  std::string line, record;
  std::vector<std::string> records;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#' || line[0] == '[') continue;
    const bool more = line.back() == '\\';
    record += more ? line.substr(0, line.size() - 1) : line;
    if (!more) {
      records.push_back(record);
      record.clear();
    }
  }
  ASSERT_EQ(records.size(), 6u);
  for (const std::string& rec : records) {
    SCOPED_TRACE(rec.substr(0, 20));
    const auto c1 = rec.find(':'), c2 = rec.find(':', c1 + 1);
    const ByteString msg = Hex(rec.substr(0, c1)), key = Hex(rec.substr(c2 + 1));
    const std::string want = rec.substr(c1 + 1, c2 - c1 - 1);
    ByteString mac;
    ASSERT_EQ(ECSP_GenerateMAC(ecsp::kHMAC_HAS160, key.data(), key.length(), msg.data(), msg.length(), &mac), 0);
    EXPECT_EQ(UpperHex(mac), want);
    ECSP_MAC_CTX* ctx = nullptr;
    ASSERT_EQ(ECSP_VerifyMACInit(ecsp::kHMAC_HAS160, key.data(), key.length(), &ctx), 0);
    for (int at = 0; at < msg.length(); at += 7) {
      ASSERT_EQ(ECSP_VerifyMACUpdate(ctx, msg.data() + at, std::min(7, msg.length() - at)), 0);
    }
    EXPECT_EQ(ECSP_VerifyMACFinal(ctx, mac.data(), mac.length()), 0);
  }
}

// MAC refusals: numbers without a MAC, and stage mix-ups in the core.
TEST(QSMac, Refusals) {
  QSMac m;
  ByteString mac;
  // 5010 has a core number but no MAC behind it.
  EXPECT_EQ(m.GenerateMAC(QSAlgorithm::MAC5010(), ByteString("k"), ByteString("m"), mac), 105);
  EXPECT_TRUE(cryptotest::TraceIs(m.GetErrorMsg(), "QSMac.cpp", "QSMac::GenerateMAC", "ECSP_GenerateMAC", 105,
                                  " Invalid algorithm identifier.(105)"));
  EXPECT_EQ(m.GenerateMAC(5040, ByteString("k"), ByteString("m"), mac), 105);
  EXPECT_TRUE(cryptotest::TraceIs(m.GetErrorMsg(), "QSMac.cpp", "QSMac::GenerateMAC", "nAlgID", 105,
                                  "The AlgID(5040) is not supported."));
  ECSP_MAC_CTX* ctx = nullptr;
  EXPECT_EQ(ECSP_GenerateMACInit(ecsp::kSHA1, nullptr, 0, &ctx), 1105);
  ASSERT_EQ(ECSP_GenerateMACInit(ecsp::kHMAC_SHA1, nullptr, 0, &ctx), 0);
  EXPECT_EQ(ECSP_VerifyMACUpdate(ctx, nullptr, 0), 2112);  // a generation context
  EXPECT_EQ(ECSP_VerifyMACFinal(ctx, nullptr, 0), 3112);
  ASSERT_EQ(ECSP_GenerateMACFinal(ctx, &mac), 0);
  EXPECT_EQ(UpperHex(mac), "FBDB1D1B18AA6C08324B7D64B71FB76370690E1D");  // HMAC-SHA-1, empty key and message
}

// Random bytes from every generator number; refusals of length and number.
TEST(QSRandom, GeneratorsAndRefusals) {
  std::set<std::string> seen;
  for (int alg : {QSAlgorithm::Random(), QSAlgorithm::Random2(), QSAlgorithm::Random3()}) {
    for (int len : {1, 32, 1000}) {
      QSRandom r;
      ByteString out;
      ASSERT_EQ(r.GenerateRandom(alg, len, out), 0);
      EXPECT_EQ(out.length(), len);
      if (len == 32) {
        EXPECT_TRUE(seen.insert(qvatest::ToHex(out)).second);  // no repeats
      }
    }
  }
  QSRandom r;
  ByteString out("keep");
  EXPECT_EQ(r.GenerateRandom(QSAlgorithm::Random3(), 0, out), 0);
  EXPECT_EQ(out.length(), 0);
  out = "keep";
  EXPECT_EQ(r.GenerateRandom(QSAlgorithm::Random3(), -1, out), 108);
  EXPECT_TRUE(cryptotest::TraceIs(r.GetErrorMsg(), "QSRandom.cpp", "QSRandom::GenerateRandom", "ECSP_GenerateRandom",
                                  108, " Invalid input or output data pointer(108)"));
  EXPECT_EQ(qvatest::Str(out), "keep");
  EXPECT_EQ(r.GenerateRandom(2030, 8, out), 105);
  EXPECT_TRUE(cryptotest::TraceIs(r.GetErrorMsg(), "QSRandom.cpp", "QSRandom::GenerateRandom", "nAlgID", 105,
                                  "The AlgID(2030) is not supported."));
  // A digest number translates but is no generator.
  EXPECT_EQ(r.GenerateRandom(QSAlgorithm::SHA1(), 8, out), 105);
}

// Threads formatting different codes at once each read their own text, and
// draw random bytes under the core lock without interference.
TEST(ECSPErrorText, EachThreadHasItsOwnText) {
  constexpr int kThreads = 4;
  std::vector<std::thread> threads;
  std::vector<int> mismatches(kThreads, 0);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t, &mismatches] {
      const int code = 101 + t;
      const std::string want = getECSPErrorText(code);
      unsigned char buf[16];
      for (int i = 0; i < 2000; ++i) {
        const char* text = getECSPErrorText(code);
        if (want != text) ++mismatches[static_cast<std::size_t>(t)];
        if (ECSP_GenerateRandom(ecsp::kRandom2, buf, sizeof(buf)) != 0) ++mismatches[static_cast<std::size_t>(t)];
      }
    });
  }
  for (auto& th : threads) th.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(mismatches[static_cast<std::size_t>(t)], 0) << t;
}
