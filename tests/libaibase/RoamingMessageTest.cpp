// Roaming messages: exact bytes (tests/data/protocol/roaming.txt), refusals
// with 190/191 and their traces, the dump file and round trips.
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "base/Messages.h"
#include "libaibase/clroamingmessage.h"
#include "tests/libaibase/ScopedTempCwd.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::Str;
using qvatest::ToHex;

namespace {

// Each test runs in a fresh folder: the parser writes its dump file into
// the current directory.
class RoamingMessage : public ::testing::Test {
 protected:
  bool DumpExists() const { return access(m_dir.file("wrongRoamingMessage.txt").c_str(), F_OK) == 0; }
  std::string DumpHex() const { return ToHex(qvatest::ReadFileBs(m_dir.file("wrongRoamingMessage.txt"))); }

  qvatest::ScopedTempCwd m_dir;
};

const std::string kLengthTrace =
    std::string("CLRoamingMessage::ParseRoamingMessage - ") + qva_msg::kRoamingLengthWrong + "(191)\r\n";

}  // namespace

TEST_F(RoamingMessage, VectorFile) {
  const auto records = qvatest::ReadVectors(qvatest::DataPath("protocol/roaming.txt"));
  ASSERT_EQ(records.size(), 16u);
  int n = 0;
  for (auto v : records) {
    SCOPED_TRACE("record " + std::to_string(++n) + ": " + v["Op"] + " [" + v["Message"] + "]");
    const ByteString bytes = Hex(v["Message"]);
    CLRoamingMessage m;
    const char* names[3] = {"Identifier", "Reference", "Body"};
    if (v["Op"] == "make") {
      ByteString fields[3];
      const ByteString* given[3] = {};
      for (int i = 0; i < 3; ++i) {
        if (v.count(names[i])) given[i] = &(fields[i] = Hex(v[names[i]]));
      }
      ASSERT_EQ(m.MakeRoamingMessage(static_cast<std::uint8_t>(std::stoul(v["Type"], nullptr, 16)),
                                     static_cast<std::uint8_t>(std::stoul(v["Status"], nullptr, 16)), given[0],
                                     given[1], given[2]),
                0);
      EXPECT_EQ(ToHex(m.GetMessage()), ToHex(bytes));
    }
    if (v["Op"] == "make" || v["Op"] == "parse") {
      CLRoamingMessage back;
      ASSERT_EQ(back.ParseRoamingMessage(bytes), 0);
      EXPECT_EQ(back.GetType(), std::stoul(v["Type"], nullptr, 16));
      EXPECT_EQ(back.GetStatus(), std::stoul(v["Status"], nullptr, 16));
      const ByteString* got[3] = {&back.GetIdentifier(), &back.GetReference(), &back.GetBody()};
      for (int i = 0; i < 3; ++i) EXPECT_EQ(ToHex(*got[i]), ToHex(Hex(v[names[i]]))) << names[i];
      EXPECT_FALSE(DumpExists());
      continue;
    }
    const bool ex = v["Op"] == "badex";
    ASSERT_TRUE(ex || v["Op"] == "bad");
    EXPECT_EQ(ex ? m.ParseRoamingMessageEx(&bytes) : m.ParseRoamingMessage(bytes), 191);
    EXPECT_EQ(m.GetErrorCode(), 191);
    EXPECT_EQ(Str(m.GetErrorMsg()), kLengthTrace);
    ASSERT_EQ(DumpExists(), !ex);
    if (!ex) {  // the dump holds the bytes; removed for the next record
      EXPECT_EQ(DumpHex(), ToHex(bytes));
      ASSERT_EQ(unlink(m_dir.file("wrongRoamingMessage.txt").c_str()), 0);
    }
  }
}

// A second malformed answer replaces the dump of the first (a longer one);
// a null message is 190 and leaves no dump.
TEST_F(RoamingMessage, DumpFileIsReplacedAndNullIsRefused) {
  CLRoamingMessage null, first, second;
  EXPECT_EQ(null.ParseRoamingMessage(nullptr), 190);
  EXPECT_EQ(Str(null.GetErrorMsg()), "CLRoamingMessage::ParseRoamingMessage - RoamingMessage is NULL.(190)\r\n");
  EXPECT_FALSE(DumpExists());
  ASSERT_EQ(first.ParseRoamingMessage(Hex("6a00 00 00000000 00000009 0102030405060708")), 191);
  ASSERT_EQ(second.ParseRoamingMessage(Hex("6b01 09")), 191);
  EXPECT_EQ(DumpHex(), "6b0109");
}

TEST_F(RoamingMessage, ExtendedFormWritesExtraFieldBeforeReference) {
  const ByteString first("A"), second("BC"), reference("ref"), extra("ext"), body = Hex("ff");
  CLRoamingMessage m, back;
  ASSERT_EQ(m.MakeRoamingMessageEx(0x10, 0x02, &first, 0x1f90, &second, 443, &reference, &extra, &body), 0);
  EXPECT_EQ(ToHex(m.GetMessage()), ToHex(Hex("1002 0141 1f90 024243 01bb 00000003 657874 00000003 726566 00000001 ff")));
  ASSERT_EQ(back.ParseRoamingMessageEx(&m.GetMessage()), 0);
  EXPECT_EQ(back.GetType(), 0x10u);
  EXPECT_EQ(back.GetStatus(), 2u);
  EXPECT_EQ(Str(back.GetFirstIdentifier()) + "/" + Str(back.GetSecondIdentifier()), "A/BC");
  EXPECT_EQ(back.GetFirstPort(), 0x1f90);
  EXPECT_EQ(back.GetSecondPort(), 443);
  EXPECT_EQ(Str(back.GetExtraField()) + "/" + Str(back.GetReference()), "ext/ref");
  EXPECT_EQ(ToHex(back.GetBody()), "ff");
  EXPECT_EQ(back.GetIdentifier().length(), 0);  // the other form's identifier is not touched
}

TEST_F(RoamingMessage, RoundTripKeepsEveryByte) {
  for (int n : {0, 1, 255, 4096}) {
    SCOPED_TRACE(n);
    const ByteString id = qvatest::RandomBytes(static_cast<std::size_t>(n % 256), n + 1);
    const ByteString ref = qvatest::RandomBytes(static_cast<std::size_t>(n), n + 2);
    const ByteString body = qvatest::RandomBytes(static_cast<std::size_t>(n) * 3, n + 3);
    CLRoamingMessage out, in;
    ASSERT_EQ(out.MakeRoamingMessage(106, 0, &id, &ref, &body), 0);
    EXPECT_EQ(out.GetMessage().length(), 11 + id.length() + ref.length() + body.length());
    ASSERT_EQ(in.ParseRoamingMessage(out.GetMessage()), 0);
    EXPECT_TRUE(in.GetIdentifier() == id && in.GetReference() == ref && in.GetBody() == body);
  }
}
