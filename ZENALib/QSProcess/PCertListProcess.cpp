#include "ZENALib/QSProcess/PCertListProcess.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "ZENALib/ASN1/ASN1Enumerated.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1Pkix/RAuthorityKeyIdentifier.h"
#include "ZENALib/ASN1Pkix/RCRLDistPointsSyntax.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PCertListMessages.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PKeyDer.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "ZENALib/QSProcess/UDNSettings.h"

namespace {

constexpr const char kAuthorityKeyIdentifier[] = "2 5 29 35";
constexpr const char kIssuerAltName[] = "2 5 29 18";
constexpr const char kCRLNumber[] = "2 5 29 20";
constexpr const char kDeltaCRLIndicator[] = "2 5 29 27";
constexpr const char kIssuingDistributionPoint[] = "2 5 29 28";
constexpr const char kReasonCode[] = "2 5 29 21";
constexpr const char kHoldInstructionCode[] = "2 5 29 23";
constexpr const char kInvalidityDate[] = "2 5 29 24";
constexpr const char kCertificateIssuer[] = "2 5 29 29";

// The CRL extensions this class knows (RFC 5280 5.2); any other one that is
// marked critical refuses the CRL.
const char* const kKnownCrlExtensions[] = {
    kAuthorityKeyIdentifier, kIssuerAltName, kCRLNumber, kDeltaCRLIndicator, kIssuingDistributionPoint,
    "2 5 29 46",          // freshestCRL
    "1 3 6 1 5 5 7 1 1",  // authorityInfoAccess
};
constexpr int kKnownCount = static_cast<int>(sizeof(kKnownCrlExtensions) / sizeof(kKnownCrlExtensions[0]));

// The content octets of an identifier given as arcs.
ByteString Encoded(const char* szOid) {
  ASN1ObjectIdentifier oid;
  oid.setOID(szOid);
  return oid.getValue();
}

// The known identifiers' encodings, made once: extensions are matched on
// their octets, without turning each into text.
const ByteString* KnownEncodings() {
  static const struct Table {
    ByteString enc[kKnownCount];
    Table() {
      for (int i = 0; i < kKnownCount; ++i) enc[i] = Encoded(kKnownCrlExtensions[i]);
    }
  } table;
  return table.enc;
}

int KnownKind(const ByteString& bsOidValue) {
  const ByteString* enc = KnownEncodings();
  for (int i = 0; i < kKnownCount; ++i)
    if (enc[i] == bsOidValue) return i;
  return -1;
}

std::time_t TimeOf(const RTime& t) {
  return t.isUtcTime() ? t.getUtcTime().getGMTTime() : t.getGeneralTime().getGMTTime();
}

bool IsTime(unsigned char tag) { return tag == 0x17 || tag == 0x18; }

// True, with *out the same octets under a definite length, for a
// CertificateList whose outer SEQUENCE has an indefinite one (a BER
// writer's): the signed part and the signature stay as received.
bool DefiniteOuter(const ByteString& crl, ByteString* out) {
  RElementHeader h;
  if (RReadHeader(crl.data(), crl.length(), &h) || h.first != 0x30 || h.contentLength >= 0) return false;
  const int n = h.totalLength - h.headerLength - 2;
  unsigned char head[6] = {0x30};
  int len = 1;
  if (n < 0x80) {
    head[len++] = static_cast<unsigned char>(n);
  } else {
    int octets = 1;
    while (octets < 4 && (n >> (8 * octets)) != 0) ++octets;
    head[len++] = static_cast<unsigned char>(0x80 | octets);
    for (int i = octets - 1; i >= 0; --i) head[len++] = static_cast<unsigned char>(n >> (8 * i));
  }
  out->setData(head, len);
  out->append(crl.data() + h.headerLength, n);
  return out->status() == BS_OK;
}

// A 64-bit hash of a serial's octets: eight at a time through a multiply
// and xor-shift, finished by the 64-bit mixer of MurmurHash3 so that the top
// bits, which pick the bucket, depend on every octet.
std::uint64_t SerialHash(const unsigned char* p, std::uint32_t n) {
  std::uint64_t h = 0x9E3779B97F4A7C15ull ^ (static_cast<std::uint64_t>(n) * 0xFF51AFD7ED558CCDull);
  while (n >= 8) {
    std::uint64_t w;
    std::memcpy(&w, p, 8);
    h = (h ^ w) * 0xC4CEB9FE1A85EC53ull;
    h ^= h >> 29;
    p += 8;
    n -= 8;
  }
  std::uint64_t w = 0;
  for (std::uint32_t i = 0; i < n; ++i) w |= static_cast<std::uint64_t>(p[i]) << (8 * i);
  h = (h ^ w) * 0xC4CEB9FE1A85EC53ull;
  h ^= h >> 33;
  h *= 0xFF51AFD7ED558CCDull;
  h ^= h >> 33;
  h *= 0xC4CEB9FE1A85EC53ull;
  h ^= h >> 33;
  return h;
}

// The directory name among names as text; false when there is none (or it
// cannot be written).
bool DirectoryNameText(const RGeneralNames& names, ByteString* out) {
  for (int i = 0; i < names.getCount(); ++i) {
    const RGeneralName* gn = names.getAt(i);
    if (gn->isDirectoryName()) return UDNSettings::RDN2Str(gn->getDirectoryName(), out) == 0;
  }
  return false;
}

}  // namespace

