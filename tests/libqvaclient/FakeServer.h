// A scriptable validation server for the tests: listens on 127.0.0.1 at an
// ephemeral port and serves one connection per scripted answer, in order.
// Each connection: read one framed request (kept for inspection), send the
// answer's segments (pausing between them so they arrive apart), close.
// Every wait is bounded, so a test that never connects still ends.
#pragma once

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace qvatest {

struct Answer {
  // Raw bytes sent in order; several segments are sent apart.
  std::vector<std::string> segments;
  // Close without reading the request first.
  bool skipRequest = false;
};

// Bytes helpers for scripting answers independently of the library.
std::string U32(unsigned v);
std::string Frame(const std::string& payload);
std::string ItemList(const std::vector<std::string>& items);
std::string Roaming(int type, int status, const std::string& identifier, const std::string& reference,
                    const std::string& body);
std::string Record(int contentType, const std::string& data);
// A whole framed plain answer carrying a roaming message with these items.
std::string PlainAnswer(int status, const std::vector<std::string>& items);

class FakeServer {
 public:
  explicit FakeServer(std::vector<Answer> script);
  ~FakeServer();
  FakeServer(const FakeServer&) = delete;
  FakeServer& operator=(const FakeServer&) = delete;

  int port() const { return m_port; }
  // Waits until every scripted connection is served (or timed out).
  void Join();
  // The framed requests received so far (prefix included).
  std::vector<std::string> Requests();

 private:
  void Run();
  void Serve(int fd, const Answer& answer);

  std::vector<Answer> m_script;
  int m_listen = -1;
  int m_port = 0;
  std::mutex m_mutex;
  std::vector<std::string> m_requests;
  std::thread m_thread;
};

// A loopback port with nothing listening on it.
int UnusedPort();

// The text the library reports for a system error number: the C library's
// message with the line break that Windows puts at the end of its texts.
std::string SystemText(int err);

}  // namespace qvatest
