// KCDSA: the published examples with their fixed nonces, the KCMVP
// verification files, and round trips through QSSign with keys made here.
#include <gtest/gtest.h>

#include <openssl/asn1.h>
#include <openssl/bn.h>

#include <map>
#include <string>
#include <vector>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/KCDSA.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"
#include "tests/support/TestUtil.h"

using cryptotest::UpperHex;
using ecsp_internal::Digest;
using ecsp_internal::DigestKind;
using qvatest::DataPath;
using qvatest::Hex;
using qvatest::ReadVectors;

namespace {

// DER SEQUENCE of positive INTEGERs given in hex.
ByteString DerIntegers(const std::vector<std::string>& hexes) {
  auto withLength = [](unsigned char tag, const std::string& body) {
    std::string out(1, static_cast<char>(tag));
    const std::size_t n = body.size();
    if (n < 0x80) {
      out += static_cast<char>(n);
    } else if (n < 0x100) {
      out += "\x81";
      out += static_cast<char>(n);
    } else {
      out += "\x82";
      out += static_cast<char>(n >> 8);
      out += static_cast<char>(n & 0xFF);
    }
    return out + body;
  };
  std::string seq;
  for (const std::string& h : hexes) {
    const ByteString b = Hex(h.size() % 2 ? "0" + h : h);  // the KCMVP files drop a leading zero digit
    std::string v(b.c_str(), static_cast<std::size_t>(b.length()));
    v.erase(0, std::min(v.find_first_not_of('\0'), v.size() - 1));
    if (static_cast<unsigned char>(v[0]) & 0x80) v.insert(0, 1, '\0');
    seq += withLength(0x02, v);
  }
  const std::string der = withLength(0x30, seq);
  return ByteString(der.data(), static_cast<int>(der.size()));
}

DigestKind KindOf(const std::string& name) {
  static const std::map<std::string, DigestKind> kinds = {
      {"has-160", ecsp_internal::kDigestHAS160}, {"HAS160", ecsp_internal::kDigestHAS160},
      {"sha-224", ecsp_internal::kDigestSHA224}, {"SHA224", ecsp_internal::kDigestSHA224},
      {"sha-256", ecsp_internal::kDigestSHA256}, {"SHA256", ecsp_internal::kDigestSHA256}};
  return kinds.at(name);
}

int SignWithK(const ByteString& key, DigestKind kind, const ByteString& msg, const ByteString* k, ByteString* sig) {
  KCDSA_KEY* pKey = nullptr;
  if (int rc = KCDSA_ParseKey(key.data(), key.length(), &pKey)) return rc;
  Digest d;
  int rc = KCDSA_Start(pKey, kind, &d);
  if (rc == 0) rc = d.Update(msg.data(), static_cast<std::size_t>(msg.length())) ? 0 : 1;
  if (rc == 0) rc = KCDSA_FinishSign(pKey, &d, k, sig);
  KCDSA_FreeKey(pKey);
  return rc;
}

int VerifyWith(const ByteString& key, DigestKind kind, const ByteString& msg, const ByteString& sig) {
  KCDSA_KEY* pKey = nullptr;
  if (int rc = KCDSA_ParseKey(key.data(), key.length(), &pKey)) return rc;
  Digest d;
  int rc = KCDSA_Start(pKey, kind, &d);
  if (rc == 0) rc = d.Update(msg.data(), static_cast<std::size_t>(msg.length())) ? 0 : 1;
  if (rc == 0) rc = KCDSA_FinishVerify(pKey, &d, sig.data(), sig.length());
  KCDSA_FreeKey(pKey);
  return rc;
}

// The message of the TTAK examples, also used by the KISA report.
const char kExampleMessage[] = "5468697320697320612074657374206D65737361676520666F72204B4344534120757361676521";

}  // namespace

// TTAK.KO-12.0001 appendix and KISA-WP-2011-0022 examples: with the given
// nonce the signature is R and S exactly, and it verifies.
TEST(KCDSA, PublishedExamplesWithFixedNonce) {
  struct Example {
    std::string where, kind, p, q, g, y, x, k, r, s;
  };
  std::vector<Example> examples;
  for (auto v : ReadVectors(DataPath("crypto/kcdsa_ttak.txt"))) {
    const std::string sizes = v["Sizes"];
    examples.push_back({"TTAK " + sizes, sizes.substr(sizes.find("B") + 4), v["P"], v["Q"], v["G"], v["Y"], v["X"],
                        v["KKEY"], v["R"], v["S"]});
  }
  for (auto v : ReadVectors(DataPath("crypto/kcdsa_kisa.txt"))) {
    examples.push_back({"KISA " + v["pBits"] + "/" + v["qBits"] + " " + v["hashAlgo"], v["hashAlgo"], v["P"], v["Q"],
                        v["G"], v["Y"], v["X"], v["K"], v["R"], v["S"]});
  }
  ASSERT_EQ(examples.size(), 11u);
  for (const Example& e : examples) {
    SCOPED_TRACE(e.where);
    const ByteString priv = DerIntegers({e.p, e.q, e.g, e.y, e.x});
    const ByteString pub = DerIntegers({e.p, e.q, e.g, e.y});
    const ByteString k = Hex(e.k);
    ByteString sig;
    ASSERT_EQ(SignWithK(priv, KindOf(e.kind), Hex(kExampleMessage), &k, &sig), 0);
    EXPECT_EQ(UpperHex(sig), e.r + e.s);
    EXPECT_EQ(VerifyWith(pub, KindOf(e.kind), Hex(kExampleMessage), sig), 0);
  }
}

