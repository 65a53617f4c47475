#include "libaibase/clrecord.h"

#include <utility>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"

namespace {

constexpr std::size_t kHeaderSize = 6;

}  // namespace

CLRecordEncoder::CLRecordEncoder(int contentType, int version, const CLEncoder& data)
    : CLRecordEncoder(contentType, version, kNoHandshakeType, data) {}

CLRecordEncoder::CLRecordEncoder(int contentType, int version, int handshakeType, const CLEncoder& data)
    : m_nContentType(static_cast<std::uint8_t>(contentType)),
      m_nVersion(static_cast<std::uint8_t>(version)),
      m_nHandshakeType(handshakeType),
      m_data(data) {}

std::size_t CLRecordEncoder::EncodedLength() const {
  return kHeaderSize + (m_nHandshakeType != kNoHandshakeType ? 1 : 0) + 4 + m_data.EncodedLength();
}

void CLRecordEncoder::Encode(ByteWriter* w) const {
  const std::size_t dataLength = m_data.EncodedLength();
  w->u8(m_nContentType).u8(m_nVersion).u32BE(static_cast<std::uint32_t>(EncodedLength() - kHeaderSize));
  if (m_nHandshakeType != kNoHandshakeType) w->u8(static_cast<std::uint8_t>(m_nHandshakeType));
  w->u32BE(static_cast<std::uint32_t>(dataLength));
  m_data.Encode(w);
}

CLRecord::CLRecord(int contentType) : m_nContentType(0), m_nVersion(0), m_nOwnType(contentType) {}

CLRecord::~CLRecord() = default;

ByteString CLRecord::TakeRecord() { return std::move(m_bsRecord); }

ByteString CLRecord::TakeData() { return std::move(m_bsBody); }

bool CLRecord::HasContentType(const ByteString& record, int contentType) {
  return record.length() > 0 && record.data()[0] == contentType;
}

int CLRecord::MakeRecord(int version, int handshakeType, const ByteString& data) {
  if (version < 0 || version > 255) return ERR_RECORD_VERSION;

  const CLBytesEncoder bytes(data);
  const CLRecordEncoder encoding(m_nOwnType, version, handshakeType, bytes);
  const std::size_t recordSize = encoding.EncodedLength();
  if (recordSize > kMaxEncodedLength) return BS_NO_MEMORY;
  const int keptRecord = m_bsRecord.length(), keptHeader = m_bsHeader.length();
  int rc = AppendEncoded(encoding, &m_bsRecord);
  if (rc != BS_OK) return rc;
  // header += the new record's first 6 bytes; body += the rest.
  const unsigned char* made = m_bsRecord.data() + (m_bsRecord.length() - static_cast<int>(recordSize));
  rc = m_bsHeader.append(made, static_cast<int>(kHeaderSize));
  if (rc == BS_OK) rc = m_bsBody.append(made + kHeaderSize, static_cast<int>(recordSize - kHeaderSize));
  if (rc != BS_OK) {
    // A half-made record is taken back, so a failed Make changes nothing.
    m_bsRecord.resize(keptRecord);
    m_bsHeader.resize(keptHeader);
  }
  return rc;
}

int CLRecord::ParseRecord(const ByteString& record, std::uint32_t* handshakeType, const char* method, const char* what,
                          int code) {
  ByteReader data;
  int rc = ParseRecordInPlace(record, handshakeType, method, what, code, &data);
  if (rc != 0) return rc;
  ByteString copy;
  rc = data.readBytes(data.remaining(), &copy);
  if (rc != BS_OK) return m_nErrorCode = rc;
  m_bsBody = std::move(copy);
  return m_nErrorCode = 0;
}

int CLRecord::ParseRecordInPlace(const ByteString& record, std::uint32_t* handshakeType, const char* method,
                                 const char* what, int code, ByteReader* data) {
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
  *data = r;
  return m_nErrorCode = 0;
}
