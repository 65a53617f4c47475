#include "tests/libqvaclient/FakeServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <stdexcept>

namespace qvatest {

namespace {

constexpr int kWaitMs = 5000;  // longest wait for a connection or a byte

int ListenLoopback(int* port) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  if (fd < 0) throw std::runtime_error("socket");
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t len = sizeof sa;
  if (::bind(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) != 0 || ::listen(fd, 16) != 0 ||
      ::getsockname(fd, reinterpret_cast<sockaddr*>(&sa), &len) != 0) {
    ::close(fd);
    throw std::runtime_error("bind/listen");
  }
  *port = ntohs(sa.sin_port);
  return fd;
}

bool WaitReadable(int fd) {
  pollfd p{fd, POLLIN, 0};
  return ::poll(&p, 1, kWaitMs) > 0;
}

// Reads exactly n bytes, or fewer when the peer stops or the wait runs out.
std::string ReadUpTo(int fd, std::size_t n) {
  std::string out;
  char buf[4096];
  while (out.size() < n && WaitReadable(fd)) {
    const ssize_t got = ::recv(fd, buf, std::min(sizeof buf, n - out.size()), 0);
    if (got <= 0) break;
    out.append(buf, static_cast<std::size_t>(got));
  }
  return out;
}

}  // namespace

std::string U32(unsigned v) {
  const char b[4] = {static_cast<char>(v >> 24), static_cast<char>(v >> 16), static_cast<char>(v >> 8),
                     static_cast<char>(v)};
  return std::string(b, 4);
}

std::string Frame(const std::string& payload) { return U32(static_cast<unsigned>(payload.size())) + payload; }

std::string ItemList(const std::vector<std::string>& items) {
  std::string out = U32(static_cast<unsigned>(items.size()));
  for (const auto& item : items) out += Frame(item);
  return out;
}

std::string Roaming(int type, int status, const std::string& identifier, const std::string& reference,
                    const std::string& body) {
  return std::string(1, static_cast<char>(type)) + static_cast<char>(status) + static_cast<char>(identifier.size()) +
         identifier + Frame(reference) + Frame(body);
}

std::string Record(int contentType, const std::string& data) {
  return std::string(1, static_cast<char>(contentType)) + '\x01' + U32(static_cast<unsigned>(data.size() + 4)) +
         Frame(data);
}

std::string PlainAnswer(int status, const std::vector<std::string>& items) {
  return Frame(Record(0x14, Roaming(0x6a, status, "R", "R", ItemList(items))));
}

FakeServer::FakeServer(std::vector<Answer> script) : m_script(std::move(script)) {
  m_listen = ListenLoopback(&m_port);
  m_thread = std::thread([this] { Run(); });
}

FakeServer::~FakeServer() {
  Join();
  ::close(m_listen);
}

void FakeServer::Join() {
  if (m_thread.joinable()) m_thread.join();
}

std::vector<std::string> FakeServer::Requests() {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_requests;
}

void FakeServer::Run() {
  for (const Answer& answer : m_script) {
    if (!WaitReadable(m_listen)) return;  // nobody came: stop rather than wait forever
    const int fd = ::accept(m_listen, nullptr, nullptr);
    if (fd < 0) return;
    Serve(fd, answer);
    ::close(fd);
  }
}

void FakeServer::Serve(int fd, const Answer& answer) {
  int on = 1;
  ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);  // segments leave one by one
  if (!answer.skipRequest) {
    std::string request = ReadUpTo(fd, 4);
    if (request.size() == 4) {
      const auto* p = reinterpret_cast<const unsigned char*>(request.data());
      const std::size_t n = (std::size_t{p[0]} << 24) | (std::size_t{p[1]} << 16) | (std::size_t{p[2]} << 8) | p[3];
      request += ReadUpTo(fd, n);
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    m_requests.push_back(request);
  }
  for (std::size_t i = 0; i < answer.segments.size(); ++i) {
    if (i > 0) std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const std::string& s = answer.segments[i];
    if (::send(fd, s.data(), s.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(s.size())) break;
  }
}

std::string SystemText(int err) { return std::string(std::strerror(err)) + "\r\n"; }

int UnusedPort() {
  int port = 0;
  const int fd = ListenLoopback(&port);
  ::close(fd);
  return port;
}

}  // namespace qvatest
