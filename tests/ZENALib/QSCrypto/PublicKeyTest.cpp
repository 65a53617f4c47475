// RSA, ECDSA, DSA, DH and ECDH through QSSign, QSEncrypt, QSKey and the
// core, each checked against the openssl CLI in both directions; the
// refusals of every service class.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <thread>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSCrypto/QSMac.h"
#include "ZENALib/QSCrypto/QSRandom.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"

using cryptotest::MustRun;
using cryptotest::Vectors;
using qvatest::Hex;
using qvatest::ReadFileBs;

namespace {

// Keys made once per run by the openssl CLI (pk_keys.txt).
class WithKeys : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_dir = std::make_unique<qvatest::TempDir>();
    MustRun("openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:1024 "
            "-pkeyopt dsa_paramgen_q_bits:160 -out " + Path("dsa.param") + " 2>/dev/null");
    for (auto k : Vectors("pk_keys.txt")) {
      const std::string gen = cryptotest::Subst(k["Gen"], "$DSAPARAM", Path("dsa.param"));
      MustRun("openssl genpkey " + gen + " -outform DER -out " + Path(k["Name"] + ".der") + " 2>/dev/null");
      MustRun("openssl pkey -inform DER -in " + Path(k["Name"] + ".der") + " -pubout -outform DER -out " +
              Path(k["Name"] + ".pub"));
    }
  }
  static std::string Path(const std::string& name) { return s_dir->file(name); }
  static ByteString Priv(const std::string& name) { return ReadFileBs(Path(name + ".der")); }
  static ByteString Pub(const std::string& name) { return ReadFileBs(Path(name + ".pub")); }

  static inline std::unique_ptr<qvatest::TempDir> s_dir;  // removed at exit
};

}  // namespace

// Our signatures verify with `openssl dgst -verify`, openssl's verify here,
// and a changed message is refused with 116 (pk_sign.txt).
TEST_F(WithKeys, SignaturesAgreeWithOpensslBothWays) {
  const ByteString msg = qvatest::RandomBytes(1000, 5u);
  qvatest::WriteFile(Path("msg"), msg);
  ByteString tampered = msg;
  tampered.setAt(500, static_cast<char>(msg.data()[500] ^ 1));
  for (auto c : Vectors("pk_sign.txt")) {
    SCOPED_TRACE(c["Alg"] + " " + c["Key"]);
    const int alg = std::stoi(c["Alg"]);
    const bool core = c["Door"] == "core";
    QSSign s;
    auto verify = [&](const ByteString& m, const ByteString& sig) {
      const ByteString pub = Pub(c["Key"]);
      return core ? ECSP_VerifyData(alg, pub.data(), pub.length(), m.data(), m.length(), sig.data(), sig.length())
                  : s.VerifyData(alg, pub, m, sig);
    };
    ByteString sig;
    const ByteString key = Priv(c["Key"]);
    ASSERT_EQ(core ? ECSP_SignData(alg, key.data(), key.length(), msg.data(), msg.length(), &sig)
                   : s.SignData(alg, key, msg, sig),
              0);
    qvatest::WriteFile(Path("ours.sig"), sig);
    const std::string dgst = "openssl dgst " + c["Dgst"] + " -keyform DER ";
    MustRun(dgst + "-verify " + Path(c["Key"] + ".pub") + " -signature " + Path("ours.sig") + " " + Path("msg"));
    MustRun(dgst + "-sign " + Path(c["Key"] + ".der") + " -out " + Path("theirs.sig") + " " + Path("msg"));
    const ByteString theirs = ReadFileBs(Path("theirs.sig"));
    EXPECT_EQ(verify(msg, theirs), 0);
    EXPECT_EQ(verify(tampered, theirs), 116);
    EXPECT_EQ(verify(tampered, sig), 116);
    std::istringstream salts(c["WrongSalt"]);
    for (std::string salt; salts >> salt;) {
      SCOPED_TRACE("salt " + salt);
      std::string opts = c["Dgst"];
      opts.replace(opts.rfind(':') + 1, std::string::npos, salt);
      MustRun("openssl dgst " + opts + " -keyform DER -sign " + Path(c["Key"] + ".der") + " -out " +
              Path("salt.sig") + " " + Path("msg"));
      EXPECT_EQ(verify(msg, ReadFileBs(Path("salt.sig"))), 116);
    }
  }
}

