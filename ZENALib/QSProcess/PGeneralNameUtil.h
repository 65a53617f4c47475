// PGeneralNameUtil: a GeneralName as display text, one labelled line per
// name, each ended by CR LF:
//
//   otherName                  "Other Name:" CR LF, then TAB <dotted type-id> "=" <hex of the value>
//   rfc822Name                 "RFC822 Name=" <text>
//   dNSName                    "DNS Name=" <text>
//   x400Address                "X400 Address=" CR LF, then the O/R address (parseX400Address)
//   directoryName              the name as UDNSettings::RDN2Str writes it
//   ediPartyName               "EDIParty Name=" CR LF, TAB "Name Assigner=" ..., TAB "Party Name=" ...
//   uniformResourceIdentifier  "URL=" <text>
//   iPAddress                  "IP Address=" dotted quad for 4 octets, 8 colon-separated
//                              hex groups for 16, hex otherwise
//   registeredID               "Registered ID=" <dotted identifier>
//
// DirectoryString values (EDI party names) are written in CP949: BMP and
// UTF-8 text converted, the others copied.
#pragma once

#include "ZENALib/ASN1Pkix/RDirectoryString.h"
#include "ZENALib/ASN1Pkix/RGeneralName.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/QSProcess/PTrace.h"

class PGeneralNameUtil : public PTrace {
 public:
  PGeneralNameUtil() : PTrace("PGeneralNameUtil") {}

  // Each appends its text to out; 0 or the failing code (trace recorded).
  int parseGeneralName(const RGeneralName& name, ByteString* out);
  // Every name of the list, each prefixed by szPrefix (may be empty).
  int parseGeneralNames(const RGeneralNames& names, const char* szPrefix, ByteString* out);
  int parseX400Address(const RORAddress& address, ByteString* out);
  int parseEDIPartyName(const REDIPartyName& party, ByteString* out);
  int parseBuiltInStandardAttributes(const RBuiltInStandardAttributes& attrs, ByteString* out);
  int parseBuiltInDomainDefinedAttributes(const RBuiltInDomainDefinedAttributes& attrs, ByteString* out);
  int parseExtensionAttributes(const RExtensionAttributes& attrs, ByteString* out);

  // A DirectoryString as CP949 text; 0, or fails with "Unknown type chosen."
  // (no alternative selected) or "UUniCode::Unicode2KSC is failed." (a
  // BMPString of odd length).
  int parseDirectoryString(const RDirectoryString& value, ByteString* out);

  // Codes of this class.
  static constexpr int PGN_ERR_UNKNOWN_CHOICE = 1;
  static constexpr int PGN_ERR_CONVERT = 2;
  static constexpr int PGN_ERR_DN = 3;
};
