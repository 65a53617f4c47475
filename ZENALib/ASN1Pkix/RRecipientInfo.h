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

#define RRecipientInfo_COMPONENTS(X)                                               \
  X(RKeyTransRecipientInfo, Ktri, ktri, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RKeyAgreeRecipientInfo, Kari, kari, IMPLICIT(1), R_MANDATORY)                  \
  X(RKEKRecipientInfo, Kekri, kekri, IMPLICIT(2), R_MANDATORY)                     \
  X(RAny, Pwri, pwri, IMPLICIT(3), R_MANDATORY)                                    \
  X(RAny, Ori, ori, IMPLICIT(4), R_MANDATORY)

class RRecipientInfo : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RRecipientInfo)
};
