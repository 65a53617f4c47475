// The fixed texts of the signed-data and time-stamp token classes.
#pragma once

namespace psdmsg {
// Making.
inline constexpr char kNotSignedData[] = "It is not signedData.";
inline constexpr char kNoContent[] = "The SignedData does not contain contents. so, Set to be signed content.";
inline constexpr char kAttrMax[] = "The supported attribute maximum count is 8.";
inline constexpr char kNotAsn1[] = "The content is not asn.1 format.";
// Parsing and verifying.
inline constexpr char kOnlyV1SignedData[] = "Only v1 signedData is supported.";
inline constexpr char kExtendedCert[] = "extenedCert is not supported.";
inline constexpr char kUnknownCertType[] = "Unkonwn certificate type.";
inline constexpr char kNoSignerInfo[] = "The Data does not Signed. (Ther signerInfo is empty)";
inline constexpr char kOnlyV1SignerInfo[] = "Only v1 signerInfo supported.";
inline constexpr char kNoSignerCert[] = "Can't verify signature. Because there is not signer certificate.";
inline constexpr char kContentTypeDiffers[] = "SignedAttrs.ContentType are different from ContentInfo.ContentType.";
inline constexpr char kContentHash[] = "Content Hash value is not same.";
inline constexpr char kCertHash[] = "Invalid CertHash value.";
inline constexpr char kPssSha1Only[] = "Only sha1 with RSA-PSS is supported.";
inline constexpr char kNoCerts[] = "SignedData does not have certificates.";
inline constexpr char kNotParsed[] = "First, Use parseSignedData().";
// Time-stamp tokens.
inline constexpr char kTsNotSignedData[] = "contentType is not signedData";
inline constexpr char kTsNotTSTInfo[] = "TSTInfo eContentType is not id-ct-TSTInfo";
inline constexpr char kTsVersion[] = "Only support TSTInfo version 1.";
inline constexpr char kTsOneSigner[] =
    "The Time-stamp token MUST NOT contain any signatures other than the signature of the TSA.";
inline constexpr char kTsCompareLog[] = "nRet = %d, bsTSA = [%s], bsSubjectDN = [%s]";
inline constexpr char kTsName[] = "tsa field MUST correspond to one of the subject names included in the certificate.";
inline constexpr char kTsKeyPurpose[] = "This certificate is not for time stamp.";
inline constexpr char kTsNoSignerCert[] = "SignerCert does not exist.";
inline constexpr char kTsNoNonce[] = "Nonce does not exist.";
}  // namespace psdmsg

// Object identifiers of CMS signed data and time-stamp tokens, as text.
namespace psdoid {
inline constexpr char kData[] = "1 2 840 113549 1 7 1";
inline constexpr char kSignedData[] = "1 2 840 113549 1 7 2";
inline constexpr char kContentType[] = "1 2 840 113549 1 9 3";
inline constexpr char kMessageDigest[] = "1 2 840 113549 1 9 4";
inline constexpr char kSigningTime[] = "1 2 840 113549 1 9 5";
inline constexpr char kCounterSignature[] = "1 2 840 113549 1 9 6";
inline constexpr char kSigningCertificate[] = "1 2 840 113549 1 9 16 2 12";
inline constexpr char kTSTInfo[] = "1 2 840 113549 1 9 16 1 4";
inline constexpr char kSubjectKeyIdentifier[] = "2 5 29 14";
inline constexpr char kTimeStamping[] = "1 3 6 1 5 5 7 3 8";
}  // namespace psdoid
