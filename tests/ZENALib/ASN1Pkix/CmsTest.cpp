// The CMS, time-stamp, ESS and identity-verification structure classes on
// objects made by the openssl CLI (tests/data/pkix/cms, make.sh and the
// tables there) and on a real Korean PKI certificate.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <sstream>

#include "PkixClasses.h"
#include "tests/ZENALib/ASN1Pkix/Pkix.h"

using pkixtest::Oid;
using pkixtest::RoundTrips;
using qvatest::Hex;
using qvatest::ToHex;

namespace {

const char kData[] = "1 2 840 113549 1 7 1";
const char kSignedData[] = "1 2 840 113549 1 7 2";
const char kEnvelopedData[] = "1 2 840 113549 1 7 3";
const char kEncryptedData[] = "1 2 840 113549 1 7 6";
const char kTSTInfo[] = "1 2 840 113549 1 9 16 1 4";
const char kSigningCertificate[] = "1 2 840 113549 1 9 16 2 12";

ByteString Load(const std::string& name) { return pkixtest::Load("cms/" + name); }
std::vector<std::string> Files(const std::string& prefix) { return pkixtest::Files("cms", prefix, ".der"); }

// Component i of the SEQUENCE `der` (empty when there is none).
ByteString Component(const ByteString& der, int i) {
  ASN1Sequence seq;
  const unsigned char* p = nullptr;
  int n = 0;
  if (seq.fromASN1Object(der) != 0 || seq.getComponentBytes(i, &p, &n) != 0) return ByteString();
  return ByteString(p, n);
}

// Decodes the ContentInfo `der` and its content into obj.
template <typename T>
::testing::AssertionResult ContentOf(const ByteString& der, T& obj) {
  RContentInfo ci;
  if (ci.fromASN1Object(der) != 0)
    return ::testing::AssertionFailure() << "ContentInfo: " << ci.getErrorMessage().c_str();
  if (obj.fromASN1Object(ci.getContent().getElement()) != 0)
    return ::testing::AssertionFailure() << "content: " << obj.getErrorMessage().c_str();
  return ::testing::AssertionSuccess();
}

// The values of the signingCertificate attributes of a signer, decoded.
std::vector<RSigningCertificate> SigningCertificates(const RSignerInfo& si) {
  std::vector<RSigningCertificate> out;
  if (!si.hasSignedAttrs()) return out;
  for (const RAttribute& attr : si.getSignedAttrs().items()) {
    if (Oid(attr.getType()) != kSigningCertificate) continue;
    for (const RAny& v : attr.getValues().items()) {
      out.emplace_back();
      EXPECT_TRUE(RoundTrips(out.back(), v.getElement()));
    }
  }
  return out;
}

// A ContentInfo and the content it carries, decoded by its content type and
// round-tripped, with the TSTInfo and the ESS signingCertificate attributes
// inside a SignedData; returns the number of objects checked.
int CheckContentInfo(const ByteString& der) {
  RContentInfo ci;
  EXPECT_TRUE(RoundTrips(ci, der));
  if (!ci.hasContent()) return 0;
  const std::map<std::string, std::string> classOf = {
      {kSignedData, "RSignedData"}, {kEnvelopedData, "REnvelopedData"}, {kEncryptedData, "REncryptedData"}};
  const std::string type = Oid(ci.getContentType());
  if (!classOf.count(type)) return ADD_FAILURE() << "unexpected content type " << type, 0;
  EXPECT_TRUE(pkixtest::RoundTripsAs(classOf.at(type), ci.getContent().getElement()));
  if (type != kSignedData) return 2;
  RSignedData sd;
  EXPECT_EQ(sd.fromASN1Object(ci.getContent().getElement()), 0);
  int checked = 2;
  if (Oid(sd.getEncapContentInfo().getEContentType()) == kTSTInfo) {
    EXPECT_TRUE(pkixtest::RoundTripsAs("RTSTInfo", sd.getEncapContentInfo().getEContent().getValue()));
    ++checked;
  }
  for (const RSignerInfo& si : sd.getSignerInfos().items())
    for (const RSigningCertificate& sc : SigningCertificates(si)) {
      EXPECT_GE(sc.getCerts().getCount(), 1);
      ++checked;
    }
  return checked;
}

}  // namespace

