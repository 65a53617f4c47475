// qva crl on the openssl-made CRLs of tests/data/crl and the KISA CRL: the
// printout, the revocation answer and its exit status (0 not revoked, 1
// revoked, 2 error), in DER and PEM.
#include <gtest/gtest.h>

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
      {D("idp-user.der"), 0, "    Issuing Distribution Point: onlyUser\n"},
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