// PKCS#1 v1.5 and OAEP-SHA-1 encryption opened by `openssl pkeyutl` and the
// reverse; the checked-key and raw-key paths agree (pk_rsa_encryption.txt).
TEST_F(WithKeys, RsaEncryptionAgreesWithOpensslBothWays) {
  for (auto r : Vectors("pk_rsa_encryption.txt")) {
    for (int len : {1, std::stoi(r["MaxIn"])}) {
      SCOPED_TRACE(r["Alg"] + " len " + std::to_string(len));
      const int alg = std::stoi(r["Alg"]);
      const ByteString plain = qvatest::RandomBytes(len, alg + len);
      const std::string pkeyutl = "openssl pkeyutl -keyform DER " + r["Opts"] + " -in " + Path("in") + " -out " +
                                  Path("out") + " -inkey " + Path(r["Key"]);
      QSEncrypt e;
      ByteString ct, back;
      ASSERT_EQ(e.EncryptData(alg, 4, 2, Pub(r["Key"]), ByteString(), plain, ct), 0) << qvatest::Str(e.GetErrorMsg());
      qvatest::WriteFile(Path("in"), ct);
      MustRun(pkeyutl + ".der -decrypt");
      EXPECT_EQ(ReadFileBs(Path("out")), plain);
      qvatest::WriteFile(Path("in"), plain);
      MustRun(pkeyutl + ".pub -pubin -encrypt");
      ASSERT_EQ(e.DecryptData_NoGenKey(alg, 4, 2, Priv(r["Key"]), ByteString(), ReadFileBs(Path("out")), back), 0);
      EXPECT_EQ(back, plain);
    }
  }
}

// ECDH on the three curves and DH on ffdhe2048 give openssl's secret.
TEST_F(WithKeys, SharedKeysAgreeWithOpensslDerive) {
  for (auto r : Vectors("pk_shared.txt")) {
    SCOPED_TRACE(r["Alg"]);
    const int alg = std::stoi(r["Alg"]);
    auto derive = [&](const ByteString& priv, const ByteString& pub, ByteString* out) {
      QSKey k;
      return r["Door"] == "core" ? ECSP_GenerateSharedKey(alg, priv.data(), priv.length(), pub.data(), pub.length(), out)
                                 : k.GenerateSharedKey(alg, priv, pub, *out);
    };
    ByteString ours, theirs;
    ASSERT_EQ(derive(Priv(r["Mine"]), Pub(r["Peer"]), &ours), 0);
    ASSERT_EQ(derive(Priv(r["Peer"]), Pub(r["Mine"]), &theirs), 0);
    EXPECT_EQ(ours, theirs);
    MustRun("openssl pkeyutl -derive -keyform DER -inkey " + Path(r["Mine"] + ".der") + " -peerform DER -peerkey " +
            Path(r["Peer"] + ".pub") + " -out " + Path("secret"));
    EXPECT_EQ(ours, ReadFileBs(Path("secret")));
  }
}

// Staged signing equals one-shot signing (PKCS#1 v1.5 is deterministic) and
// staged verification accepts it; the stages are not interchangeable.
TEST_F(WithKeys, StagedSignatures) {
  const ByteString key = Priv("rsa1024"), pub = Pub("rsa1024"), msg = qvatest::RandomBytes(3000, 8u);
  ByteString oneShot, staged;
  ASSERT_EQ(ECSP_SignData(ecsp::kSHA1RSA1024, key.data(), key.length(), msg.data(), msg.length(), &oneShot), 0);
  ECSP_SIGN_CTX* ctx = nullptr;
  ASSERT_EQ(ECSP_SignDataInit(ecsp::kSHA1RSA1024, key.data(), key.length(), &ctx), 0);
  for (int at = 0; at < msg.length(); at += 701) {
    ASSERT_EQ(ECSP_SignDataUpdate(ctx, msg.data() + at, std::min(701, msg.length() - at)), 0);
  }
  EXPECT_EQ(ECSP_VerifyDataUpdate(ctx, msg.data(), 1), 2112);  // a sign context takes no verification step
  ASSERT_EQ(ECSP_SignDataFinal(ctx, &staged), 0);
  EXPECT_EQ(staged, oneShot);
  for (int cut : {0, 1}) {  // the whole message verifies, one byte less is refused at the Final stage
    ASSERT_EQ(ECSP_VerifyDataInit(ecsp::kSHA1RSA1024, pub.data(), pub.length(), &ctx), 0);
    ASSERT_EQ(ECSP_VerifyDataUpdate(ctx, msg.data(), msg.length() - cut), 0);
    EXPECT_EQ(ECSP_VerifyDataFinal(ctx, staged.data(), staged.length()), cut ? 3116 : 0);
  }
  EXPECT_EQ(ECSP_SignDataInit(ecsp::kSHA1RSA1024, pub.data(), pub.length(), &ctx), 1107);  // Init stage
}

