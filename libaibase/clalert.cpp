#include "libaibase/clalert.h"

#include "base/ErrorCodes.h"
#include "libaibase/clmessages.h"

CLAlert::CLAlert() : CLRecord(RECORD_ALERT) {}

CLAlert::~CLAlert() = default;

int CLAlert::MakeAlert(int version, const ByteString& data) { return MakeRecord(version, kNoHandshakeType, data); }

int CLAlert::ParseAlert(const ByteString& record) {
  return ParseRecord(record, nullptr, cl_text::kAlertParseMethod, cl_text::kAlertWhat, ERR_ALERT_PARSE);
}
