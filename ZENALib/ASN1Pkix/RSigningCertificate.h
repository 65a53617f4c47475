// SigningCertificate ::= SEQUENCE {                            (RFC 2634 5.4)
//   certs    SEQUENCE OF ESSCertID,
//   policies SEQUENCE OF PolicyInformation OPTIONAL }
// The policies have the shape of the certificatePolicies extension.
#pragma once

#include "ZENALib/ASN1Pkix/RCertificatePolicies.h"
#include "ZENALib/ASN1Pkix/RESSCertID.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

// The certs list: the signing certificate first, then others of its path.
class RESSCertIDs : public RListOf<RESSCertID> {
 public:
  RESSCertIDs() : RListOf("RESSCertIDs") {}
};

class RSigningCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RESSCertIDs, Certs, certs)
  R_COMPONENT(RCertificatePolicies, Policies, policies)
};
