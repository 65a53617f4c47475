#include "base/Messages.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <regex>
#include <string>

#include "tests/support/TestUtil.h"

namespace {

// Every constant of the messages header, by name.
const std::map<std::string, const char*> kCompiled = {
    {"kVerifyRequestFailed", qva_msg::kVerifyRequestFailed},
    {"kUnsupportedCipher", qva_msg::kUnsupportedCipher},
    {"kUnsupportedCipherMode", qva_msg::kUnsupportedCipherMode},
    {"kCertHasNoPolicy", qva_msg::kCertHasNoPolicy},
    {"kMoreThanOneKeyPair", qva_msg::kMoreThanOneKeyPair},
    {"kUnsupportedPbe", qva_msg::kUnsupportedPbe},
    {"kUnsupportedSignFormat", qva_msg::kUnsupportedSignFormat},
    {"kSignerCertMissing", qva_msg::kSignerCertMissing},
    {"kUnsupportedHash", qva_msg::kUnsupportedHash},
    {"kFileReadFailed", qva_msg::kFileReadFailed},
    {"kMemoryAllocFailed", qva_msg::kMemoryAllocFailed},
    {"kRoamingLengthWrong", qva_msg::kRoamingLengthWrong},
    {"kCertExpired", qva_msg::kCertExpired},
    {"kNotInValidityAtDate", qva_msg::kNotInValidityAtDate},
    {"kCrlNotFromIssuer", qva_msg::kCrlNotFromIssuer},
    {"kSrvMalformedRequest", qva_msg::kSrvMalformedRequest},
    {"kSrvUnknownKind", qva_msg::kSrvUnknownKind},
    {"kSrvUnparsableCert", qva_msg::kSrvUnparsableCert},
    {"kSrvUntrustedIssuer", qva_msg::kSrvUntrustedIssuer},
    {"kSrvBadSignature", qva_msg::kSrvBadSignature},
    {"kSrvNotYetValid", qva_msg::kSrvNotYetValid},
    {"kSrvExpired", qva_msg::kSrvExpired},
    {"kSrvRevoked", qva_msg::kSrvRevoked},
    {"kSrvRevocationUnknown", qva_msg::kSrvRevocationUnknown},
    {"kSrvPolicyNotAccepted", qva_msg::kSrvPolicyNotAccepted},
    {"kSrvKeyUsage", qva_msg::kSrvKeyUsage},
    {"kSrvPathConstraints", qva_msg::kSrvPathConstraints},
    {"kSrvUnsupportedAlgorithm", qva_msg::kSrvUnsupportedAlgorithm},
    {"kSrvUnsupportedCritical", qva_msg::kSrvUnsupportedCritical},
    {"kSrvInternalError", qva_msg::kSrvInternalError},
};

}  // namespace

// Each constant must be the CP949 form of the UTF-8 text in the comment above
// it, as iconv converts it; and no constant may be missing from the table.
TEST(Messages, BytesAreTheCp949FormOfTheirComment) {
  const std::string header = qvatest::ReadFile(std::string(QVA_SOURCE_DIR) + "/base/Messages.h");
  const std::regex entry("// ([^\\n]*)\\ninline constexpr char (\\w+)\\[\\]");
  qvatest::TempDir dir;
  int seen = 0;
  for (std::sregex_iterator it(header.begin(), header.end(), entry), end; it != end; ++it, ++seen) {
    const std::string utf8 = (*it)[1], name = (*it)[2];
    const auto found = kCompiled.find(name);
    ASSERT_NE(found, kCompiled.end()) << name << " is not in the test's table";
    qvatest::WriteFile(dir.file("in.txt"), utf8);
    std::string cp949;
    ASSERT_EQ(qvatest::Run("iconv -f UTF-8 -t CP949 '" + dir.file("in.txt") + "'", &cp949), 0) << name;
    EXPECT_EQ(std::string(found->second), cp949) << name;
  }
  EXPECT_EQ(seen, static_cast<int>(kCompiled.size()));
  EXPECT_GT(seen, 0);
}
