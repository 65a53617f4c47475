#include "ZENALib/ASN1/ASN1Object.h"

#include <cstring>
#include <utility>

#include "base/ByteReader.h"
#include "base/Limits.h"
#include "base/SecureZero.h"
#include "ZENALib/ASN1/ASN1Codes.h"
#include "ZENALib/ASN1/ASN1Messages.h"

namespace {

const char kClass[] = "ASN1Object";

// The part of a source path after its last '/' or '\'.
const char* BaseName(const char* path) {
  if (!path) return "";
  const char* base = path;
  for (const char* p = path; *p; ++p)
    if (*p == '/' || *p == '\\') base = p + 1;
  return base;
}

bool IsConstructedUniversal(unsigned char tag) { return tag == ASN1_TAG_SEQUENCE || tag == ASN1_TAG_SET; }

}  // namespace

int ASN1Object::putBase128(unsigned char* out, std::uint32_t v) {
  unsigned char digits[5];
  int n = 0;
  do {
    digits[n++] = static_cast<unsigned char>(v & 0x7F);
    v >>= 7;
  } while (v);
  for (int i = 0; i < n; ++i)
    out[i] = static_cast<unsigned char>(digits[n - 1 - i] | (i + 1 < n ? 0x80 : 0));
  return n;
}

namespace {

// Failure codes of one length read in fromASN1Object.
struct LengthCodes {
  int nLong;            // long form runs past the input
  int nIndefinite;      // no end-of-contents found
  int nIndefinitePast;  // end-of-contents past the input
  int nShort;           // short form runs past the input
};
constexpr LengthCodes kOuterCodes = {asn1_code::kOuterLongPast, asn1_code::kOuterIndefiniteNoEnd,
                                     asn1_code::kOuterIndefinitePast, asn1_code::kOuterShortPast};
constexpr LengthCodes kInnerCodes = {asn1_code::kInnerLongPast, asn1_code::kInnerIndefiniteNoEnd,
                                     asn1_code::kInnerIndefinitePast, asn1_code::kInnerShortPast};

}  // namespace

void ASN1Object::wipeSecret() {
  if (!m_bSecret) return;
  m_bsValue.zeroize();
  m_bsEncoded.zeroize();
}

ASN1Object& ASN1Object::operator=(const ASN1Object& other) {
  if (this == &other) return *this;
  wipeSecret();
  m_ucPrimitiveTag = other.m_ucPrimitiveTag;
  m_ucTaggedType = other.m_ucTaggedType;
  m_nOptionTagNo = other.m_nOptionTagNo;
  m_ucTagClass = other.m_ucTagClass;
  m_nErrorCode = other.m_nErrorCode;
  m_bsValue = other.m_bsValue;
  m_bsEncoded = other.m_bsEncoded;
  m_bsErrorMsg = other.m_bsErrorMsg;
  m_ucConstructed = other.m_ucConstructed;
  m_bSecret = other.m_bSecret;
  return *this;
}

ASN1Object& ASN1Object::operator=(ASN1Object&& other) noexcept {
  if (this == &other) return *this;
  wipeSecret();
  m_ucPrimitiveTag = other.m_ucPrimitiveTag;
  m_ucTaggedType = other.m_ucTaggedType;
  m_nOptionTagNo = other.m_nOptionTagNo;
  m_ucTagClass = other.m_ucTagClass;
  m_nErrorCode = other.m_nErrorCode;
  m_bsValue = std::move(other.m_bsValue);
  m_bsEncoded = std::move(other.m_bsEncoded);
  m_bsErrorMsg = std::move(other.m_bsErrorMsg);
  m_ucConstructed = other.m_ucConstructed;
  m_bSecret = other.m_bSecret;
  return *this;
}

void ASN1Object::setErrorMessage(const char* szFile, int nLine, const char* szClass, const char* szMethod,
                                 const char* szField, int nCode, const char* szMessage) {
  const std::size_t messageLen = szMessage ? std::strlen(szMessage) : 0;
  ByteString head;
  head.format(messageLen ? "[%s:%d]%s::%s-%s(%d), " : "[%s:%d]%s::%s-%s(%d)", BaseName(szFile), nLine,
              szClass ? szClass : "", szMethod ? szMethod : "", szField ? szField : "", nCode);
  // The writer copies the message before the old trace (which it may point
  // into) is replaced.
  ByteWriter w;
  w.reserve(static_cast<std::size_t>(head.length()) + messageLen);
  w.bytes(head);
  if (messageLen) w.bytes(szMessage, messageLen);
  w.finish(&m_bsErrorMsg);
}

