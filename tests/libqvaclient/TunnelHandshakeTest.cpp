// The tunnel's handshake and enciphered exchange over loopback against a
// peer that runs the server half of the secure manager, and the ways a
// peer can stop it (alert, unknown type) with their codes and traces.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "libaibase/clalert.h"
#include "libaibase/clhandshake.h"
#include "libaibase/clsecuremanager.h"
#include "libqvaclient/csecuretunnel.h"
#include "tests/libaibase/ServerIdentity.h"
#include "tests/libqvaclient/FakeServer.h"

using qvatest::FakeServer;
using qvatest::Str;

namespace {

const ByteString kHost("127.0.0.1");

std::string Bytes(const ByteString& bs) { return Str(bs); }

std::string AlertRecord(const char* text) {
  CLAlert a;
  EXPECT_EQ(a.MakeAlert(1, text), 0);
  return Bytes(a.GetRecord());
}

// A peer running the server half: handshake records go to its manager,
// application data is answered with "answer to " and the plaintext. Request
// number `divert` (0-based) gets `replacement` instead.
qvatest::Respond ServerHalf(CLSecureManager* server, int divert, std::string replacement) {
  auto count = std::make_shared<int>(0);
  return [=](const std::string& payload, std::string* reply) {
    if ((*count)++ == divert) {
      *reply = replacement;
      return true;
    }
    const ByteString record(payload.data(), static_cast<int>(payload.size()));
    bool more = false;
    if (!payload.empty() && payload[0] == 0x16) {
      if (server->ProcessHandshake(record, &more) != 0) return false;
      *reply = Bytes(server->GetOutput());
      return true;
    }
    if (server->ParseApplicationData(record) != 0) return false;
    const std::string answer = "answer to " + Bytes(server->GetOutput());
    if (server->MakeApplicationData(ByteString(answer.data(), static_cast<int>(answer.size()))) != 0) return false;
    *reply = Bytes(server->GetOutput());
    return true;
  };
}

}  // namespace

TEST(SecureTunnel, HandshakeThenEncipheredExchanges) {
  qvatest::ServerIdentity id;
  ASSERT_TRUE(id.ok);
  CLSecureManager server(&id.certificate, &id.privateKey);
  std::vector<std::string> requests;
  {
    FakeServer peer(ServerHalf(&server, -1, ""));
    CSecureTunnel tunnel;
    ASSERT_EQ(tunnel.Connect(kHost, peer.port(), kHost, peer.port()), 0);
    ASSERT_EQ(tunnel.ProcessHandshake(), 0) << Str(tunnel.GetErrorMsg());
    for (int i = 0; i < 2; ++i) {
      ASSERT_EQ(tunnel.ProcessApplicationData("roaming message"), 0) << Str(tunnel.GetErrorMsg());
      EXPECT_EQ(Str(tunnel.GetResponse()), "answer to roaming message");
    }
    tunnel.Disconnect();
    requests = peer.Requests();
  }
  ASSERT_EQ(requests.size(), 4u);
  EXPECT_EQ(requests[0], qvatest::HexStr("00000010 1601 0000000a 01 00000005") + "Hello");
  EXPECT_EQ(static_cast<unsigned char>(requests[1][4 + 6]), 3);  // ClientKeyExchange
  EXPECT_EQ(requests[2][4], 0x17);
}

// What the peer sends instead of its reply to request `at`, and what the
// tunnel makes of it.
TEST(SecureTunnel, PeerStopsTheHandshake) {
  qvatest::ServerIdentity id;
  ASSERT_TRUE(id.ok);
  const std::string H = "CSecureTunnel::ProcessHandshake - ";
  CLHandshake unknown;
  ASSERT_EQ(unknown.MakeHandshake(1, 9, "x"), 0);
  struct Row {
    const char* name;
    int at;  // request answered otherwise; 2 is the first application-data exchange
    std::string reply;
    int code;
    std::string trace;
  } rows[] = {
      {"alert for the hello", 0, AlertRecord("go away"), 180, H + "Alert Message from Server.(180)\r\ngo away"},
      {"alert for the key exchange", 1, AlertRecord("bad envelope"), 180,
       H + "Alert Message from Server.(180)\r\nbad envelope"},
      {"alert for application data", 2, AlertRecord("no"), 180, H + "Alert Message from Server.(180)\r\nno"},
      {"unknown handshake type", 0, Bytes(unknown.GetRecord()), 148,
       H + "m_pSecureManager->ProcessHandshake fail(148)\r\n"
           "CLSecureManager::ProcessHandshake - Unknown Handshake Type...(148)\r\n"},
      {"application data cut", 2, qvatest::HexStr("1701 00000004 00000009"), 101,
       "CSecureTunnel::ProcessApplicationData - m_pSecureManager->ParseApplicationData(101)\r\n"
       "CLSecureManager::ParseApplicationData - applicationData.ParseApplicationData(101)\r\n"},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.name);
    CLSecureManager server(&id.certificate, &id.privateKey);
    FakeServer peer(ServerHalf(&server, r.at, r.reply));
    CSecureTunnel tunnel;
    ASSERT_EQ(tunnel.Connect(kHost, peer.port(), kHost, peer.port()), 0);
    int rc = tunnel.ProcessHandshake();
    if (r.at == 2) {
      ASSERT_EQ(rc, 0);
      rc = tunnel.ProcessApplicationData("ask");
    }
    EXPECT_EQ(rc, r.code);
    EXPECT_EQ(Str(tunnel.GetErrorMsg()).substr(0, r.trace.size()), r.trace);
    tunnel.Disconnect();
  }
}
