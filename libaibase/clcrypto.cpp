#include "libaibase/clcrypto.h"

#include <utility>

#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSRandom.h"
#include "base/ErrorCodes.h"
#include "base/Messages.h"
#include "libaibase/clmessages.h"

CLCrypto::CLCrypto() = default;

CLCrypto::~CLCrypto() { m_bsResult.zeroize(); }

ByteString CLCrypto::TakeResult() { return std::move(m_bsResult); }

int CLCrypto::Encrypt(int algorithm, int mode, const ByteString& key, const ByteString& iv, const ByteString& data) {
  return Crypt(true, algorithm, mode, key, iv, data);
}

int CLCrypto::Decrypt(int algorithm, int mode, const ByteString& key, const ByteString& iv, const ByteString& data) {
  return Crypt(false, algorithm, mode, key, iv, data);
}

int CLCrypto::Crypt(bool encrypt, int algorithm, int mode, const ByteString& key, const ByteString& iv,
                    const ByteString& data) {
  const char* method = encrypt ? cl_text::kCryptoEncryptMethod : cl_text::kCryptoDecryptMethod;
  if (algorithm != kTripleDES && algorithm != kSEED) {
    m_nErrorCode = encrypt ? ERR_ENCRYPT_ALGORITHM : ERR_DECRYPT_ALGORITHM;
    QVA_ERROR_TRACE(method, qva_msg::kUnsupportedCipher, m_nErrorCode, "");
    return m_nErrorCode;
  }
  if (mode != kModeCBC) {
    m_nErrorCode = encrypt ? ERR_ENCRYPT_MODE : ERR_DECRYPT_MODE;
    QVA_ERROR_TRACE(method, qva_msg::kUnsupportedCipherMode, m_nErrorCode, "");
    return m_nErrorCode;
  }
  QSEncrypt cipher;
  ByteString out;
  const int rc = encrypt ? cipher.EncryptData_NoGenKey(algorithm, mode, kPadding, key, iv, data, out)
                         : cipher.DecryptData_NoGenKey(algorithm, mode, kPadding, key, iv, data, out);
  if (rc != 0) {
    m_nErrorCode = encrypt ? ERR_ENCRYPT : ERR_DECRYPT;
    QVA_ERROR_TRACE(method, encrypt ? cl_text::kEncryptServiceWhat : cl_text::kDecryptServiceWhat, m_nErrorCode,
                    cipher.GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  m_bsResult.zeroize();
  m_bsResult = std::move(out);
  return m_nErrorCode = 0;
}

int CLCrypto::Random(int length) {
  QSRandom random;
  ByteString out;
  if (random.GenerateRandom(kRandomGenerator, length, out) != 0) {
    m_nErrorCode = ERR_RANDOM;
    QVA_ERROR_TRACE(cl_text::kCryptoRandomMethod, cl_text::kRandomServiceWhat, m_nErrorCode,
                    random.GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  m_bsResult.zeroize();
  m_bsResult = std::move(out);
  return m_nErrorCode = 0;
}
