#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "tests/libqvaclient/FakeServer.h"
#include "tests/support/TestUtil.h"

TEST(Exports, SharedLibraryExportsTheSevenFunctionsOnly) {
  std::string out;
  ASSERT_EQ(qvatest::Run(std::string("nm -D --defined-only '") + QVA_CLIENT_SO + "'", &out), 0);
  std::set<std::string> names;
  std::istringstream lines(out);
  for (std::string addr, type, name, line; std::getline(lines, line);) {
    if (std::istringstream(line) >> addr >> type >> name) names.insert(name);
  }
  const std::set<std::string> expected = {
      "QVA_Initialize",        "QVA_Verify", "QVA_RegisterCert", "QVA_FreeItem", "QVA_GetGeneralErrorMsg",
      "QVA_GetDetailErrorMsg", "QVA_Release"};
  EXPECT_EQ(names, expected) << out;
}

// The example program, linked against the shared library, runs one request
// end to end: result 7 "expired".
TEST(Exports, ExampleProgramPrintsCodeAndTexts) {
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("data.bin"), std::string("\x01\x02", 2));
  qvatest::FakeServer server({qvatest::Answer{{qvatest::HexStr(
      "0000002b 1401 00000025 00000021 6a00 0152 00000001 52 00000014 00000002 00000001 37 00000007 65787069726564")}}});
  std::string out;
  EXPECT_EQ(qvatest::Run(std::string(QVA_VERIFY_EXAMPLE) + " 127.0.0.1 " + std::to_string(server.port()) +
                             " R first '" + dir.file("data.bin") + "'",
                         &out),
            1);
  EXPECT_NE(out.find("result: 7\n"), std::string::npos) << out;
  EXPECT_NE(out.find("detail: expired\n"), std::string::npos) << out;
  // The data file's bytes are the second item, at the end of the request.
  ASSERT_EQ(server.Requests().size(), 1u);
  EXPECT_EQ(server.Requests()[0].substr(server.Requests()[0].size() - 6), std::string("\0\0\0\x02\x01\x02", 6));
}
