// Helpers shared by the structure-class tests: the class registry, the
// round-trip assertion, corpus files and the BER rewriting of DER input.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RObject.h"
#include "base/ByteString.h"
#include "tests/support/TestUtil.h"

namespace pkixtest {

using Factory = std::function<std::unique_ptr<ASN1Object>()>;
// A fresh object of the named class; null when no class has that name.
std::unique_ptr<ASN1Object> Make(const std::string& cls);
// The names the registry knows.
std::vector<std::string> Names();
// Adds a class made for a test (the engine's probe); returns true.
bool Register(const std::string& cls, Factory make);

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
// The same through the registry.
::testing::AssertionResult RoundTripsAs(const std::string& cls, const ByteString& der);

// Members whose encodings must be the same, pair by pair.
::testing::AssertionResult SameMembers(std::initializer_list<std::pair<ASN1Object*, ASN1Object*>> members);

// Arcs separated by blanks (getOID is not const).
inline std::string Oid(const ASN1ObjectIdentifier& oid) {
  return const_cast<ASN1ObjectIdentifier&>(oid).getOID(' ').c_str();
}
// A file under tests/data/pkix.
inline ByteString Load(const std::string& rel) { return qvatest::ReadFileBs(qvatest::DataPath("pkix/" + rel)); }
// Full paths of the files of tests/data/pkix/<dir> whose names start with
// prefix and end with suffix, sorted.
std::vector<std::string> Files(const std::string& dir, const std::string& prefix = "", const std::string& suffix = "");
std::string FileName(const std::string& path);
// Records of tests/data/pkix/<rel>.
std::vector<qvatest::VectorRecord> Vectors(const std::string& rel);
// The BER form of a DER encoding with every constructed element of
// indefinite length (as streaming writers make it); primitives are copied.
ByteString Indefinite(const ByteString& der);
// A hex number as openssl prints it, in one form: upper case, no "0x", no
// leading zeros.
std::string Canonical(std::string hex);
// The first component of the outer element of der, as it stands.
ByteString FirstComponent(const ByteString& der, int length);

}  // namespace pkixtest
