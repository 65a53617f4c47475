// PGenKeyPair: key pairs from the crypto core, wrapped as a PKCS#8
// PrivateKeyInfo and a SubjectPublicKeyInfo (both DER).
//
// nAlgo is a library code naming the key: RSA (4000-4002, 4021, 4022 and
// the RSA signature codes), EC (7050-7052, 6010, 6011: the curve from
// GetEccOID), KCDSA (7031-7033, 7040-7042; the size of p from the code).
// KCDSA keys are written as AlgorithmIdentifier { KCDSA OID, SEQUENCE { p,
// q, g } } with the private key an INTEGER x and the public key an INTEGER y.
#pragma once

#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PGenKeyPair : public PTrace {
 public:
  PGenKeyPair() : PTrace("PGenKeyPair") {}

  // A new key pair. bsDomain (KCDSA only, may be empty) gives SEQUENCE
  // { p, q, g } to use. The service's code under "key.GenerateKeyPair".
  int makeKeyPairWithGeneratedKey(int nAlgo, const ByteString& bsDomain, ByteString& bsPrivateKeyInfo,
                                  ByteString& bsSubjectPublicKeyInfo);
  // The core's private key (PKCS#8 already, or KCDSA SEQUENCE { p, q, g, y,
  // x }) as a PrivateKeyInfo.
  int makePrivateKeyInfoWithGeneratedKey(int nAlgo, const ByteString& bsGeneratedKey, ByteString& bsPrivateKeyInfo);
  // The core's public key (SubjectPublicKeyInfo already, or KCDSA SEQUENCE
  // { p, q, g, y }) as a SubjectPublicKeyInfo.
  int makePublicKeyInfoWithGeneratedKey(int nAlgo, const ByteString& bsGeneratedKey,
                                        ByteString& bsSubjectPublicKeyInfo);

  // The key algorithm OID text of a code ("nAlgo(%d) is unknown
  // algorithm." code 1); bKCDSA1 picks the KCDSA1 OID for KCDSA codes.
  int GetOIDbyAlgorithm(int nAlgo, ByteString& bsOID, bool bKCDSA1 = false);
  // The named curve OID text of an EC code (code 2 otherwise).
  int GetEccOID(int nAlgo, ByteString& bsCurveOID);

 private:
  // The parts of a KCDSA key in the core's form: p, q, g, y (and x).
  int splitKcdsa(const char* pszMethod, const ByteString& bsKey, int nParts, ByteString* pDomain, ByteString* pY,
                 ByteString* pX);
};
