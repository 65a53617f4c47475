// The key, key-parameter and PKCS structure classes on malformed input (the
// count-rule and component messages, codes and trace fields), on BER
// indefinite-length input, and built from their members (tags and defaults
// as their schemas say, checked against published encodings).
#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <string>

#include "ZENALib/ASN1Pkix/RCRLBag.h"
#include "ZENALib/ASN1Pkix/RCertBag.h"
#include "ZENALib/ASN1Pkix/RCurve.h"
#include "ZENALib/ASN1Pkix/RDSAPrivateKey.h"
#include "ZENALib/ASN1Pkix/RDSAPublicKey.h"
#include "ZENALib/ASN1Pkix/RDigestInfo.h"
#include "ZENALib/ASN1Pkix/RECC_CMS_SharedInfo.h"
#include "ZENALib/ASN1Pkix/RECDSA_Sig_Value.h"
#include "ZENALib/ASN1Pkix/RECPrivateKey.h"
#include "ZENALib/ASN1Pkix/REncryptedPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RKCDSAParameters.h"
#include "ZENALib/ASN1Pkix/RKeySpecificInfo.h"
#include "ZENALib/ASN1Pkix/ROtherInfo.h"
#include "ZENALib/ASN1Pkix/RPBEParameter.h"
#include "ZENALib/ASN1Pkix/RPBES2_params.h"
#include "ZENALib/ASN1Pkix/RPBKDF2_params.h"
#include "ZENALib/ASN1Pkix/RPFX.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RRC2_CBC_Parameter.h"
#include "ZENALib/ASN1Pkix/RRSAES_OAEP_params.h"
#include "ZENALib/ASN1Pkix/RRSAPrivateKey.h"
#include "ZENALib/ASN1Pkix/RRSAPublicKey.h"
#include "ZENALib/ASN1Pkix/RRSASSA_PSS_params.h"
#include "ZENALib/ASN1Pkix/RSafeBag.h"
#include "ZENALib/ASN1Pkix/RecpkParameters.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::ToHex;

namespace {

const std::string kDir = "pkix/keys/";
ByteString Load(const std::string& file) { return qvatest::ReadFileBs(qvatest::DataPath(kDir + file)); }

struct Outcome {
  int code;
  std::string trace;
};
using DecodeFn = std::function<Outcome(const ByteString&)>;
template <typename T>
DecodeFn Decoder() {
  return [](const ByteString& der) {
    T obj;
    const int rc = obj.fromASN1Object(der);
    EXPECT_EQ(rc, obj.getErrorCode());
    return Outcome{rc, obj.getErrorMessage().c_str()};
  };
}

// Re-writes every constructed element of a DER encoding with an indefinite
// length (BER, as streaming encoders write it); primitive elements stay.
// Returns false on input it cannot walk (short-form tags only).
bool ToIndefinite(const unsigned char* p, int n, ByteString* out) {
  int i = 0;
  while (i < n) {
    if (n - i < 2 || (p[i] & 0x1F) == 0x1F) return false;
    const unsigned char id = p[i];
    int len = p[i + 1], hl = 2;
    if (len & 0x80) {
      const int octets = len & 0x7F;
      if (octets == 0 || octets > 3 || n - i < 2 + octets) return false;
      len = 0;
      for (int k = 0; k < octets; ++k) len = (len << 8) | p[i + 2 + k];
      hl += octets;
    }
    if (len > n - i - hl) return false;
    if (id & 0x20) {
      const unsigned char head[2] = {id, 0x80};
      out->append(head, 2);
      if (!ToIndefinite(p + i + hl, len, out)) return false;
      const unsigned char eoc[2] = {0, 0};
      out->append(eoc, 2);
    } else {
      out->append(p + i, hl + len);
    }
    i += hl + len;
  }
  return true;
}

}  // namespace

