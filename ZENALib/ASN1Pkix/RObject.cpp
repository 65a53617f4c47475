#include "ZENALib/ASN1Pkix/RObject.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "base/ByteReader.h"
#include "base/Limits.h"
#include "base/SecureZero.h"

namespace {

// Decoding of context-tagged constructed elements reads them as EXPLICIT,
// so an IMPLICIT constructed member is handed over under its universal
// identifier and gets its tag back afterwards.
ByteString RetagAsUniversal(const unsigned char* p, int n, const RElementHeader& h, unsigned char utag) {
  ByteString out;
  out.resize(n - h.idLength + 1);
  unsigned char* d = out.buffer();
  if (!d) return out;
  d[0] = static_cast<unsigned char>(utag | (h.first & ASN1_CONSTRUCTED));
  for (int i = h.idLength; i < n; ++i) d[i - h.idLength + 1] = p[i];
  return out;
}

}  // namespace

const char* RTagName(int tag) {
  switch (tag) {
    case ASN1_TAG_BOOLEAN: return "ASN1_TAG_BOOLEAN";
    case ASN1_TAG_INTEGER: return "ASN1_TAG_INTEGER";
    case ASN1_TAG_BITSTRING: return "ASN1_TAG_BITSTRING";
    case ASN1_TAG_OCTETSTRING: return "ASN1_TAG_OCTETSTRING";
    case ASN1_TAG_NULLTAG: return "ASN1_TAG_NULLTAG";
    case ASN1_TAG_OID: return "ASN1_TAG_OID";
    case ASN1_TAG_ENUMERATED: return "ASN1_TAG_ENUMERATED";
    case ASN1_TAG_UTF8STRING: return "ASN1_TAG_UTF8STRING";
    case ASN1_TAG_SEQUENCE: return "ASN1_TAG_SEQUENCE";
    case ASN1_TAG_SET: return "ASN1_TAG_SET";
    case ASN1_TAG_NUMERICSTRING: return "ASN1_TAG_NUMERICSTRING";
    case ASN1_TAG_PRINTABLESTRING: return "ASN1_TAG_PRINTABLESTRING";
    case ASN1_TAG_T61STRING: return "ASN1_TAG_T61STRING";
    case ASN1_TAG_IA5STRING: return "ASN1_TAG_IA5STRING";
    case ASN1_TAG_UTCTIME: return "ASN1_TAG_UTCTIME";
    case ASN1_TAG_GENERALIZEDTIME: return "ASN1_TAG_GENERALIZEDTIME";
    case ASN1_TAG_VISIBLESTRING: return "ASN1_TAG_VISIBLESTRING";
    case ASN1_TAG_BMPSTRING: return "ASN1_TAG_BMPSTRING";
    default: return "ASN1_TAG_UNKNOWN";
  }
}

int RReadHeader(const unsigned char* p, int n, RElementHeader* h) {
  if (!p || n < 2) return R_ERR_FORMAT;
  ByteReader r(p, static_cast<std::size_t>(n));
  TagLength t;
  if (r.readTagLength(&t) != BS_OK) return R_ERR_FORMAT;
  h->first = t.first;
  h->tagNo = static_cast<int>(t.tagNo);
  h->idLength = static_cast<int>(t.idLength);
  h->headerLength = static_cast<int>(t.headerLength);
  if (!t.indefinite) {
    h->contentLength = static_cast<int>(t.contentLength);
    h->totalLength = h->headerLength + h->contentLength;
    return 0;
  }
  std::size_t len = 0;
  if (r.findEndOfContents(&len) != BS_OK || len + 2 > r.remaining()) return R_ERR_FORMAT;
  h->contentLength = -1;
  h->totalLength = h->headerLength + static_cast<int>(len) + 2;
  return 0;
}

void RFirstComponentBytes(const ByteString& outer, ByteString* out) {
  out->clear();
  RElementHeader h{}, first{};
  const unsigned char* p = outer.data();
  const int n = outer.length();
  if (RReadHeader(p, n, &h) == 0 && RReadHeader(p + h.headerLength, n - h.headerLength, &first) == 0)
    out->setData(p + h.headerLength, first.totalLength);
}

