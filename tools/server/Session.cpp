#include "tools/server/Session.h"

#include "base/ByteReader.h"
#include "libaibase/clrecord.h"
#include "libaibase/clroamingmessage.h"
#include "libaibase/clsecuremanager.h"
#include "tools/server/Registry.h"
#include "tools/server/TrustStore.h"
#include "tools/server/Validator.h"

namespace qvaserver {
namespace {

constexpr int kValidation = 106;
constexpr int kRegistration = 107;
// Roaming status of the answer to a message type this server does not serve.
constexpr std::uint8_t kUnknownTypeStatus = 1;

std::string Str(const ByteString& b) { return std::string(b.c_str(), static_cast<std::size_t>(b.length())); }

}  // namespace

Session::Session(const Services& services)
    : services_(services), manager_(std::make_unique<CLSecureManager>(services.certificate, services.privateKey)) {}

Session::~Session() = default;

bool Session::ParseItems(const ByteString& body, std::vector<ByteString>* items) {
  ByteReader r(body);
  std::uint32_t count = 0;
  if (r.readU32BE(&count) != BS_OK) return false;
  // Each item takes at least its 4-byte length: a larger count cannot be honest.
  if (count > static_cast<std::uint32_t>(body.length()) / 4) return false;
  for (std::uint32_t i = 0; i < count; ++i) {
    std::uint32_t n = 0;
    ByteString item;
    if (r.readU32BE(&n) != BS_OK || r.readBytes(n, &item) != BS_OK) return false;
    items->push_back(std::move(item));
  }
  return r.empty();
}

ByteString Session::MakeItems(const std::vector<std::string>& items) {
  ByteWriter w;
  w.u32BE(static_cast<std::uint32_t>(items.size()));
  for (const auto& s : items) w.u32BE(static_cast<std::uint32_t>(s.size())).bytes(s.data(), s.size());
  ByteString out;
  w.finish(&out);
  return out;
}

ByteString Session::Alert(const char* text, RequestLog* log) {
  log->verdict = std::string("alert: ") + text;
  manager_->MakeAlert(ByteString(text));
  return manager_->TakeOutput();
}

Result Session::Decide(int type, const std::vector<ByteString>& items, RequestLog* log) {
  // Held until the request is decided, even if the trust store moves on.
  const std::shared_ptr<Validator> current = services_.trust ? services_.trust->Current() : nullptr;
  Validator* validator = current ? current.get() : services_.validator;
  if (type == kValidation) {
    if (items.size() != 2) return {kMalformedRequest, "a validation carries two items"};
    const std::string kind = Str(items[0]);
    // The client's bytes go into a log line: anything but printable ASCII
    // becomes '?', so a kind cannot end the line or forge another.
    log->kind = kind.substr(0, 16);
    for (char& ch : log->kind)
      if (ch <= ' ' || ch > '~') ch = '?';
    if (kind == "CERT") return validator->ValidateCertificate(items[1]);
    if (kind == "SIGNED") {
      ByteString signer;
      return validator->ValidateSigned(items[1], &signer);
    }
    return {kUnknownKind, {}};
  }
  // A registration: one item, the certificate.
  log->kind = "REGISTER";
  if (items.size() != 1) return {kMalformedRequest, "a registration carries one item"};
  Result r = validator->ValidateCertificate(items[0]);
  if (r.verdict != kValid) return r;
  ByteString der;
  std::string error;
  if (!services_.registry) return {kInternalError, "no database"};
  bool known = false;
  if (!Validator::ToDer(items[0], &der) || !services_.registry->Store(der, &error, &known)) {
    log->note = error;
    return {kInternalError, error};
  }
  // Whether the row was there already (registered through this or another server).
  log->note = known ? "known" : "new";
  return r;
}

ByteString Session::Answer(const ByteString& message, RequestLog* log) {
  CLRoamingMessage request;
  if (request.ParseRoamingMessage(message) != 0) return ByteString();
  const int type = static_cast<int>(request.GetType());
  log->type = type;
  std::vector<ByteString> items;
  Result result;
  std::uint8_t status = 0;
  if (type != kValidation && type != kRegistration) {
    status = kUnknownTypeStatus;
    result = {kMalformedRequest, "unknown message type " + std::to_string(type)};
  } else if (!ParseItems(request.GetBody(), &items)) {
    result = {kMalformedRequest, "the item list does not parse"};
  } else {
    result = Decide(type, items, log);
  }
  log->verdict = std::to_string(result.verdict == kValid ? 0 : static_cast<int>(result.verdict));
  const ByteString list = result.verdict == kValid
                              ? MakeItems({"0"})
                              : MakeItems({std::to_string(static_cast<int>(result.verdict)), result.Explanation()});
  CLRoamingMessage reply;
  if (reply.MakeRoamingMessage(static_cast<std::uint8_t>(type), status, &request.GetIdentifier(),
                               &request.GetReference(), &list) != 0)
    return ByteString();
  return reply.GetMessage();
}

ByteString Session::Handle(const ByteString& record, RequestLog* log) {
  if (record.length() < 1) return Alert("empty record", log);
  switch (record.data()[0]) {
    case RECORD_PLAIN: {
      if (manager_->ParsePlain(record) != 0) return Alert("malformed record", log);
      const ByteString answer = Answer(manager_->TakeOutput(), log);
      if (answer.length() == 0) return Alert("malformed roaming message", log);
      if (manager_->MakePlainData(answer) != 0) return Alert("answer too large", log);
      return manager_->TakeOutput();
    }
    case RECORD_HANDSHAKE: {
      log->kind = "HANDSHAKE";
      if (!services_.certificate) return Alert("no handshake offered", log);
      // The server half only: a hello, then the key exchange answering it.
      // The client's steps sent to the server are refused, not run.
      const int step = record.length() > 6 ? record.data()[6] : -1;
      if (step != CLSecureManager::kClientHello && step != CLSecureManager::kClientKeyExchange)
        return Alert("unexpected handshake message", log);
      if (step == CLSecureManager::kClientKeyExchange && !helloSeen_) return Alert("key exchange before hello", log);
      helloSeen_ = false;
      bool more = false;
      if (manager_->ProcessHandshake(record, &more) != 0) return Alert("handshake failed", log);
      helloSeen_ = step == CLSecureManager::kClientHello;
      log->verdict = "ok";
      return manager_->TakeOutput();
    }
    case RECORD_APPLICATION_DATA: {
      if (manager_->GetDataKey().length() == 0) return Alert("no handshake yet", log);
      if (manager_->ParseApplicationData(record) != 0) return Alert("malformed application data", log);
      const ByteString answer = Answer(manager_->TakeOutput(), log);
      if (answer.length() == 0) return Alert("malformed roaming message", log);
      if (manager_->MakeApplicationData(answer) != 0) return Alert("answer too large", log);
      return manager_->TakeOutput();
    }
    default:
      return Alert("unknown record type", log);
  }
}

}  // namespace qvaserver
