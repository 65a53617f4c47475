// Digests through QSHash: published vectors, HAS-160 against rhash, staged
// use in odd pieces, and the refusals with their codes and traces.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"
#include "tests/support/TestUtil.h"

using qvatest::DataPath;
using qvatest::Hex;
using qvatest::ReadVectors;
using cryptotest::UpperHex;

namespace {

// Hashes in pieces of 1, 2, 3 ... bytes (wrapping at 97) so that every
// offset inside a block is crossed by some piece boundary.
ByteString StagedDigest(int nAlg, const ByteString& msg) {
  QSHash h;
  EXPECT_EQ(h.DigestData_Init(nAlg), 0);
  int pos = 0, piece = 1;
  while (pos < msg.length()) {
    const int n = std::min(piece, msg.length() - pos);
    EXPECT_EQ(h.DigestData_Update(msg.data() + pos, n), 0);
    pos += n;
    piece = piece % 97 + 1;
  }
  ByteString md;
  EXPECT_EQ(h.DigestData_Final(md), 0);
  return md;
}

ByteString Repeat(const ByteString& unit, int times) {
  std::string out;
  out.reserve(static_cast<std::size_t>(unit.length()) * static_cast<std::size_t>(times));
  for (int i = 0; i < times; ++i) out.append(unit.c_str(), static_cast<std::size_t>(unit.length()));
  return ByteString(out.data(), static_cast<int>(out.size()));
}

struct Vector {
  std::string where;
  int nAlg;
  ByteString msg;
  std::string md;
};

std::vector<Vector> LoadDigestVectors() {
  const std::map<std::string, int> algs = {{"MD5", QSAlgorithm::MD5()},
                                           {"SHA1", QSAlgorithm::SHA1()},
                                           {"SHA256", QSAlgorithm::SHA256()}};
  std::vector<Vector> out;
  for (auto& r : ReadVectors(DataPath("crypto/digest_vectors.txt"))) {
    const int times = r.count("Repeat") ? std::stoi(r["Repeat"]) : 1;
    out.push_back({"digest_vectors " + r["Alg"] + " " + r["Msg"].substr(0, 16), algs.at(r["Alg"]),
                   Repeat(Hex(r["Msg"]), times), r["MD"]});
  }
  for (auto& r : ReadVectors(DataPath("crypto/has160_ttas.txt"))) {
    ByteString msg = r.count("MsgBytes_repeat") ? Repeat(ByteString("a"), 1000000) : Hex(r["MsgBytes"]);
    out.push_back({"has160_ttas " + r["MsgBytes_ascii"].substr(0, 16), QSAlgorithm::HAS160(), msg, r["MD"]});
  }
  for (auto& r : ReadVectors(DataPath("crypto/has160_rhash_lengths.txt"))) {
    // Long rows describe their message instead of listing it: bytes i mod 251.
    ByteString msg = Hex(r["Msg"].rfind('(', 0) == 0 ? std::string() : r["Msg"]);
    if (r["Msg"].rfind('(', 0) == 0) {
      std::string bytes;
      for (int i = 0; i < std::stoi(r["Len"]); ++i) bytes += static_cast<char>(i % 251);
      msg = ByteString(bytes.data(), static_cast<int>(bytes.size()));
    }
    out.push_back({"has160_rhash_lengths Len=" + r["Len"], QSAlgorithm::HAS160(), msg, r["MD"]});
  }
  return out;
}

}  // namespace

// RFC 1321, FIPS 180-2 and TTAS.KO-12.0011/R2 vectors and the rhash length
// sweep, one-shot and staged.
TEST(QSHash, PublishedVectorsOneShotAndStaged) {
  const auto vectors = LoadDigestVectors();
  ASSERT_GT(vectors.size(), 140u);
  for (const Vector& v : vectors) {
    SCOPED_TRACE(v.where);
    QSHash h;
    ByteString md;
    ASSERT_EQ(h.DigestData(v.nAlg, v.msg, md), 0) << qvatest::Str(h.GetErrorMsg());
    EXPECT_EQ(UpperHex(md), v.md);
    EXPECT_EQ(UpperHex(StagedDigest(v.nAlg, v.msg)), v.md);
  }
}

