// SubjectDirectoryAttributes ::= SEQUENCE SIZE (1..MAX) OF Attribute   (RFC 5280 4.2.1.8)
#pragma once

#include "ZENALib/ASN1Pkix/RAttribute.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RSubjectDirectoryAttributes : public RListOf<RAttribute> {
 public:
  RSubjectDirectoryAttributes() : RListOf("RSubjectDirectoryAttributes") {}
};
