// Time-stamp tokens: openssl's (version 3 SignedData, refused; accepted
// once its unsigned version octet reads 1) and tokens made by PSignedData
// over TSTInfo variants, each refusal with its message.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <regex>

#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PSignedData.h"
#include "ZENALib/QSProcess/PSignedDataMessages.h"
#include "ZENALib/QSProcess/PTimeStampResponseProcess.h"
#include "tests/ZENALib/QSProcess/SignedDataTestUtil.h"

using cryptotest::MustRun;
using cryptotest::TraceTail;
using qvatest::Str;
using sdtest::Signer;

namespace {

constexpr char kTsaConfig[] =
    "[ tsa ]\ndefault_tsa = tsa1\n[ tsa1 ]\nserial = SERIAL\nsigner_digest = sha256\n"
    "default_policy = 1.2.3.4.1\ndigests = sha1, sha256\naccuracy = secs:1\nordering = yes\ntsa_name = yes\n"
    "ess_cert_id_alg = sha1\ness_cert_id_chain = no\n";

struct Tsa {
  qvatest::TempDir dir;
  Signer tsa, plain, other;
  ByteString data = ByteString("time-stamped data\n");
  ByteString token;  // openssl's
  std::string text;  // openssl's print of it

  Tsa() {
    tsa = sdtest::OpensslSigner(dir, "rsa", "tsa", "-addext extendedKeyUsage=critical,timeStamping");
    plain = sdtest::OpensslSigner(dir, "rsa", "plain");
    other = sdtest::OpensslSigner(dir, "ec", "other");
    std::string config = kTsaConfig;
    config.replace(config.find("SERIAL"), 6, dir.file("serial"));
    qvatest::WriteFile(dir.file("ts.cnf"), config);
    qvatest::WriteFile(dir.file("serial"), std::string("2A\n"));
    qvatest::WriteFile(dir.file("data"), data);
    MustRun("openssl ts -query -data " + dir.file("data") + " -sha256 -cert -out " + dir.file("q.tsq"));
    MustRun("openssl ts -reply -config " + dir.file("ts.cnf") + " -queryfile " + dir.file("q.tsq") + " -inkey " +
            tsa.keyPem + " -signer " + tsa.certPem + " -token_out -out " + dir.file("tok.der") + " 2>/dev/null");
    token = qvatest::ReadFileBs(dir.file("tok.der"));
    text = MustRun("openssl ts -reply -token_in -in " + dir.file("tok.der") + " -text -config " + dir.file("ts.cnf") +
                   " 2>/dev/null");
  }

  // openssl's TSTInfo changed by f, signed here by s as a version 1 token.
  ByteString Token(const std::function<void(RTSTInfo&)>& f, const Signer& s, const char* type = psdoid::kTSTInfo,
                   bool attrs = true, const Signer* second = nullptr) {
    RSignedData sd = sdtest::Unwrap(token);
    RTSTInfo info;
    EXPECT_EQ(info.fromASN1Object(sd.getEncapContentInfo().getEContent().getValue()), 0);
    f(info);
    PSignedData make;
    ByteString der;
    EXPECT_EQ(make.setTobeSignedData(info.toASN1Object(), false, true, type), 0);
    EXPECT_EQ(make.addSignerInfo(s.cert, s.key, 1012, attrs), 0) << Str(make.getErrorMessage());
    if (second) {
      EXPECT_EQ(make.addSignerInfo(second->cert, second->key, second->hash), 0);
    }
    EXPECT_EQ(make.makeSignedData(der), 0);
    return der;
  }
};

// Content octets as openssl prints an INTEGER: no leading zero octets.
std::string IntHex(const ByteString& v) {
  std::string s = cryptotest::UpperHex(v);
  while (s.size() > 2 && s.rfind("00", 0) == 0) s.erase(0, 2);
  return s;
}

std::string Printed(const std::string& text, const char* label) {
  std::smatch m;
  const std::regex re(std::string(label) + ": 0x([0-9A-F]+)");
  return std::regex_search(text, m, re) ? m[1].str() : std::string();
}

}  // namespace

