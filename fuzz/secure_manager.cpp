// Hostile handshake and application-data records fed to a server-side
// manager (fixed identity of EnvelopedIdentity.h) and to a client-side one.
// A record either fails, leaving the more flag as it was, or succeeds with
// the flag and the reply the handshake table gives for its type.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "fuzz/EnvelopedIdentity.h"
#include "libaibase/clhandshake.h"
#include "libaibase/clsecuremanager.h"

namespace {

void Check(CLSecureManager* manager, const ByteString& record) {
  bool more = true;
  const int rc = manager->ProcessHandshake(record, &more);
  if (rc != 0) {
    if (!more) std::abort();  // a failure must leave the flag alone
    return;
  }
  const int type = record.data()[6];
  if (more != (type == 1 || type == 2)) std::abort();
  if (type == 4) {
    if (manager->GetOutput().length() != 0) std::abort();
    if (manager->GetDataKey().length() > 24 || manager->GetDataIV().length() > 8) std::abort();
    return;
  }
  CLHandshake reply;
  if (reply.ParseHandshake(manager->GetOutput()) != 0 || static_cast<int>(reply.GetHandshakeType()) != type + 1)
    std::abort();
  // Application data under whatever key the step left: it either fails or round-trips.
  if (manager->MakeApplicationData(record) == 0) {
    const ByteString sealed = manager->GetOutput();
    if (manager->ParseApplicationData(sealed) != 0 || manager->GetOutput() != record) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  const ByteString record(data, static_cast<int>(size));
  static const ByteString cert(fuzzid::kCert, sizeof fuzzid::kCert);
  static const ByteString key(fuzzid::kKey, sizeof fuzzid::kKey);
  CLSecureManager server(&cert, &key);
  Check(&server, record);
  CLSecureManager client(nullptr, nullptr);
  Check(&client, record);
  // Application data on a manager without keys is refused, never read past.
  if (client.ParseApplicationData(record) == 0) std::abort();
  return 0;
}
