#include "ZENALib/ASN1/ASN1ViewBytes.h"

#include <utility>

void ASN1ViewBytes::detach() const {
  // Readers of a shared const object may get here together: one copies, the
  // others wait for it, then see the view gone and the copy in place.
  while (m_bLock.exchange(true, std::memory_order_acquire)) {
  }
  if (const unsigned char* v = m_pView.load(std::memory_order_relaxed)) {
    // Without memory the view stays, so the bytes are still readable.
    if (m_bsOwned.setData(v, m_nView) == BS_OK) m_pView.store(nullptr, std::memory_order_release);
  }
  m_bLock.store(false, std::memory_order_release);
}

void ASN1ViewBytes::copyFrom(const ASN1ViewBytes& other) {
  m_pView.store(nullptr, std::memory_order_relaxed);
  if (const unsigned char* v = other.m_pView.load(std::memory_order_acquire))
    m_bsOwned.setData(v, other.m_nView);
  else
    m_bsOwned = other.m_bsOwned;
}

void ASN1ViewBytes::moveFrom(ASN1ViewBytes& other) {
  m_pView.store(nullptr, std::memory_order_relaxed);
  if (const unsigned char* v = other.m_pView.load(std::memory_order_relaxed)) {
    m_bsOwned.setData(v, other.m_nView);
    other.m_pView.store(nullptr, std::memory_order_relaxed);
    other.m_bsOwned.clear();
  } else {
    m_bsOwned = std::move(other.m_bsOwned);
  }
}
