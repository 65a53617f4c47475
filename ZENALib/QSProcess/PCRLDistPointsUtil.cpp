#include "ZENALib/QSProcess/PCRLDistPointsUtil.h"

#include "ZENALib/QSProcess/PCertMessages.h"
#include "ZENALib/QSProcess/PGeneralNameUtil.h"
#include "ZENALib/QSProcess/UDNSettings.h"

namespace {

const char* const kReasons[] = {"unused,",     "keyCompromise,",        "cACompromise,",
                                "affiliationChanged,", "superseded,", "cessationOfOperation,",
                                "certificateHold,",    "privilegeWithdrawn,", "aACompromise,"};

// Whether named bit i of a BIT STRING's content (unused-bits octet first) is set.
bool BitSet(const ByteString& content, int i) {
  const int byte = 1 + i / 8;
  return byte < content.length() && (content.data()[byte] & (0x80 >> (i % 8))) != 0;
}

}  // namespace

int PCRLDistPointsUtil::parseCRLDistributionPoint(const ByteString& bsExtValue) {
  m_points.removeAll();
  m_bsCRLIssuer.clear();
  if (int rc = m_points.fromASN1Object(bsExtValue)) {
    m_points.removeAll();
    return P_FAIL("parseCRLDistributionPoint", "tihs.crlDistributionPointsSyntax", rc,
                  m_points.getErrorMessage().c_str());
  }
  return 0;
}

void PCRLDistPointsUtil::setDistributionPoints(const RCRLDistPointsSyntax& points) {
  m_points = points;
  m_bsCRLIssuer.clear();
}

int PCRLDistPointsUtil::getCRLIssuer(ByteString* out) {
  m_bsCRLIssuer.clear();
  PGeneralNameUtil names;
  bool any = false;
  for (const RDistributionPoint& dp : m_points.items()) {
    if (!dp.hasCRLIssuer()) continue;
    any = true;
    if (int rc = names.parseGeneralNames(dp.getCRLIssuer(), "\t", &m_bsCRLIssuer))
      return P_FAIL("getCRLIssuer", "PGeneralNameUtil.parseGeneralNames", rc, names.getErrorMessage().c_str());
  }
  if (!any) return P_FAIL("getCRLIssuer", "cRLIssuer", PCERT_ERR_ABSENT, "cRLIssuer does not exist.");
  *out = m_bsCRLIssuer;
  return 0;
}

int PCRLDistPointsUtil::makeDistributionPointMessage(ByteString* out) {
  static const char* kMethod = "makeDistributionPointMessage";
  ByteString text;
  PGeneralNameUtil names;
  int i = 1;
  for (const RDistributionPoint& dp : m_points.items()) {
    ByteString head;
    head.format("[%d] CRL Distribution Point\r\n", i++);
    text += head;
    if (dp.hasDistributionPoint()) {
      const RDistributionPointName& name = dp.getDistributionPoint();
      text += "Distribution Point Name:\r\n";
      if (name.isFullName()) {
        text += "\t Full Name: \r\n";
        if (int rc = names.parseGeneralNames(name.getFullName(), "\t", &text))
          return P_FAIL(kMethod, "PGeneralNameUtil.parseGeneralNames", rc, names.getErrorMessage().c_str());
      } else {
        text += "Issuer RDN \r\n";
        RRDNSequence rdn;
        rdn.add(name.getNameRelativeToCRLIssuer());
        ByteString dn;
        if (UDNSettings::RDN2Str(rdn, &dn) != 0)
          return P_FAIL(kMethod, "UDNSettings::RDN2Str", PGeneralNameUtil::PGN_ERR_DN, kMsgMakeDNFailed);
        text += dn;
        text += "\r\n";
      }
    }
    if (dp.hasReasons()) {
      text += "CRL Reason=";
      const ByteString& bits = dp.getReasons().getValue();
      for (int b = 0; b < static_cast<int>(sizeof(kReasons) / sizeof(kReasons[0])); ++b)
        if (BitSet(bits, b)) text += kReasons[b];
      text += "\r\n";
    }
    if (dp.hasCRLIssuer()) {
      text += "CRL Issuer:\r\n";
      ByteString issuer;
      if (int rc = names.parseGeneralNames(dp.getCRLIssuer(), "\t", &issuer))
        return P_FAIL(kMethod, "PGeneralNameUtil.parseGeneralNames", rc, names.getErrorMessage().c_str());
      m_bsCRLIssuer = issuer;
      text += issuer;
    }
  }
  *out = text;
  return 0;
}
