// PKEKAlgorithm: the CMS key wraps of RFC 3217 (Triple-DES and RC2).
//
//   wrap:   ICV = SHA-1(K)[0..8); TEMP1 = CBC(KEK, IV, K || ICV);
//           TEMP3 = reverse(IV || TEMP1); result = CBC(KEK, 4ADDA22C79E82105, TEMP3)
// where K is the Triple-DES key (24 octets, odd parity set) or, for RC2,
// LENGTH || CEK || PAD up to a multiple of 8. IV and PAD are random; the
// ...WithIV forms take them (known-answer tests only).
// Every method returns 0 or a positive code with the failure in the trace.
#pragma once

#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PKEKAlgorithm : public PTrace {
 public:
  PKEKAlgorithm() : PTrace("PKEKAlgorithm") {}

  // 40 octets out. code 1 "bsTBEKey is not 24."; the services' codes under
  // "random.GenerateRandom", "qsHash.DigestData", "encrypt.EncryptData".
  int wrapTripleDESKey(const ByteString& bsKEK, const ByteString& bsTBEKey, ByteString& bsWrapped);
  int wrapTripleDESKeyWithIV(const ByteString& bsKEK, const ByteString& bsTBEKey, const ByteString& bsIV,
                             ByteString& bsWrapped);
  // The 24-octet key. code 1 "Encrypted Key length is not 40.", 2
  // "Checksum is different.", 3 "Odd parity is incorrect."
  int unwrapTripleDESKey(const ByteString& bsKEK, const ByteString& bsWrapped, ByteString& bsKey);

  // nAlg: an RC2 code (3050-3054; the effective key bits of the cipher
  // under the KEK). code 1 "The algorithm(%d) is not supported.", 2
  // "bsTBEKey length is not proper." (the CEK must be 1-255 octets).
  int wrapRC2Key(int nAlg, const ByteString& bsKEK, const ByteString& bsTBEKey, ByteString& bsWrapped);
  int wrapRC2KeyWithIV(int nAlg, const ByteString& bsKEK, const ByteString& bsTBEKey, const ByteString& bsIV,
                       const ByteString& bsPad, ByteString& bsWrapped);
  // The reverse of wrapRC2Key. code 1 as above, 2 "Encrypted Key length is
  // not proper." (a multiple of 8, at least 24), 3 "Checksum is
  // different.", 4 "The wrapped key length is not proper." (LENGTH beyond
  // the padded key).
  int unwrapRC2Key(int nAlg, const ByteString& bsKEK, const ByteString& bsWrapped, ByteString& bsKey);

 private:
  int wrap(const char* pszMethod, int nAlg, const ByteString& bsKEK, const ByteString& bsKey,
           const ByteString& bsIV, ByteString& bsWrapped);
  int unwrap(const char* pszMethod, int nAlg, int nChecksumCode, const ByteString& bsKEK,
             const ByteString& bsWrapped, ByteString& bsKey);
  int icv(const char* pszMethod, const ByteString& bsKey, ByteString& bsICV);
};
