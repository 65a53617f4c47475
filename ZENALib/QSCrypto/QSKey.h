// QSKey: key agreement and key pairs through the crypto core.
//
// Shared keys: 6010 ECDH on sect163k1, 6011 ECDH on c2pnb163v1, 6012 DH;
// our private key as PKCS#8 DER, the peer's public key as
// SubjectPublicKeyInfo DER. Key pairs: any public-key number (RSA sizes,
// KCDSA sizes, ECDSA/ECDH curves, DH); see ECSP_GenerateKeyPair for forms.
#pragma once

#include "ZENALib/QSCrypto/QSService.h"

class QSKey : public QSService {
 public:
  QSKey() : QSService("QSKey") {}

  int GenerateSharedKey(int nAlgID, const ByteString& bsPrivateKey, const ByteString& bsPeerPublicKey,
                        ByteString& bsSharedKey);
  int GenerateKeyPair(int nAlgID, const ByteString& bsDomain, ByteString& bsPrivateKey, ByteString& bsPublicKey);
};