// openssl writes the token's SignedData as version 3 and is refused; with
// the version read as 1 (it is not signed) every field answers as openssl
// printed it.
TEST(TimeStamp, OpensslToken) {
  Tsa t;
  PTimeStampResponseProcess p;
  EXPECT_EQ(p.parseTimeStampToken(t.token), +PTimeStampResponseProcess::ERR_SIGNED_DATA);
  const std::string refused = Str(p.getErrorMessage());
  EXPECT_EQ(
      refused.find("PTimeStampResponseProcess::parseTimeStampToken-m_signedDataProcess(3), [PSignedDataProcess.cpp:"),
      refused.find("]") + 1)
      << refused;
  const std::string tail = "]PSignedDataProcess::processContentInfo-version(3), Only v1 signedData is supported.";
  EXPECT_EQ(refused.substr(refused.size() - std::min(refused.size(), tail.size())), tail);
  ByteString cert;
  EXPECT_EQ(p.getTSACert(&cert), +PTimeStampResponseProcess::ERR_NO_SIGNER_CERT);
  EXPECT_TRUE(TraceTail(p.getErrorMessage(), "PTimeStampResponseProcess.cpp",
                        "PTimeStampResponseProcess::getTSACert-signerCert(10), SignerCert does not exist."));

  ASSERT_EQ(p.parseTimeStampToken(sdtest::Reversion(t.token, 1, 1)), 0) << Str(p.getErrorMessage());
  ByteString v;
  EXPECT_EQ(p.getTSACert(&cert), 0);
  EXPECT_EQ(cert, t.tsa.cert);
  QSHash h;
  ByteString digest;
  ASSERT_EQ(h.DigestData(1012, t.data, digest), 0);
  EXPECT_EQ(p.getHashedMsg(&v), 0);
  EXPECT_EQ(v, digest);
  EXPECT_EQ(p.getHashAlg(&v), 0);
  EXPECT_EQ(Str(v), "2 16 840 1 101 3 4 2 1");
  EXPECT_EQ(p.getPolicy(&v), 0);
  EXPECT_EQ(Str(v), "1 2 3 4 1");
  EXPECT_EQ(p.getSerialNum(&v), 0);
  EXPECT_EQ(IntHex(v), Printed(t.text, "Serial number"));
  EXPECT_EQ(p.getNonce(&v), 0);
  EXPECT_EQ(IntHex(v), Printed(t.text, "Nonce"));
}

