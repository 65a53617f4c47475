#!/bin/sh
# Regenerates the X.509 corpus of the structure-class tests with the openssl
# CLI (3.x): certificates (v1 and v3, every extension openssl can write, RSA,
# RSA-PSS, DSA, EC and Ed25519 keys, long serials, Printable/UTF8/BMP/T61
# names) under certs/, and CRLs (v1, v2 with entry extensions, issuing
# distribution points, delta CRLs, indirect CRLs) under crls/.
# Usage: sh make.sh   (from anywhere; writes next to this script)
set -eu
cd "$(dirname "$0")"
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT
rm -rf certs crls
mkdir certs crls

key() {  # key <name> <genpkey args...>
  n=$1; shift
  openssl genpkey "$@" -out "$W/$n.key" 2>/dev/null
}
key rsa1024 -algorithm RSA -pkeyopt rsa_keygen_bits:1024
key rsa2048 -algorithm RSA -pkeyopt rsa_keygen_bits:2048
openssl dsaparam -out "$W/dsa.param" 1024 2>/dev/null
key dsa1024 -paramfile "$W/dsa.param"
key ec256 -algorithm EC -pkeyopt ec_paramgen_curve:P-256
key ec384 -algorithm EC -pkeyopt ec_paramgen_curve:P-384
key ed25519 -algorithm ED25519

# Three issuing CAs, self-signed v3 roots.
printf '[req]\ndistinguished_name = dn\n[dn]\n' | cat - ext.cnf > "$W/req-ca.cnf"
for ca in ec256 rsa2048 dsa1024; do
  openssl req -new -x509 -key "$W/$ca.key" -subj "/C=KR/O=Corpus/OU=Test CA/CN=Corpus $ca CA" \
    -days 3650 -set_serial 1 -config "$W/req-ca.cnf" -extensions ca_cert -sha256 -out "$W/ca-$ca.pem"
  openssl x509 -in "$W/ca-$ca.pem" -outform DER -out "certs/root-$ca.der"
done

sign() {  # sign <out> <issuer> <serial> [x509 args...]
  out=$1 iss=$2 serial=$3; shift 3
  openssl x509 -req -in "$W/req.csr" -CA "$W/ca-$iss.pem" -CAkey "$W/$iss.key" -set_serial "$serial" \
    -days 825 -outform DER -out "certs/$out.der" "$@" 2>/dev/null
}

# Every extension profile with every subject key; the issuer rotates.
profiles="ca_cert leaf policies names x400_edi x400_min constraints access crldp directory qc everything"
keys="rsa1024 rsa2048 dsa1024 ec256 ec384 ed25519"
issuers="ec256 rsa2048 dsa1024"
serial=100
i=0
for p in $profiles; do
  for k in $keys; do
    set -- $issuers
    shift $((i % 3))
    iss=$1
    i=$((i + 1))
    serial=$((serial + 1))
    openssl req -new -key "$W/$k.key" -subj "/C=KR/O=Corpus/OU=$p/CN=$k $p" -out "$W/req.csr" 2>/dev/null
    sign "$p-$k" "$iss" "$serial" -extfile ext.cnf -extensions "$p"
  done
done

# RSA-PSS signatures (parameters in the AlgorithmIdentifier).
for p in leaf names; do
  openssl req -new -key "$W/ec256.key" -subj "/CN=pss $p" -out "$W/req.csr" 2>/dev/null
  sign "pss-$p" rsa2048 7 -extfile ext.cnf -extensions "$p" -sigopt rsa_padding_mode:pss -sigopt rsa_pss_saltlen:32
done

# v1 certificates: no extensions, so no [0] version.
for k in $keys; do
  openssl req -new -key "$W/$k.key" -subj "/C=KR/CN=v1 $k" -out "$W/req.csr" 2>/dev/null
  sign "v1-$k" ec256 "$((serial + 1))"
  serial=$((serial + 1))
done
openssl req -new -key "$W/ec256.key" -subj "/CN=v1 self" -out "$W/req.csr" 2>/dev/null
openssl x509 -req -in "$W/req.csr" -signkey "$W/ec256.key" -days 30 -outform DER -out certs/v1-self.der 2>/dev/null

