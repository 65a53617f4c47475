// Block ciphers through QSEncrypt: published vectors, agreement with the
// openssl CLI in every mode, the paddings and the refusals.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"
#include "tests/support/TestUtil.h"

using cryptotest::UpperHex;
using qvatest::DataPath;
using qvatest::Hex;
using qvatest::ReadVectors;

namespace {

constexpr int kECB = 3, kCBC = 4, kCFB = 5, kOFB = 6;
constexpr int kPadNone = 0, kPadZero = 1, kPadPKCS = 2, kPadISO = 3;

ByteString Encrypt(int alg, int mode, int pad, const ByteString& key, const ByteString& iv, const ByteString& in) {
  QSEncrypt e;
  ByteString out;
  EXPECT_EQ(e.EncryptData(alg, mode, pad, key, iv, in, out), 0) << qvatest::Str(e.GetErrorMsg());
  return out;
}

ByteString Decrypt(int alg, int mode, int pad, const ByteString& key, const ByteString& iv, const ByteString& in) {
  QSEncrypt e;
  ByteString out;
  EXPECT_EQ(e.DecryptData(alg, mode, pad, key, iv, in, out), 0) << qvatest::Str(e.GetErrorMsg());
  return out;
}

}  // namespace

// SEED: the TTAS.KO-12.0004/R1 (= RFC 4269) and KCMVP ECB known answers,
// both directions, through the checked-key and the raw-key paths.
TEST(QSEncrypt, SeedKnownAnswers) {
  const auto records = ReadVectors(DataPath("crypto/seed_ecb_kat.txt"));
  ASSERT_EQ(records.size(), 276u);
  for (auto r : records) {
    SCOPED_TRACE(r["Key"] + " " + r["Plain"]);
    const ByteString key = Hex(r["Key"]), plain = Hex(r["Plain"]);
    EXPECT_EQ(UpperHex(Encrypt(QSAlgorithm::SEED(), kECB, kPadNone, key, ByteString(), plain)), r["Secure"]);
    QSEncrypt e;
    ByteString back;
    ASSERT_EQ(e.DecryptData_NoGenKey(QSAlgorithm::SEED(), kECB, kPadNone, key, ByteString(), Hex(r["Secure"]), back), 0);
    EXPECT_EQ(back, plain);
  }
}

// RC2: the RFC 2268 rows whose effective key bits have a library number
// (64 and 128; the 63- and 129-bit rows have none). Key lengths 1..16.
TEST(QSEncrypt, Rc2Rfc2268Table) {
  int tested = 0;
  for (auto r : ReadVectors(DataPath("crypto/rc2_rfc2268.txt"))) {
    const int bits = std::stoi(r["EffectiveBits"]);
    const int alg = bits == 64 ? QSAlgorithm::RC2_64() : bits == 128 ? QSAlgorithm::RC2_128() : 0;
    if (!alg) continue;
    SCOPED_TRACE(r["Key"] + " bits " + r["EffectiveBits"]);
    const ByteString key = Hex(r["Key"]);
    EXPECT_EQ(UpperHex(Encrypt(alg, kECB, kPadNone, key, ByteString(), Hex(r["Plaintext"]))), r["Ciphertext"]);
    EXPECT_EQ(Decrypt(alg, kECB, kPadNone, key, ByteString(), Hex(r["Ciphertext"])), Hex(r["Plaintext"]));
    ++tested;
  }
  EXPECT_EQ(tested, 6);
}

// Every cipher and mode against `openssl enc` on random data, both ways:
// our ciphertext equals openssl's, and ours decrypts openssl's.
TEST(QSEncrypt, AgreesWithOpensslEncInEveryMode) {
  struct Cipher {
    int alg;
    const char* name;  // openssl's name without the mode
    int keyLen;
    int block;
  };
  const Cipher ciphers[] = {
      {QSAlgorithm::DES(), "des", 8, 8},
      {QSAlgorithm::TripleDES(), "des-ede3", 24, 8},
      {QSAlgorithm::SEED(), "seed", 16, 16},
      {QSAlgorithm::RC2_128(), "rc2", 16, 8},  // openssl's rc2 keeps 128 effective bits
  };
  struct Mode {
    int mode;
    const char* suffix;
    bool stream;
  };
  const Mode modes[] = {{kECB, "-ecb", false}, {kCBC, "-cbc", false}, {kCFB, "-cfb", true}, {kOFB, "-ofb", true}};
  const int lengths[] = {0, 1, 15, 16, 17, 1000, 4096};
  qvatest::TempDir dir;
  unsigned seed = 1;
  for (const Cipher& c : ciphers) {
    for (const Mode& m : modes) {
      for (int len : lengths) {
        // Padded ECB/CBC for every length; unpadded for whole blocks only.
        for (int pad : {kPadPKCS, kPadNone}) {
          if (pad == kPadNone && !m.stream && len % c.block) continue;
          if (pad == kPadNone && m.stream && len == 0) continue;
          const std::string what = std::string(c.name) + m.suffix + " len " + std::to_string(len) +
                                   (pad == kPadNone ? " nopad" : "");
          SCOPED_TRACE(what);
          const ByteString key = qvatest::RandomBytes(static_cast<std::size_t>(c.keyLen), seed++);
          const ByteString iv =
              m.mode == kECB ? ByteString() : qvatest::RandomBytes(static_cast<std::size_t>(c.block), seed++);
          const ByteString plain = qvatest::RandomBytes(static_cast<std::size_t>(len), seed++);
          qvatest::WriteFile(dir.file("p"), plain);
          const std::string cmd = std::string("openssl enc -") + c.name + m.suffix + " -K " + qvatest::ToHex(key) +
                                  (m.mode == kECB ? "" : " -iv " + qvatest::ToHex(iv)) +
                                  (pad == kPadNone ? " -nopad" : "") + cryptotest::kLegacy;
          cryptotest::MustRun(cmd + " -in " + dir.file("p") + " -out " + dir.file("c"));
          const ByteString theirs = qvatest::ReadFileBs(dir.file("c"));
          const ByteString ours = Encrypt(c.alg, m.mode, pad, key, iv, plain);
          EXPECT_EQ(UpperHex(ours), UpperHex(theirs));
          EXPECT_EQ(Decrypt(c.alg, m.mode, pad, key, iv, theirs), plain);
        }
      }
    }
  }
}

