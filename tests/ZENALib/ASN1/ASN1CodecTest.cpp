// Identifier and length octets, tagging, BER indefinite lengths and the
// refusals of the decoder, with the codes and trace texts callers rely on.
#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <string>

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1Object.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1Sequence.h"
#include "tests/ZENALib/ASN1/ASN1TestUtil.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::Str;
using qvatest::ToHex;

namespace {


std::string Repeat(const std::string& s, int n) {
  std::string out;
  for (int i = 0; i < n; ++i) out += s;
  return out;
}

}  // namespace

TEST(ASN1Codec, EncodesIdentifierAndLengthOctets) {
  struct Case {
    const char* name;
    unsigned char tag;      // primitive tag of the object
    int valueLen;           // octets of 0xAB
    unsigned char tagging;  // 0 untagged, 1 implicit, 2 explicit
    int tagNo;
    unsigned char tagClass;
    const char* header;  // everything before the value
  };
  const Case cases[] = {
      {"empty value", ASN1_TAG_OCTETSTRING, 0, 0, 0, 0, "0400"},
      {"127 octets: one length octet", ASN1_TAG_OCTETSTRING, 127, 0, 0, 0, "047f"},
      {"128 octets: 0x81 0x80", ASN1_TAG_OCTETSTRING, 128, 0, 0, 0, "048180"},
      {"255 octets", ASN1_TAG_OCTETSTRING, 255, 0, 0, 0, "0481ff"},
      {"256 octets: 0x82 0x01 0x00", ASN1_TAG_OCTETSTRING, 256, 0, 0, 0, "04820100"},
      {"65536 octets: three digits", ASN1_TAG_OCTETSTRING, 65536, 0, 0, 0, "0483010000"},
      {"SEQUENCE gets the constructed bit", ASN1_TAG_SEQUENCE, 0, 0, 0, 0, "3000"},
      {"SET gets the constructed bit", ASN1_TAG_SET, 0, 0, 0, 0, "3100"},
      {"implicit [0]", ASN1_TAG_OCTETSTRING, 1, 1, 0, 0x80, "8001"},
      {"implicit [30]: last one-octet form", ASN1_TAG_OCTETSTRING, 1, 1, 30, 0x80, "9e01"},
      {"implicit [31]: high tag form", ASN1_TAG_OCTETSTRING, 1, 1, 31, 0x80, "9f1f01"},
      {"implicit [127]", ASN1_TAG_OCTETSTRING, 1, 1, 127, 0x80, "9f7f01"},
      {"implicit [128]: two base-128 digits", ASN1_TAG_OCTETSTRING, 1, 1, 128, 0x80, "9f810001"},
      {"implicit [16384]: three digits", ASN1_TAG_OCTETSTRING, 1, 1, 16384, 0x80, "9f81800001"},
      {"implicit SEQUENCE keeps the constructed bit", ASN1_TAG_SEQUENCE, 1, 1, 1, 0x80, "a101"},
      {"implicit application class", ASN1_TAG_OCTETSTRING, 1, 1, 5, 0x40, "4501"},
      {"implicit private class", ASN1_TAG_OCTETSTRING, 1, 1, 5, 0xC0, "c501"},
      {"explicit [0]", ASN1_TAG_INTEGER, 1, 2, 0, 0x80, "a0030201"},
      {"explicit [3] around 200 octets", ASN1_TAG_OCTETSTRING, 200, 2, 3, 0x80, "a381cb0481c8"},
      {"explicit [200]: high tag, constructed", ASN1_TAG_INTEGER, 1, 2, 200, 0x80, "bf8148030201"},
      {"explicit untyped holder: length octets, no inner identifier", ASN1_TAG_NONE, 1, 2, 0, 0x80, "a00201"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    // The base class is the untyped holder; give it the row's type.
    struct Typed : ASN1Object {
      explicit Typed(unsigned char t) { m_ucPrimitiveTag = t; }
    } typed(c.tag);
    ASN1Object& o = typed;
    const ByteString value(std::string(static_cast<std::size_t>(c.valueLen), '\xAB').data(), c.valueLen);
    ASSERT_EQ(0, o.setValue(value));
    if (c.tagging == 1) o.setImplicitTag(c.tagNo, c.tagClass);
    if (c.tagging == 2) {
      EXPECT_EQ(c.tagNo, o.setExplicitTag(c.tagNo, c.tagClass));
    }
    const ByteString& der = o.toASN1Object();
    ASSERT_EQ(0, o.getErrorCode()) << Str(o.getErrorMessage());
    const std::string header = c.header;
    ASSERT_EQ(static_cast<int>(header.size() / 2) + c.valueLen, der.length());
    EXPECT_EQ(header, ToHex(der.mid(0, static_cast<int>(header.size() / 2))));
    EXPECT_EQ(value, der.mid(der.length() - c.valueLen, c.valueLen));
  }
}

TEST(ASN1Codec, RefusesToEncodeWhatHasNoIdentifier) {
  struct Case {
    const char* name;
    std::function<void(ASN1Object&)> setup;
    int code;
    const char* trace;
  };
  const Case cases[] = {
      {"untyped holder, untagged", [](ASN1Object&) {}, 1,
       "[ASN1Object.cpp:#]ASN1Object::toASN1Object-m_ucTaggedType(1), ASN1 Format Error"},
      {"untyped holder, implicit", [](ASN1Object& o) { o.setImplicitTag(1, 0x80); }, 1,
       "[ASN1Object.cpp:#]ASN1Object::toASN1Object-m_ucTaggedType(1), ASN1 Format Error"},
      {"untyped holder, explicit with a negative number", [](ASN1Object& o) { o.setExplicitTag(-1, 0x80); }, 1,
       "[ASN1Object.cpp:#]ASN1Object::toASN1Object-m_ucTaggedType(1), ASN1 Format Error"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASN1Object o;
    o.setValue("x");
    c.setup(o);
    EXPECT_EQ(0, o.toASN1Object().length());
    EXPECT_EQ(c.code, o.getErrorCode());
    EXPECT_EQ(c.trace, TraceWithoutLines(o.getErrorMessage()));
  }
  ASN1Integer typed(5);
  typed.setImplicitTag(-3, 0x80);
  EXPECT_EQ(0, typed.toASN1Object().length());
  EXPECT_EQ(2, typed.getErrorCode());
  EXPECT_EQ("[ASN1Object.cpp:#]ASN1Object::toASN1Object-m_nOptionTagNo(2), ASN1 Format Error",
            TraceWithoutLines(typed.getErrorMessage()));
  // A later success clears the code.
  typed.setImplicitTag(3, 0x80);
  EXPECT_EQ("830105", ToHex(typed.toASN1Object()));
  EXPECT_EQ(0, typed.getErrorCode());
}

TEST(ASN1Codec, DecodesIdentifiersLengthsAndTags) {
  struct Case {
    const char* name;
    const char* input;
    const char* value;
    unsigned char primitiveTag;
    unsigned char taggedType;
    int tagNo;  // checked when tagged
    unsigned char tagClass;
    unsigned char constructed;
  };
  const Case cases[] = {
      {"short form", "020105", "05", 2, 0, 0, 0x00, 0},
      {"trailing octets are ignored", "020105ffff", "05", 2, 0, 0, 0x00, 0},
      {"long form with a leading zero digit", "0482000141", "41", 4, 0, 0, 0x00, 0},
      {"indefinite SEQUENCE", "30800201050000", "020105", 16, 0, 0, 0x00, 0x20},
      {"nested indefinite", "308030800201050000020106" "0000", "308002010500000201 06", 16, 0, 0, 0x00, 0x20},
      {"implicit [1] primitive", "810107", "07", 255, 1, 1, 0x80, 0},
      {"explicit [0] INTEGER takes the inner tag", "a003020107", "07", 2, 2, 0, 0xA0, 0},
      {"explicit [2] indefinite around a SEQUENCE", "a28030020500" "0000", "0500", 16, 2, 2, 0xA0, 0x20},
      {"explicit [0] with an empty contents", "a000", "", 255, 2, 0, 0xA0, 0},
      {"explicit around a tagged element keeps it whole", "a003800105", "800105", 255, 2, 0, 0xA0, 0},
      {"high tag [31] context constructed is explicit", "bf1f03020107", "07", 2, 2, 31, 0xA0, 0},
      {"high tag [31] context primitive is implicit", "9f1f0107", "07", 255, 1, 31, 0x80, 0},
      {"high tag [200] three identifier octets", "9f81480107", "07", 255, 1, 200, 0x80, 0},
      {"high tag four identifier octets", "9f8180010107", "07", 255, 1, 16385, 0x80, 0},
      {"private constructed high tag is implicit", "ff1f03020107", "020107", 255, 1, 31, 0xE0, 0x20},
      {"application primitive", "450107", "07", 255, 1, 5, 0x40, 0},
      {"universal tag 0", "0000", "", 0, 0, 0, 0x00, 0},
      {"universal tag 30", "1e020041", "0041", 30, 0, 0, 0x00, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASN1Object o;
    ASSERT_EQ(0, o.fromASN1Object(Hex(c.input))) << Str(o.getErrorMessage());
    EXPECT_EQ(0, o.getErrorCode());
    EXPECT_EQ(ToHex(Hex(c.value)), ToHex(o.getValue()));
    EXPECT_EQ(c.primitiveTag, o.getPrimitiveTag());
    EXPECT_EQ(c.taggedType, o.getTaggedType());
    if (c.taggedType) {
      EXPECT_EQ(c.tagNo, o.getOptionTagNo());
    }
    EXPECT_EQ(c.tagClass & 0xC0, o.getTagClass());
    EXPECT_EQ(c.constructed, o.isConstructed());
  }
}

TEST(ASN1Codec, RefusesMalformedInputWithItsCodeAndTrace) {
  const std::string kLen = "ASN1 Format(Length) Error";
  const std::string kIndef =
      "[ASN1Object.cpp:#]ASN1Object::findIndefiniteLengEnd-Value Length(5), Error at finding Indefinitive Length "
      "End(0x00 0x00)";
  auto frame = [](const char* field, int code) {
    return "[ASN1Object.cpp:#]ASN1Object::fromASN1Object-" + std::string(field) + "(" + std::to_string(code) + ")";
  };
  struct Case {
    const char* name;
    std::string input;
    int code;
    std::string trace;
  };
  const Case cases[] = {
      {"no data", "", 1, frame("baData", 1) + ", The bsData is NULL pointer."},
      {"one octet", "04", 1, frame("baData", 1) + ", " + kLen},
      {"universal tag 13", "0d0100", 2,
       frame("checkASN1Member", 2) +
           ", [ASN1Object.cpp:#]ASN1Object::checkASN1Member-CheckASN1Member(1), Tag(13) is not ASN1 Member"},
      {"universal tag 31 is not a high tag", "1f0100", 2,
       frame("checkASN1Member", 2) +
           ", [ASN1Object.cpp:#]ASN1Object::checkASN1Member-CheckASN1Member(1), Tag(31) is not ASN1 Member"},
      {"five identifier octets", "9f8182830401 00", 3,
       frame("GetHighTag", 3) + ", [ASN1Object.cpp:#]ASN1Object::GetHighTag-nTagValue(0), Too Long(>4)"},
      {"high tag cut off", "9f81", 3, frame("GetHighTag", 3) + ", [ASN1Object.cpp:#]ASN1Object::GetHighTag-nTagValue(0), " + kLen},
      {"explicit, long form past the input", "a0810502010500", 4, frame("nValueLen", 4) + ", " + kLen},
      {"explicit, long form digits missing", "a082", 4, frame("nValueLen", 4) + ", " + kLen},
      {"explicit, indefinite without end", "a080020105", 5, frame("Value Length", 5) + ", " + kIndef},
      {"explicit, short form past the input", "a005020105", 7, frame("nValueLen", 7) + ", " + kLen},
      {"explicit, bad inner identifier", "a0020d00", 8,
       frame("checkASN1Member", 8) +
           ", [ASN1Object.cpp:#]ASN1Object::checkASN1Member-CheckASN1Member(1), Tag(13) is not ASN1 Member"},
      {"explicit, inner long form past the input", "a0040482000241", 9, frame("nValueLen", 9) + ", " + kLen},
      {"long form past the input", "04820100" + Repeat("41", 255), 9, frame("nValueLen", 9) + ", " + kLen},
      {"long form length beyond 31 bits", "0484ffffffff41", 9, frame("nValueLen", 9) + ", " + kLen},
      {"long form with too many digits", "0485010000000041", 9, frame("nValueLen", 9) + ", " + kLen},
      {"indefinite without end", "3080020105", 10, frame("Value Length", 10) + ", " + kIndef},
      {"indefinite, inner element past the end", "30800205", 10, frame("Value Length", 10) + ", " + kIndef},
      {"short form past the input", "04054142", 12, frame("nValueLen", 12) + ", " + kLen},
      {"explicit, inner short form past the input", "a003040541", 12, frame("nValueLen", 12) + ", " + kLen},
      {"explicit, inner length octet missing", "a00104", 12, frame("nValueLen", 12) + ", " + kLen},
      {"high tag, length past the input", "9f1f0541", 12, frame("nValueLen", 12) + ", " + kLen},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASN1Object o;
    const ByteString input = c.input.empty() ? ByteString() : Hex(c.input);
    EXPECT_EQ(c.code, o.fromASN1Object(input));
    EXPECT_EQ(c.code, o.getErrorCode());
    EXPECT_EQ(c.trace, TraceWithoutLines(o.getErrorMessage()));
  }
}

TEST(ASN1Codec, LimitsNestedIndefiniteLengths) {
  // N nested indefinite SEQUENCEs around a NULL: the walk follows 64 levels.
  struct Case {
    int depth;
    int code;
  };
  const Case cases[] = {{1, 0}, {63, 0}, {64, 0}, {65, 10}, {5000, 10}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.depth);
    const ByteString input = Hex(Repeat("3080", c.depth) + "0500" + Repeat("0000", c.depth));
    ASN1Object o;
    EXPECT_EQ(c.code, o.fromASN1Object(input));
    if (c.code) {
      EXPECT_NE(std::string::npos, Str(o.getErrorMessage()).find("Error at finding Indefinitive Length End(0x00 0x00)"));
    } else {
      // The contents are everything but the outer header and end octets.
      EXPECT_EQ(input.length() - 4, o.getValueLength());
    }
  }
}

TEST(ASN1Codec, TypedDecodingChecksTheTagAndWrapsTheTrace) {
  ASN1OctetString os;
  EXPECT_EQ(1, os.fromASN1Object(Hex("04054142")));
  EXPECT_EQ(
      "[ASN1OctetString.cpp:#]ASN1OctetString::fromASN1Object-ASN1Object::fromASN1Object(1), "
      "[ASN1Object.cpp:#]ASN1Object::fromASN1Object-nValueLen(12), ASN1 Format(Length) Error",
      TraceWithoutLines(os.getErrorMessage()));
  EXPECT_EQ(2, os.fromASN1Object(Hex("020105")));
  EXPECT_EQ("[ASN1OctetString.cpp:#]ASN1OctetString::fromASN1Object-m_ucPrimitiveTag(2), TagType(2)is not "
            "ASN1_TAG_OCTETSTRING",
            TraceWithoutLines(os.getErrorMessage()));
  // An implicit tag cannot name the type: the class's own is assumed and kept for encoding.
  EXPECT_EQ(0, os.fromASN1Object(Hex("850141")));
  EXPECT_EQ(ASN1_TAG_OCTETSTRING, os.getPrimitiveTag());
  EXPECT_EQ("850141", ToHex(os.toASN1Object()));
}

TEST(ASN1Codec, ErrorMessageChainsNewestFirst) {
  ASN1Object o;
  o.setErrorMessage("C:\\src\\dir\\First.cpp", 10, "A", "m1", "f1", 4, "inner text");
  o.setErrorMessage("/src/Second.cpp", 20, "B", "m2", "f2", 5, o.getErrorMessage().c_str());
  EXPECT_EQ("[Second.cpp:20]B::m2-f2(5), [First.cpp:10]A::m1-f1(4), inner text", Str(o.getErrorMessage()));
  o.setErrorMessage("Plain.cpp", 1, "C", "m", "f", 0, "");
  EXPECT_EQ("[Plain.cpp:1]C::m-f(0)", Str(o.getErrorMessage()));
  EXPECT_EQ(0, o.getErrorCode());
}
