#include "ZENALib/QSProcess/PTimeStampResponseProcess.h"

#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PExtKeyUsageUtil.h"
#include "ZENALib/QSProcess/PNameMatch.h"
#include "ZENALib/QSProcess/PGeneralNameUtil.h"
#include "ZENALib/QSProcess/PSignedDataMessages.h"

namespace {

// A Name's encoding without the [4] tag it carries inside a GeneralName.
ByteString Untagged(const ByteString& bsName) {
  RElementHeader h;
  if (bsName.length() == 0 || bsName.data()[0] != 0xA4 || RReadHeader(bsName.data(), bsName.length(), &h)) {
    return bsName;
  }
  return bsName.mid(h.headerLength, bsName.length() - h.headerLength);
}

}  // namespace

int PTimeStampResponseProcess::parseTimeStampToken(const ByteString& tsToken) {
  static const char kM[] = "parseTimeStampToken";
  m_bParsed = false;
  m_pTSTInfo.reset();
  m_bsTSACert = ByteString();
  RContentInfo ci;
  if (ci.fromASN1Object(tsToken)) return P_FAIL(kM, "tsToken", ERR_DECODE, ci.getErrorMessage().c_str());
  if (ci.getContentType().getOID() != psdoid::kSignedData) {
    return P_FAIL(kM, "contentType", ERR_NOT_SIGNED_DATA, psdmsg::kTsNotSignedData);
  }
  if (m_signedDataProcess.parseSignedData(tsToken)) {
    return P_FAIL(kM, "m_signedDataProcess", ERR_SIGNED_DATA, m_signedDataProcess.getErrorMessage().c_str());
  }
  if (m_signedDataProcess.getContentType() != psdoid::kTSTInfo) {
    return P_FAIL(kM, "eContentType", ERR_NOT_TSTINFO, psdmsg::kTsNotTSTInfo);
  }
  auto info = std::make_unique<RTSTInfo>();
  if (info->fromASN1Object(m_signedDataProcess.getContent())) {
    return P_FAIL(kM, "m_pTSTInfo", ERR_DECODE, info->getErrorMessage().c_str());
  }
  if (info->getVersion().getValue().length() != 1 || info->getVersion().getInteger() != 1) {
    return P_FAIL(kM, "m_pTSTInfo.version", ERR_VERSION, psdmsg::kTsVersion);
  }
  int signers = 0;
  m_signedDataProcess.getSignerInfoCnt(&signers);
  if (signers != 1) return P_FAIL(kM, "signerInfos", ERR_SIGNER_COUNT, psdmsg::kTsOneSigner);
  RAttribute attr;
  if (m_signedDataProcess.getSignerAttribute(0, psdoid::kSigningCertificate, &attr)) {
    return P_FAIL(kM, "signingCertificate", ERR_SIGNING_CERT, m_signedDataProcess.getErrorMessage().c_str());
  }
  ByteString cert;
  if (m_signedDataProcess.getSignerCert(0, &cert)) {
    return P_FAIL(kM, "signerCert", ERR_NO_SIGNER_CERT, psdmsg::kTsNoSignerCert);
  }
  m_pTSTInfo = std::move(info);
  if (int rc = checkTsaName(cert)) return rc;
  if (int rc = checkKeyPurpose(cert)) return rc;
  m_bsTSACert = cert;
  m_bParsed = true;
  return 0;
}

