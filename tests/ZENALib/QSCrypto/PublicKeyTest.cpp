// RSA, ECDSA, DSA, DH and ECDH through QSSign, QSEncrypt, QSKey and the
// core, each checked against the openssl CLI in both directions.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"
#include "tests/support/TestUtil.h"

using cryptotest::MustRun;
using qvatest::ReadFileBs;

namespace {

// Keys made once per run by the openssl CLI: <name>.der (PKCS#8 private)
// and <name>.pub (SubjectPublicKeyInfo), both DER.
class PublicKeyTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_dir = new qvatest::TempDir;
    const std::map<std::string, std::string> genArgs = {
        {"rsa512", "-algorithm RSA -pkeyopt rsa_keygen_bits:512"},
        {"rsa1024", "-algorithm RSA -pkeyopt rsa_keygen_bits:1024"},
        {"rsa1024b", "-algorithm RSA -pkeyopt rsa_keygen_bits:1024"},
        {"rsa2048", "-algorithm RSA -pkeyopt rsa_keygen_bits:2048"},
        {"k163", "-algorithm EC -pkeyopt ec_paramgen_curve:sect163k1"},
        {"k163b", "-algorithm EC -pkeyopt ec_paramgen_curve:sect163k1"},
        {"c2pnb", "-algorithm EC -pkeyopt ec_paramgen_curve:c2pnb163v1"},
        {"c2pnbb", "-algorithm EC -pkeyopt ec_paramgen_curve:c2pnb163v1"},
        {"p160", "-algorithm EC -pkeyopt ec_paramgen_curve:secp160r1"},
        {"p160b", "-algorithm EC -pkeyopt ec_paramgen_curve:secp160r1"},
        {"dh", "-algorithm DH -pkeyopt group:ffdhe2048"},
        {"dhb", "-algorithm DH -pkeyopt group:ffdhe2048"},
        {"dsa", "-paramfile " + Path("dsa.param")},
    };
    MustRun("openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:1024 "
            "-pkeyopt dsa_paramgen_q_bits:160 -out " + Path("dsa.param") + " 2>/dev/null");
    for (const auto& [name, args] : genArgs) {
      MustRun("openssl genpkey " + args + " -outform DER -out " + Path(name + ".der") + " 2>/dev/null");
      MustRun("openssl pkey -inform DER -in " + Path(name + ".der") + " -pubout -outform DER -out " +
              Path(name + ".pub"));
    }
  }
  static void TearDownTestSuite() {
    delete s_dir;
    s_dir = nullptr;
  }
  static std::string Path(const std::string& name) { return s_dir->file(name); }
  static ByteString Priv(const std::string& name) { return ReadFileBs(Path(name + ".der")); }
  static ByteString Pub(const std::string& name) { return ReadFileBs(Path(name + ".pub")); }

  static qvatest::TempDir* s_dir;
};

qvatest::TempDir* PublicKeyTest::s_dir = nullptr;

struct SignCase {
  const char* what;
  int alg;        // library number, or the core number when core is set
  bool core;      // numbers the service classes refuse (PSS, secp160r1, DSA)
  const char* key;
  const char* dgst;  // openssl dgst digest and options
};

const SignCase kSignCases[] = {
    {"MD5 RSA-512", 7000, false, "rsa512", "-md5"},
    {"MD5 RSA-1024", 7001, false, "rsa1024", "-md5"},
    {"MD5 RSA-2048", 7002, false, "rsa2048", "-md5"},
    {"SHA-1 RSA-512", 7010, false, "rsa512", "-sha1"},
    {"SHA-1 RSA-1024", 7011, false, "rsa1024", "-sha1"},
    {"SHA-1 RSA-2048", 7012, false, "rsa2048", "-sha1"},
    {"SHA-256 RSA-1024", 7070, false, "rsa1024", "-sha256"},
    {"SHA-256 RSA-2048", 7071, false, "rsa2048", "-sha256"},
    {"ECDSA sect163k1", 7050, false, "k163", "-sha1"},
    {"ECDSA c2pnb163v1", 7051, false, "c2pnb", "-sha1"},
    {"ECDSA secp160r1", ecsp::kECDSA_SHA1_P160, true, "p160", "-sha1"},
    {"DSA", ecsp::kDSA_SHA1, true, "dsa", "-sha1"},
    {"RSA-PSS SHA-1 1024", ecsp::kPSSSHA1RSA1024, true, "rsa1024",
     "-sha1 -sigopt rsa_padding_mode:pss -sigopt rsa_pss_saltlen:20"},
    {"RSA-PSS SHA-1 2048", ecsp::kPSSSHA1RSA2048, true, "rsa2048",
     "-sha1 -sigopt rsa_padding_mode:pss -sigopt rsa_pss_saltlen:20"},
};

