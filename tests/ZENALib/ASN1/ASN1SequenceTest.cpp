// The component table of sequences and sets: offsets, lengths and tag keys
// as structure classes read them, growth, copies and the refusals.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1Sequence.h"
#include "ZENALib/ASN1/ASN1Set.h"
#include "tests/ZENALib/ASN1/ASN1TestUtil.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::Str;
using qvatest::ToHex;

TEST(ASN1Sequence, WalksComponentsOfEveryKind) {
  struct Component {
    const char* encoding;
    int key;  // getComponentOptionTagNo
    int tag;  // getComponentTag
  };
  const Component components[] = {
      {"020101", -2, 2},                  // INTEGER
      {"a003020102", 0, -2},              // [0] explicit
      {"810141", 1, -2},                  // [1] implicit
      {"3006020101020102", -16, 16},      // nested SEQUENCE
      {"31800201010000", -17, 17},        // indefinite SET, kept with its end octets
      {"bf810003020101", 128, -2},        // [128] explicit, high tag
      {"5f1f0100", 31, -2},               // [APPLICATION 31], high tag
      {"0000", 0, 0},                     // universal tag 0 shares key 0 with [0]
      {"04820100" "%256", -4, 4},         // OCTET STRING with a long-form length
      {"1e0400410042", -30, 30},          // BMPString
  };
  std::string value;
  for (const Component& c : components) {
    std::string e = c.encoding;
    const auto fill = e.find("%256");
    if (fill != std::string::npos) e = e.substr(0, fill) + std::string(512, 'a');
    value += e;
  }
  const ByteString content = Hex(value);
  ByteString der = Hex("3082");
  der.append("\x00\x00", 2);
  der.setAt(2, static_cast<char>(content.length() >> 8));
  der.setAt(3, static_cast<char>(content.length() & 0xFF));
  der += content;

  ASN1Sequence seq;
  ASSERT_EQ(0, seq.fromASN1Object(der)) << Str(seq.getErrorMessage());
  ASSERT_EQ(10, seq.getComponentCount());
  int offset = 0;
  for (int i = 0; i < seq.getComponentCount(); ++i) {
    SCOPED_TRACE(i);
    const ASN1Sequence::ComponentInfo* info = seq.getComponentInfo(i);
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(offset, info->nOffset);
    EXPECT_EQ(components[i].key, seq.getComponentOptionTagNo(i));
    EXPECT_EQ(components[i].tag, seq.getComponentTag(i));
    const ByteString& component = seq.getComponent(i);
    EXPECT_EQ(content.mid(offset, info->nLength), component);
    offset += info->nLength;
  }
  EXPECT_EQ(content.length(), offset);

  // Out of range on either side.
  for (int i : {-1, 10, 1000}) {
    EXPECT_EQ(-1, seq.getComponentOptionTagNo(i));
    EXPECT_EQ(-1, seq.getComponentTag(i));
    EXPECT_EQ(0, seq.getComponent(i).length());
    EXPECT_EQ(1, seq.getErrorCode());
  }
}

TEST(ASN1Sequence, BuildsWhatItWalksAndGrowsInSteps) {
  // 45 components: the table grows three times by 20 entries.
  ASN1Sequence built;
  for (int i = 0; i < 45; ++i) {
    ASN1Integer n(i * 1000 - 7);
    if (i % 3 == 1) n.setImplicitTag(i, ASN1_CLASS_CONTEXT);
    if (i % 3 == 2) n.setExplicitTag(i, ASN1_CLASS_CONTEXT);
    ASSERT_EQ(0, built.addComponent(n.toASN1Object()));
  }
  EXPECT_EQ(45, built.getComponentCount());
  const ByteString der = built.toASN1Object();

  ASN1Sequence walked;
  ASSERT_EQ(0, walked.fromASN1Object(der));
  ASSERT_EQ(45, walked.getComponentCount());
  for (int i = 0; i < 45; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(i % 3 ? i : -ASN1_TAG_INTEGER, walked.getComponentOptionTagNo(i));
    EXPECT_EQ(built.getComponentOptionTagNo(i), walked.getComponentOptionTagNo(i));
    EXPECT_EQ(built.getComponentInfo(i)->nLength, walked.getComponentInfo(i)->nLength);
    ASN1Integer n;
    if (i % 3 == 2) n.setExplicitTag(i, ASN1_CLASS_CONTEXT);
    ASSERT_EQ(0, n.fromASN1Object(walked.getComponent(i)));
    EXPECT_EQ(i * 1000 - 7, n.getInteger());
  }

  // Copies are deep and keep the table; moves leave the source empty.
  ASN1Sequence copy(walked);
  walked.removeAllComponents();
  EXPECT_EQ(0, walked.getComponentCount());
  EXPECT_EQ(45, copy.getComponentCount());
  EXPECT_EQ(der, copy.toASN1Object());
  ASN1Sequence moved(std::move(copy));
  EXPECT_EQ(45, moved.getComponentCount());
  EXPECT_EQ(0, copy.getComponentCount());  // NOLINT(bugprone-use-after-move): a moved-from sequence is empty
  ASN1Sequence assigned;
  assigned = moved;
  EXPECT_EQ(der, assigned.toASN1Object());

  // setValue rebuilds the table from the new contents.
  ASN1Sequence fromValue;
  ASSERT_EQ(0, fromValue.setValue(Hex("0201010500")));
  EXPECT_EQ(2, fromValue.getComponentCount());
  EXPECT_EQ(5, fromValue.getComponentTag(1));
}

