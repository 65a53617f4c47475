// bagAttributes SET OF PKCS12Attribute                        (RFC 7292 4.2)
// PKCS12Attribute ::= SEQUENCE { attrId OBJECT IDENTIFIER, attrValues SET OF ANY }
// has the shape of Attribute, so the items are RAttribute (friendlyName,
// localKeyId and the others keep their values verbatim).
#pragma once

#include "ZENALib/ASN1Pkix/RAttribute.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RPKCS12Attributes : public RSetOf<RAttribute> {
 public:
  RPKCS12Attributes() : RSetOf("RPKCS12Attributes") {}
};
