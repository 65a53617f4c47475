#!/usr/bin/env bash
# Makes the validation server's test PKI with the openssl CLI in DIR:
#   DIR/anchors        root.pem (RSA-2048), other-root is kept outside
#   DIR/intermediates  int.pem, int2.pem (no CRL), int-ku.pem (keyUsage without
#                      keyCertSign), int-pl0.pem (pathlen 0), sub.pem (below
#                      int-pl0), int-ed.pem (Ed25519 key)
#   DIR/crls           root.crl, int.crl (revokes revoked.pem), int-ku.crl,
#                      int-pl0.crl, sub.crl, int-nc.crl
#   DIR/leaves         one certificate per case, named after its expected verdict
# Leaves carry the policy 1.2.410.200.1.1 except policy.pem (1.2.410.200.1.2).
set -euo pipefail
dir=$1
mkdir -p "$dir"/{anchors,intermediates,crls,leaves,ca}
cd "$dir/ca"

cat >ext.cnf <<'CNF'
[ca]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
subjectKeyIdentifier = hash
[ca_pl0]
basicConstraints = critical,CA:TRUE,pathlen:0
keyUsage = critical,keyCertSign,cRLSign
[ca_ku]
basicConstraints = critical,CA:TRUE
keyUsage = critical,cRLSign,digitalSignature
[leaf]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature,nonRepudiation
certificatePolicies = 1.2.410.200.1.1
[ca_nc]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
nameConstraints = critical,permitted;DNS:good.example,excluded;dirName:nc_excluded
[nc_excluded]
CN = nc-name
[leaf_dns_good]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.1
subjectAltName = DNS:www.good.example
[leaf_dns_bad]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.1
subjectAltName = DNS:www.bad.example
[leaf_policy]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.2
CNF

# ca NAME: an openssl ca configuration for the CA NAME (key NAME.key, cert NAME.pem).
ca_conf() {
  mkdir -p "db-$1"
  : >"db-$1/index.txt"
  [ -f "db-$1/serial" ] || echo 1000 >"db-$1/serial"
  [ -f "db-$1/crlnumber" ] || echo 01 >"db-$1/crlnumber"
  cat >"$1.cnf" <<CNF
[ca]
default_ca = this
[this]
dir = db-$1
database = \$dir/index.txt
new_certs_dir = \$dir
serial = \$dir/serial
crlnumber = \$dir/crlnumber
certificate = $1.pem
private_key = $1.key
default_md = sha256
policy = any
default_crl_days = 36500
unique_subject = no
copy_extensions = none
[any]
commonName = supplied
CNF
}

key() {
  case "$2" in
    ed25519) openssl genpkey -algorithm ed25519 -out "$1.key" 2>/dev/null ;;
    *) openssl genpkey -algorithm rsa -pkeyopt rsa_keygen_bits:2048 -out "$1.key" 2>/dev/null ;;
  esac
}

# issue CA NAME EXT [START END]: NAME.pem issued by CA with extension section EXT.
issue() {
  local ca=$1 name=$2 ext=$3 start=${4:-20200101000000Z} end=${5:-20991231000000Z}
  [ -f "$name.key" ] || key "$name" rsa
  openssl req -new -key "$name.key" -subj "/CN=$name/O=QVA Test" -out "$name.csr" 2>/dev/null
  openssl ca -batch -config "$ca.cnf" -in "$name.csr" -out "$name.pem" -notext -extfile ext.cnf \
    -extensions "$ext" -startdate "$start" -enddate "$end" 2>/dev/null
}

crl() {
  openssl ca -config "$1.cnf" -gencrl -crldays 3650 -out "$dir/crls/$1.crl" 2>/dev/null
}

# The root and the other, unrelated root.
for r in root other-root; do
  key "$r" rsa
  openssl req -x509 -new -key "$r.key" -subj "/CN=$r/O=QVA Test" -days 36500 -sha256 \
    -addext "basicConstraints=critical,CA:TRUE" -addext "keyUsage=critical,keyCertSign,cRLSign" -out "$r.pem" 2>/dev/null
  ca_conf "$r"
done
cp root.pem "$dir/anchors/"

issue root int ca
issue root int2 ca
issue root int-ku ca_ku
issue root int-pl0 ca_pl0
issue root int-nc ca_nc
key int-ed ed25519
issue root int-ed ca
for c in int int2 int-ku int-pl0 int-ed int-nc; do ca_conf "$c"; cp "$c.pem" "$dir/intermediates/"; done
issue int-pl0 sub ca
ca_conf sub
cp sub.pem "$dir/intermediates/"

issue int valid leaf
issue int revoked leaf
issue int expired leaf 20200101000000Z 20210101000000Z
issue int notyet leaf 20980101000000Z 20990101000000Z
issue int policy leaf_policy
issue int2 unknown leaf
issue int-ku keyusage leaf
issue sub pathlen leaf
issue int-ed algorithm leaf
issue other-root untrusted leaf
issue int-nc nc-ok leaf_dns_good
issue int-nc nc-dns leaf_dns_bad
issue int-nc nc-name leaf_dns_good
openssl ca -config int.cnf -revoke revoked.pem -crl_reason keyCompromise 2>/dev/null

for c in root int int-ku int-pl0 sub int-nc; do crl "$c"; done
for l in valid revoked expired notyet policy unknown keyusage pathlen algorithm untrusted nc-ok nc-dns nc-name; do
  openssl x509 -in "$l.pem" -outform DER -out "$dir/leaves/$l.der"
done
# A copy of the valid leaf's signature with one bit flipped.
python3 - "$dir/leaves/valid.der" "$dir/leaves/badsig.der" <<'PY'
import sys
b = bytearray(open(sys.argv[1], 'rb').read())
b[-5] ^= 1
open(sys.argv[2], 'wb').write(b)
PY
# The valid leaf with a byte after its outer SEQUENCE.
{ cat "$dir/leaves/valid.der"; printf '\0'; } >"$dir/leaves/trailing.der"
