// KCDSA: the published examples with their fixed nonces, the KCMVP
// verification files, and round trips through QSSign with keys made here.
#include <gtest/gtest.h>

#include <openssl/asn1.h>
#include <openssl/bn.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/KCDSA.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"

using cryptotest::UpperHex;
using cryptotest::Vectors;
using ecsp_internal::DigestKind;
using qvatest::Hex;

namespace {

// DER SEQUENCE of INTEGERs given in hex, encoded by openssl.
ByteString DerIntegers(const std::vector<std::string>& hexes) {
  ASN1_SEQUENCE_ANY* seq = sk_ASN1_TYPE_new_null();
  for (const std::string& h : hexes) {
    BIGNUM* bn = nullptr;
    EXPECT_GT(BN_hex2bn(&bn, h.c_str()), 0) << h;
    ASN1_TYPE* t = ASN1_TYPE_new();
    ASN1_TYPE_set(t, V_ASN1_INTEGER, BN_to_ASN1_INTEGER(bn, nullptr));
    sk_ASN1_TYPE_push(seq, t);
    BN_free(bn);
  }
  unsigned char* der = nullptr;
  const int n = i2d_ASN1_SEQUENCE_ANY(seq, &der);
  ByteString out(der, n);
  OPENSSL_free(der);
  sk_ASN1_TYPE_pop_free(seq, ASN1_TYPE_free);
  return out;
}

// "has-160", "SHA224" ... as the digest kind.
DigestKind KindOf(std::string name) {
  name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
  static const std::map<std::string, DigestKind> kinds = {{"HAS160", ecsp_internal::kDigestHAS160},
                                                          {"SHA224", ecsp_internal::kDigestSHA224},
                                                          {"SHA256", ecsp_internal::kDigestSHA256}};
  return kinds.at(cryptotest::Upper(name));
}

// Signs msg with the nonce k (sig is written), or verifies sig when k is null.
int Kcdsa(const ByteString& key, DigestKind kind, const ByteString& msg, const ByteString* k, ByteString* sig) {
  KCDSA_KEY* pKey = nullptr;
  if (int rc = KCDSA_ParseKey(key.data(), key.length(), &pKey)) return rc;
  ecsp_internal::Digest d;
  int rc = KCDSA_Start(pKey, kind, &d);
  if (rc == 0) rc = d.Update(msg.data(), static_cast<std::size_t>(msg.length())) ? 0 : 1;
  if (rc == 0) rc = k ? KCDSA_FinishSign(pKey, &d, k, sig) : KCDSA_FinishVerify(pKey, &d, sig->data(), sig->length());
  KCDSA_FreeKey(pKey);
  return rc;
}

}  // namespace

