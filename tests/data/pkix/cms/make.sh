#!/bin/sh
# Regenerates the CMS and time-stamp corpus of tests/ZENALib/ASN1Pkix/Cms*Test.cpp
# with the openssl CLI (written for OpenSSL 3.0). Every output is made by
# openssl; nothing here is hand-edited. Run from any folder:
#   sh tests/data/pkix/cms/make.sh
# Outputs: sd_* SignedData, env_* EnvelopedData, enc_* EncryptedData (each a
# DER ContentInfo), tsq_* time-stamp queries, tsr_* replies, tst_* tokens,
# *_stream.ber the same CMS written with indefinite lengths.
set -eu
OUT=$(cd "$(dirname "$0")" && pwd)
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT
cd "$W"

rm -f "$OUT"/*.der "$OUT"/*.ber

# ---- a small PKI: root CA, RSA/EC/DSA end entities, a TSA, a CRL ----------
cat > ca.cnf <<'CNF'
[ ca ]
default_ca = CA_default
[ CA_default ]
dir = .
database = index.txt
new_certs_dir = .
serial = serial
crlnumber = crlnumber
default_md = sha256
default_days = 3650
default_crl_days = 30
policy = policy_any
[ policy_any ]
commonName = supplied
[ v3_ca ]
basicConstraints = critical,CA:true
keyUsage = critical,keyCertSign,cRLSign
subjectKeyIdentifier = hash
[ v3_ee ]
basicConstraints = CA:false
keyUsage = digitalSignature,nonRepudiation,keyEncipherment,keyAgreement
subjectKeyIdentifier = hash
authorityKeyIdentifier = keyid
[ v3_tsa ]
basicConstraints = CA:false
keyUsage = critical,digitalSignature,nonRepudiation
extendedKeyUsage = critical,timeStamping
subjectKeyIdentifier = hash
authorityKeyIdentifier = keyid
[ crl_ext ]
authorityKeyIdentifier = keyid
CNF
touch index.txt; echo 1000 > serial; echo 01 > crlnumber
openssl req -x509 -new -newkey rsa:2048 -nodes -keyout ca.key -out ca.pem -days 3650 \
  -subj "/C=KR/O=QVA Test/CN=QVA Test Root" -config ca.cnf -extensions v3_ca 2>/dev/null
ee() { # name keyspec subject extensions
  case "$2" in
    rsa) openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:2048 -out "$1.key" 2>/dev/null ;;
    ec) openssl genpkey -algorithm EC -pkeyopt ec_paramgen_curve:P-256 -out "$1.key" 2>/dev/null ;;
    dsa) openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:2048 -out dsa.prm 2>/dev/null
         openssl genpkey -paramfile dsa.prm -out "$1.key" 2>/dev/null ;;
  esac
  openssl req -new -key "$1.key" -subj "$3" -out "$1.csr" 2>/dev/null
  openssl ca -batch -config ca.cnf -cert ca.pem -keyfile ca.key -extensions "$4" -in "$1.csr" -out "$1.pem" 2>/dev/null
}
ee rsa1 rsa "/C=KR/O=QVA Test/CN=RSA Signer One" v3_ee
ee rsa2 rsa "/C=KR/O=QVA Test/CN=RSA Signer Two" v3_ee
ee ec1 ec "/C=KR/O=QVA Test/CN=EC Party One" v3_ee
ee ec2 ec "/C=KR/O=QVA Test/CN=EC Party Two" v3_ee
ee dsa1 dsa "/C=KR/O=QVA Test/CN=DSA Signer" v3_ee
ee tsa rsa "/C=KR/O=QVA Test/CN=QVA Test TSA" v3_tsa
openssl ca -batch -config ca.cnf -cert ca.pem -keyfile ca.key -revoke rsa2.pem -crl_reason keyCompromise 2>/dev/null
openssl ca -batch -config ca.cnf -cert ca.pem -keyfile ca.key -gencrl -crlexts crl_ext -out ca.crl 2>/dev/null

printf 'Hello, CMS.\n' > small.txt
head -c 3000 /dev/zero | tr '\0' 'A' > big.txt
printf '' > empty.txt

# ---- SignedData -----------------------------------------------------------
sign() { # name, then openssl cms arguments
  n=$1; shift
  openssl cms -sign -outform DER -out "$OUT/sd_$n.der" "$@"
}
sign rsa_attached        -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach
sign rsa_detached        -in small.txt -signer rsa1.pem -inkey rsa1.key
sign rsa_noattr          -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -noattr
sign rsa_noattr_detached -in small.txt -signer rsa1.pem -inkey rsa1.key -noattr
sign rsa_nocerts         -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -nocerts
sign rsa_certfile        -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -certfile ca.pem
sign rsa_keyid           -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -keyid
sign rsa_nosmimecap      -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -nosmimecap
sign rsa_sha1            -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -md sha1
sign rsa_sha384          -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -md sha384
sign rsa_sha512          -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -md sha512
sign rsa_pss             -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -keyopt rsa_padding_mode:pss
sign rsa_big             -in big.txt   -signer rsa1.pem -inkey rsa1.key -nodetach -binary
sign rsa_empty           -in empty.txt -signer rsa1.pem -inkey rsa1.key -nodetach -binary
sign ec                  -in small.txt -signer ec1.pem -inkey ec1.key -nodetach
sign ec_noattr           -in small.txt -signer ec1.pem -inkey ec1.key -nodetach -noattr
sign dsa                 -in small.txt -signer dsa1.pem -inkey dsa1.key -nodetach -md sha256
sign two_signers         -in small.txt -signer rsa1.pem -inkey rsa1.key -signer ec1.pem -inkey ec1.key -nodetach
sign three_signers       -in small.txt -signer rsa1.pem -inkey rsa1.key -signer rsa2.pem -inkey rsa2.key \
                         -signer dsa1.pem -inkey dsa1.key -nodetach -certfile ca.pem
sign receipt_all         -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -receipt_request_all \
                         -receipt_request_to receipts@example.com
sign receipt_from        -in small.txt -signer ec1.pem -inkey ec1.key -nodetach \
                         -receipt_request_from alice@example.com -receipt_request_to bob@example.com
sign econtent_type       -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -binary \
                         -econtent_type 1.2.840.113549.1.9.16.1.9
openssl cms -sign -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -outform DER -out "$W/inner.der"
openssl cms -resign -in "$W/inner.der" -inform DER -signer ec2.pem -inkey ec2.key -nodetach \
  -outform DER -out "$OUT/sd_resigned.der"
# Certificates and CRLs only (a degenerate SignedData without signers).
openssl crl2pkcs7 -in ca.crl -certfile ca.pem -outform DER -out "$OUT/sd_certs_crl.der"
cat rsa1.pem ec1.pem dsa1.pem > chain.pem
openssl crl2pkcs7 -in ca.crl -certfile chain.pem -certfile ca.pem -outform DER -out "$OUT/sd_certs4_crl.der"
openssl crl2pkcs7 -nocrl -certfile chain.pem -outform DER -out "$OUT/sd_certs_only.der"
openssl crl2pkcs7 -in ca.crl -outform DER -out "$OUT/sd_crl_only.der"

# ---- EnvelopedData --------------------------------------------------------
env() { # name, then openssl cms arguments
  n=$1; shift
  openssl cms -encrypt -in small.txt -outform DER -out "$OUT/env_$n.der" "$@"
}
env ktri_aes128       -aes128 -recip rsa1.pem
env ktri_aes192       -aes192 -recip rsa1.pem
env ktri_aes256       -aes256 -recip rsa1.pem
env ktri_des3         -des3 -recip rsa1.pem
env ktri_keyid        -aes128 -keyid -recip rsa1.pem
env ktri_oaep         -aes128 -recip rsa1.pem -keyopt rsa_padding_mode:oaep
env ktri_oaep256      -aes256 -recip rsa1.pem -keyopt rsa_padding_mode:oaep -keyopt rsa_oaep_md:sha256
env ktri_two          -aes128 -recip rsa1.pem -recip rsa2.pem
env kari_aes128       -aes128 -recip ec1.pem
env kari_aes256       -aes256 -recip ec1.pem -keyopt ecdh_kdf_md:sha256
env kari_des3         -des3 -wrap des3-wrap -recip ec1.pem
env kari_keyid        -aes128 -keyid -recip ec1.pem
env kari_two          -aes128 -recip ec1.pem -recip ec2.pem
env kekri_aes128      -aes128 -secretkey 000102030405060708090A0B0C0D0E0F -secretkeyid C0FFEE01
env kekri_aes256      -aes256 -secretkey 000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F \
                      -secretkeyid 0BADF00D0BADF00D
env kekri_des3        -des3 -secretkey 000102030405060708090A0B0C0D0E0F1011121314151617 -secretkeyid 01
env pwri              -aes128 -pwri_password 'correct horse'
env mixed             -aes256 -recip rsa1.pem -recip ec1.pem
openssl cms -encrypt -in big.txt -binary -aes128 -recip rsa1.pem -recip ec2.pem -outform DER -out "$OUT/env_big.der"

# ---- EncryptedData --------------------------------------------------------
encd() { # name, then openssl cms arguments
  n=$1; shift
  openssl cms -EncryptedData_encrypt -in small.txt -outform DER -out "$OUT/enc_$n.der" "$@"
}
encd aes128 -aes128 -secretkey 000102030405060708090A0B0C0D0E0F
encd aes192 -aes192 -secretkey 000102030405060708090A0B0C0D0E0F1011121314151617
encd aes256 -aes256 -secretkey 000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F
encd des3 -des3 -secretkey 000102030405060708090A0B0C0D0E0F1011121314151617
openssl cms -EncryptedData_encrypt -in big.txt -binary -aes128 -secretkey 000102030405060708090A0B0C0D0E0F \
  -outform DER -out "$OUT/enc_big.der"

# ---- The same CMS with indefinite lengths (-stream) -------------------------
# Each *_stream.ber pairs with the DER file of the same name; the contents
# differ only in their random parts, so tests compare the shape of members.
openssl cms -sign -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -stream -outform DER \
  -out "$OUT/sd_rsa_attached_stream.ber"
openssl cms -sign -in big.txt -binary -signer ec1.pem -inkey ec1.key -nodetach -stream -outform DER \
  -out "$OUT/sd_ec_big_stream.ber"
openssl cms -sign -in small.txt -signer rsa1.pem -inkey rsa1.key -nodetach -noattr -stream -outform DER \
  -out "$OUT/sd_rsa_noattr_stream.ber"
openssl cms -encrypt -in big.txt -binary -aes128 -recip rsa1.pem -stream -outform DER \
  -out "$OUT/env_ktri_big_stream.ber"
openssl cms -encrypt -in small.txt -aes128 -recip ec1.pem -stream -outform DER -out "$OUT/env_kari_stream.ber"
openssl cms -EncryptedData_encrypt -in big.txt -binary -aes128 -secretkey 000102030405060708090A0B0C0D0E0F \
  -stream -outform DER -out "$OUT/enc_big_stream.ber"

# ---- Time stamps -----------------------------------------------------------
cat > ts.cnf <<'CNF'
[ tsa ]
default_tsa = tsa_full
[ tsa_full ]
serial = tsaserial
crypto_device = builtin
signer_cert = tsa.pem
certs = ca.pem
signer_key = tsa.key
signer_digest = sha256
default_policy = 1.2.410.200004.2.1
other_policies = 1.2.3.4.1, 1.2.3.4.2
digests = sha1, sha256, sha384, sha512
accuracy = secs:1, millisecs:500, microsecs:100
ordering = yes
tsa_name = yes
ess_cert_id_chain = yes
[ tsa_plain ]
serial = tsaserial
signer_cert = tsa.pem
signer_key = tsa.key
signer_digest = sha256
default_policy = 1.2.3.4.1
digests = sha1, sha256
ess_cert_id_chain = no
[ tsa_secs ]
serial = tsaserial
signer_cert = tsa.pem
signer_key = tsa.key
signer_digest = sha1
default_policy = 1.2.3.4.2
digests = sha1, sha256, sha512
accuracy = secs:2
tsa_name = yes
[ tsa_millis ]
serial = tsaserial
signer_cert = tsa.pem
certs = ca.pem
signer_key = tsa.key
signer_digest = sha512
default_policy = 1.2.3.4.1
digests = sha256
accuracy = millisecs:250
ess_cert_id_chain = yes
CNF
echo 01 > tsaserial
tsq() { # name, then openssl ts -query arguments
  n=$1; shift
  openssl ts -query -data small.txt "$@" -out "$OUT/tsq_$n.der"
}
tsq sha256         -sha256 -cert
tsq sha1           -sha1
tsq sha512_nonce   -sha512 -cert
tsq no_nonce       -sha256 -no_nonce
tsq policy         -sha256 -tspolicy 1.2.3.4.2 -cert
openssl ts -query -data big.txt -sha384 -no_nonce -out "$OUT/tsq_sha384_big.der"
tsr() { # name, query, section
  openssl ts -reply -config ts.cnf -section "$3" -queryfile "$OUT/tsq_$2.der" -out "$OUT/tsr_$1.der" 2>/dev/null
  openssl ts -reply -config ts.cnf -section "$3" -queryfile "$OUT/tsq_$2.der" -token_out \
    -out "$OUT/tst_$1.der" 2>/dev/null
}
tsr full_sha256   sha256       tsa_full
tsr full_sha1     sha1         tsa_full
tsr full_sha384   sha384_big   tsa_full
tsr full_policy   policy       tsa_full
tsr plain         no_nonce     tsa_plain
tsr plain_nonce   sha256       tsa_plain
tsr secs          sha512_nonce tsa_secs
tsr secs_nocert   no_nonce     tsa_secs
tsr millis        sha256       tsa_millis
# A refused request: the policy is not one the TSA offers.
openssl ts -query -data small.txt -sha256 -tspolicy 1.9.9.9 -out "$W/bad.tsq"
openssl ts -reply -config ts.cnf -section tsa_plain -queryfile "$W/bad.tsq" -out "$OUT/tsr_rejected.der" 2>/dev/null
