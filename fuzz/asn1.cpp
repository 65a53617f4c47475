// Decodes arbitrary input as an ASN1Object, as an ASN1Sequence with a full
// recursive component walk, and as each universal type; whatever decodes is
// encoded again and must decode to the same contents. The input is also fed
// to the text parsers (OID and time texts, character checks).
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

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
#include "base/Limits.h"

namespace {

// Stops the run with the line of the failed property.
#define Check(ok) CheckAt((ok), __LINE__)
void CheckAt(bool ok, int line) {
  if (ok) return;
  std::fprintf(stderr, "property failed at fuzz/asn1.cpp:%d\n", line);
  std::abort();
}

// Re-encodes a decoded object and decodes the result into a fresh one of the same type.
template <typename T>
void RoundTrip(T& decoded) {
  const ByteString encoded = decoded.toASN1Object();
  // An untyped holder under an implicit tag has nothing to encode from.
  if (decoded.getErrorCode() != 0) {
    Check(decoded.getPrimitiveTag() == ASN1_TAG_NONE);
    return;
  }
  T again;
  // An implicit SEQUENCE or SET, or an implicit constructed element read from
  // a high-tag form, is written with a one-octet constructed identifier when
  // its number is 30 or less, and that reads back as explicit: such a value
  // is decoded again, not compared.
  const unsigned char tag = decoded.getPrimitiveTag();
  if (decoded.getTaggedType() == ASN1_IMPLICIT && decoded.getOptionTagNo() <= 30 &&
      (tag == ASN1_TAG_SEQUENCE || tag == ASN1_TAG_SET || decoded.isConstructed())) {
    again.fromASN1Object(encoded);
    return;
  }
  Check(again.fromASN1Object(encoded) == 0);
  Check(again.getValue() == decoded.getValue());
}

// Walks every component of a sequence, descending into constructed ones.
void Walk(const ByteString& der, int depth) {
  ASN1Sequence seq;
  if (seq.fromASN1Object(der) != 0) return;
  RoundTrip(seq);
  ASN1Sequence rebuilt;
  for (int i = 0; i < seq.getComponentCount(); ++i) {
    const int key = seq.getComponentOptionTagNo(i);
    const int tag = seq.getComponentTag(i);
    Check(tag == -2 ? key >= 0 : tag == -key);
    const ByteString component = seq.getComponent(i);
    Check(component.length() == seq.getComponentInfo(i)->nLength);
    Check(rebuilt.addComponent(component, key) == 0);
    if (depth < qva_limits::kMaxNestingDepth && (component.data()[0] & ASN1_CONSTRUCTED)) {
      Walk(component, depth + 1);
    } else {
      ASN1Object member;
      if (member.fromASN1Object(component) == 0 && member.getPrimitiveTag() != ASN1_TAG_NONE) RoundTrip(member);
    }
  }
  // The component table covers the whole contents, in order.
  Check(rebuilt.getValue() == seq.getValue());
}

template <typename T>
T* DecodeAs(const ByteString& in, std::unique_ptr<T>* holder) {
  holder->reset(new T);
  if ((*holder)->fromASN1Object(in) != 0) return nullptr;
  RoundTrip(**holder);
  return holder->get();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 1 << 20) return 0;
  const ByteString in(data, static_cast<int>(size));

  {
    ASN1Object o;
    if (o.fromASN1Object(in) == 0 && o.getPrimitiveTag() != ASN1_TAG_NONE) RoundTrip(o);
  }
  Walk(in, 0);
  {
    std::unique_ptr<ASN1Set> set;
    DecodeAs(in, &set);
  }

  // Every universal type, with its typed getters.
  {
    std::unique_ptr<ASN1Integer> p;
    if (ASN1Integer* o = DecodeAs(in, &p)) {
      ASN1Integer back(o->getInteger());
      Check(back.getInteger() == o->getInteger());
    }
  }
  {
    std::unique_ptr<ASN1Enumerated> p;
    if (ASN1Enumerated* o = DecodeAs(in, &p)) o->getEnumerated();
  }
  {
    std::unique_ptr<ASN1Boolean> p;
    if (ASN1Boolean* o = DecodeAs(in, &p)) o->getBoolean();
  }
  {
    std::unique_ptr<ASN1BitString> p;
    if (ASN1BitString* o = DecodeAs(in, &p)) {
      int unused = 0;
      const ByteString bits = o->getBitString(&unused);
      Check(o->getValueLength() == 0 || bits.length() == o->getValueLength() - 1);
    }
  }
  {
    std::unique_ptr<ASN1ObjectIdentifier> p;
    if (ASN1ObjectIdentifier* o = DecodeAs(in, &p)) {
      const ByteString text = o->getOID(' ');
      // A text that getOID produced goes through setOID and back unchanged,
      // when the first octet is a single sub-identifier.
      if (text.length() > 0 && o->getValue().data()[0] < 0x80) {
        ASN1ObjectIdentifier back;
        if (back.setOID(text.c_str()) == 0) Check(back.getOID(' ') == text);
      }
    }
  }
  {
    std::unique_ptr<ASN1UTF8String> p;
    if (ASN1UTF8String* o = DecodeAs(in, &p)) Check(o->getUCS2Value().length() <= 2 * o->getValueLength());
  }
  {
    std::unique_ptr<ASN1UTCTime> p;
    DecodeAs(in, &p);
  }
  {
    std::unique_ptr<ASN1GeneralizedTime> p;
    DecodeAs(in, &p);
  }
  {
    std::unique_ptr<ASN1OctetString> a;
    std::unique_ptr<ASN1Null> b;
    std::unique_ptr<ASN1T61String> c;
    std::unique_ptr<ASN1BMPString> d;
    std::unique_ptr<ASN1IA5String> e;
    std::unique_ptr<ASN1PrintableString> f;
    std::unique_ptr<ASN1NumericString> g;
    std::unique_ptr<ASN1VisibleString> h;
    DecodeAs(in, &a);
    DecodeAs(in, &b);
    DecodeAs(in, &c);
    DecodeAs(in, &d);
    DecodeAs(in, &e);
    DecodeAs(in, &f);
    DecodeAs(in, &g);
    DecodeAs(in, &h);
  }

  // The raw input as texts.
  const char* text = reinterpret_cast<const char*>(data);
  const int n = static_cast<int>(size);
  {
    ASN1ObjectIdentifier oid;
    if (oid.setOID(text, n) == 0) {
      ASN1ObjectIdentifier back;
      Check(back.fromASN1Object(oid.toASN1Object()) == 0);
      back.getOID('.');
    }
  }
  {
    ASN1UTCTime t;
    if (t.setValue(data, n) == 0) {
      ASN1UTCTime u;
      Check(u.setGMTTime(t.getGMTTime()) == 0);
    }
    ASN1GeneralizedTime g;
    if (g.setValue(data, n) == 0) {
      ASN1GeneralizedTime h;
      Check(h.setGMTTime(g.getGMTTime()) == 0);
      Check(h.getGMTTime() == g.getGMTTime());
    }
  }
  {
    ASN1IA5String a;
    ASN1PrintableString b;
    ASN1NumericString c;
    ASN1VisibleString d;
    a.setValue(data, n);
    b.setValue(data, n);
    c.setValue(data, n);
    d.setValue(data, n);
  }
  return 0;
}