// Tokens made here: the checks in their order, each refusal by its message.
TEST(TimeStamp, CraftedTokens) {
  Tsa t;
  RRDNSequence otherName = [&] {
    RCertificate c;
    EXPECT_EQ(c.fromASN1Object(t.other.cert), 0);
    return c.getTbsCertificate().getSubject();
  }();
  auto same = [](RTSTInfo&) {};
  struct Row {
    const char* what;
    ByteString token;
    int code;
    const char* tail;  // the trace's own message (its last frame's)
  };
  const Row rows[] = {
      {"as openssl made it, signed here", t.Token(same, t.tsa), 0, nullptr},
      {"no tsa and no nonce",
       t.Token(
           [](RTSTInfo& i) {
             i.setPresent(i.getTsa(), false);
             i.setPresent(i.getNonce(), false);
           },
           t.tsa),
       0, nullptr},
      {"ContentInfo of data",
       [&] {
         RSignedData sd = sdtest::Unwrap(t.Token(same, t.tsa));
         return sdtest::Wrap(sd, psdoid::kData);
       }(),
       PTimeStampResponseProcess::ERR_NOT_SIGNED_DATA, "contentType is not signedData"},
      {"eContentType data", t.Token(same, t.tsa, psdoid::kData), PTimeStampResponseProcess::ERR_NOT_TSTINFO,
       "TSTInfo eContentType is not id-ct-TSTInfo"},
      {"TSTInfo version 2", t.Token([](RTSTInfo& i) { i.getVersion().setInteger(2); }, t.tsa),
       PTimeStampResponseProcess::ERR_VERSION, "Only support TSTInfo version 1."},
      {"two signers, both valid", t.Token(same, t.tsa, psdoid::kTSTInfo, true, &t.other),
       PTimeStampResponseProcess::ERR_SIGNER_COUNT,
       "The Time-stamp token MUST NOT contain any signatures other than the signature of the TSA."},
      {"no signed attributes", t.Token(same, t.tsa, psdoid::kTSTInfo, false),
       PTimeStampResponseProcess::ERR_SIGNING_CERT, "1 2 840 113549 1 9 16 2 12 does not exist."},
      {"tsa names the subject in PrintableString, the certificate in UTF8String",
       t.Token(
           [&](RTSTInfo& i) {
             RCertificate c;
             EXPECT_EQ(c.fromASN1Object(t.tsa.cert), 0);
             RRDNSequence printable;
             EXPECT_EQ(printable.fromASN1Object(sdtest::Flip(c.getTbsCertificate().getSubject().toASN1Object(),
                                                             ByteString("\x0C\x03tsa", 5), 0, '\x13')),
                       0);
             RGeneralName g;
             g.setDirectoryName(printable);
             i.setTsa(g);
           },
           t.tsa),
       0, nullptr},
      {"tsa names another subject",
       t.Token(
           [&](RTSTInfo& i) {
             RGeneralName g;
             g.setDirectoryName(otherName);
             i.setTsa(g);
           },
           t.tsa),
       PTimeStampResponseProcess::ERR_TSA_NAME, nullptr},
      {"no timeStamping key purpose", t.Token([](RTSTInfo& i) { i.setPresent(i.getTsa(), false); }, t.plain),
       PTimeStampResponseProcess::ERR_KEY_PURPOSE, "This certificate is not for time stamp."},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    PTimeStampResponseProcess p;
    EXPECT_EQ(p.parseTimeStampToken(r.token), r.code) << Str(p.getErrorMessage());
    const std::string trace = Str(p.getErrorMessage());
    if (r.tail) {
      EXPECT_EQ(trace.substr(trace.size() - std::min(trace.size(), std::strlen(r.tail))), r.tail);
    }
    ByteString v;
    if (r.code != 0) {
      EXPECT_EQ(p.getPolicy(&v), +PTimeStampResponseProcess::ERR_NOT_PARSED);
      continue;
    }
    EXPECT_EQ(p.getTSACert(&v), 0);
    EXPECT_EQ(v, t.tsa.cert);
    const bool nonce = p.getTSTInfo()->hasNonce();
    EXPECT_EQ(p.getNonce(&v), nonce ? 0 : +PTimeStampResponseProcess::ERR_NO_NONCE);
    if (!nonce) {
      EXPECT_TRUE(TraceTail(p.getErrorMessage(), "PTimeStampResponseProcess.cpp",
                            "PTimeStampResponseProcess::getNonce-nonce(11), Nonce does not exist."));
    }
  }
  // The name comparison's trace, kept under its own class and method.
  PTimeStampResponseProcess p;
  EXPECT_EQ(p.parseTimeStampToken(rows[8].token), +PTimeStampResponseProcess::ERR_TSA_NAME);
  const std::string trace = Str(p.getErrorMessage());
  EXPECT_NE(trace.find("PTimeStampResponseProcess::parseTimeStampToken-tsa(8), tsa field MUST correspond to one of "
                       "the subject names included in the certificate. ["),
            std::string::npos)
      << trace;
  EXPECT_NE(trace.find("]CTimeStampResponseProcess::CompareByName-nRet(8), nRet = 1, bsTSA = ["), std::string::npos)
      << trace;
  EXPECT_NE(trace.find("bsSubjectDN = ["), std::string::npos) << trace;
  EXPECT_NE(trace.find("tsa"), std::string::npos);
}
