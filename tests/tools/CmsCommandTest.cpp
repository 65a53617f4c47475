// qva cms and qva ts on openssl-made SignedData, EnvelopedData and
// time-stamp tokens: the kind, the signers, the recipients, the exit status of
// each verification, and the opening of an envelope with --cert and --key.
#include <gtest/gtest.h>

#include "tests/support/TestUtil.h"

namespace {

int Qva(const std::string& args, std::string* out) {
  out->clear();
  return qvatest::Run(std::string(QVA_TOOL) + " " + args + " 2>&1", out);
}

void MustRun(const std::string& cmd) { ASSERT_EQ(qvatest::Run(cmd + " >/dev/null 2>&1"), 0) << cmd; }

}  // namespace

TEST(QvaCms, KindsSignersAndVerification) {
  qvatest::TempDir d;
  const std::string data = d.file("data"), crt = d.file("s.crt"), key = d.file("s.key");
  qvatest::WriteFile(data, std::string("content to sign\n"));
  MustRun("openssl req -x509 -newkey rsa:2048 -nodes -keyout " + key + " -subj /CN=qva-signer -days 2 -out " + crt);
  MustRun("openssl cms -sign -binary -nodetach -in " + data + " -signer " + crt + " -inkey " + key +
          " -outform DER -out " + d.file("sd.der"));
  MustRun("openssl cms -sign -binary -in " + data + " -signer " + crt + " -inkey " + key +
          " -nocerts -outform PEM -out " + d.file("detached.pem"));
  MustRun("openssl cms -encrypt -binary -in " + data + " -outform DER -out " + d.file("env.der") + " " + crt);
  std::string out;
  ASSERT_EQ(Qva("cms " + d.file("sd.der"), &out), 0) << out;
  EXPECT_NE(out.find("Kind: SignedData"), std::string::npos) << out;
  EXPECT_NE(out.find("Issuer: cn=qva-signer"), std::string::npos) << out;
  EXPECT_NE(out.find("Verification: OK"), std::string::npos) << out;
  // Detached, without embedded certificates: the content and the signer's
  // certificate given on the command line.
  EXPECT_EQ(Qva("cms " + d.file("detached.pem") + " --content " + data, &out), 1) << out;
  EXPECT_NE(out.find("Can't verify signature. Because there is not signer certificate."), std::string::npos) << out;
  EXPECT_EQ(Qva("cms " + d.file("detached.pem") + " --content " + data + " --cert " + crt, &out), 0) << out;
  EXPECT_EQ(Qva("cms " + d.file("detached.pem") + " --content " + d.file("sd.der") + " --cert " + crt, &out), 1);
  EXPECT_NE(out.find("Content Hash value is not same."), std::string::npos) << out;
  EXPECT_EQ(Qva("cms " + d.file("env.der"), &out), 0) << out;
  EXPECT_NE(out.find("Kind: EnvelopedData"), std::string::npos) << out;
  EXPECT_EQ(Qva("cms " + data, &out), 2) << out;
  EXPECT_EQ(Qva("cms", &out), 2) << out;
}

TEST(QvaTs, OpensslTokenAndItsVersion1Form) {
  qvatest::TempDir d;
  const std::string crt = d.file("t.crt"), key = d.file("t.key");
  qvatest::WriteFile(d.file("data"), std::string("stamped\n"));
  qvatest::WriteFile(d.file("serial"), std::string("07\n"));
  qvatest::WriteFile(d.file("ts.cnf"), "[ tsa ]\ndefault_tsa = t\n[ t ]\nserial = " + d.file("serial") +
                                           "\nsigner_digest = sha256\ndefault_policy = 1.2.3.9\ndigests = sha256\n"
                                           "ess_cert_id_alg = sha1\naccuracy = secs:1, millisecs:500\n");
  MustRun("openssl req -x509 -newkey rsa:2048 -nodes -keyout " + key + " -subj /CN=qva-tsa -days 2 " +
          "-addext extendedKeyUsage=critical,timeStamping -out " + crt);
  MustRun("openssl ts -query -data " + d.file("data") + " -sha256 -cert -out " + d.file("q.tsq"));
  MustRun("openssl ts -reply -config " + d.file("ts.cnf") + " -queryfile " + d.file("q.tsq") + " -inkey " + key +
          " -signer " + crt + " -out " + d.file("resp.der"));
  MustRun("openssl ts -reply -config " + d.file("ts.cnf") + " -queryfile " + d.file("q.tsq") + " -inkey " + key +
          " -signer " + crt + " -token_out -out " + d.file("tok.der"));
  std::string out;
  for (const char* f : {"resp.der", "tok.der"}) {
    EXPECT_EQ(Qva("ts " + d.file(f), &out), 1) << out;
    EXPECT_NE(out.find("Policy: 1.2.3.9"), std::string::npos) << out;
    EXPECT_NE(out.find("Only v1 signedData is supported."), std::string::npos) << out;
  }
  // The SignedData version (the token's first INTEGER) is not signed.
  ByteString token = qvatest::ReadFileBs(d.file("tok.der"));
  const int at = token.find("\x02\x01\x03", 3);
  ASSERT_GT(at, 0);
  token.setAt(at + 2, 1);
  qvatest::WriteFile(d.file("v1.der"), token);
  EXPECT_EQ(Qva("ts " + d.file("v1.der"), &out), 0) << out;
  EXPECT_NE(out.find("Checks: OK"), std::string::npos) << out;
  EXPECT_NE(out.find("TSA certificate: cn=qva-tsa"), std::string::npos) << out;
  EXPECT_NE(out.find("Accuracy: 1 s 500 ms 0 us"), std::string::npos) << out;
  EXPECT_EQ(Qva("ts " + d.file("data"), &out), 2) << out;
  // A digest the TSA does not take: a response without a token.
  MustRun("openssl ts -query -data " + d.file("data") + " -sha1 -out " + d.file("q1.tsq"));
  MustRun("openssl ts -reply -config " + d.file("ts.cnf") + " -queryfile " + d.file("q1.tsq") + " -inkey " + key +
          " -signer " + crt + " -out " + d.file("rejected.der"));
  EXPECT_EQ(Qva("ts " + d.file("rejected.der"), &out), 1) << out;
  EXPECT_NE(out.find("Status: 2 (rejection)"), std::string::npos) << out;
}