PCertListProcess::PCertListProcess() : PTrace("PCertListProcess") { clear(); }

PCertListProcess::~PCertListProcess() = default;

void PCertListProcess::clear() {
  m_bsCRL.clear();
  m_pTBSCertList.reset();
  m_signatureAlgorithm = RAlgorithmIdentifier();
  m_nVersion = 0;
  m_bsIssuerDN.clear();
  std::vector<EntryRef>().swap(m_pSerialNums);
  std::vector<IndexKey>().swap(m_index);
  std::vector<std::uint32_t>().swap(m_buckets);
  m_nBucketBits = 0;
  m_pCrlExtensions = nullptr;
  for (int& n : m_pCrlExtIndex) n = -1;
  m_nCrlExtCount = 0;
}

int PCertListProcess::notParsed(const char* pszMethod) {
  return P_FAIL(pszMethod, "m_pTBSCertList", PCRL_ERR_NOT_PARSED, crlmsg::kNotParsed);
}

int PCertListProcess::parseCertList(const ByteString& bsCRL, const ByteString* pSubjectCert,
                                    const ByteString* pIssuerCert) {
  static const char kM[] = "parseCertList";
  clear();
  ByteString definite;
  const ByteString& crl = DefiniteOuter(bsCRL, &definite) ? definite : bsCRL;
  int rc = decode(crl);

  // Version: absent is v1, which carries no extensions; present must be v2.
  if (rc == 0) {
    const RTBSCertList& tbs = *m_pTBSCertList;
    if (tbs.hasVersion()) {
      m_nVersion = tbs.getVersion().getInteger();
      if (m_nVersion != 1 || tbs.getVersion().getValueLength() != 1)
        rc = P_FAILF(kM, "version", PCRL_ERR_VERSION, crlmsg::kFmtVersion, m_nVersion);
    } else if (tbs.hasCrlExtensions()) {
      rc = P_FAIL(kM, "crlExtensions", PCRL_ERR_V1_EXTENSIONS, crlmsg::kV1Extensions);
    }
  }
  if (rc == 0 && UDNSettings::RDN2Str(m_pTBSCertList->getIssuer(), &m_bsIssuerDN) != 0)
    rc = P_FAIL(kM, "UDNSettings::RDN2Str", PCRL_ERR_DN, kMsgMakeDNFailed);
  if (rc == 0 && m_pTBSCertList->hasCrlExtensions()) m_pCrlExtensions = &m_pTBSCertList->getCrlExtensions();
  if (rc == 0 && pSubjectCert) rc = checkSubject(*pSubjectCert);
  if (rc == 0 && pIssuerCert) rc = checkIssuer(crl, *pIssuerCert);
  if (rc == 0) rc = indexSerials();
  if (rc == 0) rc = indexExtensions();
  if (rc != 0) {
    const ByteString trace = m_bsErrorMsg;
    clear();
    m_bsErrorMsg = trace;
    m_nErrorCode = rc;
  }
  return rc;
}

