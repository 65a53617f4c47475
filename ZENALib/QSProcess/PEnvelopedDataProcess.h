// PEnvelopedDataProcess: opens a CMS EnvelopedData (RFC 5652 6).
//
//   PEnvelopedDataProcess proc;
//   proc.setRecipientIdentifier(myCert);       // how our entry is found
//   proc.parseEnvelopedData(der, myPrivateKey) // PKCS#8 DER
//   proc.getContent(content);
//
// parseEnvelopedData takes a ContentInfo or a bare EnvelopedData, finds the
// caller's RecipientInfo (key transport by issuerAndSerialNumber or key
// identifier, key agreement by the same in recipientEncryptedKeys, a KEK
// entry by the identifier of setKeyEncryptionKey), recovers the content key
// and checks the content-encryption algorithm; getContent decrypts. Every
// method returns 0 or a positive code (PEnvelopedMessages.h) with the
// failure in the trace.
#pragma once

#include <memory>

#include "ZENALib/ASN1Pkix/REnvelopedData.h"
#include "ZENALib/QSProcess/PEnvelopedMessages.h"
#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

struct ECSP_KEY;

class PEnvelopedDataProcess : public PTrace {
 public:
  PEnvelopedDataProcess();
  ~PEnvelopedDataProcess();
  PEnvelopedDataProcess(const PEnvelopedDataProcess&) = delete;
  PEnvelopedDataProcess& operator=(const PEnvelopedDataProcess&) = delete;

  // getPureEnvData: the EnvelopedData inside a DER ContentInfo. Code 2 "It
  // is not envelopedData." for another content type; the decoder's code.
  int getPureEnvData(const ByteString& bsDer, ByteString& bsEnvData);
  // setRecipientIdentifier: remembers the certificate's issuer name (as
  // text), serial number and key identifiers (the SHA-1 of its public key
  // bits and, when present, its subjectKeyIdentifier extension).
  int setRecipientIdentifier(const ByteString& bsCert);
  // The key identifier a sender names the certificate by: the extension's
  // value when present, the key hash otherwise.
  const ByteString& getKeyIdentifier() const {
    return m_bsSubjectKeyIdentifier.length() ? m_bsSubjectKeyIdentifier : m_bsKeyHash;
  }
  // setKeyEncryptionKey: the shared key of a KEK recipient and its identifier.
  void setKeyEncryptionKey(const ByteString& bsKEK, const ByteString& bsKeyIdentifier);

  // decodeEnvelopedData: decodes a ContentInfo or bare EnvelopedData for
  // reading (getEnvelopedData) without opening it.
  int decodeEnvelopedData(const ByteString& bsDer);
  const REnvelopedData& getEnvelopedData() const { return m_env; }
  // parseEnvelopedData: decodes and opens with bsPrivateKey (PKCS#8 DER;
  // may be empty for a KEK recipient). Code 5 "Your information does not
  // exist in RecipientInfos" when no entry is ours.
  int parseEnvelopedData(const ByteString& bsDer, const ByteString& bsPrivateKey);
  // getContent: the decrypted content of the opened envelope.
  int getContent(ByteString& bsContent);
  // Position of the RecipientInfo that was opened, -1 before.
  int getRecipientIndex() const { return m_nRecipientIndex; }

  // The steps of parseEnvelopedData, each on the decoded envelope.
  int findMyRecipientInfo();
  // Each sets *pbFound and, when found, the content key.
  int findInKeyTransRecipientInfo(RKeyTransRecipientInfo& ktri, bool* pbFound);
  int findInKeyAgreeRecipientInfo(RKeyAgreeRecipientInfo& kari, bool* pbFound);
  int findInKEKRecipientInfo(RKEKRecipientInfo& kekri, bool* pbFound);
  // findOriginaterPubKey: the SubjectPublicKeyInfo (DER) of the originator's
  // certificate among the envelope's certificates.
  int findOriginaterPubKey(ROriginatorIdentifierOrKey& originator, ByteString& bsPubKeyInfo);

 private:
  // Whether an issuerAndSerialNumber or key identifier names our certificate.
  int matchIssuerAndSerial(const char* pszMethod, const RIssuerAndSerialNumber& ias, bool* pbMatch);
  bool matchKeyIdentifier(const ByteString& bsKeyId) const;
  int unwrapKey(const char* pszMethod, RAlgorithmIdentifier& wrapAlg, const ByteString& bsKEK,
                const ByteString& bsWrapped, int nUnknownCode, const char* pszUnknown);
  int contentAlgorithm();
  // RSA decryption of the key-transport key with the caller's private key,
  // parsed once per object: a process opening many envelopes with one key
  // keeps the parsed key (and the core's precomputation with it).
  int decryptKey(const char* pszMethod, bool bOaep, const ByteString& bsEncrypted);

  ByteString m_bsIssuerDN;
  ByteString m_bsSerial;
  ByteString m_bsKeyHash;
  ByteString m_bsSubjectKeyIdentifier;
  ByteString m_bsKEK;
  ByteString m_bsKEKIdentifier;
  ByteString m_bsPrivateKey;
  ByteString m_bsCEK;
  ByteString m_bsIv;
  int m_nContentAlg = 0;
  int m_nContentMode = 0;
  int m_nRecipientIndex = -1;
  bool m_bDecoded = false;
  REnvelopedData m_env;
  std::unique_ptr<ECSP_KEY> m_pKey;  // parsed from m_bsKeyOf
  ByteString m_bsKeyOf;
  int m_nKeyAlg = 0;  // its size code (4000-4002)
};