int ASN1Object::fail(const char* szFile, int nLine, const char* szClass, const char* szMethod, const char* szField,
                     int nCode, const char* szMessage) {
  m_nErrorCode = nCode;
  setErrorMessage(szFile, nLine, szClass, szMethod, szField, nCode, szMessage);
  return nCode;
}

int ASN1Object::failText(const char* szFile, int nLine, const char* szClass, const char* szMethod,
                         const char* szField, int nCode, const char* szFormat, const char* szText, int nLength) {
  constexpr int kMaxEcho = 1024;
  ByteString message;
  message.format(szFormat, nLength < 0 ? 0 : nLength < kMaxEcho ? nLength : kMaxEcho, szText ? szText : "");
  return fail(szFile, nLine, szClass, szMethod, szField, nCode, message.c_str());
}

int ASN1Object::failChained(const char* szFile, int nLine, const char* szClass, const char* szMethod,
                            const char* szField, int nCode) {
  return fail(szFile, nLine, szClass, szMethod, szField, nCode, m_bsErrorMsg.c_str());
}

int ASN1Object::putLength(unsigned char* out, std::uint32_t nLength) {
  if (nLength < 0x80) {
    out[0] = static_cast<unsigned char>(nLength);
    return 1;
  }
  int digits = 0;
  for (std::uint32_t v = nLength; v; v >>= 8) ++digits;
  out[0] = static_cast<unsigned char>(0x80 | digits);
  for (int i = 0; i < digits; ++i) out[1 + i] = static_cast<unsigned char>(nLength >> (8 * (digits - 1 - i)));
  return digits + 1;
}

int ASN1Object::buildHeader(unsigned char ucPrimitiveTag, unsigned char ucTaggedType, int nOptionTagNo,
                            unsigned char ucTagClass, unsigned char ucConstructed, std::uint64_t nContent,
                            Header* h) {
  h->nOuter = h->nInner = 0;
  h->szField = "m_bsValue";
  // Inner header: identifier (absent for an implicit tag or an untyped
  // holder) and the length octets of the value.
  if (ucPrimitiveTag == ASN1_TAG_NONE) {
    if (ucTaggedType != ASN1_EXPLICIT || nOptionTagNo < 0) {
      h->szField = "m_ucTaggedType";
      return asn1_code::kUntypedNotExplicit;
    }
  } else if (ucTaggedType != ASN1_IMPLICIT) {
    const bool constructed = IsConstructedUniversal(ucPrimitiveTag) || ucConstructed == ASN1_CONSTRUCTED;
    h->inner[h->nInner++] = static_cast<unsigned char>(ucPrimitiveTag | (constructed ? ASN1_CONSTRUCTED : 0));
  }
  if (nContent > static_cast<std::uint64_t>(INT32_MAX)) return asn1_code::kEncodeNoMemory;
  h->nInner += putLength(h->inner + h->nInner, static_cast<std::uint32_t>(nContent));
  const std::uint64_t innerLen = static_cast<std::uint64_t>(h->nInner) + nContent;

  // Outer header: the tag's identifier and, when explicit, the length of the inner part.
  if (ucTaggedType != ASN1_UNTAGGED) {
    if (nOptionTagNo < 0) {
      h->szField = "m_nOptionTagNo";
      return asn1_code::kNegativeTagNumber;
    }
    if (nOptionTagNo <= 30) {
      unsigned char id = static_cast<unsigned char>(ucTagClass | nOptionTagNo);
      if (ucTaggedType == ASN1_IMPLICIT && IsConstructedUniversal(ucPrimitiveTag)) id |= ASN1_CONSTRUCTED;
      h->outer[h->nOuter++] = id;
    } else {
      h->outer[h->nOuter++] = static_cast<unsigned char>(ucTagClass | 0x1F);
      h->nOuter += putBase128(h->outer + h->nOuter, static_cast<std::uint32_t>(nOptionTagNo));
    }
    if (ucTaggedType == ASN1_EXPLICIT) {
      if (innerLen > 0xFFFFFFFFu) return asn1_code::kEncodeNoMemory;
      h->nOuter += putLength(h->outer + h->nOuter, static_cast<std::uint32_t>(innerLen));
    }
  }
  // A ByteString holds at most INT32_MAX octets.
  if (innerLen + static_cast<std::uint64_t>(h->nOuter) > static_cast<std::uint64_t>(INT32_MAX))
    return asn1_code::kEncodeNoMemory;
  return 0;
}

