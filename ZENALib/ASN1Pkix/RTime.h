// Time ::= CHOICE { utcTime UTCTime, generalTime GeneralizedTime }   (RFC 5280 4.1.2.5)
#pragma once

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

class RTime : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(ASN1UTCTime, UtcTime, utcTime)
  R_ALTERNATIVE(ASN1GeneralizedTime, GeneralTime, generalTime)
};
