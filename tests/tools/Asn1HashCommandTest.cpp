// qva asn1 against openssl asn1parse on certificates, CRLs and CMS (DER,
// BER with indefinite lengths, PEM) and its refusals; qva hash against the
// coreutils digest programs and rhash; qva help for every command.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>
#include <utility>
#include <vector>

#include "tests/support/TestUtil.h"

namespace {

std::string Qva(const std::string& args) { return std::string(QVA_TOOL) + " " + args; }

// The structure of a dump: offset, depth, header length, length, cons/prim and
// type of each element; an INTEGER's value too, which both print in hex.
std::vector<std::string> Structure(const std::string& dump) {
  static const std::regex kRow(
      R"(^ *(\d+):d=(\d+) +hl=(\d+) +l= *(\d+|inf) +(cons|prim): *([^:]*?) *(\[HEX DUMP\])?(:([\s\S]*))?$)");
  std::vector<std::string> rows;
  std::istringstream in(dump);
  for (std::string line; std::getline(in, line);) {
    std::smatch m;
    if (!std::regex_match(line, m, kRow)) continue;  // a value's own line break
    std::string row =
        m[1].str() + " " + m[2].str() + " " + m[3].str() + " " + m[4].str() + " " + m[5].str() + " " + m[6].str();
    if (m[6] == "INTEGER") row += " " + m[9].str();
    rows.push_back(row);
  }
  return rows;
}

}  // namespace

TEST(QvaAsn1, StructureMatchesOpensslAsn1parse) {
  qvatest::TempDir dir;
  const std::string ca = qvatest::DataPath("crl/ca.der");
  ASSERT_EQ(0, qvatest::Run("openssl x509 -inform DER -in " + ca + " -out " + dir.file("ca.pem")));
  // Each file with the DER file openssl reads: itself, or for the PEM copy the original.
  std::vector<std::pair<std::string, std::string>> files = {{dir.file("ca.pem"), ca}};
  for (const char* f : {"crl/ca.der", "pkix/x509/korean/certs/KISA_RootCA4.der", "facade/user-clean.der",
                        "pkix/x509/korean/capubs/split_CaPubs_All/15.der", "pkix/x509/certs/names-multivalue.der",
                        "pkix/x509/certs/names-utf8only.der", "pkix/x509/certs/access-ec384.der",
                        "pkix/x509/certs/access-ed25519.der", "pkix/x509/certs/ca_cert-dsa1024.der",
                        "pkix/x509/certs/everything-rsa2048.der", "pkix/x509/certs/x400_edi-ec256.der",
                        "pkix/x509/certs/pss-names.der",
                        "pkix/x509/certs/serial-0x8000000000000000000000000000000000000001.der", "crl/full.der",
                        "pkix/x509/korean/crl/KISA-RootCA-4.crl", "asn1/cms-signed.der",
                        "asn1/cms-signed-indefinite.der", "pkix/cms/sd_resigned.der", "cms/enveloped/kekri_3des.der"})
    files.emplace_back(qvatest::DataPath(f), qvatest::DataPath(f));
  for (const auto& [file, ref] : files) {
    SCOPED_TRACE(file);
    std::string ours, theirs;
    ASSERT_EQ(0, qvatest::Run(Qva("asn1 " + file), &ours));
    ASSERT_EQ(0, qvatest::Run("openssl asn1parse -inform DER -i -in " + ref, &theirs));
    const auto expect = Structure(theirs);
    ASSERT_GT(expect.size(), 10u);
    const auto got = Structure(ours);
    // Row by row, so a failure names the first element that differs.
    for (std::size_t i = 0; i < std::min(got.size(), expect.size()); ++i) {
      ASSERT_EQ(got[i], expect[i]) << "row " << i;
    }
    EXPECT_EQ(got.size(), expect.size());
  }
}

