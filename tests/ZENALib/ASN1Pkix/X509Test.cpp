// The X.509 structure classes on the openssl-made certificates and CRLs of
// tests/data/pkix/x509 (make.sh there) and the real Korean PKI ones, checked
// against what openssl reads; objects built with setters read back by openssl.
#include <map>
#include <sstream>

#include "PkixClasses.h"
#include "ZENALib/ASN1/ASN1Enumerated.h"
#include "ZENALib/ASN1/ASN1IA5String.h"
#include "tests/ZENALib/ASN1Pkix/Pkix.h"

using pkixtest::Oid;
using pkixtest::RoundTrips;
using qvatest::Hex;
using qvatest::ToHex;

namespace {

// How many identity-verification names, and VIDs inside them, have been read.
int g_nIdentifyData = 0, g_nVID = 0;

// Inside the general names, the Korean identity-verification otherName (real
// name and virtual identifiers) by its own classes.
::testing::AssertionResult IdentityNames(const ByteString& der) {
  RGeneralNames names;
  names.fromASN1Object(der);
  for (const RGeneralName& n : names.items()) {
    if (!n.isOtherName() || Oid(n.getOtherName().getTypeId()) != "1 2 410 200004 10 1 1") continue;
    RIdentifyData id;
    if (auto r = RoundTrips(id, n.getOtherName().getNameValue().getElement()); !r) return r;
    ++g_nIdentifyData;
    if (!id.hasUserInfo()) continue;  // CA certificates name the organisation only
    RVID vid;
    if (id.getVID(0, &vid) != 0) return ::testing::AssertionFailure() << "VID: " << vid.getErrorMessage().c_str();
    if (Oid(vid.getHashAlg().getAlgorithm()) != "2 16 840 1 101 3 4 2 1")
      return ::testing::AssertionFailure() << "VID hash " << Oid(vid.getHashAlg().getAlgorithm());
    ++g_nVID;
  }
  return ::testing::AssertionSuccess();
}

// Inside certificate policies, each qualifier by its own syntax.
::testing::AssertionResult PolicyQualifiers(const ByteString& der) {
  RCertificatePolicies policies;
  policies.fromASN1Object(der);
  for (const RPolicyInformation& info : policies.items()) {
    if (!info.hasPolicyQualifiers()) continue;
    for (const RPolicyQualifierInfo& q : info.getPolicyQualifiers().items()) {
      const std::string id = Oid(q.getPolicyQualifierId());
      const ByteString& inner = q.getQualifier().getElement();
      auto r = id == "1 3 6 1 5 5 7 2 2"   ? pkixtest::RoundTripsAs("RUserNotice", inner)
               : id == "1 3 6 1 5 5 7 2 1" ? pkixtest::RoundTripsAs("ASN1IA5String", inner)
                                           : ::testing::AssertionFailure() << "qualifier " << id;
      if (!r) return r;
    }
  }
  return ::testing::AssertionSuccess();
}

// extensions.txt by identifier.
const std::map<std::string, qvatest::VectorRecord>& Extensions() {
  static const auto m = [] {
    std::map<std::string, qvatest::VectorRecord> out;
    for (const auto& r : pkixtest::Vectors("x509/extensions.txt")) out[r.at("Oid")] = r;
    return out;
  }();
  return m;
}

// Decodes and round-trips every extension's value (and what is inside it) by
// its class; counts them by identifier.
void CheckExtensions(const RExtensions& exts, std::map<std::string, int>* seen) {
  for (const RExtension& e : exts.items()) {
    const std::string id = Oid(e.getExtnID());
    SCOPED_TRACE("extension " + id);
    ASSERT_TRUE(Extensions().count(id)) << "no class for this extension in extensions.txt";
    const auto& r = Extensions().at(id);
    const ByteString& value = e.getExtnValue().getValue();
    EXPECT_TRUE(pkixtest::RoundTripsAs(r.at("Class"), value));
    if (r.count("Inner")) {
      EXPECT_TRUE(r.at("Inner") == "identity" ? IdentityNames(value) : PolicyQualifiers(value));
    }
    ++(*seen)[id];
  }
}

// Each extension that extensions.txt places `in` the corpus was seen.
void ExpectAllSeen(const std::map<std::string, int>& seen, const std::string& in) {
  for (const auto& [id, r] : Extensions()) EXPECT_TRUE(r.at("In") != in || seen.count(id)) << "never saw " << id;
}

// openssl's view of each file of a folder: `pipeline` runs once per file
// ($f), and the first word it prints is kept by file name.
std::map<std::string, std::string> OpensslPerFile(const std::string& dir, const std::string& pipeline) {
  std::string out;
  qvatest::Run("cd '" + qvatest::DataPath("pkix/" + dir) + "' && for f in *; do printf '%s ' \"$f\"; " + pipeline +
                   "; done",
               &out);
  std::map<std::string, std::string> m;
  std::istringstream in(out);
  std::string file, value;
  while (in >> file >> value) m[file] = value;
  return m;
}

// Serials or CRL numbers as openssl prints them (`cmd` is "x509 -serial" or
// "crl -crlnumber"), in Canonical form; "<NONE>" where there is none.
std::map<std::string, std::string> OpensslSerials(const std::string& dir, const char* cmd) {
  auto m = OpensslPerFile(
      dir, std::string("openssl ") + cmd + " -inform DER -in \"$f\" -noout 2>/dev/null | sed 's/^[^=]*=//'");
  for (auto& kv : m)
    if (kv.second != "<NONE>") kv.second = pkixtest::Canonical(kv.second);
  return m;
}

// The value of the first extension with identifier oid, decoded as T; false
// when there is none.
template <typename T>
bool FindExtension(const RExtensions& exts, const char* oid, T* out) {
  for (const RExtension& e : exts.items())
    if (Oid(e.getExtnID()) == oid) return out->fromASN1Object(e.getExtnValue().getValue()) == 0;
  return false;
}

}  // namespace

