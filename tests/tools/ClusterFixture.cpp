#include "tests/tools/ClusterFixture.h"

#include <openssl/evp.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>
#include <sys/stat.h>

#include <cstdlib>

#include "libaibase/clroamingmessage.h"
#include "libqvaclient/csecuretunnel.h"
#include "tests/support/TestUtil.h"
#include "tools/server/Session.h"
#ifdef QVA_WITH_POSTGRESQL
#include <libpq-fe.h>
#endif

namespace qvatest {

bool Query(const std::string& uri, const char* sql, std::vector<std::string>* rows) {
#ifndef QVA_WITH_POSTGRESQL
  return uri.empty() && sql && rows && false;
#else
  PGconn* c = PQconnectdb(uri.c_str());
  bool ok = PQstatus(c) == CONNECTION_OK;
  if (ok) {
    PGresult* r = PQexecParams(c, sql, 0, nullptr, nullptr, nullptr, nullptr, 1);
    ok = PQresultStatus(r) == PGRES_TUPLES_OK;
    for (int i = 0; ok && i < PQntuples(r); ++i)
      rows->emplace_back(PQgetvalue(r, i, 0), static_cast<std::size_t>(PQgetlength(r, i, 0)));
    PQclear(r);
  }
  PQfinish(c);
  return ok;
#endif
}

namespace {
void AddExt(X509* cert, X509* issuer, int nid, const char* value) {
  X509V3_CTX ctx;
  X509V3_set_ctx(&ctx, issuer, cert, nullptr, nullptr, 0);
  X509_EXTENSION* ext = X509V3_EXT_conf_nid(nullptr, &ctx, nid, value);
  if (ext) X509_add_ext(cert, ext, -1);
  X509_EXTENSION_free(ext);
}

X509* MakeCert(const char* cn, long serial, EVP_PKEY* key, X509* issuer, EVP_PKEY* signer) {
  X509* cert = X509_new();
  X509_set_version(cert, 2);
  ASN1_INTEGER_set(X509_get_serialNumber(cert), serial);
  X509_NAME* name = X509_NAME_new();
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>(cn), -1, -1, 0);
  X509_set_subject_name(cert, name);
  X509_set_issuer_name(cert, issuer ? X509_get_subject_name(issuer) : name);
  X509_NAME_free(name);
  X509_gmtime_adj(X509_getm_notBefore(cert), -86400);
  X509_gmtime_adj(X509_getm_notAfter(cert), 365L * 86400);
  X509_set_pubkey(cert, key);
  X509* parent = issuer ? issuer : cert;
  AddExt(cert, parent, NID_basic_constraints, issuer ? "critical,CA:FALSE" : "critical,CA:TRUE");
  AddExt(cert, parent, NID_key_usage, issuer ? "critical,digitalSignature" : "critical,keyCertSign,cRLSign");
  X509_sign(cert, signer, EVP_sha256());
  return cert;
}

std::string Der(X509* cert) {
  unsigned char* p = nullptr;
  const int n = i2d_X509(cert, &p);
  std::string s(reinterpret_cast<const char*>(p), n > 0 ? static_cast<std::size_t>(n) : 0);
  OPENSSL_free(p);
  return s;
}
}  // namespace

LeafFactory::LeafFactory(const std::string& dir)
    : dir_(dir), root_(EVP_RSA_gen(2048)), leaf_(EVP_EC_gen("P-256")),
      rootCert_(MakeCert("Cluster Test Root", 1, root_, nullptr, root_)) {
  ::mkdir(anchors().c_str(), 0755);
  WriteFile(anchors() + "/root.der", Der(rootCert_));
}

LeafFactory::~LeafFactory() {
  X509_free(rootCert_);
  EVP_PKEY_free(root_);
  EVP_PKEY_free(leaf_);
}

std::vector<std::string> LeafFactory::Leaves(long first, int n) const {
  std::vector<std::string> v;
  for (long serial = first; serial < first + n; ++serial) {
    const std::string cn = "Cluster Test Leaf " + std::to_string(serial);
    X509* cert = MakeCert(cn.c_str(), serial, leaf_, rootCert_, root_);
    v.push_back(Der(cert));
    X509_free(cert);
  }
  return v;
}

std::string Sha256(const std::string& bytes) {
  unsigned char md[EVP_MAX_MD_SIZE];
  unsigned int n = 0;
  EVP_Digest(bytes.data(), bytes.size(), md, &n, EVP_sha256(), nullptr);
  return std::string(reinterpret_cast<const char*>(md), n);
}

int RegisterVia(int port1, int port2, const std::string& der) {
  const ByteString body = qvaserver::Session::MakeItems({der});
  const ByteString id("cluster"), ref(""), host("127.0.0.1");
  CLRoamingMessage request, reply;
  if (request.MakeRoamingMessage(107, 0, &id, &ref, &body) != 0) return -1;
  CSecureTunnel tunnel;
  int rc = tunnel.Connect(host, port1, host, port2);
  if (rc > 0) return rc;
  rc = tunnel.Request(request.GetMessage());
  if (rc > 0) return rc;
  std::vector<ByteString> items;
  if (reply.ParseRoamingMessage(tunnel.GetResponse()) != 0 ||
      !qvaserver::Session::ParseItems(reply.GetBody(), &items) || items.empty())
    return -1;
  return std::atoi(Str(items[0]).c_str());
}

}  // namespace qvatest
