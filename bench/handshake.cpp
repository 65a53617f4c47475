// A complete secure-channel exchange over loopback: connect, the four
// handshake messages, one enciphered request and answer, disconnect
// (CSecureTunnel against a thread running CLSecureManager's server half),
// beside a TLS 1.2 handshake with the same RSA-2048 certificate and one
// request and answer over it (OpenSSL, RSA key transport so that both sides
// pay one RSA private-key operation per connection). Handshakes per second
// are the items per second of each row.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>

#include "libaibase/clsecuremanager.h"
#include "libqvaclient/csecuretunnel.h"
#include "bench/RsaIdentity.h"

namespace {

using Identity = BenchRsaIdentity;

const Identity& Server() {
  static const Identity id = MakeBenchRsaIdentity(7);
  return id;
}

int Listen(int* port) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t len = sizeof sa;
  ::bind(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa);
  ::listen(fd, 64);
  ::getsockname(fd, reinterpret_cast<sockaddr*>(&sa), &len);
  *port = ntohs(sa.sin_port);
  return fd;
}

bool ReadAll(int fd, unsigned char* p, std::size_t n) {
  for (ssize_t got; n > 0; p += got, n -= static_cast<std::size_t>(got))
    if ((got = ::recv(fd, p, n, 0)) <= 0) return false;
  return true;
}

bool ReadFrame(int fd, ByteString* out) {
  unsigned char prefix[4];
  if (!ReadAll(fd, prefix, 4)) return false;
  const std::size_t n = (std::size_t(prefix[0]) << 24) | (prefix[1] << 16) | (prefix[2] << 8) | prefix[3];
  std::string buf(n, '\0');
  if (n && !ReadAll(fd, reinterpret_cast<unsigned char*>(&buf[0]), n)) return false;
  *out = ByteString(buf.data(), static_cast<int>(n));
  return true;
}

void WriteFrame(int fd, const ByteString& payload) {
  std::string frame(4, '\0');
  for (int i = 0; i < 4; ++i) frame[i] = static_cast<char>(payload.length() >> (24 - 8 * i));
  frame.append(reinterpret_cast<const char*>(payload.data()), static_cast<std::size_t>(payload.length()));
  ::send(fd, frame.data(), frame.size(), MSG_NOSIGNAL);
}

// One connection: handshake records to the manager, application data echoed.
void ServeOurs(int fd) {
  CLSecureManager server(&Server().cert, &Server().key);
  for (ByteString record; ReadFrame(fd, &record);) {
    bool more = false;
    if (record.length() > 0 && record.data()[0] == 0x16) {
      if (server.ProcessHandshake(record, &more) != 0) break;
    } else if (server.ParseApplicationData(record) != 0 || server.MakeApplicationData(server.GetOutput()) != 0) {
      break;
    }
    WriteFrame(fd, server.GetOutput());
  }
  ::close(fd);
}

void BM_Handshake_Ours(benchmark::State& state) {
  Server();
  int port = 0;
  const int listener = Listen(&port);
  std::atomic<bool> stop{false};
  std::thread acceptor([&] {
    for (int fd; !stop && (fd = ::accept(listener, nullptr, nullptr)) >= 0;) ServeOurs(fd);
  });
  const ByteString host("127.0.0.1"), request("request body of one roaming message");
  for (auto _ : state) {
    CSecureTunnel tunnel;
    if (tunnel.Connect(host, port, host, port) != 0 || tunnel.ProcessHandshake() != 0 ||
        tunnel.ProcessApplicationData(request) != 0 || tunnel.GetResponse() != request) {
      state.SkipWithError("exchange failed");
      break;
    }
    tunnel.Disconnect();
  }
  stop = true;
  ::shutdown(listener, SHUT_RDWR);
  ::close(listener);
  acceptor.join();
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Handshake_Ours)->Name("handshake_loopback/ours")->UseRealTime();

void BM_Handshake_Tls12(benchmark::State& state) {
  const Identity& id = Server();
  SSL_CTX* sctx = SSL_CTX_new(TLS_server_method());
  SSL_CTX* cctx = SSL_CTX_new(TLS_client_method());
  for (SSL_CTX* c : {sctx, cctx}) {
    SSL_CTX_set_min_proto_version(c, TLS1_2_VERSION);
    SSL_CTX_set_max_proto_version(c, TLS1_2_VERSION);
    SSL_CTX_set_cipher_list(c, "AES128-SHA256");  // RSA key transport, as the envelope above
    SSL_CTX_set_session_cache_mode(c, SSL_SESS_CACHE_OFF);
  }
  SSL_CTX_use_certificate(sctx, id.x509);
  SSL_CTX_use_PrivateKey(sctx, id.pkey);
  int port = 0;
  const int listener = Listen(&port);
  std::atomic<bool> stop{false};
  std::thread acceptor([&] {
    for (int fd; !stop && (fd = ::accept(listener, nullptr, nullptr)) >= 0;) {
      SSL* ssl = SSL_new(sctx);
      SSL_set_fd(ssl, fd);
      char buf[256];
      int n;
      if (SSL_accept(ssl) == 1 && (n = SSL_read(ssl, buf, sizeof buf)) > 0) SSL_write(ssl, buf, n);
      SSL_shutdown(ssl);
      SSL_free(ssl);
      ::close(fd);
    }
  });
  const std::string request = "request body of one roaming message";
  for (auto _ : state) {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in sa{};
    sa.sin_family = AF_INET;
    sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    sa.sin_port = htons(static_cast<std::uint16_t>(port));
    SSL* ssl = SSL_new(cctx);
    char buf[256];
    bool ok = ::connect(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) == 0 && SSL_set_fd(ssl, fd) == 1 &&
              SSL_connect(ssl) == 1 && SSL_write(ssl, request.data(), static_cast<int>(request.size())) > 0 &&
              SSL_read(ssl, buf, sizeof buf) == static_cast<int>(request.size());
    SSL_shutdown(ssl);
    SSL_free(ssl);
    ::close(fd);
    if (!ok) {
      state.SkipWithError("TLS exchange failed");
      break;
    }
  }
  stop = true;
  ::shutdown(listener, SHUT_RDWR);
  ::close(listener);
  acceptor.join();
  SSL_CTX_free(sctx);
  SSL_CTX_free(cctx);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Handshake_Tls12)->Name("handshake_loopback/openssl_tls12")->UseRealTime();

}  // namespace