// Every certificate round-trips with every extension; the signed bytes are
// the first component as it stands; serials and the cA flag of
// basicConstraints (DEFAULT FALSE) are what openssl reads; the form with
// indefinite lengths throughout decodes into the same members (open types
// keep the bytes they were given, so key parameters stay out of the
// comparison; the signed part is kept as received, in BER).
TEST(X509Corpus, Certificates) {
  const auto serials = OpensslSerials("x509/certs", "x509 -serial");
  const auto ca = OpensslPerFile("x509/certs",
                                 "openssl x509 -inform DER -in \"$f\" -noout -ext basicConstraints 2>/dev/null | "
                                 "grep -c CA:TRUE");
  g_nIdentifyData = g_nVID = 0;
  std::map<std::string, int> seen;
  int n = 0, v1 = 0, withBc = 0;
  for (const auto& path : pkixtest::Files("x509/certs")) {
    const std::string name = pkixtest::FileName(path);
    SCOPED_TRACE(name);
    const ByteString der = qvatest::ReadFileBs(path), ber = pkixtest::Indefinite(der);
    RCertificate cert, b;
    ASSERT_TRUE(RoundTrips(cert, der));
    RTBSCertificate& tbs = cert.getTbsCertificate();
    EXPECT_EQ(cert.getRawTBSCertificate(), pkixtest::FirstComponent(der, cert.getRawTBSCertificate().length()));
    EXPECT_EQ(pkixtest::Canonical(ToHex(tbs.getSerialNumber().getValue())), serials.at(name));
    v1 += !tbs.hasVersion();
    RBasicConstraints bc;
    if (tbs.hasExtensions()) CheckExtensions(tbs.getExtensions(), &seen);
    if (tbs.hasExtensions() && FindExtension(tbs.getExtensions(), "2 5 29 19", &bc)) {
      EXPECT_EQ(bc.isCA() ? "1" : "0", ca.at(name));
      ++withBc;
    }
    ASSERT_NE(ber, der);
    ASSERT_EQ(b.fromASN1Object(ber), 0) << b.getErrorMessage().c_str();
    RTBSCertificate& y = b.getTbsCertificate();
    EXPECT_TRUE(pkixtest::SameMembers({{&tbs.getSerialNumber(), &y.getSerialNumber()},
                                       {&tbs.getIssuer(), &y.getIssuer()},
                                       {&tbs.getValidity(), &y.getValidity()},
                                       {&tbs.getSubject(), &y.getSubject()},
                                       {&tbs.getExtensions(), &y.getExtensions()},
                                       {&cert.getSignature(), &b.getSignature()}}));
    EXPECT_EQ(tbs.hasExtensions(), y.hasExtensions());
    EXPECT_EQ(ToHex(b.getRawTBSCertificate()), ToHex(pkixtest::FirstComponent(ber, b.getRawTBSCertificate().length())));
    ++n;
  }
  EXPECT_GE(n, 97);
  EXPECT_GE(g_nVID, 12);  // the names and everything profiles, for each key
  EXPECT_GE(v1, 7);       // make.sh writes seven v1 certificates
  EXPECT_GT(withBc, 20);
  ExpectAllSeen(seen, "cert");
}

