// The algorithm registry against its table (algorithm.txt); every identifier
// built is also read back by `openssl asn1parse`.
#include <gtest/gtest.h>

#include "ZENALib/QSProcess/PAlgorithmUtil.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

using processtest::Get;
using processtest::HexBs;
using processtest::Num;

TEST(AlgorithmUtil, RegistryTable) {
  qvatest::TempDir dir;
  for (auto r : processtest::Vectors("algorithm.txt")) {
    const std::string op = r["Op"];
    SCOPED_TRACE(op + " " + r["Alg"] + r["OID"] + r["In"] + " " + r["Mode"] + r["Hash"]);
    PAlgorithmUtil u;
    RAlgorithmIdentifier algID;
    ByteString bsOut;
    int nAlg = 0, nMode = 0, rc = -1;
    std::string out;
    const ByteString oid(r["OID"].c_str());
    if (op == "code2oid") {
      rc = u.code2oid(Num(r, "Alg"), bsOut, Num(r, "Mode"));
      out = qvatest::Str(bsOut);
    } else if (op == "oid2code") {
      rc = u.oid2code(oid, Num(r, "Ver"), &nAlg, Num(r, "NoMode") ? nullptr : &nMode);
      out = std::to_string(nAlg) + " " + std::to_string(nMode);
    } else if (op == "makeSymmetricAlgID") {
      rc = u.makeSymmetricAlgID(Num(r, "Alg"), Num(r, "Mode"), HexBs(r["IV"]), algID);
    } else if (op == "makeDigestAlgID") {
      rc = u.makeDigestAlgID(oid, algID);
    } else if (op == "parseHashAlgID" || op == "getHashAlgFromSignAlg") {
      rc = op == "parseHashAlgID" ? u.parseHashAlgID(HexBs(r["In"]), &nAlg)
                                  : u.getHashAlgFromSignAlg(HexBs(r["In"]), &nAlg);
      out = std::to_string(nAlg);
    } else if (op == "makeDigestEncAlgID") {
      rc = u.makeDigestEncAlgID(oid, Num(r, "Hash"), HexBs(Get(r, "Params")), algID);
    } else if (op == "displayName") {
      const char* name = PAlgorithmUtil::displayName(r["OID"].c_str());
      out = name ? name : "(none)";
      rc = 0;
    } else {
      ADD_FAILURE() << "unknown Op " << op;
      continue;
    }
    EXPECT_EQ(rc, Num(r, "Code")) << qvatest::Str(u.getErrorMessage());
    EXPECT_EQ(u.getErrorCode(), Num(r, "Code"));
    if (rc != 0) {
      if (!r["Tail"].empty()) {
        EXPECT_TRUE(cryptotest::TraceTail(u.getErrorMessage(), "PAlgorithmUtil.cpp", r["Tail"]));
      }
      continue;
    }
    if (!r["Out"].empty()) {
      EXPECT_EQ(out, r["Out"]);
    }
    if (r["Der"].empty()) continue;
    const ByteString der = algID.toASN1Object();
    EXPECT_EQ(qvatest::ToHex(der), qvatest::ToHex(HexBs(r["Der"])));
    if (r["Name"].empty()) continue;
    qvatest::WriteFile(dir.file("alg.der"), der);
    std::string parsed;
    ASSERT_EQ(qvatest::Run("openssl asn1parse -inform DER -in " + dir.file("alg.der"), &parsed), 0);
    EXPECT_NE(parsed.find(":" + r["Name"] + "\n"), std::string::npos) << parsed;
  }
}
