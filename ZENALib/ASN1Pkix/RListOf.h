// RListOf<T>: the engine of every SEQUENCE OF and SET OF class.
//
//   class RExtensions : public RListOf<RExtension> {
//    public:
//     RExtensions() : RListOf("RExtensions") {}
//   };
//
// Items keep the order in which they were decoded or added (a SET OF built
// from DER input therefore encodes back to the same bytes).
#pragma once

#include <utility>

#include "ZENALib/ASN1Pkix/RItems.h"
#include "ZENALib/ASN1Pkix/RObject.h"

class RListBase : public RObject {
 public:
  const char* className() const override { return m_szClass; }
  ByteString& toASN1Object() override;
  std::int64_t encodedLength() override;
  int encodeTo(ByteWriter& w) override;
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;
  virtual int getCount() const = 0;
  void detachViews() override;

 protected:
  RListBase(const char* szClass, unsigned char ucTag) : RObject(ucTag), m_szClass(szClass) {}
  virtual ASN1Object& itemAt(int i) = 0;
  virtual ASN1Object& appendItem() = 0;
  virtual void removeAllItems() = 0;
  virtual void reserveItems(int n) = 0;

 private:
  // The decode of plain contents (every item a plain header): 0, or -1 when
  // anything is out of the ordinary or fails.
  int decodePlain(const unsigned char* c, int n);

  const char* m_szClass;
};

template <typename T>
class RListOf : public RListBase {
 public:
  int getCount() const override { return static_cast<int>(m_items.size()); }
  // Item i, or null when i is out of range.
  T* getAt(int i) { return i >= 0 && i < getCount() ? &m_items[static_cast<std::size_t>(i)] : nullptr; }
  const T* getAt(int i) const { return i >= 0 && i < getCount() ? &m_items[static_cast<std::size_t>(i)] : nullptr; }
  void add(const T& item) { m_items.push_back(item); }
  void removeAll() { m_items.clear(); }
  const RItems<T>& items() const { return m_items; }

  RListOf(const RListOf&) = default;
  RListOf& operator=(const RListOf&) = default;
  // The items change hands without being moved one by one, so values that
  // point into the source's input are copied out first.
  RListOf(RListOf&& other) noexcept : RListBase(std::move(other)), m_items(std::move(other.m_items)) {
    for (T& item : m_items) item.detachViews();
  }
  RListOf& operator=(RListOf&& other) noexcept {
    RListBase::operator=(std::move(other));
    m_items = std::move(other.m_items);
    for (T& item : m_items) item.detachViews();
    return *this;
  }
  ~RListOf() override = default;

 protected:
  explicit RListOf(const char* szClass, unsigned char ucTag = ASN1_TAG_SEQUENCE) : RListBase(szClass, ucTag) {}
  ASN1Object& itemAt(int i) override { return m_items[static_cast<std::size_t>(i)]; }
  ASN1Object& appendItem() override {
    m_items.emplace_back();
    return m_items.back();
  }
  void removeAllItems() override { m_items.clear(); }
  void reserveItems(int n) override { m_items.reserve(static_cast<std::size_t>(n)); }

  RItems<T> m_items;
};

// A SET OF collection.
template <typename T>
class RSetOf : public RListOf<T> {
 protected:
  explicit RSetOf(const char* szClass) : RListOf<T>(szClass, ASN1_TAG_SET) {}
};
