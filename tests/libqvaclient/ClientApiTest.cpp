#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "base/ErrorCodes.h"
#include "base/Messages.h"
#include "libqvaclient/cqvaclientapi.h"
#include "libqvaclient/csocketclient.h"
#include "qva/qva.h"
#include "tests/libaibase/ScopedTempCwd.h"
#include "tests/libqvaclient/FakeServer.h"

using qvatest::FakeServer;
using qvatest::GetText;
using qvatest::HexStr;

namespace {

const std::string kGeneral = qva_msg::kVerifyRequestFailed;
const unsigned char kData[] = {0x01, 0x02, 0x03};

void* NoMemory(std::size_t, std::size_t) { return nullptr; }

// A request that only claims a length: writing it would be a fault.
class ClaimedLength : public CLEncoder {
 public:
  explicit ClaimedLength(std::size_t n) : m_n(n) {}
  std::size_t EncodedLength() const override { return m_n; }
  void Encode(ByteWriter*) const override { m_bWritten = true; }
  bool written() const { return m_bWritten; }

 private:
  std::size_t m_n;
  mutable bool m_bWritten = false;
};

// A record's text: escapes resolved, {port} the closed port, {refused} and
// {error 0} the system texts, which end in the line break Windows puts there.
std::string Detail(const std::string& text, int closedPort) {
  std::string out = qvatest::Unescape(text);
  for (const auto& f : {std::make_pair(std::string("{port}"), std::to_string(closedPort)),
                        {"{error 0}", std::string(std::strerror(0)) + "\r\n"},
                        {"{refused}", std::string(std::strerror(ECONNREFUSED)) + "\r\n"}}) {
    for (auto at = out.find(f.first); at != std::string::npos; at = out.find(f.first, at + f.second.size())) {
      out.replace(at, f.first.size(), f.second);
    }
  }
  return out;
}

}  // namespace

// Every record of answers.txt: one call on a fresh handle, its code, texts,
// request bytes and dump file. All run in one folder, in file order.
TEST(ClientApi, ScriptedAnswersBecomeCodesAndTexts) {
  qvatest::ScopedTempCwd dir;
  const auto records = qvatest::ReadVectors(qvatest::DataPath("client/answers.txt"));
  ASSERT_EQ(records.size(), 21u);
  for (std::size_t i = 0; i < records.size(); ++i) {
    auto r = records[i];
    const bool served = r.count("Reply") != 0;  // before r["Reply"] adds an empty one
    SCOPED_TRACE("answers.txt record " + std::to_string(i + 1) + ": reply " + r["Reply"]);
    std::vector<std::string> segments;
    std::istringstream parts(r["Reply"]);
    for (std::string part; std::getline(parts, part, '|');) segments.push_back(HexStr(part));
    FakeServer server(served ? std::vector<qvatest::Answer>{segments} : std::vector<qvatest::Answer>{});
    const int closed = qvatest::UnusedPort();  // taken while the server holds its own port
    void* client = nullptr;
    const char* host = r.count("Host") ? r["Host"].c_str() : "127.0.0.1";
    ASSERT_EQ(QVA_Initialize(&client, host, served ? server.port() : closed, "R"), 0);
    const std::string data = HexStr(r.count("Data") ? r["Data"] : "010203");
    const auto* bytes = reinterpret_cast<const unsigned char*>(data.data());
    const std::string first = r.count("First") ? r["First"] : "AB";
    if (r.count("Allocator")) CSocketClient::SetRecvAllocator(NoMemory);
    const int rc = r["Call"] == "register" ? QVA_RegisterCert(client, bytes, static_cast<int>(data.size()))
                                           : QVA_Verify(client, first == "(null)" ? nullptr : first.c_str(), bytes,
                                                        static_cast<int>(data.size()));
    CSocketClient::SetRecvAllocator(nullptr);
    const bool alternative = r.count("Or Code") && rc == std::stoi(r["Or Code"]);
    EXPECT_EQ(rc, std::stoi(alternative ? r["Or Code"] : r["Code"]));
    EXPECT_EQ(GetText(QVA_GetDetailErrorMsg, client), Detail(alternative ? r["Or Detail"] : r["Detail"], closed));
    EXPECT_EQ(GetText(QVA_GetGeneralErrorMsg, client), rc == 0 ? "" : kGeneral);
    EXPECT_EQ(QVA_Release(client), 0);
    if (r.count("Sent")) {
      EXPECT_EQ(server.Requests(), std::vector<std::string>{HexStr(r["Sent"])});
    }
    if (r.count("Dump")) {
      EXPECT_EQ(qvatest::ReadFile(dir.file("wrongRoamingMessage.txt")), HexStr(r["Dump"]));
    }
  }
}

