// qva cert on every Korean certificate and every openssl-made certificate of
// tests/data, in DER, PEM (several in one file) and Base64; garbage and a
// wrong issuer fail with their exit status.
#include <gtest/gtest.h>

#include <dirent.h>

#include <algorithm>
#include <cctype>

#include "tests/support/TestUtil.h"

namespace {

int Qva(const std::string& args, std::string* out) {
  out->clear();
  return qvatest::Run("LC_ALL=C.UTF-8 " + std::string(QVA_TOOL) + " cert " + args + " 2>&1", out);
}

std::size_t Count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

}  // namespace

TEST(QvaCert, PrintsEveryCertificate) {
  std::vector<std::string> files;
  for (const char* dir : {"pkix/x509/korean/certs", "pkix/x509/korean/capubs/split_3280CaPubs",
                          "pkix/x509/korean/capubs/split_CaPubs_All", "pkix/x509/certs"}) {
    auto more = qvatest::DerFiles(qvatest::DataPath(dir));
    files.insert(files.end(), more.begin(), more.end());
  }
  ASSERT_GT(files.size(), 140u);
  for (const auto& f : files) {
    SCOPED_TRACE(f);
    std::string out;
    ASSERT_EQ(0, Qva(f, &out)) << out;
    EXPECT_EQ(1u, Count(out, "Certificate:\n    Data:\n"));
    EXPECT_EQ(1u, Count(out, "        Subject: "));
    // A getter's failure is printed as its trace in angle brackets.
    EXPECT_EQ(std::string::npos, out.find("<[")) << out;
  }
}

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
  ASSERT_EQ(0, Qva(dir.file("three.pem"), &out)) << out;
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
  ASSERT_EQ(0, Qva(dir.file("mv.pem"), &out)) << out;
  EXPECT_NE(std::string::npos, out.find("        Subject: o=c,cn=a+ou=b\n")) << out;
  EXPECT_NE(std::string::npos, out.find("X509v3 Subject Alternative Name:\n                o=c,cn=a+ou=b\n")) << out;

  ASSERT_EQ(0, qvatest::Run("openssl base64 -in " + sign + " -out " + dir.file("sign.b64")));
  ASSERT_EQ(0, Qva(dir.file("sign.b64"), &out)) << out;
  EXPECT_EQ(1u, Count(out, "Certificate:\n    Data:\n"));

  qvatest::WriteFile(dir.file("garbage.der"), std::string("\x30\x82\x05\x00garbage", 11));
  EXPECT_EQ(2, Qva(dir.file("garbage.der"), &out));
  EXPECT_NE(std::string::npos, out.find("PCertUtil::parseCertificate-asnSeq(")) << out;
  qvatest::WriteFile(dir.file("garbage.txt"), std::string("not a certificate!"));
  EXPECT_EQ(2, Qva(dir.file("garbage.txt"), &out));

  EXPECT_EQ(0, Qva("--verify " + ca + " " + sign, &out)) << out;
  EXPECT_NE(std::string::npos, out.find("certificate 1: signature OK"));
  EXPECT_EQ(1, Qva("--verify " + root + " " + sign, &out)) << out;
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

}  // namespace

// Serial, names and dates as qva cert prints them against openssl x509 on
// every openssl-made certificate; serial and dates on the Korean ones too.
TEST(QvaCert, FieldsAgreeWithOpenssl) {
  struct Dir {
    const char* path;
    bool names;  // the Korean names are CP949/BMP text and printed converted
  };
  std::size_t checked = 0;
  for (const Dir& dir : {Dir{"pkix/x509/certs", true}, Dir{"pkix/x509/korean/certs", false},
                          Dir{"pkix/x509/korean/capubs/split_CaPubs_All", false}}) {
    for (const auto& f : qvatest::DerFiles(qvatest::DataPath(dir.path))) {
      SCOPED_TRACE(f);
      std::string ours, theirs;
      ASSERT_EQ(0, Qva(f, &ours)) << ours;
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
  EXPECT_GT(checked, 120u);
}
