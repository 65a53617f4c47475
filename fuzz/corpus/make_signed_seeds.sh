#!/usr/bin/env bash
# Makes the seeds of fuzz/corpus/signed_data and fuzz/corpus/timestamp_token
# with the openssl CLI. signed_data inputs start with one octet that the
# target reads as a flag (odd: the input's tail is a detached content).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
t=$(mktemp -d)
trap 'rm -rf "$t"' EXIT
cd "$t"
echo hello > d.txt
openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:secp160r1 -pkeyopt ec_param_enc:named_curve -nodes \
  -keyout e.pem -subj /CN=ec -days 2 -sha1 -out e.crt 2>/dev/null
openssl cms -sign -binary -nodetach -in d.txt -signer e.crt -inkey e.pem -md sha1 -outform DER -out s.der
openssl cms -sign -binary -nodetach -in d.txt -signer e.crt -inkey e.pem -md sha1 -keyid -outform DER -out s2.der
openssl cms -sign -binary -in d.txt -signer e.crt -inkey e.pem -md sha1 -noattr -outform DER -out s4.der
{ printf '\x00'; cat s.der; } > "$here/signed_data/ecdsa_attrs.der"
{ printf '\x00'; cat s2.der; } > "$here/signed_data/ecdsa_keyid_v3.der"
{ printf '\x01'; cat s4.der d.txt; } > "$here/signed_data/ecdsa_detached_noattr.der"

printf '[ tsa ]\ndefault_tsa = t\n[ t ]\nserial = %s/serial\nsigner_digest = sha256\ndefault_policy = 1.2.3.4.1\n' "$t" > ts.cnf
printf 'digests = sha256\naccuracy = secs:1\nordering = yes\ntsa_name = yes\ness_cert_id_alg = sha1\n' >> ts.cnf
echo 01 > serial
openssl req -x509 -newkey rsa:2048 -nodes -keyout t.pem -subj "/CN=TSA/O=Test" -days 2 \
  -addext "extendedKeyUsage=critical,timeStamping" -out t.crt 2>/dev/null
openssl ts -query -data d.txt -sha256 -cert -out q.tsq
openssl ts -reply -config ts.cnf -queryfile q.tsq -inkey t.pem -signer t.crt -token_out -out tok.der 2>/dev/null
cp tok.der "$here/timestamp_token/openssl_v3.der"
# The same token with its SignedData version (the first INTEGER, not signed) read as 1.
python3 -c "import sys; d=open('tok.der','rb').read(); i=d.find(b'\x02\x01\x03'); sys.stdout.buffer.write(d[:i+2]+b'\x01'+d[i+3:])" \
  > "$here/timestamp_token/openssl_v1.der"
