#include "libaibase/clsecuremanager.h"

#include <utility>

#include "base/ByteString.h"
#include "base/ErrorCodes.h"
#include "libaibase/clalert.h"
#include "libaibase/clapplicationdata.h"
#include "libaibase/clhandshake.h"
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

// ---- handshake -------------------------------------------------------------

int CLSecureManager::Fail(const char* method, const char* what, const CErrorTrace& callee) {
  m_nErrorCode = callee.GetErrorCode();
  QVA_ERROR_TRACE(method, what, m_nErrorCode, callee.GetErrorMsg().c_str());
  return m_nErrorCode;
}

int CLSecureManager::MakeHandshake(const char* method, int handshakeType, const ByteString& data) {
  return RunRecordOp<CLHandshake>(
      this, &m_nErrorCode, &m_bsOutput, method, cl_text::kMakeHandshakeWhat,
      [&](CLHandshake& r) { return r.MakeHandshake(RECORD_VERSION, handshakeType, data); },
      [](CLHandshake& r) { return r.TakeRecord(); });
}

int CLSecureManager::ParseHandshake(const char* method, const ByteString& record, ByteString* data) {
  return RunRecordOp<CLHandshake>(
      this, &m_nErrorCode, data, method, cl_text::kParseHandshakeWhat,
      [&](CLHandshake& r) { return r.ParseHandshake(record); }, [](CLHandshake& r) { return r.TakeData(); });
}

void CLSecureManager::SetDataKey(const ByteString& r) {
  // A short R gives short (or empty) key parts; the cipher then refuses them.
  const int keyLength = r.length() < 24 ? r.length() : 24;
  m_bsDataKey.zeroize();
  m_bsDataIV.zeroize();
  m_bsDataKey = ByteString(r.data(), keyLength);
  m_bsDataIV = ByteString(r.data() + keyLength, r.length() > 32 ? 8 : r.length() - keyLength);
}

int CLSecureManager::MakeClientHello() {
  return MakeHandshake(cl_text::kManagerMakeClientHelloMethod, kClientHello, ByteString("Hello"));
}

int CLSecureManager::ProcessHandshake(const ByteString& record, bool* more) {
  using namespace cl_text;
  // A record too short to carry byte 6 has no handshake type.
  const int type = record.length() > 6 ? record.data()[6] : -1;
  struct Step {
    int (CLSecureManager::*parse)(const ByteString&);
    const char* parseName;
    int (CLSecureManager::*make)();
    const char* makeName;
    bool more;
  };
  static const Step kSteps[] = {
      {&CLSecureManager::ParseClientHello, kStepParseClientHello, &CLSecureManager::MakeServerHello,
       kStepMakeServerHello, true},
      {&CLSecureManager::ParseServerHello, kStepParseServerHello, &CLSecureManager::MakeClientKeyExchange,
       kStepMakeClientKeyExchange, true},
      {&CLSecureManager::ParseClientKeyExchange, kStepParseClientKeyExchange, &CLSecureManager::MakeServerKeyExchange,
       kStepMakeServerKeyExchange, false},
      {&CLSecureManager::ParseServerKeyExchange, kStepParseServerKeyExchange, nullptr, nullptr, false},
  };
  if (type < kClientHello || type > kServerKeyExchange) {
    m_nErrorCode = ERR_UNKNOWN_HANDSHAKE;
    QVA_ERROR_TRACE(kManagerProcessHandshakeMethod, kUnknownHandshakeType, m_nErrorCode, "");
    return m_nErrorCode;
  }
  const Step& step = kSteps[type - 1];
  if ((this->*step.parse)(record) != 0) {
    QVA_ERROR_TRACE(kManagerProcessHandshakeMethod, step.parseName, m_nErrorCode, "");
    return m_nErrorCode;
  }
  if (step.make && (this->*step.make)() != 0) {
    QVA_ERROR_TRACE(kManagerProcessHandshakeMethod, step.makeName, m_nErrorCode, "");
    return m_nErrorCode;
  }
  if (!step.make) m_bsOutput.clear();  // nothing to send after ServerKeyExchange
  *more = step.more;
  return m_nErrorCode = 0;
}

int CLSecureManager::ParseClientHello(const ByteString& record) {
  // The data ("Hello") is taken and not compared.
  ByteString data;
  return ParseHandshake(cl_text::kManagerParseClientHelloMethod, record, &data);
}

int CLSecureManager::MakeServerHello() {
  return MakeHandshake(cl_text::kManagerMakeServerHelloMethod, kServerHello, m_bsCertificate);
}

int CLSecureManager::ParseServerHello(const ByteString& record) {
  // Any bytes are taken as the certificate; checking it is the caller's choice.
  return ParseHandshake(cl_text::kManagerParseServerHelloMethod, record, &m_bsCertificate);
}

