#include "ZENALib/ASN1Pkix/RStructure.h"

#include "ZENALib/ASN1/ASN1Set.h"
#include "base/ByteReader.h"
#include "ZENALib/ASN1Pkix/RMessages.h"

int RStructure::fieldIndex(const ASN1Object& member) const {
  const RSchema& s = schema();
  auto& self = const_cast<RStructure&>(*this);
  for (int i = 0; i < s.nFields; ++i)
    if (&s.fields[i].ref(self) == &member) return i;
  return -1;
}

bool RStructure::isPresent(const ASN1Object& member) const {
  const int i = fieldIndex(member);
  if (i < 0) return false;
  if (!(schema().fields[i].flags & (R_OPTIONAL | R_VERSION))) return true;
  return (m_nPresent >> i) & 1u;
}

void RStructure::setPresent(const ASN1Object& member, bool present) {
  const int i = fieldIndex(member);
  if (i < 0 || i >= 64) return;
  if (present)
    m_nPresent |= std::uint64_t{1} << i;
  else
    m_nPresent &= ~(std::uint64_t{1} << i);
}

void RStructure::componentDecoded(const ASN1Object&, const unsigned char*, int) {}

int RStructure::checkCountRule(int nCount) {
  const RCountRule& r = schema().count;
  bool ok = true;
  switch (r.kind) {
    case RCountRule::None: break;
    case RCountRule::AtLeast: ok = nCount >= r.n; break;
    case RCountRule::Exactly: ok = nCount == r.n; break;
    case RCountRule::Between: ok = nCount >= r.n && nCount <= r.m; break;
  }
  if (ok) return 0;
  return failAt(&schema(), "fromASN1Object", "nCount", R_ERR_COUNT, r.message);
}

std::int64_t RStructure::encodedLength() {
  const RSchema& s = schema();
  std::int64_t content = 0;
  for (int i = 0; i < s.nFields; ++i) {
    const RField& f = s.fields[i];
    if ((f.flags & (R_OPTIONAL | R_VERSION)) && !((m_nPresent >> i) & 1u)) continue;
    applyFieldTag(f);
    const std::int64_t n = f.ref(*this).encodedLength();
    if (n < 0) return -1;
    content += n;
  }
  Header h;
  if (constructedHeader(s.tag, static_cast<std::uint64_t>(content), &h) != 0) return -1;
  m_nContentLength = content;
  return h.nOuter + h.nInner + content;
}

int RStructure::encodeTo(ByteWriter& w) {
  const RSchema& s = schema();
  Header h;
  if (constructedHeader(s.tag, static_cast<std::uint64_t>(m_nContentLength), &h) != 0) return -1;
  w.bytes(h.outer, static_cast<std::size_t>(h.nOuter)).bytes(h.inner, static_cast<std::size_t>(h.nInner));
  for (int i = 0; i < s.nFields; ++i) {
    const RField& f = s.fields[i];
    if ((f.flags & (R_OPTIONAL | R_VERSION)) && !((m_nPresent >> i) & 1u)) continue;
    if (f.ref(*this).encodeTo(w) != 0) return -1;
  }
  return 0;
}

ByteString& RStructure::toASN1Object() {
  const RSchema& s = schema();
  m_nErrorCode = 0;
  if (encodeOnePass()) return m_bsEncoded;
  // Member by member, so a failure is reported with the member's trace.
  ASN1Set set;
  ASN1Sequence sequence;
  ASN1Sequence& asnSeq = s.tag == ASN1_TAG_SET ? set : sequence;
  for (int i = 0; i < s.nFields; ++i) {
    const RField& f = s.fields[i];
    if ((f.flags & (R_OPTIONAL | R_VERSION)) && !((m_nPresent >> i) & 1u)) continue;
    if (encodeField(&s, f, asnSeq) != 0) {
      m_bsEncoded.clear();
      return m_bsEncoded;
    }
  }
  return finishEncoding(asnSeq, &s);
}

