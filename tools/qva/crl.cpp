// qva crl: prints a CRL and answers whether a serial number is on it.
//
//   qva crl FILE [--issuer CERT] [--serial HEX]
//
// FILE is DER or PEM ("X509 CRL"); CERT is a DER or PEM certificate, the
// CRL's issuer, against which the CRL is checked (name, keyUsage, key
// identifiers, signature). HEX is the serial as a number in hexadecimal
// ("0x", blanks and colons allowed).
//
// Exit status: 0 not revoked (or no serial asked), 1 revoked, 2 bad
// arguments or a CRL that does not parse or check (the trace goes to stderr).
#include <cctype>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/QSProcess/PCertListProcess.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PGeneralNameUtil.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "base/QSBase.h"
#include "tools/qva/platform/display.h"
#include "tools/qva/args.h"
#include "tools/qva/messages.h"

namespace {

const char* const kReasons[] = {"unspecified",          "keyCompromise", "cACompromise",     "affiliationChanged",
                                "superseded",           "cessationOfOperation", "certificateHold", "(7)",
                                "removeFromCRL",        "privilegeWithdrawn",   "aACompromise"};

std::string Show(const ByteString& cp949) { return ForDisplay(cp949.c_str(), cp949.length()); }

std::string Hex(const ByteString& bs) {
  std::string s;
  char b[4];
  for (int i = 0; i < bs.length(); ++i) {
    std::snprintf(b, sizeof b, "%02X", bs.data()[i]);
    s += b;
  }
  return s;
}

std::string When(std::time_t v) {
  std::tm tm{};
  gmtime_r(&v, &tm);
  char buf[64];
  std::strftime(buf, sizeof buf, "%b %e %H:%M:%S %Y GMT", &tm);
  return buf;
}

// The file's bytes, PEM armour of the given type taken off when present.
bool Load(const char* path, int nPemType, const char* szBegin, ByteString* out) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, qva_msg::kCannotRead, path);
    return false;
  }
  std::ostringstream ss;
  ss << in.rdbuf();
  const std::string s = ss.str();
  const std::size_t at = s.find(szBegin);
  if (at == std::string::npos) return out->setData(s.data(), static_cast<int>(s.size())) == BS_OK;
  const std::string block = s.substr(at);
  if (int rc = QSBase::pemDecode(nPemType, ByteString(block.data(), static_cast<int>(block.size())), out)) {
    std::fprintf(stderr, "qva: %s: PEM decoding failed (%d)\n", path, rc);
    return false;
  }
  return true;
}

// A serial given in hexadecimal as the INTEGER content octets it is written
// with; false for a text that is not hexadecimal.
bool SerialOctets(std::string text, ByteString* out) {
  if (text.rfind("0x", 0) == 0 || text.rfind("0X", 0) == 0) text = text.substr(2);
  std::string digits;
  for (char c : text) {
    if (c == ':' || c == ' ') continue;
    if (!std::isxdigit(static_cast<unsigned char>(c))) return false;
    digits += c;
  }
  if (digits.empty()) return false;
  if (digits.size() % 2) digits = "0" + digits;
  ByteString magnitude;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const unsigned char b = static_cast<unsigned char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    if (magnitude.length() == 0 && b == 0 && i + 2 < digits.size()) continue;  // leading zeros
    magnitude.append(&b, 1);
  }
  ASN1Integer n;
  if (n.setInteger(magnitude, 0) != 0) return false;
  *out = n.getValue();
  return true;
}

void PrintEntry(PCertListProcess& crl, int i) {
  PRevokedEntry e;
  if (crl.getRevokedCertificate(i, &e) != 0) {
    std::printf("        <%s>\n", crl.getErrorMessage().c_str());
    return;
  }
  std::printf("        Serial Number: %s\n", Hex(e.serial).c_str());
  std::printf("            Revocation Date: %s\n", When(e.revocationDate).c_str());
  if (e.reason != PCRL_REASON_NONE) std::printf("            Reason: %s\n", kReasons[e.reason]);
  if (e.holdInstruction.length() > 0)
    std::printf("            Hold Instruction: %s\n", UDNSettings::Dotted(e.holdInstruction).c_str());
  if (e.hasInvalidityDate) std::printf("            Invalidity Date: %s\n", When(e.invalidityDate).c_str());
  if (e.certificateIssuer.length() > 0)
    std::printf("            Certificate Issuer: %s\n", Show(e.certificateIssuer).c_str());
}

