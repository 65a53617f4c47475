// PCertUtil and the name utilities on real Korean PKI certificates and on
// every certificate the openssl CLI made for the structure tests, each value
// compared with what `openssl x509 -text` reads from the same file.
#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <sstream>

#include "ZENALib/QSProcess/PCRLDistPointsUtil.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PCertUtil2.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

namespace {

using processtest::Get;

const std::string& KoreanDir() {
  static const std::string dir = qvatest::DataPath("pkix/x509/korean");
  return dir;
}

// A certificate the corpus lacks: the two Korean extensions, the WAP one and
// eleven unknown critical ones, made by the openssl CLI.
std::string MadeCertificate(const qvatest::TempDir& dir) {
  const std::string out = dir.file("korean-ext.der");
  std::string cmd = "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout " +
                    dir.file("k.pem") + " -subj '/C=KR/CN=made' -days 1 -outform DER -out " + out +
                    " -addext 1.2.410.200004.4.1=DER:300b0c09e5a4a7e79086e4baba" +
                    " -addext 2.23.43.3.1=DER:160b6578616d706c652e636f6d" +
                    " -addext 1.2.410.200012.1.2.1=DER:3003020101";
  for (int i = 1; i <= 11; ++i) cmd += " -addext 1.2.3.4." + std::to_string(i) + "=critical,DER:0500";
  EXPECT_EQ(0, qvatest::Run(cmd + " 2>/dev/null")) << cmd;
  return out;
}

std::vector<std::string> AllCertificates(const qvatest::TempDir& dir) {
  std::vector<std::string> all = qvatest::DerFiles(KoreanDir() + "/certs");
  for (const char* sub : {"/capubs/split_3280CaPubs", "/capubs/split_CaPubs_All"}) {
    auto more = qvatest::DerFiles(KoreanDir() + sub);
    all.insert(all.end(), more.begin(), more.end());
  }
  auto corpus = qvatest::DerFiles(qvatest::DataPath("pkix/x509/certs"));
  all.insert(all.end(), corpus.begin(), corpus.end());
  all.push_back(MadeCertificate(dir));
  return all;
}

std::string OpensslText(const std::string& path) {
  std::string out;
  EXPECT_EQ(0, qvatest::Run("openssl x509 -inform DER -noout -text -nameopt utf8,sep_comma_plus,sname -in " + path,
                            &out));
  return out;
}

// The lines under an extension heading of `x509 -text` (16 blanks of
// indent), or nullopt-like false when the heading is not there.
bool Section(const std::string& text, const std::string& label, std::vector<std::string>* lines) {
  std::istringstream in(text);
  std::string line;
  bool inside = false, found = false;
  while (std::getline(in, line)) {
    if (line.compare(0, 12, std::string(12, ' ')) == 0 && line.size() > 12 && line[12] != ' ') {
      inside = line.compare(12, label.size() + 1, label + ":") == 0;
      found = found || inside;
      continue;
    }
    if (inside && line.compare(0, 16, std::string(16, ' ')) == 0) lines->push_back(line.substr(16));
    else if (inside) inside = false;
  }
  return found;
}

std::string LineAfter(const std::string& text, const std::string& key) {
  const std::size_t at = text.find(key);
  if (at == std::string::npos) return "";
  std::size_t end = text.find('\n', at);
  while (end > at && text[end - 1] == ' ') --end;
  return text.substr(at + key.size(), end - at - key.size());
}

std::string Utf8(const ByteString& cp949) {
  iconv_t cd = iconv_open("UTF-8", "CP949");
  std::string in(cp949.c_str(), static_cast<std::size_t>(cp949.length())), out(in.size() * 3 + 4, '\0');
  char* src = in.data();
  char* dst = out.data();
  std::size_t inLeft = in.size(), outLeft = out.size();
  iconv(cd, &src, &inLeft, &dst, &outLeft);
  iconv_close(cd);
  out.resize(out.size() - outLeft);
  return out;
}

// openssl's short names of the types our names key in lower case.
std::string Key(const std::string& sname) {
  static const std::map<std::string, std::string> kKeys = {
      {"C", "c"},   {"ST", "st"}, {"L", "l"},       {"O", "o"},       {"OU", "ou"},
      {"CN", "cn"}, {"SN", "sn"}, {"GN", "givenname"}, {"serialNumber", "serialnumber"},
      {"street", "street"}, {"title", "title"}, {"emailAddress", "e"}, {"DC", "dc"}, {"UID", "uid"}};
  auto it = kKeys.find(sname);
  return it == kKeys.end() ? "" : it->second;
}

// Our name text against openssl's "K=v,K=v+K=v" form: the same values in the
// same order, keys equal wherever openssl's name has a key of ours.
void ExpectSameName(const std::string& openssl, const ByteString& ours) {
  auto split = [](const std::string& text, const char* seps) {
    std::vector<std::string> out(1);
    for (char c : text) {
      if (c && std::strchr(seps, c)) out.emplace_back();
      else out.back() += c;
    }
    return out;
  };
  const std::vector<std::string> a = split(openssl, ",+"), b = split(Utf8(ours), ",");
  ASSERT_EQ(a.size(), b.size()) << openssl << "\n" << Utf8(ours);
  for (std::size_t i = 0; i < a.size(); ++i) {
    const std::size_t ea = a[i].find('='), eb = b[i].find('=');
    EXPECT_EQ(a[i].substr(ea + 1), b[i].substr(eb + 1));
    const std::string key = Key(a[i].substr(0, ea));
    if (!key.empty()) {
      EXPECT_EQ(key, b[i].substr(0, eb));
    }
  }
}

using Getter = std::function<int(PCertUtil&)>;
const std::map<std::string, Getter>& Getters() {
  static const std::map<std::string, Getter> kGetters = {
      {"getAuthorityKeyIdentifier", [](PCertUtil& c) { RAuthorityKeyIdentifier v; return c.getAuthorityKeyIdentifier(&v); }},
      {"get_SubjectKeyIdentifier_value", [](PCertUtil& c) { ByteString v; return c.get_SubjectKeyIdentifier_value(&v); }},
      {"get_KeyUsage_value", [](PCertUtil& c) { int v; return c.get_KeyUsage_value(&v); }},
      {"getPrivateKeyUsagePeriod", [](PCertUtil& c) { RPrivateKeyUsagePeriod v; return c.getPrivateKeyUsagePeriod(&v); }},
      {"getCertPolicy", [](PCertUtil& c) { RCertificatePolicies v; return c.getCertPolicy(&v); }},
      {"getploicyMapping", [](PCertUtil& c) { RPolicyMappings v; return c.getploicyMapping(&v); }},
      {"getIssuerAltNames", [](PCertUtil& c) { RGeneralNames v; return c.getIssuerAltNames(&v); }},
      {"getSubjectAltNames", [](PCertUtil& c) { RGeneralNames v; return c.getSubjectAltNames(&v); }},
      {"getSubjectDirAttributes", [](PCertUtil& c) { RSubjectDirectoryAttributes v; return c.getSubjectDirAttributes(&v); }},
      {"getBasicConstraints", [](PCertUtil& c) { RBasicConstraints v; return c.getBasicConstraints(&v); }},
      {"getNameConstraints", [](PCertUtil& c) { RNameConstraints v; return c.getNameConstraints(&v); }},
      {"getploicyConstraints", [](PCertUtil& c) { RPolicyConstraints v; return c.getploicyConstraints(&v); }},
      {"getExtendedKeyUsage", [](PCertUtil& c) { RExtKeyUsageSyntax v; return c.getExtendedKeyUsage(&v); }},
      {"getCRLDistributionPoints", [](PCertUtil& c) { RCRLDistPointsSyntax v; return c.getCRLDistributionPoints(&v); }},
      {"getAuthorityInformationAccess", [](PCertUtil& c) { RAuthorityInfoAccessSyntax v; return c.getAuthorityInformationAccess(&v); }},
      {"getProcuration", [](PCertUtil& c) { RAny v; return c.getProcuration(&v); }},
      {"getDomainInformation", [](PCertUtil& c) { RAny v; return c.getDomainInformation(&v); }},
      {"getInhibitAnyPolicy", [](PCertUtil& c) { int v; return c.getInhibitAnyPolicy(&v); }},
      {"getFreshestCRL", [](PCertUtil& c) { RCRLDistPointsSyntax v; return c.getFreshestCRL(&v); }},
      {"getSubjectInfoAccess", [](PCertUtil& c) { RSubjectInfoAccessSyntax v; return c.getSubjectInfoAccess(&v); }},
      {"getQCStatements", [](PCertUtil& c) { RQCStatements v; return c.getQCStatements(&v); }},
      {"getSubjectAnnexedInfo", [](PCertUtil& c) { RAny v; return c.getSubjectAnnexedInfo(&v); }},
  };
  return kGetters;
}

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), ::tolower);
  return s;
}

