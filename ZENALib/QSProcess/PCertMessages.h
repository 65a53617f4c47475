// The fixed texts of the certificate and name utilities, each defined once.
// Their spellings are part of what callers compare and are kept as they are.
#pragma once

// Code of an absent optional extension or component.
constexpr int PCERT_ERR_ABSENT = 4096;

// Absent extensions, by position field.
constexpr const char kMsgNoAuthorityKeyIdentifier[] = "AuthrityKeyIdentifier does not exist.";
constexpr const char kMsgNoSubjectKeyIdentifier[] = "SubjectKeyIdentifier does not exist.";
constexpr const char kMsgNoKeyUsage[] = "nKeyUsage does not exist.";
constexpr const char kMsgNoPrivateKeyUsagePeriod[] = "Privatekeyusageperiod does not exist.";
constexpr const char kMsgNoCertificatePolicies[] = "CertificatePolicy does not exist.";
constexpr const char kMsgNoPolicyMappings[] = "PolicyMapping does not exist.";
constexpr const char kMsgNoIssuerAltNames[] = "IssuerAlterNames does not exist.";
constexpr const char kMsgNoSubjectAltNames[] = "SubjectAlternativeNames does not exist.";
constexpr const char kMsgNoSubjectDirectoryAttributes[] = "SubjectDirectoryAttributes does not exist.";
constexpr const char kMsgNoBasicConstraints[] = "BasicConstraints does not exist.";
constexpr const char kMsgNoPathLenConstraint[] = "pathLenConstraint dose not exist.";
constexpr const char kMsgNoNameConstraints[] = "NameConstraints dose not exist.";
constexpr const char kMsgNoPolicyConstraints[] = "PolicyConstraints dose not exist.";
constexpr const char kMsgNoExtendedKeyUsage[] = "ExtendedKeyUsage dose not exist.";
constexpr const char kMsgNoCRLDistributionPoints[] = "CRLDistributionPoints dose not exist.";
constexpr const char kMsgNoAuthorityInformationAccess[] = "AuthorityInformationAccess dose not exist.";
constexpr const char kMsgNoProcuration[] = "Procuration dose not exist.";
constexpr const char kMsgNoDomainInformation[] = "DomainInformation dose not exist.";
constexpr const char kMsgNoInhibitAnyPolicy[] = "InhibitAnyPolicy dose not exist.";
constexpr const char kMsgNoFreshestCRL[] = "FreshestCRL dose not exist.";
constexpr const char kMsgNoSubjectInfoAccess[] = "SubjectInfoAccess dose not exist.";
constexpr const char kMsgNoQCStatements[] = "QCStatements dose not exist.";
constexpr const char kMsgNoSubjectAnnexedInfo[] = "SubjectAnnexedInfo dose not exist.";

// Fields of the parsed certificate.
constexpr const char kMsgNoSignature[] = "The m_pSignature is NULL.";
constexpr const char kMsgNoIssuer[] = "The m_pIssuer is NULL";
constexpr const char kMsgNoSubject[] = "The m_pSubject is NULL.";
constexpr const char kMsgNoSubjectPublicKeyInfo[] = "The m_pSubjectPublicKeyInfo is NULL.";
constexpr const char kMsgNoIssuerUniqueID[] = "IssuerUniqueID does not exist.";
constexpr const char kMsgNoSubjectUniqueID[] = "subjectUniqueID does not exist.";
constexpr const char kMsgMakeDNFailed[] = "Make DN String failed.";
constexpr const char kFmtIndexOutOfRange[] = "nIndex(%d) is out of range.";
constexpr const char kMsgWrongRDNSequence[] = "Wrong RDNSequence form.";
constexpr const char kFmtUnknownSignatureAlgorithm[] = "%s : Unknown AlgorithmIdentifier";
constexpr const char kFmtUnknownSubjectAlgorithm[] = "%s : UnKnown Subject Algorithm";
constexpr const char kMsgUnknownHashAlgorithm[] = "Unknown AlgorithmIdentifier.";

// Name rendering.
constexpr const char kMsgUnicode2KSCFailed[] = "UUniCode::Unicode2KSC is failed.";
constexpr const char kMsgUnknownTypeChosen[] = "Unknown type chosen.";
constexpr const char kFmtGeneralNameUnknown[] = "GeneralName Choice(%d) is UNKNOWN";
constexpr const char kFmtUnknownCountryName[] = "Unknown countryName(%d) chosen.";
constexpr const char kFmtUnknownAdminDomain[] = "Unknown administrationDomainName(%d) chosen.";
constexpr const char kFmtUnknownPrivateDomain[] = "Unknown privateDomainName(%d) chosen.";

// WTLS certificates.
constexpr const char kFmtWIssuerTooLarge[] = "Issuer Length Value = %d is too large";
constexpr const char kFmtWSubjectTooLarge[] = "Subject Length Value = %d is too large";
constexpr const char kFmtWEccKeyTooLarge[] = "ECC Public Key Length Value = %d is too large";
constexpr const char kFmtWExponentTooLarge[] = "Exponent Length Value = %d is too large";
constexpr const char kFmtWModulusTooLarge[] = "Modulus Length Value = %d is too large";
constexpr const char kFmtWSignatureTooLarge[] = "Signature Length Value = %d is too large";
constexpr const char kFmtWVersion[] = "value = %d is invalid";
constexpr const char kFmtWValidity[] = "m_nBefore(%d) >= m_nAfter(%d)";
constexpr const char kFmtWRsaParameterSet[] = "WTLS RSA Parameter set Length must zero(%0x %0x)";
constexpr const char kMsgWTrailing[] = "m_nIndex != m_nCertLen";
constexpr const char kMsgWIdNull[] = "WGenCert_IDENTIFIER_TYPE_NULL_DEF is not supported.";
constexpr const char kMsgWIdBinary[] = "WGenCert_IDENTIFIER_TYPE_BINARY is not supported.";
constexpr const char kMsgWIdX509Name[] = "WGenCert_IDENTIFIER_TYPE_X509_NAME is not supported.";
constexpr const char kMsgWIdKeyHash[] = "WGenCert_IDENTIFIER_TYPE_KEY_HASH_SHA is not supported.";
constexpr const char kFmtWSubjectType[] = "m_eSubject(%d) is unknown idendifier type.";
constexpr const char kFmtWIssuerType[] = "m_eIssuer(%d) is unknown identifier type.";
constexpr const char kFmtWPublicType[] = "m_ePublicType(%d) is unknown idendifier type.";
constexpr const char kFmtWSignAlg[] = "m_eSignAlg(%d) is unknown signature algorithm.";
constexpr const char kFmtWParameterIndex[] = "m_nParameterIndex(%d) is unknown ParameterIndex";
constexpr const char kFmtWTypeIndex[] = "m_ePublicType(%d) m_nParameterIndex(%d) is not supported.";
constexpr const char kFmtWRsaModulus[] = "Unsupported RSA Pubkey's modulus length(%d).";
