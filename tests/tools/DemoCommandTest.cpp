// qva demo, run as a program: every row's received verdict is its expected
// one, and the server's Korean texts reach a UTF-8 terminal converted.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/TestUtil.h"

TEST(DemoCommand, EveryVerdictAsExpectedWithConvertedTexts) {
  std::string out;
  ASSERT_EQ(qvatest::Run("LC_ALL=C.UTF-8 " + std::string(QVA_TOOL) + " demo 2>&1", &out), 0) << out;
  const struct {
    const char* row;
    const char* verdicts;
    const char* text;
  } rows[] = {
      {"valid RSA-2048 leaf", "0        0", nullptr},
      {"valid KCDSA-2048 leaf", "0        0", nullptr},
      {"expired in 2021", "5007     5007", "유효기간이 만료된 인증서입니다. / a certificate on the path has expired"},
      {"revoked (keyCompromise)", "5008     5008", "폐지된 인증서입니다. / a certificate on the path is revoked"},
      {"policy 1.2.410.200.1.2", "5010     5010", "허용되지 않는 인증서 정책입니다. / certificate policy not accepted"},
      {"registration of the valid leaf", "0        0", nullptr},
  };
  for (const auto& r : rows) {
    const std::size_t at = out.find(r.row);
    ASSERT_NE(at, std::string::npos) << r.row << "\n" << out;
    const std::string line = out.substr(at, out.find('\n', at) - at);
    EXPECT_NE(line.find(r.verdicts), std::string::npos) << line;
    if (r.text) {
      EXPECT_NE(line.find(r.text), std::string::npos) << line;
    }
  }
  EXPECT_NE(out.find("every verdict as expected"), std::string::npos) << out;
  EXPECT_EQ(out.find("not as expected"), std::string::npos) << out;
}
