#include "ZENALib/ASN1Pkix/RAny.h"

#include <cstring>

#include "base/ByteReader.h"
#include "ZENALib/ASN1/ASN1Messages.h"

int RAny::store(const unsigned char* p, int n) {
  RElementHeader h{};
  const bool plain = p && n >= 2 && RPlainHeader(p, static_cast<std::size_t>(n), &h);
  if ((!plain && RReadHeader(p, n, &h) != 0) || h.headerLength > static_cast<int>(sizeof m_aHeader))
    return R_ERR_FORMAT;
  const int content = h.contentLength >= 0 ? h.contentLength : h.totalLength - h.headerLength - 2;
  if (isSecret()) {
    m_bsElement.zeroize();
    m_bsValue.zeroize();
  }
  m_bsElement.clear();
  if (m_bKeepViews && !isSecret()) {
    m_bsValue.setView(p + h.headerLength, content);
  } else if (m_bsValue.replace().setData(p + h.headerLength, content) != BS_OK) {
    m_nHeader = 0;
    return R_ERR_FORMAT;
  }
  std::memcpy(m_aHeader, p, static_cast<std::size_t>(h.headerLength));
  m_nHeader = static_cast<unsigned char>(h.headerLength);
  m_bEndOctets = h.contentLength < 0;
  m_ucConstructed = static_cast<unsigned char>(h.first & ASN1_CONSTRUCTED);
  return 0;
}

void RAny::writeElement(ByteWriter& w) const {
  static const unsigned char kEnd[2] = {0, 0};
  w.bytes(m_aHeader, m_nHeader).bytes(valueData(), static_cast<std::size_t>(valueLength()));
  if (m_bEndOctets) w.bytes(kEnd, 2);
}

int RAny::afterSetValue() {
  if (m_nHeader == 0) return 0;
  // The identifier octets the header began with (a high tag number's last
  // octet is the first without bit 8), then the new length.
  int idLength = 1;
  if ((m_aHeader[0] & 0x1F) == 0x1F) {
    while (idLength < m_nHeader && (m_aHeader[idLength] & 0x80)) ++idLength;
    ++idLength;
  }
  if (isSecret()) m_bsElement.zeroize();
  m_bsElement.clear();
  m_nHeader = static_cast<unsigned char>(
      idLength + putLength(m_aHeader + idLength, static_cast<std::uint32_t>(valueLength())));
  m_bEndOctets = false;
  return 0;
}

const ByteString& RAny::getElement() const {
  if (m_nHeader && m_bsElement.length() == 0) {
    ByteWriter w;
    if (isSecret()) w.secret(true);
    w.reserve(static_cast<std::size_t>(elementLength()));
    writeElement(w);
    w.finish(&m_bsElement);
  }
  return m_bsElement;
}

int RAny::setElement(const ByteString& bsElement) {
  RElementHeader h{};
  if (RReadHeader(bsElement.data(), bsElement.length(), &h) != 0 || h.totalLength != bsElement.length())
    return R_ERR_FORMAT;
  return store(bsElement.data(), bsElement.length());
}

std::int64_t RAny::encodedLength() {
  const int n = elementLength();
  if (n == 0) return -1;
  if (m_ucTaggedType != ASN1_EXPLICIT) return n;
  unsigned char header[16];
  const int nh = explicitHeader(static_cast<std::uint64_t>(n), header);
  return nh < 0 ? -1 : nh + n;
}

int RAny::encodeTo(ByteWriter& w) {
  const int n = elementLength();
  if (n == 0) return -1;
  if (isSecret()) w.secret(true);
  if (m_ucTaggedType == ASN1_EXPLICIT) {
    unsigned char header[16];
    const int nh = explicitHeader(static_cast<std::uint64_t>(n), header);
    if (nh < 0) return -1;
    w.bytes(header, static_cast<std::size_t>(nh));
  }
  writeElement(w);
  return 0;
}

ByteString& RAny::toASN1Object() {
  m_nErrorCode = 0;
  const ByteString& element = getElement();
  if (element.length() == 0) {
    failAt(nullptr, "toASN1Object", "m_bsElement", R_ERR_FORMAT, asn1_msg::kFormatError);
    m_bsEncoded.clear();
  } else if (m_ucTaggedType != ASN1_EXPLICIT) {
    m_bsEncoded = element;
  } else if (wrapExplicit(element, &m_bsEncoded) != 0) {
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