int RStructure::fromASN1View(const unsigned char* pData, int nData) {
  const RSchema& s = schema();
  m_nErrorCode = 0;
  m_nPresent = 0;
  const unsigned char* c = nullptr;
  int n = 0;
  if (RPlainContents(pData, nData, s.tag, &c, &n) && decodePlain(s, c, n) == 0) return 0;
  m_nErrorCode = 0;
  m_nPresent = 0;
  return decodeWalked(s, pData, nData);
}

int RStructure::decodePlain(const RSchema& s, const unsigned char* c, int n) {
  const unsigned char* const end = c + n;
  RElementHeader h{};
  bool pending = c < end;
  if (pending && !RPlainHeader(c, static_cast<std::size_t>(end - c), &h)) return -1;
  int count = 0;
  for (int i = 0; i < s.nFields; ++i) {
    const RField& f = s.fields[i];
    if (!pending || !fieldMatches(f, h)) {
      if (f.flags & R_VERSION) {
        f.ref(*this).setValue("\x00", 1);
        continue;
      }
      if (f.flags & R_OPTIONAL) continue;
      return -1;
    }
    // An untagged member needs no tagging around it (decodeField does the rest).
    const bool untagged = f.kind == RKind::Universal || f.kind == RKind::Any;
    if ((untagged ? decodeChild(f.ref(*this), c, h.totalLength) : decodeField(&s, f, c, h.totalLength)) != 0)
      return -1;
    if (s.componentHook) componentDecoded(f.ref(*this), c, h.totalLength);
    if (i < 64) m_nPresent |= std::uint64_t{1} << i;
    c += h.totalLength;
    ++count;
    pending = c < end;
    if (pending && !RPlainHeader(c, static_cast<std::size_t>(end - c), &h)) return -1;
  }
  // Components after the last known one are ignored, but counted.
  for (; c < end; c += h.totalLength, ++count)
    if (!RPlainHeader(c, static_cast<std::size_t>(end - c), &h)) return -1;
  return checkCount(count) == 0 ? 0 : -1;
}

int RStructure::decodeWalked(const RSchema& s, const unsigned char* pData, int nData) {
  // The components are walked in place: no copy of the contents.
  RComponentWalk walk(s.tag);
  int rc = walk.open(pData, nData);
  if (rc != 0) return failAt(&s, "fromASN1Object", "asnSeq", rc, walk.sequence().getErrorMessage().c_str());
  const int count = walk.count();
  if ((rc = checkCount(count)) != 0) return rc;

  const unsigned char* p = nullptr;
  int n = 0;
  RElementHeader h{};
  int hrc = 0;
  bool pending = walk.next(&p, &n, &h, &hrc);  // the next unread component, if any
  for (int i = 0; i < s.nFields; ++i) {
    const RField& f = s.fields[i];
    const bool have = pending && hrc == 0;
    if (!have || !fieldMatches(f, h)) {
      if (f.flags & R_VERSION) {
        // Absent version: v1 (0), and the component index does not advance.
        f.ref(*this).setValue("\x00", 1);
        continue;
      }
      if (f.flags & R_OPTIONAL) continue;
      ByteString msg;
      if (!have)
        msg.format(r_msg::kComponentMissing, f.name);
      else if (f.kind == RKind::Universal)
        msg.format(r_msg::kComponentNotTag, f.name, RTagName(f.tag));
      else
        msg.format(r_msg::kComponentNotContext, f.name, f.tag);
      return failAt(&s, "fromASN1Object", f.member, R_ERR_TAG, msg.c_str());
    }
    if ((rc = decodeField(&s, f, p, n)) != 0) return rc;
    if (s.componentHook) componentDecoded(f.ref(*this), p, n);
    if (i < 64) m_nPresent |= std::uint64_t{1} << i;
    pending = walk.next(&p, &n, &h, &hrc);
  }
  // Components after the last known one (extensions of the schema) are ignored.
  return 0;
}

void RStructure::detachViews() {
  RObject::detachViews();
  const RSchema& s = schema();
  for (int i = 0; i < s.nFields; ++i)
    if (const ASN1Object* m = s.fields[i].peek(*this)) const_cast<ASN1Object*>(m)->detachViews();
}
