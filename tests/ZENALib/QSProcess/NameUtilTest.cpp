// The name and extension renderers: GeneralNames and extended key usage
// against `openssl x509 -text`, the CRL distribution point text layout, the
// refusals of the O/R address and directory string choices, and the CP949
// table against iconv.
#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <cstring>
#include <sstream>

#include "ZENALib/QSProcess/PCRLDistPointsUtil.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "ZENALib/QSProcess/PExtKeyUsageUtil.h"
#include "ZENALib/QSProcess/PGeneralNameUtil.h"
#include "ZENALib/QSProcess/UUniCode.h"
#include "tests/ZENALib/QSProcess/ProcessTestUtil.h"

namespace {

// The corpus certificates whose names start with prefix.
std::vector<std::string> Corpus(const std::string& prefix) {
  std::vector<std::string> out;
  for (const std::string& path : qvatest::DerFiles(qvatest::DataPath("pkix/x509/certs")))
    if (path.compare(path.rfind('/') + 1, prefix.size(), prefix) == 0) out.push_back(path);
  return out;
}

// The text of one extension as `openssl x509 -ext` prints it (its lines
// after the heading, joined by newlines).
std::string OpensslExt(const std::string& path, const char* ext) {
  std::string out;
  qvatest::Run(std::string("openssl x509 -inform DER -noout -ext ") + ext + " -in " + path, &out);
  return out.substr(std::min(out.size(), out.find('\n') + 1));
}

std::vector<std::string> Split(const std::string& s, const std::string& sep) {
  std::vector<std::string> out;
  std::size_t start = 0;
  for (std::size_t at; (at = s.find(sep, start)) != std::string::npos; start = at + sep.size())
    out.push_back(s.substr(start, at - start));
  out.push_back(s.substr(start));
  return out;
}

std::string Trim(std::string s) {
  s.erase(0, s.find_first_not_of(" \n"));
  s.erase(s.find_last_not_of(" \n") + 1);
  return s;
}

}  // namespace

// Each name openssl lists comes out under our label with the same value;
// names openssl does not spell out are counted by kind.
TEST(NameUtil, GeneralNamesAgreeWithOpenssl) {
  static const struct {
    const char* openssl;
    const char* ours;
  } kLabels[] = {{"email:", "RFC822 Name="}, {"DNS:", "DNS Name="}, {"URI:", "URL="},
                 {"IP Address:", "IP Address="}, {"Registered ID:", "Registered ID="}};
  int checked = 0;
  for (const char* prefix : {"names-", "x400_edi-", "everything-"}) {
    for (const std::string& path : Corpus(prefix)) {
      SCOPED_TRACE(path);
      PCertUtil cert;
      ASSERT_EQ(0, cert.parseCertificate(qvatest::ReadFileBs(path)));
      for (int issuer = 0; issuer < 2; ++issuer) {
        RGeneralNames names;
        if ((issuer ? cert.getIssuerAltNames(&names) : cert.getSubjectAltNames(&names)) != 0) continue;
        PGeneralNameUtil util;
        ByteString text;
        ASSERT_EQ(0, util.parseGeneralNames(names, "", &text)) << util.getErrorMessage().c_str();
        const std::string ours = text.c_str();
        const std::string theirs = Trim(OpensslExt(path, issuer ? "issuerAltName" : "subjectAltName"));
        std::size_t x400 = 0, edi = 0, other = 0, dir = 0;
        for (const std::string& item : Split(theirs, ", ")) {
          bool known = false;
          for (const auto& l : kLabels) {
            if (item.compare(0, std::strlen(l.openssl), l.openssl) != 0) continue;
            known = true;
            const std::string line = l.ours + item.substr(std::strlen(l.openssl)) + "\r\n";
            EXPECT_NE(std::string::npos, ours.find(line)) << line << "\n" << ours;
            ++checked;
          }
          if (known) continue;
          x400 += item.compare(0, 9, "X400Name:") == 0;
          edi += item.compare(0, 13, "EdiPartyName:") == 0;
          other += item.compare(0, 10, "othername:") == 0;
          dir += item.compare(0, 8, "DirName:") == 0;
        }
        auto count = [&](const std::string& what) {
          std::size_t n = 0;
          for (std::size_t at = ours.find(what); at != std::string::npos; at = ours.find(what, at + 1)) ++n;
          return n;
        };
        EXPECT_EQ(x400, count("X400 Address=\r\n\tBuilt in standard attributes :\r\n"));
        EXPECT_EQ(edi, count("EDIParty Name=\r\n"));
        EXPECT_EQ(other, count("Other Name:\r\n\t"));
        if (dir) {
          EXPECT_NE(std::string::npos, ours.find("c=KR,o=Example Org,ou=Unit One,cn=Directory Name\r\n"));
        }
      }
    }
  }
  EXPECT_GT(checked, 40);
}

