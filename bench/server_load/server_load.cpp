// Load generator for qva-server: validations per second of a three-certificate
// RSA-2048 path (root, intermediate, leaf) whose issuer CRL holds 10,000
// entries, with 1, 2 and 8 client threads through QVA_Verify, beside the bare
// RSA-2048 verifications the path needs and a bare loopback
// connect-send-receive exchange, all in the same run. Then registrations per
// second (each a new certificate, ECDSA P-256 under its own anchor) through
// QVA_RegisterCert with 8 client threads, into SQLite and into PostgreSQL,
// with 1 and 2 servers on the one database, and validations per second with
// 2 servers.
//
//   server_load [--server PATH] [--seconds S] [--workers N] [--keep DIR] [--pg URI]
//
// --keep DIR writes the fixture there and leaves it; otherwise a temporary
// directory is used and removed. --pg URI registers into that PostgreSQL
// database; otherwise a throwaway cluster is made with initdb (the
// PostgreSQL rows are left out, with a line saying why, when it cannot be).
//
// The fixture is made here with libcrypto, the server is started by fork/exec
// on port 0 and stopped with SIGTERM to its pid.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <openssl/bn.h>
#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "qva/qva.h"
#include "tests/support/PgCluster.h"

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "server_load: %s\n", what.c_str());
  std::exit(1);
}

EVP_PKEY* NewRsaKey() {
  EVP_PKEY* key = EVP_RSA_gen(2048);
  if (key == nullptr) Fail("RSA key generation failed");
  return key;
}

void AddExt(X509* cert, X509* issuer, int nid, const char* value) {
  X509V3_CTX ctx;
  X509V3_set_ctx(&ctx, issuer, cert, nullptr, nullptr, 0);
  X509_EXTENSION* ext = X509V3_EXT_conf_nid(nullptr, &ctx, nid, value);
  if (ext == nullptr || X509_add_ext(cert, ext, -1) != 1) Fail("extension failed");
  X509_EXTENSION_free(ext);
}

X509_NAME* Name(const char* cn) {
  X509_NAME* name = X509_NAME_new();
  X509_NAME_add_entry_by_txt(name, "C", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("KR"), -1, -1, 0);
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>(cn), -1, -1, 0);
  return name;
}

// A certificate valid from a day ago for a year; issuer null means self-signed.
X509* MakeCert(const char* cn, long serial, EVP_PKEY* key, X509* issuer, EVP_PKEY* issuerKey, bool ca) {
  X509* cert = X509_new();
  X509_set_version(cert, 2);
  ASN1_INTEGER_set(X509_get_serialNumber(cert), serial);
  X509_NAME* subject = Name(cn);
  X509_set_subject_name(cert, subject);
  X509_set_issuer_name(cert, issuer != nullptr ? X509_get_subject_name(issuer) : subject);
  X509_NAME_free(subject);
  X509_gmtime_adj(X509_getm_notBefore(cert), -86400);
  X509_gmtime_adj(X509_getm_notAfter(cert), 365L * 86400);
  X509_set_pubkey(cert, key);
  X509* signer = issuer != nullptr ? issuer : cert;
  AddExt(cert, signer, NID_basic_constraints, ca ? "critical,CA:TRUE" : "critical,CA:FALSE");
  AddExt(cert, signer, NID_key_usage, ca ? "critical,keyCertSign,cRLSign" : "critical,digitalSignature");
  if (X509_sign(cert, issuerKey != nullptr ? issuerKey : key, EVP_sha256()) <= 0) Fail("certificate signing failed");
  return cert;
}

// A CRL of issuer with entries serials 1,000,000 .. 1,000,000+count-1, none
// of them a certificate of the path.
X509_CRL* MakeCrl(X509* issuer, EVP_PKEY* key, int count) {
  X509_CRL* crl = X509_CRL_new();
  X509_CRL_set_version(crl, 1);
  X509_CRL_set_issuer_name(crl, X509_get_subject_name(issuer));
  ASN1_TIME* t = X509_gmtime_adj(nullptr, -3600);
  X509_CRL_set1_lastUpdate(crl, t);
  X509_gmtime_adj(t, 30L * 86400);
  X509_CRL_set1_nextUpdate(crl, t);
  X509_gmtime_adj(t, -7200);
  for (int i = 0; i < count; ++i) {
    X509_REVOKED* entry = X509_REVOKED_new();
    ASN1_INTEGER* serial = ASN1_INTEGER_new();
    ASN1_INTEGER_set(serial, 1000000L + i);
    X509_REVOKED_set_serialNumber(entry, serial);
    X509_REVOKED_set_revocationDate(entry, t);
    ASN1_INTEGER_free(serial);
    X509_CRL_add0_revoked(crl, entry);
  }
  ASN1_TIME_free(t);
  X509_CRL_sort(crl);
  if (X509_CRL_sign(crl, key, EVP_sha256()) <= 0) Fail("CRL signing failed");
  return crl;
}

