// CSecureTunnel: one request/response channel to the server, made of a
// socket client and a secure manager that it owns.
//
// Request runs the plain exchange: the caller's data goes out in a plain
// record, and the answer record's data comes back through GetResponse(). An
// alert record from the server ends the exchange with 180 and the alert's
// text. Beside it, not called by Request, stand the handshake driver
// (ProcessHandshake) and the enciphered exchange (ProcessApplicationData)
// that the handshake's data key protects; see CLSecureManager for how weak
// that protection is by design.
#pragma once

#include <memory>

#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clsecuremanager.h"
#include "libqvaclient/csocketclient.h"

class CSecureTunnel : public CErrorTrace {
 public:
  CSecureTunnel();
  ~CSecureTunnel() override;
  CSecureTunnel(const CSecureTunnel&) = delete;
  CSecureTunnel& operator=(const CSecureTunnel&) = delete;

  // Connects the socket (no handshake). 0 or the socket client's code.
  int Connect(const ByteString& host1, int port1, const ByteString& host2, int port2);
  // One plain exchange; 0 with the answer's data in GetResponse().
  int Request(const ByteString& data);
  int ProcessPlainData(const ByteString& data);
  // The same for data written straight into the frame (record and prefix
  // around it, one buffer), without storing the answer: *record receives the
  // answer record whole and *answer views its data in place (valid while
  // *record is neither changed nor destroyed).
  int Request(const CLEncoder& data, ByteString* record, ByteReader* answer);
  int ProcessPlainData(const CLEncoder& data, ByteString* record, ByteReader* answer);
  // Runs the client half of the handshake on the connected socket: 0 once
  // the manager has the data key. Every answer is tested for an alert (180).
  int ProcessHandshake();
  // One enciphered exchange after ProcessHandshake; 0 with the answer's
  // plaintext in GetResponse().
  int ProcessApplicationData(const ByteString& data);
  const ByteString& GetResponse() const { return m_bsResponse; }
  ByteString TakeResponse();
  // Releases the manager and closes the socket; harmless when repeated.
  void Disconnect();

 private:
  // Fails with 180 when record is an alert; 0 otherwise.
  int CheckAlert(const ByteString& record);
  // Records method/what over a part's code and trace; returns the code.
  int Fail(const char* method, const char* what, const CErrorTrace& part);

  ByteString m_bsResponse;
  std::unique_ptr<CLSecureManager> m_pSecureManager;
  std::unique_ptr<CSocketClient> m_pSocketClient;
};
