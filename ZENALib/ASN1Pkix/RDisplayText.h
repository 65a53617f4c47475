// DisplayText ::= CHOICE {                             (RFC 5280 4.2.1.4)
//   ia5String     IA5String (SIZE (1..200)),
//   visibleString VisibleString (SIZE (1..200)),
//   bmpString     BMPString (SIZE (1..200)),
//   utf8String    UTF8String (SIZE (1..200)) }
#pragma once

#include "ZENALib/ASN1/ASN1BMPString.h"
#include "ZENALib/ASN1/ASN1IA5String.h"
#include "ZENALib/ASN1/ASN1UTF8String.h"
#include "ZENALib/ASN1/ASN1VisibleString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

// Universal tags a DisplayText may carry, for fields that hold one untagged.
constexpr std::uint32_t R_TAGS_DISPLAYTEXT = (1u << ASN1_TAG_IA5STRING) | (1u << ASN1_TAG_VISIBLESTRING) |
                                             (1u << ASN1_TAG_BMPSTRING) | (1u << ASN1_TAG_UTF8STRING);

#define RDisplayText_COMPONENTS(X)                                                                   \
  X(ASN1IA5String, Ia5String, ia5String, UNIVERSAL(ASN1_TAG_IA5STRING), R_MANDATORY)                 \
  X(ASN1VisibleString, VisibleString, visibleString, UNIVERSAL(ASN1_TAG_VISIBLESTRING), R_MANDATORY) \
  X(ASN1BMPString, BmpString, bmpString, UNIVERSAL(ASN1_TAG_BMPSTRING), R_MANDATORY)                 \
  X(ASN1UTF8String, Utf8String, utf8String, UNIVERSAL(ASN1_TAG_UTF8STRING), R_MANDATORY)

class RDisplayText : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RDisplayText)
};
