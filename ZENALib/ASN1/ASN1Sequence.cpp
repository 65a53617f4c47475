#include "ZENALib/ASN1/ASN1Sequence.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "base/ByteReader.h"
#include "ZENALib/ASN1/ASN1Codes.h"
#include "ZENALib/ASN1/ASN1Messages.h"

namespace {

const char kClass[] = "ASN1Sequence";
constexpr int kGrowBy = 20;

}  // namespace

ASN1Sequence::ASN1Sequence(const ASN1Sequence& other)
    : ASN1Object(other),
      m_nComponentCount(0),
      m_nComponentCapacity(0),
      m_pBorrowed(other.m_pBorrowed),
      m_nBorrowed(other.m_nBorrowed) {
  if (other.m_nComponentCount > 0) {
    pComponentInfo.reset(new (std::nothrow) ComponentInfo[other.m_nComponentCapacity]());
    if (pComponentInfo) {
      std::copy(other.pComponentInfo.get(), other.pComponentInfo.get() + other.m_nComponentCount,
                pComponentInfo.get());
      m_nComponentCount = other.m_nComponentCount;
      m_nComponentCapacity = other.m_nComponentCapacity;
    }
  }
}

ASN1Sequence& ASN1Sequence::operator=(const ASN1Sequence& other) {
  if (this != &other) {
    ASN1Sequence copy(other);
    *this = std::move(copy);
  }
  return *this;
}

ASN1Sequence::ASN1Sequence(ASN1Sequence&& other) noexcept
    : ASN1Object(std::move(other)),
      m_nComponentCount(other.m_nComponentCount),
      m_nComponentCapacity(other.m_nComponentCapacity),
      pComponentInfo(std::move(other.pComponentInfo)),
      m_pBorrowed(other.m_pBorrowed),
      m_nBorrowed(other.m_nBorrowed) {
  other.m_pBorrowed = nullptr;
  other.m_nBorrowed = 0;
  other.m_nComponentCount = 0;
  other.m_nComponentCapacity = 0;
}

ASN1Sequence& ASN1Sequence::operator=(ASN1Sequence&& other) noexcept {
  if (this != &other) {
    ASN1Object::operator=(std::move(other));
    m_nComponentCount = other.m_nComponentCount;
    m_nComponentCapacity = other.m_nComponentCapacity;
    pComponentInfo = std::move(other.pComponentInfo);
    m_pBorrowed = other.m_pBorrowed;
    m_nBorrowed = other.m_nBorrowed;
    other.m_pBorrowed = nullptr;
    other.m_nBorrowed = 0;
    other.m_nComponentCount = 0;
    other.m_nComponentCapacity = 0;
  }
  return *this;
}

int ASN1Sequence::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1Sequence::fromASN1View(const unsigned char* pData, int nData) {
  return decodeConstructed(__FILE__, __LINE__, pData, nData, kClass, ASN1_TAG_SEQUENCE,
                           "TagType(%d)is not ASN1_TAG_SEQUENCE");
}

int ASN1Sequence::decodeConstructed(const char* szFile, int nLine, const unsigned char* pData, int nData,
                                    const char* szClass, unsigned char ucTag, const char* szTagFormat) {
  m_nComponentCount = 0;
  m_pBorrowed = nullptr;
  m_nBorrowed = 0;
  const unsigned char* content = nullptr;
  int contentLength = 0;
  if (const int rc = decodeTyped(szFile, nLine, pData, nData, szClass, ucTag, szTagFormat,
                                 m_bBorrow ? &content : nullptr, m_bBorrow ? &contentLength : nullptr))
    return rc;
  if (m_bBorrow) {
    m_bsValue.replace().clear();
    // A zero-length contents keeps a non-null view so contents() stays on it.
    m_pBorrowed = content;
    m_nBorrowed = contentLength;
  }
  if (m_bNoTable) return 0;
  if (ExtractComponentInfo() != 0)
    return failChained(szFile, nLine, szClass, "fromASN1Object", "ExtractComponentInfo", asn1_code::kComponents);
  return 0;
}

int ASN1Sequence::borrowContents(const unsigned char* pData, int nData, const unsigned char** ppContent,
                                 int* pnContent) {
  m_bBorrow = m_bNoTable = true;
  const int rc = fromASN1View(pData, nData);
  m_bBorrow = m_bNoTable = false;
  *ppContent = rc == 0 ? m_pBorrowed : nullptr;
  *pnContent = rc == 0 ? m_nBorrowed : 0;
  return rc;
}