RComponentWalk::RComponentWalk(unsigned char ucTag) : m_ucTag(ucTag) {}

RComponentWalk::~RComponentWalk() {
  if (m_pSeq) m_pSeq->~ASN1Sequence();
}

ASN1Sequence& RComponentWalk::table() {
  if (!m_pSeq)
    m_pSeq = m_ucTag == ASN1_TAG_SET ? static_cast<ASN1Sequence*>(new (m_storage) ASN1Set())
                                     : new (m_storage) ASN1Sequence();
  return *m_pSeq;
}

int RComponentWalk::open(const unsigned char* pData, int nData) {
  // A universal SEQUENCE or SET with a definite length inside the input is
  // what the sequence class would accept the same way; read it directly.
  bool plain = false;
  if (pData && nData >= 2 && pData[0] == (ASN1_CONSTRUCTED | m_ucTag)) {
    if (pData[1] < 0x80) {
      plain = pData[1] <= nData - 2;
      m_pContent = pData + 2;
      m_nContent = pData[1];
    } else {
      ByteReader h(pData + 1, static_cast<std::size_t>(nData - 1));
      std::uint32_t len = 0;
      bool indefinite = false;
      plain = h.readLength(&len, &indefinite) == BS_OK && !indefinite && len <= h.remaining();
      m_pContent = h.data();
      m_nContent = static_cast<int>(len);
    }
  }
  if (!plain)
    if (const int rc = table().borrowContents(pData, nData, &m_pContent, &m_nContent)) return rc;
  ByteReader r(m_pContent, static_cast<std::size_t>(m_nContent));
  int count = 0;
  while (!r.empty()) {
    const unsigned char* q = r.data();
    const std::size_t left = r.remaining();
    if (left >= 2 && q[1] < 0x80 && q[1] <= left - 2 && (q[0] & 0x1F) < 13) {
      // The usual component: a low tag below the reserved ones and a short length.
      if (count < kKept) m_aHeader[count] = RElementHeader{q[0], q[0] & 0x1F, 1, 2, q[1], q[1] + 2};
      r.skip(static_cast<std::size_t>(q[1]) + 2);
      ++count;
      continue;
    }
    TagLength t;
    const unsigned char first = r.data()[0];
    const unsigned char utag = static_cast<unsigned char>(first & 0x1F);
    // The component table refuses these universal tags; let it say so.
    const bool reserved = !(first & 0xC0) && ((utag >= 13 && utag <= 15) || utag == 29 || utag == 31);
    if (reserved || r.readTagLength(&t) != BS_OK || t.indefinite) {
      // The whole decode again, so a refusal carries the sequence's own trace.
      m_bTable = true;
      if (const int rc = table().borrowComponents(pData, nData)) return rc;
      m_nCount = m_pSeq->getComponentCount();
      return 0;
    }
    r.skip(t.contentLength);
    if (count < kKept) {
      RElementHeader& h = m_aHeader[count];
      h.first = t.first;
      h.tagNo = static_cast<int>(t.tagNo);
      h.idLength = static_cast<int>(t.idLength);
      h.headerLength = static_cast<int>(t.headerLength);
      h.contentLength = static_cast<int>(t.contentLength);
      h.totalLength = static_cast<int>(t.headerLength + t.contentLength);
    }
    ++count;
  }
  m_nCount = count;
  return 0;
}

