#include "ZENALib/QSProcess/PNameMatch.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "ZENALib/QSProcess/UDNSettings.h"

std::string PNameMatch::RdnKey(const RRelativeDistinguishedName& rdn) {
  std::vector<std::string> parts;
  for (const RAttributeTypeAndValue& atv : rdn.items()) {
    const ByteString oid = const_cast<ASN1ObjectIdentifier&>(atv.getType()).getOID('.');
    std::string part(oid.c_str(), static_cast<std::size_t>(oid.length()));
    part += '=';
    ByteString value;
    if (UDNSettings::Value2Str(atv.getValue().getElement(), &value) != 0) {
      value = atv.getValue().getElement();  // not text: the encoding itself
    }
    bool blank = false;
    for (int i = 0; i < value.length(); ++i) {
      const unsigned char c = value.data()[i];
      if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
        blank = true;
        continue;
      }
      if (blank && part.back() != '=') part += ' ';
      blank = false;
      part += static_cast<char>(std::tolower(c));
    }
    parts.push_back(part);
  }
  std::sort(parts.begin(), parts.end());
  std::string key;
  for (const std::string& p : parts) key += p + '\n';
  return key;
}

std::string PNameMatch::NameKey(const RRDNSequence& name) {
  std::string key;
  for (const RRelativeDistinguishedName& rdn : name.items()) key += RdnKey(rdn) + '\t';
  return key;
}

bool PNameMatch::SameName(const RRDNSequence& a, const RRDNSequence& b) {
  const std::string key = NameKey(a);
  return key.find('?') == std::string::npos && key == NameKey(b);
}
