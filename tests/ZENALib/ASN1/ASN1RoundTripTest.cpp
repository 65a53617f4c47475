// Property tests: random trees of every universal type, nested and tagged every way, encode,
// decode (every component's tag key and value) and encode again to the same bytes; rewritten
// with indefinite lengths they read as their definite forms.
#include <map>
#include <random>
#include <vector>

#include "tests/ZENALib/ASN1/ASN1TestUtil.h"

using namespace asn1test;

namespace {

// A value as an encode.txt record (Class, value, Tag; Native: what its class must read).
struct Node {
  Record rec;
  int tagging = 0, tagNo = 0;  // 0 untagged, 1 implicit, 2 explicit
  unsigned char tagClass = 0x80;
  ByteString value;  // the contents the encoder stored
  std::vector<Node> children;
  bool container() const { return rec.at("Class") == "ASN1Sequence" || rec.at("Class") == "ASN1Set"; }
};

struct Generator {
  explicit Generator(unsigned seed) : m_rng(seed) {
    for (const Record& r : ReadVectors(DataPath("asn1/strings.txt"))) m_chars[r.at("Class")] = Accepted(r.at("Accept"));
  }

  Node tree(int depth, const std::string& cls = "") {
    Node n;
    const bool container = depth > 0 && pick(3) == 0;
    n.rec["Class"] = !cls.empty() ? cls : container ? (pick(2) ? "ASN1Sequence" : "ASN1Set") : Primitive();
    if (cls.empty()) tag(&n);
    if (n.container()) {
      for (int i = cls.empty() ? pick(7) : 0; i > 0; --i) n.children.push_back(tree(depth - 1));
    } else {
      value(&n);
    }
    return n;
  }
  int pick(int n) { return static_cast<int>(m_rng() % static_cast<unsigned>(n)); }
  std::string Primitive() {
    const std::string c = kClasses[pick(18)];
    return c == "ASN1Sequence" || c == "ASN1Set" ? "ASN1Null" : c;
  }
  void tag(Node* n) {
    const int r = pick(4);
    if (r < 2) return;  // half untagged
    // Tag numbers cover the one-octet form and high tags of 2 and 3 octets; implicit tags on
    // primitives in any class, explicit ones in context class, which data can tell apart.
    static const int kNumbers[] = {0, 1, 2, 3, 15, 30, 31, 100, 127, 128, 5000, 16383, 16384, 2097151};
    n->tagNo = kNumbers[pick(14)];
    n->tagging = r == 2 && !n->container() ? 1 : 2;
    const int c = n->tagging == 1 ? pick(3) : 1;
    n->tagClass = static_cast<unsigned char>(0x40 * (c + 1));
    n->rec["Tag"] = (n->tagging == 1 ? "implicit " : "explicit ") + std::to_string(n->tagNo) +
                    (c == 0 ? " application" : c == 1 ? " context" : " private");
  }
  std::string bytes(int maxLen, const std::string& a = "") {  // any octets, or those of a
    // Lengths around the one- and two-octet length forms turn up often.
    static const int kLengths[] = {0, 1, 2, 127, 128, 255, 256, 300};
    const int len = pick(3) == 0 ? kLengths[pick(8)] % (maxLen + 1) : pick(maxLen + 1);
    std::string s;
    for (int i = 0; i < len; ++i) s += a.empty() ? static_cast<char>(pick(256)) : a[pick(static_cast<int>(a.size()))];
    return ToHex(ByteString(s.data(), static_cast<int>(s.size())));
  }
  void value(Node* n) {
    const std::string cls = n->rec["Class"];
    Record& r = n->rec;
    const std::uint32_t v = (pick(2) ? ~0u : 0u) ^ (static_cast<std::uint32_t>(m_rng()) >> pick(32));  // any width
    if (cls == "ASN1Boolean") r["Bool"] = r["Native"] = pick(2) ? "true" : "false";
    else if (cls == "ASN1Integer" || cls == "ASN1Enumerated") r["Int"] = r["Native"] = std::to_string(std::int32_t(v));
    else if (cls == "ASN1BitString") {
      r["Bits"] = bytes(40);  // as a named list unless all bits are zero, which is refused
      r["Named"] = pick(2) && r["Bits"].find_first_not_of('0') != std::string::npos ? "1" : "0";
    } else if (cls == "ASN1ObjectIdentifier") {
      std::string text = std::to_string(pick(3)) + "." + std::to_string(pick(40));
      for (int i = pick(18); i > 0; --i) text += "." + std::to_string(m_rng() % (pick(2) ? 200u : 0x10000000u));
      r["Oid"] = r["Native"] = text;
    } else if (cls == "ASN1UTCTime" || cls == "ASN1GeneralizedTime") {
      const auto t = cls == "ASN1UTCTime" ? m_rng() % 2524608000u : (std::uint64_t(m_rng()) << 6) % 253402300800ull;
      r["Time"] = std::to_string(t);  // UTCTime before 2050, GeneralizedTime before 10000
      r["Native"] = TimeText(static_cast<std::time_t>(t));
    } else if (cls != "ASN1Null") {
      // Restricted strings from their accepted characters (strings.txt), others any octets.
      const std::string chars = m_chars.count(cls) ? m_chars[cls] : "";
      r["Hex"] = bytes(cls == "ASN1BMPString" ? 20 : !chars.empty() && cls != "ASN1IA5String" ? 30 : 300, chars);
      if (cls == "ASN1BMPString" && r["Hex"].size() % 4) r["Hex"] += "78";  // whole UCS-2 characters
    }
  }
  std::mt19937 m_rng;
  std::map<std::string, std::string> m_chars;  // restricted strings' characters
};

// Encodes a node with its class; records the contents decoders must find.
ByteString Encode(Node& n) {
  for (Node& child : n.children) n.rec["Items"] += ToHex(Encode(child)) + " ";
  auto o = Make(n.rec);
  EXPECT_EQ(0, Build(*o, n.rec)) << Str(o->getErrorMessage());
  n.value = o->getValue();
  const ByteString der = o->toASN1Object();
  EXPECT_EQ(0, o->getErrorCode()) << Str(o->getErrorMessage());
  return der;
}

// Decodes der as the node's class, checks what it holds, and returns its re-encoding.
ByteString DecodeAndEncode(const Node& n, const ByteString& der) {
  auto o = Make(n.rec);
  EXPECT_EQ(0, o->fromASN1Object(der)) << Str(o->getErrorMessage());
  EXPECT_EQ(n.tagging, o->getTaggedType());
  if (n.tagging) { EXPECT_EQ(n.tagNo, o->getOptionTagNo()); EXPECT_EQ(n.tagClass, o->getTagClass()); }
  EXPECT_EQ(n.value, o->getValue());
  if (n.rec.count("Native")) { EXPECT_EQ(n.rec.at("Native"), Native(*o, n.rec.at("Class"))); }
  if (auto* seq = dynamic_cast<ASN1Sequence*>(o.get())) {
    EXPECT_EQ(static_cast<int>(n.children.size()), seq->getComponentCount());
    for (int i = 0; i < seq->getComponentCount() && i < static_cast<int>(n.children.size()); ++i) {
      const Node& child = n.children[static_cast<std::size_t>(i)];
      const int tag = Make(child.rec)->getPrimitiveTag();
      EXPECT_EQ(child.tagging ? child.tagNo : -tag, seq->getComponentOptionTagNo(i));
      EXPECT_EQ(child.tagging ? -2 : tag, seq->getComponentTag(i));
      const ByteString component = seq->getComponent(i);
      EXPECT_EQ(component, DecodeAndEncode(child, component));
    }
  }
  return o->toASN1Object();
}

// The same tree with every constructed element in BER indefinite-length form.
ByteString ToIndefinite(const ByteString& der) {
  if (!(der.data()[0] & ASN1_CONSTRUCTED)) return der;
  int idLen = 0;
  ASN1Sequence seq = Split(der, &idLen);
  ByteString out(der.data(), idLen);
  out += static_cast<char>(0x80);
  for (int i = 0; i < seq.getComponentCount(); ++i) out += ToIndefinite(seq.getComponent(i));
  out.append("\0\0", 2);
  return out;
}

// Depth, identifier and contents of every element, in walk order.
std::string Flatten(const ByteString& encoding, int depth = 0) {
  int idLen = 0;
  ASN1Sequence seq = Split(encoding, &idLen);
  std::string out = std::to_string(depth) + ":" + ToHex(ByteString(encoding.data(), idLen));
  if (encoding.data()[0] & ASN1_CONSTRUCTED) {
    out += "{" + std::to_string(seq.getComponentCount()) + "}";
    for (int i = 0; i < seq.getComponentCount(); ++i) out += Flatten(seq.getComponent(i), depth + 1);
    return out;
  }
  ASN1Object o;
  EXPECT_EQ(0, o.fromASN1Object(encoding)) << Str(o.getErrorMessage());
  return out + "=" + ToHex(o.getValue()) + " ";
}

}  // namespace