// Step 1: the CertificateList outline by a bounded walk; the TBSCertList
// without its entries, the signature algorithm and the signature through
// the structure classes; the entries' outlines and serials located. An
// outline the walk cannot follow goes to the full decode, whose code and
// message name what is wrong.
int PCertListProcess::decode(const ByteString& bsCRL) {
  static const char kM[] = "parseCertList";
  pkeyder::Element outer, parts[4], tbs[8];
  int nTbs = 0;
  int revoked = -1;
  bool ok = pkeyder::Read(bsCRL.data(), bsCRL.length(), &outer) && outer.first == 0x30 &&
            outer.n == bsCRL.length() && pkeyder::Components(outer, parts, 4) == 3 && parts[0].first == 0x30 &&
            parts[1].first == 0x30 && parts[2].first == 0x03;
  if (ok) {
    nTbs = pkeyder::Components(parts[0], tbs, 8);
    // [version] signature issuer thisUpdate [nextUpdate] [revoked] [[0] extensions]
    int at = nTbs > 0 && tbs[0].first == 0x02 ? 1 : 0;
    at += 3;
    ok = nTbs >= at && nTbs <= 7;
    if (ok && at < nTbs && IsTime(tbs[at].first)) ++at;
    if (ok && at < nTbs && tbs[at].first == 0x30) revoked = at;
    // Only the [0] extensions may follow the entries.
    if (ok && revoked >= 0)
      ok = nTbs == revoked + 1 || (nTbs == revoked + 2 && tbs[revoked + 1].first == 0xA0);
  }
  if (!ok) {
    RCertificateList full;
    if (int rc = full.fromASN1Object(bsCRL)) return P_FAIL(kM, "certList", rc, full.getErrorMessage().c_str());
    return P_FAIL(kM, "certList", PCRL_ERR_DECODE, crlmsg::kEntryForm);
  }

  m_pTBSCertList.reset(new (std::nothrow) RTBSCertList);
  if (!m_pTBSCertList) return P_FAIL(kM, "m_pTBSCertList", PCRL_ERR_MEMORY, crlmsg::kTBSCertListMemory);
  // The TBSCertList without its revokedCertificates: the entries are
  // walked below and each is decoded when it is asked for.
  ByteString slim;
  for (int i = 0; i < nTbs; ++i)
    if (i != revoked && slim.append(tbs[i].p, tbs[i].n) != BS_OK)
      return P_FAIL(kM, "m_pTBSCertList", PCRL_ERR_MEMORY, crlmsg::kTBSCertListMemory);
  if (int rc = m_pTBSCertList->fromASN1Object(pkeyder::Sequence(slim)))
    return P_FAIL(kM, "pTBSCertList", rc, m_pTBSCertList->getErrorMessage().c_str());
  if (int rc = m_signatureAlgorithm.fromASN1Object(ByteString(parts[1].p, parts[1].n)))
    return P_FAIL(kM, "certList", rc, m_signatureAlgorithm.getErrorMessage().c_str());
  ASN1BitString signature;
  if (int rc = signature.fromASN1Object(ByteString(parts[2].p, parts[2].n)))
    return P_FAIL(kM, "certList", rc, signature.getErrorMessage().c_str());

  if (m_bsCRL.setData(bsCRL.data(), bsCRL.length()) != BS_OK)
    return P_FAIL(kM, "m_pSerialNums", PCRL_ERR_MEMORY, crlmsg::kSerialNumsMemory);
  if (revoked < 0) return 0;
  const int base = static_cast<int>(tbs[revoked].content() - bsCRL.data());
  return walkRevoked(m_bsCRL.data() + base, tbs[revoked].contentLength());
}

// Each entry: SEQUENCE { INTEGER, Time, SEQUENCE OF SEQUENCE { OID,
// [BOOLEAN], OCTET STRING } OPTIONAL } and nothing after the last one.
int PCertListProcess::walkRevoked(const unsigned char* p, int n) {
  static const char kM[] = "parseCertList";
  // Count first so the positions are stored once, without regrowth.
  std::size_t count = 0;
  for (int left = n, at = 0; left > 0; ++count) {
    pkeyder::Element e;
    if (!pkeyder::Read(p + at, left, &e)) return P_FAIL(kM, "revokedCertificates", PCRL_ERR_DECODE, crlmsg::kEntryForm);
    at += e.n;
    left -= e.n;
  }
  try {
    m_pSerialNums.reserve(count);
  } catch (const std::bad_alloc&) {
    return P_FAIL(kM, "m_pSerialNums", PCRL_ERR_MEMORY, crlmsg::kSerialNumsMemory);
  }
  const unsigned char* base = m_bsCRL.data();
  for (int left = n; left > 0;) {
    pkeyder::Element e, c[4];
    pkeyder::Read(p, left, &e);
    const int k = e.first == 0x30 ? pkeyder::Components(e, c, 4) : -1;
    bool ok = (k == 2 || k == 3) && c[0].first == 0x02 && c[0].contentLength() > 0 && IsTime(c[1].first) &&
              c[1].contentLength() > 0;
    if (ok && k == 3) {
      ok = c[2].first == 0x30 && c[2].contentLength() > 0;
      const unsigned char* q = c[2].content();
      for (int l = c[2].contentLength(); ok && l > 0;) {
        pkeyder::Element ext, f[4];
        ok = pkeyder::Read(q, l, &ext) && ext.first == 0x30;
        const int m = ok ? pkeyder::Components(ext, f, 4) : -1;
        ok = ok && (m == 2 || m == 3) && f[0].first == 0x06 && f[m - 1].first == 0x04 &&
             (m == 2 || (f[1].first == 0x01 && f[1].contentLength() == 1));
        q += ext.n;
        l -= ext.n;
      }
    }
    if (!ok) return P_FAIL(kM, "revokedCertificates", PCRL_ERR_DECODE, crlmsg::kEntryForm);
    m_pSerialNums.push_back({static_cast<std::uint32_t>(e.p - base), static_cast<std::uint32_t>(e.n),
                             static_cast<std::uint32_t>(c[0].content() - base),
                             static_cast<std::uint32_t>(c[0].contentLength())});
    p += e.n;
    left -= e.n;
  }
  return 0;
}

