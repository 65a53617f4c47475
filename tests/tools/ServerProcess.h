// A qva-server process for the tests: started with the given options on a
// port it picks itself, its standard output (the access log) drained as it
// comes so a full pipe never stalls it, and stopped with SIGTERM when
// destroyed.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace qvatest {

class ServerProcess {
 public:
  // maxFiles, when not 0, is the process's descriptor limit.
  explicit ServerProcess(const std::vector<std::string>& args, rlim_t maxFiles = 0);
  ~ServerProcess();
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;

  // The port it listens on, 0 when it did not start.
  int port() const { return port_; }
  // The access log so far; whole once the process has stopped.
  std::string Log();
  // Still running (a process that ended is left for Stop to collect).
  bool Alive() const;
  // Resident memory in KiB, or -1.
  long ResidentKiB() const;
  // Open descriptors of the process, or -1.
  int OpenFiles() const;
  // Sends the signal and waits: the exit status, -1 for a death by signal,
  // or -2 when it had not ended 15 s later (it is then killed).
  int Stop(int sig = SIGTERM);

 private:
  pid_t pid_ = -1;
  int port_ = 0;
  FILE* out_ = nullptr;
  std::thread reader_;
  std::mutex lock_;
  std::string log_;
};

// A TCP connection to 127.0.0.1:port, or -1.
int Connect(int port);
// The 4-byte big-endian length, then the record.
std::string Frame(const std::string& record);
// A plain record around a roaming message of `type` from `id` carrying `body`.
std::string PlainRequest(const std::string& id = "tester", const std::string& body = "??", int type = 106);
// What fd gives back until the server closes it: per whole answer frame "P"
// (plain) or "L" (alert), then "C" when closed; "?" when nothing more came
// within waitMs. The records, when asked for, go to *records.
std::string Outcome(int fd, int waitMs = 8000, std::vector<std::string>* records = nullptr);
// One connection: bytes sent (then the sending side shut when halfClose),
// and the Outcome; "no connection" when connecting fails.
std::string Exchange(int port, const std::string& bytes, bool halfClose = false, int waitMs = 8000,
                     std::vector<std::string>* records = nullptr);
// The test PKI of tests/data/server/make-pki.sh, made once per build tree;
// empty when it could not be made.
std::string ServerPki();

}  // namespace qvatest
