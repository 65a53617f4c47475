// qva asn1 FILE: one line per element of a DER, BER or PEM file.
//
//   OFFSET:d=DEPTH  hl=HEADER l=LENGTH cons|prim: TYPE  :VALUE
//
// Constructed elements are walked into; indefinite lengths show as l=inf and
// their end-of-contents octets as an EOC line one level deeper. Every element
// is decoded by the toolkit's ASN.1 codec before it is printed, and primitive
// values are read through the typed classes. Exit 0, or 2 with the offset of
// the first element the codec refuses.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1Object.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "base/ByteString.h"
#include "base/Limits.h"
#include "base/QSBase.h"
#include "tools/qva/messages.h"

namespace {

const char* const kUniversalNames[] = {"EOC",
                                       "BOOLEAN",
                                       "INTEGER",
                                       "BIT STRING",
                                       "OCTET STRING",
                                       "NULL",
                                       "OBJECT",
                                       "OBJECT DESCRIPTOR",
                                       "EXTERNAL",
                                       "REAL",
                                       "ENUMERATED",
                                       "EMBEDDED PDV",
                                       "UTF8STRING",
                                       "RELATIVE OID",
                                       nullptr,
                                       nullptr,
                                       "SEQUENCE",
                                       "SET",
                                       "NUMERICSTRING",
                                       "PRINTABLESTRING",
                                       "T61STRING",
                                       "VIDEOTEXSTRING",
                                       "IA5STRING",
                                       "UTCTIME",
                                       "GENERALIZEDTIME",
                                       "GRAPHICSTRING",
                                       "VISIBLESTRING",
                                       "GENERALSTRING",
                                       "UNIVERSALSTRING",
                                       nullptr,
                                       "BMPSTRING"};

std::string TypeName(unsigned char cls, int tagNo) {
  if (cls == ASN1_CLASS_UNIVERSAL) {
    if (tagNo >= 0 && tagNo < static_cast<int>(sizeof kUniversalNames / sizeof kUniversalNames[0]) &&
        kUniversalNames[tagNo])
      return kUniversalNames[tagNo];
    return "<ASN1 " + std::to_string(tagNo) + ">";
  }
  const char* word = cls == ASN1_CLASS_CONTEXT ? "cont" : cls == ASN1_CLASS_APPLICATION ? "appl" : "priv";
  return std::string(word) + " [ " + std::to_string(tagNo) + " ]";
}

std::string HexUpper(const unsigned char* p, int n) {
  static const char kDigits[] = "0123456789ABCDEF";
  std::string s;
  for (int i = 0; i < n; ++i) {
    s += kDigits[p[i] >> 4];
    s += kDigits[p[i] & 15];
  }
  return s;
}

// The text of a primitive universal value, or "" when nothing is shown.
std::string Value(int tagNo, const ByteString& element, const ByteString& contents) {
  const unsigned char* p = contents.data();
  const int n = contents.length();
  switch (tagNo) {
    case ASN1_TAG_BOOLEAN:
      return n == 1 ? std::to_string(p[0]) : "BAD BOOLEAN";
    case ASN1_TAG_INTEGER:
    case ASN1_TAG_ENUMERATED: {
      ASN1Integer value;
      value.setImplicitTag(0, ASN1_CLASS_UNIVERSAL);  // the class reads ENUMERATED contents as well
      if (n == 0 || value.setValue(contents) != 0) return "BAD INTEGER";
      if ((p[0] & 0x80) == 0) {
        // The value, not its octets: a sign octet 00 is not shown.
        int skip = 0;
        while (skip + 1 < n && p[skip] == 0) ++skip;
        return HexUpper(p + skip, n - skip);
      }
      // A negative value is shown as its magnitude after a minus sign.
      std::string mag(reinterpret_cast<const char*>(p), static_cast<std::size_t>(n));
      for (auto& c : mag) c = static_cast<char>(~static_cast<unsigned char>(c));
      for (auto i = mag.size(); i-- > 0;)
        if (++reinterpret_cast<unsigned char&>(mag[i]) != 0) break;
      std::size_t skip = 0;
      while (skip + 1 < mag.size() && mag[skip] == 0) ++skip;
      return "-" +
             HexUpper(reinterpret_cast<const unsigned char*>(mag.data()) + skip, static_cast<int>(mag.size() - skip));
    }
    case ASN1_TAG_OID: {
      ASN1ObjectIdentifier oid;
      if (oid.fromASN1Object(element) != 0) return "BAD OBJECT";
      const ByteString text = oid.getOID('.');
      return std::string(text.c_str(), static_cast<std::size_t>(text.length()));
    }
    case ASN1_TAG_OCTETSTRING:
      return "[HEX DUMP]:" + HexUpper(p, n);
    case ASN1_TAG_UTF8STRING:
    case ASN1_TAG_NUMERICSTRING:
    case ASN1_TAG_PRINTABLESTRING:
    case ASN1_TAG_T61STRING:
    case ASN1_TAG_IA5STRING:
    case ASN1_TAG_UTCTIME:
    case ASN1_TAG_GENERALIZEDTIME:
    case ASN1_TAG_VISIBLESTRING: {
      // Control octets are shown as dots so a line stays one line.
      std::string s;
      for (int i = 0; i < n; ++i) s += (p[i] < 0x20 || p[i] == 0x7F) ? '.' : static_cast<char>(p[i]);
      return s;
    }
    default:
      return "";
  }
}

class Dumper {
 public:
  Dumper(const ByteString& data, std::FILE* out) : m_data(data), m_out(out) {}

