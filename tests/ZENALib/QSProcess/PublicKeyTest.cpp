// PPublicKey against the openssl CLI: signatures of openssl-made
// certificates (cert_signatures.txt), KCDSA certificates signed here, RSA
// encryption opened by `openssl pkeyutl`, and the key-agreement KEK beside
// `openssl kdf`.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

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
  static ByteString MakeCert(const std::string& name, const std::string& key, const std::string& sign) {
    MustRun("openssl genpkey " + cryptotest::Subst(key, "$DSAPARAM", Path("dsa.param")) + " -out " +
            Path(name + ".key") + " 2>/dev/null");
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
    RSubjectPublicKeyInfo info;
    ASSERT_EQ(info.fromASN1Object(spki), 0);
    if (rc == 0 && info.getAlgorithm().getAlgorithm().getOID() == poid::kECPublicKey) {
      // The second EC key OID names the same key.
      info.getAlgorithm().getAlgorithm().setOID(poid::kECKey2);
      EXPECT_EQ(pk.verifySignature(info.toASN1Object(), Num(r, "Hash"), false, s.tbs, s.sig), 0);
    }
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

// RSA encryption opened by `openssl pkeyutl -decrypt` (rsa_encrypt.txt).
TEST_F(WithCerts, RsaEncryptionOpenedByOpenssl) {
  for (auto r : processtest::Vectors("rsa_encrypt.txt")) {
    SCOPED_TRACE(r["Bits"] + " oaep " + r["Oaep"] + " len " + r["Len"]);
    const std::string name = "enc" + r["Bits"];
    const ByteString cert = MakeCert(name, "-algorithm RSA -pkeyopt rsa_keygen_bits:" + r["Bits"], "-sha256");
    const ByteString plain = qvatest::RandomBytes(std::stoul(r["Len"]), 9u);
    const bool oaep = Num(r, "Oaep") != 0;
    PPublicKey pk;
    ByteString cipher("untouched");
    const int rc = pk.encryptWithCert(cert, oaep, plain, cipher);
    ASSERT_EQ(rc, Num(r, "Code")) << qvatest::Str(pk.getErrorMessage());
    if (rc != 0) {
      EXPECT_TRUE(cryptotest::TraceTail(pk.getErrorMessage(), "PPublicKey.cpp", r["Tail"]));
      EXPECT_EQ(cipher, ByteString("untouched"));
      continue;
    }
    qvatest::WriteFile(Path("cipher"), cipher);
    MustRun("openssl pkeyutl -decrypt -inkey " + Path(name + ".key") + " -in " + Path("cipher") + " -out " +
            Path("plain") + (oaep ? " -pkeyopt rsa_padding_mode:oaep -pkeyopt rsa_oaep_md:sha1" : ""));
    EXPECT_EQ(ReadFileBs(Path("plain")), plain);
  }
}

// The key-encryption key of key agreement beside `openssl kdf` over
// openssl's own shared secret (key_agreement.txt).
TEST_F(WithCerts, KeyAgreementKekMatchesOpensslKdf) {
  MustRun("openssl genpkey -genparam -algorithm DHX -pkeyopt dh_rfc5114:2 -out " + Path("dhx.param"));
  const ByteString ukm = qvatest::RandomBytes(64, 11u);
  for (auto r : processtest::Vectors("key_agreement.txt")) {
    SCOPED_TRACE(r["Key"] + " " + r["Wrap"]);
    const std::string gen = cryptotest::Subst(r["Key"], "$DHXPARAM", Path("dhx.param"));
    for (const char* k : {"mine", "peer"}) {
      MustRun("openssl genpkey " + gen + " -outform DER -out " + Path(std::string(k) + ".der"));
      MustRun("openssl pkey -inform DER -in " + Path(std::string(k) + ".der") + " -pubout -outform DER -out " +
              Path(std::string(k) + ".pub"));
    }
    MustRun("openssl pkeyutl -derive -keyform DER -inkey " + Path("mine.der") + " -peerform DER -peerkey " +
            Path("peer.pub") + " -out " + Path("z"));
    ByteString z = ReadFileBs(Path("z"));
    const bool withUkm = Num(r, "UKM") != 0;
    std::string kdf = "openssl kdf -binary -out " + Path("kek") + " -keylen " + r["KeyLen"] + " -kdfopt digest:SHA1 ";
    if (r["CekAlg"].empty()) {
      const std::string info = cryptotest::Subst(r["Info"], "$UKM", qvatest::ToHex(ukm));
      kdf += "-kdfopt hexinfo:" + qvatest::ToHex(processtest::HexBs(info)) + " -kdfopt hexsecret:" + qvatest::ToHex(z) + " X963KDF";
    } else {
      // RFC 2631 ZZ has the length of p (2048 bits here): openssl leaves leading zeros out.
      while (z.length() < 256) {
        ByteString padded("\0", 1);
        padded += z;
        z = padded;
      }
      kdf += "-kdfopt cekalg:" + r["CekAlg"] + " -kdfopt hexsecret:" + qvatest::ToHex(z) +
             (withUkm ? " -kdfopt hexukm:" + qvatest::ToHex(ukm) : std::string()) + " X942KDF-ASN1";
    }
    MustRun(kdf);
    PPublicKey pk;
    ByteString kek;
    ASSERT_EQ(pk.encrypt(ReadFileBs(Path("peer.pub")), ReadFileBs(Path("mine.der")), std::stoi(r["Wrap"]),
                         withUkm ? ukm : ByteString(), kek),
              0)
        << qvatest::Str(pk.getErrorMessage());
    EXPECT_EQ(qvatest::ToHex(kek), qvatest::ToHex(ReadFileBs(Path("kek"))));
  }
  // The refusals, in the order they are checked.
  PPublicKey pk;
  ByteString kek;
  const ByteString ecPub = ReadFileBs(Path("peer.pub"));  // the last pair: X9.42 DH
  MakeCert("rsaka", "-algorithm RSA -pkeyopt rsa_keygen_bits:1024", "-sha256");
  MustRun("openssl pkey -in " + Path("rsaka.key") + " -pubout -outform DER -out " + Path("rsaka.pub"));
  EXPECT_EQ(pk.encrypt(ReadFileBs(Path("rsaka.pub")), ByteString(), 3011, ByteString(), kek), 20);
  EXPECT_TRUE(cryptotest::TraceTail(pk.getErrorMessage(), "PPublicKey.cpp",
                                    "PPublicKey::encrypt-bsPublicKeyAlgorithm(20), Only support for ECDH and DH Algorithm."));
  EXPECT_EQ(pk.encrypt(ecPub, ReadFileBs(Path("mine.der")), 3011, ukm.mid(0, 32), kek), 21);
  EXPECT_TRUE(cryptotest::TraceTail(pk.getErrorMessage(), "PPublicKey.cpp",
                                    "PPublicKey::encrypt-bsUKM(21), partAInfo MUST contain 512 bits."));
  EXPECT_EQ(pk.encrypt(ecPub, ReadFileBs(Path("mine.der")), 3020, ByteString(), kek), 22);
  EXPECT_TRUE(cryptotest::TraceTail(pk.getErrorMessage(), "PPublicKey.cpp",
                                    "PPublicKey::encrypt-nSymmetricAlg(22), nSymmetricAlg(3020) is not supported."));
}

// Certificate folders of tests/data: the openssl-made corpus of
// tests/data/pkix/x509 (its make.sh: ECDSA P-256, DSA and RSA with SHA-256,
// RSA-PSS with salt 32) and the real Korean PKI certificates and CaPubs
// bundles (their SOURCE.txt). Every certificate whose issuer is in the same
// folder verifies under that issuer's key through the wider entry point, and
// under no other key of the folder.
TEST(CertificateCorpus, SignaturesVerifyUnderTheirIssuerOnly) {
  struct Cert {
    std::string name;
    ByteString der, subject, issuer, key;
  };
  for (const char* folder : {"pkix/x509/certs", "pkix/x509/korean/certs", "pkix/x509/korean/capubs/split_CaPubs_All",
                             "pkix/x509/korean/capubs/split_3280CaPubs"}) {
    SCOPED_TRACE(folder);
    std::vector<Cert> certs;
    PPublicKey pk;
    for (const std::string& path : qvatest::DerFiles(qvatest::DataPath(folder))) {
      Cert c{path.substr(path.rfind('/') + 1), ReadFileBs(path), {}, {}, {}};
      RCertificate r;
      ASSERT_EQ(r.fromASN1Object(c.der), 0) << path;
      c.subject = r.getTbsCertificate().getSubject().toASN1Object();
      c.issuer = r.getTbsCertificate().getIssuer().toASN1Object();
      ASSERT_EQ(pk.getPublicKeyInfoFromCert(c.der, PPublicKey::CERT_KIND_X509, c.key), 0);
      certs.push_back(c);
    }
    int checked = 0;
    for (const Cert& c : certs) {
      // The keys of the certificates named as issuer (the corpus reuses keys
      // between certificates, so another certificate of the same key counts).
      std::vector<ByteString> issuerKeys;
      for (const Cert& by : certs) {
        if (c.issuer == by.subject) issuerKeys.push_back(by.key);
      }
      for (const Cert& by : certs) {
        SCOPED_TRACE(c.name + " under " + by.name);
        const int rc = pk.verifyCertificateSignature(c.der, by.key);
        if (std::find(issuerKeys.begin(), issuerKeys.end(), by.key) != issuerKeys.end()) {
          EXPECT_EQ(rc, 0) << qvatest::Str(pk.getErrorMessage());
          ++checked;
        } else if (!(c.issuer == c.subject && by.key == c.key)) {
          // 50: a key kind not verified here (Ed25519); 115: a signature of
          // another length than the key's.
          EXPECT_TRUE(rc == 50 || rc == 61 || rc == 115 || rc == 116) << rc;
        }
      }
    }
    EXPECT_GE(checked, 3);
  }
}

// The wider entry point takes the salt length, hash and mask function from
// the RSASSA-PSS parameters given and refuses a signature made otherwise.
TEST_F(WithCerts, PssParametersDecide) {
  const ByteString cert = MakeCert("pssparams", "-algorithm RSA -pkeyopt rsa_keygen_bits:2048",
                                   "-sha256 -sigopt rsa_padding_mode:pss -sigopt rsa_pss_saltlen:32");
  const Signed s = Split(cert);
  ByteString spki;
  PPublicKey pk;
  ASSERT_EQ(pk.getPublicKeyInfoFromCert(cert, PPublicKey::CERT_KIND_X509, spki), 0);
  struct {
    const char* algID;  // hex AlgorithmIdentifier
    int code;
  } const cases[] = {
      {"", 0},  // the certificate's own: SHA-256, MGF1-SHA-256, salt 32
      {"300D06092A864886F70D01010A3000", 116},  // every field at its default: SHA-1, salt 20
      // SHA-256 and MGF1-SHA-256 written out with salt 32, 20 and 33
      {"304106092A864886F70D01010A3034A00F300D06096086480165030402010500A11C301A06092A864886F70D010108300D0609608648"
       "0165030402010500A203020120", 0},
      {"304106092A864886F70D01010A3034A00F300D06096086480165030402010500A11C301A06092A864886F70D010108300D0609608648"
       "0165030402010500A203020114", 116},
      {"304106092A864886F70D01010A3034A00F300D06096086480165030402010500A11C301A06092A864886F70D010108300D0609608648"
       "0165030402010500A203020121", 116},
      // trailer field 2
      {"301206092A864886F70D01010A3005A303020102", 62},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.algID);
    const ByteString algID = *c.algID ? processtest::HexBs(c.algID) : s.alg;
    EXPECT_EQ(pk.verifySignatureWithAlgID(spki, algID, s.tbs, s.sig), c.code) << qvatest::Str(pk.getErrorMessage());
  }
}
