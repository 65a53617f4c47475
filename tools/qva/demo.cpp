// qva demo: a whole validation run on this machine. Makes a demo PKI in a
// temporary folder (the openssl CLI issues the certificates and the CRLs: the
// toolkit reads and verifies them but has no certificate issuer; the KCDSA
// key, which openssl does not know, comes from the toolkit), starts
// qva-server on 127.0.0.1 with a free port, asks it about each leaf and one
// registration through the client library, prints a table and stops the
// server. Exit status 0 only when every verdict is the expected one.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "ZENALib/QSProcess/PGenKeyPair.h"
#include "qva/qva.h"
#include "tools/qva/platform/display.h"

namespace {

// The demo PKI: a root, an intermediate with its CRL (one leaf revoked), and
// leaves that are valid, expired, revoked and of a policy the server does not
// accept, and one that gets a KCDSA key afterwards. Certificates in DIR/leaves, trust material in DIR/anchors,
// DIR/intermediates, DIR/crls.
const char kMakePki[] = R"SH(set -eu
dir=$1
mkdir -p "$dir"/anchors "$dir"/intermediates "$dir"/crls "$dir"/leaves "$dir"/ca
cd "$dir/ca"
cat >ext.cnf <<'CNF'
[ca]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
[leaf]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.1
[other]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.2
CNF
conf() {
  mkdir -p "db-$1"; : >"db-$1/index.txt"; echo 1000 >"db-$1/serial"; echo 01 >"db-$1/crlnumber"
  printf '[ca]\ndefault_ca=this\n[this]\ndir=db-%s\ndatabase=$dir/index.txt\nnew_certs_dir=$dir\nserial=$dir/serial\ncrlnumber=$dir/crlnumber\ncertificate=%s.pem\nprivate_key=%s.key\ndefault_md=sha256\npolicy=any\nunique_subject=no\n[any]\ncommonName=supplied\n' "$1" "$1" "$1" >"$1.cnf"
}
issue() {
  openssl genpkey -algorithm rsa -pkeyopt rsa_keygen_bits:2048 -out "$2.key" 2>/dev/null
  openssl req -new -key "$2.key" -subj "/CN=demo $2/O=QVA Demo" -out "$2.csr" 2>/dev/null
  openssl ca -batch -config "$1.cnf" -in "$2.csr" -out "$2.pem" -notext -extfile ext.cnf -extensions "$3" \
    -startdate "${4:-20200101000000Z}" -enddate "${5:-20991231000000Z}" 2>/dev/null
}
openssl genpkey -algorithm rsa -pkeyopt rsa_keygen_bits:2048 -out root.key 2>/dev/null
openssl req -x509 -new -key root.key -subj "/CN=demo root/O=QVA Demo" -days 3650 -sha256 \
  -addext "basicConstraints=critical,CA:TRUE" -addext "keyUsage=critical,keyCertSign,cRLSign" -out root.pem 2>/dev/null
conf root
issue root intermediate ca
conf intermediate
issue intermediate valid leaf
issue intermediate expired leaf 20200101000000Z 20210101000000Z
issue intermediate revoked leaf
issue intermediate policy other
issue intermediate kcdsa leaf
openssl ca -config intermediate.cnf -revoke revoked.pem -crl_reason keyCompromise 2>/dev/null
openssl ca -config root.cnf -gencrl -crldays 30 -out "$dir/crls/root.crl" 2>/dev/null
openssl ca -config intermediate.cnf -gencrl -crldays 30 -out "$dir/crls/intermediate.crl" 2>/dev/null
cp root.pem "$dir/anchors/"
cp intermediate.pem "$dir/intermediates/"
for l in valid expired revoked policy kcdsa; do openssl x509 -in "$l.pem" -outform DER -out "$dir/leaves/$l.der"; done
)SH";