// Every CRL round-trips with its CRL and entry extensions; v1 CRLs carry
// neither a version nor extensions, v2 ones both; the number of entries, the
// CRL number and the four DEFAULT FALSE flags of the issuing distribution
// point are what openssl reads; the indefinite-length form decodes into the
// same members.
TEST(X509Corpus, Crls) {
  const auto numbers = OpensslSerials("x509/crls", "crl -crlnumber");
  const auto revokedByOpenssl =
      OpensslPerFile("x509/crls", "openssl crl -inform DER -in \"$f\" -noout -text | grep -c 'Serial Number:'");
  const auto flags =
      OpensslPerFile("x509/crls",
                     "openssl crl -inform DER -in \"$f\" -noout -text | awk '/Only User Certificates/{u=1} "
                     "/Only CA Certificates/{c=1} /Indirect CRL/{i=1} /Only Attribute Certificates/{a=1} "
                     "END{printf \"f%d%d%d%d\\n\", u, c, i, a}'");
  std::map<std::string, int> seen;
  int n = 0, withIdp = 0;
  for (const auto& path : pkixtest::Files("x509/crls")) {
    const std::string name = pkixtest::FileName(path);
    SCOPED_TRACE(name);
    const ByteString der = qvatest::ReadFileBs(path), ber = pkixtest::Indefinite(der);
    RCertificateList crl, b;
    ASSERT_TRUE(RoundTrips(crl, der));
    RTBSCertList& tbs = crl.getTbsCertList();
    EXPECT_EQ(crl.getRawTBSCertList(), pkixtest::FirstComponent(der, crl.getRawTBSCertList().length()));
    EXPECT_EQ(tbs.hasVersion(), name.rfind("v2", 0) == 0);
    EXPECT_EQ(tbs.hasCrlExtensions(), tbs.hasVersion());
    const int revoked = tbs.hasRevokedCertificates() ? tbs.getRevokedCertificates().getCount() : 0;
    EXPECT_EQ(std::to_string(revoked), revokedByOpenssl.at(name));
    for (int i = 0; i < revoked; ++i) {
      const RRevokedCertificate& e = *tbs.getRevokedCertificates().getAt(i);
      if (e.hasCrlEntryExtensions()) CheckExtensions(e.getCrlEntryExtensions(), &seen);
    }
    ASN1Integer number;
    RIssuingDistributionPoint idp;
    if (tbs.hasCrlExtensions()) CheckExtensions(tbs.getCrlExtensions(), &seen);
    const bool hasNumber = tbs.hasCrlExtensions() && FindExtension(tbs.getCrlExtensions(), "2 5 29 20", &number);
    EXPECT_EQ(hasNumber ? pkixtest::Canonical(ToHex(number.getValue())) : "<NONE>", numbers.at(name));
    if (tbs.hasCrlExtensions() && FindExtension(tbs.getCrlExtensions(), "2 5 29 28", &idp)) {
      std::string mine = "f";
      for (bool f : {idp.isOnlyContainsUserCerts(), idp.isOnlyContainsCACerts(), idp.isIndirectCRL(),
                     idp.isOnlyContainsAttributeCerts()})
        mine += f ? '1' : '0';
      EXPECT_EQ(mine, flags.at(name));
      ++withIdp;
    }
    ASSERT_NE(ber, der);
    ASSERT_EQ(b.fromASN1Object(ber), 0) << b.getErrorMessage().c_str();
    RTBSCertList& y = b.getTbsCertList();
    EXPECT_TRUE(pkixtest::SameMembers({{&tbs.getIssuer(), &y.getIssuer()},
                                       {&tbs.getRevokedCertificates(), &y.getRevokedCertificates()},
                                       {&tbs.getCrlExtensions(), &y.getCrlExtensions()},
                                       {&crl.getSignature(), &b.getSignature()}}));
    EXPECT_EQ(tbs.hasRevokedCertificates(), y.hasRevokedCertificates());
    EXPECT_EQ(tbs.hasCrlExtensions(), y.hasCrlExtensions());
    ++n;
  }
  EXPECT_GE(n, 28);
  EXPECT_GE(withIdp, 10);
  ExpectAllSeen(seen, "crl");
}

