// A server certificate (self-signed, RSA-2048) and its PKCS#8 private key
// made by the openssl CLI, in DER and PEM, for the handshake tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/ByteString.h"
#include "tests/support/TestUtil.h"

namespace qvatest {

struct ServerIdentity {
  TempDir dir;
  ByteString certificate;  // DER
  ByteString privateKey;   // PKCS#8 DER
  std::string certPem, keyPem;
  bool ok = false;

  ServerIdentity() {
    certPem = dir.file("server.pem");
    keyPem = dir.file("server.key");
    const std::string cmd = "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/C=KR/O=QVA Test/CN=server' "
                            "-keyout " + keyPem + " -out " + certPem +
                            " 2>/dev/null && openssl x509 -in " + certPem + " -outform DER -out " +
                            dir.file("server.der") + " && openssl pkcs8 -topk8 -nocrypt -in " + keyPem +
                            " -outform DER -out " + dir.file("server.pk8");
    if (Run(cmd) != 0) return;
    certificate = ReadFileBs(dir.file("server.der"));
    privateKey = ReadFileBs(dir.file("server.pk8"));
    ok = certificate.length() > 0 && privateKey.length() > 0;
  }
};

}  // namespace qvatest
