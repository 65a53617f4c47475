// qva-server on loopback against clients that misbehave on the wire; each
// case ends with the server alive and answering.
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "base/QSBase.h"
#include "libaibase/clsecuremanager.h"
#include "tests/support/TestUtil.h"
#include "tests/tools/ServerProcess.h"

namespace {

using qvatest::Connect;
using qvatest::Exchange;
using qvatest::Frame;
using qvatest::Outcome;
using qvatest::PlainRequest;
using qvatest::Str;
using Daemon = qvatest::ServerProcess;

void Send(int fd, const std::string& bytes) {
  if (!bytes.empty()) {
    ASSERT_EQ(::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
  }
}

// True once a fresh connection gets a plain answer (tried for up to ~10 s,
// while the server finishes dropping other connections).
bool Answers(int port) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  for (; std::chrono::steady_clock::now() < until; std::this_thread::sleep_for(std::chrono::milliseconds(100)))
    if (Exchange(port, Frame(PlainRequest()), true, 1000) == "PC") return true;
  return false;
}

class HostileClient : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ::signal(SIGPIPE, SIG_IGN);
    pki_ = qvatest::ServerPki();
  }
  void SetUp() override { ASSERT_FALSE(pki_.empty()) << "the test PKI was not made"; }
  static std::vector<std::string> Args(std::vector<std::string> extra) {
    extra.insert(extra.begin(), {"--anchors", pki_ + "/anchors", "--workers", "2"});
    return extra;
  }
  static std::string pki_;
};

std::string HostileClient::pki_;

TEST_F(HostileClient, FramesAndInnerLengths) {
  Daemon server(Args({"--read-timeout", "400", "--max-frame", "4096"}));
  ASSERT_NE(server.port(), 0);
  const std::string request = PlainRequest();
  std::string lying = request;  // the record's data length one past what follows
  lying[9] = static_cast<char>(lying[9] + 1);
  std::string shortRoaming = request;  // the roaming message cut, the record's length kept honest
  shortRoaming.resize(shortRoaming.size() - 3);
  shortRoaming[5] = static_cast<char>(shortRoaming[5] - 3);
  shortRoaming[9] = static_cast<char>(shortRoaming[9] - 3);
  // Two items: a kind that would end its access-log line and forge another, and a certificate.
  const std::string forged = std::string("\0\0\0\2\0\0\0\x0aX\nforged \xff\0\0\0\1x", 23);
  const struct {
    const char* name;
    std::string bytes;
    bool halfClose;
    const char* outcome;
  } cases[] = {
      {"length 0", std::string(4, '\0'), false, "C"},
      {"one over --max-frame", std::string("\x00\x00\x10\x01", 4) + std::string(64, 'x'), false, "C"},
      {"4 GiB", "\xff\xff\xff\xff", false, "C"},
      {"negative if signed", std::string("\x80\x00\x00\x00", 4), false, "C"},
      {"truncated header", std::string("\x00\x00", 2), false, "C"},
      {"truncated header, half-closed", std::string("\x00", 1), true, "C"},
      {"body cut short", Frame(request).substr(0, 10), false, "C"},
      {"record data longer than its frame", Frame(lying), false, "LC"},
      {"frame longer than its record", Frame(request + "xy"), false, "LC"},
      {"roaming message cut", Frame(shortRoaming), false, "LC"},
      {"garbage after a frame", Frame(request) + "\xff\xff\xff\xffgarbage", false, "PC"},
      {"two frames back to back", Frame(request) + Frame(request), false, "PPC"},
      {"half-closed after a request", Frame(request), true, "PC"},
      {"unknown record type", Frame("\x42" + request.substr(1)), false, "LC"},
      {"kind with a line break", Frame(PlainRequest("tester", forged)), false, "PC"},
  };
  for (const auto& c : cases) EXPECT_EQ(Exchange(server.port(), c.bytes, c.halfClose), c.outcome) << c.name;
  EXPECT_TRUE(Answers(server.port()));
  EXPECT_EQ(server.Stop(), 0);
  const std::string log = server.Log();
  EXPECT_EQ(log.find("\nforged"), std::string::npos);
  EXPECT_NE(log.find(" kind=X?forged?? "), std::string::npos);
}

