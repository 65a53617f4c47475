// Public-key operations on hostile input: the input as a certificate (its
// key, the key's algorithm code, its own signature) and as a
// SubjectPublicKeyInfo (verification by hash code and by AlgorithmIdentifier,
// encryption), and the key unwraps on the same bytes.
#include <cstddef>
#include <cstdint>

#include "ZENALib/QSProcess/PKEKAlgorithm.h"
#include "ZENALib/QSProcess/PPrivateKey.h"
#include "ZENALib/QSProcess/PPublicKey.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Bounded so that one modular exponentiation stays quick.
  if (size > 4096) return 0;
  const ByteString in(data, static_cast<int>(size));
  const ByteString msg("abc"), sig(data, static_cast<int>(size < 64 ? size : 64));
  PPublicKey pk;
  ByteString spki, out;
  int alg = 0;
  if (pk.getPublicKeyInfoFromCert(in, PPublicKey::CERT_KIND_X509, spki) == 0) {
    pk.GetPublicKeyAlgorithm(spki, 0, &alg);
    pk.verifyCertificateSignature(in, spki);
  }
  pk.GetPublicKeyAlgorithm(in, 1020, &alg);
  pk.verifySignature(in, 0, size % 2 == 1, msg, sig);
  pk.verifySignatureWithAlgID(in, ByteString("\x30\x0d\x06\x09\x2a\x86\x48\x86\xf7\x0d\x01\x01\x0b\x05\x00", 15), msg,
                              sig);
  pk.encrypt(in, size % 2 == 0, msg, out);
  PPrivateKey priv;
  priv.GetPrivateKeyAlgorithm(ByteString("1 2 840 10045 2 1"), in, in, 0, &alg);
  priv.GetPrivateKeyAlgorithm(ByteString("1 2 410 200004 1 1"), in, in, 1020, &alg);
  PKEKAlgorithm kek;
  const ByteString key24("0123456789abcdefghijklmn");
  kek.unwrapTripleDESKey(key24, in, out);
  kek.unwrapRC2Key(3050, key24.mid(0, 16), in, out);
  return 0;
}
