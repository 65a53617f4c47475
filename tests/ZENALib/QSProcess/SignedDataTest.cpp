// SignedData made here and verified by openssl cms and by
// PSignedDataProcess; openssl's SignedData verified here; each refusal hit
// by a SignedData changed through the structure classes or one octet.
#include <gtest/gtest.h>

#include <ctime>
#include <functional>

#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PSignedData.h"
#include "ZENALib/QSProcess/PSignedDataMessages.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"
#include "tests/ZENALib/QSProcess/SignedDataTestUtil.h"

using cryptotest::MustRun;
using cryptotest::TraceTail;
using qvatest::Str;
using sdtest::Signer;

namespace {

const ByteString kContent("Signed content for the CMS tests.\n");

ByteString Make(const Signer& s, bool attrs, bool detached, const ByteString& content = kContent) {
  PSignedData sd;
  ByteString der;
  EXPECT_EQ(sd.setTobeSignedData(content, detached), 0);
  EXPECT_EQ(sd.addSignerInfo(s.cert, s.key, s.hash, attrs), 0) << Str(sd.getErrorMessage());
  EXPECT_EQ(sd.makeSignedData(der), 0) << Str(sd.getErrorMessage());
  return der;
}

int Verify(PSignedDataProcess& p, const ByteString& der, const ByteString* detached = nullptr,
           const std::vector<ByteString>& add = {}) {
  if (detached) p.setDetachedContent(*detached);
  return p.parseSignedData(der, add);
}

// openssl cms -verify (no chain check) gives the content back.
void OpensslVerifies(qvatest::TempDir& dir, const ByteString& der, bool detached) {
  qvatest::WriteFile(dir.file("sd.der"), der);
  qvatest::WriteFile(dir.file("content.bin"), kContent);
  MustRun("openssl cms -verify -noverify -binary -inform DER -in " + dir.file("sd.der") +
          (detached ? " -content " + dir.file("content.bin") : std::string()) + " -out " + dir.file("out.bin") +
          " 2>&1");
  EXPECT_EQ(qvatest::ReadFileBs(dir.file("out.bin")), kContent);
}

}  // namespace

// RSA, ECDSA and KCDSA signers, with and without signed attributes,
// embedded and detached: verified here and, for RSA and ECDSA, by openssl
// (which also re-encodes the signed attributes in DER order and checks the
// signingCertificate hash).
TEST(SignedData, MadeHereVerifiedBothWays) {
  qvatest::TempDir dir;
  // HAS-160, and a private key whose domain parameters are left to the certificate.
  Signer kcdsaHas160 = sdtest::KcdsaSigner(dir);
  kcdsaHas160.hash = 1020;
  RPrivateKeyInfo info;
  ASSERT_EQ(info.fromASN1Object(kcdsaHas160.key), 0);
  info.getPrivateKeyAlgorithm().setPresent(info.getPrivateKeyAlgorithm().getParameters(), false);
  kcdsaHas160.key = info.toASN1Object();
  const Signer signers[] = {sdtest::OpensslSigner(dir, "rsa", "rsa"), sdtest::OpensslSigner(dir, "ec", "ec"),
                            sdtest::KcdsaSigner(dir), kcdsaHas160};
  for (const Signer& s : signers) {
    for (bool attrs : {true, false}) {
      for (bool detached : {false, true}) {
        SCOPED_TRACE(s.kind + " hash " + std::to_string(s.hash) + (attrs ? " attrs" : " no attrs") +
                     (detached ? " detached" : " embedded"));
        const std::time_t before = std::time(nullptr);
        const ByteString der = Make(s, attrs, detached);
        PSignedDataProcess p;
        ASSERT_EQ(Verify(p, der, detached ? &kContent : nullptr), 0) << Str(p.getErrorMessage());
        ByteString signerCert;
        ASSERT_EQ(p.getSignerCert(0, &signerCert), 0);
        EXPECT_EQ(signerCert, s.cert);
        EXPECT_EQ(p.getContent(), kContent);
        std::time_t signingTime = 0;
        EXPECT_EQ(p.getSigningTime(0, &signingTime), attrs ? 0 : +PSignedDataProcess::ERR_ATTRIBUTE);
        if (attrs) {
          EXPECT_TRUE(signingTime >= before - 1 && signingTime <= std::time(nullptr) + 1);
        }
        if (s.kind != "kcdsa") OpensslVerifies(dir, der, detached);
        // The signed attributes stand in DER order (X.690 11.6).
        const RAttributes attrList = sdtest::Unwrap(der).getSignerInfos().getAt(0)->getSignedAttrs();
        for (int i = 0; attrs && i + 1 < attrList.getCount(); ++i) {
          RAttribute a = *attrList.getAt(i), b = *attrList.getAt(i + 1);
          const std::string x = Str(a.toASN1Object()), y = Str(b.toASN1Object());
          EXPECT_LT(x, y) << i;
        }
        // Other content under the same signature is refused.
        PSignedDataProcess q;
        const ByteString other("Other content");
        const int rc = Verify(q, detached ? der : sdtest::Flip(der, kContent, 3), detached ? &other : nullptr);
        EXPECT_EQ(rc, attrs ? +PSignedDataProcess::ERR_CONTENT_HASH : 116) << Str(q.getErrorMessage());
      }
    }
  }
}

