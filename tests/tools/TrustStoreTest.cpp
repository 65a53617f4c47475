// The anchor directory followed while the server runs: a root copied in is
// trusted within seconds, a root taken out is no longer, and a file that
// does not load leaves the anchors in service as they were.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "tests/support/TestUtil.h"
#include "tests/tools/ClusterFixture.h"
#include "tools/server/TrustStore.h"

namespace {

// The verdict on der once the store has had up to five seconds to change
// its mind towards `want`.
int VerdictWithin(qvaserver::TrustStore& store, const ByteString& der, int want) {
  int got = -1;
  for (int i = 0; i < 60 && got != want; ++i) {
    if (i) std::this_thread::sleep_for(std::chrono::milliseconds(100));
    got = store.Current()->ValidateCertificate(der).verdict;
  }
  return got;
}

TEST(TrustStore, FollowsTheAnchorDirectory) {
  qvatest::TempDir made, served;
  const qvatest::LeafFactory pki(made.path());
  const std::string anchors = served.file("anchors");
  ASSERT_EQ(qvatest::Run("mkdir " + anchors), 0);
  const std::string leaf = pki.Leaves(7)[0];
  const ByteString der(leaf.data(), static_cast<int>(leaf.size()));

  qvaserver::TrustStore store;
  qvaserver::ValidatorConfig config;
  config.anchorDir = anchors;
  std::string error;
  ASSERT_TRUE(store.Load(config, &error)) << error;
  EXPECT_EQ(store.Current()->ValidateCertificate(der).verdict, qvaserver::kUntrustedIssuer);

  ASSERT_EQ(qvatest::Run("cp " + pki.anchors() + "/root.der " + anchors), 0);
  EXPECT_EQ(VerdictWithin(store, der, qvaserver::kValid), qvaserver::kValid);
  // A broken file beside it: past the once-a-second gate the store looks,
  // fails to load, and keeps the anchors it has.
  qvatest::WriteFile(anchors + "/broken.der", std::string("not a certificate"));
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  EXPECT_EQ(store.Current()->ValidateCertificate(der).verdict, qvaserver::kValid);
  EXPECT_EQ(store.Current()->AnchorCount(), 1u);
  // Withdrawn: untrusted again.
  ASSERT_EQ(std::remove((anchors + "/broken.der").c_str()), 0);
  ASSERT_EQ(std::remove((anchors + "/root.der").c_str()), 0);
  EXPECT_EQ(VerdictWithin(store, der, qvaserver::kUntrustedIssuer), qvaserver::kUntrustedIssuer);
  EXPECT_EQ(store.Current()->AnchorCount(), 0u);
}

}  // namespace
