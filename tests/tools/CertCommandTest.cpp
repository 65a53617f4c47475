// qva cert on every Korean certificate and every openssl-made certificate of
// tests/data, in DER, PEM (several in one file) and Base64; qva crl on the
// CRLs of tests/data/crl and the KISA CRL (exit status 0 not revoked, 1
// revoked, 2 error). Fields are compared with what openssl prints.
#include <gtest/gtest.h>

#include <dirent.h>

#include <algorithm>
#include <cctype>
#include <vector>

#include "tests/support/TestUtil.h"

namespace {

int Qva(const std::string& args, std::string* out) {
  out->clear();
  return qvatest::Run("LC_ALL=C.UTF-8 " + std::string(QVA_TOOL) + " " + args + " 2>&1", out);
}

std::size_t Count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

}  // namespace

TEST(QvaCert, FormsNamesAndFailures) {
  qvatest::TempDir dir;
  const std::string sign = qvatest::DataPath("pkix/x509/korean/certs/test_KTNET_signCert.der");
  const std::string ca = qvatest::DataPath("pkix/x509/korean/capubs/split_CaPubs_All/15.der");  // TradeSignCA3
  const std::string root = qvatest::DataPath("pkix/x509/korean/certs/KISA_RootCA4.der");
  std::string out, pem;
  for (const auto& f : {sign, ca, root}) {
    std::string one;
    ASSERT_EQ(0, qvatest::Run("openssl x509 -inform DER -in " + f, &one));
    pem += one;
  }
  qvatest::WriteFile(dir.file("three.pem"), pem);
  ASSERT_EQ(0, Qva("cert " + dir.file("three.pem"), &out)) << out;
  EXPECT_EQ(3u, Count(out, "Certificate:\n    Data:\n"));
  // The BMPString name and policy notice, CP949 inside, UTF-8 on this terminal.
  EXPECT_NE(std::string::npos, out.find("Subject: c=KR,o=TradeSign,ou=LicensedCA,ou=KTNET,cn=\xED\x85\x8C\xEC\x8A\xA4\xED\x8A\xB8(KTNET)"))
      << out;
  EXPECT_NE(std::string::npos, out.find("Policy: 1.2.410.200012.1.1.3"));

  // A multi-valued RDN in the subject and in a directoryName alternative name
  // is written with '+' in both places.
  qvatest::WriteFile(dir.file("mv.cnf"),
                     std::string("[req]\ndistinguished_name = dn\n[dn]\n[a]\nsubjectAltName = dirName:d\n"
                                 "[d]\nO = c\nCN = a\n+OU = b\n"));
  ASSERT_EQ(0, qvatest::Run("openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout " +
                            dir.file("mv.key") + " -multivalue-rdn -subj /O=c/CN=a+OU=b -config " + dir.file("mv.cnf") +
                            " -extensions a -out " + dir.file("mv.pem") + " 2>/dev/null"));
  ASSERT_EQ(0, Qva("cert " + dir.file("mv.pem"), &out)) << out;
  EXPECT_NE(std::string::npos, out.find("        Subject: o=c,cn=a+ou=b\n")) << out;
  EXPECT_NE(std::string::npos, out.find("X509v3 Subject Alternative Name:\n                o=c,cn=a+ou=b\n")) << out;

  ASSERT_EQ(0, qvatest::Run("openssl base64 -in " + sign + " -out " + dir.file("sign.b64")));
  ASSERT_EQ(0, Qva("cert " + dir.file("sign.b64"), &out)) << out;
  EXPECT_EQ(1u, Count(out, "Certificate:\n    Data:\n"));

  qvatest::WriteFile(dir.file("garbage.der"), std::string("\x30\x82\x05\x00garbage", 11));
  EXPECT_EQ(2, Qva("cert " + dir.file("garbage.der"), &out));
  EXPECT_NE(std::string::npos, out.find("PCertUtil::parseCertificate-asnSeq(")) << out;
  qvatest::WriteFile(dir.file("garbage.txt"), std::string("not a certificate!"));
  EXPECT_EQ(2, Qva("cert " + dir.file("garbage.txt"), &out));

  EXPECT_EQ(0, Qva("cert --verify " + ca + " " + sign, &out)) << out;
  EXPECT_NE(std::string::npos, out.find("certificate 1: signature OK"));
  EXPECT_EQ(1, Qva("cert --verify " + root + " " + sign, &out)) << out;
  EXPECT_NE(std::string::npos, out.find("(116)")) << out;
}