TEST(QvaAsn1, RefusesWhatItCannotRead) {
  qvatest::TempDir dir;
  const std::string cert = qvatest::ReadFile(qvatest::DataPath("crl/ca.der"));
  std::string nested;
  for (int i = 0; i < 100; ++i) nested += "\x30\x80";
  for (int i = 0; i < 100; ++i) nested += std::string(2, '\0');
  const struct {
    const char* name;
    std::string bytes;
    const char* message;
  } kCases[] = {
      {"truncated", cert.substr(0, cert.size() - 1), "bad element at offset 0"},
      {"trailing", cert + "\x30\x05\x02\x01", "bad element at offset "},
      {"four-gib", std::string("\x30\x84\xFF\xFF\xFF\xFF\x02\x01\x00", 9), "bad element at offset 0"},
      {"five-length-octets", std::string("\x04\x85\x00\x00\x00\x00\x01\x00", 8), "bad element at offset 0"},
      {"inner-past-end", std::string("\x30\x03\x02\x05\x00", 5), "bad element at offset 2"},
      {"indefinite-without-end", std::string("\x30\x80\x02\x01\x00", 5), "bad element at offset 0"},
      {"too-deep", nested, "bad element at offset"},
      {"empty", "", "is empty"},
      {"pem-without-end", "-----BEGIN CERTIFICATE-----\nMAA=\n", "bad PEM block"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    qvatest::WriteFile(dir.file(c.name), c.bytes);
    std::string out;
    EXPECT_EQ(2, qvatest::Run(Qva("asn1 ") + dir.file(c.name) + " 2>&1", &out)) << out;
    EXPECT_NE(out.find(c.message), std::string::npos) << out;
  }
  // What lies after a whole certificate is refused at its own offset.
  std::string out;
  qvatest::Run(Qva("asn1 ") + dir.file("trailing") + " 2>&1", &out);
  EXPECT_NE(out.find("bad element at offset " + std::to_string(cert.size())), std::string::npos) << out;
}

TEST(QvaHash, MatchesCoreutilsAndRhash) {
  qvatest::TempDir dir;
  // Empty, short, the 8,192-byte read size and either side of it, several reads.
  const std::size_t kSizes[] = {0, 3, 8191, 8192, 8193, 100000};
  std::string files;
  for (std::size_t n : kSizes) {
    const std::string name = dir.file("f" + std::to_string(n));
    qvatest::WriteFile(name, qvatest::RandomBytes(n, static_cast<unsigned>(n)));
    files += " " + name;
  }
  const struct {
    const char* alg;
    const char* reference;
  } kTools[] = {{"md5", "md5sum"}, {"sha1", "sha1sum"}, {"sha256", "sha256sum"}, {"has160", "rhash --has160"}};
  for (const auto& t : kTools) {
    SCOPED_TRACE(t.alg);
    std::string ours, theirs;
    EXPECT_EQ(0, qvatest::Run(Qva("hash --alg ") + t.alg + files, &ours));
    ASSERT_EQ(0, qvatest::Run(std::string(t.reference) + files, &theirs));
    EXPECT_EQ(ours, theirs);
  }
}

TEST(QvaHash, UnreadableFileAndBadArguments) {
  const std::string present = qvatest::DataPath("crl/ca.der");
  std::string digest;
  ASSERT_EQ(0, qvatest::Run("sha256sum " + present, &digest));
  const std::string usage = "usage: qva hash --alg md5|sha1|sha256|has160 FILE...\n";
  // A missing file is reported by both paths (the facade's, the staged one) and the next file still hashed.
  const std::pair<std::string, std::string> kCases[] = {
      {"sha1 /nonexistent/x", "qva: /nonexistent/x: "},
      {"sha256 /nonexistent/x " + present, "qva: /nonexistent/x: No such file or directory\n" + digest},
      {"sha512 x", usage},
      {"md5", usage},
  };
  for (const auto& c : kCases) {
    std::string out;
    EXPECT_EQ(2, qvatest::Run(Qva("hash --alg ") + c.first + " 2>&1", &out)) << c.first;
    EXPECT_EQ(out.rfind(c.second, 0), 0u) << c.first << ": " << out;
  }
}

TEST(QvaHelp, EveryCommandListedAndExplained) {
  std::string usage;
  ASSERT_EQ(0, qvatest::Run(Qva("--help"), &usage));
  for (const char* cmd :
       {"base64", "pem", "hex", "verify", "register", "cert", "crl", "cms", "ts", "asn1", "hash", "help"}) {
    SCOPED_TRACE(cmd);
    const std::string key = std::string("qva ") + cmd + " ";
    const auto at = usage.find(key);
    ASSERT_NE(at, std::string::npos) << usage;
    const std::string line = usage.substr(at, usage.find('\n', at) - at);
    std::string out;
    EXPECT_EQ(0, qvatest::Run(Qva("help ") + cmd, &out));
    EXPECT_EQ(out.rfind("usage: " + line + "\n", 0), 0u) << out;
    EXPECT_GT(out.size(), line.size() + 20) << "no explanation: " << out;  // more than the usage line
  }
  std::string out;
  EXPECT_EQ(0, qvatest::Run(Qva("help"), &out));
  EXPECT_EQ(out, usage);
  out.clear();
  EXPECT_EQ(2, qvatest::Run(Qva("help frobnicate 2>&1"), &out));
  EXPECT_EQ(out, "qva: no command frobnicate\n");
}

// On a terminal a file over 64 MiB gets a bar on stderr, one of exactly 64 MiB
// does not; the digest is the same either way. script(1) gives the terminal.
TEST(QvaHash, ProgressBarOnATerminalOverSixtyFourMiB) {
  if (!qvatest::HaveTool("script") || !qvatest::HaveTool("truncate")) GTEST_FAIL() << "script or truncate missing";
  qvatest::TempDir dir;
  const struct {
    long long size;
    bool bar;
  } kCases[] = {{64ll << 20, false}, {(64ll << 20) + 1, true}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.size);
    const std::string file = dir.file("sparse" + std::to_string(c.size));
    ASSERT_EQ(0, qvatest::Run("truncate -s " + std::to_string(c.size) + " " + file));
    std::string out, expect;
    ASSERT_EQ(0, qvatest::Run("script -qec '" + Qva("hash --alg sha1 ") + file + "' /dev/null", &out));
    ASSERT_EQ(0, qvatest::Run("sha1sum " + file, &expect));
    expect.insert(expect.size() - 1, "\r");  // the terminal ends lines with CR LF
    EXPECT_NE(out.find(expect), std::string::npos) << expect;
    EXPECT_EQ(out.find("] 100%") != std::string::npos, c.bar) << out.substr(0, 200);
  }
}