std::int64_t ASN1Object::encodedLength() {
  Header h;
  if (buildHeader(m_ucPrimitiveTag, m_ucTaggedType, m_nOptionTagNo, m_ucTagClass, m_ucConstructed,
                  static_cast<std::uint64_t>(m_bsValue.length()), &h) != 0)
    return -1;
  return h.nOuter + h.nInner + m_bsValue.length();
}

int ASN1Object::encodeTo(ByteWriter& w) {
  Header h;
  if (buildHeader(m_ucPrimitiveTag, m_ucTaggedType, m_nOptionTagNo, m_ucTagClass, m_ucConstructed,
                  static_cast<std::uint64_t>(m_bsValue.length()), &h) != 0)
    return -1;
  if (m_bSecret) w.secret(true);
  w.bytes(h.outer, static_cast<std::size_t>(h.nOuter))
      .bytes(h.inner, static_cast<std::size_t>(h.nInner))
      .bytes(m_bsValue.data(), static_cast<std::size_t>(m_bsValue.length()));
  return 0;
}

ByteString& ASN1Object::toASN1Object() {
  static const char kMethod[] = "toASN1Object";
  m_nErrorCode = 0;
  if (m_bSecret) m_bsEncoded.zeroize();  // the encoding is written again below
  m_bsEncoded.clear();
  Header h;
  if (const int rc = buildHeader(m_ucPrimitiveTag, m_ucTaggedType, m_nOptionTagNo, m_ucTagClass, m_ucConstructed,
                                 static_cast<std::uint64_t>(m_bsValue.length()), &h)) {
    ASN1_FAIL(kClass, kMethod, h.szField, rc,
              rc == asn1_code::kEncodeNoMemory ? asn1_msg::kMemoryError : asn1_msg::kFormatError);
    return m_bsEncoded;
  }
  // One allocation for the whole encoding.
  ByteWriter w;
  w.secret(m_bSecret).reserve(static_cast<std::size_t>(h.nOuter + h.nInner + m_bsValue.length()));
  w.bytes(h.outer, static_cast<std::size_t>(h.nOuter))
      .bytes(h.inner, static_cast<std::size_t>(h.nInner))
      .bytes(m_bsValue.data(), static_cast<std::size_t>(m_bsValue.length()));
  if (w.finish(&m_bsEncoded) != BS_OK) {
    m_bsEncoded.clear();
    ASN1_FAIL(kClass, kMethod, "m_bsValue", asn1_code::kEncodeNoMemory, asn1_msg::kMemoryError);
  }
  return m_bsEncoded;
}

int ASN1Object::checkASN1Member(unsigned char b, unsigned char* pucTag, unsigned char* pucTaggedType, int* pnTagNo,
                                unsigned char* pucTagClass) {
  if (pucTagClass) *pucTagClass = static_cast<unsigned char>(b & 0xE0);
  if (b & 0xC0) {
    unsigned char tagged;
    if ((b & 0x1F) == 0x1F) {
      tagged = ASN1_HIGHTAG;
    } else {
      // A constructed tagged element is taken as explicit, a primitive one as implicit.
      tagged = (b & ASN1_CONSTRUCTED) ? ASN1_EXPLICIT : ASN1_IMPLICIT;
      if (pnTagNo) *pnTagNo = b & 0x1F;
    }
    if (pucTaggedType) *pucTaggedType = tagged;
    return 0;
  }
  const unsigned char tag = static_cast<unsigned char>(b & 0x1F);
  if (pucTaggedType) *pucTaggedType = ASN1_UNTAGGED;
  if (pucTag) *pucTag = tag;
  if ((tag >= 13 && tag <= 15) || tag == 29 || tag == 31) {
    ByteString message;
    message.format(asn1_msg::kNotMember, tag);
    return ASN1_FAIL(kClass, "checkASN1Member", "CheckASN1Member", asn1_code::kNotMember, message.c_str());
  }
  return 0;
}