// Real certificates of the Korean PKI: each round-trips and every extension
// decodes with its class (including the identity-verification otherName in
// the subject alternative name and BMPString user notices).
TEST(X509Korean, CertificatesAndCrlRoundTrip) {
  std::map<std::string, int> seen;
  g_nIdentifyData = g_nVID = 0;
  int n = 0;
  for (const auto& path : pkixtest::Files("x509/korean/certs")) {
    SCOPED_TRACE(path);
    RCertificate cert;
    ASSERT_TRUE(RoundTrips(cert, qvatest::ReadFileBs(path)));
    ASSERT_TRUE(cert.getTbsCertificate().hasExtensions());
    CheckExtensions(cert.getTbsCertificate().getExtensions(), &seen);
    ++n;
  }
  EXPECT_EQ(n, 5);
  EXPECT_EQ(g_nIdentifyData, 3);  // the KTNET signing certificate, the TradeSign CA and TSA
  EXPECT_EQ(g_nVID, 1);           // the KTNET signing certificate
  EXPECT_GT(seen["2 5 29 32"], 0);
  EXPECT_GT(seen["2 5 29 17"], 0);

  RCertificateList crl;
  ASSERT_TRUE(RoundTrips(crl, pkixtest::Load("x509/korean/crl/KISA-RootCA-4.crl")));
  const RTBSCertList& tbs = crl.getTbsCertList();
  // A v2 CRL without revoked certificates (the member is left out, not
  // empty) and with an authority key identifier naming the issuer by
  // directory name and serial.
  EXPECT_TRUE(tbs.hasVersion());
  EXPECT_TRUE(tbs.hasNextUpdate());
  EXPECT_FALSE(tbs.hasRevokedCertificates());
  ASSERT_TRUE(tbs.hasCrlExtensions());
  CheckExtensions(tbs.getCrlExtensions(), &seen);
  RAuthorityKeyIdentifier aki;
  ASSERT_TRUE(FindExtension(tbs.getCrlExtensions(), "2 5 29 35", &aki));
  ASSERT_TRUE(aki.hasAuthorityCertIssuer());
  EXPECT_TRUE(aki.getAuthorityCertIssuer().getAt(0)->isDirectoryName());
  EXPECT_TRUE(aki.hasAuthorityCertSerialNumber());
}

// The CA bundles (SEQUENCE OF Certificate): each decodes into as many
// certificates as its split folder holds, and item i encodes to exactly the
// bytes of split file i.
TEST(X509Korean, CaPubsBundles) {
  struct Row {
    const char* bundle;
    const char* split;  // folder of the byte-exact slices, or null
  } rows[] = {
      {"3280CaPubs.der", "split_3280CaPubs"},
      {"CaPubs_All.der", "split_CaPubs_All"},
      {"ServerCert_CaPubs.der", nullptr},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.bundle);
    RPCaPubs bundle;
    ASSERT_TRUE(RoundTrips(bundle, pkixtest::Load(std::string("x509/korean/capubs/") + r.bundle)));
    ASSERT_GT(bundle.getCount(), 0);
    std::map<std::string, int> seen;
    for (RCertificate& cert : const_cast<RItems<RCertificate>&>(bundle.items())) {
      if (cert.getTbsCertificate().hasExtensions()) CheckExtensions(cert.getTbsCertificate().getExtensions(), &seen);
    }
    if (!r.split) continue;
    const auto slices = pkixtest::Files(std::string("x509/korean/capubs/") + r.split);
    ASSERT_EQ(static_cast<int>(slices.size()), bundle.getCount());
    for (int i = 0; i < bundle.getCount(); ++i)
      EXPECT_EQ(bundle.getAt(i)->toASN1Object(), qvatest::ReadFileBs(slices[static_cast<std::size_t>(i)])) << i;
  }
}

namespace {

// An extension holding the encoding of `value`.
RExtension MakeExtension(const char* oid, ASN1Object& value, bool critical = false) {
  RExtension e;
  e.getExtnID().setOID(oid);
  ASN1OctetString v;
  v.setValue(value.toASN1Object());
  e.setExtnValue(v);
  if (critical) e.setCritical(ASN1Boolean(true));
  return e;
}

// openssl's text form of a DER file written to a temporary folder.
std::string OpensslText(const char* cmd, const ByteString& der) {
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("in.der"), der);
  std::string out;
  EXPECT_EQ(qvatest::Run(std::string(cmd) + " -inform DER -in '" + dir.file("in.der") + "' -noout -text", &out), 0);
  return out;
}

}  // namespace

