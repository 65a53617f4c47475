#include "libaibase/clapplicationdata.h"

#include "base/ErrorCodes.h"
#include "libaibase/clmessages.h"

CLApplicationData::CLApplicationData() : CLRecord(RECORD_APPLICATION_DATA) {}

CLApplicationData::~CLApplicationData() = default;

int CLApplicationData::MakeApplicationData(int version, const ByteString& data) {
  return MakeRecord(version, kNoHandshakeType, data);
}

int CLApplicationData::ParseApplicationData(const ByteString& record) {
  return ParseRecord(record, nullptr, cl_text::kApplicationDataParseMethod, cl_text::kApplicationDataWhat,
                     ERR_APPLICATION_DATA_PARSE);
}
