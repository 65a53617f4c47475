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
  // The same list, left unwritten for the caller to encode where it is sent
  // from; the data is borrowed (see cBizItemList::AddBorrowedItem), first is
  // taken over. *request is expected empty.
  int MakeRequestValidData(ByteString&& first, const unsigned char* data, int dataLength, cBizItemList* request);
  // *request = item list [cert] of a certificate registration.
  int MakeRequestRegisterCert(const ByteString& cert, ByteString* request);
  int MakeRequestRegisterCert(const unsigned char* cert, int certLength, cBizItemList* request);
};
