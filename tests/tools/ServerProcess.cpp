#include "tests/tools/ServerProcess.h"

#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

#include "libaibase/clroamingmessage.h"
#include "libaibase/clsecuremanager.h"
#include "tests/support/TestUtil.h"

namespace qvatest {

ServerProcess::ServerProcess(const std::vector<std::string>& args, rlim_t maxFiles) {
  int fds[2];
  if (::pipe(fds) != 0) return;
  std::vector<char*> argv{const_cast<char*>(QVA_SERVER)};
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  pid_ = ::fork();
  if (pid_ == 0) {
    ::dup2(fds[1], 1);
    ::close(fds[0]);
    if (maxFiles) {
      const rlimit r{maxFiles, maxFiles};
      ::setrlimit(RLIMIT_NOFILE, &r);
    }
    ::execv(QVA_SERVER, argv.data());
    _exit(127);
  }
  ::close(fds[1]);
  out_ = ::fdopen(fds[0], "r");
  if (!out_ || std::fscanf(out_, "listening on 127.0.0.1:%d", &port_) != 1) port_ = 0;
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
  if (pid_ > 0) Stop();
  if (reader_.joinable()) reader_.join();
  if (out_) std::fclose(out_);
}

std::string ServerProcess::Log() {
  // Once the process is gone the pipe ends, so the reader finishes.
  if (pid_ <= 0 && reader_.joinable()) reader_.join();
  std::lock_guard<std::mutex> guard(lock_);
  return log_;
}

bool ServerProcess::Alive() const {
  siginfo_t info{};
  return pid_ > 0 && ::waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         info.si_pid == 0;
}

long ServerProcess::ResidentKiB() const {
  const std::string status = ReadFile("/proc/" + std::to_string(pid_) + "/status");
  const std::size_t at = status.find("VmRSS:");
  return at == std::string::npos ? -1 : std::stol(status.substr(at + 6));
}

int ServerProcess::OpenFiles() const {
  std::string out;
  if (Run("ls /proc/" + std::to_string(pid_) + "/fd | wc -l", &out) != 0) return -1;
  return std::atoi(out.c_str());
}

int ServerProcess::Stop(int sig) {
  if (pid_ <= 0) return -1;
  ::kill(pid_, sig);
  int status = 0;
  pid_t done = 0;
  // Short steps: a caller counting what happened around a kill wants the
  // return as soon as the process is gone.
  for (int i = 0; i < 1500 && (done = ::waitpid(pid_, &status, WNOHANG)) == 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  if (done == 0) {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, &status, 0);
  }
  pid_ = -1;
  if (done < 0) return -1;
  return done == 0 ? -2 : WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int Connect(int port) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  sa.sin_port = htons(static_cast<std::uint16_t>(port));
  if (::connect(fd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) != 0) {
    ::close(fd);
    return -1;
  }
  return fd;
}

std::string Frame(const std::string& record) {
  const auto n = static_cast<std::uint32_t>(record.size());
  return std::string{static_cast<char>(n >> 24), static_cast<char>(n >> 16), static_cast<char>(n >> 8),
                     static_cast<char>(n)} +
         record;
}

std::string PlainRequest(const std::string& id, const std::string& body, int type) {
  CLRoamingMessage m;
  const ByteString ident(id.data(), static_cast<int>(id.size())), ref(""),
      data(body.data(), static_cast<int>(body.size()));
  CLSecureManager manager(nullptr, nullptr);
  if (m.MakeRoamingMessage(static_cast<std::uint8_t>(type), 0, &ident, &ref, &data) != 0 ||
      manager.MakePlainData(m.GetMessage()) != 0)
    return {};
  return Str(manager.TakeOutput());
}

std::string Outcome(int fd, int waitMs, std::vector<std::string>* records) {
  std::string in, seen;
  char buf[65536];
  for (;;) {
    pollfd p{fd, POLLIN, 0};
    if (::poll(&p, 1, waitMs) <= 0) return seen + "?";
    const ssize_t n = ::recv(fd, buf, sizeof buf, 0);
    if (n <= 0) return seen + "C";
    in.append(buf, static_cast<std::size_t>(n));
    while (in.size() >= 4) {
      const std::size_t len = (std::size_t(std::uint8_t(in[0])) << 24) | (std::size_t(std::uint8_t(in[1])) << 16) |
                              (std::size_t(std::uint8_t(in[2])) << 8) | std::uint8_t(in[3]);
      if (in.size() < 4 + len) break;
      const ByteString record(in.data() + 4, static_cast<int>(len));
      seen += CLSecureManager::IsAlert(record) ? "L" : "P";
      if (records) records->push_back(in.substr(4, len));
      in.erase(0, 4 + len);
    }
  }
}

std::string Exchange(int port, const std::string& bytes, bool halfClose, int waitMs, std::vector<std::string>* records) {
  const int fd = Connect(port);
  if (fd < 0) return "no connection";
  ::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
  if (halfClose) ::shutdown(fd, SHUT_WR);
  const std::string got = Outcome(fd, waitMs, records);
  ::close(fd);
  return got;
}

std::string ServerPki() {
  // Each test runs as its own process under ctest: the PKI is made into a
  // fresh folder, then renamed into place, so a process that loses the race
  // uses the winner's. One of an older script (no policy flood) is made again.
  const std::string pki = std::string(QVA_BINARY_DIR) + "/tests/tools/server-pki";
  if (::access((pki + "/leaves/policy-flood.der").c_str(), R_OK) != 0) {
    Run("rm -rf " + pki);
    const std::string fresh = pki + ".new." + std::to_string(::getpid());
    if (Run("bash " + DataPath("server/make-pki.sh") + " " + fresh) == 0) std::rename(fresh.c_str(), pki.c_str());
    Run("rm -rf " + fresh);
  }
  return ::access((pki + "/leaves/policy-flood.der").c_str(), R_OK) == 0 ? pki : std::string();
}

}  // namespace qvatest
