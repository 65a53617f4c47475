// RStructure: the engine of every SEQUENCE and SET structure class.
//
// A class derives from RStructure and states its components once, as a list
// (RSchema.h) that gives it one private member per component (m_<component>,
// by value) with its accessors, and the rows of its static RSchema.
// toASN1Object and fromASN1Object below walk that table; a class writes code
// only for cross-field rules (override checkCount or fromASN1Object and call
// the base).
//
// Optional components carry a presence bit: decoding sets it for each
// component found, a set... accessor sets it, and encoding skips absent
// optional members. A [0] EXPLICIT Version DEFAULT v1 (R_VERSION) reads as 0
// when absent and stays absent when encoded again.
#pragma once

#include <cstdint>

#include "ZENALib/ASN1Pkix/RObject.h"

class RStructure : public RObject {
 public:
  const char* className() const override { return schema().cls; }
  ByteString& toASN1Object() override;
  std::int64_t encodedLength() override;
  int encodeTo(ByteWriter& w) override;
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;
  void detachViews() override;

  // Whether an optional member is present (mandatory members always are).
  bool isPresent(const ASN1Object& member) const;
  // Marks an optional member present or absent.
  void setPresent(const ASN1Object& member, bool present);

 protected:
  explicit RStructure(unsigned char ucTag = ASN1_TAG_SEQUENCE) : RObject(ucTag) {}
  virtual const RSchema& schema() const = 0;
  // Checks the component count against the schema's rule; 0, or R_ERR_COUNT
  // recorded under "nCount" with the rule's message.
  int checkCount(int nCount) {
    const RCountRule& r = schema().count;
    if (r.kind == RCountRule::None || (r.kind == RCountRule::Exactly && nCount == r.n)) return 0;
    return checkCountRule(nCount);
  }
  // Called after each component is decoded, with the component's element as
  // it stands in the input (p, n), so a class can keep the bytes a signature
  // covers without reading its input a second time. A class that overrides
  // it declares its schema with R_SCHEMA_HOOKED.
  virtual void componentDecoded(const ASN1Object& member, const unsigned char* p, int n);

 private:
  int checkCountRule(int nCount);
  int fieldIndex(const ASN1Object& member) const;
  // The decode of plain contents (every component a plain header): 0, or
  // -1 when anything is out of the ordinary or fails, and the general walk
  // then decodes again and reports it exactly.
  int decodePlain(const RSchema& s, const unsigned char* c, int n);
  // The general walk: any tagging, BER lengths, and every failure's trace.
  int decodeWalked(const RSchema& s, const unsigned char* pData, int nData);

  std::uint64_t m_nPresent = 0;
};

// A component: the private member m_<name> with get<Name>/set<Name> (which marks an
// optional member present) and has<Name>.
#define R_COMPONENT(Type, Name, name)                                      \
 public:                                                                   \
  const Type& get##Name() const { return m_##name; }                       \
  Type& get##Name() { return m_##name; }                                   \
  void set##Name(const Type& v) {                                          \
    m_##name = v;                                                          \
    setPresent(m_##name, true);                                            \
  }                                                                        \
  bool has##Name() const { return isPresent(m_##name); }                   \
 private:                                                                  \
  Type m_##name;                                                           \
                                                                           \
 public:

#define R_COMPONENT_ROW(Type, Name, name, encoding, flags) R_COMPONENT(Type, Name, name)

// Every component of class C from its list C##_COMPONENTS (RSchema.h), and
// kComponentCount, the number of rows. Declarations after it are public.
#define R_COMPONENTS(C)           \
 private:                         \
  using RSelf = C;                \
  C##_COMPONENTS(R_COMPONENT_ROW) \
                                  \
 public:                          \
  static constexpr int kComponentCount = 0 C##_COMPONENTS(R_COUNT_ROW);