int CLSecureManager::MakeClientKeyExchange() {
  using namespace cl_text;
  const char* method = kManagerMakeClientHelloMethod;
  m_bsSessionSecret.zeroize();
  if (m_zenaWrapper.Random(kSecretLength, m_bsSessionSecret) >= 1)
    return Fail(method, kWrapperRandomWhat, m_zenaWrapper);
  ByteString envelope;
  if (m_zenaWrapper.EnvelopData(m_bsCertificate, m_bsSessionSecret, envelope) >= 1)
    return Fail(method, kWrapperEnvelopWhat, m_zenaWrapper);
  return MakeHandshake(method, kClientKeyExchange, envelope);
}

int CLSecureManager::ParseClientKeyExchange(const ByteString& record) {
  using namespace cl_text;
  ByteString envelope;
  if (ParseHandshake(kManagerParseClientHelloMethod, record, &envelope) != 0) return m_nErrorCode;
  m_bsSessionSecret.zeroize();
  if (m_zenaWrapper.OpenEnvelopedData(envelope, m_bsCertificate, m_bsPrivateKey, m_bsSessionSecret) >= 1)
    return Fail(kManagerParseClientKeyExchangeMethod, kWrapperOpenEnvelopWhat, m_zenaWrapper);
  return 0;
}

namespace {
// The key-exchange cipher's key and IV, the two parts of the session secret.
// A secret of another length gives parts the cipher refuses.
ByteString SecretKey(const ByteString& secret) {
  return ByteString(secret.data(), secret.length() < 24 ? secret.length() : 24);
}
ByteString SecretIV(const ByteString& secret) {
  if (secret.length() <= 24) return ByteString();
  return ByteString(secret.data() + 24, secret.length() - 24 < 8 ? secret.length() - 24 : 8);
}
}  // namespace

int CLSecureManager::MakeServerKeyExchange() {
  using namespace cl_text;
  const char* method = kManagerMakeServerHelloMethod;
  ByteString r;
  if (m_zenaWrapper.Random(kSecretLength, r) >= 1) return Fail(method, kWrapperRandomWhat, m_zenaWrapper);
  SetDataKey(r);
  ByteString key = SecretKey(m_bsSessionSecret), iv = SecretIV(m_bsSessionSecret);
  ByteString sealed;
  const int rc = m_zenaWrapper.Encrypt(key, iv, r, sealed);
  key.zeroize();
  iv.zeroize();
  r.zeroize();
  if (rc >= 1) return Fail(method, kWrapperEncryptWhat, m_zenaWrapper);
  return MakeHandshake(method, kServerKeyExchange, sealed);
}

int CLSecureManager::ParseServerKeyExchange(const ByteString& record) {
  using namespace cl_text;
  const char* method = kManagerParseServerKeyExchangeMethod;
  ByteString sealed;
  if (ParseHandshake(method, record, &sealed) != 0) return m_nErrorCode;
  ByteString key = SecretKey(m_bsSessionSecret), iv = SecretIV(m_bsSessionSecret);
  ByteString r;
  const int rc = m_zenaWrapper.Decrypt(key, iv, sealed, r);
  key.zeroize();
  iv.zeroize();
  if (rc >= 1) return Fail(method, kWrapperDecryptWhat, m_zenaWrapper);
  SetDataKey(r);
  r.zeroize();
  return 0;
}

// ---- application data ------------------------------------------------------

int CLSecureManager::MakeApplicationData(const ByteString& plaintext) {
  using namespace cl_text;
  // The same key and IV for every record: the protocol's design (see the header).
  ByteString ciphertext;
  if (m_zenaWrapper.Encrypt(m_bsDataKey, m_bsDataIV, plaintext, ciphertext) >= 1)
    return Fail(kManagerMakeApplicationDataMethod, kWrapperEncryptWhat, m_zenaWrapper);
  return RunRecordOp<CLApplicationData>(
      this, &m_nErrorCode, &m_bsOutput, kManagerMakeApplicationDataMethod, kMakeApplicationDataWhat,
      [&](CLApplicationData& r) { return r.MakeApplicationData(RECORD_VERSION, ciphertext); },
      [](CLApplicationData& r) { return r.TakeRecord(); });
}

int CLSecureManager::ParseApplicationData(const ByteString& record) {
  using namespace cl_text;
  ByteString ciphertext;
  const int rc = RunRecordOp<CLApplicationData>(
      this, &m_nErrorCode, &ciphertext, kManagerParseApplicationDataMethod, kParseApplicationDataWhat,
      [&](CLApplicationData& r) { return r.ParseApplicationData(record); },
      [](CLApplicationData& r) { return r.TakeData(); });
  if (rc != 0) return rc;
  ByteString plaintext;
  if (m_zenaWrapper.Decrypt(m_bsDataKey, m_bsDataIV, ciphertext, plaintext) >= 1)
    return Fail(kManagerParseApplicationDataMethod, kWrapperDecryptWhat, m_zenaWrapper);
  m_bsOutput = std::move(plaintext);
  return m_nErrorCode = 0;
}
