#include <gtest/gtest.h>

#include <string>

#include "libqvaclient/cbizitemlist.h"
#include "libqvaclient/cbizqvaclient.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::Str;
using qvatest::ToHex;

TEST(ItemList, RequestBodiesAreCountThenLengthPrefixedItems) {
  cBizQVAClient biz;
  ByteString request;
  ASSERT_EQ(biz.MakeRequestValidData(ByteString("AB"), Hex("010203"), &request), 0);
  EXPECT_EQ(ToHex(request), ToHex(Hex("00000002 00000002 4142 00000003 010203")));

  ASSERT_EQ(biz.MakeRequestRegisterCert(Hex("3082"), &request), 0);
  EXPECT_EQ(ToHex(request), ToHex(Hex("00000001 00000002 3082")));
}

TEST(ItemList, AddItemVariants) {
  cBizItemList list;
  EXPECT_EQ(list.AddItem("hi"), 0);
  EXPECT_EQ(list.AddItem('\x07'), 0);
  EXPECT_EQ(list.AddItemFormat("%d-%s", 42, "x"), 0);
  EXPECT_EQ(list.AddItem(ByteString("")), 0);  // an empty item is still counted
  EXPECT_EQ(ToHex(list.GetBody()), ToHex(Hex("00000004 00000002 6869 00000001 07 00000004 34322d78 00000000")));
}

TEST(ItemList, CountIsReadOnlyWhenTheBodyHoldsOne) {
  struct Case {
    const char* name;
    std::string hex;
    int count;
  } cases[] = {
      {"empty body", "", 0},
      {"zero count", "00000000", 0},
      // Fewer than four bytes hold no count.
      {"three bytes", "000001", 0},
      {"two items", "00000002 00000000 00000000", 2},
      // The count is taken as written, whatever follows.
      {"count without items", "00000009", 9},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(cBizItemList::GetItemCount(Hex(c.hex)), c.count);
  }
}

TEST(ItemList, GetItemRefusesIndexesAndLengthsOutsideTheBody) {
  const std::string kUntouched = "untouched";
  struct Case {
    const char* name;
    std::string hex;
    int index;
    int rc;
    std::string item;
  } cases[] = {
      {"first of two", "00000002 00000001 61 00000002 6263", 0, 0, "a"},
      {"second of two", "00000002 00000001 61 00000002 6263", 1, 0, "bc"},
      {"empty item", "00000001 00000000", 0, 0, ""},
      // Index 1 of a one-item body.
      {"beyond the count", "00000001 00000001 61", 1, 1, kUntouched},
      {"negative index", "00000001 00000001 61", -1, 1, kUntouched},
      {"negative count", "80000000 00000001 61", 0, 1, kUntouched},
      {"empty body", "", 0, 1, kUntouched},
      // Lengths that run past the body are refused, not read beyond it.
      {"item longer than body", "00000001 00000005 6162", 0, 1, kUntouched},
      {"skipped item past body", "00000002 000000ff 61", 1, 1, kUntouched},
      {"length cut short", "00000002 00000001 61 0000", 1, 1, kUntouched},
      {"count larger than items", "00000003 00000001 61", 2, 1, kUntouched},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ByteString out(kUntouched.c_str());
    EXPECT_EQ(cBizItemList::GetItem(Hex(c.hex), c.index, &out), c.rc);
    EXPECT_EQ(Str(out), c.item);
  }
}

TEST(ItemList, RoundTripOfManyItems) {
  cBizItemList list;
  std::vector<ByteString> items;
  for (unsigned i = 0; i < 40; ++i) {
    items.push_back(qvatest::RandomBytes(i * 37 % 300, i));
    ASSERT_EQ(list.AddItem(items.back()), 0);
  }
  const ByteString body = list.GetBody();
  ASSERT_EQ(cBizItemList::GetItemCount(body), 40);
  for (int i = 0; i < 40; ++i) {
    ByteString out;
    ASSERT_EQ(cBizItemList::GetItem(body, i, &out), 0);
    EXPECT_TRUE(out == items[static_cast<std::size_t>(i)]) << i;
  }
  // Any cut through the last item's bytes makes that item unreadable.
  ByteString out;
  EXPECT_EQ(cBizItemList::GetItem(body.mid(0, body.length() - 1), 39, &out), 1);
}