template <typename T, typename F>
std::vector<unsigned char> Der(T* object, F encode) {
  const int n = encode(object, nullptr);
  if (n <= 0) Fail("DER encoding failed");
  std::vector<unsigned char> der(static_cast<std::size_t>(n));
  unsigned char* p = der.data();
  encode(object, &p);
  return der;
}

void WriteFile(const std::string& path, const std::vector<unsigned char>& bytes) {
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!out) Fail("cannot write " + path);
}

struct Fixture {
  std::string dir;
  std::vector<unsigned char> leaf;
  std::vector<unsigned char> revokedLeaf;  // its serial is the CRL's first entry
  X509* rootCert = nullptr;
  X509* interCert = nullptr;
  X509* leafCert = nullptr;
  EVP_PKEY* rootKey = nullptr;
  EVP_PKEY* interKey = nullptr;
  X509* regCert = nullptr;  // the anchor of the registered certificates
  EVP_PKEY* regKey = nullptr;
};

Fixture MakeFixture(const std::string& keep, int crlEntries) {
  Fixture f;
  if (!keep.empty()) {
    f.dir = keep;
  } else {
    char tmpl[] = "/tmp/qva_server_load.XXXXXX";
    if (::mkdtemp(tmpl) == nullptr) Fail("mkdtemp failed");
    f.dir = tmpl;
  }
  for (const char* sub : {"/anchors", "/intermediates", "/crls"}) ::mkdir((f.dir + sub).c_str(), 0700);
  f.rootKey = NewRsaKey();
  f.interKey = NewRsaKey();
  EVP_PKEY* leafKey = NewRsaKey();
  f.rootCert = MakeCert("Load Root CA", 1, f.rootKey, nullptr, nullptr, true);
  f.interCert = MakeCert("Load Intermediate CA", 2, f.interKey, f.rootCert, f.rootKey, true);
  f.leafCert = MakeCert("Load Leaf", 3, leafKey, f.interCert, f.interKey, false);
  X509* revoked = MakeCert("Load Revoked Leaf", 1000000, leafKey, f.interCert, f.interKey, false);
  f.revokedLeaf = Der(revoked, i2d_X509);
  X509_free(revoked);
  EVP_PKEY_free(leafKey);
  X509_CRL* rootCrl = MakeCrl(f.rootCert, f.rootKey, 1);
  X509_CRL* interCrl = MakeCrl(f.interCert, f.interKey, crlEntries);
  WriteFile(f.dir + "/anchors/root.der", Der(f.rootCert, i2d_X509));
  WriteFile(f.dir + "/intermediates/inter.der", Der(f.interCert, i2d_X509));
  WriteFile(f.dir + "/crls/root.crl", Der(rootCrl, i2d_X509_CRL));
  WriteFile(f.dir + "/crls/inter.crl", Der(interCrl, i2d_X509_CRL));
  f.leaf = Der(f.leafCert, i2d_X509);
  WriteFile(f.dir + "/leaf.der", f.leaf);
  WriteFile(f.dir + "/revoked.der", f.revokedLeaf);
  X509_CRL_free(rootCrl);
  X509_CRL_free(interCrl);
  f.regKey = EVP_EC_gen("P-256");
  if (f.regKey == nullptr) Fail("EC key generation failed");
  f.regCert = MakeCert("Load Registration CA", 4, f.regKey, nullptr, nullptr, true);
  X509_CRL* regCrl = MakeCrl(f.regCert, f.regKey, 1);
  WriteFile(f.dir + "/anchors/registration.der", Der(f.regCert, i2d_X509));
  WriteFile(f.dir + "/crls/registration.crl", Der(regCrl, i2d_X509_CRL));
  X509_CRL_free(regCrl);
  return f;
}

