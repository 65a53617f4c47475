#include "libaibase/clroamingmessage.h"

#include <cstdio>
#include <utility>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"
#include "libaibase/clmessages.h"
#include "base/Messages.h"

namespace {

std::size_t SizeOf(const ByteString* field) { return field ? static_cast<std::size_t>(field->length()) : 0; }

// Writers for the two field shapes of both forms.
void PutShortField(ByteWriter* w, const ByteString* field) {
  // The length byte is the low 8 bits; see MakeRoamingMessage.
  w->u8(static_cast<std::uint8_t>(SizeOf(field)));
  if (field) w->bytes(*field);
}

void PutLongField(ByteWriter* w, const ByteString* field) {
  const auto prefix = CLRoamingMessage::MakeLengthPrefix(field);
  w->bytes(prefix.data(), prefix.size());
  if (field) w->bytes(*field);
}

// Readers for the same shapes; each copy is bounded by what remains.
bool GetShortField(ByteReader* r, ByteString* out) {
  std::uint8_t n = 0;
  return r->readU8(&n) == BS_OK && r->readBytes(n, out) == BS_OK;
}

bool GetLongField(ByteReader* r, ByteString* out) {
  std::uint32_t n = 0;
  return r->readU32BE(&n) == BS_OK && r->readBytes(n, out) == BS_OK;
}

void CopyIfPresent(ByteString* member, const ByteString* field) {
  if (field) *member = *field;
}

// The extended form over the caller's fields, wire order.
class ExtendedEncoder final : public CLEncoder {
 public:
  ExtendedEncoder(std::uint8_t type, std::uint8_t status, const ByteString* firstIdentifier, std::uint16_t firstPort,
                  const ByteString* secondIdentifier, std::uint16_t secondPort, const ByteString* reference,
                  const ByteString* extraField, const ByteString* body)
      : m_nType(type),
        m_nStatus(status),
        m_pFirst(firstIdentifier),
        m_nFirstPort(firstPort),
        m_pSecond(secondIdentifier),
        m_nSecondPort(secondPort),
        m_pReference(reference),
        m_pExtra(extraField),
        m_pBody(body) {}

  std::size_t EncodedLength() const override {
    return 20 + SizeOf(m_pFirst) + SizeOf(m_pSecond) + SizeOf(m_pExtra) + SizeOf(m_pReference) + SizeOf(m_pBody);
  }
  void Encode(ByteWriter* w) const override {
    w->u8(m_nType).u8(m_nStatus);
    PutShortField(w, m_pFirst);
    w->u16BE(m_nFirstPort);
    PutShortField(w, m_pSecond);
    w->u16BE(m_nSecondPort);
    PutLongField(w, m_pExtra);  // the extra field goes first on the wire
    PutLongField(w, m_pReference);
    PutLongField(w, m_pBody);
  }

 private:
  std::uint8_t m_nType, m_nStatus;
  const ByteString* m_pFirst;
  std::uint16_t m_nFirstPort;
  const ByteString* m_pSecond;
  std::uint16_t m_nSecondPort;
  const ByteString *m_pReference, *m_pExtra, *m_pBody;
};

}  // namespace

CLRoamingEncoder::CLRoamingEncoder(std::uint8_t type, std::uint8_t status, const ByteString* identifier,
                                   const ByteString* reference, const CLEncoder* body)
    : m_nType(type), m_nStatus(status), m_pIdentifier(identifier), m_pReference(reference), m_pBody(body) {}

std::size_t CLRoamingEncoder::EncodedLength() const {
  return 11 + SizeOf(m_pIdentifier) + SizeOf(m_pReference) + (m_pBody ? m_pBody->EncodedLength() : 0);
}

void CLRoamingEncoder::Encode(ByteWriter* w) const {
  w->u8(m_nType).u8(m_nStatus);
  PutShortField(w, m_pIdentifier);
  PutLongField(w, m_pReference);
  // Callers check Fits() first, so the body's length fits in its 4 bytes.
  w->u32BE(static_cast<std::uint32_t>(m_pBody ? m_pBody->EncodedLength() : 0));
  if (m_pBody) m_pBody->Encode(w);
}

CLRoamingMessage::CLRoamingMessage() : m_nType(0), m_nStatus(0), m_nFirstPort(0), m_nSecondPort(0) {}

CLRoamingMessage::~CLRoamingMessage() = default;

std::array<unsigned char, 4> CLRoamingMessage::MakeLengthPrefix(const ByteString* field) {
  const auto n = static_cast<std::uint32_t>(SizeOf(field));
  return {static_cast<unsigned char>(n >> 24), static_cast<unsigned char>(n >> 16), static_cast<unsigned char>(n >> 8),
          static_cast<unsigned char>(n)};
}

