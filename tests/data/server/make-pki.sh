#!/usr/bin/env bash
# Makes the validation server's test PKI with the openssl CLI in DIR:
#   DIR/anchors        root.pem (RSA-2048), other-root is kept outside
#   DIR/intermediates  int.pem, int2.pem (no CRL), int-ku.pem (keyUsage without
#                      keyCertSign), int-pl0.pem (pathlen 0), sub.pem (below
#                      int-pl0), int-pl0-roll.pem (self-issued by int-pl0,
#                      new key), int-ed.pem (Ed25519 key), int-nc.pem (DNS and
#                      directory name constraints), int-nc2.pem (mail, URI
#                      and IP constraints), int-nc3.pem (a registeredID
#                      constraint), int-crit.pem (an unknown critical
#                      extension), int-rep.pem (requireExplicitPolicy 0),
#                      int-iap.pem (inhibitAnyPolicy 0), int-case.pem,
#                      int-map.pem (maps 1.2.410.200.1.5 to .1), int-map2.pem
#                      (the same below int-inh.pem, which inhibits mapping),
#                      int-mapany.pem (maps anyPolicy), int-nocrl.pem
#                      (keyUsage without cRLSign, its CRL made all the same),
#                      int-a-expired.pem and int-b-noku.pem (copies of int:
#                      expired, no keyCertSign), int-ro.pem and
#                      int-ro-new.pem (int-ro under a new key, self-issued),
#                      int-sep.pem and int-sep2.pem (keyCertSign only) with
#                      int-sep-crl.pem and int-sep2-crl.pem (their names,
#                      other keys, cRLSign only; the second expired)
#   DIR/crls           one CRL per CA but int2 (int.crl revokes revoked.pem)
#   DIR/leaves         one certificate per case, named after its expected verdict
# Leaves carry the policy 1.2.410.200.1.1 except where their section says otherwise.
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
[ca_nc2]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
nameConstraints = critical,@nc2
[nc2]
permitted;email.0 = .mail.example
permitted;email.1 = host.example
permitted;email.2 = boss@corp.example
permitted;URI.0 = .web.example
permitted;URI.1 = exact.example
permitted;IP.0 = 10.0.0.0/255.0.0.0
permitted;IP.1 = 2001:db8::/ffff:ffff::
excluded;email.0 = x.mail.example
excluded;IP.0 = 10.9.0.0/255.255.0.0
[ca_nc3]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
nameConstraints = critical,permitted;RID:1.2.3.4
[ca_crit]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
1.3.6.1.4.1.99999.1 = critical,ASN1:NULL
[ca_rep]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
certificatePolicies = critical,1.2.410.200.1.1
policyConstraints = critical,requireExplicitPolicy:0
[ca_iap]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
certificatePolicies = critical,2.5.29.32.0
policyConstraints = critical,requireExplicitPolicy:0
inhibitAnyPolicy = critical,0
[ca_map]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
certificatePolicies = critical,1.2.410.200.1.5
policyMappings = critical,1.2.410.200.1.5:1.2.410.200.1.1
policyConstraints = critical,requireExplicitPolicy:0
[ca_inh]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
certificatePolicies = critical,2.5.29.32.0
policyConstraints = critical,requireExplicitPolicy:0,inhibitPolicyMapping:0
[ca_mapany]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign,cRLSign
certificatePolicies = critical,2.5.29.32.0
policyMappings = critical,2.5.29.32.0:1.2.410.200.1.1
[leaf_policy5]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.5
[ca_nocrl]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign
[ca_certsign]
basicConstraints = critical,CA:TRUE
keyUsage = critical,keyCertSign
[ca_crlsign]
basicConstraints = critical,CA:TRUE
keyUsage = critical,cRLSign
[leaf_flood]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = $ENV::POLICIES
[leaf_dup]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.1
2.5.29.99 = DER:3000
[leaf_names]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.1
subjectAltName = $ENV::SAN
[leaf_plain]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.1
[leaf_crit]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 1.2.410.200.1.1
1.3.6.1.4.1.99999.1 = critical,ASN1:NULL
[leaf_noncrit]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = critical,1.2.410.200.1.1
extendedKeyUsage = critical,timeStamping
1.3.6.1.4.1.99999.1 = ASN1:NULL
[leaf_nopolicy]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
[leaf_any]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 2.5.29.32.0, 1.2.410.200.1.1
[leaf_anyonly]
basicConstraints = CA:FALSE
keyUsage = critical,digitalSignature
certificatePolicies = 2.5.29.32.0
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
emailAddress = optional
CNF
}

key() {
  case "$2" in
    ed25519) openssl genpkey -algorithm ed25519 -out "$1.key" 2>/dev/null ;;
    *) openssl genpkey -algorithm rsa -pkeyopt rsa_keygen_bits:2048 -out "$1.key" 2>/dev/null ;;
  esac
}