std::string HexColons(const ByteString& bs) {
  std::string s;
  char b[4];
  for (int i = 0; i < bs.length(); ++i) {
    std::snprintf(b, sizeof b, i ? ":%02X" : "%02X", bs.data()[i]);
    s += b;
  }
  return s;
}

}  // namespace

// Every extension getter on every certificate: it reads the extension when
// openssl sees it, and fails with 4096 and its own text when not (the v1
// certificates carry no extensions at all).
TEST(CertUtil, ExtensionGettersAgreeWithOpenssl) {
  qvatest::TempDir dir;
  const auto rows = processtest::Vectors("certutil.txt");
  ASSERT_EQ(Getters().size(), rows.size());
  int withoutExtensions = 0, present = 0;
  for (const std::string& path : AllCertificates(dir)) {
    SCOPED_TRACE(path);
    const std::string text = OpensslText(path);
    PCertUtil cert;
    ASSERT_EQ(0, cert.parseCertificate(qvatest::ReadFileBs(path))) << cert.getErrorMessage().c_str();
    if (cert.getExtensionCount() == 0) ++withoutExtensions;
    for (const auto& r : rows) {
      SCOPED_TRACE(Get(r, "Getter"));
      std::vector<std::string> lines;
      const int rc = Getters().at(Get(r, "Getter"))(cert);
      if (Section(text, Get(r, "Label"), &lines)) {
        ++present;
        EXPECT_EQ(0, rc) << cert.getErrorMessage().c_str();
      } else {
        EXPECT_EQ(4096, rc);
        const std::string tail = "PCertUtil::" + Get(r, "Getter") + "-" + Get(r, "Field") + "(4096), " + Get(r, "Message");
        const std::string trace = cert.getErrorMessage().c_str();
        EXPECT_NE(std::string::npos, trace.find(tail)) << trace;
        EXPECT_EQ(trace.size(), trace.find(tail) + tail.size()) << trace;
      }
    }
  }
  EXPECT_GT(withoutExtensions, 0);
  EXPECT_GT(present, 200);
}