int PTimeStampResponseProcess::checkTsaName(const ByteString& bsCert) {
  if (!m_pTSTInfo->hasTsa()) return 0;
  PCertUtil util;
  if (util.parseCertificate(bsCert)) {
    return P_FAIL("parseTimeStampToken", "tsaCert", ERR_DECODE, util.getErrorMessage().c_str());
  }
  RGeneralName tsa = m_pTSTInfo->getTsa();
  const ByteString tsaDer = tsa.toASN1Object();
  ByteString subjectDN, tsaText;
  util.getSubjectDN(&subjectDN);
  PGeneralNameUtil names;
  if (!tsa.isDirectoryName() || util.getDN(tsa.getDirectoryName(), &tsaText)) names.parseGeneralName(tsa, &tsaText);
  // The subject as a directoryName, then each subjectAltName.
  int nRet = 1;
  RRDNSequence subject;
  // A TSA may write its name in other string types than its certificate.
  if (tsa.isDirectoryName() && util.getSubject(&subject) == 0 &&
      (Untagged(tsa.getDirectoryName().toASN1Object()) == Untagged(subject.toASN1Object()) ||
       PNameMatch::SameName(tsa.getDirectoryName(), subject))) {
    nRet = 0;
  }
  RGeneralNames alt;
  if (nRet != 0 && util.getSubjectAltNames(&alt) == 0) {
    for (int i = 0; i < alt.getCount() && nRet != 0; ++i) {
      RGeneralName n = *alt.getAt(i);
      if (n.toASN1Object() == tsaDer) nRet = 0;
    }
  }
  if (nRet == 0) return 0;
  ByteString log;
  log.format(psdmsg::kTsCompareLog, nRet, tsaText.c_str(), subjectDN.c_str());
  failAs(__FILE__, __LINE__, "CTimeStampResponseProcess", "CompareByName", "nRet", ERR_TSA_NAME, log.c_str());
  ByteString message(psdmsg::kTsName);
  message += " ";
  message += m_bsErrorMsg;
  return P_FAIL("parseTimeStampToken", "tsa", ERR_TSA_NAME, message.c_str());
}

int PTimeStampResponseProcess::checkKeyPurpose(const ByteString& bsCert) {
  PCertUtil util;
  if (util.parseCertificate(bsCert) == 0) {
    for (int i = 0; i < util.getExtensionCount(); ++i) {
      ByteString id, value;
      if (util.getExtensionID(i, &id) || id != "2 5 29 37" || util.getExtensionValue(i, &value)) continue;
      PExtKeyUsageUtil eku;
      if (eku.parseExtKeyUsage(value)) continue;
      for (int k = 0; k < eku.getCount(); ++k) {
        ByteString purpose;
        if (eku.getKeyPurposeID(k, &purpose) == 0 && purpose == psdoid::kTimeStamping) return 0;
      }
    }
  }
  return P_FAIL("parseTimeStampToken", "extKeyUsage", ERR_KEY_PURPOSE, psdmsg::kTsKeyPurpose);
}

int PTimeStampResponseProcess::checkParsed(const char* pszMethod) {
  return m_bParsed ? 0 : P_FAIL(pszMethod, "m_pTSTInfo", ERR_NOT_PARSED, nullptr);
}

int PTimeStampResponseProcess::getTSACert(ByteString* out) {
  if (!m_bParsed || m_bsTSACert.length() == 0) {
    return P_FAIL("getTSACert", "signerCert", ERR_NO_SIGNER_CERT, psdmsg::kTsNoSignerCert);
  }
  *out = m_bsTSACert;
  return 0;
}

int PTimeStampResponseProcess::getPolicy(ByteString* out) {
  if (int rc = checkParsed("getPolicy")) return rc;
  *out = m_pTSTInfo->getPolicy().getOID();
  return 0;
}

int PTimeStampResponseProcess::getHashAlg(ByteString* out) {
  if (int rc = checkParsed("getHashAlg")) return rc;
  *out = m_pTSTInfo->getMessageImprint().getHashAlgorithm().getAlgorithm().getOID();
  return 0;
}

int PTimeStampResponseProcess::getHashedMsg(ByteString* out) {
  if (int rc = checkParsed("getHashedMsg")) return rc;
  *out = m_pTSTInfo->getMessageImprint().getHashedMessage().getValue();
  return 0;
}

int PTimeStampResponseProcess::getSerialNum(ByteString* out) {
  if (int rc = checkParsed("getSerialNum")) return rc;
  *out = m_pTSTInfo->getSerialNumber().getValue();
  return 0;
}

int PTimeStampResponseProcess::getNonce(ByteString* out) {
  if (int rc = checkParsed("getNonce")) return rc;
  if (!m_pTSTInfo->hasNonce()) return P_FAIL("getNonce", "nonce", ERR_NO_NONCE, psdmsg::kTsNoNonce);
  *out = m_pTSTInfo->getNonce().getValue();
  return 0;
}
