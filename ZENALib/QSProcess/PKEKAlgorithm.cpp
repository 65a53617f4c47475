#include "ZENALib/QSProcess/PKEKAlgorithm.h"

#include <cstring>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSCrypto/QSRandom.h"
#include "ZENALib/QSProcess/PAlgorithmMessages.h"

namespace {

constexpr int kBlock = 8;
const unsigned char kWrapIV[kBlock] = {0x4A, 0xDD, 0xA2, 0x2C, 0x79, 0xE8, 0x21, 0x05};  // RFC 3217 3.1 step 8

bool IsRC2(int nAlg) {
  return nAlg == QSAlgorithm::RC2_40() || nAlg == QSAlgorithm::RC2_64() || nAlg == QSAlgorithm::RC2_128() ||
         nAlg == QSAlgorithm::RC2_192() || nAlg == QSAlgorithm::RC2_256();
}

ByteString Reversed(const ByteString& bs) {
  ByteString out(bs);
  unsigned char* p = out.buffer();
  for (int i = 0, j = out.length() - 1; i < j; ++i, --j) {
    const unsigned char t = p[i];
    p[i] = p[j];
    p[j] = t;
  }
  return out;
}

bool OddParity(unsigned char b) {
  int ones = 0;
  for (int i = 0; i < 8; ++i) ones += (b >> i) & 1;
  return (ones & 1) == 1;
}

}  // namespace

int PKEKAlgorithm::icv(const char* pszMethod, const ByteString& bsKey, ByteString& bsICV) {
  QSHash qsHash;
  ByteString digest;
  if (int rc = qsHash.DigestData(QSAlgorithm::SHA1(), bsKey, digest)) {
    return fail(__FILE__, __LINE__, pszMethod, "qsHash.DigestData", rc, qsHash.GetErrorMsg().c_str());
  }
  bsICV = digest.mid(0, kBlock);
  return 0;
}

int PKEKAlgorithm::wrap(const char* pszMethod, int nAlg, const ByteString& bsKEK, const ByteString& bsKey,
                        const ByteString& bsIV, ByteString& bsWrapped) {
  ByteString check, iv(bsIV);
  if (int rc = icv(pszMethod, bsKey, check)) return rc;
  if (iv.length() == 0) {
    QSRandom random;
    if (int rc = random.GenerateRandom(QSAlgorithm::Random(), kBlock, iv)) {
      return fail(__FILE__, __LINE__, pszMethod, "random.GenerateRandom", rc, random.GetErrorMsg().c_str());
    }
  }
  ByteString plain(bsKey), temp1, out;
  plain += check;
  QSEncrypt encrypt;
  int rc = encrypt.EncryptData(nAlg, QSAlgorithm::ModeCBC(), QSAlgorithm::PaddingNone(), bsKEK, iv, plain, temp1);
  plain.zeroize();
  if (rc == 0) {
    ByteString temp2(iv);
    temp2 += temp1;
    rc = encrypt.EncryptData(nAlg, QSAlgorithm::ModeCBC(), QSAlgorithm::PaddingNone(), bsKEK,
                             ByteString(kWrapIV, kBlock), Reversed(temp2), out);
  }
  if (rc) return fail(__FILE__, __LINE__, pszMethod, "encrypt.EncryptData", rc, encrypt.GetErrorMsg().c_str());
  bsWrapped = out;
  return 0;
}

int PKEKAlgorithm::unwrap(const char* pszMethod, int nAlg, int nChecksumCode, const ByteString& bsKEK,
                          const ByteString& bsWrapped, ByteString& bsKey) {
  QSEncrypt encrypt;
  ByteString temp3, plain;
  int rc = encrypt.DecryptData(nAlg, QSAlgorithm::ModeCBC(), QSAlgorithm::PaddingNone(), bsKEK,
                               ByteString(kWrapIV, kBlock), bsWrapped, temp3);
  if (rc == 0) {
    const ByteString temp2 = Reversed(temp3);
    rc = encrypt.DecryptData(nAlg, QSAlgorithm::ModeCBC(), QSAlgorithm::PaddingNone(), bsKEK, temp2.mid(0, kBlock),
                             temp2.mid(kBlock, temp2.length() - kBlock), plain);
  }
  if (rc) return fail(__FILE__, __LINE__, pszMethod, "encrypt.DecryptData", rc, encrypt.GetErrorMsg().c_str());
  const ByteString key = plain.mid(0, plain.length() - kBlock);
  ByteString check;
  if ((rc = icv(pszMethod, key, check))) return rc;
  if (check != plain.mid(plain.length() - kBlock, kBlock)) {
    plain.zeroize();
    return fail(__FILE__, __LINE__, pszMethod, "ICV", nChecksumCode, pmsg::kChecksumDifferent);
  }
  plain.zeroize();
  bsKey = key;
  return 0;
}

