#include "ZENALib/QSProcess/PIdentifyDataUtil.h"

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RHashContent.h"
#include "ZENALib/ASN1Pkix/RIdentifyData.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PCertUtil.h"

namespace {
constexpr char kMethod[] = "verifyVIDWithCert";
constexpr char kOidIdentifyData[] = "1 2 410 200004 10 1 1";
}  // namespace

int PIdentifyDataUtil::verifyVIDWithCert(const ByteString& bsCert, const ByteString& bsIdn,
                                         const ByteString& bsRandom) {
  PCertUtil certUtil;
  if (certUtil.parseCertificate(bsCert) != 0)
    return P_FAIL(kMethod, "certUtil", ERR_CERTIFICATE, certUtil.getErrorMessage().c_str());
  RGeneralNames names;
  if (certUtil.getSubjectAltNames(&names) != 0)
    return P_FAIL(kMethod, "subjectAltName", ERR_NO_VID, certUtil.getErrorMessage().c_str());
  RVID vid;
  bool found = false;
  for (int i = 0; i < names.getCount() && !found; ++i) {
    RGeneralName* name = names.getAt(i);
    if (!name->isOtherName()) continue;
    ASN1ObjectIdentifier typeId = name->getOtherName().getTypeId();
    if (typeId.getOID() != kOidIdentifyData) continue;
    RIdentifyData identifyData;
    found = identifyData.fromASN1Object(name->getOtherName().getNameValue().getElement()) == 0 &&
            identifyData.getVID(0, &vid) == 0;
  }
  if (!found) return P_FAIL(kMethod, "identifyData", ERR_NO_VID, "The certificate has no VID.");

  ASN1ObjectIdentifier hashOid = vid.getHashAlg().getAlgorithm();
  const int hashAlg = PAlgorithmUtil::hashCode(hashOid.getOID().c_str());
  if (hashAlg == 0) return P_FAIL(kMethod, "hashAlg", ERR_HASH, "Unknown VID hash algorithm.");

  RHashContent content;
  if (content.getIdn().setValue(bsIdn) != 0)
    return P_FAIL(kMethod, "idn", ERR_MISMATCH, "The idn is not a PrintableString.");
  content.getRandomNum().setBitString(bsRandom, 0);
  const ByteString der = content.toASN1Object();
  QSHash hash;
  ByteString once, twice;
  if (hash.DigestData(hashAlg, der, once) != 0 || hash.DigestData(hashAlg, once, twice) != 0)
    return P_FAIL(kMethod, "qsHash", ERR_HASH, hash.GetErrorMsg().c_str());
  if (twice != vid.getVirtualID().getValue())
    return P_FAIL(kMethod, "virtualID", ERR_MISMATCH, "The VID does not match.");
  return m_nErrorCode = 0;
}