int ASN1Sequence::borrowComponents(const unsigned char* pData, int nData) {
  m_bBorrow = true;
  const int rc = fromASN1View(pData, nData);
  m_bBorrow = false;
  return rc;
}

int ASN1Sequence::ReallocCompontntInfo() {
  // Steps of 20 entries; a large table grows by half its size (in whole steps)
  // so that a SEQUENCE OF with very many members is not copied quadratically.
  const int step = std::max(kGrowBy, m_nComponentCapacity / 2 / kGrowBy * kGrowBy);
  if (m_nComponentCapacity > INT32_MAX / static_cast<int>(sizeof(ComponentInfo)) - step)
    return ASN1_FAIL(kClass, "ReallocCompontntInfo", "pComponentInfo", asn1_code::kComponentFailed,
                     asn1_msg::kMemoryError);
  const int capacity = m_nComponentCapacity + step;
  std::unique_ptr<ComponentInfo[]> table(new (std::nothrow) ComponentInfo[capacity]());
  if (!table)
    return ASN1_FAIL(kClass, "ReallocCompontntInfo", "pComponentInfo", asn1_code::kComponentFailed,
                     asn1_msg::kMemoryError);
  // Every old entry moves over: a walk in progress fills entries ahead of the published count.
  if (m_nComponentCapacity > 0)
    std::copy(pComponentInfo.get(), pComponentInfo.get() + m_nComponentCapacity, table.get());
  pComponentInfo = std::move(table);
  m_nComponentCapacity = capacity;
  return 0;
}

int ASN1Sequence::ExtractComponentInfo() {
  static const char kMethod[] = "ExtractComponentInfo";
  m_nComponentCount = 0;
  const unsigned char* const p = contents();
  const int n = contentsLength();
  ByteReader r(p, static_cast<std::size_t>(n));
  int count = 0;
  // The table is published only when the whole value has been walked.
  auto failWalk = [&](int rc) {
    m_nComponentCount = 0;
    return rc;
  };
  while (!r.empty()) {
    const unsigned char* const start = r.data();
    std::uint8_t id = 0;
    r.readU8(&id);
    unsigned char tag = 0, tagged = 0;
    int tagNo = 0;
    if (checkASN1Member(id, &tag, &tagged, &tagNo, nullptr) != 0)
      return failWalk(ASN1_FAIL_CHAINED(kClass, kMethod, "checkASN1Member", asn1_code::kWalkBadIdentifier));
    if (count == m_nComponentCapacity && ReallocCompontntInfo() != 0)
      return failWalk(ASN1_FAIL_CHAINED(kClass, kMethod, "ReallocCompontntInfo", asn1_code::kWalkTableGrowth));
    if (tagged == ASN1_HIGHTAG) {
      const int used = GetHighTag(start, static_cast<int>(r.remaining()) + 1, &tagNo, true);
      if (!used) return failWalk(ASN1_FAIL_CHAINED(kClass, kMethod, "GetHighTag", asn1_code::kWalkBadHighTag));
      r.skip(static_cast<std::size_t>(used - 1));
    }
    ComponentInfo& entry = pComponentInfo[count];
    entry.nOffset = static_cast<int>(start - p);
    entry.nTagKey = tagged == ASN1_UNTAGGED ? -static_cast<int>(tag) : tagNo;

    std::uint32_t len = 0;
    bool indefinite = false;
    if (r.readLength(&len, &indefinite) != BS_OK)
      return failWalk(ASN1_FAIL(kClass, kMethod, "nValueLen", asn1_code::kWalkLengthPast, asn1_msg::kLengthError));
    if (indefinite) {
      int inner = 0;
      if (findIndefiniteLengEnd(r.data(), static_cast<int>(r.remaining()), &inner) != 0)
        return failWalk(ASN1_FAIL_CHAINED(kClass, kMethod, "findIndefiniteLengEnd", asn1_code::kWalkIndefiniteNoEnd));
      len = static_cast<std::uint32_t>(inner) + 2;
    }
    if (r.skip(len) != BS_OK)
      return failWalk(ASN1_FAIL(kClass, kMethod, "nValueLen", asn1_code::kWalkLengthPast, asn1_msg::kLengthError));
    ++count;
  }
  for (int i = 0; i < count; ++i) {
    const int end = i + 1 < count ? pComponentInfo[i + 1].nOffset : n;
    pComponentInfo[i].nLength = end - pComponentInfo[i].nOffset;
  }
  m_nComponentCount = count;
  return 0;
}

