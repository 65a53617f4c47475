// CRLBag ::= SEQUENCE {                                       (RFC 7292 4.2.4)
//   crlId    BAG-TYPE.&id ({CRLTypes}),
//   crlValue [0] EXPLICIT BAG-TYPE.&Type ({CRLTypes}{@crlId}) }
//                                   -- x509CRL: OCTET STRING holding a DER CRL
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RCRLBag_COMPONENTS(X)                                                 \
  X(ASN1ObjectIdentifier, CrlId, crlId, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, CrlValue, crlValue, EXPLICIT(0), R_MANDATORY)

class RCRLBag : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RCRLBag)
};
