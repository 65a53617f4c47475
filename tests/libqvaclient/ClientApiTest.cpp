#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "base/Messages.h"
#include "qva/qva.h"
#include "tests/libaibase/ScopedTempCwd.h"
#include "tests/libqvaclient/FakeServer.h"
#include "tests/support/TestUtil.h"

using qvatest::Answer;
using qvatest::FakeServer;
using qvatest::Frame;
using qvatest::PlainAnswer;
using qvatest::Str;
using qvatest::U32;

namespace {

const std::string kGeneral = qva_msg::kVerifyRequestFailed;
const unsigned char kData[] = {0x01, 0x02, 0x03};

std::string GetText(int (*get)(void*, char*, int*), void* client) {
  char buf[8192];
  int len = sizeof buf;
  EXPECT_EQ(get(client, buf, &len), 0);
  return std::string(buf, static_cast<std::size_t>(len));
}

struct Outcome {
  int rc;
  std::string general, detail;
};

Outcome Verify(void* client, const char* first = "AB") {
  Outcome o;
  o.rc = QVA_Verify(client, first, kData, sizeof kData);
  o.general = GetText(QVA_GetGeneralErrorMsg, client);
  o.detail = GetText(QVA_GetDetailErrorMsg, client);
  return o;
}

// Each test runs in its own folder (the dump file lands in the current
// directory) with one client handle.
class ClientApi : public ::testing::Test {
 protected:
  void TearDown() override {
    if (m_client) {
      EXPECT_EQ(QVA_Release(m_client), 0);
    }
  }
  void Open(const char* host, int port) {
    if (m_client) QVA_Release(m_client);
    m_client = nullptr;
    ASSERT_EQ(QVA_Initialize(&m_client, host, port, "R"), 0);
  }
  std::string DumpFile() const { return qvatest::ReadFile(m_dir.file("wrongRoamingMessage.txt")); }

  qvatest::ScopedTempCwd m_dir;
  void* m_client = nullptr;
};

const std::string kApiLine = "CQVAClientAPI::API_Verify - ProcessMessage";
const std::string kRequestLine = "CLRVSClientAPI::ProcessMessage - secureTunnel.Request";

}  // namespace

