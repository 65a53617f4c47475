// Property test: random trees of values of every universal type, nested
// sequences and sets, with tags of every kind and number, encode, decode
// (checking every component's tag key and value) and encode again to the
// same bytes.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "ZENALib/ASN1/ASN1BMPString.h"
#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1Enumerated.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1IA5String.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1Null.h"
#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1/ASN1Sequence.h"
#include "ZENALib/ASN1/ASN1Set.h"
#include "ZENALib/ASN1/ASN1T61String.h"
#include "ZENALib/ASN1/ASN1UTCTime.h"
#include "ZENALib/ASN1/ASN1UTF8String.h"
#include "ZENALib/ASN1/ASN1VisibleString.h"
#include "tests/support/TestUtil.h"

using qvatest::Str;
using qvatest::ToHex;

namespace {

enum Kind {
  kBoolean, kInteger, kBitString, kOctetString, kNull, kOid, kEnumerated, kUtf8, kNumeric, kPrintable,
  kT61, kIa5, kUtcTime, kGeneralizedTime, kVisible, kBmp, kSequence, kSet, kKinds
};

std::unique_ptr<ASN1Object> Make(int kind) {
  switch (kind) {
    case kBoolean: return std::make_unique<ASN1Boolean>();
    case kInteger: return std::make_unique<ASN1Integer>();
    case kBitString: return std::make_unique<ASN1BitString>();
    case kOctetString: return std::make_unique<ASN1OctetString>();
    case kNull: return std::make_unique<ASN1Null>();
    case kOid: return std::make_unique<ASN1ObjectIdentifier>();
    case kEnumerated: return std::make_unique<ASN1Enumerated>();
    case kUtf8: return std::make_unique<ASN1UTF8String>();
    case kNumeric: return std::make_unique<ASN1NumericString>();
    case kPrintable: return std::make_unique<ASN1PrintableString>();
    case kT61: return std::make_unique<ASN1T61String>();
    case kIa5: return std::make_unique<ASN1IA5String>();
    case kUtcTime: return std::make_unique<ASN1UTCTime>();
    case kGeneralizedTime: return std::make_unique<ASN1GeneralizedTime>();
    case kVisible: return std::make_unique<ASN1VisibleString>();
    case kBmp: return std::make_unique<ASN1BMPString>();
    case kSequence: return std::make_unique<ASN1Sequence>();
    default: return std::make_unique<ASN1Set>();
  }
}

struct Node {
  int kind = kNull;
  int tagging = 0;  // 0 untagged, 1 implicit, 2 explicit
  int tagNo = 0;
  unsigned char tagClass = 0x80;
  ByteString value;   // the contents a decoder must find
  std::int64_t native = 0;  // integer, boolean or time, where the type has one
  ByteString oidText;
  std::vector<Node> children;
};

class Generator {
 public:
  explicit Generator(unsigned seed) : m_rng(seed) {}

  Node tree(int depth) {
    Node n;
    const bool container = depth > 0 && pick(3) == 0;
    n.kind = container ? (pick(2) ? kSequence : kSet) : pick(kSequence);
    fillTag(&n);
    if (container) {
      const int count = pick(7);
      for (int i = 0; i < count; ++i) n.children.push_back(tree(depth - 1));
    } else {
      fillValue(&n);
    }
    return n;
  }

 private:
  int pick(int n) { return static_cast<int>(m_rng() % static_cast<unsigned>(n)); }

  void fillTag(Node* n) {
    const int r = pick(4);
    if (r < 2) return;  // half untagged
    // Tag numbers cover the one-octet form and high tags of 2 and 3 octets.
    static const int kNumbers[] = {0, 1, 2, 3, 15, 30, 31, 100, 127, 128, 5000, 16383, 16384, 2097151};
    n->tagNo = kNumbers[pick(sizeof kNumbers / sizeof kNumbers[0])];
    const bool constructed = n->kind == kSequence || n->kind == kSet;
    if (r == 2 && !constructed) {
      // An implicit tag on a primitive value, in any class.
      static const unsigned char kClasses[] = {0x40, 0x80, 0xC0};
      n->tagging = 1;
      n->tagClass = kClasses[pick(3)];
    } else {
      // Explicit context tags: data can tell those apart from implicit ones.
      n->tagging = 2;
      n->tagClass = 0x80;
    }
  }

  ByteString bytes(int maxLen, const std::string& alphabet = "") {
    // Lengths around the one- and two-octet length forms turn up often.
    static const int kLengths[] = {0, 1, 2, 127, 128, 255, 256, 300};
    const int len = pick(3) == 0 ? kLengths[pick(8)] % (maxLen + 1) : pick(maxLen + 1);
    std::string s;
    for (int i = 0; i < len; ++i)
      s += alphabet.empty() ? static_cast<char>(pick(256)) : alphabet[static_cast<std::size_t>(pick(static_cast<int>(alphabet.size())))];
    return ByteString(s.data(), static_cast<int>(s.size()));
  }