// RC2 with 40 and 64 effective bits agrees with openssl's rc2-40-cbc and
// rc2-64-cbc (5- and 8-byte keys).
TEST(QSEncrypt, Rc2EffectiveBitsAgreeWithOpenssl) {
  const struct {
    int alg;
    const char* name;
    int keyLen;
  } rows[] = {{QSAlgorithm::RC2_40(), "rc2-40-cbc", 5}, {QSAlgorithm::RC2_64(), "rc2-64-cbc", 8}};
  qvatest::TempDir dir;
  for (const auto& r : rows) {
    SCOPED_TRACE(r.name);
    const ByteString key = qvatest::RandomBytes(static_cast<std::size_t>(r.keyLen), 9u);
    const ByteString iv = qvatest::RandomBytes(8, 10u);
    const ByteString plain = qvatest::RandomBytes(77, 11u);
    qvatest::WriteFile(dir.file("p"), plain);
    cryptotest::MustRun(std::string("openssl enc -") + r.name + " -K " + qvatest::ToHex(key) + " -iv " +
                        qvatest::ToHex(iv) + cryptotest::kLegacy + " -in " + dir.file("p") + " -out " + dir.file("c"));
    EXPECT_EQ(UpperHex(Encrypt(r.alg, kCBC, kPadPKCS, key, iv, plain)), UpperHex(qvatest::ReadFileBs(dir.file("c"))));
  }
}

// The zero and ISO/IEC 9797-1 method 2 paddings, read back without padding
// to see the bytes that were added.
TEST(QSEncrypt, PaddingBytesAndRemoval) {
  const ByteString key = Hex("000102030405060708090A0B0C0D0E0F");
  struct Row {
    const char* what;
    int pad;
    const char* plain;
    const char* added;      // the padded plaintext as decrypted without padding
    const char* recovered;  // what decryption with the same padding returns
  };
  const Row rows[] = {
      {"zero pad, partial block", kPadZero, "4142434445", "41424344450000000000000000000000", "41424344450000000000000000000000"},
      {"zero pad, whole block adds nothing", kPadZero, "000102030405060708090A0B0C0D0E0F",
       "000102030405060708090A0B0C0D0E0F", "000102030405060708090A0B0C0D0E0F"},
      {"ISO pad, partial block", kPadISO, "4142434445", "41424344458000000000000000000000", "4142434445"},
      {"ISO pad, whole block adds one", kPadISO, "000102030405060708090A0B0C0D0E0F",
       "000102030405060708090A0B0C0D0E0F80000000000000000000000000000000", "000102030405060708090A0B0C0D0E0F"},
      {"ISO pad, data ending in zeros", kPadISO, "8000", "80008000000000000000000000000000", "8000"},
      {"PKCS pad, partial block", kPadPKCS, "4142434445", "41424344450B0B0B0B0B0B0B0B0B0B0B", "4142434445"},
      {"padding type 4 is ISO as well", 4, "41", "41800000000000000000000000000000", "41"},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    const ByteString ct = Encrypt(QSAlgorithm::SEED(), kECB, r.pad, key, ByteString(), Hex(r.plain));
    EXPECT_EQ(UpperHex(Decrypt(QSAlgorithm::SEED(), kECB, kPadNone, key, ByteString(), ct)), r.added);
    EXPECT_EQ(UpperHex(Decrypt(QSAlgorithm::SEED(), kECB, r.pad, key, ByteString(), ct)), r.recovered);
  }
}

