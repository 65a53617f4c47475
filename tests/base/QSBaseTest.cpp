#include "base/QSBase.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TestUtil.h"

using qvatest::Str;

TEST(Base64, Rfc4648Vectors) {
  const auto vectors = qvatest::ReadVectors(qvatest::DataPath("base/rfc4648_base64.txt"));
  ASSERT_EQ(vectors.size(), 7u);
  for (const auto& v : vectors) {
    const std::string in = v.at("In"), expected = v.at("Out");
    ByteString enc, dec;
    ASSERT_EQ(QSBase::base64Encode(ByteString(in.c_str()), &enc), BASE64_OK) << in;
    EXPECT_EQ(Str(enc), expected);
    ASSERT_EQ(QSBase::base64Decode(ByteString(expected.c_str()), &dec), BASE64_OK) << expected;
    EXPECT_EQ(Str(dec), in);
  }
}

// Random data of many lengths: openssl decodes what we encode and we decode
// what openssl encodes, byte for byte.
TEST(Base64, AgreesWithOpensslCli) {
  qvatest::TempDir dir;
  std::string script;
  std::vector<int> lengths;
  for (int n = 0; n <= 300; ++n) lengths.push_back(n);
  for (int n = 301; n <= 4096; n += 37) lengths.push_back(n);
  lengths.push_back(4096);
  for (int n : lengths) {
    const ByteString data = qvatest::RandomBytes(static_cast<std::size_t>(n), static_cast<unsigned>(n));
    ByteString ours;
    ASSERT_EQ(QSBase::base64Encode(data, &ours), BASE64_OK);
    const std::string base = dir.file(std::to_string(n));
    qvatest::WriteFile(base + ".bin", data);
    qvatest::WriteFile(base + ".ours", ours);
    script += "openssl base64 -A -in " + base + ".bin -out " + base + ".theirs && openssl base64 -d -A -in " +
              base + ".ours -out " + base + ".back || exit 1\n";
  }
  qvatest::WriteFile(dir.file("run.sh"), script);
  ASSERT_EQ(qvatest::Run("sh " + dir.file("run.sh")), 0);
  for (int n : lengths) {
    const std::string base = dir.file(std::to_string(n));
    const ByteString data = qvatest::ReadFileBs(base + ".bin");
    const ByteString theirs = qvatest::ReadFileBs(base + ".theirs");
    ByteString ours, decoded;
    QSBase::base64Encode(data, &ours);
    EXPECT_EQ(Str(ours), Str(theirs)) << n;
    ASSERT_EQ(QSBase::base64Decode(theirs, &decoded), BASE64_OK) << n;
    EXPECT_TRUE(decoded == data) << n;
    EXPECT_TRUE(qvatest::ReadFileBs(base + ".back") == data) << n;
  }
}

TEST(Base64, RejectsMalformedText) {
  const char* bad[] = {
      "Zg=",       // length not a multiple of 4
      "Zm9v!A==",  // character outside the alphabet
      "Zg==Zg==",  // padding in the middle
      "Z===",      // three padding characters
      "=Zg=",      // padding first
      "Zm 9v",     // blank
      "Zm9v\n",    // line break
  };
  for (const char* text : bad) {
    ByteString out("untouched");
    EXPECT_EQ(QSBase::base64Decode(ByteString(text), &out), BASE64_BAD_INPUT) << text;
    EXPECT_EQ(Str(out), "untouched") << text;
  }
  ByteString out;
  EXPECT_EQ(QSBase::base64Decode(nullptr, 4, &out), BASE64_BAD_INPUT);
  EXPECT_EQ(QSBase::base64Decode("Zg==", -4, &out), BASE64_BAD_INPUT);
  EXPECT_EQ(QSBase::base64Encode(nullptr, 1, &out), BASE64_BAD_INPUT);
}

namespace {

struct OpensslCert {
  qvatest::TempDir dir;
  ByteString pem, der;
  OpensslCert() {
    const std::string cmd = "openssl req -x509 -newkey rsa:2048 -nodes -keyout " + dir.file("key.pem") +
                            " -out " + dir.file("cert.pem") +
                            " -subj /CN=pem-test -days 1 2>/dev/null && openssl x509 -in " + dir.file("cert.pem") +
                            " -outform DER -out " + dir.file("cert.der");
    if (qvatest::Run(cmd) != 0) throw std::runtime_error("openssl req failed");
    pem = qvatest::ReadFileBs(dir.file("cert.pem"));
    der = qvatest::ReadFileBs(dir.file("cert.der"));
  }
};

}  // namespace

