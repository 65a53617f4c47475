#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "libaibase/clalert.h"
#include "libaibase/clapplicationdata.h"
#include "libaibase/clhandshake.h"
#include "libaibase/clplain.h"
#include "libaibase/clsecuremanager.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::Str;
using qvatest::ToHex;

namespace {

enum class Kind { Plain, Alert, Handshake, ApplicationData };

// Makes one record of the given kind on a fresh object.
int MakeOne(Kind kind, int version, int handshakeType, const ByteString& data, ByteString* record) {
  int rc = 0;
  switch (kind) {
    case Kind::Plain: {
      CLPlain r;
      rc = r.MakePlain(version, data);
      *record = r.GetRecord();
      break;
    }
    case Kind::Alert: {
      CLAlert r;
      rc = r.MakeAlert(version, data);
      *record = r.GetRecord();
      break;
    }
    case Kind::Handshake: {
      CLHandshake r;
      rc = r.MakeHandshake(version, handshakeType, data);
      *record = r.GetRecord();
      break;
    }
    case Kind::ApplicationData: {
      CLApplicationData r;
      rc = r.MakeApplicationData(version, data);
      *record = r.GetRecord();
      break;
    }
  }
  return rc;
}

struct ParseResult {
  int rc;
  std::string data;
  std::string trace;
};

ParseResult ParseOne(Kind kind, const ByteString& record) {
  auto finish = [](int rc, const CLRecord& r) { return ParseResult{rc, Str(r.GetData()), Str(r.GetErrorMsg())}; };
  switch (kind) {
    case Kind::Plain: {
      CLPlain r;
      const int rc = r.ParsePlain(record);
      return finish(rc, r);
    }
    case Kind::Alert: {
      CLAlert r;
      const int rc = r.ParseAlert(record);
      return finish(rc, r);
    }
    case Kind::Handshake: {
      CLHandshake r;
      const int rc = r.ParseHandshake(record);
      return finish(rc, r);
    }
    case Kind::ApplicationData: {
      CLApplicationData r;
      const int rc = r.ParseApplicationData(record);
      return finish(rc, r);
    }
  }
  return {};
}

}  // namespace

