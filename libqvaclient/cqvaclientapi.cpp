#include "libqvaclient/cqvaclientapi.h"

#include <climits>
#include <cstdint>
#include <utility>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"
#include "base/Messages.h"
#include "libaibase/clroamingmessage.h"
#include "libqvaclient/cbizitemlist.h"
#include "libqvaclient/cbizqvaclient.h"
#include "libqvaclient/csecuretunnel.h"
#include "libqvaclient/qvaclientmessages.h"

namespace {

using qva_text::kResultMethod;
using qva_text::kTransportMethod;
using qva_text::kVerifyMethod;

// The C library's atoi reading (blanks skipped, optional sign, digits up to
// the first other character, 0 when none), saturating instead of overflowing.
int DecimalValue(const char* s) {
  while (*s == ' ' || (*s >= '\t' && *s <= '\r')) ++s;
  const bool negative = *s == '-';
  if (*s == '-' || *s == '+') ++s;
  std::int64_t v = 0;
  for (; *s >= '0' && *s <= '9'; ++s) {
    v = v * 10 + (*s - '0');
    if (v > static_cast<std::int64_t>(INT_MAX) + 1) break;
  }
  if (negative) v = -v;
  if (v > INT_MAX) return INT_MAX;
  if (v < INT_MIN) return INT_MIN;
  return static_cast<int>(v);
}

}  // namespace

CQVAClientAPI::CQVAClientAPI() : m_nServerPort(0), m_bServerRefused(false) {
  for (ByteString* bs :
       {&m_bsServerAddress, &m_bsRoamingID, &m_bsReserved1, &m_bsReserved2, &m_bsReserved3, &m_bsGeneralErrorMsg})
    *bs = "";
}

CQVAClientAPI::~CQVAClientAPI() = default;

int CQVAClientAPI::Init(const char* serverAddress, int serverPort, const char* roamingID) {
  m_bsServerAddress = serverAddress ? serverAddress : "";
  m_nServerPort = serverPort;
  m_bsRoamingID = roamingID ? roamingID : "";
  return 0;
}

int CQVAClientAPI::API_Verify(const char* firstItem, const unsigned char* data, int dataLength) {
  ClearError();  // the general text is kept: it still names the last failure
  cBizQVAClient biz;
  // The caller's data is read in place and copied once, into the frame.
  cBizItemList request;
  const int rc = biz.MakeRequestValidData(ByteString(firstItem), data, dataLength, &request);
  return SendRequest(MSG_TYPE_VERIFY, rc, biz, request);
}

int CQVAClientAPI::API_RegisterCert(const unsigned char* cert, int certLength) {
  ClearError();
  cBizQVAClient biz;
  cBizItemList request;
  const int rc = biz.MakeRequestRegisterCert(cert, certLength, &request);
  return SendRequest(MSG_TYPE_REGISTER_CERT, rc, biz, request);
}

int CQVAClientAPI::SendRequest(int messageType, int buildResult, const CErrorTrace& builder,
                               const CLEncoder& request) {
  // Registration reports with the validation request's method and labels.
  m_nErrorCode = buildResult;
  if (m_nErrorCode != 0) {
    m_bsGeneralErrorMsg = qva_msg::kVerifyRequestFailed;
    QVA_ERROR_TRACE(kVerifyMethod, qva_text::kBuildRequestWhat, m_nErrorCode, builder.GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  ByteString response;
  m_nErrorCode = ProcessMessage(m_bsRoamingID, messageType, request, &response);
  if (m_nErrorCode != 0) {
    m_bsGeneralErrorMsg = qva_msg::kVerifyRequestFailed;
    // The server's explanation stays the whole detail text.
    if (!m_bServerRefused)
      QVA_ERROR_TRACE(kVerifyMethod, qva_text::kProcessMessageWhat, m_nErrorCode, builder.GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  return 0;
}

int CQVAClientAPI::ProcessMessage(const ByteString& roamingID, int messageType, const ByteString& request,
                                  ByteString* response) {
  return ProcessMessage(roamingID, messageType, CLBytesEncoder(request), response);
}

int CQVAClientAPI::ProcessMessage(const ByteString& /*roamingID*/, int messageType, const CLEncoder& request,
                                  ByteString* response) {
  m_bServerRefused = false;
  // The envelope is not stored: the tunnel writes it, around the request,
  // straight into the frame. Only its size can make it fail.
  const CLRoamingEncoder roaming(static_cast<std::uint8_t>(messageType), 0, &m_bsRoamingID, &m_bsRoamingID,
                                 &request);
  if (!roaming.Fits()) {
    m_nErrorCode = BS_NO_MEMORY;
    QVA_ERROR_TRACE(kTransportMethod, qva_text::kMakeRoamingWhat, m_nErrorCode, "");
    return m_nErrorCode;
  }

  // The answer record is kept whole and its roaming message read in place.
  ByteString answerRecord;
  ByteReader answer;
  {
    CSecureTunnel tunnel;
    m_nErrorCode = tunnel.Connect(m_bsServerAddress, m_nServerPort, m_bsServerAddress, m_nServerPort);
    if (m_nErrorCode > 0) {
      QVA_ERROR_TRACE(kTransportMethod, qva_text::kTunnelConnectWhat, m_nErrorCode, tunnel.GetErrorMsg().c_str());
      return m_nErrorCode;
    }
    m_nErrorCode = tunnel.Request(roaming, &answerRecord, &answer);
    if (m_nErrorCode > 0) {
      QVA_ERROR_TRACE(kTransportMethod, qva_text::kTunnelRequestWhat, m_nErrorCode, tunnel.GetErrorMsg().c_str());
      return m_nErrorCode;
    }
    tunnel.Disconnect();
  }

  CLRoamingMessage reply;
  m_nErrorCode = reply.ParseRoamingMessage(answer);
  if (m_nErrorCode > 0) {
    QVA_ERROR_TRACE(kTransportMethod, qva_text::kParseRoamingWhat, m_nErrorCode, reply.GetErrorMsg().c_str());
    return m_nErrorCode;
  }

  const int result = static_cast<int>(reply.GetStatus());
  m_nErrorCode = result;
  *response = reply.TakeBody();
  // Item 0 is read before any test, as the server's detail for a refusal.
  ByteString item0;
  cBizItemList::GetItem(*response, 0, &item0);

  if (result != 0) {
    QVA_ERROR_TRACE(kResultMethod, qva_text::kResultFailWhat, result, item0.c_str());
    return result;
  }
  if (cBizItemList::GetItemCount(*response) < 1) {
    m_nErrorCode = ERR_ITEM_COUNT_ZERO;
    QVA_ERROR_TRACE(kResultMethod, qva_text::kNoItemWhat, ERR_ITEM_COUNT_ZERO, qva_text::kNoItemDetail);
    return ERR_ITEM_COUNT_ZERO;
  }
  m_nErrorCode = DecimalValue(item0.c_str());
  if (m_nErrorCode == 0) return 0;

  // The server refused: its explanation (item 1) becomes the whole trace.
  ByteString item1;
  cBizItemList::GetItem(*response, 1, &item1);
  SetErrorMsg(item1);
  m_bServerRefused = true;
  return m_nErrorCode;
}
