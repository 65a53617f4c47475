// qva cert on every Korean certificate and every openssl-made certificate of
// tests/data, in DER, PEM (several in one file) and Base64; garbage and a
// wrong issuer fail with their exit status.
#include <gtest/gtest.h>

#include <dirent.h>

#include <algorithm>

#include "tests/support/TestUtil.h"

namespace {

std::vector<std::string> DerFiles(const std::string& dir) {
  std::vector<std::string> out;
  if (DIR* d = opendir(dir.c_str())) {
    while (dirent* e = readdir(d)) {
      const std::string n = e->d_name;
      if (n.size() > 4 && n.compare(n.size() - 4, 4, ".der") == 0) out.push_back(dir + "/" + n);
    }
    closedir(d);
  }
  std::sort(out.begin(), out.end());
  return out;
}

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
    auto more = DerFiles(qvatest::DataPath(dir));
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
