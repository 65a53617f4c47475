// GeneralName ::= CHOICE {                             (RFC 5280 4.2.1.6)
//   otherName                 [0] AnotherName,
//   rfc822Name                [1] IA5String,
//   dNSName                   [2] IA5String,
//   x400Address               [3] ORAddress,
//   directoryName             [4] Name,
//   ediPartyName              [5] EDIPartyName,
//   uniformResourceIdentifier [6] IA5String,
//   iPAddress                 [7] OCTET STRING,
//   registeredID              [8] OBJECT IDENTIFIER }
// The module is implicitly tagged; Name is a CHOICE, so [4] is explicit.
#pragma once

#include "ZENALib/ASN1/ASN1IA5String.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAnotherName.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/REDIPartyName.h"
#include "ZENALib/ASN1Pkix/RORAddress.h"
#include "ZENALib/ASN1Pkix/RRDNSequence.h"

#define RGeneralName_COMPONENTS(X)                                                                 \
  X(RAnotherName, OtherName, otherName, IMPLICIT(0), R_MANDATORY)                                  \
  X(ASN1IA5String, Rfc822Name, rfc822Name, IMPLICIT(1), R_MANDATORY)                               \
  X(ASN1IA5String, DNSName, dNSName, IMPLICIT(2), R_MANDATORY)                                     \
  X(RORAddress, X400Address, x400Address, IMPLICIT(3), R_MANDATORY)                                \
  X(RRDNSequence, DirectoryName, directoryName, EXPLICIT(4), R_MANDATORY)                          \
  X(REDIPartyName, EdiPartyName, ediPartyName, IMPLICIT(5), R_MANDATORY)                           \
  X(ASN1IA5String, UniformResourceIdentifier, uniformResourceIdentifier, IMPLICIT(6), R_MANDATORY) \
  X(ASN1OctetString, IPAddress, iPAddress, IMPLICIT(7), R_MANDATORY)                               \
  X(ASN1ObjectIdentifier, RegisteredID, registeredID, IMPLICIT(8), R_MANDATORY)

class RGeneralName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RGeneralName)
};
