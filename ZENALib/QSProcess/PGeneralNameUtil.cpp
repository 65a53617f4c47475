#include "ZENALib/QSProcess/PGeneralNameUtil.h"

#include "ZENALib/QSProcess/PCertMessages.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "ZENALib/QSProcess/UUniCode.h"

namespace {

void AppendContent(const ASN1Object& o, ByteString* out) { out->append(o.getValue().data(), o.getValueLength()); }

ByteString OidText(const ASN1ObjectIdentifier& oid) {
  return UDNSettings::Dotted(const_cast<ASN1ObjectIdentifier&>(oid).getOID(' '));
}

void AppendIPAddress(const ByteString& ip, ByteString* out) {
  const unsigned char* p = ip.data();
  ByteString part;
  if (ip.length() == 4) {
    part.format("%u.%u.%u.%u", p[0], p[1], p[2], p[3]);
  } else if (ip.length() == 16) {
    for (int i = 0; i < 16; i += 2) {
      ByteString g;
      g.format(i ? ":%X" : "%X", (p[i] << 8) | p[i + 1]);
      part += g;
    }
  } else {
    part = ip.toHex();  // a name-constraint address with its mask, or malformed
  }
  *out += part;
}

}  // namespace

int PGeneralNameUtil::parseDirectoryString(const RDirectoryString& value, ByteString* out) {
  static const char* kMethod = "parseDirectoryString";
  if (value.isTeletexString()) {
    AppendContent(value.getTeletexString(), out);
  } else if (value.isPrintableString()) {
    AppendContent(value.getPrintableString(), out);
  } else if (value.isUtf8String()) {
    const ASN1Object& s = value.getUtf8String();
    UUniCode::UTF82KSC(s.getValue().data(), s.getValueLength(), out);
  } else if (value.isBmpString()) {
    const ASN1Object& s = value.getBmpString();
    const int rc = UUniCode::Unicode2KSC(s.getValue().data(), s.getValueLength(), out);
    if (rc == UUniCode::UUNI_MALFORMED || rc == UUniCode::UUNI_MEMORY)
      return P_FAIL(kMethod, "UUniCode::Unicode2KSC", PGN_ERR_CONVERT, kMsgUnicode2KSCFailed);
  } else if (value.isUniversalString()) {
    const ByteString& e = value.getUniversalString().getElement();
    if (UDNSettings::Value2Str(e, out) != 0)
      return P_FAIL(kMethod, "UUniCode::UCS42KSC", PGN_ERR_CONVERT, kMsgUnicode2KSCFailed);
  } else {
    return P_FAIL(kMethod, "value", PGN_ERR_UNKNOWN_CHOICE, kMsgUnknownTypeChosen);
  }
  return 0;
}

int PGeneralNameUtil::parseGeneralName(const RGeneralName& name, ByteString* out) {
  static const char* kMethod = "parseGeneralName";
  if (name.isOtherName()) {
    *out += "Other Name:\r\n\t";
    *out += OidText(name.getOtherName().getTypeId());
    *out += '=';
    *out += name.getOtherName().getNameValue().getElement().toHex();
  } else if (name.isRfc822Name()) {
    *out += "RFC822 Name=";
    AppendContent(name.getRfc822Name(), out);
  } else if (name.isDNSName()) {
    *out += "DNS Name=";
    AppendContent(name.getDNSName(), out);
  } else if (name.isX400Address()) {
    *out += "X400 Address=\r\n";
    if (int rc = parseX400Address(name.getX400Address(), out))
      return P_FAIL(kMethod, "parseX400Address", rc, m_bsErrorMsg.c_str());
    return 0;
  } else if (name.isDirectoryName()) {
    ByteString dn;
    if (UDNSettings::RDN2Str(name.getDirectoryName(), &dn) != 0)
      return P_FAIL(kMethod, "UDNSettings::RDN2Str", PGN_ERR_DN, kMsgMakeDNFailed);
    *out += dn;
  } else if (name.isEdiPartyName()) {
    *out += "EDIParty Name=\r\n";
    if (int rc = parseEDIPartyName(name.getEdiPartyName(), out))
      return P_FAIL(kMethod, "parseEDIPartyName", rc, m_bsErrorMsg.c_str());
    return 0;
  } else if (name.isUniformResourceIdentifier()) {
    *out += "URL=";
    AppendContent(name.getUniformResourceIdentifier(), out);
  } else if (name.isIPAddress()) {
    *out += "IP Address=";
    AppendIPAddress(name.getIPAddress().getValue(), out);
  } else if (name.isRegisteredID()) {
    *out += "Registered ID=";
    *out += OidText(name.getRegisteredID());
  } else {
    return P_FAILF(kMethod, "name", PGN_ERR_UNKNOWN_CHOICE, kFmtGeneralNameUnknown, name.getSelected());
  }
  *out += "\r\n";
  return 0;
}

