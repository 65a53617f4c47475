// SubjectInfoAccessSyntax ::= SEQUENCE SIZE (1..MAX) OF AccessDescription   (RFC 5280 4.2.2.2)
#pragma once

#include "ZENALib/ASN1Pkix/RAccessDescription.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RSubjectInfoAccessSyntax : public RListOf<RAccessDescription> {
 public:
  RSubjectInfoAccessSyntax() : RListOf("RSubjectInfoAccessSyntax") {}
};
