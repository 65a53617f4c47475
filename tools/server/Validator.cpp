#include "tools/server/Validator.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RNameConstraints.h"
#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"
#include "ZENALib/QSProcess/PCertListProcess.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"
#include "base/QSBase.h"

namespace qvaserver {

struct ParsedCrl {
  std::mutex lock;  // the parsed CRL's lookups are not promised to be thread-safe
  PCertListProcess crl;
  ByteString issuer;
  ByteString issuerSpki;
  std::time_t thisUpdate = 0;
  std::time_t nextUpdate = 0;
  bool hasNextUpdate = false;
};

struct CrlSet {
  std::vector<std::unique_ptr<ParsedCrl>> crls;
};

namespace {

// Longest path searched, anchor included; a longer chain is untrusted.
constexpr int kMaxDepth = 10;
// Largest file read from a trust directory.
constexpr std::streamoff kMaxFile = 64 << 20;

bool ReadFile(const std::string& path, ByteString* out) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  in.seekg(0, std::ios::end);
  const std::streamoff size = in.tellg();
  if (size < 0 || size > kMaxFile) return false;
  in.seekg(0);
  std::string s(static_cast<std::size_t>(size), '\0');
  if (size > 0 && !in.read(&s[0], size)) return false;
  *out = ByteString(s.data(), static_cast<int>(s.size()));
  return true;
}

// Regular files of a directory, sorted by name; an empty name gives none.
std::vector<std::string> Files(const std::string& dir) {
  std::vector<std::string> out;
  if (dir.empty()) return out;
  DIR* d = ::opendir(dir.c_str());
  if (!d) return out;
  while (dirent* e = ::readdir(d)) {
    const std::string name = e->d_name;
    if (name.empty() || name[0] == '.') continue;
    struct stat st {};
    const std::string path = dir + "/" + name;
    if (::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode)) out.push_back(path);
  }
  ::closedir(d);
  std::sort(out.begin(), out.end());
  return out;
}

// Length of the DER element at the start of p (header included), or 0 when
// its header cannot be read or it claims more than n bytes.
std::size_t ElementLength(const unsigned char* p, std::size_t n) {
  if (n < 2) return 0;
  std::size_t len = p[1];
  std::size_t header = 2;
  if (len & 0x80) {
    const std::size_t count = len & 0x7f;
    // Definite lengths of at most four octets: no certificate is larger.
    if (count == 0 || count > 4 || n < 2 + count) return 0;
    len = 0;
    for (std::size_t i = 0; i < count; ++i) len = (len << 8) | p[2 + i];
    header += count;
  }
  if (len > n - header) return 0;
  return header + len;
}

bool StartsWith(const ByteString& b, const char* text) {
  const std::size_t n = std::char_traits<char>::length(text);
  return static_cast<std::size_t>(b.length()) >= n && std::equal(text, text + n, b.c_str());
}

// DER or PEM of the given PEM type; bytes after the DER element are refused.
bool Decode(const ByteString& input, int pemType, ByteString* der) {
  ByteString bytes = input;
  // Leading white space before a PEM header is common in files.
  int skip = 0;
  while (skip < input.length() && (input.data()[skip] == ' ' || input.data()[skip] == '\n' ||
                                   input.data()[skip] == '\r' || input.data()[skip] == '\t'))
    ++skip;
  const ByteString rest(input.data() + skip, input.length() - skip);
  if (StartsWith(rest, "-----BEGIN")) {
    // Text after the footer (a second block, a trailing line) is tolerated by
    // the decoder only as line ends; anything more is refused there.
    if (QSBase::pemDecode(pemType, rest, &bytes) != PEM_OK) return false;
  }
  if (bytes.length() < 2 || bytes.data()[0] != 0x30) return false;
  if (ElementLength(bytes.data(), static_cast<std::size_t>(bytes.length())) !=
      static_cast<std::size_t>(bytes.length()))
    return false;
  *der = bytes;
  return true;
}

bool Describe(const ByteString& der, Validator::Cert* out) {
  PCertUtil util;
  if (util.parseCertificate(der) != 0) return false;
  PPublicKey key;
  out->der = der;
  return util.getSubjectDN(&out->subject) == 0 && util.getIssuerDN(&out->issuer) == 0 &&
         key.getPublicKeyInfoFromCert(der, PPublicKey::CERT_KIND_X509, out->spki) == 0;
}

bool LoadCerts(const std::string& dir, std::vector<Validator::Cert>* out, std::string* error) {
  for (const std::string& path : Files(dir)) {
    ByteString bytes, der;
    Validator::Cert cert;
    if (!ReadFile(path, &bytes) || !Decode(bytes, PEM_CERTIFICATE, &der) || !Describe(der, &cert)) {
      *error = "cannot read the certificate " + path;
      return false;
    }
    out->push_back(std::move(cert));
  }
  return true;
}

