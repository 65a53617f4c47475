// QSEncrypt: block-cipher and RSA encryption through the crypto core.
//
// Arguments: library algorithm number, mode (3 ECB, 4 CBC, 6 OFB; 5 is
// CFB), padding type (0 none, 1 zero bytes, 2 PKCS#5/#7, 3 and 4 ISO/IEC
// 9797-1 method 2), key, IV, input, output. RSA numbers (4000-4002
// PKCS#1 v1.5, 4021/4022 OAEP) encrypt with the public key in bsKey and
// decrypt with the private key; they ignore the IV but the mode and padding
// are still translated.
#pragma once

#include "ZENALib/QSCrypto/QSService.h"

class QSEncrypt : public QSService {
 public:
  QSEncrypt() : QSService("QSEncrypt") {}

  // Checks the key through ECSP_GenerateKey first.
  int EncryptData(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey, const ByteString& bsIV,
                  const ByteString& bsInput, ByteString& bsOutput);
  int DecryptData(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey, const ByteString& bsIV,
                  const ByteString& bsInput, ByteString& bsOutput);
  // The key bytes are handed to the core as they are.
  int EncryptData_NoGenKey(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey, const ByteString& bsIV,
                           const ByteString& bsInput, ByteString& bsOutput);
  int DecryptData_NoGenKey(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey, const ByteString& bsIV,
                           const ByteString& bsInput, ByteString& bsOutput);

 private:
  int Crypt(const char* pszMethod, bool bEncrypt, bool bGenKey, int nAlgID, int nMode, int nPaddingType,
            const ByteString& bsKey, const ByteString& bsIV, const ByteString& bsInput, ByteString& bsOutput);
};
