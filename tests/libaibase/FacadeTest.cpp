// The facade and its wrappers against tools nobody here wrote: ciphers
// against `openssl enc`, file digests against sha1sum, md5sum and rhash,
// certificate fields, dates, policies and CRL answers against what the
// openssl CLI reads from the same files (tests/data/facade, made by its
// make.sh), with the refusals' codes and traces.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "libaibase/clcertificate.h"
#include "libaibase/clcrypto.h"
#include "libaibase/clhash.h"
#include "libaibase/clzenawrapper.h"
#include "tests/support/TestUtil.h"

using qvatest::Str;
using qvatest::ToHex;

namespace {

std::string Data(const std::string& name) { return qvatest::DataPath("facade/" + name); }
ByteString Load(const std::string& name) { return qvatest::ReadFileBs(Data(name)); }

// A command's first output line.
std::string Sh(const std::string& command) {
  std::string out;
  EXPECT_EQ(qvatest::Run(command, &out), 0) << command;
  return out.substr(0, out.find('\n'));
}
std::string Prefix(const ByteString& trace, std::size_t n) { return Str(trace).substr(0, n); }
// The CP949 bytes of a UTF-8 text, by iconv.
std::string Cp949(const std::string& utf8) { return Sh("printf '%s' '" + utf8 + "' | iconv -f UTF-8 -t CP949"); }
// notBefore/notAfter of a DER certificate as openssl prints them, in seconds.
std::int64_t CertTime(const std::string& file, const char* which) {
  return std::stoll(Sh("date -u -d \"$(openssl x509 -inform DER -in " + Data(file) + " -noout -" + which +
                       " | cut -d= -f2)\" +%s"));
}

}  // namespace

TEST(Facade, CipherAgainstOpensslAndRefusals) {
  qvatest::TempDir dir;
  CLZENAWrapper zena;
  for (int n : {0, 7, 8, 100}) {
    const ByteString key = qvatest::RandomBytes(24, n + 1), iv = qvatest::RandomBytes(8, n + 2),
                     data = qvatest::RandomBytes(n, n + 3);
    ByteString c, p;
    ASSERT_EQ(zena.Encrypt(key, iv, data, c), 0);
    qvatest::WriteFile(dir.file("p"), data);
    ASSERT_EQ(qvatest::Run("openssl enc -des-ede3-cbc -K " + ToHex(key) + " -iv " + ToHex(iv) + " -in " +
                           dir.file("p") + " -out " + dir.file("c")),
              0);
    EXPECT_EQ(c, qvatest::ReadFileBs(dir.file("c"))) << n;
    ASSERT_EQ(zena.Decrypt(key, iv, c, p), 0);
    EXPECT_EQ(p, data);
  }
  struct Row {
    bool encrypt;
    int algorithm, mode, keyLength, code;
    std::string trace;
  } rows[] = {
      {true, 3000, 4, 24, 20, "CLCrypto::Encrypt - " + Cp949("지원하지 않는 암호화 알고리즘입니다.") + "(20)"},
      {false, 3000, 4, 24, 23, "CLCrypto::Decrypt - " + Cp949("지원하지 않는 암호화 알고리즘입니다.") + "(23)"},
      {true, 3011, 2, 24, 21, "CLCrypto::Encrypt - " + Cp949("지원하지 않는 암호화 알고리즘 모드입니다.") + "(21)"},
      {false, 3020, 3, 16, 24, "CLCrypto::Decrypt - " + Cp949("지원하지 않는 암호화 알고리즘 모드입니다.") + "(24)"},
      {true, 3011, 4, 5, 22, "CLCrypto::Encrypt - encrypt.EncryptData_NoGenKey(22)\r\n["},
      {false, 3011, 4, 24, 25, "CLCrypto::Decrypt - encrypt.DecryptData_NoGenKey(25)\r\n["},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.trace);
    CLCrypto crypto;
    const ByteString key = qvatest::RandomBytes(r.keyLength, 1), iv = qvatest::RandomBytes(8, 2);
    const ByteString data = qvatest::RandomBytes(13, 3);  // not whole blocks: refused by decryption
    EXPECT_EQ(r.encrypt ? crypto.Encrypt(r.algorithm, r.mode, key, iv, data)
                        : crypto.Decrypt(r.algorithm, r.mode, key, iv, data),
              r.code);
    EXPECT_EQ(Prefix(crypto.GetErrorMsg(), r.trace.size()), r.trace);
  }
  ByteString random;
  ASSERT_EQ(zena.Random(32, random), 0);
  EXPECT_EQ(random.length(), 32);
}

