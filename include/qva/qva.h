/**
 * @file qva.h
 * @brief The C interface of libqvaclient, the certificate-validation client.
 *
 * An application creates a handle with QVA_Initialize() (server address,
 * port and roaming identifier; no connection is made yet), sends requests
 * with QVA_Verify() or QVA_RegisterCert() (each one opens, uses and closes
 * its own TCP connection), reads the texts of the last failure with
 * QVA_GetGeneralErrorMsg() and QVA_GetDetailErrorMsg(), and destroys the
 * handle with QVA_Release().
 *
 * @code{.c}
 * void* client = NULL;
 * if (QVA_Initialize(&client, "validation.example", 9000, "user01") == 0) {
 *   int rc = QVA_Verify(client, "first item", data, dataLen);
 *   if (rc != 0) {
 *     char text[4096];
 *     int len = (int)sizeof text;
 *     if (QVA_GetDetailErrorMsg(client, text, &len) == 0) fwrite(text, 1, (size_t)len, stderr);
 *   }
 *   QVA_Release(client);
 * }
 * @endcode
 *
 * @section qva_results Result codes
 * Every function returns a signed 32-bit result code: 0 for success, a
 * positive number for a failure. A failure deep down reaches the caller
 * with its own code unchanged. The codes a caller meets:
 * | Code | Meaning |
 * |------|---------|
 * | 0    | success; for a request, the server accepted it |
 * | 1    | the handle could not be allocated; or the connection was not ready within 2 seconds of connecting |
 * | 120, 130 | the server's answer record (alert, plain) was malformed |
 * | 150  | the answer could not be received (also a receive timeout, see @ref qva_timeouts) |
 * | 151  | no memory for the answer |
 * | 152  | the request could not be sent (also a send timeout) |
 * | 154  | the server's address could not be resolved |
 * | 155  | the connection to the server failed |
 * | 180  | the server answered with an alert (its text is in the detail text) |
 * | 190, 191 | the server's answer envelope was missing or malformed (a malformed one is also written to ./wrongRoamingMessage.txt) |
 * | 301  | the server's answer held no result |
 * | 2000 | a required pointer argument was null, or a text buffer was too small |
 * | other | the server's own result for a refused request (its explanation is the detail text), or a code of a lower layer passed through unchanged |
 *
 * @section qva_texts Error texts
 * After a failed request the handle holds two texts, copied out without a
 * terminating zero:
 * - the general text: one fixed sentence for every failed request, Korean
 *   for "The validation data request failed."; in code page CP949 its bytes
 *   are B0 CB C1 F5 B5 A5 C0 CC C5 CD 20 BF E4 C3 BB BF A1 20 BD C7 C6 D0
 *   C7 CF BF B4 BD C0 B4 CF B4 D9 2E. It is kept after a later success.
 * - the detail text: for a failure on the way, one line per failing layer,
 *   outermost first, each "METHOD - WHAT(CODE)" ending in CR LF, followed by
 *   the innermost layer's explanation (for example the system's text for a
 *   refused connection); for a request the server refused, exactly the
 *   server's explanation. It is emptied at the start of every request.
 *
 * Texts produced by the library are in code page CP949 (EUC-KR); texts from
 * the server are passed through as received.
 *
 * @section qva_timeouts Timeouts
 * Sends and receives block until the server answers. The environment
 * variable QVA_IO_TIMEOUT_MS (decimal milliseconds, read once per request;
 * unset, empty or 0 means no limit) makes a send or receive that makes no
 * progress for that long fail with 152 or 150, the system's timeout text in
 * the detail.
 *
 * @section qva_threads Threads
 * A handle is used by one thread at a time; distinct handles share nothing,
 * and the library starts no thread of its own.
 */
#ifndef QVA_QVA_H
#define QVA_QVA_H

/** @cond QVA_INTERNAL */
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
/** @endcond */

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @brief Creates a client handle for one validation server.
 *
 * No connection is made here: the server is first contacted by a request,
 * so an unreachable server is noticed by QVA_Verify() or QVA_RegisterCert().
 *
 * @param[out] phClient receives the handle, owned by the caller until
 *   QVA_Release(); not written on failure. Must not be null.
 * @param[in] pszServerAddress host name or dotted IPv4 address of the
 *   server, zero-terminated; copied.
 * @param[in] nServerPort TCP port of the server.
 * @param[in] pszRoamingID roaming identifier sent with every request,
 *   zero-terminated; copied.
 * @return 0 on success; 1 when the handle cannot be allocated.
 */
