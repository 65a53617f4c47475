// PSignedDataProcess::parseSignedData on arbitrary bytes (the first octet,
// when odd, makes the rest's tail a detached content), every accessor after
// it, and PSignedData::setSignedData with its re-encoding.
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <vector>

#include "ZENALib/QSProcess/PSignedData.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const ByteString der(data + 1, static_cast<int>(size - 1));
  PSignedDataProcess p;
  if (data[0] & 1) p.setDetachedContent(ByteString(data + size / 2, static_cast<int>(size - size / 2)));
  const int rc = p.parseSignedData(der, {der});
  int n = 0;
  if (p.getSignerInfoCnt(&n) == 0) {
    for (int i = 0; i <= n; ++i) {
      ByteString cert;
      RSignerInfo si;
      RAttribute attr;
      std::time_t t = 0;
      p.getSignerCert(i, &cert);
      p.getSignerInfo(i, &si);
      p.getSignerAttribute(i, "1 2 840 113549 1 9 3", &attr);
      p.getSigningTime(i, &t);
    }
    std::vector<ByteString> certs;
    ByteString one;
    p.getCerts(&certs);
    p.getCert(0, &one);
  } else if (rc == 0) {
    __builtin_trap();  // a parsed SignedData must answer its accessors
  }
  PSignedData add;
  ByteString out;
  if (add.setSignedData(der) == 0) add.makeSignedData(out);
  return 0;
}