TEST(Record, MakeWritesHeaderAndBodyOrRefusesRanges) {
  struct Case {
    const char* name;
    Kind kind;
    int version, handshakeType;
    std::string dataHex;
    int rc;
    std::string recordHex;
  } cases[] = {
      // Empty plain data: header + 4-byte zero length.
      {"plain empty", Kind::Plain, 1, 0, "", 0, "14010000000400000000"},
      // Handshake body: type byte, then the length and Hello.
      {"handshake hello", Kind::Handshake, 1, 1, "48656c6c6f", 0, "16010000000a010000000548656c6c6f"},
      {"alert", Kind::Alert, 1, 0, "41", 0, "150100000005000000 0141"},
      {"application data", Kind::ApplicationData, 1, 0, "0102", 0, "17010000000600000002 0102"},
      // Version 0 and 255 are the ends of the accepted range.
      {"version 0", Kind::Plain, 0, 0, "", 0, "14000000000400000000"},
      {"version 255", Kind::Alert, 255, 0, "", 0, "15ff00000004 00000000"},
      {"version 256", Kind::Alert, 256, 0, "41", 100, ""},
      {"version -1", Kind::Plain, -1, 0, "41", 100, ""},
      {"application data version 300", Kind::ApplicationData, 300, 0, "", 100, ""},
      {"handshake type -1", Kind::Handshake, 1, -1, "41", 110, ""},
      {"handshake type 256", Kind::Handshake, 1, 256, "41", 110, ""},
      // The version is checked before the handshake type.
      {"both out of range", Kind::Handshake, 256, 256, "41", 100, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ByteString record;
    EXPECT_EQ(MakeOne(c.kind, c.version, c.handshakeType, Hex(c.dataHex), &record), c.rc);
    EXPECT_EQ(ToHex(record), ToHex(Hex(c.recordHex)));
  }
}

TEST(Record, ParseChecksOnlyTheLengthsAndNeverReadsPastTheEnd) {
  struct Case {
    const char* name;
    Kind kind;
    std::string recordHex;
    int rc;
    std::string data;
    std::string trace;
  } cases[] = {
      {"plain", Kind::Plain, "14010000000700000003616263", 0, "abc", ""},
      // The body-length field is not compared with anything.
      {"wrong body length", Kind::Plain, "1401ffffffff00000003616263", 0, "abc", ""},
      // Byte 0 is not compared with the parser's own type.
      {"alert read as plain", Kind::Plain, "1501000000050000000178", 0, "x", ""},
      {"empty data", Kind::Alert, "15010000000400000000", 0, "", ""},
      {"trailing byte", Kind::Plain, "1401000000070000000261626300", 130, "",
       "CLPlain::ParsePlain - Plain Message(130)\r\n"},
      {"data length past end", Kind::Plain, "1401000000070000ffff6162", 130, "",
       "CLPlain::ParsePlain - Plain Message(130)\r\n"},
      // Shorter than the fixed fields: refused, not read past the end.
      {"five bytes", Kind::Plain, "1401000000", 130, "", "CLPlain::ParsePlain - Plain Message(130)\r\n"},
      {"nothing", Kind::Alert, "", 120, "", "CLAlert::ParseAlert - Alert Message(120)\r\n"},
      {"alert short", Kind::Alert, "150100000005000000", 120, "", "CLAlert::ParseAlert - Alert Message(120)\r\n"},
      {"application data mismatch", Kind::ApplicationData, "170100000006000000030102", 101, "",
       "CLApplicationData::ParseApplicationData - Application Data Message(101)\r\n"},
      {"handshake", Kind::Handshake, "16010000000a010000000548656c6c6f", 0, "Hello", ""},
      // Ten bytes are a whole plain header but one short of a handshake's.
      {"handshake ten bytes", Kind::Handshake, "16010000000501000000", 111, "",
       "CLHandshake::ParseHandshake - Secure Message(111)\r\n"},
      {"handshake one short", Kind::Handshake, "16010000000a010000000548656c6c", 111, "",
       "CLHandshake::ParseHandshake - Secure Message(111)\r\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ParseResult got = ParseOne(c.kind, Hex(c.recordHex));
    EXPECT_EQ(got.rc, c.rc);
    if (c.rc == 0) {
      EXPECT_EQ(got.data, c.data);
    }
    EXPECT_EQ(got.trace, c.trace);
  }
}

TEST(Record, ParseKeepsHeaderFieldsAndHandshakeType) {
  CLHandshake h;
  ASSERT_EQ(h.ParseHandshake(Hex("16070000000504 00000000")), 0);
  EXPECT_EQ(h.GetContentType(), 0x16u);
  EXPECT_EQ(h.GetVersion(), 7u);
  EXPECT_EQ(h.GetHandshakeType(), 4u);
}

TEST(Record, MakeAppendsToWhatTheObjectHolds) {
  CLPlain p;
  ASSERT_EQ(p.MakePlain(1, Hex("aa")), 0);
  ASSERT_EQ(p.MakePlain(1, Hex("bbcc")), 0);
  EXPECT_EQ(ToHex(p.GetRecord()),
            "14010000000500000001aa"
            "14010000000600000002bbcc");
  // A refused Make leaves the object as it was.
  EXPECT_EQ(p.MakePlain(-5, Hex("dd")), 100);
  EXPECT_EQ(p.GetRecord().length(), 23);
}

TEST(Record, RoundTripsEveryKindAtSeveralSizes) {
  for (Kind kind : {Kind::Plain, Kind::Alert, Kind::Handshake, Kind::ApplicationData}) {
    for (std::size_t n : {0u, 1u, 255u, 256u, 70000u}) {
      SCOPED_TRACE(n);
      const ByteString data = qvatest::RandomBytes(n, static_cast<unsigned>(n) + 7);
      ByteString record;
      ASSERT_EQ(MakeOne(kind, 1, 3, data, &record), 0);
      const ParseResult got = ParseOne(kind, record);
      ASSERT_EQ(got.rc, 0);
      EXPECT_EQ(got.data, Str(data));
      // Cutting the last byte always breaks the length rule.
      EXPECT_NE(ParseOne(kind, record.mid(0, record.length() - 1)).rc, 0);
    }
  }
}

TEST(Record, ContentTypeTests) {
  struct Case {
    const char* name;
    std::string hex;
    bool alert, plain;
  } cases[] = {
      {"plain record", "14010000000400000000", false, true},
      {"alert record", "15010000000400000000", true, false},
      {"handshake record", "16010000000501 00000000", false, false},
      // Only byte 0 counts: a lone type byte is enough.
      {"lone alert byte", "15", true, false},
      {"empty", "", false, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ByteString r = Hex(c.hex);
    EXPECT_EQ(CLAlert::IsAlert(r), c.alert);
    EXPECT_EQ(CLPlain::IsPlain(r), c.plain);
    EXPECT_EQ(CLSecureManager::IsAlert(r), c.alert);
    EXPECT_EQ(CLSecureManager::IsPlain(r), c.plain);
  }
}

TEST(SecureManager, PlainAndAlertOperationsLeaveRecordOrBareData) {
  CLSecureManager m(nullptr, nullptr);
  ASSERT_EQ(m.MakePlainData(ByteString("req")), 0);
  EXPECT_EQ(ToHex(m.GetOutput()), "14010000000700000003726571");
  const ByteString plain = m.GetOutput();
  ASSERT_EQ(m.ParsePlain(plain), 0);
  EXPECT_EQ(Str(m.GetOutput()), "req");

  ASSERT_EQ(m.MakeAlert(ByteString("no")), 0);
  EXPECT_EQ(ToHex(m.GetOutput()), "150100000006000000026e6f");
  ASSERT_EQ(m.ParseAlert(m.GetOutput()), 0);
  EXPECT_EQ(Str(m.GetOutput()), "no");
}

TEST(SecureManager, FailuresCarryTheRecordTraceUnderTheManagerLine) {
  struct Case {
    const char* name;
    std::function<int(CLSecureManager&)> op;
    int rc;
    std::string trace;
  } cases[] = {
      {"parse plain", [](CLSecureManager& m) { return m.ParsePlain(Hex("14")); }, 130,
       "CLSecureManager::ParsePlain - plain.ParsePlain(130)\r\nCLPlain::ParsePlain - Plain Message(130)\r\n"},
      {"parse alert", [](CLSecureManager& m) { return m.ParseAlert(Hex("150100000004000000")); }, 120,
       "CLSecureManager::ParseAlert - alert.ParseAlert(120)\r\nCLAlert::ParseAlert - Alert Message(120)\r\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CLSecureManager m(nullptr, nullptr);
    EXPECT_EQ(c.op(m), c.rc);
    EXPECT_EQ(m.GetErrorCode(), c.rc);
    EXPECT_EQ(Str(m.GetErrorMsg()), c.trace);
  }
}
