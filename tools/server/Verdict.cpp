#include "tools/server/Verdict.h"

#include "base/Messages.h"

namespace qvaserver {
namespace {

struct Row {
  Verdict verdict;
  const char* korean;
  const char* english;
};

constexpr Row kRows[] = {
    {kMalformedRequest, qva_msg::kSrvMalformedRequest, "malformed request"},
    {kUnknownKind, qva_msg::kSrvUnknownKind, "unknown kind of item"},
    {kUnparsableCertificate, qva_msg::kSrvUnparsableCert, "the certificate cannot be parsed"},
    {kUntrustedIssuer, qva_msg::kSrvUntrustedIssuer, "no path to a trusted anchor"},
    {kBadSignature, qva_msg::kSrvBadSignature, "a signature on the path does not verify"},
    {kNotYetValid, qva_msg::kSrvNotYetValid, "a certificate on the path is not yet valid"},
    {kExpired, qva_msg::kSrvExpired, "a certificate on the path has expired"},
    {kRevoked, qva_msg::kSrvRevoked, "a certificate on the path is revoked"},
    {kRevocationUnknown, qva_msg::kSrvRevocationUnknown, "revocation status unknown"},
    {kPolicyNotAccepted, qva_msg::kSrvPolicyNotAccepted, "certificate policy not accepted"},
    {kKeyUsage, qva_msg::kSrvKeyUsage, "key usage does not allow this use"},
    {kPathConstraints, qva_msg::kSrvPathConstraints, "CA flag, path length or name constraints violated"},
    {kUnsupportedAlgorithm, qva_msg::kSrvUnsupportedAlgorithm, "unsupported algorithm"},
    {kUnsupportedCritical, qva_msg::kSrvUnsupportedCritical, "a critical extension or constraint on the path is not supported"},
    {kInternalError, qva_msg::kSrvInternalError, "internal error"},
};

const Row* Find(Verdict v) {
  for (const Row& r : kRows)
    if (r.verdict == v) return &r;
  return nullptr;
}

}  // namespace

std::string VerdictText(Verdict v) {
  const Row* r = Find(v);
  if (!r) return "";
  return std::string(r->korean) + " / " + r->english;
}

const char* VerdictEnglish(Verdict v) {
  const Row* r = Find(v);
  return r ? r->english : "valid";
}

}  // namespace qvaserver
