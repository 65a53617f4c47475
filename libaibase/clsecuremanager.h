// CLSecureManager: makes and reads the records of one secure-channel
// connection and holds that connection's keys.
//
// The plain and alert operations are here. The handshake (ClientHello ...
// ServerKeyExchange, ProcessHandshake) and the enciphered application-data
// operations join this class with the facade they need; the members they use
// (session secret, data key and IV, certificate, private key) are already in
// place so that adding them changes no caller.
//
// Every operation returns 0 or the failing callee's code and leaves its
// result (the record made, or the data read out of a record) in the output,
// read through GetOutput().
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clrecord.h"

class CLSecureManager : public CErrorTrace {
 public:
  // Both arguments are optional; each is kept only when present and not
  // empty. A client passes neither; a server passes its certificate and key.
  CLSecureManager(const ByteString* certificate, const ByteString* privateKey);
  ~CLSecureManager() override;
  CLSecureManager(const CLSecureManager&) = delete;
  CLSecureManager& operator=(const CLSecureManager&) = delete;

  // Frees every held string (buffers released, lengths 0), wiping the keys first.
  void Release();

  // Output = plain record (version 1) around data.
  int MakePlainData(const ByteString& data);
  // The plain record (version 1) around data, written by the caller straight
  // into its own buffer (the frame) instead of into the output.
  static CLRecordEncoder PlainRecord(const CLEncoder& data) {
    return CLRecordEncoder(RECORD_PLAIN, RECORD_VERSION, data);
  }
  // 0 when PlainRecord(data) can be stored; otherwise the status
  // MakePlainData would return, with its trace.
  int CheckPlainData(const CLEncoder& data);
  // Output = the data carried in a plain record.
  int ParsePlain(const ByteString& record);
  // The same, the output left as it was: *data views the data inside record.
  int ParsePlain(const ByteString& record, ByteReader* data);
  // Output = alert record (version 1) around data.
  int MakeAlert(const ByteString& data);
  // Output = the data carried in an alert record.
  int ParseAlert(const ByteString& record);
  static bool IsAlert(const ByteString& record);
  static bool IsPlain(const ByteString& record);

  const ByteString& GetOutput() const { return m_bsOutput; }
  // Hands the output over, leaving this object's copy empty.
  ByteString TakeOutput();

 private:
  ByteString m_bsSessionSecret;  // 24-byte key + 8-byte IV of the key exchange
  ByteString m_bsOutput;
  ByteString m_bsDataKey;  // 24 bytes, application-data key
  ByteString m_bsDataIV;   // 8 bytes, application-data IV
  ByteString m_bsCertificate;
  ByteString m_bsPrivateKey;
};
