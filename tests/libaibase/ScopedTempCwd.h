// Makes a fresh temporary folder the current directory for the life of the
// object (the roaming-message parser writes its dump file there) and goes
// back afterwards.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "tests/support/TestUtil.h"

namespace qvatest {

class ScopedTempCwd {
 public:
  ScopedTempCwd() {
    char buf[4096];
    if (!getcwd(buf, sizeof buf) || chdir(m_dir.path().c_str()) != 0) throw std::runtime_error("chdir");
    m_old = buf;
  }
  ~ScopedTempCwd() {
    if (chdir(m_old.c_str()) != 0) std::abort();
  }
  ScopedTempCwd(const ScopedTempCwd&) = delete;
  ScopedTempCwd& operator=(const ScopedTempCwd&) = delete;

  std::string file(const std::string& name) const { return m_dir.file(name); }

 private:
  TempDir m_dir;  // made before the change of folder, removed after the way back
  std::string m_old;
};

}  // namespace qvatest
