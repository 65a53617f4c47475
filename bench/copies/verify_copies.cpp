// One QVA_Verify of a payload (default 100 KB) against an echo server in a
// child process; run under the preloaded copy counter to see how often the
// payload is copied before the request is sent and after the answer comes.
//
//   LD_PRELOAD=.../libqva_copycount.so QVA_COPY_MIN=51200 qva_verify_copies [bytes [before after]]
//
// Given the two limits, the program also fails when the payload was copied
// more often than that before the send or after it (or when the counter is
// not preloaded).
#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "qva/qva.h"
#include "tools/common/PosixIO.h"

int main(int argc, char** argv) {
  const int size = argc > 1 ? std::atoi(argv[1]) : 100 * 1024;
  const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in sa{};
  sa.sin_family = AF_INET;
  sa.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t len = sizeof sa;
  if (::bind(listener, reinterpret_cast<sockaddr*>(&sa), sizeof sa) != 0 || ::listen(listener, 1) != 0 ||
      ::getsockname(listener, reinterpret_cast<sockaddr*>(&sa), &len) != 0)
    return 2;

  // The server echoes one frame: a validation request whose first item is
  // "0" comes back as an answer meaning success.
  const pid_t child = ::fork();
  if (child == 0) {
    const int c = ::accept(listener, nullptr, nullptr);
    unsigned char prefix[4];
    bool ok = c >= 0 && ReadExact(c, prefix, 4);
    const std::size_t n = (std::size_t{prefix[0]} << 24) | (std::size_t{prefix[1]} << 16) |
                          (std::size_t{prefix[2]} << 8) | prefix[3];
    std::vector<unsigned char> frame(4 + n);
    for (int i = 0; i < 4; ++i) frame[static_cast<std::size_t>(i)] = prefix[i];
    ok = ok && ReadExact(c, frame.data() + 4, n) && WriteAll(c, frame.data(), frame.size());
    ::_exit(ok ? 0 : 1);  // no exit handlers: only the parent reports
  }
  ::close(listener);

  std::vector<unsigned char> data(static_cast<std::size_t>(size));
  for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<unsigned char>(i * 131 + 7);
  void* client = nullptr;
  QVA_Initialize(&client, "127.0.0.1", ntohs(sa.sin_port), "R");
  const int rc = QVA_Verify(client, "0", data.data(), size);
  QVA_Release(client);
  int status = 0;
  ::waitpid(child, &status, 0);
  std::fprintf(stderr, "QVA_Verify of %d bytes: %d\n", size, rc);
  bool within = true;
  if (argc > 3) {
    using ReadFn = void (*)(long*, long*);
    const auto read = reinterpret_cast<ReadFn>(dlsym(RTLD_DEFAULT, "qva_copycount_read"));
    long before = 0, after = 0;
    if (read) read(&before, &after);
    within = read && before <= std::atol(argv[2]) && after <= std::atol(argv[3]);
    std::fprintf(stderr, "copies before send %ld (limit %s), after %ld (limit %s)%s\n", before, argv[2], after,
                 argv[3], read ? "" : ": the copy counter is not preloaded");
  }
  return rc == 0 && within && WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 0 : 1;
}