// --max-connections alone: the connection past the limit is closed at once
// while the held ones stay; those are dropped at --read-timeout, a slow
// sender at the frame's deadline rather than a byte's; then the server serves again.
TEST_F(HostileClient, ConnectionLimitAndReadDeadline) {
  Daemon server(Args({"--max-connections", "3", "--read-timeout", "1500"}));
  ASSERT_NE(server.port(), 0);
  std::vector<int> held;
  for (int i = 0; i < 3; ++i) held.push_back(Connect(server.port()));
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  const int extra = Connect(server.port());
  ASSERT_GE(extra, 0);
  EXPECT_EQ(Outcome(extra, 1000), "C");
  ::close(extra);
  for (const int fd : held) {
    pollfd p{fd, POLLIN, 0};
    EXPECT_EQ(::poll(&p, 1, 0), 0) << "a held connection went before the one past the limit";
  }
  for (const int fd : held) {
    EXPECT_EQ(Outcome(fd), "C");
    ::close(fd);
  }
  EXPECT_TRUE(Answers(server.port()));

  // One byte of a whole request every 100 ms: without a frame deadline it
  // would get its answer after several seconds.
  const std::string frame = Frame(PlainRequest(std::string(40, 'i')));
  const int slow = Connect(server.port());
  std::size_t sent = 0;
  for (; sent < frame.size(); ++sent) {
    if (::send(slow, frame.data() + sent, 1, MSG_NOSIGNAL) != 1) break;
    pollfd p{slow, POLLIN, 0};
    if (::poll(&p, 1, 100) > 0) break;
  }
  EXPECT_LT(sent, frame.size()) << "the slow sender was never dropped";
  EXPECT_EQ(Outcome(slow), "C");
  ::close(slow);
  EXPECT_TRUE(Answers(server.port()));
  EXPECT_EQ(server.Stop(), 0);
}

// Peers that send requests and never read the answers, and peers that reset
// with answers in flight: the first is dropped at --read-timeout (it would
// otherwise hold the only connection for good), the second costs nothing.
TEST_F(HostileClient, PeersThatDoNotTakeTheirAnswers) {
  Daemon server(Args({"--max-connections", "1", "--read-timeout", "500"}));
  ASSERT_NE(server.port(), 0);
  // Answers pile up in the buffers within some thousands of pipelined requests.
  std::string burst;
  for (int i = 0; i < 1000; ++i) burst += Frame(PlainRequest(std::string(255, 'i')));
  enum { kNeverReads, kResets, kNeverReadsAtShutdown };
  for (const int mode : {kNeverReads, kResets, kNeverReadsAtShutdown}) {
    const int fd = Connect(server.port());
    ASSERT_GE(fd, 0);
    const int small = 4096;
    ::setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
    const timeval t{0, 500000};
    ::setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &t, sizeof t);
    int sent = 0;
    while (sent < 200 && ::send(fd, burst.data(), burst.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(burst.size()))
      ++sent;
    ASSERT_LT(sent, 200) << "the server kept reading without its answers being taken";
    if (mode == kNeverReadsAtShutdown) {
      // Stopping waits for answers being written, but not for ever.
      EXPECT_EQ(server.Stop(), 0);
      ::close(fd);
      break;
    }
    if (mode == kResets) {
      const linger l{1, 0};
      ::setsockopt(fd, SOL_SOCKET, SO_LINGER, &l, sizeof l);
      ::close(fd);
    }
    EXPECT_TRUE(Answers(server.port())) << (mode == kResets ? "after a reset" : "beside a peer that never reads");
    EXPECT_TRUE(server.Alive());
    if (mode == kNeverReads) ::close(fd);
  }
}

// Thousands of short-lived connections of every kind leave no descriptor
// behind, and running out of descriptors only pauses accepting.
TEST_F(HostileClient, DescriptorsComeBack) {
  Daemon server(Args({"--read-timeout", "300", "--max-connections", "1000"}));
  ASSERT_NE(server.port(), 0);
  ASSERT_TRUE(Answers(server.port()));
  const int before = server.OpenFiles();
  ASSERT_GT(before, 0);
  const std::string request = Frame(PlainRequest());
  for (int i = 0; i < 2000; ++i) {
    const int fd = Connect(server.port());
    ASSERT_GE(fd, 0);
    switch (i % 4) {
      case 0: break;                                         // connects and goes
      case 1: Send(fd, request.substr(0, 7)); break;         // leaves mid-frame
      case 2: Send(fd, request); break;                      // leaves without its answer
      default: {                                             // resets
        const linger l{1, 0};
        ::setsockopt(fd, SOL_SOCKET, SO_LINGER, &l, sizeof l);
      }
    }
    ::close(fd);
  }
  EXPECT_TRUE(Answers(server.port()));
  int after = server.OpenFiles();
  for (int i = 0; i < 50 && after > before; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    after = server.OpenFiles();
  }
  EXPECT_LE(after, before);

  Daemon starved(Args({"--read-timeout", "5000", "--max-connections", "1000"}), 48);
  ASSERT_NE(starved.port(), 0);
  // Served once before running out, as a server in use would be (the
  // sanitizer build also needs a descriptor for a type check it has not made before).
  ASSERT_TRUE(Answers(starved.port()));
  std::vector<int> flood;
  for (int i = 0; i < 80; ++i) flood.push_back(Connect(starved.port()));
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  for (const int fd : flood) ::close(fd);
  EXPECT_TRUE(Answers(starved.port())) << "accepting did not resume after running out of descriptors";
  EXPECT_EQ(starved.Stop(), 0);
}

