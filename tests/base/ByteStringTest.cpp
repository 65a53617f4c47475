#include "base/ByteString.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TestUtil.h"

using qvatest::Str;

TEST(ByteString, EmptyStatesReadAsEmptyText) {
  ByteString none;
  EXPECT_EQ(none.length(), 0);
  EXPECT_STREQ(none.c_str(), "");
  EXPECT_EQ(none.data()[0], 0);
  EXPECT_TRUE(none.isEmpty());
  EXPECT_TRUE(none == "");
  EXPECT_TRUE(none == static_cast<const char*>(nullptr));

  // Storing zero bytes from a real pointer leaves a one-byte buffer: empty by
  // length but not by isEmpty(), and unequal to a null text.
  ByteString zero;
  EXPECT_EQ(zero.setData("x", 0), BS_OK);
  EXPECT_EQ(zero.length(), 0);
  EXPECT_FALSE(zero.isEmpty());
  EXPECT_STREQ(zero.c_str(), "");
  EXPECT_EQ(zero.data()[0], 0);
  EXPECT_TRUE(zero == "");
  EXPECT_FALSE(zero == static_cast<const char*>(nullptr));
  EXPECT_TRUE(zero == none);
}

TEST(ByteString, NullAndNegativeInputsLeaveStringEmpty) {
  ByteString s("abc");
  EXPECT_EQ(s.setData(nullptr, 5), BS_OK);
  EXPECT_TRUE(s.isEmpty());
  s = "abc";
  EXPECT_EQ(s.setData("abc", -1), BS_OK);
  EXPECT_TRUE(s.isEmpty());

  ByteString t(static_cast<const char*>(nullptr));
  EXPECT_TRUE(t.isEmpty());
  t = "abc";
  t += static_cast<const char*>(nullptr);
  EXPECT_EQ(Str(t), "abc");
  t = static_cast<const char*>(nullptr);
  EXPECT_TRUE(t.isEmpty());
  EXPECT_EQ(ByteString("abc").find(static_cast<const char*>(nullptr)), -1);
}

TEST(ByteString, StoredBytesAreAlwaysTerminated) {
  const unsigned char raw[] = {'a', 0, 'b'};
  ByteString s(raw, 3);
  EXPECT_EQ(s.length(), 3);
  EXPECT_EQ(s.data()[3], 0);
  s += 'c';
  EXPECT_EQ(s.data()[4], 0);
  EXPECT_EQ(s.resize(6), BS_OK);
  EXPECT_EQ(std::string(s.c_str(), 7), std::string("a\0bc\0\0\0", 7));
}

TEST(ByteString, AssignmentAndAppend) {
  ByteString s("ab");
  const ByteString& same = s;
  s = same;  // self-assignment keeps the content
  EXPECT_EQ(Str(s), "ab");
  s += s;  // appending to itself doubles
  EXPECT_EQ(Str(s), "abab");
  s += s;
  EXPECT_EQ(Str(s), "abababab");

  // A source with no bytes leaves no buffer behind, whether it is copied,
  // moved, or given as a text.
  ByteString zero;
  zero.setData("x", 0);
  const ByteString abc("abc");
  struct Case {
    const char* how;
    void (*assign)(ByteString& to, const ByteString& zero, const ByteString& abc);
  } cases[] = {
      {"copy of a zero-length string", [](ByteString& t, const ByteString& z, const ByteString&) { t = z; }},
      {"empty text", [](ByteString& t, const ByteString&, const ByteString&) { t = ""; }},
      {"empty slice", [](ByteString& t, const ByteString&, const ByteString& a) { t = a.mid(0, 0); }},
      {"moved zero-length string", [](ByteString& t, const ByteString& z, const ByteString&) { t = ByteString(z.data(), 0); }},
  };
  for (const auto& k : cases) {
    ByteString to("old");
    k.assign(to, zero, abc);
    EXPECT_TRUE(to.isEmpty()) << k.how;
    EXPECT_TRUE(to == static_cast<const char*>(nullptr)) << k.how;
    EXPECT_EQ(to.length(), 0) << k.how;
  }

  s = 'Z';
  EXPECT_EQ(Str(s), "Z");
  ByteString moved(std::move(s));
  EXPECT_EQ(Str(moved), "Z");
}

TEST(ByteString, ByteAccessChecksRange) {
  ByteString s("abc");
  char c = 0;
  struct Case {
    int index;
    int rc;
  } cases[] = {{-1, BS_OUT_OF_RANGE}, {0, BS_OK}, {2, BS_OK}, {3, BS_OUT_OF_RANGE}};
  for (const auto& k : cases) {
    EXPECT_EQ(s.getAt(k.index, &c), k.rc) << k.index;
    EXPECT_EQ(s.setAt(k.index, 'x'), k.rc) << k.index;
  }
  EXPECT_EQ(Str(s), "xbx");
}

