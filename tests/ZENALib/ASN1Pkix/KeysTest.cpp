// The key, key-parameter, PKCS #8 and PKCS #12 structure classes against
// objects made by the openssl CLI (tests/data/pkix/keys/make.sh): every file
// decodes and encodes back byte for byte, every structure found inside one
// (key inside PKCS #8, parameters inside algorithm identifiers, bags inside
// PKCS #12 layers) does the same with its own class, the members hold what
// openssl itself reads out of the file, cut input fails cleanly, BER input
// reads as its DER form, and members set one by one encode as the published
// examples and openssl do.
#include <cctype>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "PkixClasses.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "tests/ZENALib/ASN1Pkix/Pkix.h"

using qvatest::Hex;
using qvatest::ToHex;

namespace {

// Object identifiers that select an inner structure.
const char* const kRsa = "1 2 840 113549 1 1 1";
const char* const kRsaPss = "1 2 840 113549 1 1 10";
const char* const kMgf1 = "1 2 840 113549 1 1 8";
const char* const kEcKey = "1 2 840 10045 2 1";
const char* const kDsa = "1 2 840 10040 4 1";
const char* const kPbes2 = "1 2 840 113549 1 5 13";
const char* const kPbkdf2 = "1 2 840 113549 1 5 12";
const char* const kRc2Cbc = "1 2 840 113549 3 2";
const char* const kPkcs5PbePrefix = "1 2 840 113549 1 5 ";     // PBES1: 1, 3, 4, 6, 10, 11
const char* const kPkcs12PbePrefix = "1 2 840 113549 1 12 1 ";  // pbeWithSHAAnd...
const char* const kData = "1 2 840 113549 1 7 1";
const char* const kEncryptedData = "1 2 840 113549 1 7 6";
const char* const kBagPrefix = "1 2 840 113549 1 12 10 1 ";
const char* const kX509Certificate = "1 2 840 113549 1 9 22 1";

bool StartsWith(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }
ByteString Load(const std::string& file) { return pkixtest::Load("keys/" + file); }

// The content octets of an OCTET STRING element kept by an RAny.
ByteString Octets(const RAny& any) {
  ASN1OctetString os;
  if (os.fromASN1Object(any.getElement()) != 0) return ByteString();
  return os.getValue();
}

// Upper-case hex without the sign octet, as openssl prints a number.
std::string Magnitude(std::string hex) {
  if (hex.rfind("00", 0) == 0) hex.erase(0, 2);
  for (char& c : hex) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return hex;
}

// Walks one file and every structure inside it, round-tripping each layer
// with its class. `seen` counts the layers per class; failures are reported
// with the path of layers that led to them.
class Walker {
 public:
  std::map<std::string, int> seen;
  std::vector<std::string> bags;          // bag kinds met in plain SafeContents: C, S, K
  std::vector<std::string> contentTypes;  // of the AuthenticatedSafe: D, E
  std::set<std::string> attributes;       // attribute types met on bags
  std::string lastModulus, lastDsaY;
  bool damage = false;  // check cut and padded copies of the outer file instead of walking it

  // Decodes der into a fresh T, checks the DER round trip, records the layer
  // and goes on inside it.
  template <typename T>
  void layer(const std::string& where, const ByteString& der) {
    T obj;
    SCOPED_TRACE(where);
    if (damage) return damaged(obj, der);
    const int rc = obj.fromASN1Object(der);
    ASSERT_EQ(rc, 0) << obj.getErrorMessage().c_str();
    const ByteString& again = obj.toASN1Object();
    ASSERT_EQ(obj.getErrorCode(), 0) << obj.getErrorMessage().c_str();
    ASSERT_EQ(ToHex(again), ToHex(der));
    ++seen[obj.className()];
    inner(where + "/" + obj.className(), obj);
  }

