// UDNSettings: a Name (RDNSequence) as one line of text.
//
// Layout: every AttributeTypeAndValue as "<key>=<value>", in RDNSequence
// order (the order of the encoding, most significant RDN first), all joined
// by ","; the values of a multi-valued RDN are written one after the other in
// the same way, so a reader that looks up "cn=" up to the next "," finds each
// of them. Keys are lower case:
//
//   2 5 4 6  c      2 5 4 8  st     2 5 4 7  l       2 5 4 10 o
//   2 5 4 11 ou     2 5 4 3  cn     2 5 4 4  sn      2 5 4 42 givenname
//   2 5 4 5  serialnumber   2 5 4 9 street   2 5 4 12 title
//   1 2 840 113549 1 9 1   e       0 9 2342 19200300 100 1 25  dc
//   0 9 2342 19200300 100 1 1  uid
//   any other type: its dotted identifier ("2.5.4.65=...")
//
// Values: PrintableString, IA5String, NumericString, VisibleString and
// T61String are copied as they are (Korean T61 values already hold CP949
// bytes); UTF8String, BMPString and UniversalString are converted to CP949
// (UUniCode; a character without a CP949 form becomes '?'). A value of any
// other type is written as "#" and the hex of its whole encoding. Values are
// not escaped: a "," inside a value stays as it is.
//
// Examples (CP949 bytes shown as the characters they stand for):
//   C=KR / O=yessign / OU=AccreditedCA / CN=yessignCA Class 2
//     -> "c=KR,o=yessign,ou=AccreditedCA,cn=yessignCA Class 2"
//   C=KR / O=TradeSign / OU=personal4IB / OU=KTNET / CN=테스트(KTNET)... (BMPString)
//     -> "c=KR,o=TradeSign,ou=personal4IB,ou=KTNET,cn=테스트(KTNET)..."
//   CN=a+OU=b (one multi-valued RDN) / 2.5.4.65=x
//     -> "cn=a,ou=b,2.5.4.65=x"
#pragma once

#include "ZENALib/ASN1Pkix/RRDNSequence.h"
#include "base/ByteString.h"

class UDNSettings {
 public:
  // Writes the text of rdn to out (replacing it). 0, or UDN_ERR_FORMAT when
  // an attribute type cannot be read or a BMPString/UniversalString value is
  // not whole characters; UDN_ERR_MEMORY when the text cannot grow.
  static int RDN2Str(const RRDNSequence& rdn, ByteString* out);
  // The text of one attribute value (the element as encoded) by the rules above.
  static int Value2Str(const ByteString& bsElement, ByteString* out);
  // The lower-case key of an attribute type given as blank-separated arcs,
  // or null for a type without one.
  static const char* KeyOf(const char* szOid);
  // "1 2 3" -> "1.2.3".
  static ByteString Dotted(const ByteString& bsOid);

  static constexpr int UDN_ERR_FORMAT = 1;
  static constexpr int UDN_ERR_MEMORY = 2;
};