// Every openssl-made object of the corpus decodes and encodes back to the
// same bytes, and so does every structure inside it that has a class here.
TEST(CmsCorpus, EveryObjectRoundTrips) {
  int files = 0, objects = 0, rejected = 0;
  for (const char* prefix : {"sd_", "env_", "enc_", "tst_"})
    for (const std::string& path : Files(prefix)) {
      SCOPED_TRACE(path);
      objects += CheckContentInfo(qvatest::ReadFileBs(path));
      ++files;
    }
  // TimeStampReq ::= SEQUENCE { version, messageImprint, ... }
  for (const std::string& path : Files("tsq_")) {
    EXPECT_TRUE(pkixtest::RoundTripsAs("RMessageImprint", Component(qvatest::ReadFileBs(path), 1))) << path;
    ++files, ++objects;
  }
  // TimeStampResp ::= SEQUENCE { status PKIStatusInfo, timeStampToken ContentInfo OPTIONAL }
  for (const std::string& path : Files("tsr_")) {
    SCOPED_TRACE(path);
    const ByteString token = Component(qvatest::ReadFileBs(path), 1);
    ++files;
    if (token.isEmpty()) ++rejected;
    else objects += CheckContentInfo(token);
  }
  EXPECT_EQ(rejected, 1);  // tsr_rejected.der carries only a status
  EXPECT_GE(files, 60);
  EXPECT_GE(objects, 150);
}

// Members land in the right components (signed.txt); attached contents are
// the texts make.sh signed.
TEST(CmsCorpus, SignedDataMembers) {
  for (auto r : pkixtest::Vectors("cms/signed.txt")) {
    SCOPED_TRACE(r["File"]);
    RSignedData sd;
    ASSERT_TRUE(ContentOf(Load(r["File"]), sd));
    auto n = [&](const char* k) { return std::stoi(r[k]); };
    EXPECT_EQ(sd.getVersion().getInteger(), n("Version"));
    EXPECT_EQ(sd.getDigestAlgorithms().getCount(), n("DigestAlgorithms"));
    EXPECT_EQ(sd.hasCertificates() ? sd.getCertificates().getCount() : -1, n("Certificates"));
    EXPECT_EQ(sd.hasCrls() ? sd.getCrls().getCount() : -1, n("Crls"));
    EXPECT_EQ(sd.getSignerInfos().getCount(), n("Signers"));
    EXPECT_EQ(sd.getEncapContentInfo().hasEContent(), n("Attached") == 1);
    for (const RCertificateChoices& c : sd.getCertificates().items()) EXPECT_TRUE(c.isCertificate());
    if (n("Signers") == 0) continue;
    RSignerInfo& si = *sd.getSignerInfos().getAt(0);
    const bool keyId = n("KeyId") == 1;
    EXPECT_EQ(si.hasSignedAttrs(), n("SignedAttrs") == 1);
    EXPECT_EQ(si.getSid().isSubjectKeyIdentifier(), keyId);
    EXPECT_EQ(si.getSid().isIssuerAndSerialNumber(), !keyId);
    EXPECT_EQ(si.getVersion().getInteger(), keyId ? 3 : 1);
    // The signed attributes are kept as received, under the SET tag.
    if (!si.hasSignedAttrs()) {
      EXPECT_TRUE(si.getRawSignedAttrs().isEmpty());
      continue;
    }
    RAttributes attrs;
    EXPECT_TRUE(RoundTrips(attrs, si.getRawSignedAttrs()));
    EXPECT_EQ(attrs.getCount(), si.getSignedAttrs().getCount());
  }
  const std::pair<const char*, std::string> contents[] = {
      {"sd_rsa_attached.der", "Hello, CMS.\r\n"},  // S/MIME text mode turns \n into \r\n
      {"sd_rsa_big.der", std::string(3000, 'A')},  // -binary keeps the bytes
      {"sd_rsa_empty.der", ""},                    // an empty eContent is still present
  };
  for (const auto& [file, content] : contents) {
    RSignedData sd;
    ASSERT_TRUE(ContentOf(Load(file), sd));
    EXPECT_EQ(Oid(sd.getEncapContentInfo().getEContentType()), kData);
    ASSERT_TRUE(sd.getEncapContentInfo().hasEContent()) << file;
    EXPECT_EQ(qvatest::Str(sd.getEncapContentInfo().getEContent().getValue()), content) << file;
  }
}

