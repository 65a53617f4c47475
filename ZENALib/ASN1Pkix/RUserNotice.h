// UserNotice ::= SEQUENCE {                            (RFC 5280 4.2.1.4)
//   noticeRef    NoticeReference OPTIONAL,
//   explicitText DisplayText OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RDisplayText.h"
#include "ZENALib/ASN1Pkix/RNoticeReference.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RUserNotice_COMPONENTS(X)                                                                        \
  X(RNoticeReference, NoticeRef, noticeRef, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)                    \
  X(RDisplayText, ExplicitText, explicitText, TAGS(ASN1_TAG_UTF8STRING, R_TAGS_DISPLAYTEXT), R_OPTIONAL)

class RUserNotice : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RUserNotice)
};
