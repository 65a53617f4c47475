// Trace texts of the protocol layer: the Class::Method tags and the labels
// its failures are recorded under. Every file of the layer refers to these
// names; the texts reach applications through the detail text, so each is
// kept byte for byte.
#pragma once

namespace cl_text {

// Records.
inline constexpr char kAlertParseMethod[] = "CLAlert::ParseAlert";
inline constexpr char kAlertWhat[] = "Alert Message";
inline constexpr char kApplicationDataParseMethod[] = "CLApplicationData::ParseApplicationData";
inline constexpr char kApplicationDataWhat[] = "Application Data Message";
inline constexpr char kHandshakeParseMethod[] = "CLHandshake::ParseHandshake";
inline constexpr char kHandshakeWhat[] = "Secure Message";
inline constexpr char kPlainParseMethod[] = "CLPlain::ParsePlain";
inline constexpr char kPlainWhat[] = "Plain Message";

// Roaming message (both forms report under the short form's tag).
inline constexpr char kRoamingParseMethod[] = "CLRoamingMessage::ParseRoamingMessage";
inline constexpr char kRoamingNull[] = "RoamingMessage is NULL.";

// Secure manager: its method, then the record call that failed.
inline constexpr char kManagerMakePlainMethod[] = "CLSecureManager::MakePlainData";
inline constexpr char kManagerMakePlainWhat[] = "plain.MakePlain";
inline constexpr char kManagerParsePlainMethod[] = "CLSecureManager::ParsePlain";
inline constexpr char kManagerParsePlainWhat[] = "plain.ParsePlain";
inline constexpr char kManagerMakeAlertMethod[] = "CLSecureManager::MakeAlert";
inline constexpr char kManagerMakeAlertWhat[] = "alert.MakeAlert";
inline constexpr char kManagerParseAlertMethod[] = "CLSecureManager::ParseAlert";
inline constexpr char kManagerParseAlertWhat[] = "alert.ParseAlert";

// Secure manager: handshake and application data. The key-exchange steps
// record under the hello steps' names, as the protocol's traces always have.
inline constexpr char kManagerMakeClientHelloMethod[] = "CLSecureManager::MakeClientHello";
inline constexpr char kManagerParseClientHelloMethod[] = "CLSecureManager::ParseClientHello";
inline constexpr char kManagerMakeServerHelloMethod[] = "CLSecureManager::MakeServerHello";
inline constexpr char kManagerParseServerHelloMethod[] = "CLSecureManager::ParseServerHello";
inline constexpr char kManagerParseClientKeyExchangeMethod[] = "CLSecureManager::ParseClientKeyExchange";
inline constexpr char kManagerParseServerKeyExchangeMethod[] = "CLSecureManager::ParseServerKeyExchange";
inline constexpr char kManagerMakeApplicationDataMethod[] = "CLSecureManager::MakeApplicationData";
inline constexpr char kManagerParseApplicationDataMethod[] = "CLSecureManager::ParseApplicationData";
inline constexpr char kManagerProcessHandshakeMethod[] = "CLSecureManager::ProcessHandshake";
inline constexpr char kMakeHandshakeWhat[] = "handshake.MakeHandshake";
inline constexpr char kParseHandshakeWhat[] = "handshake.ParseHandshake";
inline constexpr char kMakeApplicationDataWhat[] = "applicationData.MakeApplicationData";
inline constexpr char kParseApplicationDataWhat[] = "applicationData.ParseApplicationData";
inline constexpr char kWrapperRandomWhat[] = "zenaWrapper.Random";
inline constexpr char kWrapperEncryptWhat[] = "zenaWrapper.Encrypt";
inline constexpr char kWrapperDecryptWhat[] = "zenaWrapper.Decrypt";
inline constexpr char kWrapperEnvelopWhat[] = "zenaWrapper.EnvelopData";
inline constexpr char kWrapperOpenEnvelopWhat[] = "zenaWrapper.OpenEnvelopedData";
inline constexpr char kStepParseClientHello[] = "ParseClientHello";
inline constexpr char kStepMakeServerHello[] = "MakeServerHello";
inline constexpr char kStepParseServerHello[] = "ParseServerHello";
inline constexpr char kStepMakeClientKeyExchange[] = "MakeClientKeyExchange";
inline constexpr char kStepParseClientKeyExchange[] = "ParseClientKeyExchange";
inline constexpr char kStepMakeServerKeyExchange[] = "MakeServerKeyExchange";
inline constexpr char kStepParseServerKeyExchange[] = "ParseServerKeyExchange";
inline constexpr char kUnknownHandshakeType[] = "Unknown Handshake Type...";

// Crypto wrappers.
inline constexpr char kCryptoEncryptMethod[] = "CLCrypto::Encrypt";
inline constexpr char kCryptoDecryptMethod[] = "CLCrypto::Decrypt";
inline constexpr char kCryptoRandomMethod[] = "CLCrypto::Random";
inline constexpr char kEncryptServiceWhat[] = "encrypt.EncryptData_NoGenKey";
inline constexpr char kDecryptServiceWhat[] = "encrypt.DecryptData_NoGenKey";
inline constexpr char kRandomServiceWhat[] = "random.GenerateRandom";
inline constexpr char kHashMakeHashMethod[] = "CLHash::MakeHash";
inline constexpr char kHashMakeHashBigMethod[] = "CLHash::MakeHashBig";
inline constexpr char kDigestWhat[] = "qsHash.DigestData";
inline constexpr char kDigestInitWhat[] = "qsHash.DigestData_Init";
inline constexpr char kDigestUpdateWhat[] = "qsHash.DigestData_Update";
inline constexpr char kDigestFinalWhat[] = "qsHash.DigestData_Final";

// Envelope wrapper.
inline constexpr char kEnvelopMethod[] = "CLEnvelopedData::Envelop";
inline constexpr char kOpenEnvelopMethod[] = "CLEnvelopedData::OpenEnvelop";
inline constexpr char kEnvelopAddRecipientWhat[] = "envData.addRecipientByCert";
inline constexpr char kEnvelopMakeWhat[] = "envData.makeEnvelopedData";
inline constexpr char kOpenSetRecipientWhat[] = "envDataProcess.setRecipientIdentifier";
inline constexpr char kOpenParseWhat[] = "envDataProcess.parseEnvelopedData";
inline constexpr char kOpenGetContentWhat[] = "envDataProcess.getContent";

// Facade: its method, then the wrapper call that failed.
inline constexpr char kZenaEncryptMethod[] = "CLZENAWrapper::Encrypt";
inline constexpr char kZenaDecryptMethod[] = "CLZENAWrapper::Decrypt";
inline constexpr char kZenaRandomMethod[] = "CLZENAWrapper::Random";
inline constexpr char kZenaMakeHashMethod[] = "CLZENAWrapper::MakeHash";
inline constexpr char kZenaMakeHashBigMethod[] = "CLZENAWrapper::MakeHashBig";
inline constexpr char kZenaEnvelopMethod[] = "CLZENAWrapper::EnvelopData";
inline constexpr char kZenaOpenEnvelopMethod[] = "CLZENAWrapper::OpenEnvelopedData";
inline constexpr char kZenaBase64EncMethod[] = "CLZENAWrapper::Base64Enc";
inline constexpr char kZenaBase64DecMethod[] = "CLZENAWrapper::Base64Dec";
inline constexpr char kCryptoEncryptWhat[] = "cLCrypto.Encrypt";
inline constexpr char kCryptoDecryptWhat[] = "cLCrypto.Decrypt";
inline constexpr char kCryptoRandomWhat[] = "cLCrypto.Random";
inline constexpr char kHashMakeHashWhat[] = "cLHash.MakeHash";
inline constexpr char kHashMakeHashBigWhat[] = "cLHash.MakeHashBig";
inline constexpr char kEnvelopWhat[] = "cLEnvelopedData.Envelop";
inline constexpr char kOpenEnvelopWhat[] = "cLEnvelopedData.OpenEnvelop";
inline constexpr char kBase64EncodeWhat[] = "QSBase::base64Encode";
inline constexpr char kBase64DecodeWhat[] = "QSBase::base64Decode";
inline constexpr char kBase64EncodeFail[] = "Base64 Encode Fail!!";
inline constexpr char kBase64DecodeFail[] = "Base64 Decode Fail!!";

// Certificate checks.
inline constexpr char kCertParseMethod[] = "CLCertificate::ParseCertificate";
inline constexpr char kCertCheckTermMethod[] = "CLCertificate::CheckTermOfValidaty";
inline constexpr char kCertCheckAtDateMethod[] = "CLCertificate::CheckValidityTermAtSpecialDate";
inline constexpr char kCertCheckCRLDPMethod[] = "CLCertificate::CheckCRLDP";
inline constexpr char kCertUtilParseWhat[] = "certUtil.parseCertificate";
inline constexpr char kCertGetVersionWhat[] = "certUtil.getVersion";
inline constexpr char kCertGetPolicyWhat[] = "certUtil.getPolicyIdentifier";
inline constexpr char kCertGetSignatureAlgorithmWhat[] = "certUtil.getCertSignatureAlgorithmValue";
inline constexpr char kCertGetIssuerDNWhat[] = "certUtil.getIssuerDN";
inline constexpr char kCertGetSubjectDNWhat[] = "certUtil.getSubjectDN";
inline constexpr char kCertGetDistPointsWhat[] = "certUtil.getCRLDistributionPoints";
inline constexpr char kCertDistPointWhat[] = "crlDPUtil.makeDistributionPointMessage";
inline constexpr char kCertGetSerialWhat[] = "certUtil.getSerialNumber";
inline constexpr char kCertGetValidityWhat[] = "certUtil.getValidity";
inline constexpr char kStartDateFormatWhat[] = "m_bsStartDate.format2K";
inline constexpr char kEndDateFormatWhat[] = "m_bsEndDate.format2K";
inline constexpr char kFormat2KFail[] = "Fail Format2K";
inline constexpr char kCheckValidityWhat[] = "Check Validity Of Cert";
inline constexpr char kParseCertificateWhat[] = "ParseCertificate";
inline constexpr char kCheckCRLDPWhat[] = "Check CRL DP";
inline constexpr char kCRLDPDetail[] = "CRL_DP";

// CRL and time-stamp wrappers (isRevocked is spelt so in every trace).
inline constexpr char kCrlIsRevockedMethod[] = "CLCertListProcess::isRevocked";
inline constexpr char kCrlParseMethod[] = "CLCertListProcess::ParseCRL";
inline constexpr char kCrlGetRevokedMethod[] = "CLCertListProcess::getRevokedCertificate";
inline constexpr char kCertParseWhat[] = "certificate.ParseCertificate";
inline constexpr char kCrlParseWhat[] = "certListProcess.parseCertList";
inline constexpr char kCrlCheckAtDateWhat[] = "certificate.CheckValidityTermAtSpecialDate";
inline constexpr char kCrlIsRevokedWhat[] = "certListProcess.isRevoked";
inline constexpr char kCrlGetRevokedWhat[] = "certListProcess.getRevokedCertificate";
inline constexpr char kTsParseMethod[] = "CLTimeStampToken::ParseTimeStampToken";
inline constexpr char kTsParseWhat[] = "tsProcess.parseTimeStampToken";

// Facade certificate, CRL and time-stamp methods (the two odd labels are
// the ones these methods have always written).
inline constexpr char kZenaVerifyCertMethod[] = "CLZENAWrapper::VerifyCert";
inline constexpr char kZenaCheckPolicyMethod[] = "CLZENAWrapper::CheckCertPolicyOID";
inline constexpr char kZenaGetPolicyMethod[] = "CLZENAWrapper::GetPolicyOID";
inline constexpr char kZenaIssuerOrgMethod[] = "CLZENAWrapper::GetIssuerDNOrganization";
inline constexpr char kZenaSubjectDNMethod[] = "CLZENAWrapper::GetSubjectFullDN";
inline constexpr char kZenaTermMethod[] = "CLZENAWrapper::GetTermOfValidity";
inline constexpr char kZenaParseCertMethod[] = "CLZENAWrapper::ParseCert";
inline constexpr char kZenaParseCRLMethod[] = "CLZENAWrapper::ParseCRL";
inline constexpr char kZenaCRLInfoMethod[] = "CLZENAWrapper::getParseCRLInfo";
inline constexpr char kZenaTimeStampMethod[] = "CLZENAWrapper::ParseTimeStampToken";
inline constexpr char kCLCertVerifyWhat[] = "cLCertificate.VerifyCertificate";
inline constexpr char kCLCertParseWhat[] = "cLCertificate.ParseCertificate";
inline constexpr char kCLCertParseShortWhat[] = "cLCert.ParseCertificate";
inline constexpr char kCLCertParseCutWhat[] = "lCertificate.ParseCertificate";
inline constexpr char kCLCrlIsRevockedWhat[] = "cLCertListProcess.isRevocked";
inline constexpr char kCLCrlParseWhat[] = "cLCertListProcess.ParseCRL";
inline constexpr char kCLTsParseWhat[] = "cLTimeStampToken.ParseTimeStampToken";

}  // namespace cl_text