// Step 4: the certificate the CRL is meant to cover.
int PCertListProcess::checkSubject(const ByteString& bsSubjectCert) {
  static const char kM[] = "parseCertList";
  PCertUtil subject;
  if (int rc = subject.parseCertificate(bsSubjectCert))
    return P_FAIL(kM, "certUtil.parseCertificate", rc, subject.getErrorMessage().c_str());
  RCRLDistPointsSyntax dps;
  if (subject.m_nCRLDistributionPoints >= 0)
    if (int rc = subject.getCRLDistributionPoints(&dps))
      return P_FAIL(kM, "crlDPs", rc, subject.getErrorMessage().c_str());
  bool bCA = false;
  if (subject.m_nBasicConstraints >= 0)
    if (int rc = subject.getBasicConstraints_cA(&bCA))
      return P_FAIL(kM, "basicConsts", rc, subject.getErrorMessage().c_str());

  // A distribution point that names its CRL issuer must name this one.
  bool bNamesIssuer = false, bMatched = false;
  for (int i = 0; i < dps.getCount(); ++i) {
    const RDistributionPoint* dp = dps.getAt(i);
    if (!dp->hasCRLIssuer()) continue;
    bNamesIssuer = true;
    const RGeneralNames& names = dp->getCRLIssuer();
    for (int j = 0; j < names.getCount() && !bMatched; ++j) {
      ByteString dn;
      const RGeneralName* gn = names.getAt(j);
      bMatched = gn->isDirectoryName() && UDNSettings::RDN2Str(gn->getDirectoryName(), &dn) == 0 &&
                 dn == m_bsIssuerDN;
    }
  }
  if (bNamesIssuer && !bMatched) return P_FAIL(kM, "cRLIssuer", PCRL_ERR_DP_ISSUER, crlmsg::kCrlIssuerOfDP);

  RIssuingDistributionPoint idp;
  bool bIdp = false;
  if (int rc = decodeCrlExtension(kM, kIssuingDistributionPoint, crlmsg::kNoIDP, &idp)) {
    if (rc != PCERT_ERR_ABSENT) return rc;
  } else {
    bIdp = true;
  }
  if (bIdp && idp.isOnlyContainsUserCerts() && bCA)
    return P_FAIL(kM, "onlyContainsUserCerts", PCRL_ERR_ONLY_USER, crlmsg::kOnlyUserCerts);
  if (bIdp && idp.isOnlyContainsCACerts() && !bCA)
    return P_FAIL(kM, "onlyContainsCACerts", PCRL_ERR_ONLY_CA, crlmsg::kOnlyCACerts);
  if (bIdp && idp.isOnlyContainsAttributeCerts())
    return P_FAIL(kM, "onlyContainsAttributeCerts", PCRL_ERR_ONLY_ATTRIBUTE, crlmsg::kOnlyAttributeCerts);
  // A CRL from a cRLIssuer other than the certificate's issuer is indirect.
  ByteString subjectIssuer;
  if (int rc = subject.getIssuerDN(&subjectIssuer))
    return P_FAIL(kM, "certUtil.getIssuerDN", rc, subject.getErrorMessage().c_str());
  if (bMatched && !(subjectIssuer == m_bsIssuerDN) && !(bIdp && idp.isIndirectCRL()))
    return P_FAIL(kM, "indirectCRL", PCRL_ERR_NOT_INDIRECT, crlmsg::kNotIndirect);
  return 0;
}

