// qva hash --alg md5|sha1|sha256|has160 FILE...: one "HEX  FILE" line per
// file, lower-case hex as the coreutils digest programs print it.
//
// MD5, SHA-1 and HAS-160 go through the facade's file hash. SHA-256, which
// the facade does not offer, and any file shown with a progress bar go
// through the crypto core's staged digest over the same bounded reads. The
// bar is drawn on stderr when it is a terminal and the file is over 64 MiB.
// Exit 0, or 2 when an argument is wrong or a file cannot be hashed (the
// other files are still hashed).
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "base/ByteString.h"
#include "libaibase/clhash.h"
#include "tools/qva/messages.h"
#include "tools/qva/platform/display.h"

namespace {

constexpr unsigned long long kProgressFrom = 64ull << 20;

struct Algorithm {
  const char* name;
  int id;
  bool facade;
};

const Algorithm kAlgorithms[] = {{"md5", QSAlgorithm::MD5(), true},
                                 {"sha1", QSAlgorithm::SHA1(), true},
                                 {"sha256", QSAlgorithm::SHA256(), false},
                                 {"has160", QSAlgorithm::HAS160(), true}};

int Usage() {
  std::fputs("usage: qva hash --alg md5|sha1|sha256|has160 FILE...\n", stderr);
  return 2;
}

struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};

// size is never 0 here: only files over 64 MiB get a bar.
void DrawBar(unsigned long long done, unsigned long long size) {
  if (done > size) done = size;  // a file that grew while read
  const int width = 40;
  std::fprintf(stderr, "\r[%-*.*s] %3d%%", width, static_cast<int>(done * width / size),
               "########################################", static_cast<int>(done * 100 / size));
}

// The staged digest of a file, one bounded read at a time; false with a reason
// in *why. A bar is drawn against barSize when it is not 0.
bool StagedDigest(int alg, const char* path, unsigned long long barSize, ByteString* digest, std::string* why) {
  std::unique_ptr<std::FILE, FileCloser> f(std::fopen(path, "rb"));
  if (!f) return *why = std::strerror(errno), false;
  const bool progress = barSize != 0;
  QSHash hash;
  if (hash.DigestData_Init(alg) != 0) return *why = "digest not available", false;
  std::vector<unsigned char> buf(CLHash::kReadSize);
  unsigned long long done = 0;
  for (std::size_t got; (got = std::fread(buf.data(), 1, buf.size(), f.get())) > 0;) {
    if (hash.DigestData_Update(buf.data(), static_cast<int>(got)) != 0) return *why = "digest failed", false;
    done += got;
    // Redraw once per MiB: enough to move, not enough to slow the read.
    if (progress && (done & ((1u << 20) - 1)) < got) DrawBar(done, barSize);
  }
  if (progress) {
    DrawBar(barSize, barSize);
    std::fputc('\n', stderr);
  }
  if (std::ferror(f.get())) return *why = "read error", false;
  if (hash.DigestData_Final(*digest) != 0) return *why = "digest failed", false;
  return true;
}

}  // namespace

int RunHashCommand(int argc, char** argv) {
  if (argc < 5 || std::strcmp(argv[2], "--alg") != 0) return Usage();
  const Algorithm* alg = nullptr;
  for (const auto& a : kAlgorithms)
    if (std::strcmp(argv[3], a.name) == 0) alg = &a;
  if (!alg) return Usage();
  int status = 0;
  for (int i = 4; i < argc; ++i) {
    const char* path = argv[i];
    unsigned long long barSize = 0;
    if (IsTerminal(stderr)) {
      std::error_code ec;
      const auto size = std::filesystem::file_size(path, ec);
      if (!ec && size > kProgressFrom) barSize = size;
    }
    ByteString digest;
    std::string why;
    bool ok;
    if (alg->facade && barSize == 0) {
      CLHash hash;
      ok = hash.MakeHashBig(alg->id, path) == 0;
      if (ok) {
        digest = hash.GetResult();
      } else {
        why = ForDisplay(hash.GetErrorMsg().c_str(), hash.GetErrorMsg().length());  // the trace is CP949
      }
    } else {
      ok = StagedDigest(alg->id, path, barSize, &digest, &why);
    }
    if (!ok) {
      std::fprintf(stderr, qva_msg::kFailedOn, path, why.c_str());
      status = 2;
      continue;
    }
    static const char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (int k = 0; k < digest.length(); ++k) {
      hex += kDigits[digest.data()[k] >> 4];
      hex += kDigits[digest.data()[k] & 15];
    }
    std::printf("%s  %s\n", hex.c_str(), path);
  }
  return status;
}