// Count rules, component tags and member failures: the code, and the trace
// line naming the class, the field and the message.
TEST(KeysRules, CountAndComponentMessages) {
  struct Row {
    DecodeFn decode;
    const char* hex;
    int code;
    const char* frame;    // "<class>::fromASN1Object-<field>(<code>)"
    const char* message;  // the text after that frame
  } rows[] = {
      // PrivateKeyInfo of two components (no privateKey)
      {Decoder<RPrivateKeyInfo>(), "300A 020100 3005 06032A0304", 21, "RPrivateKeyInfo::fromASN1Object-nCount(21)",
       "At least 3 components are required."},
      // privateKey as a BIT STRING
      {Decoder<RPrivateKeyInfo>(), "300E 020100 3005 06032A0304 03020001", 22,
       "RPrivateKeyInfo::fromASN1Object-m_privateKey(22)", "privateKey component is not ASN1_TAG_OCTETSTRING."},
      // a SET where the SEQUENCE belongs
      {Decoder<RPrivateKeyInfo>(), "3100", 2, "RPrivateKeyInfo::fromASN1Object-asnSeq(2)", "ASN1_TAG_SEQUENCE"},
      // EncryptedPrivateKeyInfo without encryptedData
      {Decoder<REncryptedPrivateKeyInfo>(), "3007 3005 06032A0304", 21,
       "REncryptedPrivateKeyInfo::fromASN1Object-nCount(21)", "The number of components is not 2."},
      // PFX with the version alone
      {Decoder<RPFX>(), "3003 020103", 21, "RPFX::fromASN1Object-nCount(21)", "At least 2 components are requried."},
      // PFX whose authSafe is an OCTET STRING
      {Decoder<RPFX>(), "3006 020103 040100", 22, "RPFX::fromASN1Object-m_authSafe(22)",
       "authSafe component is not ASN1_TAG_SEQUENCE."},
      // PFX whose macData has one component: the MacData's code and message pass through
      {Decoder<RPFX>(), "3016 020103 300B 06092A864886F70D010701 3004 3002 3000", 21,
       "RPFX::fromASN1Object-m_macData(21), ", "RMacData::fromASN1Object-nCount(21), At least 2 components are required."},
      // PFX whose length runs past the input
      {Decoder<RPFX>(), "3005 020103", 1, "RPFX::fromASN1Object-asnSeq(1)", "ASN1 Format(Length) Error"},
      // SafeBag with the bag id alone
      {Decoder<RSafeBag>(), "3005 06032A0304", 21, "RSafeBag::fromASN1Object-nCount(21)",
       "At least 2 components are required."},
      // SafeBag whose value lacks its [0] wrapper
      {Decoder<RSafeBag>(), "3008 06032A0304 040100", 22, "RSafeBag::fromASN1Object-m_bagValue(22)",
       "bagValue component is not [0]."},
      // CertBag of three components
      {Decoder<RCertBag>(), "300D 06032A0304 A003040100 040100", 21, "RCertBag::fromASN1Object-nCount(21)",
       "The number of components is not two."},
      // CertBag whose [0] holds two elements
      {Decoder<RCertBag>(), "300D 06032A0304 A006040100040100", 21, "RCertBag::fromASN1Object-nCount(21)",
       "The number of components is not 1"},
      // CRLBag with the id alone
      {Decoder<RCRLBag>(), "3005 06032A0304", 21, "RCRLBag::fromASN1Object-nCount(21)",
       "The number of components is not 2."},
      // MacData with the mac alone
      {Decoder<RMacData>(), "3002 3000", 21, "RMacData::fromASN1Object-nCount(21)", "At least 2 components are required."},
      // DigestInfo of three components
      {Decoder<RDigestInfo>(), "300D 3005 06032A0304 040100 040100", 21, "RDigestInfo::fromASN1Object-nCount(21)",
       "The number of components is not 2."},
      // PBEParameter whose salt is an INTEGER
      {Decoder<RPBEParameter>(), "3006 020101 020101", 22, "RPBEParameter::fromASN1Object-m_salt(22)",
       "salt component is not ASN1_TAG_OCTETSTRING."},
      // PBES2-params without the encryption scheme
      {Decoder<RPBES2_params>(), "3007 3005 06032A0304", 21, "RPBES2_params::fromASN1Object-nCount(21)",
       "The number of components is not 2."},
      // PBKDF2-params with the salt alone
      {Decoder<RPBKDF2_params>(), "3003 040100", 21, "RPBKDF2_params::fromASN1Object-nCount(21)",
       "At least 2 components are required."},
      // PBKDF2-params whose salt is neither OCTET STRING nor SEQUENCE
      {Decoder<RPBKDF2_params>(), "3006 010100 020101", 22, "RPBKDF2_params::fromASN1Object-m_salt(22)",
       "salt component is not ASN1_TAG_OCTETSTRING."},
      // empty RC2-CBC-Parameter
      {Decoder<RRC2_CBC_Parameter>(), "3000", 21, "RRC2_CBC_Parameter::fromASN1Object-nCount(21)",
       "At least 1 component is required."},
      // RC2-CBC-Parameter with the version and no iv
      {Decoder<RRC2_CBC_Parameter>(), "3003 02013A", 22, "RRC2_CBC_Parameter::fromASN1Object-m_iv(22)",
       "iv component is missing."},
      // RSAPublicKey with the modulus alone
      {Decoder<RRSAPublicKey>(), "3003 020105", 21, "RRSAPublicKey::fromASN1Object-nCount(21)",
       "The number of components is not 2."},
      // RSAPrivateKey of eight INTEGERs
      {Decoder<RRSAPrivateKey>(), "3018 020100 020100 020100 020100 020100 020100 020100 020100", 21,
       "RRSAPrivateKey::fromASN1Object-nCount(21)", "At least 9 components are required."},
      // RSAPrivateKey whose one OtherPrimeInfo lacks exponent and coefficient
      {Decoder<RRSAPrivateKey>(),
       "3022 020101 020100 020100 020100 020100 020100 020100 020100 020100 3005 3003020101", 22,
       "RRSAPrivateKey::fromASN1Object-m_otherPrimeInfos(22)", "exponent component is missing."},
      // DSA key of two INTEGERs, and of five
      {Decoder<RDSAPublicKey>(), "3006 020101 020102", 21, "RDSAPublicKey::fromASN1Object-nCount(21)",
       "The number of components is not 3."},
      {Decoder<RDSAPublicKey>(), "300F 020101 020102 020103 020104 020105", 21,
       "RDSAPublicKey::fromASN1Object-nCount(21)", "The number of components is not 4."},
      // traditional DSA private key without x
      {Decoder<RDSAPrivateKey>(), "300F 020100 020101 020102 020103 020104", 22, "RDSAPrivateKey::fromASN1Object-m_x(22)",
       "x component is missing."},
      // ECPrivateKey with the version alone
      {Decoder<RECPrivateKey>(), "3003 020101", 21, "RECPrivateKey::fromASN1Object-nCount(21)",
       "At least 2 component is required."},
      // ECPrivateKey whose [0] parameters are an INTEGER: no ECPKParameters alternative
      {Decoder<RECPrivateKey>(), "300B 020101 040100 A003020101", 23, "RECPrivateKey::fromASN1Object-m_parameters(23)",
       "No alternative has the identifier 0x02."},
      // ECParameters of four components
      {Decoder<RECParameters>(), "300A 020101 3000 3000 040100", 21, "RECParameters::fromASN1Object-nCount(21)",
       "At least 5 components are required."},
      // ECParameters whose fieldID is an INTEGER
      {Decoder<RECParameters>(), "300E 020101 020101 3000 040100 020101", 22,
       "RECParameters::fromASN1Object-m_fieldID(22)", "fieldID component is not ASN1_TAG_SEQUENCE."},
      // Curve with a alone
      {Decoder<RCurve>(), "3003 040100", 21, "RCurve::fromASN1Object-nCount(21)", "At least 2 comonents are required."},
      // ECDSA-Sig-Value of three INTEGERs; r as an OCTET STRING
      {Decoder<RECDSA_Sig_Value>(), "3009 020101 020102 020103", 21, "RECDSA_Sig_Value::fromASN1Object-nCount(21)",
       "The number of components is not 2."},
      {Decoder<RECDSA_Sig_Value>(), "3006 040101 020102", 22, "RECDSA_Sig_Value::fromASN1Object-m_r(22)",
       "r component is not ASN1_TAG_INTEGER."},
      // KCDSA parameters p and q only
      {Decoder<RKCDSAParameters>(), "3006 020117 02010B", 21, "RKCDSAParameters::fromASN1Object-nCount(21)",
       "At least 3 components are required."},
      // KeySpecificInfo without the counter
      {Decoder<RKeySpecificInfo>(), "3005 06032A0304", 21, "RKeySpecificInfo::fromASN1Object-nCount(21)",
       "The number of components is not 2."},
      // OtherInfo without suppPubInfo
      {Decoder<ROtherInfo>(), "300D 300B 06032A0304 040400000001", 22, "ROtherInfo::fromASN1Object-m_suppPubInfo(22)",
       "suppPubInfo component is missing."},
      // ECC-CMS-SharedInfo whose key length is tagged [1]
      {Decoder<RECC_CMS_SharedInfo>(), "300F 3005 06032A0304 A106040400000080", 22,
       "RECC_CMS_SharedInfo::fromASN1Object-m_suppPubInfo(22)", "suppPubInfo component is not [2]."},
      // ECPKParameters given an INTEGER
      {Decoder<RecpkParameters>(), "020101", 23, "RecpkParameters::fromASN1Object-m_nSelected(23)",
       "No alternative has the identifier 0x02."},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.hex);
    const Outcome o = r.decode(Hex(r.hex));
    EXPECT_EQ(o.code, r.code) << o.trace;
    const std::string::size_type at = o.trace.find(r.frame);
    ASSERT_NE(at, std::string::npos) << o.trace;
    EXPECT_NE(o.trace.find(r.message, at), std::string::npos) << o.trace;
    EXPECT_EQ(o.trace[0], '[') << o.trace;  // the newest frame is this class's own: "[<file>:<line>]..."
  }
}