 private:
  // Every strict prefix of der fails with a code and a trace that starts at
  // the class itself. The contents cut short under a corrected outer length
  // (so the cut lands inside a member) either fail the same way or, where
  // the cut falls between members and the rest is optional, decode to what
  // they encode. Octets after the element are not part of it.
  template <typename T>
  void damaged(T& obj, const ByteString& der) {
    const int n = der.length();
    const unsigned char* p = der.data();
    const int header = (p[1] & 0x80) ? 2 + (p[1] & 0x7F) : 2;
    for (int cut = 0; cut < n; cut += (cut < 64 || n - cut < 64) ? 1 : 7) {
      T part;
      ASSERT_NE(part.fromASN1Object(der.mid(0, cut)), 0) << "prefix of " << cut;
      ASSERT_TRUE(StartsAtClass(part)) << part.getErrorMessage().c_str();
      if (cut < header) continue;
      const ByteString inside = Rewrap(p[0], der.mid(header, cut - header));
      T shorter;
      if (shorter.fromASN1Object(inside) == 0) {
        ASSERT_EQ(ToHex(shorter.toASN1Object()), ToHex(inside)) << "contents cut at " << cut;
      } else {
        ASSERT_TRUE(StartsAtClass(shorter)) << shorter.getErrorMessage().c_str();
      }
    }
    ByteString padded = der;
    padded.append(reinterpret_cast<const unsigned char*>("\x05\x00\x30"), 3);
    ASSERT_EQ(obj.fromASN1Object(padded), 0) << obj.getErrorMessage().c_str();
    ASSERT_EQ(ToHex(obj.toASN1Object()), ToHex(der));
  }
  // Whether the newest trace frame is the object's own: "[file:line]<class>::".
  template <typename T>
  static bool StartsAtClass(T& obj) {
    const std::string trace = obj.getErrorMessage().c_str();
    const std::string::size_type close = trace.find(']');
    const std::string own = std::string(obj.className()) + "::";
    return close != std::string::npos && trace.compare(close + 1, own.size(), own) == 0;
  }
  // One element: identifier octet, DER length, contents.
  static ByteString Rewrap(unsigned char id, const ByteString& content) {
    const int len = content.length();
    std::string head(1, static_cast<char>(id));
    if (len >= 0x100) head += {'\x82', static_cast<char>(len >> 8)};
    else if (len >= 0x80) head += '\x81';
    head += static_cast<char>(len & 0xFF);
    ByteString out(head.data(), static_cast<int>(head.size()));
    out += content;
    return out;
  }

  template <typename T>
  void inner(const std::string&, T&) {}

  void params(const std::string& where, RAlgorithmIdentifier& alg) {
    if (!alg.hasParameters()) return;
    const std::string oid = pkixtest::Oid(alg.getAlgorithm());
    const ByteString& p = alg.getParameters().getElement();
    if (oid == kEcKey) layer<RecpkParameters>(where, p);
    if (oid == kDsa) layer<RDSAPublicKey>(where, p);
    if (oid == kRsaPss) layer<RRSASSA_PSS_params>(where, p);
    if (oid == kPbes2) layer<RPBES2_params>(where, p);
    if (oid == kPbkdf2) layer<RPBKDF2_params>(where, p);
    if (oid == kRc2Cbc) layer<RRC2_CBC_Parameter>(where, p);
    if (oid == kMgf1) layer<RAlgorithmIdentifier>(where, p);
    if (oid != kPbes2 && oid != kPbkdf2 && (StartsWith(oid, kPkcs5PbePrefix) || StartsWith(oid, kPkcs12PbePrefix)))
      layer<RPBEParameter>(where, p);
  }

