// policyQualifiers of PolicyInformation:
//   SEQUENCE SIZE (1..MAX) OF PolicyQualifierInfo   (RFC 5280 4.2.1.4)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RPolicyQualifierInfo.h"

class RPolicyQualifiers : public RListOf<RPolicyQualifierInfo> {
 public:
  RPolicyQualifiers() : RListOf("RPolicyQualifiers") {}
};
