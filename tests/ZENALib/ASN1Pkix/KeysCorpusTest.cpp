// The key, key-parameter, PKCS #8 and PKCS #12 structure classes against
// objects made by the openssl CLI (tests/data/pkix/keys/make.sh): every file
// decodes and encodes back byte for byte, every structure found inside one
// (key inside PKCS #8, parameters inside algorithm identifiers, bags inside
// PKCS #12 layers) does the same with its own class, and the members hold
// what openssl itself reads out of the file.
#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAuthenticatedSafe.h"
#include "ZENALib/ASN1Pkix/RCRLBag.h"
#include "ZENALib/ASN1Pkix/RCertBag.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RDSAPrivateKey.h"
#include "ZENALib/ASN1Pkix/RDSAPublicKey.h"
#include "ZENALib/ASN1Pkix/RDigestInfo.h"
#include "ZENALib/ASN1Pkix/RECC_CMS_SharedInfo.h"
#include "ZENALib/ASN1Pkix/RECDSA_Sig_Value.h"
#include "ZENALib/ASN1Pkix/RECPrivateKey.h"
#include "ZENALib/ASN1Pkix/REncryptedData.h"
#include "ZENALib/ASN1Pkix/REncryptedPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RKCDSAParameters.h"
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
#include "ZENALib/ASN1Pkix/RSafeContents.h"
#include "tests/support/TestUtil.h"

using qvatest::ToHex;

namespace {

const std::string kDir = "pkix/keys/";

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
const char* const kFriendlyName = "1 2 840 113549 1 9 20";
const char* const kLocalKeyId = "1 2 840 113549 1 9 21";

std::string Oid(ASN1ObjectIdentifier& oid) { return oid.getOID(' ').c_str(); }
bool StartsWith(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }

// The content octets of an OCTET STRING element kept by an RAny.
ByteString Octets(const RAny& any) {
  ASN1OctetString os;
  if (os.fromASN1Object(any.getElement()) != 0) return ByteString();
  return os.getValue();
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
    ByteString out;
    const int len = content.length();
    unsigned char head[4] = {id, 0, 0, 0};
    int hl = 2;
    if (len < 0x80) {
      head[1] = static_cast<unsigned char>(len);
    } else if (len < 0x100) {
      head[1] = 0x81;
      head[2] = static_cast<unsigned char>(len);
      hl = 3;
    } else {
      head[1] = 0x82;
      head[2] = static_cast<unsigned char>(len >> 8);
      head[3] = static_cast<unsigned char>(len);
      hl = 4;
    }
    out.append(head, hl);
    out += content;
    return out;
  }

  template <typename T>
  void inner(const std::string&, T&) {}

  void params(const std::string& where, RAlgorithmIdentifier& alg) {
    if (!alg.hasParameters()) return;
    const std::string oid = Oid(alg.getAlgorithm());
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
    const std::string oid = Oid(k.getPrivateKeyAlgorithm().getAlgorithm());
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
    ASSERT_EQ(Oid(ci.getContentType()), kData);  // password integrity: the AuthenticatedSafe travels as data
    layer<RAuthenticatedSafe>(where, Octets(ci.getContent()));
    if (pfx.hasMacData()) layer<RMacData>(where, pfx.getMacData().getEncoded());
  }
  void inner(const std::string& where, RMacData& mac) { layer<RDigestInfo>(where, mac.getMac().getEncoded()); }
  void inner(const std::string& where, RAuthenticatedSafe& safe) {
    for (int i = 0; i < safe.getCount(); ++i) {
      RContentInfo& ci = *safe.getAt(i);
      const std::string type = Oid(ci.getContentType());
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
    const std::string id = Oid(bag.getBagId());
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
      attributes.insert(const_cast<RAttribute&>(a).getType().getOID(' ').c_str());
  }
  void inner(const std::string& where, RCertBag& bag) {
    ASSERT_EQ(Oid(bag.getCertId()), kX509Certificate);
    layer<RCertificate>(where, Octets(bag.getCertValue()));
  }
  void inner(const std::string& where, RCRLBag& bag) { layer<RCertificateList>(where, Octets(bag.getCrlValue())); }
};

using LayerFn = std::function<void(Walker&, const std::string&, const ByteString&)>;
template <typename T>
LayerFn Layer() {
  return [](Walker& w, const std::string& where, const ByteString& der) { w.layer<T>(where, der); };
}

// The classes that index.txt names.
const std::map<std::string, LayerFn>& Classes() {
  static const std::map<std::string, LayerFn> m = {
      {"RPrivateKeyInfo", Layer<RPrivateKeyInfo>()},
      {"REncryptedPrivateKeyInfo", Layer<REncryptedPrivateKeyInfo>()},
      {"RRSAPrivateKey", Layer<RRSAPrivateKey>()},
      {"RRSAPublicKey", Layer<RRSAPublicKey>()},
      {"RDigestInfo", Layer<RDigestInfo>()},
      {"RDSAPrivateKey", Layer<RDSAPrivateKey>()},
      {"RDSAPublicKey", Layer<RDSAPublicKey>()},
      {"RECDSA_Sig_Value", Layer<RECDSA_Sig_Value>()},
      {"RECPrivateKey", Layer<RECPrivateKey>()},
      {"RecpkParameters", Layer<RecpkParameters>()},
      {"RECParameters", Layer<RECParameters>()},
      {"RPBES2_params", Layer<RPBES2_params>()},
      {"RPBKDF2_params", Layer<RPBKDF2_params>()},
      {"RPBEParameter", Layer<RPBEParameter>()},
      {"RRC2_CBC_Parameter", Layer<RRC2_CBC_Parameter>()},
      {"RRSASSA_PSS_params", Layer<RRSASSA_PSS_params>()},
      {"RRSAES_OAEP_params", Layer<RRSAES_OAEP_params>()},
      {"RPFX", Layer<RPFX>()},
      {"RKCDSAParameters", Layer<RKCDSAParameters>()},
      {"ROtherInfo", Layer<ROtherInfo>()},
      {"RECC_CMS_SharedInfo", Layer<RECC_CMS_SharedInfo>()},
  };
  return m;
}

struct Fixture {
  std::string cls, file;
};
std::vector<Fixture> Index() {
  std::vector<Fixture> out;
  std::istringstream in(qvatest::ReadFile(qvatest::DataPath(kDir + "index.txt")));
  std::string line;
  while (std::getline(in, line)) {
    std::istringstream fields(line);
    Fixture f;
    if (line.empty() || line[0] == '#' || !(fields >> f.cls >> f.file)) continue;
    out.push_back(f);
  }
  return out;
}

// Upper-case hex without the sign octet, as openssl prints a number.
std::string Magnitude(std::string hex) {
  if (hex.rfind("00", 0) == 0) hex.erase(0, 2);
  for (char& c : hex) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return hex;
}

ByteString Load(const std::string& file) { return qvatest::ReadFileBs(qvatest::DataPath(kDir + file)); }

}  // namespace