TEST(QvaCmsEnveloped, RecipientsAndOpening) {
  qvatest::TempDir d;
  const std::string data = d.file("data"), crt = d.file("r.crt"), key = d.file("r.key"), ec = d.file("ec.crt"),
                    eckey = d.file("ec.key"), other = d.file("o.key");
  qvatest::WriteFile(data, std::string("to the recipients"));
  MustRun("openssl req -x509 -newkey rsa:2048 -nodes -keyout " + key + " -subj /CN=qva-recipient -days 2 -out " + crt);
  MustRun("openssl genpkey -algorithm EC -pkeyopt ec_paramgen_curve:sect163k1 -out " + eckey);
  MustRun("openssl req -x509 -new -key " + eckey + " -subj /CN=qva-ec -days 2 -out " + ec);
  MustRun("openssl genpkey -algorithm RSA -out " + other);
  MustRun("openssl pkcs8 -topk8 -nocrypt -in " + key + " -outform DER -out " + d.file("r.p8"));
  MustRun("openssl pkey -in " + key + " -traditional -out " + d.file("r.trad"));  // RSA PRIVATE KEY
  MustRun("openssl ec -in " + eckey + " -out " + d.file("ec.trad"));             // EC PRIVATE KEY
  MustRun("openssl cms -encrypt -binary -in " + data + " -des3 -outform DER -out " + d.file("env.der") + " -recip " +
          crt + " -recip " + ec + " -wrap des3-wrap");
  std::string out;
  ASSERT_EQ(Qva("cms " + d.file("env.der"), &out), 0) << out;
  EXPECT_NE(out.find("Recipients: 2"), std::string::npos) << out;
  EXPECT_NE(out.find("1: key transport, version 0"), std::string::npos) << out;
  EXPECT_NE(out.find("Recipient: issuer cn=qva-recipient"), std::string::npos) << out;
  EXPECT_NE(out.find("2: key agreement, version 3"), std::string::npos) << out;
  EXPECT_NE(out.find("wrap 1.2.840.113549.1.9.16.3.6"), std::string::npos) << out;
  EXPECT_NE(out.find("Content encryption: 1.2.840.113549.3.7"), std::string::npos) << out;

  const std::string hex = "746F2074686520726563697069656E7473";  // the content's octets
  struct Case {
    std::string cert, key;
    int status;
    const char* expect;
  } cases[] = {
      {crt, key, 0, "Opened: recipient 1"},           // PEM key and certificate
      {crt, d.file("r.p8"), 0, "Opened: recipient 1"},  // DER PKCS#8 key
      {crt, d.file("r.trad"), 0, "Opened: recipient 1"},
      {ec, eckey, 0, "Opened: recipient 2"},  // key agreement
      {ec, d.file("ec.trad"), 0, "Opened: recipient 2"},
      {crt, other, 1, "PEnvelopedDataProcess::findInKeyTransRecipientInfo-ECSP_DecryptData"},
      {crt, d.file("missing"), 2, "cannot read"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.expect);
    EXPECT_EQ(Qva("cms " + d.file("env.der") + " --cert " + c.cert + " --key " + c.key, &out), c.status) << out;
    EXPECT_NE(out.find(c.expect), std::string::npos) << out;
    std::string compact;
    for (char ch : out) {
      if (ch != ' ' && ch != '\n' && ch != '\r') compact += ch;
    }
    EXPECT_EQ(compact.find(hex) != std::string::npos, c.status == 0) << out;
  }
}
