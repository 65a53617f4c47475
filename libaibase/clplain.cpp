#include "libaibase/clplain.h"

#include "base/ErrorCodes.h"
#include "libaibase/clmessages.h"

CLPlain::CLPlain() : CLRecord(RECORD_PLAIN) {}

CLPlain::~CLPlain() = default;

int CLPlain::MakePlain(int version, const ByteString& data) { return MakeRecord(version, kNoHandshakeType, data); }

int CLPlain::ParsePlain(const ByteString& record) {
  return ParseRecord(record, nullptr, cl_text::kPlainParseMethod, cl_text::kPlainWhat, ERR_PLAIN_PARSE);
}

int CLPlain::ParsePlain(const ByteString& record, ByteReader* data) {
  return ParseRecordInPlace(record, nullptr, cl_text::kPlainParseMethod, cl_text::kPlainWhat, ERR_PLAIN_PARSE, data);
}
