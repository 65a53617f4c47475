// PEnvelopedData and PEnvelopedDataProcess: encrypt a file for a certificate
// in CMS EnvelopedData (SEED-CBC), then open it with the matching key.
//   enveloped_data CERT.der KEY.p8 CONTENT OUT.p7m
#include <cstdio>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PEnvelopedData.h"
#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"
#include "examples/toolkit/example_io.h"

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  const ByteString cert = example::ReadFile(argv[1]);
  const ByteString key = example::ReadFile(argv[2]);
  const ByteString content = example::ReadFile(argv[3]);

  PEnvelopedData maker;
  ByteString cek, iv, der;
  if (maker.choiceRecipientType(penv::KEY_TRANS_RECIPIENT_INFO) != 0 ||
      maker.choiceRecipientIdentifier(penv::ISSUERANDSERIALNUMBER) != 0 ||
      maker.makeSymetricKey(QSAlgorithm::SEED(), cek, iv) != 0 || maker.addRecipient(cert) != 0 ||
      maker.makeEnvelopedData(content, der) != 0) {
    std::fprintf(stderr, "%s\n", maker.getErrorMessage().c_str());
    return 1;
  }
  example::WriteFile(argv[4], der);

  // The recipient names itself by its certificate, then opens with its key.
  PEnvelopedDataProcess reader;
  ByteString opened;
  if (reader.setRecipientIdentifier(cert) != 0 || reader.parseEnvelopedData(der, key) != 0 ||
      reader.getContent(opened) != 0) {
    std::fprintf(stderr, "%s\n", reader.getErrorMessage().c_str());
    return 1;
  }
  std::printf("opened %d bytes, same as sent: %s\n", opened.length(), opened == content ? "yes" : "no");
  return 0;
}