int PGeneralNameUtil::parseGeneralNames(const RGeneralNames& names, const char* szPrefix, ByteString* out) {
  for (const RGeneralName& n : names.items()) {
    *out += szPrefix;
    if (int rc = parseGeneralName(n, out))
      return P_FAIL("parseGeneralNames", "parseGeneralName", rc, m_bsErrorMsg.c_str());
  }
  return 0;
}

int PGeneralNameUtil::parseEDIPartyName(const REDIPartyName& party, ByteString* out) {
  if (party.hasNameAssigner()) {
    *out += "\tName Assigner=";
    if (int rc = parseDirectoryString(party.getNameAssigner(), out))
      return P_FAIL("parseEDIPartyName", "nameAssigner", rc, m_bsErrorMsg.c_str());
    *out += "\r\n";
  }
  *out += "\tParty Name=";
  if (int rc = parseDirectoryString(party.getPartyName(), out))
    return P_FAIL("parseEDIPartyName", "partyName", rc, m_bsErrorMsg.c_str());
  *out += "\r\n";
  return 0;
}

int PGeneralNameUtil::parseX400Address(const RORAddress& address, ByteString* out) {
  static const char* kMethod = "parseX400Address";
  if (int rc = parseBuiltInStandardAttributes(address.getBuiltInStandardAttributes(), out))
    return P_FAIL(kMethod, "parseBuiltInStandardAttributes", rc, m_bsErrorMsg.c_str());
  if (address.hasBuiltInDomainDefinedAttributes()) {
    if (int rc = parseBuiltInDomainDefinedAttributes(address.getBuiltInDomainDefinedAttributes(), out))
      return P_FAIL(kMethod, "parseBuiltInDomainDefinedAttributes", rc, m_bsErrorMsg.c_str());
  }
  if (address.hasExtensionAttributes()) {
    if (int rc = parseExtensionAttributes(address.getExtensionAttributes(), out))
      return P_FAIL(kMethod, "parseExtensionAttributes", rc, m_bsErrorMsg.c_str());
  }
  return 0;
}

