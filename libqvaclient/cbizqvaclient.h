// cBizQVAClient: builds the bodies of the two requests the client sends.
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class cBizQVAClient : public CErrorTrace {
 public:
  cBizQVAClient();
  ~cBizQVAClient() override;

  // *request = item list [first, data] of a validation request.
  int MakeRequestValidData(const ByteString& first, const ByteString& data, ByteString* request);
  // *request = item list [cert] of a certificate registration.
  int MakeRequestRegisterCert(const ByteString& cert, ByteString* request);
};
