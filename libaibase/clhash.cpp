#include "libaibase/clhash.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "ZENALib/QSCrypto/QSHash.h"
#include "base/ErrorCodes.h"
#include "base/Messages.h"
#include "libaibase/clmessages.h"

namespace {

struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};
struct BufferFree {
  void operator()(unsigned char* p) const { std::free(p); }
};

}  // namespace

CLHash::CLHash() = default;

CLHash::~CLHash() = default;

int CLHash::Fail(const char* method, const char* what, const char* detail) {
  m_nErrorCode = ERR_HASH;
  QVA_ERROR_TRACE(method, what, m_nErrorCode, detail);
  return m_nErrorCode;
}

int CLHash::CheckAlgorithm(const char* method, int algorithm) {
  if (algorithm == 1002 || algorithm == 1011 || algorithm == 1020) return 0;
  m_nErrorCode = ERR_HASH_ALGORITHM;
  QVA_ERROR_TRACE(method, qva_msg::kUnsupportedHash, m_nErrorCode, "");
  return m_nErrorCode;
}

int CLHash::MakeHash(int algorithm, const ByteString& data) {
  const char* method = cl_text::kHashMakeHashMethod;
  if (CheckAlgorithm(method, algorithm) != 0) return m_nErrorCode;
  QSHash hash;
  ByteString digest;
  if (hash.DigestData(algorithm, data, digest) != 0)
    return Fail(method, cl_text::kDigestWhat, hash.GetErrorMsg().c_str());
  m_bsResult = digest;
  return m_nErrorCode = 0;
}

int CLHash::MakeHashBig(int algorithm, const char* path) {
  const char* method = cl_text::kHashMakeHashBigMethod;
  if (CheckAlgorithm(method, algorithm) != 0) return m_nErrorCode;
  std::unique_ptr<std::FILE, FileCloser> file(path ? std::fopen(path, "rb") : nullptr);
  if (!file) return Fail(method, qva_msg::kFileReadFailed, "");
  QSHash hash;
  if (hash.DigestData_Init(algorithm) != 0) return Fail(method, cl_text::kDigestInitWhat, hash.GetErrorMsg().c_str());
  std::unique_ptr<unsigned char, BufferFree> buffer(static_cast<unsigned char*>(std::malloc(kReadSize + 1)));
  if (!buffer) return Fail(method, qva_msg::kMemoryAllocFailed, "");
  while (!std::feof(file.get())) {
    std::memset(buffer.get(), 0, kReadSize + 1);
    const std::size_t got = std::fread(buffer.get(), 1, kReadSize, file.get());
    // A short read is the end only when the end-of-file flag says so.
    if (got < static_cast<std::size_t>(kReadSize) && !std::feof(file.get()))
      return Fail(method, qva_msg::kFileReadFailed, "");
    if (hash.DigestData_Update(buffer.get(), static_cast<int>(got)) != 0)
      return Fail(method, cl_text::kDigestUpdateWhat, hash.GetErrorMsg().c_str());
  }
  buffer.reset();
  file.reset();
  ByteString digest;
  if (hash.DigestData_Final(digest) != 0) return Fail(method, cl_text::kDigestFinalWhat, hash.GetErrorMsg().c_str());
  m_bsResult = digest;
  return m_nErrorCode = 0;
}
