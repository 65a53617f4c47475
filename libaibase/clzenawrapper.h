// CLZENAWrapper: the one door from the protocol and client code into the
// PKI toolkit. Each method makes one short-lived wrapper object, runs one
// operation on it, copies the result into the caller's string and lets the
// object go; on failure it puts one trace line over the wrapper's trace and
// returns the wrapper's code unchanged. It keeps no state of its own.
#pragma once

#include <cstdint>

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLZENAWrapper : public CErrorTrace {
 public:
  CLZENAWrapper();
  ~CLZENAWrapper() override;

  // Triple-DES (3011), CBC, padding type 2; key 24 bytes, iv 8 bytes.
  int Encrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out);
  int Decrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out);
  int Random(int length, ByteString& out);
  // algorithm 1002 MD5, 1011 SHA-1, 1020 HAS-160.
  int MakeHash(const ByteString& data, ByteString& out, int algorithm);
  int MakeHashBig(const char* path, ByteString& out, int algorithm);
  int Base64Enc(const ByteString& in, ByteString& out);
  int Base64Dec(const ByteString& in, ByteString& out);

  // A CMS EnvelopedData of content for the certificate's holder.
  int EnvelopData(const ByteString& certificate, const ByteString& content, ByteString& out);
  // The content of envelope, opened with the recipient's certificate and
  // PKCS#8 private key.
  int OpenEnvelopedData(const ByteString& envelope, const ByteString& certificate, const ByteString& privateKey,
                        ByteString& out);

 private:
  // Records method/what over the wrapper's code and trace; returns the code.
  int Fail(const char* method, const char* what, const CErrorTrace& wrapper);
};