int ASN1Object::GetHighTag(const unsigned char* p, int nAvail, int* pnTagNo, bool bSkipFirst) {
  m_nErrorCode = 0;
  std::uint32_t value = 0;
  int used = bSkipFirst ? 1 : 0;
  for (;;) {
    if (used >= qva_limits::kMaxTagOctets) {
      setErrorMessage(__FILE__, __LINE__, kClass, "GetHighTag", "nTagValue", 0, asn1_msg::kTagTooLong);
      return 0;
    }
    // A tag number cut off by the end of the data is refused, never read past.
    if (!p || used >= nAvail) {
      setErrorMessage(__FILE__, __LINE__, kClass, "GetHighTag", "nTagValue", 0, asn1_msg::kLengthError);
      return 0;
    }
    const unsigned char octet = p[used++];
    value = (value << 7) | (octet & 0x7F);
    if (!(octet & 0x80)) break;
  }
  if (pnTagNo) *pnTagNo = static_cast<int>(value);
  return used;
}

int ASN1Object::findIndefiniteLengEnd(const unsigned char* p, int nAvail, int* pnLength) {
  return findIndefiniteLengEnd(p, nAvail, pnLength, 1);
}

int ASN1Object::findIndefiniteLengEnd(const unsigned char* p, int nAvail, int* pnLength, int nDepth) {
  static const char kMethod[] = "findIndefiniteLengEnd";
  // Each nested indefinite length costs a stack frame: hostile input could
  // otherwise nest them until the stack runs out.
  if (nDepth > qva_limits::kMaxIndefiniteDepth || !p || nAvail < 0)
    return ASN1_FAIL(kClass, kMethod, "Value Length", asn1_code::kEocMissing, asn1_msg::kIndefiniteEnd);
  ByteReader r(p, static_cast<std::size_t>(nAvail));
  for (;;) {
    const unsigned char* here = r.data();
    if (r.remaining() >= 2 && here[0] == 0 && here[1] == 0) {
      *pnLength = static_cast<int>(here - p);
      return 0;
    }
    std::uint8_t id = 0;
    if (r.readU8(&id) != BS_OK)
      return ASN1_FAIL(kClass, kMethod, "Value Length", asn1_code::kEocMissing, asn1_msg::kIndefiniteEnd);
    unsigned char tagged = 0;
    if (checkASN1Member(id, nullptr, &tagged, nullptr, nullptr) != 0)
      return ASN1_FAIL_CHAINED(kClass, kMethod, "checkASN1Member", asn1_code::kEocBadIdentifier);
    if (tagged == ASN1_HIGHTAG) {
      const int used = GetHighTag(here, static_cast<int>(r.remaining()) + 1, nullptr, true);
      if (!used) return ASN1_FAIL_CHAINED(kClass, kMethod, "GetHighTag", asn1_code::kEocBadHighTag);
      r.skip(static_cast<std::size_t>(used - 1));
    }
    std::uint32_t len = 0;
    bool indefinite = false;
    if (const int rc = r.readLength(&len, &indefinite); rc != BS_OK)
      return rc == BR_TOO_LONG
                 ? ASN1_FAIL(kClass, kMethod, "nValueLen", asn1_code::kEocLengthTooLong, asn1_msg::kLengthError)
                 : ASN1_FAIL(kClass, kMethod, "Value Length", asn1_code::kEocMissing, asn1_msg::kIndefiniteEnd);
    if (indefinite) {
      int inner = 0;
      if (findIndefiniteLengEnd(r.data(), static_cast<int>(r.remaining()), &inner, nDepth + 1) != 0)
        return ASN1_FAIL_CHAINED(kClass, kMethod, "findIndefiniteLengEnd", asn1_code::kEocNested);
      len = static_cast<std::uint32_t>(inner) + 2;  // the contents and their end-of-contents octets
    }
    if (r.skip(len) != BS_OK)
      return ASN1_FAIL(kClass, kMethod, "Value Length", asn1_code::kEocMissing, asn1_msg::kIndefiniteEnd);
  }
}

int ASN1Object::fromASN1Object(const ByteString& bsData) { return decodeElement(viewOf(bsData), bsData.length()); }

int ASN1Object::fromASN1View(const unsigned char* pData, int nData) {
  // Reached only by classes that decode in fromASN1Object alone. Their
  // values are copied: the temporary below dies with this call.
  m_bKeepViews = false;
  return fromASN1Object(pData ? ByteString(pData, nData) : ByteString());
}