# Serial numbers: long, with a leading zero octet, zero, and one.
for s in 0x7FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF 0x8000000000000000000000000000000000000001 \
         0x00FF 0 1 0x0123456789ABCDEF; do
  openssl req -new -key "$W/ec256.key" -subj "/CN=serial $s" -out "$W/req.csr" 2>/dev/null
  sign "serial-$s" ec256 "$s" -extfile ext.cnf -extensions leaf
done

# Name encodings: the string mask decides PrintableString, T61String,
# BMPString or UTF8String; multi-valued RDNs; a validity after 2049
# (GeneralizedTime).
subj_ko='/C=KR/O=한국전자인증/OU=테스트/CN=홍길동 테스트'
for mask in default pkix utf8only nombstr; do
  printf 'string_mask = %s\n[req]\ndistinguished_name = dn\n[dn]\n' "$mask" > "$W/req-$mask.cnf"
  openssl req -new -utf8 -config "$W/req-$mask.cnf" -key "$W/rsa1024.key" -subj "$subj_ko" -out "$W/req.csr" 2>/dev/null || \
    openssl req -new -config "$W/req-$mask.cnf" -key "$W/rsa1024.key" -subj "/C=KR/O=Mask $mask/CN=plain" -out "$W/req.csr" 2>/dev/null
  sign "names-$mask" ec256 "$((serial + 1))" -extfile ext.cnf -extensions leaf
  serial=$((serial + 1))
done
# Characters outside PrintableString but within T61String ('_', '@').
openssl req -new -config "$W/req-default.cnf" -key "$W/ec256.key" -subj "/O=T61 under_score/CN=at@sign" -out "$W/req.csr" 2>/dev/null
sign names-t61 ec256 "$((serial + 1))" -extfile ext.cnf -extensions leaf
serial=$((serial + 1))
openssl req -new -key "$W/ec256.key" -multivalue-rdn \
  -subj "/C=KR+ST=Seoul/O=Multi+OU=Valued+OU=RDN/CN=multi/emailAddress=m@example.com/serialNumber=1234/DC=example/DC=com" \
  -out "$W/req.csr" 2>/dev/null
sign names-multivalue rsa2048 9 -extfile ext.cnf -extensions names
openssl req -new -key "$W/ec256.key" -subj "/CN=generalized time" -out "$W/req.csr" 2>/dev/null
openssl x509 -req -in "$W/req.csr" -CA "$W/ca-ec256.pem" -CAkey "$W/ec256.key" -set_serial 10 -days 12000 \
  -extfile ext.cnf -extensions leaf -outform DER -out certs/validity-generalized.der 2>/dev/null

