/*
 * qva.h: the C interface of libqvaclient, the certificate-validation client.
 *
 * An application creates a handle with QVA_Initialize (server address, port
 * and roaming identifier; no connection is made yet), sends requests with
 * QVA_Verify or QVA_RegisterCert (each one opens, uses and closes its own
 * connection), reads the texts of the last failure with
 * QVA_GetGeneralErrorMsg and QVA_GetDetailErrorMsg, and destroys the handle
 * with QVA_Release.
 *
 * Every function returns a result code: 0 for success, a positive number for
 * a failure. The codes a caller meets:
 *   1     the handle could not be allocated; or the connection was not ready
 *         within 2 seconds of connecting
 *   150   the answer could not be received (151: no memory for it)
 *   152   the request could not be sent
 *   154   the server's address could not be resolved
 *   155   the connection to the server failed
 *   180   the server answered with an alert (its text is in the detail text)
 *   190, 191  the server's answer envelope was missing or malformed
 *   301   the server's answer held no result
 *   2000  a required pointer argument was null, or a text buffer too small
 *   other the server's own result (its explanation is the detail text), or a
 *         code of a lower layer passed through unchanged
 *
 * Sends and receives block until the server answers. The environment
 * variable QVA_IO_TIMEOUT_MS (decimal milliseconds, read once per request;
 * unset, empty or 0 means no limit) makes a send or receive that makes no
 * progress for that long fail with 152 or 150, the system's timeout text in
 * the detail.
 *
 * Texts produced by the library are in code page CP949 (EUC-KR); texts from
 * the server are passed through as received. A handle is used by one thread
 * at a time; distinct handles share nothing.
 */
#ifndef QVA_QVA_H
#define QVA_QVA_H

#if defined(_WIN32)
#define QVA_CALL __cdecl
#if defined(QVA_BUILDING_LIBRARY)
#define QVA_API __declspec(dllexport)
#else
#define QVA_API __declspec(dllimport)
#endif
#else
#define QVA_CALL
#define QVA_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* QVA_Initialize creates a client handle for the server at pszServerAddress
 * (host name or dotted IPv4 address) and nServerPort, sending pszRoamingID
 * as the roaming identifier of every request. On success stores the handle
 * in *phClient (owned by the caller until QVA_Release) and returns 0; returns
 * 1 when the handle cannot be allocated (*phClient is then not written).
 * phClient must not be null. The server is first contacted by a request. */
QVA_API int QVA_CALL QVA_Initialize(void** phClient, const char* pszServerAddress, int nServerPort,
                                    const char* pszRoamingID);

/* QVA_Verify sends one validation request: the text pszFirstItem (without
 * its terminator; null sends an empty item) and nDataLen bytes at pData.
 * Returns 0 when the server accepts, the server's result code (with its
 * explanation as the detail text) when it refuses, 2000 when hClient or pData
 * is null, or the code of the failure on the way (see above). */
QVA_API int QVA_CALL QVA_Verify(void* hClient, const char* pszFirstItem, const unsigned char* pData, int nDataLen);

/* QVA_RegisterCert sends the nCertLen bytes of the certificate at pCert for
 * registration. Results as QVA_Verify; 2000 when hClient or pCert is null. */
QVA_API int QVA_CALL QVA_RegisterCert(void* hClient, const unsigned char* pCert, int nCertLen);

/* QVA_FreeItem frees *ppItem with the C runtime's free when it is not null
 * and sets it to null. Always returns 0. ppItem must not be null. */
QVA_API int QVA_CALL QVA_FreeItem(void** ppItem);

/* QVA_GetGeneralErrorMsg copies the general text of the last failure (kept
 * after a later success) to pBuf, without a terminating zero, and stores its
 * length in *pnLen; returns 0. Returns 2000, touching neither pBuf nor
 * *pnLen, when hClient is null or *pnLen is below the text's length (a
 * buffer exactly as long as the text is enough). An empty text gives 0. */
QVA_API int QVA_CALL QVA_GetGeneralErrorMsg(void* hClient, char* pBuf, int* pnLen);

/* QVA_GetDetailErrorMsg is QVA_GetGeneralErrorMsg for the detail text of the
 * last request: one line per failing layer, outermost first, or the server's
 * own explanation when the server refused the request; empty after a success. */
QVA_API int QVA_CALL QVA_GetDetailErrorMsg(void* hClient, char* pBuf, int* pnLen);

/* QVA_Release destroys the handle; returns 0, or 2000 when hClient is null. */
QVA_API int QVA_CALL QVA_Release(void* hClient);

#ifdef __cplusplus
}
#endif

#endif /* QVA_QVA_H */
