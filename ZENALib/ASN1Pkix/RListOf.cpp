#include "ZENALib/ASN1Pkix/RListOf.h"

#include "ZENALib/ASN1/ASN1Set.h"
#include "base/ByteReader.h"

std::int64_t RListBase::encodedLength() {
  std::int64_t content = 0;
  for (int i = 0; i < getCount(); ++i) {
    const std::int64_t n = itemAt(i).encodedLength();
    if (n < 0) return -1;
    content += n;
  }
  Header h;
  if (constructedHeader(m_ucPrimitiveTag == ASN1_TAG_SET ? ASN1_TAG_SET : ASN1_TAG_SEQUENCE,
                        static_cast<std::uint64_t>(content), &h) != 0)
    return -1;
  m_nContentLength = content;
  return h.nOuter + h.nInner + content;
}

int RListBase::encodeTo(ByteWriter& w) {
  Header h;
  if (constructedHeader(m_ucPrimitiveTag == ASN1_TAG_SET ? ASN1_TAG_SET : ASN1_TAG_SEQUENCE,
                        static_cast<std::uint64_t>(m_nContentLength), &h) != 0)
    return -1;
  w.bytes(h.outer, static_cast<std::size_t>(h.nOuter)).bytes(h.inner, static_cast<std::size_t>(h.nInner));
  for (int i = 0; i < getCount(); ++i)
    if (itemAt(i).encodeTo(w) != 0) return -1;
  return 0;
}

ByteString& RListBase::toASN1Object() {
  m_nErrorCode = 0;
  if (encodeOnePass()) return m_bsEncoded;
  // Item by item, so a failure is reported with the item's trace.
  ASN1Set set;
  ASN1Sequence sequence;
  ASN1Sequence& asnSeq = m_ucPrimitiveTag == ASN1_TAG_SET ? set : sequence;
  for (int i = 0; i < getCount(); ++i) {
    ASN1Object& item = itemAt(i);
    const ByteString& enc = item.toASN1Object();
    if (item.getErrorCode() != 0) {
      failAt(nullptr, "toASN1Object", "m_items", item.getErrorCode(), item.getErrorMessage().c_str());
      m_bsEncoded.clear();
      return m_bsEncoded;
    }
    if (const int rc = asnSeq.addComponent(enc); rc != 0) {
      failAt(nullptr, "toASN1Object", "asnSeq", rc, asnSeq.getErrorMessage().c_str());
      m_bsEncoded.clear();
      return m_bsEncoded;
    }
  }
  return finishEncoding(asnSeq, nullptr);
}

int RListBase::fromASN1View(const unsigned char* pData, int nData) {
  m_nErrorCode = 0;
  removeAllItems();
  const unsigned char tag = m_ucPrimitiveTag == ASN1_TAG_SET ? ASN1_TAG_SET : ASN1_TAG_SEQUENCE;
  const unsigned char* c = nullptr;
  int nc = 0;
  if (RPlainContents(pData, nData, tag, &c, &nc) && decodePlain(c, nc) == 0) return 0;
  // Anything out of the ordinary, or a failure: the general walk decodes
  // again and reports it exactly.
  m_nErrorCode = 0;
  removeAllItems();
  // The items are walked in place: no copy of the contents.
  RComponentWalk walk(tag);
  int rc = walk.open(pData, nData);
  if (rc != 0) return failAt(nullptr, "fromASN1Object", "asnSeq", rc, walk.sequence().getErrorMessage().c_str());
  // Room for every item at once: growing would copy the items decoded so far.
  reserveItems(walk.count());
  const unsigned char* p = nullptr;
  int n = 0;
  while (walk.next(&p, &n)) {
    ASN1Object& item = appendItem();
    if ((rc = decodeChild(item, p, n)) != 0)
      return failAt(nullptr, "fromASN1Object", "m_items", rc, item.getErrorMessage().c_str());
  }
  return 0;
}

void RListBase::detachViews() {
  RObject::detachViews();
  for (int i = 0; i < getCount(); ++i) itemAt(i).detachViews();
}

int RListBase::decodePlain(const unsigned char* c, int n) {
  const unsigned char* const end = c + n;
  RElementHeader h;
  int count = 0;
  for (const unsigned char* q = c; q < end; q += h.totalLength, ++count)
    if (!RPlainHeader(q, static_cast<std::size_t>(end - q), &h)) return -1;
  // Room for every item at once: growing would move the items decoded so far.
  reserveItems(count);
  for (const unsigned char* q = c; q < end; q += h.totalLength) {
    RPlainHeader(q, static_cast<std::size_t>(end - q), &h);  // read above
    if (decodeChild(appendItem(), q, h.totalLength) != 0) return -1;
  }
  return 0;
}
