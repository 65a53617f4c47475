#include <io.h>

#include "tools/qva/platform/display.h"

// The console of a Korean Windows shows CP949 as it is.
std::string ForDisplay(const char* p, int n) { return std::string(p, static_cast<std::size_t>(n > 0 ? n : 0)); }

bool IsTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }
