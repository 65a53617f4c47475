// Malformed input of every family, read from tests/data/pkix/<family>/
// failures.txt: the class refuses it with the code callers test for, the
// newest trace frame is the class's own ("[file:line]..."), and the trace
// names the class, the field and the message (and, where a record says
// Then, a deeper frame after it).
#include "tests/ZENALib/ASN1Pkix/Pkix.h"

class PkixFailures : public ::testing::TestWithParam<const char*> {};

TEST_P(PkixFailures, CodeAndTraceText) {
  const auto records = pkixtest::Vectors(std::string(GetParam()) + "/failures.txt");
  ASSERT_FALSE(records.empty());
  for (auto r : records) {
    SCOPED_TRACE(r["Class"] + " " + r["Input"]);
    auto obj = pkixtest::Make(r["Class"]);
    ASSERT_TRUE(obj) << "no such class";
    const int rc = obj->fromASN1Object(qvatest::Hex(r["Input"]));
    const std::string trace = obj->getErrorMessage().c_str();
    EXPECT_EQ(rc, obj->getErrorCode());
    EXPECT_EQ(std::to_string(rc), r["Code"]) << trace;
    const auto at = trace.find(r["Trace"]);
    EXPECT_NE(at, std::string::npos) << "trace: " << trace;
    EXPECT_EQ(trace.rfind('[', 0), 0u) << trace;
    if (r.count("Then")) {
      EXPECT_NE(trace.find(r["Then"], at), std::string::npos) << "trace: " << trace;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Families, PkixFailures, ::testing::Values("x509", "cms", "keys", "engine"));
