#include "libaibase/clhandshake.h"

#include "base/ErrorCodes.h"
#include "libaibase/clmessages.h"

CLHandshake::CLHandshake() : CLRecord(RECORD_HANDSHAKE), m_nHandshakeType(0) {}

CLHandshake::~CLHandshake() = default;

int CLHandshake::MakeHandshake(int version, int handshakeType, const ByteString& data) {
  if (version < 0 || version > 255) return ERR_RECORD_VERSION;
  if (handshakeType < 0 || handshakeType > 255) return ERR_RECORD_TYPE;
  return MakeRecord(version, handshakeType, data);
}

int CLHandshake::ParseHandshake(const ByteString& record) {
  return ParseRecord(record, &m_nHandshakeType, cl_text::kHandshakeParseMethod, cl_text::kHandshakeWhat,
                     ERR_HANDSHAKE_PARSE);
}