// Files around the 8,192-byte read size, hashed in pieces and whole.
TEST(Facade, HashOfFilesAgainstTools) {
  qvatest::TempDir dir;
  struct Algo {
    int id;
    std::string tool;
  } algos[] = {{1002, "md5sum"}, {1011, "sha1sum"}, {1020, "rhash --printf=%{has160} "}};
  for (int n : {0, 3, 8191, 8192, 8193, 3 * 8192}) {
    const std::string file = dir.file("f" + std::to_string(n));
    const ByteString content = qvatest::RandomBytes(n, n);
    qvatest::WriteFile(file, content);
    for (const Algo& a : algos) {
      SCOPED_TRACE(std::to_string(n) + " bytes, " + a.tool);
      CLZENAWrapper zena;
      ByteString big, whole;
      ASSERT_EQ(zena.MakeHashBig(file.c_str(), big, a.id), 0) << Str(zena.GetErrorMsg());
      ASSERT_EQ(zena.MakeHash(content, whole, a.id), 0);
      const std::string expect = Sh(a.tool + " " + file).substr(0, 2 * big.length());
      EXPECT_EQ(ToHex(big), expect);
      EXPECT_EQ(whole, big);
    }
  }
  CLZENAWrapper zena;
  ByteString out;
  EXPECT_EQ(zena.MakeHashBig(dir.file("missing").c_str(), out, 1011), 81);
  const std::string missing = "CLZENAWrapper::MakeHashBig - cLHash.MakeHashBig(81)\r\nCLHash::MakeHashBig - " +
                              Cp949("파일을 읽지 못했습니다.") + "(81)";
  EXPECT_EQ(Prefix(zena.GetErrorMsg(), missing.size()), missing);
  CLZENAWrapper zena2;
  EXPECT_EQ(zena2.MakeHash("x", out, 1000), 80);
  const std::string algo = "CLZENAWrapper::MakeHash - cLHash.MakeHash(80)\r\nCLHash::MakeHash - " +
                           Cp949("지원하지 않는 Hash 알고리즘입니다.") + "(80)";
  EXPECT_EQ(Prefix(zena2.GetErrorMsg(), algo.size()), algo);
}

TEST(Facade, Base64AgainstTool) {
  CLZENAWrapper zena;
  const ByteString data = qvatest::RandomBytes(100, 5);
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("b"), data);
  ByteString text, back;
  ASSERT_EQ(zena.Base64Enc(data, text), 0);
  EXPECT_EQ(Str(text), Sh("base64 -w0 " + dir.file("b")));
  ASSERT_EQ(zena.Base64Dec(text, back), 0);
  EXPECT_EQ(back, data);
  EXPECT_EQ(zena.Base64Dec("!!!!", back), 9903);
  EXPECT_EQ(Str(zena.GetErrorMsg()), "CLZENAWrapper::Base64Dec - QSBase::base64Decode(9903)\r\nBase64 Decode Fail!!");
}