ByteString CLRoamingMessage::TakeBody() { return std::move(m_bsBody); }

int CLRoamingMessage::MakeRoamingMessage(std::uint8_t type, std::uint8_t status, const ByteString* identifier,
                                         const ByteString* reference, const ByteString* body) {
  const ByteString none;
  const CLBytesEncoder bodyBytes(body ? *body : none);
  const CLRoamingEncoder encoding(type, status, identifier, reference, body ? &bodyBytes : nullptr);
  const int rc = Commit(encoding, type, status);
  if (rc != BS_OK) return rc;
  CopyIfPresent(&m_bsIdentifier, identifier);
  CopyIfPresent(&m_bsReference, reference);
  CopyIfPresent(&m_bsBody, body);
  return 0;
}

int CLRoamingMessage::MakeRoamingMessageEx(std::uint8_t type, std::uint8_t status, const ByteString* firstIdentifier,
                                           std::uint16_t firstPort, const ByteString* secondIdentifier,
                                           std::uint16_t secondPort, const ByteString* reference,
                                           const ByteString* extraField, const ByteString* body) {
  const int rc = Commit(ExtendedEncoder(type, status, firstIdentifier, firstPort, secondIdentifier, secondPort,
                                        reference, extraField, body),
                        type, status);
  if (rc != BS_OK) return rc;
  CopyIfPresent(&m_bsFirstIdentifier, firstIdentifier);
  m_nFirstPort = firstPort;
  CopyIfPresent(&m_bsSecondIdentifier, secondIdentifier);
  m_nSecondPort = secondPort;
  CopyIfPresent(&m_bsExtraField, extraField);
  CopyIfPresent(&m_bsReference, reference);
  CopyIfPresent(&m_bsBody, body);
  return 0;
}

int CLRoamingMessage::Commit(const CLEncoder& encoding, std::uint8_t type, std::uint8_t status) {
  const int rc = AppendEncoded(encoding, &m_bsMessage);
  if (rc == BS_OK) {
    m_nType = type;
    m_nStatus = status;
  }
  return rc;
}

int CLRoamingMessage::Malformed(const ByteReader& message, bool dump) {
  if (dump) {
    // Created or replaced, never appended to; a failed write is not reported.
    if (std::FILE* f = std::fopen(kWrongRoamingMessageFile, "wb")) {
      std::fwrite(message.data(), 1, message.remaining(), f);
      std::fclose(f);
    }
  }
  return Fail(ERR_ROAMING_LENGTH, qva_msg::kRoamingLengthWrong);
}

int CLRoamingMessage::Fail(int code, const char* what) {
  m_nErrorCode = code;
  QVA_ERROR_TRACE(cl_text::kRoamingParseMethod, what, code, nullptr);
  return code;
}

int CLRoamingMessage::ParseRoamingMessage(const ByteString* message) {
  if (!message) return Fail(ERR_ROAMING_NULL, cl_text::kRoamingNull);
  return ParseRoamingMessage(ByteReader(*message));
}

int CLRoamingMessage::ParseRoamingMessage(ByteReader message) {
  ByteReader r = message;
  std::uint8_t type = 0, status = 0;
  // A length that runs past the end fails here like any other mismatch
  // instead of being copied from beyond the message.
  const bool ok = r.readU8(&type) == BS_OK && r.readU8(&status) == BS_OK && GetShortField(&r, &m_bsIdentifier) &&
                  GetLongField(&r, &m_bsReference) && GetLongField(&r, &m_bsBody) && r.empty();
  m_nType = type;
  m_nStatus = status;
  if (!ok) return Malformed(message, true);
  return m_nErrorCode = 0;
}

int CLRoamingMessage::ParseRoamingMessageEx(const ByteString* message) {
  if (!message) return Fail(ERR_ROAMING_NULL, cl_text::kRoamingNull);
  ByteReader r(*message);
  std::uint8_t type = 0, status = 0;
  std::uint16_t firstPort = 0, secondPort = 0;
  const bool ok = r.readU8(&type) == BS_OK && r.readU8(&status) == BS_OK && GetShortField(&r, &m_bsFirstIdentifier) &&
                  r.readU16BE(&firstPort) == BS_OK && GetShortField(&r, &m_bsSecondIdentifier) &&
                  r.readU16BE(&secondPort) == BS_OK && GetLongField(&r, &m_bsExtraField) &&
                  GetLongField(&r, &m_bsReference) && GetLongField(&r, &m_bsBody) && r.empty();
  m_nType = type;
  m_nStatus = status;
  m_nFirstPort = firstPort;
  m_nSecondPort = secondPort;
  if (!ok) return Malformed(ByteReader(*message), false);
  return m_nErrorCode = 0;
}
