// The CMS, time-stamp, ESS and identity-verification structure classes on
// malformed and hand-built encodings: count-rule and tag messages with their
// traces, BER segmented OCTET STRINGs, objects built through the setters
// compared with what openssl builds or reads, and the identity-verification
// data of a real Korean PKI certificate.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "ZENALib/ASN1Pkix/RCertificates.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/REncryptedData.h"
#include "ZENALib/ASN1Pkix/REnvelopedData.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RHashContent.h"
#include "ZENALib/ASN1Pkix/RIdentifyData.h"
#include "ZENALib/ASN1Pkix/RSignedData.h"
#include "ZENALib/ASN1Pkix/RSigningCertificate.h"
#include "ZENALib/ASN1Pkix/RTSTInfo.h"
#include "ZENALib/ASN1Pkix/RVID.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::ToHex;

namespace {

template <typename T>
int Decode(const ByteString& der, ByteString* trace) {
  T obj;
  const int rc = obj.fromASN1Object(der);
  *trace = obj.getErrorMessage();
  return rc;
}

using Decoder = int (*)(const ByteString&, ByteString*);

}  // namespace

// Each row: a malformed encoding, the code it fails with and the trace frame
// that names the class, the field and the message.
TEST(CmsSchema, CountAndTagMessages) {
  struct Row {
    Decoder decode;
    const char* hex;
    int code;
    const char* frame;  // "<class>::fromASN1Object-<field>(<code>), <message>"
  } rows[] = {
      // Count rules ("at least" rules fail below the number, "not" rules on any other count).
      {Decode<RContentInfo>, "30 00", 21, "RContentInfo::fromASN1Object-nCount(21), At least 1 component is required."},
      {Decode<REncapsulatedContentInfo>, "30 00", 21,
       "REncapsulatedContentInfo::fromASN1Object-nCount(21), At least 1 component is required."},
      // version, digestAlgorithms, encapContentInfo: no signerInfos
      {Decode<RSignedData>, "30 0A 020101 3100 3003 06012A", 21,
       "RSignedData::fromASN1Object-nCount(21), At least 4 components are required."},
      {Decode<RSignerInfo>, "30 09 020101 3000 3000 0400", 21,
       "RSignerInfo::fromASN1Object-nCount(21), At least 5 components are required."},
      {Decode<REnvelopedData>, "30 05 020100 3100", 21,
       "REnvelopedData::fromASN1Object-nCount(21), At least 3 components is required."},
      {Decode<REncryptedData>, "30 03 020100", 21,
       "REncryptedData::fromASN1Object-nCount(21), At least 2 component is required."},
      {Decode<REncryptedContentInfo>, "30 03 06012A", 21,
       "REncryptedContentInfo::fromASN1Object-nCount(21), At least 2 component is required."},
      {Decode<RKeyTransRecipientInfo>, "30 07 020100 3000 3000", 21,
       "RKeyTransRecipientInfo::fromASN1Object-nCount(21), The number of components is not 4."},
      // one component too many fails the same way
      {Decode<RKeyTransRecipientInfo>, "30 0B 020100 3000 3000 0400 0400", 21,
       "RKeyTransRecipientInfo::fromASN1Object-nCount(21), The number of components is not 4."},
      {Decode<RKEKRecipientInfo>, "30 0B 020104 3000 3000 0400 0400", 21,
       "RKEKRecipientInfo::fromASN1Object-nCount(21), The number of components is not 4."},
      {Decode<RKeyAgreeRecipientInfo>, "30 07 020103 A000 3000", 21,
       "RKeyAgreeRecipientInfo::fromASN1Object-nCount(21), At least 4 components are required."},
      {Decode<ROriginatorPublicKey>, "30 02 3000", 21,
       "ROriginatorPublicKey::fromASN1Object-nCount(21), The number of components is not 2."},
      {Decode<RRecipientEncryptedKey>, "30 06 0400 0400 0400", 21,
       "RRecipientEncryptedKey::fromASN1Object-nCount(21), The number of components is not 2."},
      {Decode<RKEKIdentifier>, "30 00", 21, "RKEKIdentifier::fromASN1Object-nCount(21), At least 1 component is required."},
      {Decode<RRecipientKeyIdentifier>, "30 00", 21,
       "RRecipientKeyIdentifier::fromASN1Object-nCount(21), At least 1 component is required."},
      {Decode<ROtherKeyAttribute>, "30 00", 21,
       "ROtherKeyAttribute::fromASN1Object-nCount(21), At least 1 component is required."},
      {Decode<RTSTInfo>, "30 0B 020101 06012A 3000 020105", 21,
       "RTSTInfo::fromASN1Object-nCount(21), At least 5 components are required."},
      {Decode<RMessageImprint>, "30 05 3003 06012A", 21,
       "RMessageImprint::fromASN1Object-nCount(21), At least 2 components are required."},
      {Decode<RSigningCertificate>, "30 00", 21,
       "RSigningCertificate::fromASN1Object-nCount(21), At least 1 components are required."},
      {Decode<RESSCertID>, "30 00", 21, "RESSCertID::fromASN1Object-nCount(21), At least 1 component is required."},
      {Decode<RIssuerSerial>, "30 02 3000", 21,
       "RIssuerSerial::fromASN1Object-nCount(21), At least 2 component is required."},
      {Decode<RVID>, "30 05 3003 06012A", 21, "RVID::fromASN1Object-nCount(21), The number of components is not 2."},
      {Decode<RIdentifyData>, "30 00", 21, "RIdentifyData::fromASN1Object-nCount(21), At least 1 component is required."},
      {Decode<RCertificates>, "30 02 3000", 21,
       "RCertificates::fromASN1Object-nCount(21), The number of components is not 2."},
      // Tag messages of mandatory components.
      {Decode<RContentInfo>, "30 03 020100", 22,
       "RContentInfo::fromASN1Object-m_contentType(22), contentType component is not ASN1_TAG_OID."},
      // version as an OCTET STRING
      {Decode<RSignedData>, "30 0C 040101 3100 3003 06012A 3100", 22,
       "RSignedData::fromASN1Object-m_version(22), version component is not ASN1_TAG_INTEGER."},
      // signerInfos as a SEQUENCE instead of a SET
      {Decode<RSignedData>, "30 0C 020101 3100 3003 06012A 3000", 22,
       "RSignedData::fromASN1Object-m_signerInfos(22), signerInfos component is not ASN1_TAG_SET."},
      // encryptedKey as a BIT STRING
      {Decode<RKeyTransRecipientInfo>, "30 0D 020100 8000 3003 06012A 030100", 22,
       "RKeyTransRecipientInfo::fromASN1Object-m_encryptedKey(22), encryptedKey component is not "
       "ASN1_TAG_OCTETSTRING."},
      // genTime as a UTCTime
      {Decode<RTSTInfo>, "30 21 020101 06012A 3007 3003 06012A 0400 020105 170D 3236313132323030303030305A", 22,
       "RTSTInfo::fromASN1Object-m_genTime(22), genTime component is not ASN1_TAG_GENERALIZEDTIME."},
      {Decode<RMessageImprint>, "30 08 3003 06012A 020101", 22,
       "RMessageImprint::fromASN1Object-m_hashedMessage(22), hashedMessage component is not ASN1_TAG_OCTETSTRING."},
      // virtualID without its [0] tag
      {Decode<RVID>, "30 07 3003 06012A 0400", 22, "RVID::fromASN1Object-m_virtualID(22), virtualID component is not [0]."},
      {Decode<RIdentifyData>, "30 03 130141", 22,
       "RIdentifyData::fromASN1Object-m_realName(22), realName component is not ASN1_TAG_UTF8STRING."},
      {Decode<RHashContent>, "30 06 0C0131 030100", 22,
       "RHashContent::fromASN1Object-m_idn(22), idn component is not ASN1_TAG_PRINTABLESTRING."},
      {Decode<RKEKRecipientInfo>, "30 0C 020104 0400 3003 06012A 0400", 22,
       "RKEKRecipientInfo::fromASN1Object-m_kekid(22), kekid component is not ASN1_TAG_SEQUENCE."},
      // CHOICE types: an identifier no alternative has.
      {Decode<RRecipientInfo>, "A5 00", 23, "RRecipientInfo::fromASN1Object-m_nSelected(23), No alternative has the identifier 0xA5."},
      {Decode<RSignerIdentifier>, "04 00", 23,
       "RSignerIdentifier::fromASN1Object-m_nSelected(23), No alternative has the identifier 0x04."},
      {Decode<ROriginatorIdentifierOrKey>, "82 00", 23,
       "ROriginatorIdentifierOrKey::fromASN1Object-m_nSelected(23), No alternative has the identifier 0x82."},
      // A member's failure passes its code through, one frame per level.
      {Decode<RSignedData>, "30 17 020101 3100 3003 06012A 310B 3009 020101 3000 3000 0400", 21,
       "RSignedData::fromASN1Object-m_signerInfos(21), "},
      {Decode<RSignedData>, "30 17 020101 3100 3003 06012A 310B 3009 020101 3000 3000 0400", 21,
       "RSignerInfo::fromASN1Object-nCount(21), At least 5 components are required."},
      // A segment of a constructed encryptedContent that is not an OCTET STRING.
      {Decode<REncryptedContentInfo>, "30 0D 06012A 3003 06012A A003 020105", 24,
       "ROctetString::fromASN1Object-segment(24), ASN1 Format Error"},
      // Inside an explicit tag only an OCTET STRING is one (an INTEGER; a constructed tag 8).
      {Decode<REncapsulatedContentInfo>, "30 08 06012A A003 020100", 2,
       "REncapsulatedContentInfo::fromASN1Object-m_eContent(2), "},
      {Decode<REncapsulatedContentInfo>, "30 08 06012A A003 280100", 2,
       "ROctetString::fromASN1Object-m_ucPrimitiveTag(2), "},
      {Decode<RVID>, "30 0A 3003 06012A A003 020100", 2, "RVID::fromASN1Object-m_virtualID(2), "},
      // Not a SEQUENCE at all.
      {Decode<RTSTInfo>, "31 00", 2, "RTSTInfo::fromASN1Object-asnSeq(2), "},
  };
  for (const Row& r : rows) {
    ByteString trace;
    EXPECT_EQ(r.decode(Hex(r.hex), &trace), r.code) << r.hex;
    EXPECT_NE(qvatest::Str(trace).find(r.frame), std::string::npos) << r.hex << "\n  trace: " << trace.c_str();
  }
}

