#include "libqvaclient/csocketclient.h"

#include <atomic>
#include <climits>
#include <cstdlib>
#include <memory>
#include <utility>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"
#include "base/platform/SystemError.h"
#include "libqvaclient/qvaclientmessages.h"
#include "libqvaclient/platform/socket_platform.h"

namespace {

constexpr int kConnectWaitSeconds = 2;

std::atomic<CSocketClient::Allocator> g_recvAllocator{&std::calloc};

// Calls io on the rest of the n bytes at p until all are through or a call
// returns below 1; returns how many bytes are left.
template <typename Byte>
std::size_t TransferAll(long (*io)(qva_net::SocketHandle, Byte*, std::size_t), qva_net::SocketHandle s, Byte* p,
                        std::size_t n) {
  while (n > 0) {
    const long done = io(s, p, n);
    if (done < 1) break;
    p += done;
    n -= static_cast<std::size_t>(done);
  }
  return n;
}

struct FreeDeleter {
  void operator()(unsigned char* p) const { std::free(p); }
};

}  // namespace

CSocketClient::Allocator CSocketClient::SetRecvAllocator(Allocator allocator) {
  return g_recvAllocator.exchange(allocator ? allocator : &std::calloc);
}

CSocketClient::CSocketClient() : m_hSocket(qva_net::kInvalidSocket), m_bStarted(false) { InitSocket(); }

CSocketClient::~CSocketClient() {
  if (m_hSocket != qva_net::kInvalidSocket) {
    qva_net::CloseSocket(m_hSocket);
    m_hSocket = qva_net::kInvalidSocket;
  }
  // Each object pairs its own start-up with one clean-up.
  if (m_bStarted) qva_net::Cleanup();
}

int CSocketClient::ParseIoTimeout(const char* text) {
  if (!text || !*text) return 0;
  long long ms = 0;
  for (const char* p = text; *p; ++p) {
    if (*p < '0' || *p > '9') return 0;  // not a number: keep the blocking default
    if (ms < INT_MAX) ms = ms * 10 + (*p - '0');
  }
  return ms > INT_MAX ? INT_MAX : static_cast<int>(ms);
}

int CSocketClient::InitSocket() {
  if (qva_net::Startup() != 0) return 1;
  m_bStarted = true;
  m_hSocket = qva_net::OpenStreamSocket();
  const int timeoutMs = ParseIoTimeout(std::getenv("QVA_IO_TIMEOUT_MS"));
  // A limit the system refuses leaves the socket blocking, as without one.
  if (timeoutMs > 0 && m_hSocket != qva_net::kInvalidSocket) qva_net::SetIoTimeout(m_hSocket, timeoutMs);
  return m_hSocket != qva_net::kInvalidSocket ? 1 : 0;
}

ByteString CSocketClient::TakeRecvData() { return std::move(m_bsRecvData); }

void CSocketClient::TraceSystemError(const char* method, const char* what, int code, int err) {
  ByteString text;
  SystemErrorText(err, &text);
  QVA_ERROR_TRACE(method, what, code, text.c_str());
}

int CSocketClient::Connect(const ByteString& host1, int port1, const ByteString& host2, int port2) {
  if (SocketConnect(host1, port1) == 0) return 0;
  return SocketConnect(host2, port2);
}

int CSocketClient::SocketConnect(const ByteString& host, int port) {
  std::uint32_t addr = 0;
  if (!qva_net::ResolveHost(host.c_str(), &addr)) {
    m_nErrorCode = ERR_SOCKET_RESOLVE;
    QVA_ERROR_TRACE(qva_text::kSocketConnectMethod, qva_text::kResolveWhat, ERR_SOCKET_RESOLVE,
                    qva_text::kResolveDetail);
    return ERR_SOCKET_RESOLVE;
  }
  if (qva_net::ConnectSocket(m_hSocket, addr, static_cast<std::uint16_t>(port)) != 0) {
    ByteString system, detail;
    SystemErrorText(qva_net::LastError(), &system);
    detail.format(qva_text::kConnectDetailFormat, host.c_str(), port, system.c_str(), qva_text::kConnectWhat);
    m_nErrorCode = ERR_SOCKET_CONNECT;
    QVA_ERROR_TRACE(qva_text::kSocketConnectMethod, qva_text::kConnectWhat, ERR_SOCKET_CONNECT, detail.c_str());
    return ERR_SOCKET_CONNECT;
  }
  // Not writable in time: reported by code alone, without a trace line.
  if (!qva_net::WaitWritable(m_hSocket, kConnectWaitSeconds)) return m_nErrorCode = ERR_CONNECT_CHECK;
  return m_nErrorCode = 0;
}

