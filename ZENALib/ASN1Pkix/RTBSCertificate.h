// TBSCertificate ::= SEQUENCE {                                (RFC 5280 4.1)
//   version         [0] EXPLICIT Version DEFAULT v1,
//   serialNumber        CertificateSerialNumber,
//   signature           AlgorithmIdentifier,
//   issuer              Name,
//   validity            Validity,
//   subject             Name,
//   subjectPublicKeyInfo SubjectPublicKeyInfo,
//   issuerUniqueID  [1] IMPLICIT UniqueIdentifier OPTIONAL,
//   subjectUniqueID [2] IMPLICIT UniqueIdentifier OPTIONAL,
//   extensions      [3] EXPLICIT Extensions OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RExtensions.h"
#include "ZENALib/ASN1Pkix/RRDNSequence.h"
#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"
#include "ZENALib/ASN1Pkix/RValidity.h"

class RTBSCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ASN1Integer, SerialNumber, serialNumber)
  R_COMPONENT(RAlgorithmIdentifier, Signature, signature)
  R_COMPONENT(RRDNSequence, Issuer, issuer)
  R_COMPONENT(RValidity, Validity, validity)
  R_COMPONENT(RRDNSequence, Subject, subject)
  R_COMPONENT(RSubjectPublicKeyInfo, SubjectPublicKeyInfo, subjectPublicKeyInfo)
  R_COMPONENT(ASN1BitString, IssuerUniqueID, issuerUniqueID)
  R_COMPONENT(ASN1BitString, SubjectUniqueID, subjectUniqueID)
  R_COMPONENT(RExtensions, Extensions, extensions)
};
