// The codec against the vector files under tests/data/asn1 (encodings, decodes, refusals with
// their codes and traces, restricted strings), then the component table's growth and copies.
#include "tests/ZENALib/ASN1/ASN1TestUtil.h"

using namespace asn1test;

TEST(ASN1Codec, EncodeVectors) {
  const auto records = ReadVectors(DataPath("asn1/encode.txt"));
  ASSERT_GT(records.size(), 150u);
  for (const Record& r : records) {
    SCOPED_TRACE("encode.txt record " + Field(r, "Name"));
    const std::string cls = Field(r, "Class");
    auto o = Make(r);
    int rc = Build(*o, r);
    const bool setterRefused = rc != 0;
    const ByteString der = rc ? ByteString() : ByteString(o->toASN1Object());
    if (!rc) rc = o->getErrorCode();
    EXPECT_EQ(Field(r, "Code").empty() ? 0 : std::stoi(Field(r, "Code")), rc);
    if (rc) {
      EXPECT_EQ(0, der.length());
      EXPECT_EQ(Field(r, "Trace"), TraceWithoutLines(o->getErrorMessage()));
      if (setterRefused) { EXPECT_EQ(0, o->getValueLength()); }  // a refused value is not stored
      continue;
    }
    ExpectHex(r, "Der", der);
    ExpectHex(r, "Value", o->getValue());
    ExpectField(r, "Text", Str(o->getValue()));
    const std::string native = Native(*o, cls);
    ExpectField(r, "Native", native);
    if (Field(r, "Reread") == "no") continue;
    auto back = Make(r);
    ASSERT_EQ(0, back->fromASN1Object(der)) << Str(back->getErrorMessage());
    EXPECT_EQ(native, Native(*back, cls));
    EXPECT_EQ(ToHex(der), ToHex(back->toASN1Object()));
  }
}

TEST(ASN1Codec, DecodeVectors) {
  const auto records = ReadVectors(DataPath("asn1/decode.txt"));
  ASSERT_GT(records.size(), 90u);
  for (const Record& r : records) {
    SCOPED_TRACE("decode.txt record " + Field(r, "Name"));
    auto o = Make(r);
    const int code = Field(r, "Code").empty() ? 0 : std::stoi(Field(r, "Code"));
    EXPECT_EQ(code, o->fromASN1Object(Bytes(Field(r, "Input"))));
    EXPECT_EQ(code, o->getErrorCode());
    auto* seq = dynamic_cast<ASN1Sequence*>(o.get());
    if (code) {
      const std::string trace = TraceWithoutLines(o->getErrorMessage());
      ExpectField(r, "Trace", trace);
      if (r.count("TraceHas")) { EXPECT_NE(std::string::npos, trace.find(Field(r, "TraceHas"))) << trace; }
      if (seq) { EXPECT_EQ(0, seq->getComponentCount()); }
      continue;
    }
    ExpectHex(r, "Value", o->getValue());
    ExpectField(r, "Shape", Shape(*o));
    if (r.count("Native")) { ExpectField(r, "Native", Native(*o, Field(r, "Class"))); }
    if (r.count("Der")) { ExpectHex(r, "Der", o->toASN1Object()); }
    if (!r.count("Components")) continue;
    // Components lie end to end over the contents, each with its tag key and tag.
    ASSERT_NE(nullptr, seq);
    std::string keys, walked;
    for (int i = 0; i < seq->getComponentCount(); ++i) {
      EXPECT_EQ(static_cast<int>(walked.size() / 2), seq->getComponentInfo(i)->nOffset);
      keys += (i ? " " : "") + std::to_string(seq->getComponentOptionTagNo(i)) + "/" +
              std::to_string(seq->getComponentTag(i));
      walked += ToHex(seq->getComponent(i));
    }
    EXPECT_EQ(Expand(Field(r, "Components"), " "), keys);
    EXPECT_EQ(ToHex(o->getValue()), walked);
    for (int i : {-1, seq->getComponentCount(), seq->getComponentCount() + 1000}) {  // out of range either side
      EXPECT_EQ(-1, seq->getComponentOptionTagNo(i));
      EXPECT_EQ(-1, seq->getComponentTag(i));
      EXPECT_EQ(0, seq->getComponent(i).length());
      EXPECT_EQ(1, seq->getErrorCode());
    }
  }
}

