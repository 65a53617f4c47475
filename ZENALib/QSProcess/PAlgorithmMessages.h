// Texts of the algorithm registry, the public-key operations, the key wrap
// and the key-pair routines, each written once. "%d" takes a code or a bit
// length, "%s" an OID text. The spellings are the library's own.
#pragma once

namespace pmsg {

// PAlgorithmUtil
inline constexpr char kEncModeNotSupported[] = "The encryption mode(%d) dose not supported.";
inline constexpr char kAlgCodeNotSupported[] = "The Algorithm Code(%d) dose not supported.";
inline constexpr char kParamVerNotSupported[] = "nParamVer(%d) is not supported.";
inline constexpr char kModeIsNull[] = "pMode is NULL.";
inline constexpr char kAlgIsNull[] = "pAlg is NULL.";
inline constexpr char kOidAlgNotSupported[] = "%s algorithm is not supported.";
inline constexpr char kModeIsNotSupported[] = "The nMode(%d) is not supported.";
inline constexpr char kModeDoesNotSupported[] = "The nMode(%d) does not supported.";
inline constexpr char kUnknownAlgCode[] = "nAlg (%d) is unknown algorithm code.";
inline constexpr char kDigestAlgNotSupported[] = "Digest Algorithm(%s) dose not support.";
inline constexpr char kHashAlgNotSupported[] = "%s is not supported hash algorithm.";
inline constexpr char kSignAlgNotSupported[] = "The %s signature algorithm is not supported.";
inline constexpr char kPssHashNotSupported[] = "The RSA PSS With Hash Algorithm(%d) dose not supported.";
inline constexpr char kHashNotSupport[] = "The Hash Algorithm(%d) dose not support.";
inline constexpr char kAsymmetricNotSupport[] = "ASymmetric Algorithm(%s) dose not support.";
inline constexpr char kOidTextInvalid[] = "The OID text(%s) is not valid.";

// PPrivateKey / PPublicKey: choosing the signature code
inline constexpr char kRsaBitsNotSupported[] = "The RSA %d bit is not supported.";
inline constexpr char kSha1KcdsaBits[] = "The SHA1 with KCDSA %dbit is not supported.";
inline constexpr char kHas160KcdsaBits[] = "The HAS160 with KCDSA %dbit is not supported.";
inline constexpr char kOnlyKcdsaHashes[] = "Only support sha1WithKCDSA, has160WithKCDSA.";
inline constexpr char kPubKeyIsNull[] = "The pPubKey data is NULL.";
inline constexpr char kNamedCurveValue[] = "bsNamedCurve value error.";
inline constexpr char kEccCurveNotSupported[] = "The ECC curve \"%s\" is not supported.";
inline constexpr char kEcdsaOnlySha1Sha256[] = "The ECDSA algorithm only support SHA1 and SHA256 algorithm.";
inline constexpr char kPrivateKeyAlgUnknown[] = "bsPrivateKeyAlgorithm(%s) is unknwon algorithm.";
inline constexpr char kPublicKeyAlgUnknown[] = "bsPublicKeyAlgorithm(%s) is unknwon algorithm.";
inline constexpr char kRsaPublicKeyLength[] = "nLen(%d) is not proper RSA public key length.";
inline constexpr char kNamedCurveLength[] = "bsNamedCurve length error.";
inline constexpr char kNamedCurveNotSupported[] = "The named curve(%s) is not supported.";
inline constexpr char kAlgorithmNotSupported[] = "The %s algorithm is not supported.";
inline constexpr char kHashWithKcdsa[] = "The %d with KCDSA is not supported.";

// PPublicKey: verification and encryption
inline constexpr char kPssSha256Md5[] = "The SHA256, MD5 With RSA-PSS is not supported.";
inline constexpr char kPssOnly1024_2048[] = "The PSS only supported 1024, 2048bit.";
inline constexpr char kRsaHashNotSupported[] = "The Hash algorithm (%d) does not suppoted for RSA signature.";
inline constexpr char kRsaSignatureSize[] = "The RSA(%d) signature is not supported.";
inline constexpr char kSignatureLength[] = "signature length error.";
inline constexpr char kUnknownCertType[] = "Unknown certificate type.";
inline constexpr char kOaepOnly1024_2048[] = "The RSA OAEP supported only 1024, 2048bit";
inline constexpr char kDataLength[] = "data length error";
inline constexpr char kOnlyEcdhDh[] = "Only support for ECDH and DH Algorithm.";
inline constexpr char kPartAInfo512[] = "partAInfo MUST contain 512 bits.";
inline constexpr char kSymmetricAlgNotSupported[] = "nSymmetricAlg(%d) is not supported.";
// The wider verification entry point (not among the library's historic texts).
inline constexpr char kSignatureAlgUnknown[] = "The signature algorithm(%s) is not supported.";
inline constexpr char kSignatureKeyMismatch[] = "The key(%s) does not match the signature algorithm.";
inline constexpr char kPssParams[] = "The RSASSA-PSS parameters are not supported.";
inline constexpr char kVerifyFailed[] = "The signature does not verify.";

// PKEKAlgorithm
inline constexpr char kTBEKeyNot24[] = "bsTBEKey is not 24.";
inline constexpr char kEncryptedKeyNot40[] = "Encrypted Key length is not 40.";
inline constexpr char kChecksumDifferent[] = "Checksum is different.";
inline constexpr char kOddParity[] = "Odd parity is incorrect.";
inline constexpr char kWrapAlgNotSupported[] = "The algorithm(%d) is not supported.";
// (the RC2 forms' own length checks)
inline constexpr char kTBEKeyLength[] = "bsTBEKey length is not proper.";
inline constexpr char kEncryptedKeyLength[] = "Encrypted Key length is not proper.";
inline constexpr char kWrappedLength[] = "The wrapped key length is not proper.";

// PGenKeyPair
inline constexpr char kAlgoUnknown[] = "nAlgo(%d) is unknown algorithm.";
inline constexpr char kQuotedNotSupported[] = "\"%s\" is not supported.";

}  // namespace pmsg
