// UserNotice ::= SEQUENCE {                            (RFC 5280 4.2.1.4)
//   noticeRef    NoticeReference OPTIONAL,
//   explicitText DisplayText OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RDisplayText.h"
#include "ZENALib/ASN1Pkix/RNoticeReference.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RUserNotice : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RNoticeReference, NoticeRef, noticeRef)
  R_COMPONENT(RDisplayText, ExplicitText, explicitText)
};
