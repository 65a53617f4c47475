// Protocol records: exact bytes, refusals with their codes and traces, the
// content-type tests (tests/data/protocol/records.txt) and round trips.
#include <gtest/gtest.h>

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

struct Result {
  int rc;
  ByteString record, data;
  std::string trace;
};

// One Make (make set) or Parse on a fresh object of the named kind.
Result Do(const std::string& kind, bool make, int version, int type, const ByteString& in) {
  CLPlain p;
  CLAlert a;
  CLHandshake h;
  CLApplicationData d;
  int rc;
  if (kind == "Plain") rc = make ? p.MakePlain(version, in) : p.ParsePlain(in);
  else if (kind == "Alert") rc = make ? a.MakeAlert(version, in) : a.ParseAlert(in);
  else if (kind == "Handshake") rc = make ? h.MakeHandshake(version, type, in) : h.ParseHandshake(in);
  else rc = make ? d.MakeApplicationData(version, in) : d.ParseApplicationData(in);
  const CLRecord& r = kind == "Plain" ? static_cast<const CLRecord&>(p)
                      : kind == "Alert" ? static_cast<const CLRecord&>(a)
                      : kind == "Handshake" ? static_cast<const CLRecord&>(h) : static_cast<const CLRecord&>(d);
  return {rc, r.GetRecord(), r.GetData(), Str(r.GetErrorMsg())};
}

// The data files write the two line-end bytes as \r\n.
std::string Unescape(std::string s) {
  for (std::size_t at; (at = s.find("\\r\\n")) != std::string::npos;) s.replace(at, 4, "\r\n");
  return s;
}

}  // namespace

TEST(Record, VectorFile) {
  const auto records = qvatest::ReadVectors(qvatest::DataPath("protocol/records.txt"));
  ASSERT_EQ(records.size(), 34u);
  int n = 0;
  for (auto v : records) {
    SCOPED_TRACE("record " + std::to_string(++n) + ": " + v["Op"] + " " + v["Kind"] + " [" + v["Record"] + "]");
    const ByteString record = Hex(v["Record"]);
    if (v["Op"] == "make") {
      const int type = v.count("HandshakeType") ? std::stoi(v["HandshakeType"]) : 0;
      const Result got = Do(v["Kind"], true, std::stoi(v["Version"]), type, Hex(v["Data"]));
      EXPECT_EQ(got.rc, std::stoi(v["Code"]));
      EXPECT_EQ(ToHex(got.record), ToHex(record));
    } else if (v["Op"] == "parse") {
      const Result got = Do(v["Kind"], false, 0, 0, record);
      EXPECT_EQ(got.rc, std::stoi(v["Code"]));
      EXPECT_EQ(ToHex(got.rc == 0 ? got.data : ByteString()), ToHex(Hex(v["Data"])));
      EXPECT_EQ(got.trace, Unescape(v["Trace"]));
      if (v["Kind"] == "Plain") {  // read in place: the same outcome, the data viewed
        CLPlain p;
        ByteReader data;
        EXPECT_EQ(p.ParsePlain(record, &data), got.rc);
        EXPECT_EQ(Str(p.GetErrorMsg()), got.trace);
        const ByteString viewed(data.data(), static_cast<int>(data.remaining()));
        EXPECT_EQ(ToHex(got.rc == 0 ? viewed : ByteString()), ToHex(got.data));
      }
    } else if (v["Op"] == "type") {
      EXPECT_EQ(CLAlert::IsAlert(record), v["Alert"] == "true");
      EXPECT_EQ(CLPlain::IsPlain(record), v["Plain"] == "true");
    } else {
      ASSERT_EQ(v["Op"], "manager");
      const bool plain = v["Kind"] == "Plain";
      CLSecureManager m(nullptr, nullptr);
      if (v.count("Data")) {  // the record parsed is the manager's own output
        ASSERT_EQ(plain ? m.MakePlainData(Hex(v["Data"])) : m.MakeAlert(Hex(v["Data"])), 0);
        EXPECT_EQ(ToHex(m.GetOutput()), ToHex(record));
        ASSERT_EQ(plain ? m.ParsePlain(m.GetOutput()) : m.ParseAlert(m.GetOutput()), 0);
        EXPECT_EQ(ToHex(m.GetOutput()), ToHex(Hex(v["Data"])));
        continue;
      }
      EXPECT_EQ(plain ? m.ParsePlain(record) : m.ParseAlert(record), std::stoi(v["Code"]));
      EXPECT_EQ(m.GetErrorCode(), std::stoi(v["Code"]));
      EXPECT_EQ(Str(m.GetErrorMsg()), Unescape(v["Trace"]));
      if (plain) {  // read in place: the same code and trace
        CLSecureManager inPlace(nullptr, nullptr);
        ByteReader data;
        EXPECT_EQ(inPlace.ParsePlain(record, &data), std::stoi(v["Code"]));
        EXPECT_EQ(Str(inPlace.GetErrorMsg()), Unescape(v["Trace"]));
      }
    }
  }
}

// Parse keeps the header fields; Make appends to what the object holds and a
// refused Make leaves it as it was.
TEST(Record, HeaderFieldsAndAppending) {
  CLHandshake h;
  ASSERT_EQ(h.ParseHandshake(Hex("16070000000504 00000000")), 0);
  EXPECT_EQ(h.GetContentType(), 0x16u);
  EXPECT_EQ(h.GetVersion(), 7u);
  EXPECT_EQ(h.GetHandshakeType(), 4u);
  CLPlain p;
  ASSERT_EQ(p.MakePlain(1, Hex("aa")), 0);
  ASSERT_EQ(p.MakePlain(1, Hex("bbcc")), 0);
  EXPECT_EQ(ToHex(p.GetRecord()), "14010000000500000001aa14010000000600000002bbcc");
  EXPECT_EQ(p.MakePlain(-5, Hex("dd")), 100);
  EXPECT_EQ(p.GetRecord().length(), 23);
}

// Every kind round-trips at several sizes; cutting the last byte always
// breaks the length rule.
TEST(Record, RoundTripsEveryKindAtSeveralSizes) {
  for (const char* kind : {"Plain", "Alert", "Handshake", "ApplicationData"}) {
    for (std::size_t n : {0u, 1u, 255u, 256u, 70000u}) {
      SCOPED_TRACE(std::string(kind) + " " + std::to_string(n));
      const ByteString data = qvatest::RandomBytes(n, static_cast<unsigned>(n) + 7);
      const Result made = Do(kind, true, 1, 3, data);
      ASSERT_EQ(made.rc, 0);
      const Result got = Do(kind, false, 0, 0, made.record);
      ASSERT_EQ(got.rc, 0);
      EXPECT_EQ(got.data, data);
      EXPECT_NE(Do(kind, false, 0, 0, made.record.mid(0, made.record.length() - 1)).rc, 0);
    }
  }
}
