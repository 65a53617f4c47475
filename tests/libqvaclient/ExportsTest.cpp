#include <dlfcn.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "tests/libqvaclient/FakeServer.h"
#include "tests/support/TestUtil.h"

using qvatest::Answer;
using qvatest::FakeServer;
using qvatest::PlainAnswer;

TEST(Exports, SharedLibraryExportsTheSevenFunctionsOnly) {
  std::string out;
  ASSERT_EQ(qvatest::Run(std::string("nm -D --defined-only '") + QVA_CLIENT_SO + "'", &out), 0);
  std::set<std::string> names;
  std::istringstream lines(out);
  std::string line;
  while (std::getline(lines, line)) {
    std::istringstream fields(line);
    std::string addr, type, name;
    if (fields >> addr >> type >> name) names.insert(name);
  }
  const std::set<std::string> expected = {
      "QVA_Initialize",        "QVA_Verify", "QVA_RegisterCert", "QVA_FreeItem", "QVA_GetGeneralErrorMsg",
      "QVA_GetDetailErrorMsg", "QVA_Release"};
  EXPECT_EQ(names, expected) << out;
}

TEST(Exports, SharedLibraryRunsARequestEndToEnd) {
  void* so = dlopen(QVA_CLIENT_SO, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(so, nullptr) << dlerror();
  using InitFn = int (*)(void**, const char*, int, const char*);
  using VerifyFn = int (*)(void*, const char*, const unsigned char*, int);
  using TextFn = int (*)(void*, char*, int*);
  using ReleaseFn = int (*)(void*);
  auto init = reinterpret_cast<InitFn>(dlsym(so, "QVA_Initialize"));
  auto verify = reinterpret_cast<VerifyFn>(dlsym(so, "QVA_Verify"));
  auto detail = reinterpret_cast<TextFn>(dlsym(so, "QVA_GetDetailErrorMsg"));
  auto release = reinterpret_cast<ReleaseFn>(dlsym(so, "QVA_Release"));
  ASSERT_TRUE(init && verify && detail && release);

  FakeServer server({Answer{{PlainAnswer(0, {"0"})}}, Answer{{PlainAnswer(0, {"23", "no such cert"})}}});
  void* client = nullptr;
  ASSERT_EQ(init(&client, "127.0.0.1", server.port(), "R"), 0);
  const unsigned char data[] = {1};
  EXPECT_EQ(verify(client, "x", data, 1), 0);
  EXPECT_EQ(verify(client, "x", data, 1), 23);
  char buf[64];
  int len = sizeof buf;
  ASSERT_EQ(detail(client, buf, &len), 0);
  EXPECT_EQ(std::string(buf, static_cast<std::size_t>(len)), "no such cert");
  EXPECT_EQ(release(client), 0);
  dlclose(so);
}

TEST(Exports, ExampleProgramPrintsCodeAndTexts) {
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("data.bin"), std::string("\x01\x02", 2));
  FakeServer server({Answer{{PlainAnswer(0, {"7", "expired"})}}});
  std::string out;
  const int status = qvatest::Run(std::string(QVA_VERIFY_EXAMPLE) + " 127.0.0.1 " + std::to_string(server.port()) +
                                      " R first '" + dir.file("data.bin") + "'",
                                  &out);
  EXPECT_EQ(status, 1);
  EXPECT_NE(out.find("result: 7\n"), std::string::npos) << out;
  EXPECT_NE(out.find("detail: expired\n"), std::string::npos) << out;
  server.Join();
  ASSERT_EQ(server.Requests().size(), 1u);
  // The data file's bytes are the second item, at the end of the request.
  EXPECT_EQ(server.Requests()[0].substr(server.Requests()[0].size() - 6), std::string("\0\0\0\x02\x01\x02", 6));
}
