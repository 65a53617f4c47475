// The declarative schema of the structure classes.
//
// Every R class states its ASN.1 type once, as a list of its components (one
// row per component, in schema order) from which it gets both its members and
// the static table of RField entries inside its RSchema. One engine reads
// those tables: RStructure for SEQUENCE and SET types, RChoice for CHOICE
// types. A class therefore says what its components are, never how to walk
// them. See README.md in this folder.
//
//   // RValidity.h, before the class (each line but the last ends in a backslash)
//   #define RValidity_COMPONENTS(X)
//     X(RTime, NotBefore, notBefore, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_MANDATORY)
//     X(RTime, NotAfter, notAfter, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_MANDATORY)
//   class RValidity : public RStructure {
//     R_DECLARE_SCHEMA()
//     R_COMPONENTS(RValidity)
//   };
//
//   // RValidity.cpp
//   R_FIELDS(RValidity);
//   const RSchema RValidity::kSchema = R_SCHEMA(RValidity, ASN1_TAG_SEQUENCE, R_EXACTLY(2, "..."), kFields);
#pragma once

#include <cstdint>

#include "ZENALib/ASN1/ASN1Object.h"

// How a component is recognised in the encoding.
enum class RKind : unsigned char {
  Universal,  // untagged; its universal tag must be one of the field's tags
  Any,        // untagged, any identifier (ANY, or an untagged CHOICE)
  Explicit,   // [tag] EXPLICIT
  Implicit,   // [tag] IMPLICIT
};

// Field flags.
constexpr unsigned R_MANDATORY = 0;
constexpr unsigned R_OPTIONAL = 1;  // may be absent (OPTIONAL, or DEFAULT that is omitted in DER)
constexpr unsigned R_VERSION = 2;   // optional INTEGER read as 0 when absent ([0] EXPLICIT Version DEFAULT v1)

struct RField {
  const char* name;    // schema name, used in messages: "serialNumber"
  const char* member;  // member name, used as the trace field: "m_serialNumber"
  ASN1Object& (*ref)(ASN1Object& owner);
  RKind kind;
  int tag;             // universal tag (Universal) or context tag number (Explicit, Implicit)
  std::uint32_t tags;  // every accepted universal tag as a bit mask (Universal); 1 << tag for one
  unsigned flags;
  // The member if it exists, without building one that is built on demand.
  const ASN1Object* (*peek)(const ASN1Object& owner);
};

// Component-count rule of a class and its message, spelled as the class has it.
struct RCountRule {
  enum Kind : unsigned char { None, AtLeast, Exactly, Between };
  Kind kind;
  int n;
  int m;  // upper bound of Between
  const char* message;
};

struct RSchema {
  const char* cls;   // class name for traces: "RTBSCertificate"
  const char* file;  // the class's source file and the schema's line, for traces
  int line;
  unsigned char tag;  // ASN1_TAG_SEQUENCE or ASN1_TAG_SET (unused by CHOICE types)
  RCountRule count;
  const RField* fields;
  int nFields;
  // Whether the class overrides RStructure::componentDecoded (the engines
  // call it only then).
  bool componentHook = false;
};

template <typename T>
struct RMemberOf;
template <typename C, typename M>
struct RMemberOf<M C::*> {
  using Class = C;
};

// The member accessor stored in a field: owner.*Member as an ASN1Object.
template <auto Member>
ASN1Object& RMemberRef(ASN1Object& owner) {
  using C = typename RMemberOf<decltype(Member)>::Class;
  return static_cast<C&>(owner).*Member;
}

// A plain member always exists; a holder of one built on demand overloads this.
inline const ASN1Object* RMemberPeekOf(const ASN1Object& m) { return &m; }
template <auto Member>
const ASN1Object* RMemberPeek(const ASN1Object& owner) {
  using C = typename RMemberOf<decltype(Member)>::Class;
  return RMemberPeekOf(static_cast<const C&>(owner).*Member);
}