// KCMVP 2048-bit SGT/SVT records: valid ones verify, the five marked
// Fail = true in each file are refused.
TEST(KCDSA, KcmvpVerificationFiles) {
  for (const char* file : {"crypto/kcdsa_kcmvp_2048_224_SHA224.txt", "crypto/kcdsa_kcmvp_2048_256_SHA256.txt"}) {
    int valid = 0, refused = 0;
    for (auto v : ReadVectors(DataPath(file))) {
      SCOPED_TRACE(std::string(file) + " R=" + v["R"]);
      const std::string sizes = v["Sizes"];
      const ByteString pub = DerIntegers({v["P"], v["Q"], v["G"], v["Y"]});
      // R is as long as q; the file drops leading zero digits.
      std::string r = v["R"], s = v["S"];
      const std::size_t qHex = v["Q"].size();
      r.insert(0, qHex - r.size(), '0');
      s.insert(0, qHex - s.size(), '0');
      const int rc = VerifyWith(pub, KindOf(sizes.substr(sizes.find("B") + 4)), Hex(v["M"]), Hex(r + s));
      const bool fail = v["Fail"] == "true";
      EXPECT_EQ(rc, fail ? ECSP_VERIFY_FAIL : ECSP_OK);
      (fail ? refused : valid)++;
    }
    EXPECT_EQ(valid, 20) << file;
    EXPECT_EQ(refused, 5) << file;
  }
}

// Keys made here for each size sign and verify with SHA-1 and HAS-160, and
// any change of message, R, S or digest is refused.
TEST(KCDSA, RoundTripsAndRefusals) {
  const struct {
    int bits, sha1, has160;
  } sizes[] = {{512, 7031, 7040}, {1024, 7032, 7041}, {2048, 7033, 7042}};
  const ByteString msg = qvatest::RandomBytes(777, 3u);
  ByteString otherMsg = msg;
  otherMsg.setAt(0, static_cast<char>(msg.data()[0] ^ 0x80));
  for (const auto& size : sizes) {
    SCOPED_TRACE(size.bits);
    QSKey keys;
    ByteString priv, pub;
    ASSERT_EQ(keys.GenerateKeyPair(size.sha1, ByteString(), priv, pub), 0) << qvatest::Str(keys.GetErrorMsg());
    {
      KCDSA_KEY* k = nullptr;
      ASSERT_EQ(KCDSA_ParseKey(priv.data(), priv.length(), &k), 0);
      EXPECT_EQ(KCDSA_PBits(k), size.bits);
      EXPECT_TRUE(KCDSA_HasPrivate(k));
      KCDSA_FreeKey(k);
    }
    for (int alg : {size.sha1, size.has160}) {
      SCOPED_TRACE(alg);
      QSSign s;
      ByteString sig;
      ASSERT_EQ(s.SignData(alg, priv, msg, sig), 0) << qvatest::Str(s.GetErrorMsg());
      EXPECT_EQ(sig.length(), 40);  // R (digest length) || S (length of q)
      EXPECT_EQ(s.VerifyData(alg, pub, msg, sig), 0);
      EXPECT_EQ(s.VerifyData(alg, pub, otherMsg, sig), 116);
      for (int at : {0, 19, 20, 39}) {  // a bit of R or of S
        ByteString bad = sig;
        bad.setAt(at, static_cast<char>(sig.data()[at] ^ 1));
        EXPECT_EQ(s.VerifyData(alg, pub, msg, bad), 116) << at;
      }
      EXPECT_EQ(s.VerifyData(alg, pub, msg, sig.mid(0, 39)), 115);
      // Two signatures of one message differ (fresh nonce) and both hold.
      ByteString again;
      ASSERT_EQ(s.SignData(alg, priv, msg, again), 0);
      EXPECT_NE(again, sig);
      EXPECT_EQ(s.VerifyData(alg, pub, msg, again), 0);
    }
    // The digest of the other code does not verify.
    QSSign s;
    ByteString sig;
    ASSERT_EQ(s.SignData(size.sha1, priv, msg, sig), 0);
    EXPECT_EQ(s.VerifyData(size.has160, pub, msg, sig), 116);
    // A key of another size does not fit the number.
    const int otherSize = size.sha1 == 7033 ? 7032 : 7033;
    EXPECT_EQ(s.SignData(otherSize, priv, msg, sig), 107);
    EXPECT_TRUE(cryptotest::TraceIs(s.GetErrorMsg(), "QSSign.cpp", "QSSign::SignData", "ECSP_SignData", 107,
                                    " Invalid key value.(107)"));
  }
}

