#!/usr/bin/env bash
# Makes the CRLs and certificates of the CRL processing tests with the
# openssl CLI (openssl ca -gencrl over a hand-written index), in DER:
#   ca.der        the CRL issuer (EC P-256, keyCertSign + cRLSign)
#   ca-nosign.der the same name and key without cRLSign
#   ca-otherkey.der the same name with another key
#   ca-reserial.der the same name and key, another serial
#   ca-noski.der, ca-otherkey-noski.der  without subjectKeyIdentifier
#   ca-cross.der  the same name and key certified by other.der
#   other.der     another CA
#   user.der, sub.der      a user and a CA certificate issued by ca
#   dp-other.der  a user certificate whose DP names another cRLIssuer
#   dp-indirect.der a certificate of other whose DP names ca as cRLIssuer
#   full.der      entries with every reason, hold instructions, invalidity dates
#   v1.der, empty.der, idp-user.der, idp-ca.der, idp-aa.der, indirect.der,
#   delta.der, critical.der, many.der (16 extensions), aki-issuer.der, ian.der,
#   future.der (an entry revoked after thisUpdate)
# Run from this folder; it rewrites every .der here.
set -euo pipefail
cd "$(dirname "$0")"
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT
rm -f ./*.der

cat > "$W/x.cnf" <<'CNF'
[ ca_ext ]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
subjectKeyIdentifier = hash
subjectAltName = URI:http://ca.example.com/
[ ca_noski ]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
subjectKeyIdentifier = none
[ ca_nosign ]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign
subjectKeyIdentifier = hash
[ user ]
basicConstraints = CA:FALSE
keyUsage = digitalSignature
crlDistributionPoints = URI:http://crl.example.com/ca.crl
[ sub ]
basicConstraints = critical,CA:TRUE
keyUsage = keyCertSign,cRLSign
[ dp_other ]
basicConstraints = CA:FALSE
crlDistributionPoints = dp_other_sect
[ dp_other_sect ]
fullname = URI:http://crl.example.com/x.crl
CRLissuer = dirName:dn_other
[ dn_other ]
CN = Somebody Else
[ dp_indirect ]
basicConstraints = CA:FALSE
crlDistributionPoints = dp_indirect_sect
[ dp_indirect_sect ]
fullname = URI:http://crl.example.com/ca.crl
CRLissuer = dirName:dn_ca
[ dn_ca ]
C = KR
O = CRL Test
CN = CRL Test CA

[ crl_plain ]
authorityKeyIdentifier = keyid:always
[ crl_ian ]
authorityKeyIdentifier = keyid:always
issuerAltName = URI:http://elsewhere.example.com/
[ crl_aki_issuer ]
authorityKeyIdentifier = keyid:always,issuer:always
[ crl_idp_user ]
authorityKeyIdentifier = keyid:always
issuingDistributionPoint = critical,@idp_user
[ idp_user ]
fullname = URI:http://crl.example.com/ca.crl
onlyuser = TRUE
[ crl_idp_ca ]
issuingDistributionPoint = critical,@idp_ca
[ idp_ca ]
onlyCA = TRUE
[ crl_idp_aa ]
issuingDistributionPoint = critical,@idp_aa
[ idp_aa ]
onlyAA = TRUE
[ crl_indirect ]
issuingDistributionPoint = critical,@idp_indirect
[ idp_indirect ]
fullname = URI:http://crl.example.com/ca.crl
indirectCRL = TRUE
[ crl_delta ]
authorityKeyIdentifier = keyid:always
deltaCRL = critical,ASN1:INTEGER:7
[ crl_critical ]
1.2.3.4 = critical,ASN1:NULL
[ crl_many ]
1.2.3.1 = ASN1:NULL
1.2.3.2 = ASN1:NULL
1.2.3.3 = ASN1:NULL
1.2.3.5 = ASN1:NULL
1.2.3.6 = ASN1:NULL
1.2.3.7 = ASN1:NULL
1.2.3.8 = ASN1:NULL
1.2.3.9 = ASN1:NULL
1.2.3.10 = ASN1:NULL
1.2.3.11 = ASN1:NULL
1.2.3.12 = ASN1:NULL
1.2.3.13 = ASN1:NULL
1.2.3.14 = ASN1:NULL
1.2.3.15 = ASN1:NULL
1.2.3.16 = ASN1:NULL
1.2.3.17 = ASN1:NULL
CNF

key() { openssl genpkey -algorithm EC -pkeyopt ec_paramgen_curve:P-256 -out "$W/$1.key" 2>/dev/null; }
key ca; key other; key otherkey; key user
selfsign() {  # selfsign <key> <subject> <serial> <ext> <out>
  openssl req -new -x509 -key "$W/$1.key" -subj "$2" -set_serial "$3" -days 9000 -config "$W/x.cnf" \
    -extensions "$4" -outform DER -out "$5.der"
}
CA_DN="/C=KR/O=CRL Test/CN=CRL Test CA"
selfsign ca "$CA_DN" 1 ca_ext ca
selfsign ca "$CA_DN" 2 ca_nosign ca-nosign
selfsign otherkey "$CA_DN" 3 ca_ext ca-otherkey
selfsign ca "$CA_DN" 4 ca_ext ca-reserial
selfsign other "/C=KR/O=CRL Test/CN=Other CA" 5 ca_ext other
selfsign ca "$CA_DN" 6 ca_noski ca-noski
selfsign otherkey "$CA_DN" 7 ca_noski ca-otherkey-noski
openssl x509 -inform DER -in ca.der -out "$W/ca.pem"
openssl x509 -inform DER -in other.der -out "$W/other.pem"
issue() {  # issue <ca> <subject> <serial> <ext> <out>
  openssl req -new -key "$W/user.key" -subj "$2" -out "$W/req.csr"
  openssl x509 -req -in "$W/req.csr" -CA "$W/$1.pem" -CAkey "$W/$1.key" -set_serial "$3" -days 9000 \
    -extfile "$W/x.cnf" -extensions "$4" -outform DER -out "$5.der" 2>/dev/null
}
issue ca "/CN=CRL Test User" 0x11 user user
issue ca "/CN=CRL Test Sub CA" 0x12 sub sub
issue ca "/CN=CRL Test DP Other" 0x13 dp_other dp-other
issue other "/CN=CRL Test Indirect" 0x14 dp_indirect dp-indirect
# The CA's key and name certified by the other CA.
openssl req -new -key "$W/ca.key" -subj "$CA_DN" -out "$W/req.csr"
openssl x509 -req -in "$W/req.csr" -CA "$W/other.pem" -CAkey "$W/other.key" -set_serial 1 -days 9000 \
  -extfile "$W/x.cnf" -extensions ca_ext -outform DER -out ca-cross.der 2>/dev/null

T=$(printf '\t')
{
  echo "R${T}301231235959Z${T}250102030405Z,keyCompromise${T}11${T}unknown${T}/CN=CRL Test User"
  echo "R${T}301231235959Z${T}250102030406Z,CACompromise${T}21${T}unknown${T}/CN=b"
  echo "R${T}301231235959Z${T}250102030407Z,affiliationChanged${T}22${T}unknown${T}/CN=c"
  echo "R${T}301231235959Z${T}250102030408Z,superseded${T}23${T}unknown${T}/CN=d"
  echo "R${T}301231235959Z${T}250102030409Z,cessationOfOperation${T}24${T}unknown${T}/CN=e"
  echo "R${T}301231235959Z${T}250102030410Z,certificateHold${T}25${T}unknown${T}/CN=f"
  echo "R${T}301231235959Z${T}250102030411Z,removeFromCRL${T}26${T}unknown${T}/CN=g"
  echo "R${T}301231235959Z${T}250102030412Z,holdInstruction,holdInstructionReject${T}27${T}unknown${T}/CN=h"
  echo "R${T}301231235959Z${T}250102030413Z,keyTime,20241231000000Z${T}28${T}unknown${T}/CN=i"
  echo "R${T}301231235959Z${T}250102030414Z,CAkeyTime,20241130000000Z${T}29${T}unknown${T}/CN=j"
  echo "R${T}301231235959Z${T}250102030415Z${T}00FF${T}unknown${T}/CN=k"
  echo "V${T}301231235959Z${T}${T}40${T}unknown${T}/CN=valid"
} > "$W/index.full"
printf 'R\t301231235959Z\t250102030405Z\t11\tunknown\t/CN=a\nR\t301231235959Z\t250102030406Z\t12\tunknown\t/CN=b\n' > "$W/index.plain"
: > "$W/index.empty"
printf 'R\t301231235959Z\t291231235959Z,superseded\t11\tunknown\t/CN=a\n' > "$W/index.future"

gencrl() {  # gencrl <out> <index> <crlnumber or -> [ca args...]
  out=$1 idx=$2 num=$3; shift 3
  cp "$W/index.$idx" "$W/index.txt"
  { echo "[ ca ]"; echo "default_ca = CA_default"; echo "[ CA_default ]"; echo "database = $W/index.txt"
    echo "default_md = sha256"; echo "default_crl_days = 30"
    if [ "$num" != - ]; then echo "$num" > "$W/crlnumber"; echo "crlnumber = $W/crlnumber"; fi
    cat "$W/x.cnf"; } > "$W/ca.cnf"
  openssl ca -config "$W/ca.cnf" -gencrl -cert "$W/ca.pem" -keyfile "$W/ca.key" -out "$W/crl.pem" "$@" 2>"$W/err" ||
    { cat "$W/err"; exit 1; }
  openssl crl -in "$W/crl.pem" -outform DER -out "$out.der"
}
gencrl full full 1000 -crlexts crl_plain
gencrl v1 plain -
gencrl empty empty 01 -crlexts crl_plain
gencrl ian plain 02 -crlexts crl_ian
gencrl aki-issuer plain 03 -crlexts crl_aki_issuer
gencrl idp-user plain 04 -crlexts crl_idp_user
gencrl idp-ca plain 05 -crlexts crl_idp_ca
gencrl idp-aa plain 06 -crlexts crl_idp_aa
gencrl indirect plain 07 -crlexts crl_indirect
gencrl delta full 08 -crlexts crl_delta
gencrl critical plain 09 -crlexts crl_critical
gencrl many plain - -crlexts crl_many
gencrl future future 10 -crlexts crl_plain
for f in *.der; do openssl asn1parse -inform DER -in "$f" -noout; done
ls ./*.der | wc -l | sed 's/^/files: /'