int Sign(const SignCase& c, const ByteString& key, const ByteString& msg, ByteString* sig) {
  if (c.core) return ECSP_SignData(c.alg, key.data(), key.length(), msg.data(), msg.length(), sig);
  QSSign s;
  return s.SignData(c.alg, key, msg, *sig);
}

int Verify(const SignCase& c, const ByteString& key, const ByteString& msg, const ByteString& sig) {
  if (c.core) return ECSP_VerifyData(c.alg, key.data(), key.length(), msg.data(), msg.length(), sig.data(), sig.length());
  QSSign s;
  return s.VerifyData(c.alg, key, msg, sig);
}

}  // namespace

// Our signatures verify with `openssl dgst -verify`, openssl's verify here,
// and a changed message or signature is refused with 116.
TEST_F(PublicKeyTest, SignaturesAgreeWithOpensslBothWays) {
  const ByteString msg = qvatest::RandomBytes(1000, 5u);
  qvatest::WriteFile(Path("msg"), msg);
  ByteString tampered = msg;
  tampered.setAt(500, static_cast<char>(msg.data()[500] ^ 1));
  for (const SignCase& c : kSignCases) {
    SCOPED_TRACE(c.what);
    ByteString sig;
    ASSERT_EQ(Sign(c, Priv(c.key), msg, &sig), 0);
    qvatest::WriteFile(Path("ours.sig"), sig);
    MustRun(std::string("openssl dgst ") + c.dgst + " -keyform DER -verify " + Path(std::string(c.key) + ".pub") +
            " -signature " + Path("ours.sig") + " " + Path("msg"));
    MustRun(std::string("openssl dgst ") + c.dgst + " -keyform DER -sign " + Path(std::string(c.key) + ".der") +
            " -out " + Path("theirs.sig") + " " + Path("msg"));
    const ByteString theirs = ReadFileBs(Path("theirs.sig"));
    EXPECT_EQ(Verify(c, Pub(c.key), msg, theirs), 0);
    EXPECT_EQ(Verify(c, Pub(c.key), tampered, theirs), 116);
    EXPECT_EQ(Verify(c, Pub(c.key), tampered, sig), 116);
  }
}

// PKCS#1 v1.5 and OAEP-SHA-1 encryption opened by `openssl pkeyutl` and the
// reverse; the checked-key and raw-key paths agree.
TEST_F(PublicKeyTest, RsaEncryptionAgreesWithOpensslBothWays) {
  const struct {
    int alg;
    const char* key;
    const char* opts;
    int maxIn;
  } rows[] = {
      {4000, "rsa512", "", 64 - 11},
      {4001, "rsa1024", "", 128 - 11},
      {4002, "rsa2048", "", 256 - 11},
      {4021, "rsa1024", " -pkeyopt rsa_padding_mode:oaep -pkeyopt rsa_oaep_md:sha1", 128 - 42},
      {4022, "rsa2048", " -pkeyopt rsa_padding_mode:oaep -pkeyopt rsa_oaep_md:sha1", 256 - 42},
  };
  for (const auto& r : rows) {
    for (int len : {1, r.maxIn}) {
      SCOPED_TRACE(std::to_string(r.alg) + " len " + std::to_string(len));
      const ByteString plain = qvatest::RandomBytes(static_cast<std::size_t>(len), static_cast<unsigned>(r.alg + len));
      QSEncrypt e;
      ByteString ct;
      ASSERT_EQ(e.EncryptData(r.alg, 4, 2, Pub(r.key), ByteString(), plain, ct), 0) << qvatest::Str(e.GetErrorMsg());
      qvatest::WriteFile(Path("ct"), ct);
      MustRun(std::string("openssl pkeyutl -decrypt -keyform DER -inkey ") + Path(std::string(r.key) + ".der") +
              r.opts + " -in " + Path("ct") + " -out " + Path("pt"));
      EXPECT_EQ(ReadFileBs(Path("pt")), plain);

      qvatest::WriteFile(Path("pt2"), plain);
      MustRun(std::string("openssl pkeyutl -encrypt -pubin -keyform DER -inkey ") +
              Path(std::string(r.key) + ".pub") + r.opts + " -in " + Path("pt2") + " -out " + Path("ct2"));
      ByteString back;
      ASSERT_EQ(e.DecryptData_NoGenKey(r.alg, 4, 2, Priv(r.key), ByteString(), ReadFileBs(Path("ct2")), back), 0);
      EXPECT_EQ(back, plain);
    }
  }
}