// BER segmented OCTET STRINGs are joined; DER is written back.
TEST(CmsSchema, SegmentedOctetString) {
  struct Row {
    const char* hex;  // an EncapsulatedContentInfo
    const char* value;  // the joined eContent, or null when decoding must fail
  } rows[] = {
      {"30 09 06012A A0 04 0402 4142", "AB"},                                 // DER
      {"30 80 06012A A0 80 2480 0402 4142 0401 43 0000 0000 0000", "ABC"},    // indefinite, two segments
      {"30 0F 06012A A0 0A 2408 0402 4142 2402 0400", "AB"},                  // nested, an empty segment
      {"30 80 06012A A0 80 2480 0000 0000 0000", ""},                         // no segments
      {"30 0C 06012A A0 07 2405 0404 414243", nullptr},                       // segment runs past its parent
      {"30 0B 06012A A0 06 2404 0C02 4142", nullptr},                         // segment of another type
      {"30 0B 06012A A0 06 2404 2402 0400", "" },                             // constructed inside constructed
  };
  for (const Row& r : rows) {
    REncapsulatedContentInfo eci;
    const int rc = eci.fromASN1Object(Hex(r.hex));
    if (!r.value) {
      EXPECT_NE(rc, 0) << r.hex;
      continue;
    }
    ASSERT_EQ(rc, 0) << r.hex << ": " << eci.getErrorMessage().c_str();
    EXPECT_EQ(qvatest::Str(eci.getEContent().getValue()), r.value) << r.hex;
    // Encoded again as DER: primitive, definite.
    REncapsulatedContentInfo again;
    ASSERT_EQ(again.fromASN1Object(eci.toASN1Object()), 0);
    EXPECT_EQ(again.toASN1Object(), eci.toASN1Object());
    const ByteString der = eci.toASN1Object();  // each call rebuilds the buffer it returns
    EXPECT_EQ(der.data()[1], der.length() - 2) << r.hex;
  }
  // Segments nested deeper than the codec's limit are refused, not followed.
  std::string deep = "30 80 06012A A0 80";
  for (int i = 0; i < 80; ++i) deep += " 2480";
  deep += " 0401 41";
  for (int i = 0; i < 82; ++i) deep += " 0000";
  REncapsulatedContentInfo eci;
  EXPECT_NE(eci.fromASN1Object(Hex(deep)), 0);
}

