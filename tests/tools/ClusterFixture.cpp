#include "tests/tools/ClusterFixture.h"

#include <fcntl.h>
#include <grp.h>
#include <openssl/evp.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>
#include <pwd.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "libaibase/clroamingmessage.h"
#include "libqvaclient/csecuretunnel.h"
#include "tests/support/TestUtil.h"
#include "tools/server/Session.h"
#ifdef QVA_WITH_POSTGRESQL
#include <libpq-fe.h>
#endif

namespace qvatest {
namespace {

using Clock = std::chrono::steady_clock;

// Runs argv as the cluster's owner in dir, output appended to dir/commands.log;
// killed after `seconds`. True when it exits with 0.
bool RunAsOwner(const std::vector<std::string>& args, const std::string& dir, int seconds) {
  const pid_t pid = ::fork();
  if (pid < 0) return false;
  if (pid == 0) {
    const int log = ::open((dir + "/commands.log").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (log >= 0) {
      ::dup2(log, 1);
      ::dup2(log, 2);
    }
    // PostgreSQL refuses to run as root.
    if (::geteuid() == 0) {
      const passwd* pw = ::getpwnam("nobody");
      if (pw == nullptr || ::setgroups(0, nullptr) != 0 || ::setgid(pw->pw_gid) != 0 || ::setuid(pw->pw_uid) != 0)
        _exit(126);
    }
    if (::chdir(dir.c_str()) != 0) _exit(126);
    std::vector<char*> argv;
    for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    ::execv(argv[0], argv.data());
    _exit(127);
  }
  const auto deadline = Clock::now() + std::chrono::seconds(seconds);
  int status = 0;
  while (::waitpid(pid, &status, WNOHANG) == 0) {
    if (Clock::now() > deadline) {
      ::kill(pid, SIGKILL);
      ::waitpid(pid, &status, 0);
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

std::string PgCluster::FindBin() {
  std::vector<std::string> candidates;
  if (const char* path = std::getenv("PATH")) {
    std::string p = path;
    for (std::size_t at = 0; at <= p.size();) {
      const std::size_t end = p.find(':', at);
      candidates.push_back(p.substr(at, end == std::string::npos ? std::string::npos : end - at));
      if (end == std::string::npos) break;
      at = end + 1;
    }
  }
  // Debian keeps the server programs off PATH, one folder per major version.
  for (int v = 20; v >= 11; --v) candidates.push_back("/usr/lib/postgresql/" + std::to_string(v) + "/bin");
  for (const auto& dir : candidates) {
    if (dir.empty()) continue;
    if (::access((dir + "/initdb").c_str(), X_OK) == 0 && ::access((dir + "/pg_ctl").c_str(), X_OK) == 0) {
      // The real folder, so that pg_ctl finds postgres beside itself.
      char real[4096];
      if (::realpath((dir + "/initdb").c_str(), real) == nullptr) continue;
      const std::string r = real;
      return r.substr(0, r.rfind('/'));
    }
  }
  return {};
}

bool PgCluster::Ctl(const std::vector<std::string>& args, std::string* error) {
  if (RunAsOwner(args, dir_, 60)) return true;
  if (error) *error = args[0] + " failed: " + ReadFile(dir_ + "/commands.log") + ReadFile(dir_ + "/server.log");
  return false;
}

bool PgCluster::Start(std::string* error) {
  if (dir_.empty()) {
    bin_ = FindBin();
    if (bin_.empty()) {
      *error = "initdb not found";
      return false;
    }
    char tmpl[] = "/tmp/qva-pg.XXXXXX";
    if (::mkdtemp(tmpl) == nullptr) {
      *error = "mkdtemp failed";
      return false;
    }
    dir_ = tmpl;
    if (::geteuid() == 0) {
      const passwd* pw = ::getpwnam("nobody");
      if (pw == nullptr || ::chown(dir_.c_str(), pw->pw_uid, pw->pw_gid) != 0) {
        *error = "cannot give the folder to nobody";
        return false;
      }
    }
    if (!Ctl({bin_ + "/initdb", "-D", dir_ + "/data", "-A", "trust", "-U", "qva", "-E", "UTF8", "--locale=C",
              "--no-sync"},
             error))
      return false;
  }
  // No TCP listener: the socket lives in the folder. fsync off: the tests
  // restart the database, never the machine.
  running_ = Ctl({bin_ + "/pg_ctl", "-D", dir_ + "/data", "-l", dir_ + "/server.log", "-w", "-t", "30", "-o",
                  "-c listen_addresses='' -k " + dir_ + " -c fsync=off", "start"},
                 error);
  return running_;
}

bool PgCluster::Stop(const char* mode) {
  if (!running_) return true;
  running_ = !Ctl({bin_ + "/pg_ctl", "-D", dir_ + "/data", "-m", mode, "-w", "-t", "30", "stop"}, nullptr);
  return !running_;
}

PgCluster::~PgCluster() {
  Stop("immediate");
  if (!dir_.empty()) Run("rm -rf '" + dir_ + "'");
}

std::string PgCluster::Uri() const { return "postgresql:///postgres?host=" + dir_ + "&user=qva"; }

#ifdef QVA_WITH_POSTGRESQL
namespace {
// The first column of every row of a query, or nothing when it fails.
bool Query(const std::string& uri, const char* sql, bool binary, std::vector<std::string>* out) {
  PGconn* c = PQconnectdb(uri.c_str());
  bool ok = PQstatus(c) == CONNECTION_OK;
  if (ok) {
    PGresult* r = PQexecParams(c, sql, 0, nullptr, nullptr, nullptr, nullptr, binary ? 1 : 0);
    ok = PQresultStatus(r) == PGRES_TUPLES_OK;
    for (int i = 0; ok && i < PQntuples(r); ++i)
      out->emplace_back(PQgetvalue(r, i, 0), static_cast<std::size_t>(PQgetlength(r, i, 0)));
    PQclear(r);
  }
  PQfinish(c);
  return ok;
}
}  // namespace

long PgCluster::Rows() const {
  std::vector<std::string> v;
  return Query(Uri(), "SELECT COUNT(*) FROM registered", false, &v) && v.size() == 1 ? std::stol(v[0]) : -1;
}

std::set<std::string> PgCluster::Fingerprints() const {
  std::vector<std::string> v;
  Query(Uri(), "SELECT fingerprint FROM registered", true, &v);
  return {v.begin(), v.end()};
}
#else
long PgCluster::Rows() const { return -1; }
std::set<std::string> PgCluster::Fingerprints() const { return {}; }
#endif

ServerProcess::ServerProcess(const std::vector<std::string>& args) {
  int fds[2];
  if (::pipe(fds) != 0) return;
  pid_ = ::fork();
  if (pid_ == 0) {
    ::dup2(fds[1], 1);
    ::close(fds[0]);
    std::vector<char*> argv{const_cast<char*>(QVA_SERVER)};
    for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    ::execv(QVA_SERVER, argv.data());
    _exit(127);
  }
  ::close(fds[1]);
  out_ = ::fdopen(fds[0], "r");
  if (!out_ || std::fscanf(out_, "listening on 127.0.0.1:%d", &port_) != 1) port_ = 0;
  // Drained as it comes, so a full pipe never holds the server up.
  if (out_)
    reader_ = std::thread([this] {
      char line[1024];
      while (std::fgets(line, sizeof line, out_)) {
        std::lock_guard<std::mutex> guard(lock_);
        log_ += line;
      }
    });
}

ServerProcess::~ServerProcess() {
  Stop(SIGTERM);
  if (reader_.joinable()) reader_.join();
  if (out_) std::fclose(out_);
}

void ServerProcess::Stop(int sig) {
  if (pid_ <= 0) return;
  ::kill(pid_, sig);
  ::waitpid(pid_, nullptr, 0);
  pid_ = -1;
}

std::string ServerProcess::Log() {
  std::lock_guard<std::mutex> guard(lock_);
  return log_;
}

struct LeafFactory::Keys {
  EVP_PKEY* root = nullptr;
  EVP_PKEY* leaf = nullptr;
  X509* rootCert = nullptr;
};

namespace {
void AddExt(X509* cert, X509* issuer, int nid, const char* value) {
  X509V3_CTX ctx;
  X509V3_set_ctx(&ctx, issuer, cert, nullptr, nullptr, 0);
  X509_EXTENSION* ext = X509V3_EXT_conf_nid(nullptr, &ctx, nid, value);
  if (ext) X509_add_ext(cert, ext, -1);
  X509_EXTENSION_free(ext);
}

X509* MakeCert(const char* cn, long serial, EVP_PKEY* key, X509* issuer, EVP_PKEY* signer) {
  X509* cert = X509_new();
  X509_set_version(cert, 2);
  ASN1_INTEGER_set(X509_get_serialNumber(cert), serial);
  X509_NAME* name = X509_NAME_new();
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>(cn), -1, -1, 0);
  X509_set_subject_name(cert, name);
  X509_set_issuer_name(cert, issuer ? X509_get_subject_name(issuer) : name);
  X509_NAME_free(name);
  X509_gmtime_adj(X509_getm_notBefore(cert), -86400);
  X509_gmtime_adj(X509_getm_notAfter(cert), 365L * 86400);
  X509_set_pubkey(cert, key);
  X509* parent = issuer ? issuer : cert;
  AddExt(cert, parent, NID_basic_constraints, issuer ? "critical,CA:FALSE" : "critical,CA:TRUE");
  AddExt(cert, parent, NID_key_usage, issuer ? "critical,digitalSignature" : "critical,keyCertSign,cRLSign");
  X509_sign(cert, signer, EVP_sha256());
  return cert;
}

std::string Der(X509* cert) {
  unsigned char* p = nullptr;
  const int n = i2d_X509(cert, &p);
  std::string s(reinterpret_cast<const char*>(p), n > 0 ? static_cast<std::size_t>(n) : 0);
  OPENSSL_free(p);
  return s;
}
}  // namespace

LeafFactory::LeafFactory(const std::string& dir) : dir_(dir), keys_(new Keys) {
  keys_->root = EVP_RSA_gen(2048);
  keys_->leaf = EVP_EC_gen("P-256");
  keys_->rootCert = MakeCert("Cluster Test Root", 1, keys_->root, nullptr, keys_->root);
  ::mkdir(anchors().c_str(), 0755);
  WriteFile(anchors() + "/root.der", Der(keys_->rootCert));
}

LeafFactory::~LeafFactory() {
  X509_free(keys_->rootCert);
  EVP_PKEY_free(keys_->root);
  EVP_PKEY_free(keys_->leaf);
  delete keys_;
}

std::string LeafFactory::Leaf(long serial) const {
  const std::string cn = "Cluster Test Leaf " + std::to_string(serial);
  X509* cert = MakeCert(cn.c_str(), serial, keys_->leaf, keys_->rootCert, keys_->root);
  std::string der = Der(cert);
  X509_free(cert);
  return der;
}

std::string Sha256(const std::string& bytes) {
  unsigned char md[EVP_MAX_MD_SIZE];
  unsigned int n = 0;
  EVP_Digest(bytes.data(), bytes.size(), md, &n, EVP_sha256(), nullptr);
  return std::string(reinterpret_cast<const char*>(md), n);
}

int RegisterVia(int port1, int port2, const std::string& der) {
  const ByteString body = qvaserver::Session::MakeItems({der});
  const ByteString id("cluster"), ref(""), host("127.0.0.1");
  CLRoamingMessage request, reply;
  if (request.MakeRoamingMessage(107, 0, &id, &ref, &body) != 0) return -1;
  CSecureTunnel tunnel;
  int rc = tunnel.Connect(host, port1, host, port2);
  if (rc > 0) return rc;
  rc = tunnel.Request(request.GetMessage());
  if (rc > 0) return rc;
  std::vector<ByteString> items;
  if (reply.ParseRoamingMessage(tunnel.GetResponse()) != 0 ||
      !qvaserver::Session::ParseItems(reply.GetBody(), &items) || items.empty())
    return -1;
  return std::atoi(Str(items[0]).c_str());
}

}  // namespace qvatest
