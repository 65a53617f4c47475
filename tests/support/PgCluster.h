// A throwaway PostgreSQL cluster for the tests and the load bench: made by
// initdb in a temporary folder, run by pg_ctl on a Unix socket in that
// folder only, as nobody when run as root (PostgreSQL refuses root).
// Stopped and removed with the object. Every command is bounded in time.
#pragma once

#include <string>
#include <vector>

namespace qvatest {

class PgCluster {
 public:
  PgCluster() = default;
  ~PgCluster();
  PgCluster(const PgCluster&) = delete;
  PgCluster& operator=(const PgCluster&) = delete;

  // The folder of initdb, pg_ctl and postgres; empty when not installed.
  static std::string FindBin();
  // initdb (the first time) and start; false with *error. fsync off suits
  // tests that restart the database, never the machine.
  bool Start(std::string* error, bool fsync = false);
  // Stops the server: "fast" ends the sessions, "immediate" is a crash.
  bool Stop(const char* mode = "fast");
  // The libpq URI of its postgres database.
  std::string Uri() const { return "postgresql:///postgres?host=" + dir_ + "&user=qva"; }

 private:
  bool Run(const std::vector<std::string>& args, std::string* error);
  std::string bin_, dir_;
  bool running_ = false;
};

}  // namespace qvatest
