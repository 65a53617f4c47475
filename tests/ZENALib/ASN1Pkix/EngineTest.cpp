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
class RProbe : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ASN1Integer, Number, number)
  R_COMPONENT(RTime, When, when)
  R_COMPONENT(RAlgorithmIdentifier, Algorithm, algorithm)
  R_COMPONENT(RTime, Moment, moment)
  R_COMPONENT(RAny, Extra, extra)
  R_COMPONENT(RIntegers, List, list)
  R_COMPONENT(ASN1OctetString, Note, note)
};

const RField RProbe::kFields[] = {
    R_FIELD_EXPLICIT(RProbe, version, 0, R_VERSION),
    R_FIELD(RProbe, number, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD_TAGS(RProbe, when, ASN1_TAG_UTCTIME, R_TAGS_TIME, R_MANDATORY),
    R_FIELD_IMPLICIT(RProbe, algorithm, 1, R_OPTIONAL),
    R_FIELD_EXPLICIT(RProbe, moment, 2, R_OPTIONAL),
    R_FIELD_EXPLICIT(RProbe, extra, 3, R_OPTIONAL),
    R_FIELD_IMPLICIT(RProbe, list, 4, R_OPTIONAL),
    R_FIELD(RProbe, note, ASN1_TAG_OCTETSTRING, R_OPTIONAL),
};
const RSchema RProbe::kSchema =
    R_SCHEMA(RProbe, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, "At least 2 components are required."), kFields);

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