std::string StampOf(const std::string& dir) {
  std::string stamp;
  for (const std::string& path : Files(dir)) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) continue;
    stamp += path + ":" + std::to_string(st.st_size) + ":" + std::to_string(st.st_mtim.tv_sec) + "." +
             std::to_string(st.st_mtim.tv_nsec) + "\n";
  }
  return stamp;
}

bool IsSignatureFailure(int rc) { return rc == 115 || rc == 116 || rc == 63; }

Verdict SignatureVerdict(int rc) { return IsSignatureFailure(rc) ? kBadSignature : kUnsupportedAlgorithm; }

std::string Text(const ByteString& b) { return std::string(b.c_str(), static_cast<std::size_t>(b.length())); }

std::string Date(std::time_t t) {
  std::tm tm{};
  gmtime_r(&t, &tm);
  char buf[32];
  std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%SZ", &tm);
  return buf;
}

std::int64_t Seconds(const RTime& t) {
  return t.isUtcTime() ? t.getUtcTime().getGMTTime() : t.getGeneralTime().getGMTTime();
}

// True when the name `base` is an initial run of the RDNs of `name`.
bool WithinDirectory(RRDNSequence& base, RRDNSequence& name) {
  if (base.getCount() > name.getCount()) return false;
  for (int i = 0; i < base.getCount(); ++i)
    if (base.getAt(i)->toASN1Object() != name.getAt(i)->toASN1Object()) return false;
  return true;
}

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

// True when the host name is the constraint's domain or a name below it.
bool WithinDns(const std::string& base, const std::string& host) {
  const std::string b = Lower(base), h = Lower(host);
  if (b.empty()) return true;
  if (h == b) return true;
  if (b[0] == '.') return h.size() > b.size() && h.compare(h.size() - b.size(), b.size(), b) == 0;
  return h.size() > b.size() && h.compare(h.size() - b.size(), b.size(), b) == 0 && h[h.size() - b.size() - 1] == '.';
}

// The directory-name and DNS-name parts of a CA's nameConstraints, applied to
// the subject and the dNSName alternative names of a certificate below it.
// Other name forms in the constraints are not evaluated.
bool MeetsNameConstraints(RNameConstraints& nc, PCertUtil& cert) {
  RRDNSequence subject;
  if (cert.getSubject(&subject) != 0) return false;
  std::vector<std::string> hosts;
  RGeneralNames alt;
  if (cert.getSubjectAltNames(&alt) == 0)
    for (int i = 0; i < alt.getCount(); ++i)
      if (alt.getAt(i)->isDNSName()) hosts.push_back(Text(alt.getAt(i)->getDNSName().getValue()));
  if (nc.hasExcludedSubtrees()) {
    RGeneralSubtrees& ex = nc.getExcludedSubtrees();
    for (int i = 0; i < ex.getCount(); ++i) {
      RGeneralName& base = ex.getAt(i)->getBase();
      if (base.isDirectoryName() && subject.getCount() > 0 && WithinDirectory(base.getDirectoryName(), subject))
        return false;
      if (base.isDNSName())
        for (const std::string& h : hosts)
          if (WithinDns(Text(base.getDNSName().getValue()), h)) return false;
    }
  }
  if (nc.hasPermittedSubtrees()) {
    RGeneralSubtrees& per = nc.getPermittedSubtrees();
    bool anyDir = false, dirOk = false, anyDns = false;
    std::vector<bool> hostOk(hosts.size(), false);
    for (int i = 0; i < per.getCount(); ++i) {
      RGeneralName& base = per.getAt(i)->getBase();
      if (base.isDirectoryName()) {
        anyDir = true;
        dirOk = dirOk || WithinDirectory(base.getDirectoryName(), subject);
      } else if (base.isDNSName()) {
        anyDns = true;
        for (std::size_t h = 0; h < hosts.size(); ++h)
          hostOk[h] = hostOk[h] || WithinDns(Text(base.getDNSName().getValue()), hosts[h]);
      }
    }
    if (anyDir && subject.getCount() > 0 && !dirOk) return false;
    if (anyDns)
      for (bool ok : hostOk)
        if (!ok) return false;
  }
  return true;
}

}  // namespace

Validator::Validator() = default;
Validator::~Validator() = default;

bool Validator::ToDer(const ByteString& input, ByteString* der) { return Decode(input, PEM_CERTIFICATE, der); }

bool Validator::Load(const ValidatorConfig& config, std::string* error) {
  config_ = config;
  anchors_.clear();
  intermediates_.clear();
  if (!LoadCerts(config.anchorDir, &anchors_, error) || !LoadCerts(config.intermediateDir, &intermediates_, error))
    return false;
  Crls();
  return true;
}