namespace {

// The text after `key` up to the end of its line, or "" when absent.
std::string After(const std::string& text, const std::string& key) {
  const std::size_t at = text.find(key);
  if (at == std::string::npos) return "";
  const std::size_t from = at + key.size();
  return text.substr(from, text.find('\n', from) - from);
}

// Hex digits only, upper case, leading zeros dropped: "00:9a" and "9A" agree.
std::string HexValue(const std::string& s) {
  std::string hex;
  for (char c : s)
    if (std::isxdigit(static_cast<unsigned char>(c))) hex += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  const std::size_t first = hex.find_first_not_of('0');
  return first == std::string::npos ? "0" : hex.substr(first);
}

// An openssl name in qva's notation: attribute names lower-cased, emailAddress
// shown as "e", the members of a multi-valued RDN joined by '+' as there.
std::string LowerKeys(const std::string& name) {
  std::string out;
  bool inKey = true;
  for (char c : name) {
    if (c == '=') inKey = false;
    if (c == ',' || c == '+') inKey = true;
    out += inKey ? static_cast<char>(std::tolower(static_cast<unsigned char>(c))) : c;
  }
  for (std::size_t at = out.find("emailaddress="); at != std::string::npos; at = out.find("emailaddress=", at))
    out.replace(at, 13, "e=");
  return out;
}

// Every value following `key` on its lines, hex serials without leading zeros.
std::vector<std::string> Values(const std::string& text, const std::string& key, bool serial) {
  std::vector<std::string> out;
  for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at + 1)) {
    std::string v = text.substr(at + key.size(), text.find('\n', at) - at - key.size());
    if (serial) v.erase(0, std::min(v.find_first_not_of('0'), v.size() - 1));
    out.push_back(v);
  }
  return out;
}

std::string D(const std::string& name) { return qvatest::DataPath("crl/" + name); }

}  // namespace

// Serial, names and dates as qva cert prints them against openssl x509 on
// every openssl-made certificate; serial and dates on the Korean ones too.
// Each file prints as one certificate, and no getter fails (a failure is
// printed as its trace in angle brackets).
TEST(QvaCert, FieldsAgreeWithOpenssl) {
  struct Dir {
    const char* path;
    bool names;  // the Korean names are CP949/BMP text and printed converted
  };
  std::size_t checked = 0;
  for (const Dir& dir : {Dir{"pkix/x509/certs", true}, Dir{"pkix/x509/korean/certs", false},
                          Dir{"pkix/x509/korean/capubs/split_CaPubs_All", false},
                          Dir{"pkix/x509/korean/capubs/split_3280CaPubs", false}}) {
    for (const auto& f : qvatest::DerFiles(qvatest::DataPath(dir.path))) {
      SCOPED_TRACE(f);
      std::string ours, theirs;
      ASSERT_EQ(0, Qva("cert " + f, &ours)) << ours;
      EXPECT_EQ(1u, Count(ours, "Certificate:\n    Data:\n"));
      EXPECT_EQ(1u, Count(ours, "        Subject: "));
      EXPECT_EQ(std::string::npos, ours.find("<[")) << ours;
      ASSERT_EQ(0, qvatest::Run("openssl x509 -inform DER -in " + f +
                                    " -noout -serial -subject -issuer -dates -nameopt sep_comma_plus,sname,utf8",
                                &theirs));
      const std::size_t serialAt = ours.find("Serial Number:");
      ASSERT_NE(std::string::npos, serialAt);
      const std::string serial =
          ours.substr(serialAt + 14, ours.find("Signature Algorithm", serialAt) - serialAt - 14);
      EXPECT_EQ(HexValue(After(theirs, "serial=")), HexValue(serial));
      EXPECT_EQ(After(theirs, "notBefore="), After(ours, "Not Before: "));
      EXPECT_EQ(After(theirs, "notAfter="), After(ours, "Not After : "));
      if (dir.names) {
        EXPECT_EQ(LowerKeys(After(theirs, "subject=")), After(ours, "        Subject: "));
        EXPECT_EQ(LowerKeys(After(theirs, "issuer=")), After(ours, "        Issuer: "));
      }
      ++checked;
    }
  }
  EXPECT_GT(checked, 140u);
}