// HAS-160 of random inputs of every length 0..2000 against rhash, one run of
// rhash over all files.
TEST(QSHash, Has160MatchesRhashOnEveryLengthTo2000) {
  qvatest::TempDir dir;
  std::vector<ByteString> inputs;
  for (int len = 0; len <= 2000; ++len) {
    inputs.push_back(qvatest::RandomBytes(static_cast<std::size_t>(len), 1000u + static_cast<unsigned>(len)));
    qvatest::WriteFile(dir.file("m" + std::to_string(len)), inputs.back());
  }
  const std::string out =
      cryptotest::MustRun("cd " + dir.path() + " && rhash --has160 --printf='%f %{has160}\\n' m*");
  std::map<std::string, std::string> oracle;
  std::istringstream lines(out);
  std::string name, digest;
  while (lines >> name >> digest) oracle[name] = digest;
  ASSERT_EQ(oracle.size(), inputs.size());
  for (int len = 0; len <= 2000; ++len) {
    SCOPED_TRACE(len);
    QSHash h;
    ByteString md;
    ASSERT_EQ(h.DigestData(QSAlgorithm::HAS160(), inputs[static_cast<std::size_t>(len)], md), 0);
    EXPECT_EQ(UpperHex(md), cryptotest::Upper(oracle["m" + std::to_string(len)]));
  }
}

// A 100 MB stream in odd-sized pieces (the length counter passes 2^29 bits
// and the piece sizes never line up with blocks) against rhash on the file.
TEST(QSHash, Has160HundredMegabyteStreamMatchesRhash) {
  qvatest::TempDir dir;
  const std::string path = dir.file("stream.bin");
  const ByteString chunk = qvatest::RandomBytes(1 << 20, 77u);
  constexpr int kMegabytes = 100;
  {
    std::ofstream f(path, std::ios::binary);
    for (int i = 0; i < kMegabytes; ++i) f.write(chunk.c_str(), chunk.length());
  }
  QSHash h;
  ASSERT_EQ(h.DigestData_Init(QSAlgorithm::HAS160()), 0);
  static const int kPieces[] = {1, 63, 65, 4097, 12345, 999983};
  long long fed = 0;
  int i = 0;
  const long long total = static_cast<long long>(kMegabytes) * chunk.length();
  while (fed < total) {
    const int at = static_cast<int>(fed % chunk.length());
    const int n = static_cast<int>(std::min<long long>({kPieces[i++ % 6], chunk.length() - at, total - fed}));
    ASSERT_EQ(h.DigestData_Update(chunk.data() + at, n), 0);
    fed += n;
  }
  ByteString md;
  ASSERT_EQ(h.DigestData_Final(md), 0);
  EXPECT_EQ(UpperHex(md), cryptotest::Upper(cryptotest::MustRun("rhash --has160 --printf='%{has160}' " + path)));
}

// Refusals of QSHash: the code the caller sees and the whole trace line.
TEST(QSHash, RefusalsCarryCodeAndTrace) {
  struct Row {
    const char* what;
    int step;  // 0 one-shot, 1 init, 2 update without init, 3 final without init
    int nAlg;
    int code;
    const char* method;
    const char* field;
    const char* message;
  };
  const Row rows[] = {
      // MD2 and MD4 have core numbers but no digest.
      {"MD2 one-shot", 0, 1000, 105, "QSHash::DigestData", "ECSP_DigestData", " Invalid algorithm identifier.(105)"},
      {"MD4 one-shot", 0, 1001, 105, "QSHash::DigestData", "ECSP_DigestData", " Invalid algorithm identifier.(105)"},
      {"MD4 staged", 1, 1001, 1105, "QSHash::DigestData_Init", "ECSP_DigestDataInit",
       "Init stage; Invalid algorithm identifier.(1105)"},
      // A number without a core counterpart never reaches the core.
      {"unknown one-shot", 0, 1013, 105, "QSHash::DigestData", "nAlgID", "The AlgID(1013) is not supported."},
      {"unknown staged", 1, -5, 105, "QSHash::DigestData_Init", "nAlgID", "The AlgID(-5) is not supported."},
      // A cipher number is translated but starts no digest.
      {"SEED as digest", 0, 3020, 105, "QSHash::DigestData", "ECSP_DigestData", " Invalid algorithm identifier.(105)"},
      // Staged steps without an Init; the final step reports as the update.
      {"update first", 2, 0, 110, "QSHash::DigestData_Update", "m_pECSPCtx", "At first, You must init(DigestData_Init)."},
      {"final first", 3, 0, 110, "QSHash::DigestData_Update", "m_pECSPCtx", "At first, You must init(DigestData_Init)."},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    QSHash h;
    ByteString md;
    int rc = 0;
    switch (r.step) {
      case 0: rc = h.DigestData(r.nAlg, ByteString("abc"), md); break;
      case 1: rc = h.DigestData_Init(r.nAlg); break;
      case 2: rc = h.DigestData_Update(ByteString("abc")); break;
      default: rc = h.DigestData_Final(md); break;
    }
    EXPECT_EQ(rc, r.code);
    EXPECT_EQ(h.GetErrorCode(), r.code);
    EXPECT_TRUE(cryptotest::TraceIs(h.GetErrorMsg(), "QSHash.cpp", r.method, r.field, r.code, r.message));
  }
}