// n distinct leaves under the registration anchor (one key, serials from 10).
std::vector<std::vector<unsigned char>> RegistrationLeaves(const Fixture& f, int n) {
  EVP_PKEY* key = EVP_EC_gen("P-256");
  if (key == nullptr) Fail("EC key generation failed");
  std::vector<std::vector<unsigned char>> leaves;
  leaves.reserve(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    X509* cert = MakeCert("Load Registered Leaf", 10L + i, key, f.regCert, f.regKey, false);
    leaves.push_back(Der(cert, i2d_X509));
    X509_free(cert);
  }
  EVP_PKEY_free(key);
  return leaves;
}

// qva-server on port 0, its standard output in a file read for the port.
struct Server {
  pid_t pid = -1;
  int port = 0;
};

Server StartServer(const std::string& binary, const Fixture& f, int workers, const std::vector<std::string>& extra = {},
                   int index = 0) {
  const std::string log = f.dir + "/server" + std::to_string(index) + ".out";
  const std::string anchors = f.dir + "/anchors", inters = f.dir + "/intermediates", crls = f.dir + "/crls";
  const std::string workerText = std::to_string(workers);
  Server s;
  // A log left by an earlier server of this index would give its port.
  std::remove(log.c_str());
  s.pid = ::fork();
  if (s.pid < 0) Fail("fork failed");
  if (s.pid == 0) {
    // The server goes with this process however it ends.
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    std::FILE* out = std::freopen(log.c_str(), "w", stdout);
    if (out == nullptr) _exit(127);
    std::vector<const char*> argv = {binary.c_str(), "--listen", "127.0.0.1", "--port", "0", "--anchors",
                                     anchors.c_str(), "--intermediates", inters.c_str(), "--crls", crls.c_str(),
                                     "--workers", workerText.c_str(), "--max-connections", "1024"};
    for (const auto& e : extra) argv.push_back(e.c_str());
    argv.push_back(nullptr);
    ::execv(binary.c_str(), const_cast<char* const*>(argv.data()));
    _exit(127);
  }
  for (int i = 0; i < 500 && s.port == 0; ++i) {
    std::ifstream in(log);
    std::string line;
    while (std::getline(in, line)) {
      const auto colon = line.rfind(':');
      if (line.rfind("listening on ", 0) == 0 && colon != std::string::npos) s.port = std::atoi(line.c_str() + colon + 1);
    }
    int status = 0;
    if (s.port == 0 && ::waitpid(s.pid, &status, WNOHANG) == s.pid) Fail("qva-server exited at start (" + binary + ")");
    if (s.port == 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  if (s.port == 0) Fail("qva-server printed no port");
  return s;
}

void StopServer(const Server& s) {
  ::kill(s.pid, SIGTERM);
  int status = 0;
  ::waitpid(s.pid, &status, 0);
}

// One row: operations per second and the p50/p99 latency of single operations.
struct Row {
  double rate = 0;
  double p50us = 0;
  double p99us = 0;
  long failures = 0;
};

// Runs op on `threads` threads for `seconds`; op(thread) returns false on failure.
Row Measure(int threads, double seconds, const std::function<bool(int)>& op) {
  std::vector<std::vector<double>> lat(static_cast<std::size_t>(threads));
  std::vector<long> fails(static_cast<std::size_t>(threads), 0);
  std::atomic<bool> stop{false};
  std::vector<std::thread> pool;
  const auto start = Clock::now();
  for (int t = 0; t < threads; ++t) {
    pool.emplace_back([&, t] {
      auto& mine = lat[static_cast<std::size_t>(t)];
      mine.reserve(1 << 16);
      while (!stop.load(std::memory_order_relaxed)) {
        const auto a = Clock::now();
        const bool ok = op(t);
        mine.push_back(std::chrono::duration<double, std::micro>(Clock::now() - a).count());
        if (!ok) ++fails[static_cast<std::size_t>(t)];
      }
    });
  }
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  stop = true;
  for (auto& th : pool) th.join();
  const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();
  std::vector<double> all;
  for (auto& v : lat) all.insert(all.end(), v.begin(), v.end());
  Row row;
  for (long n : fails) row.failures += n;
  if (all.empty()) return row;
  std::sort(all.begin(), all.end());
  row.rate = static_cast<double>(all.size()) / elapsed;
  row.p50us = all[all.size() / 2];
  row.p99us = all[std::min(all.size() - 1, all.size() * 99 / 100)];
  return row;
}

void Print(const std::string& name, int threads, const Row& row) {
  std::printf("%-38s %3d %12.0f %10.1f %10.1f %8ld\n", name.c_str(), threads, row.rate, row.p50us, row.p99us,
              row.failures);
  std::fflush(stdout);
}

// Serves each connection one echo of a 4-byte-length frame; runs until exit.
int StartEcho() {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t len = sizeof sa;
  if (::bind(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) != 0 || ::listen(fd, 1024) != 0) Fail("echo bind");
  ::getsockname(fd, reinterpret_cast<sockaddr*>(&sa), &len);
  std::thread([fd] {
    std::vector<unsigned char> buf(65536);
    for (;;) {
      const int c = ::accept(fd, nullptr, nullptr);
      if (c < 0) continue;
      const ssize_t n = ::recv(c, buf.data(), buf.size(), 0);
      if (n > 0) (void)::send(c, buf.data(), static_cast<std::size_t>(n), MSG_NOSIGNAL);
      ::close(c);
    }
  }).detach();
  return ntohs(sa.sin_port);
}

bool EchoOnce(int port, const std::vector<unsigned char>& msg) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  sa.sin_port = htons(static_cast<std::uint16_t>(port));
  bool ok = ::connect(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) == 0 &&
            ::send(fd, msg.data(), msg.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(msg.size());
  std::vector<unsigned char> back(msg.size());
  std::size_t got = 0;
  while (ok && got < back.size()) {
    const ssize_t n = ::recv(fd, back.data() + got, back.size() - got, 0);
    if (n <= 0) ok = false;
    else got += static_cast<std::size_t>(n);
  }
  ::close(fd);
  return ok && back == msg;
}

}  // namespace

int main(int argc, char** argv) {
  // A closed output pipe must not end the run before the server is stopped.
  ::signal(SIGPIPE, SIG_IGN);
  std::string server = QVA_SERVER_BINARY;
  std::string keep, pgUri;
  double seconds = 3;
  int workers = 2;
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string opt = argv[i];
    if (opt == "--server") server = argv[i + 1];
    else if (opt == "--seconds") seconds = std::atof(argv[i + 1]);
    else if (opt == "--workers") workers = std::atoi(argv[i + 1]);
    else if (opt == "--keep") keep = argv[i + 1];
    else if (opt == "--pg") pgUri = argv[i + 1];
    else Fail("unknown option " + opt);
  }
  const int kCrlEntries = 10000;
  Fixture f = MakeFixture(keep, kCrlEntries);
  Server s = StartServer(server, f, workers);
  std::printf("fixture %s, CRL entries %d, qva-server pid %d port %d workers %d, %.1f s per row\n", f.dir.c_str(),
              kCrlEntries, static_cast<int>(s.pid), s.port, workers, seconds);

  // One validation first: the run is meaningless unless the leaf answers 0
  // and a leaf listed in the CRL answers 5008 (the CRL is in effect).
  {
    void* client = nullptr;
    if (QVA_Initialize(&client, "127.0.0.1", s.port, "load") != 0) Fail("QVA_Initialize failed");
    const int revokedRc =
        QVA_Verify(client, "CERT", f.revokedLeaf.data(), static_cast<int>(f.revokedLeaf.size()));
    const int rc = QVA_Verify(client, "CERT", f.leaf.data(), static_cast<int>(f.leaf.size()));
    if (revokedRc != 5008) {
      QVA_Release(client);
      StopServer(s);
      Fail("the revoked leaf answered " + std::to_string(revokedRc) + " instead of 5008");
    }
    if (rc != 0) {
      char text[1024];
      int len = sizeof text;
      if (QVA_GetDetailErrorMsg(client, text, &len) != 0) len = 0;
      QVA_Release(client);
      StopServer(s);
      Fail("first validation answered " + std::to_string(rc) + ": " + std::string(text, static_cast<std::size_t>(len)));
    }
    QVA_Release(client);
  }

  std::printf("%-38s %3s %12s %10s %10s %8s\n", "case", "thr", "ops/s", "p50 us", "p99 us", "failed");
  for (int threads : {1, 2, 8}) {
    std::vector<void*> clients(static_cast<std::size_t>(threads));
    for (auto& c : clients)
      if (QVA_Initialize(&c, "127.0.0.1", s.port, "load") != 0) Fail("QVA_Initialize failed");
    const Row row = Measure(threads, seconds, [&](int t) {
      return QVA_Verify(clients[static_cast<std::size_t>(t)], "CERT", f.leaf.data(), static_cast<int>(f.leaf.size())) ==
             0;
    });
    for (auto* c : clients) QVA_Release(c);
    Print("validation (QVA_Verify, qva-server)", threads, row);
  }
  StopServer(s);

  // The two RSA-2048 signatures of the path (leaf by intermediate,
  // intermediate by root), verified by libcrypto.
  EVP_PKEY* interPub = X509_get_pubkey(f.interCert);
  EVP_PKEY* rootPub = X509_get_pubkey(f.rootCert);
  for (int threads : {1, 2, 8}) {
    const Row row = Measure(threads, seconds, [&](int) {
      return X509_verify(f.leafCert, interPub) == 1 && X509_verify(f.interCert, rootPub) == 1;
    });
    Print("path's 2 RSA-2048 verifies (OpenSSL)", threads, row);
  }

  const int echoPort = StartEcho();
  const std::vector<unsigned char> msg(f.leaf.begin(), f.leaf.end());
  for (int threads : {1, 2, 8}) {
    const Row row = Measure(threads, seconds, [&](int) { return EchoOnce(echoPort, msg); });
    Print("loopback connect-send-receive", threads, row);
  }
  EVP_PKEY_free(interPub);
  EVP_PKEY_free(rootPub);

  // Registrations: every one a certificate not registered before, so that
  // each answer waits for a committed new row.
  const int kClientThreads = 8;
  const auto leaves = RegistrationLeaves(f, static_cast<int>(4 * seconds * 4000) + 2000);
  std::atomic<std::size_t> nextLeaf{0};
  // Durability as shipped (fsync on), like the SQLite rows' synchronous FULL.
  // Static: a Fail() (std::exit) still stops and removes it.
  static qvatest::PgCluster cluster;
  if (pgUri.empty()) {
    std::string error;
    if (cluster.Start(&error, true)) pgUri = cluster.Uri();
    else std::printf("PostgreSQL rows left out: %s\n", error.c_str());
  }
  struct Backend {
    const char* name;
    std::string db;
  };
  std::vector<Backend> backends = {{"SQLite", f.dir + "/registry.db"}};
  if (!pgUri.empty()) backends.push_back({"PostgreSQL", pgUri});
  for (const Backend& b : backends) {
    for (int count : {1, 2}) {
      std::vector<Server> servers;
      for (int i = 0; i < count; ++i) servers.push_back(StartServer(server, f, workers, {"--db", b.db}, i + 1));
      std::vector<void*> clients(kClientThreads);
      for (std::size_t t = 0; t < clients.size(); ++t)
        if (QVA_Initialize(&clients[t], "127.0.0.1", servers[t % servers.size()].port, "load") != 0)
          Fail("QVA_Initialize failed");
      const Row row = Measure(kClientThreads, seconds, [&](int t) {
        const std::size_t i = nextLeaf++;
        if (i >= leaves.size()) return false;  // the pool ran out: counted as failures
        return QVA_RegisterCert(clients[static_cast<std::size_t>(t)], leaves[i].data(),
                                static_cast<int>(leaves[i].size())) == 0;
      });
      for (auto* c : clients) QVA_Release(c);
      for (const Server& sv : servers) StopServer(sv);
      Print(std::string("registration, ") + b.name + ", " + std::to_string(count) + " server" + (count > 1 ? "s" : ""),
            kClientThreads, row);
    }
  }

  // Validations spread over two servers (sharing the last database).
  {
    std::vector<Server> servers;
    for (int i = 0; i < 2; ++i) servers.push_back(StartServer(server, f, workers, {"--db", backends.back().db}, i + 1));
    std::vector<void*> clients(kClientThreads);
    for (std::size_t t = 0; t < clients.size(); ++t)
      if (QVA_Initialize(&clients[t], "127.0.0.1", servers[t % 2].port, "load") != 0) Fail("QVA_Initialize failed");
    const Row row = Measure(kClientThreads, seconds, [&](int t) {
      return QVA_Verify(clients[static_cast<std::size_t>(t)], "CERT", f.leaf.data(), static_cast<int>(f.leaf.size())) ==
             0;
    });
    for (auto* c : clients) QVA_Release(c);
    for (const Server& sv : servers) StopServer(sv);
    Print("validation (QVA_Verify), 2 servers", kClientThreads, row);
  }
  if (keep.empty()) std::filesystem::remove_all(f.dir);
  return 0;
}