// openssl's SignedData: default attributes, none, ECDSA, a detached one and
// subjectKeyIdentifier signers (version 3 until rewritten to 1).
TEST(SignedData, OpensslSignedVerifiedHere) {
  qvatest::TempDir dir;
  const Signer rsa = sdtest::OpensslSigner(dir, "rsa", "rsa"), ec = sdtest::OpensslSigner(dir, "ec", "ec");
  qvatest::WriteFile(dir.file("content.bin"), kContent);
  struct Row {
    const Signer* s;
    std::string options;
    bool attrs, detached, keyid;
  };
  const Row rows[] = {{&rsa, "", true, false, false},
                      {&rsa, "-noattr", false, false, false},
                      {&ec, "-md sha1", true, false, false},
                      {&rsa, "", true, true, false},
                      {&rsa, "-keyid", true, false, true},
                      {&ec, "-md sha1 -keyid -noattr", false, false, true},
                      {&rsa, "-stream", true, false, false},  // BER, indefinite lengths
                      // RSA-PSS with SHA-1: salt 20, and openssl's, the longest that fits.
                      {&rsa, "-md sha1 -keyopt rsa_padding_mode:pss -keyopt rsa_pss_saltlen:20", true, false, false},
                      {&rsa, "-md sha1 -keyopt rsa_padding_mode:pss", true, false, false}};
  for (const Row& r : rows) {
    SCOPED_TRACE(r.s->kind + " " + r.options + (r.detached ? " detached" : ""));
    // Options after -inkey: -keyopt belongs to the signer before it.
    MustRun("openssl cms -sign -binary " + std::string(r.detached ? "" : "-nodetach ") + " -in " +
            dir.file("content.bin") + " -signer " + r.s->certPem + " -inkey " + r.s->keyPem + " " + r.options +
            " -outform DER -out " + dir.file("sd.der"));
    ByteString der = qvatest::ReadFileBs(dir.file("sd.der"));
    PSignedDataProcess p;
    if (r.keyid) {
      // RFC 5652 makes subjectKeyIdentifier signers version 3.
      EXPECT_EQ(Verify(p, der), +PSignedDataProcess::ERR_VERSION);
      EXPECT_TRUE(TraceTail(p.getErrorMessage(), "PSignedDataProcess.cpp",
                            "PSignedDataProcess::processContentInfo-version(3), Only v1 signedData is supported."));
      EXPECT_EQ(Verify(p, sdtest::Reversion(der, 1, 3)), +PSignedDataProcess::ERR_SIGNER_VERSION);
      EXPECT_TRUE(
          TraceTail(p.getErrorMessage(), "PSignedDataProcess.cpp",
                    "PSignedDataProcess::processSignerInfos-signerInfo.version(7), Only v1 signerInfo supported."));
      der = sdtest::Reversion(der, 1, 1);
    }
    ASSERT_EQ(Verify(p, der, r.detached ? &kContent : nullptr), 0) << Str(p.getErrorMessage());
    ByteString signerCert;
    ASSERT_EQ(p.getSignerCert(0, &signerCert), 0);
    EXPECT_EQ(signerCert, r.s->cert);
    EXPECT_EQ(p.getContent(), kContent);
    RAttribute attr;
    EXPECT_EQ(p.getSignerAttribute(0, psdoid::kMessageDigest, &attr), r.attrs ? 0 : +PSignedDataProcess::ERR_ATTRIBUTE);

    // The signer found among added certificates when none is embedded.
    RSignedData bare = sdtest::Unwrap(der);
    bare.setPresent(bare.getCertificates(), false);
    const ByteString noCerts = sdtest::Wrap(bare);
    PSignedDataProcess q;
    EXPECT_EQ(Verify(q, noCerts, r.detached ? &kContent : nullptr), +PSignedDataProcess::ERR_NO_SIGNER_CERT);
    EXPECT_TRUE(TraceTail(q.getErrorMessage(), "PSignedDataProcess.cpp",
                          "PSignedDataProcess::haveValidSignerIdentifier-signerCert(8), Can't verify signature. "
                          "Because there is not signer certificate."));
    EXPECT_EQ(Verify(q, noCerts, r.detached ? &kContent : nullptr, {ec.cert, r.s->cert}), 0)
        << Str(q.getErrorMessage());
    std::vector<ByteString> certs;
    EXPECT_EQ(q.getCerts(&certs), +PSignedDataProcess::ERR_NO_CERTS);
    EXPECT_TRUE(TraceTail(q.getErrorMessage(), "PSignedDataProcess.cpp",
                          "PSignedDataProcess::getCerts-certificates(13), SignedData does not have certificates."));

    // Tampered content: the digest attribute, or the signature itself.
    if (!r.detached) {
      const ByteString tampered = sdtest::Flip(der, kContent, 5);
      EXPECT_EQ(Verify(q, tampered), r.attrs ? +PSignedDataProcess::ERR_CONTENT_HASH : 116);
      if (r.attrs) {
        EXPECT_TRUE(
            TraceTail(q.getErrorMessage(), "PSignedDataProcess.cpp",
                      "PSignedDataProcess::processSignerInfos-messageDigest(10), Content Hash value is not same."));
      }
    }
  }
}