bool RComponentWalk::next(const unsigned char** pp, int* pn, RElementHeader* ph, int* prc) {
  if (m_nNext >= m_nCount) return false;
  if (m_bTable) {
    m_pSeq->getComponentBytes(m_nNext++, pp, pn);
    if (ph) *prc = RReadHeader(*pp, *pn, ph);
    return true;
  }
  if (m_nNext < kKept) {
    // Read while counting: a definite length within the contents.
    const RElementHeader& kept = m_aHeader[m_nNext];
    *pp = m_pContent + m_nOffset;
    *pn = kept.totalLength;
    if (ph) {
      *ph = kept;
      *prc = 0;
    }
    m_nOffset += *pn;
    ++m_nNext;
    return true;
  }
  if (ph) {
    // A component open() vouched for: a definite length within the contents.
    ByteReader r(m_pContent + m_nOffset, static_cast<std::size_t>(m_nContent - m_nOffset));
    TagLength t;
    r.readTagLength(&t);
    *pp = m_pContent + m_nOffset;
    *pn = static_cast<int>(t.headerLength + t.contentLength);
    ph->first = t.first;
    ph->tagNo = static_cast<int>(t.tagNo);
    ph->idLength = static_cast<int>(t.idLength);
    ph->headerLength = static_cast<int>(t.headerLength);
    ph->contentLength = static_cast<int>(t.contentLength);
    ph->totalLength = *pn;
    // RReadHeader refuses an element of fewer than 2 octets; a header has 2.
    *prc = 0;
    m_nOffset += *pn;
    ++m_nNext;
    return true;
  }
  *pp = m_pContent + m_nOffset;
  ByteReader r(*pp, static_cast<std::size_t>(m_nContent - m_nOffset));
  TagLength t;
  r.readTagLength(&t);  // vouched for by open()
  *pn = static_cast<int>(t.headerLength + t.contentLength);
  m_nOffset += *pn;
  ++m_nNext;
  return true;
}

void RObject::releaseInput() {
  SecureZero(m_pInput, static_cast<std::size_t>(m_nInput));
  std::free(m_pInput);
  m_pInput = nullptr;
  m_nInput = 0;
}

int RObject::decodeOwned(const ByteString& bsData) {
  const int n = bsData.length();
  if (m_pInput || n <= 0) return fromASN1View(viewOf(bsData), n);
  m_pInput = static_cast<unsigned char*>(std::malloc(static_cast<std::size_t>(n)));
  if (!m_pInput) return fromASN1View(viewOf(bsData), n);  // without memory for the copy, values copy themselves
  std::memcpy(m_pInput, bsData.data(), static_cast<std::size_t>(n));
  m_nInput = n;
  m_bKeepViews = true;
  const int rc = fromASN1View(m_pInput, n);
  m_bKeepViews = false;
  return rc;
}

int RObject::failAt(const RSchema* schema, const char* method, const char* field, int code, const char* message) {
  const char* cls = schema ? schema->cls : className();
  return fail(schema ? schema->file : __FILE__, schema ? schema->line : __LINE__, cls, method, field, code,
              message);
}

ByteString& RObject::finishEncoding(ASN1Sequence& seq, const RSchema* schema) {
  if (m_ucTaggedType == ASN1_IMPLICIT) seq.setImplicitTag(m_nOptionTagNo, getTagClass());
  if (m_ucTaggedType == ASN1_EXPLICIT) seq.setExplicitTag(m_nOptionTagNo, getTagClass());
  ByteString& out = seq.toASN1Object();
  if (seq.getErrorCode() != 0) {
    failAt(schema, "toASN1Object", "asnSeq", seq.getErrorCode(), seq.getErrorMessage().c_str());
    m_bsEncoded.clear();
    return m_bsEncoded;
  }
  m_bsEncoded = std::move(out);
  return m_bsEncoded;
}

void RObject::applyFieldTag(const RField& f) {
  if (f.kind == RKind::Explicit) f.ref(*this).setExplicitTag(f.tag, ASN1_CLASS_CONTEXT);
  if (f.kind == RKind::Implicit) f.ref(*this).setImplicitTag(f.tag, ASN1_CLASS_CONTEXT);
}

int RObject::explicitHeader(std::uint64_t nInner, unsigned char* out) const {
  if (m_nOptionTagNo < 0 || nInner > static_cast<std::uint64_t>(INT32_MAX)) return -1;
  const unsigned char cls = static_cast<unsigned char>(getTagClass() | ASN1_CONSTRUCTED);
  int n = 0;
  if (m_nOptionTagNo < 31) {
    out[n++] = static_cast<unsigned char>(cls | m_nOptionTagNo);
  } else {
    out[n++] = static_cast<unsigned char>(cls | 0x1F);
    n += putBase128(out + n, static_cast<std::uint32_t>(m_nOptionTagNo));
  }
  return n + putLength(out + n, static_cast<std::uint32_t>(nInner));
}