// Refusals: the code and the whole trace, before and inside the core.
TEST(QSEncrypt, RefusalsCarryCodeAndTrace) {
  const ByteString key16 = Hex("000102030405060708090A0B0C0D0E0F");
  const ByteString iv16 = Hex("0F0E0D0C0B0A09080706050403020100");
  const ByteString block = Hex("00112233445566778899AABBCCDDEEFF");
  // A block whose PKCS padding is wrong once decrypted.
  QSEncrypt raw;
  ByteString badPad;
  ASSERT_EQ(raw.EncryptData(QSAlgorithm::SEED(), kECB, kPadNone, key16, ByteString(), block, badPad), 0);
  struct Row {
    const char* what;
    bool decrypt;
    bool genKey;
    int alg, mode, pad;
    ByteString key, iv, in;
    int code;
    const char* method;
    const char* field;
    const char* message;
  };
  const Row rows[] = {
      {"mode 7 refused before the core", false, true, 3020, 7, kPadPKCS, key16, iv16, block, 104, "QSEncrypt::EncryptData",
       "nMode", "The Mode(7) is not supported."},
      {"padding 5 refused before the core", false, true, 3020, kCBC, 5, key16, iv16, block, 104,
       "QSEncrypt::EncryptData", "nPaddingType", "The PaddingType(5) is not supported."},
      {"unknown algorithm", true, false, 3099, kCBC, kPadPKCS, key16, iv16, block, 105,
       "QSEncrypt::DecryptData_NoGenKey", "nAlgID", "The AlgID(3099) is not supported."},
      // SEED, CBC, padding type 1 reach the core as 11110, 3, 3 (a short IV makes the core say so).
      {"SEED CBC zero padding translated", false, true, 3020, kCBC, kPadZero, key16, Hex("0001"), block, 109,
       "QSEncrypt::EncryptData", "ECSP_EncryptData",
       "[ECSP_EncryptData] nAlgID = 11110, nEncMode = 3, nPaddintType = 3 Initial vector required.(109)"},
      {"wrong key length, checked key", false, true, 3011, kCBC, kPadPKCS, key16, Hex("0001020304050607"), block, 107,
       "QSEncrypt::EncryptData", "ECSP_GenerateKey", "ECSP_GenerateKey error"},
      {"wrong key length, raw key", false, false, 3011, kCBC, kPadPKCS, key16, Hex("0001020304050607"), block, 107,
       "QSEncrypt::EncryptData_NoGenKey", "ECSP_EncryptData",
       "[ECSP_EncryptData] nAlgID = 11003, nEncMode = 3, nPaddintType = 8 Invalid key value.(107)"},
      {"unpadded input not whole blocks", false, true, 3020, kECB, kPadNone, key16, ByteString(), Hex("0102"), 101,
       "QSEncrypt::EncryptData", "ECSP_EncryptData",
       "[ECSP_EncryptData] nAlgID = 11110, nEncMode = 2, nPaddintType = 0 Invalid input or output data.(101)"},
      {"ciphertext not whole blocks", true, true, 3020, kCBC, kPadPKCS, key16, iv16, Hex("0102"), 114,
       "QSEncrypt::DecryptData", "ECSP_DecryptData",
       "[ECSP_DecryptData] nAlgID = 11110, nEncMode = 3, nPaddintType = 8 Invalid encrypted data.(114)"},
      {"bad PKCS padding", true, true, 3020, kECB, kPadPKCS, key16, ByteString(), badPad, 114, "QSEncrypt::DecryptData",
       "ECSP_DecryptData",
       "[ECSP_DecryptData] nAlgID = 11110, nEncMode = 2, nPaddintType = 8 Invalid encrypted data.(114)"},
      {"bad ISO padding", true, true, 3020, kECB, kPadISO, key16, ByteString(), badPad, 114, "QSEncrypt::DecryptData",
       "ECSP_DecryptData",
       "[ECSP_DecryptData] nAlgID = 11110, nEncMode = 2, nPaddintType = 10 Invalid encrypted data.(114)"},
      // Modes 1 and 2 translate but the core has no cipher for them.
      {"library mode 1", false, true, 3020, 1, kPadPKCS, key16, iv16, block, 104, "QSEncrypt::EncryptData",
       "ECSP_EncryptData",
       "[ECSP_EncryptData] nAlgID = 11110, nEncMode = 7, nPaddintType = 8 Invalid algorithm mode.(104)"},
      // 3060 has a core number but no cipher behind it.
      {"number without a cipher", false, true, 3060, kCBC, kPadPKCS, key16, iv16, block, 105, "QSEncrypt::EncryptData",
       "ECSP_GenerateKey", "ECSP_GenerateKey error"},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    QSEncrypt e;
    ByteString out("untouched");
    const int rc = r.decrypt ? (r.genKey ? e.DecryptData(r.alg, r.mode, r.pad, r.key, r.iv, r.in, out)
                                         : e.DecryptData_NoGenKey(r.alg, r.mode, r.pad, r.key, r.iv, r.in, out))
                             : (r.genKey ? e.EncryptData(r.alg, r.mode, r.pad, r.key, r.iv, r.in, out)
                                         : e.EncryptData_NoGenKey(r.alg, r.mode, r.pad, r.key, r.iv, r.in, out));
    EXPECT_EQ(rc, r.code);
    EXPECT_TRUE(cryptotest::TraceIs(e.GetErrorMsg(), "QSEncrypt.cpp", r.method, r.field, r.code, r.message));
    EXPECT_EQ(qvatest::Str(out), "untouched");  // a failure leaves the output alone
  }
}
