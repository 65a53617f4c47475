// The X.509 structure classes: names, general names, attributes, O/R
// addresses, CRLs and the certificate extensions, checked on hand-made
// encodings and on malformed ones.
#include <gtest/gtest.h>

#include <string>

#include "ZENALib/ASN1Pkix/RAttribute.h"
#include "ZENALib/ASN1Pkix/RAttributes.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::ToHex;

namespace {

// Decodes `der` into T and encodes it again; the bytes must not change.
template <typename T>
::testing::AssertionResult RoundTrips(T& obj, const ByteString& der) {
  if (int rc = obj.fromASN1Object(der))
    return ::testing::AssertionFailure() << "decode " << rc << ": " << obj.getErrorMessage().c_str();
  const ByteString& again = obj.toASN1Object();
  if (obj.getErrorCode() != 0)
    return ::testing::AssertionFailure() << "encode: " << obj.getErrorMessage().c_str();
  if (again != der) return ::testing::AssertionFailure() << ToHex(der) << " became " << ToHex(again);
  return ::testing::AssertionSuccess();
}

}  // namespace

// Every GeneralName alternative: the identifier selects it, its content is
// read as its type, and it encodes back to the same bytes.
TEST(X509GeneralName, EveryAlternative) {
  struct Row {
    const char* hex;
    int selected;      // index of the alternative in the CHOICE
    const char* what;  // a value that proves the content was read as its type
  } rows[] = {
      {"A0 0A 06032A0304 A003 0C0141", 0, "1.2.3.4"},          // otherName: type-id and [0] EXPLICIT UTF8String
      {"81 05 6140622E63", 1, "a@b.c"},                      // rfc822Name [1] IMPLICIT IA5String
      {"82 03 612E62", 2, "a.b"},                            // dNSName
      {"A3 08 3006 6104 13024B52", 3, "KR"},                 // x400Address: country-name [APPLICATION 1]
      {"A4 0E 300C 310A 3008 0603550403 0C0141", 4, "A"},    // directoryName [4] EXPLICIT Name
      {"A5 05 A103 0C0141", 5, "A"},                         // ediPartyName: partyName [1] DirectoryString
      {"86 03 613A62", 6, "a:b"},                            // uniformResourceIdentifier
      {"87 04 7F000001", 7, "7f000001"},                     // iPAddress
      {"88 03 2A0304", 8, "1 2 3 4"},                        // registeredID
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.hex);
    RGeneralName gn;
    ASSERT_TRUE(RoundTrips(gn, Hex(r.hex)));
    EXPECT_EQ(gn.getSelected(), r.selected);
    std::string got;
    switch (r.selected) {
      case 0: got = gn.getOtherName().getTypeId().getOID('.').c_str(); break;
      case 1: got = qvatest::Str(gn.getRfc822Name().getValue()); break;
      case 2: got = qvatest::Str(gn.getDNSName().getValue()); break;
      case 3:
        got = qvatest::Str(
            gn.getX400Address().getBuiltInStandardAttributes().getCountryName().getIso3166Alpha2Code().getValue());
        break;
      case 4: got = qvatest::Str(gn.getDirectoryName().getAt(0)->getAt(0)->getValue().getValue()); break;
      case 5: got = qvatest::Str(gn.getEdiPartyName().getPartyName().getUtf8String().getValue()); break;
      case 6: got = qvatest::Str(gn.getUniformResourceIdentifier().getValue()); break;
      case 7: got = ToHex(gn.getIPAddress().getValue()); break;
      case 8: got = gn.getRegisteredID().getOID(' ').c_str(); break;
    }
    EXPECT_EQ(got, r.what);
  }
}

// GeneralNames built from setters encode as the schema says.
TEST(X509GeneralName, BuiltBySetters) {
  RGeneralName dns, ip;
  ASN1IA5String host;
  host.setValue("a.b");
  dns.setDNSName(host);
  ASN1OctetString addr;
  addr.setValue("\x0A\x00\x00\x01", 4);
  ip.setIPAddress(addr);
  RGeneralNames names;
  names.add(dns);
  names.add(ip);
  EXPECT_EQ(ToHex(names.toASN1Object()), ToHex(Hex("30 0B 8203612E62 87040A000001")));
}

// Attributes: a SET OF values kept verbatim, in a SET OF Attribute.
TEST(X509Attribute, ValuesKeptVerbatim) {
  const ByteString der = Hex("31 1A 3018 06092A864886F70D010903 310B 06092A864886F70D010701");
  RAttributes attrs;
  ASSERT_TRUE(RoundTrips(attrs, der));
  ASSERT_EQ(attrs.getCount(), 1);
  const RAttribute& a = *attrs.getAt(0);
  ASSERT_EQ(a.getValues().getCount(), 1);
  EXPECT_EQ(ToHex(a.getValues().getAt(0)->getElement()), ToHex(Hex("06092A864886F70D010701")));
}
