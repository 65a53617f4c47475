// The schema engine on a schema made for the test: every way a component can
// be tagged, recognised and left out. Its refusals are records of
// tests/data/pkix/engine/failures.txt, read with the other families'.
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RTime.h"
#include "tests/ZENALib/ASN1Pkix/Pkix.h"

#include <thread>
#include <type_traits>
#include <vector>

#include "PkixClasses.h"

namespace {

class RIntegers : public RListOf<ASN1Integer> {
 public:
  RIntegers() : RListOf("RIntegers") {}
};

// Probe ::= SEQUENCE {
//   version  [0] EXPLICIT INTEGER DEFAULT 0,
//   number        INTEGER,
//   when          Time,                      -- untagged CHOICE
//   algorithm [1] IMPLICIT AlgorithmIdentifier OPTIONAL,
//   moment    [2] EXPLICIT Time OPTIONAL,    -- explicitly tagged CHOICE
//   extra     [3] EXPLICIT ANY OPTIONAL,
//   list      [4] IMPLICIT SEQUENCE OF INTEGER OPTIONAL,
//   note          OCTET STRING OPTIONAL }
#define RProbe_COMPONENTS(X)                                                        \
  X(ASN1Integer, Version, version, EXPLICIT(0), R_VERSION)                          \
  X(ASN1Integer, Number, number, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)          \
  X(RTime, When, when, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_MANDATORY)            \
  X(RAlgorithmIdentifier, Algorithm, algorithm, IMPLICIT(1), R_OPTIONAL)            \
  X(RTime, Moment, moment, EXPLICIT(2), R_OPTIONAL)                                 \
  X(RAny, Extra, extra, EXPLICIT(3), R_OPTIONAL)                                    \
  X(RIntegers, List, list, IMPLICIT(4), R_OPTIONAL)                                 \
  X(ASN1OctetString, Note, note, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_OPTIONAL)

class RProbe : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RProbe)
};

R_FIELDS(RProbe);
const RSchema RProbe::kSchema =
    R_SCHEMA(RProbe, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, "At least 2 components are required."), kFields);

// What is wrong with the schema rows of class C, empty when nothing is: the
// trace name must be "m_" and the schema name, there must be one row per
// listed component, and in a structure each row must reach a member inside
// the object, in the members' declaration order (all private, so their
// addresses ascend). A CHOICE's rows are not followed: reaching an
// alternative may build it.
template <typename C>
std::string RowFaults(const char* cls) {
  struct Peek : C {
    using C::schema;
  };
  Peek obj;
  const RSchema& s = obj.schema();
  const auto* lo = reinterpret_cast<const unsigned char*>(&obj);
  const unsigned char* prev = nullptr;
  std::string faults;
  for (int i = 0; i < s.nFields; ++i) {
    const RField& f = s.fields[i];
    if (std::string(f.member) != std::string("m_") + f.name) faults += std::string(" ") + f.member + ": trace name;";
    if constexpr (std::is_base_of_v<RStructure, C>) {
      const auto* at = reinterpret_cast<const unsigned char*>(&f.ref(obj));
      if (at < lo || at + sizeof(ASN1Object) > lo + sizeof(Peek)) faults += std::string(" ") + f.name + ": outside;";
      if (prev && at <= prev) faults += std::string(" ") + f.name + ": out of order;";
      prev = at;
    }
  }
  if (s.nFields != C::kComponentCount)
    faults += " " + std::to_string(s.nFields) + " rows for " + std::to_string(C::kComponentCount) + " components;";
  return faults.empty() ? faults : cls + faults;
}

const bool kRegistered = pkixtest::Register("RProbe", [] { return std::unique_ptr<ASN1Object>(new RProbe); });
const std::string kUtc = "170D3236313132323030303030305A";  // 261122000000Z

}  // namespace

// Each record: an encoding that must decode and encode back to the same bytes.
TEST(SchemaEngine, RoundTripsEveryTaggingKind) {
  ASSERT_TRUE(kRegistered);
  for (auto r : pkixtest::Vectors("engine/roundtrips.txt")) {
    RProbe p;
    EXPECT_TRUE(pkixtest::RoundTrips(p, qvatest::Hex(r["Input"]))) << r["Input"];
  }
}

