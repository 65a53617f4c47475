#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "libqvaclient/csecuretunnel.h"
#include "libqvaclient/csocketclient.h"
#include "tests/libqvaclient/FakeServer.h"

using qvatest::FakeServer;
using qvatest::HexStr;
using qvatest::Str;

const ByteString kLoopback("127.0.0.1");

// The second address is tried when the first fails (a dotted first address
// that connects, and both failing, are in answers.txt). A request goes out
// as one frame: 4-byte length, then the payload.
TEST(SocketClient, SecondAddressIsTheFallback) {
  FakeServer server({{std::string("\0\0\0\2ok", 6)}});
  CSocketClient client;
  EXPECT_EQ(client.Connect(ByteString("no-such-host.invalid"), server.port(), kLoopback, server.port()), 0);
  EXPECT_EQ(Str(client.GetErrorMsg()), "CSocketClient::SocketConnect - inet_addr fail(154)\r\nINADDR_NONE");
  EXPECT_EQ(client.Send(ByteString("xyz")), 0);
  EXPECT_EQ(Str(client.GetRecvData()), "ok");
  EXPECT_EQ(server.Requests(), std::vector<std::string>{std::string("\0\0\0\3xyz", 7)});
}

TEST(SocketClient, PeerClosingEarlyFailsTheSendWithoutSignal) {
  // The default action of SIGPIPE ends the process: this test would not
  // return if a send raised it.
  const auto old = std::signal(SIGPIPE, SIG_DFL);
  ASSERT_NE(old, SIG_ERR);
  int port = 0;
  const int listener = qvatest::ListenLoopback(&port);
  CSocketClient client;
  ASSERT_EQ(client.Connect(kLoopback, port, kLoopback, port), 0);
  ::close(::accept(listener, nullptr, nullptr));  // the peer closes before anything is sent
  ::close(listener);
  const int rc = client.Send(qvatest::RandomBytes(32u << 20, 5));
  std::signal(SIGPIPE, old);
  EXPECT_EQ(rc, 152);
  const std::string trace = Str(client.GetErrorMsg());
  EXPECT_EQ(trace.find("CSocketClient::Send - Send(152)\r\nCSocketClient::Write - send fail(152)\r\n"), 0u) << trace;
}

// One plain exchange through the tunnel: the request goes out in a plain
// record (14 01, record length, data length, data), the answer's data comes
// back; disconnecting twice is harmless and a released tunnel refuses
// further work instead of using what it released.
TEST(SecureTunnel, PlainExchangeThenRepeatedDisconnect) {
  FakeServer server({{HexStr("00000010 1401 0000000a 00000006") + "answer"}});
  CSecureTunnel tunnel;
  ASSERT_EQ(tunnel.Connect(kLoopback, server.port(), kLoopback, server.port()), 0);
  ASSERT_EQ(tunnel.Request(ByteString("ask")), 0);
  EXPECT_EQ(Str(tunnel.GetResponse()), "answer");
  tunnel.Disconnect();
  tunnel.Disconnect();
  EXPECT_NE(tunnel.Request(ByteString("again")), 0);
  EXPECT_EQ(Str(tunnel.GetResponse()), "answer");
  EXPECT_EQ(server.Requests(), std::vector<std::string>{HexStr("0000000d 1401 00000007 00000003") + "ask"});
}