# CRLs through `openssl ca -gencrl` over a hand-written index.
cat > "$W/ca.cnf" <<CNF
[ ca ]
default_ca = CA_default
[ CA_default ]
database = $W/index.txt
default_md = sha256
default_crl_days = 30
CNF
gencrl() {  # gencrl <out> <issuer> <crlnumber or -> [ca args...]
  out=$1 iss=$2 num=$3; shift 3
  cat "$W/ca.cnf" ext.cnf > "$W/ca-run.cnf"
  if [ "$num" != - ]; then
    echo "$num" > "$W/crlnumber"
    sed -i "s|^database = .*|&\\ncrlnumber = $W/crlnumber|" "$W/ca-run.cnf"
  fi
  openssl ca -config "$W/ca-run.cnf" -gencrl -cert "$W/ca-$iss.pem" -keyfile "$W/$iss.key" \
    -out "$W/crl.pem" "$@" 2>"$W/ca.err" || { cat "$W/ca.err"; exit 1; }
  openssl crl -in "$W/crl.pem" -outform DER -out "crls/$out.der"
}
T=$(printf '\t')
# Entries with every reason openssl keeps, hold instructions and the key
# compromise times (invalidity dates).
{
  i=16
  for r in keyCompromise CACompromise affiliationChanged superseded cessationOfOperation certificateHold \
           removeFromCRL unspecified; do
    i=$((i + 1))
    echo "R${T}301231235959Z${T}250102030405Z,$r${T}$(printf '%02X' $i)${T}unknown${T}/CN=revoked $r"
  done
  echo "R${T}301231235959Z${T}250203040506Z,holdInstruction,holdInstructionReject${T}30${T}unknown${T}/CN=hold reject"
  echo "R${T}301231235959Z${T}250203040506Z,holdInstruction,holdInstructionCallIssuer${T}31${T}unknown${T}/CN=hold call"
  echo "R${T}301231235959Z${T}250203040506Z,keyTime,20241231000000Z${T}32${T}unknown${T}/CN=key time"
  echo "R${T}301231235959Z${T}250203040506Z,CAkeyTime,20241130000000Z${T}33${T}unknown${T}/CN=ca key time"
  echo "R${T}301231235959Z${T}250304050607Z${T}0123456789ABCDEF0123456789ABCDEF01${T}unknown${T}/CN=long serial"
  echo "V${T}301231235959Z${T}${T}40${T}unknown${T}/CN=valid"
} > "$W/index.full"
printf 'R\t301231235959Z\t250102030405Z\t0A\tunknown\t/CN=a\nR\t301231235959Z\t250102030406Z\t0B\tunknown\t/CN=b\n' > "$W/index.plain"
: > "$W/index.empty"

for iss in $issuers; do
  cp "$W/index.plain" "$W/index.txt";  gencrl "v1-$iss" "$iss" -
  cp "$W/index.empty" "$W/index.txt";  gencrl "v1-empty-$iss" "$iss" -
  cp "$W/index.full" "$W/index.txt";   gencrl "v2-entries-$iss" "$iss" 1000
  cp "$W/index.full" "$W/index.txt";   gencrl "v2-idp-$iss" "$iss" 01 -crlexts crl_v2
  cp "$W/index.plain" "$W/index.txt";  gencrl "v2-idp-ca-$iss" "$iss" 0FFFFFFFFFFFFFFFFF -crlexts crl_idp_ca
  cp "$W/index.empty" "$W/index.txt";  gencrl "v2-idp-aa-$iss" "$iss" 02 -crlexts crl_idp_aa
  cp "$W/index.full" "$W/index.txt";   gencrl "v2-delta-$iss" "$iss" 08 -crlexts crl_delta
  cp "$W/index.empty" "$W/index.txt";  gencrl "v2-empty-$iss" "$iss" 03 -crlhours 12
done
cp "$W/index.full" "$W/index.txt"; gencrl v2-entries-sha1 ec256 04 -md sha1
cp "$W/index.full" "$W/index.txt"; gencrl v2-entries-sha512 rsa2048 05 -md sha512
cp "$W/index.full" "$W/index.txt"; gencrl v2-entries-pss rsa2048 06 -sigopt rsa_padding_mode:pss

