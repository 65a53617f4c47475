// PPrivateKey: the signature algorithm code of a private key.
#pragma once

#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PPrivateKey : public PTrace {
 public:
  PPrivateKey() : PTrace("PPrivateKey") {}

  // GetPrivateKeyAlgorithm: from PrivateKeyInfo's parts (the key algorithm
  // OID text, the privateKey octets, the algorithm parameters element or
  // empty) and the hash code (0 is SHA-1), the code in *pnAlg:
  //   RSA ("1 2 840 113549 1 1 1"): the size code 4000/4001/4002 by the
  //     modulus, else code 5 "The RSA %d bit is not supported." (bits);
  //   KCDSA, KCDSA1: SHA-1 7031-7033, HAS-160 7040-7042 by the size of p
  //     (512/1024/2048 bits; else code 12), code 9 "Only support
  //     sha1WithKCDSA, has160WithKCDSA." for another hash, code 13 "The
  //     pPubKey data is NULL." for an empty key;
  //   EC: SHA-1 or 0 on "1 3 132 0 8" 7052, "1 2 840 10045 3 0 1" 7051,
  //     "1 3 132 0 1" 7050; code 36 "bsNamedCurve value error." without a
  //     named curve, 39 another curve, 40 SHA-256 ("The ECC curve ..."), 41
  //     another hash;
  //   code 50 "bsPrivateKeyAlgorithm(%s) is unknwon algorithm."
  // Decoding failures return the codec's code under "rsaPrivateKey",
  // "kcdsaParams", "kcdsaPrivateKey", "ecpkParams" or "ecPrivateKey".
  int GetPrivateKeyAlgorithm(const ByteString& bsPrivateKeyAlgorithm, const ByteString& bsPrivateKey,
                             const ByteString& bsParameters, int nHashAlg, int* pnAlg);
};