// BER input with every constructed element of indefinite length decodes
// into the same members as the DER form: encoding it again gives the DER
// bytes. (Open types held verbatim, such as algorithm parameters that are
// themselves constructed, keep the bytes they were given, so the files here
// are those whose constructed parts all have classes.)
TEST(KeysRules, IndefiniteLengthsDecodeAsDer) {
  auto via = [](auto make) {
    return [make](const ByteString& ber) -> std::string {
      auto obj = make();
      if (obj.fromASN1Object(ber) != 0) return std::string("decode failed: ") + obj.getErrorMessage().c_str();
      return ToHex(obj.toASN1Object());
    };
  };
  const auto pfx = via([] { return RPFX(); });
  const auto rsa = via([] { return RRSAPrivateKey(); });
  const auto ec = via([] { return RECPrivateKey(); });
  const auto p8 = via([] { return RPrivateKeyInfo(); });
  const auto kc = via([] { return RKCDSAParameters(); });
  const auto oi = via([] { return ROtherInfo(); });
  const auto sig = via([] { return RECDSA_Sig_Value(); });
  const struct {
    std::function<std::string(const ByteString&)> reencode;
    const char* file;
  } rows[] = {
      {pfx, "p12-default.p12"},                      // PFX: ContentInfo, MacData, DigestInfo
      {pfx, "p12-legacy.p12"},                       //
      {pfx, "p12-nomac.p12"},                        // no MacData
      {rsa, "rsa3p.rsa.der"},                        // OtherPrimeInfos inside
      {ec, "ec-prime256v1-explicit.ec.der"},         // [0] EXPLICIT ECParameters, Curve, FieldID, [1] key
      {ec, "ec-secp160r1-named_curve.ec.der"},       // [0] EXPLICIT namedCurve
      {p8, "ec-prime256v1-named_curve.pk8.der"},     // PrivateKeyInfo
      {p8, "rsa1024.pk8.der"},                       //
      {kc, "kcdsa.params.der"},                      // every optional member present
      {oi, "otherinfo.rfc2631-2.der"},               // [0] and [2] EXPLICIT
      {sig, "ec-sect163k1.sig.der"},                 //
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.file);
    const ByteString der = Load(r.file);
    ByteString ber;
    ASSERT_TRUE(ToIndefinite(der.data(), der.length(), &ber));
    ASSERT_NE(ToHex(ber), ToHex(der));
    EXPECT_EQ(r.reencode(ber), ToHex(der));
  }
}

