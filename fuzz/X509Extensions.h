// Shared by the certificate and CRL fuzz targets: every extension value is
// fed to every X.509 extension class (not only the one its identifier names,
// so each class sees many shapes), with the round-trip check.
#pragma once

#include "PkixStable.h"
#include "ZENALib/ASN1Pkix/RAuthorityInfoAccessSyntax.h"
#include "ZENALib/ASN1Pkix/RAuthorityKeyIdentifier.h"
#include "ZENALib/ASN1Pkix/RBasicConstraints.h"
#include "ZENALib/ASN1Pkix/RCRLDistPointsSyntax.h"
#include "ZENALib/ASN1Pkix/RCertificatePolicies.h"
#include "ZENALib/ASN1Pkix/RExtKeyUsageSyntax.h"
#include "ZENALib/ASN1Pkix/RExtensions.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RIssuingDistributionPoint.h"
#include "ZENALib/ASN1Pkix/RNameConstraints.h"
#include "ZENALib/ASN1Pkix/RPolicyConstraints.h"
#include "ZENALib/ASN1Pkix/RPolicyMappings.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyUsagePeriod.h"
#include "ZENALib/ASN1Pkix/RSubjectDirectoryAttributes.h"
#include "ZENALib/ASN1Pkix/RUserNotice.h"

template <typename... T>
void X509TryEach(const ByteString& der) {
  (
      [&] {
        T obj;
        PkixStable(der, obj);
      }(),
      ...);
}

inline void X509Extensions(const RExtensions& exts) {
  for (const RExtension& e : exts.items())
    X509TryEach<RGeneralNames, RAuthorityKeyIdentifier, RBasicConstraints, RCertificatePolicies, RUserNotice,
                RCRLDistPointsSyntax, RIssuingDistributionPoint, RNameConstraints, RPolicyConstraints, RPolicyMappings,
                RExtKeyUsageSyntax, RAuthorityInfoAccessSyntax, RSubjectDirectoryAttributes, RPrivateKeyUsagePeriod>(
        e.getExtnValue().getValue());
}
