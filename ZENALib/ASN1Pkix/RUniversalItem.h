// RUniversalItem<T>: the item type of a SEQUENCE OF or SET OF a universal
// type (OBJECT IDENTIFIER, INTEGER, PrintableString ...).
//
// The codec's typed classes take any tagged element as their own type under
// an implicit tag, and write it back tagged: an item of such a list has no
// tag, so a tagged element in its place is refused here (R_ERR_TAG) rather
// than taken and re-encoded differently. Universal elements go to T, which
// checks the tag number itself.
#pragma once

#include "ZENALib/ASN1Pkix/RObject.h"
#include "ZENALib/ASN1Pkix/RMessages.h"

template <typename T>
class RUniversalItem : public T {
 public:
  RUniversalItem() = default;
  RUniversalItem(const T& v) : T(v) {}  // NOLINT: an item is made from a value of its type

  int fromASN1Object(const ByteString& bsData) override {
    return fromASN1View(ASN1Object::viewOf(bsData), bsData.length());
  }
  int fromASN1View(const unsigned char* pData, int nData) override {
    RElementHeader h{};
    if (RReadHeader(pData, nData, &h) != 0 || h.tagClass() == ASN1_CLASS_UNIVERSAL)
      return T::fromASN1View(pData, nData);
    ByteString msg;
    msg.format(r_msg::kItemNotTag, RTagName(this->getPrimitiveTag()));
    return this->fail(__FILE__, __LINE__, "RUniversalItem", "fromASN1Object", "bsData", R_ERR_TAG, msg.c_str());
  }
};
