// Key algorithm codes of private keys (private_key_algorithm.txt), key pairs
// made by PGenKeyPair, and KCDSA certificates signed here and verified
// through PPublicKey.
#include <gtest/gtest.h>

#include <memory>

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/QSCrypto/QSKey.h"
#include "ZENALib/QSCrypto/QSSign.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "ZENALib/QSProcess/PGenKeyPair.h"
#include "ZENALib/QSProcess/PPrivateKey.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

using cryptotest::MustRun;
using processtest::HexBs;
using processtest::Num;
using qvatest::Str;

// The key algorithm code of private keys (PPrivateKey) and public keys
// (PPublicKey), one table each, against openssl-made and KCDSA keys.
TEST(KeyAlgorithm, PrivateAndPublicKeyCodes) {
  qvatest::TempDir dir;
  for (const bool priv : {true, false}) {
    for (auto r : processtest::Vectors(priv ? "private_key_algorithm.txt" : "public_key_algorithm.txt")) {
      SCOPED_TRACE(r["Key"] + " hash " + r["Hash"]);
      ByteString pkcs8, spki;
      if (r["Key"].rfind("kcdsa", 0) == 0) {
        PGenKeyPair gen;
        ASSERT_EQ(gen.makeKeyPairWithGeneratedKey(7032, processtest::TtakDomain(), pkcs8, spki), 0)
            << Str(gen.getErrorMessage());
      } else {
        MustRun("openssl genpkey " + r["Key"] + " -out " + dir.file("k.pem"));
        MustRun("openssl pkcs8 -topk8 -nocrypt -in " + dir.file("k.pem") + " -outform DER -out " + dir.file("k.der"));
        MustRun("openssl pkey -in " + dir.file("k.pem") + " -pubout -outform DER -out " + dir.file("k.pub"));
        pkcs8 = qvatest::ReadFileBs(dir.file("k.der"));
        spki = qvatest::ReadFileBs(dir.file("k.pub"));
      }
      int alg = 0, rc = 0;
      ByteString trace;
      if (priv) {
        RPrivateKeyInfo info;
        ASSERT_EQ(info.fromASN1Object(pkcs8), 0);
        RAlgorithmIdentifier& id = info.getPrivateKeyAlgorithm();
        PPrivateKey pk;
        rc = pk.GetPrivateKeyAlgorithm(id.getAlgorithm().getOID(), info.getPrivateKey().getValue(),
                                       id.hasParameters() ? id.getParameters().getElement() : ByteString(),
                                       Num(r, "Hash"), &alg);
        trace = pk.getErrorMessage();
      } else {
        PPublicKey pk;
        rc = pk.GetPublicKeyAlgorithm(spki, Num(r, "Hash"), &alg);
        trace = pk.getErrorMessage();
      }
      EXPECT_EQ(rc, Num(r, "Code")) << Str(trace);
      if (rc == 0) {
        EXPECT_EQ(alg, Num(r, "Out"));
      } else {
        EXPECT_TRUE(cryptotest::TraceTail(trace, priv ? "PPrivateKey.cpp" : "PPublicKey.cpp", r["Tail"]));
      }
    }
  }
}

// Key pairs of every family: openssl accepts the private keys, and a
// signature made with the core's key verifies with the wrapped public key.
TEST(KeyAlgorithm, GeneratedKeyPairs) {
  qvatest::TempDir dir;
  for (int alg : {4001, 7050, 7051, 7052}) {
    SCOPED_TRACE(alg);
    PGenKeyPair gen;
    ByteString pkcs8, spki, sig;
    ASSERT_EQ(gen.makeKeyPairWithGeneratedKey(alg, ByteString(), pkcs8, spki), 0) << Str(gen.getErrorMessage());
    qvatest::WriteFile(dir.file("k.der"), pkcs8);
    MustRun("openssl pkey -inform DER -in " + dir.file("k.der") + " -check -noout");
    MustRun("openssl pkey -inform DER -in " + dir.file("k.der") + " -pubout -outform DER -out " + dir.file("k.pub"));
    EXPECT_EQ(spki, qvatest::ReadFileBs(dir.file("k.pub")));
    QSSign s;
    const int signAlg = alg == 4001 ? 7011 : alg;
    ASSERT_EQ(s.SignData(signAlg, pkcs8, ByteString("data"), sig), 0);
    PPublicKey pk;
    EXPECT_EQ(pk.verifySignature(spki, 1011, false, ByteString("data"), sig), 0) << Str(pk.getErrorMessage());
  }
  PGenKeyPair gen;
  ByteString a, b;
  EXPECT_EQ(gen.makeKeyPairWithGeneratedKey(3011, ByteString(), a, b), 1);
  EXPECT_TRUE(cryptotest::TraceTail(gen.getErrorMessage(), "PGenKeyPair.cpp",
                                    "PGenKeyPair::GetOIDbyAlgorithm-nAlgo(1), nAlgo(3011) is unknown algorithm."));
}

