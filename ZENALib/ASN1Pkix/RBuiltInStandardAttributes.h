// BuiltInStandardAttributes ::= SEQUENCE {             (RFC 5280 appendix A.1)
//   country-name                   CountryName OPTIONAL,
//   administration-domain-name     AdministrationDomainName OPTIONAL,
//   network-address            [0] IMPLICIT NetworkAddress OPTIONAL,
//   terminal-identifier        [1] IMPLICIT TerminalIdentifier OPTIONAL,
//   private-domain-name        [2] PrivateDomainName OPTIONAL,
//   organization-name          [3] IMPLICIT OrganizationName OPTIONAL,
//   numeric-user-identifier    [4] IMPLICIT NumericUserIdentifier OPTIONAL,
//   personal-name              [5] IMPLICIT PersonalName OPTIONAL,
//   organizational-unit-names  [6] IMPLICIT OrganizationalUnitNames OPTIONAL }
// NetworkAddress and NumericUserIdentifier are NumericStrings, TerminalIdentifier
// and OrganizationName PrintableStrings; [2] tags a CHOICE, so it is explicit.
#pragma once

#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RAdministrationDomainName.h"
#include "ZENALib/ASN1Pkix/RCountryName.h"
#include "ZENALib/ASN1Pkix/ROrganizationalUnitNames.h"
#include "ZENALib/ASN1Pkix/RPersonalName.h"
#include "ZENALib/ASN1Pkix/RPrivateDomainName.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RBuiltInStandardAttributes_COMPONENTS(X)                                                           \
  X(RCountryName, CountryName, country_name, ANY(), R_OPTIONAL)                                            \
  X(RAdministrationDomainName, AdministrationDomainName, administration_domain_name, ANY(), R_OPTIONAL)    \
  X(ASN1NumericString, NetworkAddress, network_address, IMPLICIT(0), R_OPTIONAL)                           \
  X(ASN1PrintableString, TerminalIdentifier, terminal_identifier, IMPLICIT(1), R_OPTIONAL)                 \
  X(RPrivateDomainName, PrivateDomainName, private_domain_name, EXPLICIT(2), R_OPTIONAL)                   \
  X(ASN1PrintableString, OrganizationName, organization_name, IMPLICIT(3), R_OPTIONAL)                     \
  X(ASN1NumericString, NumericUserIdentifier, numeric_user_identifier, IMPLICIT(4), R_OPTIONAL)            \
  X(RPersonalName, PersonalName, personal_name, IMPLICIT(5), R_OPTIONAL)                                   \
  X(ROrganizationalUnitNames, OrganizationalUnitNames, organizational_unit_names, IMPLICIT(6), R_OPTIONAL)

class RBuiltInStandardAttributes : public RStructure {
  R_COMPONENTS(RBuiltInStandardAttributes)

 public:
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;

 protected:
  const RSchema& schema() const override { return m_pDecodeSchema ? *m_pDecodeSchema : kSchema; }

 private:
  // The two leading components carry APPLICATION-class tags, which schema
  // fields do not express: decoding picks the table in which exactly the
  // leading components found in the input can match (see the .cpp).
  static const RSchema& decodeSchema(bool bCountry, bool bAdministration);

  static const RField kFields[];
  static const RSchema kSchema;
  const RSchema* m_pDecodeSchema = nullptr;
};