// ECDH on the three curves and DH on ffdhe2048 give openssl's secret.
TEST_F(PublicKeyTest, SharedKeysAgreeWithOpensslDerive) {
  const struct {
    int alg;
    bool core;  // secp160r1 has a core number only
    const char* mine;
    const char* peer;
  } rows[] = {{6010, false, "k163", "k163b"},
              {6011, false, "c2pnb", "c2pnbb"},
              {6012, false, "dh", "dhb"},
              {ecsp::kECDH_P160, true, "p160", "p160b"}};
  for (const auto& r : rows) {
    SCOPED_TRACE(r.alg);
    auto derive = [&r](const ByteString& priv, const ByteString& pub, ByteString* out) {
      if (r.core) return ECSP_GenerateSharedKey(r.alg, priv.data(), priv.length(), pub.data(), pub.length(), out);
      QSKey k;
      return k.GenerateSharedKey(r.alg, priv, pub, *out);
    };
    ByteString ours, theirs;
    ASSERT_EQ(derive(Priv(r.mine), Pub(r.peer), &ours), 0);
    ASSERT_EQ(derive(Priv(r.peer), Pub(r.mine), &theirs), 0);
    EXPECT_EQ(ours, theirs);
    MustRun(std::string("openssl pkeyutl -derive -keyform DER -inkey ") + Path(std::string(r.mine) + ".der") +
            " -peerform DER -peerkey " + Path(std::string(r.peer) + ".pub") + " -out " + Path("secret"));
    EXPECT_EQ(ours, ReadFileBs(Path("secret")));
  }
}

// Key pairs made here are accepted by openssl and sign and verify here.
TEST_F(PublicKeyTest, GeneratedKeyPairsWork) {
  const struct {
    int genAlg;
    int signAlg;
  } rows[] = {{4001, 7011}, {7050, 7050}, {7051, 7051}};
  for (const auto& r : rows) {
    SCOPED_TRACE(r.genAlg);
    QSKey k;
    ByteString priv, pub;
    ASSERT_EQ(k.GenerateKeyPair(r.genAlg, ByteString(), priv, pub), 0) << qvatest::Str(k.GetErrorMsg());
    qvatest::WriteFile(Path("gen.der"), priv);
    MustRun("openssl pkey -inform DER -in " + Path("gen.der") + " -check -noout");
    QSSign s;
    ByteString sig;
    ASSERT_EQ(s.SignData(r.signAlg, priv, ByteString("data"), sig), 0);
    EXPECT_EQ(s.VerifyData(r.signAlg, pub, ByteString("data"), sig), 0);
  }
}

