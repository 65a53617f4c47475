// CRLBag ::= SEQUENCE {                                       (RFC 7292 4.2.4)
//   crlId    BAG-TYPE.&id ({CRLTypes}),
//   crlValue [0] EXPLICIT BAG-TYPE.&Type ({CRLTypes}{@crlId}) }
//                                   -- x509CRL: OCTET STRING holding a DER CRL
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RCRLBag : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, CrlId, crlId)
  R_COMPONENT(RAny, CrlValue, crlValue)
};
