// PEnvelopedData: makes a CMS EnvelopedData (RFC 5652 6) in a ContentInfo
// for one or more recipients.
//
//   PEnvelopedData env;
//   env.makeSymetricKey(3011, key, iv);        // content algorithm, key, IV
//   env.choiceRecipientType(penv::KEY_TRANS_RECIPIENT_INFO);
//   env.choiceRecipientIdentifier(penv::ISSUERANDSERIALNUMBER);
//   env.addRecipientByCert(cert);              // once per recipient
//   env.makeEnvelopedData(content, der);
//
// Recipient kinds: key transport (RSA, PKCS#1 v1.5 or OAEP), key agreement
// (ECDH single-pass with the SHA-1 KDF, DH ephemeral-static or
// static-static; the content key wrapped by RFC 3217), and a key-encryption
// key known to both sides. Every method returns 0 or a positive code
// (PEnvelopedMessages.h) with the failure in the trace; a failed addRecipient
// leaves the RecipientInfos built so far as they were.
#pragma once

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RRecipientInfos.h"
#include "ZENALib/QSProcess/PEnvelopedMessages.h"
#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PEnvelopedData : public PTrace {
 public:
  PEnvelopedData() : PTrace("PEnvelopedData") {}
  ~PEnvelopedData();
  PEnvelopedData(const PEnvelopedData&) = delete;
  PEnvelopedData& operator=(const PEnvelopedData&) = delete;

  // penv::KEY_TRANS_RECIPIENT_INFO, KEY_AGREE_RECIPIENT_INFO or
  // KEK_RECIPIENT_INFO; code 1 otherwise.
  int choiceRecipientType(int nType);
  // penv::ISSUERANDSERIALNUMBER or SUBJECT_KEY_IDENTIFIER; code 2 otherwise.
  int choiceRecipientIdentifier(int nIdentifier);
  // Key transport with RSA-OAEP (SHA-1) instead of PKCS#1 v1.5.
  void setOAEP(bool bOaep) { m_bOaep = bOaep; }
  // Key agreement with 1-pass ECMQV for an EC recipient (refused: code 23).
  void setECMQV(bool bEcmqv) { m_bEcmqv = bEcmqv; }

  // makeSymetricKey: draws a random content key and IV for nEncAlg (lengths
  // by the table in the .cpp), hands them out and keeps them, with the
  // algorithm in CBC mode, for the envelope. Code 1 "Unknown symmetric
  // algoritm." for another code; the random service's code otherwise.
  int makeSymetricKey(int nEncAlg, ByteString& bsKey, ByteString& bsIv);
  // setSymmetricKey: the same with a key and IV of the caller's.
  void setSymmetricKey(int nEncAlg, const ByteString& bsKey, const ByteString& bsIv);

  // setOriginator (key agreement): the originator's DER certificate or
  // SubjectPublicKeyInfo, how it is named (penv::ISSUERANDSERIALNUMBER or
  // SUBJECT_KEY_IDENTIFIER, which need a certificate, or
  // penv::ORIGINATOR_KEY) and its PKCS#8 private key. With a DH key,
  // ORIGINATOR_KEY makes the ephemeral-static scheme, a certificate the
  // static-static one.
  void setOriginator(const ByteString& bsCertOrPubKeyInfo, int nOriginatorIdentifierorKey,
                     const ByteString& bsPrivateKey);
  // setKeyEncryptionKey (KEK recipients): the shared key and its identifier.
  void setKeyEncryptionKey(const ByteString& bsKEK, const ByteString& bsKeyIdentifier);

  // addRecipientByCert: one RecipientInfo of the chosen kind for the DER
  // certificate. addRecipient: the same, or for KEK_RECIPIENT_INFO one entry
  // under the key set by setKeyEncryptionKey (bsCert is not read).
  int addRecipientByCert(const ByteString& bsCert);
  int addRecipient(const ByteString& bsCert);
  int getRecipientCount() const { return m_pRecipientInfos.getCount(); }

  // makeEnvelopedData: encrypts bsContent (id-data) with the content key and
  // writes ContentInfo { envelopedData, EnvelopedData } into bsDer.
  int makeEnvelopedData(const ByteString& bsContent, ByteString& bsDer);

 private:
  // A recipient certificate read once: its DER, its decoding, its
  // SubjectPublicKeyInfo as it stands and the key's algorithm OID.
  struct Recipient {
    const ByteString& der;
    const RCertificate& cert;
    const ByteString& spki;
    const ByteString& oid;
  };
  int recipientInfoIsKTRI(const Recipient& recipient, RRecipientInfo& ri);
  int recipientInfoIsKARI(const Recipient& recipient, RRecipientInfo& ri);
  int recipientInfoIsKEKRI(RRecipientInfo& ri);
  // The key-wrap AlgorithmIdentifier (DER) for the content algorithm; 0 or
  // ERR_SYM_ALG_NOT_SUPPORTED with the text of the given method.
  int keyWrapAlgorithm(const char* pszMethod, bool bKeyAgreement, ByteString& bsWrapAlgID);
  int wrapKey(const char* pszMethod, const ByteString& bsKEK, ByteString& bsWrapped);

  int m_nRecipientType = 0;
  int m_nRecIdentifier = 0;
  bool m_bOaep = false;
  bool m_bEcmqv = false;
  int m_nSymmetricAlgorithmId = 0;
  int m_nSymmetricMode = 0;
  ByteString m_bsKey;
  ByteString m_bsIv;
  ByteString m_bsOriginatorCertOrPubKeyInfo;
  int m_nOriginatorIdentifierorKey = 0;
  ByteString m_bsOriginatorPrivateKey;
  ByteString m_bsKEK;
  ByteString m_bsKEKIdentifier;
  RRecipientInfos m_pRecipientInfos;
};
