// Test support for qva-server processes on one database: a small PKI whose
// leaves all validate, and a registration through the transport's two addresses.
#pragma once

#include <openssl/types.h>

#include <string>
#include <vector>

#include "tests/support/PgCluster.h"
#include "tests/tools/ServerProcess.h"

namespace qvatest {

// A root CA (RSA-2048) in DIR/anchors and leaves it signs, made with libcrypto.
class LeafFactory {
 public:
  explicit LeafFactory(const std::string& dir);
  ~LeafFactory();
  LeafFactory(const LeafFactory&) = delete;
  LeafFactory& operator=(const LeafFactory&) = delete;
  std::string anchors() const { return dir_ + "/anchors"; }
  // A distinct valid leaf (DER) per serial: n of them from serial first.
  std::vector<std::string> Leaves(long first, int n = 1) const;

 private:
  std::string dir_;
  EVP_PKEY* root_;
  EVP_PKEY* leaf_;
  X509* rootCert_;
};

// SHA-256 of bytes, the registry's key.
std::string Sha256(const std::string& bytes);

// The first column of a query's rows in binary form; false when it fails.
bool Query(const std::string& uri, const char* sql, std::vector<std::string>* rows);

// One registration (type 107) through the transport with first address
// 127.0.0.1:port1 and second 127.0.0.1:port2: the server's verdict, or the
// transport's failure code.
int RegisterVia(int port1, int port2, const std::string& der);

}  // namespace qvatest
