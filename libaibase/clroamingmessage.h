// CLRoamingMessage: the outer envelope of every request and answer.
//
// Short form (what the client sends and expects), integers big-endian:
//   type (1) | status (1) | L1 (1) | identifier (L1)
//   | L2 (4) | reference (L2) | L3 (4) | body (L3)
// Extended form, for envelopes that name two endpoints:
//   type (1) | status (1) | L1 (1) | first identifier | first port (2)
//   | L2 (1) | second identifier | second port (2)
//   | extra field (4 + n) | reference (4 + n) | body (4 + n)
//
// The object is a value holder: made empty, filled by one Make or one Parse,
// read through the accessors.
#pragma once

#include <array>
#include <cstdint>

#include "base/ByteReader.h"
#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clencoder.h"

// Where ParseRoamingMessage leaves the raw bytes of a malformed answer.
constexpr char kWrongRoamingMessageFile[] = "./wrongRoamingMessage.txt";

// The short form over fields held elsewhere (borrowed: they must outlive the
// encoder). A null identifier, reference or body is written as an empty one;
// only the low 8 bits of the identifier's length are written.
class CLRoamingEncoder final : public CLEncoder {
 public:
  CLRoamingEncoder(std::uint8_t type, std::uint8_t status, const ByteString* identifier, const ByteString* reference,
                   const CLEncoder* body);
  std::size_t EncodedLength() const override;
  void Encode(ByteWriter* w) const override;

 private:
  std::uint8_t m_nType;
  std::uint8_t m_nStatus;
  const ByteString* m_pIdentifier;
  const ByteString* m_pReference;
  const CLEncoder* m_pBody;
};

class CLRoamingMessage : public CErrorTrace {
 public:
  CLRoamingMessage();
  ~CLRoamingMessage() override;

  // The 4-byte big-endian length of field, or of nothing (0) when field is null.
  static std::array<unsigned char, 4> MakeLengthPrefix(const ByteString* field);

  // Appends a short-form envelope to the message and returns 0 (or the store
  // status). A null identifier is written as length byte 0; a null reference
  // or body as a zero 4-byte length. Only the low 8 bits of the identifier's
  // length are written: an identifier of 256 bytes or more makes an envelope
  // that does not parse.
  int MakeRoamingMessage(std::uint8_t type, std::uint8_t status, const ByteString* identifier,
                         const ByteString* reference, const ByteString* body);
  // Reads a short-form envelope. 0; 190 "RoamingMessage is NULL." for a null
  // message; 191 when the fields do not add up to the message's length, in
  // which case the message is first written to kWrongRoamingMessageFile.
  int ParseRoamingMessage(const ByteString* message);
  int ParseRoamingMessage(const ByteString& message) { return ParseRoamingMessage(&message); }
  // The same for bytes held elsewhere (for example the data of the record
  // that carried the message, read in place).
  int ParseRoamingMessage(ByteReader message);

  // The extended pair. The arguments take the reference before the extra
  // field, the wire carries the extra field first.
  int MakeRoamingMessageEx(std::uint8_t type, std::uint8_t status, const ByteString* firstIdentifier,
                           std::uint16_t firstPort, const ByteString* secondIdentifier, std::uint16_t secondPort,
                           const ByteString* reference, const ByteString* extraField, const ByteString* body);
  // As ParseRoamingMessage for the extended form (191 without the file).
  int ParseRoamingMessageEx(const ByteString* message);

  std::uint32_t GetType() const { return m_nType; }
  std::uint32_t GetStatus() const { return m_nStatus; }
  const ByteString& GetMessage() const { return m_bsMessage; }
  const ByteString& GetBody() const { return m_bsBody; }
  // Hands the body over, leaving this object's copy empty.
  ByteString TakeBody();
  const ByteString& GetFirstIdentifier() const { return m_bsFirstIdentifier; }
  std::uint16_t GetFirstPort() const { return m_nFirstPort; }
  const ByteString& GetSecondIdentifier() const { return m_bsSecondIdentifier; }
  std::uint16_t GetSecondPort() const { return m_nSecondPort; }
  const ByteString& GetExtraField() const { return m_bsExtraField; }
  const ByteString& GetReference() const { return m_bsReference; }
  const ByteString& GetIdentifier() const { return m_bsIdentifier; }

 private:
  // Appends the encoding to the message and keeps type and status.
  int Commit(const CLEncoder& encoding, std::uint8_t type, std::uint8_t status);
  int Malformed(const ByteReader& message, bool dump);
  int Fail(int code, const char* what);

  std::uint32_t m_nType;
  std::uint32_t m_nStatus;
  ByteString m_bsMessage;
  ByteString m_bsBody;
  ByteString m_bsFirstIdentifier;
  std::uint16_t m_nFirstPort;
  ByteString m_bsSecondIdentifier;
  std::uint16_t m_nSecondPort;
  ByteString m_bsExtraField;
  ByteString m_bsReference;
  ByteString m_bsIdentifier;
};