// Members set one by one encode with their tags and without their defaults,
// to the bytes that the published examples and openssl wrote.
TEST(KeysRules, BuiltFromMembers) {
  // RFC 2631 2.1.6 example 1: 3DES key wrap, counter 1, 192 bits; [2] EXPLICIT
  ROtherInfo other;
  RKeySpecificInfo ki;
  ki.getAlgorithm().setOID("1 2 840 113549 1 9 16 3 6");
  ki.getCounter().setValue(Hex("00000001").data(), 4);
  other.setKeyInfo(ki);
  other.getSuppPubInfo().setValue(Hex("000000C0").data(), 4);
  EXPECT_EQ(ToHex(other.toASN1Object()), "301d3013060b2a864886f70d0109100306040400000001a2060404000000c0");
  EXPECT_EQ(ToHex(other.toASN1Object()), ToHex(Load("otherinfo.rfc2631-1.der")));
  EXPECT_FALSE(other.hasPartyAInfo());

  // ECC-CMS-SharedInfo with a user keying material: [0] and [2] EXPLICIT
  RECC_CMS_SharedInfo shared;
  shared.getKeyInfo().getAlgorithm().setOID("2 16 840 1 101 3 4 1 5");
  ASN1OctetString ukm;
  ukm.setValue(Hex("a1b2c3d4e5f60718293a4b5c6d7e8f90").data(), 16);
  shared.setEntityUInfo(ukm);
  shared.getSuppPubInfo().setValue(Hex("00000080").data(), 4);
  EXPECT_EQ(ToHex(shared.toASN1Object()), ToHex(Load("ecc-sharedinfo.ukm.der")));

  // RSASSA-PSS parameters: only the members that differ from the defaults are written
  RRSASSA_PSS_params pss;
  EXPECT_EQ(ToHex(pss.toASN1Object()), "3000");
  EXPECT_EQ(pss.getSaltLengthValue(), 20);
  ASN1Integer salt(32);
  pss.setSaltLength(salt);
  EXPECT_EQ(ToHex(pss.toASN1Object()), "3005a203020120");
  RRSASSA_PSS_params zeroSalt;  // openssl's -sigopt rsa_pss_saltlen:0 with SHA-384
  ASSERT_EQ(zeroSalt.fromASN1Object(Load("pss-sha384-salt0.pss.der")), 0);
  EXPECT_EQ(zeroSalt.getSaltLengthValue(), 0);
  EXPECT_EQ(zeroSalt.getTrailerFieldValue(), 1);

  // RSAES-OAEP parameters from the openssl file, with the label removed: the
  // [2] member disappears and the rest keeps its bytes
  RRSAES_OAEP_params oaep;
  ASSERT_EQ(oaep.fromASN1Object(Load("oaep-sha256-label.oaep.der")), 0);
  ASSERT_TRUE(oaep.hasPSourceAlgorithm());
  oaep.setPresent(oaep.getPSourceAlgorithm(), false);
  EXPECT_EQ(ToHex(oaep.toASN1Object()), ToHex(Load("oaep-sha256.oaep.der")));
}