  void inner(const std::string& where, RPrivateKeyInfo& k) {
    params(where, k.getPrivateKeyAlgorithm());
    const std::string oid = pkixtest::Oid(k.getPrivateKeyAlgorithm().getAlgorithm());
    if (oid == kRsa || oid == kRsaPss) layer<RRSAPrivateKey>(where, k.getPrivateKey().getValue());
    if (oid == kEcKey) layer<RECPrivateKey>(where, k.getPrivateKey().getValue());
  }
  void inner(const std::string& where, REncryptedPrivateKeyInfo& k) { params(where, k.getEncryptionAlgorithm()); }
  void inner(const std::string& where, RPBES2_params& p) {
    params(where, p.getKeyDerivationFunc());
    params(where, p.getEncryptionScheme());
  }
  void inner(const std::string& where, RRSASSA_PSS_params& p) {
    if (p.hasMaskGenAlgorithm()) params(where, p.getMaskGenAlgorithm());
  }
  void inner(const std::string& where, RRSAES_OAEP_params& p) {
    if (p.hasMaskGenAlgorithm()) params(where, p.getMaskGenAlgorithm());
  }
  void inner(const std::string&, RRSAPrivateKey& k) { lastModulus = ToHex(k.getModulus().getValue()); }
  void inner(const std::string&, RRSAPublicKey& k) { lastModulus = ToHex(k.getModulus().getValue()); }
  void inner(const std::string&, RDSAPrivateKey& k) { lastDsaY = ToHex(k.getY().getValue()); }

  void inner(const std::string& where, RPFX& pfx) {
    RContentInfo& ci = pfx.getAuthSafe();
    ASSERT_EQ(pkixtest::Oid(ci.getContentType()), kData);  // password integrity: the AuthenticatedSafe travels as data
    layer<RAuthenticatedSafe>(where, Octets(ci.getContent()));
    if (pfx.hasMacData()) layer<RMacData>(where, pfx.getMacData().getEncoded());
  }
  void inner(const std::string& where, RMacData& mac) { layer<RDigestInfo>(where, mac.getMac().getEncoded()); }
  void inner(const std::string& where, RAuthenticatedSafe& safe) {
    for (int i = 0; i < safe.getCount(); ++i) {
      RContentInfo& ci = *safe.getAt(i);
      const std::string type = pkixtest::Oid(ci.getContentType());
      if (type == kData) {
        contentTypes.push_back("D");
        layer<RSafeContents>(where, Octets(ci.getContent()));
      } else if (type == kEncryptedData) {
        contentTypes.push_back("E");
        layer<REncryptedData>(where, ci.getContent().getElement());
      } else {
        contentTypes.push_back("?" + type);
      }
    }
  }
  void inner(const std::string& where, REncryptedData& ed) {
    params(where, ed.getEncryptedContentInfo().getContentEncryptionAlgorithm());
  }
  void inner(const std::string& where, RSafeContents& safe) {
    for (int i = 0; i < safe.getCount(); ++i) layer<RSafeBag>(where, safe.getAt(i)->getEncoded());
  }
  void inner(const std::string& where, RSafeBag& bag) {
    const std::string id = pkixtest::Oid(bag.getBagId());
    const ByteString& value = bag.getBagValue().getElement();
    if (id == std::string(kBagPrefix) + "1") {
      bags.push_back("K");
      layer<RPrivateKeyInfo>(where, value);
    } else if (id == std::string(kBagPrefix) + "2") {
      bags.push_back("S");
      layer<REncryptedPrivateKeyInfo>(where, value);
    } else if (id == std::string(kBagPrefix) + "3") {
      bags.push_back("C");
      layer<RCertBag>(where, value);
    } else if (id == std::string(kBagPrefix) + "4") {
      layer<RCRLBag>(where, value);
    } else {
      bags.push_back("?" + id);
    }
    if (!bag.hasBagAttributes()) return;
    layer<RPKCS12Attributes>(where, bag.getBagAttributes().getEncoded());
    for (const RAttribute& a : bag.getBagAttributes().items())
      attributes.insert(pkixtest::Oid(a.getType()));
  }
  void inner(const std::string& where, RCertBag& bag) {
    ASSERT_EQ(pkixtest::Oid(bag.getCertId()), kX509Certificate);
    layer<RCertificate>(where, Octets(bag.getCertValue()));
  }
  void inner(const std::string& where, RCRLBag& bag) { layer<RCertificateList>(where, Octets(bag.getCrlValue())); }
};

// The classes that index.txt names, each walked with its own type.
using LayerFn = std::function<void(Walker&, const std::string&, const ByteString&)>;
const std::map<std::string, LayerFn>& Classes() {
#define L(C) {#C, [](Walker& w, const std::string& f, const ByteString& d) { w.layer<C>(f, d); }},
  static const std::map<std::string, LayerFn> m = {
      L(RPrivateKeyInfo) L(REncryptedPrivateKeyInfo) L(RRSAPrivateKey) L(RRSAPublicKey) L(RDigestInfo)
      L(RDSAPrivateKey) L(RDSAPublicKey) L(RECDSA_Sig_Value) L(RECPrivateKey) L(RecpkParameters) L(RECParameters)
      L(RPBES2_params) L(RPBKDF2_params) L(RPBEParameter) L(RRC2_CBC_Parameter) L(RRSASSA_PSS_params)
      L(RRSAES_OAEP_params) L(RPFX) L(RKCDSAParameters) L(ROtherInfo) L(RECC_CMS_SharedInfo)};
#undef L
  return m;
}

// The encoding of a record of published.txt.
std::string Published(const std::string& name) {
  for (auto r : pkixtest::Vectors("keys/published.txt"))
    if (r["Name"] == name) return r["Encoding"];
  return "no record " + name;
}

// index.txt: "<class> <file>" a line.
std::map<std::string, std::string> Index() {
  std::map<std::string, std::string> out;  // file -> class
  std::istringstream in(qvatest::ReadFile(qvatest::DataPath("pkix/keys/index.txt")));
  std::string line, cls, file;
  while (std::getline(in, line)) {
    std::istringstream fields(line);
    if (!line.empty() && line[0] != '#' && fields >> cls >> file) out[file] = cls;
  }
  return out;
}

}  // namespace

