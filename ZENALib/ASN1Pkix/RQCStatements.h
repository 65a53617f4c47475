// QCStatements ::= SEQUENCE OF QCStatement   (RFC 3739 3.2.6)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RQCStatement.h"

class RQCStatements : public RListOf<RQCStatement> {
 public:
  RQCStatements() : RListOf("RQCStatements") {}
};