// Objects built through the setters encode exactly as openssl's own
// generator (asn1parse -genconf) encodes the same values.
TEST(CmsSchema, SettersEncodeAsOpensslBuilds) {
  struct Row {
    const char* what;
    std::function<ByteString()> build;
    const char* genconf;
  } rows[] = {
      {"HashContent",
       [] {
         RHashContent hc;
         hc.getIdn().setValue("8001011234567");
         hc.getRandomNum().setBitString(Hex("0123456789ABCDEF0123456789ABCDEF01234567"), 0);
         return hc.toASN1Object();
       },
       "asn1=SEQUENCE:hc\n[hc]\nidn=PRINTABLESTRING:8001011234567\n"
       "rnd=FORMAT:HEX,BITSTRING:0123456789ABCDEF0123456789ABCDEF01234567\n"},
      {"VID with its [0] EXPLICIT virtual ID",
       [] {
         RVID vid;
         vid.getHashAlg().getAlgorithm().setOID("2 16 840 1 101 3 4 2 1");
         vid.getVirtualID().setValue(Hex("B99B8E1D3E35C0040CFCED6E4D7A7ED4"));
         return vid.toASN1Object();
       },
       "asn1=SEQUENCE:vid\n[vid]\nalg=SEQUENCE:alg\nv=EXPLICIT:0,FORMAT:HEX,OCTETSTRING:B99B8E1D3E35C0040CFCED6E4D7A7ED4\n"
       "[alg]\noid=OID:sha256\n"},
      {"Accuracy with implicit millis and micros",
       [] {
         RAccuracy a;
         ASN1Integer v;
         v.setInteger(1);
         a.setSeconds(v);
         v.setInteger(500);
         a.setMillis(v);
         v.setInteger(100);
         a.setMicros(v);
         return a.toASN1Object();
       },
       "asn1=SEQUENCE:acc\n[acc]\ns=INTEGER:1\nm=IMPLICIT:0,INTEGER:500\nu=IMPLICIT:1,INTEGER:100\n"},
      {"Accuracy with millis only",
       [] {
         RAccuracy a;
         ASN1Integer v;
         v.setInteger(999);
         a.setMillis(v);
         return a.toASN1Object();
       },
       "asn1=SEQUENCE:acc\n[acc]\nm=IMPLICIT:0,INTEGER:999\n"},
      {"KEKIdentifier with a date",
       [] {
         RKEKIdentifier k;
         k.getKeyIdentifier().setValue(Hex("C0FFEE"));
         ASN1GeneralizedTime t;
         t.setValue("20261122000000Z");
         k.setDate(t);
         return k.toASN1Object();
       },
       "asn1=SEQUENCE:kek\n[kek]\nk=FORMAT:HEX,OCTETSTRING:C0FFEE\nd=GENTIME:20261122000000Z\n"},
      {"MessageImprint",
       [] {
         RMessageImprint mi;
         mi.getHashAlgorithm().getAlgorithm().setOID("1 3 14 3 2 26");
         RAny null;
         null.setElement(Hex("0500"));
         mi.getHashAlgorithm().setParameters(null);
         mi.getHashedMessage().setValue(Hex("00112233445566778899AABBCCDDEEFF00112233"));
         return mi.toASN1Object();
       },
       "asn1=SEQUENCE:mi\n[mi]\nalg=SEQUENCE:alg\nh=FORMAT:HEX,OCTETSTRING:00112233445566778899AABBCCDDEEFF00112233\n"
       "[alg]\noid=OID:sha1\nnull=NULL\n"},
      {"RecipientEncryptedKey named by rKeyId",
       [] {
         RRecipientEncryptedKey rek;
         RRecipientKeyIdentifier id;
         id.getSubjectKeyIdentifier().setValue(Hex("0102"));
         rek.getRid().setRKeyId(id);
         rek.getEncryptedKey().setValue(Hex("AABB"));
         return rek.toASN1Object();
       },
       "asn1=SEQUENCE:rek\n[rek]\nrid=IMPLICIT:0,SEQUENCE:rkid\nk=FORMAT:HEX,OCTETSTRING:AABB\n"
       "[rkid]\nski=FORMAT:HEX,OCTETSTRING:0102\n"},
      {"SigningCertificate with policies",
       [] {
         RSigningCertificate sc;
         RESSCertID id;
         id.getCertHash().setValue(Hex("00112233445566778899AABBCCDDEEFF00112233"));
         sc.getCerts().add(id);
         RPolicyInformation policy;
         policy.getPolicyIdentifier().setOID("1 2 410 200004 2 1");
         RCertificatePolicies policies;
         policies.add(policy);
         sc.setPolicies(policies);
         return sc.toASN1Object();
       },
       "asn1=SEQUENCE:sc\n[sc]\ncerts=SEQUENCE:certs\npolicies=SEQUENCE:policies\n"
       "[certs]\nid=SEQUENCE:id\n[id]\nh=FORMAT:HEX,OCTETSTRING:00112233445566778899AABBCCDDEEFF00112233\n"
       "[policies]\np=SEQUENCE:p\n[p]\noid=OID:1.2.410.200004.2.1\n"},
      {"ContentInfo without content",
       [] {
         RContentInfo ci;
         ci.getContentType().setOID("1 2 840 113549 1 7 1");
         return ci.toASN1Object();
       },
       "asn1=SEQUENCE:ci\n[ci]\nt=OID:pkcs7-data\n"},
  };
  qvatest::TempDir tmp;
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    qvatest::WriteFile(tmp.file("gen.cnf"), std::string(r.genconf));
    ASSERT_EQ(qvatest::Run("openssl asn1parse -genconf " + tmp.file("gen.cnf") + " -noout -out " + tmp.file("gen.der")),
              0);
    const ByteString expected = qvatest::ReadFileBs(tmp.file("gen.der"));
    const ByteString built = r.build();
    EXPECT_EQ(ToHex(built), ToHex(expected));
  }
}

