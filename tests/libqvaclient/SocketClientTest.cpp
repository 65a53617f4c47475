#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "libqvaclient/csecuretunnel.h"
#include "libqvaclient/csocketclient.h"
#include "tests/libqvaclient/FakeServer.h"

using qvatest::Answer;
using qvatest::FakeServer;
using qvatest::HexStr;
using qvatest::Str;

// The second address is tried only when the first fails; a dotted address
// connects directly (both attempts failing is in answers.txt). A request
// goes out as one frame: 4-byte length, then the payload.
TEST(SocketClient, SecondAddressIsTheFallback) {
  struct Case {
    const char* host1;
    const char* host2;
    std::string trace;
  } cases[] = {
      {"no-such-host.invalid", "127.0.0.1", "CSocketClient::SocketConnect - inet_addr fail(154)\r\nINADDR_NONE"},
      {"127.0.0.1", "no-such-host.invalid", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.host1);
    FakeServer server({Answer{{std::string("\0\0\0\2ok", 6)}}});
    CSocketClient client;
    EXPECT_EQ(client.Connect(ByteString(c.host1), server.port(), ByteString(c.host2), server.port()), 0);
    EXPECT_EQ(Str(client.GetErrorMsg()), c.trace);
    EXPECT_EQ(client.Send(ByteString("xyz")), 0);
    EXPECT_EQ(Str(client.GetRecvData()), "ok");
    EXPECT_EQ(server.Requests(), std::vector<std::string>{std::string("\0\0\0\3xyz", 7)});
  }
}

TEST(SocketClient, PeerClosingEarlyFailsTheSendWithoutSignal) {
  // The default action of SIGPIPE ends the process: this test would not
  // return if a send raised it.
  struct sigaction dfl {};
  struct sigaction old {};
  dfl.sa_handler = SIG_DFL;
  ASSERT_EQ(sigaction(SIGPIPE, &dfl, &old), 0);
  Answer closeAtOnce;
  closeAtOnce.skipRequest = true;
  FakeServer server({closeAtOnce});
  CSocketClient client;
  ASSERT_EQ(client.Connect(ByteString("127.0.0.1"), server.port(), ByteString("127.0.0.1"), server.port()), 0);
  server.Join();  // the server has closed its end before anything is sent
  const int rc = client.Send(qvatest::RandomBytes(32u << 20, 5));
  sigaction(SIGPIPE, &old, nullptr);
  EXPECT_EQ(rc, 152);
  EXPECT_EQ(Str(client.GetErrorMsg()).rfind("CSocketClient::Send - Send(152)\r\nCSocketClient::Write - send fail(152)\r\n", 0),
            0u)
      << Str(client.GetErrorMsg());
}

// One plain exchange through the tunnel: the request goes out in a plain
// record (14 01, record length, data length, data), the answer's data comes
// back; disconnecting twice is harmless and a released tunnel refuses
// further work instead of using what it released.
TEST(SecureTunnel, PlainExchangeThenRepeatedDisconnect) {
  FakeServer server({Answer{{HexStr("00000010 1401 0000000a 00000006") + "answer"}}});
  CSecureTunnel tunnel;
  ASSERT_EQ(tunnel.Connect(ByteString("127.0.0.1"), server.port(), ByteString("127.0.0.1"), server.port()), 0);
  ASSERT_EQ(tunnel.Request(ByteString("ask")), 0);
  EXPECT_EQ(Str(tunnel.GetResponse()), "answer");
  tunnel.Disconnect();
  tunnel.Disconnect();
  EXPECT_NE(tunnel.Request(ByteString("again")), 0);
  EXPECT_EQ(Str(tunnel.GetResponse()), "answer");
  EXPECT_EQ(server.Requests(), std::vector<std::string>{HexStr("0000000d 1401 00000007 00000003") + "ask"});
}
