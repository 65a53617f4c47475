#include "libaibase/clrecord.h"

#include <utility>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"
#include "libaibase/clwriterutil.h"

namespace {

constexpr std::size_t kHeaderSize = 6;

}  // namespace

CLRecord::CLRecord(int contentType) : m_nContentType(0), m_nVersion(0), m_nOwnType(contentType) {}

CLRecord::~CLRecord() = default;

ByteString CLRecord::TakeRecord() { return std::move(m_bsRecord); }

ByteString CLRecord::TakeData() { return std::move(m_bsBody); }

bool CLRecord::HasContentType(const ByteString& record, int contentType) {
  return record.length() > 0 && record.data()[0] == contentType;
}

int CLRecord::MakeRecord(int version, int handshakeType, const ByteString& data) {
  if (version < 0 || version > 255) return ERR_RECORD_VERSION;

  const auto dataLength = static_cast<std::uint32_t>(data.length());
  ByteWriter body;
  body.reserve(5 + static_cast<std::size_t>(dataLength));
  if (handshakeType >= 0) body.u8(static_cast<std::uint8_t>(handshakeType));
  body.u32BE(dataLength).bytes(data);
  const std::size_t bodySize = body.size();
  int rc = AppendWritten(&body, &m_bsBody);
  if (rc != BS_OK) return rc;

  ByteWriter header;
  header.u8(static_cast<std::uint8_t>(m_nOwnType))
      .u8(static_cast<std::uint8_t>(version))
      .u32BE(static_cast<std::uint32_t>(bodySize));
  rc = AppendWritten(&header, &m_bsHeader);
  if (rc != BS_OK) return rc;

  // record += header + body of this Make (the last bodySize bytes of m_bsBody).
  ByteWriter record;
  record.reserve(kHeaderSize + bodySize)
      .bytes(m_bsHeader.data() + m_bsHeader.length() - kHeaderSize, kHeaderSize)
      .bytes(m_bsBody.data() + (m_bsBody.length() - static_cast<int>(bodySize)), bodySize);
  return AppendWritten(&record, &m_bsRecord);
}

int CLRecord::ParseRecord(const ByteString& record, std::uint32_t* handshakeType, const char* method, const char* what,
                          int code) {
  ByteReader r(record);
  std::uint8_t type = 0, version = 0, hsType = 0;
  std::uint32_t bodyLength = 0, dataLength = 0;
  // A record shorter than its fixed fields fails with the class's code
  // instead of being read past its end.
  bool ok = r.readU8(&type) == BS_OK && r.readU8(&version) == BS_OK && r.readU32BE(&bodyLength) == BS_OK;
  if (ok) {
    m_nContentType = type;
    m_nVersion = version;
  }
  if (ok && handshakeType) {
    ok = r.readU8(&hsType) == BS_OK;
    if (ok) *handshakeType = hsType;
  }
  ok = ok && r.readU32BE(&dataLength) == BS_OK && r.remaining() == dataLength;
  if (!ok) {
    m_nErrorCode = code;
    QVA_ERROR_TRACE(method, what, code, nullptr);
    return code;
  }
  // The body-length field is read and deliberately not compared.
  ByteString data;
  const int rc = r.readBytes(dataLength, &data);
  if (rc != BS_OK) return m_nErrorCode = rc;
  m_bsBody = std::move(data);
  return m_nErrorCode = 0;
}