// An EncryptedData assembled through the setters around a ciphertext made by
// `openssl enc` is decrypted by `openssl cms` to the original text.
TEST(CmsSchema, BuiltEncryptedDataDecryptsWithOpenssl) {
  qvatest::TempDir tmp;
  const std::string text = "Assembled member by member.\n";
  qvatest::WriteFile(tmp.file("plain.txt"), text);
  struct Row {
    const char* cipher;  // openssl enc name
    const char* oid;
    const char* key;
    const char* iv;
  } rows[] = {
      {"aes-128-cbc", "2 16 840 1 101 3 4 1 2", "000102030405060708090A0B0C0D0E0F", "F0E0D0C0B0A090807060504030201000"},
      {"des-ede3-cbc", "1 2 840 113549 3 7", "000102030405060708090A0B0C0D0E0F1011121314151617", "0102030405060708"},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.cipher);
    ASSERT_EQ(qvatest::Run(std::string("openssl enc -") + r.cipher + " -K " + r.key + " -iv " + r.iv + " -in " +
                           tmp.file("plain.txt") + " -out " + tmp.file("ct.bin")),
              0);
    REncryptedData ed;
    ed.getVersion().setInteger(0);
    REncryptedContentInfo& eci = ed.getEncryptedContentInfo();
    eci.getContentType().setOID("1 2 840 113549 1 7 1");
    eci.getContentEncryptionAlgorithm().getAlgorithm().setOID(r.oid);
    RAny iv;
    ASSERT_EQ(iv.setElement(Hex(std::string("04") + (std::strlen(r.iv) == 32 ? "10" : "08") + r.iv)), 0);
    eci.getContentEncryptionAlgorithm().setParameters(iv);
    ROctetString ct;
    ct.setValue(qvatest::ReadFileBs(tmp.file("ct.bin")));
    eci.setEncryptedContent(ct);

    RContentInfo ci;
    ci.getContentType().setOID("1 2 840 113549 1 7 6");
    RAny content;
    ASSERT_EQ(content.setElement(ed.toASN1Object()), 0);
    ci.setContent(content);
    qvatest::WriteFile(tmp.file("ed.der"), ci.toASN1Object());
    ASSERT_EQ(qvatest::Run(std::string("openssl cms -EncryptedData_decrypt -inform DER -in ") + tmp.file("ed.der") +
                           " -secretkey " + r.key + " -out " + tmp.file("out.txt") + " 2>/dev/null"),
              0);
    EXPECT_EQ(qvatest::ReadFile(tmp.file("out.txt")), text);
    // And it reads back into the same members.
    RContentInfo ci2;
    REncryptedData ed2;
    ASSERT_EQ(ci2.fromASN1Object(qvatest::ReadFileBs(tmp.file("ed.der"))), 0);
    ASSERT_EQ(ed2.fromASN1Object(ci2.getContent().getElement()), 0);
    EXPECT_FALSE(ed2.hasUnprotectedAttrs());
    EXPECT_EQ(ed2.getEncryptedContentInfo().getEncryptedContent().getValue(), ct.getValue());
  }
}

