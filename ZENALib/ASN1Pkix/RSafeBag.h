// SafeBag ::= SEQUENCE {                                      (RFC 7292 4.2)
//   bagId         BAG-TYPE.&id ({PKCS12BagSet}),
//   bagValue      [0] EXPLICIT BAG-TYPE.&Type({PKCS12BagSet}{@bagId}),
//   bagAttributes SET OF PKCS12Attribute OPTIONAL }
//
// bagValue is kept verbatim; by bagId it holds a PrivateKeyInfo (keyBag), an
// EncryptedPrivateKeyInfo (pkcs8ShroudedKeyBag), a CertBag, a CRLBag, a
// SecretBag or a SafeContents (safeContentsBag): decode getBagValue().getElement()
// with that class.
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RPKCS12Attributes.h"

#define RSafeBag_COMPONENTS(X)                                                            \
  X(ASN1ObjectIdentifier, BagId, bagId, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY)             \
  X(RAny, BagValue, bagValue, EXPLICIT(0), R_MANDATORY)                                   \
  X(RPKCS12Attributes, BagAttributes, bagAttributes, UNIVERSAL(ASN1_TAG_SET), R_OPTIONAL)

class RSafeBag : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RSafeBag)
};