// Each refusal of the parser, hit by one change to a valid SignedData (code 0:
// a change it takes).
TEST(SignedData, Refusals) {
  qvatest::TempDir dir;
  const Signer s = sdtest::OpensslSigner(dir, "rsa", "rsa");
  const ByteString good = Make(s, true, false);
  QSHash h;
  ByteString certHash;
  ASSERT_EQ(h.DigestData(1011, s.cert, certHash), 0);
  auto edit = [&](const std::function<void(RSignedData&)>& f) {
    RSignedData sd = sdtest::Unwrap(good);
    f(sd);
    return sdtest::Wrap(sd);
  };
  struct Row {
    const char* what;
    ByteString der;
    int code;
    const char* tail;  // the trace after its file and line
  };
  const Row rows[] = {
      {"data, not signedData", edit([](RSignedData&) {}).mid(0, 0), PSignedDataProcess::ERR_DECODE, nullptr},
      {"another content type",
       [&] {
         RSignedData sd = sdtest::Unwrap(good);
         return sdtest::Wrap(sd, psdoid::kData);
       }(),
       PSignedDataProcess::ERR_NOT_SIGNED_DATA,
       "PSignedDataProcess::processContentInfo-contentType(2), It is not signedData."},
      // Valid in every other respect.
      {"version 3", sdtest::Reversion(good, 3, 1), PSignedDataProcess::ERR_VERSION,
       "PSignedDataProcess::processContentInfo-version(3), Only v1 signedData is supported."},
      {"no signerInfo", edit([](RSignedData& sd) { sd.getSignerInfos().removeAll(); }),
       PSignedDataProcess::ERR_NO_SIGNER_INFO,
       "PSignedDataProcess::processSignerInfos-signerInfos(6), The Data does not Signed. (Ther signerInfo is empty)"},
      {"signerInfo version 3", sdtest::Reversion(good, 1, 3), PSignedDataProcess::ERR_SIGNER_VERSION,
       "PSignedDataProcess::processSignerInfos-signerInfo.version(7), Only v1 signerInfo supported."},
      {"eContentType differs from the attribute",
       edit([](RSignedData& sd) { sd.getEncapContentInfo().getEContentType().setOID(psdoid::kTSTInfo); }),
       PSignedDataProcess::ERR_CONTENT_TYPE,
       "PSignedDataProcess::processSignerInfos-contentType(9), SignedAttrs.ContentType are different from "
       "ContentInfo.ContentType."},
      {"ESSCertID hash changed", sdtest::Flip(good, certHash, 7), PSignedDataProcess::ERR_CERT_HASH,
       "PSignedDataProcess::processSignerInfos-signingCertificate(11), Invalid CertHash value."},
      {"extendedCertificate", sdtest::Flip(good, s.cert, 0, '\xA0'), PSignedDataProcess::ERR_EXTENDED_CERT,
       "PSignedDataProcess::processCertificateSet-extendedCertificate(4), extenedCert is not supported."},
      {"other certificate format", sdtest::Flip(good, s.cert, 0, '\xA3'), PSignedDataProcess::ERR_CERT_TYPE,
       "PSignedDataProcess::processCertificateSet-certificateChoices(5), Unkonwn certificate type."},
      // The signer named with the certificate's issuer in PrintableString, not
      // UTF8String: the same name.
      {"issuer in other string types", edit([](RSignedData& sd) {
         RRDNSequence& issuer = sd.getSignerInfos().getAt(0)->getSid().getIssuerAndSerialNumber().getIssuer();
         EXPECT_EQ(issuer.fromASN1Object(sdtest::Flip(issuer.toASN1Object(), ByteString("\x0C\x03rsa", 5), 0, '\x13')),
                   0);
       }),
       0, nullptr},
      // Revocation information beside the certificates: a CRL and an OCSP
      // response (the other form, [1]).
      {"a CRL and an OCSP response in crls", edit([](RSignedData& sd) {
         RRevocationInfoChoice crl, ocsp;
         EXPECT_EQ(crl.fromASN1Object(qvatest::ReadFileBs(qvatest::DataPath("crl/full.der"))), 0);
         EXPECT_EQ(ocsp.fromASN1Object(processtest::HexBs("A10C 0608 2B06010505071002 3000")), 0);
         sd.getCrls().add(crl);
         sd.getCrls().add(ocsp);
         sd.setPresent(sd.getCrls(), true);
       }),
       0, nullptr},
      {"SHA-512 digest", edit([](RSignedData& sd) {
         RAlgorithmIdentifier sha512;
         sha512.getAlgorithm().setOID("2 16 840 1 101 3 4 2 3");
         sd.getSignerInfos().getAt(0)->setDigestAlgorithm(sha512);
       }),
       PSignedDataProcess::ERR_ALGORITHM, nullptr},
      {"RSA-PSS hashing with SHA-256 under a SHA-1 digest", edit([](RSignedData& sd) {
         RAlgorithmIdentifier pss;
         EXPECT_EQ(pss.fromASN1Object(processtest::HexBs(
                       "3041 0609 2a864886f70d01010a 3034 a00f 300d 0609 608648016503040201 0500"
                       " a11c 301a 0609 2a864886f70d010108 300d 0609 608648016503040201 0500 a203 020120")),
                   0);
         sd.getSignerInfos().getAt(0)->setSignatureAlgorithm(pss);
         RAlgorithmIdentifier sha1;
         sha1.getAlgorithm().setOID("1 3 14 3 2 26");
         sd.getSignerInfos().getAt(0)->setDigestAlgorithm(sha1);
       }),
       PSignedDataProcess::ERR_PSS_HASH,
       "PSignedDataProcess::processSignerInfos-signatureAlgorithm(12), Only sha1 with RSA-PSS is supported."},
      {"RSA-PSS with SHA-256", edit([](RSignedData& sd) {
         sd.getSignerInfos().getAt(0)->getSignatureAlgorithm().getAlgorithm().setOID("1 2 840 113549 1 1 10");
         RAlgorithmIdentifier sha256;
         sha256.getAlgorithm().setOID("2 16 840 1 101 3 4 2 1");
         sd.getSignerInfos().getAt(0)->setDigestAlgorithm(sha256);
       }),
       PSignedDataProcess::ERR_PSS_HASH,
       "PSignedDataProcess::processSignerInfos-signatureAlgorithm(12), Only sha1 with RSA-PSS is supported."},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    PSignedDataProcess p;
    EXPECT_EQ(p.parseSignedData(r.der), r.code) << Str(p.getErrorMessage());
    if (r.tail) {
      EXPECT_TRUE(TraceTail(p.getErrorMessage(), "PSignedDataProcess.cpp", r.tail));
    }
    if (r.code == 0) continue;
    // Nothing of a refused SignedData stays readable.
    int n = 0;
    EXPECT_EQ(p.getSignerInfoCnt(&n), +PSignedDataProcess::ERR_NOT_PARSED);
    EXPECT_TRUE(TraceTail(p.getErrorMessage(), "PSignedDataProcess.cpp",
                          "PSignedDataProcess::getSignerInfoCnt-m_bParsed(14), First, Use parseSignedData()."));
  }
  PSignedDataProcess p;
  EXPECT_EQ(p.parseSignedData(good), 0) << Str(p.getErrorMessage());
}

