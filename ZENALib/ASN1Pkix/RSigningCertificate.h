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

#define RSigningCertificate_COMPONENTS(X)                                               \
  X(RESSCertIDs, Certs, certs, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)               \
  X(RCertificatePolicies, Policies, policies, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RSigningCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RSigningCertificate)
};
