// QSMac: HMAC generation and verification through the crypto core
// (5020 HMAC-MD5, 5030 HMAC-SHA-1; 5010 has no MAC in this core).
#pragma once

#include "ZENALib/QSCrypto/QSService.h"

class QSMac : public QSService {
 public:
  QSMac() : QSService("QSMac") {}

  int GenerateMAC(int nAlgID, const ByteString& bsKey, const ByteString& bsInput, ByteString& bsMac);
  // 0 when bsMac is the MAC of bsInput; 116 when it is not.
  int VerifyMAC(int nAlgID, const ByteString& bsKey, const ByteString& bsInput, const ByteString& bsMac);
};
