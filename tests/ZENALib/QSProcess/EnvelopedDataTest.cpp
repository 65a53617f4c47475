// PEnvelopedData and PEnvelopedDataProcess both ways with the openssl CLI:
// our envelopes opened by `openssl cms -decrypt`, openssl's opened by us,
// the KEK envelope of make_kekri.py, and the refusals of
// tests/data/cms/enveloped/enveloped.txt.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>

#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/QSProcess/PEnvelopedData.h"
#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

using cryptotest::MustRun;
using processtest::Get;
using processtest::Num;
using qvatest::ReadFileBs;

namespace {

const char kKek[] = "1F2E3D4C5B6A798897A6B5C4D3E2F10123456789ABCDEF01";
const char kKekId[] = "6B656B2D3031";

struct Party {
  ByteString cert, key, pub;  // certificate, PKCS#8 key and SubjectPublicKeyInfo, DER
  std::string pem, keyPem;
};

class Enveloped : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_dir = std::make_unique<qvatest::TempDir>();
    MustRun("openssl genpkey -genparam -algorithm DHX -pkeyopt dh_rfc5114:2 -out " + Path("dhx.param"));
    MustRun("openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:1024 -pkeyopt dsa_paramgen_q_bits:160 "
            "-out " + Path("dsa.param") + " 2>/dev/null");
    MustRun("openssl req -x509 -newkey rsa:1024 -nodes -keyout " + Path("ca.key") + " -subj /CN=ca -days 2 -out " +
            Path("ca.pem") + " 2>/dev/null");
  }
  static std::string Path(const std::string& name) { return s_dir->file(name); }

  // A key of `args` and a certificate for it (issued by the RSA CA for a
  // DH key, which cannot sign its own).
  static Party Make(const std::string& name, std::string args) {
    const bool dh = args.find("$DHXPARAM") != std::string::npos;
    args = cryptotest::Subst(args, "$DHXPARAM", Path("dhx.param"));
    args = cryptotest::Subst(args, "$DSAPARAM", Path("dsa.param"));
    Party p{{}, {}, {}, Path(name + ".pem"), Path(name + ".key")};
    MustRun("openssl genpkey " + args + " -out " + p.keyPem + " 2>/dev/null");
    MustRun("openssl pkcs8 -topk8 -nocrypt -in " + p.keyPem + " -outform DER -out " + Path(name + ".p8"));
    MustRun("openssl pkey -in " + p.keyPem + " -pubout -out " + Path(name + ".pub"));
    MustRun("openssl pkey -in " + p.keyPem + " -pubout -outform DER -out " + Path(name + ".spki"));
    if (dh) {
      MustRun("openssl req -new -key " + Path("ca.key") + " -subj /CN=" + name + " -out " + Path(name + ".csr"));
      MustRun("openssl x509 -req -in " + Path(name + ".csr") + " -CA " + Path("ca.pem") + " -CAkey " +
              Path("ca.key") + " -CAcreateserial -force_pubkey " + Path(name + ".pub") + " -days 2 -out " + p.pem +
              " 2>/dev/null");
    } else {
      MustRun("openssl req -x509 -new -key " + p.keyPem + " -subj /CN=" + name + " -days 2 -out " + p.pem);
    }
    MustRun("openssl x509 -in " + p.pem + " -outform DER -out " + Path(name + ".der"));
    p.cert = ReadFileBs(Path(name + ".der"));
    p.key = ReadFileBs(Path(name + ".p8"));
    p.pub = ReadFileBs(Path(name + ".spki"));
    return p;
  }

  static inline std::unique_ptr<qvatest::TempDir> s_dir;
};

// The envelope decoded, changed by `edit` and encoded again in its ContentInfo.
ByteString Reencode(const ByteString& der, const std::function<void(REnvelopedData&, RContentInfo&)>& edit) {
  RContentInfo ci;
  REnvelopedData env;
  EXPECT_EQ(ci.fromASN1Object(der), 0);
  EXPECT_EQ(env.fromASN1Object(ci.getContent().getElement()), 0);
  edit(env, ci);
  RAny any;
  any.setElement(env.toASN1Object());
  ci.setContent(any);
  return ci.toASN1Object();
}

// A certificate as a CertificateChoices entry of originatorInfo.
void AddOriginatorCert(REnvelopedData& e, const ByteString& cert) {
  RCertificate c;
  EXPECT_EQ(c.fromASN1Object(cert), 0);
  RCertificateChoices choice;
  choice.setCertificate(c);
  ROriginatorInfo info;
  RCertificateSet certs;
  certs.add(choice);
  info.setCerts(certs);
  e.setOriginatorInfo(info);
}

