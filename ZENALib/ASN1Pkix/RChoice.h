// RChoice: the engine of every CHOICE structure class.
//
// A CHOICE class holds one member per alternative and states them as an
// RSchema whose fields are the alternatives (count rule unused). Decoding
// picks the first alternative whose identifier matches (an RKind::Any
// alternative matches anything, so it goes last); encoding writes the
// selected one. A CHOICE that is itself given an explicit tag by its parent
// unwraps and wraps that tag here.
#pragma once

#include "ZENALib/ASN1Pkix/RObject.h"

class RChoice : public RObject {
 public:
  const char* className() const override { return schema().cls; }
  ByteString& toASN1Object() override;
  std::int64_t encodedLength() override;
  int encodeTo(ByteWriter& w) override;
  int fromASN1Object(const ByteString& bsData) override { return fromASN1View(viewOf(bsData), bsData.length()); }
  int fromASN1View(const unsigned char* pData, int nData) override;

  // Index of the selected alternative in the schema, -1 when none is.
  int getSelected() const { return m_nSelected; }
  // Selects the alternative held in `member`.
  void select(const ASN1Object& member);
  // Whether `member` holds the selected alternative.
  bool isSelected(const ASN1Object& member) const;

 protected:
  RChoice() : RObject(ASN1_TAG_NONE) {}
  virtual const RSchema& schema() const = 0;

 private:
  int m_nSelected = -1;
};

// An alternative: the private member m_<name> with get<Name>, set<Name> (which
// selects it) and is<Name> (whether it is the selected one).
#define R_ALTERNATIVE(Type, Name, name)                 \
 public:                                               \
  const Type& get##Name() const { return m_##name; }   \
  Type& get##Name() { return m_##name; }               \
  void set##Name(const Type& v) {                      \
    m_##name = v;                                      \
    select(m_##name);                                  \
  }                                                    \
  bool is##Name() const { return isSelected(m_##name); } \
 private:                                               \
  Type m_##name;                                        \
                                                        \
 public:

#define R_ALTERNATIVE_ROW(Type, Name, name, encoding, flags) R_ALTERNATIVE(Type, Name, name)

// Every alternative of class C from its list C##_COMPONENTS (RSchema.h), and
// kComponentCount, the number of rows. Declarations after it are public.
#define R_ALTERNATIVES(C)           \
 private:                           \
  using RSelf = C;                  \
  C##_COMPONENTS(R_ALTERNATIVE_ROW) \
                                    \
 public:                            \
  static constexpr int kComponentCount = 0 C##_COMPONENTS(R_COUNT_ROW);
