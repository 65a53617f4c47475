#include "libaibase/clenvelopeddata.h"

#include <utility>

#include "ZENALib/QSProcess/PEnvelopedData.h"
#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"
#include "base/ErrorCodes.h"
#include "libaibase/clcrypto.h"
#include "libaibase/clmessages.h"

CLEnvelopedData::CLEnvelopedData() = default;

CLEnvelopedData::~CLEnvelopedData() { m_bsResult.zeroize(); }

ByteString CLEnvelopedData::TakeResult() { return std::move(m_bsResult); }

int CLEnvelopedData::Fail(const char* method, const char* what, int code, const ByteString& detail) {
  m_nErrorCode = code;
  QVA_ERROR_TRACE(method, what, code, detail.c_str());
  return code;
}

int CLEnvelopedData::Envelop(int version, const ByteString& certificate, const ByteString& content) {
  using namespace cl_text;
  PEnvelopedData envData;
  // The maker has no version setting: it writes the version RFC 5652 6.1
  // gives its recipients, so a version-2 request changes nothing here.
  (void)version;
  envData.choiceRecipientType(penv::KEY_TRANS_RECIPIENT_INFO);
  envData.choiceRecipientIdentifier(penv::ISSUERANDSERIALNUMBER);
  ByteString key, iv;
  int rc = envData.makeSymetricKey(CLCrypto::kTripleDES, key, iv);
  key.zeroize();
  iv.zeroize();
  if (rc != 0) return Fail(kEnvelopMethod, kEnvelopAddRecipientWhat, ERR_ENVELOP_ADD_RECIPIENT, envData.getErrorMessage());
  if (envData.addRecipientByCert(certificate) != 0)
    return Fail(kEnvelopMethod, kEnvelopAddRecipientWhat, ERR_ENVELOP_ADD_RECIPIENT, envData.getErrorMessage());
  ByteString der;
  if (envData.makeEnvelopedData(content, der) != 0)
    return Fail(kEnvelopMethod, kEnvelopMakeWhat, ERR_ENVELOP_MAKE, envData.getErrorMessage());
  m_bsResult = std::move(der);
  return m_nErrorCode = 0;
}

int CLEnvelopedData::OpenEnvelop(const ByteString& envelope, const ByteString& certificate,
                                 const ByteString& privateKey) {
  using namespace cl_text;
  PEnvelopedDataProcess envDataProcess;
  if (envDataProcess.setRecipientIdentifier(certificate) != 0)
    return Fail(kOpenEnvelopMethod, kOpenSetRecipientWhat, ERR_OPEN_SET_RECIPIENT,
                envDataProcess.getErrorMessage());
  if (envDataProcess.parseEnvelopedData(envelope, privateKey) != 0)
    return Fail(kOpenEnvelopMethod, kOpenParseWhat, ERR_OPEN_PARSE, envDataProcess.getErrorMessage());
  ByteString content;
  if (envDataProcess.getContent(content) != 0)
    return Fail(kOpenEnvelopMethod, kOpenGetContentWhat, ERR_OPEN_GET_CONTENT, envDataProcess.getErrorMessage());
  m_bsResult.zeroize();
  m_bsResult = std::move(content);
  return m_nErrorCode = 0;
}
