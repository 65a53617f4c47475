// The registry's two backends in process.
#include <gtest/gtest.h>

#include "tests/support/PgCluster.h"
#include "tests/support/TestUtil.h"
#include "tools/server/Registry.h"

namespace {

using qvaserver::Registry;

// A second registration of a certificate is told apart from a new one and
// adds no row.
void ExpectIdempotent(const std::string& where) {
  std::string error;
  auto r = Registry::Open(where, 4, &error);
  ASSERT_TRUE(r) << where << ": " << error;
  const long before = r->Count();
  ASSERT_GE(before, 0);
  const struct {
    unsigned seed;
    bool known;
  } steps[] = {{101, false}, {101, true}, {102, false}};
  for (const auto& step : steps) {
    bool known = !step.known;
    ASSERT_TRUE(r->Store(qvatest::RandomBytes(300, step.seed), &error, &known)) << where << ": " << error;
    EXPECT_EQ(known, step.known) << where << " seed " << step.seed;
  }
  EXPECT_EQ(r->Count(), before + 2) << where;
}

TEST(SqliteRegistry, SecondRegistrationIsKnownAndAddsNoRow) {
  ExpectIdempotent(qvatest::TempDir().file("registry.db"));
}

// Refused without the database, with its error; served again from the same
// pool as soon as it is back, however it went away.
TEST(PgRegistry, LivesThroughDatabaseRestarts) {
  if (qvatest::PgCluster::FindBin().empty())
    GTEST_SKIP() << "initdb not found: the postgresql package is not installed";
  if (!Registry::HasPostgres()) GTEST_SKIP() << "qva-server was built without libpq";
  qvatest::PgCluster cluster;
  std::string error;
  ASSERT_TRUE(cluster.Start(&error)) << error;
  ExpectIdempotent(cluster.Uri());
  auto r = Registry::Open(cluster.Uri(), 2, &error);
  ASSERT_TRUE(r) << error;
  unsigned seed = 300;
  for (const char* mode : {"fast", "immediate"}) {
    ASSERT_TRUE(r->Store(qvatest::RandomBytes(200, ++seed), &error)) << error;
    // A restart between two requests: the pooled connection is stale, and
    // the next registration still succeeds.
    ASSERT_TRUE(cluster.Stop(mode)) << mode;
    ASSERT_TRUE(cluster.Start(&error)) << error;
    EXPECT_TRUE(r->Store(qvatest::RandomBytes(200, ++seed), &error)) << mode << ": " << error;
    // A request while it is away is refused.
    ASSERT_TRUE(cluster.Stop(mode)) << mode;
    error.clear();
    EXPECT_FALSE(r->Store(qvatest::RandomBytes(200, ++seed), &error)) << mode;
    EXPECT_FALSE(error.empty()) << mode;
    EXPECT_EQ(r->Count(), -1) << mode;
    ASSERT_TRUE(cluster.Start(&error)) << error;
    EXPECT_TRUE(r->Store(qvatest::RandomBytes(200, ++seed), &error)) << mode << ": " << error;
  }
  // Two rows before, three per round: the refused ones were never written.
  EXPECT_EQ(r->Count(), 8);
}

TEST(RegistryOpen, RefusesWhatItCannotOpen) {
  struct Case {
    const char* where;
    bool postgres;
  } cases[] = {
      {"/nonexistent-dir/registry.db", false},                 // SQLite: folder missing
      {"postgresql:///postgres?host=/nonexistent-dir", true},  // no server at that socket
      {"postgres://qva@127.0.0.1:1/postgres", true},           // refused port
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Registry::IsPostgresUri(c.where), c.postgres) << c.where;
    if (c.postgres && !Registry::HasPostgres()) continue;
    std::string error;
    EXPECT_FALSE(Registry::Open(c.where, 1, &error)) << c.where;
    EXPECT_FALSE(error.empty()) << c.where;
    // One line: it goes into the access log.
    EXPECT_EQ(error.find_first_of("\r\n\t"), std::string::npos) << error;
  }
  // Neither a file named after the scheme nor another scheme is PostgreSQL.
  EXPECT_FALSE(Registry::IsPostgresUri("postgresql.db"));
  EXPECT_FALSE(Registry::IsPostgresUri("mysql://host/db"));
}

}  // namespace
