#include "ZENALib/ASN1Pkix/RChoice.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

#include "base/ByteReader.h"
#include "ZENALib/ASN1/ASN1Messages.h"

void RChoice::select(const ASN1Object& member) {
  const RSchema& s = schema();
  // Alternatives never built cannot be `member`; peeking leaves them unbuilt.
  for (int i = 0; i < s.nFields; ++i)
    if (s.fields[i].peek(*this) == &member) m_nSelected = i;
}

bool RChoice::isSelected(const ASN1Object& member) const {
  return m_nSelected >= 0 && schema().fields[m_nSelected].peek(*this) == &member;
}

std::int64_t RChoice::encodedLength() {
  if (m_nSelected < 0) return -1;
  const RField& f = schema().fields[m_nSelected];
  applyFieldTag(f);
  const std::int64_t n = f.ref(*this).encodedLength();
  if (n < 0) return -1;
  m_nContentLength = n;
  if (m_ucTaggedType != ASN1_EXPLICIT) return n;
  unsigned char header[16];
  const int nh = explicitHeader(static_cast<std::uint64_t>(n), header);
  return nh < 0 ? -1 : nh + n;
}

int RChoice::encodeTo(ByteWriter& w) {
  if (m_nSelected < 0) return -1;
  if (m_ucTaggedType == ASN1_EXPLICIT) {
    unsigned char header[16];
    const int nh = explicitHeader(static_cast<std::uint64_t>(m_nContentLength), header);
    if (nh < 0) return -1;
    w.bytes(header, static_cast<std::size_t>(nh));
  }
  return schema().fields[m_nSelected].ref(*this).encodeTo(w);
}

ByteString& RChoice::toASN1Object() {
  const RSchema& s = schema();
  m_nErrorCode = 0;
  if (encodeOnePass()) return m_bsEncoded;
  m_bsEncoded.clear();
  if (m_nSelected < 0) {
    failAt(&s, "toASN1Object", "m_nSelected", R_ERR_CHOICE, r_msg::kNoAlternative);
    return m_bsEncoded;
  }
  const RField& f = s.fields[m_nSelected];
  ASN1Object& m = f.ref(*this);
  applyFieldTag(f);
  const ByteString& enc = m.toASN1Object();
  if (m.getErrorCode() != 0) {
    failAt(&s, "toASN1Object", f.member, m.getErrorCode(), m.getErrorMessage().c_str());
    return m_bsEncoded;
  }
  if (m_ucTaggedType != ASN1_EXPLICIT) {
    m_bsEncoded = enc;
  } else if (const int rc = wrapExplicit(enc, &m_bsEncoded); rc != 0) {
    failAt(&s, "toASN1Object", "m_nOptionTagNo", rc, "");
    m_bsEncoded.clear();
  }
  return m_bsEncoded;
}

int RChoice::fromASN1View(const unsigned char* pData, int nData) {
  const RSchema& s = schema();
  m_nErrorCode = 0;
  m_nSelected = -1;
  const unsigned char* p = pData;
  int n = nData;
  if (m_ucTaggedType == ASN1_EXPLICIT && unwrapExplicit(&p, &n) != 0)
    return failAt(&s, "fromASN1Object", "bsData", R_ERR_FORMAT, asn1_msg::kFormatError);
  RElementHeader h{};
  const bool plain = p && n >= 2 && RPlainHeader(p, static_cast<std::size_t>(n), &h);
  if (!plain && RReadHeader(p, n, &h) != 0)
    return failAt(&s, "fromASN1Object", "bsData", R_ERR_FORMAT, asn1_msg::kFormatError);
  for (int i = 0; i < s.nFields; ++i) {
    const RField& f = s.fields[i];
    if (!fieldMatches(f, h)) continue;
    if (const int rc = decodeField(&s, f, p, h.totalLength); rc != 0) return rc;
    m_nSelected = i;
    return 0;
  }
  ByteString msg;
  msg.format(r_msg::kNoAlternativeFor, h.first);
  return failAt(&s, "fromASN1Object", "m_nSelected", R_ERR_CHOICE, msg.c_str());
}

void RChoice::detachViews() {
  RObject::detachViews();
  const RSchema& s = schema();
  for (int i = 0; i < s.nFields; ++i)
    if (const ASN1Object* m = s.fields[i].peek(*this)) const_cast<ASN1Object*>(m)->detachViews();
}