// Every openssl-made file and every structure inside it round-trips with its
// class, and the walk reaches every class of the family that the files hold.
TEST(KeysCorpus, EveryFileAndLayerRoundTrips) {
  const auto index = Index();
  ASSERT_GE(index.size(), 90u);  // distinct files
  Walker w;
  for (const auto& [file, cls] : index) {
    ASSERT_TRUE(Classes().count(cls)) << cls;
    Classes().at(cls)(w, file, Load(file));
  }
  // Inner layers reached through the outer ones (not listed in index.txt).
  for (const char* cls : {"RAuthenticatedSafe", "RSafeContents", "RSafeBag", "RCertBag", "RCertificate", "RMacData",
                          "REncryptedData", "RPKCS12Attributes", "RAlgorithmIdentifier"})
    EXPECT_GT(w.seen[cls], 0) << cls;
  // Parameters met both alone and inside the keys that carry them.
  EXPECT_GT(w.seen["RPBKDF2_params"], 4);
  EXPECT_GT(w.seen["RRSAPrivateKey"], 3);
  EXPECT_GT(w.seen["RECPrivateKey"], 6);
  int total = 0;
  for (const auto& kv : w.seen) total += kv.second;
  EXPECT_GE(total, 2 * static_cast<int>(index.size()));
  EXPECT_TRUE(w.attributes.count("1 2 840 113549 1 9 20"));  // friendlyName
  EXPECT_TRUE(w.attributes.count("1 2 840 113549 1 9 21"));  // localKeyId
}