int ASN1Object::decodeElement(const unsigned char* d, int n, const unsigned char** ppContent, int* pnContent) {
  static const char kMethod[] = "fromASN1Object";
  m_nErrorCode = 0;
  if (!d) return ASN1_FAIL(kClass, kMethod, "baData", asn1_code::kNoData, asn1_msg::kNullData);
  // Either the contents are stored, or their span is handed back.
  auto keep = [&](const unsigned char* p, int len) -> int {
    if (ppContent) {
      *ppContent = p;
      *pnContent = len;
      return 0;
    }
    if (m_bSecret) m_bsValue.zeroize();
    // A secret is never left in an input that others may hold.
    if (m_bKeepViews && !m_bSecret) {
      m_bsValue.setView(p, len);
      return 0;
    }
    if (m_bsValue.replace().setData(p, len) != BS_OK)
      return ASN1_FAIL(kClass, kMethod, "m_bsValue", asn1_code::kNoData, asn1_msg::kMemoryError);
    return 0;
  };
  if (n < 2) return ASN1_FAIL(kClass, kMethod, "baData", asn1_code::kNoData, asn1_msg::kLengthError);

  m_ucConstructed = 0;
  const unsigned char low = static_cast<unsigned char>(d[0] & 0x1F);
  constexpr std::uint32_t kReserved = (1u << 13) | (1u << 14) | (1u << 15) | (1u << 29) | (1u << 31);
  if (!(d[0] & 0xC0) && !((kReserved >> low) & 1u) && d[1] < 0x80 && d[1] <= n - 2) {
    // Most elements: a universal identifier and a short length inside the input.
    m_ucTagClass = static_cast<unsigned char>(d[0] & 0xE0);
    m_ucTaggedType = ASN1_UNTAGGED;
    m_ucPrimitiveTag = low;
    m_ucConstructed = static_cast<unsigned char>(d[0] & ASN1_CONSTRUCTED);
    return keep(d + 2, d[1]);
  }
  if (!(d[0] & 0xC0) && !((kReserved >> low) & 1u)) {
    // The usual universal identifier, classified as checkASN1Member would.
    m_ucTagClass = static_cast<unsigned char>(d[0] & 0xE0);
    m_ucTaggedType = ASN1_UNTAGGED;
    m_ucPrimitiveTag = low;
  } else if (checkASN1Member(d[0], &m_ucPrimitiveTag, &m_ucTaggedType, &m_nOptionTagNo, &m_ucTagClass) != 0) {
    return ASN1_FAIL_CHAINED(kClass, kMethod, "checkASN1Member", asn1_code::kBadIdentifier);
  }
  ByteReader r(d, static_cast<std::size_t>(n));
  r.skip(1);
  if (m_ucTaggedType == ASN1_HIGHTAG) {
    const int used = GetHighTag(d, n, &m_nOptionTagNo, true);
    if (!used) return ASN1_FAIL_CHAINED(kClass, kMethod, "GetHighTag", asn1_code::kBadHighTag);
    r.skip(static_cast<std::size_t>(used - 1));
    m_ucTaggedType = d[0] == 0xBF ? ASN1_EXPLICIT : ASN1_IMPLICIT;
  }

  // Reads the length octets at r and checks that the contents lie within the
  // input. The checks compare with what is left of the input, so an element
  // that runs past the data is refused whatever its identifier's size.
  auto readLength = [&](const LengthCodes& codes, std::uint32_t* pLen) -> int {
    if (r.empty()) return ASN1_FAIL(kClass, kMethod, "nValueLen", codes.nShort, asn1_msg::kLengthError);
    const bool shortForm = r.data()[0] < 0x80;
    std::uint32_t len = 0;
    bool indefinite = false;
    if (r.readLength(&len, &indefinite) != BS_OK)
      return ASN1_FAIL(kClass, kMethod, "nValueLen", codes.nLong, asn1_msg::kLengthError);
    if (indefinite) {
      int inner = 0;
      if (findIndefiniteLengEnd(r.data(), static_cast<int>(r.remaining()), &inner) != 0)
        return ASN1_FAIL_CHAINED(kClass, kMethod, "Value Length", codes.nIndefinite);
      if (r.remaining() < static_cast<std::size_t>(inner) + 2)
        return ASN1_FAIL(kClass, kMethod, "nValueLen", codes.nIndefinitePast, asn1_msg::kLengthError);
      *pLen = static_cast<std::uint32_t>(inner);
      return 0;
    }
    if (r.remaining() < len)
      return ASN1_FAIL(kClass, kMethod, "nValueLen", shortForm ? codes.nShort : codes.nLong, asn1_msg::kLengthError);
    *pLen = len;
    return 0;
  };

  unsigned char id = d[0];
  if (m_ucTaggedType == ASN1_EXPLICIT) {
    std::uint32_t outerLen = 0;
    if (const int rc = readLength(kOuterCodes, &outerLen)) return rc;
    if (outerLen == 0) return keep(d, 0);
    const unsigned char* innerStart = r.data();
    unsigned char innerTag = 0, innerTagged = 0;
    if (checkASN1Member(innerStart[0], &innerTag, &innerTagged, nullptr, nullptr) != 0)
      return ASN1_FAIL_CHAINED(kClass, kMethod, "checkASN1Member", asn1_code::kInnerBadIdentifier);
    if (innerTagged != ASN1_UNTAGGED) {
      // A tagged element inside an explicit tag is kept whole.
      return keep(innerStart, static_cast<int>(outerLen));
    }
    if (m_ucPrimitiveTag == ASN1_TAG_NONE) m_ucPrimitiveTag = innerTag;
    id = innerStart[0];
    r.skip(1);
  }
  m_ucConstructed = static_cast<unsigned char>(id & ASN1_CONSTRUCTED);
  std::uint32_t len = 0;
  if (const int rc = readLength(kInnerCodes, &len)) return rc;
  return keep(r.data(), static_cast<int>(len));
}