// KCDSA and KCDSA1 certificates signed here with SHA-1 and HAS-160 (an
// openssl-made certificate given our key and signature) verify through both
// entry points; a changed certificate does not.
TEST(KeyAlgorithm, KcdsaCertificatesSignedHere) {
  qvatest::TempDir dir;
  MustRun("openssl req -x509 -new -newkey rsa:1024 -nodes -keyout " + dir.file("t.key") +
          " -subj /CN=kcdsa -days 2 -outform DER -out " + dir.file("t.der") + " 2>/dev/null");
  const ByteString domain = processtest::TtakDomain();
  struct Case {
    int alg, hash;
    bool kcdsa1;
    const char* sigOID;
  };
  const Case cases[] = {{7032, 1011, false, poid::kSHA1WithKCDSA},
                        {7041, 1020, false, poid::kHAS160WithKCDSA},
                        {7032, 1011, true, poid::kSHA1WithKCDSA1},
                        {7041, 1020, true, poid::kHAS160WithKCDSA1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.sigOID);
    QSKey key;
    PGenKeyPair gen;
    ByteString priv, pub, spkiDer;
    ASSERT_EQ(key.GenerateKeyPair(c.alg, domain, priv, pub), 0);
    ASSERT_EQ(gen.makePublicKeyInfoWithGeneratedKey(c.alg, pub, spkiDer), 0) << Str(gen.getErrorMessage());
    RSubjectPublicKeyInfo spki;
    ASSERT_EQ(spki.fromASN1Object(spkiDer), 0);
    if (c.kcdsa1) spki.getAlgorithm().getAlgorithm().setOID(poid::kKCDSA1);
    spkiDer = spki.toASN1Object();

    RCertificate cert;
    ASSERT_EQ(cert.fromASN1Object(qvatest::ReadFileBs(dir.file("t.der"))), 0);
    RAlgorithmIdentifier sigAlg;
    sigAlg.getAlgorithm().setOID(c.sigOID);
    cert.getTbsCertificate().setSignature(sigAlg);
    cert.getTbsCertificate().setSubjectPublicKeyInfo(spki);
    const ByteString tbs = cert.getTbsCertificate().toASN1Object();
    QSSign s;
    ByteString sig;
    ASSERT_EQ(s.SignData(c.alg, priv, tbs, sig), 0) << Str(s.GetErrorMsg());
    cert.setSignatureAlgorithm(sigAlg);
    ASN1BitString bits;
    bits.setBitString(sig, 0);
    cert.setSignature(bits);
    const ByteString der = cert.toASN1Object();

    PPublicKey pk;
    EXPECT_EQ(pk.verifySignatureWithCert(der, c.hash, false, tbs, sig), 0) << Str(pk.getErrorMessage());
    EXPECT_EQ(pk.verifySignatureWithCert(der, c.hash, false, tbs.mid(0, tbs.length() - 1), sig), 116);
    int code = 0;
    EXPECT_EQ(pk.GetPublicKeyAlgorithm(spkiDer, c.hash, &code), 0);
    EXPECT_EQ(code, c.alg);
    EXPECT_EQ(pk.verifyCertificateSignature(der, spkiDer), 0) << Str(pk.getErrorMessage());
    ByteString changed = der;
    changed.setAt(20, static_cast<char>(der.data()[20] ^ 0x01));
    EXPECT_EQ(pk.verifyCertificateSignature(changed, spkiDer), 116);
    // The other hash than the one signed with is refused.
    EXPECT_EQ(pk.verifySignatureWithCert(der, c.hash == 1011 ? 1020 : 1011, false, tbs, sig), 116);
  }
}