// Step 5: the certificate of the CRL's issuer, the signature last.
int PCertListProcess::checkIssuer(const ByteString& bsCRL, const ByteString& bsIssuerCert) {
  static const char kM[] = "parseCertList";
  PCertUtil issuer;
  if (int rc = issuer.parseCertificate(bsIssuerCert))
    return P_FAIL(kM, "certUtil.parseCertificate", rc, issuer.getErrorMessage().c_str());
  ByteString subjectDN;
  if (int rc = issuer.getSubjectDN(&subjectDN))
    return P_FAIL(kM, "certUtil.getSubjectDN", rc, issuer.getErrorMessage().c_str());
  if (!(subjectDN == m_bsIssuerDN)) return P_FAIL(kM, "issuer", PCRL_ERR_ISSUER_DN, crlmsg::kIssuerDN);
  if (issuer.m_nKeyUsage >= 0) {
    int ku = 0;
    if (int rc = issuer.get_KeyUsage_value(&ku))
      return P_FAIL(kM, "certUtil.get_KeyUsage_value", rc, issuer.getErrorMessage().c_str());
    if (!(ku & PCERT_KU_CRL_SIGN)) return P_FAIL(kM, "keyUsage", PCRL_ERR_CRL_SIGN, crlmsg::kNoCrlSign);
  }
  if (int rc = checkAuthorityKeyIdentifier(issuer)) return rc;

  RGeneralNames crlNames;
  if (int rc = decodeCrlExtension(kM, kIssuerAltName, kMsgNoIssuerAltNames, &crlNames)) {
    if (rc != PCERT_ERR_ABSENT) return rc;
  } else if (issuer.m_nSubjectAlternativeNames >= 0) {
    RGeneralNames certNames;
    if (int rc = issuer.getSubjectAltNames(&certNames))
      return P_FAIL(kM, "certUtil.getSubjectAltNames", rc, issuer.getErrorMessage().c_str());
    if (!existMatchName(crlNames, certNames)) return P_FAIL(kM, "issuerAltName", PCRL_ERR_ALT_NAME, crlmsg::kAltName);
  }

  PPublicKey key;
  ByteString spki;
  if (int rc = key.getPublicKeyInfoFromCert(bsIssuerCert, PPublicKey::CERT_KIND_X509, spki))
    return P_FAIL(kM, "publicKey.getPublicKeyInfoFromCert", rc, key.getErrorMessage().c_str());
  if (int rc = key.verifyCertificateSignature(bsCRL, spki))
    return P_FAIL(kM, "publicKey.verifyCertificateSignature", rc, key.getErrorMessage().c_str());
  return 0;
}

int PCertListProcess::checkAuthorityKeyIdentifier(PCertUtil& issuer) {
  static const char kM[] = "checkAuthorityKeyIdentifier";
  if (!isParsed()) return notParsed(kM);
  RAuthorityKeyIdentifier aki;
  if (int rc = decodeCrlExtension(kM, kAuthorityKeyIdentifier, kMsgNoAuthorityKeyIdentifier, &aki))
    return rc == PCERT_ERR_ABSENT ? 0 : rc;
  if (aki.hasKeyIdentifier()) {
    ByteString id;
    if (issuer.m_nSubjectKeyIdentifier >= 0) {
      if (int rc = issuer.get_SubjectKeyIdentifier_value(&id))
        return P_FAIL(kM, "certUtil.get_SubjectKeyIdentifier_value", rc, issuer.getErrorMessage().c_str());
    } else {
      // Without a subjectKeyIdentifier, the SHA-1 of the key bits (RFC 5280
      // 4.2.1.2, method 1) is what an issuer's tools put in the AKI.
      ByteString bits;
      QSHash hash;
      if (issuer.getSubjectPublicKey(&bits) != 0 || hash.DigestData(QSAlgorithm::SHA1(), bits, id) != 0)
        return P_FAIL(kM, "subjectPublicKey", PCRL_ERR_KEY_DIGEST, crlmsg::kKeyDigest);
    }
    if (!(id == aki.getKeyIdentifier().getValue()))
      return P_FAIL(kM, "keyIdentifier", PCRL_ERR_AKI_KEYID, crlmsg::kAkiKeyId);
  }
  if (aki.hasAuthorityCertIssuer()) {
    ByteString akiIssuer, certIssuer;
    if (!DirectoryNameText(aki.getAuthorityCertIssuer(), &akiIssuer))
      return P_FAIL(kM, "authorityCertIssuer", PCRL_ERR_AKI_NOT_DIRNAME, crlmsg::kAkiNotDirName);
    if (int rc = issuer.getIssuerDN(&certIssuer))
      return P_FAIL(kM, "certUtil.getIssuerDN", rc, issuer.getErrorMessage().c_str());
    if (!(akiIssuer == certIssuer)) return P_FAIL(kM, "authorityCertIssuer", PCRL_ERR_AKI_ISSUER, crlmsg::kAkiIssuer);
  }
  if (aki.hasAuthorityCertSerialNumber()) {
    ByteString serial;
    if (int rc = issuer.getSerialNumber(&serial))
      return P_FAIL(kM, "certUtil.getSerialNumber", rc, issuer.getErrorMessage().c_str());
    if (!(serial == aki.getAuthorityCertSerialNumber().getValue()))
      return P_FAIL(kM, "authorityCertSerialNumber", PCRL_ERR_AKI_SERIAL, crlmsg::kAkiSerial);
  }
  return 0;
}