// The named change of the table's Edit column.
ByteString Edit(const std::string& name, const ByteString& der, const ByteString& origCert,
                const ByteString& myCert) {
  using E = REnvelopedData;
  using C = RContentInfo;
  const std::map<std::string, std::function<void(E&, C&)>> edits = {
      {"add-originator-cert", [&](E& e, C&) { AddOriginatorCert(e, origCert); }},
      {"add-other-cert", [&](E& e, C&) { AddOriginatorCert(e, myCert); }},
      {"kekri-version-3", [](E& e, C&) { e.getRecipientInfos().getAt(0)->getKekri().setVersion(ASN1Integer(3)); }},
      {"kari-version-2", [](E& e, C&) { e.getRecipientInfos().getAt(0)->getKari().setVersion(ASN1Integer(2)); }},
      {"drop-content", [](E& e, C&) {
         REncryptedContentInfo& eci = e.getEncryptedContentInfo();
         eci.setPresent(eci.getEncryptedContent(), false);
       }},
      {"drop-iv", [](E& e, C&) {
         RAlgorithmIdentifier& alg = e.getEncryptedContentInfo().getContentEncryptionAlgorithm();
         alg.setPresent(alg.getParameters(), false);
       }},
      {"other-serial", [](E& e, C&) {
         e.getRecipientInfos().getAt(0)->getKtri().getRid().getIssuerAndSerialNumber().setSerialNumber(ASN1Integer(7));
       }},
      {"data-type", [](E&, C& ci) { ci.getContentType().setOID("1 2 840 113549 1 7 1"); }},
      {"password-first", [](E& e, C&) {
         RRecipientInfos all;
         all.add(RRecipientInfo());
         EXPECT_EQ(all.getAt(0)->fromASN1Object(processtest::HexBs("A303 020100")), 0);
         for (const RRecipientInfo& ri : e.getRecipientInfos().items()) all.add(ri);
         e.setRecipientInfos(all);
       }},
  };
  const auto it = edits.find(name);
  if (it != edits.end()) return Reencode(der, it->second);
  ADD_FAILURE() << "unknown edit " << name;
  return der;
}

int RecipientVersion(const PEnvelopedDataProcess& proc) {
  const RRecipientInfo& ri = *proc.getEnvelopedData().getRecipientInfos().getAt(proc.getRecipientIndex());
  return ri.isKtri() ? ri.getKtri().getVersion().getInteger()
         : ri.isKari() ? ri.getKari().getVersion().getInteger()
                       : ri.getKekri().getVersion().getInteger();
}

}  // namespace