int PKEKAlgorithm::wrapTripleDESKey(const ByteString& bsKEK, const ByteString& bsTBEKey, ByteString& bsWrapped) {
  return wrapTripleDESKeyWithIV(bsKEK, bsTBEKey, ByteString(), bsWrapped);
}

int PKEKAlgorithm::wrapTripleDESKeyWithIV(const ByteString& bsKEK, const ByteString& bsTBEKey, const ByteString& bsIV,
                                          ByteString& bsWrapped) {
  if (bsTBEKey.length() != 24) return P_FAIL("wrapTripleDESKey", "bsTBEKey", 1, pmsg::kTBEKeyNot24);
  // RFC 3217 3.1 step 1: each key octet gets odd parity before the check value.
  ByteString key(bsTBEKey);
  unsigned char* p = key.buffer();
  for (int i = 0; i < key.length(); ++i) {
    if (!OddParity(p[i])) p[i] ^= 0x01;
  }
  const int rc = wrap("wrapTripleDESKey", QSAlgorithm::TripleDES(), bsKEK, key, bsIV, bsWrapped);
  key.zeroize();
  return rc;
}

int PKEKAlgorithm::unwrapTripleDESKey(const ByteString& bsKEK, const ByteString& bsWrapped, ByteString& bsKey) {
  if (bsWrapped.length() != 40) return P_FAIL("unwrapTripleDESKey", "bsWrapped", 1, pmsg::kEncryptedKeyNot40);
  ByteString key;
  if (int rc = unwrap("unwrapTripleDESKey", QSAlgorithm::TripleDES(), 2, bsKEK, bsWrapped, key)) return rc;
  for (int i = 0; i < key.length(); ++i) {
    if (!OddParity(key.data()[i])) {
      key.zeroize();
      return P_FAIL("unwrapTripleDESKey", "bsKey", 3, pmsg::kOddParity);
    }
  }
  bsKey = key;
  key.zeroize();
  return 0;
}

int PKEKAlgorithm::wrapRC2Key(int nAlg, const ByteString& bsKEK, const ByteString& bsTBEKey, ByteString& bsWrapped) {
  return wrapRC2KeyWithIV(nAlg, bsKEK, bsTBEKey, ByteString(), ByteString(), bsWrapped);
}

int PKEKAlgorithm::wrapRC2KeyWithIV(int nAlg, const ByteString& bsKEK, const ByteString& bsTBEKey,
                                    const ByteString& bsIV, const ByteString& bsPad, ByteString& bsWrapped) {
  if (!IsRC2(nAlg)) return P_FAILF("wrapRC2Key", "nAlg", 1, pmsg::kWrapAlgNotSupported, nAlg);
  // LENGTH is one octet (RFC 3217 4.1 step 1).
  if (bsTBEKey.length() < 1 || bsTBEKey.length() > 255) return P_FAIL("wrapRC2Key", "bsTBEKey", 2, pmsg::kTBEKeyLength);
  const unsigned char length = static_cast<unsigned char>(bsTBEKey.length());
  ByteString lcek(&length, 1);
  lcek += bsTBEKey;
  const int padLength = (kBlock - lcek.length() % kBlock) % kBlock;
  ByteString pad = bsPad;
  if (pad.length() != padLength) {
    QSRandom random;
    if (padLength > 0) {
      if (int rc = random.GenerateRandom(QSAlgorithm::Random(), padLength, pad)) {
        return P_FAIL("wrapRC2Key", "random.GenerateRandom", rc, random.GetErrorMsg().c_str());
      }
    } else {
      pad.clear();
    }
  }
  lcek += pad;
  const int rc = wrap("wrapRC2Key", nAlg, bsKEK, lcek, bsIV, bsWrapped);
  lcek.zeroize();
  return rc;
}

int PKEKAlgorithm::unwrapRC2Key(int nAlg, const ByteString& bsKEK, const ByteString& bsWrapped, ByteString& bsKey) {
  if (!IsRC2(nAlg)) return P_FAILF("unwrapRC2Key", "nAlg", 1, pmsg::kWrapAlgNotSupported, nAlg);
  // IV, at least one block of LENGTH || CEK, and the ICV.
  if (bsWrapped.length() < 3 * kBlock || bsWrapped.length() % kBlock != 0) {
    return P_FAIL("unwrapRC2Key", "bsWrapped", 2, pmsg::kEncryptedKeyLength);
  }
  ByteString lcek;
  if (int rc = unwrap("unwrapRC2Key", nAlg, 3, bsKEK, bsWrapped, lcek)) return rc;
  const int length = lcek.data()[0];
  if (length < 1 || length > lcek.length() - 1 || lcek.length() - 1 - length >= kBlock) {
    lcek.zeroize();
    return P_FAIL("unwrapRC2Key", "LENGTH", 4, pmsg::kWrappedLength);
  }
  bsKey = lcek.mid(1, length);
  lcek.zeroize();
  return 0;
}
