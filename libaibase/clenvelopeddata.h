// CLEnvelopedData: seals a byte string for the holder of one certificate as
// a CMS EnvelopedData (key transport to the certificate's key, content in
// Triple-DES CBC) and opens such an envelope with the recipient's
// certificate and PKCS#8 private key. The envelope or the opened content is
// left in GetResult(); failures are 30-34 with the processing object's trace
// as detail.
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLEnvelopedData : public CErrorTrace {
 public:
  CLEnvelopedData();
  ~CLEnvelopedData() override;

  // version 2 asks for a version-2 envelope; the maker chooses otherwise.
  int Envelop(int version, const ByteString& certificate, const ByteString& content);
  int OpenEnvelop(const ByteString& envelope, const ByteString& certificate, const ByteString& privateKey);

  const ByteString& GetResult() const { return m_bsResult; }
  ByteString TakeResult();

 private:
  int Fail(const char* method, const char* what, int code, const ByteString& detail);

  ByteString m_bsResult;
};
