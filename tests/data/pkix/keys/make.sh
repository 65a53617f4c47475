#!/bin/sh
# Regenerates the key, key-parameter, PKCS #8 and PKCS #12 fixtures of the
# structure-class tests with the openssl CLI. Every file written here is made
# by openssl; the test reads the list in index.txt.
#   sh tests/data/pkix/keys/make.sh
set -eu
cd "$(dirname "$0")"
rm -f ./*.der ./*.p12 index.txt values.txt
echo "# Fixtures made by make.sh with the openssl CLI ($(openssl version | cut -d' ' -f1-2)): class and file" > index.txt
echo "# What openssl reads out of the fixtures made by make.sh, a record per file" > values.txt
T=$(mktemp -d)
trap 'rm -rf "$T"' EXIT
PASS=pass:test1234
LEGACY="-provider legacy -provider default"

# index.txt: "<class> <file>" per fixture; the test decodes each file with
# the class named and checks the DER round trip.
add() { echo "$1 $2" >> index.txt; }
# values.txt: what openssl itself reads out of a fixture, one record a file
# ("File = ...", then "Name = Value" lines), for the test to compare members with.
value() {  # file, name, value
  if ! grep -q "^File = $1\$" values.txt 2>/dev/null; then printf '\nFile = %s\n' "$1" >> values.txt; fi
  echo "$2 = $3" >> values.txt
}

# The DER element that follows the first line of `openssl asn1parse` matching
# $2 (an OID name): parameters of an AlgorithmIdentifier, cut out of file $1.
after_oid() {
  line=$(openssl asn1parse -inform DER -in "$1" | grep -A1 "$2" | sed -n 2p)
  off=$(echo "$line" | sed 's/^ *\([0-9]*\):.*/\1/')
  hl=$(echo "$line" | sed 's/.*hl= *\([0-9]*\).*/\1/')
  len=$(echo "$line" | sed 's/.*l= *\([0-9]*\) .*/\1/')
  dd if="$1" of="$3" bs=1 skip="$off" count=$((hl + len)) 2>/dev/null
}

echo "signed message" > "$T/msg"

# ---- RSA: 1024, 2048 and a three-prime 2048-bit key
openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:1024 -out "$T/rsa1024.pem" 2>/dev/null
openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:2048 -out "$T/rsa2048.pem" 2>/dev/null
openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:2048 -pkeyopt rsa_keygen_primes:3 -out "$T/rsa3p.pem" 2>/dev/null
for k in rsa1024 rsa2048 rsa3p; do
  openssl pkcs8 -topk8 -nocrypt -in "$T/$k.pem" -outform DER -out "$k.pk8.der"; add RPrivateKeyInfo "$k.pk8.der"
  openssl rsa -in "$T/$k.pem" -traditional -outform DER -out "$k.rsa.der" 2>/dev/null; add RRSAPrivateKey "$k.rsa.der"
  openssl rsa -in "$T/$k.pem" -RSAPublicKey_out -outform DER -out "$k.rsapub.der" 2>/dev/null; add RRSAPublicKey "$k.rsapub.der"
  m=$(openssl rsa -in "$T/$k.pem" -noout -modulus | sed 's/Modulus=//')
  value "$k.rsa.der" Modulus "$m"; value "$k.rsapub.der" Modulus "$m"
done
# DigestInfo: an RSA PKCS #1 v1.5 signature opened with the public key
for md in sha1 sha256 sha512; do
  openssl dgst -"$md" -sign "$T/rsa1024.pem" -out "$T/sig.$md" "$T/msg"
  openssl pkeyutl -verifyrecover -inkey "$T/rsa1024.pem" -in "$T/sig.$md" -out "digestinfo.$md.der"
  add RDigestInfo "digestinfo.$md.der"
done

