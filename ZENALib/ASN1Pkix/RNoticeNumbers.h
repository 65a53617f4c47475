// noticeNumbers of NoticeReference: SEQUENCE OF INTEGER   (RFC 5280 4.2.1.4)
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RUniversalItem.h"

class RNoticeNumbers : public RListOf<RUniversalItem<ASN1Integer>> {
 public:
  RNoticeNumbers() : RListOf("RNoticeNumbers") {}
};
