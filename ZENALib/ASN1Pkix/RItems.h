// RItems<T>: the items of a list class, in order.
//
// A small vector: the first item lives inside the list itself, so the many
// lists of one item (a name's relative distinguished names, most SET OFs)
// cost no allocation; more items move to one heap block that grows by
// doubling. An item added empty is default-initialised (its constructors
// run, nothing is zero-filled first). Iterators are pointers; adding an item
// may move the others, as with std::vector.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

template <typename T>
class RItems {
 public:
  using value_type = T;
  using size_type = std::size_t;
  using iterator = T*;
  using const_iterator = const T*;

  RItems() noexcept : m_p(inlineSlot()) {}
  RItems(const RItems& other) : m_p(inlineSlot()) {
    reserve(other.m_n);
    for (const T& item : other) emplace_back(item);
  }
  RItems(RItems&& other) noexcept : m_p(inlineSlot()) { take(other); }
  RItems& operator=(const RItems& other) {
    if (this != &other) {
      clear();
      reserve(other.m_n);
      for (const T& item : other) emplace_back(item);
    }
    return *this;
  }
  RItems& operator=(RItems&& other) noexcept {
    if (this != &other) {
      clear();
      releaseBlock();
      take(other);
    }
    return *this;
  }
  ~RItems() {
    clear();
    releaseBlock();
  }

  size_type size() const { return m_n; }
  bool empty() const { return m_n == 0; }
  T* begin() { return m_p; }
  T* end() { return m_p + m_n; }
  const T* begin() const { return m_p; }
  const T* end() const { return m_p + m_n; }
  T& operator[](size_type i) { return m_p[i]; }
  const T& operator[](size_type i) const { return m_p[i]; }
  T& back() { return m_p[m_n - 1]; }
  const T& back() const { return m_p[m_n - 1]; }

  void reserve(size_type n) {
    if (n > m_cap) moveTo(n);
  }
  // An empty item, default-initialised.
  T& emplace_back() {
    if (m_n == m_cap) moveTo(m_cap * 2);
    T* p = ::new (static_cast<void*>(m_p + m_n)) T;
    ++m_n;
    return *p;
  }
  T& emplace_back(const T& item) {
    if (m_n == m_cap) {
      T copy(item);  // item may be one of ours, and growing moves them
      moveTo(m_cap * 2);
      return *::new (static_cast<void*>(m_p + m_n++)) T(std::move(copy));
    }
    return *::new (static_cast<void*>(m_p + m_n++)) T(item);
  }
  void push_back(const T& item) { emplace_back(item); }
  void clear() {
    while (m_n) m_p[--m_n].~T();
  }

 private:
  T* inlineSlot() { return reinterpret_cast<T*>(m_inline); }
  bool onHeap() const { return m_p != reinterpret_cast<const T*>(m_inline); }
  // Moves the items into a heap block of room for n (n > m_cap).
  void moveTo(size_type n) {
    T* block = static_cast<T*>(::operator new(n * sizeof(T)));
    for (size_type i = 0; i < m_n; ++i) {
      ::new (static_cast<void*>(block + i)) T(std::move(m_p[i]));
      m_p[i].~T();
    }
    releaseBlock();
    m_p = block;
    m_cap = n;
  }
  void releaseBlock() {
    if (onHeap()) ::operator delete(m_p);
    m_p = inlineSlot();
    m_cap = 1;
  }
  // Takes other's items; other is left empty (this one is empty on entry).
  void take(RItems& other) {
    if (other.onHeap()) {
      m_p = other.m_p;
      m_n = other.m_n;
      m_cap = other.m_cap;
      other.m_p = other.inlineSlot();
      other.m_n = 0;
      other.m_cap = 1;
    } else if (other.m_n) {
      ::new (static_cast<void*>(m_p)) T(std::move(other.m_p[0]));
      m_n = 1;
      other.clear();
    }
  }

  T* m_p;
  size_type m_n = 0;
  size_type m_cap = 1;
  alignas(T) unsigned char m_inline[sizeof(T)];
};
