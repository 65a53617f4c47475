// CLAlert: the record (content type 0x15) a peer sends instead of an answer
// to report a failure; its data is the sender's text.
#pragma once

#include "libaibase/clrecord.h"

class CLAlert : public CLRecord {
 public:
  CLAlert();
  ~CLAlert() override;

  // Appends an alert record of data. 0, or 100 for a version outside 0-255.
  int MakeAlert(int version, const ByteString& data);
  // 0, or 120 "Alert Message" when 10 + N is not the record's length.
  int ParseAlert(const ByteString& record);
  static bool IsAlert(const ByteString& record) { return HasContentType(record, RECORD_ALERT); }
};