// The key purposes by the names openssl gives them.
TEST(NameUtil, ExtendedKeyUsageAgreesWithOpenssl) {
  int checked = 0;
  for (const char* prefix : {"leaf-", "everything-"}) {
    for (const std::string& path : Corpus(prefix)) {
      PCertUtil cert;
      ByteString value, text;
      ASSERT_EQ(0, cert.parseCertificate(qvatest::ReadFileBs(path)));
      ASSERT_EQ(0, cert.getExtensionValue(cert.m_nExtendedKeyUsage, &value));
      PExtKeyUsageUtil eku;
      ASSERT_EQ(0, eku.parseExtKeyUsage(value));
      ASSERT_EQ(0, eku.makeExtKeyUsageMessage(&text));
      EXPECT_EQ(Trim(OpensslExt(path, "extendedKeyUsage")), text.c_str()) << path;
      ++checked;
    }
  }
  EXPECT_EQ(12, checked);
  PExtKeyUsageUtil eku;
  EXPECT_NE(0, eku.parseExtKeyUsage(qvatest::Hex("300306")));
  EXPECT_NE(nullptr, std::strstr(eku.getErrorMessage().c_str(), "PExtKeyUsageUtil::parseExtKeyUsage-extKeyUsage("));
}

// The distribution point text, as its layout is fixed: full and relative
// names, every reason, the CRL issuer; the freshest CRL the same way.
TEST(NameUtil, DistributionPointText) {
  const auto records = processtest::Vectors("crldp.txt");
  for (const auto& r : records) {
    SCOPED_TRACE(r.at("Cert"));
    PCertUtil cert;
    ASSERT_EQ(0, cert.parseCertificate(qvatest::ReadFileBs(qvatest::DataPath("pkix/x509/certs/" + r.at("Cert")))));
    ByteString value, text, issuer;
    const int pos = r.at("Extension") == "freshestCRL" ? cert.m_nFreshestCRL : cert.m_nCRLDistributionPoints;
    ASSERT_EQ(0, cert.getExtensionValue(pos, &value));
    PCRLDistPointsUtil dp;
    ASSERT_EQ(0, dp.parseCRLDistributionPoint(value));
    ASSERT_EQ(0, dp.makeDistributionPointMessage(&text));
    auto unescape = [](std::string s) {
      std::string out;
      for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i] == '\\' && i + 1 < s.size()) {
          const char c = s[++i];
          out += c == 'r' ? '\r' : c == 'n' ? '\n' : c == 't' ? '\t' : c;
        } else {
          out += s[i];
        }
      }
      return out;
    };
    EXPECT_EQ(unescape(r.at("Text")), text.c_str());
    ASSERT_EQ(0, dp.getCRLIssuer(&issuer));
    EXPECT_EQ(unescape(r.at("Issuer")), issuer.c_str());
  }
  PCRLDistPointsUtil dp;
  EXPECT_NE(0, dp.parseCRLDistributionPoint(qvatest::Hex("3003a0")));
  EXPECT_NE(nullptr, std::strstr(dp.getErrorMessage().c_str(),
                                 "PCRLDistPointsUtil::parseCRLDistributionPoint-tihs.crlDistributionPointsSyntax("));
  ByteString none;
  ASSERT_EQ(0, dp.parseCRLDistributionPoint(qvatest::Hex("3000")));
  EXPECT_EQ(4096, dp.getCRLIssuer(&none));
}

