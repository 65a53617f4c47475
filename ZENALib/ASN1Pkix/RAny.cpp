#include "ZENALib/ASN1Pkix/RAny.h"

#include "base/ByteReader.h"
#include "ZENALib/ASN1/ASN1Messages.h"

int RAny::store(const unsigned char* p, int n) {
  RElementHeader h{};
  if (RReadHeader(p, n, &h) != 0) return R_ERR_FORMAT;
  const int content = h.contentLength >= 0 ? h.contentLength : h.totalLength - h.headerLength - 2;
  if (isSecret()) m_bsElement.zeroize();
  m_bsElement.setData(p, h.totalLength);
  m_bsValue.setData(p + h.headerLength, content);
  m_ucConstructed = static_cast<unsigned char>(h.first & ASN1_CONSTRUCTED);
  return 0;
}

int RAny::setElement(const ByteString& bsElement) {
  RElementHeader h{};
  if (RReadHeader(bsElement.data(), bsElement.length(), &h) != 0 || h.totalLength != bsElement.length())
    return R_ERR_FORMAT;
  return store(bsElement.data(), bsElement.length());
}

std::int64_t RAny::encodedLength() {
  if (m_bsElement.length() == 0) return -1;
  if (m_ucTaggedType != ASN1_EXPLICIT) return m_bsElement.length();
  unsigned char header[16];
  const int nh = explicitHeader(static_cast<std::uint64_t>(m_bsElement.length()), header);
  return nh < 0 ? -1 : nh + m_bsElement.length();
}

int RAny::encodeTo(ByteWriter& w) {
  if (m_bsElement.length() == 0) return -1;
  if (isSecret()) w.secret(true);
  if (m_ucTaggedType == ASN1_EXPLICIT) {
    unsigned char header[16];
    const int nh = explicitHeader(static_cast<std::uint64_t>(m_bsElement.length()), header);
    if (nh < 0) return -1;
    w.bytes(header, static_cast<std::size_t>(nh));
  }
  w.bytes(m_bsElement);
  return 0;
}

ByteString& RAny::toASN1Object() {
  m_nErrorCode = 0;
  if (m_bsElement.length() == 0) {
    failAt(nullptr, "toASN1Object", "m_bsElement", R_ERR_FORMAT, asn1_msg::kFormatError);
    m_bsEncoded.clear();
  } else if (m_ucTaggedType != ASN1_EXPLICIT) {
    m_bsEncoded = m_bsElement;
  } else if (wrapExplicit(m_bsElement, &m_bsEncoded) != 0) {
    failAt(nullptr, "toASN1Object", "m_nOptionTagNo", R_ERR_FORMAT, asn1_msg::kFormatError);
    m_bsEncoded.clear();
  }
  return m_bsEncoded;
}

int RAny::fromASN1View(const unsigned char* pData, int nData) {
  m_nErrorCode = 0;
  const unsigned char* p = pData;
  int n = nData;
  if ((m_ucTaggedType == ASN1_EXPLICIT && unwrapExplicit(&p, &n) != 0) || store(p, n) != 0)
    return failAt(nullptr, "fromASN1Object", "bsData", R_ERR_FORMAT, asn1_msg::kFormatError);
  return 0;
}