int CSocketClient::Send(const ByteString& payload) { return Send(CLBytesEncoder(payload)); }

int CSocketClient::Write(const ByteString& payload) { return Write(CLBytesEncoder(payload)); }

int CSocketClient::Send(const CLEncoder& payload) {
  m_nErrorCode = Write(payload);
  if (m_nErrorCode >= 1) {
    QVA_ERROR_TRACE(qva_text::kSendMethod, qva_text::kSendWhat, m_nErrorCode, nullptr);
    return m_nErrorCode;
  }
  m_nErrorCode = Recv();
  if (m_nErrorCode > 0) {
    QVA_ERROR_TRACE(qva_text::kSendMethod, qva_text::kRecvWhat, m_nErrorCode, nullptr);
    return m_nErrorCode;
  }
  return 0;
}

int CSocketClient::Write(const CLEncoder& payload) {
  // One buffer of the frame's size; a payload too long for it fails the
  // reserve, so its length is never cut to 4 bytes on the wire.
  const std::size_t length = payload.EncodedLength();
  ByteWriter w;
  w.reserve(4 + length).u32BE(static_cast<std::uint32_t>(length));
  if (w.status() == BS_OK) payload.Encode(&w);
  ByteString frame;
  const int rc = w.finish(&frame);
  if (rc != BS_OK) return rc;

  const std::size_t left =
      TransferAll(qva_net::SendSome, m_hSocket, frame.data(), static_cast<std::size_t>(frame.length()));
  if (left > 0) {
    TraceSystemError(qva_text::kWriteMethod, qva_text::kSendFailWhat, ERR_SOCKET_SEND, qva_net::LastError());
    return ERR_SOCKET_SEND;
  }
  return 0;
}

int CSocketClient::Recv() {
  // One read for the prefix: a prefix split over two segments is taken
  // short, its missing bytes counting as zero.
  unsigned char prefix[4] = {0, 0, 0, 0};
  if (qva_net::RecvSome(m_hSocket, prefix, sizeof prefix) < 1) {
    TraceSystemError(qva_text::kRecvMethod, qva_text::kRecvFailWhat, ERR_SOCKET_RECV, qva_net::LastError());
    return ERR_SOCKET_RECV;
  }
  ByteReader pr(prefix, sizeof prefix);
  std::uint32_t length = 0;
  pr.readU32BE(&length);

  // length + 2 in 64 bits: FF FF FF FF must not wrap to a small buffer.
  const std::uint64_t size = static_cast<std::uint64_t>(length) + 2;
  std::unique_ptr<unsigned char, FreeDeleter> buffer;
  if (size <= SIZE_MAX) {
    const CSocketClient::Allocator allocate = g_recvAllocator.load();
    buffer.reset(static_cast<unsigned char*>(allocate(static_cast<std::size_t>(size), 1)));
  }
  if (!buffer) {
    QVA_ERROR_TRACE(qva_text::kRecvMethod, qva_text::kCallocFailWhat, ERR_SOCKET_CALLOC, nullptr);
    return ERR_SOCKET_CALLOC;
  }

  if (TransferAll(qva_net::RecvSome, m_hSocket, buffer.get(), length) > 0) {
    QVA_ERROR_TRACE(qva_text::kRecvMethod, qva_text::kRecvFailWhat, ERR_SOCKET_RECV, nullptr);
    return ERR_SOCKET_RECV;
  }
  // A payload over what a ByteString holds cannot be stored: status 2.
  m_nErrorCode = length > static_cast<std::uint32_t>(INT32_MAX)
                     ? BS_NO_MEMORY
                     : m_bsRecvData.setData(buffer.get(), static_cast<int>(length));
  return m_nErrorCode;
}

void CSocketClient::Close() {
  qva_net::CloseSocket(m_hSocket);
  m_hSocket = qva_net::kInvalidSocket;
}
