// RChoice: the engine of every CHOICE structure class.
//
// A CHOICE class holds one member per alternative and states them as an
// RSchema whose fields are the alternatives (count rule unused). Each member
// is an RAlternative: the object itself is built only when it is decoded,
// set or asked for by a non-const accessor, so a choice of nine alternatives
// builds one. Decoding picks the first alternative whose identifier matches
// (an RKind::Any alternative matches anything, so it goes last); encoding
// writes the selected one. A CHOICE that is itself given an explicit tag by
// its parent unwraps and wraps that tag here.
#pragma once

#include <new>

#include "ZENALib/ASN1Pkix/RObject.h"

// Where an alternative lives once built: in place when small (no allocation
// for a time or a string), on the heap when large, so an unused large
// alternative costs a pointer.
template <typename T, bool InPlace = (sizeof(T) <= 256)>
class RAlternativeStore {
 public:
  RAlternativeStore() = default;
  RAlternativeStore(const RAlternativeStore&) {}  // the holder copies the object
  RAlternativeStore& operator=(const RAlternativeStore&) { return *this; }

 protected:
  T* ptr() { return m_bBuilt ? std::launder(reinterpret_cast<T*>(m_storage)) : nullptr; }
  const T* ptr() const { return m_bBuilt ? std::launder(reinterpret_cast<const T*>(m_storage)) : nullptr; }
  template <typename... A>
  T* make(const A&... a) {
    T* p = new (m_storage) T(a...);
    m_bBuilt = true;
    return p;
  }
  void destroy() {
    if (T* p = ptr()) {
      m_bBuilt = false;
      p->~T();
    }
  }

 private:
  alignas(T) unsigned char m_storage[sizeof(T)];
  bool m_bBuilt = false;
};

template <typename T>
class RAlternativeStore<T, false> {
 public:
  RAlternativeStore() = default;
  RAlternativeStore(const RAlternativeStore&) {}
  RAlternativeStore& operator=(const RAlternativeStore&) { return *this; }

 protected:
  T* ptr() { return m_p; }
  const T* ptr() const { return m_p; }
  template <typename... A>
  T* make(const A&... a) {
    return m_p = new T(a...);
  }
  void destroy() {
    delete m_p;
    m_p = nullptr;
  }

 private:
  T* m_p = nullptr;
};

// One alternative of a CHOICE, built on first need. Const access to one that
// was never built reads an empty default object shared by all holders.
template <typename T>
class RAlternative : private RAlternativeStore<T> {
 public:
  RAlternative() = default;
  RAlternative(const RAlternative& o) : RAlternativeStore<T>(o) {
    if (const T* p = o.peek()) this->make(*p);
  }
  RAlternative& operator=(const RAlternative& o) {
    if (this == &o) return *this;
    if (const T* p = o.peek())
      assign(*p);
    else
      this->destroy();
    return *this;
  }
  RAlternative& operator=(const T& v) {
    assign(v);
    return *this;
  }
  ~RAlternative() { this->destroy(); }

  // The object, or null when it was never built.
  const T* peek() const { return this->ptr(); }
  T& get() {
    T* p = this->ptr();
    return p ? *p : *this->make();
  }
  const T& get() const {
    const T* p = this->ptr();
    return p ? *p : Empty();
  }
  // The schema's member reference: the engine decodes and encodes through it.
  operator ASN1Object&() { return get(); }

 private:
  void assign(const T& v) {
    if (T* p = this->ptr())
      *p = v;
    else
      this->make(v);
  }
  static const T& Empty() {
    static const T kEmpty{};
    return kEmpty;
  }
};

template <typename T>
const ASN1Object* RMemberPeekOf(const RAlternative<T>& a) {
  return a.peek();
}

class RChoice : public RObject {
 public:
  const char* className() const override { return schema().cls; }
  ByteString& toASN1Object() override;
  std::int64_t encodedLength() override;
  int encodeTo(ByteWriter& w) override;
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  void detachViews() override;
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
#define R_ALTERNATIVE(Type, Name, name)                         \
 public:                                                       \
  const Type& get##Name() const { return m_##name.get(); }     \
  Type& get##Name() { return m_##name.get(); }                 \
  void set##Name(const Type& v) {                              \
    m_##name = v;                                              \
    select(m_##name.get());                                    \
  }                                                            \
  bool is##Name() const {                                      \
    const ASN1Object* p = m_##name.peek();                     \
    return p && isSelected(*p);                                \
  }                                                            \
                                                               \
 private:                                                      \
  RAlternative<Type> m_##name;                                 \
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
