// The universal types: value conversions, the tag check of every class, the
// character checks of the restricted strings and the time texts.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <regex>
#include <string>

#include "ZENALib/ASN1/ASN1BMPString.h"
#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1Enumerated.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1IA5String.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1Null.h"
#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1/ASN1Sequence.h"
#include "ZENALib/ASN1/ASN1Set.h"
#include "ZENALib/ASN1/ASN1T61String.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "ZENALib/ASN1/ASN1UTF8String.h"
#include "ZENALib/ASN1/ASN1VisibleString.h"
#include "tests/ZENALib/ASN1/ASN1TestUtil.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::Str;
using qvatest::ToHex;

TEST(ASN1Primitive, EveryClassChecksItsTag) {
  struct Case {
    std::function<ASN1Object*()> make;
    const char* cls;
    const char* message;  // filled with the foreign tag 0x04 or 0x05
  };
  const Case cases[] = {
      {[] { return new ASN1Boolean; }, "ASN1Boolean", "TagType(%d) is not ASN1_TAG_BOOLEAN"},
      {[] { return new ASN1Integer; }, "ASN1Integer", "TagType(%d)is not ASN1_TAG_INTEGER"},
      {[] { return new ASN1BitString; }, "ASN1BitString", "TagType(%d) is not ASN1_TAG_BITSTRING"},
      {[] { return new ASN1OctetString; }, "ASN1OctetString", "TagType(%d)is not ASN1_TAG_OCTETSTRING"},
      {[] { return new ASN1Null; }, "ASN1Null", "TagType(%d)is not ASN1_TAG_NULLTAG"},
      {[] { return new ASN1ObjectIdentifier; }, "ASN1ObjectIdentifier", "TagType(%d) is not ASN1_TAG_OID"},
      {[] { return new ASN1Enumerated; }, "ASN1Enumerated", "TagType(%d) is not ASN1_TAG_ENUMERATED."},
      {[] { return new ASN1UTF8String; }, "ASN1UTF8String", "Tag(%0x2d) is not ASN1_TAG_UTF8STRING"},
      {[] { return new ASN1Sequence; }, "ASN1Sequence", "TagType(%d)is not ASN1_TAG_SEQUENCE"},
      {[] { return new ASN1Set; }, "ASN1Set", "TagType(%d)is not ASN1_TAG_SET"},
      {[] { return new ASN1NumericString; }, "ASN1NumericString", "TagType(%d)is not ASN1_TAG_NUMERICSTRING"},
      {[] { return new ASN1PrintableString; }, "ASN1PrintableString", "TagType(%d)is not ASN1_TAG_PRINTABLESTRING"},
      {[] { return new ASN1T61String; }, "ASN1T61String", "TagType(%d) is not ASN1_TAG_T61STRING"},
      {[] { return new ASN1IA5String; }, "ASN1IA5String", "TagType(%d)is not ASN1_TAG_IA5STRING"},
      {[] { return new ASN1UTCTime; }, "ASN1UTCTime", "TagType(%d) is not ASN1_TAG_UTCTIME"},
      {[] { return new ASN1GeneralizedTime; }, "ASN1GeneralizedTime", "TagType(%d) is not ASN1_TAG_GENERALIZEDTIME"},
      {[] { return new ASN1VisibleString; }, "ASN1VisibleString", "Tag(%0x2d) is not ASN1_TAG_VISIBLESTRING"},
      {[] { return new ASN1BMPString; }, "ASN1BMPString", "TagType(%d) is not ASN1_TAG_BMPSTRING"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.cls);
    std::unique_ptr<ASN1Object> o(c.make());
    const int foreign = o->getPrimitiveTag() == ASN1_TAG_OCTETSTRING ? ASN1_TAG_NULLTAG : ASN1_TAG_OCTETSTRING;
    const ByteString input = Hex(foreign == ASN1_TAG_NULLTAG ? "0500" : "0400");
    EXPECT_EQ(2, o->fromASN1Object(input));
    char message[128];
    std::snprintf(message, sizeof message, c.message, foreign);
    EXPECT_EQ(std::string("[") + c.cls + ".cpp:#]" + c.cls + "::fromASN1Object-m_ucPrimitiveTag(2), " + message,
              TraceWithoutLines(o->getErrorMessage()));
    // A malformed element is wrapped with code 1 and the base frame.
    EXPECT_EQ(1, o->fromASN1Object(Hex("0405")));
    EXPECT_EQ(std::string("[") + c.cls + ".cpp:#]" + c.cls +
                  "::fromASN1Object-ASN1Object::fromASN1Object(1), [ASN1Object.cpp:#]ASN1Object::fromASN1Object-"
                  "nValueLen(12), ASN1 Format(Length) Error",
              TraceWithoutLines(o->getErrorMessage()));
  }
}

