#include "ZENALib/QSProcess/UDNSettings.h"

#include <cstring>

#include "ZENALib/QSProcess/UUniCode.h"

namespace {

const struct {
  const char* oid;
  const char* key;
} kKeys[] = {
    {"2 5 4 6", "c"},       {"2 5 4 8", "st"},           {"2 5 4 7", "l"},        {"2 5 4 10", "o"},
    {"2 5 4 11", "ou"},     {"2 5 4 3", "cn"},           {"2 5 4 4", "sn"},       {"2 5 4 42", "givenname"},
    {"2 5 4 5", "serialnumber"}, {"2 5 4 9", "street"},  {"2 5 4 12", "title"},   {"1 2 840 113549 1 9 1", "e"},
    {"0 9 2342 19200300 100 1 25", "dc"}, {"0 9 2342 19200300 100 1 1", "uid"},
};

}  // namespace

const char* UDNSettings::KeyOf(const char* szOid) {
  for (const auto& k : kKeys)
    if (std::strcmp(k.oid, szOid) == 0) return k.key;
  return nullptr;
}

ByteString UDNSettings::Dotted(const ByteString& bsOid) {
  ByteString out(bsOid);
  for (int i = 0; i < out.length(); ++i)
    if (out.data()[i] == ' ') out.setAt(i, '.');
  return out;
}

int UDNSettings::Value2Str(const ByteString& bsElement, ByteString* out) {
  RElementHeader h;
  if (RReadHeader(bsElement.data(), bsElement.length(), &h) != 0 || h.contentLength < 0) return UDN_ERR_FORMAT;
  const unsigned char* p = bsElement.data() + h.headerLength;
  const int n = h.contentLength;
  const bool universal = h.tagClass() == ASN1_CLASS_UNIVERSAL && !h.constructed();
  int rc = 0;
  switch (universal ? h.tagNo : -1) {
    case ASN1_TAG_PRINTABLESTRING:
    case ASN1_TAG_IA5STRING:
    case ASN1_TAG_NUMERICSTRING:
    case ASN1_TAG_VISIBLESTRING:
    case ASN1_TAG_T61STRING:
      if (out->append(p, n) != BS_OK) return UDN_ERR_MEMORY;
      return 0;
    case ASN1_TAG_UTF8STRING:
      rc = UUniCode::UTF82KSC(p, n, out);
      break;
    case ASN1_TAG_BMPSTRING:
      rc = UUniCode::Unicode2KSC(p, n, out);
      if (rc == UUniCode::UUNI_MALFORMED) return UDN_ERR_FORMAT;
      break;
    case 28:  // UniversalString
      rc = UUniCode::UCS42KSC(p, n, out);
      if (rc == UUniCode::UUNI_MALFORMED) return UDN_ERR_FORMAT;
      break;
    default: {
      // Any other type: "#" and the hex of the element, as RFC 4514 2.4 writes it.
      *out += '#';
      const ByteString hex = bsElement.toHex();
      *out += hex;
      return out->status() == BS_OK ? 0 : UDN_ERR_MEMORY;
    }
  }
  return rc == UUniCode::UUNI_MEMORY ? UDN_ERR_MEMORY : 0;
}

int UDNSettings::RDN2Str(const RRDNSequence& rdn, ByteString* out) {
  ByteString text;
  bool first = true;
  for (const RRelativeDistinguishedName& set : rdn.items()) {
    for (const RAttributeTypeAndValue& atv : set.items()) {
      ByteString oid = const_cast<ASN1ObjectIdentifier&>(atv.getType()).getOID(' ');
      if (oid.length() == 0) return UDN_ERR_FORMAT;
      if (!first) text += ',';
      first = false;
      const char* key = KeyOf(oid.c_str());
      if (key)
        text += key;
      else
        text += Dotted(oid);
      text += '=';
      if (int rc = Value2Str(atv.getValue().getElement(), &text)) return rc;
    }
  }
  if (text.status() != BS_OK) return UDN_ERR_MEMORY;
  *out = text;
  // An empty name still gives a (zero-length) text.
  if (out->isEmpty()) *out = "";
  return 0;
}