// The TTAK.KO-12.0001 appendix and KISA-WP-2011-0022 examples (the KISA
// report signs the TTAK message) give R and S exactly with their nonces, and
// verify; of the KCMVP 2048-bit SGT/SVT records the 20 valid ones in each
// file verify and the five marked Fail = true are refused.
TEST(KCDSA, PublishedVectors) {
  const ByteString example = Hex("5468697320697320612074657374206D65737361676520666F72204B4344534120757361676521");
  const std::pair<const char*, std::vector<int>> files[] = {  // records signed with a nonce, verified, refused
      {"kcdsa_ttak.txt", {5, 5, 0}},
      {"kcdsa_kisa.txt", {6, 6, 0}},
      {"kcdsa_kcmvp_2048_224_SHA224.txt", {0, 20, 5}},
      {"kcdsa_kcmvp_2048_256_SHA256.txt", {0, 20, 5}}};
  for (const auto& [file, want] : files) {
    std::vector<int> counts(3, 0);
    for (auto v : Vectors(file)) {
      const std::string kindName = v.count("Sizes") ? v["Sizes"].substr(v["Sizes"].find('B') + 4) : v["hashAlgo"];
      SCOPED_TRACE(std::string(file) + " " + kindName + " R=" + v["R"]);
      const ByteString msg = v.count("M") ? Hex(v["M"]) : example;
      // The KCMVP files drop leading zero digits of R and S (each as long as q there).
      auto full = [&v](const std::string& h) { return std::string(v["Q"].size() - std::min(v["Q"].size(), h.size()), '0') + h; };
      ByteString sig = Hex(full(v["R"]) + full(v["S"]));
      if (v.count("K") || v.count("KKEY")) {
        const ByteString k = Hex(v.count("K") ? v["K"] : v["KKEY"]);
        ByteString ours;
        ASSERT_EQ(Kcdsa(DerIntegers({v["P"], v["Q"], v["G"], v["Y"], v["X"]}), KindOf(kindName), msg, &k, &ours), 0);
        EXPECT_EQ(UpperHex(ours), v["R"] + v["S"]);
        ++counts[0];
      }
      const bool fail = v["Fail"] == "true";
      EXPECT_EQ(Kcdsa(DerIntegers({v["P"], v["Q"], v["G"], v["Y"]}), KindOf(kindName), msg, nullptr, &sig),
                fail ? ECSP_VERIFY_FAIL : ECSP_OK);
      ++counts[1 + fail];
    }
    EXPECT_EQ(counts, want) << file;
  }
}

// Keys made here for each size sign and verify with SHA-1 and HAS-160, and
// any change of message, R, S or digest is refused.
TEST(KCDSA, RoundTripsAndRefusals) {
  const struct {
    int bits, sha1, has160;  // p bits and the SHA-1 and HAS-160 numbers of that size
  } sizes[] = {{512, 7031, 7040}, {1024, 7032, 7041}, {2048, 7033, 7042}};
  const ByteString msg = qvatest::RandomBytes(777, 3u);
  ByteString otherMsg = msg;
  otherMsg.setAt(0, static_cast<char>(msg.data()[0] ^ 0x80));
  for (const auto& size : sizes) {
    SCOPED_TRACE(size.bits);
    QSKey keys;
    ByteString priv, pub;
    ASSERT_EQ(keys.GenerateKeyPair(size.sha1, ByteString(), priv, pub), 0) << qvatest::Str(keys.GetErrorMsg());
    KCDSA_KEY* k = nullptr;
    ASSERT_EQ(KCDSA_ParseKey(priv.data(), priv.length(), &k), 0);
    EXPECT_EQ(KCDSA_PBits(k), size.bits);
    EXPECT_TRUE(KCDSA_HasPrivate(k));
    KCDSA_FreeKey(k);
    QSSign s;
    for (int alg : {size.sha1, size.has160}) {
      SCOPED_TRACE(alg);
      ByteString sig, again;
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
      ASSERT_EQ(s.SignData(alg, priv, msg, again), 0);
      EXPECT_NE(again, sig);
      EXPECT_EQ(s.VerifyData(alg, pub, msg, again), 0);
      // The digest of the other number does not verify.
      EXPECT_EQ(s.VerifyData(alg == size.sha1 ? size.has160 : size.sha1, pub, msg, sig), 116);
    }
    ByteString sig;  // a key of another size does not fit the number
    EXPECT_EQ(s.SignData(size.sha1 == 7033 ? 7032 : 7033, priv, msg, sig), 107);
  }
}