// A CRL built with setters only (no decoded input) is read by openssl as
// written: version, next update, entries with and without a reason, the
// CRL number. Absent optional members stay out of the encoding.
TEST(X509Built, CrlReadByOpenssl) {
  RCertificateList model;  // for the issuer name and algorithm only
  ASSERT_EQ(model.fromASN1Object(pkixtest::Load("x509/crls/v1-ec256.der")), 0);

  RTBSCertList tbs;
  tbs.setVersion(ASN1Integer(1));
  tbs.setSignature(model.getSignatureAlgorithm());
  tbs.setIssuer(model.getTbsCertList().getIssuer());
  RTime thisUpdate, nextUpdate;
  ASN1UTCTime t1, t2;
  ASSERT_EQ(t1.setValue("250301000000Z"), 0);
  ASSERT_EQ(t2.setValue("250401000000Z"), 0);
  thisUpdate.setUtcTime(t1);
  nextUpdate.setUtcTime(t2);
  tbs.setThisUpdate(thisUpdate);
  tbs.setNextUpdate(nextUpdate);

  RRevokedCertificates revoked;
  for (int serial : {0x0102, 0x7F}) {
    RRevokedCertificate e;
    e.setUserCertificate(ASN1Integer(serial));
    e.setRevocationDate(thisUpdate);
    if (serial == 0x0102) {
      ASN1Enumerated reason(1);  // keyCompromise
      RExtensions exts;
      exts.add(MakeExtension("2 5 29 21", reason));
      e.setCrlEntryExtensions(exts);
    }
    revoked.add(e);
  }
  tbs.setRevokedCertificates(revoked);
  ASN1Integer number(42);
  RExtensions crlExts;
  crlExts.add(MakeExtension("2 5 29 20", number));
  tbs.setCrlExtensions(crlExts);

  RCertificateList crl;
  crl.setTbsCertList(tbs);
  crl.setSignatureAlgorithm(model.getSignatureAlgorithm());
  crl.setSignature(model.getSignature());
  const ByteString der = crl.toASN1Object();
  ASSERT_EQ(crl.getErrorCode(), 0) << crl.getErrorMessage().c_str();

  const std::string text = OpensslText("openssl crl", der);
  for (const char* want :
       {"Version 2 (0x1)", "Last Update: Mar  1 00:00:00 2025 GMT", "Next Update: Apr  1 00:00:00 2025 GMT",
        "Serial Number: 0102", "Key Compromise", "Serial Number: 7F", "X509v3 CRL Number: \n                42"})
    EXPECT_NE(text.find(want), std::string::npos) << want << "\n" << text;
  // The entry without extensions has none in the encoding either.
  EXPECT_EQ(text.find("CRL entry extensions"), text.rfind("CRL entry extensions"));
}