# ---- DSA 1024/160 and 2048/224
openssl dsaparam -out "$T/dsa1024.prm" 1024 2>/dev/null
openssl dsaparam -out "$T/dsa2048.prm" 2048 2>/dev/null
for k in dsa1024 dsa2048; do
  openssl gendsa -out "$T/$k.pem" "$T/$k.prm" 2>/dev/null
  openssl pkcs8 -topk8 -nocrypt -in "$T/$k.pem" -outform DER -out "$k.pk8.der"; add RPrivateKeyInfo "$k.pk8.der"
  openssl dsa -in "$T/$k.pem" -outform DER -out "$k.dsa.der" 2>/dev/null; add RDSAPrivateKey "$k.dsa.der"
  value "$k.dsa.der" PublicKey "$(openssl dsa -in "$T/$k.pem" -noout -modulus 2>/dev/null | sed 's/Public Key=//')"
  openssl dsaparam -in "$T/$k.prm" -outform DER -out "$k.params.der"; add RDSAPublicKey "$k.params.der"
  openssl dgst -sha256 -sign "$T/$k.pem" -out "$k.sig.der" "$T/msg"; add RECDSA_Sig_Value "$k.sig.der"
done

# ---- EC: prime and binary curves, named and explicit parameters
for c in prime256v1 secp160r1 sect163k1; do
  openssl genpkey -algorithm EC -pkeyopt ec_paramgen_curve:$c -out "$T/$c.pem" 2>/dev/null
  for enc in named_curve explicit; do
    k="ec-$c-$enc"
    openssl ec -in "$T/$c.pem" -param_enc "$enc" -outform DER -out "$k.ec.der" 2>/dev/null; add RECPrivateKey "$k.ec.der"
    openssl ec -in "$T/$c.pem" -param_enc "$enc" -out "$T/$k.pem" 2>/dev/null
    openssl pkcs8 -topk8 -nocrypt -in "$T/$k.pem" -outform DER -out "$k.pk8.der"; add RPrivateKeyInfo "$k.pk8.der"
    openssl ecparam -name "$c" -param_enc "$enc" -outform DER -out "$k.params.der"; add RecpkParameters "$k.params.der"
  done
  # ECParameters alone (the explicit form's inner SEQUENCE is the same bytes)
  openssl dgst -sha256 -sign "$T/$c.pem" -out "ec-$c.sig.der" "$T/msg"; add RECDSA_Sig_Value "ec-$c.sig.der"
  openssl dgst -sha1 -sign "$T/$c.pem" -out "ec-$c.sig-sha1.der" "$T/msg"; add RECDSA_Sig_Value "ec-$c.sig-sha1.der"
done
openssl ecparam -name prime256v1 -param_enc explicit -outform DER -out ecparameters.prime256v1.der
add RECParameters ecparameters.prime256v1.der
openssl ecparam -name sect163k1 -param_enc explicit -outform DER -out ecparameters.sect163k1.der
add RECParameters ecparameters.sect163k1.der

