// cBizItemList: the body of every request and answer, a list of
// length-prefixed items:
//   count (4, big-endian) then, count times: length (4, big-endian) | bytes
//
// The items are kept apart until the body is written, so adding one never
// copies those added before; as an encoder the list writes its body straight
// into the buffer of whatever carries it.
#pragma once

#include <cstddef>
#include <vector>

#include "base/ByteString.h"
#include "base/CErrorTrace.h"
#include "libaibase/clencoder.h"

class cBizItemList : public CErrorTrace, public CLEncoder {
 public:
  cBizItemList();
  ~cBizItemList() override;
  cBizItemList(const cBizItemList&) = delete;
  cBizItemList& operator=(const cBizItemList&) = delete;

  // Adds one item (copied, or taken over by the && form) and counts it.
  // Returns the store status: 2 when the items would no longer fit in one
  // ByteString.
  int AddItem(const ByteString& item);
  int AddItem(ByteString&& item);
  // Adds n bytes at p without copying them: they are read when the body is
  // written and must stay unchanged until then. A negative n adds an empty item.
  int AddBorrowedItem(const void* p, int n);
  // A zero-terminated text, without the terminator; null adds an empty item.
  int AddItem(const char* text);
  int AddItem(char byte);
  int AddItemFormat(const char* fmt, ...) QVA_PRINTF_LIKE(2, 3);

  // Builds the body (count, then the items added so far) and returns it.
  const ByteString& GetBody();

  // The body's length and the body itself, written into w.
  std::size_t EncodedLength() const override { return 4 + m_nItemsLength; }
  void Encode(ByteWriter* w) const override;

  // The count at the start of body; 0 for a body too short to hold one.
  static int GetItemCount(const ByteString& body);
  // Copies item `index` of body into *out and returns 0, or returns 1 and
  // leaves *out untouched when the index is not below the count or an item
  // runs past the end of the body.
  static int GetItem(const ByteString& body, int index, ByteString* out);

 private:
  struct Item {
    ByteString owned;            // empty for a borrowed item
    const unsigned char* bytes;  // owned's bytes, or the borrowed ones
    std::size_t length;
  };
  int Add(Item&& item);

  std::vector<Item> m_items;
  std::size_t m_nItemsLength;  // the items' encoding: 4 + length each
  ByteString m_bsBody;
};
