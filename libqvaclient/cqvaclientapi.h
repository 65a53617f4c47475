// CQVAClientAPI: the client object behind a QVA_ handle. It keeps the
// server's address and the roaming identifier, and drives one complete
// exchange per request: item-list body, roaming message, secure tunnel, and
// the server's result items.
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clencoder.h"

class CQVAClientAPI : public CErrorTrace {
 public:
  CQVAClientAPI();
  ~CQVAClientAPI() override;
  CQVAClientAPI(const CQVAClientAPI&) = delete;
  CQVAClientAPI& operator=(const CQVAClientAPI&) = delete;

  // Keeps the three settings (null texts become empty); always 0.
  int Init(const char* serverAddress, int serverPort, const char* roamingID);

  // One validation request (message type 106); 0 or the failure's code.
  int API_Verify(const char* firstItem, const unsigned char* data, int dataLength);
  // One certificate registration (message type 107).
  int API_RegisterCert(const unsigned char* cert, int certLength);

  // One exchange: request is wrapped in a roaming message of messageType and
  // carried to the server; *response receives the answer's body. Returns 0,
  // the server's result, or the failure's code. roamingID is accepted for
  // the caller's symmetry; the member is what is sent.
  int ProcessMessage(const ByteString& roamingID, int messageType, const ByteString& request, ByteString* response);
  // The same for a request that is written straight into the frame.
  int ProcessMessage(const ByteString& roamingID, int messageType, const CLEncoder& request, ByteString* response);

  const ByteString& GetGeneralErrorMsg() const { return m_bsGeneralErrorMsg; }
  const ByteString& GetDetailErrorMsg() const { return m_bsErrorMsg; }

 private:
  // Runs ProcessMessage for a request body built by builder; on failure sets
  // the general text and (unless the server explained it) adds this level's line.
  int SendRequest(int messageType, int buildResult, const CErrorTrace& builder, const CLEncoder& request);

  ByteString m_bsServerAddress;
  int m_nServerPort;
  ByteString m_bsRoamingID;
  ByteString m_bsReserved1;  // kept empty: no operation uses these three
  ByteString m_bsReserved2;
  ByteString m_bsReserved3;
  ByteString m_bsGeneralErrorMsg;
  // True when the last ProcessMessage failed with the server's own result,
  // whose explanation must stay the whole detail text.
  bool m_bServerRefused;
};
