// Cross-check with the openssl CLI: for certificates, CRLs and CMS messages
// (openssl-made and real Korean PKI ones), walking our sequences' component
// tables recursively finds the same offsets, depths, header lengths, lengths
// and tags that `openssl asn1parse` prints, and every primitive decodes.
#include <gtest/gtest.h>

#include <cctype>
#include <ctime>
#include <functional>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1Enumerated.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1IA5String.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1Null.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1/ASN1Sequence.h"
#include "ZENALib/ASN1/ASN1Set.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "tests/ZENALib/ASN1/ASN1TestUtil.h"
#include "tests/support/TestUtil.h"

using qvatest::DataPath;
using qvatest::Str;
using qvatest::ToHex;

namespace {

struct Line {
  long offset = 0;
  int depth = 0;
  int header = 0;
  long length = -1;  // -1: indefinite
  bool constructed = false;
  std::string type;
  std::string value;  // compared where both sides print one (see Walker::primitive)
};

std::string Describe(const Line& l) {
  std::ostringstream s;
  s << l.offset << ":d=" << l.depth << " hl=" << l.header << " l=" << (l.length < 0 ? "inf" : std::to_string(l.length))
    << (l.constructed ? " cons: " : " prim: ") << l.type << (l.value.empty() ? "" : " :" + l.value);
  return s.str();
}

// The lines of `openssl asn1parse`, without the values it prints by name.
std::vector<Line> OpensslLines(const std::string& path) {
  std::string out;
  qvatest::Run("openssl asn1parse -inform DER -in '" + path + "' 2>/dev/null", &out);
  static const std::regex kLine(R"(^\s*(\d+):d=(\d+)\s+hl=(\d+)\s+l=\s*(\d+|inf)\s+(cons|prim):\s+(.*?)\s*(:(.*))?$)");
  std::vector<Line> lines;
  std::istringstream in(out);
  std::string text;
  while (std::getline(in, text)) {
    std::smatch m;
    if (!std::regex_match(text, m, kLine)) continue;  // continuation of a multi-line value
    Line l;
    l.offset = std::stol(m[1]);
    l.depth = std::stoi(m[2]);
    l.header = std::stoi(m[3]);
    l.length = m[4] == "inf" ? -1 : std::stol(m[4]);
    l.constructed = m[5] == "cons";
    l.type = m[6];
    const auto dump = l.type.find("[HEX DUMP]");
    if (dump != std::string::npos) l.type = l.type.substr(0, l.type.find_last_not_of(' ', dump - 1) + 1);
    l.value = m[8];
    lines.push_back(l);
  }
  return lines;
}

const char* UniversalName(int tag) {
  switch (tag) {
    case 0: return "EOC";
    case 1: return "BOOLEAN";
    case 2: return "INTEGER";
    case 3: return "BIT STRING";
    case 4: return "OCTET STRING";
    case 5: return "NULL";
    case 6: return "OBJECT";
    case 10: return "ENUMERATED";
    case 12: return "UTF8STRING";
    case 16: return "SEQUENCE";
    case 17: return "SET";
    case 18: return "NUMERICSTRING";
    case 19: return "PRINTABLESTRING";
    case 20: return "T61STRING";
    case 22: return "IA5STRING";
    case 23: return "UTCTIME";
    case 24: return "GENERALIZEDTIME";
    case 26: return "VISIBLESTRING";
    case 30: return "BMPSTRING";
    default: return "?";
  }
}

bool PrintableText(const ByteString& v) {
  for (int i = 0; i < v.length(); ++i)
    if (v.data()[i] < 0x20 || v.data()[i] > 0x7E) return false;
  return v.length() > 0;
}

// Walks an element through our classes, producing asn1parse-shaped lines.
class Walker {
 public:
  std::vector<Line> lines;
  int primitives = 0;

