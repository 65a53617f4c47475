// qva verify / qva register: one request to a validation server.
//
//   qva verify HOST PORT ROAMINGID FIRSTITEM FILE
//   qva register HOST PORT ROAMINGID FILE
//
// Goes through the library's public functions only, as an application does.
// Prints "result: N", then the general and detail texts (converted from CP949
// for the terminal) on failure. Exits 0 when the server accepts, 1 when its
// verdict is against, 2 on bad arguments or a failure on the way.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "base/ErrorCodes.h"
#include "qva/qva.h"
#include "tools/qva/platform/display.h"
#include "tools/qva/messages.h"

namespace {

// The library's own failure codes (the channel, socket and message layers
// use 100-199); anything else that is not 0 is the server's verdict.
bool IsFailureOnTheWay(int rc) {
  return rc == ERR_NO_MEMORY || rc == ERR_ITEM_COUNT_ZERO || rc == ERR_INVALID_ARGUMENT ||
         (rc >= ERR_RECORD_VERSION && rc < 200);
}

void PrintText(const char* label, int (*get)(void*, char*, int*), void* client) {
  int len = 0;
  // The getters refuse a short buffer without telling the length: grow until it fits.
  std::vector<char> buf(256);
  for (;;) {
    len = static_cast<int>(buf.size());
    const int rc = get(client, buf.data(), &len);
    if (rc == 0) break;
    if (buf.size() > (1u << 24)) return;
    buf.resize(buf.size() * 4);
  }
  std::printf("%s: %s\n", label, ForDisplay(buf.data(), len).c_str());
}

}  // namespace

int RunClientCommand(int argc, char** argv) {
  const bool verify = std::strcmp(argv[1], "verify") == 0;
  if (argc != (verify ? 7 : 6)) {
    std::fputs(
        "usage: qva verify HOST PORT ROAMINGID FIRSTITEM FILE\n"
        "       qva register HOST PORT ROAMINGID FILE\n",
        stderr);
    return 2;
  }
  std::ifstream in(argv[argc - 1], std::ios::binary);
  if (!in) {
    std::fprintf(stderr, qva_msg::kCannotRead, argv[argc - 1]);
    return 2;
  }
  const std::vector<unsigned char> data((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());

  void* client = nullptr;
  int rc = QVA_Initialize(&client, argv[2], std::atoi(argv[3]), argv[4]);
  if (rc != 0) {
    std::fprintf(stderr, "qva: QVA_Initialize failed (%d)\n", rc);
    return 2;
  }
  static const unsigned char kNothing = 0;
  const unsigned char* p = data.empty() ? &kNothing : data.data();
  const int n = static_cast<int>(data.size());
  rc = verify ? QVA_Verify(client, argv[5], p, n) : QVA_RegisterCert(client, p, n);
  std::printf("result: %d\n", rc);
  if (rc != 0) {
    PrintText("general", QVA_GetGeneralErrorMsg, client);
    PrintText("detail", QVA_GetDetailErrorMsg, client);
  }
  QVA_Release(client);
  return rc == 0 ? 0 : IsFailureOnTheWay(rc) ? 2 : 1;
}
