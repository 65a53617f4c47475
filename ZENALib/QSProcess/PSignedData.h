// PSignedData: makes a CMS SignedData (RFC 5652 5) inside a ContentInfo,
// one SignerInfo per signer, or adds signers to an existing one.
//
//   PSignedData sd;
//   sd.setTobeSignedData(content);                 // or setSignedData(old)
//   sd.addSignerInfo(cert, privateKeyInfo, 1011);  // one call per signer
//   sd.makeSignedData(der);
//
// Signers are named by issuerAndSerialNumber (SignerInfo version 1). Signed
// attributes are contentType, signingTime, messageDigest and
// signingCertificate, in that order, then any added with addSignedAttr; the
// SET is put in DER order before it is signed. Every method returns 0 or a
// positive code and leaves the failure in the trace (PTrace.h).
#pragma once

#include <vector>

#include "ZENALib/ASN1Pkix/RAttributes.h"
#include "ZENALib/ASN1Pkix/RSignedData.h"
#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PSignedData : public PTrace {
 public:
  // The most signed attributes one SignerInfo may carry.
  static constexpr int MAX_SIGNED_ATTRS = 8;

  PSignedData();

  // The content to sign. bDetached leaves it out of the SignedData;
  // bAsn1 asks for it to be one whole DER element (code 1 "The content is
  // not asn.1 format." otherwise). pszContentType is the eContentType
  // (data when null).
  int setTobeSignedData(const ByteString& bsContent, bool bDetached = false, bool bAsn1 = false,
                        const char* pszContentType = nullptr);
  // An existing SignedData (DER ContentInfo) to add signers to. Code 1 for
  // a ContentInfo that does not decode, 2 "It is not signedData.", 3 for a
  // SignedData that does not decode, 4 "The SignedData does not contain
  // contents. so, Set to be signed content." when it is detached: the
  // SignedData is kept and setTobeSignedData(content, true) must follow.
  int setSignedData(const ByteString& bsContentInfo);
  // A certificate for the certificates set (DER); code 1 if it does not
  // decode. A certificate already present is not added twice.
  int addSignerCert(const ByteString& bsCert);
  // The digest AlgorithmIdentifier of nHashAlg into digestAlgorithms, once.
  int addAlgToDigestAlgorithmIdentifiers(int nHashAlg);
  // An extra signed attribute for the next signers, after the four.
  void addSignedAttr(const RAttribute& attr) { m_extraAttrs.push_back(attr); }
  // The signed attributes for a signer certificate (DER) and hash, in DER
  // order. Code 1 "The supported attribute maximum count is 8.".
  int makeSignedAttrs(const ByteString& bsCert, int nHashAlg, RAttributes& attrs);
  // Signs the content for one more signer: bsPrivateKey is a PKCS#8
  // PrivateKeyInfo, nHashAlg a hash code (0 is SHA-1). With bSignedAttrs
  // false the signature covers the content itself. The signer certificate
  // joins the certificates set.
  int addSignerInfo(const ByteString& bsCert, const ByteString& bsPrivateKey, int nHashAlg, bool bSignedAttrs = true);
  // The bytes a signer signs: the DER SET of the attributes when there are
  // any, the content otherwise.
  int getTBSData(const RAttributes* pAttrs, ByteString& bsTBS);
  // The attributes as a DER SET (RFC 5652 5.4: SET OF in DER order, each
  // encoding compared as octets, a shorter prefix first).
  static int BER2DER(const RAttributes& attrs, RAttributes& sorted, ByteString& bsDER);
  // The ContentInfo holding the SignedData (DER). Code 1 without a signer.
  int makeSignedData(ByteString& bsOut);

 private:
  // The signing key for the crypto core and the signature algorithm code.
  int signingKey(const ByteString& bsCert, const ByteString& bsPrivateKey, int nHashAlg, ByteString& bsCoreKey,
                 int* pnSignAlg);

  RSignedData m_signedData;
  ByteString m_bsContent;
  ByteString m_bsContentType;
  bool m_bHaveContent = false;
  bool m_bDetached = false;
  std::vector<RAttribute> m_extraAttrs;
};
