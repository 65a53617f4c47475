#include "libqvaclient/cbizqvaclient.h"

#include <utility>

#include "libaibase/clencoder.h"

cBizQVAClient::cBizQVAClient() = default;

cBizQVAClient::~cBizQVAClient() = default;

int cBizQVAClient::MakeRequestValidData(const ByteString& first, const ByteString& data, ByteString* request) {
  cBizItemList list;
  m_nErrorCode = MakeRequestValidData(ByteString(first), ByteString(data), &list);
  ByteString body;
  if (m_nErrorCode == 0) m_nErrorCode = AppendEncoded(list, &body);
  if (m_nErrorCode == 0) *request = std::move(body);
  return m_nErrorCode;
}

int cBizQVAClient::MakeRequestValidData(ByteString&& first, ByteString&& data, cBizItemList* request) {
  m_nErrorCode = request->AddItem(std::move(first));
  if (m_nErrorCode == 0) m_nErrorCode = request->AddItem(std::move(data));
  return m_nErrorCode;
}

int cBizQVAClient::MakeRequestRegisterCert(const ByteString& cert, ByteString* request) {
  cBizItemList list;
  m_nErrorCode = MakeRequestRegisterCert(ByteString(cert), &list);
  ByteString body;
  if (m_nErrorCode == 0) m_nErrorCode = AppendEncoded(list, &body);
  if (m_nErrorCode == 0) *request = std::move(body);
  return m_nErrorCode;
}

int cBizQVAClient::MakeRequestRegisterCert(ByteString&& cert, cBizItemList* request) {
  return m_nErrorCode = request->AddItem(std::move(cert));
}
