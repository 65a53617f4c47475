#!/usr/bin/env bash
# Makes the certificates and CRLs of the facade tests with the openssl CLI,
# in DER (run from anywhere; rewrites every .der here):
#   ca.der          issuing CA, "/C=KR/O=한국테스트/CN=테스트 CA" (UTF8String)
#   other-ca.der    another CA of its own name
#   user-listed.der user certificate serial 0x1001, listed in ca.crl.der
#   user-clean.der  user certificate serial 0x1002, not listed
#   user-nopolicy.der  the same profile without certificatePolicies
#   user-nodp.der   with policies, no CRL distribution point
#   ca.crl.der      CRL of ca listing 0x1001 (keyCompromise)
#   ca-old.crl.der  the same list with thisUpdate in 2001 (before every certificate)
#   other.crl.der   CRL of other-ca listing 0x1001 as well
# User certificates carry policy 1.2.410.200004.5.1.1.7 and the
# distribution point http://crl.example.kr/dp/ca1.crl.
set -euo pipefail
export DB=/dev/null
cd "$(dirname "$0")"
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT
rm -f ./*.der
cat > "$W/x.cnf" <<'CNF'
[ req ]
distinguished_name = dn
[ dn ]
[ ca_ext ]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
subjectKeyIdentifier = hash
[ user ]
basicConstraints = CA:FALSE
keyUsage = digitalSignature
certificatePolicies = 1.2.410.200004.5.1.1.7
crlDistributionPoints = URI:http://crl.example.kr/dp/ca1.crl
[ user_nopolicy ]
basicConstraints = CA:FALSE
crlDistributionPoints = URI:http://crl.example.kr/dp/ca1.crl
[ user_nodp ]
basicConstraints = CA:FALSE
certificatePolicies = 1.2.410.200004.5.1.1.7
[ ca ]
default_ca = this
[ this ]
database = $ENV::DB
default_md = sha256
default_crl_days = 3650
crl_extensions = crl_ext
[ crl_ext ]
authorityKeyIdentifier = keyid:always
CNF
key() { openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:2048 -out "$W/$1.key" 2>/dev/null; }
key ca; key other; key user
openssl req -new -x509 -utf8 -key "$W/ca.key" -subj "/C=KR/O=한국테스트/CN=테스트 CA" -set_serial 1 \
  -days 7300 -config "$W/x.cnf" -extensions ca_ext -out "$W/ca.pem"
openssl req -new -x509 -utf8 -key "$W/other.key" -subj "/C=KR/O=Other/CN=Other CA" -set_serial 2 \
  -days 7300 -config "$W/x.cnf" -extensions ca_ext -out "$W/other.pem"
openssl x509 -in "$W/ca.pem" -outform DER -out ca.der
openssl x509 -in "$W/other.pem" -outform DER -out other-ca.der
user() {  # user <out> <serial> <ext> <CN>
  openssl req -new -utf8 -key "$W/user.key" -subj "/C=KR/O=한국테스트/OU=사용자/CN=$4" -config "$W/x.cnf" \
    -out "$W/u.csr"
  openssl x509 -req -in "$W/u.csr" -CA "$W/ca.pem" -CAkey "$W/ca.key" -set_serial "$2" -days 3650 \
    -extfile "$W/x.cnf" -extensions "$3" -outform DER -out "$1.der" 2>/dev/null
}
user user-listed 0x1001 user "홍길동"
user user-clean 0x1002 user "김철수"
user user-nopolicy 0x1003 user_nopolicy "이영희"
user user-nodp 0x1004 user_nodp "박민수"
crl() {  # crl <ca> <out> [ca args...]
  c=$1 out=$2; shift 2
  export DB="$W/$c.index"
  printf 'R\t301231235959Z\t200101000000Z,keyCompromise\t1001\tunknown\t/CN=x\n' > "$DB"
  openssl ca -gencrl -config "$W/x.cnf" -cert "$W/$c.pem" -keyfile "$W/$c.key" -out "$W/crl.pem" "$@" 2>/dev/null
  openssl crl -in "$W/crl.pem" -outform DER -out "$out.der"
}
crl ca ca.crl
crl ca ca-old.crl -crl_lastupdate 010101000000Z
crl other other.crl