int PGeneralNameUtil::parseBuiltInStandardAttributes(const RBuiltInStandardAttributes& a, ByteString* out) {
  static const char* kMethod = "parseBuiltInStandardAttributes";
  *out += "\tBuilt in standard attributes :\r\n";
  if (a.hasCountryName()) {
    const RCountryName& c = a.getCountryName();
    *out += "\t\tCountry name=";
    if (c.isX121DccCode())
      AppendContent(c.getX121DccCode(), out);
    else if (c.isIso3166Alpha2Code())
      AppendContent(c.getIso3166Alpha2Code(), out);
    else
      return P_FAILF(kMethod, "country_name", PGN_ERR_UNKNOWN_CHOICE, kFmtUnknownCountryName, c.getSelected());
    *out += "\r\n";
  }
  if (a.hasAdministrationDomainName()) {
    const RAdministrationDomainName& d = a.getAdministrationDomainName();
    *out += "\t\tAdministration domain name=";
    if (d.isNumeric())
      AppendContent(d.getNumeric(), out);
    else if (d.isPrintable())
      AppendContent(d.getPrintable(), out);
    else
      return P_FAILF(kMethod, "administration_domain_name", PGN_ERR_UNKNOWN_CHOICE, kFmtUnknownAdminDomain,
                     d.getSelected());
    *out += "\r\n";
  }
  if (a.hasNetworkAddress()) {
    *out += "\t\tNetwork address=";
    AppendContent(a.getNetworkAddress(), out);
    *out += "\r\n";
  }
  if (a.hasTerminalIdentifier()) {
    *out += "\t\tTerminal identifier=";
    AppendContent(a.getTerminalIdentifier(), out);
    *out += "\r\n";
  }
  if (a.hasPrivateDomainName()) {
    const RPrivateDomainName& d = a.getPrivateDomainName();
    *out += "\t\tPrivate domain name=";
    if (d.isNumeric())
      AppendContent(d.getNumeric(), out);
    else if (d.isPrintable())
      AppendContent(d.getPrintable(), out);
    else
      return P_FAILF(kMethod, "private_domain_name", PGN_ERR_UNKNOWN_CHOICE, kFmtUnknownPrivateDomain,
                     d.getSelected());
    *out += "\r\n";
  }
  if (a.hasOrganizationName()) {
    *out += "\t\tOrganization name=";
    AppendContent(a.getOrganizationName(), out);
    *out += "\r\n";
  }
  if (a.hasNumericUserIdentifier()) {
    *out += "\t\tNumeric user identifier=";
    AppendContent(a.getNumericUserIdentifier(), out);
    *out += "\r\n";
  }
  if (a.hasPersonalName()) {
    const RPersonalName& p = a.getPersonalName();
    *out += "\t\tPersonal name:\r\n\t\t\tSurname=";
    AppendContent(p.getSurname(), out);
    *out += "\r\n";
    if (p.hasGivenName()) {
      *out += "\t\t\tGiven name=";
      AppendContent(p.getGivenName(), out);
      *out += "\r\n";
    }
    if (p.hasInitials()) {
      *out += "\t\t\tInitials=";
      AppendContent(p.getInitials(), out);
      *out += "\r\n";
    }
    if (p.hasGenerationQualifier()) {
      *out += "\t\t\tGeneration qualifier=";
      AppendContent(p.getGenerationQualifier(), out);
      *out += "\r\n";
    }
  }
  if (a.hasOrganizationalUnitNames()) {
    *out += "\t\tOrganizational unit names:\r\n";
    for (const auto& ou : a.getOrganizationalUnitNames().items()) {
      *out += "\t\t\t";
      AppendContent(ou, out);
      *out += "\r\n";
    }
  }
  return 0;
}

int PGeneralNameUtil::parseBuiltInDomainDefinedAttributes(const RBuiltInDomainDefinedAttributes& attrs,
                                                          ByteString* out) {
  *out += "\tBuilt in domain defined attributes:\r\n";
  int i = 0;
  for (const RBuiltInDomainDefinedAttribute& a : attrs.items()) {
    ByteString line;
    line.format("\t\tType[%d]=", i);
    *out += line;
    AppendContent(a.getType(), out);
    line.format("\r\n\t\tValue[%d]=", i);
    *out += line;
    AppendContent(a.getAttributeValue(), out);
    *out += "\r\n";
    ++i;
  }
  return 0;
}

int PGeneralNameUtil::parseExtensionAttributes(const RExtensionAttributes& attrs, ByteString* out) {
  *out += "\tExtension attributes:\r\n";
  int i = 0;
  for (const RExtensionAttribute& a : attrs.items()) {
    ByteString line;
    line.format("\t\tType[%d]=%d\r\n\t\tValue[%d]=", i, a.getExtensionAttributeType().getInteger(), i);
    *out += line;
    *out += a.getExtensionAttributeValue().getElement().toHex();
    *out += "\r\n";
    ++i;
  }
  return 0;
}
