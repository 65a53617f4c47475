// Reading a certificate through PCertUtil: parseCertificate, then every
// extension it carries through its getter, beside OpenSSL's d2i_X509 plus
// X509_get_ext_d2i of the same extensions. The certificate is the Korean
// RSA-2048 user certificate of tests/data (seven extensions: authority and
// subject key identifiers, key usage, policies with a BMPString notice,
// subject alternative name, CRL distribution points, information access).
#include <benchmark/benchmark.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <fstream>
#include <sstream>
#include <string>

#include "bench/BenchData.h"
#include "ZENALib/QSProcess/PCertUtil.h"

namespace {

const ByteString& Certificate() {
  static const ByteString der = ReadSourceFile("/tests/data/pkix/x509/korean/certs/test_KTNET_signCert.der");
  return der;
}

// Every extension the certificate carries, each through its getter (a
// getter of an absent extension would only record that it is absent).
template <typename T>
int Read(PCertUtil& c, int pos, int (PCertUtil::*getter)(T*)) {
  if (pos < 0) return 0;
  T value;
  return (c.*getter)(&value) == 0;
}

int ReadAll(PCertUtil& c) {
  return Read(c, c.m_nAuthorityKeyIdentifier, &PCertUtil::getAuthorityKeyIdentifier) +
         Read(c, c.m_nSubjectKeyIdentifier, &PCertUtil::get_SubjectKeyIdentifier_value) +
         Read(c, c.m_nKeyUsage, &PCertUtil::get_KeyUsage_value) +
         Read(c, c.m_nPrivateKeyUsagePeriod, &PCertUtil::getPrivateKeyUsagePeriod) +
         Read(c, c.m_nCertificatePolicies, &PCertUtil::getCertPolicy) +
         Read(c, c.m_nPolicyMappings, &PCertUtil::getploicyMapping) +
         Read(c, c.m_nIssuerAlterNames, &PCertUtil::getIssuerAltNames) +
         Read(c, c.m_nSubjectAlternativeNames, &PCertUtil::getSubjectAltNames) +
         Read(c, c.m_nSubjectDirectoryAttributes, &PCertUtil::getSubjectDirAttributes) +
         Read(c, c.m_nBasicConstraints, &PCertUtil::getBasicConstraints) +
         Read(c, c.m_nNameConstraints, &PCertUtil::getNameConstraints) +
         Read(c, c.m_nPolicyConstraints, &PCertUtil::getploicyConstraints) +
         Read(c, c.m_nExtendedKeyUsage, &PCertUtil::getExtendedKeyUsage) +
         Read(c, c.m_nCRLDistributionPoints, &PCertUtil::getCRLDistributionPoints) +
         Read(c, c.m_nAuthorityInformationAccess, &PCertUtil::getAuthorityInformationAccess) +
         Read(c, c.m_nProcuration, &PCertUtil::getProcuration) +
         Read(c, c.m_nDomainInformation, &PCertUtil::getDomainInformation) +
         Read(c, c.m_nInhibitAnyPolicy, &PCertUtil::getInhibitAnyPolicy) +
         Read(c, c.m_nFreshestCRL, &PCertUtil::getFreshestCRL) +
         Read(c, c.m_nSubjectInfoAccess, &PCertUtil::getSubjectInfoAccess) +
         Read(c, c.m_nQCStatements, &PCertUtil::getQCStatements) +
         Read(c, c.m_nSubjectAnnexedInfo, &PCertUtil::getSubjectAnnexedInfo);
}

void ReadOurs(benchmark::State& st) {
  const ByteString& der = Certificate();
  if (der.length() == 0) return st.SkipWithError("certificate not found");
  for (auto _ : st) {
    PCertUtil c;
    if (c.parseCertificate(der) != 0) return st.SkipWithError("parse failed");
    if (ReadAll(c) != 7) return st.SkipWithError("not every extension read");
  }
  st.SetItemsProcessed(st.iterations());
}

void ReadOpenssl(benchmark::State& st) {
  const ByteString& der = Certificate();
  if (der.length() == 0) return st.SkipWithError("certificate not found");
  static const int kNids[] = {NID_authority_key_identifier, NID_subject_key_identifier, NID_key_usage,
                              NID_certificate_policies,     NID_subject_alt_name,       NID_crl_distribution_points,
                              NID_info_access};
  for (auto _ : st) {
    const unsigned char* p = der.data();
    X509* x = d2i_X509(nullptr, &p, der.length());
    if (!x) return st.SkipWithError("d2i_X509 failed");
    int found = 0;
    for (int nid : kNids) {
      void* ext = X509_get_ext_d2i(x, nid, nullptr, nullptr);
      if (!ext) continue;
      ++found;
      ASN1_item_free(static_cast<ASN1_VALUE*>(ext), ASN1_ITEM_ptr(X509V3_EXT_get_nid(nid)->it));
    }
    X509_free(x);
    if (found != 7) return st.SkipWithError("not every extension read");
  }
  st.SetItemsProcessed(st.iterations());
}

}  // namespace

BENCHMARK(ReadOurs)->Name("certificate_read_extensions/ours");
BENCHMARK(ReadOpenssl)->Name("certificate_read_extensions/openssl");
