// TrustStore: the validator over the anchor and intermediate directories,
// made again when their files change. Several servers can share the
// directories read-only, and a CA is added or withdrawn without a restart.
// (The CRL directory is followed by the validator itself.)
//
// A request takes the current validator and keeps it until it is decided;
// one request thread rebuilds it while the others go on with the old one.
// A directory that no longer loads keeps the old validator in service.
#pragma once

#include <ctime>
#include <memory>
#include <mutex>
#include <string>

#include "tools/server/Validator.h"

namespace qvaserver {

class TrustStore {
 public:
  // The first load; false with *error naming the file that failed.
  bool Load(const ValidatorConfig& config, std::string* error);
  // The validator for one request. The directories are looked at again at
  // most once a second.
  std::shared_ptr<Validator> Current();

 private:
  std::string Stamp() const;

  ValidatorConfig config_;
  std::mutex lock_;
  std::shared_ptr<Validator> current_;
  std::string stamp_;  // names, sizes and times of the files it was loaded from
  std::time_t checked_ = 0;
  bool reloading_ = false;
};

}  // namespace qvaserver
