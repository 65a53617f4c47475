// The class registry and the corpus helpers of Pkix.h.
#include "tests/ZENALib/ASN1Pkix/Pkix.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>

#include "PkixClasses.h"
#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Enumerated.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1IA5String.h"
#include "ZENALib/ASN1/ASN1Null.h"

namespace pkixtest {
namespace {

std::map<std::string, Factory>& Registry() {
#define R(C) {#C, [] { return std::unique_ptr<ASN1Object>(new C); }},
  static std::map<std::string, Factory> m = {
#include "PkixRegistry.inc"
      // universal types that extensions hold
      R(ASN1OctetString) R(ASN1BitString) R(ASN1Integer) R(ASN1Enumerated) R(ASN1ObjectIdentifier)
      R(ASN1GeneralizedTime) R(ASN1IA5String) R(ASN1Null)};
#undef R
  return m;
}

}  // namespace

std::unique_ptr<ASN1Object> Make(const std::string& cls) {
  const auto it = Registry().find(cls);
  return it == Registry().end() ? nullptr : it->second();
}

std::vector<std::string> Names() {
  std::vector<std::string> out;
  for (const auto& kv : Registry()) out.push_back(kv.first);
  return out;
}

bool Register(const std::string& cls, Factory make) { return Registry().emplace(cls, std::move(make)).second; }

::testing::AssertionResult RoundTripsAs(const std::string& cls, const ByteString& der) {
  auto obj = Make(cls);
  if (!obj) return ::testing::AssertionFailure() << "no class " << cls << " in the registry";
  return RoundTrips(*obj, der) << " (as " << cls << ")";
}

::testing::AssertionResult SameMembers(std::initializer_list<std::pair<ASN1Object*, ASN1Object*>> members) {
  int i = 0;
  for (const auto& [a, b] : members) {
    if (a->toASN1Object() != b->toASN1Object())
      return ::testing::AssertionFailure() << "member " << i << ":\n" << qvatest::ToHex(a->toASN1Object()) << "\nvs\n"
                                           << qvatest::ToHex(b->toASN1Object());
    ++i;
  }
  return ::testing::AssertionSuccess();
}

std::vector<std::string> Files(const std::string& dir, const std::string& prefix, const std::string& suffix) {
  std::vector<std::string> out;
  for (const auto& e : std::filesystem::directory_iterator(qvatest::DataPath("pkix/" + dir))) {
    const std::string name = e.path().filename().string();
    if (e.is_regular_file() && name.rfind(prefix, 0) == 0 && name.size() >= suffix.size() &&
        name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0)
      out.push_back(e.path().string());
  }
  std::sort(out.begin(), out.end());
  return out;
}

std::string FileName(const std::string& path) { return std::filesystem::path(path).filename().string(); }

std::vector<qvatest::VectorRecord> Vectors(const std::string& rel) {
  return qvatest::ReadVectors(qvatest::DataPath("pkix/" + rel));
}

namespace {
void ToIndefinite(const unsigned char* p, int n, ByteString* out) {
  for (int i = 0; i < n;) {
    const unsigned char id = p[i];
    int len = p[i + 1], h = 2;
    if (len & 0x80) {
      const int k = len & 0x7F;
      len = 0;
      for (int j = 0; j < k; ++j) len = (len << 8) | p[i + 2 + j];
      h += k;
    }
    if (id & 0x20) {
      const unsigned char head[2] = {id, 0x80}, eoc[2] = {0, 0};
      out->append(head, 2);
      ToIndefinite(p + i + h, len, out);
      out->append(eoc, 2);
    } else {
      out->append(p + i, h + len);
    }
    i += h + len;
  }
}
}  // namespace

ByteString Indefinite(const ByteString& der) {
  ByteString out;
  ToIndefinite(der.data(), der.length(), &out);
  return out;
}

std::string Canonical(std::string h) {
  if (h.compare(0, 2, "0x") == 0) h.erase(0, 2);
  std::transform(h.begin(), h.end(), h.begin(), ::toupper);
  const auto nz = h.find_first_not_of('0');
  return nz == std::string::npos ? "0" : h.substr(nz);
}

ByteString FirstComponent(const ByteString& der, int length) {
  const unsigned char l = der.data()[1];
  return der.mid(l < 0x80 ? 2 : 2 + (l & 0x7F), length);
}

}  // namespace pkixtest
