// Shared by the ASN.1 tests: classes by name, values built from and read back
// into the text of a vector record, trace texts and UTC dates.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <memory>
#include <regex>
#include <sstream>
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
#include "tests/support/TestUtil.h"

namespace asn1test {

using qvatest::DataPath;
using qvatest::ReadVectors;
using qvatest::Str;
using qvatest::ToHex;
using Record = qvatest::VectorRecord;

// A trace with its source line numbers blanked ("[ASN1Object.cpp:#]...").
inline std::string TraceWithoutLines(const ByteString& trace) {
  return std::regex_replace(Str(trace), std::regex(R"(\.cpp:\d+\])"), ".cpp:#]");
}

// Seconds since 1970 of "YYYY-MM-DD hh:mm:ss" UTC by the C library rather than by our calendar, or plain seconds.
inline std::time_t ParseTime(const std::string& s) {
  std::tm t{};
  if (std::sscanf(s.c_str(), "%d-%d-%d %d:%d:%d", &t.tm_year, &t.tm_mon, &t.tm_mday, &t.tm_hour, &t.tm_min,
                  &t.tm_sec) != 6) return static_cast<std::time_t>(std::stoll(s));
  t.tm_year -= 1900, t.tm_mon -= 1;
  return timegm(&t);
}
inline std::string TimeText(std::time_t t) {
  char out[32];
  std::tm tm{};
  return std::string(out, std::strftime(out, sizeof out, "%Y-%m-%d %H:%M:%S", gmtime_r(&t, &tm)));
}

// A record field ("" when absent); surrounding double quotes keep blanks.
inline std::string Field(const Record& r, const char* key) {
  const std::string v = r.count(key) ? r.at(key) : "";
  return v.size() >= 2 && v.front() == '"' && v.back() == '"' ? v.substr(1, v.size() - 2) : v;
}
// Blank-separated tokens with "X*N" standing for N copies of X, joined by sep.
inline std::string Expand(const std::string& text, const std::string& sep) {
  std::istringstream in(text);
  std::string out;
  for (std::string token; in >> token;) {
    const auto star = token.find('*');
    for (int i = star == std::string::npos ? 1 : std::stoi(token.substr(star + 1)); i > 0; --i)
      out += (out.empty() ? "" : sep) + token.substr(0, star);
  }
  return out;
}
// Hex with blanks; "XY*N" repeats the octets XY N times.
inline ByteString Bytes(const std::string& text) {
  const std::string hex = Expand(text, "");
  return hex.empty() ? ByteString() : qvatest::Hex(hex);
}

// Compares a record's field, where it has one, with what the code gave.
inline void ExpectField(const Record& r, const char* key, const std::string& actual) {
  if (r.count(key)) { EXPECT_EQ(Field(r, key), actual) << key; }
}
inline void ExpectHex(const Record& r, const char* key, const ByteString& actual) {
  if (r.count(key)) { EXPECT_EQ(ToHex(Bytes(Field(r, key))), ToHex(actual)) << key; }
}

// The characters of hex ranges "20 27-29 ...".
inline std::string Accepted(const std::string& ranges) {
  std::istringstream in(ranges);
  std::string out;
  for (std::string range; in >> range;) {
    // "27-29", or "3d" alone (find gives npos, and npos + 1 is 0).
    const int lo = std::stoi(range, nullptr, 16), hi = std::stoi(range.substr(range.find('-') + 1), nullptr, 16);
    for (int ch = lo; ch <= hi; ++ch) out += static_cast<char>(ch);
  }
  return out;
}

// The universal classes, in tag order, by name.
#define ASN1_TEST_CLASSES(X)                                                                                    \
  X(ASN1Boolean) X(ASN1Integer) X(ASN1BitString) X(ASN1OctetString) X(ASN1Null) X(ASN1ObjectIdentifier)        \
  X(ASN1Enumerated) X(ASN1UTF8String) X(ASN1Sequence) X(ASN1Set) X(ASN1NumericString) X(ASN1PrintableString)  \
  X(ASN1T61String) X(ASN1IA5String) X(ASN1UTCTime) X(ASN1GeneralizedTime) X(ASN1VisibleString) X(ASN1BMPString)
#define ASN1_TEST_NAME(T) #T,
const char* const kClasses[] = {ASN1_TEST_CLASSES(ASN1_TEST_NAME)};

// The untyped holder given a universal type.
struct TypedObject : ASN1Object {
  explicit TypedObject(unsigned char tag) { m_ucPrimitiveTag = tag; }
};

inline std::unique_ptr<ASN1Object> Make(const std::string& c, const std::string& type = "") {
#define ASN1_TEST_MAKE(T) \
  if (c == #T) return std::make_unique<T>();
  ASN1_TEST_CLASSES(ASN1_TEST_MAKE)
  EXPECT_EQ("ASN1Object", c);
  if (type.empty()) return std::make_unique<ASN1Object>();
  return std::make_unique<TypedObject>(static_cast<unsigned char>(std::stoi(type)));
}
inline std::unique_ptr<ASN1Object> Make(const Record& r) { return Make(Field(r, "Class"), Field(r, "Type")); }

// "implicit|explicit <number> context|application|private".
inline void ApplyTag(ASN1Object& o, const std::string& tag) {
  std::istringstream in(tag);
  std::string how, cls;
  int no = 0;
  if (!(in >> how >> no >> cls)) return;
  const unsigned char c = cls == "application" ? 0x40 : cls == "private" ? 0xC0 : 0x80;
  if (how == "implicit") o.setImplicitTag(no, c);
  else EXPECT_EQ(no, o.setExplicitTag(no, c));
}

// Gives o the value a record names (Int, Octets+Sign, Bool, Bits+Named, Oid,
// Time, Items, Text or Hex) and its Tag; returns the setter's code.
inline int Build(ASN1Object& o, const Record& r) {
  const std::string cls = Field(r, "Class");
  auto num = [&](const char* key) { return std::stoi(Field(r, key)); };
  auto hex = [&](const char* key) { return Bytes(Field(r, key)); };
  auto time = [&] { return ParseTime(Field(r, "Time")); };
  auto integer = [&]() -> ASN1Integer& { return static_cast<ASN1Integer&>(o); };
  int rc = 0;
  if (r.count("Int") && cls == "ASN1Enumerated") static_cast<ASN1Enumerated&>(o).setEnumerated(num("Int"));
  else if (r.count("Int")) integer().setInteger(num("Int"));
  else if (r.count("Octets")) rc = (integer().setInteger(77), integer().setInteger(hex("Octets"), num("Sign")));
  else if (r.count("Bool")) static_cast<ASN1Boolean&>(o).setBoolean(Field(r, "Bool") == "true");
  else if (r.count("Bits")) rc = static_cast<ASN1BitString&>(o).setBitString(hex("Bits"), num("Named"));
  else if (r.count("Oid")) rc = static_cast<ASN1ObjectIdentifier&>(o).setOID(Field(r, "Oid").c_str());
  else if (r.count("Time") && cls == "ASN1UTCTime") rc = static_cast<ASN1UTCTime&>(o).setGMTTime(time());
  else if (r.count("Time")) rc = static_cast<ASN1GeneralizedTime&>(o).setGMTTime(time());
  else if (r.count("Text")) rc = o.setValue(Field(r, "Text").c_str());
  else if (r.count("Hex")) rc = o.setValue(hex("Hex"));
  std::istringstream items(Field(r, "Items"));
  for (std::string item; items >> item && !rc;) rc = static_cast<ASN1Sequence&>(o).addComponent(Bytes(item));
  ApplyTag(o, Field(r, "Tag"));
  return rc;
}

// What a typed class reads from its contents, as text; "code N: trace" when the reader refuses.
inline std::string Native(ASN1Object& o, const std::string& cls) {
  std::string s;
  int unused = -1;
  if (cls == "ASN1Integer") s = std::to_string(static_cast<ASN1Integer&>(o).getInteger());
  else if (cls == "ASN1Enumerated") s = std::to_string(static_cast<ASN1Enumerated&>(o).getEnumerated());
  else if (cls == "ASN1Boolean") s = static_cast<ASN1Boolean&>(o).getBoolean() ? "true" : "false";
  else if (cls == "ASN1UTCTime") s = TimeText(static_cast<ASN1UTCTime&>(o).getGMTTime());
  else if (cls == "ASN1GeneralizedTime") s = TimeText(static_cast<ASN1GeneralizedTime&>(o).getGMTTime());
  else if (cls == "ASN1UTF8String") s = ToHex(static_cast<ASN1UTF8String&>(o).getUCS2Value());
  else if (cls == "ASN1BitString") s = ToHex(static_cast<ASN1BitString&>(o).getBitString(&unused));
  if (cls == "ASN1BitString") s = std::to_string(unused) + " " + s;
  if (cls == "ASN1ObjectIdentifier") {  // dotted, and the same with blanks
    s = Str(static_cast<ASN1ObjectIdentifier&>(o).getOID('.'));
    const std::string spaced = std::regex_replace(s, std::regex("\\."), " ");
    if (!o.getErrorCode()) { EXPECT_EQ(spaced, Str(static_cast<ASN1ObjectIdentifier&>(o).getOID(' '))); }
  }
  const int code = o.getErrorCode();
  return code ? "code " + std::to_string(code) + ": " + TraceWithoutLines(o.getErrorMessage()) : s;
}

// The components of any constructed element, read through a SEQUENCE identifier; the
// identifier's length, and a high tag's number.
inline ASN1Sequence Split(const ByteString& der, int* idLen, int* highTagNo = nullptr) {
  ASN1Object probe;
  *idLen = (der.data()[0] & 0x1F) != 0x1F ? 1 : probe.GetHighTag(der.data(), der.length(), highTagNo, true);
  ByteString asSequence("\x30", 1);
  asSequence.append(der.data() + *idLen, der.length() - *idLen);
  ASN1Sequence seq;
  if (der.data()[0] & ASN1_CONSTRUCTED) { EXPECT_EQ(0, seq.fromASN1Object(asSequence)) << Str(seq.getErrorMessage()); }
  return seq;
}

// Identifier fields after a decode: "tag=T tagged=K[/no] class=CC cons=CC".
inline std::string Shape(const ASN1Object& o) {
  char s[96];
  std::snprintf(s, sizeof s, "tag=%u tagged=%u%s class=%02x cons=%02x", o.getPrimitiveTag(), o.getTaggedType(),
                o.getTaggedType() ? ("/" + std::to_string(o.getOptionTagNo())).c_str() : "", o.getTagClass(),
                o.isConstructed());
  return s;
}


}  // namespace asn1test