# ---- Encrypted PKCS #8: PBES2 (AES, Triple-DES, RC2; hmacWithSHA1/SHA256/SHA512), PKCS #12 PBE
enc8() {  # key name, out name, options...
  k=$1; o=$2; shift 2
  openssl pkcs8 -topk8 -in "$T/$k.pem" -outform DER -out "$o.epk8.der" -passout $PASS "$@" 2>/dev/null
  add REncryptedPrivateKeyInfo "$o.epk8.der"
}
enc8 rsa1024 rsa1024-aes256-sha256 -v2 aes-256-cbc -v2prf hmacWithSHA256
enc8 rsa1024 rsa1024-aes128-sha1 -v2 aes-128-cbc -v2prf hmacWithSHA1
enc8 rsa1024 rsa1024-des3-sha1 -v2 des3 -v2prf hmacWithSHA1
enc8 rsa1024 rsa1024-des3-sha512 -v2 des3 -v2prf hmacWithSHA512 -iter 4096
enc8 rsa1024 rsa1024-pbe-sha1-3des -v1 PBE-SHA1-3DES
enc8 rsa1024 rsa1024-rc2 -v2 rc2-cbc $LEGACY
enc8 rsa1024 rsa1024-rc2-40 -v2 rc2-40-cbc $LEGACY
enc8 rsa1024 rsa1024-pbe-sha1-rc2-40 -v1 PBE-SHA1-RC2-40 $LEGACY
enc8 dsa1024 dsa1024-aes256 -v2 aes-256-cbc
enc8 prime256v1 ec-p256-aes128 -v2 aes-128-cbc -v2prf hmacWithSHA256
enc8 sect163k1 ec-k163-des3 -v2 des3
enc8 secp160r1 ec-p160-pbe-sha1-3des -v1 PBE-SHA1-3DES
# Their algorithm parameters, cut out of the files
after_oid rsa1024-aes256-sha256.epk8.der ":PBES2" pbes2.aes256.der; add RPBES2_params pbes2.aes256.der
after_oid rsa1024-des3-sha1.epk8.der ":PBES2" pbes2.des3.der; add RPBES2_params pbes2.des3.der
after_oid rsa1024-aes256-sha256.epk8.der ":PBKDF2" pbkdf2.sha256.der; add RPBKDF2_params pbkdf2.sha256.der
after_oid rsa1024-des3-sha1.epk8.der ":PBKDF2" pbkdf2.sha1.der; add RPBKDF2_params pbkdf2.sha1.der
after_oid rsa1024-des3-sha512.epk8.der ":PBKDF2" pbkdf2.sha512.der; add RPBKDF2_params pbkdf2.sha512.der
after_oid rsa1024-rc2.epk8.der ":PBKDF2" pbkdf2.rc2.der; add RPBKDF2_params pbkdf2.rc2.der
after_oid rsa1024-rc2.epk8.der ":rc2-cbc" rc2cbc.128.der; add RRC2_CBC_Parameter rc2cbc.128.der
after_oid rsa1024-rc2-40.epk8.der ":rc2-cbc" rc2cbc.40.der; add RRC2_CBC_Parameter rc2cbc.40.der
after_oid rsa1024-pbe-sha1-3des.epk8.der ":pbeWithSHA1And3-KeyTripleDES-CBC" pbe.sha1-3des.der; add RPBEParameter pbe.sha1-3des.der
after_oid rsa1024-pbe-sha1-rc2-40.epk8.der ":pbeWithSHA1And40BitRC2-CBC" pbe.sha1-rc2-40.der; add RPBEParameter pbe.sha1-rc2-40.der

# ---- RSASSA-PSS: certificates signed with PSS, and PSS keys whose
# algorithm identifiers carry the parameters
cat > "$T/req.cnf" <<'CNF'
[req]
distinguished_name = dn
prompt = no
[dn]
CN = PSS test
CNF
pss_cert() {  # name, digest, options...
  n=$1; md=$2; shift 2
  openssl req -x509 -new -key "$T/rsa2048.pem" -config "$T/req.cnf" -days 30 -"$md" -sigopt rsa_padding_mode:pss "$@" \
    -outform DER -out "$T/$n.cert.der" 2>/dev/null
  after_oid "$T/$n.cert.der" ":rsassaPss" "$n.pss.der"; add RRSASSA_PSS_params "$n.pss.der"
}
pss_cert pss-sha256 sha256
pss_cert pss-sha256-salt20 sha256 -sigopt rsa_pss_saltlen:20
pss_cert pss-sha384-salt0 sha384 -sigopt rsa_pss_saltlen:0
pss_cert pss-sha512-mgf1sha256 sha512 -sigopt rsa_mgf1_md:sha256
pss_cert pss-sha1 sha1
openssl genpkey -algorithm RSA-PSS -pkeyopt rsa_keygen_bits:1024 -pkeyopt rsa_pss_keygen_md:sha256 \
  -pkeyopt rsa_pss_keygen_saltlen:32 -outform DER -out rsapss-key.pk8.der 2>/dev/null
