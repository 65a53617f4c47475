// qva: command-line front end of the library.
//
//   qva base64 encode|decode IN OUT
//   qva pem encode|decode TYPE IN OUT     (TYPE: a number 1-9 or a label word)
//   qva hex IN                            (upper-case hex dump, 16 bytes a line)
//   qva verify HOST PORT ROAMINGID FIRSTITEM FILE
//   qva register HOST PORT ROAMINGID FILE (see client.cpp)
//   qva cert FILE                         (see cert.cpp)
//   qva crl FILE [--issuer CERT] [--serial HEX] (see crl.cpp)
//   qva cms FILE [--content DATA] [--cert C] [--key K]   (see cms.cpp)
//   qva ts FILE                           (see ts.cpp)
//   qva asn1 FILE                         (see asn1.cpp)
//   qva hash --alg ALG FILE...            (see hash.cpp)
//   qva help [COMMAND]                    (see help.cpp)
//   qva demo                              (see demo.cpp)
//   qva --version | --help
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include "base/ByteString.h"
#include "base/QSBase.h"

// client.cpp: the verify and register commands.
int RunClientCommand(int argc, char** argv);
// cert.cpp: the certificate printer.
int RunCertCommand(int argc, char** argv);
// crl.cpp: the CRL printer and revocation answer.
int RunCrlCommand(int argc, char** argv);
// cms.cpp: CMS kinds, SignedData signers and verification.
int RunCmsCommand(int argc, char** argv);
// ts.cpp: time-stamp tokens.
int RunTsCommand(int argc, char** argv);
// asn1.cpp: the element dump.
int RunAsn1Command(int argc, char** argv);
// hash.cpp: file digests.
int RunHashCommand(int argc, char** argv);
// help.cpp: one command's part of the usage text.
int RunHelpCommand(int argc, char** argv, const char* usage);
// demo.cpp: a demo PKI, the server and a table of verdicts.
int RunDemoCommand(int argc, char** argv);

namespace {

const char kUsage[] =
      "usage: qva base64 encode|decode IN OUT\n"
      "       qva pem encode|decode TYPE IN OUT   TYPE: 1-9, or cert, rsakey, key, enckey, crl, pkcs7, req\n"
      "       qva hex IN\n"
      "       qva verify HOST PORT ROAMINGID FIRSTITEM FILE\n"
      "       qva register HOST PORT ROAMINGID FILE\n"
      "       qva cert [--verify ISSUER] FILE\n"
      "       qva crl FILE [--issuer CERT] [--serial HEX]\n"
      "       qva cms FILE [--content DATA] [--cert C] [--key K]\n"
      "       qva ts FILE\n"
      "       qva asn1 FILE\n"
      "       qva hash --alg md5|sha1|sha256|has160 FILE...\n"
      "       qva help [COMMAND]\n"
      "       qva demo\n"
      "       qva --version | --help\n";

// The usage text: on stderr with exit 2 for bad arguments, on stdout for --help.
int Usage(std::FILE* out = stderr, int code = 2) {
  std::fputs(kUsage, out);
  return code;
}

bool ReadAll(const char* path, ByteString* out) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream ss;
  ss << in.rdbuf();
  const std::string s = ss.str();
  return out->setData(s.data(), static_cast<int>(s.size())) == BS_OK;
}

bool WriteAll(const char* path, const ByteString& data) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(data.c_str(), data.length());
  return static_cast<bool>(out);
}

int PemType(const char* word) {
  static const struct {
    const char* name;
    int type;
  } kNames[] = {{"cert", PEM_CERTIFICATE},   {"wtls", PEM_WTLS_CERTIFICATE}, {"rsakey", PEM_RSA_PRIVATE_KEY},
                {"key", PEM_PRIVATE_KEY},     {"enckey", PEM_ENCRYPTED_PRIVATE_KEY},
                {"crl", PEM_X509_CRL},        {"pkcs7", PEM_PKCS7},           {"req", PEM_CERTIFICATE_REQUEST}};
  for (const auto& n : kNames)
    if (std::strcmp(word, n.name) == 0) return n.type;
  return std::atoi(word);
}

int Fail(const char* what, int code) {
  std::fprintf(stderr, "qva: %s failed (%d)\n", what, code);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("qva %s\n", QVA_VERSION);
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "--help") == 0) return Usage(stdout, 0);
  if (argc >= 2 && std::strcmp(argv[1], "help") == 0) return RunHelpCommand(argc, argv, kUsage);
#ifndef _WIN32
  // The demo starts the server, which the Windows build does not have.
  if (argc == 2 && std::strcmp(argv[1], "demo") == 0) return RunDemoCommand(argc, argv);
#endif
  if (argc < 3) return Usage();
  const std::string cmd = argv[1];
  if (cmd == "verify" || cmd == "register") return RunClientCommand(argc, argv);
  if (cmd == "cert") return RunCertCommand(argc, argv);
  if (cmd == "crl") return RunCrlCommand(argc, argv);
  if (cmd == "cms") return RunCmsCommand(argc, argv);
  if (cmd == "ts") return RunTsCommand(argc, argv);
  if (cmd == "asn1") return RunAsn1Command(argc, argv);
  if (cmd == "hash") return RunHashCommand(argc, argv);
  ByteString in, out;

  if (cmd == "hex") {
    if (!ReadAll(argv[2], &in)) return Fail("read", 0);
    const ByteString dump = in.toHexString(2, 32);
    std::fwrite(dump.c_str(), 1, static_cast<std::size_t>(dump.length()), stdout);
    std::fputs("\r\n", stdout);
    return 0;
  }
  if (cmd == "base64" && argc == 5) {
    if (!ReadAll(argv[3], &in)) return Fail("read", 0);
    const bool enc = std::strcmp(argv[2], "encode") == 0;
    if (!enc && std::strcmp(argv[2], "decode") != 0) return Usage();
    const int rc = enc ? QSBase::base64Encode(in, &out) : QSBase::base64Decode(in, &out);
    if (rc != 0) return Fail(enc ? "base64 encode" : "base64 decode", rc);
    return WriteAll(argv[4], out) ? 0 : Fail("write", 0);
  }
  if (cmd == "pem" && argc == 6) {
    const int type = PemType(argv[3]);
    if (!ReadAll(argv[4], &in)) return Fail("read", 0);
    const bool enc = std::strcmp(argv[2], "encode") == 0;
    if (!enc && std::strcmp(argv[2], "decode") != 0) return Usage();
    const int rc = enc ? QSBase::pemEncode(type, in, &out) : QSBase::pemDecode(type, in, &out);
    if (rc != 0) return Fail(enc ? "pem encode" : "pem decode", rc);
    return WriteAll(argv[5], out) ? 0 : Fail("write", 0);
  }
  return Usage();
}
