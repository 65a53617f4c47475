// WTLS certificates (wtls.txt): every refusal with its code and text; the
// accepted ones give a SubjectPublicKeyInfo that openssl reads.
#include <gtest/gtest.h>

#include <cstring>

#include "ZENALib/QSProcess/WCertUtil.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

using processtest::Get;
using processtest::HexBs;
using processtest::Num;

TEST(WCertUtil, CertificateTable) {
  qvatest::TempDir dir;
  int accepted = 0;
  for (const auto& r : processtest::Vectors("wtls.txt")) {
    SCOPED_TRACE(Get(r, "Cert"));
    WCertUtil w;
    const ByteString der = HexBs(Get(r, "Cert"));
    const int rc = w.parseWTLSCertificate(der);
    ASSERT_EQ(Num(r, "Code"), rc) << w.getErrorMessage().c_str();
    if (rc != 0) {
      const std::string trace = w.getErrorMessage().c_str();
      const std::string tail = "(" + Get(r, "Code") + "), " + Get(r, "Message");
      EXPECT_EQ(trace.size(), trace.rfind(tail) + tail.size()) << trace;
      EXPECT_EQ(0, trace.find("[WCertUtil.cpp:")) << trace;
      EXPECT_EQ(0, w.m_bsIssuer.length());
      continue;
    }
    ++accepted;
    EXPECT_EQ("Test CA", std::string(w.m_bsIssuer.c_str()));
    EXPECT_EQ("user", std::string(w.m_bsSubject.c_str()));
    EXPECT_EQ(100u, w.m_nBefore);
    EXPECT_EQ(200u, w.m_nAfter);
    for (int n = 0; n < der.length(); ++n) {
      WCertUtil shorter;
      EXPECT_NE(0, shorter.parseWTLSCertificate(der.mid(0, n))) << n;
    }
    RSubjectPublicKeyInfo spki;
    ASSERT_EQ(0, w.getPublicKeyInfo(&spki)) << w.getErrorMessage().c_str();
    qvatest::WriteFile(dir.file("spki.der"), spki.toASN1Object());
    std::string text;
    ASSERT_EQ(0, qvatest::Run("openssl asn1parse -inform DER -in " + dir.file("spki.der"), &text));
    if (w.m_ePublicType == WCertUtil::KEY_RSA) {
      EXPECT_NE(std::string::npos, text.find("rsaEncryption")) << text;
      ASSERT_EQ(0, qvatest::Run("openssl pkey -pubin -inform DER -noout -text -in " + dir.file("spki.der"), &text));
      EXPECT_NE(std::string::npos, text.find("(512 bit)")) << text;
      EXPECT_NE(std::string::npos, text.find("Exponent: 65537")) << text;
      // Only 512-, 1024- and 2048-bit moduli are taken.
      w.m_bsModulus = w.m_bsModulus.mid(1, w.m_bsModulus.length() - 1);
      EXPECT_EQ(WCertUtil::W_ERR_RSA_MODULUS, w.getPublicKeyInfo(&spki));
      EXPECT_NE(nullptr, std::strstr(w.getErrorMessage().c_str(), ", Unsupported RSA Pubkey's modulus length(63)."));
    } else {
      EXPECT_NE(std::string::npos, text.find("id-ecPublicKey")) << text;
      EXPECT_NE(std::string::npos, text.find("wap-wsg-idm-ecid-wtls3")) << text;
    }
  }
  EXPECT_EQ(2, accepted);
}
