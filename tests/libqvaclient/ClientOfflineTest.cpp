// Client calls that need no answering server, built for every platform (the
// Windows build runs them under an emulator): argument checks, the text
// getters' buffers, and failing to reach a server, with the system's texts
// taken from the system itself.
#include <gtest/gtest.h>

#if defined(_WIN32)
#include <winsock2.h>
#include <windows.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#endif

#include <cstdlib>
#include <string>

#include "base/Messages.h"
#include "qva/qva.h"

namespace {

#if defined(_WIN32)
using Socket = SOCKET;
using socklen_t = int;
void CloseSock(Socket s) { closesocket(s); }
void SetLimit(const char* ms) { _putenv_s("QVA_IO_TIMEOUT_MS", ms); }
// The system's text for an error number, as FormatMessageA gives it.
std::string SystemText(bool timedOut) {
  char* text = nullptr;
  const DWORD n = FormatMessageA(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      timedOut ? WSAETIMEDOUT : WSAECONNREFUSED, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
      reinterpret_cast<LPSTR>(&text), 0, nullptr);
  const std::string out = n && text ? text : "";
  if (text) LocalFree(text);
  return out;
}
#else
using Socket = int;
void CloseSock(Socket s) { ::close(s); }
void SetLimit(const char* ms) { ::setenv("QVA_IO_TIMEOUT_MS", ms, 1); }
std::string SystemText(bool timedOut) { return std::string(std::strerror(timedOut ? ETIMEDOUT : ECONNREFUSED)) + "\r\n"; }
#endif

// A loopback listener that never accepts: the system completes connections
// to it, and nothing is ever read or answered.
class SilentListener {
 public:
  SilentListener() {
#if defined(_WIN32)
    WSADATA data;
    m_started = WSAStartup(MAKEWORD(1, 1), &data) == 0;
#endif
    m_socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in sa{};
    sa.sin_family = AF_INET;
    sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof sa;
    if (::bind(m_socket, reinterpret_cast<sockaddr*>(&sa), sizeof sa) == 0 && ::listen(m_socket, 4) == 0 &&
        ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&sa), &len) == 0) {
      m_port = ntohs(sa.sin_port);
    }
  }
  ~SilentListener() {
    CloseSock(m_socket);
#if defined(_WIN32)
    if (m_started) WSACleanup();
#endif
  }
  SilentListener(const SilentListener&) = delete;
  SilentListener& operator=(const SilentListener&) = delete;
  int port() const { return m_port; }

 private:
  Socket m_socket;
  int m_port = 0;
#if defined(_WIN32)
  bool m_started = false;
#endif
};

std::string Text(int(QVA_CALL* get)(void*, char*, int*), void* client) {
  char buf[4096];
  int len = sizeof buf;
  return get(client, buf, &len) == 0 ? std::string(buf, static_cast<std::size_t>(len)) : "(refused)";
}

bool EndsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

}  // namespace

TEST(ClientOffline, NullArgumentsAreRefusedUntouched) {
  const unsigned char data[] = {1, 2, 3};
  void* client = nullptr;
  ASSERT_EQ(QVA_Initialize(&client, "127.0.0.1", 1, "R"), 0);  // no connection yet
  EXPECT_EQ(QVA_Verify(nullptr, "AB", data, 3), 2000);
  EXPECT_EQ(QVA_Verify(client, "AB", nullptr, 3), 2000);
  EXPECT_EQ(QVA_RegisterCert(nullptr, data, 3), 2000);
  EXPECT_EQ(QVA_RegisterCert(client, nullptr, 3), 2000);
  EXPECT_EQ(QVA_Release(nullptr), 2000);
  void* none = nullptr;
  void* block = std::malloc(16);
  EXPECT_EQ(QVA_FreeItem(&none), 0);
  EXPECT_EQ(QVA_FreeItem(&block), 0);
  EXPECT_EQ(block, nullptr);
  for (auto get : {QVA_GetGeneralErrorMsg, QVA_GetDetailErrorMsg}) {
    int len = 99;
    EXPECT_EQ(get(nullptr, nullptr, &len), 2000);
    EXPECT_EQ(len, 99);
    EXPECT_EQ(Text(get, client), "");  // refused calls leave the texts empty
  }
  EXPECT_EQ(QVA_Release(client), 0);
}

// A closed port, a name that does not resolve, and a peer that never answers
// under an I/O limit: each call's code, the innermost trace line with the
// system's own text, and both texts through buffers one short, exact and
// larger.
TEST(ClientOffline, UnreachableServersGiveCodesAndSystemTexts) {
  SilentListener silent;
  ASSERT_NE(silent.port(), 0);
  int closed = 0;
  {
    SilentListener gone;  // its port, closed again
    closed = gone.port();
  }
  const struct {
    const char* host;
    int port;
    const char* limit;
    int code;
    std::string innermost;
  } cases[] = {
      {"127.0.0.1", closed, "", 155,
       "CSocketClient::SocketConnect - connect fail(155)\r\n[127.0.0.1:" + std::to_string(closed) + "][" +
           SystemText(false) + "] - connect fail"},
      {"no-such-host.invalid", closed, "", 154, "CSocketClient::SocketConnect - inet_addr fail(154)\r\nINADDR_NONE"},
      {"127.0.0.1", silent.port(), "300", 150, "CSocketClient::Recv - recv fail(150)\r\n" + SystemText(true)},
  };
  const unsigned char data[] = {1, 2, 3};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.host) + " limit " + c.limit);
    SetLimit(c.limit);
    void* client = nullptr;
    ASSERT_EQ(QVA_Initialize(&client, c.host, c.port, "R"), 0);
    EXPECT_EQ(QVA_Verify(client, "AB", data, 3), c.code);
    SetLimit("");
    const std::string detail = Text(QVA_GetDetailErrorMsg, client);
    EXPECT_TRUE(EndsWith(detail, c.innermost)) << detail;
    EXPECT_EQ(detail.find("CQVAClientAPI::API_Verify - ProcessMessage(" + std::to_string(c.code) + ")\r\n"), 0u);
    EXPECT_EQ(Text(QVA_GetGeneralErrorMsg, client), qva_msg::kVerifyRequestFailed);
    for (auto get : {QVA_GetGeneralErrorMsg, QVA_GetDetailErrorMsg}) {
      const std::string text = Text(get, client);
      const int size = static_cast<int>(text.size());
      for (const int given : {size - 1, size, size + 3}) {
        std::string buf(text.size() + 4, '#');
        int len = given;
        EXPECT_EQ(get(client, &buf[0], &len), given < size ? 2000 : 0);
        EXPECT_EQ(len, given < size ? given : size);
        EXPECT_EQ(buf, given < size ? std::string(buf.size(), '#') : text + "####");
      }
    }
    EXPECT_EQ(QVA_Release(client), 0);
  }
}
