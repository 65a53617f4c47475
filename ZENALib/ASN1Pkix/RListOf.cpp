#include "ZENALib/ASN1Pkix/RListOf.h"

#include "ZENALib/ASN1/ASN1Set.h"

ByteString& RListBase::toASN1Object() {
  m_nErrorCode = 0;
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
  // The items are walked in place: no copy of the contents.
  RComponentWalk walk(m_ucPrimitiveTag == ASN1_TAG_SET ? ASN1_TAG_SET : ASN1_TAG_SEQUENCE);
  int rc = walk.open(pData, nData);
  if (rc != 0) return failAt(nullptr, "fromASN1Object", "asnSeq", rc, walk.sequence().getErrorMessage().c_str());
  // Room for every item at once: growing would copy the items decoded so far.
  reserveItems(walk.count());
  const unsigned char* p = nullptr;
  int n = 0;
  while (walk.next(&p, &n)) {
    ASN1Object& item = appendItem();
    if ((rc = item.fromASN1View(p, n)) != 0)
      return failAt(nullptr, "fromASN1Object", "m_items", rc, item.getErrorMessage().c_str());
  }
  return 0;
}
