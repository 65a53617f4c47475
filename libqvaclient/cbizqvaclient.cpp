#include "libqvaclient/cbizqvaclient.h"

#include <initializer_list>

#include "libqvaclient/cbizitemlist.h"

namespace {

int MakeItemBody(std::initializer_list<const ByteString*> items, ByteString* request) {
  cBizItemList list;
  for (const ByteString* item : items) {
    const int rc = list.AddItem(*item);
    if (rc != BS_OK) return rc;
  }
  *request = list.GetBody();
  return request->status();
}

}  // namespace

cBizQVAClient::cBizQVAClient() = default;

cBizQVAClient::~cBizQVAClient() = default;

int cBizQVAClient::MakeRequestValidData(const ByteString& first, const ByteString& data, ByteString* request) {
  return m_nErrorCode = MakeItemBody({&first, &data}, request);
}

int cBizQVAClient::MakeRequestRegisterCert(const ByteString& cert, ByteString* request) {
  return m_nErrorCode = MakeItemBody({&cert}, request);
}
