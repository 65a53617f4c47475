// revokedCertificates ::= SEQUENCE OF SEQUENCE { ... }   (RFC 5280 5.1)
//
// A CRL may list hundreds of thousands of entries, so a decoded list keeps
// them as they were received: one copy of the list's contents and the offset
// of each entry. Every entry is checked while decoding (a malformed one fails
// the decode with the same trace as before), but an entry object is built
// only when getAt asks for it, and is then kept (changes to it are encoded).
// items(), add and the item-by-item engine turn the list into ordinary
// objects first. Encoding a decoded list copies the bytes of the entries not
// built, once it has checked that each of them encodes back to the same
// bytes (DER input); other input is encoded entry by entry as before.
// Since even const getAt may build an entry, a list read by several threads
// at once is unpacked first (items()); unpacking moves the built entries, so
// pointers from getAt taken before it no longer point into the list.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RRevokedCertificate.h"

class RRevokedCertificates : public RListOf<RRevokedCertificate> {
 public:
  RRevokedCertificates() : RListOf("RRevokedCertificates") {}

  int getCount() const override;
  RRevokedCertificate* getAt(int i);
  const RRevokedCertificate* getAt(int i) const;
  void add(const RRevokedCertificate& item);
  void removeAll();
  const RItems<RRevokedCertificate>& items() const;

  int fromASN1View(const unsigned char* pData, int nData) override;
  void detachViews() override;
  std::int64_t encodedLength() override;
  int encodeTo(ByteWriter& w) override;

 protected:
  ASN1Object& itemAt(int i) override;
  ASN1Object& appendItem() override;
  void removeAllItems() override;
  void reserveItems(int n) override;

 private:
  bool isKept() const { return !m_offsets.empty(); }
  // Entry i of the kept bytes, built on first use.
  RRevokedCertificate& entry(int i) const;
  // Every entry as an object in m_items; the kept bytes are dropped.
  void unpack() const;
  // Whether the kept bytes can be written as they are (see m_nVerbatim).
  bool verbatim();

  // The list's contents as received (left in the decoded input when the
  // list is part of a larger decode), and where each entry starts (one more
  // offset at the end); empty unless the list was decoded and not unpacked.
  mutable ASN1ViewBytes m_bsEntries;
  mutable std::vector<std::uint32_t> m_offsets;
  // The entries built so far, by index.
  mutable std::map<int, RRevokedCertificate> m_built;
  // Whether every kept entry encodes back to its own bytes: -1 not known yet.
  int m_nVerbatim = -1;
};
