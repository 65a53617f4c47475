// Signers for the signed-data and time-stamp tests: keys and certificates
// made by the openssl CLI (RSA, ECDSA on secp160r1) or here (KCDSA), and
// rewrites of DER SignedData through the structure classes.
#pragma once

#include <string>

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RSignedData.h"
#include "ZENALib/QSProcess/PGenKeyPair.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

namespace sdtest {

struct Signer {
  std::string kind;             // rsa, ec, kcdsa
  ByteString cert;              // DER
  ByteString key;               // PKCS#8 DER
  std::string certPem, keyPem;  // files for openssl (rsa and ec only)
  int hash = 1011;
};

// An openssl-made key and self-signed certificate; extra are more `openssl
// req` options (extensions).
inline Signer OpensslSigner(qvatest::TempDir& dir, const std::string& kind, const std::string& name,
                            const std::string& extra = "") {
  Signer s;
  s.kind = kind;
  s.certPem = dir.file(name + ".crt");
  s.keyPem = dir.file(name + ".pem");
  const std::string key = kind == "rsa"
                              ? "-newkey rsa:2048"
                              : "-newkey ec -pkeyopt ec_paramgen_curve:secp160r1 -pkeyopt ec_param_enc:named_curve";
  s.hash = kind == "rsa" ? 1012 : 1011;
  cryptotest::MustRun("openssl req -x509 " + key + " -nodes -keyout " + s.keyPem + " -subj /CN=" + name +
                      " -days 2 -sha1 " + extra + " -out " + s.certPem + " 2>/dev/null");
  cryptotest::MustRun("openssl x509 -in " + s.certPem + " -outform DER -out " + dir.file(name + ".der"));
  cryptotest::MustRun("openssl pkcs8 -topk8 -nocrypt -in " + s.keyPem + " -outform DER -out " + dir.file(name + ".p8"));
  s.cert = qvatest::ReadFileBs(dir.file(name + ".der"));
  s.key = qvatest::ReadFileBs(dir.file(name + ".p8"));
  return s;
}

// A KCDSA key pair on the TTAK.KO-12.0001 1024-bit domain, its public key
// put into an openssl-made certificate (the certificate's own signature is
// not looked at by CMS verification).
inline Signer KcdsaSigner(qvatest::TempDir& dir) {
  Signer s = OpensslSigner(dir, "rsa", "kcdsa");
  s.kind = "kcdsa";
  s.hash = 1011;
  s.certPem.clear();
  PGenKeyPair gen;
  ByteString spkiDer;
  EXPECT_EQ(gen.makeKeyPairWithGeneratedKey(7032, processtest::TtakDomain(), s.key, spkiDer), 0)
      << qvatest::Str(gen.getErrorMessage());
  RSubjectPublicKeyInfo spki;
  EXPECT_EQ(spki.fromASN1Object(spkiDer), 0);
  RCertificate cert;
  EXPECT_EQ(cert.fromASN1Object(s.cert), 0);
  cert.getTbsCertificate().setSubjectPublicKeyInfo(spki);
  s.cert = cert.toASN1Object();
  return s;
}

// The SignedData inside a DER ContentInfo.
inline RSignedData Unwrap(const ByteString& der) {
  RContentInfo ci;
  RSignedData sd;
  EXPECT_EQ(ci.fromASN1Object(der), 0);
  EXPECT_EQ(sd.fromASN1Object(ci.getContent().getElement()), 0);
  return sd;
}

// The SignedData wrapped again under the given content type.
inline ByteString Wrap(RSignedData& sd, const char* type = "1 2 840 113549 1 7 2") {
  RContentInfo ci;
  ci.getContentType().setOID(type);
  RAny any;
  EXPECT_EQ(any.setElement(sd.toASN1Object()), 0);
  ci.setContent(any);
  return ci.toASN1Object();
}

// The DER with SignedData and every SignerInfo at the given versions (the
// versions are not signed).
inline ByteString Reversion(const ByteString& der, int sdVersion, int siVersion) {
  RSignedData sd = Unwrap(der);
  sd.getVersion().setInteger(sdVersion);
  for (int i = 0; i < sd.getSignerInfos().getCount(); ++i)
    sd.getSignerInfos().getAt(i)->getVersion().setInteger(siVersion);
  return Wrap(sd);
}

// One octet changed at the first occurrence of `what` in der (offset into it).
inline ByteString Flip(const ByteString& der, const ByteString& what, int offset = 0, char to = 0) {
  const int at = der.find(what.data(), what.length());
  EXPECT_GE(at, 0);
  ByteString out = der;
  out.setAt(at + offset, to ? to : static_cast<char>(der.data()[at + offset] ^ 0x01));
  return out;
}

}  // namespace sdtest
