// The identity-verification data on arbitrary bytes: as a certificate for
// verifyVIDWithCert (every refusal traced), and as an IdentifyData whose
// VIDs are all read.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "ZENALib/ASN1Pkix/RIdentifyData.h"
#include "ZENALib/QSProcess/PIdentifyDataUtil.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  const ByteString input(data, static_cast<int>(size));
  PIdentifyDataUtil util;
  const int rc = util.verifyVIDWithCert(input, "8001011234567", ByteString("\x01\x02", 2));
  if (rc != 0 && util.getErrorMessage().length() == 0) std::abort();  // every refusal is traced
  RIdentifyData identifyData;
  if (identifyData.fromASN1Object(input) == 0) {
    for (int i = 0; i < identifyData.getUserInfo().getCount(); ++i) {
      RVID vid;
      identifyData.getVID(i, &vid);
    }
  }
  return 0;
}
