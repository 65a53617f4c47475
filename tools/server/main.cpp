// qva-server: the validation server. One event-loop thread reads and writes
// the framed records of every connection; a bounded pool of workers decides
// the requests (path validation, registration). See docs/server.md.
#include <CLI/CLI.hpp>
#include <asio.hpp>

#include <signal.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "base/QSBase.h"
#include "tools/server/Registry.h"
#include "tools/server/Session.h"
#include "tools/server/TrustStore.h"

namespace {

using asio::ip::tcp;
using Clock = std::chrono::steady_clock;

struct Limits {
  std::uint32_t maxFrame = 1u << 20;
  int readTimeoutMs = 10000;
  std::size_t maxConnections = 256;
};

class Server;

class Connection : public std::enable_shared_from_this<Connection> {
 public:
  Connection(Server* server, tcp::socket socket);
  void Start() { ReadHeader(); }
  void Close();
  bool busy() const { return busy_; }

 private:
  void ReadHeader();
  void ReadBody(std::uint32_t n);
  void Process();
  void Arm();

  Server* server_;
  tcp::socket socket_;
  asio::steady_timer deadline_;
  std::string peer_;
  unsigned char header_[4] = {};
  std::vector<unsigned char> body_;
  std::vector<unsigned char> out_;
  qvaserver::Session session_;
  bool busy_ = false;
};

class Server {
 public:
  Server(asio::io_context& io, const tcp::endpoint& at, std::size_t workers, const Limits& limits,
         const qvaserver::Services& services)
      : io_(io), acceptor_(io, at), pool_(workers), limits_(limits), services_(services) {}

  unsigned short port() const { return acceptor_.local_endpoint().port(); }
  void Accept();
  void Stop();
  void Forget(Connection* c) { live_.erase(c); }
  bool stopping() const { return stopping_; }
  asio::io_context& io() { return io_; }
  asio::thread_pool& pool() { return pool_; }
  const Limits& limits() const { return limits_; }
  const qvaserver::Services& services() const { return services_; }
  void Join() { pool_.join(); }

 private:
  asio::io_context& io_;
  tcp::acceptor acceptor_;
  asio::thread_pool pool_;
  Limits limits_;
  qvaserver::Services services_;
  std::set<Connection*> live_;
  std::vector<std::weak_ptr<Connection>> all_;
  asio::steady_timer retry_{io_};
  bool stopping_ = false;
  friend class Connection;
};

std::string Now() {
  const auto t = std::chrono::system_clock::now();
  const std::time_t s = std::chrono::system_clock::to_time_t(t);
  const long ms =
      static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(t.time_since_epoch()).count() % 1000);
  std::tm tm{};
  gmtime_r(&s, &tm);
  char buf[96];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02dT%02d:%02d:%02d.%03ldZ", tm.tm_year + 1900, tm.tm_mon + 1,
                tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec, ms);
  return buf;
}

void AccessLog(const std::string& peer, const qvaserver::RequestLog& log, long long micros) {
  std::printf("%s %s type=%d kind=%s verdict=%s us=%lld%s%s\n", Now().c_str(), peer.c_str(), log.type,
              log.kind.c_str(), log.verdict.c_str(), micros, log.note.empty() ? "" : " note=", log.note.c_str());
}

Connection::Connection(Server* server, tcp::socket socket)
    : server_(server), socket_(std::move(socket)), deadline_(server->io()), session_(server->services()) {
  asio::error_code ec;
  const auto ep = socket_.remote_endpoint(ec);
  peer_ = ec ? "?" : ep.address().to_string() + ":" + std::to_string(ep.port());
}

void Connection::Close() {
  asio::error_code ec;
  deadline_.cancel();
  socket_.shutdown(tcp::socket::shutdown_both, ec);
  socket_.close(ec);
}

// A client that does not send a whole frame in time, or does not take its
// answer in as long, is dropped.
void Connection::Arm() {
  auto self = shared_from_this();
  deadline_.expires_after(std::chrono::milliseconds(server_->limits().readTimeoutMs));
  deadline_.async_wait([self](const asio::error_code& ec) {
    if (!ec) self->Close();
  });
}

void Connection::ReadHeader() {
  if (server_->stopping()) return Close();
  auto self = shared_from_this();
  Arm();
  asio::async_read(socket_, asio::buffer(header_), [self](const asio::error_code& ec, std::size_t) {
    if (ec) return self->Close();
    const std::uint32_t n = (std::uint32_t{self->header_[0]} << 24) | (std::uint32_t{self->header_[1]} << 16) |
                            (std::uint32_t{self->header_[2]} << 8) | self->header_[3];
    // The announced length is checked before anything is allocated for it.
    if (n == 0 || n > self->server_->limits().maxFrame) {
      qvaserver::RequestLog log;
      log.verdict = "dropped: frame of " + std::to_string(n) + " bytes";
      AccessLog(self->peer_, log, 0);
      return self->Close();
    }
    self->body_.clear();
    self->ReadBody(n);
  });
}

