#include "tools/qva/cms_enveloped.h"

#include <cstdio>
#include <string>

#include "ZENALib/ASN1Pkix/RECPrivateKey.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RRSAPrivateKey.h"
#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"
#include "ZENALib/QSProcess/UDNSettings.h"
#include "tools/qva/platform/display.h"
#include "tools/qva/messages.h"

// cms.cpp: DER, or PEM/Base64 text.
bool ReadDerOrText(const char* path, ByteString* out);

namespace {

std::string Hex(const ByteString& bs) {
  std::string out;
  char b[4];
  for (int i = 0; i < bs.length(); ++i) {
    std::snprintf(b, sizeof b, "%02x", bs.data()[i]);
    out += b;
  }
  return out;
}

// The key as PKCS#8: a traditional RSAPrivateKey ("RSA PRIVATE KEY") or
// ECPrivateKey with its curve ("EC PRIVATE KEY") wrapped, any other form
// as given (the opening then refuses it).
ByteString AsPrivateKeyInfo(const ByteString& key) {
  RPrivateKeyInfo info;
  if (info.fromASN1Object(key) == 0) return key;
  ByteString oid, params;
  RRSAPrivateKey rsa;
  RECPrivateKey ec;
  if (rsa.fromASN1Object(key) == 0) {
    oid = "1 2 840 113549 1 1 1";
    params = ByteString("\x05\x00", 2);
  } else if (ec.fromASN1Object(key) == 0 && ec.hasParameters()) {
    oid = "1 2 840 10045 2 1";
    params = ec.getParameters().toASN1Object();
    RElementHeader h;  // the curve without the [0] it carries in the key
    if (params.length() > 0 && params.data()[0] == 0xA0 && RReadHeader(params.data(), params.length(), &h) == 0)
      params = params.mid(h.headerLength, params.length() - h.headerLength);
  } else {
    return key;
  }
  RPrivateKeyInfo wrapped;
  wrapped.getVersion().setInteger(0);
  wrapped.getPrivateKeyAlgorithm().getAlgorithm().setOID(oid.c_str());
  RAny any;
  if (any.setElement(params)) return key;
  wrapped.getPrivateKeyAlgorithm().setParameters(any);
  wrapped.getPrivateKey().setValue(key);
  return wrapped.toASN1Object();
}

std::string Dotted(ByteString oid) {
  std::string s = oid.c_str();
  for (char& c : s) {
    if (c == ' ') c = '.';
  }
  return s;
}

std::string Name(const RRDNSequence& name) {
  ByteString text;
  if (UDNSettings::RDN2Str(name, &text)) return qva_msg::kUnprintableName;
  return ForDisplay(text.c_str(), text.length());
}

std::string IssuerSerial(const RIssuerAndSerialNumber& ias) {
  return "issuer " + Name(ias.getIssuer()) + ", serial " + Hex(ias.getSerialNumber().getValue());
}

std::string AlgorithmAndWrap(RAlgorithmIdentifier& alg) {
  std::string s = Dotted(alg.getAlgorithm().getOID());
  RAlgorithmIdentifier wrap;
  if (alg.hasParameters() && wrap.fromASN1Object(alg.getParameters().getElement()) == 0) {
    s += ", wrap " + Dotted(wrap.getAlgorithm().getOID());
  }
  return s;
}

void PrintRecipient(int i, RRecipientInfo& ri) {
  if (ri.isKtri()) {
    RKeyTransRecipientInfo& k = ri.getKtri();
    std::printf("    %d: key transport, version %d\n", i + 1, k.getVersion().getInteger());
    if (k.getRid().isIssuerAndSerialNumber()) {
      std::printf("      Recipient: %s\n", IssuerSerial(k.getRid().getIssuerAndSerialNumber()).c_str());
    } else {
      std::printf("      Recipient key identifier: %s\n", Hex(k.getRid().getSubjectKeyIdentifier().getValue()).c_str());
    }
    std::printf("      Key encryption: %s\n", Dotted(k.getKeyEncryptionAlgorithm().getAlgorithm().getOID()).c_str());
  } else if (ri.isKari()) {
    RKeyAgreeRecipientInfo& k = ri.getKari();
    std::printf("    %d: key agreement, version %d\n", i + 1, k.getVersion().getInteger());
    ROriginatorIdentifierOrKey& o = k.getOriginator();
    if (o.isOriginatorKey()) {
      std::printf("      Originator: public key (%s)\n",
                  Dotted(o.getOriginatorKey().getAlgorithm().getAlgorithm().getOID()).c_str());
    } else if (o.isIssuerAndSerialNumber()) {
      std::printf("      Originator: %s\n", IssuerSerial(o.getIssuerAndSerialNumber()).c_str());
    } else {
      std::printf("      Originator key identifier: %s\n", Hex(o.getSubjectKeyIdentifier().getValue()).c_str());
    }
    std::printf("      Key agreement: %s\n", AlgorithmAndWrap(k.getKeyEncryptionAlgorithm()).c_str());
    for (int j = 0; j < k.getRecipientEncryptedKeys().getCount(); ++j) {
      RKeyAgreeRecipientIdentifier& rid = k.getRecipientEncryptedKeys().getAt(j)->getRid();
      if (rid.isIssuerAndSerialNumber()) {
        std::printf("      Recipient: %s\n", IssuerSerial(rid.getIssuerAndSerialNumber()).c_str());
      } else {
        std::printf("      Recipient key identifier: %s\n",
                    Hex(rid.getRKeyId().getSubjectKeyIdentifier().getValue()).c_str());
      }
    }
  } else if (ri.isKekri()) {
    RKEKRecipientInfo& k = ri.getKekri();
    std::printf("    %d: key-encryption key, version %d\n      Key identifier: %s\n      Key wrap: %s\n", i + 1,
                k.getVersion().getInteger(), Hex(k.getKekid().getKeyIdentifier().getValue()).c_str(),
                Dotted(k.getKeyEncryptionAlgorithm().getAlgorithm().getOID()).c_str());
  } else {
    std::printf("    %d: another kind (password or other)\n", i + 1);
  }
}

}  // namespace