TEST(ASN1RoundTrip, RandomTreesEncodeDecodeAndEncodeAgain) {
  int nodes = 0;
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(seed);
    Generator gen(seed);
    Node root = gen.tree(4);
    const ByteString der = Encode(root);
    ASSERT_GT(der.length(), 0);
    EXPECT_EQ(ToHex(der), ToHex(DecodeAndEncode(root, der)));
    // The untyped holder reads the same element back to the same bytes,
    // except under an implicit tag, which hides the type it would need.
    ASN1Object generic;
    ASSERT_EQ(0, generic.fromASN1Object(der));
    if (root.tagging != 1) { EXPECT_EQ(ToHex(der), ToHex(generic.toASN1Object())); }
    if (HasFailure()) return;  // one failing tree is enough to look at
    nodes += 1 + static_cast<int>(root.children.size());
  }
  EXPECT_GT(nodes, 400);
}

TEST(ASN1RoundTrip, IndefiniteLengthFormsReadAsTheirDefiniteForms) {
  for (unsigned seed = 1000; seed < 1200; ++seed) {
    SCOPED_TRACE(seed);
    Generator gen(seed);
    // A constructed root, so the outer length is indefinite too; some under an explicit tag.
    Node root = gen.tree(0, seed % 2 ? "ASN1Sequence" : "ASN1Set");
    if (seed % 3 == 0) root.rec["Tag"] = "explicit " + std::to_string(seed % 40) + " context";
    root.children = {gen.tree(4), gen.tree(3)};
    const ByteString der = Encode(root);
    const ByteString ber = ToIndefinite(der);
    ASSERT_NE(der, ber);
    EXPECT_EQ(Flatten(der), Flatten(ber));
    // The typed decoder finds the same components in both forms.
    if (seed % 3 != 0 && seed % 2) {
      ASN1Sequence a, b;
      ASSERT_EQ(0, a.fromASN1Object(der));
      ASSERT_EQ(0, b.fromASN1Object(ber)) << Str(b.getErrorMessage());
      EXPECT_EQ(a.getComponentCount(), b.getComponentCount());
    }
    if (HasFailure()) return;
  }
}