TEST(ASN1Codec, RestrictedStringCharacters) {
  const auto records = ReadVectors(DataPath("asn1/strings.txt"));
  ASSERT_EQ(4u, records.size());
  for (const Record& r : records) {
    const std::string cls = Field(r, "Class");
    SCOPED_TRACE("strings.txt record " + cls);
    const std::string accepted = Accepted(Field(r, "Accept"));
    for (int ch = 0; ch < 256; ++ch) {
      const char text[3] = {'1', static_cast<char>(ch), '2'};
      auto o = Make(cls);
      const bool accept = ch && accepted.find(static_cast<char>(ch)) != std::string::npos;
      ASSERT_EQ(accept ? 0 : 1, o->setValue(text, 3)) << "character " << ch;
      if (accept) continue;
      EXPECT_EQ(0, o->getValueLength());
      char message[96];
      std::snprintf(message, sizeof message, Field(r, "Message").c_str(), ch);
      ASSERT_EQ("[" + cls + ".cpp:#]" + Field(r, "Recorded") + "::setValue-data(1), " + message,
                TraceWithoutLines(o->getErrorMessage()));
    }
    auto whole = Make(cls);  // every accepted character in one value
    EXPECT_EQ(0, whole->setValue(accepted.c_str()));
    EXPECT_EQ(accepted, Str(whole->getValue()));
  }
}

TEST(ASN1Codec, ErrorMessageChainsNewestFirst) {
  ASN1Object o;
  o.setErrorMessage("C:\\src\\dir\\First.cpp", 10, "A", "m1", "f1", 4, "inner text");
  o.setErrorMessage("/src/Second.cpp", 20, "B", "m2", "f2", 5, o.getErrorMessage().c_str());
  EXPECT_EQ("[Second.cpp:20]B::m2-f2(5), [First.cpp:10]A::m1-f1(4), inner text", Str(o.getErrorMessage()));
  o.setErrorMessage("Plain.cpp", 1, "C", "m", "f", 0, "");
  EXPECT_EQ("[Plain.cpp:1]C::m-f(0)", Str(o.getErrorMessage()));
  EXPECT_EQ(0, o.getErrorCode());
  // A later success clears the code.
  ASN1Integer typed(5);
  typed.setImplicitTag(-3, ASN1_CLASS_CONTEXT);
  EXPECT_EQ(2, (typed.toASN1Object(), typed.getErrorCode()));
  typed.setImplicitTag(3, ASN1_CLASS_CONTEXT);
  EXPECT_EQ("830105", ToHex(typed.toASN1Object()));
  EXPECT_EQ(0, typed.getErrorCode());
}

TEST(ASN1Codec, SequenceTableGrowsAndCopies) {
  // 45 components: the table grows three times by 20 entries.
  ASN1Sequence built;
  for (int i = 0; i < 45; ++i) {
    ASN1Integer n(i * 1000 - 7);
    if (i % 3) ApplyTag(n, (i % 3 == 1 ? "implicit " : "explicit ") + std::to_string(i) + " context");
    ASSERT_EQ(0, built.addComponent(n.toASN1Object()));
  }
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
  // setValue rebuilds the table; addComponent refuses what is not an element,
  // and an empty encoding gets an empty entry at the end of the value.
  ASSERT_EQ(0, assigned.setValue(Bytes("0201010500")));
  EXPECT_EQ(2, assigned.getComponentCount());
  EXPECT_EQ(5, assigned.getComponentTag(1));
  EXPECT_EQ(1, assigned.addComponent(Bytes("0f00")));
  EXPECT_EQ(2, assigned.getComponentCount());
  EXPECT_EQ(0, assigned.addComponent(ByteString()));
  ASSERT_EQ(3, assigned.getComponentCount());
  EXPECT_EQ(5, assigned.getComponentInfo(2)->nOffset);
  EXPECT_EQ(0, assigned.getComponentInfo(2)->nLength);
  EXPECT_EQ("30050201010500", ToHex(assigned.toASN1Object()));
}