TEST(ASN1Primitive, IntegerFromNative) {
  struct Case {
    int value;
    const char* der;
  };
  const Case cases[] = {
      {0, "020100"},           {1, "020101"},           {127, "02017f"},
      {128, "02020080"},       {255, "020200ff"},       {256, "02020100"},
      {-1, "0201ff"},          {-128, "020180"},        {-129, "0202ff7f"},
      {-256, "0202ff00"},      {-32768, "02028000"},    {-32769, "0203ff7fff"},
      {INT_MAX, "02047fffffff"}, {INT_MIN, "020480000000"}, {8388608, "020400800000"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.value);
    ASN1Integer i(c.value);
    EXPECT_EQ(c.der, ToHex(i.toASN1Object()));
    ASN1Integer back;
    ASSERT_EQ(0, back.fromASN1Object(Hex(c.der)));
    EXPECT_EQ(c.value, back.getInteger());
    ASN1Enumerated e(c.value);
    EXPECT_EQ("0a" + std::string(c.der).substr(2), ToHex(e.toASN1Object()));
    EXPECT_EQ(c.value, e.getEnumerated());
  }
}

TEST(ASN1Primitive, IntegerFromOctetsAndBack) {
  struct Case {
    const char* octets;
    int sign;
    const char* value;  // stored contents
    int native;         // getInteger
  };
  const Case cases[] = {
      {"8001", 0, "008001", 32769},           // unsigned magnitude gets a 0x00
      {"7f", 0, "7f", 127},                   // already positive
      {"7f", -1, "ff7f", -129},               // negative gets a 0xFF
      {"80", -1, "80", -128},                 // already negative
      {"80", 1, "80", -128},                  // any other flag copies
      {"", 0, "", 0},                         // empty clears
      {"ff", 1, "ff", -1},                    // a lone 0xFF is -1
      {"ffff", 1, "ffff", -1},                // non-minimal -1
      {"ff00", 1, "ff00", -256},              // leading 0xFF dropped, rest read as negative
      {"00ffffffff", 1, "00ffffffff", -1},    // five octets keep the low 32 bits
      {"ff80000000", 1, "ff80000000", INT_MIN},
      {"010203040506", 1, "010203040506", 0}, // more than five octets read 0
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.octets);
    ASN1Integer i(77);
    const ByteString octets = Hex(c.octets);
    ASSERT_EQ(0, i.setInteger(octets, c.sign));
    EXPECT_EQ(c.value, ToHex(i.getValue()));
    EXPECT_EQ(c.native, i.getInteger());
  }
}

