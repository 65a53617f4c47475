#include <gtest/gtest.h>

#include <string>

#include "tests/libqvaclient/FakeServer.h"
#include "tests/support/TestUtil.h"

TEST(Exports, SharedLibraryExportsTheSevenFunctionsOnly) {
  std::string out;
  const std::string so = QVA_CLIENT_SO;
  ASSERT_EQ(qvatest::Run("nm -D --defined-only '" + so + "' | awk '{print $3}' | LC_ALL=C sort", &out), 0);
  EXPECT_EQ(out,
            "QVA_FreeItem\nQVA_GetDetailErrorMsg\nQVA_GetGeneralErrorMsg\nQVA_Initialize\nQVA_RegisterCert\n"
            "QVA_Release\nQVA_Verify\n");
}

// The example program, linked against the shared library, runs one request
// end to end: result 7 "expired".
TEST(Exports, ExampleProgramPrintsCodeAndTexts) {
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("data.bin"), std::string("\x01\x02", 2));
  qvatest::FakeServer server({{qvatest::HexStr("0000002b 1401 00000025 00000021 6a00 0152 00000001 52 00000014"
                                               "00000002 00000001 37 00000007 65787069726564")}});  // 7, "expired"
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
