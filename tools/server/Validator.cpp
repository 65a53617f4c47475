#include "tools/server/Validator.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RNameConstraints.h"
#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"
#include "ZENALib/QSProcess/PCertListProcess.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PNameMatch.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "base/QSBase.h"

namespace qvaserver {

struct ParsedCrl {
  std::mutex lock;  // the parsed CRL's lookups are not promised to be thread-safe
  PCertListProcess crl;
  ByteString issuer;
  std::string issuerKey;
  ByteString issuerSpki;
  const Validator::Cert* signer = nullptr;  // the anchor or intermediate whose key verified it
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
// Whole paths checked for one certificate before the first one's verdict is
// given: bounds the work a directory of look-alike CAs can cause.
constexpr int kMaxPaths = 8;
// Separate CRL signers validated one inside the other at most this deep, so
// CAs whose CRL signers vouch for each other cannot recurse without end.
constexpr int kMaxCrlSignerDepth = 2;
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

std::string Text(const ByteString& b) { return std::string(b.c_str(), static_cast<std::size_t>(b.length())); }

std::int64_t Seconds(const RTime& t) {
  return t.isUtcTime() ? t.getUtcTime().getGMTTime() : t.getGeneralTime().getGMTTime();
}

bool Describe(const ByteString& der, Validator::Cert* out) {
  PCertUtil util;
  if (util.parseCertificate(der) != 0) return false;
  PPublicKey key;
  RRDNSequence subject, issuer;
  out->der = der;
  if (util.getSubjectDN(&out->subject) != 0 || util.getIssuerDN(&out->issuer) != 0 || util.getSubject(&subject) != 0 ||
      util.getIssuer(&issuer) != 0 || key.getPublicKeyInfoFromCert(der, PPublicKey::CERT_KIND_X509, out->spki) != 0)
    return false;
  out->subjectKey = PNameMatch::NameKey(subject);
  out->issuerKey = PNameMatch::NameKey(issuer);
  if (util.m_nKeyUsage >= 0 && util.get_KeyUsage_value(&out->keyUsage) != 0) return false;
  RValidity validity;
  if (util.getValidity(&validity) != 0) return false;
  out->notBefore = Seconds(validity.getNotBefore());
  out->notAfter = Seconds(validity.getNotAfter());
  return true;
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

// How far CheckPath got before a verdict: a path refused later came nearer
// to passing, and its verdict says more about the certificate.
int Stage(Verdict v) {
  switch (v) {
    case kNotYetValid:
    case kExpired: return 1;
    case kUnparsableCertificate:
    case kUnsupportedCritical: return 2;
    case kBadSignature:
    case kUnsupportedAlgorithm: return 3;
    case kPathConstraints:
    case kKeyUsage: return 4;
    case kPolicyNotAccepted: return 5;
    case kRevocationUnknown: return 6;
    case kRevoked: return 7;
    default: return 0;
  }
}

bool IsSignatureFailure(int rc) { return rc == 115 || rc == 116 || rc == 63; }

Verdict SignatureVerdict(int rc) { return IsSignatureFailure(rc) ? kBadSignature : kUnsupportedAlgorithm; }


std::string Date(std::time_t t) {
  std::tm tm{};
  gmtime_r(&t, &tm);
  char buf[32];
  std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%SZ", &tm);
  return buf;
}


// True when the name `base` is an initial run of the RDNs of `name`.
bool WithinDirectory(const RRDNSequence& base, const RRDNSequence& name) {
  if (base.getCount() > name.getCount()) return false;
  for (int i = 0; i < base.getCount(); ++i)
    if (PNameMatch::RdnKey(*base.getAt(i)) != PNameMatch::RdnKey(*name.getAt(i))) return false;
  return true;
}

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

bool EndsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

// True when the host name is the constraint's domain or a name below it; a
// constraint with a leading "." takes names below it only.
bool WithinDns(const std::string& base, const std::string& host) {
  const std::string b = Lower(base), h = Lower(host);
  if (b.empty() || h == b) return true;
  if (b[0] == '.') return h.size() > b.size() && EndsWith(h, b);
  return h.size() > b.size() && EndsWith(h, b) && h[h.size() - b.size() - 1] == '.';
}

// An rfc822Name constraint is a whole mailbox (local part compared exactly,
// host without regard to case), a host ("example.com": mailboxes at that host
// only) or a domain (".example.com": mailboxes at hosts below it).
bool WithinMailbox(const std::string& base, const std::string& mailbox) {
  const std::size_t at = mailbox.rfind('@');
  if (at == std::string::npos) return false;
  const std::string host = Lower(mailbox.substr(at + 1));
  const std::size_t baseAt = base.rfind('@');
  if (baseAt != std::string::npos)
    return base.compare(0, baseAt, mailbox, 0, at) == 0 && baseAt == at && Lower(base.substr(baseAt + 1)) == host;
  const std::string b = Lower(base);
  if (!b.empty() && b[0] == '.') return host.size() > b.size() && EndsWith(host, b);
  return host == b;
}

// The host of a URI with an authority ("scheme://[user@]host[:port]/..."),
// or "" when it has none: such a URI cannot meet a URI constraint.
std::string UriHost(const std::string& uri) {
  const std::size_t colon = uri.find(':');
  if (colon == std::string::npos || uri.compare(colon, 3, "://") != 0) return "";
  std::string authority = uri.substr(colon + 3);
  authority = authority.substr(0, authority.find_first_of("/?#"));
  const std::size_t at = authority.rfind('@');
  if (at != std::string::npos) authority = authority.substr(at + 1);
  if (!authority.empty() && authority[0] == '[') return authority.substr(0, authority.find(']') + 1);
  return authority.substr(0, authority.find(':'));
}

// A URI constraint is a host ("host.example": that host only) or a domain
// (".example": hosts below it).
bool WithinUri(const std::string& base, const std::string& uri) {
  const std::string host = Lower(UriHost(uri)), b = Lower(base);
  if (host.empty()) return false;
  if (!b.empty() && b[0] == '.') return host.size() > b.size() && EndsWith(host, b);
  return host == b;
}

// An iPAddress constraint is an address followed by its mask (8 octets for
// IPv4, 32 for IPv6); an address of the other version never falls within it.
bool WithinAddress(const ByteString& base, const ByteString& address) {
  const int n = address.length();
  if (base.length() != 2 * n) return false;
  for (int i = 0; i < n; ++i) {
    const unsigned char mask = base.data()[n + i];
    if ((address.data()[i] & mask) != (base.data()[i] & mask)) return false;
  }
  return true;
}

// The names of one certificate that name constraints apply to.
struct CertNames {
  RRDNSequence subject;
  std::vector<RRDNSequence> directories;  // directoryName alternative names
  std::vector<std::string> mailboxes;     // rfc822Name and the subject's emailAddress values
  std::vector<std::string> hosts;         // dNSName
  std::vector<std::string> uris;          // uniformResourceIdentifier
  std::vector<ByteString> addresses;      // iPAddress
  bool otherForms = false;                // otherName, x400Address, ediPartyName or registeredID present
};

bool CollectNames(PCertUtil& cert, CertNames* out) {
  if (cert.getSubject(&out->subject) != 0) return false;
  for (const RRelativeDistinguishedName& rdn : out->subject.items())
    for (const RAttributeTypeAndValue& atv : rdn.items()) {
      if (const_cast<ASN1ObjectIdentifier&>(atv.getType()).getOID(' ') != ByteString("1 2 840 113549 1 9 1")) continue;
      ByteString mailbox;
      if (UDNSettings::Value2Str(atv.getValue().getElement(), &mailbox) != 0) return false;
      out->mailboxes.push_back(Text(mailbox));
    }
  RGeneralNames alt;
  if (cert.getSubjectAltNames(&alt) != 0) return cert.m_nSubjectAlternativeNames < 0;
  for (const RGeneralName& name : alt.items()) {
    if (name.isDirectoryName())
      out->directories.push_back(name.getDirectoryName());
    else if (name.isRfc822Name())
      out->mailboxes.push_back(Text(name.getRfc822Name().getValue()));
    else if (name.isDNSName())
      out->hosts.push_back(Text(name.getDNSName().getValue()));
    else if (name.isUniformResourceIdentifier())
      out->uris.push_back(Text(name.getUniformResourceIdentifier().getValue()));
    else if (name.isIPAddress())
      out->addresses.push_back(name.getIPAddress().getValue());
    else
      out->otherForms = true;
  }
  return true;
}

enum class NameCheck { kMet, kOutside, kUncheckable };

// Names of one form, each tested against the subtrees of that form: outside
// when one falls within an excluded subtree, or when the permitted subtrees
// hold that form and a name falls within none of them.
template <typename Name, typename Match>
bool FormMet(const std::vector<Name>& names, const std::vector<const RGeneralName*>& permitted,
             const std::vector<const RGeneralName*>& excluded, Match within) {
  for (const Name& name : names) {
    for (const RGeneralName* base : excluded)
      if (within(*base, name)) return false;
    bool any = false, inside = false;
    for (const RGeneralName* base : permitted)
      if (within.Applies(*base)) {
        any = true;
        inside = inside || within(*base, name);
      }
    if (any && !inside) return false;
  }
  return true;
}

template <bool (RGeneralName::*Is)() const, typename Test>
struct FormMatch {
  Test test;
  bool Applies(const RGeneralName& base) const { return (base.*Is)(); }
  template <typename Name>
  bool operator()(const RGeneralName& base, const Name& name) const {
    return (base.*Is)() && test(base, name);
  }
};

template <bool (RGeneralName::*Is)() const, typename Test>
FormMatch<Is, Test> Form(Test test) {
  return FormMatch<Is, Test>{test};
}

// A CA's nameConstraints against the names of a certificate below it. Excluded
// subtrees win over permitted ones. A subtree of a form not evaluated here
// (otherName, x400Address, ediPartyName, registeredID), or one with a
// minimum or maximum, cannot be honoured: it refuses when names of such a
// form are present below, or always for minimum and maximum.
NameCheck CheckNames(const RNameConstraints& nc, const CertNames& names) {
  std::vector<const RGeneralName*> permitted, excluded;
  bool otherForms = false;
  for (int side = 0; side < 2; ++side) {
    const bool has = side == 0 ? nc.hasPermittedSubtrees() : nc.hasExcludedSubtrees();
    if (!has) continue;
    const RGeneralSubtrees& trees = side == 0 ? nc.getPermittedSubtrees() : nc.getExcludedSubtrees();
    for (const RGeneralSubtree& tree : trees.items()) {
      if ((tree.hasMinimum() && tree.getMinimum().getInteger() != 0) || tree.hasMaximum())
        return NameCheck::kUncheckable;
      const RGeneralName& base = tree.getBase();
      if (!(base.isDirectoryName() || base.isRfc822Name() || base.isDNSName() || base.isUniformResourceIdentifier() ||
            base.isIPAddress()))
        otherForms = true;
      (side == 0 ? permitted : excluded).push_back(&base);
    }
  }
  if (otherForms && names.otherForms) return NameCheck::kUncheckable;
  std::vector<RRDNSequence> directories = names.directories;
  // An empty subject is no name to constrain.
  if (names.subject.getCount() > 0) directories.push_back(names.subject);
  auto dir = Form<&RGeneralName::isDirectoryName>(
      [](const RGeneralName& b, const RRDNSequence& n) { return WithinDirectory(b.getDirectoryName(), n); });
  auto mail = Form<&RGeneralName::isRfc822Name>(
      [](const RGeneralName& b, const std::string& n) { return WithinMailbox(Text(b.getRfc822Name().getValue()), n); });
  auto dns = Form<&RGeneralName::isDNSName>(
      [](const RGeneralName& b, const std::string& n) { return WithinDns(Text(b.getDNSName().getValue()), n); });
  auto uri = Form<&RGeneralName::isUniformResourceIdentifier>([](const RGeneralName& b, const std::string& n) {
    return WithinUri(Text(b.getUniformResourceIdentifier().getValue()), n);
  });
  auto ip = Form<&RGeneralName::isIPAddress>(
      [](const RGeneralName& b, const ByteString& n) { return WithinAddress(b.getIPAddress().getValue(), n); });
  const bool met = FormMet(directories, permitted, excluded, dir) && FormMet(names.mailboxes, permitted, excluded, mail) &&
                   FormMet(names.hosts, permitted, excluded, dns) && FormMet(names.uris, permitted, excluded, uri) &&
                   FormMet(names.addresses, permitted, excluded, ip);
  return met ? NameCheck::kMet : NameCheck::kOutside;
}

// Extensions this validator acts on, or that only inform (key identifiers,
// issuer names, extended key usage, which is the relying application's to
// judge): a critical extension outside this list refuses the path.
constexpr const char* kUnderstood[] = {
    "2 5 29 15", "2 5 29 19", "2 5 29 30", "2 5 29 17", "2 5 29 32", "2 5 29 33",
    "2 5 29 36", "2 5 29 54", "2 5 29 37", "2 5 29 35", "2 5 29 14", "2 5 29 18",
};

// The first critical extension not understood, as its dotted identifier, or
// "" when there is none; *duplicate tells of an extension given twice.
std::string UnknownCritical(PCertUtil& cert, bool* duplicate) {
  std::vector<ByteString> seen;
  std::string unknown;
  *duplicate = false;
  for (int i = 0; i < cert.getExtensionCount(); ++i) {
    ByteString id;
    bool critical = false;
    if (cert.getExtensionID(i, &id) != 0 || cert.getExtensionCritical(i, &critical) != 0) {
      *duplicate = true;
      return "";
    }
    if (std::find(seen.begin(), seen.end(), id) != seen.end()) *duplicate = true;
    seen.push_back(id);
    const bool known = std::any_of(std::begin(kUnderstood), std::end(kUnderstood),
                                   [&](const char* k) { return id == ByteString(k); });
    if (critical && !known && unknown.empty()) unknown = Text(UDNSettings::Dotted(id));
  }
  return unknown;
}

// Signature algorithms whose digests are broken: a certificate signed with
// one of them is refused even when the signature verifies.
constexpr const char* kRefusedSignatures[] = {
    "1 2 840 113549 1 1 2",  // md2WithRSAEncryption
    "1 2 840 113549 1 1 3",  // md4WithRSAEncryption
    "1 2 840 113549 1 1 4",  // md5WithRSAEncryption
};

const std::string kAnyPolicy = "2.5.29.32.0";
constexpr std::size_t kMaxPolicyNodes = 4096;

// The tree of valid policies built down the path, one level per certificate
// below the anchor (level 0 is the anchor's anyPolicy root).
class PolicyTree {
 public:
  PolicyTree() { levels_.push_back({Node{kAnyPolicy, {kAnyPolicy}, -1, true}}); }
  bool Empty() const { return empty_; }
  // Mappings and anyPolicy can multiply the nodes level by level; a tree
  // past this size is refused rather than grown further.
  bool TooLarge() const { return nodes_ > kMaxPolicyNodes; }

  // The certificate at `depth` asserts `policies`; anyPolicy among them
  // counts only when `anyAllowed`.
  void Certificate(std::size_t depth, const std::vector<std::string>& policies, bool anyAllowed) {
    if (empty_) return;
    std::vector<Node>& up = levels_[depth - 1];
    std::vector<Node> level;
    // False once the tree would pass its bound (TooLarge then tells).
    auto add = [&](const std::string& p, std::size_t parent) {
      if (nodes_ + level.size() >= kMaxPolicyNodes) {
        nodes_ = kMaxPolicyNodes + 1;
        return false;
      }
      level.push_back(Node{p, {p}, static_cast<int>(parent), true});
      return true;
    };
    for (const std::string& p : policies) {
      if (p == kAnyPolicy) continue;
      bool matched = false;
      for (std::size_t k = 0; k < up.size(); ++k)
        if (up[k].alive && up[k].expected.count(p)) {
          if (!add(p, k)) return;
          matched = true;
        }
      if (!matched)
        for (std::size_t k = 0; k < up.size(); ++k)
          if (up[k].alive && up[k].policy == kAnyPolicy && !add(p, k)) return;
    }
    if (anyAllowed && std::find(policies.begin(), policies.end(), kAnyPolicy) != policies.end()) {
      for (std::size_t k = 0; k < up.size(); ++k) {
        if (!up[k].alive) continue;
        for (const std::string& e : up[k].expected) {
          const bool present = std::any_of(level.begin(), level.end(), [&](const Node& c) {
            return c.parent == static_cast<int>(k) && c.policy == e;
          });
          if (!present && !add(e, k)) return;
        }
      }
    }
    nodes_ += level.size();
    levels_.push_back(std::move(level));
    Prune();
  }

  // A certificate without policies ends the tree.
  void Clear() { empty_ = true; }

  // The policy mappings of the certificate at `depth` (the deepest level):
  // followed when `allowed`, else the mapped policies are cut off.
  void Map(const std::map<std::string, std::set<std::string>>& mappings, bool allowed) {
    if (empty_) return;
    std::vector<Node>& level = levels_.back();
    for (const auto& m : mappings) {
      bool found = false;
      for (Node& n : level)
        if (n.alive && n.policy == m.first) {
          found = true;
          if (allowed)
            n.expected = m.second;
          else
            n.alive = false;
        }
      if (allowed && !found)
        for (std::size_t k = 0; k < level.size(); ++k)
          if (level[k].alive && level[k].policy == kAnyPolicy) {
            level.push_back(Node{m.first, m.second, level[k].parent, true});
            ++nodes_;
            break;
          }
    }
    Prune();
  }

 private:
  struct Node {
    std::string policy;
    std::set<std::string> expected;
    int parent;  // index in the level above
    bool alive;
  };

  // Nodes above the deepest level without a living child go; the tree is
  // empty when its root goes.
  void Prune() {
    for (std::size_t d = levels_.size() - 1; d > 0; --d) {
      std::vector<bool> hasChild(levels_[d - 1].size(), false);
      for (const Node& n : levels_[d])
        if (n.alive) hasChild[static_cast<std::size_t>(n.parent)] = true;
      for (std::size_t k = 0; k < levels_[d - 1].size(); ++k)
        if (!hasChild[k]) levels_[d - 1][k].alive = false;
    }
    bool any = false;
    for (const Node& n : levels_.back()) any = any || n.alive;
    if (!any || !levels_[0][0].alive) empty_ = true;
  }

  std::vector<std::vector<Node>> levels_;
  std::size_t nodes_ = 1;
  bool empty_ = false;
};

// The policies a certificate asserts (dotted), false when its
// certificatePolicies cannot be read; *present tells whether it has them.
bool PoliciesOf(PCertUtil& cert, std::vector<std::string>* out, bool* present) {
  *present = cert.m_nCertificatePolicies >= 0;
  if (!*present) return true;
  // Decoded once: asking by index decodes the whole extension each time.
  RCertificatePolicies policies;
  if (cert.getCertPolicy(&policies) != 0) return false;
  for (int i = 0; i < policies.getCount(); ++i) {
    const ByteString arcs = policies.getAt(i)->getPolicyIdentifier().getOID(' ');
    if (arcs.length() == 0) return false;
    out->push_back(Text(UDNSettings::Dotted(arcs)));
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
// parse or whose signature no known CA certificate allowed to sign CRLs
// (keyUsage cRLSign, when keyUsage is present) verifies is left out: the
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
    RRDNSequence issuerName;
    if (parsed->crl.getIssuer(&issuerName) == 0) parsed->issuerKey = PNameMatch::NameKey(issuerName);
    bool verified = false;
    for (const auto* list : {&anchors_, &intermediates_}) {
      for (const Cert& ca : *list) {
        PPublicKey key;
        if (ca.subjectKey == parsed->issuerKey && (ca.keyUsage < 0 || (ca.keyUsage & PCERT_KU_CRL_SIGN)) &&
            key.verifyCertificateSignature(der, ca.spki) == 0) {
          parsed->issuerSpki = ca.spki;
          parsed->signer = &ca;
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
  return Search(leaf, Now(), 0, nullptr);
}

Result Validator::Search(const Cert& leaf, std::time_t when, int depth, const Cert** anchor) {

  // Depth-first search for a path to an anchor whose checks pass; each whole
  // path found is checked, and the search goes on past one that fails (an
  // expired or constrained copy of a CA beside a good one). When none passes,
  // the verdict is that of the path that failed at the latest check (the
  // first such), else the first signature failure met by a candidate with
  // the right name.
  Result failure{kUntrustedIssuer, {}};
  Result pathFailure{kValid, {}};
  bool valid = false;
  int tried = 0;
  std::vector<const Cert*> path{&leaf};
  // True when the search is over: a path passed or enough were tried.
  auto check = [&]() -> bool {
    const Result r = CheckPath(path, when, depth);
    if (r.verdict == kValid) {
      if (anchor) *anchor = path.back();
      return valid = true;
    }
    if (tried == 0 || Stage(r.verdict) > Stage(pathFailure.verdict)) pathFailure = r;
    return ++tried >= kMaxPaths;
  };
  auto search = [&](auto&& self, const Cert* cur) -> bool {
    if (static_cast<int>(path.size()) > kMaxDepth) return false;
    for (const Cert& a : anchors_)
      if (a.der == cur->der) return check();
    // Issuers valid at the time first, so an expired or early copy of a CA
    // is tried only after the current one.
    for (int pass = 0; pass < 2; ++pass) {
      for (const auto* list : {&anchors_, &intermediates_}) {
        for (const Cert& ca : *list) {
          if (ca.subjectKey != cur->issuerKey) continue;
          if ((ca.notBefore <= when && when <= ca.notAfter) != (pass == 0)) continue;
          if (std::find(path.begin(), path.end(), &ca) != path.end()) continue;
          PPublicKey key;
          const int rc = key.verifyCertificateSignature(cur->der, ca.spki);
          if (rc != 0) {
            if (failure.verdict == kUntrustedIssuer) failure = {SignatureVerdict(rc), Text(key.getErrorMessage())};
            continue;
          }
          path.push_back(&ca);
          const bool over = list == &anchors_ ? check() : self(self, &ca);
          path.pop_back();
          if (over) return true;
        }
      }
    }
    return false;
  };
  search(search, &leaf);
  if (valid) return {kValid, {}};
  return tried > 0 ? pathFailure : failure;
}

Result Validator::CheckPath(const std::vector<const Cert*>& path, std::time_t when, int depth) {
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
  // Extensions: each at most once, every critical one understood.
  for (std::size_t i = 0; i < n; ++i) {
    bool duplicate = false;
    const std::string unknown = UnknownCritical(*utils[i], &duplicate);
    if (duplicate) return {kUnparsableCertificate, Text(path[i]->subject) + " repeats an extension"};
    if (!unknown.empty()) return {kUnsupportedCritical, Text(path[i]->subject) + " marks " + unknown + " critical"};
  }
  // Signatures below the anchor: the algorithm named inside the signed part
  // is the one used, and its digest is not a broken one.
  for (std::size_t i = 0; i + 1 < n; ++i) {
    const RCertificate* c = utils[i]->getCertificate();
    RAlgorithmIdentifier alg = c->getSignatureAlgorithm(), inner = c->getTbsCertificate().getSignature();
    if (alg.toASN1Object() != inner.toASN1Object())
      return {kBadSignature, Text(path[i]->subject) + " names two signature algorithms"};
    const ByteString oid = const_cast<ASN1ObjectIdentifier&>(alg.getAlgorithm()).getOID(' ');
    if (std::any_of(std::begin(kRefusedSignatures), std::end(kRefusedSignatures),
                    [&](const char* r) { return oid == ByteString(r); }))
      return {kUnsupportedAlgorithm, Text(path[i]->subject) + " is signed with " + Text(UDNSettings::Dotted(oid))};
  }
  // Self-issued certificates between the anchor and the leaf: they neither
  // count against a path length nor are held to the names above them.
  std::vector<bool> selfIssued(n, false);
  for (std::size_t i = 1; i + 1 < n; ++i) selfIssued[i] = path[i]->subjectKey == path[i]->issuerKey;
  std::vector<CertNames> names(n);
  for (std::size_t i = 0; i < n; ++i)
    if (!CollectNames(*utils[i], &names[i])) return {kUnparsableCertificate, Text(path[i]->subject) + " names"};
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
    if (ca.getBasicConstraints_pathLenConstraint(&pathLen) == 0) {
      const auto below = std::count(selfIssued.begin() + 1, selfIssued.begin() + static_cast<std::ptrdiff_t>(i), false);
      if (below > pathLen)
        return {kPathConstraints, Text(path[i]->subject) + " allows " + std::to_string(pathLen) + " CA(s) below it"};
    }
    RNameConstraints nc;
    if (ca.m_nNameConstraints >= 0) {
      if (ca.getNameConstraints(&nc) != 0) return {kUnparsableCertificate, Text(path[i]->subject) + " name constraints"};
      for (std::size_t j = 0; j < i; ++j) {
        if (selfIssued[j]) continue;
        const NameCheck check = CheckNames(nc, names[j]);
        if (check == NameCheck::kUncheckable)
          return {kUnsupportedCritical, Text(path[i]->subject) + " constrains names in a form not evaluated"};
        if (check == NameCheck::kOutside)
          return {kPathConstraints, Text(path[j]->subject) + " is outside the names " + Text(path[i]->subject) +
                                        " may certify"};
      }
    }
  }
  if (Result r = CheckPolicies(path, utils); r.verdict != kValid) return r;
  // Revocation of every certificate below the anchor.
  if (!config_.crlDir.empty()) {
    std::shared_ptr<CrlSet> crls = Crls();
    for (std::size_t i = 0; i + 1 < n; ++i) {
      // A CRL of the issuer's name, signed with the key of the issuer or of
      // a certificate of the same name further up this path (the CA before
      // a key rollover); of those, the current one issued last.
      // Failing that, one signed by a separate certificate of the issuer's
      // name, itself valid at the time under the same anchor.
      const Cert& issuer = *path[i + 1];
      std::vector<const Cert*> separate;  // signers found valid so far
      auto signs = [&](const ParsedCrl& c) {
        if (c.issuerKey != issuer.subjectKey) return false;
        for (std::size_t k = i + 1; k < n; ++k)
          if (path[k]->subjectKey == issuer.subjectKey && path[k]->spki == c.issuerSpki) return true;
        if (depth >= kMaxCrlSignerDepth || !c.signer) return false;
        if (std::find(separate.begin(), separate.end(), c.signer) != separate.end()) return true;
        const Cert* signerAnchor = nullptr;
        if (Search(*c.signer, when, depth + 1, &signerAnchor).verdict != kValid || signerAnchor != path.back())
          return false;
        separate.push_back(c.signer);
        return true;
      };
      ParsedCrl* match = nullptr;
      bool any = false;
      for (auto& c : crls->crls) {
        if (!signs(*c)) continue;
        any = true;
        const bool current = c->thisUpdate <= when && (!c->hasNextUpdate || when <= c->nextUpdate);
        if (current && (!match || c->thisUpdate > match->thisUpdate)) match = c.get();
      }
      if (!any) return {kRevocationUnknown, "no CRL of " + Text(issuer.subject)};
      if (!match) return {kRevocationUnknown, "the CRL of " + Text(issuer.subject) + " is not current"};
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
  // The leaf's policies against the allow-list (not a CRL signer's: it
  // vouches for a CRL, not for the requester).
  if (!config_.policies.empty() && depth == 0) {
    std::vector<std::string> leafPolicies;
    bool present = false;
    PoliciesOf(*utils[0], &leafPolicies, &present);
    const bool accepted = std::any_of(leafPolicies.begin(), leafPolicies.end(), [&](const std::string& oid) {
      return std::find(config_.policies.begin(), config_.policies.end(), oid) != config_.policies.end();
    });
    if (!accepted) return {kPolicyNotAccepted, {}};
  }
  return {kValid, {}};
}

// Certificate policies down the path, from the certificate below the anchor
// to the leaf: the valid policies are followed through the mappings, and the
// path is refused where a policyConstraints has made an explicit policy
// required and none is left. The initial policy set is any policy, without
// explicit policy, with mapping and anyPolicy allowed.
Result Validator::CheckPolicies(const std::vector<const Cert*>& path,
                                const std::vector<std::unique_ptr<PCertUtil>>& utils) {
  const std::size_t n = path.size() - 1;  // certificates below the anchor
  std::size_t explicitPolicy = n + 1, inhibitAny = n + 1, policyMapping = n + 1;
  PolicyTree tree;
  for (std::size_t depth = 1; depth <= n; ++depth) {
    const std::size_t at = n - depth;
    PCertUtil& cert = *utils[at];
    const std::string who = Text(path[at]->subject);
    const bool leaf = depth == n;
    const bool selfIssued = path[at]->subjectKey == path[at]->issuerKey;
    std::vector<std::string> policies;
    bool present = false;
    if (!PoliciesOf(cert, &policies, &present)) return {kUnparsableCertificate, who + " certificate policies"};
    if (present)
      tree.Certificate(depth, policies, inhibitAny > 0 || (!leaf && selfIssued));
    else
      tree.Clear();
    if (tree.TooLarge()) return {kPolicyNotAccepted, "too many policies to follow at " + who};
    const std::string none = "an explicit policy is required and none is valid for " + who;
    RPolicyConstraints pc;
    if (cert.m_nPolicyConstraints >= 0 && cert.getploicyConstraints(&pc) != 0)
      return {kUnparsableCertificate, who + " policy constraints"};
    // Negative skip counts are taken as 0, the strictest reading.
    auto count = [](const ASN1Integer& v) { return static_cast<std::size_t>(std::max(0, v.getInteger())); };
    if (leaf) {
      if (explicitPolicy > 0) --explicitPolicy;
      if (pc.hasRequireExplicitPolicy() && count(pc.getRequireExplicitPolicy()) == 0) explicitPolicy = 0;
      if (explicitPolicy == 0 && tree.Empty()) return {kPolicyNotAccepted, none};
      break;
    }
    if (explicitPolicy == 0 && tree.Empty()) return {kPolicyNotAccepted, none};
    if (cert.m_nPolicyMappings >= 0) {
      RPolicyMappings mappings;
      if (cert.getploicyMapping(&mappings) != 0) return {kUnparsableCertificate, who + " policy mappings"};
      std::map<std::string, std::set<std::string>> map;
      for (int k = 0; k < mappings.getCount(); ++k) {
        RPolicyMapping& m = *mappings.getAt(k);
        const std::string from = Text(UDNSettings::Dotted(m.getIssuerDomainPolicy().getOID(' ')));
        const std::string to = Text(UDNSettings::Dotted(m.getSubjectDomainPolicy().getOID(' ')));
        if (from == kAnyPolicy || to == kAnyPolicy) return {kPolicyNotAccepted, who + " maps anyPolicy"};
        map[from].insert(to);
      }
      tree.Map(map, policyMapping > 0);
      if (tree.TooLarge()) return {kPolicyNotAccepted, "too many policies to follow at " + who};
    }
    if (!selfIssued) {
      if (explicitPolicy > 0) --explicitPolicy;
      if (policyMapping > 0) --policyMapping;
      if (inhibitAny > 0) --inhibitAny;
    }
    if (pc.hasRequireExplicitPolicy()) explicitPolicy = std::min(explicitPolicy, count(pc.getRequireExplicitPolicy()));
    if (pc.hasInhibitPolicyMapping()) policyMapping = std::min(policyMapping, count(pc.getInhibitPolicyMapping()));
    int skip = 0;
    if (cert.m_nInhibitAnyPolicy >= 0) {
      if (cert.getInhibitAnyPolicy(&skip) != 0) return {kUnparsableCertificate, who + " inhibitAnyPolicy"};
      inhibitAny = std::min(inhibitAny, static_cast<std::size_t>(std::max(0, skip)));
    }
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
