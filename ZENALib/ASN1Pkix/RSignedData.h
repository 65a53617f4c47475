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

class RSignedData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(RDigestAlgorithmIdentifiers, DigestAlgorithms, digestAlgorithms)
  R_COMPONENT(REncapsulatedContentInfo, EncapContentInfo, encapContentInfo)
  R_COMPONENT(RCertificateSet, Certificates, certificates)
  R_COMPONENT(RCertificateRevocationLists, Crls, crls)
  R_COMPONENT(RSignerInfos, SignerInfos, signerInfos)
};
