// PTimeStampResponseProcess::parseTimeStampToken on arbitrary bytes and
// every accessor after it.
#include <cstddef>
#include <cstdint>

#include "ZENALib/QSProcess/PTimeStampResponseProcess.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  PTimeStampResponseProcess p;
  const int rc = p.parseTimeStampToken(ByteString(data, static_cast<int>(size)));
  ByteString v;
  const int cert = p.getTSACert(&v);
  if ((rc == 0) != (cert == 0)) __builtin_trap();  // the TSA certificate exists exactly after a success
  p.getPolicy(&v);
  p.getHashAlg(&v);
  p.getHashedMsg(&v);
  p.getSerialNum(&v);
  p.getNonce(&v);
  return 0;
}
