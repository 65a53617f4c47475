// The registry's two backends side by side, in process: a second
// registration is one row, registrations racing from two openers (as from
// two servers) end in one row per certificate, and the PostgreSQL pool
// lives through a restart of the database.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "tests/support/TestUtil.h"
#include "tests/tools/ClusterFixture.h"
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
  std::unique_ptr<Registry> Open(std::size_t connections = 4) {
    std::string error;
    auto r = Registry::Open(where_, connections, &error);
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

// Eight threads over two openers register the same certificates in
// different orders: every call succeeds, and exactly one per certificate
// was the one that made the row.
TEST_P(RegistryBackend, RacingRegistrationsEndInOneRowEach) {
  auto a = Open(), b = Open();
  ASSERT_TRUE(a && b);
  const long before = a->Count();
  constexpr int kCerts = 40, kThreads = 8;
  std::atomic<int> fresh{0}, failed{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([&, t] {
      Registry* r = (t % 2 ? a : b).get();
      for (int i = 0; i < kCerts; ++i) {
        std::string error;
        bool known = true;
        if (!r->Store(Cert(200 + (i * 7 + t * 13) % kCerts), &error, &known)) ++failed;
        else if (!known) ++fresh;
      }
    });
  for (auto& th : threads) th.join();
  EXPECT_EQ(failed.load(), 0);
  EXPECT_EQ(fresh.load(), kCerts);
  EXPECT_EQ(a->Count(), before + kCerts);
  EXPECT_EQ(b->Count(), before + kCerts);
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
  EXPECT_EQ(cluster.Rows(), 6);
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