TEST_F(Enveloped, BothWaysWithOpenssl) {
  for (auto r : processtest::Vectors("../cms/enveloped/enveloped.txt")) {
    SCOPED_TRACE(r["Name"]);
    const std::string name = r["Name"], from = r["From"];
    const ByteString content(r["Content"].empty() ? std::string(100, 'c').append(r["Name"]).c_str()
                                                  : r["Content"].c_str());
    Party me, orig;
    if (!r["Key"].empty()) me = Make(name, r["Key"]);
    ByteString der;
    if (from == "ours") {
      PEnvelopedData env;
      ByteString key, iv;
      ASSERT_EQ(env.makeSymetricKey(Num(r, "Alg"), key, iv), 0);
      const std::string kind = r["Kind"];
      if (kind == "kekri") {
        ASSERT_EQ(env.choiceRecipientType(penv::KEK_RECIPIENT_INFO), 0);
        env.setKeyEncryptionKey(qvatest::Hex(kKek), qvatest::Hex(kKekId));
      } else {
        ASSERT_EQ(env.choiceRecipientType(kind == "ktri" ? penv::KEY_TRANS_RECIPIENT_INFO
                                                         : penv::KEY_AGREE_RECIPIENT_INFO),
                  0);
        if (Num(r, "Rid")) {
          ASSERT_EQ(env.choiceRecipientIdentifier(Num(r, "Rid")), 0);
        }
        env.setOAEP(Num(r, "Oaep") != 0);
        env.setECMQV(Num(r, "Ecmqv") != 0);
      }
      if (kind == "kari") {
        orig = Make(name + "-orig", r["Key"]);
        env.setOriginator(Num(r, "Orig") == penv::ORIGINATOR_KEY ? orig.pub : orig.cert, Num(r, "Orig"), orig.key);
      }
      const int rc = env.addRecipient(me.cert);
      if (rc) {
        EXPECT_EQ(rc, Num(r, "Code")) << qvatest::Str(env.getErrorMessage());
        EXPECT_TRUE(cryptotest::TraceTail(env.getErrorMessage(), "PEnvelopedData.cpp", r["Tail"]));
        EXPECT_EQ(env.getRecipientCount(), 0);
        continue;
      }
      ASSERT_EQ(env.makeEnvelopedData(content, der), 0) << qvatest::Str(env.getErrorMessage());
      if (Num(r, "NoOpenssl") == 0 && r["Edit"].empty() && Num(r, "Code") == 0) {
        qvatest::WriteFile(Path(name + ".cms"), der);
        MustRun("openssl cms -decrypt -binary -inform DER -in " + Path(name + ".cms") + " -recip " + me.pem +
                " -inkey " + me.keyPem + " -out " + Path(name + ".out") +
                (Num(r, "Legacy") ? " -provider legacy -provider default" : ""));
        EXPECT_EQ(ReadFileBs(Path(name + ".out")), content);
      }
      if (!r["Edit"].empty()) der = Edit(r["Edit"], der, orig.cert, me.cert);
    } else if (from == "openssl") {
      qvatest::WriteFile(Path(name + ".in"), content);
      MustRun("openssl cms -encrypt -binary -in " + Path(name + ".in") + " -outform DER -out " + Path(name + ".cms") +
              (me.pem.empty() ? "" : " -recip " + me.pem) + " " + r["Encrypt"]);
      der = ReadFileBs(Path(name + ".cms"));
    } else {
      der = ReadFileBs(qvatest::DataPath("cms/enveloped/" + r["File"]));
    }

    PEnvelopedDataProcess proc;
    if (me.cert.length()) {
      ASSERT_EQ(proc.setRecipientIdentifier(me.cert), 0);
    }
    if (r["Kind"] == "kekri") proc.setKeyEncryptionKey(qvatest::Hex(kKek), qvatest::Hex(kKekId));
    if (!r["Kek"].empty()) proc.setKeyEncryptionKey(qvatest::Hex(r["Kek"]), qvatest::Hex(r["KekId"]));
    ByteString opened;
    int rc = proc.parseEnvelopedData(der, me.key);
    if (rc == 0) rc = proc.getContent(opened);
    EXPECT_EQ(rc, Num(r, "Code")) << qvatest::Str(proc.getErrorMessage());
    if (rc) {
      EXPECT_TRUE(cryptotest::TraceTail(proc.getErrorMessage(), "PEnvelopedDataProcess.cpp", r["Tail"]));
      continue;
    }
    EXPECT_EQ(opened, content);
    EXPECT_EQ(RecipientVersion(proc), Num(r, "Version"));
  }
}

