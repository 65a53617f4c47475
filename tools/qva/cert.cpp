// qva cert: prints certificates field by field, the way `x509 -text` users
// expect to read them.
//
//   qva cert FILE                 DER, PEM (every certificate in turn) or Base64
//   qva cert --verify ISSUER FILE the signature of each certificate in FILE
//                                 checked with the key of ISSUER's (first)
//                                 certificate
//
// Exit status: 0; 1 when a signature does not verify; 2 for bad arguments or
// a file that does not parse (the error trace goes to stderr).
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ZENALib/ASN1Pkix/RUserNotice.h"
#include "ZENALib/QSProcess/PCRLDistPointsUtil.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PExtKeyUsageUtil.h"
#include "ZENALib/QSProcess/PGeneralNameUtil.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "base/QSBase.h"
#include "tools/qva/messages.h"
#include "tools/qva/platform/display.h"

namespace {

std::string Show(const ByteString& cp949) { return ForDisplay(cp949.c_str(), cp949.length()); }

std::string Oid(const ASN1ObjectIdentifier& oid) {
  return UDNSettings::Dotted(const_cast<ASN1ObjectIdentifier&>(oid).getOID(' ')).c_str();
}

// Hex bytes "ab:cd:..." in lines of 18 bytes, each line indented.
void PrintHex(const ByteString& bs, const char* indent) {
  for (int i = 0; i < bs.length(); ++i) {
    if (i % 18 == 0) std::printf("%s%s", i ? "\n" : "", indent);
    std::printf("%02x%s", bs.data()[i], i + 1 < bs.length() ? ":" : "");
  }
  std::printf("\n");
}

// Hex bytes "ab:cd:..." on one line.
std::string Hex1(const ByteString& bs) {
  std::string s;
  char b[4];
  for (int i = 0; i < bs.length(); ++i) {
    std::snprintf(b, sizeof b, i + 1 < bs.length() ? "%02x:" : "%02x", bs.data()[i]);
    s += b;
  }
  return s;
}

std::string Time(const RTime& t) {
  const std::time_t v = t.isUtcTime() ? t.getUtcTime().getGMTTime() : t.getGeneralTime().getGMTTime();
  std::tm tm{};
  gmtime_r(&v, &tm);
  char buf[64];
  std::strftime(buf, sizeof buf, "%b %e %H:%M:%S %Y GMT", &tm);
  return buf;
}

// Each line of a CR LF text with the indent in front.
void PrintLines(const ByteString& text, const char* indent) {
  std::string s = Show(text);
  std::size_t start = 0;
  while (start < s.size()) {
    std::size_t end = s.find("\r\n", start);
    if (end == std::string::npos) end = s.size();
    std::printf("%s%s\n", indent, s.substr(start, end - start).c_str());
    start = end + 2;
  }
}

// A name on one line as RDN2Str writes it, except that the members of a
// multi-valued RDN are joined with "+" so the RDN boundaries stay visible.
int OneLine(const RRDNSequence& name, ByteString* out) {
  ByteString text("");
  bool firstRdn = true;
  for (const RRelativeDistinguishedName& set : name.items()) {
    bool firstAtv = true;
    for (const RAttributeTypeAndValue& atv : set.items()) {
      const ByteString oid = const_cast<ASN1ObjectIdentifier&>(atv.getType()).getOID(' ');
      if (oid.length() == 0) return UDNSettings::UDN_ERR_FORMAT;
      if (!firstAtv) text += '+';
      else if (!firstRdn) text += ',';
      firstAtv = firstRdn = false;
      const char* key = UDNSettings::KeyOf(oid.c_str());
      text += key ? ByteString(key) : UDNSettings::Dotted(oid);
      text += '=';
      if (int rc = UDNSettings::Value2Str(atv.getValue().getElement(), &text)) return rc;
    }
  }
  *out = text;
  return 0;
}

// Each name on its own line(s); directory names in the same one-line form
// as Issuer and Subject.
void PrintNames(const RGeneralNames& names, const char* indent) {
  PGeneralNameUtil util;
  ByteString text;
  for (const RGeneralName& name : names.items()) {
    if (name.isDirectoryName()) {
      ByteString dn;
      if (OneLine(name.getDirectoryName(), &dn) != 0) {
        std::printf("%s<a directory name cannot be written as text>\n", indent);
        return;
      }
      text += dn;
      text += "\r\n";
    } else if (util.parseGeneralName(name, &text) != 0) {
      std::printf("%s<%s>\n", indent, util.getErrorMessage().c_str());
      return;
    }
  }
  PrintLines(text, indent);
}

void PrintAccess(const RListOf<RAccessDescription>& list, const char* indent) {
  for (const RAccessDescription& a : list.items()) {
    const std::string m = Oid(a.getAccessMethod());
    const char* name = m == "1.3.6.1.5.5.7.48.1" ? "OCSP" : m == "1.3.6.1.5.5.7.48.2" ? "CA Issuers"
                       : m == "1.3.6.1.5.5.7.48.5" ? "CA Repository" : m.c_str();
    RGeneralNames one;
    one.add(a.getAccessLocation());
    PGeneralNameUtil util;
    ByteString text;
    util.parseGeneralNames(one, "", &text);
    std::printf("%s%s - ", indent, name);
    PrintLines(text, "");
  }
}

void PrintPolicies(const RCertificatePolicies& policies, const char* indent) {
  for (const RPolicyInformation& p : policies.items()) {
    std::printf("%sPolicy: %s\n", indent, Oid(p.getPolicyIdentifier()).c_str());
    if (!p.hasPolicyQualifiers()) continue;
    for (const RPolicyQualifierInfo& q : p.getPolicyQualifiers().items()) {
      const std::string id = Oid(q.getPolicyQualifierId());
      ByteString text;
      if (id == "1.3.6.1.5.5.7.2.1") {
        UDNSettings::Value2Str(q.getQualifier().getElement(), &text);
        std::printf("%s  CPS: %s\n", indent, Show(text).c_str());
      } else if (id == "1.3.6.1.5.5.7.2.2") {
        RUserNotice notice;
        if (notice.fromASN1Object(q.getQualifier().getElement()) == 0 && notice.hasExplicitText()) {
          UDNSettings::Value2Str(notice.getExplicitText().toASN1Object(), &text);
          std::printf("%s  User Notice:\n%s    Explicit Text: %s\n", indent, indent, Show(text).c_str());
        } else {
          std::printf("%s  User Notice\n", indent);
        }
      } else {
        std::printf("%s  %s:\n", indent, id.c_str());
        PrintHex(q.getQualifier().getElement(), "                    ");
      }
    }
  }
}

void PrintKeyUsage(int ku, const char* indent) {
  static const char* kNames[] = {"Digital Signature", "Non Repudiation", "Key Encipherment",
                                 "Data Encipherment", "Key Agreement",   "Certificate Sign",
                                 "CRL Sign",          "Encipher Only",   "Decipher Only"};
  std::string s;
  for (int i = 0; i < 9; ++i)
    if (ku & (1 << i)) s += std::string(s.empty() ? "" : ", ") + kNames[i];
  std::printf("%s%s\n", indent, s.c_str());
}

// One extension's body through its getter; the getter's trace when it fails.
void PrintExtension(PCertUtil& cert, int i) {
  const char* in = "                ";
  int rc = 0;
  bool critical = false;
  ByteString oid;
  cert.getExtensionID(i, &oid);
  cert.getExtensionCritical(i, &critical);
  const char* name = nullptr;
  auto is = [&](int pos, const char* label) {
    if (pos != i) return false;
    name = label;
    std::printf("            %s:%s\n", label, critical ? " critical" : "");
    return true;
  };
  if (is(cert.m_nAuthorityKeyIdentifier, "X509v3 Authority Key Identifier")) {
    RAuthorityKeyIdentifier aki;
    if ((rc = cert.getAuthorityKeyIdentifier(&aki)) == 0) {
      if (aki.hasKeyIdentifier()) {
        std::printf("%skeyid:%s\n", in, Hex1(aki.getKeyIdentifier().getValue()).c_str());
      }
      if (aki.hasAuthorityCertIssuer()) PrintNames(aki.getAuthorityCertIssuer(), (std::string(in) + "DirName:").c_str());
      if (aki.hasAuthorityCertSerialNumber()) {
        std::printf("%sserial:%s\n", in, Hex1(aki.getAuthorityCertSerialNumber().getValue()).c_str());
      }
    }
  } else if (is(cert.m_nSubjectKeyIdentifier, "X509v3 Subject Key Identifier")) {
    ByteString ski;
    if ((rc = cert.get_SubjectKeyIdentifier_value(&ski)) == 0) std::printf("%s%s\n", in, Hex1(ski).c_str());
  } else if (is(cert.m_nKeyUsage, "X509v3 Key Usage")) {
    int ku = 0;
    if ((rc = cert.get_KeyUsage_value(&ku)) == 0) PrintKeyUsage(ku, in);
  } else if (is(cert.m_nPrivateKeyUsagePeriod, "X509v3 Private Key Usage Period")) {
    RPrivateKeyUsagePeriod p;
    if ((rc = cert.getPrivateKeyUsagePeriod(&p)) == 0) {
      if (p.hasNotBefore()) std::printf("%sNot Before: %s\n", in, p.getNotBefore().getValue().c_str());
      if (p.hasNotAfter()) std::printf("%sNot After: %s\n", in, p.getNotAfter().getValue().c_str());
    }
  } else if (is(cert.m_nCertificatePolicies, "X509v3 Certificate Policies")) {
    RCertificatePolicies p;
    if ((rc = cert.getCertPolicy(&p)) == 0) PrintPolicies(p, in);
  } else if (is(cert.m_nPolicyMappings, "X509v3 Policy Mappings")) {
    RPolicyMappings m;
    if ((rc = cert.getploicyMapping(&m)) == 0)
      for (const RPolicyMapping& e : m.items())
        std::printf("%s%s:%s\n", in, Oid(e.getIssuerDomainPolicy()).c_str(), Oid(e.getSubjectDomainPolicy()).c_str());
  } else if (is(cert.m_nIssuerAlterNames, "X509v3 Issuer Alternative Name")) {
    RGeneralNames n;
    if ((rc = cert.getIssuerAltNames(&n)) == 0) PrintNames(n, in);
  } else if (is(cert.m_nSubjectAlternativeNames, "X509v3 Subject Alternative Name")) {
    RGeneralNames n;
    if ((rc = cert.getSubjectAltNames(&n)) == 0) PrintNames(n, in);
  } else if (is(cert.m_nSubjectDirectoryAttributes, "X509v3 Subject Directory Attributes")) {
    int n = 0;
    if ((rc = cert.getSubjectDirAttribute_CNT(&n)) == 0)
      for (int k = 0; k < n; ++k) {
        ByteString type, value;
        cert.getSubjectDirAttribute_Type(k, &type);
        cert.getSubjectDirAttribute_Value(k, &value);
        std::printf("%s%s:\n", in, UDNSettings::Dotted(type).c_str());
        PrintHex(value, "                    ");
      }
  } else if (is(cert.m_nBasicConstraints, "X509v3 Basic Constraints")) {
    bool ca = false;
    int len = 0;
    if ((rc = cert.getBasicConstraints_cA(&ca)) == 0) {
      std::printf("%sCA:%s", in, ca ? "TRUE" : "FALSE");
      if (cert.getBasicConstraints_pathLenConstraint(&len) == 0) std::printf(", pathlen:%d", len);
      std::printf("\n");
    }
  } else if (is(cert.m_nNameConstraints, "X509v3 Name Constraints")) {
    RNameConstraints nc;
    if ((rc = cert.getNameConstraints(&nc)) == 0) {
      for (int pass = 0; pass < 2; ++pass) {
        const bool has = pass == 0 ? nc.hasPermittedSubtrees() : nc.hasExcludedSubtrees();
        if (!has) continue;
        std::printf("%s%s:\n", in, pass == 0 ? "Permitted" : "Excluded");
        RGeneralNames bases;
        for (const RGeneralSubtree& s : (pass == 0 ? nc.getPermittedSubtrees() : nc.getExcludedSubtrees()).items())
          bases.add(s.getBase());
        PrintNames(bases, "                  ");
      }
    }
  } else if (is(cert.m_nPolicyConstraints, "X509v3 Policy Constraints")) {
    RPolicyConstraints pc;
    if ((rc = cert.getploicyConstraints(&pc)) == 0) {
      if (pc.hasRequireExplicitPolicy())
        std::printf("%sRequire Explicit Policy:%d\n", in, pc.getRequireExplicitPolicy().getInteger());
      if (pc.hasInhibitPolicyMapping())
        std::printf("%sInhibit Policy Mapping:%d\n", in, pc.getInhibitPolicyMapping().getInteger());
    }
  } else if (is(cert.m_nExtendedKeyUsage, "X509v3 Extended Key Usage")) {
    ByteString value, text;
    PExtKeyUsageUtil eku;
    cert.getExtensionValue(i, &value);
    if ((rc = eku.parseExtKeyUsage(value)) == 0 && eku.makeExtKeyUsageMessage(&text) == 0)
      std::printf("%s%s\n", in, text.c_str());
    else if (rc)
      std::printf("%s<%s>\n", in, eku.getErrorMessage().c_str());
  } else if (is(cert.m_nCRLDistributionPoints, "X509v3 CRL Distribution Points") ||
             is(cert.m_nFreshestCRL, "X509v3 Freshest CRL")) {
    RCRLDistPointsSyntax points;
    rc = i == cert.m_nFreshestCRL ? cert.getFreshestCRL(&points) : cert.getCRLDistributionPoints(&points);
    if (rc == 0) {
      PCRLDistPointsUtil util;
      util.setDistributionPoints(points);
      ByteString text;
      if (util.makeDistributionPointMessage(&text) == 0)
        PrintLines(text, in);
      else
        std::printf("%s<%s>\n", in, util.getErrorMessage().c_str());
    }
  } else if (is(cert.m_nAuthorityInformationAccess, "Authority Information Access")) {
    RAuthorityInfoAccessSyntax aia;
    if ((rc = cert.getAuthorityInformationAccess(&aia)) == 0) PrintAccess(aia, in);
  } else if (is(cert.m_nSubjectInfoAccess, "Subject Information Access")) {
    RSubjectInfoAccessSyntax sia;
    if ((rc = cert.getSubjectInfoAccess(&sia)) == 0) PrintAccess(sia, in);
  } else if (is(cert.m_nInhibitAnyPolicy, "X509v3 Inhibit Any Policy")) {
    int skip = 0;
    if ((rc = cert.getInhibitAnyPolicy(&skip)) == 0) std::printf("%s%d\n", in, skip);
  } else if (is(cert.m_nQCStatements, "qcStatements")) {
    RQCStatements qc;
    if ((rc = cert.getQCStatements(&qc)) == 0)
      for (const RQCStatement& s : qc.items()) std::printf("%s%s\n", in, Oid(s.getStatementId()).c_str());
  } else if (is(cert.m_nProcuration, "Procuration") || is(cert.m_nDomainInformation, "DomainInformation") ||
             is(cert.m_nSubjectAnnexedInfo, "SubjectAnnexedInfo")) {
    RAny raw;
    rc = i == cert.m_nProcuration      ? cert.getProcuration(&raw)
         : i == cert.m_nDomainInformation ? cert.getDomainInformation(&raw)
                                          : cert.getSubjectAnnexedInfo(&raw);
    if (rc == 0) PrintHex(raw.getElement(), in);
  }
  if (!name) {
    ByteString value;
    cert.getExtensionValue(i, &value);
    std::printf("            %s:%s\n", UDNSettings::Dotted(oid).c_str(), critical ? " critical" : "");
    PrintHex(value, in);
  }
  if (rc) std::printf("%s<%s>\n", in, cert.getErrorMessage().c_str());
}

int PrintCertificate(const ByteString& der, int n) {
  PCertUtil cert;
  if (int rc = cert.parseCertificate(der)) {
    std::fprintf(stderr, "qva: certificate %d does not parse (%d): %s\n", n, rc, cert.getErrorMessage().c_str());
    return 2;
  }
  int version = 0;
  ByteString serial, text, issuer, subject, sig;
  RAlgorithmIdentifier alg;
  RValidity validity;
  cert.getVersion(&version);
  cert.getSerialNumber(&serial);
  cert.getSignatureAlgorithm(&alg);
  cert.getCertSignatureAlgorithmValue(alg, &text);  // unknown algorithms come back named by identifier
  RRDNSequence issuerName, subjectName;
  if (cert.getIssuer(&issuerName) || cert.getSubject(&subjectName) || OneLine(issuerName, &issuer) ||
      OneLine(subjectName, &subject)) {
    std::fprintf(stderr, "qva: certificate %d: %s\n", n,
                 cert.getErrorMessage().isEmpty() ? "a name cannot be written as text" : cert.getErrorMessage().c_str());
    return 2;
  }
  cert.getValidity(&validity);
  std::printf("Certificate:\n    Data:\n        Version: %d (0x%x)\n        Serial Number:\n", version + 1, version);
  PrintHex(serial, "            ");
  std::printf("        Signature Algorithm: %s\n", text.c_str());
  std::printf("        Issuer: %s\n", Show(issuer).c_str());
  std::printf("        Validity\n            Not Before: %s\n            Not After : %s\n",
              Time(validity.getNotBefore()).c_str(), Time(validity.getNotAfter()).c_str());
  std::printf("        Subject: %s\n", Show(subject).c_str());
  ByteString keyAlg, key;
  cert.getSubjectPublicKeyAlgorithm(&keyAlg);
  cert.getSubjectPublicKey(&key);
  std::printf("        Subject Public Key Info:\n            Public Key Algorithm: %s\n", keyAlg.c_str());
  PrintHex(key, "                ");
  ByteString uid;
  if (cert.getIssuerUniqueID(&uid) == 0) {
    std::printf("        Issuer Unique ID:\n");
    PrintHex(uid, "            ");
  }
  if (cert.getSubjectUniqueID(&uid) == 0) {
    std::printf("        Subject Unique ID:\n");
    PrintHex(uid, "            ");
  }
  if (cert.getExtensionCount() > 0) {
    std::printf("        X509v3 extensions:\n");
    for (int i = 0; i < cert.getExtensionCount(); ++i) PrintExtension(cert, i);
  }
  cert.getSignature(&sig);
  std::printf("    Signature Algorithm: %s\n    Signature Value:\n", text.c_str());
  PrintHex(sig, "        ");
  return 0;
}

bool ReadFile(const char* path, ByteString* out) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream ss;
  ss << in.rdbuf();
  const std::string s = ss.str();
  return out->setData(s.data(), static_cast<int>(s.size())) == BS_OK;
}