TEST(Pem, RoundTripWithOpenssl) {
  OpensslCert cert;
  // openssl's own PEM (LF line ends, trailing line break) decodes to its DER.
  ByteString der;
  ASSERT_EQ(QSBase::pemDecode(PEM_CERTIFICATE, cert.pem, &der), PEM_OK);
  EXPECT_TRUE(der == cert.der);

  // Ours: CR LF lines of 64 characters and no break after the footer; openssl
  // reads it back to the same DER.
  ByteString pem;
  ASSERT_EQ(QSBase::pemEncode(PEM_CERTIFICATE, cert.der, &pem), PEM_OK);
  const std::string text = Str(pem);
  EXPECT_EQ(text.rfind("-----BEGIN CERTIFICATE-----\r\n", 0), 0u);
  EXPECT_EQ(text.substr(text.size() - 27), "\r\n-----END CERTIFICATE-----");
  for (std::size_t at = text.find("\r\n") + 2, next; (next = text.find("\r\n", at)) != std::string::npos; at = next + 2)
    if (text.compare(next + 2, 5, "-----") != 0) {
      EXPECT_EQ(next - at, 64u) << "line at " << at;
    }
  qvatest::WriteFile(cert.dir.file("ours.pem"), pem);
  ASSERT_EQ(qvatest::Run("openssl x509 -in " + cert.dir.file("ours.pem") + " -outform DER -out " +
                         cert.dir.file("back.der")),
            0);
  EXPECT_TRUE(qvatest::ReadFileBs(cert.dir.file("back.der")) == cert.der);
}

TEST(Pem, LayoutRules) {
  ByteString pem;
  // 48 bytes are exactly 64 Base64 characters: one line between the armour.
  ASSERT_EQ(QSBase::pemEncode(PEM_X509_CRL, qvatest::RandomBytes(48, 1), &pem), PEM_OK);
  const std::string text = Str(pem);
  EXPECT_EQ(text.size(), std::string("-----BEGIN X509 CRL-----\r\n").size() + 64 + 2 +
                             std::string("-----END X509 CRL-----").size());

  // Types 7 and 9 share their label.
  ByteString a, b;
  QSBase::pemEncode(PEM_PKCS7, ByteString("abc"), &a);
  QSBase::pemEncode(PEM_PKCS7_2, ByteString("abc"), &b);
  EXPECT_TRUE(a == b);
  EXPECT_EQ(Str(a), "-----BEGIN PKCS7-----\r\nYWJj\r\n-----END PKCS7-----");

  // An unknown type is bare Base64 in 64-character lines, both ways.
  ByteString bare, back;
  const ByteString data = qvatest::RandomBytes(100, 2);
  ASSERT_EQ(QSBase::pemEncode(0, data, &bare), PEM_OK);
  EXPECT_EQ(bare.find("-----"), -1);
  EXPECT_EQ(bare.find("\r\n"), 64);
  ASSERT_EQ(QSBase::pemDecode(0, bare, &back), PEM_OK);
  EXPECT_TRUE(back == data);

  const char* labels[] = {nullptr,      "CERTIFICATE",           "WTLS CERTIFICATE", "RSA PRIVATE KEY",
                          "PRIVATE KEY", "ENCRYPTED PRIVATE KEY", "X509 CRL",         "PKCS7",
                          "NEW CERTIFICATE REQUEST", "PKCS7", nullptr};
  for (int type = 0; type <= 10; ++type) {
    const char* label = QSBase::pemLabel(type);
    if (labels[type]) {
      EXPECT_STREQ(label, labels[type]) << type;
    } else {
      EXPECT_EQ(label, nullptr) << type;
    }
  }
}

TEST(Pem, DecodeFailures) {
  const std::string good = "-----BEGIN CERTIFICATE-----\r\nYWJj\r\n-----END CERTIFICATE-----";
  struct Case {
    std::string text;
    int rc;
  } cases[] = {
      {good, PEM_OK},
      {"-----BEGIN X509 CRL-----\r\nYWJj\r\n-----END X509 CRL-----", PEM_NO_HEADER},  // other type
      {"-----BEGIN CERTIFICATE-----\r\nYWJj\r\n", PEM_NO_FOOTER},
      {"-----BEGIN CERTIFICATE-----", PEM_NO_FOOTER},
      {"-----BEGIN CERTIFICATE-----\r\nYW*j\r\n-----END CERTIFICATE-----", PEM_BASE64_FAIL},
      {" " + good, PEM_BASE64_FAIL},   // the body is taken from the header's length, not its position
      {"x\n" + good, PEM_BASE64_FAIL},
      {"", PEM_NO_HEADER},
  };
  for (const auto& k : cases) {
    ByteString der;
    EXPECT_EQ(QSBase::pemDecode(PEM_CERTIFICATE, ByteString(k.text.c_str()), &der), k.rc) << k.text;
    if (k.rc == PEM_OK) {
      EXPECT_EQ(Str(der), "abc");
    }
  }
}
