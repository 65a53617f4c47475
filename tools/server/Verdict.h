// Verdicts of the validation server: the code sent as the first item of the
// answer and the explanation sent as the second (Korean in code page 949,
// then the English form).
#pragma once

#include <string>

namespace qvaserver {

enum Verdict {
  kValid = 0,
  kMalformedRequest = 5001,
  kUnknownKind = 5002,
  kUnparsableCertificate = 5003,
  kUntrustedIssuer = 5004,
  kBadSignature = 5005,
  kNotYetValid = 5006,
  kExpired = 5007,
  kRevoked = 5008,
  kRevocationUnknown = 5009,
  kPolicyNotAccepted = 5010,
  kKeyUsage = 5011,
  kPathConstraints = 5012,
  kUnsupportedAlgorithm = 5013,
  kUnsupportedCritical = 5014,
  kInternalError = 5099,
};

// The fixed explanation of a verdict: the Korean text, " / ", the English one.
std::string VerdictText(Verdict v);
// The English form alone (for the access log and the documentation).
const char* VerdictEnglish(Verdict v);

struct Result {
  Verdict verdict = kValid;
  std::string detail;  // appended to the explanation after "; " when not empty
  std::string Explanation() const {
    std::string s = VerdictText(verdict);
    if (!detail.empty()) s += "; " + detail;
    return s;
  }
};

}  // namespace qvaserver
