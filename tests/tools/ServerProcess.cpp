#include "tests/tools/ServerProcess.h"

#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

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

}  // namespace qvatest
