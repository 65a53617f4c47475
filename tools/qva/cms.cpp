// qva cms: names the kind of a CMS ContentInfo, prints a SignedData's
// certificates and signers and verifies every signature.
//
//   qva cms FILE [--content DATA] [--cert C] [--key K]
//     FILE     DER, or PEM/Base64 text
//     DATA     the content of a detached SignedData
//     C        a certificate (DER or PEM) searched for signers besides the
//              embedded ones; with K, the recipient of an EnvelopedData
//     K        its private key: PKCS#8, or a traditional RSA or EC key
//
// Exit status: 0 verified; 1 a signature or check refused (the trace goes to
// stderr); 2 bad arguments or a file that cannot be read.
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PSignedDataMessages.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "base/QSBase.h"
#include "tools/qva/cms_enveloped.h"
#include "tools/qva/platform/display.h"
#include "tools/qva/args.h"
#include "tools/qva/messages.h"

// Reads DER, or PEM/Base64 text (lines of "-----" dropped), whole; shared
// with ts.cpp.
bool ReadDerOrText(const char* path, ByteString* out) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, qva_msg::kCannotRead, path);
    return false;
  }
  std::ostringstream ss;
  ss << in.rdbuf();
  const std::string s = ss.str();
  if (!s.empty() && static_cast<unsigned char>(s[0]) == 0x30)
    return out->setData(s.data(), static_cast<int>(s.size())) == 0;
  std::string b64, line;
  std::istringstream lines(s);
  while (std::getline(lines, line)) {
    if (line.rfind("-----", 0) == 0) continue;
    for (char c : line)
      if (c != '\r' && c != ' ' && c != '\t') b64 += c;
  }
  if (b64.empty() || QSBase::base64Decode(b64.data(), static_cast<int>(b64.size()), out) != 0) {
    std::fprintf(stderr, "qva: %s: neither DER, PEM nor Base64\n", path);
    return false;
  }
  return true;
}

