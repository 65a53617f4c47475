#include "libaibase/clroamingmessage.h"

#include <cstdio>
#include <utility>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"
#include "base/Messages.h"
#include "libaibase/clwriterutil.h"

namespace {

constexpr char kParseMethod[] = "CLRoamingMessage::ParseRoamingMessage";

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

}  // namespace

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
  ByteWriter w;
  w.reserve(11 + SizeOf(identifier) + SizeOf(reference) + SizeOf(body));
  w.u8(type).u8(status);
  PutShortField(&w, identifier);
  PutLongField(&w, reference);
  PutLongField(&w, body);
  const int rc = Commit(&w, type, status);
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
  ByteWriter w;
  w.reserve(20 + SizeOf(firstIdentifier) + SizeOf(secondIdentifier) + SizeOf(extraField) + SizeOf(reference) +
            SizeOf(body));
  w.u8(type).u8(status);
  PutShortField(&w, firstIdentifier);
  w.u16BE(firstPort);
  PutShortField(&w, secondIdentifier);
  w.u16BE(secondPort);
  PutLongField(&w, extraField);  // the extra field goes first on the wire
  PutLongField(&w, reference);
  PutLongField(&w, body);
  const int rc = Commit(&w, type, status);
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

int CLRoamingMessage::Commit(ByteWriter* w, std::uint8_t type, std::uint8_t status) {
  const int rc = AppendWritten(w, &m_bsMessage);
  if (rc == BS_OK) {
    m_nType = type;
    m_nStatus = status;
  }
  return rc;
}

int CLRoamingMessage::Malformed(const ByteString& message, bool dump) {
  if (dump) {
    // Created or replaced, never appended to; a failed write is not reported.
    if (std::FILE* f = std::fopen(kWrongRoamingMessageFile, "wb")) {
      std::fwrite(message.data(), 1, static_cast<std::size_t>(message.length()), f);
      std::fclose(f);
    }
  }
  return Fail(ERR_ROAMING_LENGTH, qva_msg::kRoamingLengthWrong);
}

int CLRoamingMessage::Fail(int code, const char* what) {
  m_nErrorCode = code;
  QVA_ERROR_TRACE(kParseMethod, what, code, nullptr);
  return code;
}

int CLRoamingMessage::ParseRoamingMessage(const ByteString* message) {
  if (!message) return Fail(ERR_ROAMING_NULL, "RoamingMessage is NULL.");
  ByteReader r(*message);
  std::uint8_t type = 0, status = 0;
  // A length that runs past the end fails here like any other mismatch
  // instead of being copied from beyond the message.
  const bool ok = r.readU8(&type) == BS_OK && r.readU8(&status) == BS_OK && GetShortField(&r, &m_bsIdentifier) &&
                  GetLongField(&r, &m_bsReference) && GetLongField(&r, &m_bsBody) && r.empty();
  m_nType = type;
  m_nStatus = status;
  if (!ok) return Malformed(*message, true);
  return m_nErrorCode = 0;
}

int CLRoamingMessage::ParseRoamingMessageEx(const ByteString* message) {
  if (!message) return Fail(ERR_ROAMING_NULL, "RoamingMessage is NULL.");
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
  if (!ok) return Malformed(*message, false);
  return m_nErrorCode = 0;
}
