// Test support for several qva-server processes on one database: a
// throwaway PostgreSQL cluster, a server process with its access log, a
// small PKI whose leaves all validate, and a registration through the
// transport's two addresses.
#pragma once

#include <sys/types.h>

#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace qvatest {

// A PostgreSQL cluster in a temporary folder, on a Unix socket only, made
// with initdb and run by pg_ctl as an unprivileged user (nobody when the
// tests run as root). Stopped and removed with the object.
class PgCluster {
 public:
  PgCluster() = default;
  ~PgCluster();
  PgCluster(const PgCluster&) = delete;
  PgCluster& operator=(const PgCluster&) = delete;

  // The folder of initdb, pg_ctl and postgres; empty when not installed.
  static std::string FindBin();
  // initdb (first time only) and start; false with *error.
  bool Start(std::string* error);
  // Stops the server: "fast" ends the sessions, "immediate" is a crash.
  bool Stop(const char* mode = "fast");
  // The libpq URI of its postgres database.
  std::string Uri() const;
  // The rows of the registry table, or -1.
  long Rows() const;
  // The registered fingerprints (raw SHA-256 bytes), or empty on failure.
  std::set<std::string> Fingerprints() const;

 private:
  bool Ctl(const std::vector<std::string>& args, std::string* error);
  std::string bin_, dir_;
  bool running_ = false;
};

// A qva-server process; its access log is collected as it comes.
class ServerProcess {
 public:
  explicit ServerProcess(const std::vector<std::string>& args);
  ~ServerProcess();
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;
  int port() const { return port_; }
  // Sends the signal and waits for the process.
  void Stop(int sig);
  // The access log so far.
  std::string Log();

 private:
  pid_t pid_ = -1;
  int port_ = 0;
  FILE* out_ = nullptr;
  std::thread reader_;
  std::mutex lock_;
  std::string log_;
};

// A root CA in DIR/anchors and leaves it signed (DER), made with libcrypto.
class LeafFactory {
 public:
  explicit LeafFactory(const std::string& dir);
  ~LeafFactory();
  LeafFactory(const LeafFactory&) = delete;
  LeafFactory& operator=(const LeafFactory&) = delete;
  std::string anchors() const { return dir_ + "/anchors"; }
  // A distinct valid leaf per serial.
  std::string Leaf(long serial) const;

 private:
  std::string dir_;
  struct Keys;
  Keys* keys_;
};

// SHA-256 of bytes, the registry's key.
std::string Sha256(const std::string& bytes);

// One registration (message type 107) through the transport, first address
// 127.0.0.1:port1 and second 127.0.0.1:port2: the server's verdict, or the
// transport's failure code.
int RegisterVia(int port1, int port2, const std::string& der);

}  // namespace qvatest
