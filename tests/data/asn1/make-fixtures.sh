#!/bin/sh
# Regenerates the openssl-made fixtures of the ASN.1 cross-check: a CA and a
# leaf certificate, a CRL with revoked entries, CMS signed data (definite and
# streamed indefinite lengths) and CMS enveloped data, all DER.
# usage: tests/data/asn1/make-fixtures.sh   (needs the openssl CLI)
set -eu
cd "$(dirname "$0")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat > "$work/ext.cnf" <<'CNF'
[ca]
basicConstraints = critical, CA:true, pathlen:1
keyUsage = critical, keyCertSign, cRLSign
subjectKeyIdentifier = hash
[leaf]
basicConstraints = CA:false
keyUsage = critical, digitalSignature, nonRepudiation
extendedKeyUsage = clientAuth, emailProtection
subjectKeyIdentifier = hash
authorityKeyIdentifier = keyid, issuer
subjectAltName = email:test@example.kr, DNS:example.kr, IP:192.0.2.1, dirName:alt_dir
certificatePolicies = 1.2.410.200004.5.2.1.2
crlDistributionPoints = URI:http://example.kr/ca.crl
[alt_dir]
C = KR
O = Alt
[ca_section]
default_ca = test_ca
[test_ca]
database = WORK/index.txt
crlnumber = WORK/crlnumber
default_md = sha256
default_crl_days = 30
crl_extensions = crl_ext
[crl_ext]
authorityKeyIdentifier = keyid
CNF
sed -i "s|WORK|$work|g" "$work/ext.cnf"

openssl req -x509 -newkey rsa:2048 -nodes -keyout "$work/ca.key" -sha256 -days 3650 -set_serial 1 \
  -subj "/C=KR/O=ASN1 Test/OU=Fixtures/CN=ASN1 Test Root" -extensions ca -config "$work/ext.cnf" \
  -out "$work/ca.pem" 2>/dev/null
openssl x509 -in "$work/ca.pem" -outform DER -out ca.der

openssl req -new -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout "$work/leaf.key" \
  -subj "/C=KR/O=ASN1 Test/CN=leaf/emailAddress=test@example.kr" -out "$work/leaf.csr" 2>/dev/null
openssl x509 -req -in "$work/leaf.csr" -CA "$work/ca.pem" -CAkey "$work/ca.key" -set_serial 0x8a0f3c -days 365 \
  -sha256 -extfile "$work/ext.cnf" -extensions leaf -out "$work/leaf.pem" 2>/dev/null
openssl x509 -in "$work/leaf.pem" -outform DER -out leaf.der

touch "$work/index.txt"
echo 1000 > "$work/crlnumber"
openssl ca -config "$work/ext.cnf" -name test_ca -cert "$work/ca.pem" -keyfile "$work/ca.key" \
  -revoke "$work/leaf.pem" -crl_reason keyCompromise 2>/dev/null
openssl ca -config "$work/ext.cnf" -name test_ca -cert "$work/ca.pem" -keyfile "$work/ca.key" \
  -gencrl -out "$work/crl.pem" 2>/dev/null
openssl crl -in "$work/crl.pem" -outform DER -out crl.der

printf 'ASN.1 cross-check message\n' > "$work/msg.txt"
openssl cms -sign -in "$work/msg.txt" -signer "$work/leaf.pem" -inkey "$work/leaf.key" -certfile "$work/ca.pem" \
  -binary -outform DER -out cms-signed.der
openssl cms -sign -stream -in "$work/msg.txt" -signer "$work/ca.pem" -inkey "$work/ca.key" \
  -binary -outform DER -out cms-signed-indefinite.der
openssl cms -encrypt -in "$work/msg.txt" -aes128 -recip "$work/ca.pem" -binary -outform DER \
  -out cms-enveloped.der
echo "fixtures written to $(pwd)"