// The body grows as its bytes arrive, so an announced length costs memory
// only once the client has sent that much.
void Connection::ReadBody(std::uint32_t n) {
  auto self = shared_from_this();
  constexpr std::size_t kChunk = 64 * 1024;
  const std::size_t have = body_.size();
  const std::size_t chunk = std::min<std::size_t>(n - have, kChunk);
  body_.resize(have + chunk);
  asio::async_read(socket_, asio::buffer(body_.data() + have, chunk),
                   [self, n](const asio::error_code& ec, std::size_t) {
                     if (ec) return self->Close();
                     if (self->body_.size() < n) return self->ReadBody(n);
                     self->deadline_.cancel();
                     self->Process();
                   });
}

void Connection::Process() {
  auto self = shared_from_this();
  busy_ = true;
  asio::post(server_->pool(), [self] {
    const auto start = Clock::now();
    qvaserver::RequestLog log;
    const ByteString record(self->body_.data(), static_cast<int>(self->body_.size()));
    // An idle connection does not keep its largest frame's buffer.
    std::vector<unsigned char>().swap(self->body_);
    const ByteString answer = self->session_.Handle(record, &log);
    const long long micros =
        std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
    std::vector<unsigned char> out(4 + static_cast<std::size_t>(answer.length()));
    const auto n = static_cast<std::uint32_t>(answer.length());
    out[0] = static_cast<unsigned char>(n >> 24);
    out[1] = static_cast<unsigned char>(n >> 16);
    out[2] = static_cast<unsigned char>(n >> 8);
    out[3] = static_cast<unsigned char>(n);
    if (n) std::copy(answer.data(), answer.data() + n, out.begin() + 4);
    asio::post(self->server_->io(), [self, log, micros, out = std::move(out)]() mutable {
      AccessLog(self->peer_, log, micros);
      self->out_ = std::move(out);
      // A peer that never reads would otherwise hold the connection forever.
      self->Arm();
      asio::async_write(self->socket_, asio::buffer(self->out_), [self](const asio::error_code& ec, std::size_t) {
        self->busy_ = false;
        self->deadline_.cancel();
        if (ec) return self->Close();
        self->ReadHeader();
      });
    });
  });
}

void Server::Accept() {
  acceptor_.async_accept([this](const asio::error_code& ec, tcp::socket socket) {
    if (ec == asio::error::operation_aborted || !acceptor_.is_open()) return;  // the acceptor was closed
    if (ec) {
      // Out of descriptors or memory: the pending connection stays queued, so
      // accepting resumes after a pause instead of spinning or stopping for good.
      retry_.expires_after(std::chrono::milliseconds(50));
      retry_.async_wait([this](const asio::error_code& e) {
        if (!e && !stopping_) Accept();
      });
      return;
    }
    // Expired connections are forgotten before counting the live ones.
    std::vector<std::weak_ptr<Connection>> kept;
    for (auto& w : all_)
      if (!w.expired()) kept.push_back(w);
    all_.swap(kept);
    if (all_.size() >= limits_.maxConnections) {
      asio::error_code ignored;
      socket.close(ignored);
    } else {
      auto c = std::make_shared<Connection>(this, std::move(socket));
      all_.push_back(c);
      c->Start();
    }
    Accept();
  });
}

// Stops accepting, closes the connections waiting for a request and lets the
// ones being answered finish their answer.
void Server::Stop() {
  stopping_ = true;
  asio::error_code ec;
  acceptor_.close(ec);
  retry_.cancel();
  for (auto& w : all_)
    if (auto c = w.lock())
      if (!c->busy()) c->Close();
}