// A second signer added to an existing SignedData (embedded and detached),
// a counter-signature on the first signer, and the attribute limit.
TEST(SignedData, AddSignerCounterSignatureAndLimits) {
  qvatest::TempDir dir;
  const Signer rsa = sdtest::OpensslSigner(dir, "rsa", "rsa"), ec = sdtest::OpensslSigner(dir, "ec", "ec");
  for (bool detached : {false, true}) {
    SCOPED_TRACE(detached ? "detached" : "embedded");
    PSignedData add;
    const int rc = add.setSignedData(Make(rsa, true, detached));
    if (detached) {
      EXPECT_EQ(rc, 4);
      EXPECT_TRUE(TraceTail(add.getErrorMessage(), "PSignedData.cpp",
                            "PSignedData::setSignedData-eContent(4), The SignedData does not contain contents. so, "
                            "Set to be signed content."));
      EXPECT_EQ(add.addSignerInfo(ec.cert, ec.key, ec.hash), 1);
      ASSERT_EQ(add.setTobeSignedData(kContent, true), 0);
    } else {
      ASSERT_EQ(rc, 0) << Str(add.getErrorMessage());
    }
    ASSERT_EQ(add.addSignerInfo(ec.cert, ec.key, ec.hash), 0) << Str(add.getErrorMessage());
    ByteString two;
    ASSERT_EQ(add.makeSignedData(two), 0);
    PSignedDataProcess p;
    ASSERT_EQ(Verify(p, two, detached ? &kContent : nullptr), 0) << Str(p.getErrorMessage());
    int n = 0;
    ByteString c0, c1;
    EXPECT_EQ(p.getSignerInfoCnt(&n), 0);
    EXPECT_EQ(n, 2);
    EXPECT_EQ(p.getSignerCert(0, &c0), 0);
    EXPECT_EQ(p.getSignerCert(1, &c1), 0);
    EXPECT_EQ(c0, rsa.cert);
    EXPECT_EQ(c1, ec.cert);
    EXPECT_EQ(sdtest::Unwrap(two).getDigestAlgorithms().getCount(), 2);
    OpensslVerifies(dir, two, detached);
  }

  // The EC signer counter-signs the RSA signer's signature value.
  RSignedData sd = sdtest::Unwrap(Make(rsa, true, false));
  RSignerInfo& first = *sd.getSignerInfos().getAt(0);
  ByteString counterDer;
  {
    PSignedData c;
    ASSERT_EQ(c.setTobeSignedData(first.getSignature().getValue(), true), 0);
    ASSERT_EQ(c.addSignerInfo(ec.cert, ec.key, ec.hash), 0);
    ASSERT_EQ(c.makeSignedData(counterDer), 0);
  }
  RSignerInfo counter = *sdtest::Unwrap(counterDer).getSignerInfos().getAt(0);
  RAttribute attr;
  attr.getType().setOID(psdoid::kCounterSignature);
  RAny value;
  ASSERT_EQ(value.setElement(counter.toASN1Object()), 0);
  attr.getValues().add(value);
  first.getUnsignedAttrs().add(attr);
  first.setPresent(first.getUnsignedAttrs(), true);
  sd.getCertificates().add(sdtest::Unwrap(counterDer).getCertificates().items()[0]);
  const ByteString withCounter = sdtest::Wrap(sd);
  PSignedDataProcess p;
  EXPECT_EQ(p.parseSignedData(withCounter), 0) << Str(p.getErrorMessage());
  // The counter-signature's digest no longer matches a changed signature.
  RSignedData broken = sd;
  ByteString sig = first.getSignature().getValue();
  sig.setAt(0, static_cast<char>(sig.data()[0] ^ 1));
  broken.getSignerInfos().getAt(0)->getSignature().setValue(sig);
  EXPECT_EQ(p.parseSignedData(sdtest::Wrap(broken), {}), 116);
  sd.getSignerInfos().getAt(0)->getUnsignedAttrs().getAt(0)->getValues().removeAll();
  RSignerInfo badCounter = counter;
  ByteString csig = badCounter.getSignature().getValue();
  csig.setAt(3, static_cast<char>(csig.data()[3] ^ 1));
  badCounter.getSignature().setValue(csig);
  ASSERT_EQ(value.setElement(badCounter.toASN1Object()), 0);
  sd.getSignerInfos().getAt(0)->getUnsignedAttrs().getAt(0)->getValues().add(value);
  EXPECT_NE(p.parseSignedData(sdtest::Wrap(sd)), 0);
  EXPECT_NE(Str(p.getErrorMessage()).find("processCounterSignature"), std::string::npos) << Str(p.getErrorMessage());

  // Eight signed attributes at most: the four and four more, not five.
  for (int extra : {4, 5}) {
    PSignedData limit;
    ASSERT_EQ(limit.setTobeSignedData(kContent), 0);
    for (int i = 0; i < extra; ++i) {
      RAttribute a;
      a.getType().setOID(("1 2 3 " + std::to_string(i)).c_str());
      RAny v;
      ASSERT_EQ(v.setElement(ByteString("\x05\x00", 2)), 0);
      a.getValues().add(v);
      limit.addSignedAttr(a);
    }
    ByteString der;
    const int rc = limit.addSignerInfo(rsa.cert, rsa.key, rsa.hash);
    if (extra == 4) {
      ASSERT_EQ(rc, 0) << Str(limit.getErrorMessage());
      ASSERT_EQ(limit.makeSignedData(der), 0);
      EXPECT_EQ(p.parseSignedData(der), 0) << Str(p.getErrorMessage());
      OpensslVerifies(dir, der, false);
    } else {
      EXPECT_EQ(rc, 1);
      EXPECT_TRUE(TraceTail(limit.getErrorMessage(), "PSignedData.cpp",
                            "PSignedData::makeSignedAttrs-nAttrCount(1), The supported attribute maximum count is 8."));
    }
  }
  PSignedData bad;  // content said to be DER: its length must hold
  EXPECT_EQ(bad.setTobeSignedData(ByteString("\x04\x05" "ab", 4), false, true), 1);
  EXPECT_TRUE(TraceTail(bad.getErrorMessage(), "PSignedData.cpp",
                        "PSignedData::setTobeSignedData-bsContent(1), The content is not asn.1 format."));
  EXPECT_EQ(bad.setTobeSignedData(ByteString("\x04\x02" "ab", 4), false, true), 0);
  EXPECT_EQ(bad.setSignedData(sdtest::Wrap(sd, psdoid::kData)), 2);
  EXPECT_TRUE(TraceTail(bad.getErrorMessage(), "PSignedData.cpp",
                        "PSignedData::setSignedData-contentType(2), It is not signedData."));
}
