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

#define RDirectoryString_COMPONENTS(X)                                                                       \
  X(ASN1T61String, TeletexString, teletexString, UNIVERSAL(ASN1_TAG_T61STRING), R_MANDATORY)                 \
  X(ASN1PrintableString, PrintableString, printableString, UNIVERSAL(ASN1_TAG_PRINTABLESTRING), R_MANDATORY) \
  X(RAny, UniversalString, universalString, UNIVERSAL(R_TAG_UNIVERSALSTRING), R_MANDATORY)                   \
  X(ASN1UTF8String, Utf8String, utf8String, UNIVERSAL(ASN1_TAG_UTF8STRING), R_MANDATORY)                     \
  X(ASN1BMPString, BmpString, bmpString, UNIVERSAL(ASN1_TAG_BMPSTRING), R_MANDATORY)

class RDirectoryString : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RDirectoryString)
};