bool PCertListProcess::existMatchName(const RGeneralNames& a, const RGeneralNames& b) {
  for (int i = 0; i < a.getCount(); ++i) {
    RGeneralName x = *a.getAt(i);
    const ByteString ex = x.toASN1Object();
    for (int j = 0; j < b.getCount(); ++j) {
      RGeneralName y = *b.getAt(j);
      if (ex.length() > 0 && ex == y.toASN1Object()) return true;
    }
  }
  return false;
}

// Step 6's index: every serial's hash with its position, grouped by the
// top bits of the hash (a counting sort keeps CRL order inside a group),
// each group then ordered by hash. Typical groups hold one or two keys.
int PCertListProcess::indexSerials() {
  static const char kM[] = "parseCertList";
  const std::uint32_t n = static_cast<std::uint32_t>(m_pSerialNums.size());
  m_nBucketBits = 1;
  if (n == 0) return 0;  // firstPosition answers an empty list without the index
  while (m_nBucketBits < 24 && (1u << m_nBucketBits) < n) ++m_nBucketBits;
  const std::uint32_t buckets = 1u << m_nBucketBits;
  const int shift = 64 - m_nBucketBits;
  try {
    m_buckets.assign(buckets + 1, 0);
    m_index.resize(n);
    std::vector<std::uint64_t> hashes(n);
    for (std::uint32_t i = 0; i < n; ++i) {
      hashes[i] = SerialHash(serialAt(i), m_pSerialNums[i].serialLength);
      ++m_buckets[(hashes[i] >> shift) + 1];
    }
    for (std::uint32_t b = 0; b < buckets; ++b) m_buckets[b + 1] += m_buckets[b];
    std::vector<std::uint32_t> next(m_buckets.begin(), m_buckets.end() - 1);
    for (std::uint32_t i = 0; i < n; ++i) m_index[next[hashes[i] >> shift]++] = {hashes[i], i};
  } catch (const std::bad_alloc&) {
    return P_FAIL(kM, "m_pSerialNums", PCRL_ERR_MEMORY, crlmsg::kSerialNumsMemory);
  }
  const auto byHash = [](const IndexKey& a, const IndexKey& b) { return a.hash < b.hash; };
  for (std::uint32_t b = 0; b < buckets; ++b) {
    const auto first = m_index.begin() + m_buckets[b], last = m_index.begin() + m_buckets[b + 1];
    if (last - first > 16) {
      std::stable_sort(first, last, byHash);
    } else {
      for (auto i = first + 1; i < last; ++i)  // stable insertion
        for (auto j = i; j > first && byHash(*j, *(j - 1)); --j) std::iter_swap(j, j - 1);
    }
  }
  return 0;
}

int PCertListProcess::firstPosition(const unsigned char* p, std::uint32_t n) const {
  if (m_pSerialNums.empty()) return -1;
  const std::uint64_t h = SerialHash(p, n);
  const std::uint64_t b = h >> (64 - m_nBucketBits);
  auto it = std::lower_bound(m_index.begin() + m_buckets[b], m_index.begin() + m_buckets[b + 1], h,
                             [](const IndexKey& k, std::uint64_t v) { return k.hash < v; });
  // Equal hashes stand in CRL order, so the first equal serial is the first listed.
  for (const auto end = m_index.begin() + m_buckets[b + 1]; it != end && it->hash == h; ++it) {
    const EntryRef& e = m_pSerialNums[it->position];
    if (e.serialLength == n && std::memcmp(serialAt(it->position), p, n) == 0) return static_cast<int>(it->position);
  }
  return -1;
}

