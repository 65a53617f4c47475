// Cross-check with the openssl CLI: for certificates, CRLs and CMS messages
// (openssl-made and real Korean PKI ones), walking our sequences' component
// tables recursively finds the same offsets, depths, header lengths, lengths
// and tags that `openssl asn1parse` prints, and every primitive decodes.
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <utility>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/ZENALib/ASN1/ASN1TestUtil.h"

using namespace asn1test;
using qvatest::DataPath;

namespace {

// A line as asn1parse prints it ("0:d=0  hl=4 l= 858 cons: SEQUENCE"), blanks
// squeezed, and the value text after it.
using Line = std::pair<std::string, std::string>;

Line MakeLine(long offset, int depth, long header, long length, bool cons, const std::string& type) {
  return {std::to_string(offset) + ":d=" + std::to_string(depth) + " hl=" + std::to_string(header) +
              " l=" + (length < 0 ? "inf" : std::to_string(length)) + (cons ? " cons: " : " prim: ") + type,
          ""};
}

// The lines of `openssl asn1parse`; [HEX DUMP] tails dropped.
std::vector<Line> OpensslLines(const std::string& path) {
  std::string out;
  qvatest::Run("openssl asn1parse -inform DER -in '" + path + "' 2>/dev/null", &out);
  static const std::regex kLine(R"(^\s*(\d+):d=(\d+)\s+hl=(\d+)\s+l=\s*(\d+|inf)\s+(cons|prim):\s+(.*?)\s*(:(.*))?$)");
  std::vector<Line> lines;
  std::istringstream in(out);
  for (std::string text; std::getline(in, text);) {
    std::smatch m;
    if (!std::regex_match(text, m, kLine)) continue;  // continuation of a multi-line value
    std::string type = std::regex_replace(m[6].str(), std::regex(R"(\s*\[HEX DUMP\].*)"), "");
    lines.push_back(MakeLine(std::stol(m[1]), std::stoi(m[2]), std::stol(m[3]), m[4] == "inf" ? -1 : std::stol(m[4]),
                             m[5] == "cons", type));
    lines.back().second = m[8];
  }
  return lines;
}

// asn1parse's names of the universal tags, and our class for each.
const std::map<int, std::pair<const char*, const char*>> kUniversal = {
    {0, {"EOC", ""}}, {1, {"BOOLEAN", "ASN1Boolean"}}, {2, {"INTEGER", "ASN1Integer"}},
    {3, {"BIT STRING", "ASN1BitString"}}, {4, {"OCTET STRING", "ASN1OctetString"}}, {5, {"NULL", "ASN1Null"}},
    {6, {"OBJECT", "ASN1ObjectIdentifier"}}, {10, {"ENUMERATED", "ASN1Enumerated"}},
    {12, {"UTF8STRING", "ASN1UTF8String"}}, {16, {"SEQUENCE", ""}}, {17, {"SET", ""}},
    {18, {"NUMERICSTRING", "ASN1NumericString"}}, {19, {"PRINTABLESTRING", "ASN1PrintableString"}},
    {20, {"T61STRING", "ASN1T61String"}}, {22, {"IA5STRING", "ASN1IA5String"}}, {23, {"UTCTIME", "ASN1UTCTime"}},
    {24, {"GENERALIZEDTIME", "ASN1GeneralizedTime"}}, {26, {"VISIBLESTRING", "ASN1VisibleString"}},
    {30, {"BMPSTRING", "ASN1BMPString"}}};

// Walks an element through our classes, producing asn1parse-shaped lines;
// every universal primitive is decoded by its class, which must read it.
void Walk(const ByteString& der, long offset, int depth, std::vector<Line>* lines, int* primitives) {
  const unsigned char first = der.data()[0];
  int idLen = 0, tagNo = first & 0x1F;
  ASN1Sequence seq = Split(der, &idLen);  // any constructed element is split as a SEQUENCE
  ASN1Object probe;
  if (tagNo == 0x1F) probe.GetHighTag(der.data(), der.length(), &tagNo, true);
  ASSERT_GT(idLen, 0);
  const int cls = first & 0xC0;
  const std::string type = cls == 0 ? kUniversal.at(first & 0x1F).first
                                    : std::string(cls == 0x80 ? "cont" : cls == 0x40 ? "appl" : "priv") + " [ " +
                                          std::to_string(tagNo) + " ]";
  if (!(first & 0x20)) {
    ASN1Object o;
    ASSERT_EQ(0, o.fromASN1Object(der)) << Str(o.getErrorMessage());
    lines->push_back(MakeLine(offset, depth, der.length() - o.getValueLength(), o.getValueLength(), false, type));
    ++*primitives;
    const std::string name = cls == 0 ? kUniversal.at(first).second : "";
    if (name.empty()) return;
    auto typed = Make(name);
    ASSERT_EQ(0, typed->fromASN1Object(der)) << Str(typed->getErrorMessage());
    EXPECT_EQ(std::string::npos, Native(*typed, name).find("code ")) << Native(*typed, name);
    // The value text where asn1parse prints the same: integers as hex, texts as they are.
    const ByteString& v = o.getValue();
    bool printable = v.length() > 0;
    for (int i = 0; i < v.length(); ++i) printable = printable && v.data()[i] >= 0x20 && v.data()[i] <= 0x7E;
    if (first == ASN1_TAG_INTEGER && v.length() > 0 && v.data()[0] < 0x80) {
      std::string hex = ToHex(v);
      if (hex.size() > 2 && hex.compare(0, 2, "00") == 0) hex = hex.substr(2);
      for (char& c : hex) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      lines->back().second = hex;
    } else if (first == ASN1_TAG_UTCTIME || first == ASN1_TAG_GENERALIZEDTIME ||
               ((first == ASN1_TAG_PRINTABLESTRING || first == ASN1_TAG_IA5STRING || first == ASN1_TAG_UTF8STRING) &&
                printable)) {
      lines->back().second = Str(v);
    }
    return;
  }
  const bool indefinite = der.data()[idLen] == 0x80;
  const int contents = seq.getValueLength();
  const long header = der.length() - contents - (indefinite ? 2 : 0);
  lines->push_back(MakeLine(offset, depth, header, indefinite ? -1 : contents, true, type));
  for (int i = 0; i < seq.getComponentCount(); ++i) {
    const long at = offset + header + seq.getComponentInfo(i)->nOffset;
    const ByteString component = seq.getComponent(i);
    ASSERT_EQ(seq.getComponentInfo(i)->nLength, component.length());
    Walk(component, at, depth + 1, lines, primitives);
  }
  if (indefinite) lines->push_back(MakeLine(offset + header + contents, depth + 1, 2, 0, false, "EOC"));
}

}  // namespace

