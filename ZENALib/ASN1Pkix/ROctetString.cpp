#include "ZENALib/ASN1Pkix/ROctetString.h"

#include <cstring>

#include "ZENALib/ASN1Pkix/RObject.h"
#include "base/Limits.h"
#include "ZENALib/ASN1/ASN1Messages.h"

namespace {

// Contents octets of the element with header h (end-of-contents excluded).
int ContentLength(const RElementHeader& h) {
  return h.contentLength >= 0 ? h.contentLength : h.totalLength - h.headerLength - 2;
}

}  // namespace

int ROctetString::joinSegments(const unsigned char* p, int n, int nDepth, unsigned char* pOut, int* pnLength) {
  // Segments nest; the same bound as for indefinite lengths keeps the recursion finite.
  if (nDepth > qva_limits::kMaxIndefiniteDepth) return R_ERR_FORMAT;
  for (int offset = 0; offset < n;) {
    RElementHeader h{};
    if (RReadHeader(p + offset, n - offset, &h) != 0) return R_ERR_FORMAT;
    if (h.tagClass() != ASN1_CLASS_UNIVERSAL || h.tagNo != ASN1_TAG_OCTETSTRING) return R_ERR_FORMAT;
    const unsigned char* content = p + offset + h.headerLength;
    if (h.constructed()) {
      if (joinSegments(content, ContentLength(h), nDepth + 1, pOut, pnLength) != 0) return R_ERR_FORMAT;
    } else {
      if (h.contentLength < 0) return R_ERR_FORMAT;  // a primitive segment has a definite length
      if (pOut && h.contentLength > 0)
        std::memcpy(pOut + *pnLength, content, static_cast<std::size_t>(h.contentLength));
      *pnLength += h.contentLength;  // never more than n: no overflow
    }
    offset += h.totalLength;
  }
  return 0;
}

int ROctetString::fromASN1View(const unsigned char* pData, int nData) {
  const unsigned char* p = pData;
  int n = nData;
  RElementHeader h{};
  if (RReadHeader(p, n, &h) != 0) return ASN1OctetString::fromASN1View(pData, nData);
  if (m_ucTaggedType == ASN1_EXPLICIT && h.constructed()) {
    // Look through the explicit tag at the element inside it, which the
    // codec does not check: it must be an OCTET STRING.
    p += h.headerLength;
    n = ContentLength(h);
    if (RReadHeader(p, n, &h) != 0) return ASN1OctetString::fromASN1View(pData, nData);
    if (h.tagClass() != ASN1_CLASS_UNIVERSAL || h.tagNo != ASN1_TAG_OCTETSTRING) {
      ASN1OctetString inner;
      const int rc = inner.fromASN1Object(ByteString(p, h.totalLength));
      return ASN1_FAIL("ROctetString", "fromASN1Object", "m_ucPrimitiveTag", rc != 0 ? rc : 2,
                       inner.getErrorMessage().c_str());
    }
  }
  // Primitive, or not an OCTET STRING at all: the base decodes or reports it.
  if (!h.constructed() || (h.tagClass() == ASN1_CLASS_UNIVERSAL && h.tagNo != ASN1_TAG_OCTETSTRING))
    return ASN1OctetString::fromASN1View(pData, nData);
  // Measured first, then copied into one block: appending segment by
  // segment would copy the value so far again for each (a streamed
  // megabyte comes in hundreds of segments).
  int total = 0, copied = 0;
  ByteString value;
  if (joinSegments(p + h.headerLength, ContentLength(h), 0, nullptr, &total) != 0 || value.resize(total) != BS_OK)
    return ASN1_FAIL("ROctetString", "fromASN1Object", "segment", R_ERR_FORMAT, asn1_msg::kFormatError);
  joinSegments(p + h.headerLength, ContentLength(h), 0, value.buffer(), &copied);
  m_bsValue.replace() = std::move(value);
  m_ucConstructed = 0;
  m_nErrorCode = 0;
  return 0;
}
