#include "libqvaclient/csecuretunnel.h"

#include <new>
#include <utility>

#include "base/ErrorCodes.h"
#include "libqvaclient/qvaclientmessages.h"

CSecureTunnel::CSecureTunnel()
    : m_pSecureManager(new (std::nothrow) CLSecureManager(nullptr, nullptr)),
      m_pSocketClient(new (std::nothrow) CSocketClient()) {}

CSecureTunnel::~CSecureTunnel() { Disconnect(); }

ByteString CSecureTunnel::TakeResponse() { return std::move(m_bsResponse); }

int CSecureTunnel::Connect(const ByteString& host1, int port1, const ByteString& host2, int port2) {
  // A part that could not be allocated (or is already released) fails as a store would.
  if (!m_pSocketClient) return m_nErrorCode = BS_NO_MEMORY;
  m_nErrorCode = m_pSocketClient->Connect(host1, port1, host2, port2);
  if (m_nErrorCode > 0)
    QVA_ERROR_TRACE(qva_text::kTunnelConnectMethod, qva_text::kSocketConnectWhat, m_nErrorCode,
                    m_pSocketClient->GetErrorMsg().c_str());
  return m_nErrorCode;
}

int CSecureTunnel::Request(const ByteString& data) { return m_nErrorCode = ProcessPlainData(data); }

int CSecureTunnel::Request(const CLEncoder& data, ByteString* record, ByteReader* answer) {
  return m_nErrorCode = ProcessPlainData(data, record, answer);
}

int CSecureTunnel::CheckAlert(const ByteString& record) {
  if (!CLSecureManager::IsAlert(record)) return 0;
  const char* text = m_pSecureManager->ParseAlert(record) == 0 ? m_pSecureManager->GetOutput().c_str() : nullptr;
  m_nErrorCode = ERR_ALERT_FROM_SERVER;
  QVA_ERROR_TRACE(qva_text::kHandshakeMethod, qva_text::kAlertFromServer, ERR_ALERT_FROM_SERVER, text);
  return ERR_ALERT_FROM_SERVER;
}

int CSecureTunnel::ProcessPlainData(const ByteString& data) {
  ByteString record;
  ByteReader answer;
  if (ProcessPlainData(CLBytesEncoder(data), &record, &answer) != 0) return m_nErrorCode;
  ByteString copy;
  m_nErrorCode = answer.readBytes(answer.remaining(), &copy);
  if (m_nErrorCode == 0) m_bsResponse = std::move(copy);
  return m_nErrorCode;
}

int CSecureTunnel::ProcessPlainData(const CLEncoder& data, ByteString* record, ByteReader* answer) {
  using qva_text::kPlainDataMethod;
  if (!m_pSecureManager || !m_pSocketClient) return m_nErrorCode = BS_NO_MEMORY;

  // The record is not stored: the socket client writes it, around data,
  // straight into the frame.
  m_nErrorCode = m_pSecureManager->CheckPlainData(data);
  if (m_nErrorCode >= 1) {
    QVA_ERROR_TRACE(kPlainDataMethod, qva_text::kMakePlainDataWhat, m_nErrorCode,
                    m_pSecureManager->GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  m_nErrorCode = m_pSocketClient->Send(CLSecureManager::PlainRecord(data));
  if (m_nErrorCode >= 1) {
    QVA_ERROR_TRACE(kPlainDataMethod, qva_text::kSocketSendWhat, m_nErrorCode, m_pSocketClient->GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  *record = m_pSocketClient->TakeRecvData();
  if (CheckAlert(*record) != 0) return m_nErrorCode;

  m_nErrorCode = m_pSecureManager->ParsePlain(*record, answer);
  if (m_nErrorCode >= 1) {
    QVA_ERROR_TRACE(kPlainDataMethod, qva_text::kParsePlainWhat, m_nErrorCode,
                    m_pSecureManager->GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  return 0;
}

void CSecureTunnel::Disconnect() {
  if (m_pSecureManager) {
    m_pSecureManager->Release();
    m_pSecureManager.reset();
  }
  if (m_pSocketClient) {
    m_pSocketClient->Close();
    m_pSocketClient.reset();
  }
}
