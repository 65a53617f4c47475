#include <iconv.h>
#include <langinfo.h>
#include <unistd.h>

#include <clocale>
#include <cstring>

#include "tools/qva/platform/display.h"

std::string ForDisplay(const char* p, int n) {
  std::setlocale(LC_CTYPE, "");
  const char* codeset = nl_langinfo(CODESET);
  std::string raw(p, static_cast<std::size_t>(n > 0 ? n : 0));
  if (!codeset || std::strcmp(codeset, "CP949") == 0 || std::strcmp(codeset, "EUC-KR") == 0) return raw;
  iconv_t cd = iconv_open(codeset, "CP949");
  if (cd == reinterpret_cast<iconv_t>(-1)) return raw;
  std::string out(raw.size() * 4 + 4, '\0');
  char* in = raw.data();
  std::size_t inLeft = raw.size();
  char* dst = out.data();
  std::size_t outLeft = out.size();
  const std::size_t rc = iconv(cd, &in, &inLeft, &dst, &outLeft);
  iconv_close(cd);
  // Text that is not CP949 after all (a server's own bytes) is shown as it came.
  if (rc == static_cast<std::size_t>(-1)) return raw;
  out.resize(out.size() - outLeft);
  return out;
}

bool IsTerminal(std::FILE* stream) { return ::isatty(::fileno(stream)) == 1; }
