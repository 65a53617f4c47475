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

int CSecureTunnel::Fail(const char* method, const char* what, const CErrorTrace& part) {
  m_nErrorCode = part.GetErrorCode();
  QVA_ERROR_TRACE(method, what, m_nErrorCode, part.GetErrorMsg().c_str());
  return m_nErrorCode;
}

int CSecureTunnel::ProcessHandshake() {
  using namespace qva_text;
  if (!m_pSecureManager || !m_pSocketClient) return m_nErrorCode = BS_NO_MEMORY;
  if (m_pSecureManager->MakeClientHello() >= 1) return Fail(kHandshakeMethod, kMakeClientHelloWhat, *m_pSecureManager);
  // The client's half is two exchanges (hello, key exchange). A peer that
  // keeps asking for more is not running the server's half: bounded, 148.
  constexpr int kExchanges = 2;
  bool more = true;
  for (int exchange = 0; exchange < kExchanges && more; ++exchange) {
    if (m_pSocketClient->Send(m_pSecureManager->GetOutput()) >= 1)
      return Fail(kHandshakeMethod, kSocketSendWhat, *m_pSocketClient);
    const ByteString answer = m_pSocketClient->TakeRecvData();
    if (CheckAlert(answer) != 0) return m_nErrorCode;
    if (m_pSecureManager->ProcessHandshake(answer, &more) >= 1)
      return Fail(kHandshakeMethod, kProcessHandshakeWhat, *m_pSecureManager);
  }
  if (more || m_pSecureManager->GetOutput().length() > 0) {
    m_nErrorCode = ERR_UNKNOWN_HANDSHAKE;
    QVA_ERROR_TRACE(kHandshakeMethod, kProcessHandshakeWhat, m_nErrorCode, "");
    return m_nErrorCode;
  }
  return m_nErrorCode = 0;
}

int CSecureTunnel::ProcessApplicationData(const ByteString& data) {
  using namespace qva_text;
  if (!m_pSecureManager || !m_pSocketClient) return m_nErrorCode = BS_NO_MEMORY;
  if (m_pSecureManager->MakeApplicationData(data) >= 1)
    return Fail(kApplicationDataMethod, kMakeApplicationDataWhat, *m_pSecureManager);
  if (m_pSocketClient->Send(m_pSecureManager->GetOutput()) >= 1)
    return Fail(kApplicationDataMethod, kSocketRequestWhat, *m_pSocketClient);
  const ByteString answer = m_pSocketClient->TakeRecvData();
  if (CheckAlert(answer) != 0) return m_nErrorCode;
  if (m_pSecureManager->ParseApplicationData(answer) >= 1)
    return Fail(kApplicationDataMethod, kParseApplicationDataWhat, *m_pSecureManager);
  m_bsResponse = m_pSecureManager->TakeOutput();
  return m_nErrorCode = 0;
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
