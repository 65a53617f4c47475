// QSRandom: random bytes from the crypto core's generator (2000, 2010 and
// 2020 all draw from the same DRBG).
#pragma once

#include "ZENALib/QSCrypto/QSService.h"

class QSRandom : public QSService {
 public:
  QSRandom() : QSService("QSRandom") {}

  int GenerateRandom(int nAlgID, int nLength, ByteString& bsRandom);
};
