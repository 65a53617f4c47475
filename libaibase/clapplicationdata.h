// CLApplicationData: the record (content type 0x17) that carries enciphered
// data once a handshake has set up the data key.
#pragma once

#include "libaibase/clrecord.h"

class CLApplicationData : public CLRecord {
 public:
  CLApplicationData();
  ~CLApplicationData() override;

  // Appends an application-data record of data (already enciphered).
  // 0, or 100 for a version outside 0-255.
  int MakeApplicationData(int version, const ByteString& data);
  // 0, or 101 "Application Data Message" when 10 + N is not the record's length.
  int ParseApplicationData(const ByteString& record);
};
