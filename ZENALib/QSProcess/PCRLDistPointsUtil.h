// PCRLDistPointsUtil: the CRL distribution points extension (and the
// FreshestCRL extension, which has the same syntax) decoded and rendered.
//
// makeDistributionPointMessage writes, for each point i counted from 1:
//   "[i] CRL Distribution Point" CR LF
//   "Distribution Point Name:" CR LF, then either "\t Full Name: " CR LF and
//     each GeneralName TAB-prefixed (PGeneralNameUtil), or "Issuer RDN " CR LF
//     and the relative name as UDNSettings writes a name, CR LF
//   "CRL Reason=" and the name of each set reason bit followed by "," CR LF
//   "CRL Issuer:" CR LF and the cRLIssuer names (as getCRLIssuer gives them)
#pragma once

#include "ZENALib/ASN1Pkix/RCRLDistPointsSyntax.h"
#include "ZENALib/QSProcess/PTrace.h"

class PCRLDistPointsUtil : public PTrace {
 public:
  PCRLDistPointsUtil() : PTrace("PCRLDistPointsUtil") {}

  // Decodes the extension value (the octets inside extnValue); 0 or the
  // decoder's code under field "crlDistributionPointsSyntax".
  int parseCRLDistributionPoint(const ByteString& bsExtValue);
  // Takes an already decoded list.
  void setDistributionPoints(const RCRLDistPointsSyntax& points);
  // Writes the text above to out (replacing it); 0 or the failing code.
  int makeDistributionPointMessage(ByteString* out);
  // The cRLIssuer names of every point, each a TAB-prefixed line; 0, or
  // PCERT_ERR_ABSENT when no point names one.
  int getCRLIssuer(ByteString* out);
  int getCount() const { return m_points.getCount(); }
  const RCRLDistPointsSyntax& getDistributionPoints() const { return m_points; }

 private:
  RCRLDistPointsSyntax m_points;
  ByteString m_bsCRLIssuer;
};