// Every RecipientInfo kind, and the identifiers inside each (recipients.txt).
TEST(CmsCorpus, RecipientInfoKinds) {
  for (auto r : pkixtest::Vectors("cms/recipients.txt")) {
    SCOPED_TRACE(r["File"]);
    REnvelopedData ed;
    ASSERT_TRUE(ContentOf(Load(r["File"]), ed));
    std::istringstream kinds(r["Kinds"]);
    const bool keyId = r["KeyId"] == "1";
    std::string kind;
    int i = 0;
    EXPECT_EQ(Oid(ed.getEncryptedContentInfo().getContentType()), kData);
    EXPECT_TRUE(ed.getEncryptedContentInfo().hasEncryptedContent());
    for (; kinds >> kind; ++i) {
      ASSERT_LT(i, ed.getRecipientInfos().getCount());
      const RRecipientInfo& ri = *ed.getRecipientInfos().getAt(i);
      if (kind == "KTRI") {
        ASSERT_TRUE(ri.isKtri());
        EXPECT_EQ(ri.getKtri().getRid().isSubjectKeyIdentifier(), keyId);
        EXPECT_EQ(ri.getKtri().getVersion().getInteger(), keyId ? 2 : 0);
        EXPECT_EQ(ri.getKtri().getEncryptedKey().getValueLength(), 256);  // RSA 2048
      } else if (kind == "KARI") {
        ASSERT_TRUE(ri.isKari());
        const RKeyAgreeRecipientInfo& k = ri.getKari();
        EXPECT_EQ(k.getVersion().getInteger(), 3);
        EXPECT_TRUE(k.getOriginator().isOriginatorKey());  // an ephemeral ECDH key
        EXPECT_EQ(k.getOriginator().getOriginatorKey().getPublicKey().getValueLength(), 66);  // 0 + 04|X|Y
        ASSERT_EQ(k.getRecipientEncryptedKeys().getCount(), 1);
        EXPECT_EQ(k.getRecipientEncryptedKeys().getAt(0)->getRid().isRKeyId(), keyId);
      } else if (kind == "KEKRI") {
        ASSERT_TRUE(ri.isKekri());
        EXPECT_EQ(ri.getKekri().getVersion().getInteger(), 4);
        EXPECT_FALSE(ri.getKekri().getKekid().hasDate());
        EXPECT_EQ(ToHex(ri.getKekri().getKekid().getKeyIdentifier().getValue()), r["Kekid"]);
      } else {
        ASSERT_EQ(kind, "PWRI");
        ASSERT_TRUE(ri.isPwri());
        EXPECT_EQ(ri.getPwri().getIdentifier(), 0xA3);  // kept verbatim under [3]
      }
    }
    EXPECT_EQ(ed.getRecipientInfos().getCount(), i);
  }
}