// The generated domain: q of 160 bits divides p - 1, g has order q and
// y = g^(x^-1 mod q) mod p.
TEST(KCDSA, GeneratedDomainIsSound) {
  ByteString priv, pub;
  ASSERT_EQ(ECSP_GenerateKeyPair(ecsp::kKCDSA_HAS160_1024, ByteString(), &priv, &pub), 0);
  const unsigned char* in = priv.data();  // p, q, g, y, x read back by openssl
  ASN1_SEQUENCE_ANY* seq = d2i_ASN1_SEQUENCE_ANY(nullptr, &in, priv.length());
  ASSERT_NE(seq, nullptr);
  ASSERT_EQ(sk_ASN1_TYPE_num(seq), 5);
  BIGNUM *v[5], *t = BN_new(), *pm1 = BN_new();
  for (int i = 0; i < 5; ++i) v[i] = ASN1_INTEGER_to_BN(sk_ASN1_TYPE_value(seq, i)->value.integer, nullptr);
  BN_CTX* ctx = BN_CTX_new();
  EXPECT_EQ(BN_num_bits(v[0]), 1024);
  EXPECT_EQ(BN_num_bits(v[1]), 160);
  EXPECT_EQ(BN_check_prime(v[0], ctx, nullptr), 1);
  EXPECT_EQ(BN_check_prime(v[1], ctx, nullptr), 1);
  BN_sub(pm1, v[0], BN_value_one());
  BN_mod(t, pm1, v[1], ctx);
  EXPECT_TRUE(BN_is_zero(t));  // q | p - 1
  BN_mod_exp(t, v[2], v[1], v[0], ctx);
  EXPECT_TRUE(BN_is_one(t));  // g^q = 1
  EXPECT_FALSE(BN_is_one(v[2]));
  BIGNUM* xinv = BN_mod_inverse(nullptr, v[4], v[1], ctx);
  BN_mod_exp(t, v[2], xinv, v[0], ctx);
  EXPECT_EQ(BN_cmp(t, v[3]), 0);
  for (BIGNUM* b : {v[0], v[1], v[2], v[3], v[4], xinv, t, pm1}) BN_free(b);
  BN_CTX_free(ctx);
  sk_ASN1_TYPE_pop_free(seq, ASN1_TYPE_free);
}

// Staged signing through the core verifies one-shot; malformed keys are refused.
TEST(KCDSA, StagedSigningAndKeyChecks) {
  const auto v = Vectors("kcdsa_ttak.txt").back();  // 1024/160/HAS-160
  ASSERT_EQ(v.at("Sizes"), "A1024B160HAS160");
  const std::string P = v.at("P"), Q = v.at("Q"), G = v.at("G"), Y = v.at("Y");
  const ByteString priv = DerIntegers({P, Q, G, Y, v.at("X")}), pub = DerIntegers({P, Q, G, Y});
  const ByteString msg = qvatest::RandomBytes(5000, 4u);
  ECSP_SIGN_CTX* ctx = nullptr;
  ASSERT_EQ(ECSP_SignDataInit(ecsp::kKCDSA_HAS160_1024, priv.data(), priv.length(), &ctx), 0);
  for (int at = 0; at < msg.length(); at += 333) {
    ASSERT_EQ(ECSP_SignDataUpdate(ctx, msg.data() + at, std::min(333, msg.length() - at)), 0);
  }
  ByteString sig;
  ASSERT_EQ(ECSP_SignDataFinal(ctx, &sig), 0);
  auto verify = [&](const ByteString& key) {
    return ECSP_VerifyData(ecsp::kKCDSA_HAS160_1024, key.data(), key.length(), msg.data(), msg.length(), sig.data(),
                           sig.length());
  };
  EXPECT_EQ(verify(pub), 0);
  for (auto b : Vectors("kcdsa_bad_keys.txt")) {
    SCOPED_TRACE("Ints = " + b["Ints"] + ", Der = " + b["Der"]);
    std::vector<std::string> ints;
    std::istringstream names(b["Ints"]);
    for (std::string n; names >> n;) ints.push_back(v.count(n) ? v.at(n) : n);
    const ByteString key = b["Der"] == "trailing"    ? ByteString(pub) += '\x01'
                           : b["Der"] == "truncated" ? pub.mid(0, pub.length() - 1)
                           : !b["Der"].empty()       ? Hex(b["Der"])
                                                     : DerIntegers(ints);
    EXPECT_EQ(verify(key), 107);
  }
}
