#include <gtest/gtest.h>

#include <string>

#include "libqvaclient/csecuretunnel.h"
#include "tests/libqvaclient/FakeServer.h"
#include "tests/support/TestUtil.h"

using qvatest::Answer;
using qvatest::FakeServer;
using qvatest::Str;

// One plain exchange: the request goes out in a plain record, the answer's
// data comes back; disconnecting twice is harmless and a released tunnel
// refuses further work instead of using what it released.
TEST(SecureTunnel, PlainExchangeThenRepeatedDisconnect) {
  FakeServer server({Answer{{qvatest::Frame(qvatest::Record(0x14, "answer"))}}});
  const ByteString host("127.0.0.1");
  CSecureTunnel tunnel;
  ASSERT_EQ(tunnel.Connect(host, server.port(), host, server.port()), 0);
  ASSERT_EQ(tunnel.Request(ByteString("ask")), 0);
  EXPECT_EQ(Str(tunnel.GetResponse()), "answer");
  tunnel.Disconnect();
  tunnel.Disconnect();
  EXPECT_NE(tunnel.Request(ByteString("again")), 0);
  EXPECT_EQ(Str(tunnel.GetResponse()), "answer");
  server.Join();
  ASSERT_EQ(server.Requests().size(), 1u);
  EXPECT_EQ(server.Requests()[0], qvatest::Frame(qvatest::Record(0x14, "ask")));
}