// The optional members of TSTInfo follow the TSA's configuration (tokens.txt).
TEST(CmsCorpus, TimeStampTokens) {
  for (auto r : pkixtest::Vectors("cms/tokens.txt")) {
    SCOPED_TRACE(r["File"]);
    auto n = [&](const char* k) { return std::stoi(r[k]); };
    RSignedData sd;
    RTSTInfo tst;
    ASSERT_TRUE(ContentOf(Load(r["File"]), sd));
    ASSERT_EQ(tst.fromASN1Object(sd.getEncapContentInfo().getEContent().getValue()), 0)
        << tst.getErrorMessage().c_str();
    EXPECT_EQ(tst.getVersion().getInteger(), 1);
    EXPECT_EQ(Oid(tst.getPolicy()), r["Policy"]);
    const RAccuracy& a = tst.getAccuracy();
    ASSERT_EQ(tst.hasAccuracy(), n("Seconds") >= 0 || n("Millis") >= 0 || n("Micros") >= 0);
    EXPECT_EQ(a.hasSeconds() ? a.getSeconds().getInteger() : -1, n("Seconds"));
    EXPECT_EQ(a.hasMillis() ? a.getMillis().getInteger() : -1, n("Millis"));
    EXPECT_EQ(a.hasMicros() ? a.getMicros().getInteger() : -1, n("Micros"));
    EXPECT_EQ(tst.hasOrdering(), n("Ordering") == 1);
    EXPECT_EQ(tst.hasNonce(), n("Nonce") == 1);
    EXPECT_EQ(tst.hasTsa(), n("Tsa") == 1);
    if (tst.hasTsa()) { EXPECT_TRUE(tst.getTsa().isDirectoryName()); }  // tsa_name = yes gives the TSA's subject
    EXPECT_GE(tst.getGenTime().getValueLength(), 15);
    // The ESS signingCertificate names the TSA certificate by its SHA-1 alone,
    // the rest of the chain by hash, issuer and serial.
    const auto scs = SigningCertificates(*sd.getSignerInfos().getAt(0));
    ASSERT_EQ(scs.size(), 1u);
    const RSigningCertificate& sc = scs[0];
    ASSERT_EQ(sc.getCerts().getCount(), n("EssCertIds"));
    EXPECT_EQ(sc.getCerts().getAt(0)->getCertHash().getValueLength(), 20);
    EXPECT_FALSE(sc.getCerts().getAt(0)->hasIssuerSerial());
    for (int i = 1; i < sc.getCerts().getCount(); ++i) {
      const RESSCertID& id = *sc.getCerts().getAt(i);
      ASSERT_TRUE(id.hasIssuerSerial());
      ASSERT_EQ(id.getIssuerSerial().getIssuer().getCount(), 1);
      EXPECT_TRUE(id.getIssuerSerial().getIssuer().getAt(0)->isDirectoryName());
    }
  }
}

// The message imprint of a query is the digest openssl dgst computes over the
// same text, and the reply's token carries the same imprint (imprints.txt).
TEST(CmsCorpus, MessageImprintMatchesDigest) {
  qvatest::TempDir tmp;
  qvatest::WriteFile(tmp.file("small.txt"), std::string("Hello, CMS.\n"));
  for (auto r : pkixtest::Vectors("cms/imprints.txt")) {
    SCOPED_TRACE(r["Query"]);
    std::string out;
    ASSERT_EQ(qvatest::Run("openssl dgst -" + r["Digest"] + " -r " + tmp.file("small.txt"), &out), 0);
    RMessageImprint mi;
    ASSERT_EQ(mi.fromASN1Object(Component(Load(r["Query"]), 1)), 0);
    EXPECT_EQ(Oid(mi.getHashAlgorithm().getAlgorithm()), r["Oid"]);
    std::string got = ToHex(mi.getHashedMessage().getValue());
    std::transform(got.begin(), got.end(), got.begin(), ::tolower);
    EXPECT_EQ(got, out.substr(0, out.find(' ')));
    RSignedData sd;
    RTSTInfo tst;
    ASSERT_TRUE(ContentOf(Component(Load(r["Reply"]), 1), sd));
    ASSERT_EQ(tst.fromASN1Object(sd.getEncapContentInfo().getEContent().getValue()), 0);
    EXPECT_EQ(tst.getMessageImprint().toASN1Object(), mi.toASN1Object());
  }
}

// Truncated objects fail cleanly at every cut, at every level.
TEST(CmsCorpus, TruncationFails) {
  for (const char* name : {"sd_three_signers.der", "env_mixed.der", "enc_des3.der", "tst_full_sha256.der"}) {
    const ByteString der = Load(name);
    for (int cut = 0; cut < der.length(); cut += 1 + der.length() / 97) {
      RContentInfo ci;
      EXPECT_NE(ci.fromASN1Object(ByteString(der.data(), cut)), 0) << name << " cut at " << cut;
    }
  }
}

