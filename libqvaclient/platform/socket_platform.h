// The few socket calls CSocketClient needs, one implementation per platform
// (socket_posix.cpp, socket_win32.cpp). Every call blocks, for at most the
// I/O limit once one is set on the socket.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qva_net {

// A socket handle wide enough for both platforms; -1 is "no socket".
using SocketHandle = std::intptr_t;
constexpr SocketHandle kInvalidSocket = -1;

// Starts the sockets library for one user (Windows Sockets 1.1); 0 on success.
int Startup();
// Ends one Startup.
void Cleanup();

SocketHandle OpenStreamSocket();
void CloseSocket(SocketHandle s);

// IPv4 address (network byte order) of host: the name lookup first, then the
// dotted-address conversion. False when neither gives an address.
bool ResolveHost(const char* host, std::uint32_t* addr);

// 0 on success, otherwise -1 with the error left for LastError().
int ConnectSocket(SocketHandle s, std::uint32_t addr, std::uint16_t port);
// True when s becomes writable within the given seconds.
bool WaitWritable(SocketHandle s, int seconds);

// Every later send and receive on s fails once it has made no progress for
// ms milliseconds, with the system's timeout error left for LastError();
// 0 lifts the limit. 0 on success.
int SetIoTimeout(SocketHandle s, int ms);

// One send/recv of at most n bytes; the count, or below 1 on failure or (for
// recv) an orderly close. Sending never raises a signal in the process.
long SendSome(SocketHandle s, const unsigned char* p, std::size_t n);
long RecvSome(SocketHandle s, unsigned char* p, std::size_t n);

// The system error number of the last failed call above (errno, or
// GetLastError). A receive that ends in an orderly close leaves 0.
int LastError();

}  // namespace qva_net