TEST(ASN1OpensslCross, ComponentWalkMatchesAsn1parse) {
  const char* files[] = {
      "asn1/ca.der",                     // RSA CA certificate
      "asn1/leaf.der",                   // EC certificate with many extensions
      "asn1/crl.der",                    // CRL with a revoked entry
      "asn1/cms-signed.der",             // CMS SignedData, definite lengths
      "asn1/cms-signed-indefinite.der",  // CMS SignedData streamed: indefinite lengths
      "asn1/cms-enveloped.der",          // CMS EnvelopedData
      "asn1/korean-pki/CaPubs_All.der",  // 24 real CA certificates in one SEQUENCE OF
      "asn1/korean-pki/test_KTNET_signCert.der",  // real Korean PKI signing certificate
      "asn1/korean-pki/TradeSignTSA2.der",        // real time-stamping authority certificate
      "asn1/korean-pki/KISA-RootCA-4.crl",        // real root CA CRL
  };
  for (const char* file : files) {
    SCOPED_TRACE(file);
    const ByteString der = qvatest::ReadFileBs(DataPath(file));
    ASSERT_GT(der.length(), 0);
    const std::vector<Line> expected = OpensslLines(DataPath(file));
    ASSERT_GT(expected.size(), 10u);
    std::vector<Line> ours;
    int primitives = 0;
    Walk(der, 0, 0, &ours, &primitives);
    ASSERT_FALSE(HasFailure());
    ASSERT_EQ(expected.size(), ours.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      // asn1parse names values it knows (OIDs) or dumps them: compare where we kept one.
      ASSERT_EQ(expected[i].first, ours[i].first) << "line " << i;
      if (!ours[i].second.empty()) { ASSERT_EQ(expected[i].second, ours[i].second) << "line " << i << " " << ours[i].first; }
    }
    EXPECT_GT(primitives, 5);
  }
}

TEST(ASN1OpensslCross, EncodingsMatchAsn1parseGenstr) {
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("conf"), std::string("[two]\na=INTEGER:1\nb=NULL\n"));
  const auto records = qvatest::ReadVectors(DataPath("asn1/genstr.txt"));
  ASSERT_GT(records.size(), 25u);
  for (const Record& r : records) {
    SCOPED_TRACE("genstr.txt record " + Field(r, "Name"));
    std::string genstr = Field(r, "Genstr");
    const auto colon = genstr.rfind(':');
    if (genstr.find('*') != std::string::npos) genstr = genstr.substr(0, colon + 1) + ToHex(Bytes(genstr.substr(colon + 1)));
    ASSERT_EQ(0, qvatest::Run("openssl asn1parse -genstr '" + genstr + "' -genconf '" + dir.file("conf") +
                              "' -noout -out '" + dir.file("out.der") + "'"));
    auto ours = Make(r);
    ASSERT_EQ(0, Build(*ours, r));
    EXPECT_EQ(ToHex(qvatest::ReadFileBs(dir.file("out.der"))), ToHex(ours->toASN1Object()));
  }
}