// `openssl cms -stream` objects (streams.txt) decode into the same members as
// the DER object of the same command (apart from what is random: keys, IVs,
// signatures, signing times); our encoding of them is DER, decodes to
// itself, and is accepted by openssl.
TEST(CmsCorpus, IndefiniteLengthForms) {
  const auto records = pkixtest::Vectors("cms/streams.txt");
  EXPECT_EQ(pkixtest::Files("cms", "", ".ber").size(), records.size());
  qvatest::TempDir tmp;
  for (auto r : records) {
    SCOPED_TRACE(r["Ber"]);
    const ByteString ber = Load(r["Ber"]);
    ASSERT_GT(ber.length(), 2);
    ASSERT_EQ(ber.data()[1], 0x80);  // the outer length is indefinite
    RContentInfo ci;
    ASSERT_EQ(ci.fromASN1Object(ber), 0) << ci.getErrorMessage().c_str();
    const std::string type = Oid(ci.getContentType());
    auto obj = pkixtest::Make(type == kSignedData      ? "RSignedData"
                              : type == kEnvelopedData ? "REnvelopedData"
                                                       : "REncryptedData");
    ASSERT_EQ(obj->fromASN1Object(ci.getContent().getElement()), 0) << obj->getErrorMessage().c_str();
    const ByteString reencoded = obj->toASN1Object();
    ASSERT_TRUE(pkixtest::RoundTripsAs(dynamic_cast<RObject&>(*obj).className(), reencoded));
    RContentInfo dci;
    if (r.count("Der")) {
      ASSERT_EQ(dci.fromASN1Object(Load(r["Der"])), 0);
    }
    const ByteString& dc = dci.getContent().getElement();
    if (auto* sd = dynamic_cast<RSignedData*>(obj.get()); sd && r.count("Der")) {
      RSignedData sd2;
      ASSERT_EQ(sd2.fromASN1Object(dc), 0);
      EXPECT_TRUE(pkixtest::SameMembers({{&sd->getDigestAlgorithms(), &sd2.getDigestAlgorithms()},
                                         {&sd->getEncapContentInfo(), &sd2.getEncapContentInfo()},
                                         {&sd->getCertificates(), &sd2.getCertificates()},
                                         {&sd->getSignerInfos().getAt(0)->getSid(),
                                          &sd2.getSignerInfos().getAt(0)->getSid()}}));
    }
    // Same input and cipher: only the keys and IVs differ, so the lengths match.
    if (auto* ed = dynamic_cast<REnvelopedData*>(obj.get()); ed && r.count("Der")) {
      REnvelopedData ed2;
      ASSERT_EQ(ed2.fromASN1Object(dc), 0);
      EXPECT_EQ(ed->getRecipientInfos().getCount(), ed2.getRecipientInfos().getCount());
      EXPECT_EQ(ed->getRecipientInfos().getAt(0)->getSelected(), ed2.getRecipientInfos().getAt(0)->getSelected());
      EXPECT_EQ(ed->getEncryptedContentInfo().getEncryptedContent().getValueLength(),
                ed2.getEncryptedContentInfo().getEncryptedContent().getValueLength());
    }
    if (auto* ed = dynamic_cast<REncryptedData*>(obj.get())) {
      REncryptedData ed2;
      ASSERT_EQ(ed2.fromASN1Object(dc), 0);
      EXPECT_EQ(ed->getEncryptedContentInfo().getEncryptedContent().getValueLength(),
                ed2.getEncryptedContentInfo().getEncryptedContent().getValueLength());
    }
    RContentInfo out;
    out.getContentType() = ci.getContentType();
    ASSERT_EQ(out.getContent().setElement(reencoded), 0);
    out.setPresent(out.getContent(), true);
    qvatest::WriteFile(tmp.file("ours.der"), out.toASN1Object());
    ASSERT_EQ(out.getErrorCode(), 0) << out.getErrorMessage().c_str();
    char cmd[512];
    std::snprintf(cmd, sizeof cmd, r["Verify"].c_str(), tmp.file("ours.der").c_str());
    EXPECT_EQ(qvatest::Run(std::string(cmd) + " 2>/dev/null"), 0) << cmd;
  }
}

// BER segmented OCTET STRINGs are joined and DER is written back
// (segmented.txt); segments nested deeper than the codec's limit are refused.
TEST(CmsSchema, SegmentedOctetString) {
  for (auto r : pkixtest::Vectors("cms/segmented.txt")) {
    SCOPED_TRACE(r["Input"]);
    REncapsulatedContentInfo eci;
    const int rc = eci.fromASN1Object(Hex(r["Input"]));
    if (!r.count("Value")) {
      EXPECT_NE(rc, 0);
      continue;
    }
    ASSERT_EQ(rc, 0) << eci.getErrorMessage().c_str();
    EXPECT_EQ(eci.getEContent().getValue(), Hex(r["Value"]));
    const ByteString der = eci.toASN1Object();  // primitive, definite
    EXPECT_EQ(der.data()[1], der.length() - 2);
    REncapsulatedContentInfo again;
    EXPECT_TRUE(RoundTrips(again, der));
  }
  std::string deep = "30 80 06012A A0 80";
  for (int i = 0; i < 80; ++i) deep += " 2480";
  deep += " 0401 41";
  for (int i = 0; i < 82; ++i) deep += " 0000";
  REncapsulatedContentInfo eci;
  EXPECT_NE(eci.fromASN1Object(Hex(deep)), 0);
}

