// Small helpers shared by the tests.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/ByteString.h"

namespace qvatest {

// Absolute path of a file under tests/data.
std::string DataPath(const std::string& relative);

std::string ReadFile(const std::string& path);
ByteString ReadFileBs(const std::string& path);
void WriteFile(const std::string& path, const void* p, std::size_t n);
inline void WriteFile(const std::string& path, const std::string& s) { WriteFile(path, s.data(), s.size()); }
inline void WriteFile(const std::string& path, const ByteString& s) {
  WriteFile(path, s.data(), static_cast<std::size_t>(s.length()));
}

// Runs a shell command, returns its exit status and (if out is given) stdout.
int Run(const std::string& command, std::string* out = nullptr);
// True when the program is on PATH.
bool HaveTool(const std::string& name);
// The '.der' files of a folder, sorted by name.
std::vector<std::string> DerFiles(const std::string& dir);

// Bytes from a hex text; blanks and line breaks are skipped.
ByteString Hex(const std::string& hex);
std::string ToHex(const ByteString& bs);
std::string Str(const ByteString& bs);
// Deterministic pseudo-random bytes for a test case.
ByteString RandomBytes(std::size_t n, unsigned seed);

// A fresh folder under the system temp folder, removed with its contents.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return m_path; }
  std::string file(const std::string& name) const { return m_path + "/" + name; }

 private:
  std::string m_path;
};

// Reads a vector file: records of "Name = Value" lines separated by blank
// lines; lines starting with '#' are comments. Names keep their case.
using VectorRecord = std::map<std::string, std::string>;
std::vector<VectorRecord> ReadVectors(const std::string& path);

}  // namespace qvatest
