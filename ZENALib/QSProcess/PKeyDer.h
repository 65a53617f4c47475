// Small DER helpers of the key classes: bounded walks over an element's
// components (certificate to its key, key to its modulus) and the SEQUENCE
// wrapping of the KCDSA key form the crypto core takes.
#pragma once

#include "base/ByteString.h"

namespace pkeyder {

// A view of one element inside a buffer.
struct Element {
  const unsigned char* p = nullptr;  // first identifier octet
  int n = 0;                         // whole element
  int header = 0;                    // identifier and length octets
  unsigned char first = 0;
  const unsigned char* content() const { return p + header; }
  int contentLength() const { return n - header; }
};

// The element at (p, n): low tag number, definite length; false when it is
// malformed or runs past n.
bool Read(const unsigned char* p, int n, Element* out);
// The components of a constructed element, at most nMax of them; the count,
// or -1 when the contents do not split into whole elements.
int Components(const Element& outer, Element* out, int nMax);
// The SubjectPublicKeyInfo element of a DER certificate; false when the
// certificate's outline cannot be walked.
bool CertificateSPKI(const ByteString& bsCert, Element* out);
// The octets of an unsigned INTEGER's magnitude (leading zeros left out).
int IntegerBytes(const Element& integer);
// SEQUENCE { contents }.
ByteString Sequence(const ByteString& contents);

}  // namespace pkeyder
