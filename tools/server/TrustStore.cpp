#include "tools/server/TrustStore.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace qvaserver {
namespace {

// The regular files of a directory as "name:size:mtime" lines, sorted.
void AddStamp(const std::string& dir, std::string* stamp) {
  if (dir.empty()) return;
  std::vector<std::string> lines;
  if (DIR* d = ::opendir(dir.c_str())) {
    while (dirent* e = ::readdir(d)) {
      const std::string name = e->d_name;
      struct stat st {};
      if (name.empty() || name[0] == '.' || ::stat((dir + "/" + name).c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        continue;
      lines.push_back(name + ":" + std::to_string(st.st_size) + ":" + std::to_string(st.st_mtim.tv_sec) + "." +
                      std::to_string(st.st_mtim.tv_nsec));
    }
    ::closedir(d);
  }
  std::sort(lines.begin(), lines.end());
  *stamp += dir + "\n";
  for (const auto& l : lines) *stamp += l + "\n";
}

}  // namespace

std::string TrustStore::Stamp() const {
  std::string stamp;
  AddStamp(config_.anchorDir, &stamp);
  AddStamp(config_.intermediateDir, &stamp);
  return stamp;
}

bool TrustStore::Load(const ValidatorConfig& config, std::string* error) {
  config_ = config;
  auto v = std::make_shared<Validator>();
  // The stamp is taken first: a change during the load is seen on the next look.
  const std::string stamp = Stamp();
  if (!v->Load(config_, error)) return false;
  std::lock_guard<std::mutex> guard(lock_);
  current_ = std::move(v);
  stamp_ = stamp;
  checked_ = std::time(nullptr);
  return true;
}

std::shared_ptr<Validator> TrustStore::Current() {
  std::string stamp;
  {
    std::lock_guard<std::mutex> guard(lock_);
    const std::time_t now = std::time(nullptr);
    if (reloading_ || now == checked_) return current_;
    checked_ = now;
    stamp = Stamp();
    if (stamp == stamp_) return current_;
    // Whatever comes of it, these files are not loaded twice.
    stamp_ = stamp;
    reloading_ = true;
  }
  auto v = std::make_shared<Validator>();
  std::string error;
  const bool ok = v->Load(config_, &error);
  if (ok)
    std::fprintf(stderr, "qva-server: trust anchors reloaded: %zu anchor(s), %zu intermediate(s)\n", v->AnchorCount(),
                 v->IntermediateCount());
  else
    std::fprintf(stderr, "qva-server: trust anchors not reloaded, the previous ones stay: %s\n", error.c_str());
  std::lock_guard<std::mutex> guard(lock_);
  if (ok) current_ = std::move(v);
  reloading_ = false;
  return current_;
}

}  // namespace qvaserver
