// Session: the records of one connection in, the answer records out.
//
// A plain record carries a roaming message whose body is an item list; the
// answer is a plain record in the same shape. With the server's certificate
// and key, handshake records run the server half of the handshake and
// application-data records carry the same messages enciphered. Knows no
// sockets, so the fuzz target drives it directly.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/ByteString.h"
#include "tools/server/Verdict.h"

class CLSecureManager;

namespace qvaserver {

class Validator;
class Registry;
class TrustStore;

struct Services {
  Validator* validator = nullptr;
  TrustStore* trust = nullptr;     // when set, its current validator is used instead
  Registry* registry = nullptr;    // null: registrations answer an internal error
  const ByteString* certificate = nullptr;  // null: no handshake offered
  const ByteString* privateKey = nullptr;
};

// What the access log says about one request.
struct RequestLog {
  int type = -1;
  std::string kind = "-";
  std::string verdict = "-";
  std::string note;  // a registration: "new", "known" or the database's error
};

class Session {
 public:
  explicit Session(const Services& services);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // The answer record (empty: nothing to send) for one received record.
  ByteString Handle(const ByteString& record, RequestLog* log);

  // The items of an item list; false when it is malformed.
  static bool ParseItems(const ByteString& body, std::vector<ByteString>* items);
  static ByteString MakeItems(const std::vector<std::string>& items);

 private:
  // The answer roaming message for a request message, or empty for an
  // unreadable message.
  ByteString Answer(const ByteString& message, RequestLog* log);
  Result Decide(int type, const std::vector<ByteString>& items, RequestLog* log);
  ByteString Alert(const char* text, RequestLog* log);

  Services services_;
  std::unique_ptr<CLSecureManager> manager_;
  bool helloSeen_ = false;  // a hello was answered and its key exchange is awaited
};

}  // namespace qvaserver