std::time_t Validator::Now() const { return config_.fixedTime != 0 ? config_.fixedTime : std::time(nullptr); }

// The CRL set, read again when the directory's listing, sizes or times have
// changed since the last look (at most once a second). A CRL that does not
// parse or whose signature no known CA certificate verifies is left out: the
// certificates it covers get "revocation unknown".
std::shared_ptr<CrlSet> Validator::Crls() {
  std::lock_guard<std::mutex> guard(crlMutex_);
  const std::time_t now = std::time(nullptr);
  if (crls_ && now == crlChecked_) return crls_;
  crlChecked_ = now;
  const std::string stamp = StampOf(config_.crlDir);
  if (crls_ && stamp == crlStamp_) return crls_;
  auto set = std::make_shared<CrlSet>();
  for (const std::string& path : Files(config_.crlDir)) {
    ByteString bytes, der;
    if (!ReadFile(path, &bytes) || !Decode(bytes, PEM_X509_CRL, &der)) {
      std::fprintf(stderr, "qva-server: skipping unreadable CRL %s\n", path.c_str());
      continue;
    }
    auto parsed = std::make_unique<ParsedCrl>();
    if (parsed->crl.parseCertList(der, nullptr, nullptr) != 0 || parsed->crl.getIssuerDN(&parsed->issuer) != 0 ||
        parsed->crl.getThisUpdate(&parsed->thisUpdate) != 0) {
      std::fprintf(stderr, "qva-server: skipping CRL %s: %s\n", path.c_str(), parsed->crl.getErrorMessage().c_str());
      continue;
    }
    parsed->hasNextUpdate = parsed->crl.getNextUpdate(&parsed->nextUpdate) == 0;
    bool verified = false;
    for (const auto* list : {&anchors_, &intermediates_}) {
      for (const Cert& ca : *list) {
        PPublicKey key;
        if (ca.subject == parsed->issuer && key.verifyCertificateSignature(der, ca.spki) == 0) {
          parsed->issuerSpki = ca.spki;
          verified = true;
          break;
        }
      }
      if (verified) break;
    }
    if (!verified) {
      std::fprintf(stderr, "qva-server: skipping CRL %s: no known issuer verifies it\n", path.c_str());
      continue;
    }
    set->crls.push_back(std::move(parsed));
  }
  crls_ = std::move(set);
  crlStamp_ = stamp;
  return crls_;
}

Result Validator::ValidateCertificate(const ByteString& input) {
  ByteString der;
  Cert leaf;
  if (!Decode(input, PEM_CERTIFICATE, &der) || !Describe(der, &leaf)) return {kUnparsableCertificate, {}};

  // Depth-first search for a path to an anchor; the first failure met by a
  // candidate with the right name is kept for the verdict when no path exists.
  Result failure{kUntrustedIssuer, {}};
  std::vector<const Cert*> path{&leaf};
  std::vector<const Cert*> found;
  auto search = [&](auto&& self, const Cert* cur) -> bool {
    if (static_cast<int>(path.size()) > kMaxDepth) return false;
    for (const Cert& a : anchors_)
      if (a.der == cur->der) {
        found = path;
        return true;
      }
    for (const auto* list : {&anchors_, &intermediates_}) {
      for (const Cert& ca : *list) {
        if (ca.subject != cur->issuer) continue;
        if (std::find(path.begin(), path.end(), &ca) != path.end()) continue;
        PPublicKey key;
        const int rc = key.verifyCertificateSignature(cur->der, ca.spki);
        if (rc != 0) {
          if (failure.verdict == kUntrustedIssuer)
            failure = {SignatureVerdict(rc), Text(key.getErrorMessage())};
          continue;
        }
        path.push_back(&ca);
        if (list == &anchors_) {
          found = path;
          return true;
        }
        if (self(self, &ca)) return true;
        path.pop_back();
      }
    }
    return false;
  };
  if (!search(search, &leaf)) return failure;
  return CheckPath(found, Now());
}

