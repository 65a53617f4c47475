// The schema engine on a schema made for the test: every way a component can
// be tagged, recognised and left out.
#include <gtest/gtest.h>

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RTime.h"
#include "tests/support/TestUtil.h"

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

const char kUtc[] = "17 0D 3236313132323030303030305A";         // 261122000000Z
const char kGen[] = "18 0F 32303236313132323030303030305A";     // 20261122000000Z
const char kOid[] = "06 03 2A0304";

}  // namespace

// Each row: an encoding that must decode and encode back to the same bytes.
TEST(SchemaEngine, RoundTripsEveryTaggingKind) {
  struct Row {
    const char* what;
    std::string hex;
  } rows[] = {
      {"mandatory only; absent version stays absent", std::string("30 12 020105") + kUtc},
      {"explicit version", std::string("30 17 A003020102 020105") + kUtc},
      {"generalized time in the untagged choice", std::string("30 14 020105") + kGen},
      {"implicit constructed structure", std::string("30 19 020105") + kUtc + "A1 05" + kOid},
      {"explicit choice", std::string("30 25 020105") + kUtc + "A2 11" + kGen},
      {"explicit any keeps its bytes", std::string("30 1B 020105") + kUtc + "A3 07 3105 0403 414243"},
      {"implicit sequence of", std::string("30 1A 020105") + kUtc + "A4 06 020101 020102"},
      {"trailing optional universal", std::string("30 16 020105") + kUtc + "04 02 0102"},
      {"everything", std::string("30 3C A003020102 020105") + kUtc + "A1 05" + kOid + "A2 11" + kGen +
                         "A3 02 0500 A4 03 020107 04 00"},
  };
  for (const auto& r : rows) {
    const ByteString der = qvatest::Hex(r.hex);
    RProbe p;
    ASSERT_EQ(p.fromASN1Object(der), 0) << r.what << ": " << p.getErrorMessage().c_str();
    const ByteString& again = p.toASN1Object();
    ASSERT_EQ(p.getErrorCode(), 0) << r.what << ": " << p.getErrorMessage().c_str();
    EXPECT_EQ(qvatest::ToHex(again), qvatest::ToHex(der)) << r.what;
  }
}

TEST(SchemaEngine, MembersLandWhereTheSchemaSays) {
  RProbe p;
  ASSERT_EQ(p.fromASN1Object(qvatest::Hex(std::string("30 2E 020105") + kUtc + "A2 11" + kGen +
                                          "A3 07 3105 0403 414243")),
            0);
  EXPECT_FALSE(p.hasVersion());
  EXPECT_EQ(qvatest::ToHex(p.getVersion().getValue()), "00");  // absent version reads as 0
  EXPECT_TRUE(p.getWhen().isUtcTime());
  EXPECT_FALSE(p.hasAlgorithm());
  ASSERT_TRUE(p.hasMoment());
  EXPECT_TRUE(p.getMoment().isGeneralTime());
  ASSERT_TRUE(p.hasExtra());
  EXPECT_EQ(qvatest::ToHex(p.getExtra().getElement()), "31050403414243");
  EXPECT_EQ(qvatest::ToHex(p.getExtra().getValue()), "0403414243");
  EXPECT_FALSE(p.hasList());
  EXPECT_FALSE(p.hasNote());
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
  EXPECT_EQ(qvatest::ToHex(der), qvatest::ToHex(qvatest::Hex(std::string("30 17 020107") + kUtc + "A4 03 020101")));

  RTime unset;
  unset.toASN1Object();
  EXPECT_EQ(unset.getErrorCode(), R_ERR_CHOICE);
}

// Each row: a malformed encoding, the code and a text the trace must hold.
TEST(SchemaEngine, RefusalsNameTheComponent) {
  struct Row {
    const char* what;
    std::string hex;
    int code;
    const char* text;
  } rows[] = {
      {"count rule", "30 03 020105", R_ERR_COUNT, "RProbe::fromASN1Object-nCount(21), At least 2 components are required."},
      {"wrong universal tag", std::string("30 12 040105") + kUtc, R_ERR_TAG, "number component is not ASN1_TAG_INTEGER."},
      {"choice with no matching alternative", "30 06 020105 020101", R_ERR_TAG, "when component is not ASN1_TAG_UTCTIME."},
      {"member failure names the member", std::string("30 14 020105") + kUtc + "A2 00", 0, "-m_moment("},
      {"not a sequence", "31 00", 0, "RProbe::fromASN1Object-asnSeq("},
  };
  for (const auto& r : rows) {
    RProbe p;
    const int rc = p.fromASN1Object(qvatest::Hex(r.hex));
    EXPECT_NE(rc, 0) << r.what;
    if (r.code) {
      EXPECT_EQ(rc, r.code) << r.what;
    }
    EXPECT_NE(p.getErrorMessage().find(r.text), -1) << r.what << ": " << p.getErrorMessage().c_str();
  }
}