// One handle over several calls: the general text stays after a later
// success, the detail text does not (the getters' buffer rules are in
// ClientOfflineTest.cpp).
TEST(ClientApi, TextsAcrossCalls) {
  void* client = nullptr;
  FakeServer server({{HexStr("00000026 1401 00000020 0000001c 6a00 0152 00000001 52 0000000f 00000002"
                                    "00000002 3137 00000001 54")},  // result 17, "T"
                     {HexStr("00000020 1401 0000001a 00000016 6a00 0152 00000001 52 00000009 00000001"
                                    "00000001 30")}});  // result 0
  ASSERT_EQ(QVA_Initialize(&client, "127.0.0.1", server.port(), "R"), 0);
  EXPECT_EQ(QVA_Verify(client, "AB", kData, 3), 17);
  EXPECT_EQ(GetText(QVA_GetGeneralErrorMsg, client), kGeneral);
  EXPECT_EQ(GetText(QVA_GetDetailErrorMsg, client), "T");
  EXPECT_EQ(QVA_Verify(client, "AB", kData, 3), 0);
  EXPECT_EQ(GetText(QVA_GetGeneralErrorMsg, client), kGeneral);
  EXPECT_EQ(GetText(QVA_GetDetailErrorMsg, client), "");
  EXPECT_EQ(QVA_Release(client), 0);
}

// A request whose envelope, record or frame would not fit in one buffer is
// refused by the layer it outgrows, with that layer's trace, before any
// length could be cut short on the wire. Identifier and reference are "R":
// the envelope adds 13 bytes, the record 10, the frame 4.
TEST(ClientApi, EachLayerRefusesWhatOutgrowsOneBuffer) {
  const std::size_t max = kMaxEncodedLength;
  const std::string request = "CLRVSClientAPI::ProcessMessage - secureTunnel.Request(2)\r\n";
  const struct {
    std::size_t length;
    bool connects;
    std::string trace;
  } rows[] = {
      {max - 12, false, "CLRVSClientAPI::ProcessMessage - roamingMessage.MakeRoamingMessage(2)\r\n"},
      {max - 22, true,
       request + "CSecureTunnel::ProcessPlainData - m_pSecureManager->MakePlainData(2)\r\n"
                 "CLSecureManager::MakePlainData - plain.MakePlain(2)\r\n"},
      {max - 26, true,
       request + "CSecureTunnel::ProcessPlainData - m_pSocketClient->Send fail(2)\r\n"
                 "CSocketClient::Send - Send(2)\r\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.length);
    FakeServer server(row.connects ? std::vector<qvatest::Answer>{{""}} : std::vector<qvatest::Answer>{});
    CQVAClientAPI client;
    client.Init("127.0.0.1", server.port(), "R");
    const ClaimedLength claimed(row.length);
    ByteString response("untouched");
    EXPECT_EQ(client.ProcessMessage(ByteString("R"), MSG_TYPE_VERIFY, claimed, &response), 2);
    EXPECT_EQ(qvatest::Str(client.GetDetailErrorMsg()), row.trace);
    EXPECT_FALSE(claimed.written());
    EXPECT_EQ(qvatest::Str(response), "untouched");
    EXPECT_EQ(server.Requests().size(), row.connects ? 1u : 0u);
  }
}
