#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>

#include "libqvaclient/csocketclient.h"
#include "tests/libqvaclient/FakeServer.h"
#include "tests/support/TestUtil.h"

using qvatest::Answer;
using qvatest::FakeServer;
using qvatest::Frame;
using qvatest::Str;
using qvatest::SystemText;
using qvatest::U32;

namespace {

std::string ConnectFail(const std::string& host, int port, int err) {
  return "CSocketClient::SocketConnect - connect fail(155)\r\n[" + host + ":" + std::to_string(port) + "][" +
         SystemText(err) + "] - connect fail";
}

const ByteString kLoopback("127.0.0.1");

}  // namespace

TEST(SocketClient, OneFramedExchangePerScriptedAnswer) {
  const std::string kRecvFailed = "CSocketClient::Send - Recv(150)\r\nCSocketClient::Recv - recv fail(150)\r\n";
  struct Case {
    const char* name;
    Answer answer;
    int rc;
    std::string data;   // m_bsRecvData afterwards
    std::string trace;  // empty when rc is 0
  } cases[] = {
      {"three bytes", {{Frame("abc")}}, 0, "abc", ""},
      // Length 0: nothing to read, an empty message.
      {"zero-length frame", {{U32(0)}}, 0, "", ""},
      // The prefix arrives as 00 00 then the rest: the single prefix read
      // takes two bytes and the missing ones count as zero.
      {"prefix split over two segments", {{std::string(2, '\0'), std::string("\0\x03", 2) + "abc"}}, 0, "", ""},
      // The peer closes in the middle of the payload: no system text.
      {"short payload", {{U32(10) + "abc"}}, 150, "", kRecvFailed},
      // The peer closes before any answer: the prefix read fails with the
      // text of error 0, which an orderly close leaves.
      {"closed before any answer", {{}}, 150, "", kRecvFailed + SystemText(0)},
      // FF FF FF FF must not wrap to a small buffer: the read runs out
      // (or, where that much memory cannot be had, allocation fails).
      {"length FF FF FF FF", {{U32(0xffffffffu) + "abc"}}, 150, "", kRecvFailed},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    FakeServer server({c.answer});
    CSocketClient client;
    ASSERT_EQ(client.Connect(kLoopback, server.port(), kLoopback, server.port()), 0);
    const int rc = client.Send(ByteString("xyz"));
    if (std::string(c.name) == "length FF FF FF FF" && rc == 151) {
      EXPECT_EQ(Str(client.GetErrorMsg()),
                "CSocketClient::Send - Recv(151)\r\nCSocketClient::Recv - calloc fail(151)\r\n");
    } else {
      EXPECT_EQ(rc, c.rc);
      EXPECT_EQ(Str(client.GetErrorMsg()), c.trace);
    }
    EXPECT_EQ(Str(client.GetRecvData()), c.data);
    client.Close();
    server.Join();
    // The request went out as one frame: 4-byte length, then the payload.
    ASSERT_EQ(server.Requests().size(), 1u);
    EXPECT_EQ(server.Requests()[0], std::string("\0\0\0\x03xyz", 7));
  }
}

TEST(SocketClient, AllocationFailureIs151) {
  FakeServer server({Answer{{Frame("abc")}}});
  const auto previous = CSocketClient::SetRecvAllocator([](std::size_t, std::size_t) -> void* { return nullptr; });
  CSocketClient client;
  ASSERT_EQ(client.Connect(kLoopback, server.port(), kLoopback, server.port()), 0);
  EXPECT_EQ(client.Send(ByteString("q")), 151);
  CSocketClient::SetRecvAllocator(previous);
  EXPECT_EQ(Str(client.GetErrorMsg()), "CSocketClient::Send - Recv(151)\r\nCSocketClient::Recv - calloc fail(151)\r\n");
  EXPECT_EQ(client.GetRecvData().length(), 0);
}

TEST(SocketClient, ConnectFailuresAndTheFallbackAddress) {
  const int closed = qvatest::UnusedPort();
  const std::string refused = ConnectFail("127.0.0.1", closed, ECONNREFUSED);
  const std::string unresolved = "CSocketClient::SocketConnect - inet_addr fail(154)\r\nINADDR_NONE";
  struct Case {
    const char* name;
    std::string host1;
    bool reachable1;
    std::string host2;
    bool reachable2;
    int rc;
    std::string trace;
  } cases[] = {
      // Both attempts fail; each puts its line in front of the other's.
      {"refused twice", "127.0.0.1", false, "127.0.0.1", false, 155, refused + refused},
      {"unresolvable twice", "no-such-host.invalid", true, "no-such-host.invalid", true, 154, unresolved + unresolved},
      // The second address is used when the first fails.
      {"fallback to second", "no-such-host.invalid", true, "127.0.0.1", true, 0, unresolved},
      {"first succeeds", "127.0.0.1", true, "no-such-host.invalid", true, 0, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const bool served = c.rc == 0;
    FakeServer server(served ? std::vector<Answer>{Answer{{Frame("ok")}}} : std::vector<Answer>{});
    const int port1 = c.reachable1 ? server.port() : closed;
    const int port2 = c.reachable2 ? server.port() : closed;
    CSocketClient client;
    EXPECT_EQ(client.Connect(ByteString(c.host1.c_str()), port1, ByteString(c.host2.c_str()), port2), c.rc);
    EXPECT_EQ(Str(client.GetErrorMsg()), c.trace);
    if (served) {
      EXPECT_EQ(client.Send(ByteString("q")), 0);
      EXPECT_EQ(Str(client.GetRecvData()), "ok");
    }
  }
}

TEST(SocketClient, PeerClosingEarlyFailsTheSendWithoutSignal) {
  // The default action of SIGPIPE ends the process: this test would not
  // return if a send raised it.
  struct sigaction dfl {
  }, old{};
  dfl.sa_handler = SIG_DFL;
  ASSERT_EQ(sigaction(SIGPIPE, &dfl, &old), 0);

  Answer closeAtOnce;
  closeAtOnce.skipRequest = true;
  FakeServer server({closeAtOnce});
  CSocketClient client;
  ASSERT_EQ(client.Connect(kLoopback, server.port(), kLoopback, server.port()), 0);
  server.Join();  // the server has closed its end before anything is sent
  const ByteString big = qvatest::RandomBytes(32u << 20, 5);
  const int rc = client.Send(big);
  sigaction(SIGPIPE, &old, nullptr);
  EXPECT_EQ(rc, 152);
  EXPECT_EQ(Str(client.GetErrorMsg())
                .rfind("CSocketClient::Send - Send(152)\r\nCSocketClient::Write - send fail(152)\r\n", 0),
            0u)
      << Str(client.GetErrorMsg());
}
