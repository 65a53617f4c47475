// IssuingDistributionPoint ::= SEQUENCE {              (RFC 5280 5.2.5)
//   distributionPoint          [0] DistributionPointName OPTIONAL,
//   onlyContainsUserCerts      [1] BOOLEAN DEFAULT FALSE,
//   onlyContainsCACerts        [2] BOOLEAN DEFAULT FALSE,
//   onlySomeReasons            [3] ReasonFlags OPTIONAL,
//   indirectCRL                [4] BOOLEAN DEFAULT FALSE,
//   onlyContainsAttributeCerts [5] BOOLEAN DEFAULT FALSE }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1Pkix/RDistributionPointName.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RIssuingDistributionPoint_COMPONENTS(X)                                                   \
  X(RDistributionPointName, DistributionPoint, distributionPoint, EXPLICIT(0), R_OPTIONAL)        \
  X(ASN1Boolean, OnlyContainsUserCerts, onlyContainsUserCerts, IMPLICIT(1), R_OPTIONAL)           \
  X(ASN1Boolean, OnlyContainsCACerts, onlyContainsCACerts, IMPLICIT(2), R_OPTIONAL)               \
  X(ASN1BitString, OnlySomeReasons, onlySomeReasons, IMPLICIT(3), R_OPTIONAL)                     \
  X(ASN1Boolean, IndirectCRL, indirectCRL, IMPLICIT(4), R_OPTIONAL)                               \
  X(ASN1Boolean, OnlyContainsAttributeCerts, onlyContainsAttributeCerts, IMPLICIT(5), R_OPTIONAL)

class RIssuingDistributionPoint : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RIssuingDistributionPoint)

 public:
  // The flags with their DEFAULT FALSE applied.
  bool isOnlyContainsUserCerts() const { return hasOnlyContainsUserCerts() && m_onlyContainsUserCerts.getBoolean(); }
  bool isOnlyContainsCACerts() const { return hasOnlyContainsCACerts() && m_onlyContainsCACerts.getBoolean(); }
  bool isIndirectCRL() const { return hasIndirectCRL() && m_indirectCRL.getBoolean(); }
  bool isOnlyContainsAttributeCerts() const {
    return hasOnlyContainsAttributeCerts() && m_onlyContainsAttributeCerts.getBoolean();
  }
};
