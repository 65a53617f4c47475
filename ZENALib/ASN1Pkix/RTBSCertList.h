// TBSCertList ::= SEQUENCE {                           (RFC 5280 5.1)
//   version                 Version OPTIONAL,  -- if present, MUST be v2
//   signature               AlgorithmIdentifier,
//   issuer                  Name,
//   thisUpdate              Time,
//   nextUpdate              Time OPTIONAL,
//   revokedCertificates     SEQUENCE OF SEQUENCE { ... } OPTIONAL,
//   crlExtensions       [0] EXPLICIT Extensions OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RExtensions.h"
#include "ZENALib/ASN1Pkix/RRDNSequence.h"
#include "ZENALib/ASN1Pkix/RRevokedCertificates.h"
#include "ZENALib/ASN1Pkix/RTime.h"

#define RTBSCertList_COMPONENTS(X)                                                                            \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)                                   \
  X(RAlgorithmIdentifier, Signature, signature, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                    \
  X(RRDNSequence, Issuer, issuer, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                                  \
  X(RTime, ThisUpdate, thisUpdate, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_MANDATORY)                          \
  X(RTime, NextUpdate, nextUpdate, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_OPTIONAL)                           \
  X(RRevokedCertificates, RevokedCertificates, revokedCertificates, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL) \
  X(RExtensions, CrlExtensions, crlExtensions, EXPLICIT(0), R_OPTIONAL)

class RTBSCertList : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RTBSCertList)
};
