// A user's program of the toolkit, built from the installed headers and the
// static library: decodes a DER certificate with PCertUtil and digests the
// file with QSHash, printing the serial number and the SHA-256 in hex.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "base/ByteString.h"

static void PrintHex(const char* label, const ByteString& b) {
  std::printf("%s=", label);
  for (int i = 0; i < b.length(); ++i) std::printf("%02X", static_cast<unsigned char>(b.c_str()[i]));
  std::printf("\n");
}

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::ifstream in(argv[1], std::ios::binary);
  const std::string der((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const ByteString cert(der.data(), static_cast<int>(der.size()));
  PCertUtil util;
  ByteString serial, digest;
  QSHash hash;
  if (util.parseCertificate(cert) != 0 || util.getSerialNumber(&serial) != 0 ||
      hash.DigestData(QSAlgorithm::SHA256(), cert, digest) != 0)
    return 1;
  PrintHex("serial", serial);
  PrintHex("sha256", digest);
  return 0;
}