// After a final step the context is gone: a second final is refused, and a
// new Init works again on the same object.
TEST(QSHash, FinalReleasesTheContext) {
  QSHash h;
  ByteString md;
  ASSERT_EQ(h.DigestData_Init(QSAlgorithm::SHA1()), 0);
  ASSERT_EQ(h.DigestData_Final(md), 0);
  EXPECT_EQ(UpperHex(md), "DA39A3EE5E6B4B0D3255BFEF95601890AFD80709");
  EXPECT_EQ(h.DigestData_Final(md), 110);
  ASSERT_EQ(h.DigestData_Init(QSAlgorithm::MD5()), 0);
  ASSERT_EQ(h.DigestData_Final(md), 0);
  EXPECT_EQ(UpperHex(md), "D41D8CD98F00B204E9800998ECF8427E");
}

// The digest a core number starts: the signature and OAEP numbers name
// their digest; KCDSA with SHA-1 and ECDSA start theirs elsewhere.
TEST(ECSPDigest, SelectionByCoreNumber) {
  const ByteString msg("abc");
  ByteString md5, sha1, sha256, has160;
  ASSERT_EQ(ECSP_DigestData(ecsp::kMD5, msg.data(), msg.length(), &md5), 0);
  ASSERT_EQ(ECSP_DigestData(ecsp::kSHA1, msg.data(), msg.length(), &sha1), 0);
  ASSERT_EQ(ECSP_DigestData(ecsp::kSHA256, msg.data(), msg.length(), &sha256), 0);
  ASSERT_EQ(ECSP_DigestData(ecsp::kHAS160, msg.data(), msg.length(), &has160), 0);
  const struct {
    int code;
    const ByteString* want;  // null: no digest (105)
  } rows[] = {
      {ecsp::kMD5RSA512, &md5},         {ecsp::kMD5RSA2048, &md5},         {ecsp::kSHA1RSA1024, &sha1},
      {ecsp::kRSAOAEP1024, &sha1},      {ecsp::kRSAOAEP2048, &sha1},       {ecsp::kSHA256RSA2048, &sha256},
      {ecsp::kKCDSA_HAS160_1024, &has160}, {ecsp::kKCDSA_HAS160_2048, &has160},
      {ecsp::kKCDSA_SHA1_1024, nullptr}, {ecsp::kECDSA_SHA1_K163, nullptr}, {ecsp::kKCDSA_HAS160_512, nullptr},
      {ecsp::kSEED, nullptr},           {ecsp::kMD4, nullptr},
  };
  for (const auto& r : rows) {
    ByteString md;
    const int rc = ECSP_DigestData(r.code, msg.data(), msg.length(), &md);
    EXPECT_EQ(rc, r.want ? 0 : 105) << r.code;
    if (r.want) {
      EXPECT_EQ(md, *r.want) << r.code;
    }
  }
}

// The core's text: stage by the thousands digit, row by code % 1000.
TEST(ECSPErrorText, StageAndRow) {
  const struct {
    int code;
    const char* text;
  } rows[] = {
      {2116, "Update stage; Verification of signature or MAC failed.(2116)"},
      {0, " Successfully completed.(0)"},                       // one-shot: empty stage text
      {1105, "Init stage; Invalid algorithm identifier.(1105)"},
      {3102, "Final stage; Memory allocation failed.(3102)"},
      {108, " Invalid input or output data pointer(108)"},      // the one row without a full stop
      {12114, "Update stage; Invalid encrypted data.(12114)"},  // ten-thousands are ignored
      {4101, " Invalid input or output data.(4101)"},           // no stage 4
      {999, " Incompletely terminated.(999)"},                  // no such row
  };
  for (const auto& r : rows) EXPECT_STREQ(getECSPErrorText(r.code), r.text) << r.code;
}