TEST(SchemaEngine, MembersLandWhereTheSchemaSays) {
  RProbe p;
  const std::string kGen = "180F32303236313132323030303030305A";  // 20261122000000Z
  ASSERT_EQ(p.fromASN1Object(qvatest::Hex("302E020105" + kUtc + "A211" + kGen + "A3073105 0403414243")), 0);
  EXPECT_FALSE(p.hasVersion());
  EXPECT_EQ(qvatest::ToHex(p.getVersion().getValue()), "00");  // absent version reads as 0
  EXPECT_TRUE(p.getWhen().isUtcTime());
  EXPECT_FALSE(p.hasAlgorithm());
  ASSERT_TRUE(p.hasMoment());
  EXPECT_TRUE(p.getMoment().isGeneralTime());
  ASSERT_TRUE(p.hasExtra());
  EXPECT_EQ(qvatest::ToHex(p.getExtra().getElement()), "31050403414243");
  EXPECT_EQ(qvatest::ToHex(p.getExtra().getValue()), "0403414243");
  EXPECT_FALSE(p.hasList() || p.hasNote());
}

// Every structure and choice class of the family, and the probe.
TEST(SchemaEngine, RowsMatchTheMembers) {
  std::vector<std::string> faults;
  int checked = 0;
  auto check = [&](std::string fault) {
    ++checked;
    if (!fault.empty()) faults.push_back(fault);
  };
#define R(C) \
  if constexpr (std::is_base_of_v<RStructure, C> || std::is_base_of_v<RChoice, C>) check(RowFaults<C>(#C));
#include "PkixRegistry.inc"
#undef R
  check(RowFaults<RProbe>("RProbe"));
  EXPECT_GT(checked, 1);
  EXPECT_TRUE(faults.empty()) << ::testing::PrintToString(faults);
}

TEST(SchemaEngine, BuildsFromSetters) {
  RProbe p;
  p.getNumber().setValue("\x07", 1);
  p.getWhen().getUtcTime().setValue("261122000000Z");
  p.getWhen().select(p.getWhen().getUtcTime());
  ASN1Integer one;
  one.setValue("\x01", 1);
  p.getList().add(one);
  p.setPresent(p.getList(), true);
  const ByteString& der = p.toASN1Object();
  ASSERT_EQ(p.getErrorCode(), 0) << p.getErrorMessage().c_str();
  EXPECT_EQ(qvatest::ToHex(der), qvatest::ToHex(qvatest::Hex("3017020107" + kUtc + "A403020101")));
  RTime unset;  // a CHOICE with nothing selected has nothing to encode
  unset.toASN1Object();
  EXPECT_EQ(unset.getErrorCode(), R_ERR_CHOICE);
}

// A decode keeps one copy of its input and lets its values point into it.
// What is copied or moved out of the decoded object, and what several threads
// read from it at once, must read the same as a decode that copies every
// value, after the object and its input are gone.
TEST(SchemaEngine, ValuesLeaveTheDecodedInputIntact) {
  const ByteString der = pkixtest::Load("x509/korean/certs/test_KTNET_signCert.der");
  RCertificate copied;  // decoded from a view: every value copied
  ASSERT_EQ(0, copied.fromASN1View(der.data(), der.length()));
  const RTBSCertificate& want = copied.getTbsCertificate();

  auto* cert = new RCertificate;
  ASSERT_EQ(0, cert->fromASN1Object(ByteString(der)));  // the caller's bytes die here
  RRDNSequence subject = cert->getTbsCertificate().getSubject();
  RExtensions extensions = std::move(cert->getTbsCertificate().getExtensions());
  RAlgorithmIdentifier algorithm = std::move(cert->getSignatureAlgorithm());
  std::vector<std::thread> readers;
  std::vector<int> same(4, 0);
  for (int t = 0; t < 4; ++t)
    readers.emplace_back([&, t] {
      const RCertificate& shared = *cert;
      same[t] = shared.getRawTBSCertificate() == copied.getRawTBSCertificate() &&
                shared.getTbsCertificate().getSerialNumber().getValue() == want.getSerialNumber().getValue();
    });
  for (auto& r : readers) r.join();
  delete cert;

  EXPECT_EQ(std::vector<int>(4, 1), same);
  EXPECT_TRUE(subject.toASN1Object() == RRDNSequence(want.getSubject()).toASN1Object());
  EXPECT_TRUE(extensions.toASN1Object() == RExtensions(want.getExtensions()).toASN1Object());
  EXPECT_TRUE(algorithm.getAlgorithm().getValue() == copied.getSignatureAlgorithm().getAlgorithm().getValue());
}