// The two forms of the DSA public key: the domain parameters of an openssl
// file (three components), and the same with the public value of the
// matching private key put first (four components), which decodes back
// into the same members.
TEST(KeysRules, DsaPublicKeyForms) {
  RDSAPublicKey parms;
  ASSERT_EQ(parms.fromASN1Object(Load("dsa1024.params.der")), 0) << parms.getErrorMessage().c_str();
  EXPECT_FALSE(parms.hasY());
  RDSAPrivateKey priv;
  ASSERT_EQ(priv.fromASN1Object(Load("dsa1024.dsa.der")), 0) << priv.getErrorMessage().c_str();
  EXPECT_EQ(ToHex(parms.getP().getValue()), ToHex(priv.getP().getValue()));
  EXPECT_EQ(ToHex(parms.getG().getValue()), ToHex(priv.getG().getValue()));

  RDSAPublicKey key = parms;
  key.setY(priv.getY());
  const ByteString der = key.toASN1Object();
  ASSERT_EQ(key.getErrorCode(), 0) << key.getErrorMessage().c_str();
  RDSAPublicKey back;
  ASSERT_EQ(back.fromASN1Object(der), 0) << back.getErrorMessage().c_str();
  EXPECT_TRUE(back.hasY());
  EXPECT_EQ(ToHex(back.getY().getValue()), ToHex(priv.getY().getValue()));
  EXPECT_EQ(ToHex(back.getQ().getValue()), ToHex(priv.getQ().getValue()));
  // y first: the key's content starts with y's INTEGER
  const std::string hexKey = ToHex(der), hexY = ToHex(priv.getY().toASN1Object());
  EXPECT_EQ(hexKey.find(hexY), hexKey.find("02"));

  back.clearY();
  EXPECT_EQ(ToHex(back.toASN1Object()), ToHex(Load("dsa1024.params.der")));
}

