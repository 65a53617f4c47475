// QCStatement ::= SEQUENCE {                           (RFC 3739 3.2.6)
//   statementId   QC-STATEMENT.&id({SupportedStatements}),
//   statementInfo QC-STATEMENT.&Type({SupportedStatements}{@statementId}) OPTIONAL }
// The statement information is kept verbatim; its syntax is named by statementId.
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RQCStatement_COMPONENTS(X)                                                        \
  X(ASN1ObjectIdentifier, StatementId, statementId, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, StatementInfo, statementInfo, ANY(), R_OPTIONAL)

class RQCStatement : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RQCStatement)
};