// The certificates of a file: DER as it is, every PEM block in turn, or one
// Base64 text. False with a reason when the text cannot be decoded.
bool Certificates(const ByteString& file, std::vector<ByteString>* out, std::string* why) {
  if (file.length() > 0 && file.data()[0] == 0x30) {
    out->push_back(file);
    return true;
  }
  const std::string s(file.c_str(), static_cast<std::size_t>(file.length()));
  static const char kBegin[] = "-----BEGIN CERTIFICATE-----";
  static const char kEnd[] = "-----END CERTIFICATE-----";
  std::size_t at = s.find(kBegin);
  if (at != std::string::npos) {
    while (at != std::string::npos) {
      const std::size_t end = s.find(kEnd, at);
      if (end == std::string::npos) {
        *why = "PEM block without its end line";
        return false;
      }
      const std::string block = s.substr(at, end + sizeof(kEnd) - 1 - at);
      ByteString der;
      if (int rc = QSBase::pemDecode(PEM_CERTIFICATE, ByteString(block.data(), static_cast<int>(block.size())), &der)) {
        *why = "PEM decoding failed (" + std::to_string(rc) + ")";
        return false;
      }
      out->push_back(der);
      at = s.find(kBegin, end);
    }
    return true;
  }
  std::string b64;
  for (char c : s)
    if (c != '\r' && c != '\n' && c != ' ' && c != '\t') b64 += c;
  ByteString der;
  if (b64.empty() || QSBase::base64Decode(b64.data(), static_cast<int>(b64.size()), &der) != 0) {
    *why = "neither DER, PEM nor Base64";
    return false;
  }
  out->push_back(der);
  return true;
}

