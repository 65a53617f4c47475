#include "libqvaclient/cbizqvaclient.h"

#include <utility>

#include "libaibase/clencoder.h"

cBizQVAClient::cBizQVAClient() = default;

cBizQVAClient::~cBizQVAClient() = default;

int cBizQVAClient::MakeRequestValidData(const ByteString& first, const ByteString& data, ByteString* request) {
  cBizItemList list;
  m_nErrorCode = MakeRequestValidData(ByteString(first), data.data(), data.length(), &list);
  ByteString body;
  if (m_nErrorCode == 0) m_nErrorCode = AppendEncoded(list, &body);
  if (m_nErrorCode == 0) *request = std::move(body);
  return m_nErrorCode;
}

int cBizQVAClient::MakeRequestValidData(ByteString&& first, const unsigned char* data, int dataLength,
                                        cBizItemList* request) {
  m_nErrorCode = request->AddItem(std::move(first));
  if (m_nErrorCode == 0) m_nErrorCode = request->AddBorrowedItem(data, dataLength);
  return m_nErrorCode;
}

int cBizQVAClient::MakeRequestRegisterCert(const ByteString& cert, ByteString* request) {
  cBizItemList list;
  m_nErrorCode = MakeRequestRegisterCert(cert.data(), cert.length(), &list);
  ByteString body;
  if (m_nErrorCode == 0) m_nErrorCode = AppendEncoded(list, &body);
  if (m_nErrorCode == 0) *request = std::move(body);
  return m_nErrorCode;
}

int cBizQVAClient::MakeRequestRegisterCert(const unsigned char* cert, int certLength, cBizItemList* request) {
  return m_nErrorCode = request->AddBorrowedItem(cert, certLength);
}
