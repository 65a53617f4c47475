#include "libqvaclient/csecuretunnel.h"

#include <new>
#include <utility>

#include "base/ErrorCodes.h"

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
    QVA_ERROR_TRACE("CSecureTunnel::Connect", "m_pSocketClient->Connect", m_nErrorCode,
                    m_pSocketClient->GetErrorMsg().c_str());
  return m_nErrorCode;
}

int CSecureTunnel::Request(const ByteString& data) { return m_nErrorCode = ProcessPlainData(data); }

int CSecureTunnel::CheckAlert(const ByteString& record) {
  if (!CLSecureManager::IsAlert(record)) return 0;
  // The tag is the handshake driver's, shared by every exchange that meets an alert.
  const char* text = m_pSecureManager->ParseAlert(record) == 0 ? m_pSecureManager->GetOutput().c_str() : nullptr;
  m_nErrorCode = ERR_ALERT_FROM_SERVER;
  QVA_ERROR_TRACE("CSecureTunnel::ProcessHandshake", "Alert Message from Server.", ERR_ALERT_FROM_SERVER, text);
  return ERR_ALERT_FROM_SERVER;
}

int CSecureTunnel::ProcessPlainData(const ByteString& data) {
  constexpr char kMethod[] = "CSecureTunnel::ProcessPlainData";
  if (!m_pSecureManager || !m_pSocketClient) return m_nErrorCode = BS_NO_MEMORY;

  m_nErrorCode = m_pSecureManager->MakePlainData(data);
  if (m_nErrorCode >= 1) {
    QVA_ERROR_TRACE(kMethod, "m_pSecureManager->MakePlainData", m_nErrorCode, m_pSecureManager->GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  const ByteString record = m_pSecureManager->TakeOutput();
  m_nErrorCode = m_pSocketClient->Send(record);
  if (m_nErrorCode >= 1) {
    QVA_ERROR_TRACE(kMethod, "m_pSocketClient->Send fail", m_nErrorCode, m_pSocketClient->GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  const ByteString answer = m_pSocketClient->TakeRecvData();
  if (CheckAlert(answer) != 0) return m_nErrorCode;

  m_nErrorCode = m_pSecureManager->ParsePlain(answer);
  if (m_nErrorCode >= 1) {
    QVA_ERROR_TRACE(kMethod, "m_pSecureManager->ParsePlain", m_nErrorCode, m_pSecureManager->GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  m_bsResponse = m_pSecureManager->TakeOutput();
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
