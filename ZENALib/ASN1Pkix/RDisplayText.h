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

class RDisplayText : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(ASN1IA5String, Ia5String, ia5String)
  R_ALTERNATIVE(ASN1VisibleString, VisibleString, visibleString)
  R_ALTERNATIVE(ASN1BMPString, BmpString, bmpString)
  R_ALTERNATIVE(ASN1UTF8String, Utf8String, utf8String)
};
