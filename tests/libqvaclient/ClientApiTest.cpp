#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "base/Messages.h"
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

// One handle over several calls: the general text stays
// after a later success, the detail text does not. Both text getters refuse
// a buffer one byte short, touching nothing, and fill one that fits without
// a terminating zero.
TEST(ClientApi, ArgumentsTextBuffersAndTextsAcrossCalls) {
  void* client = nullptr;
  FakeServer server({{HexStr("00000026 1401 00000020 0000001c 6a00 0152 00000001 52 0000000f 00000002"
                                    "00000002 3137 00000001 54")},  // result 17, "T"
                     {HexStr("00000020 1401 0000001a 00000016 6a00 0152 00000001 52 00000009 00000001"
                                    "00000001 30")}});  // result 0
  ASSERT_EQ(QVA_Initialize(&client, "127.0.0.1", server.port(), "R"), 0);
  // Null arguments: ClientOfflineTest.cpp.
  for (auto get : {QVA_GetGeneralErrorMsg, QVA_GetDetailErrorMsg}) {
    EXPECT_EQ(GetText(get, client), "");  // a fresh handle has empty texts
  }

  EXPECT_EQ(QVA_Verify(client, "AB", kData, 3), 17);
  for (const auto& text : {std::make_pair(QVA_GetGeneralErrorMsg, kGeneral), {QVA_GetDetailErrorMsg, "T"}}) {
    const int size = static_cast<int>(text.second.size());
    for (const int given : {size - 1, size, size + 3}) {  // one short, exact, larger
      SCOPED_TRACE(text.second + " in " + std::to_string(given));
      std::string buf(text.second.size() + 4, '#');
      int len = given;
      EXPECT_EQ(text.first(client, &buf[0], &len), given < size ? 2000 : 0);
      EXPECT_EQ(len, given < size ? given : size);
      EXPECT_EQ(buf, (given < size ? "" : text.second) + std::string(given < size ? buf.size() : 4, '#'));
    }
  }
  EXPECT_EQ(QVA_Verify(client, "AB", kData, 3), 0);
  EXPECT_EQ(GetText(QVA_GetGeneralErrorMsg, client), kGeneral);
  EXPECT_EQ(GetText(QVA_GetDetailErrorMsg, client), "");
  EXPECT_EQ(QVA_Release(client), 0);
}