Result Validator::CheckPath(const std::vector<const Cert*>& path, std::time_t when) {
  const std::size_t n = path.size();
  std::vector<std::unique_ptr<PCertUtil>> utils;
  for (const Cert* c : path) {
    utils.push_back(std::make_unique<PCertUtil>());
    if (utils.back()->parseCertificate(c->der) != 0) return {kInternalError, "a parsed certificate does not parse"};
  }
  // Validity of every certificate, the anchor's included.
  for (std::size_t i = 0; i < n; ++i) {
    RValidity validity;
    if (utils[i]->getValidity(&validity) != 0) return {kUnparsableCertificate, {}};
    if (when < Seconds(validity.getNotBefore()))
      return {kNotYetValid, Text(path[i]->subject) + " from " + Date(Seconds(validity.getNotBefore()))};
    if (when > Seconds(validity.getNotAfter()))
      return {kExpired, Text(path[i]->subject) + " until " + Date(Seconds(validity.getNotAfter()))};
  }
  // Every issuer: a CA (a version 1 anchor is taken as one), allowed to sign
  // certificates, with room for the CAs below it.
  for (std::size_t i = 1; i < n; ++i) {
    PCertUtil& ca = *utils[i];
    bool isCA = false;
    int version = 0;
    ca.getVersion(&version);
    const bool v1Anchor = i == n - 1 && version == 0;
    if (!v1Anchor && (ca.getBasicConstraints_cA(&isCA) != 0 || !isCA))
      return {kPathConstraints, Text(path[i]->subject) + " is not a CA"};
    int usage = 0;
    if (ca.get_KeyUsage_value(&usage) == 0 && !(usage & PCERT_KU_KEY_CERT_SIGN))
      return {kKeyUsage, Text(path[i]->subject) + " may not sign certificates"};
    int pathLen = 0;
    if (ca.getBasicConstraints_pathLenConstraint(&pathLen) == 0 && static_cast<int>(i) - 1 > pathLen)
      return {kPathConstraints, Text(path[i]->subject) + " allows " + std::to_string(pathLen) + " CA(s) below it"};
    RNameConstraints nc;
    if (ca.getNameConstraints(&nc) == 0) {
      // Self-issued intermediates are not subject to the names of the CAs above them.
      for (std::size_t j = 0; j < i; ++j) {
        if (j > 0 && path[j]->subject == path[j]->issuer) continue;
        if (!MeetsNameConstraints(nc, *utils[j]))
          return {kPathConstraints, Text(path[j]->subject) + " is outside the names " + Text(path[i]->subject) +
                                        " may certify"};
      }
    }
  }
  // Revocation of every certificate below the anchor.
  if (!config_.crlDir.empty()) {
    std::shared_ptr<CrlSet> crls = Crls();
    for (std::size_t i = 0; i + 1 < n; ++i) {
      ParsedCrl* match = nullptr;
      for (auto& c : crls->crls)
        if (c->issuer == path[i + 1]->subject && c->issuerSpki == path[i + 1]->spki) {
          match = c.get();
          break;
        }
      if (!match) return {kRevocationUnknown, "no CRL of " + Text(path[i + 1]->subject)};
      if (when < match->thisUpdate || (match->hasNextUpdate && when > match->nextUpdate))
        return {kRevocationUnknown, "the CRL of " + Text(path[i + 1]->subject) + " is not current"};
      ByteString serial;
      if (utils[i]->getSerialNumber(&serial) != 0) return {kUnparsableCertificate, {}};
      std::lock_guard<std::mutex> guard(match->lock);
      int index = -1;
      bool revoked = false;
      if (match->crl.isRevoked(serial, &index, &revoked) != 0) return {kInternalError, "CRL lookup failed"};
      if (revoked) {
        PRevokedEntry entry;
        if (match->crl.getRevokedCertificate(index, &entry) != 0) return {kRevoked, Text(path[i]->subject)};
        if (entry.revocationDate <= when)
          return {kRevoked, Text(path[i]->subject) + ", reason " + std::to_string(entry.reason) + ", since " +
                                Date(entry.revocationDate)};
      }
    }
  }
  // The leaf's policies against the allow-list.
  if (!config_.policies.empty()) {
    int count = 0;
    bool accepted = false;
    if (utils[0]->getcertPolicyCNT(&count) == 0) {
      for (int i = 0; i < count && !accepted; ++i) {
        ByteString arcs;
        if (utils[0]->getPolicyIdentifier(i, &arcs) != 0) continue;
        std::string oid = Text(arcs);
        std::replace(oid.begin(), oid.end(), ' ', '.');
        accepted = std::find(config_.policies.begin(), config_.policies.end(), oid) != config_.policies.end();
      }
    }
    if (!accepted) return {kPolicyNotAccepted, {}};
  }
  return {kValid, {}};
}

Result Validator::ValidateSigned(const ByteString& input, ByteString* signerCert) {
  PSignedDataProcess signedData;
  ByteString der = input;
  if (StartsWith(input, "-----BEGIN") && QSBase::pemDecode(PEM_PKCS7, input, &der) != PEM_OK)
    return {kMalformedRequest, "the signed data's PEM does not decode"};
  if (signedData.parseSignedData(der) != 0) return {kBadSignature, Text(signedData.getErrorMessage())};
  int signers = 0;
  if (signedData.getSignerInfoCnt(&signers) != 0 || signers < 1 || signedData.getSignerCert(0, signerCert) != 0)
    return {kUntrustedIssuer, "no signer certificate"};
  return ValidateCertificate(*signerCert);
}

}  // namespace qvaserver