void PrintCrl(PCertListProcess& crl) {
  int version = 0;
  ByteString text;
  std::time_t t = 0;
  crl.getVersion(&version);
  std::printf("Certificate Revocation List:\n    Version: %d (0x%x)\n", version + 1, version);
  RAlgorithmIdentifier alg;
  crl.getSignatureAlgorithm(&alg);
  PCertUtil names;
  if (names.getCertSignatureAlgorithmValue(alg, &text) != 0)
    text = UDNSettings::Dotted(const_cast<ASN1ObjectIdentifier&>(alg.getAlgorithm()).getOID(' '));
  std::printf("    Signature Algorithm: %s\n", text.c_str());
  crl.getIssuerDN(&text);
  std::printf("    Issuer: %s\n", Show(text).c_str());
  crl.getThisUpdate(&t);
  std::printf("    This Update: %s\n", When(t).c_str());
  std::printf("    Next Update: %s\n", crl.getNextUpdate(&t) == 0 ? When(t).c_str() : "NONE");
  if (crl.getCRLNumber(&text) == 0) std::printf("    CRL Number: %s\n", Hex(text).c_str());
  if (crl.getDeltaCRLIndicator(&text) == 0) std::printf("    Delta CRL Indicator: %s\n", Hex(text).c_str());
  RIssuingDistributionPoint idp;
  if (crl.getIssuingDistributionPoint(&idp) == 0) {
    std::printf("    Issuing Distribution Point:%s%s%s%s\n", idp.isOnlyContainsUserCerts() ? " onlyUser" : "",
                idp.isOnlyContainsCACerts() ? " onlyCA" : "", idp.isOnlyContainsAttributeCerts() ? " onlyAA" : "",
                idp.isIndirectCRL() ? " indirectCRL" : "");
    // The point's full name, one general name a line.
    RGeneralNames* names = idp.hasDistributionPoint() && idp.getDistributionPoint().isFullName()
                               ? &idp.getDistributionPoint().getFullName()
                               : nullptr;
    for (int i = 0; names && i < names->getCount(); ++i) {
      ByteString name;
      PGeneralNameUtil util;
      if (util.parseGeneralName(*names->getAt(i), &name)) continue;
      std::string shown = ForDisplay(name.c_str(), name.length());
      while (!shown.empty() && (shown.back() == '\n' || shown.back() == '\r')) shown.pop_back();
      std::printf("        %s\n", shown.c_str());
    }
  }
  std::printf("    CRL Extensions: %d\n", crl.getCrlExtensionCount());
  std::printf("    Revoked Certificates: %d\n", crl.getRevokedCount());
  for (int i = 0; i < crl.getRevokedCount(); ++i) PrintEntry(crl, i);
}

}  // namespace

int RunCrlCommand(int argc, char** argv) {
  const char* issuerPath = nullptr;
  const char* serialText = nullptr;
  const char* file = ReadFileAndOptions(argc, argv, {{"--issuer", &issuerPath}, {"--serial", &serialText}});
  if (!file) {
    std::fputs("usage: qva crl FILE [--issuer CERT] [--serial HEX]\n", stderr);
    return 2;
  }
  ByteString der, issuer, serial;
  if (!Load(file, PEM_X509_CRL, "-----BEGIN X509 CRL-----", &der)) return 2;
  if (issuerPath && !Load(issuerPath, PEM_CERTIFICATE, "-----BEGIN CERTIFICATE-----", &issuer)) return 2;
  if (serialText && !SerialOctets(serialText, &serial)) {
    std::fprintf(stderr, "qva: %s is not a hexadecimal serial number\n", serialText);
    return 2;
  }
  PCertListProcess crl;
  if (crl.parseCertList(der, nullptr, issuerPath ? &issuer : nullptr) != 0) {
    std::fprintf(stderr, qva_msg::kFailed, crl.getErrorMessage().c_str());
    return 2;
  }
  PrintCrl(crl);
  if (issuerPath) std::printf("Issuer check: OK\n");
  if (!serialText) return 0;
  int at = -1;
  bool revoked = false;
  if (crl.isRevoked(serial, &at, &revoked) != 0) {
    std::fprintf(stderr, qva_msg::kFailed, crl.getErrorMessage().c_str());
    return 2;
  }
  if (!revoked) {
    std::printf("Serial %s: not revoked\n", Hex(serial).c_str());
    return 0;
  }
  PRevokedEntry e;
  const bool read = crl.getRevokedCertificate(at, &e) == 0;
  std::printf("Serial %s: revoked (entry %d", Hex(serial).c_str(), at);
  if (read) std::printf(", %s", When(e.revocationDate).c_str());
  if (read && e.reason != PCRL_REASON_NONE) std::printf(", %s", kReasons[e.reason]);
  std::printf(")\n");
  return 1;
}
