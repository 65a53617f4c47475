// The X.509 structure classes: names, general names, attributes, O/R
// addresses, CRLs and the certificate extensions, checked on hand-made
// encodings and on malformed ones.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "ZENALib/ASN1Pkix/RAttribute.h"
#include "ZENALib/ASN1Pkix/RAttributes.h"
#include "ZENALib/ASN1Pkix/RBuiltInDomainDefinedAttribute.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RDistributionPointName.h"
#include "ZENALib/ASN1Pkix/RExtKeyUsageSyntax.h"
#include "ZENALib/ASN1Pkix/RExtensionAttribute.h"
#include "ZENALib/ASN1Pkix/RNoticeNumbers.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RPolicyInformation.h"
#include "tests/ZENALib/ASN1Pkix/X509RoundTrip.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::ToHex;

// Every GeneralName alternative: the identifier selects it, its content is
// read as its type, and it encodes back to the same bytes.
TEST(X509GeneralName, EveryAlternative) {
  using G = RGeneralName&;  // getOID is not const
  struct Row {
    const char* hex;
    int selected;             // index of the alternative in the CHOICE
    std::string (*value)(G);  // reads the content as its type
    const char* want;
  } rows[] = {
      // otherName: type-id and [0] EXPLICIT UTF8String
      {"A0 0A 06032A0304 A003 0C0141", 0,
       [](G g) { return std::string(g.getOtherName().getTypeId().getOID('.').c_str()); }, "1.2.3.4"},
      // rfc822Name [1] IMPLICIT IA5String
      {"81 05 6140622E63", 1, [](G g) { return qvatest::Str(g.getRfc822Name().getValue()); }, "a@b.c"},
      // dNSName
      {"82 03 612E62", 2, [](G g) { return qvatest::Str(g.getDNSName().getValue()); }, "a.b"},
      // x400Address: country-name [APPLICATION 1] CHOICE
      {"A3 08 3006 6104 13024B52", 3,
       [](G g) {
         return qvatest::Str(
             g.getX400Address().getBuiltInStandardAttributes().getCountryName().getIso3166Alpha2Code().getValue());
       },
       "KR"},
      // directoryName [4] EXPLICIT Name
      {"A4 0E 300C 310A 3008 0603550403 0C0141", 4,
       [](G g) { return qvatest::Str(g.getDirectoryName().getAt(0)->getAt(0)->getValue().getValue()); }, "A"},
      // ediPartyName: partyName [1] DirectoryString
      {"A5 05 A103 0C0141", 5,
       [](G g) { return qvatest::Str(g.getEdiPartyName().getPartyName().getUtf8String().getValue()); }, "A"},
      // uniformResourceIdentifier
      {"86 03 613A62", 6, [](G g) { return qvatest::Str(g.getUniformResourceIdentifier().getValue()); }, "a:b"},
      // iPAddress
      {"87 04 7F000001", 7, [](G g) { return ToHex(g.getIPAddress().getValue()); }, "7f000001"},
      // registeredID
      {"88 03 2A0304", 8, [](G g) { return std::string(g.getRegisteredID().getOID(' ').c_str()); }, "1 2 3 4"},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.hex);
    RGeneralName gn;
    ASSERT_TRUE(RoundTrips(gn, Hex(r.hex)));
    EXPECT_EQ(gn.getSelected(), r.selected);
    EXPECT_EQ(r.value(gn), r.want);
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

namespace {

// One element: tag octet(s) and hex content; the length is computed.
std::string Tlv(const std::string& tag, const std::string& body) {
  const int n = Hex(body).length();
  char len[16];
  std::snprintf(len, sizeof len, n < 0x80 ? "%02X" : n < 0x100 ? "81%02X" : "82%04X", n);
  return tag + len + body;
}

// Pieces of hand-made encodings.
const std::string kAlg = "3003 06012A";                      // AlgorithmIdentifier { 1.2 }
const std::string kUtc = "170D 3236313132323030303030305A";  // 261122000000Z
const std::string kValidity = Tlv("30", kUtc + kUtc);
const std::string kSpki = "3008 3003 06012A 030100";  // { { 1.2 }, BIT STRING '' }
// TBSCertificate without [0] version: serial 5, empty names.
const std::string kTbsV1 = Tlv("30", "020105" + kAlg + "3000" + kValidity + "3000" + kSpki);
const std::string kSig = "030100";

template <typename T>
int Decode(const ByteString& der, std::string* trace) {
  T obj;
  const int rc = obj.fromASN1Object(der);
  *trace = obj.getErrorMessage().c_str();
  return rc;
}

}  // namespace

// The edge cases the certificate core is known for.
TEST(X509Malformed, TbsCertificateWithoutVersion) {
  RTBSCertificate tbs;
  ASSERT_EQ(tbs.fromASN1Object(Hex(kTbsV1)), 0) << tbs.getErrorMessage().c_str();
  EXPECT_FALSE(tbs.hasVersion());
  EXPECT_EQ(tbs.getVersion().getInteger(), 0);
  EXPECT_EQ(tbs.getSerialNumber().getInteger(), 5);  // read from component 0
  EXPECT_EQ(tbs.toASN1Object(), Hex(kTbsV1));        // and the version stays out
}

// Each row: a class, a malformed encoding, the code it must fail with, and
// the innermost trace frame (class, method, field, code and message) that
// must appear in the trace.
TEST(X509Malformed, CountAndTagMessages) {
  struct Row {
    int (*decode)(const ByteString&, std::string*);
    std::string hex;
    int code;
    const char* frame;
  } rows[] = {
      // TBSCertificate of five components (subjectPublicKeyInfo left out).
      {&Decode<RTBSCertificate>, Tlv("30", "020105" + kAlg + "3000" + kValidity + "3000"), R_ERR_COUNT,
       "RTBSCertificate::fromASN1Object-nCount(21), At least 6 components are required."},
      // Certificate whose signature is an OCTET STRING.
      {&Decode<RCertificate>, Tlv("30", kTbsV1 + kAlg + "040100"), R_ERR_TAG,
       "RCertificate::fromASN1Object-m_signature(22), signature component is not ASN1_TAG_BITSTRING."},
      // TBSCertificate whose serial number is an OCTET STRING.
      {&Decode<RTBSCertificate>, Tlv("30", "040105" + kAlg + "3000" + kValidity + "3000" + kSpki), R_ERR_TAG,
       "RTBSCertificate::fromASN1Object-m_serialNumber(22), serialNumber component is not ASN1_TAG_INTEGER."},
      // CertificateList of two components.
      {&Decode<RCertificateList>, Tlv("30", kAlg + "3000"), R_ERR_COUNT,
       "RCertificateList::fromASN1Object-nCount(21), The number of components is not 3."},
      // CertificateList whose signature is an OCTET STRING.
      {&Decode<RCertificateList>, Tlv("30", Tlv("30", kAlg + "3000" + kUtc) + kAlg + "040100"), R_ERR_TAG,
       "RCertificateList::fromASN1Object-m_signature(22), signature component is not ASN1_TAG_BITSTRING."},
      // TBSCertList of two components.
      {&Decode<RTBSCertList>, Tlv("30", kAlg + "3000"), R_ERR_COUNT,
       "RTBSCertList::fromASN1Object-nCount(21), At least 3 components are required."},
      // TBSCertList whose issuer is a SET.
      {&Decode<RTBSCertList>, Tlv("30", kAlg + "3100" + kUtc), R_ERR_TAG,
       "RTBSCertList::fromASN1Object-m_issuer(22), issuer component is not ASN1_TAG_SEQUENCE."},
      // TBSCertList whose thisUpdate is an INTEGER.
      {&Decode<RTBSCertList>, Tlv("30", kAlg + "3000 020101"), R_ERR_TAG,
       "RTBSCertList::fromASN1Object-m_thisUpdate(22), thisUpdate component is not ASN1_TAG_UTCTIME."},
      // Revoked entry with only a serial number.
      {&Decode<RRevokedCertificate>, "3003 020101", R_ERR_COUNT,
       "RRevokedCertificate::fromASN1Object-nCount(21), At least 2 components are required."},
      // A revoked entry with an OCTET STRING serial, two levels down in a CRL:
      // the code passes through every level unchanged.
      {&Decode<RCertificateList>,
       Tlv("30", Tlv("30", kAlg + "3000" + kUtc + Tlv("30", Tlv("30", "040101" + kUtc))) + kAlg + kSig), R_ERR_TAG,
       "RRevokedCertificate::fromASN1Object-m_userCertificate(22), userCertificate component is not "
       "ASN1_TAG_INTEGER."},
      // Attribute with one and with three components.
      {&Decode<RAttribute>, "3003 06012A", R_ERR_COUNT,
       "RAttribute::fromASN1Object-nCount(21), The number of components is not 2."},
      {&Decode<RAttribute>, "3007 06012A 3100 3100", R_ERR_COUNT,
       "RAttribute::fromASN1Object-nCount(21), The number of components is not 2."},
      // Attribute whose values are a SEQUENCE, not a SET.
      {&Decode<RAttribute>, "3005 06012A 3000", R_ERR_TAG,
       "RAttribute::fromASN1Object-m_values(22), values component is not ASN1_TAG_SET."},
      // PolicyInformation with no component (the class's own spelling).
      {&Decode<RPolicyInformation>, "3000", R_ERR_COUNT,
       "RPolicyInformation::fromASN1Object-nCount(21), At least 1 component is requried."},
      // EDIPartyName, ORAddress and PersonalName with no component.
      {&Decode<REDIPartyName>, "3000", R_ERR_COUNT,
       "REDIPartyName::fromASN1Object-nCount(21), At least 1 component is required."},
      {&Decode<RORAddress>, "3000", R_ERR_COUNT,
       "RORAddress::fromASN1Object-nCount(21), At least 1 component is required."},
      {&Decode<RPersonalName>, "3100", R_ERR_COUNT,
       "RPersonalName::fromASN1Object-nCount(21), At least 1 component is required."},
      // BuiltInDomainDefinedAttribute and ExtensionAttribute with one component.
      {&Decode<RBuiltInDomainDefinedAttribute>, "3003 130141", R_ERR_COUNT,
       "RBuiltInDomainDefinedAttribute::fromASN1Object-nCount(21), The number of components is not 2."},
      {&Decode<RExtensionAttribute>, "3003 800101", R_ERR_COUNT,
       "RExtensionAttribute::fromASN1Object-nCount(21), The number of components is not 2."},
      // EDIPartyName with only a nameAssigner: the mandatory partyName is missing.
      {&Decode<REDIPartyName>, "3005 A003 0C0141", R_ERR_TAG,
       "REDIPartyName::fromASN1Object-m_partyName(22), partyName component is missing."},
      // PolicyInformation whose identifier is an INTEGER.
      {&Decode<RPolicyInformation>, "3003 020101", R_ERR_TAG,
       "RPolicyInformation::fromASN1Object-m_policyIdentifier(22), policyIdentifier component is not ASN1_TAG_OID."},
      // Lists of a universal type refuse tagged items, which the typed
      // classes would take under an implicit tag and write back tagged:
      // a [0] primitive, and a private constructed high-tag identifier (the
      // input the certificate fuzz target found unstable).
      {&Decode<RExtKeyUsageSyntax>, "3004 80022A03", R_ERR_TAG,
       "RExtKeyUsageSyntax::fromASN1Object-m_items(22), [RUniversalItem.h:"},
      {&Decode<RExtKeyUsageSyntax>, "3003 FF0000", R_ERR_TAG,
       "RUniversalItem::fromASN1Object-bsData(22), item is not ASN1_TAG_OID."},
      {&Decode<RNoticeNumbers>, "3006 020101 810101", R_ERR_TAG,
       "RUniversalItem::fromASN1Object-bsData(22), item is not ASN1_TAG_INTEGER."},
      // GeneralName [9] and DistributionPointName [2]: no such alternative.
      {&Decode<RGeneralName>, "89 01 00", R_ERR_CHOICE,
       "RGeneralName::fromASN1Object-m_nSelected(23), No alternative has the identifier 0x89."},
      {&Decode<RDistributionPointName>, "A2 00", R_ERR_CHOICE,
       "RDistributionPointName::fromASN1Object-m_nSelected(23), No alternative has the identifier 0xA2."},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.frame);
    std::string trace;
    EXPECT_EQ(r.decode(Hex(r.hex), &trace), r.code);
    EXPECT_NE(trace.find(r.frame), std::string::npos) << trace;
  }
}

// Cut-off input fails in the sequence split ("asnSeq") at every length, and
// never reads past the end (the sanitizer build checks that part).
TEST(X509Malformed, TruncatedCrlFailsAtEveryLength) {
  const ByteString der =
      Hex(Tlv("30", Tlv("30", kAlg + "3000" + kUtc + Tlv("30", Tlv("30", "020101" + kUtc))) + kAlg + kSig));
  RCertificateList whole;
  ASSERT_EQ(whole.fromASN1Object(der), 0) << whole.getErrorMessage().c_str();
  for (int n = 0; n < der.length(); ++n) {
    RCertificateList crl;
    EXPECT_NE(crl.fromASN1Object(der.mid(0, n)), 0) << n;
    EXPECT_NE(std::string(crl.getErrorMessage().c_str()).find("RCertificateList::fromASN1Object-asnSeq("),
              std::string::npos)
        << n << ": " << crl.getErrorMessage().c_str();
  }
}
