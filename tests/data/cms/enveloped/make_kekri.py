#!/usr/bin/env python3
"""Writes kekri_3des.der: a ContentInfo holding an EnvelopedData (RFC 5652)
with one KEKRecipientInfo whose content key is wrapped by the RFC 3217
Triple-DES key wrap, content encrypted with Triple-DES CBC.

openssl cms -encrypt -secretkey always wraps with AES (RFC 3394), so the
Triple-DES wrap is done here step by step (RFC 3217 3.1):
  ICV = SHA-1(CEK)[0..8]; TEMP1 = 3DES-CBC(KEK, IV, CEK || ICV);
  TEMP3 = reverse(IV || TEMP1); RESULT = 3DES-CBC(KEK, 4ADDA22C79E82105, TEMP3)
The wrap itself is checked against the RFC's own example (RFC 3217 3.4)
before it is used. KEK, KEK identifier and content
are the values of enveloped.txt (row "kekri-3des-script").

usage: make_kekri.py OUTDIR
"""
import hashlib, os, sys
from cryptography.hazmat.primitives.ciphers import Cipher, modes
from cryptography.hazmat.decrepit.ciphers.algorithms import TripleDES

KEK = bytes.fromhex("8ad8274e56f46773f84eb7ea4fe5c1d2c5bec6d9627f4a3b")
KEK_ID = bytes.fromhex("6b656b2d3031")  # "kek-01"
CONTENT = b"content under a key-encryption key"


def cbc(key, iv, data):
    e = Cipher(TripleDES(key), modes.CBC(iv)).encryptor()
    return e.update(data) + e.finalize()


def odd_parity(key):
    return bytes((b & 0xFE) | (1 - bin(b >> 1).count("1") % 2) for b in key)


def wrap(kek, cek, iv):
    icv = hashlib.sha1(cek).digest()[:8]
    temp1 = cbc(kek, iv, cek + icv)
    temp3 = (iv + temp1)[::-1]
    return cbc(kek, bytes.fromhex("4adda22c79e82105"), temp3)


def der(tag, body):
    n = len(body)
    if n < 0x80:
        head = bytes([n])
    else:
        b = n.to_bytes((n.bit_length() + 7) // 8, "big")
        head = bytes([0x80 | len(b)]) + b
    return bytes([tag]) + head + body


def oid(text):
    arcs = [int(a) for a in text.split(".")]
    out = bytes([arcs[0] * 40 + arcs[1]])
    for a in arcs[2:]:
        chunk = [a & 0x7F]
        a >>= 7
        while a:
            chunk.insert(0, 0x80 | (a & 0x7F))
            a >>= 7
        out += bytes(chunk)
    return der(0x06, out)


def main():
    # RFC 3217 3.4 example first.
    rfc = wrap(bytes.fromhex("255e0d1c07b646dfb3134cc843ba8aa71f025b7c0838251f"),
               bytes.fromhex("2923bf85e06dd6ae529149f1f1bae9eab3a7da3d860d3e98"),
               bytes.fromhex("5dd4cbfc96f5453b"))
    assert rfc.hex() == ("690107618ef092b3b48ca1796b234ae9fa33ebb4159604037db5d6a8"
                         "4eb3aac2768c632775a467d4"), rfc.hex()
    cek = odd_parity(os.urandom(24))
    wrapped = wrap(KEK, cek, os.urandom(8))
    iv = os.urandom(8)
    pad = 8 - len(CONTENT) % 8
    enc = cbc(cek, iv, CONTENT + bytes([pad]) * pad)
    kekri = der(0x30, der(0x02, b"\x04") + der(0x30, der(0x04, KEK_ID)) +
                der(0x30, oid("1.2.840.113549.1.9.16.3.6") + b"\x05\x00") + der(0x04, wrapped))
    eci = der(0x30, oid("1.2.840.113549.1.7.1") + der(0x30, oid("1.2.840.113549.3.7") + der(0x04, iv)) +
              der(0x80, enc))
    env = der(0x30, der(0x02, b"\x02") + der(0x31, der(0xA2, kekri[2:])) + eci)
    ci = der(0x30, oid("1.2.840.113549.1.7.3") + der(0xA0, env))
    with open(os.path.join(sys.argv[1], "kekri_3des.der"), "wb") as f:
        f.write(ci)


main()