  // Prints the elements of [begin, end) at the given depth; 0 or the offset of
  // the first refused element + 1 (so a refusal at offset 0 is not 0).
  long Walk(int begin, int end, int depth) {
    const unsigned char* base = m_data.data();
    // Nesting is bounded so a hostile file cannot exhaust the stack.
    if (depth > qva_limits::kMaxNestingDepth) return begin + 1L;
    for (int off = begin; off < end;) {
      const int avail = end - off;
      const unsigned char* p = base + off;
      ASN1Object probe;
      const unsigned char cls = static_cast<unsigned char>(p[0] & 0xC0);
      const bool cons = (p[0] & ASN1_CONSTRUCTED) != 0;
      int tagNo = p[0] & 0x1F;
      int idLen = 1;
      if (tagNo == 0x1F && (idLen = probe.GetHighTag(p, avail, &tagNo, true)) == 0) return off + 1L;
      if (idLen >= avail) return off + 1L;
      // Length octets: short form, indefinite (0x80), or up to four long-form octets.
      const unsigned char lb = p[idLen];
      int hl = idLen + 1;
      long len = 0;
      bool indefinite = false;
      if (lb < 0x80) {
        len = lb;
      } else if (lb == 0x80) {
        indefinite = true;
      } else {
        const int count = lb & 0x7F;
        if (count > qva_limits::kMaxLengthOctets || hl + count > avail) return off + 1L;
        for (int i = 0; i < count; ++i) len = len << 8 | p[hl + i];
        hl += count;
      }
      if (indefinite) {
        int contents = 0;
        if (!cons || probe.findIndefiniteLengEnd(p + hl, avail - hl, &contents) != 0) return off + 1L;
        len = contents;
      }
      // Refuse rather than read past what is left (an end-of-contents pair for l=inf).
      const long total = hl + len + (indefinite ? 2 : 0);
      if (len > avail || total > avail) return off + 1L;
      const ByteString element(p, static_cast<int>(total));
      if (probe.fromASN1Object(element) != 0) return off + 1L;

      std::string line(64, '\0');
      line.resize(static_cast<std::size_t>(std::snprintf(&line[0], line.size(), "%5d:d=%-2d hl=%d ", off, depth, hl)));
      if (indefinite) {
        line += "l=inf  ";
      } else {
        char l[24];
        std::snprintf(l, sizeof l, "l=%4ld ", len);
        line += l;
      }
      line += cons ? "cons: " : "prim: ";
      line.append(static_cast<std::size_t>(depth), ' ');
      std::string name = TypeName(cls, tagNo);
      if (name.size() < 18) name.resize(18, ' ');
      line += name;
      if (!cons && cls == ASN1_CLASS_UNIVERSAL) {
        const std::string value = Value(tagNo, element, ByteString(p + hl, static_cast<int>(len)));
        if (!value.empty()) line += (value[0] == '[' ? "" : ":") + value;
      }
      line += '\n';
      std::fputs(line.c_str(), m_out);

      if (cons) {
        if (long bad = Walk(off + hl, off + hl + static_cast<int>(len), depth + 1)) return bad;
        if (indefinite) {
          std::fprintf(m_out, "%5ld:d=%-2d hl=2 l=   0 prim: %*s%-18s\n", off + hl + len, depth + 1, depth + 1, "",
                       "EOC");
        }
      }
      off += static_cast<int>(total);
    }
    return 0;
  }

 private:
  const ByteString& m_data;
  std::FILE* m_out;
};

// A PEM file's first block, decoded; the bytes as they are otherwise.
bool Decode(const std::string& text, ByteString* der) {
  const auto begin = text.find("-----BEGIN ");
  if (begin == std::string::npos || text.find_first_not_of(" \t\r\n") != begin)
    return der->setData(text.data(), static_cast<int>(text.size())) == BS_OK;
  const auto body = text.find('\n', begin);
  const auto end = text.find("-----END ", begin);
  if (body == std::string::npos || end == std::string::npos || end < body) return false;
  std::string b64;
  for (auto i = body; i < end; ++i)
    if (text[i] != '\r' && text[i] != '\n' && text[i] != ' ' && text[i] != '\t') b64 += text[i];
  return QSBase::base64Decode(b64.data(), static_cast<int>(b64.size()), der) == 0;
}

}  // namespace

long DumpAsn1(const ByteString& der, std::FILE* out) {
  Dumper dumper(der, out);
  return dumper.Walk(0, der.length(), 0);
}

// The dump of every element of der to out: 0, or the offset of the first
// element the codec refuses + 1. The fuzz target calls it too.
long DumpAsn1(const ByteString& der, std::FILE* out);

int RunAsn1Command(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: qva asn1 FILE\n", stderr);
    return 2;
  }
  std::ifstream in(argv[2], std::ios::binary);
  if (!in) {
    std::fprintf(stderr, qva_msg::kCannotRead, argv[2]);
    return 2;
  }
  std::ostringstream ss;
  ss << in.rdbuf();  // an empty file sets failbit here and is refused below
  const std::string text = ss.str();
  // ByteString lengths are int: refuse a file that does not fit one.
  if (text.size() > 0x7FFFFFFFu - 8) {
    std::fprintf(stderr, "qva: %s is too large\n", argv[2]);
    return 2;
  }
  ByteString der;
  if (!Decode(text, &der)) {
    std::fprintf(stderr, "qva: %s: bad PEM block\n", argv[2]);
    return 2;
  }
  if (der.length() == 0) {
    std::fprintf(stderr, "qva: %s is empty\n", argv[2]);
    return 2;
  }
  if (const long bad = DumpAsn1(der, stdout)) {
    std::fflush(stdout);
    std::fprintf(stderr, "qva: %s: bad element at offset %ld\n", argv[2], bad - 1);
    return 2;
  }
  return 0;
}
