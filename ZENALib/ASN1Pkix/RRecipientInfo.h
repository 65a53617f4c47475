// RecipientInfo ::= CHOICE {                                   (RFC 5652 6.2)
//   ktri  KeyTransRecipientInfo,
//   kari  [1] KeyAgreeRecipientInfo,
//   kekri [2] KEKRecipientInfo,
//   pwri  [3] PasswordRecipientInfo,
//   ori   [4] OtherRecipientInfo }
// (the module has IMPLICIT TAGS; pwri and ori are kept verbatim)
#pragma once

#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RKEKRecipientInfo.h"
#include "ZENALib/ASN1Pkix/RKeyAgreeRecipientInfo.h"
#include "ZENALib/ASN1Pkix/RKeyTransRecipientInfo.h"

class RRecipientInfo : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(RKeyTransRecipientInfo, Ktri, ktri)
  R_ALTERNATIVE(RKeyAgreeRecipientInfo, Kari, kari)
  R_ALTERNATIVE(RKEKRecipientInfo, Kekri, kekri)
  R_ALTERNATIVE(RAny, Pwri, pwri)
  R_ALTERNATIVE(RAny, Ori, ori)
};
