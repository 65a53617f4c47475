// Digests through QSHash: published vectors one-shot and staged in odd
// pieces, HAS-160 against rhash, and the digest each core number starts.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"

using cryptotest::Upper;
using cryptotest::UpperHex;
using cryptotest::Vectors;
using qvatest::Hex;

namespace {

// Hashes in pieces of 1, 2, 3 ... bytes (wrapping at 97) so that every
// offset inside a block is crossed by some piece boundary. The final step
// releases the context: a second one is refused, a new Init works again.
ByteString StagedDigest(QSHash& h, int nAlg, const ByteString& msg) {
  EXPECT_EQ(h.DigestData_Init(nAlg), 0);
  for (int pos = 0, piece = 1; pos < msg.length(); piece = piece % 97 + 1) {
    const int n = std::min(piece, msg.length() - pos);
    EXPECT_EQ(h.DigestData_Update(msg.data() + pos, n), 0);
    pos += n;
  }
  ByteString md, again;
  EXPECT_EQ(h.DigestData_Final(md), 0);
  EXPECT_EQ(h.DigestData_Final(again), 110);
  return md;
}

// times copies of unit; the "(i mod 251)" message of n bytes when unit is empty.
ByteString Repeat(const std::string& unit, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += unit.empty() ? std::string(1, static_cast<char>(i % 251)) : unit;
  return ByteString(out.data(), static_cast<int>(out.size()));
}

}  // namespace

// RFC 1321, FIPS 180-2 and TTAS.KO-12.0011/R2 vectors and the rhash length
// sweep, one-shot and staged (on one object, Init after Final).
TEST(QSHash, PublishedVectorsOneShotAndStaged) {
  const std::map<std::string, int> algs = {{"MD5", QSAlgorithm::MD5()},
                                           {"SHA1", QSAlgorithm::SHA1()},
                                           {"SHA256", QSAlgorithm::SHA256()},
                                           {"", QSAlgorithm::HAS160()}};  // the HAS-160 files name none
  int tested = 0;
  QSHash staged;  // one object for every staged digest
  for (const char* file : {"digest_vectors.txt", "has160_ttas.txt", "has160_rhash_lengths.txt"}) {
    for (auto r : Vectors(file)) {
      // Messages in hex, repeated, "a" x 1000000, or described: bytes i mod 251 of Len bytes.
      const std::string hex = r.count("MsgBytes") ? r["MsgBytes"] : r["Msg"];
      SCOPED_TRACE(std::string(file) + " " + r["Alg"] + " " + hex.substr(0, 16) + " Len=" + r["Len"]);
      const ByteString msg = r.count("Repeat")            ? Repeat(qvatest::Str(Hex(hex)), std::stoi(r["Repeat"]))
                             : r.count("MsgBytes_repeat") ? Repeat("a", 1000000)
                             : hex.rfind('(', 0) == 0     ? Repeat("", std::stoi(r["Len"]))
                                                          : Hex(hex);
      QSHash h;
      ByteString md;
      ASSERT_EQ(h.DigestData(algs.at(r["Alg"]), msg, md), 0) << qvatest::Str(h.GetErrorMsg());
      EXPECT_EQ(UpperHex(md), r["MD"]);
      EXPECT_EQ(UpperHex(StagedDigest(staged, algs.at(r["Alg"]), msg)), r["MD"]);
      ++tested;
    }
  }
  EXPECT_GT(tested, 140);
}

// HAS-160 of random inputs of every length 0..2000 against one rhash run.
TEST(QSHash, Has160MatchesRhashOnEveryLengthTo2000) {
  qvatest::TempDir dir;
  for (int len = 0; len <= 2000; ++len) {
    qvatest::WriteFile(dir.file("m" + std::to_string(len)), qvatest::RandomBytes(len, 1000u + len));
  }
  std::istringstream lines(cryptotest::MustRun("cd " + dir.path() + " && rhash --has160 --printf='%f %{has160}\\n' m*"));
  int seen = 0;
  for (std::string name, digest; lines >> name >> digest; ++seen) {
    SCOPED_TRACE(name);
    QSHash h;
    ByteString md;
    ASSERT_EQ(h.DigestData(QSAlgorithm::HAS160(), qvatest::ReadFileBs(dir.file(name)), md), 0);
    EXPECT_EQ(UpperHex(md), Upper(digest));
  }
  EXPECT_EQ(seen, 2001);
}

// A 100 MB stream in odd-sized pieces (the length counter passes 2^29 bits
// and the piece sizes never line up with blocks) against rhash on the file.
TEST(QSHash, Has160HundredMegabyteStreamMatchesRhash) {
  qvatest::TempDir dir;
  const ByteString chunk = qvatest::RandomBytes(1 << 20, 77u);
  const long long total = 100LL * chunk.length();
  std::ofstream f(dir.file("stream.bin"), std::ios::binary);
  for (int i = 0; i < 100; ++i) f.write(chunk.c_str(), chunk.length());
  f.close();
  QSHash h;
  ASSERT_EQ(h.DigestData_Init(QSAlgorithm::HAS160()), 0);
  static const int kPieces[] = {1, 63, 65, 4097, 12345, 999983};
  for (long long fed = 0, i = 0; fed < total;) {
    const int at = static_cast<int>(fed % chunk.length());
    const int n = static_cast<int>(std::min<long long>({kPieces[i++ % 6], chunk.length() - at, total - fed}));
    ASSERT_EQ(h.DigestData_Update(chunk.data() + at, n), 0);
    fed += n;
  }
  ByteString md;
  ASSERT_EQ(h.DigestData_Final(md), 0);
  EXPECT_EQ(UpperHex(md), Upper(cryptotest::MustRun("rhash --has160 --printf='%{has160}' " + dir.file("stream.bin"))));
}

// The digest a core number starts (ecsp_digest_selection.txt).
TEST(ECSPDigest, SelectionByCoreNumber) {
  const ByteString msg("abc");
  for (auto r : Vectors("ecsp_digest_selection.txt")) {
    SCOPED_TRACE("core number " + r["Code"]);
    ByteString md, want;
    EXPECT_EQ(ECSP_DigestData(std::stoi(r["Code"]), msg.data(), msg.length(), &md), r.count("Digest") ? 0 : 105);
    if (!r.count("Digest")) continue;
    ASSERT_EQ(ECSP_DigestData(std::stoi(r["Digest"]), msg.data(), msg.length(), &want), 0);
    EXPECT_EQ(UpperHex(md), UpperHex(want));
  }
}

// The core's text: stage by the thousands digit, row by code % 1000.
TEST(ECSPErrorText, StageAndRow) {
  for (auto r : Vectors("ecsp_error_text.txt")) {
    EXPECT_EQ(getECSPErrorText(std::stoi(r["Code"])), cryptotest::Unquote(r["Text"])) << "code " << r["Code"];
  }
}
