// qva-scripted-server: answers the client what it is told, for the client tests.
//
//   qva-scripted-server [--port P] [--count N] [--idle-timeout S] [--result CODE --detail TEXT] [--alert TEXT]
//   qva-scripted-server --version | --help
//
// Listens on 127.0.0.1 (port 0 picks a free one; the chosen port is printed
// as "listening on 127.0.0.1:PORT"), serves one connection at a time: reads
// the framed plain record, its roaming message and item list, and answers in
// the same shape. A malformed roaming message is answered with an alert (and
// dumped to ./wrongRoamingMessage.txt by the parser, as on the client). Default verdict: result 0 when the request's
// data item is not empty, otherwise result 1 with the text "empty data". --result/--detail force a verdict, --alert
// answers every request with an alert record. Stops after --count requests, or when no client comes for --idle-timeout
// seconds (default 30), so it always ends by itself.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/ByteReader.h"
#include "base/ByteString.h"
#include "tools/common/PosixIO.h"
#include "libaibase/clroamingmessage.h"
#include "libaibase/clsecuremanager.h"

namespace {

struct Options {
  int port = 0;
  long count = -1;  // unlimited
  int idleSeconds = 30;
  bool forced = false;
  std::string result = "0";
  std::string detail;
  bool alert = false;
  std::string alertText;
};

// The usage text: on stderr with exit 2 for bad arguments, on stdout for --help.
int Usage(std::FILE* out = stderr, int code = 2) {
  std::fputs(
      "usage: qva-scripted-server [--port P] [--count N] [--idle-timeout S] [--result CODE [--detail TEXT]] "
      "[--alert TEXT]\n"
      "       qva-scripted-server --version | --help\n",
      out);
  return code;
}

bool ParseOptions(int argc, char** argv, Options* o) {
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (i + 1 >= argc) return false;
    const char* v = argv[++i];
    if (a == "--port") {
      o->port = std::atoi(v);
    } else if (a == "--count") {
      o->count = std::atol(v);
    } else if (a == "--idle-timeout") {
      o->idleSeconds = std::atoi(v);
    } else if (a == "--result") {
      o->forced = true;
      o->result = v;
    } else if (a == "--detail") {
      o->detail = v;
    } else if (a == "--alert") {
      o->alert = true;
      o->alertText = v;
    } else {
      return false;
    }
  }
  return o->port >= 0 && o->port <= 65535 && o->idleSeconds > 0;
}

bool WriteFrame(int fd, const ByteString& payload) {
  ByteWriter w;
  w.u32BE(static_cast<std::uint32_t>(payload.length())).bytes(payload);
  ByteString frame;
  if (w.finish(&frame) != BS_OK) return false;
  return WriteAll(fd, frame.data(), static_cast<std::size_t>(frame.length()));
}

// Largest request the server takes; a client announcing more is dropped.
constexpr std::uint32_t kMaxRequest = 64u << 20;

// Items of a received item list, in order; false when the list is malformed.
bool ReadItems(const ByteString& body, std::vector<ByteString>* items) {
  ByteReader r(body);
  std::uint32_t count = 0;
  if (r.readU32BE(&count) != BS_OK) return false;
  for (std::uint32_t i = 0; i < count; ++i) {
    std::uint32_t n = 0;
    ByteString item;
    if (r.readU32BE(&n) != BS_OK || r.readBytes(n, &item) != BS_OK) return false;
    items->push_back(std::move(item));
  }
  return r.empty();
}

ByteString ItemList(const std::vector<std::string>& items) {
  ByteWriter w;
  w.u32BE(static_cast<std::uint32_t>(items.size()));
  for (const auto& s : items) w.u32BE(static_cast<std::uint32_t>(s.size())).bytes(s.data(), s.size());
  ByteString out;
  w.finish(&out);
  return out;
}

// The answer record for one request record, and a line for the log.
ByteString Answer(const Options& o, const ByteString& record, std::string* log) {
  CLSecureManager manager(nullptr, nullptr);
  auto alert = [&](const char* text) {
    *log = std::string("alert: ") + text;
    manager.MakeAlert(ByteString(text));
    return manager.TakeOutput();
  };
  if (o.alert) return alert(o.alertText.c_str());
  if (manager.ParsePlain(record) != 0) return alert("malformed record");
  const ByteString message = manager.TakeOutput();
  // A malformed request is dumped by the parser as it would be on the client.
  CLRoamingMessage request;
  std::vector<ByteString> items;
  const bool ok = request.ParseRoamingMessage(message) == 0 && ReadItems(request.GetBody(), &items);
  if (!ok) return alert("malformed roaming message");

  std::vector<std::string> answer;
  if (o.forced) {
    answer = {o.result, o.detail};
  } else {
    // The data item: the second of a validation, the only one of a registration.
    const ByteString* data = items.size() >= 2 ? &items[1] : (items.size() == 1 ? &items[0] : nullptr);
    if (data && data->length() > 0)
      answer = {"0"};
    else
      answer = {"1", "empty data"};
  }
  *log = "type " + std::to_string(request.GetType()) + ", " + std::to_string(items.size()) + " item(s) -> " + answer[0];
  const ByteString list = ItemList(answer);
  CLRoamingMessage reply;
  reply.MakeRoamingMessage(static_cast<std::uint8_t>(request.GetType()), 0, &request.GetIdentifier(),
                           &request.GetReference(), &list);
  manager.MakePlainData(reply.GetMessage());
  return manager.TakeOutput();
}

void Serve(const Options& o, int fd) {
  // A stalled client cannot hold the server: each read waits at most this long.
  timeval tv{o.idleSeconds, 0};
  ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv);
  unsigned char prefix[4];
  if (!ReadExact(fd, prefix, 4)) return;
  ByteReader pr(prefix, 4);
  std::uint32_t n = 0;
  pr.readU32BE(&n);
  if (n > kMaxRequest) return;
  ByteString record;
  if (record.resize(static_cast<int>(n)) != BS_OK || (n > 0 && !ReadExact(fd, record.buffer(), n))) return;
  std::string log;
  const ByteString answer = Answer(o, record, &log);
  WriteFrame(fd, answer);
  std::printf("%s\n", log.c_str());
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("qva-scripted-server %s\n", QVA_VERSION);
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "--help") == 0) return Usage(stdout, 0);
  Options o;
  if (!ParseOptions(argc, argv, &o)) return Usage();

  const int lfd = ::socket(AF_INET, SOCK_STREAM, 0);
  int on = 1;
  ::setsockopt(lfd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  sa.sin_port = htons(static_cast<std::uint16_t>(o.port));
  socklen_t len = sizeof sa;
  if (lfd < 0 || ::bind(lfd, reinterpret_cast<sockaddr*>(&sa), sizeof sa) != 0 || ::listen(lfd, 16) != 0 ||
      ::getsockname(lfd, reinterpret_cast<sockaddr*>(&sa), &len) != 0) {
    std::perror("qva-scripted-server: listen");
    return 1;
  }
  std::printf("listening on 127.0.0.1:%d\n", ntohs(sa.sin_port));
  std::fflush(stdout);

  for (long served = 0; o.count < 0 || served < o.count; ++served) {
    pollfd p{lfd, POLLIN, 0};
    if (::poll(&p, 1, o.idleSeconds * 1000) <= 0) {
      std::printf("idle for %d s, stopping\n", o.idleSeconds);
      break;
    }
    const int fd = ::accept(lfd, nullptr, nullptr);
    if (fd < 0) continue;
    Serve(o, fd);
    ::close(fd);
  }
  ::close(lfd);
  return 0;
}