# openssl ca has no way to write a certificateIssuer entry extension or to
# leave nextUpdate out: those CRLs are assembled with asn1parse -genconf and
# signed with pkeyutl by the EC CA.
issuer_der=$(openssl x509 -in "$W/ca-ec256.pem" -noout -subject -nameopt RFC2253 | sed 's/^subject=//')
cat > "$W/tbs.cnf" <<CNF
asn1 = SEQUENCE:tbs
[ tbs ]
version = INTEGER:1
sig = SEQUENCE:alg
issuer = SEQUENCE:issuer
thisUpdate = UTCTIME:250101000000Z
revoked = SEQUENCE:revoked
exts = EXPLICIT:0,SEQUENCE:crlexts
[ alg ]
oid = OID:ecdsa-with-SHA256
[ issuer ]
c = SET:rdn_c
o = SET:rdn_o
cn = SET:rdn_cn
[ rdn_c ]
a = SEQUENCE:atv_c
[ atv_c ]
t = OID:countryName
v = PRINTABLESTRING:KR
[ rdn_o ]
a = SEQUENCE:atv_o
[ atv_o ]
t = OID:organizationName
v = UTF8:Corpus
[ rdn_cn ]
a = SEQUENCE:atv_cn
[ atv_cn ]
t = OID:commonName
v = UTF8:Indirect CRL issuer
[ revoked ]
e1 = SEQUENCE:entry1
e2 = SEQUENCE:entry2
e3 = SEQUENCE:entry3
[ entry1 ]
serial = INTEGER:0x1001
date = UTCTIME:250101000000Z
[ entry2 ]
serial = INTEGER:0x1002
date = GENTIME:20500101000000Z
exts = SEQUENCE:entry2_exts
[ entry2_exts ]
reason = SEQUENCE:ext_reason
issuer = SEQUENCE:ext_cert_issuer
[ ext_reason ]
id = OID:CRLReason
v = OCTWRAP,ENUMERATED:1
[ ext_cert_issuer ]
id = OID:certificateIssuer
critical = BOOLEAN:TRUE
v = OCTWRAP,SEQUENCE:cert_issuer_names
[ cert_issuer_names ]
dir = EXPLICIT:4,SEQUENCE:issuer
uri = IMPLICIT:6,IA5STRING:http://other-ca.example.com/
[ entry3 ]
serial = INTEGER:0x1003
date = UTCTIME:250201000000Z
exts = SEQUENCE:entry3_exts
[ entry3_exts ]
inv = SEQUENCE:ext_invalidity
hold = SEQUENCE:ext_hold
[ ext_invalidity ]
id = OID:invalidityDate
v = OCTWRAP,GENTIME:20241224120000Z
[ ext_hold ]
id = OID:holdInstructionCode
v = OCTWRAP,OID:holdInstructionNone
[ crlexts ]
num = SEQUENCE:ext_number
idp = SEQUENCE:ext_idp
[ ext_number ]
id = OID:crlNumber
v = OCTWRAP,INTEGER:77
[ ext_idp ]
id = OID:issuingDistributionPoint
critical = BOOLEAN:TRUE
v = OCTWRAP,SEQUENCE:idp_value
[ idp_value ]
indirect = IMPLICIT:4,BOOLEAN:TRUE
CNF
openssl asn1parse -genconf "$W/tbs.cnf" -noout -out "$W/tbs.der" >/dev/null
openssl dgst -sha256 -sign "$W/ec256.key" -out "$W/tbs.sig" "$W/tbs.der"
cat > "$W/crl.cnf" <<CNF
asn1 = SEQUENCE:crl
[ crl ]
tbs = FORMAT:HEX,OCTETSTRING:00
alg = SEQUENCE:alg
sig = FORMAT:HEX,BITSTRING:$(od -An -v -tx1 "$W/tbs.sig" | tr -d ' \n')
[ alg ]
oid = OID:ecdsa-with-SHA256
CNF
openssl asn1parse -genconf "$W/crl.cnf" -noout -out "$W/shell.der" >/dev/null
# Put the signed TBS in place of the placeholder octet string (04 01 00).
python3 - "$W/shell.der" "$W/tbs.der" crls/v2-indirect-generated.der <<'PY'
import sys
shell, tbs = open(sys.argv[1], 'rb').read(), open(sys.argv[2], 'rb').read()
def hdr_len(b):
    return 2 if b[1] < 0x80 else 2 + (b[1] & 0x7F)
body = shell[hdr_len(shell):].replace(b'\x04\x01\x00', tbs, 1)
n = len(body)
ln = bytes([n]) if n < 0x80 else bytes([0x80 | ((n.bit_length() + 7) // 8)]) + n.to_bytes((n.bit_length() + 7) // 8, 'big')
open(sys.argv[3], 'wb').write(b'\x30' + ln + body)
PY
openssl crl -inform DER -in crls/v2-indirect-generated.der -noout
# The same TBS without nextUpdate is already generated above; a v1 one with
# no entries and no extensions checks the minimum CRL.
ls certs | wc -l | sed 's/^/certificates: /'
ls crls | wc -l | sed 's/^/CRLs: /'
