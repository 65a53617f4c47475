#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "qva/qva.h"
#include "tests/libqvaclient/FakeServer.h"

// The scripted server answers the library's requests: result 0 for a
// request with data, 1 with "empty data" without, then stops by itself.
TEST(ServerTool, AnswersValidationAndRegistrationRequests) {
  FILE* server = popen(QVA_SCRIPTED_SERVER " --port 0 --count 3 --idle-timeout 10", "r");
  ASSERT_NE(server, nullptr);
  int port = 0;
  ASSERT_EQ(std::fscanf(server, "listening on 127.0.0.1:%d", &port), 1);

  void* client = nullptr;
  ASSERT_EQ(QVA_Initialize(&client, "127.0.0.1", port, "R"), 0);
  const unsigned char data[] = {0x41};
  EXPECT_EQ(QVA_Verify(client, "AB", data, 1), 0);
  EXPECT_EQ(QVA_Verify(client, "AB", data, 0), 1);
  EXPECT_EQ(qvatest::GetText(QVA_GetDetailErrorMsg, client), "empty data");
  EXPECT_EQ(QVA_RegisterCert(client, data, 1), 0);
  QVA_Release(client);

  std::string log;
  char line[256];
  while (std::fgets(line, sizeof line, server)) log += line;
  EXPECT_EQ(pclose(server), 0);
  EXPECT_NE(log.find("type 107, 1 item(s) -> 0"), std::string::npos) << log;
}