// Choices that decoding always fills, left empty, and a BMPString of odd
// length: each refused with its own text.
TEST(NameUtil, ChoiceRefusals) {
  PGeneralNameUtil u;
  ByteString out;
  EXPECT_EQ(PGeneralNameUtil::PGN_ERR_UNKNOWN_CHOICE, u.parseGeneralName(RGeneralName(), &out));
  EXPECT_NE(nullptr, std::strstr(u.getErrorMessage().c_str(), ", GeneralName Choice(-1) is UNKNOWN"));

  EXPECT_EQ(PGeneralNameUtil::PGN_ERR_UNKNOWN_CHOICE, u.parseDirectoryString(RDirectoryString(), &out));
  EXPECT_NE(nullptr, std::strstr(u.getErrorMessage().c_str(), ", Unknown type chosen."));
  RDirectoryString odd;
  ASN1BMPString bmp;
  bmp.setValue(qvatest::Hex("D14CC2"));
  odd.setBmpString(bmp);
  EXPECT_EQ(PGeneralNameUtil::PGN_ERR_CONVERT, u.parseDirectoryString(odd, &out));
  EXPECT_NE(nullptr, std::strstr(u.getErrorMessage().c_str(), ", UUniCode::Unicode2KSC is failed."));

  const struct {
    int which;
    const char* message;
  } kAddress[] = {{0, ", Unknown countryName(-1) chosen."},
                  {1, ", Unknown administrationDomainName(-1) chosen."},
                  {2, ", Unknown privateDomainName(-1) chosen."}};
  for (const auto& c : kAddress) {
    RBuiltInStandardAttributes a;
    if (c.which == 0) a.setCountryName(RCountryName());
    if (c.which == 1) a.setAdministrationDomainName(RAdministrationDomainName());
    if (c.which == 2) a.setPrivateDomainName(RPrivateDomainName());
    EXPECT_EQ(PGeneralNameUtil::PGN_ERR_UNKNOWN_CHOICE, u.parseBuiltInStandardAttributes(a, &out));
    EXPECT_NE(nullptr, std::strstr(u.getErrorMessage().c_str(), c.message)) << u.getErrorMessage().c_str();
  }
}

// Every BMP code point: our CP949 bytes are iconv's, and a point iconv
// cannot write has none of ours.
TEST(NameUtil, Cp949TableAgreesWithIconv) {
  iconv_t cd = iconv_open("CP949", "UTF-16BE");
  ASSERT_NE(reinterpret_cast<iconv_t>(-1), cd);
  int differ = 0, mapped = 0;
  for (std::uint32_t cp = 0x80; cp <= 0xFFFF; ++cp) {
    if (cp >= 0xD800 && cp < 0xE000) continue;
    char in[2] = {static_cast<char>(cp >> 8), static_cast<char>(cp)}, out[8];
    char* src = in;
    char* dst = out;
    std::size_t inLeft = 2, outLeft = sizeof out;
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    const bool ok = iconv(cd, &src, &inLeft, &dst, &outLeft) != static_cast<std::size_t>(-1);
    unsigned char ours[2];
    const int n = UUniCode::CodePoint2KSC(cp, ours);
    mapped += n == 2;
    const std::string a = ok ? std::string(out, sizeof out - outLeft) : "";
    const std::string b(reinterpret_cast<char*>(ours), static_cast<std::size_t>(n));
    if (a != b && ++differ <= 5) ADD_FAILURE() << std::hex << "U+" << cp;
  }
  iconv_close(cd);
  EXPECT_EQ(0, differ);
  EXPECT_EQ(17048, mapped);

  // Whole strings: UTF-8 and BMP forms of the same text give the same bytes.
  ByteString fromUtf8, fromBmp;
  EXPECT_EQ(0, UUniCode::UTF82KSC(qvatest::Hex("ED858CEC8AA4ED8AB8").data(), 9, &fromUtf8));
  EXPECT_EQ(0, UUniCode::Unicode2KSC(qvatest::Hex("D14CC2A4D2B8").data(), 6, &fromBmp));
  EXPECT_EQ(fromUtf8, fromBmp);
  ByteString bad;
  EXPECT_EQ(UUniCode::UUNI_MALFORMED, UUniCode::UTF82KSC(qvatest::Hex("C0AF41").data(), 3, &bad));  // overlong '/'
  EXPECT_EQ(UUniCode::UUNI_UNMAPPED, UUniCode::Unicode2KSC(qvatest::Hex("0E01").data(), 2, &bad));  // Thai
}
