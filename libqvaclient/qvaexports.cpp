// The seven exported functions. Each checks its pointer arguments, forwards
// to the client object, and lets no C++ exception cross into the caller.
#include <cstdlib>
#include <cstring>
#include <new>

#include "base/ErrorCodes.h"
#include "libqvaclient/cqvaclientapi.h"
#include "qva/qva.h"

namespace {

CQVAClientAPI* Client(void* handle) { return static_cast<CQVAClientAPI*>(handle); }

// Runs fn; an exception (in practice only std::bad_alloc) becomes the
// allocation-failure code.
template <typename Fn>
int Guard(Fn fn) noexcept {
  try {
    return fn();
  } catch (...) {
    return ERR_NO_MEMORY;
  }
}

// Copies text to pBuf without a terminating zero. A null length pointer, or
// a null buffer for a non-empty text, is refused like a short buffer.
int CopyText(const ByteString& text, char* pBuf, int* pnLen) {
  if (!pnLen || *pnLen < text.length() || (!pBuf && text.length() > 0)) return ERR_INVALID_ARGUMENT;
  if (text.length() > 0) std::memcpy(pBuf, text.data(), static_cast<std::size_t>(text.length()));
  *pnLen = text.length();
  return 0;
}

}  // namespace

extern "C" {

QVA_API int QVA_CALL QVA_Initialize(void** phClient, const char* pszServerAddress, int nServerPort,
                                    const char* pszRoamingID) {
  return Guard([&] {
    auto* client = new (std::nothrow) CQVAClientAPI();
    if (!client) return ERR_NO_MEMORY;
    const int rc = client->Init(pszServerAddress, nServerPort, pszRoamingID);
    if (rc != 0) {
      delete client;  // not handed out, so not leaked either
      return rc;
    }
    *phClient = client;
    return 0;
  });
}

QVA_API int QVA_CALL QVA_Verify(void* hClient, const char* pszFirstItem, const unsigned char* pData, int nDataLen) {
  if (!hClient || !pData) return ERR_INVALID_ARGUMENT;
  return Guard([&] { return Client(hClient)->API_Verify(pszFirstItem, pData, nDataLen); });
}

QVA_API int QVA_CALL QVA_RegisterCert(void* hClient, const unsigned char* pCert, int nCertLen) {
  if (!hClient || !pCert) return ERR_INVALID_ARGUMENT;
  return Guard([&] { return Client(hClient)->API_RegisterCert(pCert, nCertLen); });
}

QVA_API int QVA_CALL QVA_FreeItem(void** ppItem) {
  if (*ppItem) {
    std::free(*ppItem);
    *ppItem = nullptr;
  }
  return 0;
}

QVA_API int QVA_CALL QVA_GetGeneralErrorMsg(void* hClient, char* pBuf, int* pnLen) {
  if (!hClient) return ERR_INVALID_ARGUMENT;
  return Guard([&] { return CopyText(Client(hClient)->GetGeneralErrorMsg(), pBuf, pnLen); });
}

QVA_API int QVA_CALL QVA_GetDetailErrorMsg(void* hClient, char* pBuf, int* pnLen) {
  if (!hClient) return ERR_INVALID_ARGUMENT;
  return Guard([&] { return CopyText(Client(hClient)->GetDetailErrorMsg(), pBuf, pnLen); });
}

QVA_API int QVA_CALL QVA_Release(void* hClient) {
  if (!hClient) return ERR_INVALID_ARGUMENT;
  delete Client(hClient);
  return 0;
}

}  // extern "C"
