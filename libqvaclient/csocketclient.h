// CSocketClient: one blocking IPv4 TCP connection that sends one framed
// message and receives one framed answer. A frame is a 4-byte big-endian
// payload length followed by the payload.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clencoder.h"

class CSocketClient : public CErrorTrace {
 public:
  // Starts the sockets library and opens the socket; a failure here shows
  // later as a failed connect (155).
  CSocketClient();
  ~CSocketClient() override;
  CSocketClient(const CSocketClient&) = delete;
  CSocketClient& operator=(const CSocketClient&) = delete;

  // 1 when a socket was obtained, 0 when not (no caller reads it). The
  // socket gets the I/O limit of QVA_IO_TIMEOUT_MS, read here once per object.
  int InitSocket();
  // Tries host1:port1, then host2:port2 on the same socket.
  int Connect(const ByteString& host1, int port1, const ByteString& host2, int port2);
  // 0; 1 when the socket is not writable within 2 seconds; 154 when host has
  // no address; 155 when the connect fails.
  int SocketConnect(const ByteString& host, int port);
  // Write, then Recv. 0 with the answer in GetRecvData().
  int Send(const ByteString& payload);
  // Sends one frame. 0, 152, or the status of building the frame.
  int Write(const ByteString& payload);
  // The same for a payload written straight into the frame's one buffer.
  int Send(const CLEncoder& payload);
  int Write(const CLEncoder& payload);
  // Receives one frame into GetRecvData(). 0, 150, 151, or the store status.
  int Recv();
  void Close();

  const ByteString& GetRecvData() const { return m_bsRecvData; }
  ByteString TakeRecvData();

  // Milliseconds a send or receive may go without progress, from a
  // QVA_IO_TIMEOUT_MS value: decimal digits only, above INT_MAX taken as
  // INT_MAX. Null, empty, 0 or any other text give 0: no limit, every call
  // blocks.
  static int ParseIoTimeout(const char* text);

  // Allocator of Recv's payload buffer (calloc-like); replaceable so that a
  // test can make it fail. Returns the previous one.
  using Allocator = void* (*)(std::size_t count, std::size_t size);
  static Allocator SetRecvAllocator(Allocator allocator);

 private:
  void TraceSystemError(const char* method, const char* what, int code, int err);

  std::intptr_t m_hSocket;
  ByteString m_bsRecvData;
  bool m_bStarted;
};
