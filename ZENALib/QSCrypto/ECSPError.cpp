// Result texts of the core and the licence gate.
#include <cstdio>

#include "ZENALib/QSCrypto/ECSP.h"

namespace {

struct ErrorRow {
  int nCode;
  const char* pszText;
};

constexpr ErrorRow kRows[] = {
    {ECSP_OK, "Successfully completed."},
    {ECSP_FAIL, "Incompletely terminated."},
    {ECSP_INVALID_DATA, "Invalid input or output data."},
    {ECSP_MEMORY_ERROR, "Memory allocation failed."},
    {ECSP_NOT_ENOUGH_BUFFER, "Output buffer is not enough."},
    {ECSP_INVALID_MODE, "Invalid algorithm mode."},
    {ECSP_INVALID_ALGORITHM, "Invalid algorithm identifier."},
    {ECSP_INVALID_KEY_POINTER, "Invalid key pointer."},
    {ECSP_INVALID_KEY, "Invalid key value."},
    {ECSP_INVALID_DATA_POINTER, "Invalid input or output data pointer"},
    {ECSP_INVALID_INIT_VECTOR, "Initial vector required."},
    {ECSP_STAGED_OPERATION_FAILED, "Staged operation failed."},
    {ECSP_INVALID_FILE_POINTER, "Invalid file pointer."},
    {ECSP_INVALID_CLASS, "Invalid class."},
    {ECSP_ASN1_OPERATION_FAILED, "ASN.1 parsing error."},
    {ECSP_INVALID_ENCRYPTED_DATA, "Invalid encrypted data."},
    {ECSP_INVALID_SIGNATURE, "Invalid signature format."},
    {ECSP_VERIFY_FAIL, "Verification of signature or MAC failed."},
};

constexpr const char* kStageText[] = {"", "Init stage;", "Update stage;", "Final stage;"};

}  // namespace

const char* getECSPErrorText(int nCode) {
  thread_local char szText[100];
  // Negative codes never come from the core; they take the stage-less form
  // and the generic row instead of indexing with a negative number.
  const int stage = nCode < 0 ? 0 : (nCode % 10000) / 1000;
  const int row = nCode < 0 ? ECSP_FAIL : nCode % 1000;
  const char* pszStage = stage < 4 ? kStageText[stage] : "";
  const char* pszRow = kRows[1].pszText;  // an unknown row reads as a plain failure
  for (const ErrorRow& r : kRows) {
    if (r.nCode == row) {
      pszRow = r.pszText;
      break;
    }
  }
  std::snprintf(szText, sizeof(szText), "%s %s(%d)", pszStage, pszRow, nCode);
  return szText;
}

int ECSP_CheckLicense() { return ECSP_OK; }
