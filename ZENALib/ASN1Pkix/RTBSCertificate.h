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

#define RTBSCertificate_COMPONENTS(X)                                                                             \
  X(ASN1Integer, Version, version, EXPLICIT(0), R_VERSION)                                                        \
  X(ASN1Integer, SerialNumber, serialNumber, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                            \
  X(RAlgorithmIdentifier, Signature, signature, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                        \
  X(RRDNSequence, Issuer, issuer, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                                      \
  X(RValidity, Validity, validity, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                                     \
  X(RRDNSequence, Subject, subject, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                                    \
  X(RSubjectPublicKeyInfo, SubjectPublicKeyInfo, subjectPublicKeyInfo, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1BitString, IssuerUniqueID, issuerUniqueID, IMPLICIT(1), R_OPTIONAL)                                       \
  X(ASN1BitString, SubjectUniqueID, subjectUniqueID, IMPLICIT(2), R_OPTIONAL)                                     \
  X(RExtensions, Extensions, extensions, EXPLICIT(3), R_OPTIONAL)

class RTBSCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RTBSCertificate)
};