// The generated domain: q of 160 bits divides p - 1 and g has order q.
TEST(KCDSA, GeneratedDomainIsSound) {
  ByteString priv, pub;
  ASSERT_EQ(ECSP_GenerateKeyPair(ecsp::kKCDSA_HAS160_1024, ByteString(), &priv, &pub), 0);
  // Read p, q, g, y, x back through openssl's DER reader.
  const unsigned char* in = priv.data();
  ASN1_SEQUENCE_ANY* seq = d2i_ASN1_SEQUENCE_ANY(nullptr, &in, priv.length());
  ASSERT_NE(seq, nullptr);
  ASSERT_EQ(sk_ASN1_TYPE_num(seq), 5);
  BIGNUM* v[5];
  for (int i = 0; i < 5; ++i) v[i] = ASN1_INTEGER_to_BN(sk_ASN1_TYPE_value(seq, i)->value.integer, nullptr);
  BN_CTX* ctx = BN_CTX_new();
  BIGNUM *t = BN_new(), *pm1 = BN_dup(v[0]);
  BN_sub_word(pm1, 1);
  EXPECT_EQ(BN_num_bits(v[0]), 1024);
  EXPECT_EQ(BN_num_bits(v[1]), 160);
  EXPECT_EQ(BN_check_prime(v[0], ctx, nullptr), 1);
  EXPECT_EQ(BN_check_prime(v[1], ctx, nullptr), 1);
  BN_mod(t, pm1, v[1], ctx);
  EXPECT_TRUE(BN_is_zero(t));  // q | p - 1
  BN_mod_exp(t, v[2], v[1], v[0], ctx);
  EXPECT_TRUE(BN_is_one(t));  // g^q = 1
  EXPECT_FALSE(BN_is_one(v[2]));
  // y = g^(x^-1 mod q) mod p
  BIGNUM* xinv = BN_mod_inverse(nullptr, v[4], v[1], ctx);
  BN_mod_exp(t, v[2], xinv, v[0], ctx);
  EXPECT_EQ(BN_cmp(t, v[3]), 0);
  for (BIGNUM* b : v) BN_free(b);
  BN_free(xinv);
  BN_free(t);
  BN_free(pm1);
  BN_CTX_free(ctx);
  sk_ASN1_TYPE_pop_free(seq, ASN1_TYPE_free);
}

// Staged signing through the core verifies one-shot; malformed keys are refused.
TEST(KCDSA, StagedSigningAndKeyChecks) {
  const auto v = ReadVectors(DataPath("crypto/kcdsa_ttak.txt")).back();  // 1024/160/HAS-160
  ASSERT_EQ(v.at("Sizes"), "A1024B160HAS160");
  const ByteString priv = DerIntegers({v.at("P"), v.at("Q"), v.at("G"), v.at("Y"), v.at("X")});
  const ByteString pub = DerIntegers({v.at("P"), v.at("Q"), v.at("G"), v.at("Y")});
  const ByteString msg = qvatest::RandomBytes(5000, 4u);
  ECSP_SIGN_CTX* ctx = nullptr;
  ASSERT_EQ(ECSP_SignDataInit(ecsp::kKCDSA_HAS160_1024, priv.data(), priv.length(), &ctx), 0);
  for (int at = 0; at < msg.length(); at += 333) {
    ASSERT_EQ(ECSP_SignDataUpdate(ctx, msg.data() + at, std::min(333, msg.length() - at)), 0);
  }
  ByteString sig;
  ASSERT_EQ(ECSP_SignDataFinal(ctx, &sig), 0);
  EXPECT_EQ(ECSP_VerifyData(ecsp::kKCDSA_HAS160_1024, pub.data(), pub.length(), msg.data(), msg.length(), sig.data(),
                            sig.length()),
            0);
  const struct {
    const char* what;
    ByteString key;
  } bad[] = {
      {"x not below q", DerIntegers({v.at("P"), v.at("Q"), v.at("G"), v.at("Y"), v.at("Q")})},
      {"g of one", DerIntegers({v.at("P"), v.at("Q"), "01", v.at("Y")})},
      {"q too short to draw a nonce", DerIntegers({v.at("P"), "03", v.at("G"), v.at("Y")})},
      {"three integers", DerIntegers({v.at("P"), v.at("Q"), v.at("G")})},
      {"trailing byte", [&] {
         ByteString t = pub;
         t += '\x01';
         return t;
       }()},
      {"truncated", pub.mid(0, pub.length() - 1)},
      {"not DER", ByteString("\x30\x84\xFF\xFF\xFF\xFF")},
  };
  for (const auto& b : bad) {
    EXPECT_EQ(ECSP_VerifyData(ecsp::kKCDSA_HAS160_1024, b.key.data(), b.key.length(), msg.data(), msg.length(),
                              sig.data(), sig.length()),
              107)
        << b.what;
  }
}