TEST_F(ClientApi, ServerAnswersBecomeCodesAndTexts) {
  const std::string badRoaming = qvatest::Roaming(0x6a, 0, "R", "R", "") + "x";  // one byte too many
  const std::string sendFail = "CSecureTunnel::ProcessPlainData - m_pSocketClient->Send fail";
  struct Case {
    const char* name;
    Answer answer;
    int rc;
    std::string detail;
  } cases[] = {
      {"result 0 without items",
       {{PlainAnswer(0, {})}},
       301,
       kApiLine + "(301)\r\nCQVAClientAPI::ProcessMessage - (301)\r\nitem count is zero!!"},
      {"text 0", {{PlainAnswer(0, {"0"})}}, 0, ""},
      // The server's explanation is the whole detail text, with no line over it.
      {"text 17 with T", {{PlainAnswer(0, {"17", "T"})}}, 17, "T"},
      {"text 17 without explanation", {{PlainAnswer(0, {"17"})}}, 17, ""},
      // Leading blanks and trailing letters as the C library reads them.
      {"text ' 42x'", {{PlainAnswer(0, {" 42x", "why"})}}, 42, "why"},
      // Not a number: read as 0, which is success.
      {"text abc", {{PlainAnswer(0, {"abc", "ignored"})}}, 0, ""},
      // A status byte that is not 0: item 0 becomes the detail under the line.
      {"status 5",
       {{PlainAnswer(5, {"nine", "x"})}},
       5,
       kApiLine + "(5)\r\nCQVAClientAPI::ProcessMessage - Roaming Message Result Fail(5)\r\nnine"},
      {"alert record",
       {{Frame(qvatest::Record(0x15, "server busy"))}},
       180,
       kApiLine + "(180)\r\n" + kRequestLine +
           "(180)\r\nCSecureTunnel::ProcessHandshake - Alert Message from Server.(180)\r\nserver busy"},
      // An alert whose own lengths are wrong still ends the exchange, without a text.
      {"malformed alert record",
       {{Frame("\x15\x01")}},
       180,
       kApiLine + "(180)\r\n" + kRequestLine +
           "(180)\r\nCSecureTunnel::ProcessHandshake - Alert Message from Server.(180)\r\n"},
      {"malformed roaming message",
       {{Frame(qvatest::Record(0x14, badRoaming))}},
       191,
       kApiLine + "(191)\r\nCLRVSClientAPI::ProcessMessage - roamingMessage.ParseRoamingMessage(191)\r\n" +
           "CLRoamingMessage::ParseRoamingMessage - " + qva_msg::kRoamingLengthWrong + "(191)\r\n"},
      {"short payload",
       {{U32(50) + "abc"}},
       150,
       kApiLine + "(150)\r\n" + kRequestLine + "(150)\r\n" + sendFail +
           "(150)\r\nCSocketClient::Send - Recv(150)\r\nCSocketClient::Recv - recv fail(150)\r\n"},
      {"zero-length frame",
       {{U32(0)}},
       130,
       kApiLine + "(130)\r\n" + kRequestLine +
           "(130)\r\nCSecureTunnel::ProcessPlainData - m_pSecureManager->ParsePlain(130)\r\n"
           "CLSecureManager::ParsePlain - plain.ParsePlain(130)\r\nCLPlain::ParsePlain - Plain Message(130)\r\n"},
      // The single prefix read takes 00 00 alone: an empty record.
      {"prefix split over two segments",
       {{std::string(2, '\0'), PlainAnswer(0, {"0"}).substr(2)}},
       130,
       kApiLine + "(130)\r\n" + kRequestLine +
           "(130)\r\nCSecureTunnel::ProcessPlainData - m_pSecureManager->ParsePlain(130)\r\n"
           "CLSecureManager::ParsePlain - plain.ParsePlain(130)\r\nCLPlain::ParsePlain - Plain Message(130)\r\n"},
      {"closed before any answer",
       {{}},
       150,
       kApiLine + "(150)\r\n" + kRequestLine + "(150)\r\n" + sendFail +
           "(150)\r\nCSocketClient::Send - Recv(150)\r\nCSocketClient::Recv - recv fail(150)\r\n" +
           qvatest::SystemText(0)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    FakeServer server({c.answer});
    Open("127.0.0.1", server.port());
    const Outcome o = Verify(m_client);
    EXPECT_EQ(o.rc, c.rc);
    EXPECT_EQ(o.detail, c.detail);
    EXPECT_EQ(o.general, c.rc == 0 ? "" : kGeneral);
  }
  // The malformed answer's roaming message, byte for byte.
  EXPECT_EQ(DumpFile(), badRoaming);
}

TEST_F(ClientApi, MalformedAnswerDumpIsReplacedByTheNext) {
  const std::string first = qvatest::Roaming(0x6a, 0, "R", "R", "") + "0123456789";
  const std::string second = std::string("\x6a\x00\x09", 3);
  FakeServer server({Answer{{Frame(qvatest::Record(0x14, first))}}, Answer{{Frame(qvatest::Record(0x14, second))}}});
  Open("127.0.0.1", server.port());
  EXPECT_EQ(Verify(m_client).rc, 191);
  EXPECT_EQ(DumpFile(), first);
  EXPECT_EQ(Verify(m_client).rc, 191);
  EXPECT_EQ(DumpFile(), second);
}

TEST_F(ClientApi, RequestsGoOutByteForByte) {
  FakeServer server(
      {Answer{{PlainAnswer(0, {"0"})}}, Answer{{PlainAnswer(0, {"0"})}}, Answer{{PlainAnswer(0, {"0"})}}});
  Open("127.0.0.1", server.port());
  ASSERT_EQ(QVA_Verify(m_client, "AB", kData, sizeof kData), 0);
  const unsigned char cert[] = {0x30, 0x82};
  ASSERT_EQ(QVA_RegisterCert(m_client, cert, sizeof cert), 0);
  // A null first item is not refused: it goes out as an empty item.
  ASSERT_EQ(QVA_Verify(m_client, nullptr, kData, sizeof kData), 0);
  server.Join();
  const auto requests = server.Requests();
  ASSERT_EQ(requests.size(), 3u);
  // The roaming body: its length, then the item list [empty, 01 02 03].
  const std::string tail = requests[2].substr(requests[2].size() - 19);
  EXPECT_EQ(qvatest::ToHex(ByteString(tail.data(), 19)),
            qvatest::ToHex(qvatest::Hex("0000000f 00000002 00000000 00000003 010203")));
  // frame | plain record header, data length | roaming: type 6A, status 0,
  // identifier R, reference R, body length | item list [AB, 01 02 03]
  EXPECT_EQ(qvatest::ToHex(ByteString(requests[0].data(), static_cast<int>(requests[0].size()))),
            qvatest::ToHex(qvatest::Hex("00000028 1401 00000022 0000001e 6a00 0152 00000001 52 00000011"
                                        "00000002 00000002 4142 00000003 010203")));
  // Registration: type 6B and one item.
  EXPECT_EQ(qvatest::ToHex(ByteString(requests[1].data(), static_cast<int>(requests[1].size()))),
            qvatest::ToHex(qvatest::Hex("00000021 1401 0000001b 00000017 6b00 0152 00000001 52 0000000a"
                                        "00000001 00000002 3082")));
}

TEST_F(ClientApi, GeneralTextOutlivesALaterSuccessButTheDetailDoesNot) {
  FakeServer server({Answer{{PlainAnswer(0, {"17", "T"})}}, Answer{{PlainAnswer(0, {"0"})}}});
  Open("127.0.0.1", server.port());
  const Outcome failed = Verify(m_client);
  EXPECT_EQ(failed.rc, 17);
  EXPECT_EQ(failed.general, kGeneral);
  const Outcome ok = Verify(m_client);
  EXPECT_EQ(ok.rc, 0);
  EXPECT_EQ(ok.general, kGeneral);
  EXPECT_EQ(ok.detail, "");
}

TEST_F(ClientApi, RegistrationFailuresReportUnderTheValidationMethod) {
  FakeServer server({Answer{{PlainAnswer(3, {"bad cert"})}}});
  Open("127.0.0.1", server.port());
  const unsigned char cert[] = {0x30};
  EXPECT_EQ(QVA_RegisterCert(m_client, cert, 1), 3);
  EXPECT_EQ(GetText(QVA_GetDetailErrorMsg, m_client),
            kApiLine + "(3)\r\nCQVAClientAPI::ProcessMessage - Roaming Message Result Fail(3)\r\nbad cert");
  EXPECT_EQ(GetText(QVA_GetGeneralErrorMsg, m_client), kGeneral);
}

TEST_F(ClientApi, UnreachableAndUnresolvableServers) {
  const int closed = qvatest::UnusedPort();
  const std::string socketLine =
      "CSocketClient::SocketConnect - connect fail(155)\r\n[127.0.0.1:" + std::to_string(closed) + "][" +
      qvatest::SystemText(ECONNREFUSED) + "] - connect fail";
  const std::string unresolved = "CSocketClient::SocketConnect - inet_addr fail(154)\r\nINADDR_NONE";
  struct Case {
    const char* name;
    std::string host;
    int rc;
    std::string detail;
  } cases[] = {
      // Outermost line first, down to the socket client's two attempts.
      {"refused", "127.0.0.1", 155,
       kApiLine +
           "(155)\r\nCLRVSClientAPI::ProcessMessage - secureTunnel.Connect(155)\r\n"
           "CSecureTunnel::Connect - m_pSocketClient->Connect(155)\r\n" +
           socketLine + socketLine},
      {"unresolvable", "no-such-host.invalid", 154,
       kApiLine +
           "(154)\r\nCLRVSClientAPI::ProcessMessage - secureTunnel.Connect(154)\r\n"
           "CSecureTunnel::Connect - m_pSocketClient->Connect(154)\r\n" +
           unresolved + unresolved},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    // Creating the handle contacts nobody, so it succeeds.
    Open(c.host.c_str(), closed);
    const Outcome o = Verify(m_client);
    EXPECT_EQ(o.rc, c.rc);
    EXPECT_EQ(o.detail, c.detail);
    EXPECT_EQ(o.general, kGeneral);
  }
}

TEST_F(ClientApi, ArgumentChecksAndTextBufferRules) {
  Open("127.0.0.1", 1);
  void* none = nullptr;
  // Null handles and data pointers are refused before anything is done.
  EXPECT_EQ(QVA_Verify(nullptr, "AB", kData, 3), 2000);
  EXPECT_EQ(QVA_Verify(m_client, "AB", nullptr, 3), 2000);
  EXPECT_EQ(QVA_RegisterCert(nullptr, kData, 3), 2000);
  EXPECT_EQ(QVA_RegisterCert(m_client, nullptr, 3), 2000);
  EXPECT_EQ(QVA_Release(nullptr), 2000);
  EXPECT_EQ(QVA_FreeItem(&none), 0);
  void* block = std::malloc(16);
  EXPECT_EQ(QVA_FreeItem(&block), 0);
  EXPECT_EQ(block, nullptr);

  char buf[8];
  int len = 99;
  EXPECT_EQ(QVA_GetGeneralErrorMsg(nullptr, buf, &len), 2000);
  EXPECT_EQ(QVA_GetDetailErrorMsg(nullptr, buf, &len), 2000);
  // A fresh handle has empty texts.
  EXPECT_EQ(QVA_GetGeneralErrorMsg(m_client, buf, &len), 0);
  EXPECT_EQ(len, 0);
  // The nothing-listens port 1 fails the request and fills both texts.
  ASSERT_NE(QVA_Verify(m_client, "AB", kData, 3), 0);
  const int textLen = static_cast<int>(kGeneral.size());

  std::string big(static_cast<std::size_t>(textLen) + 4, '#');
  struct Case {
    const char* name;
    int given;
    int rc;
  } cases[] = {
      {"one short", textLen - 1, 2000},
      {"exact", textLen, 0},
      {"larger", textLen + 3, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::fill(big.begin(), big.end(), '#');
    len = c.given;
    EXPECT_EQ(QVA_GetGeneralErrorMsg(m_client, big.data(), &len), c.rc);
    if (c.rc != 0) {
      EXPECT_EQ(len, c.given);  // neither the length nor the buffer is touched
      EXPECT_EQ(big, std::string(big.size(), '#'));
    } else {
      EXPECT_EQ(len, textLen);
      EXPECT_EQ(big.substr(0, static_cast<std::size_t>(textLen)), kGeneral);
      EXPECT_EQ(big[static_cast<std::size_t>(textLen)], '#');  // no terminating zero
    }
  }
}