bool ReadBytes(const std::string& path, int pemType, ByteString* out) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::string s((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const ByteString raw(s.data(), static_cast<int>(s.size()));
  if (s.rfind("-----BEGIN", 0) == 0) return QSBase::pemDecode(pemType, raw, out) == PEM_OK;
  *out = raw;
  return true;
}

// A database URI as it may be printed: without the password of its user
// part or of a password= parameter.
std::string Redacted(std::string where) {
  const std::size_t scheme = where.find("://");
  const std::size_t at = where.find('@');
  const std::size_t colon = scheme == std::string::npos ? std::string::npos : where.find(':', scheme + 3);
  if (at != std::string::npos && colon < at) where = where.substr(0, colon + 1) + "***" + where.substr(at);
  const std::size_t query = where.find('?');
  for (std::size_t p = where.find("password=", query); query != std::string::npos && p != std::string::npos;
       p = where.find("password=", p + 1)) {
    const std::size_t value = p + 9, end = std::min(where.find('&', value), where.size());
    if (where[p - 1] == '?' || where[p - 1] == '&') where.replace(value, end - value, "***");
  }
  return where;
}

// --time: seconds since 1970 or a GeneralizedTime text (YYYYMMDDhhmmssZ).
bool ParseTime(const std::string& text, std::time_t* out) {
  if (!text.empty() && text.find_first_not_of("0123456789") == std::string::npos && text.size() <= 12) {
    *out = static_cast<std::time_t>(std::stoll(text));
    return true;
  }
  ASN1GeneralizedTime t;
  if (t.checkGMTTime(text.c_str(), static_cast<int>(text.size())) != 0) return false;
  *out = t.getGMTTime();
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app;
  app.name("qva-server");
  // Each option and its text on one line: the help is read by people and by the manual page check.
  app.get_formatter()->column_width(56);
  std::string listen = "127.0.0.1";
  int port = 0;
  qvaserver::ValidatorConfig config;
  std::string database, certFile, keyFile, timeText;
  std::size_t workers = 2;
  Limits limits;
  app.set_version_flag("--version", std::string("qva-server ") + QVA_VERSION);
  app.add_option("--listen", listen, "address to listen on")->capture_default_str();
  app.add_option("--port", port, "port to listen on; 0 picks a free one (printed at start)")
      ->check(CLI::Range(0, 65535))
      ->capture_default_str();
  app.add_option("--anchors", config.anchorDir, "directory of trust anchors (DER or PEM)")->required();
  app.add_option("--intermediates", config.intermediateDir, "directory of intermediate CA certificates");
  app.add_option("--crls", config.crlDir, "directory of CRLs; without it revocation is not checked");
  app.add_option("--db", database, "registered certificates: SQLite file, or postgresql:// URI shared by servers");
  app.add_option("--cert", certFile, "server certificate for the handshake (DER or PEM)");
  app.add_option("--key", keyFile, "server private key for the handshake (PKCS#8, DER or PEM)");
  app.add_option("--policy", config.policies, "accepted certificate policy OID (repeatable); default any");
  app.add_option("--workers", workers, "worker threads deciding requests")
      ->check(CLI::Range(1, 256))
      ->capture_default_str();
  app.add_option("--max-connections", limits.maxConnections, "connections served at once")
      ->check(CLI::Range(1, 100000))
      ->capture_default_str();
  app.add_option("--max-frame", limits.maxFrame, "largest request frame in bytes")
      ->check(CLI::Range(16u, 64u << 20))
      ->capture_default_str();
  app.add_option("--read-timeout", limits.readTimeoutMs, "milliseconds a client has to send a whole frame")
      ->check(CLI::Range(10, 3600000))
      ->capture_default_str();
  app.add_option("--time", timeText, "validate at this time (seconds since 1970 or YYYYMMDDhhmmssZ)");
  CLI11_PARSE(app, argc, argv);

  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  // A peer that resets mid-answer must cost its connection, not the process.
  ::signal(SIGPIPE, SIG_IGN);
  if (!timeText.empty() && !ParseTime(timeText, &config.fixedTime)) {
    std::fprintf(stderr, "qva-server: --time %s is not a time\n", timeText.c_str());
    return 2;
  }
  if (certFile.empty() != keyFile.empty()) {
    std::fprintf(stderr, "qva-server: --cert and --key go together\n");
    return 2;
  }
  qvaserver::TrustStore trust;
  std::string error;
  if (!trust.Load(config, &error)) {
    std::fprintf(stderr, "qva-server: %s\n", error.c_str());
    return 1;
  }
  // Each worker holds at most one database connection at a time.
  std::unique_ptr<qvaserver::Registry> registry;
  if (!database.empty() && !(registry = qvaserver::Registry::Open(database, workers, &error))) {
    std::fprintf(stderr, "qva-server: %s: %s\n", Redacted(database).c_str(), error.c_str());
    return 1;
  }
  ByteString certificate, privateKey;
  if (!certFile.empty() && (!ReadBytes(certFile, PEM_CERTIFICATE, &certificate) ||
                            !ReadBytes(keyFile, PEM_PRIVATE_KEY, &privateKey))) {
    std::fprintf(stderr, "qva-server: cannot read %s or %s\n", certFile.c_str(), keyFile.c_str());
    return 1;
  }
  qvaserver::Services services;
  services.trust = &trust;
  services.registry = registry.get();
  if (!certFile.empty()) {
    services.certificate = &certificate;
    services.privateKey = &privateKey;
  }

  try {
    asio::io_context io(1);
    Server server(io, tcp::endpoint(asio::ip::make_address(listen), static_cast<unsigned short>(port)), workers,
                  limits, services);
    asio::signal_set signals(io, SIGINT, SIGTERM);
    signals.async_wait([&](const asio::error_code& ec, int) {
      if (!ec) server.Stop();
    });
    std::printf("listening on %s:%u\n", listen.c_str(), server.port());
    std::fprintf(stderr, "qva-server: %zu anchor(s), %zu intermediate(s), revocation %s, %zu worker(s)\n",
                 trust.Current()->AnchorCount(), trust.Current()->IntermediateCount(),
                 config.crlDir.empty() ? "not checked" : "from CRLs", workers);
    server.Accept();
    io.run();
    server.Join();
    std::printf("stopped\n");
  } catch (const std::exception& e) {
    std::fprintf(stderr, "qva-server: %s\n", e.what());
    return 1;
  }
  return 0;
}
