#include "libaibase/clcertificate.h"

#include <cstring>
#include <ctime>

#include "ZENALib/ASN1Pkix/RValidity.h"
#include "ZENALib/QSProcess/PCRLDistPointsUtil.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "base/ErrorCodes.h"
#include "base/Messages.h"
#include "libaibase/clmessages.h"

using namespace cl_text;

namespace {

std::int64_t Seconds(const RTime& t) {
  return t.isUtcTime() ? t.getUtcTime().getGMTTime() : t.getGeneralTime().getGMTTime();
}

}  // namespace

CLCertificate::CLCertificate() = default;

CLCertificate::~CLCertificate() = default;

int CLCertificate::Fail(const char* method, const char* what, int code, const char* detail) {
  m_nErrorCode = code;
  QVA_ERROR_TRACE(method, what, code, detail);
  return code;
}

int CLCertificate::ParseCertificate(const ByteString& certificate) {
  const char* method = kCertParseMethod;
  PCertUtil certUtil;
  if (certUtil.parseCertificate(certificate) != 0)
    return Fail(method, kCertUtilParseWhat, ERR_CERT_PARSE, certUtil.getErrorMessage().c_str());
  int policies = 0;
  if (certUtil.getcertPolicyCNT(&policies) != 0 || policies == 0)
    return Fail(method, qva_msg::kCertHasNoPolicy, ERR_CERT_NO_POLICY, "");

  auto getterFailed = [&](const char* what) {
    return Fail(method, what, certUtil.getErrorCode(), certUtil.getErrorMessage().c_str());
  };
  int version = 0;
  if (certUtil.getVersion(&version) != 0) return getterFailed(kCertGetVersionWhat);
  m_bsVersion.format("%d", version);
  if (certUtil.getPolicyIdentifier(0, &m_bsPolicyOID) != 0) return getterFailed(kCertGetPolicyWhat);
  RAlgorithmIdentifier algorithm;
  if (certUtil.getSignatureAlgorithm(&algorithm) != 0 ||
      certUtil.getCertSignatureAlgorithmValue(algorithm, &m_bsSignatureAlgorithm) != 0)
    return getterFailed(kCertGetSignatureAlgorithmWhat);
  if (certUtil.getIssuerDN(&m_bsIssuerDN) != 0) return getterFailed(kCertGetIssuerDNWhat);
  if (certUtil.getSubjectDN(&m_bsSubjectDN) != 0) return getterFailed(kCertGetSubjectDNWhat);

  // The distribution point is optional: an absent extension leaves the text empty.
  RCRLDistPointsSyntax points;
  m_bsCRLDP.clear();
  if (certUtil.getCRLDistributionPoints(&points) == 0) {
    PCRLDistPointsUtil dpUtil;
    dpUtil.setDistributionPoints(points);
    if (dpUtil.makeDistributionPointMessage(&m_bsCRLDP) != 0)
      return Fail(method, kCertDistPointWhat, dpUtil.getErrorCode(), dpUtil.getErrorMessage().c_str());
  } else if (certUtil.getErrorCode() != PCERT_ERR_ABSENT) {
    return getterFailed(kCertGetDistPointsWhat);
  }

  if (certUtil.getSerialNumber(&m_bsSerialNumber) != 0) return getterFailed(kCertGetSerialWhat);
  RValidity validity;
  if (certUtil.getValidity(&validity) != 0) return getterFailed(kCertGetValidityWhat);
  m_nNotBefore = Seconds(validity.getNotBefore());
  m_nNotAfter = Seconds(validity.getNotAfter());
  int rc = m_bsStartDate.format2K(m_nNotBefore);
  if (rc != 0) return Fail(method, kStartDateFormatWhat, rc, kFormat2KFail);
  rc = m_bsEndDate.format2K(m_nNotAfter);
  if (rc != 0) return Fail(method, kEndDateFormatWhat, rc, kFormat2KFail);
  return m_nErrorCode = 0;
}

int CLCertificate::CheckAt(const char* method, const ByteString& certificate, std::int64_t when, int parseCode,
                           const char* parseWhat, const char* outsideDetail) {
  if (ParseCertificate(certificate) != 0) return Fail(method, parseWhat, parseCode, "");
  // Both ends inclusive.
  if (when < m_nNotBefore || when > m_nNotAfter)
    return Fail(method, kCheckValidityWhat, ERR_CERT_VALIDITY, outsideDetail);
  return m_nErrorCode = 0;
}

int CLCertificate::CheckTermOfValidaty(const ByteString& certificate) {
  // The parse failure carries the expiry text, as this check always wrote it.
  return CheckAt(kCertCheckTermMethod, certificate, static_cast<std::int64_t>(std::time(nullptr)), ERR_CERT_PARSE,
                 qva_msg::kCertExpired, "");
}

int CLCertificate::CheckValidityTermAtSpecialDate(const ByteString& certificate, std::int64_t when) {
  return CheckAt(kCertCheckAtDateMethod, certificate, when, ERR_CERT_PARSE, kParseCertificateWhat,
                 qva_msg::kNotInValidityAtDate);
}

int CLCertificate::VerifyCertificate(const ByteString&) { return m_nErrorCode = 0; }

int CLCertificate::CheckCRLDP(const ByteString& distributionPoint) {
  for (int i = distributionPoint.length() - 1; i >= 0; --i) {
    if (distributionPoint.data()[i] != '/') continue;
    // The rendered text goes on after the URI: the name ends with its line.
    int end = i + 1;
    while (end < distributionPoint.length() && distributionPoint.data()[end] != '\r' &&
           distributionPoint.data()[end] != '\n')
      ++end;
    m_bsCRLFileName = ByteString(distributionPoint.data() + i + 1, end - i - 1);
    return m_nErrorCode = 0;
  }
  return Fail(kCertCheckCRLDPMethod, kCheckCRLDPWhat, ERR_CERT_VALIDITY, kCRLDPDetail);
}

ByteString CLCertificate::GetDNComponent(const ByteString& dn, int component) {
  const char* key = component == kCommonName ? "cn=" : "o=";
  const int keyLength = component == kCommonName ? 3 : 2;
  // A key counts only at the start of a component, so "o=" is not found inside another key.
  for (int at = 0; at + keyLength <= dn.length(); ++at) {
    if ((at == 0 || dn.data()[at - 1] == ',') && std::memcmp(dn.data() + at, key, keyLength) == 0) {
      int end = at + keyLength;
      while (end < dn.length() && dn.data()[end] != ',') ++end;
      return ByteString(dn.data() + at + keyLength, end - at - keyLength);
    }
  }
  return ByteString();
}
