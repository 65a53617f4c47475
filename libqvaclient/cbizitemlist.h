// cBizItemList: the body of every request and answer, a list of
// length-prefixed items:
//   count (4, big-endian) then, count times: length (4, big-endian) | bytes
#pragma once

#include "base/ByteString.h"
#include "base/CErrorTrace.h"

class cBizItemList : public CErrorTrace {
 public:
  cBizItemList();
  ~cBizItemList() override;

  // Appends one item (its 4-byte length, then its bytes) and counts it.
  // Returns the store status.
  int AddItem(const ByteString& item);
  // A zero-terminated text, without the terminator; null adds an empty item.
  int AddItem(const char* text);
  int AddItem(char byte);
  int AddItemFormat(const char* fmt, ...) QVA_PRINTF_LIKE(2, 3);

  // Builds the body (count, then the items added so far) and returns it.
  const ByteString& GetBody();

  // The count at the start of body; 0 for a body too short to hold one.
  static int GetItemCount(const ByteString& body);
  // Copies item `index` of body into *out and returns 0, or returns 1 and
  // leaves *out untouched when the index is not below the count or an item
  // runs past the end of the body.
  static int GetItem(const ByteString& body, int index, ByteString* out);

 private:
  int m_nItemCount;
  ByteString m_bsBody;
  ByteString m_bsItems;
};
