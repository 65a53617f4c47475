// ASN1Integer: the INTEGER type (universal tag 2), two's complement, minimal octets.
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1Integer : public ASN1Object {
 public:
  ASN1Integer() { m_ucPrimitiveTag = ASN1_TAG_INTEGER; }
  // Decodes one element and checks that it is a INTEGER (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  explicit ASN1Integer(int nValue);
  // Minimal two's complement octets of a native integer.
  void setInteger(int nValue);
  // Octets with a sign flag: 0 means an unsigned magnitude (0x00 is put in
  // front of a first octet with bit 0x80), -1 a negative number (0xFF is put
  // in front of a first octet without it), anything else copies as is.
  // Empty input clears the value. Returns 0, or 2 when memory runs out.
  int setInteger(const void* pData, int nLength, int nSign);
  int setInteger(const ByteString& bsData, int nSign);
  // The value as a signed 32-bit integer: 0 for an empty value or one of
  // more than five octets; wider values keep their low 32 bits.
  int getInteger() const;

  // The conversions themselves, shared with ASN1Enumerated.
  static void EncodeNative(int nValue, ByteString* pOut);
  static int DecodeNative(const ByteString& bsValue);
};
