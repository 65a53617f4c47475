// A DSA public key with its domain parameters, or the parameters alone:
//   Dss-Parms ::= SEQUENCE { p INTEGER, q INTEGER, g INTEGER }   (RFC 3279 2.3.2)
//   DSAPublicKey with parameters ::= SEQUENCE { y INTEGER,       (the traditional
//       p INTEGER, q INTEGER, g INTEGER }                         DSA public key file)
// RFC 3279 makes the public value y (DSAPublicKey ::= INTEGER) and the
// Dss-Parms separate; a key that travels alone carries both, y first.
// Three components decode as the parameters, four as the key; any other
// count fails with "The number of components is not 3." (fewer than three)
// or "The number of components is not 4." (more than four).
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

// The Dss-Parms components; the key form puts y in front of them.
#define RDSAPublicKey_COMPONENTS(X)                             \
  X(ASN1Integer, P, p, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY) \
  X(ASN1Integer, Q, q, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY) \
  X(ASN1Integer, G, g, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class RDSAPublicKey : public RStructure {
  R_COMPONENTS(RDSAPublicKey)

 public:
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;
  // The public value; setY makes the object the four-component key form,
  // clearY the three-component parameters.
  const ASN1Integer& getY() const { return m_y; }
  void setY(const ASN1Integer& y) {
    m_y = y;
    m_bPublicValue = true;
  }
  void clearY() { m_bPublicValue = false; }
  bool hasY() const { return m_bPublicValue; }

 protected:
  const RSchema& schema() const override { return m_bPublicValue ? kKeySchema : kParmsSchema; }

 private:
  ASN1Integer m_y;
  static const RField kKeyFields[];
  static const RField kParmsFields[];
  static const RSchema kKeySchema;
  static const RSchema kParmsSchema;
  bool m_bPublicValue = false;
};
