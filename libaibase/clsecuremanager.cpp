#include "libaibase/clsecuremanager.h"

#include <utility>

#include "base/ByteString.h"
#include "libaibase/clalert.h"
#include "libaibase/clmessages.h"
#include "libaibase/clplain.h"

namespace {

// Runs one record operation on a fresh record object; on success the
// manager's output receives what `take` extracts from it, on failure the
// manager records method/label with the record's code and trace.
template <typename Record, typename Op, typename Take>
int RunRecordOp(CErrorTrace* self, int* code, ByteString* output, const char* method, const char* label, Op op,
                Take take) {
  Record rec;
  *code = op(rec);
  if (*code != 0) {
    self->QVA_ERROR_TRACE(method, label, *code, rec.GetErrorMsg().c_str());
    return *code;
  }
  *output = take(rec);
  return 0;
}

}  // namespace

CLSecureManager::CLSecureManager(const ByteString* certificate, const ByteString* privateKey) {
  if (certificate && certificate->length() > 0) m_bsCertificate = *certificate;
  if (privateKey && privateKey->length() > 0) m_bsPrivateKey = *privateKey;
}

CLSecureManager::~CLSecureManager() { Release(); }

void CLSecureManager::Release() {
  // Key material is wiped before its buffers go back to the allocator.
  for (ByteString* secret : {&m_bsSessionSecret, &m_bsDataKey, &m_bsDataIV, &m_bsPrivateKey}) secret->zeroize();
  for (ByteString* bs : {&m_bsSessionSecret, &m_bsOutput, &m_bsDataKey, &m_bsDataIV, &m_bsCertificate, &m_bsPrivateKey})
    bs->clear();
}

ByteString CLSecureManager::TakeOutput() { return std::move(m_bsOutput); }

int CLSecureManager::MakePlainData(const ByteString& data) {
  return RunRecordOp<CLPlain>(
      this, &m_nErrorCode, &m_bsOutput, cl_text::kManagerMakePlainMethod, cl_text::kManagerMakePlainWhat,
      [&](CLPlain& r) { return r.MakePlain(RECORD_VERSION, data); }, [](CLPlain& r) { return r.TakeRecord(); });
}

int CLSecureManager::CheckPlainData(const CLEncoder& data) {
  if (PlainRecord(data).Fits()) return m_nErrorCode = 0;
  // The same failure MakePlainData reports for a record too long to store.
  m_nErrorCode = BS_NO_MEMORY;
  QVA_ERROR_TRACE(cl_text::kManagerMakePlainMethod, cl_text::kManagerMakePlainWhat, m_nErrorCode, "");
  return m_nErrorCode;
}

int CLSecureManager::ParsePlain(const ByteString& record) {
  return RunRecordOp<CLPlain>(
      this, &m_nErrorCode, &m_bsOutput, cl_text::kManagerParsePlainMethod, cl_text::kManagerParsePlainWhat,
      [&](CLPlain& r) { return r.ParsePlain(record); }, [](CLPlain& r) { return r.TakeData(); });
}

int CLSecureManager::ParsePlain(const ByteString& record, ByteReader* data) {
  ByteString untouched;
  return RunRecordOp<CLPlain>(
      this, &m_nErrorCode, &untouched, cl_text::kManagerParsePlainMethod, cl_text::kManagerParsePlainWhat,
      [&](CLPlain& r) { return r.ParsePlain(record, data); }, [](CLPlain&) { return ByteString(); });
}

int CLSecureManager::MakeAlert(const ByteString& data) {
  return RunRecordOp<CLAlert>(
      this, &m_nErrorCode, &m_bsOutput, cl_text::kManagerMakeAlertMethod, cl_text::kManagerMakeAlertWhat,
      [&](CLAlert& r) { return r.MakeAlert(RECORD_VERSION, data); }, [](CLAlert& r) { return r.TakeRecord(); });
}

int CLSecureManager::ParseAlert(const ByteString& record) {
  return RunRecordOp<CLAlert>(
      this, &m_nErrorCode, &m_bsOutput, cl_text::kManagerParseAlertMethod, cl_text::kManagerParseAlertWhat,
      [&](CLAlert& r) { return r.ParseAlert(record); }, [](CLAlert& r) { return r.TakeData(); });
}

bool CLSecureManager::IsAlert(const ByteString& record) { return CLAlert::IsAlert(record); }

bool CLSecureManager::IsPlain(const ByteString& record) { return CLPlain::IsPlain(record); }
