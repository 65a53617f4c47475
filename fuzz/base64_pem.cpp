// Base64 and PEM decoding of arbitrary text; whatever decodes must encode
// and decode again to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/QSBase.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 20)) return 0;
  const ByteString text(data, static_cast<int>(size));

  ByteString raw;
  if (QSBase::base64Decode(text, &raw) == BASE64_OK) {
    ByteString again, back;
    if (QSBase::base64Encode(raw, &again) != BASE64_OK || QSBase::base64Decode(again, &back) != BASE64_OK ||
        back != raw)
      std::abort();
  }
  for (int type = 0; type <= 9; ++type) {
    ByteString der;
    if (QSBase::pemDecode(type, text, &der) != PEM_OK) continue;
    ByteString pem, back;
    if (QSBase::pemEncode(type, der, &pem) != PEM_OK || QSBase::pemDecode(type, pem, &back) != PEM_OK ||
        back != der)
      std::abort();
  }
  return 0;
}