// The identity-verification otherName of a real Korean PKI certificate, and
// the subscriber's signing and key-management certificates as a pair.
TEST(CmsSchema, KoreanIdentifyDataAndCertificatePair) {
  const ByteString sign = qvatest::ReadFileBs(qvatest::DataPath("pkix/cms/korean/test_KTNET_signCert.der"));
  const ByteString km = qvatest::ReadFileBs(qvatest::DataPath("pkix/cms/korean/test_KTNET_kmCert.der"));
  RCertificate cert;
  ASSERT_EQ(cert.fromASN1Object(sign), 0) << cert.getErrorMessage().c_str();
  int found = 0;
  for (RExtension ext : cert.getTbsCertificate().getExtensions().items()) {
    if (qvatest::Str(ext.getExtnID().getOID()) != "2 5 29 17") continue;
    RGeneralNames names;
    ASSERT_EQ(names.fromASN1Object(ext.getExtnValue().getValue()), 0) << names.getErrorMessage().c_str();
    for (RGeneralName name : names.items()) {
      if (!name.isOtherName() || qvatest::Str(name.getOtherName().getTypeId().getOID()) != "1 2 410 200004 10 1 1")
        continue;
      const ByteString& element = name.getOtherName().m_value.getElement();  // [0] EXPLICIT value
      RIdentifyData id;
      ASSERT_EQ(id.fromASN1Object(element), 0) << id.getErrorMessage().c_str();
      EXPECT_EQ(ToHex(id.getRealName().getValue()), "ed858cec8aa4ed8ab8");  // "테스트" in UTF-8
      ASSERT_TRUE(id.hasUserInfo());
      ASSERT_EQ(id.getUserInfo().getCount(), 1);
      EXPECT_EQ(qvatest::Str(id.getUserInfo().getAt(0)->getType().getOID()), "1 2 410 200004 10 1 1 1");
      RVID vid;
      ASSERT_EQ(id.getVID(0, &vid), 0) << vid.getErrorMessage().c_str();
      EXPECT_EQ(qvatest::Str(vid.getHashAlg().getAlgorithm().getOID()), "2 16 840 1 101 3 4 2 1");  // SHA-256
      EXPECT_EQ(ToHex(vid.getVirtualID().getValue()),
                "b99b8e1d3e35c0040cfced6e4d7a7ed45151798f76e30b989d15fdceb8efc880");
      EXPECT_EQ(id.getVID(1, &vid), R_ERR_FORMAT);  // no second entry
      // Both encode back to the certificate's bytes.
      EXPECT_EQ(id.toASN1Object(), element);
      const ByteString& vidElement = id.getUserInfo().getAt(0)->m_value.getElement();
      EXPECT_EQ(vid.toASN1Object(), vidElement);
      ++found;
    }
  }
  EXPECT_EQ(found, 1);

  RCertificates pair;
  ASSERT_EQ(pair.getSignCert().fromASN1Object(sign), 0);
  ASSERT_EQ(pair.getKmCert().fromASN1Object(km), 0);
  const ByteString der = pair.toASN1Object();
  ASSERT_EQ(pair.getErrorCode(), 0) << pair.getErrorMessage().c_str();
  RCertificates back;
  ASSERT_EQ(back.fromASN1Object(der), 0) << back.getErrorMessage().c_str();
  EXPECT_EQ(back.getSignCert().getRawTBSCertificate(), pair.getSignCert().getRawTBSCertificate());
  EXPECT_EQ(back.getKmCert().toASN1Object(), km);
  EXPECT_EQ(back.getSignCert().toASN1Object(), sign);
}
