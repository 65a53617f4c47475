// Byte-identical round trips of every certificate and CRL the openssl CLI
// made for tests/data/pkix/x509 (make.sh there) and of the real Korean PKI
// certificates, CA bundles and CRL; every extension inside is decoded with
// its own class and round-tripped too, and a few decoded values are compared
// with what the openssl CLI reports for the same files.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1Enumerated.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1IA5String.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1Null.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "ZENALib/ASN1Pkix/RAuthorityInfoAccessSyntax.h"
#include "ZENALib/ASN1Pkix/RAuthorityKeyIdentifier.h"
#include "ZENALib/ASN1Pkix/RBasicConstraints.h"
#include "ZENALib/ASN1Pkix/RCRLDistPointsSyntax.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RCertificatePolicies.h"
#include "ZENALib/ASN1Pkix/RExtKeyUsageSyntax.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RIdentifyData.h"
#include "ZENALib/ASN1Pkix/RIssuingDistributionPoint.h"
#include "ZENALib/ASN1Pkix/RNameConstraints.h"
#include "ZENALib/ASN1Pkix/RPCaPubs.h"
#include "ZENALib/ASN1Pkix/RPolicyConstraints.h"
#include "ZENALib/ASN1Pkix/RPolicyMappings.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyUsagePeriod.h"
#include "ZENALib/ASN1Pkix/RQCStatements.h"
#include "ZENALib/ASN1Pkix/RSubjectDirectoryAttributes.h"
#include "ZENALib/ASN1Pkix/RSubjectInfoAccessSyntax.h"
#include "ZENALib/ASN1Pkix/RUserNotice.h"
#include "tests/ZENALib/ASN1Pkix/X509RoundTrip.h"
#include "tests/support/TestUtil.h"

namespace fs = std::filesystem;
using qvatest::ToHex;

