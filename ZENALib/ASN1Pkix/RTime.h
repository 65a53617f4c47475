// Time ::= CHOICE { utcTime UTCTime, generalTime GeneralizedTime }   (RFC 5280 4.1.2.5)
#pragma once

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

#define RTime_COMPONENTS(X)                                                                          \
  X(ASN1UTCTime, UtcTime, utcTime, UNIVERSAL(ASN1_TAG_UTCTIME), R_MANDATORY)                         \
  X(ASN1GeneralizedTime, GeneralTime, generalTime, UNIVERSAL(ASN1_TAG_GENERALIZEDTIME), R_MANDATORY)

class RTime : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RTime)
};