int RObject::constructedHeader(unsigned char ucTag, std::uint64_t nContent, Header* h) const {
  const unsigned char cls =
      m_ucTaggedType == ASN1_EXPLICIT ? static_cast<unsigned char>(getTagClass() | ASN1_CONSTRUCTED) : getTagClass();
  return buildHeader(ucTag, m_ucTaggedType, m_nOptionTagNo, cls, 0, nContent, h);
}

bool RObject::encodeOnePass() {
  const std::int64_t n = encodedLength();
  if (n < 0) return false;
  ByteWriter w;
  w.reserve(static_cast<std::size_t>(n));
  ByteString out;
  if (encodeTo(w) != 0 || w.size() != static_cast<std::size_t>(n) || w.finish(&out) != BS_OK) return false;
  m_bsEncoded = std::move(out);
  return true;
}

int RObject::wrapExplicit(const ByteString& inner, ByteString* out) const {
  ByteWriter w;
  const unsigned char cls = static_cast<unsigned char>(getTagClass() | ASN1_CONSTRUCTED);
  if (m_nOptionTagNo < 0) return R_ERR_FORMAT;
  if (m_nOptionTagNo < 31) {
    w.u8(static_cast<std::uint8_t>(cls | m_nOptionTagNo));
  } else {
    unsigned char digits[5];
    int nd = 0;
    for (std::uint32_t v = static_cast<std::uint32_t>(m_nOptionTagNo); v; v >>= 7) digits[nd++] = v & 0x7F;
    w.u8(static_cast<std::uint8_t>(cls | 0x1F));
    while (nd--) w.u8(static_cast<std::uint8_t>(digits[nd] | (nd ? 0x80 : 0)));
  }
  unsigned char len[8];
  w.bytes(len, static_cast<std::size_t>(putLength(len, static_cast<std::uint32_t>(inner.length())))).bytes(inner);
  return w.finish(out) == BS_OK ? 0 : R_ERR_FORMAT;
}

int RObject::unwrapExplicit(const unsigned char** p, int* n) {
  RElementHeader h{};
  if (RReadHeader(*p, *n, &h) != 0 || !h.constructed()) return R_ERR_FORMAT;
  const int inner = h.contentLength >= 0 ? h.contentLength : h.totalLength - h.headerLength - 2;
  *p += h.headerLength;
  *n = inner;
  return 0;
}

int RObject::encodeField(const RSchema* schema, const RField& f, ASN1Sequence& seq) {
  ASN1Object& m = f.ref(*this);
  applyFieldTag(f);
  const ByteString& enc = m.toASN1Object();
  if (m.getErrorCode() != 0)
    return failAt(schema, "toASN1Object", f.member, m.getErrorCode(), m.getErrorMessage().c_str());
  const int rc = (f.kind == RKind::Explicit || f.kind == RKind::Implicit) ? seq.addComponent(enc, f.tag)
                                                                         : seq.addComponent(enc);
  if (rc != 0) return failAt(schema, "toASN1Object", "asnSeq", rc, seq.getErrorMessage().c_str());
  return 0;
}

int RObject::decodeField(const RSchema* schema, const RField& f, const unsigned char* p, int n) {
  ASN1Object& m = f.ref(*this);
  if (f.kind == RKind::Universal || f.kind == RKind::Any) {
    if (const int rc = decodeChild(m, p, n))
      return failAt(schema, "fromASN1Object", f.member, rc, m.getErrorMessage().c_str());
    return 0;
  }
  const auto tag = [&] {
    if (f.kind == RKind::Explicit)
      m.setExplicitTag(f.tag, ASN1_CLASS_CONTEXT);
    else
      m.setImplicitTag(f.tag, ASN1_CLASS_CONTEXT);
  };
  tag();
  RElementHeader h{};
  const unsigned char utag = m.getPrimitiveTag();
  int rc;
  if (f.kind == RKind::Implicit && utag != ASN1_TAG_NONE && RReadHeader(p, n, &h) == 0 && h.constructed()) {
    rc = m.fromASN1Object(RetagAsUniversal(p, n, h, utag));
  } else {
    rc = decodeChild(m, p, n);
  }
  if (rc != 0) return failAt(schema, "fromASN1Object", f.member, rc, m.getErrorMessage().c_str());
  tag();  // decoding may have replaced the tagging with what the data said
  return 0;
}
