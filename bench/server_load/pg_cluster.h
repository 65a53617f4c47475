// A throwaway PostgreSQL cluster for the load runs: initdb in a temporary
// folder, started by pg_ctl on a Unix socket only, as nobody when run as
// root (PostgreSQL refuses root). Stopped and removed by Stop().
#pragma once

#include <string>

struct PgCluster {
  std::string dir;  // the folder: data/, the socket, server.log
  std::string bin;  // the folder of initdb and pg_ctl
  bool up = false;
};

// False with *error when initdb is missing or the cluster does not start.
bool StartPgCluster(PgCluster* cluster, std::string* error);
void StopPgCluster(PgCluster* cluster);
// The libpq URI of the cluster's postgres database.
std::string PgClusterUri(const PgCluster& cluster);
