#include <gtest/gtest.h>

#include <string>

#include "libqvaclient/cbizitemlist.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::ToHex;

// Every record of itemlists.txt: the count, and one item read or refused.
TEST(ItemList, BodiesReadBackAsWritten) {
  const auto records = qvatest::ReadVectors(qvatest::DataPath("client/itemlists.txt"));
  ASSERT_EQ(records.size(), 15u);
  for (std::size_t i = 0; i < records.size(); ++i) {
    auto r = records[i];
    SCOPED_TRACE("itemlists.txt record " + std::to_string(i + 1) + ": body " + r["Body"]);
    EXPECT_EQ(cBizItemList::GetItemCount(Hex(r["Body"])), std::stoi(r["Count"]));
    ByteString out("untouched");
    EXPECT_EQ(cBizItemList::GetItem(Hex(r["Body"]), std::stoi(r["Index"]), &out), r.count("Item") ? 0 : 1);
    EXPECT_EQ(ToHex(out), ToHex(r.count("Item") ? Hex(r["Item"]) : ByteString("untouched")));
  }
}

// Each way of adding an item; then random items round trip, and any cut
// through the last item's bytes makes it unreadable.
TEST(ItemList, AddedItemsReadBack) {
  cBizItemList list;
  EXPECT_EQ(list.AddItem("hi"), 0);
  EXPECT_EQ(list.AddItem('\x07'), 0);
  EXPECT_EQ(list.AddItemFormat("%d-%s", 42, "x"), 0);
  EXPECT_EQ(list.AddItem(ByteString("")), 0);  // an empty item is still counted
  EXPECT_EQ(list.AddBorrowedItem("xyz", 2), 0);
  EXPECT_EQ(list.AddBorrowedItem("q", -1), 0);  // a negative length borrows nothing
  EXPECT_EQ(list.AddBorrowedItem(nullptr, 5), 0);
  EXPECT_EQ(ToHex(list.GetBody()), ToHex(Hex("00000007 00000002 6869 00000001 07 00000004 34322d78 00000000"
                                             "00000002 7879 00000000 00000000")));

  cBizItemList many;
  std::vector<ByteString> items;
  for (unsigned i = 0; i < 40; ++i) {
    items.push_back(qvatest::RandomBytes(i * 37 % 300, i));
    ASSERT_EQ(many.AddItem(items.back()), 0);
  }
  // An item handed over is taken, not copied; the reported length is the body's.
  ByteString last = qvatest::RandomBytes(70000, 41);
  items.push_back(last);
  ASSERT_EQ(many.AddItem(std::move(last)), 0);
  EXPECT_EQ(last.length(), 0);
  const ByteString body = many.GetBody();
  EXPECT_EQ(many.EncodedLength(), static_cast<std::size_t>(body.length()));
  ASSERT_EQ(cBizItemList::GetItemCount(body), 41);
  ByteString out;
  for (int i = 0; i < 41; ++i) {
    ASSERT_EQ(cBizItemList::GetItem(body, i, &out), 0);
    EXPECT_TRUE(out == items[static_cast<std::size_t>(i)]) << i;
  }
  EXPECT_EQ(cBizItemList::GetItem(body.mid(0, body.length() - 1), 40, &out), 1);
}
