#include "base/ByteReader.h"

#include <gtest/gtest.h>

#include "tests/support/TestUtil.h"

TEST(ByteReader, RefusesToReadPastTheEndAndStaysPut) {
  const ByteString in = qvatest::Hex("01 0203 04050607 AA");
  ByteReader r(in);
  std::uint8_t b = 0;
  std::uint16_t w = 0;
  std::uint32_t d = 0;
  ASSERT_EQ(r.readU8(&b), BS_OK);
  EXPECT_EQ(b, 0x01);
  ASSERT_EQ(r.readU16BE(&w), BS_OK);
  EXPECT_EQ(w, 0x0203);
  ASSERT_EQ(r.readU32BE(&d), BS_OK);
  EXPECT_EQ(d, 0x04050607u);
  EXPECT_EQ(r.remaining(), 1u);

  // Each too-long read fails without consuming the byte that is left.
  EXPECT_EQ(r.readU16BE(&w), BS_OUT_OF_RANGE);
  EXPECT_EQ(r.readU32BE(&d), BS_OUT_OF_RANGE);
  const unsigned char* p = nullptr;
  EXPECT_EQ(r.readBytes(2, &p), BS_OUT_OF_RANGE);
  EXPECT_EQ(r.skip(SIZE_MAX), BS_OUT_OF_RANGE);
  ByteReader sub;
  EXPECT_EQ(r.readReader(2, &sub), BS_OUT_OF_RANGE);
  ASSERT_EQ(r.remaining(), 1u);
  ASSERT_EQ(r.readU8(&b), BS_OK);
  EXPECT_EQ(b, 0xAA);
  EXPECT_EQ(r.readU8(&b), BS_OUT_OF_RANGE);
  EXPECT_TRUE(r.empty());
}

TEST(ByteReader, NullDataReadsAsEmpty) {
  ByteReader r(nullptr, 100);
  EXPECT_EQ(r.remaining(), 0u);
  std::uint8_t b;
  EXPECT_EQ(r.readU8(&b), BS_OUT_OF_RANGE);
}

TEST(ByteWriter, BuildsExactTerminatedString) {
  ByteWriter w;
  w.u8(0x01).u16BE(0x0203).u32BE(0x04050607).bytes("xy", 2).bytes(ByteString("z"));
  ByteString out;
  ASSERT_EQ(w.finish(&out), BS_OK);
  EXPECT_EQ(qvatest::ToHex(out), "0102030405060778797a");
  EXPECT_EQ(out.data()[out.length()], 0);
  EXPECT_EQ(w.size(), 0u);  // reset after finish

  ByteString empty("old");
  ASSERT_EQ(w.finish(&empty), BS_OK);
  EXPECT_EQ(empty.length(), 0);
}

TEST(ByteWriter, FirstFailureSticks) {
  ByteWriter w;
  w.u8(1);
  // More than a ByteString can hold: refused before any allocation.
  w.bytes("x", static_cast<std::size_t>(INT32_MAX));
  EXPECT_EQ(w.status(), BS_NO_MEMORY);
  w.u8(2);  // ignored after the failure
  ByteString out("untouched");
  EXPECT_EQ(w.finish(&out), BS_NO_MEMORY);
  EXPECT_EQ(qvatest::Str(out), "untouched");
}
