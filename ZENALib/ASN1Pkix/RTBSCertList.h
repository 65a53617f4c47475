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

class RTBSCertList : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(RAlgorithmIdentifier, Signature, signature)
  R_COMPONENT(RRDNSequence, Issuer, issuer)
  R_COMPONENT(RTime, ThisUpdate, thisUpdate)
  R_COMPONENT(RTime, NextUpdate, nextUpdate)
  R_COMPONENT(RRevokedCertificates, RevokedCertificates, revokedCertificates)
  R_COMPONENT(RExtensions, CrlExtensions, crlExtensions)
};