// Names, key usage, key identifiers, basic constraints, policies, CRL
// distribution points, algorithm names and the TBS digest against openssl.
TEST(CertUtil, ValuesAgreeWithOpenssl) {
  qvatest::TempDir dir;
  std::map<std::string, std::string> sigNames, keyNames;
  for (const auto& r : processtest::Vectors("algnames.txt")) {
    if (Get(r, "Kind") == "sigoid") {
      RAlgorithmIdentifier alg;
      alg.getAlgorithm().setOID(Get(r, "Oid").c_str());
      ByteString name;
      PCertUtil util;
      EXPECT_EQ(0, util.getCertSignatureAlgorithmValue(alg, &name));
      EXPECT_EQ(Get(r, "Ours"), name.c_str());
      continue;
    }
    (Get(r, "Kind") == "sig" ? sigNames : keyNames)[Get(r, "Openssl")] = Get(r, "Ours");
  }
  int digests = 0;
  for (const std::string& path : AllCertificates(dir)) {
    SCOPED_TRACE(path);
    const std::string text = OpensslText(path);
    const ByteString der = qvatest::ReadFileBs(path);
    PCertUtil cert;
    ASSERT_EQ(0, cert.parseCertificate(der));
    ByteString subject, issuer, subject2;
    ASSERT_EQ(0, cert.getSubjectDN(&subject));
    ASSERT_EQ(0, cert.getIssuerDN(&issuer));
    ExpectSameName(LineAfter(text, "Subject: "), subject);
    ExpectSameName(LineAfter(text, "Issuer: "), issuer);
    PCertUtil2 util2;
    ASSERT_EQ(0, util2.getSubjectDN(*cert.getCertificate(), &subject2));
    EXPECT_EQ(subject, subject2);

    std::vector<std::string> lines;
    if (Section(text, "X509v3 Key Usage", &lines)) {
      static const char* kNames[] = {"Digital Signature", "Non Repudiation", "Key Encipherment",
                                     "Data Encipherment", "Key Agreement",   "Certificate Sign",
                                     "CRL Sign",          "Encipher Only",   "Decipher Only"};
      int ku = 0;
      ASSERT_EQ(0, cert.get_KeyUsage_value(&ku));
      for (int i = 0; i < 9; ++i)
        EXPECT_EQ(lines[0].find(kNames[i]) != std::string::npos, (ku & (1 << i)) != 0) << kNames[i];
    }
    lines.clear();
    if (Section(text, "X509v3 Subject Key Identifier", &lines)) {
      ByteString ski;
      ASSERT_EQ(0, cert.get_SubjectKeyIdentifier_value(&ski));
      EXPECT_EQ(cryptotest::Upper(lines[0]), HexColons(ski));
    }
    lines.clear();
    if (Section(text, "X509v3 Basic Constraints", &lines)) {
      bool ca = false;
      int len = -1;
      ASSERT_EQ(0, cert.getBasicConstraints_cA(&ca));
      EXPECT_EQ(lines[0].find("CA:TRUE") == 0, ca);
      const std::size_t at = lines[0].find("pathlen:");
      if (at == std::string::npos) {
        EXPECT_EQ(4096, cert.getBasicConstraints_pathLenConstraint(&len));
        EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), ", pathLenConstraint dose not exist."));
      } else {
        ASSERT_EQ(0, cert.getBasicConstraints_pathLenConstraint(&len));
        EXPECT_EQ(std::stoi(lines[0].substr(at + 8)), len);
      }
    }
    lines.clear();
    if (Section(text, "X509v3 Certificate Policies", &lines)) {
      std::vector<std::string> policies;
      for (const auto& l : lines)
        if (l.compare(0, 8, "Policy: ") == 0)
          policies.push_back(l.substr(8) == "X509v3 Any Policy" ? "2.5.29.32.0" : l.substr(8));
      int n = 0;
      ASSERT_EQ(0, cert.getcertPolicyCNT(&n));
      ASSERT_EQ(static_cast<int>(policies.size()), n);
      for (int i = 0; i < n; ++i) {
        ByteString oid;
        ASSERT_EQ(0, cert.getPolicyIdentifier(i, &oid));
        EXPECT_EQ(policies[static_cast<std::size_t>(i)], UDNSettings::Dotted(oid).c_str());
      }
      ByteString oid;
      EXPECT_EQ(PCERT_ERR_INDEX, cert.getPolicyIdentifier(n, &oid));
    }
    lines.clear();
    if (Section(text, "X509v3 CRL Distribution Points", &lines)) {
      RCRLDistPointsSyntax points;
      ASSERT_EQ(0, cert.getCRLDistributionPoints(&points));
      ByteString value, message, again;
      ASSERT_EQ(0, cert.getExtensionValue(cert.m_nCRLDistributionPoints, &value));
      PCRLDistPointsUtil dp;
      ASSERT_EQ(0, dp.parseCRLDistributionPoint(value));
      ASSERT_EQ(0, dp.makeDistributionPointMessage(&message));
      std::string uris, ours;
      for (const auto& l : lines)
        if (l.find("URI:") != std::string::npos) uris += l.substr(l.find("URI:") + 4) + "\n";
      const std::string m = message.c_str();
      for (std::size_t at = m.find("URL="); at != std::string::npos; at = m.find("URL=", at + 4))
        ours += m.substr(at + 4, m.find("\r\n", at) - at - 4) + "\n";
      EXPECT_EQ(uris, ours) << m;
    }

    // Algorithm names through the table; the TBS digest as openssl dgst makes it.
    const std::string sigName = LineAfter(text, "Signature Algorithm: ");
    const std::string keyName = LineAfter(text, "Public Key Algorithm: ");
    ASSERT_TRUE(sigNames.count(sigName)) << sigName;
    ASSERT_TRUE(keyNames.count(keyName)) << keyName;
    RAlgorithmIdentifier alg;
    ByteString name;
    ASSERT_EQ(0, cert.getSignatureAlgorithm(&alg));
    const int sigRc = cert.getCertSignatureAlgorithmValue(alg, &name);
    if (sigNames[sigName] == "unknown") {
      EXPECT_EQ(PCERT_ERR_ALGORITHM, sigRc);
      EXPECT_NE(nullptr, std::strstr(name.c_str(), " : Unknown AlgorithmIdentifier")) << name.c_str();
    } else {
      EXPECT_EQ(0, sigRc);
      EXPECT_EQ(sigNames[sigName], name.c_str());
    }
    const int keyRc = cert.getSubjectPublicKeyAlgorithm(&name);
    if (keyNames[keyName] == "unknown") {
      EXPECT_EQ(PCERT_ERR_ALGORITHM, keyRc);
      EXPECT_NE(nullptr, std::strstr(name.c_str(), " : UnKnown Subject Algorithm")) << name.c_str();
    } else {
      EXPECT_EQ(0, keyRc);
      EXPECT_EQ(keyNames[keyName], name.c_str());
    }
    ByteString digest, hashName;
    if (cert.getCertTBSCertificateHash(&digest, &hashName) == 0 && hashName != "HAS160") {
      const std::string tbs = dir.file("tbs.der");
      std::string hex;
      ASSERT_EQ(0, qvatest::Run("openssl asn1parse -inform DER -in " + path + " -strparse 4 -noout -out " + tbs +
                                    " && openssl dgst -" + Lower(hashName.c_str()) + " -r " + tbs,
                                &hex));
      EXPECT_EQ(cryptotest::Upper(hex.substr(0, hex.find(' '))), cryptotest::UpperHex(digest));
      ++digests;
    } else {
      EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), "PCertUtil::getCertTBSCertificateHash"));
    }
  }
  EXPECT_GT(digests, 50);
}

