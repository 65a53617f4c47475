#include "ZENALib/ASN1Pkix/RRevokedCertificates.h"

#include <cstring>

#include "ZENALib/ASN1/ASN1Messages.h"
#include "base/ByteReader.h"

int RRevokedCertificates::getCount() const {
  return isKept() ? static_cast<int>(m_offsets.size() - 1) : RListOf::getCount();
}

RRevokedCertificate& RRevokedCertificates::entry(int i) const {
  auto it = m_built.find(i);
  if (it != m_built.end()) return it->second;
  RRevokedCertificate& e = m_built[i];
  const std::size_t at = m_offsets[static_cast<std::size_t>(i)];
  // Decoded once already, when the list was: it cannot fail now.
  e.fromASN1View(m_bsEntries.data() + at, static_cast<int>(m_offsets[static_cast<std::size_t>(i) + 1] - at));
  return e;
}

RRevokedCertificate* RRevokedCertificates::getAt(int i) {
  if (i < 0 || i >= getCount()) return nullptr;
  return isKept() ? &entry(i) : &m_items[static_cast<std::size_t>(i)];
}

const RRevokedCertificate* RRevokedCertificates::getAt(int i) const {
  return const_cast<RRevokedCertificates*>(this)->getAt(i);
}

void RRevokedCertificates::unpack() const {
  if (!isKept()) return;
  auto& items = const_cast<RItems<RRevokedCertificate>&>(m_items);
  const int n = getCount();
  items.clear();
  items.reserve(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) items.push_back(entry(i));
  m_built.clear();
  m_offsets.clear();
  m_bsEntries.replace().clear();
}

const RItems<RRevokedCertificate>& RRevokedCertificates::items() const {
  unpack();
  return m_items;
}

void RRevokedCertificates::add(const RRevokedCertificate& item) {
  unpack();
  m_items.push_back(item);
}

void RRevokedCertificates::removeAll() { removeAllItems(); }

ASN1Object& RRevokedCertificates::itemAt(int i) {
  unpack();
  return m_items[static_cast<std::size_t>(i)];
}

ASN1Object& RRevokedCertificates::appendItem() {
  unpack();
  return RListOf::appendItem();
}

void RRevokedCertificates::removeAllItems() {
  m_items.clear();
  m_built.clear();
  m_offsets.clear();
  m_bsEntries.replace().clear();
  m_nVerbatim = -1;
}

void RRevokedCertificates::reserveItems(int n) {
  if (!isKept()) RListOf::reserveItems(n);
}

int RRevokedCertificates::fromASN1View(const unsigned char* pData, int nData) {
  m_nErrorCode = 0;
  removeAllItems();
  RComponentWalk walk(ASN1_TAG_SEQUENCE);
  int rc = walk.open(pData, nData);
  if (rc != 0) return failAt(nullptr, "fromASN1Object", "asnSeq", rc, walk.sequence().getErrorMessage().c_str());
  const int count = walk.count();
  if (count == 0) return 0;
  std::vector<std::uint32_t> offsets;
  offsets.reserve(static_cast<std::size_t>(count) + 1);
  // Every entry is checked by decoding it into one scratch object.
  RRevokedCertificate scratch;
  const unsigned char* p = nullptr;
  const unsigned char* first = nullptr;
  int n = 0;
  while (walk.next(&p, &n)) {
    if (!first) first = p;
    if ((rc = scratch.fromASN1View(p, n)) != 0)
      return failAt(nullptr, "fromASN1Object", "m_items", rc, scratch.getErrorMessage().c_str());
    offsets.push_back(static_cast<std::uint32_t>(p - first));
  }
  const std::size_t total = static_cast<std::size_t>(p + n - first);
  offsets.push_back(static_cast<std::uint32_t>(total));
  if (m_bKeepViews)
    m_bsEntries.setView(first, static_cast<int>(total));
  else if (m_bsEntries.replace().setData(first, static_cast<int>(total)) != BS_OK)
    return failAt(nullptr, "fromASN1Object", "m_bsEntries", 1, asn1_msg::kMemoryError);
  m_offsets = std::move(offsets);
  return 0;
}

bool RRevokedCertificates::verbatim() {
  if (m_nVerbatim < 0) {
    // An entry received in another form than its own encoding (long or
    // indefinite lengths, constructed strings, a tag the decoder looks
    // through) is written as it encodes, not as it came.
    RRevokedCertificate scratch;
    m_nVerbatim = 1;
    for (std::size_t i = 0; i + 1 < m_offsets.size() && m_nVerbatim; ++i) {
      const unsigned char* p = m_bsEntries.data() + m_offsets[i];
      const int n = static_cast<int>(m_offsets[i + 1] - m_offsets[i]);
      if (scratch.fromASN1View(p, n) != 0) {
        m_nVerbatim = 0;
        break;
      }
      const ByteString& enc = scratch.toASN1Object();
      if (enc.length() != n || std::memcmp(enc.data(), p, static_cast<std::size_t>(n)) != 0) m_nVerbatim = 0;
    }
  }
  return m_nVerbatim == 1;
}

std::int64_t RRevokedCertificates::encodedLength() {
  if (isKept() && !verbatim()) unpack();
  if (!isKept()) return RListOf::encodedLength();
  std::int64_t content = m_bsEntries.length();
  for (auto& [i, e] : m_built) {
    const std::int64_t n = e.encodedLength();
    if (n < 0) return -1;
    content += n - (m_offsets[static_cast<std::size_t>(i) + 1] - m_offsets[static_cast<std::size_t>(i)]);
  }
  Header h;
  if (constructedHeader(ASN1_TAG_SEQUENCE, static_cast<std::uint64_t>(content), &h) != 0) return -1;
  m_nContentLength = content;
  return h.nOuter + h.nInner + content;
}

int RRevokedCertificates::encodeTo(ByteWriter& w) {
  if (!isKept()) return RListOf::encodeTo(w);
  Header h;
  if (constructedHeader(ASN1_TAG_SEQUENCE, static_cast<std::uint64_t>(m_nContentLength), &h) != 0) return -1;
  w.bytes(h.outer, static_cast<std::size_t>(h.nOuter)).bytes(h.inner, static_cast<std::size_t>(h.nInner));
  // The bytes between built entries as received, each built entry encoded anew.
  std::size_t from = 0;
  for (auto& [i, e] : m_built) {
    const std::size_t at = m_offsets[static_cast<std::size_t>(i)];
    w.bytes(m_bsEntries.data() + from, at - from);
    if (e.encodeTo(w) != 0) return -1;
    from = m_offsets[static_cast<std::size_t>(i) + 1];
  }
  w.bytes(m_bsEntries.data() + from, static_cast<std::size_t>(m_bsEntries.length()) - from);
  return 0;
}

void RRevokedCertificates::detachViews() {
  RListOf::detachViews();
  m_bsEntries.detach();
}