// Several recipients of different kinds in one envelope: each opens its own
// entry, and the envelope version follows the entries (0 only for version 0
// key transport entries).
TEST_F(Enveloped, MixedRecipients) {
  const Party rsa = Make("mixed-rsa", "-algorithm RSA -pkeyopt rsa_keygen_bits:1024");
  const Party ec = Make("mixed-ec", "-algorithm EC -pkeyopt ec_paramgen_curve:sect163k1");
  const Party orig = Make("mixed-orig", "-algorithm EC -pkeyopt ec_paramgen_curve:sect163k1");
  PEnvelopedData env;
  ByteString key, iv, der;
  ASSERT_EQ(env.makeSymetricKey(3011, key, iv), 0);
  ASSERT_EQ(env.choiceRecipientType(penv::KEY_TRANS_RECIPIENT_INFO), 0);
  ASSERT_EQ(env.choiceRecipientIdentifier(penv::ISSUERANDSERIALNUMBER), 0);
  ASSERT_EQ(env.addRecipientByCert(rsa.cert), 0);
  ASSERT_EQ(env.makeEnvelopedData("only key transport", der), 0);
  PEnvelopedDataProcess first;
  ASSERT_EQ(first.decodeEnvelopedData(der), 0);
  EXPECT_EQ(first.getEnvelopedData().getVersion().getInteger(), 0);

  ASSERT_EQ(env.choiceRecipientType(penv::KEY_AGREE_RECIPIENT_INFO), 0);
  EXPECT_EQ(env.addRecipient(ec.cert), penv::ERR_SET_ORIGINATOR);
  env.setOriginator(orig.pub, penv::ORIGINATOR_KEY, orig.key);
  ASSERT_EQ(env.addRecipient(ec.cert), 0);
  ASSERT_EQ(env.choiceRecipientType(penv::KEK_RECIPIENT_INFO), 0);
  EXPECT_EQ(env.addRecipient(ByteString()), penv::ERR_KEK_NOT_SET);
  env.setKeyEncryptionKey(qvatest::Hex(kKek), qvatest::Hex(kKekId));
  ASSERT_EQ(env.addRecipient(ByteString()), 0);
  EXPECT_EQ(env.getRecipientCount(), 3);
  ASSERT_EQ(env.makeEnvelopedData("three recipients", der), 0);

  struct Opener {
    const Party* party;
    bool kek;
    int index;
  } openers[] = {{&rsa, false, 0}, {&ec, false, 1}, {nullptr, true, 2}};
  for (const Opener& o : openers) {
    SCOPED_TRACE(o.index);
    PEnvelopedDataProcess proc;
    if (o.party) {
      ASSERT_EQ(proc.setRecipientIdentifier(o.party->cert), 0);
    }
    if (o.kek) proc.setKeyEncryptionKey(qvatest::Hex(kKek), qvatest::Hex(kKekId));
    ASSERT_EQ(proc.parseEnvelopedData(der, o.party ? o.party->key : ByteString()), 0)
        << qvatest::Str(proc.getErrorMessage());
    EXPECT_EQ(proc.getRecipientIndex(), o.index);
    EXPECT_EQ(proc.getEnvelopedData().getVersion().getInteger(), 2);
    ByteString opened;
    ASSERT_EQ(proc.getContent(opened), 0);
    EXPECT_EQ(opened, ByteString("three recipients"));
  }
  // Cut anywhere, the envelope no longer decodes (the first one does not
  // reach the recipients).
  for (int cut : {1, 20, der.length() / 2, der.length() - 1}) {
    PEnvelopedDataProcess proc;
    ASSERT_EQ(proc.setRecipientIdentifier(rsa.cert), 0);
    EXPECT_NE(proc.parseEnvelopedData(der.mid(0, cut), rsa.key), 0) << cut;
    EXPECT_EQ(proc.getRecipientIndex(), -1) << cut;
  }
}

// The key and IV table, and the refused arguments with their texts.
TEST(EnvelopedArguments, KeyTableAndChoices) {
  const int table[][3] = {{3000, 8, 8},   {3051, 8, 8},   {3010, 16, 8},  {3052, 16, 8},
                          {3011, 24, 8},  {3020, 16, 16}, {3090, 16, 16}, {3091, 16, 16},
                          {3200, 16, 16}, {3050, 5, 8},   {3060, 0, 16}};
  for (const auto& row : table) {
    PEnvelopedData env;
    ByteString key, iv, key2, iv2;
    ASSERT_EQ(env.makeSymetricKey(row[0], key, iv), 0) << row[0];
    EXPECT_EQ(key.length(), row[1]) << row[0];
    EXPECT_EQ(iv.length(), row[2]) << row[0];
    ASSERT_EQ(env.makeSymetricKey(row[0], key2, iv2), 0);
    EXPECT_NE(iv, iv2) << row[0];
  }
  for (int bad : {2999, 3053, 3201, 4000}) {
    PEnvelopedData env;
    ByteString key, iv;
    EXPECT_EQ(env.makeSymetricKey(bad, key, iv), 1);
    EXPECT_TRUE(cryptotest::TraceTail(env.getErrorMessage(), "PEnvelopedData.cpp",
                                      "PEnvelopedData::makeSymetricKey-nEncAlg(1), Unknown symmetric algoritm."));
  }
  PEnvelopedData env;
  EXPECT_EQ(env.choiceRecipientType(4), 1);
  EXPECT_TRUE(cryptotest::TraceTail(env.getErrorMessage(), "PEnvelopedData.cpp",
                                    std::string("PEnvelopedData::choiceRecipientType-nType(1), ") +
                                        penv::kRecipientTypeInput));
  EXPECT_EQ(env.choiceRecipientIdentifier(3), 2);
  EXPECT_TRUE(cryptotest::TraceTail(env.getErrorMessage(), "PEnvelopedData.cpp",
                                    std::string("PEnvelopedData::choiceRecipientIdentifier-nIdentifier(2), ") +
                                        penv::kRecipientIdInput));
  ASSERT_EQ(env.choiceRecipientType(penv::KEK_RECIPIENT_INFO), 0);
  env.setKeyEncryptionKey(qvatest::Hex(kKek), qvatest::Hex(kKekId));
  EXPECT_EQ(env.addRecipient(ByteString()), penv::ERR_CEK_NOT_SET);
  ByteString der;
  EXPECT_EQ(env.makeEnvelopedData("x", der), penv::ERR_SYMMETRIC_KEY_NOT_SET);
}
