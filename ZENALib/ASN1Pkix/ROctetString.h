// ROctetString: an OCTET STRING member that may arrive in the BER
// constructed form (a series of OCTET STRING segments, possibly under an
// indefinite length), as streaming CMS writers produce for eContent and
// encryptedContent. Decoding joins the segments into one value; encoding
// writes the primitive DER form. The primitive form decodes as
// ASN1OctetString does. Under an explicit tag the element inside must be an
// OCTET STRING (code 2 otherwise).
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"

class ROctetString : public ASN1OctetString {
 public:
  int fromASN1Object(const ByteString& bsData) override { return fromASN1View(viewOf(bsData), bsData.length()); }
  int fromASN1View(const unsigned char* pData, int nData) override;

 private:
  // Checks the segments in (p, n) and adds their length to *pnLength; with
  // pOut, first copies each to pOut + *pnLength. 0 or R_ERR_FORMAT.
  static int joinSegments(const unsigned char* p, int n, int nDepth, unsigned char* pOut, int* pnLength);
};