int PrintEnvelopedData(const ByteString& der, const char* certPath, const char* keyPath) {
  PEnvelopedDataProcess proc;
  if (int rc = proc.decodeEnvelopedData(der)) {
    std::fprintf(stderr, qva_msg::kFailed, proc.getErrorMessage().c_str());
    return rc ? 1 : 0;
  }
  REnvelopedData env = proc.getEnvelopedData();
  std::printf("EnvelopedData:\n  Version: %d\n  Recipients: %d\n", env.getVersion().getInteger(),
              env.getRecipientInfos().getCount());
  for (int i = 0; i < env.getRecipientInfos().getCount(); ++i) PrintRecipient(i, *env.getRecipientInfos().getAt(i));
  REncryptedContentInfo& eci = env.getEncryptedContentInfo();
  std::printf("  Content type: %s\n  Content encryption: %s\n", Dotted(eci.getContentType().getOID()).c_str(),
              Dotted(eci.getContentEncryptionAlgorithm().getAlgorithm().getOID()).c_str());
  std::printf("  Encrypted content: %d octets\n",
              eci.hasEncryptedContent() ? eci.getEncryptedContent().getValue().length() : 0);
  if (!certPath || !keyPath) return 0;

  ByteString cert, key, content;
  if (!ReadDerOrText(certPath, &cert) || !ReadDerOrText(keyPath, &key)) return 2;
  ByteString pkcs8 = AsPrivateKeyInfo(key);
  key.zeroize();
  const int rc = proc.setRecipientIdentifier(cert) ? proc.getErrorCode() : proc.parseEnvelopedData(der, pkcs8);
  pkcs8.zeroize();
  if (rc || proc.getContent(content) != 0) {
    std::fprintf(stderr, qva_msg::kFailed, proc.getErrorMessage().c_str());
    return 1;
  }
  std::printf("  Opened: recipient %d\n  Content: %d octets\n", proc.getRecipientIndex() + 1, content.length());
  const ByteString dump = content.toHexString(2, 32);
  std::printf("%s\n", dump.c_str());
  return 0;
}