TEST(Facade, CertificateFieldsAgainstOpenssl) {
  CLZENAWrapper zena;
  const ByteString user = Load("user-listed.der");
  ByteString subject, issuer, serial, start, end, policy, algorithm, org;
  ASSERT_EQ(zena.ParseCert(user, subject, issuer, serial, start, end, policy, algorithm), 0)
      << Str(zena.GetErrorMsg());
  // Names: the UTF8String values come out in CP949.
  EXPECT_EQ(Str(CLCertificate::GetDNComponent(subject, CLCertificate::kCommonName)), Cp949("홍길동"));
  EXPECT_EQ(Str(CLCertificate::GetDNComponent(subject, CLCertificate::kOrganization)), Cp949("한국테스트"));
  EXPECT_EQ(Str(subject), "c=KR,o=" + Cp949("한국테스트") + ",ou=" + Cp949("사용자") + ",cn=" + Cp949("홍길동"));
  ASSERT_EQ(zena.GetIssuerDNOrganization(user, org), 0);
  EXPECT_EQ(Str(org), Cp949("한국테스트"));
  EXPECT_EQ(Str(CLCertificate::GetDNComponent(issuer, CLCertificate::kCommonName)), Cp949("테스트 CA"));
  EXPECT_EQ(CLCertificate::GetDNComponent("c=KR,ou=x", CLCertificate::kOrganization).length(), 0);
  // Serial, dates, policy as openssl reads them.
  const std::string file = Data("user-listed.der");
  EXPECT_EQ(ToHex(serial), Sh("openssl x509 -inform DER -in " + file + " -noout -serial | cut -d= -f2 | tr A-F a-f"));
  const std::int64_t notBefore = CertTime("user-listed.der", "startdate"), notAfter = CertTime("user-listed.der", "enddate");
  EXPECT_EQ(Str(start), Sh("date -u -d @" + std::to_string(notBefore) + " '+%Y/%m/%d %H:%M:%S'"));
  EXPECT_EQ(Str(end), Sh("date -u -d @" + std::to_string(notAfter) + " '+%Y/%m/%d %H:%M:%S'"));
  const std::string oid = Sh("openssl x509 -inform DER -in " + file +
                             " -noout -ext certificatePolicies | sed -n 's/.*Policy: //p' | tr . ' '");
  EXPECT_EQ(Str(policy), oid);
  EXPECT_EQ(zena.CheckCertPolicyOID(user, ByteString(oid.c_str())), 90);  // equal: 90, as callers expect
  EXPECT_EQ(zena.CheckCertPolicyOID(user, "1 2 410 200004 5 1 1 9"), 0);
  ByteString* none = nullptr;
  EXPECT_EQ(zena.GetPolicyOID(&user, none), 0);
  EXPECT_EQ(zena.VerifyCert("not a certificate"), 0);

  // Validity at the edges, both inclusive; now as openssl -checkend sees it.
  struct At {
    std::int64_t when;
    int code;
  } ats[] = {{notBefore - 1, 43}, {notBefore, 0}, {notAfter, 0}, {notAfter + 1, 43}};
  for (const At& a : ats) {
    CLCertificate cert;
    EXPECT_EQ(cert.CheckValidityTermAtSpecialDate(user, a.when), a.code) << a.when;
    if (a.code) {
      EXPECT_EQ(Prefix(cert.GetErrorMsg(), 200),
                "CLCertificate::CheckValidityTermAtSpecialDate - Check Validity Of Cert(43)\r\n" +
                    Cp949("해당일은 인증서의 유효기간이 아닙니다."));
    }
  }
  CLCertificate now;
  EXPECT_EQ(now.CheckTermOfValidaty(user) == 0,
            qvatest::Run("openssl x509 -inform DER -in " + file + " -noout -checkend 0 >/dev/null") == 0);

  // The CRL file name is the last part of the URI openssl reads.
  CLCertificate dp;
  ASSERT_EQ(dp.ParseCertificate(user), 0);
  ASSERT_EQ(dp.CheckCRLDP(dp.GetCRLDistributionPoint()), 0);
  EXPECT_EQ(Str(dp.GetCRLFileName()),
            Sh("openssl x509 -inform DER -in " + file + " -noout -ext crlDistributionPoints | sed -n 's/.*URI://p' "
               "| sed 's|.*/||'"));
  CLCertificate nodp;
  ASSERT_EQ(nodp.ParseCertificate(Load("user-nodp.der")), 0);
  EXPECT_EQ(nodp.CheckCRLDP(nodp.GetCRLDistributionPoint()), 43);
  EXPECT_EQ(Str(nodp.GetErrorMsg()), "CLCertificate::CheckCRLDP - Check CRL DP(43)\r\nCRL_DP");
}

// A certificate without policies is refused by every parsing method, and
// bytes that are no certificate by the decoder.
TEST(Facade, CertificateRefusals) {
  const std::string noPolicy = "(42)\r\nCLCertificate::ParseCertificate - " + Cp949("인증서에 정책이 없습니다") + "(42)";
  struct Row {
    const char* file;
    int code;
    std::string trace;
  } rows[] = {
      {"user-nopolicy.der", 42, "CLZENAWrapper::GetSubjectFullDN - cLCertificate.ParseCertificate" + noPolicy},
      {"user-nopolicy.der", 42, "CLZENAWrapper::GetTermOfValidity - lCertificate.ParseCertificate" + noPolicy},
      {"user-nopolicy.der", 42, "CLZENAWrapper::ParseCert - cLCertificate.ParseCertificate" + noPolicy},
      {"make.sh", 41, "CLZENAWrapper::ParseCert - cLCertificate.ParseCertificate(41)\r\n"
                      "CLCertificate::ParseCertificate - certUtil.parseCertificate(41)\r\n["},
  };
  int i = 0;
  for (const Row& r : rows) {
    SCOPED_TRACE(r.trace);
    CLZENAWrapper zena;
    ByteString a, b;
    const ByteString cert = Load(r.file);
    const int rc = i == 0 ? zena.GetSubjectFullDN(cert, a) : i == 1 ? zena.GetTermOfValidity(cert, a, b)
                                                                    : zena.ParseCert(cert, a);
    ++i;
    EXPECT_EQ(rc, r.code);
    EXPECT_EQ(Prefix(zena.GetErrorMsg(), r.trace.size()), r.trace);
  }
  CLCertificate cert;
  EXPECT_EQ(cert.CheckTermOfValidaty(Load("user-nopolicy.der")), 41);
  // The parse failure is reported with the expiry text, as this check always has.
  const std::string expired = "CLCertificate::CheckTermOfValidaty - " + Cp949("인증서의 유효기간이 만료되었습니다.") + "(41)\r\n";
  EXPECT_EQ(Prefix(cert.GetErrorMsg(), expired.size()), expired);
}

