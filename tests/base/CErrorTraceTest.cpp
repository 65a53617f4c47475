#include "base/CErrorTrace.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TestUtil.h"

namespace {

// Exposes the protected code for the test.
struct Traced : CErrorTrace {
  void setCode(int c) { m_nErrorCode = c; }
};

}  // namespace

TEST(CErrorTrace, ThreeLevelChainNewestLineFirst) {
  Traced inner, middle, outer;
  inner.QVA_ERROR_TRACE("CSocketClient::SocketConnect", "connect fail", 155, "Connection refused\r\n");
  middle.QVA_ERROR_TRACE("CSecureTunnel::Connect", "m_pSocketClient->Connect", 155, inner.GetErrorMsg().c_str());
  outer.QVA_ERROR_TRACE("CQVAClientAPI::API_Verify", "ProcessMessage", 155, middle.GetErrorMsg().c_str());
  EXPECT_EQ(qvatest::Str(outer.GetErrorMsg()),
            "CQVAClientAPI::API_Verify - ProcessMessage(155)\r\n"
            "CSecureTunnel::Connect - m_pSocketClient->Connect(155)\r\n"
            "CSocketClient::SocketConnect - connect fail(155)\r\n"
            "Connection refused\r\n");
}

TEST(CErrorTrace, DetailAndOlderTraceJoinWithoutSeparator) {
  Traced t;
  t.QVA_ERROR_TRACE("A::first", "x", 1, nullptr);  // null detail: the line alone
  EXPECT_EQ(qvatest::Str(t.GetErrorMsg()), "A::first - x(1)\r\n");
  t.QVA_ERROR_TRACE("A::second", "y", 2, "no line break");
  EXPECT_EQ(qvatest::Str(t.GetErrorMsg()), "A::second - y(2)\r\nno line breakA::first - x(1)\r\n");
  EXPECT_EQ(t.GetErrorCode(), 0);  // the code is the caller's to store
}

TEST(CErrorTrace, OverlongLineIsLeftOutButDetailKept) {
  Traced t;
  t.QVA_ERROR_TRACE("A::old", "o", 3, nullptr);
  const std::string huge(2100, 'm');
  t.QVA_ERROR_TRACE(huge.c_str(), "x", 4, "detail\r\n");
  EXPECT_EQ(qvatest::Str(t.GetErrorMsg()), "detail\r\nA::old - o(3)\r\n");
}

TEST(CErrorTrace, ClearErrorEmptiesTraceAndCode) {
  Traced t;
  t.setCode(155);
  t.QVA_ERROR_TRACE("A::b", "c", 155, "d");
  t.ClearError();
  EXPECT_EQ(t.GetErrorCode(), 0);
  EXPECT_EQ(t.GetErrorMsg().length(), 0);
  EXPECT_TRUE(t.GetErrorMsg() == "");

  t.SetErrorMsg(ByteString("server says no"));
  EXPECT_EQ(qvatest::Str(t.GetErrorMsg()), "server says no");
}