#define R_FIELD_IMPL(C, name, kind, tag, mask, flags) \
  RField { #name, "m_" #name, &RMemberRef<&C::m_##name>, kind, tag, mask, flags, &RMemberPeek<&C::m_##name> }

// The list of a class: one row X(type, accessor name, member name, encoding,
// flags) per component, in schema order; the encoding is UNIVERSAL(utag),
// TAGS(utag, mask), ANY(), EXPLICIT(n) or IMPLICIT(n). The header expands it
// into the members and accessors (R_COMPONENTS or R_ALTERNATIVES), the source
// into the schema rows (R_FIELDS), so the two cannot disagree. A row may name
// a constant that only the source defines: the header's expansion drops the
// encoding.
#define R_ENCODING_UNIVERSAL(utag) RKind::Universal, utag, (1u << (utag))
#define R_ENCODING_TAGS(utag, mask) RKind::Universal, utag, mask
#define R_ENCODING_ANY() RKind::Any, -1, 0u
#define R_ENCODING_EXPLICIT(n) RKind::Explicit, n, 0u
#define R_ENCODING_IMPLICIT(n) RKind::Implicit, n, 0u

// Single rows, for a table written beside the list.
// An untagged component with one universal tag.
#define R_FIELD(C, name, utag, flags) R_FIELD_ROW_(C, name, R_ENCODING_UNIVERSAL(utag), flags)
// An untagged component accepting any universal tag in mask (messages name `utag`).
#define R_FIELD_TAGS(C, name, utag, mask, flags) R_FIELD_ROW_(C, name, R_ENCODING_TAGS(utag, mask), flags)
#define R_FIELD_ANY(C, name, flags) R_FIELD_ROW_(C, name, R_ENCODING_ANY(), flags)
#define R_FIELD_EXPLICIT(C, name, n, flags) R_FIELD_ROW_(C, name, R_ENCODING_EXPLICIT(n), flags)
#define R_FIELD_IMPLICIT(C, name, n, flags) R_FIELD_ROW_(C, name, R_ENCODING_IMPLICIT(n), flags)

// A list row as a schema row. RSelf is the class, declared by R_COMPONENTS
// or R_ALTERNATIVES; the table's initializer is in the class's scope.
#define R_FIELD_ROW(Type, Name, name, encoding, flags) R_FIELD_ROW_(RSelf, name, R_ENCODING_##encoding, flags),
#define R_FIELD_ROW_(C, name, ...) R_FIELD_IMPL(C, name, __VA_ARGS__)
// A list row counted.
#define R_COUNT_ROW(Type, Name, name, encoding, flags) +1
// The schema rows of class C from its list C_COMPONENTS.
#define R_FIELDS(C) const RField C::kFields[] = {C##_COMPONENTS(R_FIELD_ROW)}

#define R_NO_COUNT_RULE RCountRule{RCountRule::None, 0, 0, nullptr}
#define R_AT_LEAST(n, msg) RCountRule{RCountRule::AtLeast, n, 0, msg}
#define R_EXACTLY(n, msg) RCountRule{RCountRule::Exactly, n, 0, msg}
#define R_BETWEEN(n, m, msg) RCountRule{RCountRule::Between, n, m, msg}

#define R_SCHEMA(C, utag, rule, fields) \
  RSchema { #C, __FILE__, __LINE__, utag, rule, fields, static_cast<int>(sizeof(fields) / sizeof((fields)[0])) }
// The schema of a class that overrides componentDecoded.
#define R_SCHEMA_HOOKED(C, utag, rule, fields)                                                                 \
  RSchema {                                                                                                    \
    #C, __FILE__, __LINE__, utag, rule, fields, static_cast<int>(sizeof(fields) / sizeof((fields)[0])), true \
  }

// Declares the schema hooks of a structure or choice class.
#define R_DECLARE_SCHEMA()                                   \
 protected:                                                  \
  const RSchema& schema() const override { return kSchema; } \
                                                             \
 private:                                                    \
  static const RField kFields[];                             \
  static const RSchema kSchema;                              \
                                                             \
 public:

// Universal-tag masks of common CHOICE types.
constexpr std::uint32_t R_TAGS_TIME = (1u << ASN1_TAG_UTCTIME) | (1u << ASN1_TAG_GENERALIZEDTIME);

// The constant name of a universal tag as messages spell it ("ASN1_TAG_INTEGER").
const char* RTagName(int tag);
