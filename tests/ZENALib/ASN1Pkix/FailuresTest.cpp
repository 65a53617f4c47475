// Malformed input of every family, read from tests/data/pkix/<family>/
// failures.txt: the class refuses it with the code callers test for, the
// newest trace frame is the class's own ("[file:line]..."), and the trace
// names the class, the field and the message (and, where a record says
// Then, a deeper frame after it).
#include <set>

#include "ZENALib/ASN1Pkix/RStructure.h"
#include "tests/ZENALib/ASN1Pkix/Pkix.h"

namespace {
const char* const kFamilies[] = {"x509", "cms", "keys", "engine"};
// The schema of a structure class (the accessor is protected).
struct SchemaOf : RStructure {
  static const RSchema& Get(const RStructure& s) { return (s.*(&SchemaOf::schema))(); }
};
}  // namespace

class PkixFailures : public ::testing::TestWithParam<const char*> {};

TEST_P(PkixFailures, CodeAndTraceText) {
  const auto records = pkixtest::Vectors(std::string(GetParam()) + "/failures.txt");
  ASSERT_FALSE(records.empty());
  for (auto r : records) {
    SCOPED_TRACE(r["Class"] + " " + r["Input"] + " expecting: " + r["Trace"]);
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

INSTANTIATE_TEST_SUITE_P(Families, PkixFailures, ::testing::ValuesIn(kFamilies));

// Every class of the registry whose schema has a count rule has a record
// that breaks the rule, and the record expects the schema's own message.
TEST(PkixFailureRecords, CoverEveryCountRule) {
  std::set<std::string> traces;
  for (const char* family : kFamilies)
    for (auto r : pkixtest::Vectors(std::string(family) + "/failures.txt")) traces.insert(r["Trace"]);
  int rules = 0;
  for (const std::string& cls : pkixtest::Names()) {
    auto obj = pkixtest::Make(cls);
    const auto* s = dynamic_cast<const RStructure*>(obj.get());
    if (!s || SchemaOf::Get(*s).count.kind == RCountRule::None) continue;
    ++rules;
    const std::string want = cls + "::fromASN1Object-nCount(21), " + SchemaOf::Get(*s).count.message;
    EXPECT_TRUE(traces.count(want)) << "no record for the count rule of " << cls << ": " << want;
  }
  EXPECT_GE(rules, 60);
}
