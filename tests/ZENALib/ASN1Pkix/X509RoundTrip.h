// The round-trip assertion of the X.509 structure-class tests.
#pragma once

#include <gtest/gtest.h>

#include "base/ByteString.h"
#include "tests/support/TestUtil.h"

// Decodes der into obj and encodes it again; the bytes must not change.
template <typename T>
::testing::AssertionResult RoundTrips(T& obj, const ByteString& der) {
  if (int rc = obj.fromASN1Object(der))
    return ::testing::AssertionFailure() << "decode " << rc << ": " << obj.getErrorMessage().c_str();
  const ByteString& again = obj.toASN1Object();
  if (obj.getErrorCode() != 0) return ::testing::AssertionFailure() << "encode: " << obj.getErrorMessage().c_str();
  if (again != der)
    return ::testing::AssertionFailure() << qvatest::ToHex(der) << "\nbecame\n" << qvatest::ToHex(again);
  return ::testing::AssertionSuccess();
}
