// Cross-checks with the openssl CLI: our component walk against `openssl asn1parse` on every
// fixture, and our encodings against `openssl asn1parse -genstr`.
#include <cctype>
#include <map>
#include <utility>
#include <vector>

#include "tests/ZENALib/ASN1/ASN1TestUtil.h"

using namespace asn1test;

namespace {

// A line as asn1parse prints it ("0:d=0  hl=4 l= 858 cons: SEQUENCE"), blanks
// squeezed, and the value text after it.
using Line = std::pair<std::string, std::string>;

Line MakeLine(long offset, int depth, long header, long length, bool cons, const std::string& type,
              const std::string& value = "") {
  return {std::to_string(offset) + ":d=" + std::to_string(depth) + " hl=" + std::to_string(header) +
              " l=" + (length < 0 ? "inf" : std::to_string(length)) + (cons ? " cons: " : " prim: ") + type,
          value};
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
                             m[5] == "cons", type, m[8]));
  }
  return lines;
}

// asn1parse's names of the universal tags.
const std::map<int, std::string> kNames = {{0, "EOC"}, {1, "BOOLEAN"}, {2, "INTEGER"}, {3, "BIT STRING"},
    {4, "OCTET STRING"}, {5, "NULL"}, {6, "OBJECT"}, {10, "ENUMERATED"}, {12, "UTF8STRING"}, {16, "SEQUENCE"},
    {17, "SET"}, {18, "NUMERICSTRING"}, {19, "PRINTABLESTRING"}, {20, "T61STRING"}, {22, "IA5STRING"},
    {23, "UTCTIME"}, {24, "GENERALIZEDTIME"}, {26, "VISIBLESTRING"}, {30, "BMPSTRING"}};

// Walks an element through our classes, producing asn1parse-shaped lines;
// every universal primitive is decoded by its class, which must read it.
void Walk(const ByteString& der, long offset, int depth, std::vector<Line>* lines, int* primitives) {
  const unsigned char first = der.data()[0];
  int idLen = 0, tagNo = first & 0x1F;
  ASN1Sequence seq = Split(der, &idLen, &tagNo);  // any constructed element is split as a SEQUENCE
  ASSERT_GT(idLen, 0);
  const int cls = first & 0xC0;
  const std::string type = cls == 0 ? kNames.at(first & 0x1F)
                                    : std::string(cls == 0x80 ? "cont" : cls == 0x40 ? "appl" : "priv") + " [ " +
                                          std::to_string(tagNo) + " ]";
  if (!(first & 0x20)) {
    ASN1Object o;
    ASSERT_EQ(0, o.fromASN1Object(der)) << Str(o.getErrorMessage());
    lines->push_back(MakeLine(offset, depth, der.length() - o.getValueLength(), o.getValueLength(), false, type));
    ++*primitives;
    std::string name;  // our class for the universal tag
    for (const char* c : kClasses) name = cls == 0 && Make(c)->getPrimitiveTag() == first ? c : name;
    if (name.empty()) return;
    auto typed = Make(name);
    ASSERT_EQ(0, typed->fromASN1Object(der)) << Str(typed->getErrorMessage());
    EXPECT_EQ(std::string::npos, Native(*typed, name).find("code ")) << Native(*typed, name);
    // The value text where asn1parse prints the same: integers as hex, texts as they are.
    const ByteString& v = o.getValue();
    const bool printable = std::regex_match(Str(v), std::regex("[\\x20-\\x7e]+"));
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
    const ByteString component = seq.getComponent(i);
    ASSERT_EQ(seq.getComponentInfo(i)->nLength, component.length());
    Walk(component, offset + header + seq.getComponentInfo(i)->nOffset, depth + 1, lines, primitives);
  }
  if (indefinite) lines->push_back(MakeLine(offset + header + contents, depth + 1, 2, 0, false, "EOC"));
}

}  // namespace

TEST(ASN1OpensslCross, ComponentWalkMatchesAsn1parse) {
  for (const Record& r : ReadVectors(DataPath("asn1/fixtures.txt"))) {
    const std::string file = r.at("File");
    SCOPED_TRACE("fixtures.txt record " + file);
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
      if (!ours[i].second.empty()) { ASSERT_EQ(expected[i].second, ours[i].second) << ours[i].first; }
    }
    EXPECT_GT(primitives, 5);
  }
}

TEST(ASN1OpensslCross, EncodingsMatchAsn1parseGenstr) {
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("conf"), std::string("[two]\na=INTEGER:1\nb=NULL\n"));
  const auto records = ReadVectors(DataPath("asn1/genstr.txt"));
  ASSERT_GT(records.size(), 25u);
  for (const Record& r : records) {
    SCOPED_TRACE("genstr.txt record " + Field(r, "Name"));
    const std::string genstr = Field(r, "Genstr");
    ASSERT_EQ(0, qvatest::Run("openssl asn1parse -genstr '" + genstr + "' -genconf '" + dir.file("conf") +
                              "' -noout -out '" + dir.file("out.der") + "'"));
    auto ours = Make(r);
    ASSERT_EQ(0, Build(*ours, r));
    EXPECT_EQ(ToHex(qvatest::ReadFileBs(dir.file("out.der"))), ToHex(ours->toASN1Object()));
  }
}