// Objects built through the setters encode exactly as openssl's generator
// (asn1parse -genconf) encodes the same values (genconf.txt).
TEST(CmsSchema, SettersEncodeAsOpensslBuilds) {
  const std::map<std::string, std::function<ByteString()>> builders = {
      {"HashContent", [] {
         RHashContent hc;
         hc.getIdn().setValue("8001011234567");
         hc.getRandomNum().setBitString(Hex("0123456789ABCDEF0123456789ABCDEF01234567"), 0);
         return hc.toASN1Object();
       }},
      {"VID", [] {
         RVID vid;
         vid.getHashAlg().getAlgorithm().setOID("2 16 840 1 101 3 4 2 1");
         vid.getVirtualID().setValue(Hex("B99B8E1D3E35C0040CFCED6E4D7A7ED4"));
         return vid.toASN1Object();
       }},
      {"Accuracy", [] {
         RAccuracy a;
         a.setSeconds(ASN1Integer(1));
         a.setMillis(ASN1Integer(500));
         a.setMicros(ASN1Integer(100));
         return a.toASN1Object();
       }},
      {"AccuracyMillis", [] {
         RAccuracy a;
         a.setMillis(ASN1Integer(999));
         return a.toASN1Object();
       }},
      {"KEKIdentifier", [] {
         RKEKIdentifier k;
         k.getKeyIdentifier().setValue(Hex("C0FFEE"));
         ASN1GeneralizedTime t;
         t.setValue("20261122000000Z");
         k.setDate(t);
         return k.toASN1Object();
       }},
      {"MessageImprint", [] {
         RMessageImprint mi;
         mi.getHashAlgorithm().getAlgorithm().setOID("1 3 14 3 2 26");
         RAny null;
         null.setElement(Hex("0500"));
         mi.getHashAlgorithm().setParameters(null);
         mi.getHashedMessage().setValue(Hex("00112233445566778899AABBCCDDEEFF00112233"));
         return mi.toASN1Object();
       }},
      {"RecipientEncryptedKey", [] {
         RRecipientEncryptedKey rek;
         RRecipientKeyIdentifier id;
         id.getSubjectKeyIdentifier().setValue(Hex("0102"));
         rek.getRid().setRKeyId(id);
         rek.getEncryptedKey().setValue(Hex("AABB"));
         return rek.toASN1Object();
       }},
      {"SigningCertificate", [] {
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
       }},
      {"ContentInfo", [] {
         RContentInfo ci;
         ci.getContentType().setOID("1 2 840 113549 1 7 1");
         return ci.toASN1Object();
       }},
  };
  const auto records = pkixtest::Vectors("cms/genconf.txt");
  EXPECT_EQ(records.size(), builders.size());
  qvatest::TempDir tmp;
  for (auto r : records) {
    SCOPED_TRACE(r["Name"]);
    std::string conf = r["Genconf"];
    for (std::string::size_type at; (at = conf.find(" | ")) != std::string::npos;) conf.replace(at, 3, "\n");
    qvatest::WriteFile(tmp.file("gen.cnf"), conf + "\n");
    ASSERT_EQ(qvatest::Run("openssl asn1parse -genconf " + tmp.file("gen.cnf") + " -noout -out " + tmp.file("gen.der")),
              0);
    ASSERT_TRUE(builders.count(r["Name"]));
    EXPECT_EQ(ToHex(builders.at(r["Name"])()), ToHex(qvatest::ReadFileBs(tmp.file("gen.der"))));
  }
}

