// qva crl on the openssl-made CRLs of tests/data/crl and the KISA CRL: the
// printout, the revocation answer and its exit status (0 not revoked, 1
// revoked, 2 error), in DER and PEM.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <vector>

#include "tests/support/TestUtil.h"

namespace {

int Qva(const std::string& args, std::string* out) {
  out->clear();
  return qvatest::Run("LC_ALL=C.UTF-8 " + std::string(QVA_TOOL) + " crl " + args + " 2>&1", out);
}

std::string D(const std::string& name) { return qvatest::DataPath("crl/" + name); }

}  // namespace

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
    EXPECT_EQ(c.status, Qva(c.args, &out)) << out;
    EXPECT_NE(out.find(c.expect), std::string::npos) << out;
  }
}

namespace {

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

}  // namespace

// Issuer, dates and every revoked serial as qva crl prints them against
// openssl crl on each CRL of tests/data/crl that qva prints whole (critical.der,
// many.der and future.der's entry are refused by design).
TEST(QvaCrl, FieldsAgreeWithOpenssl) {
  std::size_t checked = 0;
  for (const char* name : {"aki-issuer.der", "delta.der", "empty.der", "full.der", "ian.der", "idp-aa.der",
                           "idp-ca.der", "idp-user.der", "indirect.der", "v1.der"}) {
    SCOPED_TRACE(name);
    std::string ours, fields, text;
    ASSERT_EQ(0, Qva(D(name), &ours)) << ours;
    const std::string openssl = "openssl crl -inform DER -noout -in " + D(name);
    ASSERT_EQ(0, qvatest::Run(openssl + " -issuer -lastupdate -nextupdate -nameopt sep_comma_plus,sname,utf8", &fields));
    ASSERT_EQ(0, qvatest::Run(openssl + " -text", &text));
    std::string issuer = Values(fields, "issuer=", false).at(0);
    for (std::size_t i = 0; i < issuer.size(); ++i)  // qva writes attribute names in lower case
      if (i == 0 || issuer[i - 1] == ',') {
        for (std::size_t j = i; j < issuer.size() && issuer[j] != '='; ++j)
          issuer[j] = static_cast<char>(std::tolower(static_cast<unsigned char>(issuer[j])));
      }
    EXPECT_EQ(issuer, Values(ours, "    Issuer: ", false).at(0));
    EXPECT_EQ(Values(fields, "lastUpdate=", false), Values(ours, "This Update: ", false));
    EXPECT_EQ(Values(fields, "nextUpdate=", false), Values(ours, "Next Update: ", false));
    const auto serials = Values(text, "Serial Number: ", true);
    EXPECT_EQ(serials, Values(ours, "Serial Number: ", true));
    checked += serials.size();
  }
  EXPECT_GT(checked, 20u);
}
