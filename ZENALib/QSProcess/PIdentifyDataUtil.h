// PIdentifyDataUtil: the identity-verification (VID) check of a Korean PKI
// certificate (KCAC.TS.SIVID). The certificate's subjectAltName carries the
// otherName 1 2 410 200004 10 1 1 (IdentifyData) whose userInfo holds a VID:
// a hash algorithm and virtualID = h(h(DER of HashContent { idn, randomNum })),
// where randomNum is the random value kept with the subscriber's private key.
#pragma once

#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PIdentifyDataUtil : public PTrace {
 public:
  static constexpr int ERR_CERTIFICATE = 1;  // the certificate does not decode
  static constexpr int ERR_NO_VID = 2;       // no identifyData otherName with a VID
  static constexpr int ERR_HASH = 3;         // the VID's hash algorithm is unknown or fails
  static constexpr int ERR_MISMATCH = 4;     // the inputs do not give the certificate's VID

  PIdentifyDataUtil() : PTrace("PIdentifyDataUtil") {}

  // 0 when bsIdn (the subscriber's identification number, PrintableString
  // characters) and bsRandom (the random value's octets) give the first VID
  // of the certificate's identifyData.
  int verifyVIDWithCert(const ByteString& bsCert, const ByteString& bsIdn, const ByteString& bsRandom);
};
