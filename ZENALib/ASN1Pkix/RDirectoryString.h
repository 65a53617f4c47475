// DirectoryString ::= CHOICE {                         (RFC 5280 4.1.2.4)
//   teletexString   TeletexString,
//   printableString PrintableString,
//   universalString UniversalString,
//   utf8String      UTF8String,
//   bmpString       BMPString }
// UniversalString has no codec class: it is kept verbatim.
#pragma once

#include "ZENALib/ASN1/ASN1BMPString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1/ASN1T61String.h"
#include "ZENALib/ASN1/ASN1UTF8String.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

// Universal tag of UniversalString.
constexpr int R_TAG_UNIVERSALSTRING = 28;

class RDirectoryString : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(ASN1T61String, TeletexString, teletexString)
  R_ALTERNATIVE(ASN1PrintableString, PrintableString, printableString)
  R_ALTERNATIVE(RAny, UniversalString, universalString)
  R_ALTERNATIVE(ASN1UTF8String, Utf8String, utf8String)
  R_ALTERNATIVE(ASN1BMPString, BmpString, bmpString)
};
