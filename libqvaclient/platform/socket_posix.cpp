#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "libqvaclient/platform/socket_platform.h"

namespace qva_net {

namespace {

#if defined(MSG_NOSIGNAL)
constexpr int kSendFlags = MSG_NOSIGNAL;  // a peer that closed early must not kill the caller
#else
constexpr int kSendFlags = 0;  // SO_NOSIGPIPE is set on the socket instead
#endif

int Fd(SocketHandle s) { return static_cast<int>(s); }

// A blocking socket reports an expired I/O limit as EAGAIN; callers are told
// it as what it is.
void NameTimeout() {
  if (errno == EAGAIN || errno == EWOULDBLOCK) errno = ETIMEDOUT;
}

}  // namespace

int Startup() { return 0; }

void Cleanup() {}

SocketHandle OpenStreamSocket() {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
#if defined(SO_NOSIGPIPE)
  if (fd >= 0) {
    int on = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
  }
#endif
  return fd < 0 ? kInvalidSocket : fd;
}

void CloseSocket(SocketHandle s) {
  if (s != kInvalidSocket) ::close(Fd(s));
}

bool ResolveHost(const char* host, std::uint32_t* addr) {
  hostent* entry = nullptr;
#if defined(__GLIBC__)
  // The reentrant lookup: two handles may resolve on two threads at once.
  hostent result;
  char buf[2048];
  int herr = 0;
  if (::gethostbyname_r(host, &result, buf, sizeof buf, &entry, &herr) != 0) entry = nullptr;
#else
  entry = ::gethostbyname(host);
#endif
  if (entry && entry->h_addrtype == AF_INET && entry->h_addr_list && entry->h_addr_list[0]) {
    std::uint32_t a = 0;
    // At most the 4 bytes of an IPv4 address, whatever length the entry states.
    std::memcpy(&a, entry->h_addr_list[0], entry->h_length < 4 ? static_cast<std::size_t>(entry->h_length) : 4);
    *addr = a;
    return true;
  }
  const in_addr_t a = ::inet_addr(host);
  if (a == INADDR_NONE) return false;
  *addr = a;
  return true;
}

int ConnectSocket(SocketHandle s, std::uint32_t addr, std::uint16_t port) {
  sockaddr_in sa;
  std::memset(&sa, 0, sizeof sa);
  sa.sin_family = AF_INET;
  sa.sin_port = htons(port);
  sa.sin_addr.s_addr = addr;
  int rc;
  do {
    rc = ::connect(Fd(s), reinterpret_cast<const sockaddr*>(&sa), sizeof sa);
  } while (rc != 0 && errno == EINTR);
  return rc == 0 ? 0 : -1;
}

bool WaitWritable(SocketHandle s, int seconds) {
  // poll rather than select: a descriptor above FD_SETSIZE cannot overrun a set.
  pollfd p{Fd(s), POLLOUT, 0};
  int rc;
  do {
    rc = ::poll(&p, 1, seconds * 1000);
  } while (rc < 0 && errno == EINTR);
  return rc > 0 && (p.revents & POLLOUT) != 0;
}

int SetIoTimeout(SocketHandle s, int ms) {
  timeval tv{};
  tv.tv_sec = ms / 1000;
  tv.tv_usec = (ms % 1000) * 1000;
  if (::setsockopt(Fd(s), SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv) != 0) return -1;
  return ::setsockopt(Fd(s), SOL_SOCKET, SO_SNDTIMEO, &tv, sizeof tv) == 0 ? 0 : -1;
}

long SendSome(SocketHandle s, const unsigned char* p, std::size_t n) {
  ssize_t rc;
  do {
    rc = ::send(Fd(s), p, n, kSendFlags);
  } while (rc < 0 && errno == EINTR);  // a signal is not a failure of the peer
  if (rc < 0) NameTimeout();
  return static_cast<long>(rc);
}

long RecvSome(SocketHandle s, unsigned char* p, std::size_t n) {
  ssize_t rc;
  do {
    errno = 0;  // an orderly close reports error 0, as the Windows build does
    rc = ::recv(Fd(s), p, n, 0);
  } while (rc < 0 && errno == EINTR);
  if (rc < 0) NameTimeout();
  return static_cast<long>(rc);
}

int LastError() { return errno; }

}  // namespace qva_net