// Revocation answers: the flag against openssl's listing of the CRL.
TEST(Facade, RevocationAgainstOpenssl) {
  const std::string notIssuer = "CLCertListProcess::isRevocked - " + Cp949("해당인증서의 발행기관에서 배포한 CRL이 아닙니다.") + "(45)";
  struct Row {
    const char* crl;
    const char* cert;
    int code;
    std::string trace;  // below the facade's line
  } rows[] = {
      {"ca.crl.der", "user-listed.der", 0, ""},
      {"ca.crl.der", "user-clean.der", 0, ""},
      {"other.crl.der", "user-listed.der", 45, notIssuer},
      {"ca-old.crl.der", "user-listed.der", 46,
       "CLCertListProcess::isRevocked - certificate.CheckValidityTermAtSpecialDate(46)\r\n"
       "CLCertificate::CheckValidityTermAtSpecialDate - Check Validity Of Cert(43)"},
      {"ca.der", "user-listed.der", 46, "CLCertListProcess::isRevocked - certListProcess.parseCertList(46)\r\n["},
      {"ca.crl.der", "user-nopolicy.der", 42, "CLCertListProcess::isRevocked - certificate.ParseCertificate(42)"},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(std::string(r.crl) + " " + r.cert);
    CLZENAWrapper zena;
    unsigned char revoked = 7;
    EXPECT_EQ(zena.ParseCRL(Load(r.crl), Load(r.cert), &revoked), r.code);
    if (r.code == 0) {
      const std::string serial = Sh("openssl x509 -inform DER -in " + Data(r.cert) + " -noout -serial | cut -d= -f2");
      const bool listed = qvatest::Run("openssl crl -inform DER -in " + Data(r.crl) +
                                       " -noout -text | grep -q 'Serial Number: " + serial + "$'") == 0;
      EXPECT_EQ(revoked, listed ? 1 : 0);
    } else {
      const std::string want = "CLZENAWrapper::ParseCRL - cLCertListProcess.isRevocked(" + std::to_string(r.code) +
                               ")\r\n" + r.trace;
      EXPECT_EQ(Prefix(zena.GetErrorMsg(), want.size()), want);
      EXPECT_EQ(revoked, 7);
    }
  }
  CLZENAWrapper zena;
  ByteString issuer, subject, certIssuer, serial;
  std::int64_t thisUpdate = 0, nextUpdate = 0;
  int count = 0;
  ASSERT_EQ(zena.getParseCRLInfo(Load("ca-old.crl.der"), issuer, &thisUpdate, &nextUpdate, &count), 0);
  ASSERT_EQ(zena.ParseCert(Load("user-listed.der"), subject, certIssuer, serial), 0);
  EXPECT_EQ(issuer, certIssuer);
  EXPECT_EQ(thisUpdate, std::stoll(Sh("date -u -d \"$(openssl crl -inform DER -in " + Data("ca-old.crl.der") +
                                      " -noout -lastupdate | cut -d= -f2)\" +%s")));
  EXPECT_EQ(count, std::stoi(Sh("openssl crl -inform DER -in " + Data("ca-old.crl.der") +
                                " -noout -text | grep -c 'Serial Number:'")));
}

// openssl's tokens are version-3 SignedData, which the token reader refuses.
TEST(Facade, TimeStampTokenRefused) {
  for (const char* file : {"pkix/cms/tst_full_sha256.der", "facade/ca.der"}) {
    CLZENAWrapper zena;
    ByteString cert, subject;
    EXPECT_EQ(zena.ParseTimeStampToken(qvatest::ReadFileBs(qvatest::DataPath(file)), cert, subject), 48);
    const std::string want = "CLZENAWrapper::ParseTimeStampToken - cLTimeStampToken.ParseTimeStampToken(48)\r\n"
                             "CLTimeStampToken::ParseTimeStampToken - tsProcess.parseTimeStampToken(48)\r\n[";
    EXPECT_EQ(Prefix(zena.GetErrorMsg(), want.size()), want);
  }
}