// Step 7: every CRL extension takes a place in the index; an unknown one
// marked critical refuses the CRL.
int PCertListProcess::indexExtensions() {
  static const char kM[] = "setExtension";
  if (!m_pCrlExtensions) return 0;
  for (int i = 0; i < m_pCrlExtensions->getCount(); ++i) {
    if (i >= CRL_EXTENSION_MAX_CNT)
      return P_FAILF(kM, "m_nIndex", PCRL_ERR_EXT_MAX, crlmsg::kFmtExtMax, i, CRL_EXTENSION_MAX_CNT);
    const RExtension& ext = *m_pCrlExtensions->getAt(i);
    m_pCrlExtIndex[i] = KnownKind(ext.getExtnID().getValue());
    m_nCrlExtCount = i + 1;
    if (m_pCrlExtIndex[i] < 0 && ext.hasCritical() && ext.getCritical().getBoolean()) {
      ASN1ObjectIdentifier oid = ext.getExtnID();
      return P_FAILF("parseCertList", "crlExtensions", PCRL_ERR_UNKNOWN_CRITICAL, crlmsg::kFmtUnknownCritical,
                     oid.getOID().c_str());
    }
  }
  return 0;
}

int PCertListProcess::findCrlExtension(const char* pszOid) const {
  if (!m_pCrlExtensions) return -1;
  const ByteString enc = Encoded(pszOid);
  for (int i = 0; i < m_pCrlExtensions->getCount(); ++i)
    if (m_pCrlExtensions->getAt(i)->getExtnID().getValue() == enc) return i;
  return -1;
}

int PCertListProcess::decodeCrlExtension(const char* pszMethod, const char* pszOid, const char* pszAbsent,
                                         ASN1Object* out) {
  const int at = findCrlExtension(pszOid);
  if (at < 0) return P_FAIL(pszMethod, pszOid, PCERT_ERR_ABSENT, pszAbsent);
  if (int rc = out->fromASN1Object(m_pCrlExtensions->getAt(at)->getExtnValue().getValue()))
    return P_FAIL(pszMethod, pszOid, rc, out->getErrorMessage().c_str());
  return 0;
}

int PCertListProcess::isRevoked(const ByteString& bsSerial, int* pnIndex, bool* pbRevoked) {
  if (!isParsed()) return P_FAIL("isRevoked", "m_pSerialNums", PCRL_ERR_NOT_PARSED, crlmsg::kNotParsed);
  const int at = firstPosition(bsSerial.data(), static_cast<std::uint32_t>(bsSerial.length()));
  *pbRevoked = at >= 0;
  *pnIndex = at;
  return 0;
}

int PCertListProcess::getRevokedCertificate(int nIndex, PRevokedEntry* out) {
  static const char kM[] = "getRevokedCertificate";
  if (!isParsed()) return notParsed(kM);
  if (nIndex < 0 || nIndex >= getRevokedCount()) return P_FAILF(kM, "nIndex", PCRL_ERR_INDEX, crlmsg::kFmtIndex, nIndex);
  *out = PRevokedEntry();
  const EntryRef& e = m_pSerialNums[static_cast<std::size_t>(nIndex)];
  if (int rc = out->entry.fromASN1Object(ByteString(m_bsCRL.data() + e.offset, static_cast<int>(e.length))))
    return P_FAIL(kM, "revokedCertificate", rc, out->entry.getErrorMessage().c_str());
  out->serial = out->entry.getUserCertificate().getValue();
  out->revocationDate = TimeOf(out->entry.getRevocationDate());
  if (out->revocationDate > TimeOf(m_pTBSCertList->getThisUpdate()))
    return P_FAIL(kM, "revocationDate", PCRL_ERR_REVOKED_AFTER, crlmsg::kRevokedAfterThisUpdate);
  if (!out->entry.hasCrlEntryExtensions()) return 0;
  const RExtensions& exts = out->entry.getCrlEntryExtensions();
  for (int i = 0; i < exts.getCount(); ++i) {
    const RExtension& ext = *exts.getAt(i);
    ASN1ObjectIdentifier id = ext.getExtnID();
    const ByteString oid = id.getOID();
    const ByteString& value = ext.getExtnValue().getValue();
    if (oid == kReasonCode) {
      ASN1Enumerated reason;
      if (int rc = reason.fromASN1Object(value)) return P_FAIL(kM, "reasonCode", rc, reason.getErrorMessage().c_str());
      const int r = reason.getEnumerated();
      if (r < 0 || r > PCRL_REASON_AA_COMPROMISE || r == 7 || reason.getValueLength() != 1)
        return P_FAIL(kM, "reasonCode", PCRL_ERR_REASON, crlmsg::kUnknownReason);
      out->reason = r;
    } else if (oid == kHoldInstructionCode) {
      ASN1ObjectIdentifier hold;
      if (int rc = hold.fromASN1Object(value))
        return P_FAIL(kM, "holdInstructionCode", rc, hold.getErrorMessage().c_str());
      out->holdInstruction = hold.getOID();
    } else if (oid == kInvalidityDate) {
      ASN1GeneralizedTime when;
      if (int rc = when.fromASN1Object(value)) return P_FAIL(kM, "invalidityDate", rc, when.getErrorMessage().c_str());
      out->hasInvalidityDate = true;
      out->invalidityDate = when.getGMTTime();
    } else if (oid == kCertificateIssuer) {
      RGeneralNames names;
      if (int rc = names.fromASN1Object(value))
        return P_FAIL(kM, "certificateIssuer", rc, names.getErrorMessage().c_str());
      if (names.getCount() < 1 || !names.getAt(0)->isDirectoryName())
        return P_FAIL(kM, "certificateIssuer", PCRL_ERR_CERT_ISSUER, crlmsg::kCertIssuerNotDirName);
      if (UDNSettings::RDN2Str(names.getAt(0)->getDirectoryName(), &out->certificateIssuer) != 0)
        return P_FAIL(kM, "UDNSettings::RDN2Str", PCRL_ERR_DN, kMsgMakeDNFailed);
    }
  }
  return 0;
}

