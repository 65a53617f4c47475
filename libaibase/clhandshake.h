// CLHandshake: the record (content type 0x16) of the four handshake
// messages; its body starts with the handshake type byte (1 ClientHello,
// 2 ServerHello, 3 ClientKeyExchange, 4 ServerKeyExchange).
#pragma once

#include <cstdint>

#include "libaibase/clrecord.h"

class CLHandshake : public CLRecord {
 public:
  CLHandshake();
  ~CLHandshake() override;

  // Appends a handshake record. 0, 100 for a version outside 0-255, 110 for a
  // handshake type outside 0-255 (the version is checked first).
  int MakeHandshake(int version, int handshakeType, const ByteString& data);
  // 0, or 111 "Secure Message" when 11 + N is not the record's length.
  int ParseHandshake(const ByteString& record);
  std::uint32_t GetHandshakeType() const { return m_nHandshakeType; }

 private:
  std::uint32_t m_nHandshakeType;
};
