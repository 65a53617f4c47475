// qva cms on EnvelopedData: the recipients of openssl's envelopes, and the
// opening with --cert and --key (PEM or DER), its refusal with another key.
#include <gtest/gtest.h>

#include "tests/support/TestUtil.h"

namespace {

int Qva(const std::string& args, std::string* out) {
  out->clear();
  return qvatest::Run(std::string(QVA_TOOL) + " " + args + " 2>&1", out);
}

void MustRun(const std::string& cmd) { ASSERT_EQ(qvatest::Run(cmd + " >/dev/null 2>&1"), 0) << cmd; }

}  // namespace

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