  void fillValue(Node* n) {
    const std::string digits = "0123456789";
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::string ia5;
    for (int c = 0x20; c <= 0x7E; ++c) ia5 += static_cast<char>(c);
    switch (n->kind) {
      case kBoolean: n->native = pick(2); break;
      case kInteger:
      case kEnumerated: {
        // Magnitudes of every width, either sign.
        std::uint32_t v = static_cast<std::uint32_t>(m_rng()) >> pick(32);
        if (pick(2)) v = ~v;
        n->native = static_cast<std::int32_t>(v);
        break;
      }
      case kBitString: n->value = bytes(40); n->native = pick(2); break;
      case kOid: {
        std::string text = std::to_string(pick(3)) + "." + std::to_string(pick(40));
        const int arcs = pick(18);
        for (int i = 0; i < arcs; ++i) text += "." + std::to_string(m_rng() % (pick(2) ? 200u : 0x10000000u));
        n->oidText = ByteString(text.c_str());
        break;
      }
      case kNull: break;
      case kNumeric: n->value = bytes(30, digits + " "); break;
      case kPrintable: n->value = bytes(30, letters + digits + " '()+,-./:=?"); break;
      case kIa5: n->value = bytes(300, ia5); break;
      case kVisible: n->value = bytes(30, letters + digits + " !\"%&'()*+,-./:;<=>?@\\^_|~"); break;
      case kUtcTime: n->native = static_cast<std::int64_t>(m_rng() % 2524608000u); break;  // before 2050
      case kGeneralizedTime: n->native = static_cast<std::int64_t>((std::uint64_t(m_rng()) << 6) % 253402300800ull); break;
      case kBmp: n->value = bytes(20); if (n->value.length() % 2) n->value += 'x'; break;
      default: n->value = bytes(300); break;
    }
  }

  std::mt19937 m_rng;
};

// Encodes a node with the typed classes; records the contents decoders must find.
ByteString Encode(Node& n) {
  std::unique_ptr<ASN1Object> o = Make(n.kind);
  switch (n.kind) {
    case kBoolean: static_cast<ASN1Boolean&>(*o).setBoolean(n.native != 0); break;
    case kInteger: static_cast<ASN1Integer&>(*o).setInteger(static_cast<int>(n.native)); break;
    case kEnumerated: static_cast<ASN1Enumerated&>(*o).setEnumerated(static_cast<int>(n.native)); break;
    case kBitString: {
      auto& b = static_cast<ASN1BitString&>(*o);
      if (b.setBitString(n.value, static_cast<int>(n.native)) != 0) {
        EXPECT_EQ(0, b.setBitString(n.value, 0));
      }
      break;
    }
    case kOid: EXPECT_EQ(0, static_cast<ASN1ObjectIdentifier&>(*o).setOID(n.oidText.c_str())) << n.oidText.c_str(); break;
    case kUtcTime: EXPECT_EQ(0, static_cast<ASN1UTCTime&>(*o).setGMTTime(static_cast<std::time_t>(n.native))); break;
    case kGeneralizedTime:
      EXPECT_EQ(0, static_cast<ASN1GeneralizedTime&>(*o).setGMTTime(static_cast<std::time_t>(n.native)));
      break;
    case kSequence:
    case kSet: {
      auto& seq = static_cast<ASN1Sequence&>(*o);
      for (Node& child : n.children) EXPECT_EQ(0, seq.addComponent(Encode(child)));
      break;
    }
    case kNull: break;
    default: EXPECT_EQ(0, o->setValue(n.value)); break;
  }
  n.value = o->getValue();
  if (n.tagging == 1) o->setImplicitTag(n.tagNo, n.tagClass);
  if (n.tagging == 2) o->setExplicitTag(n.tagNo, n.tagClass);
  const ByteString der = o->toASN1Object();
  EXPECT_EQ(0, o->getErrorCode()) << Str(o->getErrorMessage());
  return der;
}

// Decodes der as the node's type, checks what it holds, and returns its re-encoding.
ByteString DecodeAndEncode(const Node& n, const ByteString& der) {
  std::unique_ptr<ASN1Object> o = Make(n.kind);
  EXPECT_EQ(0, o->fromASN1Object(der)) << Str(o->getErrorMessage());
  EXPECT_EQ(n.tagging, o->getTaggedType());
  if (n.tagging) {
    EXPECT_EQ(n.tagNo, o->getOptionTagNo());
    EXPECT_EQ(n.tagClass, o->getTagClass());
  }
  EXPECT_EQ(n.value, o->getValue());
  switch (n.kind) {
    case kBoolean: EXPECT_EQ(n.native != 0, static_cast<ASN1Boolean&>(*o).getBoolean()); break;
    case kInteger: EXPECT_EQ(n.native, static_cast<ASN1Integer&>(*o).getInteger()); break;
    case kEnumerated: EXPECT_EQ(n.native, static_cast<ASN1Enumerated&>(*o).getEnumerated()); break;
    case kUtcTime: EXPECT_EQ(n.native, static_cast<ASN1UTCTime&>(*o).getGMTTime()); break;
    case kGeneralizedTime: EXPECT_EQ(n.native, static_cast<ASN1GeneralizedTime&>(*o).getGMTTime()); break;
    case kOid: {
      std::string dotted = Str(static_cast<ASN1ObjectIdentifier&>(*o).getOID('.'));
      EXPECT_EQ(Str(n.oidText), dotted);
      break;
    }
    case kSequence:
    case kSet: {
      auto& seq = static_cast<ASN1Sequence&>(*o);
      EXPECT_EQ(static_cast<int>(n.children.size()), seq.getComponentCount());
      for (int i = 0; i < seq.getComponentCount() && i < static_cast<int>(n.children.size()); ++i) {
        const Node& child = n.children[static_cast<std::size_t>(i)];
        const int tag = child.kind == kSequence ? 16 : child.kind == kSet ? 17 : Make(child.kind)->getPrimitiveTag();
        EXPECT_EQ(child.tagging ? child.tagNo : -tag, seq.getComponentOptionTagNo(i));
        EXPECT_EQ(child.tagging ? -2 : tag, seq.getComponentTag(i));
        const ByteString component = seq.getComponent(i);
        EXPECT_EQ(component, DecodeAndEncode(child, component));
      }
      break;
    }
    default: break;
  }
  return o->toASN1Object();
}

// Identifier octets of an encoding.
int IdentifierLength(const ByteString& der) {
  if ((der.data()[0] & 0x1F) != 0x1F) return 1;
  ASN1Object probe;
  return probe.GetHighTag(der.data(), der.length(), nullptr, true);
}

// The components of any constructed element, read through a SEQUENCE identifier.
ASN1Sequence Split(const ByteString& der) {
  const int idLen = IdentifierLength(der);
  ByteString asSequence("\x30", 1);
  asSequence.append(der.data() + idLen, der.length() - idLen);
  ASN1Sequence seq;
  EXPECT_EQ(0, seq.fromASN1Object(asSequence)) << Str(seq.getErrorMessage());
  return seq;
}

// The same tree with every constructed element in BER indefinite-length form.
ByteString ToIndefinite(const ByteString& der) {
  if (!(der.data()[0] & ASN1_CONSTRUCTED)) return der;
  ByteString out(der.data(), IdentifierLength(der));
  out += static_cast<char>(0x80);
  ASN1Sequence seq = Split(der);
  for (int i = 0; i < seq.getComponentCount(); ++i) out += ToIndefinite(seq.getComponent(i));
  out.append("\0\0", 2);
  return out;
}

// Depth, identifier and contents of every primitive, in walk order.
void Flatten(const ByteString& encoding, int depth, std::string* out) {
  const int idLen = IdentifierLength(encoding);
  *out += std::to_string(depth) + ":" + ToHex(ByteString(encoding.data(), idLen));
  if (encoding.data()[0] & ASN1_CONSTRUCTED) {
    ASN1Sequence seq = Split(encoding);
    *out += "{" + std::to_string(seq.getComponentCount()) + "}";
    for (int i = 0; i < seq.getComponentCount(); ++i) Flatten(seq.getComponent(i), depth + 1, out);
    return;
  }
  ASN1Object o;
  EXPECT_EQ(0, o.fromASN1Object(encoding)) << Str(o.getErrorMessage());
  *out += "=" + ToHex(o.getValue()) + " ";
}

}  // namespace

