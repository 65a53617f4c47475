// NoticeReference ::= SEQUENCE {                       (RFC 5280 4.2.1.4)
//   organization  DisplayText,
//   noticeNumbers SEQUENCE OF INTEGER }
#pragma once

#include "ZENALib/ASN1Pkix/RDisplayText.h"
#include "ZENALib/ASN1Pkix/RNoticeNumbers.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RNoticeReference : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RDisplayText, Organization, organization)
  R_COMPONENT(RNoticeNumbers, NoticeNumbers, noticeNumbers)
};
