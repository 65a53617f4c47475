// CLTimeStampToken: opens a time-stamp token (its signature and the
// token rules checked by the processing class) and reads its TSA
// certificate's display fields.
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLTimeStampToken : public CErrorTrace {
 public:
  CLTimeStampToken();
  ~CLTimeStampToken() override;

  // 0; 48 when the token is refused; the TSA certificate's parse code
  // (41, 42 ...) when its certificate is.
  int ParseTimeStampToken(const ByteString& token);

  const ByteString& GetTSACert() const { return m_bsTSACert; }
  const ByteString& GetTSASubjectDN() const { return m_bsTSASubjectDN; }
  const ByteString& GetPolicy() const { return m_bsPolicy; }
  const ByteString& GetHashedMessage() const { return m_bsHashedMessage; }
  const ByteString& GetSerialNumber() const { return m_bsSerialNumber; }

 private:
  ByteString m_bsTSACert;
  ByteString m_bsTSASubjectDN;
  ByteString m_bsPolicy;
  ByteString m_bsHashedMessage;
  ByteString m_bsSerialNumber;
};
