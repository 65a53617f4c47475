// Roaming messages, short and extended forms: whatever parses must make
// again into exactly the bytes parsed, and a refused message must be refused
// with 191 only. Malformed input is dumped to ./wrongRoamingMessage.txt as
// the parser always does: run the target from a scratch directory.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "libaibase/clroamingmessage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 20)) return 0;
  const ByteString input(data, static_cast<int>(size));

  CLRoamingMessage in;
  const int rc = in.ParseRoamingMessage(input);
  if (rc == 0) {
    CLRoamingMessage out;
    if (out.MakeRoamingMessage(static_cast<std::uint8_t>(in.GetType()), static_cast<std::uint8_t>(in.GetStatus()),
                               &in.GetIdentifier(), &in.GetReference(), &in.GetBody()) != 0 ||
        out.GetMessage() != input)
      std::abort();
  } else if (rc != 191) {
    std::abort();
  }
  // Read from a view of the same bytes: the same outcome and fields.
  CLRoamingMessage inPlace;
  if (inPlace.ParseRoamingMessage(ByteReader(input)) != rc ||
      (rc == 0 && (inPlace.GetBody() != in.GetBody() || inPlace.GetReference() != in.GetReference() ||
                   inPlace.GetIdentifier() != in.GetIdentifier())))
    std::abort();

  CLRoamingMessage ex;
  const int rcEx = ex.ParseRoamingMessageEx(&input);
  if (rcEx == 0) {
    CLRoamingMessage out;
    if (out.MakeRoamingMessageEx(static_cast<std::uint8_t>(ex.GetType()), static_cast<std::uint8_t>(ex.GetStatus()),
                                 &ex.GetFirstIdentifier(), ex.GetFirstPort(), &ex.GetSecondIdentifier(),
                                 ex.GetSecondPort(), &ex.GetReference(), &ex.GetExtraField(), &ex.GetBody()) != 0 ||
        out.GetMessage() != input)
      std::abort();
  } else if (rcEx != 191) {
    std::abort();
  }
  return 0;
}
