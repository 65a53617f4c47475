// Block ciphers through QSEncrypt: published vectors, agreement with the
// openssl CLI in every mode and the paddings (the refusals are in the
// service refusal table).
#include <gtest/gtest.h>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"

using cryptotest::UpperHex;
using cryptotest::Vectors;
using qvatest::Hex;

namespace {

constexpr int kECB = 3, kPadNone = 0, kPadPKCS = 2;

ByteString Must(const std::string& op, int alg, int mode, int pad, const ByteString& key, const ByteString& iv,
                const ByteString& in) {
  QSEncrypt e;
  ByteString out;
  EXPECT_EQ(cryptotest::Crypt(e, op, alg, mode, pad, key, iv, in, out), 0) << qvatest::Str(e.GetErrorMsg());
  return out;
}

}  // namespace

// SEED: the TTAS.KO-12.0004/R1 (= RFC 4269) and KCMVP ECB known answers,
// encrypted with the checked key and decrypted with the raw key; RC2: the
// RFC 2268 rows whose effective key bits have a library number (64 and 128;
// the 63- and 129-bit rows have none), key lengths 1..16, both ways.
TEST(QSEncrypt, SeedAndRc2KnownAnswers) {
  const auto seed = Vectors("seed_ecb_kat.txt");
  ASSERT_EQ(seed.size(), 276u);
  for (auto r : seed) {
    SCOPED_TRACE("SEED " + r["Key"] + " " + r["Plain"]);
    EXPECT_EQ(UpperHex(Must("EncryptData", QSAlgorithm::SEED(), kECB, kPadNone, Hex(r["Key"]), {}, Hex(r["Plain"]))),
              r["Secure"]);
    EXPECT_EQ(Must("DecryptData_NoGenKey", QSAlgorithm::SEED(), kECB, kPadNone, Hex(r["Key"]), {}, Hex(r["Secure"])),
              Hex(r["Plain"]));
  }
  int tested = 0;
  for (auto r : Vectors("rc2_rfc2268.txt")) {
    const int alg = r["EffectiveBits"] == "64" ? QSAlgorithm::RC2_64() : r["EffectiveBits"] == "128" ? QSAlgorithm::RC2_128() : 0;
    if (!alg) continue;
    SCOPED_TRACE("RC2 " + r["Key"] + " bits " + r["EffectiveBits"]);
    EXPECT_EQ(UpperHex(Must("EncryptData", alg, kECB, kPadNone, Hex(r["Key"]), {}, Hex(r["Plaintext"]))), r["Ciphertext"]);
    EXPECT_EQ(Must("DecryptData", alg, kECB, kPadNone, Hex(r["Key"]), {}, Hex(r["Ciphertext"])), Hex(r["Plaintext"]));
    ++tested;
  }
  EXPECT_EQ(tested, 6);
}

// Every cipher and mode against `openssl enc` on random data, both ways:
// our ciphertext equals openssl's, and ours decrypts openssl's.
TEST(QSEncrypt, AgreesWithOpensslEncInEveryMode) {
  qvatest::TempDir dir;
  unsigned seed = 1;
  for (auto c : Vectors("cipher_openssl.txt")) {
    const int alg = std::stoi(c["Alg"]), mode = std::stoi(c["Mode"]), block = std::stoi(c["Block"]);
    for (int len : {0, 1, 15, 16, 17, 1000, 4096}) {
      // Padded ECB/CBC for every length; unpadded for whole blocks (or any stream) only.
      for (int pad : {kPadPKCS, kPadNone}) {
        if (pad == kPadNone && (mode <= 4 ? len % block != 0 : len == 0)) continue;
        SCOPED_TRACE(c["Cipher"] + " len " + std::to_string(len) + (pad == kPadNone ? " nopad" : ""));
        const ByteString key = qvatest::RandomBytes(std::stoul(c["KeyLen"]), seed++);
        const ByteString iv = mode == kECB ? ByteString() : qvatest::RandomBytes(block, seed++);
        const ByteString plain = qvatest::RandomBytes(len, seed++);
        qvatest::WriteFile(dir.file("p"), plain);
        cryptotest::MustRun("openssl enc -" + c["Cipher"] + " -K " + qvatest::ToHex(key) +
                            (mode == kECB ? "" : " -iv " + qvatest::ToHex(iv)) + (pad == kPadNone ? " -nopad" : "") +
                            cryptotest::kLegacy + " -in " + dir.file("p") + " -out " + dir.file("c"));
        const ByteString theirs = qvatest::ReadFileBs(dir.file("c"));
        EXPECT_EQ(UpperHex(Must("EncryptData", alg, mode, pad, key, iv, plain)), UpperHex(theirs));
        EXPECT_EQ(Must("DecryptData", alg, mode, pad, key, iv, theirs), plain);
      }
    }
  }
}

// The zero and ISO/IEC 9797-1 method 2 paddings, read back without padding
// to see the bytes that were added.
TEST(QSEncrypt, PaddingBytesAndRemoval) {
  const ByteString key = Hex("000102030405060708090A0B0C0D0E0F");
  for (auto r : Vectors("cipher_padding.txt")) {
    SCOPED_TRACE("pad " + r["Pad"] + " of " + r["Plain"]);
    const ByteString ct = Must("EncryptData", QSAlgorithm::SEED(), kECB, std::stoi(r["Pad"]), key, {}, Hex(r["Plain"]));
    EXPECT_EQ(UpperHex(Must("DecryptData", QSAlgorithm::SEED(), kECB, kPadNone, key, {}, ct)), r["Added"]);
    EXPECT_EQ(UpperHex(Must("DecryptData", QSAlgorithm::SEED(), kECB, std::stoi(r["Pad"]), key, {}, ct)), r["Recovered"]);
  }
}
