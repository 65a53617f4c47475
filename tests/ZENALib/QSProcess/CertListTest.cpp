// PCertListProcess against CRLs made by openssl ca -gencrl (tests/data/crl,
// make.sh) and the KISA RootCA 4 CRL: every check of parseCertList by a
// table, and every entry read against libcrypto's reading of the same CRL.
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <map>
#include <sstream>

#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/QSProcess/PCertListProcess.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

namespace {

using processtest::Get;
using processtest::HexBs;
using processtest::Num;

std::string CrlPath(const std::string& name) {
  return qvatest::DataPath(name.rfind("korean/", 0) == 0 ? "pkix/x509/" + name : "crl/" + name);
}

ByteString Load(const std::string& name) { return qvatest::ReadFileBs(CrlPath(name)); }

// The CRL of a record with its Craft applied.
ByteString Crafted(const ByteString& der, const std::string& craft) {
  std::istringstream in(craft);
  std::string op, a, b, c;
  in >> op >> a >> b >> c;
  if (op.empty()) return der;
  if (op == "truncate") return ByteString(der.data(), der.length() - 1);
  if (op == "indefinite") {
    RElementHeader h;
    EXPECT_EQ(RReadHeader(der.data(), der.length(), &h), 0);
    ByteString out("\x30\x80", 2);
    out.append(der.data() + h.headerLength, h.contentLength);
    out.append("\x00\x00", 2);
    return out;
  }
  if (op == "flip") {
    ByteString out = der;
    out.buffer()[out.length() - 1] ^= 0x01;
    return out;
  }
  if (op == "patch") {
    const std::string hay = qvatest::Str(der), from = qvatest::Str(HexBs(a)), to = qvatest::Str(HexBs(b));
    const std::size_t at = hay.find(from);
    EXPECT_NE(at, std::string::npos) << craft;
    if (at == std::string::npos) return der;
    std::string out = hay;
    out.replace(at, from.size(), to);
    return ByteString(out.data(), static_cast<int>(out.size()));
  }
  RCertificateList crl;
  EXPECT_EQ(crl.fromASN1Object(der), 0);
  RTBSCertList& tbs = crl.getTbsCertList();
  if (op == "version") {
    tbs.getVersion().setInteger(std::stoi(a));
  } else if (op == "dropversion") {
    tbs.setPresent(tbs.getVersion(), false);
  } else if (op == "ext") {
    for (char& c : a) c = c == '.' ? ' ' : c;
    RExtensions& exts = tbs.getCrlExtensions();
    bool found = false;
    for (int i = 0; i < exts.getCount(); ++i)
      if (exts.getAt(i)->getExtnID().getOID() == a.c_str()) {
        exts.getAt(i)->getExtnValue().setValue(HexBs(b));
        found = true;
      }
    EXPECT_TRUE(found) << craft;
  } else if (op == "entryext") {
    RRevokedCertificate* entry = tbs.getRevokedCertificates().getAt(std::stoi(a));
    EXPECT_NE(entry, nullptr) << craft;
    if (!entry) return der;
    for (char& ch : b) ch = ch == '.' ? ' ' : ch;
    RExtension ext;
    ext.getExtnID().setOID(b.c_str());
    ext.getExtnValue().setValue(HexBs(c));
    RExtensions exts = entry->hasCrlEntryExtensions() ? entry->getCrlEntryExtensions() : RExtensions();
    exts.add(ext);
    entry->setCrlEntryExtensions(exts);
  } else {
    ADD_FAILURE() << "unknown craft " << craft;
  }
  return crl.toASN1Object();
}

TEST(CertListProcess, ChecksOfParseCertList) {
  for (const auto& r : qvatest::ReadVectors(qvatest::DataPath("crl/checks.txt"))) {
    const std::string crlName = Get(r, "CRL");
    SCOPED_TRACE(crlName + " " + Get(r, "Subject") + " " + Get(r, "Issuer") + " " + Get(r, "Craft"));
    const ByteString crl = Crafted(Load(crlName), Get(r, "Craft"));
    ByteString subject, issuer;
    if (!Get(r, "Subject").empty()) subject = Load(Get(r, "Subject"));
    if (!Get(r, "Issuer").empty()) issuer = Load(Get(r, "Issuer"));
    PCertListProcess p;
    int rc = p.parseCertList(crl, Get(r, "Subject").empty() ? nullptr : &subject,
                             Get(r, "Issuer").empty() ? nullptr : &issuer);
    if (rc == 0 && !Get(r, "Entry").empty()) {
      PRevokedEntry e;
      rc = p.getRevokedCertificate(Num(r, "Entry"), &e);
      if (rc == 0) {
        EXPECT_EQ(qvatest::Str(e.certificateIssuer), Get(r, "CertificateIssuer"));
      }
    }
    EXPECT_EQ(rc, Num(r, "Code")) << p.getErrorMessage().c_str();
    EXPECT_NE(qvatest::Str(p.getErrorMessage()).find(Get(r, "Trace")), std::string::npos)
        << p.getErrorMessage().c_str();
    // A failed parse keeps nothing.
    if (rc != 0 && Get(r, "Entry").empty()) {
      EXPECT_FALSE(p.isParsed());
      EXPECT_EQ(p.getRevokedCount(), 0);
    }
  }
}

// libcrypto's reading of a CRL, as the oracle of ours.
struct OpensslView {
  X509_CRL* crl = nullptr;
  explicit OpensslView(const ByteString& der) {
    const unsigned char* p = der.data();
    crl = d2i_X509_CRL(nullptr, &p, der.length());
  }
  ~OpensslView() { X509_CRL_free(crl); }
};

std::time_t Epoch(const ASN1_TIME* t) {
  std::tm tm{};
  EXPECT_EQ(ASN1_TIME_to_tm(t, &tm), 1);
  return timegm(&tm);
}

// An INTEGER's content octets as encoded (libcrypto keeps the magnitude).
ByteString Content(const ASN1_INTEGER* n) {
  unsigned char* der = nullptr;
  const int len = i2d_ASN1_INTEGER(n, &der);
  ByteString out(der + 2, len - 2);  // short serials: one length octet
  OPENSSL_free(der);
  return out;
}

// Every CRL made here or by the structure tests, and the KISA one: each
// entry's serial, date, reason, hold instruction and invalidity date as
// libcrypto reads them, isRevoked giving each serial its first position,
// and the CRL number and delta indicator.
TEST(CertListProcess, EntriesAgreeWithOpenssl) {
  std::vector<std::string> files = {"crl/full.der", "crl/delta.der", "crl/v1.der", "crl/empty.der",
                                    "pkix/x509/korean/crl/KISA-RootCA-4.crl"};
  for (const char* f : {"v2-entries-rsa2048", "v2-entries-pss", "v2-delta-ec256", "v2-idp-dsa1024", "v1-rsa2048",
                        "v2-indirect-generated"})
    files.push_back(std::string("pkix/x509/crls/") + f + ".der");
  for (const std::string& name : files) {
    SCOPED_TRACE(name);
    const ByteString der = qvatest::ReadFileBs(qvatest::DataPath(name));
    OpensslView ref(der);
    ASSERT_NE(ref.crl, nullptr);
    PCertListProcess p;
    ASSERT_EQ(p.parseCertList(der, nullptr, nullptr), 0) << p.getErrorMessage().c_str();
    STACK_OF(X509_REVOKED)* revoked = X509_CRL_get_REVOKED(ref.crl);
    const int n = revoked ? sk_X509_REVOKED_num(revoked) : 0;
    ASSERT_EQ(p.getRevokedCount(), n);
    std::time_t t = 0;
    ASSERT_EQ(p.getThisUpdate(&t), 0);
    EXPECT_EQ(t, Epoch(X509_CRL_get0_lastUpdate(ref.crl)));
    int version = -1;
    ASSERT_EQ(p.getVersion(&version), 0);
    EXPECT_EQ(version, static_cast<int>(X509_CRL_get_version(ref.crl)));

    std::map<std::string, int> first;
    for (int i = 0; i < n; ++i) {
      const X509_REVOKED* r = sk_X509_REVOKED_value(revoked, i);
      PRevokedEntry e;
      // An entry dated after thisUpdate is refused, and is the only refusal.
      const std::time_t when = Epoch(X509_REVOKED_get0_revocationDate(r));
      if (when > t) {
        EXPECT_EQ(p.getRevokedCertificate(i, &e), PCRL_ERR_REVOKED_AFTER);
        continue;
      }
      ASSERT_EQ(p.getRevokedCertificate(i, &e), 0) << p.getErrorMessage().c_str();
      EXPECT_EQ(qvatest::ToHex(e.serial), qvatest::ToHex(Content(X509_REVOKED_get0_serialNumber(r))));
      EXPECT_EQ(e.revocationDate, when);
      ASN1_ENUMERATED* reason = static_cast<ASN1_ENUMERATED*>(X509_REVOKED_get_ext_d2i(r, NID_crl_reason, nullptr, nullptr));
      EXPECT_EQ(e.reason, reason ? static_cast<int>(ASN1_ENUMERATED_get(reason)) : PCRL_REASON_NONE);
      ASN1_ENUMERATED_free(reason);
      int code = -1;
      const int rc = p.getRevokedReason(i, &code);
      EXPECT_EQ(rc, e.reason == PCRL_REASON_NONE ? PCERT_ERR_ABSENT : 0);
      if (rc) {
        EXPECT_NE(qvatest::Str(p.getErrorMessage()).find("CRL EntryExtension ReasonCode does not exist."),
                  std::string::npos);
      }
      ASN1_OBJECT* hold = static_cast<ASN1_OBJECT*>(X509_REVOKED_get_ext_d2i(r, NID_hold_instruction_code, nullptr, nullptr));
      std::string holdText;
      if (hold) {
        char buf[128];
        OBJ_obj2txt(buf, sizeof buf, hold, 1);
        holdText = buf;
        for (char& c : holdText) c = c == '.' ? ' ' : c;
      }
      ASN1_OBJECT_free(hold);
      EXPECT_EQ(qvatest::Str(e.holdInstruction), holdText);
      ASN1_GENERALIZEDTIME* inv =
          static_cast<ASN1_GENERALIZEDTIME*>(X509_REVOKED_get_ext_d2i(r, NID_invalidity_date, nullptr, nullptr));
      EXPECT_EQ(e.hasInvalidityDate, inv != nullptr);
      if (inv) {
        EXPECT_EQ(e.invalidityDate, Epoch(inv));
      }
      ASN1_GENERALIZEDTIME_free(inv);
      GENERAL_NAMES* ci = static_cast<GENERAL_NAMES*>(X509_REVOKED_get_ext_d2i(r, NID_certificate_issuer, nullptr, nullptr));
      EXPECT_EQ(e.certificateIssuer.length() > 0, ci != nullptr);
      GENERAL_NAMES_free(ci);
      first.emplace(qvatest::ToHex(e.serial), i);
    }
    for (const auto& [hex, pos] : first) {
      int at = -2;
      bool listed = false;
      EXPECT_EQ(p.isRevoked(qvatest::Hex(hex), &at, &listed), 0);
      EXPECT_TRUE(listed);
      EXPECT_EQ(at, pos);
    }
    int at = -2;
    bool listed = true;
    EXPECT_EQ(p.isRevoked(qvatest::Hex("7FEEDDCCBBAA99"), &at, &listed), 0);
    EXPECT_FALSE(listed);
    EXPECT_EQ(at, -1);

    for (const auto& [nid, get] :
         {std::make_pair(NID_crl_number, &PCertListProcess::getCRLNumber),
          std::make_pair(NID_delta_crl, &PCertListProcess::getDeltaCRLIndicator)}) {
      ASN1_INTEGER* num = static_cast<ASN1_INTEGER*>(X509_CRL_get_ext_d2i(ref.crl, nid, nullptr, nullptr));
      ByteString ours;
      EXPECT_EQ((p.*get)(&ours), num ? 0 : PCERT_ERR_ABSENT);
      if (num) {
        EXPECT_EQ(qvatest::ToHex(ours), qvatest::ToHex(Content(num)));
      }
      ASN1_INTEGER_free(num);
    }
    std::time_t next = 0;
    EXPECT_EQ(p.getNextUpdate(&next), X509_CRL_get0_nextUpdate(ref.crl) ? 0 : PCERT_ERR_ABSENT);
  }
}

// The index against a plain first-match scan, on a CRL of many serials of
// every length from 1 to 20 octets, prefixes of one another, with repeats.
TEST(CertListProcess, IndexKeepsFirstPosition) {
  ByteString full = Load("full.der");
  RCertificateList crl;
  ASSERT_EQ(crl.fromASN1Object(full), 0);
  RRevokedCertificates& list = crl.getTbsCertList().getRevokedCertificates();
  const RRevokedCertificate model = *list.getAt(10);  // no entry extensions
  list.removeAll();
  std::vector<ByteString> serials;
  for (int i = 0; i < 3000; ++i) {
    ByteString s = i % 7 == 3 && i > 0 ? serials[static_cast<std::size_t>(i * 13 % i)]
                                       : qvatest::RandomBytes(1 + i % 20, static_cast<unsigned>(i % 50));
    s.buffer()[0] &= 0x7F;
    RRevokedCertificate e = model;
    e.getUserCertificate().setValue(s);
    list.add(e);
    serials.push_back(s);
  }
  PCertListProcess p;
  ASSERT_EQ(p.parseCertList(crl.toASN1Object(), nullptr, nullptr), 0) << p.getErrorMessage().c_str();
  ASSERT_EQ(p.getRevokedCount(), 3000);
  for (std::size_t i = 0; i < serials.size(); ++i) {
    const auto firstAt = std::find(serials.begin(), serials.end(), serials[i]) - serials.begin();
    int at = -2;
    bool listed = false;
    ASSERT_EQ(p.isRevoked(serials[i], &at, &listed), 0);
    ASSERT_TRUE(listed);
    ASSERT_EQ(at, firstAt) << i;
    // One octet more or less is another serial.
    ByteString longer = serials[i];
    longer.append("\x01", 1);
    if (std::find(serials.begin(), serials.end(), longer) == serials.end()) {
      ASSERT_EQ(p.isRevoked(longer, &at, &listed), 0);
      ASSERT_FALSE(listed);
    }
  }
}

TEST(CertListProcess, BeforeParse) {
  PCertListProcess p;
  int at = 0;
  bool listed = false;
  EXPECT_EQ(p.isRevoked(qvatest::Hex("01"), &at, &listed), PCRL_ERR_NOT_PARSED);
  EXPECT_NE(qvatest::Str(p.getErrorMessage()).find("PCertListProcess::isRevoked-m_pSerialNums(1)"), std::string::npos);
}

}  // namespace