// The DER element at s[at]: *header its header length; the whole length,
// or 0 when it does not fit in s.
std::size_t Element(const std::string& s, std::size_t at, std::size_t* header) {
  if (at + 2 > s.size()) return 0;
  std::size_t len = static_cast<unsigned char>(s[at + 1]);
  *header = 2;
  if (len & 0x80) {
    const std::size_t count = len & 0x7f;
    if (count == 0 || count > 4 || at + 2 + count > s.size()) return 0;
    len = 0;
    for (std::size_t i = 0; i < count; ++i) len = (len << 8) | static_cast<unsigned char>(s[at + 2 + i]);
    *header += count;
  }
  return at + *header + len <= s.size() ? *header + len : 0;
}

std::string Wrap(char tag, const std::string& content) {
  std::string len;
  std::size_t n = content.size();
  if (n < 0x80) {
    len = std::string(1, static_cast<char>(n));
  } else {
    while (n) {
      len.insert(len.begin(), static_cast<char>(n & 0xff));
      n >>= 8;
    }
    len.insert(len.begin(), static_cast<char>(0x80 | len.size()));
  }
  return std::string(1, tag) + len + content;
}

std::string ReadAll(const std::string& path);

// The leaf "kcdsa" made by openssl with an RSA key gets a KCDSA key from the
// toolkit in its place; the intermediate signs the changed TBSCertificate
// again (openssl dgst, SHA-256 with RSA as the original signature says).
bool MakeKcdsaLeaf(const std::string& dir) {
  PGenKeyPair gen;
  ByteString privateKey, spki;
  if (gen.makeKeyPairWithGeneratedKey(7033, ByteString(), privateKey, spki) != 0) return false;
  const std::string cert = ReadAll(dir + "/leaves/kcdsa.der");
  std::size_t h = 0, th = 0;
  if (Element(cert, 0, &h) != cert.size() || cert.empty()) return false;
  const std::size_t tbsLen = Element(cert, h, &th);
  if (tbsLen == 0) return false;
  const std::size_t algAt = h + tbsLen;
  std::size_t ah = 0;
  const std::size_t algLen = Element(cert, algAt, &ah);
  if (algLen == 0) return false;
  // TBSCertificate: [0] version, serial, signature, issuer, validity, subject, subjectPublicKeyInfo, ...
  std::string tbs;
  std::size_t at = h + th;
  for (int i = 0; at < h + tbsLen; ++i) {
    std::size_t eh = 0;
    const std::size_t n = Element(cert, at, &eh);
    if (n == 0) return false;
    tbs += i == 6 ? std::string(spki.c_str(), static_cast<std::size_t>(spki.length())) : cert.substr(at, n);
    at += n;
  }
  tbs = Wrap(0x30, tbs);
  std::ofstream(dir + "/ca/kcdsa.tbs", std::ios::binary) << tbs;
  const std::string sign = "openssl dgst -sha256 -sign '" + dir + "/ca/intermediate.key' -out '" + dir +
                           "/ca/kcdsa.sig' '" + dir + "/ca/kcdsa.tbs'";
  if (std::system(sign.c_str()) != 0) return false;
  const std::string sig = ReadAll(dir + "/ca/kcdsa.sig");
  std::ofstream(dir + "/leaves/kcdsa.der", std::ios::binary)
      << Wrap(0x30, tbs + cert.substr(algAt, algLen) + Wrap(0x03, std::string(1, '\0') + sig));
  return !sig.empty();
}

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// qva-server beside this program, or the one on the PATH.
std::string ServerPath() {
  char self[PATH_MAX];
  const ssize_t n = ::readlink("/proc/self/exe", self, sizeof self - 1);
  if (n > 0) {
    std::string dir(self, static_cast<std::size_t>(n));
    dir = dir.substr(0, dir.rfind('/'));
    if (::access((dir + "/qva-server").c_str(), X_OK) == 0) return dir + "/qva-server";
  }
  return "qva-server";
}

struct Row {
  const char* name;
  const char* what;
  bool registration;
  int expected;
  int received = -1;
  std::string text;
};

std::string Detail(void* client) {
  char buf[4096];
  int len = sizeof buf;
  if (QVA_GetDetailErrorMsg(client, buf, &len) != 0) return "";
  return ForDisplay(buf, len);
}

}  // namespace

