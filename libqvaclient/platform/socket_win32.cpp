// Windows Sockets 1.1: winsock.h and wsock32.dll, nothing of version 2.
#include <windows.h>
#include <winsock.h>

#include <climits>
#include <cstring>

#include "libqvaclient/platform/socket_platform.h"

namespace qva_net {

namespace {

SOCKET Sock(SocketHandle s) { return static_cast<SOCKET>(s); }

// Winsock takes int lengths; larger requests go in several calls.
int Chunk(std::size_t n) { return n > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(n); }

}  // namespace

int Startup() {
  WSADATA data;
  return WSAStartup(MAKEWORD(1, 1), &data) == 0 ? 0 : 1;
}

void Cleanup() { WSACleanup(); }

SocketHandle OpenStreamSocket() {
  const SOCKET s = ::socket(AF_INET, SOCK_STREAM, 0);
  return s == INVALID_SOCKET ? kInvalidSocket : static_cast<SocketHandle>(s);
}

void CloseSocket(SocketHandle s) {
  if (s != kInvalidSocket) ::closesocket(Sock(s));
}

bool ResolveHost(const char* host, std::uint32_t* addr) {
  const hostent* entry = ::gethostbyname(host);
  if (entry && entry->h_addr_list && entry->h_addr_list[0]) {
    u_long a = 0;
    std::memcpy(&a, entry->h_addr_list[0], entry->h_length < 4 ? static_cast<std::size_t>(entry->h_length) : 4);
    *addr = a;
    return true;
  }
  const unsigned long a = ::inet_addr(host);
  if (a == INADDR_NONE) return false;
  *addr = static_cast<std::uint32_t>(a);
  return true;
}

int ConnectSocket(SocketHandle s, std::uint32_t addr, std::uint16_t port) {
  sockaddr_in sa;
  std::memset(&sa, 0, sizeof sa);
  sa.sin_family = AF_INET;
  sa.sin_port = htons(port);
  sa.sin_addr.s_addr = addr;
  return ::connect(Sock(s), reinterpret_cast<const sockaddr*>(&sa), sizeof sa) == 0 ? 0 : -1;
}

bool WaitWritable(SocketHandle s, int seconds) {
  fd_set writable;
  FD_ZERO(&writable);
  FD_SET(Sock(s), &writable);
  timeval tv{seconds, 0};
  ::select(0, nullptr, &writable, nullptr, &tv);
  return FD_ISSET(Sock(s), &writable) != 0;
}

int SetIoTimeout(SocketHandle s, int ms) {
  // Milliseconds as a DWORD; a call that runs out fails with WSAETIMEDOUT.
  const DWORD limit = static_cast<DWORD>(ms);
  const char* p = reinterpret_cast<const char*>(&limit);
  if (::setsockopt(Sock(s), SOL_SOCKET, SO_RCVTIMEO, p, sizeof limit) != 0) return -1;
  return ::setsockopt(Sock(s), SOL_SOCKET, SO_SNDTIMEO, p, sizeof limit) == 0 ? 0 : -1;
}

long SendSome(SocketHandle s, const unsigned char* p, std::size_t n) {
  return ::send(Sock(s), reinterpret_cast<const char*>(p), Chunk(n), 0);
}

long RecvSome(SocketHandle s, unsigned char* p, std::size_t n) {
  return ::recv(Sock(s), reinterpret_cast<char*>(p), Chunk(n), 0);
}

int LastError() { return static_cast<int>(GetLastError()); }

}  // namespace qva_net