  void element(const ByteString& der, long offset, int depth) {
    const unsigned char first = der.data()[0];
    int idLen = 1;
    int tagNo = first & 0x1F;
    ASN1Object probe;
    if ((first & 0x1F) == 0x1F) idLen = probe.GetHighTag(der.data(), der.length(), &tagNo, true);
    ASSERT_GT(idLen, 0);
    Line l;
    l.offset = offset;
    l.depth = depth;
    l.constructed = (first & 0x20) != 0;
    const int cls = first & 0xC0;
    l.type = cls == 0 ? UniversalName(first & 0x1F)
                      : std::string(cls == 0x80 ? "cont" : cls == 0x40 ? "appl" : "priv") + " [ " +
                            std::to_string(tagNo) + " ]";
    if (!l.constructed) {
      primitive(der, &l);
      lines.push_back(l);
      return;
    }
    // Any constructed element is split as a SEQUENCE: give its contents a SEQUENCE identifier.
    ByteString asSequence("\x30", 1);
    asSequence.append(der.data() + idLen, der.length() - idLen);
    ASN1Sequence seq;
    ASSERT_EQ(0, seq.fromASN1Object(asSequence)) << Str(seq.getErrorMessage());
    const bool indefinite = der.data()[idLen] == 0x80;
    const int contents = seq.getValueLength();
    l.header = der.length() - contents - (indefinite ? 2 : 0);
    l.length = indefinite ? -1 : contents;
    lines.push_back(l);
    for (int i = 0; i < seq.getComponentCount(); ++i) {
      const ASN1Sequence::ComponentInfo* info = seq.getComponentInfo(i);
      const ByteString component = seq.getComponent(i);
      ASSERT_EQ(info->nLength, component.length());
      element(component, offset + l.header + info->nOffset, depth + 1);
    }
    if (indefinite) {
      Line eoc;
      eoc.offset = offset + l.header + contents;
      eoc.depth = depth + 1;
      eoc.header = 2;
      eoc.length = 0;
      eoc.type = "EOC";
      lines.push_back(eoc);
    }
  }

 private:
  // Decodes a primitive with its type's class; records the value text where
  // asn1parse prints the same thing (integers as hex, texts as they are).
  void primitive(const ByteString& der, Line* l) {
    ASN1Object o;
    ASSERT_EQ(0, o.fromASN1Object(der)) << Str(o.getErrorMessage());
    l->header = der.length() - o.getValueLength();
    l->length = o.getValueLength();
    ++primitives;
    const ByteString& v = o.getValue();
    switch ((der.data()[0] & 0xC0) ? -1 : der.data()[0]) {
      case ASN1_TAG_INTEGER: {
        ASN1Integer i;
        ASSERT_EQ(0, i.fromASN1Object(der));
        if (v.length() > 0 && v.data()[0] < 0x80) {
          std::string hex = ToHex(v);
          if (hex.size() > 2 && hex.compare(0, 2, "00") == 0) hex = hex.substr(2);
          for (char& c : hex) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
          l->value = hex;
        }
        break;
      }
      case ASN1_TAG_OID: {
        ASN1ObjectIdentifier oid;
        ASSERT_EQ(0, oid.fromASN1Object(der));
        EXPECT_GT(oid.getOID(' ').length(), 0) << Str(oid.getErrorMessage());
        break;
      }
      case ASN1_TAG_UTCTIME: {
        ASN1UTCTime t;
        EXPECT_EQ(0, t.fromASN1Object(der)) << Str(t.getErrorMessage());
        l->value = Str(v);
        break;
      }
      case ASN1_TAG_GENERALIZEDTIME: {
        ASN1GeneralizedTime t;
        EXPECT_EQ(0, t.fromASN1Object(der)) << Str(t.getErrorMessage());
        l->value = Str(v);
        break;
      }
      case ASN1_TAG_PRINTABLESTRING:
      case ASN1_TAG_IA5STRING:
      case ASN1_TAG_UTF8STRING:
        if (PrintableText(v)) l->value = Str(v);
        break;
      default:
        break;
    }
  }
};

}  // namespace

