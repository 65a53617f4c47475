// CLCrypto: the facade's block-cipher and random operations (Triple-DES or
// SEED in CBC mode with padding type 2, random bytes of generator 2020).
// Each operation leaves its output in GetResult(); on failure the code
// (20-26) and a trace line over the service's own trace.
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class CLCrypto : public CErrorTrace {
 public:
  static constexpr int kTripleDES = 3011;
  static constexpr int kSEED = 3020;
  static constexpr int kModeCBC = 4;
  static constexpr int kPadding = 2;
  static constexpr int kRandomGenerator = 2020;

  CLCrypto();
  ~CLCrypto() override;

  // 0, 20 unsupported algorithm, 21 unsupported mode, 22 cipher failure.
  int Encrypt(int algorithm, int mode, const ByteString& key, const ByteString& iv, const ByteString& data);
  // 0, 23 unsupported algorithm, 24 unsupported mode, 25 cipher failure
  // (including a wrong padding).
  int Decrypt(int algorithm, int mode, const ByteString& key, const ByteString& iv, const ByteString& data);
  // 0 or 26.
  int Random(int length);

  const ByteString& GetResult() const { return m_bsResult; }
  ByteString TakeResult();

 private:
  int Crypt(bool encrypt, int algorithm, int mode, const ByteString& key, const ByteString& iv,
            const ByteString& data);

  ByteString m_bsResult;
};