// Frames announced at the largest --max-frame and left unsent cost the
// server what was sent, not what was announced (16 x 64 MiB here), and a
// frame larger than one read is still read whole.
TEST_F(HostileClient, AnnouncedLengthsAreNotReserved) {
  Daemon server(Args({"--max-frame", "67108864", "--read-timeout", "10000"}));
  ASSERT_NE(server.port(), 0);
  std::vector<int> held;
  for (int i = 0; i < 16; ++i) {
    held.push_back(Connect(server.port()));
    Send(held.back(), std::string("\x04\x00\x00\x00", 4) + std::string(1000, '\x14'));
  }
  EXPECT_TRUE(Answers(server.port()));
  // A whole frame of several read chunks is still answered.
  EXPECT_EQ(Exchange(server.port(), Frame(PlainRequest("tester", std::string(200000, '?'))), true), "PC");
  const long rss = server.ResidentKiB();
  EXPECT_GT(rss, 0);
  EXPECT_LT(rss, 256 * 1024);
  for (const int fd : held) ::close(fd);
  EXPECT_EQ(server.Stop(), 0);
}

// Handshake records out of their place are answered with an alert; a client
// step sent to the server is refused rather than run.
TEST_F(HostileClient, HandshakeAbuse) {
  const std::string ca = pki_ + "/ca/";
  Daemon server(Args({"--cert", ca + "valid.pem", "--key", ca + "valid.key", "--read-timeout", "400"}));
  ASSERT_NE(server.port(), 0);
  CLSecureManager client(nullptr, nullptr);
  ASSERT_EQ(client.MakeClientHello(), 0);
  const std::string hello = Str(client.TakeOutput());
  auto typed = [&](int type) {
    std::string r = hello;
    r[6] = static_cast<char>(type);
    return r;
  };
  // A server hello carrying a real certificate, as a peer playing server would send it.
  ByteString certificate, key;
  ASSERT_EQ(QSBase::pemDecode(PEM_CERTIFICATE, qvatest::ReadFileBs(ca + "valid.pem"), &certificate), PEM_OK);
  ASSERT_EQ(QSBase::pemDecode(PEM_PRIVATE_KEY, qvatest::ReadFileBs(ca + "valid.key"), &key), PEM_OK);
  CLSecureManager other(&certificate, &key);
  bool more = false;
  ASSERT_EQ(other.ProcessHandshake(ByteString(hello.data(), static_cast<int>(hello.size())), &more), 0);
  const std::string serverHello = Str(other.TakeOutput());
  std::string early = PlainRequest();
  early[0] = static_cast<char>(RECORD_APPLICATION_DATA);
  const struct {
    const char* name;
    std::vector<std::string> records;
    const char* outcome;
  } cases[] = {
      {"application data first", {early}, "LC"},
      {"key exchange first", {typed(CLSecureManager::kClientKeyExchange)}, "LC"},
      {"key exchange that does not open", {hello, typed(CLSecureManager::kClientKeyExchange)}, "PLC"},
      {"application data after the hello only", {hello, early}, "PLC"},
      {"server hello sent to the server", {serverHello}, "LC"},
      {"server key exchange sent to the server", {typed(CLSecureManager::kServerKeyExchange)}, "LC"},
      {"unknown handshake type", {typed(9)}, "LC"},
      {"handshake record without a type", {hello.substr(0, 6)}, "LC"},
  };
  for (const auto& c : cases) {
    std::string frames;
    for (const auto& r : c.records) frames += Frame(r);
    EXPECT_EQ(Exchange(server.port(), frames), c.outcome) << c.name;
  }
  EXPECT_TRUE(Answers(server.port()));
  EXPECT_EQ(server.Stop(), 0);
}

}  // namespace