namespace {

// Arcs separated by blanks (getOID is not const).
std::string OidOf(const ASN1ObjectIdentifier& oid) {
  return const_cast<ASN1ObjectIdentifier&>(oid).getOID(' ').c_str();
}

template <typename T>
::testing::AssertionResult As(const ByteString& der) {
  T obj;
  return RoundTrips(obj, der);
}

// Certificate policies, and inside them each qualifier by its own syntax:
// a CPS pointer is an IA5String, a user notice a UserNotice.
::testing::AssertionResult AsPolicies(const ByteString& der) {
  RCertificatePolicies policies;
  if (auto r = RoundTrips(policies, der); !r) return r;
  for (const RPolicyInformation& info : policies.items()) {
    if (!info.hasPolicyQualifiers()) continue;
    for (const RPolicyQualifierInfo& q : info.getPolicyQualifiers().items()) {
      const std::string id = OidOf(q.getPolicyQualifierId());
      const ByteString& inner = q.getQualifier().getElement();
      auto r = id == "1 3 6 1 5 5 7 2 2"   ? As<RUserNotice>(inner)
               : id == "1 3 6 1 5 5 7 2 1" ? As<ASN1IA5String>(inner)
                                           : ::testing::AssertionFailure() << "qualifier " << id;
      if (!r) return r;
    }
  }
  return ::testing::AssertionSuccess();
}

// How many identity-verification names, and VIDs inside them, AsNames has read.
int g_nIdentifyData = 0, g_nVID = 0;

// General names, and inside them the Korean identity-verification otherName
// (real name and virtual identifiers) by its own classes.
::testing::AssertionResult AsNames(const ByteString& der) {
  RGeneralNames names;
  if (auto r = RoundTrips(names, der); !r) return r;
  for (const RGeneralName& n : names.items()) {
    if (!n.isOtherName() || OidOf(n.getOtherName().getTypeId()) != "1 2 410 200004 10 1 1") continue;
    RIdentifyData id;
    if (auto r = RoundTrips(id, n.getOtherName().getNameValue().getElement()); !r) return r;
    ++g_nIdentifyData;
    if (!id.hasUserInfo()) continue;  // CA certificates name the organisation only
    RVID vid;
    if (id.getVID(0, &vid) != 0) return ::testing::AssertionFailure() << "VID: " << vid.getErrorMessage().c_str();
    if (OidOf(vid.getHashAlg().getAlgorithm()) != "2 16 840 1 101 3 4 2 1")
      return ::testing::AssertionFailure() << "VID hash " << OidOf(vid.getHashAlg().getAlgorithm());
    ++g_nVID;
  }
  return ::testing::AssertionSuccess();
}

using Check = ::testing::AssertionResult (*)(const ByteString&);

// Every extension the corpus holds, by identifier, with the class that reads
// its extnValue.
const std::map<std::string, Check>& Extensions() {
  static const std::map<std::string, Check> m = {
      {"2 5 29 9", &As<RSubjectDirectoryAttributes>},
      {"2 5 29 14", &As<ASN1OctetString>},  // subjectKeyIdentifier
      {"2 5 29 15", &As<ASN1BitString>},    // keyUsage
      {"2 5 29 16", &As<RPrivateKeyUsagePeriod>},
      {"2 5 29 17", &AsNames},            // subjectAltName
      {"2 5 29 18", &As<RGeneralNames>},  // issuerAltName
      {"2 5 29 19", &As<RBasicConstraints>},
      {"2 5 29 20", &As<ASN1Integer>},           // cRLNumber
      {"2 5 29 21", &As<ASN1Enumerated>},        // reasonCode
      {"2 5 29 23", &As<ASN1ObjectIdentifier>},  // holdInstructionCode
      {"2 5 29 24", &As<ASN1GeneralizedTime>},   // invalidityDate
      {"2 5 29 27", &As<ASN1Integer>},           // deltaCRLIndicator
      {"2 5 29 28", &As<RIssuingDistributionPoint>},
      {"2 5 29 29", &As<RGeneralNames>},  // certificateIssuer
      {"2 5 29 30", &As<RNameConstraints>},
      {"2 5 29 31", &As<RCRLDistPointsSyntax>},
      {"2 5 29 32", &AsPolicies},
      {"2 5 29 33", &As<RPolicyMappings>},
      {"2 5 29 35", &As<RAuthorityKeyIdentifier>},
      {"2 5 29 36", &As<RPolicyConstraints>},
      {"2 5 29 37", &As<RExtKeyUsageSyntax>},
      {"2 5 29 46", &As<RCRLDistPointsSyntax>},  // freshestCRL
      {"2 5 29 54", &As<ASN1Integer>},           // inhibitAnyPolicy
      {"1 3 6 1 5 5 7 1 1", &As<RAuthorityInfoAccessSyntax>},
      {"1 3 6 1 5 5 7 1 11", &As<RSubjectInfoAccessSyntax>},
      {"1 3 6 1 5 5 7 1 3", &As<RQCStatements>},
      {"2 16 840 1 113730 1 1", &As<ASN1BitString>},   // netscape cert type
      {"2 16 840 1 113730 1 13", &As<ASN1IA5String>},  // netscape comment
      {"1 2 3 4 5 6 7", &As<ASN1Null>},                // make.sh's own private extension
  };
  return m;
}

// Decodes and round-trips every extension's value; counts them by identifier.
void CheckExtensions(const RExtensions& exts, std::map<std::string, int>* seen) {
  for (const RExtension& e : exts.items()) {
    const std::string id = OidOf(e.getExtnID());
    SCOPED_TRACE("extension " + id);
    const auto it = Extensions().find(id);
    ASSERT_NE(it, Extensions().end()) << "no class for this extension";
    EXPECT_TRUE(it->second(e.getExtnValue().getValue()));
    ++(*seen)[id];
  }
}

std::vector<std::string> Files(const std::string& dir) {
  std::vector<std::string> out;
  for (const auto& e : fs::directory_iterator(qvatest::DataPath(dir)))
    if (e.is_regular_file()) out.push_back(e.path().string());
  std::sort(out.begin(), out.end());
  return out;
}

// A hex number as openssl prints it ("0x08", "0FFF", "7f00") in one form:
// upper case, no prefix, no leading zeros.
std::string Canonical(std::string h) {
  if (h.compare(0, 2, "0x") == 0) h.erase(0, 2);
  std::transform(h.begin(), h.end(), h.begin(), ::toupper);
  const auto nz = h.find_first_not_of('0');
  return nz == std::string::npos ? "0" : h.substr(nz);
}

// A non-negative INTEGER's value in that form.
std::string SerialHex(const ASN1Integer& n) { return Canonical(ToHex(n.getValue())); }

// openssl's view of each file of a folder: `pipeline` runs once per file
// ($f), and the first word it prints is kept by file name.
std::map<std::string, std::string> OpensslPerFile(const std::string& dir, const std::string& pipeline) {
  std::string out;
  qvatest::Run("cd '" + qvatest::DataPath(dir) + "' && for f in *; do printf '%s ' \"$f\"; " + pipeline + "; done",
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
  for (auto& [file, value] : m)
    if (value != "<NONE>") value = Canonical(value);
  return m;
}

// The first component of the outer element of der, as it stands.
ByteString FirstComponent(const ByteString& der, int length) {
  const unsigned char l = der.data()[1];
  const int header = l < 0x80 ? 2 : 2 + (l & 0x7F);
  return der.mid(header, length);
}

}  // namespace

TEST(X509Corpus, CertificatesRoundTripWithEveryExtension) {
  const auto serials = OpensslSerials("pkix/x509/certs", "x509 -serial");
  g_nIdentifyData = g_nVID = 0;
  std::map<std::string, int> seen;
  int n = 0, v1 = 0;
  for (const auto& path : Files("pkix/x509/certs")) {
    SCOPED_TRACE(path);
    const ByteString der = qvatest::ReadFileBs(path);
    RCertificate cert;
    ASSERT_TRUE(RoundTrips(cert, der));
    const RTBSCertificate& tbs = cert.getTbsCertificate();
    // The signed bytes are the first component as it stands in the file.
    EXPECT_EQ(cert.getRawTBSCertificate(), FirstComponent(der, cert.getRawTBSCertificate().length()));
    EXPECT_EQ(SerialHex(tbs.getSerialNumber()), serials.at(fs::path(path).filename().string()));
    if (!tbs.hasVersion()) ++v1;
    if (tbs.hasExtensions()) CheckExtensions(tbs.getExtensions(), &seen);
    ++n;
  }
  EXPECT_GE(n, 97);
  EXPECT_GE(g_nVID, 12);  // the names and everything profiles, for each key
  EXPECT_GE(v1, 7);       // make.sh writes seven v1 certificates
  // Each certificate extension make.sh asks for was found at least once.
  for (const char* id : {"2 5 29 9",
                         "2 5 29 14",
                         "2 5 29 15",
                         "2 5 29 16",
                         "2 5 29 17",
                         "2 5 29 18",
                         "2 5 29 19",
                         "2 5 29 30",
                         "2 5 29 31",
                         "2 5 29 32",
                         "2 5 29 33",
                         "2 5 29 35",
                         "2 5 29 36",
                         "2 5 29 37",
                         "2 5 29 46",
                         "2 5 29 54",
                         "1 3 6 1 5 5 7 1 1",
                         "1 3 6 1 5 5 7 1 11",
                         "1 3 6 1 5 5 7 1 3",
                         "2 16 840 1 113730 1 1",
                         "2 16 840 1 113730 1 13",
                         "1 2 3 4 5 6 7"})
    EXPECT_GT(seen[id], 0) << id;
}

TEST(X509Corpus, CrlsRoundTripWithEntryExtensions) {
  const auto numbers = OpensslSerials("pkix/x509/crls", "crl -crlnumber");
  const auto revokedByOpenssl =
      OpensslPerFile("pkix/x509/crls", "openssl crl -inform DER -in \"$f\" -noout -text | grep -c 'Serial Number:'");
  std::map<std::string, int> seen;
  int n = 0;
  for (const auto& path : Files("pkix/x509/crls")) {
    const std::string name = fs::path(path).filename().string();
    SCOPED_TRACE(name);
    const ByteString der = qvatest::ReadFileBs(path);
    RCertificateList crl;
    ASSERT_TRUE(RoundTrips(crl, der));
    const RTBSCertList& tbs = crl.getTbsCertList();
    EXPECT_EQ(crl.getRawTBSCertList(), FirstComponent(der, crl.getRawTBSCertList().length()));
    // v1 CRLs carry neither a version nor extensions; v2 ones both.
    EXPECT_EQ(tbs.hasVersion(), name.rfind("v2", 0) == 0);
    EXPECT_EQ(tbs.hasCrlExtensions(), tbs.hasVersion());
    const int revoked = tbs.hasRevokedCertificates() ? tbs.getRevokedCertificates().getCount() : 0;
    EXPECT_EQ(std::to_string(revoked), revokedByOpenssl.at(name));
    std::string number = "<NONE>";
    if (tbs.hasCrlExtensions()) {
      CheckExtensions(tbs.getCrlExtensions(), &seen);
      for (const RExtension& e : tbs.getCrlExtensions().items()) {
        ASN1Integer value;
        if (OidOf(e.getExtnID()) == "2 5 29 20" && value.fromASN1Object(e.getExtnValue().getValue()) == 0)
          number = SerialHex(value);
      }
    }
    EXPECT_EQ(number, numbers.at(name));  // what `openssl crl -crlnumber` says
    for (int i = 0; i < revoked; ++i) {
      const RRevokedCertificate& e = *tbs.getRevokedCertificates().getAt(i);
      if (e.hasCrlEntryExtensions()) CheckExtensions(e.getCrlEntryExtensions(), &seen);
    }
    ++n;
  }
  EXPECT_GE(n, 28);
  // Entry extensions: reason, hold instruction, invalidity date, certificate
  // issuer; CRL extensions: number, delta indicator, issuing distribution point.
  for (const char* id : {"2 5 29 21", "2 5 29 23", "2 5 29 24", "2 5 29 29", "2 5 29 20", "2 5 29 27", "2 5 29 28"})
    EXPECT_GT(seen[id], 0) << id;
}

// Real certificates of the Korean PKI: each round-trips and every extension
// decodes with its class (including the identity-verification otherName in
// the subject alternative name and BMPString user notices).
TEST(X509Korean, CertificatesAndCrlRoundTrip) {
  std::map<std::string, int> seen;
  g_nIdentifyData = g_nVID = 0;
  int n = 0;
  for (const auto& path : Files("pkix/x509/korean/certs")) {
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
  ASSERT_TRUE(RoundTrips(crl, qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/korean/crl/KISA-RootCA-4.crl"))));
  const RTBSCertList& tbs = crl.getTbsCertList();
  // A v2 CRL without revoked certificates (the member is left out, not
  // empty) and with an authority key identifier naming the issuer by
  // directory name and serial.
  EXPECT_TRUE(tbs.hasVersion());
  EXPECT_TRUE(tbs.hasNextUpdate());
  EXPECT_FALSE(tbs.hasRevokedCertificates());
  ASSERT_TRUE(tbs.hasCrlExtensions());
  CheckExtensions(tbs.getCrlExtensions(), &seen);
  bool aki = false;
  for (const RExtension& e : tbs.getCrlExtensions().items()) {
    if (OidOf(e.getExtnID()) != "2 5 29 35") continue;
    RAuthorityKeyIdentifier id;
    ASSERT_EQ(id.fromASN1Object(e.getExtnValue().getValue()), 0);
    ASSERT_TRUE(id.hasAuthorityCertIssuer());
    EXPECT_TRUE(id.getAuthorityCertIssuer().getAt(0)->isDirectoryName());
    EXPECT_TRUE(id.hasAuthorityCertSerialNumber());
    aki = true;
  }
  EXPECT_TRUE(aki);
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
    ASSERT_TRUE(
        RoundTrips(bundle, qvatest::ReadFileBs(qvatest::DataPath(std::string("pkix/x509/korean/capubs/") + r.bundle))));
    ASSERT_GT(bundle.getCount(), 0);
    std::map<std::string, int> seen;
    for (RCertificate& cert : const_cast<std::vector<RCertificate>&>(bundle.items())) {
      if (cert.getTbsCertificate().hasExtensions()) CheckExtensions(cert.getTbsCertificate().getExtensions(), &seen);
    }
    if (!r.split) continue;
    const auto slices = Files(std::string("pkix/x509/korean/capubs/") + r.split);
    ASSERT_EQ(static_cast<int>(slices.size()), bundle.getCount());
    for (int i = 0; i < bundle.getCount(); ++i)
      EXPECT_EQ(bundle.getAt(i)->toASN1Object(), qvatest::ReadFileBs(slices[static_cast<std::size_t>(i)])) << i;
  }
}

namespace {

// The BER form of a DER encoding in which every constructed element has an
// indefinite length (0x80 ... 00 00); primitive elements are copied.
std::string Indefinite(const unsigned char* p, std::size_t n) {
  std::string out;
  std::size_t i = 0;
  while (i < n) {
    const unsigned char id = p[i];
    std::size_t h = 2, len = p[i + 1];
    if (len & 0x80) {
      const std::size_t k = len & 0x7F;
      len = 0;
      for (std::size_t j = 0; j < k; ++j) len = (len << 8) | p[i + 2 + j];
      h += k;
    }
    if (id & 0x20) {
      out += static_cast<char>(id);
      out += '\x80';
      out += Indefinite(p + i + h, len);
      out.append(2, '\0');
    } else {
      out.append(reinterpret_cast<const char*>(p + i), h + len);
    }
    i += h + len;
  }
  return out;
}

}  // namespace

// Every certificate and CRL rewritten with indefinite lengths throughout
// decodes into the same members as its DER form (their encodings are DER
// again). Open types keep the bytes they were given, so members that hold
// constructed open types (key parameters, RSA-PSS parameters) are left out
// of the comparison; the signed part is kept as received, in BER.
TEST(X509Corpus, IndefiniteLengthsDecodeAsTheirDerForm) {
  int n = 0;
  for (const char* dir : {"pkix/x509/certs", "pkix/x509/crls"}) {
    for (const auto& path : Files(dir)) {
      SCOPED_TRACE(path);
      const ByteString der = qvatest::ReadFileBs(path);
      const std::string ber = Indefinite(der.data(), static_cast<std::size_t>(der.length()));
      const ByteString bs(ber.data(), static_cast<int>(ber.size()));
      ASSERT_NE(bs, der);
      if (std::string(dir) == "pkix/x509/certs") {
        RCertificate a, b;
        ASSERT_EQ(a.fromASN1Object(der), 0);
        ASSERT_EQ(b.fromASN1Object(bs), 0) << b.getErrorMessage().c_str();
        RTBSCertificate& x = a.getTbsCertificate();
        RTBSCertificate& y = b.getTbsCertificate();
        EXPECT_EQ(x.getSerialNumber().toASN1Object(), y.getSerialNumber().toASN1Object());
        EXPECT_EQ(x.getIssuer().toASN1Object(), y.getIssuer().toASN1Object());
        EXPECT_EQ(x.getValidity().toASN1Object(), y.getValidity().toASN1Object());
        EXPECT_EQ(x.getSubject().toASN1Object(), y.getSubject().toASN1Object());
        EXPECT_EQ(x.hasExtensions(), y.hasExtensions());
        if (x.hasExtensions()) {
          EXPECT_EQ(x.getExtensions().toASN1Object(), y.getExtensions().toASN1Object());
        }
        EXPECT_EQ(a.getSignature().toASN1Object(), b.getSignature().toASN1Object());
        EXPECT_EQ(ToHex(b.getRawTBSCertificate()), ToHex(FirstComponent(bs, b.getRawTBSCertificate().length())));
      } else {
        RCertificateList a, b;
        ASSERT_EQ(a.fromASN1Object(der), 0);
        ASSERT_EQ(b.fromASN1Object(bs), 0) << b.getErrorMessage().c_str();
        RTBSCertList& x = a.getTbsCertList();
        RTBSCertList& y = b.getTbsCertList();
        EXPECT_EQ(x.getIssuer().toASN1Object(), y.getIssuer().toASN1Object());
        EXPECT_EQ(x.hasRevokedCertificates(), y.hasRevokedCertificates());
        if (x.hasRevokedCertificates()) {
          EXPECT_EQ(x.getRevokedCertificates().toASN1Object(), y.getRevokedCertificates().toASN1Object());
        }
        EXPECT_EQ(x.hasCrlExtensions(), y.hasCrlExtensions());
        if (x.hasCrlExtensions()) {
          EXPECT_EQ(x.getCrlExtensions().toASN1Object(), y.getCrlExtensions().toASN1Object());
        }
        EXPECT_EQ(a.getSignature().toASN1Object(), b.getSignature().toASN1Object());
      }
      ++n;
    }
  }
  EXPECT_GE(n, 119);
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
  ASSERT_EQ(model.fromASN1Object(qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/crls/v1-ec256.der"))), 0);

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
  ASSERT_EQ(cert.fromASN1Object(qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/certs/v1-ec256.der"))), 0);

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
  ASSERT_EQ(cert.fromASN1Object(qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/certs/x400_edi-ec256.der"))), 0);
  const RExtension* sanExt = nullptr;
  for (const RExtension& e : cert.getTbsCertificate().getExtensions().items())
    if (OidOf(e.getExtnID()) == "2 5 29 17") sanExt = &e;
  ASSERT_NE(sanExt, nullptr);
  RGeneralNames san;
  ASSERT_EQ(san.fromASN1Object(sanExt->getExtnValue().getValue()), 0) << san.getErrorMessage().c_str();
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
  ASSERT_EQ(min.fromASN1Object(qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/certs/x400_min-ec256.der"))), 0);
  RGeneralNames minSan;
  for (const RExtension& e : min.getTbsCertificate().getExtensions().items())
    if (OidOf(e.getExtnID()) == "2 5 29 17") {
      ASSERT_EQ(minSan.fromASN1Object(e.getExtnValue().getValue()), 0);
    }
  ASSERT_EQ(minSan.getCount(), 1);
  const RBuiltInStandardAttributes& m = minSan.getAt(0)->getX400Address().getBuiltInStandardAttributes();
  EXPECT_TRUE(m.hasCountryName());
  EXPECT_TRUE(m.getCountryName().isX121DccCode());
  EXPECT_FALSE(m.hasAdministrationDomainName());
  EXPECT_TRUE(m.getPrivateDomainName().isNumeric());
}

namespace {

// The value of the first extension with identifier oid, decoded as T; false
// when there is none.
template <typename T>
bool FindExtension(const RExtensions& exts, const char* oid, T* out) {
  for (const RExtension& e : exts.items())
    if (OidOf(e.getExtnID()) == oid) return out->fromASN1Object(e.getExtnValue().getValue()) == 0;
  return false;
}

}  // namespace

// The DEFAULT FALSE flags as the accessors give them, against openssl's
// reading of the same files: cA of basicConstraints in every certificate,
// the four flags of every issuing distribution point.
TEST(X509Corpus, DefaultFalseFlagsAgreeWithOpenssl) {
  const auto ca = OpensslPerFile("pkix/x509/certs",
                                 "openssl x509 -inform DER -in \"$f\" -noout -ext basicConstraints 2>/dev/null | "
                                 "grep -c CA:TRUE");
  int checked = 0;
  for (const auto& path : Files("pkix/x509/certs")) {
    SCOPED_TRACE(path);
    RCertificate cert;
    ASSERT_EQ(cert.fromASN1Object(qvatest::ReadFileBs(path)), 0);
    RBasicConstraints bc;
    if (!cert.getTbsCertificate().hasExtensions() ||
        !FindExtension(cert.getTbsCertificate().getExtensions(), "2 5 29 19", &bc))
      continue;
    EXPECT_EQ(bc.isCA() ? "1" : "0", ca.at(fs::path(path).filename().string()));
    ++checked;
  }
  EXPECT_GT(checked, 20);

  const auto flags =
      OpensslPerFile("pkix/x509/crls",
                     "openssl crl -inform DER -in \"$f\" -noout -text | awk '/Only User Certificates/{u=1} "
                     "/Only CA Certificates/{c=1} /Indirect CRL/{i=1} /Only Attribute Certificates/{a=1} "
                     "END{printf \"f%d%d%d%d\\n\", u, c, i, a}'");
  checked = 0;
  for (const auto& path : Files("pkix/x509/crls")) {
    SCOPED_TRACE(path);
    RCertificateList crl;
    ASSERT_EQ(crl.fromASN1Object(qvatest::ReadFileBs(path)), 0);
    RIssuingDistributionPoint idp;
    if (!crl.getTbsCertList().hasCrlExtensions() ||
        !FindExtension(crl.getTbsCertList().getCrlExtensions(), "2 5 29 28", &idp))
      continue;
    std::string mine = "f";
    for (bool b : {idp.isOnlyContainsUserCerts(), idp.isOnlyContainsCACerts(), idp.isIndirectCRL(),
                   idp.isOnlyContainsAttributeCerts()})
      mine += b ? '1' : '0';
    EXPECT_EQ(mine, flags.at(fs::path(path).filename().string()));
    ++checked;
  }
  EXPECT_GE(checked, 10);
}