namespace {

std::string Dotted(const ByteString& blankOid) { return UDNSettings::Dotted(blankOid).c_str(); }

std::string Hex(const ByteString& bs) {
  std::string s;
  char b[4];
  for (int i = 0; i < bs.length(); ++i) {
    std::snprintf(b, sizeof b, i + 1 < bs.length() ? "%02x:" : "%02x", bs.data()[i]);
    s += b;
  }
  return s;
}

std::string Name(const RRDNSequence& name) {
  ByteString text;
  if (UDNSettings::RDN2Str(name, &text)) return qva_msg::kUnprintableName;
  return ForDisplay(text.c_str(), text.length());
}

std::string Subject(const ByteString& cert) {
  RCertificate c;
  if (c.fromASN1Object(cert)) return "<undecodable certificate>";
  return Name(c.getTbsCertificate().getSubject());
}

int PrintSignedData(const ByteString& der, const ByteString* detached, const std::vector<ByteString>& extra) {
  PSignedDataProcess p;
  if (detached) p.setDetachedContent(*detached);
  const int rc = p.parseSignedData(der, extra);
  // The fields are printed from the structure itself, verified or not: the
  // one the verification decoded, or one decoded here when it gave up (a
  // large message is then held twice, but only then).
  RSignedData own;
  if (rc != 0) {
    RContentInfo ci;
    if (ci.fromASN1Object(der) || own.fromASN1Object(ci.getContent().getElement())) {
      std::fprintf(stderr, qva_msg::kFailed, p.getErrorMessage().c_str());
      return 2;
    }
  }
  const RSignedData& sd = rc == 0 ? p.getSignedData() : own;
  std::printf("SignedData:\n  Version: %d\n  Digest algorithms:", sd.getVersion().getInteger());
  for (int i = 0; i < sd.getDigestAlgorithms().getCount(); ++i) {
    RAlgorithmIdentifier a = *sd.getDigestAlgorithms().getAt(i);
    std::printf(" %s", Dotted(a.getAlgorithm().getOID()).c_str());
  }
  const REncapsulatedContentInfo& eci = sd.getEncapContentInfo();
  ASN1ObjectIdentifier contentType = eci.getEContentType();  // getOID records failures
  std::printf("\n  Content type: %s\n", Dotted(contentType.getOID()).c_str());
  if (eci.hasEContent()) {
    std::printf("  Content: %d octets\n", eci.getEContent().getValue().length());
  } else {
    std::printf("  Content: detached%s\n", detached ? " (given)" : "");
  }
  std::printf("  Certificates: %d\n", sd.getCertificates().getCount());
  for (int i = 0; i < sd.getCertificates().getCount(); ++i) {
    RCertificateChoices c = *sd.getCertificates().getAt(i);
    std::printf("    %d: %s\n", i + 1,
                c.isCertificate() ? Subject(c.getCertificate().toASN1Object()).c_str() : "<not an X.509 certificate>");
  }
  std::printf("  Signers: %d\n", sd.getSignerInfos().getCount());
  for (int i = 0; i < sd.getSignerInfos().getCount(); ++i) {
    RSignerInfo si = *sd.getSignerInfos().getAt(i);
    std::printf("    Signer %d:\n      Version: %d\n", i + 1, si.getVersion().getInteger());
    if (si.getSid().isIssuerAndSerialNumber()) {
      RIssuerAndSerialNumber& ias = si.getSid().getIssuerAndSerialNumber();
      std::printf("      Issuer: %s\n      Serial: %s\n", Name(ias.getIssuer()).c_str(),
                  Hex(ias.getSerialNumber().getValue()).c_str());
    } else {
      std::printf("      Subject key identifier: %s\n", Hex(si.getSid().getSubjectKeyIdentifier().getValue()).c_str());
    }
    std::printf("      Digest algorithm: %s\n      Signature algorithm: %s\n",
                Dotted(si.getDigestAlgorithm().getAlgorithm().getOID()).c_str(),
                Dotted(si.getSignatureAlgorithm().getAlgorithm().getOID()).c_str());
    std::printf("      Signed attributes: %d\n", si.hasSignedAttrs() ? si.getSignedAttrs().getCount() : 0);
    std::time_t t = 0;
    if (rc == 0 && p.getSigningTime(i, &t) == 0) {
      char buf[32];
      std::tm tm{};
      gmtime_r(&t, &tm);
      std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%S", &tm);
      std::printf("      Signing time: %s UTC\n", buf);
    }
    ByteString cert;
    if (rc == 0 && p.getSignerCert(i, &cert) == 0) std::printf("      Certificate: %s\n", Subject(cert).c_str());
  }
  if (rc) {
    std::printf("Verification: failure\n");
    std::fprintf(stderr, qva_msg::kFailed, p.getErrorMessage().c_str());
    return 1;
  }
  std::printf("Verification: OK\n");
  return 0;
}

// The EnvelopedData printer and opener (cms_enveloped.cpp), with the
// recipient certificate and key when given.
int DispatchEnvelopedData(const ByteString& der, const char* certPath, const char* keyPath) {
  return PrintEnvelopedData(der, certPath, keyPath);
}

}  // namespace

int RunCmsCommand(int argc, char** argv) {
  const char *contentPath = nullptr, *certPath = nullptr, *keyPath = nullptr;
  const char* file =
      ReadFileAndOptions(argc, argv, {{"--content", &contentPath}, {"--cert", &certPath}, {"--key", &keyPath}});
  if (!file) {
    std::fputs("usage: qva cms FILE [--content DATA] [--cert C] [--key K]\n", stderr);
    return 2;
  }
  ByteString der, content, cert;
  if (!ReadDerOrText(file, &der)) return 2;
  if (contentPath) {
    std::ifstream in(contentPath, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    if (!in) {
      std::fprintf(stderr, qva_msg::kCannotRead, contentPath);
      return 2;
    }
    content.setData(ss.str().data(), static_cast<int>(ss.str().size()));
  }
  std::vector<ByteString> extra;
  if (certPath) {
    if (!ReadDerOrText(certPath, &cert)) return 2;
    extra.push_back(cert);
  }
  ByteString contentType;
  {
    // Only the type is needed here: the decode goes before the message's own.
    RContentInfo ci;
    if (ci.fromASN1Object(der)) {
      std::fprintf(stderr, qva_msg::kFailed, ci.getErrorMessage().c_str());
      return 2;
    }
    contentType = ci.getContentType().getOID();
  }
  const std::string type = Dotted(contentType);
  if (contentType == psdoid::kSignedData) {
    std::printf("Kind: SignedData (%s)\n", type.c_str());
    return PrintSignedData(der, contentPath ? &content : nullptr, extra);
  }
  if (contentType == "1 2 840 113549 1 7 3") {
    std::printf("Kind: EnvelopedData (%s)\n", type.c_str());
    return DispatchEnvelopedData(der, certPath, keyPath);
  }
  std::printf("Kind: %s\n", type.c_str());
  return 0;
}