TEST(QvaCrl, AnswersAndExitStatus) {
  qvatest::TempDir dir;
  ASSERT_EQ(0, qvatest::Run("openssl crl -inform DER -in " + D("full.der") + " -out " + dir.file("full.pem")));
  const std::string kisa = qvatest::DataPath("pkix/x509/korean/");
  const struct {
    std::string args;
    int status;
    const char* expect;
  } kCases[] = {
      {D("full.der"), 0, "    Revoked Certificates: 11\n"},
      {D("full.der") + " --issuer " + D("ca.der"), 0, "Issuer check: OK\n"},
      {D("full.der") + " --serial 11", 1, "Serial 11: revoked (entry 0, Jan  2 03:04:05 2025 GMT, keyCompromise)\n"},
      // The hexadecimal number FF is written 00 FF.
      {D("full.der") + " --serial 0xff", 1, "Serial 00FF: revoked (entry 10, Jan  2 03:04:15 2025 GMT)\n"},
      {D("full.der") + " --serial 40", 0, "Serial 40: not revoked\n"},
      {dir.file("full.pem") + " --serial 2:7", 1, "Serial 27: revoked (entry 7, Jan  2 03:04:12 2025 GMT, certificateHold)\n"},
      {D("full.der"), 0, "            Hold Instruction: 1.2.840.10040.2.3\n"},
      {D("full.der"), 0, "            Invalidity Date: Dec 31 00:00:00 2024 GMT\n"},
      {D("delta.der"), 0, "    Delta CRL Indicator: 07\n"},
      {D("idp-user.der"), 0, "    Issuing Distribution Point: onlyUser\n        URL=http://crl.example.com/ca.crl\n"},
      {kisa + "crl/KISA-RootCA-4.crl --issuer " + kisa + "certs/KISA_RootCA4.der --serial 01", 0,
       "    CRL Number: 0253\n"},
      {D("full.der") + " --issuer " + D("other.der") + " --serial 11", 2,
       "CRL Issuer Dn is different from Issuer Certificate subjectName."},
      {D("critical.der"), 2, "CRL Extension(1 2 3 4, critical) is UNKNOWN"},
      {D("full.der") + " --serial xyz", 2, "is not a hexadecimal serial number"},
      {D("make.sh"), 2, "PCertListProcess::parseCertList-certList"},
      {"--serial", 2, "qva crl FILE [--issuer CERT] [--serial HEX]"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.args);
    std::string out;
    EXPECT_EQ(c.status, Qva("crl " + c.args, &out)) << out;
    EXPECT_NE(out.find(c.expect), std::string::npos) << out;
  }
}


// Issuer, dates and every revoked serial as qva crl prints them against
// openssl crl on each CRL of tests/data/crl that qva prints whole (critical.der,
// many.der and future.der's entry are refused by design).
TEST(QvaCrl, FieldsAgreeWithOpenssl) {
  std::size_t checked = 0;
  for (const char* name : {"aki-issuer.der", "delta.der", "empty.der", "full.der", "ian.der", "idp-aa.der",
                           "idp-ca.der", "idp-user.der", "indirect.der", "v1.der"}) {
    SCOPED_TRACE(name);
    std::string ours, fields, text;
    ASSERT_EQ(0, Qva("crl " + D(name), &ours)) << ours;
    const std::string openssl = "openssl crl -inform DER -noout -in " + D(name);
    ASSERT_EQ(0, qvatest::Run(openssl + " -issuer -lastupdate -nextupdate -nameopt sep_comma_plus,sname,utf8", &fields));
    ASSERT_EQ(0, qvatest::Run(openssl + " -text", &text));
    EXPECT_EQ(LowerKeys(After(fields, "issuer=")), After(ours, "    Issuer: "));
    EXPECT_EQ(Values(fields, "lastUpdate=", false), Values(ours, "This Update: ", false));
    EXPECT_EQ(Values(fields, "nextUpdate=", false), Values(ours, "Next Update: ", false));
    const auto serials = Values(text, "Serial Number: ", true);
    EXPECT_EQ(serials, Values(ours, "Serial Number: ", true));
    checked += serials.size();
  }
  EXPECT_GT(checked, 20u);
}
