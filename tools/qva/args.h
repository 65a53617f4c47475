// The command line of a qva command that reads one FILE and options that
// each take a value: `qva CMD FILE [--name VALUE]...` in any order.
#pragma once

#include <cstring>
#include <initializer_list>

struct QvaOption {
  const char* name;    // "--cert"
  const char** value;  // set to the argument that follows it
};

// The FILE operand, or null when it is missing, given twice, or beside an
// option that is unknown or lacks its value.
inline const char* ReadFileAndOptions(int argc, char** argv, std::initializer_list<QvaOption> options) {
  const char* file = nullptr;
  for (int i = 2; i < argc; ++i) {
    const QvaOption* hit = nullptr;
    for (const QvaOption& o : options)
      if (std::strcmp(argv[i], o.name) == 0) hit = &o;
    if (hit && i + 1 < argc) {
      *hit->value = argv[++i];
    } else if (!hit && !file && argv[i][0] != '-') {
      file = argv[i];
    } else {
      return nullptr;
    }
  }
  return file;
}
