// CLRecord: the common shape of the four secure-channel records.
//
//   offset 0  content type (0x14 plain, 0x15 alert, 0x16 handshake, 0x17 application data)
//          1  version (every record this library makes carries 1)
//          2  body length, 4 bytes big-endian
//          6  body: [handshake type, 1 byte,] data length N (4 bytes big-endian), N bytes of data
//
// The parsers look at the lengths only: byte 0 is not compared with the
// parsing class's own type, so a record of another kind whose lengths add up
// is accepted. Callers tell kinds apart with IsAlert/IsPlain or byte 6.
#pragma once

#include <cstdint>

#include "base/ByteReader.h"
#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clencoder.h"

constexpr int RECORD_PLAIN = 0x14;
constexpr int RECORD_ALERT = 0x15;
constexpr int RECORD_HANDSHAKE = 0x16;
constexpr int RECORD_APPLICATION_DATA = 0x17;

// Version written into every record the library makes.
constexpr int RECORD_VERSION = 1;

// One record around data held elsewhere (borrowed: it must outlive the
// encoder). Callers check the version (0-255) and Fits() before encoding.
class CLRecordEncoder final : public CLEncoder {
 public:
  // The handshake type of records that carry none.
  static constexpr int kNoHandshakeType = -1;

  CLRecordEncoder(int contentType, int version, const CLEncoder& data);
  CLRecordEncoder(int contentType, int version, int handshakeType, const CLEncoder& data);
  std::size_t EncodedLength() const override;
  void Encode(ByteWriter* w) const override;

 private:
  std::uint8_t m_nContentType;
  std::uint8_t m_nVersion;
  int m_nHandshakeType;  // kNoHandshakeType: no handshake-type byte
  const CLEncoder& m_data;
};

class CLRecord : public CErrorTrace {
 public:
  ~CLRecord() override;

  // The encoded record of the last Make.
  const ByteString& GetRecord() const { return m_bsRecord; }
  // Hands the encoded record over, leaving this object's copy empty.
  ByteString TakeRecord();
  // After a parse: the data field without its length. After a Make: the body.
  const ByteString& GetData() const { return m_bsBody; }
  ByteString TakeData();
  std::uint32_t GetContentType() const { return m_nContentType; }
  std::uint32_t GetVersion() const { return m_nVersion; }

  // True when byte 0 of the record is the given content type; false for an empty record.
  static bool HasContentType(const ByteString& record, int contentType);

 protected:
  explicit CLRecord(int contentType);

  static constexpr int kNoHandshakeType = CLRecordEncoder::kNoHandshakeType;

  // Appends record, header and body for data (the record written once, the
  // other two taken from it). handshakeType is kNoHandshakeType or 0-255
  // (checked by the caller). Returns 0, 100 for a version outside 0-255
  // (object untouched), or the store status.
  int MakeRecord(int version, int handshakeType, const ByteString& data);
  // Reads the header and the data field. On a length mismatch (or a record
  // too short to hold its own header) records method/what with code and
  // returns code. handshakeType is null for records without that byte.
  int ParseRecord(const ByteString& record, std::uint32_t* handshakeType, const char* method, const char* what,
                  int code);
  // The same checks; on success *data views the data inside record (nothing
  // is copied, and the object's data is left as it was).
  int ParseRecordInPlace(const ByteString& record, std::uint32_t* handshakeType, const char* method, const char* what,
                         int code, ByteReader* data);

  std::uint32_t m_nContentType;
  std::uint32_t m_nVersion;
  ByteString m_bsHeader;
  ByteString m_bsBody;
  ByteString m_bsRecord;

 private:
  const int m_nOwnType;  // content type written by MakeRecord
};