TEST(ASN1OpensslCross, ComponentWalkMatchesAsn1parse) {
  const char* files[] = {
      "asn1/ca.der",                    // RSA CA certificate
      "asn1/leaf.der",                  // EC certificate with many extensions
      "asn1/crl.der",                   // CRL with a revoked entry
      "asn1/cms-signed.der",            // CMS SignedData, definite lengths
      "asn1/cms-signed-indefinite.der", // CMS SignedData streamed: indefinite lengths
      "asn1/cms-enveloped.der",         // CMS EnvelopedData
      "asn1/korean-pki/CaPubs_All.der", // 24 real CA certificates in one SEQUENCE OF
      "asn1/korean-pki/test_KTNET_signCert.der",
      "asn1/korean-pki/TradeSignTSA2.der",
      "asn1/korean-pki/KISA-RootCA-4.crl",
  };
  for (const char* file : files) {
    SCOPED_TRACE(file);
    const ByteString der = qvatest::ReadFileBs(DataPath(file));
    ASSERT_GT(der.length(), 0);
    std::vector<Line> expected = OpensslLines(DataPath(file));
    ASSERT_GT(expected.size(), 10u);
    Walker walker;
    walker.element(der, 0, 0);
    ASSERT_FALSE(HasFailure());
    ASSERT_EQ(expected.size(), walker.lines.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      Line& e = expected[i];
      const Line& ours = walker.lines[i];
      // asn1parse names values it knows (OIDs) or dumps them: compare where we kept one.
      if (ours.value.empty()) e.value.clear();
      ASSERT_EQ(Describe(e), Describe(ours)) << "line " << i;
    }
    EXPECT_GT(walker.primitives, 5);
  }
}

namespace {

template <typename T>
ByteString Encoded(T&& object) {
  return object.toASN1Object();
}

template <typename T>
T Tagged(T object, bool explicitTag, int tagNo, unsigned char tagClass) {
  if (explicitTag) {
    object.setExplicitTag(tagNo, tagClass);
  } else {
    object.setImplicitTag(tagNo, tagClass);
  }
  return object;
}

ByteString OidOf(const char* text) {
  ASN1ObjectIdentifier oid;
  EXPECT_EQ(0, oid.setOID(text));
  return oid.toASN1Object();
}

template <typename T>
ByteString TextOf(const char* text) {
  T t;
  EXPECT_EQ(0, t.setValue(text)) << text;
  return t.toASN1Object();
}

ByteString NamedBits(const char* hex) {
  ASN1BitString b;
  EXPECT_EQ(0, b.setBitString(qvatest::Hex(hex), 1));
  return b.toASN1Object();
}

template <typename T>
ByteString TimeOf(int y, int mo, int d, int h, int mi, int sec) {
  T t;
  EXPECT_EQ(0, t.setGMTTime(UtcSeconds(y, mo, d, h, mi, sec)));
  return t.toASN1Object();
}

}  // namespace

