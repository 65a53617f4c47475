// Whole-buffer reads and writes on a POSIX socket, for the reference server
// and the loopback benchmark (the library has its own transport).
#pragma once

#include <sys/socket.h>
#include <sys/types.h>

#include <cstddef>

// Reads exactly n bytes; false when the peer closes or an error occurs first.
inline bool ReadExact(int fd, unsigned char* p, std::size_t n) {
  while (n > 0) {
    const ssize_t got = ::recv(fd, p, n, 0);
    if (got <= 0) return false;
    p += got;
    n -= static_cast<std::size_t>(got);
  }
  return true;
}

// Sends all n bytes without raising SIGPIPE when the peer has gone.
inline bool WriteAll(int fd, const unsigned char* p, std::size_t n) {
  while (n > 0) {
    const ssize_t sent = ::send(fd, p, n, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    p += sent;
    n -= static_cast<std::size_t>(sent);
  }
  return true;
}