QVA_API int QVA_CALL QVA_Initialize(void** phClient, const char* pszServerAddress, int nServerPort,
                                    const char* pszRoamingID);

/**
 * @brief Sends one validation request and returns the server's verdict.
 *
 * The request carries two items: the text @p pszFirstItem and the
 * @p nDataLen bytes at @p pData. The detail text is emptied first.
 *
 * @param[in] hClient handle from QVA_Initialize().
 * @param[in] pszFirstItem first item as a zero-terminated text, sent
 *   without its terminator; null sends an empty item. What the server
 *   expects in it is the server's business: it is passed through as given.
 * @param[in] pData the data to validate (for example a DER certificate).
 * @param[in] nDataLen number of bytes at @p pData.
 * @return 0 when the server accepts; the server's result code when it
 *   refuses (its explanation is then the detail text); 2000 when @p hClient
 *   or @p pData is null; otherwise the code of the failure on the way (see
 *   @ref qva_results). Every failure but 2000 sets the general text.
 */
QVA_API int QVA_CALL QVA_Verify(void* hClient, const char* pszFirstItem, const unsigned char* pData, int nDataLen);

/**
 * @brief Sends a certificate to the server for registration.
 *
 * @param[in] hClient handle from QVA_Initialize().
 * @param[in] pCert the certificate's bytes (DER).
 * @param[in] nCertLen number of bytes at @p pCert.
 * @return as QVA_Verify(); 2000 when @p hClient or @p pCert is null.
 */
QVA_API int QVA_CALL QVA_RegisterCert(void* hClient, const unsigned char* pCert, int nCertLen);

/**
 * @brief Frees a heap block handed to the caller and clears the pointer.
 *
 * Frees @p *ppItem with the C runtime's free() when it is not null and sets
 * it to null. No other function of this interface hands out such a block.
 *
 * @param[in,out] ppItem address of the pointer to free. Must not be null.
 * @return 0, always.
 */
QVA_API int QVA_CALL QVA_FreeItem(void** ppItem);

/**
 * @brief Copies the general text of the last failed request.
 *
 * The text (see @ref qva_texts) is copied to @p pBuf without a terminating
 * zero and its length stored in @p *pnLen. It is kept after a later
 * success; on a fresh handle it is empty, and the result is 0 with
 * @p *pnLen set to 0.
 *
 * @param[in] hClient handle from QVA_Initialize().
 * @param[out] pBuf buffer of at least @p *pnLen bytes.
 * @param[in,out] pnLen in: the size of @p pBuf; out: the text's length.
 * @return 0; 2000, touching neither @p pBuf nor @p *pnLen, when @p hClient
 *   is null or @p *pnLen is below the text's length (a buffer exactly as
 *   long as the text is enough).
 */
QVA_API int QVA_CALL QVA_GetGeneralErrorMsg(void* hClient, char* pBuf, int* pnLen);

/**
 * @brief Copies the detail text of the last request.
 *
 * As QVA_GetGeneralErrorMsg() for the detail text (see @ref qva_texts): one
 * line per failing layer, outermost first, or the server's own explanation
 * when the server refused the request; empty after a success.
 *
 * @param[in] hClient handle from QVA_Initialize().
 * @param[out] pBuf buffer of at least @p *pnLen bytes.
 * @param[in,out] pnLen in: the size of @p pBuf; out: the text's length.
 * @return 0; 2000, touching neither @p pBuf nor @p *pnLen, when @p hClient
 *   is null or @p *pnLen is below the text's length.
 */
QVA_API int QVA_CALL QVA_GetDetailErrorMsg(void* hClient, char* pBuf, int* pnLen);

/**
 * @brief Destroys a client handle.
 *
 * @param[in] hClient handle from QVA_Initialize(); not usable afterwards.
 * @return 0; 2000 when @p hClient is null.
 */
QVA_API int QVA_CALL QVA_Release(void* hClient);

#ifdef __cplusplus
}
#endif

#endif /* QVA_QVA_H */