# issue CA NAME EXT [START END]: NAME.pem issued by CA with extension section EXT;
# SUBJ replaces the subject, MD the digest.
issue() {
  local ca=$1 name=$2 ext=$3 start=${4:-20200101000000Z} end=${5:-20991231000000Z}
  [ -f "$name.key" ] || key "$name" rsa
  openssl req -new -key "$name.key" -subj "${SUBJ:-/CN=$name/O=QVA Test}" -out "$name.csr" 2>/dev/null
  openssl ca -batch -config "$ca.cnf" -in "$name.csr" -out "$name.pem" -notext -extfile ext.cnf \
    -extensions "$ext" -startdate "$start" -enddate "$end" -md "${MD:-sha256}" 2>/dev/null
}
export SAN=DNS:unused.example POLICIES=1.2.410.200.1.1

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
issue root int-nc2 ca_nc2
issue root int-nc3 ca_nc3
issue root int-crit ca_crit
issue root int-rep ca_rep
issue root int-iap ca_iap
SUBJ="/CN=Int Case" issue root int-case ca
issue root int-map ca_map
issue root int-inh ca_inh
issue root int-mapany ca_mapany
issue root int-nocrl ca_nocrl
for c in int int2 int-ku int-pl0 int-ed int-nc int-nc2 int-nc3 int-crit int-rep int-iap int-case int-map int-inh \
  int-mapany int-nocrl; do
  ca_conf "$c"; cp "$c.pem" "$dir/intermediates/"
done
issue int-inh int-map2 ca_map
ca_conf int-map2
cp int-map2.pem "$dir/intermediates/"
issue int-pl0 sub ca
ca_conf sub
cp sub.pem "$dir/intermediates/"
# int again, same name and key, expired and without keyCertSign: sorted
# before int.pem, they must not hide the current one.
cp int.key int-a-expired.key
cp int.key int-b-noku.key
SUBJ=/CN=int issue root int-a-expired ca 20200101000000Z 20210101000000Z
SUBJ=/CN=int issue root int-b-noku ca_ku
cp int-a-expired.pem int-b-noku.pem "$dir/intermediates/"
# int-pl0 again under a new key, issued by itself: not counted against its path length.
SUBJ=/CN=int-pl0 issue int-pl0 int-pl0-roll ca
ca_conf int-pl0-roll
cp int-pl0-roll.pem "$dir/intermediates/"

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
issue int-pl0-roll selfissued leaf
# int-ro under a new key, issued by itself, with no CRL of its own: the leaf
# below it is covered by int-ro's CRL, signed with the old key.
issue root int-ro ca
ca_conf int-ro
cp int-ro.pem "$dir/intermediates/"
SUBJ=/CN=int-ro issue int-ro int-ro-new ca
ca_conf int-ro-new
cp int-ro-new.pem "$dir/intermediates/"
issue int-ro-new rollover leaf
# int-sep signs certificates, and a second certificate of its name with
# another key signs its CRL; int-sep2 likewise, but that certificate has
# expired.
for c in int-sep int-sep2; do
  issue root "$c" ca_certsign
  ca_conf "$c"
  cp "$c.pem" "$dir/intermediates/"
done
SUBJ=/CN=int-sep issue root int-sep-crl ca_crlsign
SUBJ=/CN=int-sep2 issue root int-sep2-crl ca_crlsign 20200101000000Z 20210101000000Z
cp int-sep-crl.pem int-sep2-crl.pem "$dir/intermediates/"
issue int-sep sepkeys leaf
issue int-sep sepkeys-revoked leaf
issue int-sep2 sepkeys-expired leaf
openssl ca -config int-sep.cnf -revoke sepkeys-revoked.pem -crl_reason superseded 2>/dev/null
for c in int-sep int-sep2; do
  openssl ca -config "$c.cnf" -gencrl -cert "$c-crl.pem" -keyfile "$c-crl.key" -crldays 3650 \
    -out "$dir/crls/$c.crl" 2>/dev/null
done
MD=md5 issue int md5 leaf
# Leaves below int-nc2 and int-nc3, one name each (NAME SAN).
names=()
while read -r l san; do
  SAN=$san issue int-nc2 "$l" leaf_names
  names+=("$l")