// An EncryptedData assembled through the setters around a ciphertext made by
// `openssl enc` is decrypted by `openssl cms` to the original text.
TEST(CmsSchema, BuiltEncryptedDataDecryptsWithOpenssl) {
  qvatest::TempDir tmp;
  const std::string text = "Assembled member by member.\n";
  qvatest::WriteFile(tmp.file("plain.txt"), text);
  struct Row {
    const char *cipher, *oid, *key, *iv;  // openssl enc name, identifier, key, IV
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
    eci.getContentType().setOID(kData);
    eci.getContentEncryptionAlgorithm().getAlgorithm().setOID(r.oid);
    RAny iv;
    ASN1OctetString ivValue;
    ivValue.setValue(Hex(r.iv));
    ASSERT_EQ(iv.setElement(ivValue.toASN1Object()), 0);
    eci.getContentEncryptionAlgorithm().setParameters(iv);
    ROctetString ct;
    ct.setValue(qvatest::ReadFileBs(tmp.file("ct.bin")));
    eci.setEncryptedContent(ct);
    RContentInfo ci;
    ci.getContentType().setOID(kEncryptedData);
    RAny content;
    ASSERT_EQ(content.setElement(ed.toASN1Object()), 0);
    ci.setContent(content);
    qvatest::WriteFile(tmp.file("ed.der"), ci.toASN1Object());
    ASSERT_EQ(qvatest::Run("openssl cms -EncryptedData_decrypt -inform DER -in " + tmp.file("ed.der") +
                           " -secretkey " + r.key + " -out " + tmp.file("out.txt") + " 2>/dev/null"),
              0);
    EXPECT_EQ(qvatest::ReadFile(tmp.file("out.txt")), text);
  }
}

// The identity-verification otherName of a real Korean PKI certificate, and
// the subscriber's signing and key-management certificates as a pair.
TEST(CmsSchema, KoreanIdentifyDataAndCertificatePair) {
  const ByteString sign = Load("korean/test_KTNET_signCert.der"), km = Load("korean/test_KTNET_kmCert.der");
  RCertificate cert;
  ASSERT_EQ(cert.fromASN1Object(sign), 0) << cert.getErrorMessage().c_str();
  int found = 0;
  for (const RExtension& ext : cert.getTbsCertificate().getExtensions().items()) {
    if (Oid(ext.getExtnID()) != "2 5 29 17") continue;
    RGeneralNames names;
    ASSERT_EQ(names.fromASN1Object(ext.getExtnValue().getValue()), 0) << names.getErrorMessage().c_str();
    for (const RGeneralName& name : names.items()) {
      if (!name.isOtherName() || Oid(name.getOtherName().getTypeId()) != "1 2 410 200004 10 1 1") continue;
      const ByteString& element = name.getOtherName().getNameValue().getElement();  // [0] EXPLICIT value
      RIdentifyData id;
      ASSERT_EQ(id.fromASN1Object(element), 0) << id.getErrorMessage().c_str();
      EXPECT_EQ(ToHex(id.getRealName().getValue()), "ed858cec8aa4ed8ab8");  // "테스트" in UTF-8
      RVID vid;  // first: it fails when there is no entry to read below
      ASSERT_EQ(id.getVID(0, &vid), 0) << vid.getErrorMessage().c_str();
      EXPECT_EQ(Oid(id.getUserInfo().getAt(0)->getType()), "1 2 410 200004 10 1 1 1");
      EXPECT_EQ(ToHex(vid.getVirtualID().getValue()),
                "b99b8e1d3e35c0040cfced6e4d7a7ed45151798f76e30b989d15fdceb8efc880");
      EXPECT_EQ(id.getVID(1, &vid), R_ERR_FORMAT);  // no second entry
      // Both encode back to the certificate's bytes.
      EXPECT_EQ(id.toASN1Object(), element);
      EXPECT_EQ(vid.toASN1Object(), id.getUserInfo().getAt(0)->getValue().getElement());
      ++found;
    }
  }
  EXPECT_EQ(found, 1);
  RCertificates pair;
  ASSERT_EQ(pair.getSignCert().fromASN1Object(sign), 0);
  ASSERT_EQ(pair.getKmCert().fromASN1Object(km), 0);
  RCertificates back;
  ASSERT_TRUE(RoundTrips(back, pair.toASN1Object()));
  EXPECT_EQ(back.getKmCert().toASN1Object(), km);
  EXPECT_EQ(back.getSignCert().toASN1Object(), sign);
}