// Every openssl-made file and every structure inside it round-trips with its
// class, and the walk reaches every class of the family that the files hold.
TEST(KeysCorpus, EveryFileAndLayerRoundTrips) {
  const std::vector<Fixture> index = Index();
  ASSERT_GE(index.size(), 90u);
  Walker w;
  std::set<std::string> files;
  for (const Fixture& f : index) {
    auto it = Classes().find(f.cls);
    ASSERT_NE(it, Classes().end()) << f.cls;
    const ByteString der = Load(f.file);
    ASSERT_GT(der.length(), 1) << f.file;
    it->second(w, f.file, der);
    files.insert(f.file);
  }
  EXPECT_EQ(files.size(), index.size());  // distinct files
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
  EXPECT_TRUE(w.attributes.count(kFriendlyName));
  EXPECT_TRUE(w.attributes.count(kLocalKeyId));
}

// The members hold what openssl reads out of the same files: RSA moduli, DSA
// public values, and of each PKCS #12 file the content types of its
// AuthenticatedSafe, its MAC iteration count and (where no content is
// encrypted) its bags in order.
TEST(KeysCorpus, MembersAgreeWithOpenssl) {
  const auto records = qvatest::ReadVectors(qvatest::DataPath(kDir + "values.txt"));
  ASSERT_GE(records.size(), 15u);
  std::map<std::string, std::string> classOf;
  for (const Fixture& f : Index()) classOf[f.file] = f.cls;
  for (auto r : records) {
    const std::string file = r["File"];
    SCOPED_TRACE(file);
    Walker w;
    Classes().at(classOf.at(file))(w, file, Load(file));
    // openssl prints the magnitude; the INTEGER has a leading 00 when its top bit is set.
    if (r.count("Modulus")) {
      EXPECT_EQ(Magnitude(w.lastModulus), r["Modulus"]);
    }
    if (r.count("PublicKey")) {
      EXPECT_EQ(Magnitude(w.lastDsaY), r["PublicKey"]);
    }
    if (!r.count("ContentTypes")) continue;
    std::string types, bags;
    for (const auto& t : w.contentTypes) types += (types.empty() ? "" : " ") + t;
    for (const auto& b : w.bags) bags += (bags.empty() ? "" : " ") + b;
    EXPECT_EQ(types, r["ContentTypes"]);
    if (types.find('E') == std::string::npos) {
      EXPECT_EQ(bags, r["Bags"]);
    }
    RPFX pfx;
    ASSERT_EQ(pfx.fromASN1Object(Load(file)), 0);
    const int iterations = pfx.hasMacData() ? pfx.getMacData().getIterationCount() : 0;
    EXPECT_EQ(std::to_string(iterations), r["MacIterations"]);
    EXPECT_EQ(pfx.getVersion().getInteger(), 3);
  }
}

// Cut and padded copies of every file: each cut fails cleanly, padding
// after the element is left alone.
TEST(KeysCorpus, CutAndPaddedFiles) {
  Walker w;
  w.damage = true;
  for (const Fixture& f : Index()) Classes().at(f.cls)(w, f.file, Load(f.file));
}
