// PPublicKey against the openssl CLI: signatures of openssl-made
// certificates (cert_signatures.txt), KCDSA certificates signed here, RSA
// encryption opened by `openssl pkeyutl`, and the key-agreement KEK beside
// `openssl kdf`.
#include <gtest/gtest.h>

#include <memory>

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

using cryptotest::MustRun;
using processtest::Num;
using qvatest::ReadFileBs;

namespace {

class WithCerts : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_dir = std::make_unique<qvatest::TempDir>();
    MustRun("openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:1024 "
            "-pkeyopt dsa_paramgen_q_bits:160 -out " + Path("dsa.param") + " 2>/dev/null");
  }
  static std::string Path(const std::string& name) { return s_dir->file(name); }
  // A self-signed certificate of a new key: <name>.der, its key <name>.key.
  static ByteString MakeCert(const std::string& name, std::string key, const std::string& sign) {
    if (key.find("$DSAPARAM") != std::string::npos) key.replace(key.find("$DSAPARAM"), 9, Path("dsa.param"));
    MustRun("openssl genpkey " + key + " -out " + Path(name + ".key") + " 2>/dev/null");
    MustRun("openssl req -x509 -new -key " + Path(name + ".key") + " -subj /CN=" + name + " -days 2 " + sign +
            " -outform DER -out " + Path(name + ".der"));
    return ReadFileBs(Path(name + ".der"));
  }

  static inline std::unique_ptr<qvatest::TempDir> s_dir;
};

struct Signed {
  ByteString tbs, alg, sig;
};
Signed Split(const ByteString& cert) {
  RCertificate c;
  EXPECT_EQ(c.fromASN1Object(cert), 0);
  Signed s{c.getRawTBSCertificate(), c.getSignatureAlgorithm().toASN1Object(), {}};
  s.sig = c.getSignature().getBitString(nullptr);
  return s;
}
ByteString Flip(ByteString bs, int at) {
  bs.setAt(at, static_cast<char>(bs.data()[at] ^ 0x01));
  return bs;
}

}  // namespace

TEST_F(WithCerts, OpensslCertificateSignatures) {
  for (auto r : processtest::Vectors("cert_signatures.txt")) {
    SCOPED_TRACE(r["Name"]);
    const ByteString cert = MakeCert(r["Name"], r["Key"], r["Sign"]);
    const Signed s = Split(cert);
    PPublicKey pk;
    const int rc = pk.verifySignatureWithCert(cert, Num(r, "Hash"), Num(r, "Pss") != 0, s.tbs, s.sig);
    EXPECT_EQ(rc, Num(r, "Code")) << qvatest::Str(pk.getErrorMessage());
    if (!r["Tail"].empty()) {
      EXPECT_TRUE(cryptotest::TraceTail(pk.getErrorMessage(), "PPublicKey.cpp", r["Tail"]));
    }
    if (rc == 0) {
      EXPECT_EQ(pk.verifySignatureWithCert(cert, Num(r, "Hash"), Num(r, "Pss") != 0, Flip(s.tbs, 20), s.sig), 116);
    }
    ByteString spki;
    ASSERT_EQ(pk.getPublicKeyInfoFromCert(cert, PPublicKey::CERT_KIND_X509, spki), 0);
    PPublicKey wide;
    EXPECT_EQ(wide.verifyCertificateSignature(cert, spki), Num(r, "Wide")) << qvatest::Str(wide.getErrorMessage());
    ByteString changed = cert;
    changed.setAt(40, static_cast<char>(cert.data()[40] ^ 0x01));  // inside the serial number
    EXPECT_EQ(wide.verifyCertificateSignature(changed, spki), 116);
  }
}

// Certificate kinds other than X.509 and certificates that are not one.
TEST_F(WithCerts, PublicKeyInfoRefusals) {
  const ByteString cert = MakeCert("kind", "-algorithm EC -pkeyopt ec_paramgen_curve:prime256v1", "-sha256");
  PPublicKey pk;
  ByteString spki;
  EXPECT_EQ(pk.getPublicKeyInfoFromCert(cert, 2, spki), 1);
  EXPECT_TRUE(cryptotest::TraceTail(pk.getErrorMessage(), "PPublicKey.cpp",
                                    "PPublicKey::getPublicKeyInfoFromCert-unCertKind(1), Unknown certificate type."));
  EXPECT_EQ(pk.getPublicKeyInfoFromCert(cert.mid(0, cert.length() - 1), PPublicKey::CERT_KIND_X509, spki), 2);
  // The key is the one openssl reports.
  ASSERT_EQ(pk.getPublicKeyInfoFromCert(cert, PPublicKey::CERT_KIND_X509, spki), 0);
  MustRun("openssl pkey -in " + Path("kind.key") + " -pubout -outform DER -out " + Path("kind.pub"));
  EXPECT_EQ(spki, ReadFileBs(Path("kind.pub")));
}