// The members hold what openssl reads out of the same files (values.txt):
// RSA moduli, DSA public values, and of each PKCS #12 file the content types
// of its AuthenticatedSafe, its MAC iteration count and (where no content is
// encrypted) its bags in order.
TEST(KeysCorpus, MembersAgreeWithOpenssl) {
  const auto records = pkixtest::Vectors("keys/values.txt");
  ASSERT_GE(records.size(), 15u);
  const auto classOf = Index();
  for (auto r : records) {
    const std::string file = r["File"];
    SCOPED_TRACE(file);
    Walker w;
    Classes().at(classOf.at(file))(w, file, Load(file));
    // openssl prints the magnitude; the INTEGER has a leading 00 when its top bit is set.
    if (r.count("Modulus")) { EXPECT_EQ(Magnitude(w.lastModulus), r["Modulus"]); }
    if (r.count("PublicKey")) { EXPECT_EQ(Magnitude(w.lastDsaY), r["PublicKey"]); }
    if (!r.count("ContentTypes")) continue;
    std::string types, bags;
    for (const auto& t : w.contentTypes) types += (types.empty() ? "" : " ") + t;
    for (const auto& b : w.bags) bags += (bags.empty() ? "" : " ") + b;
    EXPECT_EQ(types, r["ContentTypes"]);
    if (types.find('E') == std::string::npos) { EXPECT_EQ(bags, r["Bags"]); }
    RPFX pfx;
    ASSERT_EQ(pfx.fromASN1Object(Load(file)), 0);
    EXPECT_EQ(std::to_string(pfx.hasMacData() ? pfx.getMacData().getIterationCount() : 0), r["MacIterations"]);
    EXPECT_EQ(pfx.getVersion().getInteger(), 3);
  }
}

// Cut and padded copies of every file: each cut fails cleanly, padding
// after the element is left alone.
TEST(KeysCorpus, CutAndPaddedFiles) {
  Walker w;
  w.damage = true;
  for (const auto& [file, cls] : Index()) Classes().at(cls)(w, file, Load(file));
}

// The records of indefinite.txt: the BER form decodes into the members of
// the DER form, so encoding it again gives the DER bytes.
TEST(KeysRules, IndefiniteLengthsDecodeAsDer) {
  for (auto r : pkixtest::Vectors("keys/indefinite.txt")) {
    SCOPED_TRACE(r["File"]);
    const ByteString der = Load(r["File"]), ber = pkixtest::Indefinite(der);
    ASSERT_NE(ToHex(ber), ToHex(der));
    auto obj = pkixtest::Make(r["Class"]);
    ASSERT_TRUE(obj) << r["Class"];
    ASSERT_EQ(obj->fromASN1Object(ber), 0) << obj->getErrorMessage().c_str();
    EXPECT_EQ(ToHex(obj->toASN1Object()), ToHex(der));
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
  EXPECT_EQ(ToHex(other.toASN1Object()), Published("OtherInfo"));
  EXPECT_EQ(ToHex(other.toASN1Object()), ToHex(Load("otherinfo.rfc2631-1.der")));

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
  auto v = pkixtest::Vectors("keys/kcdsa-params.txt");
  ASSERT_EQ(v.size(), 1u);
  RKCDSAParameters full, pqg;
  ASSERT_EQ(full.fromASN1Object(Load("kcdsa.params.der")), 0) << full.getErrorMessage().c_str();
  ASSERT_EQ(pqg.fromASN1Object(Load("kcdsa.params-pqg.der")), 0) << pqg.getErrorMessage().c_str();
  auto number = [](const ASN1Integer& n) { return Magnitude(ToHex(n.getValue())); };
  for (RKCDSAParameters* p : {&full, &pqg}) {
    EXPECT_EQ(number(p->getP()), v[0]["P"]);
    EXPECT_EQ(number(p->getQ()), v[0]["Q"]);
    EXPECT_EQ(number(p->getG()), v[0]["G"]);
  }
  EXPECT_EQ(number(full.getJ()), v[0]["J"]);
  EXPECT_EQ(full.getSeed().getValue(), Hex(v[0]["Seedb"]));
  EXPECT_EQ(std::to_string(full.getCount().getInteger()), v[0]["Count"]);
  EXPECT_FALSE(pqg.hasJ() || pqg.hasSeed() || pqg.hasCount());
}

// The example private key of RFC 8410 10.3: a version 2 OneAsymmetricKey
// with a [0] IMPLICIT attribute set and a [1] IMPLICIT public key.
TEST(KeysRules, OneAsymmetricKeyWithAttributesAndPublicKey) {
  const ByteString der = Hex(Published("OneAsymmetricKey"));
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
