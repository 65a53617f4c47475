#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
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

// QVA_IO_TIMEOUT_MS values: digits only, capped; anything else means none.
TEST(SocketClient, IoTimeoutVariableIsReadStrictly) {
  const struct {
    const char* text;
    int ms;
  } cases[] = {{nullptr, 0}, {"", 0},  {"0", 0},   {"250", 250}, {"0250", 250}, {"25x", 0},
               {"-5", 0},    {" 5", 0}, {"5 ", 0}, {"2147483647", 2147483647}, {"2147483648", 2147483647},
               {"99999999999999999999999", 2147483647}};
  for (const auto& c : cases) {
    EXPECT_EQ(CSocketClient::ParseIoTimeout(c.text), c.ms) << (c.text ? c.text : "(null)");
  }
}

// A peer that accepts, perhaps says something, then neither answers nor
// reads. With a limit set, the exchange fails as the read or write it stopped
// in; without one (0 or not a number), an answer that is there is read as
// before.
TEST(SocketClient, SilentPeerEndsTheExchangeOnlyWithALimit) {
  const std::string timedOut = std::string(std::strerror(ETIMEDOUT)) + "\r\n";
  const std::string recvFail = "CSocketClient::Send - Recv(150)\r\nCSocketClient::Recv - recv fail(150)\r\n";
  const struct {
    const char* limit;
    const char* said;  // hex, sent before the request
    std::size_t payload;
    int code;
    std::string trace;
  } cases[] = {
      {"200", "", 3, 150, recvFail + timedOut},             // no prefix: the system's text
      {"200", "00000010 6162", 3, 150, recvFail},           // short payload: no detail, as ever
      {"200", "", 32u << 20, 152,                           // never read: the send runs out
       "CSocketClient::Send - Send(152)\r\nCSocketClient::Write - send fail(152)\r\n" + timedOut},
      {"0", "00000002 6f6b", 3, 0, ""},
      {"soon", "00000002 6f6b", 3, 0, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.limit) + " / " + c.said);
    ASSERT_EQ(::setenv("QVA_IO_TIMEOUT_MS", c.limit, 1), 0);
    int port = 0;
    const int listener = qvatest::ListenLoopback(&port);
    CSocketClient client;
    ::unsetenv("QVA_IO_TIMEOUT_MS");
    ASSERT_EQ(client.Connect(kLoopback, port, kLoopback, port), 0);
    const int peer = ::accept(listener, nullptr, nullptr);
    const std::string said = HexStr(c.said);
    ASSERT_EQ(::send(peer, said.data(), said.size(), 0), static_cast<ssize_t>(said.size()));
    EXPECT_EQ(client.Send(qvatest::RandomBytes(c.payload, 7)), c.code);
    EXPECT_EQ(Str(client.GetErrorMsg()), c.trace);
    EXPECT_EQ(Str(client.GetRecvData()), c.code == 0 ? "ok" : "");
    ::close(peer);
    ::close(listener);
  }
}