bool Load(const char* path, std::vector<ByteString>* certs) {
  ByteString file;
  std::string why;
  if (!ReadFile(path, &file)) {
    std::fprintf(stderr, qva_msg::kCannotRead, path);
    return false;
  }
  if (!Certificates(file, certs, &why)) {
    std::fprintf(stderr, qva_msg::kFailedOn, path, why.c_str());
    return false;
  }
  return true;
}

}  // namespace

namespace {

// 0 when the issuer's key verifies cert's signature, 1 when it does not (the
// trace in *error), 2 when the certificate cannot be read.
int VerifyOne(const ByteString& issuer, const ByteString& der, std::string* error) {
  PCertUtil cert;
  ByteString tbs, sig;
  RAlgorithmIdentifier alg;
  if (cert.parseCertificate(der) || cert.getTBSCertificate(&tbs) || cert.getSignature(&sig) ||
      cert.getSignatureAlgorithm(&alg)) {
    *error = cert.getErrorMessage().c_str();
    return 2;
  }
  const bool pss = UDNSettings::Dotted(const_cast<ASN1ObjectIdentifier&>(alg.getAlgorithm()).getOID(' ')) ==
                   "1.2.840.113549.1.1.10";
  PAlgorithmUtil registry;
  PPublicKey key;
  int hash = 0;
  // PSS names its hash in the parameters; the key operation takes SHA-1 for it.
  const int rcHash = pss ? 0 : registry.getHashAlgFromSignAlg(alg.toASN1Object(), &hash);
  if (rcHash == 0 && key.verifySignatureWithCert(issuer, hash, pss, tbs, sig) == 0) return 0;
  *error = rcHash ? registry.getErrorMessage().c_str() : key.getErrorMessage().c_str();
  return 1;
}

}  // namespace

int RunCertCommand(int argc, char** argv) {
  const bool verify = argc == 5 && std::strcmp(argv[2], "--verify") == 0;
  if (argc != 3 && !verify) {
    std::fputs("usage: qva cert FILE\n       qva cert --verify ISSUER FILE\n", stderr);
    return 2;
  }
  std::vector<ByteString> certs;
  if (!Load(argv[argc - 1], &certs)) return 2;
  if (!verify) {
    for (std::size_t i = 0; i < certs.size(); ++i)
      if (int rc = PrintCertificate(certs[i], static_cast<int>(i + 1))) return rc;
    return 0;
  }
  std::vector<ByteString> issuers;
  if (!Load(argv[3], &issuers)) return 2;
  int status = 0;
  for (std::size_t i = 0; i < certs.size(); ++i) {
    std::string error;
    const int rc = VerifyOne(issuers[0], certs[i], &error);
    if (rc == 0) {
      std::printf("certificate %zu: signature OK\n", i + 1);
    } else {
      std::printf("certificate %zu: signature failure\n", i + 1);
      std::fprintf(stderr, qva_msg::kFailed, error.c_str());
    }
    if (rc == 2) return 2;
    if (rc) status = 1;
  }
  return status;
}
