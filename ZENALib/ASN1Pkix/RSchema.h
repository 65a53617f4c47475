// The declarative schema of the structure classes.
//
// Every R class states its ASN.1 type once, as a static table of RField
// entries (one per component, in schema order) inside an RSchema. One engine
// reads those tables: RStructure for SEQUENCE and SET types, RChoice for
// CHOICE types. A class therefore says what its components are, never how to
// walk them. See README.md in this folder.
//
//   const RField RValidity::kFields[] = {
//       R_FIELD_ANY(RValidity, notBefore, 0),
//       R_FIELD_ANY(RValidity, notAfter, 0),
//   };
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
// An untagged component with one universal tag.
#define R_FIELD(C, name, utag, flags) R_FIELD_IMPL(C, name, RKind::Universal, utag, (1u << (utag)), flags)
// An untagged component accepting any universal tag in mask (messages name `utag`).
#define R_FIELD_TAGS(C, name, utag, mask, flags) R_FIELD_IMPL(C, name, RKind::Universal, utag, mask, flags)
#define R_FIELD_ANY(C, name, flags) R_FIELD_IMPL(C, name, RKind::Any, -1, 0u, flags)
#define R_FIELD_EXPLICIT(C, name, n, flags) R_FIELD_IMPL(C, name, RKind::Explicit, n, 0u, flags)
#define R_FIELD_IMPLICIT(C, name, n, flags) R_FIELD_IMPL(C, name, RKind::Implicit, n, 0u, flags)

#define R_NO_COUNT_RULE RCountRule{RCountRule::None, 0, 0, nullptr}
#define R_AT_LEAST(n, msg) RCountRule{RCountRule::AtLeast, n, 0, msg}
#define R_EXACTLY(n, msg) RCountRule{RCountRule::Exactly, n, 0, msg}
#define R_BETWEEN(n, m, msg) RCountRule{RCountRule::Between, n, m, msg}

#define R_SCHEMA(C, utag, rule, fields) \
  RSchema { #C, __FILE__, __LINE__, utag, rule, fields, static_cast<int>(sizeof(fields) / sizeof((fields)[0])) }

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