TEST(ByteString, MidRangeRules) {
  struct Case {
    const char* text;
    int start, count;
    const char* result;
    int status;
  } cases[] = {
      {"abc", 0, 0, "", BS_OK},              // empty slice at the start
      {"abc", 1, 2, "bc", BS_OK},            // up to the end exactly
      {"abc", 3, 0, "", BS_OUT_OF_RANGE},    // start must lie inside
      {"abc", 1, 3, "", BS_OUT_OF_RANGE},    // runs past the end
      {"abc", -1, 1, "", BS_OUT_OF_RANGE},   // negative start
      {"abc", 1, -1, "", BS_OUT_OF_RANGE},   // negative count
      {"abc", 2, 0x7FFFFFFF, "", BS_OUT_OF_RANGE},  // start + count must not wrap
      {"", 0, 0, "", BS_OUT_OF_RANGE},       // nothing to slice
  };
  for (const auto& k : cases) {
    ByteString s(k.text);
    const ByteString r = s.mid(k.start, k.count);
    EXPECT_EQ(Str(r), k.result) << k.text << " " << k.start << " " << k.count;
    EXPECT_EQ(s.status(), k.status) << k.text << " " << k.start << " " << k.count;
  }
}

TEST(ByteString, Find) {
  struct Case {
    const char* text;
    const char* pattern;
    int at;
  } cases[] = {
      {"abcbc", "bc", 1}, {"abc", "abcd", -1}, {"abc", "abc", 0}, {"aab", "ab", 1},
      {"abc", "", -1},    {"", "a", -1},       {"xyzc", "c", 3},
  };
  for (const auto& k : cases) EXPECT_EQ(ByteString(k.text).find(k.pattern), k.at) << k.text << "/" << k.pattern;
  const unsigned char bin[] = {0, 1, 0, 2};
  const unsigned char pat[] = {0, 2};
  EXPECT_EQ(ByteString(bin, 4).find(pat, 2), 2);
  EXPECT_EQ(ByteString(bin, 4).find(pat, 0), -1);
}

TEST(ByteString, HexConversions) {
  const ByteString bytes = qvatest::Hex("01 02 03 AB");
  EXPECT_EQ(Str(bytes.toHex()), "010203ab");

  struct Case {
    int group, line;
    const char* text;
  } cases[] = {
      {0, 0, "010203AB"},
      {2, 0, "01 02 03 AB"},
      {2, 4, "01 02 \r\n03 AB"},  // blank stays before the line break
      {0, 4, "0102\r\n03AB"},
      {3, 0, "010 203 AB"},       // groups count digits, not bytes
  };
  for (const auto& k : cases)
    EXPECT_EQ(Str(bytes.toHexString(k.group, k.line)), k.text) << k.group << "/" << k.line;
  EXPECT_EQ(Str(qvatest::Hex("010203").toHexString(2, 4)), "01 02 \r\n03");
  EXPECT_EQ(ByteString().toHexString(2, 32).length(), 0);

  struct Back {
    const char* text;
    const char* hex;
    int status;
  } back[] = {
      {"0G1", "00", BS_OK},         // G counts as 0, odd last character dropped
      {"aBcD", "abcd", BS_OK},
      {"A", "", BS_NOTHING_TO_CONVERT},
      {"", "", BS_NOTHING_TO_CONVERT},
  };
  for (const auto& k : back) {
    ByteString src(k.text);
    EXPECT_EQ(Str(src.fromHexString().toHex()), k.hex) << k.text;
    EXPECT_EQ(src.status(), k.status) << k.text;
  }
}

TEST(ByteString, FormatLimit) {
  ByteString s("old");
  EXPECT_EQ(s.format("%s", std::string(2047, 'x').c_str()), BS_OK);
  EXPECT_EQ(s.length(), 2047);
  EXPECT_EQ(s.status(), BS_OK);

  EXPECT_EQ(s.format("%s", std::string(2048, 'y').c_str()), BS_FORMAT);
  EXPECT_EQ(s.length(), 2047);  // old content kept
  EXPECT_EQ(s.c_str()[0], 'x');
  EXPECT_EQ(s.status(), BS_OK);

  EXPECT_EQ(s.format("%d-%s", 7, "z"), BS_OK);
  EXPECT_EQ(Str(s), "7-z");
  EXPECT_EQ(s.format(nullptr), BS_FORMAT);
}

TEST(ByteString, Format2K) {
  struct Case {
    long long t;
    const char* text;
  } cases[] = {
      {0, "1970/01/01 00:00:00"},
      {951782400, "2000/02/29 00:00:00"},     // leap day of a century year
      {4107542399LL, "2100/02/28 23:59:59"},  // 2100 is not a leap year
      {-1, "1969/12/31 23:59:59"},
      {253402300799LL, "9999/12/31 23:59:59"},
  };
  for (const auto& k : cases) {
    ByteString s;
    EXPECT_EQ(s.format2K(k.t), BS_OK) << k.t;
    EXPECT_EQ(Str(s), k.text) << k.t;
  }
  ByteString s("keep");
  EXPECT_EQ(s.format2K(253402300800LL), BS_FORMAT);
  EXPECT_EQ(Str(s), "keep");
}

TEST(ByteString, ZeroizeKeepsLength) {
  ByteString s("secret");
  s.zeroize();
  EXPECT_EQ(s.length(), 6);
  EXPECT_EQ(std::string(s.c_str(), 6), std::string(6, '\0'));
}
