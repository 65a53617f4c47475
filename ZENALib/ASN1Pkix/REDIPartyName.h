// EDIPartyName ::= SEQUENCE {                          (RFC 5280 4.2.1.6)
//   nameAssigner [0] DirectoryString OPTIONAL,
//   partyName    [1] DirectoryString }
// DirectoryString is a CHOICE, so both tags are explicit.
#pragma once

#include "ZENALib/ASN1Pkix/RDirectoryString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define REDIPartyName_COMPONENTS(X)                                        \
  X(RDirectoryString, NameAssigner, nameAssigner, EXPLICIT(0), R_OPTIONAL) \
  X(RDirectoryString, PartyName, partyName, EXPLICIT(1), R_MANDATORY)

class REDIPartyName : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(REDIPartyName)
};
