// RecipientInfos ::= SET SIZE (1..MAX) OF RecipientInfo        (RFC 5652 6.1)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RRecipientInfo.h"

class RRecipientInfos : public RSetOf<RRecipientInfo> {
 public:
  RRecipientInfos() : RSetOf("RRecipientInfos") {}
};
