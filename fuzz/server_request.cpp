// The validation server's request handling on arbitrary records: every
// record gets an answer, and an answer that is not an alert is a plain
// record whose roaming message parses and whose item list is ["0"] or a
// verdict code of the server's range with its explanation. The same bytes,
// read as a run of length-prefixed frames, then drive one session that offers
// the handshake: whatever their order, every record gets a non-empty answer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz/EnvelopedIdentity.h"
#include "libaibase/clroamingmessage.h"
#include "libaibase/clsecuremanager.h"
#include "tools/server/Session.h"
#include "tools/server/Validator.h"

namespace {

void Frames(const std::uint8_t* data, std::size_t size) {
  static const ByteString cert(fuzzid::kCert, sizeof fuzzid::kCert);
  static const ByteString key(fuzzid::kKey, sizeof fuzzid::kKey);
  static qvaserver::Validator validator;
  qvaserver::Services services;
  services.validator = &validator;
  services.certificate = &cert;
  services.privateKey = &key;
  qvaserver::Session session(services);
  // A 2-byte length before each record keeps the frames small enough to come in numbers.
  while (size >= 2) {
    const std::size_t n = std::min<std::size_t>((std::size_t{data[0]} << 8 | data[1]), size - 2);
    qvaserver::RequestLog log;
    if (session.Handle(ByteString(data + 2, static_cast<int>(n)), &log).length() == 0) std::abort();
    data += 2 + n;
    size -= 2 + n;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 20)) return 0;
  Frames(data, size);
  // No anchors: every certificate that parses ends as untrusted, which is
  // enough to drive the parsing of requests, lists and certificates.
  static qvaserver::Validator validator;
  qvaserver::Services services;
  services.validator = &validator;
  qvaserver::Session session(services);
  qvaserver::RequestLog log;
  const ByteString answer = session.Handle(ByteString(data, static_cast<int>(size)), &log);
  if (answer.length() == 0) std::abort();
  if (CLSecureManager::IsAlert(answer)) return 0;
  CLSecureManager reader(nullptr, nullptr);
  CLRoamingMessage reply;
  std::vector<ByteString> items;
  if (reader.ParsePlain(answer) != 0 || reply.ParseRoamingMessage(reader.TakeOutput()) != 0 ||
      !qvaserver::Session::ParseItems(reply.GetBody(), &items))
    std::abort();
  if (items.size() == 1) {
    if (std::string(items[0].c_str(), static_cast<std::size_t>(items[0].length())) != "0") std::abort();
  } else if (items.size() == 2) {
    const int code = std::atoi(items[0].c_str());
    if (code < 5001 || code > 5099 || items[1].length() == 0) std::abort();
  } else {
    std::abort();
  }
  return 0;
}