int ASN1Sequence::addComponent(const ByteString& bsComponent, int nTagKey) {
  static const char kMethod[] = "addComponent";
  // An empty component gets its (zero-length) table entry like any other, so
  // the table still counts every component added.
  if (m_nComponentCount == m_nComponentCapacity && ReallocCompontntInfo() != 0)
    return ASN1_FAIL_CHAINED(kClass, kMethod, "ReallocCompontntInfo", asn1_code::kComponentFailed);
  if (m_pBorrowed) {
    // Building on a borrowed walk starts from a value of its own.
    if (m_bsValue.replace().setData(m_pBorrowed, m_nBorrowed) != BS_OK)
      return ASN1_FAIL(kClass, kMethod, "m_bsValue", asn1_code::kComponentFailed, asn1_msg::kMemoryError);
    m_pBorrowed = nullptr;
    m_nBorrowed = 0;
  }
  ByteString& value = m_bsValue.owned();
  const int offset = value.length();
  if (value.append(bsComponent.data(), bsComponent.length()) != BS_OK)
    return ASN1_FAIL(kClass, kMethod, "m_bsValue", asn1_code::kComponentFailed, asn1_msg::kMemoryError);
  pComponentInfo[m_nComponentCount] = ComponentInfo{offset, bsComponent.length(), nTagKey};
  ++m_nComponentCount;
  return 0;
}

int ASN1Sequence::addComponent(const ByteString& bsComponent) {
  if (bsComponent.length() == 0) return addComponent(bsComponent, 0);
  unsigned char tag = 0, tagged = 0;
  int tagNo = 0;
  if (checkASN1Member(bsComponent.data()[0], &tag, &tagged, &tagNo, nullptr) != 0)
    return ASN1_FAIL_CHAINED(kClass, "addComponent", "checkASN1Member", asn1_code::kComponentFailed);
  if (tagged == ASN1_HIGHTAG && !GetHighTag(bsComponent.data(), bsComponent.length(), &tagNo, true))
    return ASN1_FAIL_CHAINED(kClass, "addComponent", "GetHighTag", asn1_code::kComponentFailed);
  return addComponent(bsComponent, tagged == ASN1_UNTAGGED ? -static_cast<int>(tag) : tagNo);
}

const ASN1Sequence::ComponentInfo* ASN1Sequence::getComponentInfo(int nIndex) const {
  if (nIndex < 0 || nIndex >= m_nComponentCount) return nullptr;
  return &pComponentInfo[nIndex];
}

ByteString& ASN1Sequence::getComponent(int nIndex) {
  const ComponentInfo* info = getComponentInfo(nIndex);
  if (!info) {
    m_nErrorCode = asn1_code::kNoComponent;
    m_bsEncoded.clear();
    return m_bsEncoded;
  }
  m_bsEncoded.setData(contents() + info->nOffset, info->nLength);
  return m_bsEncoded;
}

int ASN1Sequence::getComponentBytes(int nIndex, const unsigned char** ppData, int* pnLength) const {
  const ComponentInfo* info = getComponentInfo(nIndex);
  if (!info) return asn1_code::kNoComponent;
  if (ppData) *ppData = contents() + info->nOffset;
  if (pnLength) *pnLength = info->nLength;
  return 0;
}

int ASN1Sequence::getComponentOptionTagNo(int nIndex) const {
  const ComponentInfo* info = getComponentInfo(nIndex);
  return info ? info->nTagKey : -1;
}

int ASN1Sequence::getComponentTag(int nIndex) const {
  const ComponentInfo* info = getComponentInfo(nIndex);
  if (!info) return -1;
  // The key of a universal tag 0 equals that of a [0] member; the identifier
  // octet itself tells them apart.
  const unsigned char id = contents()[info->nOffset];
  if (id & 0xC0) return -2;
  return -info->nTagKey;
}

void ASN1Sequence::removeAllComponents() {
  m_bsValue.replace().clear();
  m_pBorrowed = nullptr;
  m_nBorrowed = 0;
  m_nComponentCount = 0;
}

int ASN1Sequence::afterSetValue() {
  m_pBorrowed = nullptr;
  m_nBorrowed = 0;
  return ExtractComponentInfo();
}