TEST(ASN1OpensslCross, EncodingsMatchAsn1parseGenstr) {
  const std::string long300(600, 'A');
  struct Case {
    std::string genstr;  // what `openssl asn1parse -genstr` encodes
    std::function<ByteString()> ours;
  };
  const Case cases[] = {
      {"OID:1.2.840.113549.1.5.13", [] { return OidOf("1 2 840 113549 1 5 13"); }},
      {"OID:1.2.410.200004.1.15.1", [] { return OidOf("1.2.410.200004.1.15.1"); }},
      {"OID:2.5.29.32.0", [] { return OidOf("2 5 29 32 0"); }},
      {"INTEGER:0", [] { return Encoded(ASN1Integer(0)); }},
      {"INTEGER:128", [] { return Encoded(ASN1Integer(128)); }},
      {"INTEGER:256", [] { return Encoded(ASN1Integer(256)); }},
      {"INTEGER:-128", [] { return Encoded(ASN1Integer(-128)); }},
      {"INTEGER:-129", [] { return Encoded(ASN1Integer(-129)); }},
      {"INTEGER:2147483647", [] { return Encoded(ASN1Integer(2147483647)); }},
      {"INTEGER:-2147483648", [] { return Encoded(ASN1Integer(-2147483647 - 1)); }},
      {"ENUMERATED:3", [] { return Encoded(ASN1Enumerated(3)); }},
      {"BOOLEAN:TRUE", [] { return Encoded(ASN1Boolean(true)); }},
      {"NULL", [] { return Encoded(ASN1Null()); }},
      {"FORMAT:BITLIST,BITSTRING:0", [] { return NamedBits("80"); }},    // digitalSignature
      {"FORMAT:BITLIST,BITSTRING:5,6", [] { return NamedBits("06"); }},  // keyCertSign, cRLSign
      {"FORMAT:BITLIST,BITSTRING:8", [] { return NamedBits("0080"); }},  // decipherOnly
      {"UTCTIME:491231235959Z", [] { return TimeOf<ASN1UTCTime>(2049, 12, 31, 23, 59, 59); }},
      {"GENERALIZEDTIME:20500101000000Z", [] { return TimeOf<ASN1GeneralizedTime>(2050, 1, 1, 0, 0, 0); }},
      {"IA5STRING:test@example.kr", [] { return TextOf<ASN1IA5String>("test@example.kr"); }},
      {"PRINTABLESTRING:KR", [] { return TextOf<ASN1PrintableString>("KR"); }},
      {"FORMAT:HEX,OCTETSTRING:" + long300,
       [] {
         ASN1OctetString o;
         o.setValue(qvatest::Hex(std::string(600, 'A')));
         return o.toASN1Object();
       }},
      {"EXP:0,INTEGER:2", [] { return Encoded(Tagged(ASN1Integer(2), true, 0, ASN1_CLASS_CONTEXT)); }},
      {"EXP:200,INTEGER:7", [] { return Encoded(Tagged(ASN1Integer(7), true, 200, ASN1_CLASS_CONTEXT)); }},
      {"IMP:31,INTEGER:65", [] { return Encoded(Tagged(ASN1Integer(65), false, 31, ASN1_CLASS_CONTEXT)); }},
      {"IMP:5A,INTEGER:1", [] { return Encoded(Tagged(ASN1Integer(1), false, 5, ASN1_CLASS_APPLICATION)); }},
      {"IMP:3P,NULL", [] { return Encoded(Tagged(ASN1Null(), false, 3, ASN1_CLASS_PRIVATE)); }},
      {"IMP:1,SEQUENCE:two",
       [] {
         ASN1Sequence seq;
         seq.addComponent(ASN1Integer(1).toASN1Object());
         seq.addComponent(ASN1Null().toASN1Object());
         seq.setImplicitTag(1, ASN1_CLASS_CONTEXT);
         return seq.toASN1Object();
       }},
      {"SET:two",
       [] {
         ASN1Set set;
         set.addComponent(ASN1Integer(1).toASN1Object());
         set.addComponent(ASN1Null().toASN1Object());
         return set.toASN1Object();
       }},
  };
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("conf"), std::string("[two]\na=INTEGER:1\nb=NULL\n"));
  for (const Case& c : cases) {
    SCOPED_TRACE(c.genstr.substr(0, 40));
    ASSERT_EQ(0, qvatest::Run("openssl asn1parse -genstr '" + c.genstr + "' -genconf '" + dir.file("conf") +
                              "' -noout -out '" + dir.file("out.der") + "'"));
    EXPECT_EQ(ToHex(qvatest::ReadFileBs(dir.file("out.der"))), ToHex(c.ours()));
  }
}
