// Texts and codes of making and opening a CMS EnvelopedData, each written
// once. The spellings are the library's own and callers compare them.
#pragma once

#include "ZENALib/QSProcess/PCertMessages.h"

namespace penv {

// Recipient kinds (choiceRecipientType) and recipient name forms
// (choiceRecipientIdentifier).
constexpr int KEY_TRANS_RECIPIENT_INFO = 1;
constexpr int KEY_AGREE_RECIPIENT_INFO = 2;
constexpr int KEK_RECIPIENT_INFO = 3;
constexpr int ISSUERANDSERIALNUMBER = 1;
constexpr int SUBJECT_KEY_IDENTIFIER = 2;
// How a key-agreement originator is named: as the recipient forms above, or
// by its public key (ORIGINATOR_KEY).
constexpr int ORIGINATOR_KEY = 3;

// Object identifiers as text.
inline constexpr char kOidData[] = "1 2 840 113549 1 7 1";
inline constexpr char kOidEnvelopedData[] = "1 2 840 113549 1 7 3";
inline constexpr char kOidESDH[] = "1 2 840 113549 1 9 16 3 5";
inline constexpr char kOidSSDH[] = "1 2 840 113549 1 9 16 3 10";
inline constexpr char kOidStdDHSha1Kdf[] = "1 3 133 16 840 63 0 2";
inline constexpr char kOidCofactorDHSha1Kdf[] = "1 3 133 16 840 63 0 3";
inline constexpr char kOidMqvSha1Kdf[] = "1 3 133 16 840 63 0 16";
inline constexpr char kOidCipher3060[] = "1 2 410 100001 1 3";

// PEnvelopedData
inline constexpr char kRecipientTypeInput[] =
    "input error(input KEY_TRANS_RECIPIENT_INFO or KEY_AGREE_RECIPIENT_INFO or KEK_RECIPIENT_INFO)";
inline constexpr char kRecipientIdInput[] = "input error(input ISSUERANDSERIALNUMBER or SUBJECT_KEY_IDENTIFIER)";
inline constexpr char kUnknownSymmetric[] = "Unknown symmetric algoritm.";
inline constexpr char kSymmetricKeyNotSet[] = "Symmetric key is not set!";
inline constexpr char kOaepOnly[] = "The RSA OAEP supported only for 1024, 2048bit";
inline constexpr char kDsaKcdsa[] = "Can't encrypt key by dsa or kcdsa algorithm.";
inline constexpr char kSetOriginator[] = "You must set originator certificate(or publicKeyInfo) and PrivateKeyInfo.";
inline constexpr char kChooseOriginator[] = "You must choose OriginatorIdentifierorKey type.";
inline constexpr char kChooseRecipientId[] = "You must choose RecipientIdentifier type.";
inline constexpr char kEcmqv[] = "1-Pass ECMQV Algorithm is not supported.";
inline constexpr char kUnknownKeyAgreement[] = "Unknown Key Agreement algorithm.";
inline constexpr char kSymAlgAlgorithmNotSupported[] = "m_nSymmetricAlgorithmId(%d) algorithm is not supported.";
inline constexpr char kSymAlgNotSupported[] = "m_nSymmetricAlgorithmId(%d) is not supported.";
inline constexpr char kCekNotSet[] = "Content encryption key does not set.";
inline constexpr char kKekNotSet[] = "KeyEncrytionKey does not set.";
inline constexpr char kKekAlgNotSupported[] = "Not supported key encrtyption algorithm.";
// (no recipient added before makeEnvelopedData: RecipientInfos needs one)
inline constexpr char kNoRecipient[] = "RecipientInfos is empty.";

// PEnvelopedDataProcess
inline constexpr char kNotEnvelopedData[] = "It is not envelopedData.";
inline constexpr char kNotInRecipientInfos[] = "Your information does not exist in RecipientInfos";
inline constexpr char kUnknownRecipientInfoType[] = "Unknown RecipientInfo type.";
inline constexpr const char* kMakeDNFailed = kMsgMakeDNFailed;  // shared with the name utilities
inline constexpr char kUnknownRecipientId[] = "Unknown recipient identifier.";
inline constexpr char kOnlySha1Oaep[] = "Only sha1 with RSA-OAEP is supported.";
inline constexpr char kKariVersion[] = "keyAgreementRecipientInfo version must be 3.";
inline constexpr char kUnknownOriginator[] = "Unknown originatorIdentifierOrKey type.";
inline constexpr char kUnknownKariRid[] = "Unknown KeyAgreeRecipientIdentifier type.";
inline constexpr char kAlgorithmUnknown[] = "bsAlgorithm(%s) is unknown algorithm.";
inline constexpr char kKeyWrapUnknown[] = "bsKeyWrapAlgorithm(%s) is unknown algorithm.";
inline constexpr char kNeedOriginatorCert[] = "You need Originaotr certificate.";
inline constexpr char kOnlyX509[] = "Not support except x509Certficate.";
inline constexpr char kFindOriginatorFailed[] = "Find Orifinator publickey is failed.";
inline constexpr char kKekriVersion[] = "kekRecipientInfo version must be 4.";
inline constexpr char kRC2VersionNotSupported[] = "lRC2Version(%d) is not supported.";
inline constexpr char kUnknownKekAlg[] = "Unknown Key encryption algorithm.";
inline constexpr char kIVNotExist[] = "IV does not exist.";
inline constexpr char kNoEncryptedContent[] = "The encrypted content does not exist.";

// Codes. PEnvelopedData:
constexpr int ERR_UNKNOWN_SYMMETRIC = 1;  // also a bad choiceRecipientType argument
constexpr int ERR_RECIPIENT_ID_INPUT = 2;
constexpr int ERR_SYMMETRIC_KEY_NOT_SET = 14;
constexpr int ERR_DSA_KCDSA = 15;
constexpr int ERR_OAEP_SIZE = 16;
constexpr int ERR_SET_ORIGINATOR = 20;
constexpr int ERR_CHOOSE_ORIGINATOR = 21;
constexpr int ERR_CHOOSE_RECIPIENT_ID = 22;
constexpr int ERR_ECMQV = 23;
constexpr int ERR_UNKNOWN_KEY_AGREEMENT = 24;
constexpr int ERR_SYM_ALG_NOT_SUPPORTED = 25;
constexpr int ERR_CEK_NOT_SET = 30;
constexpr int ERR_KEK_NOT_SET = 31;
constexpr int ERR_KEK_ALG_NOT_SUPPORTED = 32;
constexpr int ERR_NO_RECIPIENT = 33;
// PEnvelopedDataProcess:
constexpr int ERR_NOT_ENVELOPED_DATA = 2;
constexpr int ERR_NOT_IN_RECIPIENT_INFOS = 5;
constexpr int ERR_UNKNOWN_RECIPIENT_INFO_TYPE = 6;
constexpr int ERR_MAKE_DN = 7;
constexpr int ERR_UNKNOWN_RECIPIENT_ID = 8;
constexpr int ERR_ONLY_SHA1_OAEP = 9;
constexpr int ERR_KARI_VERSION = 10;
constexpr int ERR_UNKNOWN_ORIGINATOR = 11;
constexpr int ERR_UNKNOWN_KARI_RID = 12;
constexpr int ERR_IV_NOT_EXIST = 13;
constexpr int ERR_ALGORITHM_UNKNOWN = 14;
constexpr int ERR_KEY_WRAP_UNKNOWN = 15;
constexpr int ERR_NEED_ORIGINATOR_CERT = 16;
constexpr int ERR_ONLY_X509 = 17;
constexpr int ERR_FIND_ORIGINATOR = 18;
constexpr int ERR_KEKRI_VERSION = 19;
constexpr int ERR_RC2_VERSION = 20;
constexpr int ERR_UNKNOWN_KEK_ALG = 21;
constexpr int ERR_NO_ENCRYPTED_CONTENT = 22;
constexpr int ERR_NOT_PARSED = 23;  // getContent before a recipient entry was opened

}  // namespace penv