int ASN1Object::decodeTypedElement(const char* szFile, int nLine, const unsigned char* pData, int nData,
                                   const char* szClass, unsigned char ucTag, const char* szTagFormat,
                                   const unsigned char** ppContent, int* pnContent) {
  if (decodeElement(pData, nData, ppContent, pnContent) != 0)
    return failChained(szFile, nLine, szClass, "fromASN1Object", "ASN1Object::fromASN1Object", asn1_code::kElement);
  // An implicit tag hides the type: the class's own tag is assumed.
  if (m_ucTaggedType == ASN1_IMPLICIT) {
    m_ucPrimitiveTag = ucTag;
  } else if (m_ucPrimitiveTag != ucTag) {
    ByteString message;
    message.format(szTagFormat, m_ucPrimitiveTag);
    return fail(szFile, nLine, szClass, "fromASN1Object", "m_ucPrimitiveTag", asn1_code::kWrongTag, message.c_str());
  }
  return 0;
}

int ASN1Object::setValue(const ByteString& bsValue) { return setValue(bsValue.data(), bsValue.length()); }

int ASN1Object::setValue(const char* szText) {
  return setValue(szText, szText ? static_cast<int>(std::strlen(szText)) : 0);
}

int ASN1Object::setValue(const void* pData, int nLength) {
  if (!pData || nLength < 0) nLength = 0;
  const unsigned char* p = pData ? static_cast<const unsigned char*>(pData) : reinterpret_cast<const unsigned char*>("");
  if (const int rc = checkValue(p, nLength)) return rc;
  if (m_bSecret) m_bsValue.zeroize();
  if (m_bsValue.replace().setData(p, nLength) != BS_OK)
    return ASN1_FAIL(kClass, "setValue", "m_bsValue", asn1_code::kValueNoMemory, asn1_msg::kMemoryError);
  return afterSetValue();
}

int ASN1Object::checkValue(const unsigned char*, int) { return 0; }

int ASN1Object::afterSetValue() { return 0; }

int ASN1Object::checkCharacters(const char* szFile, int nLine, const unsigned char* p, int n,
                                bool (*pAccept)(unsigned char), const char* szClass, const char* szFormat) {
  for (int i = 0; i < n; ++i) {
    if (!pAccept(p[i])) {
      ByteString message;
      message.format(szFormat, p[i]);
      return fail(szFile, nLine, szClass, "setValue", "data", asn1_code::kBadValue, message.c_str());
    }
  }
  return 0;
}

void ASN1Object::setImplicitTag(int nTagNo, unsigned char ucClass) {
  m_ucTaggedType = ASN1_IMPLICIT;
  m_ucTagClass = ucClass;
  m_nOptionTagNo = nTagNo;
}

int ASN1Object::setExplicitTag(int nTagNo, unsigned char ucClass) {
  m_ucTaggedType = ASN1_EXPLICIT;
  m_ucTagClass = static_cast<unsigned char>(ucClass | ASN1_CONSTRUCTED);
  m_nOptionTagNo = nTagNo;
  return nTagNo;
}
