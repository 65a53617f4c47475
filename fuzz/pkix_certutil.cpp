// PCertUtil on arbitrary bytes: parseCertificate, then every field and
// extension getter and every renderer of names, distribution points and key
// purposes on what the getters return. Nothing may crash or read past an end;
// a getter must either succeed or say why.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "ZENALib/QSProcess/PCRLDistPointsUtil.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PCertUtil2.h"
#include "ZENALib/QSProcess/PExtKeyUsageUtil.h"
#include "ZENALib/QSProcess/PGeneralNameUtil.h"

namespace {

// A failing getter leaves a trace.
void Check(PCertUtil& c, int rc) {
  if (rc != 0 && c.getErrorMessage().length() == 0) std::abort();
}

void Names(const RGeneralNames& names) {
  PGeneralNameUtil u;
  ByteString text;
  u.parseGeneralNames(names, "\t", &text);
}

void Points(const RCRLDistPointsSyntax& points) {
  PCRLDistPointsUtil u;
  u.setDistributionPoints(points);
  ByteString text;
  u.makeDistributionPointMessage(&text);
  u.getCRLIssuer(&text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  PCertUtil c;
  if (c.parseCertificate(ByteString(data, static_cast<int>(size))) != 0) {
    if (c.isParsed() || c.m_nKeyUsage != -1) std::abort();  // a failed parse leaves nothing
    return 0;
  }
  ByteString bs, bs2;
  int n = 0;
  bool b = false;
  RAlgorithmIdentifier alg;
  RRDNSequence name;
  RValidity validity;
  RSubjectPublicKeyInfo spki;
  Check(c, c.getVersion(&n));
  Check(c, c.getSerialNumber(&bs));
  Check(c, c.getSignatureAlgorithm(&alg));
  c.getCertSignatureAlgorithmValue(alg, &bs);
  Check(c, c.getSignature(&bs));
  Check(c, c.getIssuer(&name));
  Check(c, c.getIssuerDN(&bs));
  Check(c, c.getSubject(&name));
  Check(c, c.getSubjectDN(&bs));
  Check(c, c.getValidity(&validity));
  Check(c, c.getSubjectPublicKeyInfo(&spki));
  c.getSubjectPublicKeyAlgorithm(&bs);
  Check(c, c.getSubjectPublicKey(&bs));
  c.getIssuerUniqueID(&bs);
  c.getSubjectUniqueID(&bs);
  Check(c, c.getTBSCertificate(&bs));
  c.getCertTBSCertificateHash(&bs, &bs2);
  PCertUtil2 u2;
  u2.getSubjectDN(*c.getCertificate(), &bs);
  for (int i = 0; i < c.getExtensionCount(); ++i) {
    RExtension e;
    Check(c, c.getExtension(i, &e));
    Check(c, c.getExtensionID(i, &bs));
    Check(c, c.getExtensionCritical(i, &b));
    Check(c, c.getExtensionValue(i, &bs));
  }
  for (int i = 0; i < c.getUnknownExtensionCount(); ++i)
    if (c.getUnknownExtensionPosition(i) < 0 || c.getUnknownExtensionPosition(i) >= c.getExtensionCount()) std::abort();

  RAuthorityKeyIdentifier aki;
  if (c.getAuthorityKeyIdentifier(&aki) == 0 && aki.hasAuthorityCertIssuer()) Names(aki.getAuthorityCertIssuer());
  c.get_SubjectKeyIdentifier_value(&bs);
  c.get_KeyUsage_value(&n);
  RPrivateKeyUsagePeriod pkup;
  ASN1GeneralizedTime t;
  c.getPrivateKeyUsagePeriod(&pkup);
  c.getPriKeyUsagePeriod_Before(&t);
  c.getPriKeyUsagePeriod_After(&t);
  RCertificatePolicies policies;
  c.getCertPolicy(&policies);
  if (c.getcertPolicyCNT(&n) == 0)
    for (int i = 0; i <= n; ++i) c.getPolicyIdentifier(i, &bs);
  RPolicyMappings mappings;
  c.getploicyMapping(&mappings);
  RGeneralNames names;
  if (c.getIssuerAltNames(&names) == 0) Names(names);
  if (c.getSubjectAltNames(&names) == 0) Names(names);
  RSubjectDirectoryAttributes sda;
  c.getSubjectDirAttributes(&sda);
  if (c.getSubjectDirAttribute_CNT(&n) == 0)
    for (int i = 0; i <= n; ++i) {
      c.getSubjectDirAttribute_Type(i, &bs);
      c.getSubjectDirAttribute_Value(i, &bs);
    }
  RBasicConstraints bc;
  c.getBasicConstraints(&bc);
  c.getBasicConstraints_cA(&b);
  c.getBasicConstraints_pathLenConstraint(&n);
  RNameConstraints nc;
  c.getNameConstraints(&nc);
  RPolicyConstraints pc;
  c.getploicyConstraints(&pc);
  RExtKeyUsageSyntax eku;
  c.getExtendedKeyUsage(&eku);
  RCRLDistPointsSyntax points;
  if (c.getCRLDistributionPoints(&points) == 0) Points(points);
  if (c.getFreshestCRL(&points) == 0) Points(points);
  RAuthorityInfoAccessSyntax aia;
  c.getAuthorityInformationAccess(&aia);
  RSubjectInfoAccessSyntax sia;
  c.getSubjectInfoAccess(&sia);
  RAny raw;
  c.getProcuration(&raw);
  c.getDomainInformation(&raw);
  c.getSubjectAnnexedInfo(&raw);
  c.getInhibitAnyPolicy(&n);
  RQCStatements qc;
  c.getQCStatements(&qc);
  for (int pos : {c.m_nExtendedKeyUsage, c.m_nCRLDistributionPoints}) {
    if (pos < 0) continue;
    c.getExtensionValue(pos, &bs);
    PExtKeyUsageUtil k;
    if (k.parseExtKeyUsage(bs) == 0) k.makeExtKeyUsageMessage(&bs2);
    PCRLDistPointsUtil d;
    if (d.parseCRLDistributionPoint(bs) == 0) d.makeDistributionPointMessage(&bs2);
  }
  return 0;
}
