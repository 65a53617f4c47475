#include "tests/support/PgCluster.h"

#include <fcntl.h>
#include <glob.h>
#include <grp.h>
#include <pwd.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

namespace qvatest {
namespace {

std::string Slurp(const std::string& path) {
  std::ifstream in(path);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace

std::string PgCluster::FindBin() {
  std::vector<std::string> dirs;
  std::stringstream path(std::getenv("PATH") ? std::getenv("PATH") : "");
  for (std::string d; std::getline(path, d, ':');) dirs.push_back(d);
  // Debian keeps the server programs off PATH, one folder per major version.
  glob_t g{};
  if (::glob("/usr/lib/postgresql/*/bin", 0, nullptr, &g) == 0)
    for (std::size_t i = g.gl_pathc; i-- > 0;) dirs.push_back(g.gl_pathv[i]);
  ::globfree(&g);
  for (const auto& d : dirs) {
    std::error_code ec;
    if (d.empty() || ::access((d + "/initdb").c_str(), X_OK) != 0) continue;
    // The real folder, where pg_ctl finds postgres beside itself.
    const auto real = std::filesystem::canonical(d + "/initdb", ec);
    if (!ec) return real.parent_path().string();
  }
  return {};
}

// Runs argv as the cluster's owner in its folder, output appended to
// commands.log; killed after a minute.
bool PgCluster::Run(const std::vector<std::string>& args, std::string* error) {
  // Everything is prepared before the fork: the child of a threaded process
  // may only make plain system calls.
  const std::string logPath = dir_ + "/commands.log";
  const passwd* pw = ::geteuid() == 0 ? ::getpwnam("nobody") : nullptr;
  const bool asRoot = ::geteuid() == 0;
  const uid_t uid = pw ? pw->pw_uid : 0;
  const gid_t gid = pw ? pw->pw_gid : 0;
  std::vector<char*> argv;
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  const pid_t pid = ::fork();
  if (pid == 0) {
    const int log = ::open(logPath.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    ::dup2(log, 1);
    ::dup2(log, 2);
    if (asRoot && (uid == 0 || ::setgroups(0, nullptr) != 0 || ::setgid(gid) != 0 || ::setuid(uid) != 0)) _exit(126);
    if (::chdir(dir_.c_str()) != 0) _exit(126);
    ::execv(argv[0], argv.data());
    _exit(127);
  }
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  int status = -1;
  while (pid > 0 && ::waitpid(pid, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      ::kill(pid, SIGKILL);
      ::waitpid(pid, &status, 0);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  const bool ok = pid > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  if (!ok && error) *error = args[0] + " failed: " + Slurp(dir_ + "/commands.log") + Slurp(dir_ + "/server.log");
  return ok;
}

bool PgCluster::Start(std::string* error, bool fsync) {
  if (dir_.empty()) {
    bin_ = FindBin();
    char tmpl[] = "/tmp/qva-pg.XXXXXX";
    if (bin_.empty() || ::mkdtemp(tmpl) == nullptr) {
      *error = bin_.empty() ? "initdb not found" : "mkdtemp failed";
      return false;
    }
    dir_ = tmpl;
    const passwd* pw = ::geteuid() == 0 ? ::getpwnam("nobody") : nullptr;
    if (::geteuid() == 0 && (!pw || ::chown(dir_.c_str(), pw->pw_uid, pw->pw_gid) != 0)) {
      *error = "cannot give " + dir_ + " to nobody";
      return false;
    }
    if (!Run({bin_ + "/initdb", "-D", dir_ + "/data", "-A", "trust", "-U", "qva", "-E", "UTF8", "--locale=C"}, error))
      return false;
  }
  running_ = Run({bin_ + "/pg_ctl", "-D", dir_ + "/data", "-l", dir_ + "/server.log", "-w", "-t", "30", "-o",
                  "-c listen_addresses='' -c max_connections=200 -k " + dir_ + (fsync ? "" : " -c fsync=off"), "start"},
                 error);
  return running_;
}

bool PgCluster::Stop(const char* mode) {
  if (running_)
    running_ = !Run({bin_ + "/pg_ctl", "-D", dir_ + "/data", "-m", mode, "-w", "-t", "30", "stop"}, nullptr);
  return !running_;
}

PgCluster::~PgCluster() {
  Stop("immediate");
  std::error_code ec;
  if (!dir_.empty()) std::filesystem::remove_all(dir_, ec);
}

}  // namespace qvatest