// Refusals of every service class (service_refusals.txt): the code, the
// object's error code, the whole trace and, where asked, the output left alone.
TEST_F(WithKeys, ServiceRefusalsCarryCodeAndTrace) {
  QSSign s;
  QSEncrypt e;
  ByteString sig, oaep;
  ASSERT_EQ(s.SignData(7011, Priv("rsa1024"), ByteString("message"), sig), 0);
  ASSERT_EQ(e.EncryptData(4021, 4, 2, Pub("rsa1024"), ByteString(), ByteString("secret"), oaep), 0);
  oaep.setAt(5, static_cast<char>(oaep.data()[5] ^ 0x40));
  auto bytes = [&](const std::string& text, const ByteString& key) -> ByteString {
    const std::string kind = text.substr(0, text.find(' ')), arg = text.substr(text.find(' ') + 1);
    ByteString out;
    if (kind == "badpad") {
      EXPECT_EQ(e.EncryptData(3020, 3, 0, key, {}, Hex("00112233445566778899AABBCCDDEEFF"), out), 0);
    }
    return kind == "priv"            ? Priv(arg)
           : kind == "pub"           ? Pub(arg)
           : kind == "text"          ? ByteString(arg.c_str())
           : kind == "random"        ? qvatest::RandomBytes(std::stoul(arg), 2u)
           : kind == "sig"           ? sig
           : kind == "shortsig"      ? sig.mid(0, sig.length() - 1)
           : kind == "oaep-tampered" ? oaep
           : kind == "badpad"        ? out
                                     : Hex(text);
  };
  const auto records = Vectors("service_refusals.txt");
  ASSERT_EQ(records.size(), 40u);
  for (auto r : records) {
    SCOPED_TRACE(r["Op"] + " " + r["Alg"] + " " + r["Key"] + " / " + r["In"] + ": " + r["Tail"]);
    auto num = [&r](const char* name) { return r[name].empty() ? 0 : std::stoi(r[name]); };
    const std::string op = r["Op"];
    const int alg = num("Alg");
    const ByteString key = bytes(r["Key"], {}), in = bytes(r["In"], key);
    QSHash h;
    QSMac m;
    QSRandom g;
    QSSign sign;
    QSKey agree;
    QSEncrypt crypt;
    ByteString out("untouched");
    const int rc = op == "DigestData"          ? h.DigestData(alg, in, out)
                   : op == "DigestData_Init"   ? h.DigestData_Init(alg)
                   : op == "DigestData_Update" ? h.DigestData_Update(in)
                   : op == "DigestData_Final"  ? h.DigestData_Final(out)
                   : op == "GenerateMAC"       ? m.GenerateMAC(alg, key, in, out)
                   : op == "GenerateRandom"    ? g.GenerateRandom(alg, num("Len"), out)
                   : op == "SignData"          ? sign.SignData(alg, key, in, out)
                   : op == "VerifyData"        ? sign.VerifyData(alg, key, Hex(r["Msg"]), in)
                   : op == "GenerateSharedKey" ? agree.GenerateSharedKey(alg, key, in, out)
                       : cryptotest::Crypt(crypt, op, alg, num("Mode"), num("Pad"), key, Hex(r["IV"]), in, out);
    // The object called is the one left with an error code (the last when none is).
    const QSService* all[] = {&h, &m, &g, &sign, &agree, &crypt};
    const QSService& who = **std::find_if(all, all + 5, [](const QSService* o) { return o->GetErrorCode() != 0; });
    EXPECT_EQ(rc, num("Code"));
    EXPECT_EQ(who.GetErrorCode(), num("Code"));
    const std::string cls = r["Tail"].substr(0, r["Tail"].find("::"));  // no Tail: the code alone
    if (!cls.empty()) {
      EXPECT_TRUE(cryptotest::TraceTail(who.GetErrorMsg(), cls + ".cpp", r["Tail"]));
    }
    EXPECT_EQ(qvatest::Str(out), r["Output"].empty() ? qvatest::Str(out) : "untouched");
  }
}

// Parsed public keys are reused across calls and threads: keys of the same
// length are never mixed up, and more keys than the reuse holds still work.
TEST_F(WithKeys, ReusedPublicKeysStayApart) {
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
        wrong[t] += v.VerifyData(7011, Pub(a ? "rsa1024" : "rsa1024b"), msg, sig) != 0;
        wrong[t] += v.VerifyData(7011, Pub(a ? "rsa1024b" : "rsa1024"), msg, sig) != 116;
        // A key of another kind or size is parsed (and kept) but never fits.
        wrong[t] += v.VerifyData(7011, Pub(all[(i + t) % 10]), msg, sigA) != 107;
      }
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
}
