// SignedData ::= SEQUENCE {                                    (RFC 5652 5.1)
//   version          CMSVersion,
//   digestAlgorithms DigestAlgorithmIdentifiers,
//   encapContentInfo EncapsulatedContentInfo,
//   certificates     [0] IMPLICIT CertificateSet OPTIONAL,
//   crls             [1] IMPLICIT RevocationInfoChoices OPTIONAL,
//   signerInfos      SignerInfos }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RCertificateRevocationLists.h"
#include "ZENALib/ASN1Pkix/RCertificateSet.h"
#include "ZENALib/ASN1Pkix/RDigestAlgorithmIdentifiers.h"
#include "ZENALib/ASN1Pkix/REncapsulatedContentInfo.h"
#include "ZENALib/ASN1Pkix/RSignerInfos.h"

#define RSignedData_COMPONENTS(X)                                                                            \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                 \
  X(RDigestAlgorithmIdentifiers, DigestAlgorithms, digestAlgorithms, UNIVERSAL(ASN1_TAG_SET), R_MANDATORY)   \
  X(REncapsulatedContentInfo, EncapContentInfo, encapContentInfo, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RCertificateSet, Certificates, certificates, IMPLICIT(0), R_OPTIONAL)                                    \
  X(RCertificateRevocationLists, Crls, crls, IMPLICIT(1), R_OPTIONAL)                                        \
  X(RSignerInfos, SignerInfos, signerInfos, UNIVERSAL(ASN1_TAG_SET), R_MANDATORY)

class RSignedData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RSignedData)
};