// A repeated extension: the later one is reported. Unknown extensions,
// critical ones included, are listed up to ten and never refused.
TEST(CertUtil, LastOccurrenceWinsAndUnknownListIsBounded) {
  RCertificate made;
  ASSERT_EQ(0, made.fromASN1Object(qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/certs/leaf-rsa2048.der"))));
  RTBSCertificate tbs = made.getTbsCertificate();
  RExtensions exts = tbs.getExtensions();
  const int before = exts.getCount();
  RExtension ku;  // keyUsage { keyCertSign } after the certificate's own
  ku.getExtnID().setOID("2 5 29 15");
  ku.getExtnValue().setValue(qvatest::Hex("03020204"));
  exts.add(ku);
  for (int i = 0; i < 12; ++i) {
    RExtension unknown;
    unknown.getExtnID().setOID(("1 2 3 4 " + std::to_string(i)).c_str());
    unknown.setCritical(ASN1Boolean(true));
    unknown.getExtnValue().setValue(qvatest::Hex("0500"));
    exts.add(unknown);
  }
  tbs.setExtensions(exts);
  made.setTbsCertificate(tbs);
  const ByteString der = made.toASN1Object();

  PCertUtil cert;
  ASSERT_EQ(0, cert.parseCertificate(der)) << cert.getErrorMessage().c_str();
  EXPECT_EQ(before, cert.m_nKeyUsage);
  int usage = 0;
  ASSERT_EQ(0, cert.get_KeyUsage_value(&usage));
  EXPECT_EQ(PCERT_KU_KEY_CERT_SIGN, usage);
  EXPECT_EQ(PCERT_MAX_UNKNOWN, cert.getUnknownExtensionCount());
  for (int i = 0; i < PCERT_MAX_UNKNOWN; ++i) EXPECT_EQ(before + 1 + i, cert.getUnknownExtensionPosition(i));
  EXPECT_EQ(-1, cert.getUnknownExtensionPosition(PCERT_MAX_UNKNOWN));
  bool critical = false;
  ASSERT_EQ(0, cert.getExtensionCritical(before + 1, &critical));
  EXPECT_TRUE(critical);
  ByteString value;
  EXPECT_EQ(PCERT_ERR_INDEX, cert.getExtensionValue(before + 13, &value));
}

// A failed parse leaves nothing behind, even after a good one; a v1
// certificate has no unique identifiers.
TEST(CertUtil, FailedParseLeavesObjectEmpty) {
  const ByteString good = qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/certs/v1-rsa2048.der"));
  PCertUtil cert;
  ASSERT_EQ(0, cert.parseCertificate(good));
  ByteString out;
  EXPECT_EQ(4096, cert.getSubjectUniqueID(&out));
  EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), "-m_bsSubjectUniqueID(4096), subjectUniqueID does not exist."));
  EXPECT_EQ(4096, cert.getIssuerUniqueID(&out));

  const ByteString full = qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/certs/everything-rsa2048.der"));
  ASSERT_EQ(0, cert.parseCertificate(full));
  EXPECT_NE(-1, cert.m_nBasicConstraints);
  EXPECT_NE(0, cert.parseCertificate(full.mid(0, full.length() - 10)));
  EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), "PCertUtil::parseCertificate-asnSeq("));
  EXPECT_FALSE(cert.isParsed());
  for (int pos : {cert.m_nAuthorityKeyIdentifier, cert.m_nBasicConstraints, cert.m_nCertificatePolicies,
                  cert.m_nSubjectAlternativeNames, cert.m_nCRLDistributionPoints, cert.m_nFreshestCRL})
    EXPECT_EQ(-1, pos);
  EXPECT_EQ(0, cert.getExtensionCount());
  EXPECT_EQ(0, cert.getUnknownExtensionCount());
  RRDNSequence name;
  EXPECT_EQ(PCERT_ERR_NOT_PARSED, cert.getSubject(&name));
  EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), ", The m_pSubject is NULL."));
  EXPECT_EQ(PCERT_ERR_NOT_PARSED, cert.getIssuer(&name));
  EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), ", The m_pIssuer is NULL"));
  EXPECT_EQ(PCERT_ERR_NOT_PARSED, cert.getSignature(&out));
  EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), ", The m_pSignature is NULL."));
  RSubjectPublicKeyInfo spki;
  EXPECT_EQ(PCERT_ERR_NOT_PARSED, cert.getSubjectPublicKeyInfo(&spki));
  EXPECT_NE(nullptr, std::strstr(cert.getErrorMessage().c_str(), ", The m_pSubjectPublicKeyInfo is NULL."));
  int ku = 0;
  EXPECT_EQ(4096, cert.get_KeyUsage_value(&ku));
}