int RunDemoCommand(int, char**) {
  char tmpl[] = "/tmp/qva-demo-XXXXXX";
  if (!::mkdtemp(tmpl)) {
    std::perror("qva demo: mkdtemp");
    return 2;
  }
  const std::string dir = tmpl;
  const std::string script = dir + "/make-pki.sh";
  std::ofstream(script) << kMakePki;
  std::printf("making the demo PKI in %s ...\n", dir.c_str());
  std::fflush(stdout);
  if (std::system(("bash '" + script + "' '" + dir + "'").c_str()) != 0) {
    std::fprintf(stderr, "qva demo: the demo PKI could not be made (is the openssl CLI installed?)\n");
    return 2;
  }
  if (!MakeKcdsaLeaf(dir)) {
    std::fprintf(stderr, "qva demo: the KCDSA leaf could not be made\n");
    return 2;
  }

  int fds[2];
  if (::pipe(fds) != 0) return 2;
  const std::string server = ServerPath();
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::dup2(fds[1], 1);
    ::close(fds[0]);
    const std::string a = dir + "/anchors", i = dir + "/intermediates", c = dir + "/crls", db = dir + "/demo.db";
    ::execlp(server.c_str(), server.c_str(), "--anchors", a.c_str(), "--intermediates", i.c_str(), "--crls",
             c.c_str(), "--db", db.c_str(), "--policy", "1.2.410.200.1.1", "--port", "0", static_cast<char*>(nullptr));
    std::perror("qva demo: qva-server");
    _exit(127);
  }
  ::close(fds[1]);
  FILE* out = ::fdopen(fds[0], "r");
  int port = 0;
  if (!out || std::fscanf(out, "listening on 127.0.0.1:%d", &port) != 1) {
    std::fprintf(stderr, "qva demo: qva-server did not start\n");
    ::kill(pid, SIGTERM);
    ::waitpid(pid, nullptr, 0);
    return 2;
  }
  std::printf("qva-server listening on 127.0.0.1:%d\n\n", port);

  std::vector<Row> rows = {{"valid", "valid RSA-2048 leaf", false, 0, -1, ""},
                           {"kcdsa", "valid KCDSA-2048 leaf", false, 0, -1, ""},
                           {"expired", "expired in 2021", false, 5007, -1, ""},
                           {"revoked", "revoked (keyCompromise)", false, 5008, -1, ""},
                           {"policy", "policy 1.2.410.200.1.2", false, 5010, -1, ""},
                           {"valid", "registration of the valid leaf", true, 0, -1, ""}};
  bool allAsExpected = true;
  for (Row& r : rows) {
    const std::string der = ReadAll(dir + "/leaves/" + r.name + ".der");
    void* client = nullptr;
    if (QVA_Initialize(&client, "127.0.0.1", port, "demo") != 0) return 2;
    const auto* p = reinterpret_cast<const unsigned char*>(der.data());
    const int n = static_cast<int>(der.size());
    r.received = r.registration ? QVA_RegisterCert(client, p, n) : QVA_Verify(client, "CERT", p, n);
    if (r.received != 0) r.text = Detail(client);
    QVA_Release(client);
    allAsExpected = allAsExpected && r.received == r.expected;
  }
  ::kill(pid, SIGTERM);
  ::waitpid(pid, nullptr, 0);
  std::fclose(out);

  std::printf("%-32s %-8s %-8s %s\n", "certificate", "expected", "received", "text");
  for (const Row& r : rows)
    std::printf("%-32s %-8d %-8d %s%s\n", r.what, r.expected, r.received, r.text.c_str(),
                r.received == r.expected ? "" : "   <-- not as expected");
  std::printf("\n%s\n", allAsExpected ? "every verdict as expected" : "SOME VERDICTS NOT AS EXPECTED");
  std::system(("rm -rf '" + dir + "'").c_str());
  return allAsExpected ? 0 : 1;
}
