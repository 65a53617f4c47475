// qva ts: prints a time-stamp token's TSTInfo and the result of its checks.
//
//   qva ts FILE     a token (ContentInfo) or a whole TimeStampResp, DER or
//                   PEM/Base64 text
//
// Exit status: 0 the token passes every check; 1 it is refused (the trace
// goes to stderr), or the response carries none (its status is printed); 2
// bad arguments or a file that cannot be read.
#include <cstdio>
#include <ctime>
#include <string>

#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RSignedData.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PGeneralNameUtil.h"
#include "ZENALib/QSProcess/PTimeStampResponseProcess.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "tools/qva/platform/display.h"
#include "tools/qva/messages.h"

// cms.cpp: DER, or PEM/Base64 text.
bool ReadDerOrText(const char* path, ByteString* out);

namespace {

std::string Hex(const ByteString& bs) {
  std::string s;
  char b[4];
  for (int i = 0; i < bs.length(); ++i) {
    std::snprintf(b, sizeof b, i + 1 < bs.length() ? "%02x:" : "%02x", bs.data()[i]);
    s += b;
  }
  return s;
}

std::string Dotted(const ByteString& blankOid) { return UDNSettings::Dotted(blankOid).c_str(); }

// The token inside a TimeStampResp (SEQUENCE { status, token }), or the
// input itself when it is a ContentInfo already. *pnStatus: the response's
// PKIStatus, -1 when there is none to read.
ByteString Token(const ByteString& der, int* pnStatus) {
  *pnStatus = -1;
  RContentInfo ci;
  if (ci.fromASN1Object(der) == 0) return der;
  RElementHeader outer, status, value, token;
  if (RReadHeader(der.data(), der.length(), &outer) || outer.contentLength < 0) return der;
  const unsigned char* p = der.data() + outer.headerLength;
  const int n = outer.contentLength;
  if (RReadHeader(p, n, &status) || status.first != 0x30 || status.contentLength < 0) return der;
  // PKIStatusInfo { status INTEGER (0..5), ... }: one content octet.
  if (RReadHeader(p + status.headerLength, status.contentLength, &value) == 0 && value.first == 0x02 &&
      value.contentLength == 1) {
    *pnStatus = p[status.headerLength + value.headerLength];
  }
  if (RReadHeader(p + status.totalLength, n - status.totalLength, &token)) return der;
  return ByteString(p + status.totalLength, token.totalLength);
}

}  // namespace

int RunTsCommand(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: qva ts FILE\n", stderr);
    return 2;
  }
  ByteString file;
  if (!ReadDerOrText(argv[2], &file)) return 2;
  int status = -1;
  const ByteString token = Token(file, &status);
  // The fields from the structure itself, whether the checks pass or not.
  RContentInfo ci;
  RSignedData sd;
  RTSTInfo info;
  if (ci.fromASN1Object(token) || sd.fromASN1Object(ci.getContent().getElement()) ||
      info.fromASN1Object(sd.getEncapContentInfo().getEContent().getValue())) {
    // A response that grants nothing (rejection, waiting) carries no token.
    static const char* const kStatus[] = {"granted", "grantedWithMods", "rejection", "waiting",
                                          "revocationWarning", "revocationNotification"};
    if (status >= 0) {
      std::printf("Time-stamp response:\n  Status: %d (%s)\n", status, status <= 5 ? kStatus[status] : "unknown");
      std::fprintf(stderr, "qva: %s: the response carries no time-stamp token\n", argv[2]);
      return 1;
    }
    std::fprintf(stderr, "qva: %s: not a time-stamp token\n", argv[2]);
    return 2;
  }
  std::printf("Time-stamp token:\n  SignedData version: %d\n  TSTInfo version: %d\n  Policy: %s\n",
              sd.getVersion().getInteger(), info.getVersion().getInteger(), Dotted(info.getPolicy().getOID()).c_str());
  std::printf("  Hash algorithm: %s\n  Hashed message: %s\n  Serial number: %s\n",
              Dotted(info.getMessageImprint().getHashAlgorithm().getAlgorithm().getOID()).c_str(),
              Hex(info.getMessageImprint().getHashedMessage().getValue()).c_str(),
              Hex(info.getSerialNumber().getValue()).c_str());
  char buf[32];
  const std::time_t t = info.getGenTime().getGMTTime();
  std::tm tm{};
  gmtime_r(&t, &tm);
  std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%S", &tm);
  std::printf("  Time: %s UTC\n  Ordering: %s\n", buf,
              info.hasOrdering() && info.getOrdering().getValue().length() && info.getOrdering().getValue().data()[0]
                  ? "yes"
                  : "no");
  if (info.hasAccuracy()) {
    RAccuracy& a = info.getAccuracy();
    std::printf("  Accuracy: %d s %d ms %d us\n", a.hasSeconds() ? a.getSeconds().getInteger() : 0,
                a.hasMillis() ? a.getMillis().getInteger() : 0, a.hasMicros() ? a.getMicros().getInteger() : 0);
  }
  if (info.hasNonce()) std::printf("  Nonce: %s\n", Hex(info.getNonce().getValue()).c_str());
  if (info.hasTsa()) {
    ByteString text;
    PGeneralNameUtil names;
    names.parseGeneralName(info.getTsa(), &text);
    std::string shown = ForDisplay(text.c_str(), text.length());
    while (!shown.empty() && shown.back() == '\n') shown.pop_back();
    std::printf("  TSA: %s\n", shown.c_str());
  }
  PTimeStampResponseProcess p;
  if (int rc = p.parseTimeStampToken(token)) {
    std::printf("Checks: refused (%d)\n", rc);
    std::fprintf(stderr, qva_msg::kFailed, p.getErrorMessage().c_str());
    return 1;
  }
  ByteString cert, subject;
  PCertUtil util;
  if (p.getTSACert(&cert) == 0 && util.parseCertificate(cert) == 0 && util.getSubjectDN(&subject) == 0) {
    std::printf("  TSA certificate: %s\n", ForDisplay(subject.c_str(), subject.length()).c_str());
  }
  std::printf("Checks: OK\n");
  return 0;
}
