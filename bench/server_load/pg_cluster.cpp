#include "pg_cluster.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

// Runs argv in dir as the cluster's owner, output to dir/commands.log.
bool RunAsOwner(const std::vector<std::string>& args, const std::string& dir) {
  const pid_t pid = ::fork();
  if (pid < 0) return false;
  if (pid == 0) {
    const int log = ::open((dir + "/commands.log").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (log >= 0) {
      ::dup2(log, 1);
      ::dup2(log, 2);
    }
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
  int status = 0;
  ::waitpid(pid, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string FindBin() {
  std::vector<std::string> dirs;
  if (const char* path = std::getenv("PATH")) {
    std::string p = path;
    for (std::size_t at = 0;;) {
      const std::size_t end = p.find(':', at);
      dirs.push_back(p.substr(at, end == std::string::npos ? std::string::npos : end - at));
      if (end == std::string::npos) break;
      at = end + 1;
    }
  }
  for (int v = 20; v >= 11; --v) dirs.push_back("/usr/lib/postgresql/" + std::to_string(v) + "/bin");
  for (const auto& d : dirs) {
    std::error_code ec;
    if (d.empty() || ::access((d + "/initdb").c_str(), X_OK) != 0) continue;
    const auto real = std::filesystem::canonical(d + "/initdb", ec);
    if (!ec) return real.parent_path().string();
  }
  return {};
}

}  // namespace

bool StartPgCluster(PgCluster* c, std::string* error) {
  c->bin = FindBin();
  if (c->bin.empty()) {
    *error = "initdb not found (Debian: postgresql)";
    return false;
  }
  char tmpl[] = "/tmp/qva_load_pg.XXXXXX";
  if (::mkdtemp(tmpl) == nullptr) {
    *error = "mkdtemp failed";
    return false;
  }
  c->dir = tmpl;
  if (::geteuid() == 0) {
    const passwd* pw = ::getpwnam("nobody");
    if (pw == nullptr || ::chown(c->dir.c_str(), pw->pw_uid, pw->pw_gid) != 0) {
      *error = "cannot give " + c->dir + " to nobody";
      return false;
    }
  }
  // Durability as shipped (fsync and synchronous commit on), like the SQLite rows.
  c->up = RunAsOwner({c->bin + "/initdb", "-D", c->dir + "/data", "-A", "trust", "-U", "qva", "-E", "UTF8",
                      "--locale=C"},
                     c->dir) &&
          RunAsOwner({c->bin + "/pg_ctl", "-D", c->dir + "/data", "-l", c->dir + "/server.log", "-w", "-t", "60",
                      "-o", "-c listen_addresses='' -k " + c->dir + " -c max_connections=200", "start"},
                     c->dir);
  if (!c->up) *error = "the cluster did not start; see " + c->dir + "/commands.log";
  return c->up;
}

void StopPgCluster(PgCluster* c) {
  if (c->up) RunAsOwner({c->bin + "/pg_ctl", "-D", c->dir + "/data", "-m", "fast", "-w", "stop"}, c->dir);
  c->up = false;
  if (!c->dir.empty()) {
    std::error_code ec;
    std::filesystem::remove_all(c->dir, ec);
  }
}

std::string PgClusterUri(const PgCluster& c) { return "postgresql:///postgres?host=" + c.dir + "&user=qva"; }
