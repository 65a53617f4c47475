// CLSecureManager: makes and reads the records of one secure-channel
// connection, runs either half of its four-message handshake and holds that
// connection's keys.
//
//   client                                   server (certificate + key)
//   MakeClientHello       -- 1 "Hello" -->   ProcessHandshake: ServerHello
//   ProcessHandshake      <-- 2 cert   --
//     32-byte secret, CMS-enveloped for the certificate
//                         -- 3 envelope -->  ProcessHandshake: opens it,
//                                            draws R (24-byte key, 8-byte IV)
//   ProcessHandshake      <-- 4 3DES(secret, R) --
//   both: application data = 3DES-CBC(R key, R IV, padding type 2)
//
// NOT A SECURE CHANNEL. The protection is weak by design and is built
// exactly so for interoperability with the servers that speak it: every
// application-data record of a connection is enciphered from the start with
// the same key and the same IV (equal plaintexts give equal ciphertexts), there
// is no sequence number, no MAC and no integrity check beyond the padding
// check, the server certificate is not checked here, and nothing binds the
// handshake messages together. It is not TLS and must not be relied on as a
// confidentiality or integrity layer.
//
// Every operation returns 0 or the failing callee's code and leaves its
// result (the record made, or the data read out of a record) in the output,
// read through GetOutput().
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clrecord.h"
#include "libaibase/clzenawrapper.h"

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

  // Handshake types (byte 6 of a handshake record).
  static constexpr int kClientHello = 1;
  static constexpr int kServerHello = 2;
  static constexpr int kClientKeyExchange = 3;
  static constexpr int kServerKeyExchange = 4;
  static constexpr int kSecretLength = 32;  // 24-byte key + 8-byte IV

  // Output = handshake record (type 1, "Hello").
  int MakeClientHello();
  // Runs the step for the record's handshake type (byte 6) and leaves the
  // reply, if any, in the output: 1 -> ServerHello, 2 -> ClientKeyExchange,
  // 3 -> ServerKeyExchange, 4 -> nothing to send. *more is set only on
  // success: true when another handshake record is expected from the peer
  // (types 1 and 2), false when this side's handshake is complete. 148
  // "Unknown Handshake Type..." for any other type, *more untouched.
  int ProcessHandshake(const ByteString& record, bool* more);
  // Output = application-data record of plaintext enciphered with the data key.
  int MakeApplicationData(const ByteString& plaintext);
  // Output = the plaintext of an application-data record.
  int ParseApplicationData(const ByteString& record);

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
  const ByteString& GetDataKey() const { return m_bsDataKey; }
  const ByteString& GetDataIV() const { return m_bsDataIV; }
  const ByteString& GetSessionSecret() const { return m_bsSessionSecret; }
  const ByteString& GetCertificate() const { return m_bsCertificate; }
  // Hands the output over, leaving this object's copy empty.
  ByteString TakeOutput();

 private:
  // The seven steps; the key-exchange ones record under the hello steps'
  // names (see clmessages.h).
  int ParseClientHello(const ByteString& record);
  int MakeServerHello();
  int ParseServerHello(const ByteString& record);
  int MakeClientKeyExchange();
  int ParseClientKeyExchange(const ByteString& record);
  int MakeServerKeyExchange();
  int ParseServerKeyExchange(const ByteString& record);
  // Output = handshake record of the type around data.
  int MakeHandshake(const char* method, int handshakeType, const ByteString& data);
  // *data = the handshake record's data.
  int ParseHandshake(const char* method, const ByteString& record, ByteString* data);
  // Records method/what over a callee's code and trace; returns the code.
  int Fail(const char* method, const char* what, const CErrorTrace& callee);
  // Takes R: data key = R[0..24), data IV = R[24..32).
  void SetDataKey(const ByteString& r);

  ByteString m_bsSessionSecret;  // 24-byte key + 8-byte IV of the key exchange
  ByteString m_bsOutput;
  ByteString m_bsDataKey;  // 24 bytes, application-data key
  ByteString m_bsDataIV;   // 8 bytes, application-data IV
  ByteString m_bsCertificate;
  ByteString m_bsPrivateKey;
  CLZENAWrapper m_zenaWrapper;
};
