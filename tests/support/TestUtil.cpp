#include "tests/support/TestUtil.h"

#include <dirent.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace qvatest {

std::string DataPath(const std::string& relative) { return std::string(QVA_TEST_DATA_DIR) + "/" + relative; }

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

ByteString ReadFileBs(const std::string& path) {
  const std::string s = ReadFile(path);
  return ByteString(s.data(), static_cast<int>(s.size()));
}

void WriteFile(const std::string& path, const void* p, std::size_t n) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) throw std::runtime_error("cannot write " + path);
  out.write(static_cast<const char*>(p), static_cast<std::streamsize>(n));
}

int Run(const std::string& command, std::string* out) {
  FILE* f = popen(command.c_str(), "r");
  if (!f) return -1;
  char buf[4096];
  std::size_t n;
  while ((n = fread(buf, 1, sizeof buf, f)) > 0)
    if (out) out->append(buf, n);
  const int status = pclose(f);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool HaveTool(const std::string& name) { return Run("command -v " + name + " >/dev/null 2>&1") == 0; }

ByteString Hex(const std::string& hex) {
  std::string clean;
  for (char c : hex)
    if (std::isxdigit(static_cast<unsigned char>(c))) clean += c;
  if (clean.size() % 2) throw std::runtime_error("odd hex text: " + hex);
  if (clean.empty()) return ByteString("");
  return ByteString(clean.c_str()).fromHexString();
}

std::string ToHex(const ByteString& bs) { return Str(bs.toHex()); }

std::string Str(const ByteString& bs) { return std::string(bs.c_str(), static_cast<std::size_t>(bs.length())); }

ByteString RandomBytes(std::size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::string s(n, '\0');
  for (auto& c : s) c = static_cast<char>(rng());
  return ByteString(s.data(), static_cast<int>(n));
}

TempDir::TempDir() {
  const char* base = getenv("TMPDIR");
  std::string tmpl = std::string(base && *base ? base : "/tmp") + "/qvatest.XXXXXX";
  if (!mkdtemp(tmpl.data())) throw std::runtime_error("mkdtemp failed");
  m_path = tmpl;
}

TempDir::~TempDir() { Run("rm -rf '" + m_path + "'"); }

std::vector<VectorRecord> ReadVectors(const std::string& path) {
  std::istringstream in(ReadFile(path));
  std::vector<VectorRecord> records;
  VectorRecord current;
  std::string line;
  auto trim = [](std::string s) {
    const auto b = s.find_first_not_of(" \t\r");
    const auto e = s.find_last_not_of(" \t\r");
    return b == std::string::npos ? std::string() : s.substr(b, e - b + 1);
  };
  while (std::getline(in, line)) {
    line = trim(line);
    if (!line.empty() && line[0] == '#') continue;
    if (line.empty()) {
      if (!current.empty()) records.push_back(std::move(current));
      current.clear();
      continue;
    }
    const auto eq = line.find('=');
    if (eq == std::string::npos) continue;
    current[trim(line.substr(0, eq))] = trim(line.substr(eq + 1));
  }
  if (!current.empty()) records.push_back(std::move(current));
  return records;
}

std::vector<std::string> DerFiles(const std::string& dir) {
  std::vector<std::string> out;
  if (DIR* d = opendir(dir.c_str())) {
    while (dirent* e = readdir(d)) {
      const std::string n = e->d_name;
      if (n.size() > 4 && n.compare(n.size() - 4, 4, ".der") == 0) out.push_back(dir + "/" + n);
    }
    closedir(d);
  }
  std::sort(out.begin(), out.end());
  return out;
}

}  // namespace qvatest
