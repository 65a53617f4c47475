// ASN1ViewBytes: bytes that may still lie in the input they were decoded
// from, made into a ByteString of their own only when someone asks for one.
//
// A decode that owns its input (see RObject::decodeOwned) lets its values
// point into that input instead of copying each one: data() and length()
// read them where they lie, bytes() copies them out once, the first time it
// is called, and from then on returns that copy. bytes() may be called from
// several threads on a shared const object; the copy is made once, under a
// small lock, and published to the others.
//
// A view never leaves the object that holds it: copying or moving an
// ASN1ViewBytes gives the new one its own copy of the bytes, so nothing can
// outlive the input it points into.
#pragma once

#include <atomic>

#include "base/ByteString.h"

class ASN1ViewBytes {
 public:
  ASN1ViewBytes() = default;
  ASN1ViewBytes(const ASN1ViewBytes& other) { copyFrom(other); }
  ASN1ViewBytes(ASN1ViewBytes&& other) noexcept { moveFrom(other); }
  ASN1ViewBytes& operator=(const ASN1ViewBytes& other) {
    if (this != &other) copyFrom(other);
    return *this;
  }
  ASN1ViewBytes& operator=(ASN1ViewBytes&& other) noexcept {
    if (this != &other) moveFrom(other);
    return *this;
  }
  ~ASN1ViewBytes() = default;

  // The bytes where they lie, and their count; no copy.
  const unsigned char* data() const {
    const unsigned char* v = m_pView.load(std::memory_order_acquire);
    return v ? v : m_bsOwned.data();
  }
  int length() const { return m_pView.load(std::memory_order_acquire) ? m_nView : m_bsOwned.length(); }
  bool isView() const { return m_pView.load(std::memory_order_acquire) != nullptr; }
  // True only when no bytes are held at all (an empty ByteString's sense).
  bool isEmpty() const { return !isView() && m_bsOwned.isEmpty(); }

  // The bytes as a ByteString of their own (copied out of the input once).
  const ByteString& bytes() const {
    if (m_pView.load(std::memory_order_acquire)) detach();
    return m_bsOwned;
  }
  // The same, for changing them in place.
  ByteString& owned() {
    if (m_pView.load(std::memory_order_relaxed)) detach();
    return m_bsOwned;
  }
  // The ByteString to overwrite whole: a view is dropped, not copied.
  ByteString& replace() {
    m_pView.store(nullptr, std::memory_order_relaxed);
    return m_bsOwned;
  }
  // Points at n bytes at p (p not null), which must outlive this object.
  void setView(const unsigned char* p, int n) {
    if (!m_bsOwned.isEmpty()) m_bsOwned.clear();
    m_nView = n;
    m_pView.store(p, std::memory_order_relaxed);
  }
  // Copies a view out of the input; nothing when the bytes are owned already.
  void detach() const;
  // Overwrites owned bytes with zeros (a view is wiped with its input).
  void zeroize() { m_bsOwned.zeroize(); }

 private:
  void copyFrom(const ASN1ViewBytes& other);
  void moveFrom(ASN1ViewBytes& other);

  mutable ByteString m_bsOwned;
  mutable std::atomic<const unsigned char*> m_pView{nullptr};
  int m_nView = 0;
  mutable std::atomic<bool> m_bLock{false};
};