// Staged signing equals one-shot signing (PKCS#1 v1.5 is deterministic) and
// staged verification accepts it; the stages are not interchangeable.
TEST_F(PublicKeyTest, StagedSignatures) {
  const ByteString key = Priv("rsa1024"), pub = Pub("rsa1024");
  const ByteString msg = qvatest::RandomBytes(3000, 8u);
  ByteString oneShot, staged;
  ASSERT_EQ(ECSP_SignData(ecsp::kSHA1RSA1024, key.data(), key.length(), msg.data(), msg.length(), &oneShot), 0);
  ECSP_SIGN_CTX* ctx = nullptr;
  ASSERT_EQ(ECSP_SignDataInit(ecsp::kSHA1RSA1024, key.data(), key.length(), &ctx), 0);
  for (int at = 0; at < msg.length(); at += 701) {
    ASSERT_EQ(ECSP_SignDataUpdate(ctx, msg.data() + at, std::min(701, msg.length() - at)), 0);
  }
  // A sign context cannot take a verification step.
  EXPECT_EQ(ECSP_VerifyDataUpdate(ctx, msg.data(), 1), 2112);
  ASSERT_EQ(ECSP_SignDataFinal(ctx, &staged), 0);
  EXPECT_EQ(staged, oneShot);

  ASSERT_EQ(ECSP_VerifyDataInit(ecsp::kSHA1RSA1024, pub.data(), pub.length(), &ctx), 0);
  ASSERT_EQ(ECSP_VerifyDataUpdate(ctx, msg.data(), msg.length()), 0);
  EXPECT_EQ(ECSP_VerifyDataFinal(ctx, staged.data(), staged.length()), 0);
  ASSERT_EQ(ECSP_VerifyDataInit(ecsp::kSHA1RSA1024, pub.data(), pub.length(), &ctx), 0);
  ASSERT_EQ(ECSP_VerifyDataUpdate(ctx, msg.data(), msg.length() - 1), 0);
  EXPECT_EQ(ECSP_VerifyDataFinal(ctx, staged.data(), staged.length()), 3116);
  // Init failures carry the Init stage.
  EXPECT_EQ(ECSP_SignDataInit(ecsp::kSHA1RSA1024, pub.data(), pub.length(), &ctx), 1107);
}

// Refusals of the service classes: code and trace.
TEST_F(PublicKeyTest, RefusalsCarryCodeAndTrace) {
  const ByteString msg("message");
  ByteString rsaSig;
  {
    QSSign s;
    ASSERT_EQ(s.SignData(7011, Priv("rsa1024"), msg, rsaSig), 0);
  }
  ByteString shortSig = rsaSig.mid(0, rsaSig.length() - 1);
  struct Row {
    const char* what;
    int op;  // 0 sign, 1 verify, 2 shared key
    int alg;
    ByteString key, other;
    int code;
    const char* method;
    const char* field;
    const char* message;
  };
  const Row rows[] = {
      // Numbers without a core counterpart.
      {"RSA-PSS 1024", 0, 7060, Priv("rsa1024"), {}, 105, "QSSign::SignData", "nAlgID", "The AlgID(7060) is not supported."},
      {"RSA-PSS 2048", 1, 7061, Pub("rsa2048"), rsaSig, 105, "QSSign::VerifyData", "nAlgID", "The AlgID(7061) is not supported."},
      {"ECDSA secp160r1", 0, 7052, Priv("p160"), {}, 105, "QSSign::SignData", "nAlgID", "The AlgID(7052) is not supported."},
      // The core checks the key against the number.
      {"RSA size differs from the number", 0, 7012, Priv("rsa1024"), {}, 107, "QSSign::SignData", "ECSP_SignData",
       " Invalid key value.(107)"},
      {"signing with a public key", 0, 7011, Pub("rsa1024"), {}, 107, "QSSign::SignData", "ECSP_SignData",
       " Invalid key value.(107)"},
      {"EC key on the other curve", 0, 7050, Priv("c2pnb"), {}, 107, "QSSign::SignData", "ECSP_SignData",
       " Invalid key value.(107)"},
      {"garbage key", 1, 7011, ByteString("not a key"), rsaSig, 107, "QSSign::VerifyData", "ECSP_VerifyData",
       " Invalid key value.(107)"},
      {"RSA signature one byte short", 1, 7011, Pub("rsa1024"), shortSig, 115, "QSSign::VerifyData", "ECSP_VerifyData",
       " Invalid signature format.(115)"},
      {"signature of another message", 1, 7011, Pub("rsa1024"), rsaSig, 116, "QSSign::VerifyData", "ECSP_VerifyData",
       " Verification of signature or MAC failed.(116)"},
      {"a signature number for agreement", 2, 7050, Priv("k163"), Pub("k163b"), 105, "QSKey::GenerateSharedKey",
       "ECSP_GenerateSharedKey", " Invalid algorithm identifier.(105)"},
      {"peer on another curve", 2, 6010, Priv("k163"), Pub("c2pnb"), 107, "QSKey::GenerateSharedKey",
       "ECSP_GenerateSharedKey", " Invalid key value.(107)"},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    ByteString out;
    QSSign s;
    QSKey k;
    int rc;
    const ByteString verifyMsg = std::string(r.what) == "signature of another message" ? ByteString("other") : msg;
    if (r.op == 0) rc = s.SignData(r.alg, r.key, msg, out);
    else if (r.op == 1) rc = s.VerifyData(r.alg, r.key, verifyMsg, r.other);
    else rc = k.GenerateSharedKey(r.alg, r.key, r.other, out);
    EXPECT_EQ(rc, r.code);
    const ByteString& trace = r.op == 2 ? k.GetErrorMsg() : s.GetErrorMsg();
    EXPECT_TRUE(cryptotest::TraceIs(trace, r.op == 2 ? "QSKey.cpp" : "QSSign.cpp", r.method, r.field, r.code, r.message));
  }
}

