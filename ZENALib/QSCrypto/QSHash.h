// QSHash: digests through the crypto core, one-shot or staged.
//
// Staged use: DigestData_Init, any number of DigestData_Update, then
// DigestData_Final, which writes the digest and releases the context.
#pragma once

#include "ZENALib/QSCrypto/QSService.h"

struct ECSP_DIGEST_CTX;

class QSHash : public QSService {
 public:
  QSHash() : QSService("QSHash") {}
  ~QSHash();

  int DigestData(int nAlgID, const ByteString& bsInput, ByteString& bsDigest);
  int DigestData_Init(int nAlgID);
  int DigestData_Update(const ByteString& bsInput);
  int DigestData_Update(const unsigned char* pInput, int nLength);
  int DigestData_Final(ByteString& bsDigest);

 private:
  void releaseContext();

  ECSP_DIGEST_CTX* m_pECSPCtx = nullptr;
};
