// PolicyConstraints ::= SEQUENCE {                     (RFC 5280 4.2.1.11)
//   requireExplicitPolicy [0] SkipCerts OPTIONAL,
//   inhibitPolicyMapping  [1] SkipCerts OPTIONAL }
// SkipCerts ::= INTEGER (0..MAX); the module is implicitly tagged.
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RPolicyConstraints_COMPONENTS(X)                                                \
  X(ASN1Integer, RequireExplicitPolicy, requireExplicitPolicy, IMPLICIT(0), R_OPTIONAL) \
  X(ASN1Integer, InhibitPolicyMapping, inhibitPolicyMapping, IMPLICIT(1), R_OPTIONAL)

class RPolicyConstraints : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPolicyConstraints)
};
