// Validator: certificate path validation against trust anchors and
// intermediates read from directories, with revocation from a directory of
// CRLs that is read again when its files change.
//
// Safe to call from several worker threads at once: the anchors and
// intermediates do not change after Load, and the CRL set is replaced as a
// whole under a lock, each parsed CRL asked under its own lock.
#pragma once

#include <cstdint>
#include <ctime>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "base/ByteString.h"
#include "tools/server/Verdict.h"

class PCertUtil;

namespace qvaserver {

struct ValidatorConfig {
  std::string anchorDir;
  std::string intermediateDir;
  std::string crlDir;                 // empty: revocation is not checked
  std::vector<std::string> policies;  // dotted OIDs; empty: any policy
  std::time_t fixedTime = 0;          // 0: validate at the time of the request
};

struct CrlSet;

class Validator {
 public:
  Validator();
  ~Validator();
  // Reads the anchors and intermediates (DER or PEM, one per file) and the
  // CRLs; false with *error naming the file that could not be read.
  bool Load(const ValidatorConfig& config, std::string* error);

  // The verdict on a certificate (DER or PEM).
  Result ValidateCertificate(const ByteString& input);
  // The verdict on a CMS SignedData: its signature, then its signer's certificate.
  Result ValidateSigned(const ByteString& input, ByteString* signerCert);

  // A certificate's DER from DER or PEM input, refusing bytes after the
  // outer SEQUENCE; false when it is neither.
  static bool ToDer(const ByteString& input, ByteString* der);

  std::size_t AnchorCount() const { return anchors_.size(); }
  std::size_t IntermediateCount() const { return intermediates_.size(); }

  struct Cert {
    ByteString der;
    ByteString subject;
    ByteString issuer;
    ByteString spki;
    std::string subjectKey;  // the names as compared (case and spacing folded)
    std::string issuerKey;
    std::int64_t notBefore = 0;
    std::int64_t notAfter = 0;
    int keyUsage = -1;  // PCERT_KU_* bits, -1 without keyUsage
  };

 private:
  std::time_t Now() const;
  std::shared_ptr<CrlSet> Crls();
  // The verdict on a described certificate at `when`; *anchor (when given)
  // is set to the anchor of the path that passed. `depth` counts the
  // separate CRL signers being validated around this search.
  Result Search(const Cert& leaf, std::time_t when, int depth, const Cert** anchor);
  Result CheckPath(const std::vector<const Cert*>& path, std::time_t when, int depth);
  static Result CheckPolicies(const std::vector<const Cert*>& path,
                              const std::vector<std::unique_ptr<PCertUtil>>& utils);

  ValidatorConfig config_;
  std::vector<Cert> anchors_;
  std::vector<Cert> intermediates_;
  std::mutex crlMutex_;
  std::shared_ptr<CrlSet> crls_;
  std::string crlStamp_;  // names, sizes and times of the files the set was read from
  std::time_t crlChecked_ = 0;
};

}  // namespace qvaserver