TEST(ASN1Sequence, WalksALongSequenceOf) {
  // 200000 NULLs behind a four-octet length: every entry lands where it belongs.
  const int count = 200000;
  ByteString der = qvatest::Hex("3084");
  const std::uint32_t len = 2u * count;
  for (int shift = 24; shift >= 0; shift -= 8) der += static_cast<char>((len >> shift) & 0xFF);
  ByteString nulls;
  nulls.resize(2 * count);
  for (int i = 0; i < count; ++i) nulls.setAt(2 * i, 0x05);
  der += nulls;
  ASN1Sequence seq;
  ASSERT_EQ(0, seq.fromASN1Object(der));
  ASSERT_EQ(count, seq.getComponentCount());
  for (int i : {0, 19, 20, 39, 40, 12345, count - 1}) {
    EXPECT_EQ(2 * i, seq.getComponentInfo(i)->nOffset);
    EXPECT_EQ(2, seq.getComponentInfo(i)->nLength);
    EXPECT_EQ(-ASN1_TAG_NULLTAG, seq.getComponentOptionTagNo(i));
  }
}

TEST(ASN1Sequence, RefusesWithCodeAndTrace) {
  const std::string walk = "[ASN1Sequence.cpp:#]ASN1Sequence::fromASN1Object-ExtractComponentInfo(3), ";
  struct Case {
    const char* name;
    const char* input;
    int code;
    std::string trace;
  };
  const Case cases[] = {
      {"outer element", "3005020101", 1,
       "[ASN1Sequence.cpp:#]ASN1Sequence::fromASN1Object-ASN1Object::fromASN1Object(1), "
       "[ASN1Object.cpp:#]ASN1Object::fromASN1Object-nValueLen(12), ASN1 Format(Length) Error"},
      {"a SET is not a SEQUENCE", "3100", 2,
       "[ASN1Sequence.cpp:#]ASN1Sequence::fromASN1Object-m_ucPrimitiveTag(2), TagType(17)is not ASN1_TAG_SEQUENCE"},
      // A typed object keeps its own tag under an explicit tag: the INTEGER's
      // contents are then walked as components.
      {"explicit tag around an INTEGER", "a003020101", 3,
       walk + "[ASN1Sequence.cpp:#]ASN1Sequence::ExtractComponentInfo-nValueLen(4), ASN1 Format(Length) Error"},
      {"component with a bad identifier", "30020e00", 3,
       walk + "[ASN1Sequence.cpp:#]ASN1Sequence::ExtractComponentInfo-checkASN1Member(1), "
              "[ASN1Object.cpp:#]ASN1Object::checkASN1Member-CheckASN1Member(1), Tag(14) is not ASN1 Member"},
      {"component with a five-octet identifier", "30069f8182838400", 3,
       walk + "[ASN1Sequence.cpp:#]ASN1Sequence::ExtractComponentInfo-GetHighTag(3), "
              "[ASN1Object.cpp:#]ASN1Object::GetHighTag-nTagValue(0), Too Long(>4)"},
      {"component running past the contents", "3004020101 02", 3,
       walk + "[ASN1Sequence.cpp:#]ASN1Sequence::ExtractComponentInfo-nValueLen(4), ASN1 Format(Length) Error"},
      {"component longer than the contents", "30030202 01 ff", 3,
       walk + "[ASN1Sequence.cpp:#]ASN1Sequence::ExtractComponentInfo-nValueLen(4), ASN1 Format(Length) Error"},
      {"component with an unterminated indefinite length", "3004308002 01", 3,
       walk + "[ASN1Sequence.cpp:#]ASN1Sequence::ExtractComponentInfo-findIndefiniteLengEnd(5), "
              "[ASN1Object.cpp:#]ASN1Object::findIndefiniteLengEnd-Value Length(5), Error at finding Indefinitive "
              "Length End(0x00 0x00)"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASN1Sequence seq;
    EXPECT_EQ(c.code, seq.fromASN1Object(Hex(c.input)));
    EXPECT_EQ(c.code, seq.getErrorCode());
    EXPECT_EQ(c.trace, TraceWithoutLines(seq.getErrorMessage()));
    EXPECT_EQ(0, seq.getComponentCount());
  }

  ASN1Set set;
  EXPECT_EQ(2, set.fromASN1Object(Hex("3000")));
  EXPECT_EQ("[ASN1Set.cpp:#]ASN1Set::fromASN1Object-m_ucPrimitiveTag(2), TagType(16)is not ASN1_TAG_SET",
            TraceWithoutLines(set.getErrorMessage()));
  // An implicitly tagged SET OF ([1] IMPLICIT, primitive form) is read as a SET.
  ASSERT_EQ(0, set.fromASN1Object(Hex("8106020101020102")));
  EXPECT_EQ(2, set.getComponentCount());
  EXPECT_EQ(ASN1_TAG_SET, set.getPrimitiveTag());

  ASN1Sequence seq;
  EXPECT_EQ(1, seq.addComponent(ByteString()));
  EXPECT_EQ(1, seq.addComponent(Hex("0f00")));
  EXPECT_EQ(0, seq.getComponentCount());
}
