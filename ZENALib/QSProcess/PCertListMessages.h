// The fixed texts of the CRL processing, each defined once. Their spellings
// are part of what callers compare and are kept as they are.
#pragma once

namespace crlmsg {

// Decoding and the parsed state.
constexpr const char kTBSCertListMemory[] = "The memory(m_pTBSCertList) allocation is failed.";
constexpr const char kSerialNumsMemory[] = "The memory(m_pSerialNums) allocation is failed.";
constexpr const char kCrlExtIndexMemory[] = "Memory(m_pCrlExtIndex) allocation is failed.";
constexpr const char kCrlExtensionsMemory[] = "Memory(m_pCrlExtensions) allocation is failed.";
constexpr const char kEntryForm[] = "A revokedCertificates entry is not SEQUENCE { INTEGER, Time, Extensions }.";
constexpr const char kNotParsed[] = "The CRL is not parsed.";
constexpr const char kNoNextUpdate[] = "NaxtUpdate does not exist.";

// Version.
constexpr const char kFmtVersion[] = "CRL version(%d) is not CRL Version2(1)";
constexpr const char kV1Extensions[] = "This CRL can't have Extension(s) because version is not 2(1)";

// The subject certificate and the distribution point.
constexpr const char kCrlIssuerOfDP[] = "The issuer field in the CRL does not matches cRLIssuer in the DP.";
constexpr const char kOnlyUserCerts[] = "The onlyContainsUserCerts is true but, the subject Certificate is CA Certificate.";
constexpr const char kOnlyCACerts[] = "The onlyContainsCACerts is true but, the subject Certificate is User Certificate.";
constexpr const char kOnlyAttributeCerts[] = "The onlyContainsAttributeCerts is asserted.";
constexpr const char kNotIndirect[] = "The CRL does not contain an IDP with the indirectCRL boolean asserted.";

// The issuer certificate.
constexpr const char kIssuerDN[] = "CRL Issuer Dn is different from Issuer Certificate subjectName.";
constexpr const char kNoCrlSign[] = "The KeyUsage in the IssuerCert does not have crlSign bit.";
constexpr const char kKeyDigest[] = "Making Subject PublicKey's digest is failed.";
constexpr const char kAkiKeyId[] = "CRL AuthorityKeyIdentifier is different from Issuer SubjectKeyIdentifier.";
constexpr const char kAkiNotDirName[] = "AuthorityCertIssuer is not DNSName.";
constexpr const char kAkiIssuer[] = "The issuer of the crl issuer cert is different from the authCertIssuer of the AKI.";
constexpr const char kAkiSerial[] = "The serialNumber of the crl issuer is different from the authCertSerialNumber of the AKI.";
constexpr const char kAltName[] = "CRL IssuerAltName does not match Issuer Certificate SubjectAltName.";

// CRL extensions.
constexpr const char kFmtExtMax[] = "The m_nIndex(%d) is more or equal than CRL_EXTENSION_MAX_CNT(%d)";
constexpr const char kFmtUnknownCritical[] = "CRL Extension(%s, critical) is UNKNOWN";
constexpr const char kNoCRLNumber[] = "CRL Extension CRLNumber does not exist.";
constexpr const char kNoDeltaIndicator[] = "CRL Extension DeltaCRLIndicator does not exist.";
constexpr const char kNoIDP[] = "CRL Extension IssuingDistributionPoint does not exist.";

// Entries.
constexpr const char kFmtIndex[] = "index(%d) is exceed the number of RevokedCertificates.";
constexpr const char kRevokedAfterThisUpdate[] = "The ThisUpdate is earlier than revocationDate.";
constexpr const char kUnknownReason[] = "Unknown Reason Code.";
constexpr const char kNoReason[] = "CRL EntryExtension ReasonCode does not exist.";
constexpr const char kCertIssuerNotDirName[] = "certificateIssuer is not DNSName.";

}  // namespace crlmsg
