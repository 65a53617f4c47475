// QSSign: signatures through the crypto core.
//
// RSA (7000-7012, 7070, 7071: PKCS#1 v1.5), KCDSA (7031-7033 with SHA-1,
// 7040-7042 with HAS-160) and ECDSA with SHA-1 (7050 sect163k1, 7051
// c2pnb163v1, 7052 secp160r1). RSA-PSS (7060, 7061) has no core number here
// and is refused. Keys and signature forms: see ECSP.h.
#pragma once

#include "ZENALib/QSCrypto/QSService.h"

class QSSign : public QSService {
 public:
  QSSign() : QSService("QSSign") {}

  int SignData(int nAlgID, const ByteString& bsPrivateKey, const ByteString& bsInput, ByteString& bsSignature);
  // 0 when the signature holds; 116 when it does not, 115 when it is malformed.
  int VerifyData(int nAlgID, const ByteString& bsPublicKey, const ByteString& bsInput, const ByteString& bsSignature);
};
