// PTimeStampResponseProcess: check a time-stamp token and print its fields.
//   timestamp TOKEN.der
// TOKEN.der is the token itself (a CMS ContentInfo), not the whole response.
#include <cstdio>

#include "ZENALib/QSProcess/PTimeStampResponseProcess.h"
#include "examples/toolkit/example_io.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  PTimeStampResponseProcess token;
  // Checks the signature, the signing-certificate attribute and that the
  // signer's certificate is for time stamping.
  if (token.parseTimeStampToken(example::ReadFile(argv[1])) != 0) {
    std::fprintf(stderr, "%s\n", token.getErrorMessage().c_str());
    return 1;
  }
  ByteString policy, hashAlg, hashed, serial;
  token.getPolicy(&policy);
  token.getHashAlg(&hashAlg);
  token.getHashedMsg(&hashed);
  token.getSerialNum(&serial);
  std::printf("policy: %s\nhash: %s\n", policy.c_str(), hashAlg.c_str());
  example::PrintHex("imprint", hashed);
  example::PrintHex("serial", serial);
  return 0;
}