// KCDSA domain parameters hold the numbers of the standard's example.
TEST(KeysRules, KcdsaParametersOfTheStandardExample) {
  auto v = qvatest::ReadVectors(qvatest::DataPath(kDir + "kcdsa-params.txt"));
  ASSERT_EQ(v.size(), 1u);
  RKCDSAParameters full, pqg;
  ASSERT_EQ(full.fromASN1Object(Load("kcdsa.params.der")), 0) << full.getErrorMessage().c_str();
  ASSERT_EQ(pqg.fromASN1Object(Load("kcdsa.params-pqg.der")), 0) << pqg.getErrorMessage().c_str();
  auto number = [](const ASN1Integer& n) {
    std::string hex = ToHex(n.getValue());
    if (hex.rfind("00", 0) == 0) hex.erase(0, 2);
    for (char& c : hex) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return hex;
  };
  for (RKCDSAParameters* p : {&full, &pqg}) {
    EXPECT_EQ(number(p->getP()), v[0]["P"]);
    EXPECT_EQ(number(p->getQ()), v[0]["Q"]);
    EXPECT_EQ(number(p->getG()), v[0]["G"]);
  }
  EXPECT_TRUE(full.hasJ() && full.hasSeed() && full.hasCount());
  EXPECT_EQ(number(full.getJ()), v[0]["J"]);
  EXPECT_EQ(ToHex(full.getSeed().getValue()), [&] {
    std::string s = v[0]["Seedb"];
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  }());
  EXPECT_EQ(std::to_string(full.getCount().getInteger()), v[0]["Count"]);
  EXPECT_FALSE(pqg.hasJ() || pqg.hasSeed() || pqg.hasCount());
}

// The example private key of RFC 8410 10.3: a version 2 OneAsymmetricKey
// with a [0] IMPLICIT attribute set and a [1] IMPLICIT public key.
TEST(KeysRules, OneAsymmetricKeyWithAttributesAndPublicKey) {
  const ByteString der = Hex(
      "3072020101300506032b657004220420d4ee72dbf913584ad5b6d8f1f769f8ad3afe7c28cbf1d4fbe097a88f44755842a01f301d060a"
      "2a864886f70d01090914310f0c0d437572646c652043686169727381210019bf44096984cdfe8541bac167dc3b96c85086aa30b6b6cb"
      "0c5c38ad703166e1");
  RPrivateKeyInfo key;
  ASSERT_EQ(key.fromASN1Object(der), 0) << key.getErrorMessage().c_str();
  EXPECT_EQ(key.getVersion().getInteger(), 1);
  EXPECT_EQ(std::string(key.getPrivateKeyAlgorithm().getAlgorithm().getOID('.').c_str()), "1.3.101.112");
  ASSERT_TRUE(key.hasAttributes());
  ASSERT_EQ(key.getAttributes().getCount(), 1);
  EXPECT_EQ(std::string(key.getAttributes().getAt(0)->getType().getOID('.').c_str()), "1.2.840.113549.1.9.9.20");
  ASSERT_TRUE(key.hasPublicKey());
  int unused = -1;
  EXPECT_EQ(ToHex(key.getPublicKey().getBitString(&unused)),
            "19bf44096984cdfe8541bac167dc3b96c85086aa30b6b6cb0c5c38ad703166e1");
  EXPECT_EQ(unused, 0);
  EXPECT_EQ(ToHex(key.toASN1Object()), ToHex(der));
  // Without the optional members it is a version 1 PrivateKeyInfo of three components.
  key.setPresent(key.getAttributes(), false);
  key.setPresent(key.getPublicKey(), false);
  EXPECT_EQ(ToHex(key.toASN1Object()), ToHex(der.mid(0, 48)).replace(0, 4, "302e"));
}
