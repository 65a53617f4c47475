// CLHash: the facade's digests (MD5 1002, SHA-1 1011, HAS-160 1020) of a
// byte string or of a file read in 8,192-byte pieces. The digest is left in
// GetResult(); on failure 80 (algorithm) or 81 with a trace line.
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLHash : public CErrorTrace {
 public:
  static constexpr int kReadSize = 8192;

  CLHash();
  ~CLHash() override;

  int MakeHash(int algorithm, const ByteString& data);
  // The file is never held whole: one fixed buffer of kReadSize + 1 bytes.
  int MakeHashBig(int algorithm, const char* path);

  const ByteString& GetResult() const { return m_bsResult; }

 private:
  int CheckAlgorithm(const char* method, int algorithm);
  int Fail(const char* method, const char* what, const char* detail);

  ByteString m_bsResult;
};