TEST(ASN1RoundTrip, IndefiniteLengthFormsReadAsTheirDefiniteForms) {
  for (unsigned seed = 1000; seed < 1200; ++seed) {
    SCOPED_TRACE(seed);
    Generator gen(seed);
    // A constructed root, so the outer length is indefinite too; some under an explicit tag.
    Node root;
    root.kind = seed % 2 ? kSequence : kSet;
    root.tagging = seed % 3 == 0 ? 2 : 0;
    root.tagNo = static_cast<int>(seed % 40);
    root.children.push_back(gen.tree(4));
    root.children.push_back(gen.tree(3));
    const ByteString der = Encode(root);
    const ByteString ber = ToIndefinite(der);
    ASSERT_NE(der, ber);
    std::string fromDer, fromBer;
    Flatten(der, 0, &fromDer);
    Flatten(ber, 0, &fromBer);
    EXPECT_EQ(fromDer, fromBer);
    // The typed decoder finds the same components in both forms.
    ASN1Sequence a, b;
    if (root.tagging == 0 && root.kind == kSequence) {
      ASSERT_EQ(0, a.fromASN1Object(der));
      ASSERT_EQ(0, b.fromASN1Object(ber)) << Str(b.getErrorMessage());
      EXPECT_EQ(a.getComponentCount(), b.getComponentCount());
    }
    if (HasFailure()) return;
  }
}

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
    // except an implicit tag, which hides the type it would need.
    if (root.tagging != 1) {
      ASN1Object generic;
      ASSERT_EQ(0, generic.fromASN1Object(der));
      EXPECT_EQ(ToHex(der), ToHex(generic.toASN1Object()));
    }
    if (HasFailure()) return;  // one failing tree is enough to look at
    nodes += 1 + static_cast<int>(root.children.size());
  }
  EXPECT_GT(nodes, 400);
}
