// qva verify / qva register against the scripted loopback server: the exit
// status (0 valid, 1 a verdict against, 2 a failure on the way) and the texts,
// converted from CP949 for a UTF-8 terminal and kept as they are where the
// terminal's code set has no converter.
#include <gtest/gtest.h>

#include "base/Messages.h"
#include "tests/libqvaclient/FakeServer.h"
#include "tests/support/TestUtil.h"

namespace {

// The text in UTF-8, converted by the system's iconv program.
std::string Utf8(const std::string& cp949, const qvatest::TempDir& dir) {
  qvatest::WriteFile(dir.file("cp949"), cp949);
  std::string out;
  EXPECT_EQ(0, qvatest::Run("iconv -f CP949 -t UTF-8 " + dir.file("cp949"), &out));
  return out;
}

}  // namespace

TEST(QvaClient, ExitStatusAndTexts) {
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("data"), std::string("\x01\x02\x03", 3));
  const std::string general = qva_msg::kVerifyRequestFailed;
  // "The roaming message length is wrong." as the library writes it.
  const std::string badLength =
      "\xB7\xCE\xB9\xD6 \xB8\xDE\xBD\xC3\xC1\xF6 \xB1\xE6\xC0\xCC\xB0\xA1 \xC0\xDF\xB8\xF8 \xB5\xC7\xBE\xEE "
      "\xC0\xD6\xBD\xC0\xB4\xCF\xB4\xD9.";
  const struct {
    const char* name;
    const char* reply;  // hex; null: nothing listens
    const char* command;
    const char* locale;
    int status;
    std::vector<std::string> expect;  // texts the output holds
  } kCases[] = {
      {"accepted", "00000020 1401 0000001a 00000016 6a00 0152 00000001 52 00000009 00000001 00000001 30", "verify",
       "C.UTF-8", 0, {"result: 0\n"}},
      {"refused with a reason",
       "00000026 1401 00000020 0000001c 6a00 0152 00000001 52 0000000f 00000002 00000002 3137 00000001 54",
       "verify", "C.UTF-8", 1, {"result: 17\n", "general: " + Utf8(general, dir) + "\n", "detail: T\n"}},
      {"registration refused",
       "00000027 1401 00000021 0000001d 6a03 0152 00000001 52 00000010 00000001 00000008 6261642063657274",
       "register", "C.UTF-8", 1, {"result: 3\n", "bad cert\n"}},
      {"alert", "00000015 1501 0000000f 0000000b 7365727665722062757379", "verify", "C.UTF-8", 2,
       {"result: 180\n", "server busy\n"}},
      {"no item", "0000001b 1401 00000015 00000011 6a00 0152 00000001 52 00000004 00000000", "verify", "C.UTF-8",
       2, {"result: 301\n", "item count is zero!!\n"}},
      {"bad length, UTF-8 terminal", "0000000d 1401 00000007 00000003 6a0009", "verify", "C.UTF-8", 2,
       {"result: 191\n", Utf8(badLength, dir) + "(191)"}},
      // No converter from CP949 to ASCII for Korean: the bytes as they came.
      {"bad length, ASCII terminal", "0000000d 1401 00000007 00000003 6a0009", "verify", "C", 2,
       {"result: 191\n", "general: " + general + "\n", badLength + "(191)"}},
      {"nothing listens", nullptr, "verify", "C.UTF-8", 2, {"result: 155\n"}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    std::unique_ptr<qvatest::FakeServer> server;
    int port = qvatest::UnusedPort();
    if (c.reply) {
      server = std::make_unique<qvatest::FakeServer>(std::vector<qvatest::Answer>{{qvatest::HexStr(c.reply)}});
      port = server->port();
    }
    const std::string args = std::string(c.command) == "verify" ? " AB " : " ";
    std::string out;
    EXPECT_EQ(c.status, qvatest::Run("LC_ALL=" + std::string(c.locale) + " " + QVA_TOOL + " " + c.command +
                                         " 127.0.0.1 " + std::to_string(port) + " R" + args + dir.file("data"),
                                     &out));
    for (const auto& e : c.expect) EXPECT_NE(out.find(e), std::string::npos) << e << " in\n" << out;
  }
  std::string out;
  EXPECT_EQ(2, qvatest::Run(std::string(QVA_TOOL) + " verify 127.0.0.1 1 R AB /nonexistent/x 2>&1", &out));
  EXPECT_NE(out.find("qva: cannot read /nonexistent/x"), std::string::npos) << out;
}
