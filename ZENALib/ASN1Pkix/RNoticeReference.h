// NoticeReference ::= SEQUENCE {                       (RFC 5280 4.2.1.4)
//   organization  DisplayText,
//   noticeNumbers SEQUENCE OF INTEGER }
#pragma once

#include "ZENALib/ASN1Pkix/RDisplayText.h"
#include "ZENALib/ASN1Pkix/RNoticeNumbers.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RNoticeReference_COMPONENTS(X)                                                                    \
  X(RDisplayText, Organization, organization, TAGS(ASN1_TAG_UTF8STRING, R_TAGS_DISPLAYTEXT), R_MANDATORY) \
  X(RNoticeNumbers, NoticeNumbers, noticeNumbers, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)

class RNoticeReference : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RNoticeReference)
};