add RPrivateKeyInfo rsapss-key.pk8.der

# ---- RSAES-OAEP: CMS enveloped for an RSA recipient with OAEP, the key
# transport algorithm's parameters cut out
openssl req -x509 -new -key "$T/rsa1024.pem" -subj /CN=oaep -days 30 -out "$T/oaep.crt" 2>/dev/null
oaep() {  # name, options...
  n=$1; shift
  openssl cms -encrypt -in "$T/msg" -recip "$T/oaep.crt" -keyopt rsa_padding_mode:oaep "$@" -outform DER \
    -out "$T/$n.cms" 2>/dev/null
  after_oid "$T/$n.cms" ":rsaesOaep" "$n.oaep.der"; add RRSAES_OAEP_params "$n.oaep.der"
}
oaep oaep-sha1
oaep oaep-sha256 -keyopt rsa_oaep_md:sha256
oaep oaep-sha256-mgf1sha1 -keyopt rsa_oaep_md:sha256 -keyopt rsa_mgf1_md:sha1
oaep oaep-sha256-label -keyopt rsa_oaep_md:sha256 -keyopt rsa_oaep_label:0011223344

# ---- PKCS #12
openssl req -x509 -new -key "$T/rsa2048.pem" -subj /CN=P12-CA -days 30 -out "$T/ca.crt" 2>/dev/null
openssl req -new -key "$T/rsa1024.pem" -subj /CN=P12-User -out "$T/user.csr" 2>/dev/null
openssl x509 -req -in "$T/user.csr" -CA "$T/ca.crt" -CAkey "$T/rsa2048.pem" -set_serial 7 -days 30 -out "$T/user.crt" 2>/dev/null
openssl req -x509 -new -key "$T/prime256v1.pem" -subj /CN=P12-EC -days 30 -out "$T/ec.crt" 2>/dev/null
p12() {  # name, options...
  n=$1; shift
  openssl pkcs12 -export -passout $PASS -out "$n.p12" "$@" 2>/dev/null
  add RPFX "$n.p12"
  # The AuthenticatedSafe's content types in order (D data, E encrypted
  # data), the MAC's iteration count (0: no MAC) and the bags inside
  info=$(openssl pkcs12 -info -noout -in "$n.p12" -passin $PASS $LEGACY 2>&1)
  value "$n.p12" ContentTypes "$(echo "$info" | sed -n 's/^PKCS7 Data$/D/p; s/^PKCS7 Encrypted data.*/E/p' | tr '\n' ' ' | sed 's/ $//')"
  value "$n.p12" MacIterations "$(echo "$info" | sed -n 's/^MAC: .*Iteration \([0-9]*\).*/\1/p' | grep . || echo 0)"
  value "$n.p12" Bags "$(echo "$info" | sed -n 's/^Certificate bag$/C/p; s/^Shrouded Keybag.*/S/p; s/^Key bag$/K/p' | tr '\n' ' ' | sed 's/ $//')"
}
p12 p12-default -inkey "$T/rsa1024.pem" -in "$T/user.crt"
p12 p12-chain-named -inkey "$T/rsa1024.pem" -in "$T/user.crt" -certfile "$T/ca.crt" -name "P12 User" -caname "P12 CA"
p12 p12-legacy -inkey "$T/rsa1024.pem" -in "$T/user.crt" -certfile "$T/ca.crt" -legacy
p12 p12-nomac -inkey "$T/rsa1024.pem" -in "$T/user.crt" -nomac
p12 p12-plaincerts -inkey "$T/rsa1024.pem" -in "$T/user.crt" -certpbe NONE -macalg sha1
p12 p12-nokeys -nokeys -in "$T/user.crt" -certfile "$T/ca.crt"
p12 p12-ec -inkey "$T/prime256v1.pem" -in "$T/ec.crt" -keypbe AES-128-CBC -certpbe AES-128-CBC -macalg sha512 -iter 1000
p12 p12-3des -inkey "$T/rsa1024.pem" -in "$T/user.crt" -keypbe PBE-SHA1-3DES -certpbe PBE-SHA1-3DES -macalg sha1
p12 p12-plain-all -inkey "$T/rsa1024.pem" -in "$T/user.crt" -keypbe NONE -certpbe NONE

