// QVA_Verify round trips against a minimal in-process echo server on
// loopback, beside a bare TCP client doing the same connect, framed send,
// framed receive and close. The echo of a validation request whose first
// item is "0" is a valid answer meaning success, so both sides exchange the
// same bytes with the same server.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "libaibase/clroamingmessage.h"
#include "libaibase/clsecuremanager.h"
#include "libqvaclient/cbizqvaclient.h"
#include "qva/qva.h"
#include "tools/common/PosixIO.h"

namespace {

// Reads one frame (prefix included) into buf.
bool ReadFrame(int fd, std::vector<unsigned char>* buf) {
  buf->resize(4);
  if (!ReadExact(fd, buf->data(), 4)) return false;
  const std::size_t n =
      (std::size_t{(*buf)[0]} << 24) | (std::size_t{(*buf)[1]} << 16) | (std::size_t{(*buf)[2]} << 8) | (*buf)[3];
  buf->resize(4 + n);
  return ReadExact(fd, buf->data() + 4, n);
}

// Serves forever (the process ends with the benchmarks): each connection
// gets its own request frame back, then is closed.
class EchoServer {
 public:
  EchoServer() {
    m_fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in sa{};
    sa.sin_family = AF_INET;
    sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof sa;
    ::bind(m_fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa);
    ::listen(m_fd, 128);
    ::getsockname(m_fd, reinterpret_cast<sockaddr*>(&sa), &len);
    m_port = ntohs(sa.sin_port);
    std::thread([fd = m_fd] {
      std::vector<unsigned char> frame;
      for (;;) {
        const int c = ::accept(fd, nullptr, nullptr);
        if (c < 0) continue;
        if (ReadFrame(c, &frame)) WriteAll(c, frame.data(), frame.size());
        ::close(c);
      }
    }).detach();
  }
  int port() const { return m_port; }

 private:
  int m_fd = -1;
  int m_port = 0;
};

EchoServer& Server() {
  static EchoServer server;
  return server;
}

const unsigned char kData[] = "certificate-validation-request-data-0123456789";
constexpr int kDataLen = sizeof kData - 1;

void BM_VerifyOurs(benchmark::State& state) {
  void* client = nullptr;
  QVA_Initialize(&client, "127.0.0.1", Server().port(), "R");
  for (auto _ : state) {
    if (QVA_Verify(client, "0", kData, kDataLen) != 0) {
      state.SkipWithError("QVA_Verify failed");
      break;
    }
  }
  QVA_Release(client);
  state.SetItemsProcessed(state.iterations());
}

// The frame QVA_Verify sends, made once with the library's own classes.
std::vector<unsigned char> RequestFrame() {
  cBizQVAClient biz;
  ByteString body;
  biz.MakeRequestValidData(ByteString("0"), ByteString(kData, kDataLen), &body);
  const ByteString id("R");
  CLRoamingMessage roaming;
  roaming.MakeRoamingMessage(106, 0, &id, &id, &body);
  CLSecureManager manager(nullptr, nullptr);
  manager.MakePlainData(roaming.GetMessage());
  const ByteString& record = manager.GetOutput();
  const auto n = static_cast<std::uint32_t>(record.length());
  std::vector<unsigned char> frame = {static_cast<unsigned char>(n >> 24), static_cast<unsigned char>(n >> 16),
                                      static_cast<unsigned char>(n >> 8), static_cast<unsigned char>(n)};
  frame.insert(frame.end(), record.data(), record.data() + record.length());
  return frame;
}

void BM_VerifyBare(benchmark::State& state) {
  const std::vector<unsigned char> request = RequestFrame();
  std::vector<unsigned char> answer;
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  sa.sin_port = htons(static_cast<std::uint16_t>(Server().port()));
  for (auto _ : state) {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    const bool ok = ::connect(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) == 0 &&
                    WriteAll(fd, request.data(), request.size()) && ReadFrame(fd, &answer);
    ::close(fd);
    if (!ok || answer != request) {
      state.SkipWithError("bare exchange failed");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations());
}

}  // namespace

BENCHMARK(BM_VerifyOurs)->Name("verify_roundtrip/ours")->UseRealTime();
BENCHMARK(BM_VerifyBare)->Name("verify_roundtrip/bare")->UseRealTime();
