// RFC 3217 key wraps: the RFC's examples both ways, a random-IV wrap opened
// again, and the refusals; the odd-parity refusal is fed a wrap made step by
// step with the openssl CLI.
#include <gtest/gtest.h>

#include "ZENALib/QSProcess/PKEKAlgorithm.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

using cryptotest::MustRun;
using processtest::HexBs;
using qvatest::Str;

namespace {

int Wrap(PKEKAlgorithm& k, int alg, const ByteString& kek, const ByteString& cek, const ByteString& iv,
         const ByteString& pad, ByteString& out) {
  return alg == 3011 ? k.wrapTripleDESKeyWithIV(kek, cek, iv, out) : k.wrapRC2KeyWithIV(alg, kek, cek, iv, pad, out);
}
int Unwrap(PKEKAlgorithm& k, int alg, const ByteString& kek, const ByteString& in, ByteString& out) {
  return alg == 3011 ? k.unwrapTripleDESKey(kek, in, out) : k.unwrapRC2Key(alg, kek, in, out);
}

}  // namespace

TEST(KeyWrap, RfcExamplesBothWaysAndRefusals) {
  for (auto r : processtest::Vectors("keywrap.txt")) {
    SCOPED_TRACE(r["Alg"]);
    const int alg = std::stoi(r["Alg"]);
    const ByteString kek = HexBs(r["KEK"]), cek = HexBs(r["CEK"]), result = HexBs(r["Result"]);
    PKEKAlgorithm k;
    ByteString out, back;
    ASSERT_EQ(Wrap(k, alg, kek, cek, HexBs(r["IV"]), HexBs(r["Pad"]), out), 0) << Str(k.getErrorMessage());
    EXPECT_EQ(qvatest::ToHex(out), qvatest::ToHex(result));
    ASSERT_EQ(Unwrap(k, alg, kek, result, back), 0) << Str(k.getErrorMessage());
    EXPECT_EQ(back, cek);
    // Random IV (and pad): another wrap every time, each opens to the key.
    ByteString again;
    ASSERT_EQ(Wrap(k, alg, kek, cek, ByteString(), ByteString(), out), 0);
    ASSERT_EQ(Wrap(k, alg, kek, cek, ByteString(), ByteString(), again), 0);
    EXPECT_NE(out, again);
    ASSERT_EQ(Unwrap(k, alg, kek, again, back), 0);
    EXPECT_EQ(back, cek);
    // Any changed octet breaks the check value.
    for (int at : {0, 20, result.length() - 1}) {
      ByteString bad = result;
      bad.setAt(at, static_cast<char>(result.data()[at] ^ 0x10));
      EXPECT_EQ(Unwrap(k, alg, kek, bad, back), alg == 3011 ? 2 : 3);
      EXPECT_TRUE(cryptotest::TraceTail(k.getErrorMessage(), "PKEKAlgorithm.cpp",
                                        std::string("PKEKAlgorithm::") + (alg == 3011 ? "unwrapTripleDESKey-ICV(2)"
                                                                                       : "unwrapRC2Key-ICV(3)") +
                                            ", Checksum is different."));
    }
  }
}

TEST(KeyWrap, LengthAndAlgorithmRefusals) {
  PKEKAlgorithm k;
  ByteString out;
  const ByteString kek24 = qvatest::RandomBytes(24, 3u), kek16 = qvatest::RandomBytes(16, 4u);
  EXPECT_EQ(k.wrapTripleDESKey(kek24, qvatest::RandomBytes(16, 1u), out), 1);
  EXPECT_EQ(k.unwrapTripleDESKey(kek24, qvatest::RandomBytes(48, 1u), out), 1);
  EXPECT_EQ(k.wrapRC2Key(3011, kek16, qvatest::RandomBytes(16, 1u), out), 1);
  EXPECT_EQ(k.wrapRC2Key(3052, kek16, qvatest::RandomBytes(256, 1u), out), 2);
  EXPECT_EQ(k.unwrapRC2Key(3052, kek16, qvatest::RandomBytes(20, 1u), out), 2);
  // The trace of the last call only.
  EXPECT_TRUE(cryptotest::TraceTail(k.getErrorMessage(), "PKEKAlgorithm.cpp",
                                    "PKEKAlgorithm::unwrapRC2Key-bsWrapped(2), Encrypted Key length is not proper."));
}

// A Triple-DES wrap of a key without odd parity, made by the RFC's steps
// with `openssl dgst` and `openssl enc`: its check value holds, its parity not.
TEST(KeyWrap, OddParityRefusedOnAnOpensslWrap) {
  qvatest::TempDir dir;
  const std::string kek = "255e0d1c07b646dfb3134cc843ba8aa71f025b7c0838251f", iv = "5dd4cbfc96f5453b";
  ByteString cek = HexBs("2923bf85e06dd6ae529149f1f1bae9eab3a7da3d860d3e98");
  cek.setAt(5, static_cast<char>(cek.data()[5] ^ 0x01));
  qvatest::WriteFile(dir.file("cek"), cek);
  MustRun("openssl dgst -sha1 -binary -out " + dir.file("icv") + " " + dir.file("cek"));
  ByteString cekicv = cek;
  cekicv += qvatest::ReadFileBs(dir.file("icv")).mid(0, 8);
  qvatest::WriteFile(dir.file("cekicv"), cekicv);
  const std::string enc = "openssl enc -des-ede3-cbc -nopad -K " + kek;
  MustRun(enc + " -iv " + iv + " -in " + dir.file("cekicv") + " -out " + dir.file("temp1"));
  ByteString temp2 = HexBs(iv);
  temp2 += qvatest::ReadFileBs(dir.file("temp1"));
  std::string t = Str(temp2);
  qvatest::WriteFile(dir.file("temp3"), std::string(t.rbegin(), t.rend()));
  MustRun(enc + " -iv 4adda22c79e82105 -in " + dir.file("temp3") + " -out " + dir.file("wrapped"));
  PKEKAlgorithm k;
  ByteString out("untouched");
  EXPECT_EQ(k.unwrapTripleDESKey(HexBs(kek), qvatest::ReadFileBs(dir.file("wrapped")), out), 3);
  EXPECT_TRUE(cryptotest::TraceTail(k.getErrorMessage(), "PKEKAlgorithm.cpp",
                                    "PKEKAlgorithm::unwrapTripleDESKey-bsKey(3), Odd parity is incorrect."));
  EXPECT_EQ(out, ByteString("untouched"));
}