done <<'LEAVES'
nc-mail-domain email:a@y.mail.example
nc-mail-domainself email:a@mail.example
nc-mail-host email:a@HOST.example
nc-mail-hostsub email:a@sub.host.example
nc-mail-box email:boss@corp.example
nc-mail-otherbox email:clerk@corp.example
nc-mail-excluded email:a@x.mail.example
nc-uri-domain URI:https://user@www.web.example:8443/path
nc-uri-exact URI:http://exact.example/x
nc-uri-outside URI:http://www.web.example.evil/
nc-uri-nohost URI:urn:isbn:0451450523
nc-ip4 IP:10.1.2.3
nc-ip4-excluded IP:10.9.1.1
nc-ip4-outside IP:192.168.1.1
nc-ip6 IP:2001:db8::1
nc-ip6-outside IP:2001:db9::1
LEAVES
SUBJ="/CN=nc-dn-mail/emailAddress=a@elsewhere.example" issue int-nc2 nc-dn-mail leaf_plain
SUBJ="/CN=nc-dn-mail-ok/emailAddress=a@y.mail.example" issue int-nc2 nc-dn-mail-ok leaf_plain
SAN=RID:1.2.3.4 issue int-nc3 nc-rid leaf_names
SAN=DNS:www.good.example issue int-nc3 nc-rid-absent leaf_names
issue int-crit crit-int leaf
issue int crit-leaf leaf_crit
issue int noncrit leaf_noncrit
issue int-rep explicit-ok leaf
issue int-rep explicit-none leaf_nopolicy
issue int-rep explicit-other leaf_policy
issue int-iap policy-any leaf_any
issue int-iap policy-anyonly leaf_anyonly
# 5000 policies besides the accepted one, each a node of its own below int-iap's anyPolicy.
POLICIES="1.2.410.200.1.1,$(seq -f '1.3.9.%g' 1 5000 | paste -sd,)" issue int-iap policy-flood leaf_flood
issue int-map mapped leaf
issue int-map mapped-from leaf_policy5
issue int-map2 map-inhibited leaf
issue int-mapany map-any leaf
issue int-nocrl crlsign leaf
# A leaf whose issuer name is int-case's in other case and spacing, signed
# with int-case's key.
openssl req -new -x509 -key int-case.key -subj "/CN=INT  CASE" -days 1 -out int-case-alias.pem 2>/dev/null
key casefold rsa
openssl req -new -key casefold.key -subj /CN=casefold -out casefold.csr 2>/dev/null
openssl x509 -req -in casefold.csr -CA int-case-alias.pem -CAkey int-case.key -set_serial 4660 -extfile ext.cnf \
  -extensions leaf -days 3650 -out casefold.pem 2>/dev/null
# A leaf with basicConstraints twice: its 2.5.29.99 extension renamed
# 2.5.29.19 in the signed part, which is then signed again with int's key.
issue int dupext leaf_dup
openssl x509 -in dupext.pem -outform DER -out dupext.der
python3 - dupext.der dupext.tbs <<'PY'
import sys
der = open(sys.argv[1], 'rb').read()
def element(b, at):  # (start of content, end) of the element at `at`
    n = b[at + 1]
    if n < 0x80:
        return at + 2, at + 2 + n
    k = n & 0x7f
    return at + 2 + k, at + 2 + k + int.from_bytes(b[at + 2:at + 2 + k], 'big')
start, _ = element(der, 0)
_, end = element(der, start)
tbs = der[start:end]
assert tbs.count(b'\x06\x03\x55\x1d\x63') == 1
open(sys.argv[2], 'wb').write(tbs.replace(b'\x06\x03\x55\x1d\x63', b'\x06\x03\x55\x1d\x13'))
PY
openssl dgst -sha256 -sign int.key -out dupext.sig dupext.tbs
python3 - dupext.der dupext.tbs dupext.sig "$dir/leaves/dupext.der" <<'PY'
import sys
der, tbs, sig = (open(p, 'rb').read() for p in sys.argv[1:4])
def header(tag, n):
    if n < 0x80:
        return bytes([tag, n])
    k = (n.bit_length() + 7) // 8
    return bytes([tag, 0x80 | k]) + n.to_bytes(k, 'big')
alg = bytes.fromhex('300d06092a864886f70d01010b0500')  # sha256WithRSAEncryption
assert alg in der
bits = header(0x03, len(sig) + 1) + b'\0' + sig
body = tbs + alg + bits
open(sys.argv[4], 'wb').write(header(0x30, len(body)) + body)
PY
openssl ca -config int.cnf -revoke revoked.pem -crl_reason keyCompromise 2>/dev/null

for c in root int int-ku int-pl0 sub int-nc int-nc2 int-nc3 int-crit int-rep int-iap int-pl0-roll int-case \
  int-map int-inh int-map2 int-mapany int-nocrl int-ro; do crl "$c"; done
# A second, older CRL of int: the current one is taken whatever the order.
openssl ca -config int.cnf -gencrl -crl_lastupdate 20200101000000Z -crl_nextupdate 20200201000000Z \
  -out "$dir/crls/int-aaa-old.crl" 2>/dev/null
for l in valid revoked expired notyet policy unknown keyusage pathlen algorithm untrusted nc-ok nc-dns nc-name \
  "${names[@]}" nc-dn-mail nc-dn-mail-ok nc-rid nc-rid-absent crit-int crit-leaf noncrit explicit-ok explicit-none \
  explicit-other policy-any policy-anyonly selfissued md5 casefold mapped mapped-from map-inhibited map-any \
  crlsign rollover sepkeys sepkeys-revoked sepkeys-expired policy-flood; do
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
