#include "libaibase/clzenawrapper.h"

#include "base/ErrorCodes.h"
#include "base/QSBase.h"
#include "libaibase/clcrypto.h"
#include "libaibase/clenvelopeddata.h"
#include "libaibase/clhash.h"
#include "libaibase/clmessages.h"

using namespace cl_text;

CLZENAWrapper::CLZENAWrapper() = default;

CLZENAWrapper::~CLZENAWrapper() = default;

int CLZENAWrapper::Fail(const char* method, const char* what, const CErrorTrace& wrapper) {
  m_nErrorCode = wrapper.GetErrorCode();
  QVA_ERROR_TRACE(method, what, m_nErrorCode, wrapper.GetErrorMsg().c_str());
  return m_nErrorCode;
}

int CLZENAWrapper::Encrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out) {
  CLCrypto cLCrypto;
  if (cLCrypto.Encrypt(CLCrypto::kTripleDES, CLCrypto::kModeCBC, key, iv, data) >= 1)
    return Fail(kZenaEncryptMethod, kCryptoEncryptWhat, cLCrypto);
  out = cLCrypto.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Decrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out) {
  CLCrypto cLCrypto;
  if (cLCrypto.Decrypt(CLCrypto::kTripleDES, CLCrypto::kModeCBC, key, iv, data) >= 1)
    return Fail(kZenaDecryptMethod, kCryptoDecryptWhat, cLCrypto);
  out = cLCrypto.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Random(int length, ByteString& out) {
  CLCrypto cLCrypto;
  if (cLCrypto.Random(length) >= 1) return Fail(kZenaRandomMethod, kCryptoRandomWhat, cLCrypto);
  out = cLCrypto.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::MakeHash(const ByteString& data, ByteString& out, int algorithm) {
  CLHash cLHash;
  if (cLHash.MakeHash(algorithm, data) >= 1) return Fail(kZenaMakeHashMethod, kHashMakeHashWhat, cLHash);
  out = cLHash.GetResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::MakeHashBig(const char* path, ByteString& out, int algorithm) {
  CLHash cLHash;
  if (cLHash.MakeHashBig(algorithm, path) >= 1) return Fail(kZenaMakeHashBigMethod, kHashMakeHashBigWhat, cLHash);
  out = cLHash.GetResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Base64Enc(const ByteString& in, ByteString& out) {
  if (QSBase::base64Encode(in, &out) != 0) {
    m_nErrorCode = ERR_BASE64_ENCODE;
    QVA_ERROR_TRACE(kZenaBase64EncMethod, kBase64EncodeWhat, m_nErrorCode, kBase64EncodeFail);
    return m_nErrorCode;
  }
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Base64Dec(const ByteString& in, ByteString& out) {
  if (QSBase::base64Decode(in, &out) != 0) {
    m_nErrorCode = ERR_BASE64_DECODE;
    QVA_ERROR_TRACE(kZenaBase64DecMethod, kBase64DecodeWhat, m_nErrorCode, kBase64DecodeFail);
    return m_nErrorCode;
  }
  return m_nErrorCode = 0;
}

int CLZENAWrapper::EnvelopData(const ByteString& certificate, const ByteString& content, ByteString& out) {
  CLEnvelopedData cLEnvelopedData;
  if (cLEnvelopedData.Envelop(2, certificate, content) >= 1)
    return Fail(kZenaEnvelopMethod, kEnvelopWhat, cLEnvelopedData);
  out = cLEnvelopedData.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::OpenEnvelopedData(const ByteString& envelope, const ByteString& certificate,
                                     const ByteString& privateKey, ByteString& out) {
  CLEnvelopedData cLEnvelopedData;
  if (cLEnvelopedData.OpenEnvelop(envelope, certificate, privateKey) >= 1)
    return Fail(kZenaOpenEnvelopMethod, kOpenEnvelopWhat, cLEnvelopedData);
  out = cLEnvelopedData.TakeResult();
  return m_nErrorCode = 0;
}
