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
  std::string Dump() const { return qvatest::ReadFile(m_dir.file("wrongRoamingMessage.txt")); }

  qvatest::ScopedTempCwd m_dir;
};

const std::string kLengthTrace =
    std::string("CLRoamingMessage::ParseRoamingMessage - ") + qva_msg::kRoamingLengthWrong + "(191)\r\n";

}  // namespace

TEST_F(RoamingMessage, MakeWritesFieldsInWireOrder) {
  const ByteString empty(""), id("R"), ref("ref"), body = Hex("010203");
  struct Case {
    const char* name;
    int type, status;
    const ByteString *identifier, *reference, *body;
    std::string hex;
  } cases[] = {
      // Absent fields: a zero length byte and two zero 4-byte lengths, 11 bytes in all.
      {"all absent", 0x6a, 0, nullptr, nullptr, nullptr, "6a00 00 00000000 00000000"},
      {"all empty", 0x6b, 0, &empty, &empty, &empty, "6b00 00 00000000 00000000"},
      {"identifier only", 0x6a, 0, &id, nullptr, nullptr, "6a00 0152 00000000 00000000"},
      {"every field", 0x6a, 7, &id, &ref, &body, "6a07 0152 00000003 726566 00000003 010203"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CLRoamingMessage m;
    ASSERT_EQ(m.MakeRoamingMessage(static_cast<std::uint8_t>(c.type), static_cast<std::uint8_t>(c.status), c.identifier,
                                   c.reference, c.body),
              0);
    EXPECT_EQ(ToHex(m.GetMessage()), ToHex(Hex(c.hex)));
  }
}

TEST_F(RoamingMessage, ParseReadsEveryFieldAndTheStatusUnchanged) {
  CLRoamingMessage m;
  ASSERT_EQ(m.ParseRoamingMessage(Hex("6b ff 02 4944 00000001 52 00000002 0a0b")), 0);
  EXPECT_EQ(m.GetType(), 0x6bu);
  EXPECT_EQ(m.GetStatus(), 0xffu);
  EXPECT_EQ(Str(m.GetIdentifier()), "ID");
  EXPECT_EQ(Str(m.GetReference()), "R");
  EXPECT_EQ(ToHex(m.GetBody()), "0a0b");
  EXPECT_FALSE(DumpExists());
}

TEST_F(RoamingMessage, MalformedRepliesFailWith191AndAreDumped) {
  struct Case {
    const char* name;
    std::string hex;
  } cases[] = {
      {"nothing", ""},
      {"two bytes", "6a00"},
      {"identifier past end", "6a00 05 4142"},
      // The body length is one byte short of what follows.
      {"body length one short", "6a00 00 00000000 00000002 010203"},
      {"body length one long", "6a00 00 00000000 00000004 010203"},
      // A length that runs far past the end must not be copied from beyond it.
      {"reference length huge", "6a00 00 ffffffff 00"},
      {"body length huge", "6a00 00 00000000 ffffffff 01"},
      {"body length missing", "6a00 00 00000000 0000"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ByteString bytes = Hex(c.hex);
    CLRoamingMessage m;
    EXPECT_EQ(m.ParseRoamingMessage(bytes), 191);
    EXPECT_EQ(m.GetErrorCode(), 191);
    EXPECT_EQ(Str(m.GetErrorMsg()), kLengthTrace);
    ASSERT_TRUE(DumpExists());
    EXPECT_EQ(qvatest::ToHex(ByteString(Dump().data(), static_cast<int>(Dump().size()))), ToHex(bytes));
  }
}

TEST_F(RoamingMessage, DumpFileIsReplacedNotAppended) {
  const ByteString longer = Hex("6a00 00 00000000 00000009 0102030405060708");
  const ByteString shorter = Hex("6b01 09");
  CLRoamingMessage first, second;
  ASSERT_EQ(first.ParseRoamingMessage(longer), 191);
  ASSERT_EQ(second.ParseRoamingMessage(shorter), 191);
  EXPECT_EQ(qvatest::ToHex(qvatest::ReadFileBs(m_dir.file("wrongRoamingMessage.txt"))), ToHex(shorter));
}

TEST_F(RoamingMessage, NullMessageIs190WithoutDump) {
  CLRoamingMessage m;
  EXPECT_EQ(m.ParseRoamingMessage(nullptr), 190);
  EXPECT_EQ(Str(m.GetErrorMsg()), "CLRoamingMessage::ParseRoamingMessage - RoamingMessage is NULL.(190)\r\n");
  EXPECT_FALSE(DumpExists());
}

TEST_F(RoamingMessage, ExtendedFormWritesExtraFieldBeforeReference) {
  const ByteString first("A"), second("BC"), reference("ref"), extra("ext"), body = Hex("ff");
  CLRoamingMessage m;
  ASSERT_EQ(m.MakeRoamingMessageEx(0x10, 0x02, &first, 0x1f90, &second, 443, &reference, &extra, &body), 0);
  const std::string wire = "1002 0141 1f90 024243 01bb 00000003 657874 00000003 726566 00000001 ff";
  EXPECT_EQ(ToHex(m.GetMessage()), ToHex(Hex(wire)));

  CLRoamingMessage back;
  ASSERT_EQ(back.ParseRoamingMessageEx(&m.GetMessage()), 0);
  EXPECT_EQ(back.GetType(), 0x10u);
  EXPECT_EQ(back.GetStatus(), 2u);
  EXPECT_EQ(Str(back.GetFirstIdentifier()), "A");
  EXPECT_EQ(back.GetFirstPort(), 0x1f90);
  EXPECT_EQ(Str(back.GetSecondIdentifier()), "BC");
  EXPECT_EQ(back.GetSecondPort(), 443);
  EXPECT_EQ(Str(back.GetExtraField()), "ext");
  EXPECT_EQ(Str(back.GetReference()), "ref");
  EXPECT_EQ(ToHex(back.GetBody()), "ff");
  // The short identifier of the other form is not touched.
  EXPECT_EQ(back.GetIdentifier().length(), 0);
}

TEST_F(RoamingMessage, ExtendedParseRefusesBadLengthsWithoutDump) {
  struct Case {
    const char* name;
    std::string hex;
  } cases[] = {
      {"trailing byte", "1002 00 0000 00 0000 00000000 00000000 00000000 00"},
      {"extra field past end", "1002 00 0000 00 0000 00000010 00000000"},
      {"no second port", "1002 0141 1f90 00"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CLRoamingMessage m;
    const ByteString bytes = Hex(c.hex);
    EXPECT_EQ(m.ParseRoamingMessageEx(&bytes), 191);
    EXPECT_EQ(Str(m.GetErrorMsg()), kLengthTrace);
  }
  EXPECT_FALSE(DumpExists());
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
    EXPECT_TRUE(in.GetIdentifier() == id);
    EXPECT_TRUE(in.GetReference() == ref);
    EXPECT_TRUE(in.GetBody() == body);
  }
}