// Certificate extensions built with setters, put into a corpus certificate,
// are read by openssl as written.
TEST(X509Built, ExtensionsReadByOpenssl) {
  RCertificate cert;
  ASSERT_EQ(cert.fromASN1Object(pkixtest::Load("x509/certs/v1-ec256.der")), 0);

  RBasicConstraints bc;
  bc.setCA(ASN1Boolean(true));
  bc.setPathLenConstraint(ASN1Integer(2));

  RGeneralNames san;
  RGeneralName dns, ip, uri;
  ASN1IA5String host, link;
  host.setValue("built.example.com");
  link.setValue("http://built.example.com/");
  dns.setDNSName(host);
  uri.setUniformResourceIdentifier(link);
  ASN1OctetString addr;
  addr.setValue("\xC0\x00\x02\x07", 4);
  ip.setIPAddress(addr);
  san.add(dns);
  san.add(ip);
  san.add(uri);

  RAuthorityKeyIdentifier aki;
  ASN1OctetString keyId;
  keyId.setValue("\x01\x02\x03\x04", 4);
  aki.setKeyIdentifier(keyId);

  RCertificatePolicies policies;
  RPolicyInformation pol;
  pol.getPolicyIdentifier().setOID("1 2 410 200004 5 2 1 2");
  RPolicyQualifierInfo cps;
  cps.getPolicyQualifierId().setOID("1 3 6 1 5 5 7 2 1");
  ASN1IA5String cpsUri;
  cpsUri.setValue("http://cps.example.kr/");
  ASSERT_EQ(cps.getQualifier().setElement(cpsUri.toASN1Object()), 0);
  RPolicyQualifiers qualifiers;
  qualifiers.add(cps);
  pol.setPolicyQualifiers(qualifiers);
  policies.add(pol);

  RExtensions exts;
  exts.add(MakeExtension("2 5 29 19", bc, true));
  exts.add(MakeExtension("2 5 29 17", san));
  exts.add(MakeExtension("2 5 29 35", aki));
  exts.add(MakeExtension("2 5 29 32", policies));
  RTBSCertificate& tbs = cert.getTbsCertificate();
  tbs.setVersion(ASN1Integer(2));
  tbs.setExtensions(exts);
  const ByteString der = cert.toASN1Object();
  ASSERT_EQ(cert.getErrorCode(), 0) << cert.getErrorMessage().c_str();

  const std::string text = OpensslText("openssl x509", der);
  for (const char* want : {"Version: 3 (0x2)", "X509v3 Basic Constraints: critical", "CA:TRUE, pathlen:2",
                           "DNS:built.example.com, IP Address:192.0.2.7, URI:http://built.example.com/",
                           "Authority Key Identifier: \n                01:02:03:04", "Policy: 1.2.410.200004.5.2.1.2",
                           "CPS: http://cps.example.kr/"})
    EXPECT_NE(text.find(want), std::string::npos) << want << "\n" << text;
}

// The O/R address openssl wrote through its generic syntax (make.sh,
// profile x400_edi) decodes into its typed members.
TEST(X509Built, OrAddressMembers) {
  RCertificate cert;
  ASSERT_EQ(cert.fromASN1Object(pkixtest::Load("x509/certs/x400_edi-ec256.der")), 0);
  RGeneralNames san;
  ASSERT_TRUE(FindExtension(cert.getTbsCertificate().getExtensions(), "2 5 29 17", &san));
  ASSERT_EQ(san.getCount(), 4);
  ASSERT_TRUE(san.getAt(0)->isX400Address());
  const RORAddress& or_ = san.getAt(0)->getX400Address();
  const RBuiltInStandardAttributes& std_ = or_.getBuiltInStandardAttributes();
  EXPECT_EQ(qvatest::Str(std_.getCountryName().getIso3166Alpha2Code().getValue()), "KR");
  EXPECT_EQ(qvatest::Str(std_.getAdministrationDomainName().getPrintable().getValue()), "KORNET");
  EXPECT_EQ(qvatest::Str(std_.getNetworkAddress().getValue()), "12345");
  EXPECT_EQ(qvatest::Str(std_.getTerminalIdentifier().getValue()), "TERM1");
  EXPECT_EQ(qvatest::Str(std_.getPrivateDomainName().getPrintable().getValue()), "PRMD");
  EXPECT_EQ(qvatest::Str(std_.getOrganizationName().getValue()), "Example");
  EXPECT_EQ(qvatest::Str(std_.getNumericUserIdentifier().getValue()), "42");
  EXPECT_EQ(qvatest::Str(std_.getPersonalName().getSurname().getValue()), "Hong");
  EXPECT_EQ(qvatest::Str(std_.getPersonalName().getGenerationQualifier().getValue()), "III");
  EXPECT_EQ(std_.getOrganizationalUnitNames().getCount(), 2);
  ASSERT_TRUE(or_.hasBuiltInDomainDefinedAttributes());
  EXPECT_EQ(qvatest::Str(or_.getBuiltInDomainDefinedAttributes().getAt(0)->getAttributeValue().getValue()), "value");
  ASSERT_TRUE(or_.hasExtensionAttributes());
  EXPECT_EQ(or_.getExtensionAttributes().getAt(0)->getExtensionAttributeType().getInteger(), 1);
  // ediPartyName with and without its nameAssigner.
  ASSERT_TRUE(san.getAt(1)->isEdiPartyName());
  EXPECT_TRUE(san.getAt(1)->getEdiPartyName().hasNameAssigner());
  EXPECT_EQ(qvatest::Str(san.getAt(1)->getEdiPartyName().getPartyName().getPrintableString().getValue()), "Party");
  EXPECT_FALSE(san.getAt(2)->getEdiPartyName().hasNameAssigner());
  EXPECT_TRUE(san.getAt(2)->getEdiPartyName().getPartyName().isBmpString());

  // The minimal profile: numeric country code, no administration domain.
  RCertificate min;
  ASSERT_EQ(min.fromASN1Object(pkixtest::Load("x509/certs/x400_min-ec256.der")), 0);
  RGeneralNames minSan;
  ASSERT_TRUE(FindExtension(min.getTbsCertificate().getExtensions(), "2 5 29 17", &minSan));
  ASSERT_EQ(minSan.getCount(), 1);
  const RBuiltInStandardAttributes& m = minSan.getAt(0)->getX400Address().getBuiltInStandardAttributes();
  EXPECT_TRUE(m.hasCountryName());
  EXPECT_TRUE(m.getCountryName().isX121DccCode());
  EXPECT_FALSE(m.hasAdministrationDomainName());
  EXPECT_TRUE(m.getPrivateDomainName().isNumeric());
}


