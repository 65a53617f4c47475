// Helpers for the client tests. FakeServer listens on 127.0.0.1 at an
// ephemeral port and serves one connection per scripted answer, in order:
// read one framed request (kept), send the answer's segments apart, close.
// Every wait is bounded, so a test that never connects still ends. The
// conversation form serves one connection instead, answering each framed
// request with what its callback gives (framed), until the callback says
// stop or the peer goes.
#pragma once

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/TestUtil.h"

namespace qvatest {

using Answer = std::vector<std::string>;  // raw bytes, parts sent with a pause between

inline int ListenLoopback(int* port) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t len = sizeof sa;
  if (fd < 0 || ::bind(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) != 0 || ::listen(fd, 16) != 0 ||
      ::getsockname(fd, reinterpret_cast<sockaddr*>(&sa), &len) != 0) {
    throw std::runtime_error("listen on loopback");
  }
  *port = ntohs(sa.sin_port);
  return fd;
}

inline bool WaitReadable(int fd) {
  pollfd p{fd, POLLIN, 0};
  return ::poll(&p, 1, 5000) > 0;  // longest wait for a connection or a byte
}

// Appends n bytes to out, or fewer when the peer stops or the wait runs out.
inline void ReadUpTo(int fd, std::size_t n, std::string* out) {
  char buf[4096];
  for (ssize_t got; n > 0 && WaitReadable(fd); n -= static_cast<std::size_t>(got)) {
    if ((got = ::recv(fd, buf, std::min(sizeof buf, n), 0)) <= 0) break;
    out->append(buf, static_cast<std::size_t>(got));
  }
}

// One framed request (prefix kept) from fd; short when the peer stops.
inline std::string ReadFrame(int fd) {
  std::string request;
  ReadUpTo(fd, 4, &request);
  std::size_t n = 0;
  for (unsigned char c : request) n = n << 8 | c;
  if (request.size() == 4) ReadUpTo(fd, n, &request);
  return request;
}

inline std::string Frame(const std::string& payload) {
  std::string out(4, '\0');
  for (int i = 0; i < 4; ++i) out[i] = static_cast<char>(payload.size() >> (24 - 8 * i));
  return out + payload;
}

// Gets a request's payload; false to close without answering, else *reply
// is sent framed.
using Respond = std::function<bool(const std::string& payload, std::string* reply)>;

class FakeServer {
 public:
  explicit FakeServer(Respond respond) : m_listen(ListenLoopback(&m_port)) {
    m_thread = std::thread([this, respond] {
      const int fd = WaitReadable(m_listen) ? ::accept(m_listen, nullptr, nullptr) : -1;
      if (fd < 0) return;
      for (std::string request; (request = ReadFrame(fd)).size() >= 4;) {
        m_requests.push_back(request);
        std::string reply;
        if (!respond(request.substr(4), &reply)) break;
        reply = Frame(reply);
        if (::send(fd, reply.data(), reply.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(reply.size())) break;
      }
      ::close(fd);
    });
  }
  explicit FakeServer(std::vector<Answer> script) : m_listen(ListenLoopback(&m_port)) {
    m_thread = std::thread([this, script] {
      for (const Answer& answer : script) {
        const int fd = WaitReadable(m_listen) ? ::accept(m_listen, nullptr, nullptr) : -1;
        if (fd < 0) return;  // nobody came: stop rather than wait forever
        int on = 1;
        ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);  // segments leave one by one
        m_requests.push_back(ReadFrame(fd));
        for (const std::string& s : answer) {
          if (&s != &answer[0]) std::this_thread::sleep_for(std::chrono::milliseconds(100));
          if (::send(fd, s.data(), s.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(s.size())) break;
        }
        ::close(fd);
      }
    });
  }
  ~FakeServer() {
    Requests();
    ::close(m_listen);
  }
  int port() const { return m_port; }
  // The framed requests received, prefix included, once every answer is
  // served (or timed out).
  std::vector<std::string> Requests() {
    if (m_thread.joinable()) m_thread.join();
    return m_requests;
  }

 private:
  int m_port = 0;
  int m_listen;
  std::vector<std::string> m_requests;
  std::thread m_thread;
};

// A loopback port with nothing listening on it.
inline int UnusedPort() {
  int port = 0;
  ::close(ListenLoopback(&port));
  return port;
}

// A text from one of the two message getters, through a large buffer.
inline std::string GetText(int (*get)(void*, char*, int*), void* client) {
  char buf[8192];
  int len = sizeof buf;
  return get(client, buf, &len) == 0 ? std::string(buf, static_cast<std::size_t>(len)) : "(refused)";
}

inline std::string HexStr(const std::string& hex) { return Str(Hex(hex)); }

// A data-file text with \r, \n, \\ and \xHH escapes resolved.
inline std::string Unescape(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      out += text[i];
    } else if (text[++i] == 'x') {
      out += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      out += text[i] == 'r' ? '\r' : text[i] == 'n' ? '\n' : text[i];
    }
  }
  return out;
}

}  // namespace qvatest
