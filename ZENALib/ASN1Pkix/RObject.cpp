#include "ZENALib/ASN1Pkix/RObject.h"

#include "base/ByteReader.h"
#include "base/Limits.h"

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
  std::uint8_t b = 0;
  r.readU8(&h->first);
  h->tagNo = h->first & 0x1F;
  if (h->tagNo == 0x1F) {
    // High tag number: at most three more identifier octets.
    h->tagNo = 0;
    int extra = 0;
    do {
      if (++extra >= qva_limits::kMaxTagOctets || r.readU8(&b) != BS_OK) return R_ERR_FORMAT;
      h->tagNo = (h->tagNo << 7) | (b & 0x7F);
    } while (b & 0x80);
  }
  h->idLength = n - static_cast<int>(r.remaining());
  if (r.readU8(&b) != BS_OK) return R_ERR_FORMAT;
  if (b < 0x80) {
    h->contentLength = b;
  } else if (b == 0x80) {
    h->contentLength = -1;
  } else {
    const int octets = b & 0x7F;
    if (octets > qva_limits::kMaxLengthOctets) return R_ERR_FORMAT;
    std::uint32_t len = 0;
    for (int i = 0; i < octets; ++i) {
      if (r.readU8(&b) != BS_OK) return R_ERR_FORMAT;
      len = (len << 8) | b;
    }
    if (len > static_cast<std::uint32_t>(INT32_MAX)) return R_ERR_FORMAT;
    h->contentLength = static_cast<int>(len);
  }
  h->headerLength = n - static_cast<int>(r.remaining());
  if (h->contentLength >= 0) {
    if (static_cast<std::size_t>(h->contentLength) > r.remaining()) return R_ERR_FORMAT;
    h->totalLength = h->headerLength + h->contentLength;
  } else {
    ASN1Object scanner;
    int len = 0;
    if (scanner.findIndefiniteLengEnd(p + h->headerLength, n - h->headerLength, &len) != 0) return R_ERR_FORMAT;
    if (len > n - h->headerLength - 2) return R_ERR_FORMAT;
    h->totalLength = h->headerLength + len + 2;
  }
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

RObject::RObject(unsigned char ucTag) { m_ucPrimitiveTag = ucTag; }

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
  ASN1Object& m = f.ref(*this);
  if (f.kind == RKind::Explicit) m.setExplicitTag(f.tag, ASN1_CLASS_CONTEXT);
  if (f.kind == RKind::Implicit) m.setImplicitTag(f.tag, ASN1_CLASS_CONTEXT);
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

bool RObject::fieldMatches(const RField& f, const RElementHeader& h) {
  switch (f.kind) {
    case RKind::Universal:
      return h.tagClass() == ASN1_CLASS_UNIVERSAL && h.tagNo < 32 && ((f.tags >> h.tagNo) & 1u);
    case RKind::Any:
      return true;
    case RKind::Explicit:
    case RKind::Implicit:
      return h.tagClass() == ASN1_CLASS_CONTEXT && h.tagNo == f.tag;
  }
  return false;
}

int RObject::decodeField(const RSchema* schema, const RField& f, const unsigned char* p, int n) {
  ASN1Object& m = f.ref(*this);
  applyFieldTag(f);
  RElementHeader h{};
  const unsigned char utag = m.getPrimitiveTag();
  int rc;
  if (f.kind == RKind::Implicit && utag != ASN1_TAG_NONE && RReadHeader(p, n, &h) == 0 && h.constructed()) {
    rc = m.fromASN1Object(RetagAsUniversal(p, n, h, utag));
  } else {
    rc = m.fromASN1View(p, n);
  }
  if (rc != 0) return failAt(schema, "fromASN1Object", f.member, rc, m.getErrorMessage().c_str());
  applyFieldTag(f);  // decoding may have replaced the tagging with what the data said
  return 0;
}