// Every GeneralName alternative: the identifier selects it, its content is
// read as its type, and it encodes back to the same bytes.
TEST(X509GeneralName, EveryAlternative) {
  using G = RGeneralName&;  // getOID is not const
  struct Row {
    const char* hex;
    int selected;             // index of the alternative in the CHOICE
    std::string (*value)(G);  // reads the content as its type
    const char* want;
  } rows[] = {
      // otherName: type-id and [0] EXPLICIT UTF8String
      {"A0 0A 06032A0304 A003 0C0141", 0,
       [](G g) { return std::string(g.getOtherName().getTypeId().getOID('.').c_str()); }, "1.2.3.4"},
      // rfc822Name [1] IMPLICIT IA5String
      {"81 05 6140622E63", 1, [](G g) { return qvatest::Str(g.getRfc822Name().getValue()); }, "a@b.c"},
      {"82 03 612E62", 2, [](G g) { return qvatest::Str(g.getDNSName().getValue()); }, "a.b"},
      // x400Address: country-name [APPLICATION 1] CHOICE
      {"A3 08 3006 6104 13024B52", 3,
       [](G g) {
         return qvatest::Str(
             g.getX400Address().getBuiltInStandardAttributes().getCountryName().getIso3166Alpha2Code().getValue());
       },
       "KR"},
      // directoryName [4] EXPLICIT Name
      {"A4 0E 300C 310A 3008 0603550403 0C0141", 4,
       [](G g) { return qvatest::Str(g.getDirectoryName().getAt(0)->getAt(0)->getValue().getValue()); }, "A"},
      // ediPartyName: partyName [1] DirectoryString
      {"A5 05 A103 0C0141", 5,
       [](G g) { return qvatest::Str(g.getEdiPartyName().getPartyName().getUtf8String().getValue()); }, "A"},
      {"86 03 613A62", 6, [](G g) { return qvatest::Str(g.getUniformResourceIdentifier().getValue()); }, "a:b"},
      {"87 04 7F000001", 7, [](G g) { return ToHex(g.getIPAddress().getValue()); }, "7f000001"},
      {"88 03 2A0304", 8, [](G g) { return std::string(g.getRegisteredID().getOID(' ').c_str()); }, "1 2 3 4"},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.hex);
    RGeneralName gn;
    ASSERT_TRUE(RoundTrips(gn, Hex(r.hex)));
    EXPECT_EQ(gn.getSelected(), r.selected);
    EXPECT_EQ(r.value(gn), r.want);
  }
}

// Cut-off input fails in the sequence split ("asnSeq") at every length, and
// never reads past the end (the sanitizer build checks that part).
TEST(X509Malformed, TruncatedCrlFailsAtEveryLength) {
  const ByteString der = Hex("3036302C300306012A3000170D3236313132323030303030305A30143012020101"
                             "170D3236313132323030303030305A300306012A030100");
  RCertificateList whole;
  ASSERT_EQ(whole.fromASN1Object(der), 0) << whole.getErrorMessage().c_str();
  for (int n = 0; n < der.length(); ++n) {
    RCertificateList crl;
    EXPECT_NE(crl.fromASN1Object(der.mid(0, n)), 0) << n;
    EXPECT_NE(std::string(crl.getErrorMessage().c_str()).find("RCertificateList::fromASN1Object-asnSeq("),
              std::string::npos)
        << n << ": " << crl.getErrorMessage().c_str();
  }
}
