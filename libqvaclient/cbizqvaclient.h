// cBizQVAClient: builds the bodies of the two requests the client sends.
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libqvaclient/cbizitemlist.h"

class cBizQVAClient : public CErrorTrace {
 public:
  cBizQVAClient();
  ~cBizQVAClient() override;

  // *request = item list [first, data] of a validation request.
  int MakeRequestValidData(const ByteString& first, const ByteString& data, ByteString* request);
  // The same list, its items taken over, left unwritten: the caller encodes
  // it where it is sent from. *request is expected empty.
  int MakeRequestValidData(ByteString&& first, ByteString&& data, cBizItemList* request);
  // *request = item list [cert] of a certificate registration.
  int MakeRequestRegisterCert(const ByteString& cert, ByteString* request);
  int MakeRequestRegisterCert(ByteString&& cert, cBizItemList* request);
};