# ---- Structures openssl has no command for, encoded by `openssl asn1parse
# -genconf` from their published values
gen() {  # class, out name, config on stdin
  cat > "$T/gen.cnf"
  openssl asn1parse -genconf "$T/gen.cnf" -noout -out "$2"
  add "$1" "$2"
}
val() { sed -n "s/^$1 = //p" kcdsa-params.txt; }
# KCDSA domain parameters of kcdsa-params.txt (p, q, g, j, seed, count)
gen RKCDSAParameters kcdsa.params.der <<CNF
asn1 = SEQUENCE:kp
[kp]
p = INTEGER:0x$(val P)
q = INTEGER:0x$(val Q)
g = INTEGER:0x$(val G)
j = INTEGER:0x$(val J)
seed = FORMAT:HEX,OCTETSTRING:$(val Seedb)
count = INTEGER:$(val Count)
CNF
gen RKCDSAParameters kcdsa.params-pqg.der <<CNF
asn1 = SEQUENCE:kp
[kp]
p = INTEGER:0x$(val P)
q = INTEGER:0x$(val Q)
g = INTEGER:0x$(val G)
CNF
# RFC 2631 2.1.6 examples 1 and 2: OtherInfo of the Triple-DES and RC2 key wraps
gen ROtherInfo otherinfo.rfc2631-1.der <<'CNF'
asn1 = SEQUENCE:oi
[oi]
keyInfo = SEQUENCE:ki
suppPubInfo = EXPLICIT:2,FORMAT:HEX,OCTETSTRING:000000c0
[ki]
algorithm = OID:1.2.840.113549.1.9.16.3.6
counter = FORMAT:HEX,OCTETSTRING:00000001
CNF
gen ROtherInfo otherinfo.rfc2631-2.der <<'CNF'
asn1 = SEQUENCE:oi
[oi]
keyInfo = SEQUENCE:ki
partyAInfo = EXPLICIT:0,FORMAT:HEX,OCTETSTRING:0123456789abcdeffedcba98765432010123456789abcdeffedcba98765432010123456789abcdeffedcba98765432010123456789abcdeffedcba9876543201
suppPubInfo = EXPLICIT:2,FORMAT:HEX,OCTETSTRING:00000080
[ki]
algorithm = OID:1.2.840.113549.1.9.16.3.7
counter = FORMAT:HEX,OCTETSTRING:00000001
CNF
# ECC-CMS-SharedInfo of an AES-128 key wrap, with and without entityUInfo
gen RECC_CMS_SharedInfo ecc-sharedinfo.ukm.der <<'CNF'
asn1 = SEQUENCE:si
[si]
keyInfo = SEQUENCE:alg
entityUInfo = EXPLICIT:0,FORMAT:HEX,OCTETSTRING:a1b2c3d4e5f60718293a4b5c6d7e8f90
suppPubInfo = EXPLICIT:2,FORMAT:HEX,OCTETSTRING:00000080
[alg]
algorithm = OID:2.16.840.1.101.3.4.1.5
CNF
gen RECC_CMS_SharedInfo ecc-sharedinfo.noukm.der <<'CNF'
asn1 = SEQUENCE:si
[si]
keyInfo = SEQUENCE:alg
suppPubInfo = EXPLICIT:2,FORMAT:HEX,OCTETSTRING:000000c0
[alg]
algorithm = OID:1.2.840.113549.1.9.16.3.6
CNF
