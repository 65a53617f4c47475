// Peak memory of holding a large CRL, for /usr/bin/time -v:
//   crl_rss make FILE [N]     writes a CRL of N entries (CrlFixture.h, 100,000)
//   crl_rss none FILE         reads the file only (the baseline)
//   crl_rss ours FILE         reads it, parseCertList, looks every serial up
//   crl_rss certlist FILE     reads it, decodes it into an RCertificateList and
//                             reads the first, middle and last entries
//   crl_rss openssl FILE      reads it, d2i_X509_CRL, X509_CRL_get0_by_serial
// The process exits right after, so its peak is what the parsed CRL held.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "CrlFixture.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/QSProcess/PCertListProcess.h"

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: crl_rss make|none|ours|openssl FILE [N]\n", stderr);
    return 2;
  }
  const std::string mode = argv[1];
  if (mode == "make") {
    const CrlFixture f = MakeCrlFixture(argc > 3 ? std::atoi(argv[3]) : 100000);
    std::ofstream(argv[2], std::ios::binary).write(f.der.data(), static_cast<std::streamsize>(f.der.size()));
    return 0;
  }
  std::ifstream in(argv[2], std::ios::binary);
  const std::string file((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const ByteString der(file.data(), static_cast<int>(file.size()));
  long found = 0;
  if (mode == "ours") {
    PCertListProcess p;
    if (p.parseCertList(der, nullptr, nullptr) != 0) return 1;
    for (int i = 0; i < p.getRevokedCount(); ++i) {
      PRevokedEntry e;
      int at;
      bool revoked;
      // Each serial read on its own so no entry stays decoded.
      if (p.getRevokedCertificate(i, &e) == 0 && p.isRevoked(e.serial, &at, &revoked) == 0) found += revoked;
    }
  } else if (mode == "certlist") {
    RCertificateList crl;
    if (crl.fromASN1Object(der) != 0) return 1;
    const RRevokedCertificates& list = crl.getTbsCertList().getRevokedCertificates();
    for (int i : {0, list.getCount() / 2, list.getCount() - 1})
      if (const RRevokedCertificate* e = list.getAt(i)) found += e->getUserCertificate().getValueLength() > 0;
  } else if (mode == "openssl") {
    const unsigned char* q = der.data();
    X509_CRL* crl = d2i_X509_CRL(nullptr, &q, der.length());
    if (!crl) return 1;
    STACK_OF(X509_REVOKED)* list = X509_CRL_get_REVOKED(crl);
    for (int i = 0; i < sk_X509_REVOKED_num(list); ++i) {
      X509_REVOKED* r;
      found += X509_CRL_get0_by_serial(crl, &r, X509_REVOKED_get0_serialNumber(sk_X509_REVOKED_value(list, i))) == 1;
    }
    X509_CRL_free(crl);
  } else if (mode != "none") {
    return 2;
  }
  std::printf("%s: %ld found\n", mode.c_str(), found);
  return 0;
}