TEST(ASN1Primitive, BitStrings) {
  struct Case {
    const char* name;
    const char* bits;
    int named;
    int code;
    const char* der;
  };
  const Case cases[] = {
      {"digitalSignature only", "80", 1, 0, "03020780"},
      {"trailing zero octets dropped", "800000", 1, 0, "03020780"},
      {"keyCertSign and cRLSign", "06", 1, 0, "03020106"},
      {"decipherOnly in the second octet", "0080", 1, 0, "0303070080"},
      {"lowest bit set: no unused bits", "01", 1, 0, "03020001"},
      {"empty named list", "", 1, 0, "030100"},
      {"all zero named list", "0000", 1, 1, ""},
      {"plain bits keep their zeros", "8000", 0, 0, "0303008000"},
      {"flag other than 1 is plain", "80", 2, 0, "0302 0080"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASN1BitString b;
    EXPECT_EQ(c.code, b.setBitString(Hex(c.bits), c.named));
    if (c.code) {
      EXPECT_EQ("[ASN1BitString.cpp:#]ASN1BitString::setBitString-nLen(1), The input data value is null.",
                TraceWithoutLines(b.getErrorMessage()));
      continue;
    }
    EXPECT_EQ(ToHex(Hex(c.der)), ToHex(b.toASN1Object()));
    ASN1BitString back;
    ASSERT_EQ(0, back.fromASN1Object(b.toASN1Object()));
    int unused = -1;
    const ByteString bits = back.getBitString(&unused);
    EXPECT_EQ(Hex(c.der).data()[2], unused);
    EXPECT_EQ(b.getValue().mid(1, b.getValueLength() - 1), bits);
  }
  ASN1BitString empty;
  EXPECT_EQ(0, empty.getBitString(nullptr).length());
  EXPECT_EQ(1, empty.getErrorCode());
  EXPECT_EQ("[ASN1BitString.cpp:#]ASN1BitString::getBitString-m_bsValue(1), ASN1BitString Format Error(Length = 0)",
            TraceWithoutLines(empty.getErrorMessage()));
}

TEST(ASN1Primitive, ObjectIdentifierTexts) {
  struct Case {
    const char* text;
    int code;
    const char* der;   // on success
    const char* back;  // getOID(' ') on success
  };
  const Case cases[] = {
      {"1 2 840 113549 1 5 13", 0, "06092a864886f70d01050d", "1 2 840 113549 1 5 13"},
      {"1.2.3", 0, "06022a03", "1 2 3"},
      {"  1-2//410;200004 ", 0, "06062a831a8c9a44", "1 2 410 200004"},
      {"2 5 29 15", 0, "0603551d0f", "2 5 29 15"},
      {"0 0", 0, "060100", "0 0"},
      {"1 2 268435455", 0, "06052affffff7f", "1 2 268435455"},
      {"2 45", 0, "06017d", "3 5"},  // the first octet splits by 40 whatever its size
      {"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19", 0, "06122a030405060708090a0b0c0d0e0f10111213",
       "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19"},
      {"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20", 1, "", ""},
      {"1 2 268435456", 1, "", ""},  // an arc getOID could not read back
      {"1", 2, "", ""},
      {"x.y", 2, "", ""},
      {"", 2, "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    ASN1ObjectIdentifier oid;
    EXPECT_EQ(c.code, oid.setOID(c.text));
    if (c.code) {
      EXPECT_EQ("[ASN1ObjectIdentifier.cpp:#]ASN1ObjectIdentifier::setOID-nOID(" + std::to_string(c.code) +
                    "), Value(" + c.text + ") is not ASN1 OID Format",
                TraceWithoutLines(oid.getErrorMessage()));
      continue;
    }
    EXPECT_EQ(c.der, ToHex(oid.toASN1Object()));
    ASN1ObjectIdentifier back;
    ASSERT_EQ(0, back.fromASN1Object(Hex(c.der)));
    EXPECT_EQ(c.back, Str(back.getOID(' ')));
    std::string dotted = c.back;
    for (char& ch : dotted)
      if (ch == ' ') ch = '.';
    EXPECT_EQ(dotted, Str(back.getOID('.')));
  }
}

TEST(ASN1Primitive, ObjectIdentifierRefusals) {
  struct Case {
    const char* name;
    const char* contents;
    int code;
  };
  const Case cases[] = {
      {"empty", "", 2},
      {"sub-identifier cut off", "2a86", 1},
      {"sub-identifier of five octets", "2a8181818101", 1},
      {"twenty sub-identifiers", "2a02030405060708090a0b0c0d0e0f1011121314", 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASN1ObjectIdentifier oid;
    oid.setValue(Hex(c.contents));
    EXPECT_EQ(0, oid.getOID(' ').length());
    EXPECT_EQ(c.code, oid.getErrorCode());
    EXPECT_EQ("[ASN1ObjectIdentifier.cpp:#]ASN1ObjectIdentifier::getOID-nOID(" + std::to_string(c.code) +
                  "), ASN1 OID Format Error",
              TraceWithoutLines(oid.getErrorMessage()));
  }
}

TEST(ASN1Primitive, UTCTimeTexts) {
  const std::string kBefore1970 =
      " references a date before midnight, January 1, 1970, or if the calendar time cannot be represented.";
  struct Case {
    const char* text;
    int code;
    const char* field;
    std::string message;  // after the text
    std::time_t time;     // on success
  };
  const Case cases[] = {
      {"491231235959Z", 0, "", "", UtcSeconds(2049, 12, 31, 23, 59, 59)},  // 49 is 2049
      {"700101000000Z", 0, "", "", 0},
      {"0002291200Z", 0, "", "", UtcSeconds(2000, 2, 29, 12, 0, 0)},       // 2000 is a leap year
      {"100101000000+0930", 0, "", "", UtcSeconds(2010, 1, 1, 9, 30, 0)},  // '+' is added
      {"100101000000-0130", 0, "", "", UtcSeconds(2009, 12, 31, 22, 30, 0)},
      {"991231230000+0200", 0, "", "", UtcSeconds(2000, 1, 1, 1, 0, 0)},   // carries into the year
      {"500101000000Z", 8, "data", kBefore1970, 0},                  // 50 is 1950
      {"0102300000Z", 6, "nDay", " : day error", 0},
      {"2102290000Z", 6, "nDay", " : day error", 0},
      {"1004310000Z", 6, "nDay", " : day error", 0},
      {"1001011260Z", 3, "nMin", " : minutes error", 0},
      {"1001012400Z", 4, "nHour", " : hour error", 0},
      {"1013010000Z", 5, "nMonth", " : month error", 0},
      {"1000010000Z", 5, "nMonth", " : month error", 0},
      {"100101000060Z", 2, "nSec", " : sec error", 0},
      {"1001010000X", 7, "data", " : UTC Time Format Error", 0},
      {"100101000000X", 7, "data", " : UTC Time Format Error", 0},
      {"100101000000", 7, "data", " : UTC Time Format Error", 0},
      {"100101000000*0900", 7, "data", " : UTC Time Format Error", 0},
      {"100101000000+2400", 4, "nHour", " : hour error", 0},
      {"100101000000+0060", 3, "nMin", " : minutes error", 0},
      {"1001010000+0900", 7, "data", " : UTC Time Format Error", 0},  // 15 characters are not accepted
      {"1a01010000Z", 7, "data", " : UTC Time Format Error", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    ASN1UTCTime t;
    EXPECT_EQ(c.code, t.setValue(c.text));
    if (c.code == 0) {
      EXPECT_EQ(c.time, t.getGMTTime());
      EXPECT_EQ(c.text, Str(t.getValue()));
      // The decoder runs the same check.
      ASN1UTCTime back;
      EXPECT_EQ(0, back.fromASN1Object(t.toASN1Object()));
      EXPECT_EQ(c.time, back.getGMTTime());
      continue;
    }
    EXPECT_EQ(0, t.getValueLength());  // a refused text is not stored
    EXPECT_EQ("[ASN1UTCTime.cpp:#]ASN1UTCTime::checkUTCTime-" + std::string(c.field) + "(" +
                  std::to_string(c.code) + "), " + c.text + c.message,
              TraceWithoutLines(t.getErrorMessage()));
    ByteString der = Hex("17");
    der += static_cast<char>(std::strlen(c.text));
    der += c.text;
    ASN1UTCTime decoded;
    EXPECT_EQ(3, decoded.fromASN1Object(der));
  }
  ASN1UTCTime shortText;
  EXPECT_EQ(1, shortText.setValue("1001010000"));
  EXPECT_EQ("[ASN1UTCTime.cpp:#]ASN1UTCTime::checkUTCTime-length(1), Invalid GMT Format",
            TraceWithoutLines(shortText.getErrorMessage()));
}

TEST(ASN1Primitive, GeneralizedTimeTexts) {
  struct Case {
    const char* text;
    int code;
    const char* field;
    const char* message;
    std::time_t time;
  };
  const Case cases[] = {
      {"20081231235959Z", 0, "", "", UtcSeconds(2008, 12, 31, 23, 59, 59)},
      {"20081231235959.5Z", 0, "", "", UtcSeconds(2008, 12, 31, 23, 59, 59)},  // the fraction is skipped
      {"20081231235959.Z", 0, "", "", UtcSeconds(2008, 12, 31, 23, 59, 59)},
      {"20080229000000Z", 0, "", "", UtcSeconds(2008, 2, 29, 0, 0, 0)},
      {"99991231235959Z", 0, "", "", UtcSeconds(9999, 12, 31, 23, 59, 59)},
      {"20081231235959.5", 8, "data", " : invalid format", 0},
      {"20081231235959Y", 8, "data", " : invalid format", 0},
      {"20081231235959.5xZ", 8, "data", " : invalid format", 0},
      {"20081231235959+0900", 8, "data", " : invalid format", 0},
      {"20081231235960Z", 2, "nSec", " : seconds error", 0},
      {"2008123123595aZ", 2, "nSec", " : seconds error", 0},
      {"20081231236059Z", 3, "nMin", " : minutes error", 0},
      {"20081231245959Z", 4, "nHour", " : hour error", 0},
      {"20081331235959Z", 5, "nMonth", " : month error", 0},
      {"20080230000000Z", 6, "nDay", " : day error", 0},
      {"21000229000000Z", 6, "nDay", " : day error", 0},  // 2100 is not a leap year
      {"20080431000000Z", 7, "nDay", " : day error", 0},
      {"20080100000000Z", 7, "nDay", " : day error", 0},
      {"19691231235959Z", 9, "data",
       " references a date before midnight, January 1, 1970, or if the calendar time cannot be represented.", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    ASN1GeneralizedTime t;
    EXPECT_EQ(c.code, t.setValue(c.text));
    if (c.code == 0) {
      EXPECT_EQ(c.time, t.getGMTTime());
      ASN1GeneralizedTime back;
      EXPECT_EQ(0, back.fromASN1Object(t.toASN1Object()));
      EXPECT_EQ(c.time, back.getGMTTime());
      continue;
    }
    EXPECT_EQ("[ASN1GeneralizedTime.cpp:#]ASN1GeneralizedTime::CheckGMTTime-" + std::string(c.field) + "(" +
                  std::to_string(c.code) + "), " + c.text + c.message,
              TraceWithoutLines(t.getErrorMessage()));
  }
  ASN1GeneralizedTime shortText;
  EXPECT_EQ(1, shortText.setValue("2008123123595"));
  EXPECT_EQ("[ASN1GeneralizedTime.cpp:#]ASN1GeneralizedTime::checkGMTTime-length(1), Invalid GMT Format",
            TraceWithoutLines(shortText.getErrorMessage()));
}

TEST(ASN1Primitive, TimesFromCalendarTime) {
  struct Case {
    std::time_t time;
    const char* utc;
    const char* generalized;
  };
  const Case cases[] = {
      {0, "700101000000Z", "19700101000000Z"},
      {UtcSeconds(2049, 12, 31, 23, 59, 59), "491231235959Z", "20491231235959Z"},
      {UtcSeconds(2000, 2, 29, 1, 2, 3), "000229010203Z", "20000229010203Z"},
      {UtcSeconds(2038, 1, 19, 3, 14, 8), "380119031408Z", "20380119031408Z"},  // past 32-bit seconds
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.utc);
    ASN1UTCTime u;
    ASSERT_EQ(0, u.setGMTTime(c.time));
    EXPECT_EQ(c.utc, Str(u.getValue()));
    EXPECT_EQ(c.time, u.getGMTTime());
    ASN1GeneralizedTime g;
    ASSERT_EQ(0, g.setGMTTime(c.time));
    EXPECT_EQ(c.generalized, Str(g.getValue()));
  }
  // Both classes record the refusal under the GeneralizedTime class name.
  ASN1UTCTime u;
  EXPECT_EQ(1, u.setGMTTime(-1));
  EXPECT_EQ("[ASN1UTCTime.cpp:#]ASN1GeneralizedTime::setGMTTime-m_GMTTime(1), -1 represents a date before midnight, "
            "January 1, 1970",
            TraceWithoutLines(u.getErrorMessage()));
  ASN1GeneralizedTime g;
  EXPECT_EQ(1, g.setGMTTime(-86400));
  EXPECT_EQ("[ASN1GeneralizedTime.cpp:#]ASN1GeneralizedTime::setGMTTime-m_GMTTime(1), -86400 represents a date "
            "before midnight, January 1, 1970",
            TraceWithoutLines(g.getErrorMessage()));
}

TEST(ASN1Primitive, RestrictedStringCharacters) {
  const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const std::string digits = "0123456789";
  struct Case {
    std::function<ASN1Object*()> make;
    const char* file;
    const char* cls;  // recorded class name
    std::string accepted;
    const char* format;
  };
  std::string ia5;
  for (int c = 0x20; c <= 0x7E; ++c) ia5 += static_cast<char>(c);
  const Case cases[] = {
      {[] { return new ASN1IA5String; }, "ASN1IA5String", "ASN1IA5String", ia5, "Value(%x)is not ASN1IA5String"},
      {[] { return new ASN1PrintableString; }, "ASN1PrintableString", "ASN1IA5String",
       letters + digits + " '()+,-./:=?", "Value(%x)is not ASN1PrintableString"},
      {[] { return new ASN1NumericString; }, "ASN1NumericString", "ASN1IA5String", digits + " ",
       "Value(%x)is not ASN1NumericString"},
      {[] { return new ASN1VisibleString; }, "ASN1VisibleString", "ASN1VisibleString",
       letters + digits + " !\"%&'()*+,-./:;<=>?@\\^_|~", "Char (%0x2d)does not in ASN1_TAG_VISIBLESTRING"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file);
    std::unique_ptr<ASN1Object> whole(c.make());
    EXPECT_EQ(0, whole->setValue(c.accepted.data(), static_cast<int>(c.accepted.size())));
    EXPECT_EQ(c.accepted, Str(whole->getValue()));
    for (int ch = 0; ch < 256; ++ch) {
      std::unique_ptr<ASN1Object> o(c.make());
      const char text[3] = {'1', static_cast<char>(ch), '2'};
      const bool accept = ch != 0 && c.accepted.find(static_cast<char>(ch)) != std::string::npos;
      const int rc = o->setValue(text, 3);
      ASSERT_EQ(accept ? 0 : 1, rc) << "character " << ch;
      if (accept) continue;
      EXPECT_EQ(0, o->getValueLength());
      char message[96];
      std::snprintf(message, sizeof message, c.format, ch);
      ASSERT_EQ(std::string("[") + c.file + ".cpp:#]" + c.cls + "::setValue-data(1), " + message,
                TraceWithoutLines(o->getErrorMessage()));
    }
  }
  // The decoder does not check characters.
  ASN1IA5String lineFeed;
  EXPECT_EQ(0, lineFeed.fromASN1Object(Hex("16020a41")));
}

TEST(ASN1Primitive, UTF8ToUCS2) {
  struct Case {
    const char* name;
    const char* utf8;
    const char* ucs2;
  };
  const Case cases[] = {
      {"ASCII", "41207a", "410020007a00"},
      {"first Hangul syllable", "eab080", "00ac"},
      {"last Hangul syllable", "ed9ea3", "a3d7"},
      {"just past the Hangul block", "ed9ea4", "3f003f003f00"},
      {"CJK ideograph outside the range", "e4b880", "3f003f003f00"},
      {"two-octet sequence", "c3a9", "3f003f00"},
      {"four-octet sequence", "f09f9880", "3f003f003f003f00"},
      {"three-octet sequence cut off", "41eab0", "41003f003f00"},
      {"bad continuation octet", "eab041", "3f003f004100"},
      {"empty", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASN1UTF8String s;
    s.setValue(Hex(c.utf8));
    EXPECT_EQ(c.ucs2, ToHex(s.getUCS2Value()));
  }
}

TEST(ASN1Primitive, BooleanReadsTheFirstOctet) {
  struct Truth {
    const char* der;
    bool value;
  };
  for (const Truth& t : {Truth{"0101ff", true}, Truth{"010101", true}, Truth{"010100", false}, Truth{"0100", false}}) {
    ASN1Boolean b;
    ASSERT_EQ(0, b.fromASN1Object(Hex(t.der)));
    EXPECT_EQ(t.value, b.getBoolean()) << t.der;
  }
}
