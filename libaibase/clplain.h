// CLPlain: the unprotected record (content type 0x14) that carries a roaming
// message on the request path.
#pragma once

#include "libaibase/clrecord.h"

class CLPlain : public CLRecord {
 public:
  CLPlain();
  ~CLPlain() override;

  // Appends a plain record of data. 0, or 100 for a version outside 0-255.
  int MakePlain(int version, const ByteString& data);
  // 0, or 130 "Plain Message" when 10 + N is not the record's length.
  int ParsePlain(const ByteString& record);
  // The same; on success *data views the data inside record instead of a copy.
  int ParsePlain(const ByteString& record, ByteReader* data);
  static bool IsPlain(const ByteString& record) { return HasContentType(record, RECORD_PLAIN); }
};