int PCertListProcess::getRevokedReason(int nIndex, int* pnReason) {
  PRevokedEntry e;
  if (int rc = getRevokedCertificate(nIndex, &e)) return rc;
  if (e.reason == PCRL_REASON_NONE)
    return P_FAIL("getRevokedReason", kReasonCode, PCERT_ERR_ABSENT, crlmsg::kNoReason);
  *pnReason = e.reason;
  return 0;
}

int PCertListProcess::getVersion(int* pnVersion) {
  if (!isParsed()) return notParsed("getVersion");
  *pnVersion = m_nVersion;
  return 0;
}

int PCertListProcess::getIssuer(RRDNSequence* out) {
  if (!isParsed()) return notParsed("getIssuer");
  *out = m_pTBSCertList->getIssuer();
  return 0;
}

int PCertListProcess::getIssuerDN(ByteString* out) {
  if (!isParsed()) return notParsed("getIssuerDN");
  *out = m_bsIssuerDN;
  return 0;
}

int PCertListProcess::getThisUpdate(std::time_t* out) {
  if (!isParsed()) return notParsed("getThisUpdate");
  *out = TimeOf(m_pTBSCertList->getThisUpdate());
  return 0;
}

int PCertListProcess::getNextUpdate(std::time_t* out) {
  if (!isParsed()) return notParsed("getNextUpdate");
  if (!m_pTBSCertList->hasNextUpdate())
    return P_FAIL("getNextUpdate", "nextUpdate", PCERT_ERR_ABSENT, crlmsg::kNoNextUpdate);
  *out = TimeOf(m_pTBSCertList->getNextUpdate());
  return 0;
}

int PCertListProcess::getCRLNumber(ByteString* out) {
  if (!isParsed()) return notParsed("getCRLNumber");
  ASN1Integer number;
  if (int rc = decodeCrlExtension("getCRLNumber", kCRLNumber, crlmsg::kNoCRLNumber, &number)) return rc;
  *out = number.getValue();
  return 0;
}

int PCertListProcess::getDeltaCRLIndicator(ByteString* out) {
  if (!isParsed()) return notParsed("getDeltaCRLIndicator");
  ASN1Integer number;
  if (int rc = decodeCrlExtension("getDeltaCRLIndicator", kDeltaCRLIndicator, crlmsg::kNoDeltaIndicator, &number))
    return rc;
  *out = number.getValue();
  return 0;
}

int PCertListProcess::getIssuingDistributionPoint(RIssuingDistributionPoint* out) {
  if (!isParsed()) return notParsed("getIssuingDistributionPoint");
  return decodeCrlExtension("getIssuingDistributionPoint", kIssuingDistributionPoint, crlmsg::kNoIDP, out);
}

int PCertListProcess::getSignatureAlgorithm(RAlgorithmIdentifier* out) {
  if (!isParsed()) return notParsed("getSignatureAlgorithm");
  *out = m_signatureAlgorithm;
  return 0;
}

int PCertListProcess::getCrlExtension(int nIndex, RExtension* out) {
  if (!isParsed()) return notParsed("getCrlExtension");
  if (nIndex < 0 || nIndex >= m_nCrlExtCount)
    return P_FAILF("getCrlExtension", "nIndex", PCRL_ERR_INDEX, crlmsg::kFmtIndex, nIndex);
  *out = *m_pCrlExtensions->getAt(nIndex);
  return 0;
}
