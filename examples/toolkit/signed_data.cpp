// PSignedData and PSignedDataProcess: sign a file into CMS SignedData, then
// read it back, checking the signature.
//   signed_data CERT.der KEY.p8 CONTENT OUT.p7s
// KEY.p8 is an unencrypted PKCS#8 private key in DER.
#include <cstdio>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PSignedData.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"
#include "examples/toolkit/example_io.h"

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  const ByteString cert = example::ReadFile(argv[1]);
  const ByteString key = example::ReadFile(argv[2]);
  const ByteString content = example::ReadFile(argv[3]);

  PSignedData maker;
  ByteString der;
  if (maker.setTobeSignedData(content) != 0 || maker.addSignerInfo(cert, key, QSAlgorithm::SHA256()) != 0 ||
      maker.makeSignedData(der) != 0) {
    std::fprintf(stderr, "%s\n", maker.getErrorMessage().c_str());
    return 1;
  }
  example::WriteFile(argv[4], der);

  // Parsing checks every signer against its certificate in the message.
  PSignedDataProcess reader;
  if (reader.parseSignedData(der) != 0) {
    std::fprintf(stderr, "%s\n", reader.getErrorMessage().c_str());
    return 1;
  }
  int signers = 0;
  reader.getSignerInfoCnt(&signers);
  std::printf("signers: %d, content: %d bytes, same as signed: %s\n", signers, reader.getContent().length(),
              reader.getContent() == content ? "yes" : "no");
  return 0;
}
