// The identity-verification data of a Korean PKI certificate: the
// subscriber's real name and virtual identifiers, carried as the otherName
// 1 2 410 200004 10 1 1 of the subjectAltName (KCAC.TS.SIVID).
//   IdentifyData ::= SEQUENCE {
//     realName UTF8String,
//     userInfo SEQUENCE OF SEQUENCE {
//                vidType OBJECT IDENTIFIER,   -- 1 2 410 200004 10 1 1 1
//                vid     VID } OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1UTF8String.h"
#include "ZENALib/ASN1Pkix/RAttributeTypeAndValue.h"
#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RVID.h"

// The userInfo list: each entry a (vidType, vid) pair, the VID kept verbatim.
class RIdentifyUserInfo : public RListOf<RAttributeTypeAndValue> {
 public:
  RIdentifyUserInfo() : RListOf("RIdentifyUserInfo") {}
};

#define RIdentifyData_COMPONENTS(X)                                                  \
  X(ASN1UTF8String, RealName, realName, UNIVERSAL(ASN1_TAG_UTF8STRING), R_MANDATORY) \
  X(RIdentifyUserInfo, UserInfo, userInfo, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RIdentifyData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RIdentifyData)

 public:
  // Decodes the VID of userInfo entry i into *pVid; 0, the VID's own code,
  // or R_ERR_FORMAT when there is no entry i.
  int getVID(int i, RVID* pVid) const;
};
