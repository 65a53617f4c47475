// PNameMatch: whether two Names are the same name though encoded apart.
//
// A name's key is each attribute's dotted type and its value's text (by
// UDNSettings::Value2Str) with letters folded to lower case and runs of
// white space made one blank, leading and trailing ones dropped; the members
// of a multi-valued RDN in sorted order. So PrintableString and UTF8String
// forms of one name, and names differing in case or spacing, have one key.
#pragma once

#include <string>

#include "ZENALib/ASN1Pkix/RRDNSequence.h"

class PNameMatch {
 public:
  static std::string RdnKey(const RRelativeDistinguishedName& rdn);
  static std::string NameKey(const RRDNSequence& name);
  // Equal keys, neither holding '?': that is what a character without a
  // CP949 form reads as, so two different names could share such a key.
  static bool SameName(const RRDNSequence& a, const RRDNSequence& b);
};
