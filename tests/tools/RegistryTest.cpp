// The registry's two backends side by side, in process: a second
// registration is one row and is told apart from a new one, and the
// PostgreSQL pool lives through restarts of the database. (Registrations
// racing through two servers: ClusterTest.cpp.)
#include <gtest/gtest.h>

#include <memory>

#include "tests/support/PgCluster.h"
#include "tests/support/TestUtil.h"
#include "tools/server/Registry.h"

namespace {

using qvaserver::Registry;

// The PostgreSQL cluster is shared by the tests of one run.
class RegistryBackend : public ::testing::TestWithParam<const char*> {
 protected:
  static void TearDownTestSuite() { cluster_.reset(); }
  void SetUp() override {
    if (std::string(GetParam()) == "sqlite") {
      where_ = dir_.file("registry.db");
      return;
    }
    if (qvatest::PgCluster::FindBin().empty()) GTEST_SKIP() << "initdb not found: the postgresql package is not installed";
    if (!Registry::HasPostgres()) GTEST_SKIP() << "qva-server was built without libpq";
    if (!cluster_) {
      cluster_ = std::make_unique<qvatest::PgCluster>();
      std::string error;
      ASSERT_TRUE(cluster_->Start(&error)) << error;
    }
    where_ = cluster_->Uri();
  }
  std::unique_ptr<Registry> Open() {
    std::string error;
    auto r = Registry::Open(where_, 4, &error);
    EXPECT_TRUE(r) << error;
    return r;
  }
  static ByteString Cert(unsigned seed) { return qvatest::RandomBytes(300 + seed % 50, seed); }

  qvatest::TempDir dir_;
  std::string where_;
  static std::unique_ptr<qvatest::PgCluster> cluster_;
};
std::unique_ptr<qvatest::PgCluster> RegistryBackend::cluster_;

TEST_P(RegistryBackend, SecondRegistrationIsKnownAndAddsNoRow) {
  auto r = Open();
  ASSERT_TRUE(r);
  const long before = r->Count();
  ASSERT_GE(before, 0);
  std::string error;
  bool known = true;
  ASSERT_TRUE(r->Store(Cert(101), &error, &known)) << error;
  EXPECT_FALSE(known);
  ASSERT_TRUE(r->Store(Cert(101), &error, &known)) << error;
  EXPECT_TRUE(known);
  ASSERT_TRUE(r->Store(Cert(102), &error, &known)) << error;
  EXPECT_FALSE(known);
  EXPECT_EQ(r->Count(), before + 2);
}

INSTANTIATE_TEST_SUITE_P(Backends, RegistryBackend, ::testing::Values("sqlite", "postgresql"),
                         [](const auto& info) { return std::string(info.param); });

// Refused without the database, with its error; served again, from the same
// pool, as soon as it is back, however it went away.
TEST(PgRegistry, LivesThroughDatabaseRestarts) {
  if (qvatest::PgCluster::FindBin().empty()) GTEST_SKIP() << "initdb not found: the postgresql package is not installed";
  if (!Registry::HasPostgres()) GTEST_SKIP() << "qva-server was built without libpq";
  qvatest::PgCluster cluster;
  std::string error;
  ASSERT_TRUE(cluster.Start(&error)) << error;
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
  // Three rows per round: the refused ones were never written.
  EXPECT_EQ(r->Count(), 6);
}

TEST(RegistryOpen, RefusesWhatItCannotOpen) {
  struct Case {
    const char* where;
    bool postgres;
  } cases[] = {
      {"/nonexistent-dir/registry.db", false},               // SQLite: folder missing
      {"postgresql:///postgres?host=/nonexistent-dir", true},  // no server at that socket
      {"postgres://qva@127.0.0.1:1/postgres", true},         // refused port
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Registry::IsPostgresUri(c.where), c.postgres) << c.where;
    if (c.postgres && !Registry::HasPostgres()) continue;
    std::string error;
    EXPECT_FALSE(Registry::Open(c.where, 1, &error)) << c.where;
    EXPECT_FALSE(error.empty()) << c.where;
  }
  // Neither a file named after the scheme nor another scheme is PostgreSQL.
  EXPECT_FALSE(Registry::IsPostgresUri("postgresql.db"));
  EXPECT_FALSE(Registry::IsPostgresUri("mysql://host/db"));
}

}  // namespace