// RSA encryption refusals inside the core.
TEST_F(PublicKeyTest, RsaEncryptionRefusals) {
  QSEncrypt e;
  ByteString out;
  // OAEP-SHA-1 takes at most k - 42 bytes.
  EXPECT_EQ(e.EncryptData(4021, 4, 2, Pub("rsa1024"), ByteString(), qvatest::RandomBytes(87, 1u), out), 101);
  // A ciphertext of the wrong length, and one that does not decrypt.
  EXPECT_EQ(e.DecryptData(4001, 4, 2, Priv("rsa1024"), ByteString(), qvatest::RandomBytes(127, 2u), out), 114);
  ByteString ct;
  ASSERT_EQ(e.EncryptData(4021, 4, 2, Pub("rsa1024"), ByteString(), ByteString("secret"), ct), 0);
  ct.setAt(5, static_cast<char>(ct.data()[5] ^ 0x40));
  EXPECT_EQ(e.DecryptData(4021, 4, 2, Priv("rsa1024"), ByteString(), ct, out), 114);
  EXPECT_TRUE(cryptotest::TraceIs(e.GetErrorMsg(), "QSEncrypt.cpp", "QSEncrypt::DecryptData", "ECSP_DecryptData", 114,
                                  "[ECSP_DecryptData] nAlgID = 13101, nEncMode = 3, nPaddintType = 8 Invalid encrypted data.(114)"));
  // Decrypting needs the private key.
  EXPECT_EQ(e.DecryptData(4001, 4, 2, Pub("rsa1024"), ByteString(), qvatest::RandomBytes(128, 3u), out), 107);
}

// Parsed public keys are reused across calls and threads: keys of the same
// length are never mixed up, and more keys than the reuse holds still work.
TEST_F(PublicKeyTest, ReusedPublicKeysStayApart) {
  const ByteString msg("reuse");
  ByteString sigA, sigB;
  QSSign s;
  ASSERT_EQ(s.SignData(7011, Priv("rsa1024"), msg, sigA), 0);
  ASSERT_EQ(s.SignData(7011, Priv("rsa1024b"), msg, sigB), 0);
  ASSERT_EQ(Pub("rsa1024").length(), Pub("rsa1024b").length());
  // Every key of the suite passes through once, pushing the others out.
  const char* const all[] = {"rsa512", "rsa2048", "k163", "k163b", "c2pnb", "c2pnbb", "p160", "p160b", "dh", "dsa"};
  std::vector<std::thread> threads;
  std::vector<int> wrong(4, 0);
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&, t] {
      QSSign v;
      for (int i = 0; i < 30; ++i) {
        const bool a = (i + t) % 2 == 0;
        const ByteString& sig = a ? sigA : sigB;
        if (v.VerifyData(7011, Pub(a ? "rsa1024" : "rsa1024b"), msg, sig) != 0) ++wrong[static_cast<std::size_t>(t)];
        if (v.VerifyData(7011, Pub(a ? "rsa1024b" : "rsa1024"), msg, sig) != 116) ++wrong[static_cast<std::size_t>(t)];
        // A key of another kind or size is parsed (and kept) but never fits.
        if (v.VerifyData(7011, Pub(all[(i + t) % 10]), msg, sigA) != 107) ++wrong[static_cast<std::size_t>(t)];
      }
    });
  }
  for (auto& th : threads) th.join();
  for (int t = 0; t < 4; ++t) EXPECT_EQ(wrong[static_cast<std::size_t>(t)], 0) << t;
}
