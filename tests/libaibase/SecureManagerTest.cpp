// Secure manager: a whole handshake between a client and a server manager
// (server identity from the openssl CLI), the envelope opened by
// `openssl cms`, application data checked against `openssl enc`, and the
// refusals of the dispatch and of each step with their traces.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "libaibase/clhandshake.h"
#include "libaibase/clsecuremanager.h"
#include "tests/libaibase/ServerIdentity.h"
#include "tests/support/TestUtil.h"

using qvatest::Hex;
using qvatest::Str;
using qvatest::ToHex;

namespace {

qvatest::ServerIdentity& Identity() {
  static qvatest::ServerIdentity* id = new qvatest::ServerIdentity();
  return *id;
}

// Header fields of a handshake record, read independently of CLHandshake.
struct Fields {
  int type, version, handshakeType;
  long bodyLength, dataLength;
  ByteString data;
};
Fields Read(const ByteString& r) {
  const unsigned char* p = r.data();
  auto be32 = [&](int at) { return (long(p[at]) << 24) | (long(p[at + 1]) << 16) | (long(p[at + 2]) << 8) | p[at + 3]; };
  EXPECT_GE(r.length(), 11);
  if (r.length() < 11) return {};
  return {p[0], p[1], p[6], be32(2), be32(7), r.mid(11, r.length() - 11)};
}

void ExpectHandshake(const ByteString& record, int handshakeType) {
  const Fields f = Read(record);
  EXPECT_EQ(f.type, 0x16);
  EXPECT_EQ(f.version, 1);
  EXPECT_EQ(f.handshakeType, handshakeType);
  EXPECT_EQ(f.bodyLength, record.length() - 6);
  EXPECT_EQ(f.dataLength, record.length() - 11);
}

// Runs the four messages; returns the records in order.
struct Session {
  CLSecureManager client{nullptr, nullptr};
  std::unique_ptr<CLSecureManager> server;
  ByteString records[4];
  bool more[3] = {false, true, true};

  Session() {
    server.reset(new CLSecureManager(&Identity().certificate, &Identity().privateKey));
    EXPECT_EQ(client.MakeClientHello(), 0);
    records[0] = client.GetOutput();
    EXPECT_EQ(server->ProcessHandshake(records[0], &more[0]), 0) << Str(server->GetErrorMsg());
    records[1] = server->GetOutput();
    EXPECT_EQ(client.ProcessHandshake(records[1], &more[1]), 0) << Str(client.GetErrorMsg());
    records[2] = client.GetOutput();
    EXPECT_EQ(server->ProcessHandshake(records[2], &more[2]), 0) << Str(server->GetErrorMsg());
    records[3] = server->GetOutput();
  }
};

}  // namespace

TEST(SecureManager, HandshakeBothHalves) {
  ASSERT_TRUE(Identity().ok);
  Session s;
  // ClientHello is exactly the five bytes of Hello in a type-1 record.
  EXPECT_EQ(ToHex(s.records[0]), "1601" "0000000a" "01" "00000005" + ToHex(ByteString("Hello")));
  EXPECT_TRUE(s.more[0]);
  ExpectHandshake(s.records[1], 2);
  EXPECT_EQ(Read(s.records[1]).data, Identity().certificate);
  EXPECT_TRUE(s.more[1]);
  ExpectHandshake(s.records[2], 3);
  EXPECT_FALSE(s.more[2]);
  ExpectHandshake(s.records[3], 4);
  // 32 bytes of R under padding type 2 fill five 8-byte blocks.
  EXPECT_EQ(Read(s.records[3]).data.length(), 40);
  EXPECT_EQ(s.server->GetSessionSecret().length(), 32);
  EXPECT_EQ(s.server->GetSessionSecret(), s.client.GetSessionSecret());

  bool more = true;
  ASSERT_EQ(s.client.ProcessHandshake(s.records[3], &more), 0) << Str(s.client.GetErrorMsg());
  EXPECT_FALSE(more);
  EXPECT_EQ(s.client.GetOutput().length(), 0);
  EXPECT_EQ(s.client.GetDataKey().length(), 24);
  EXPECT_EQ(s.client.GetDataIV().length(), 8);
  EXPECT_EQ(s.client.GetDataKey(), s.server->GetDataKey());
  EXPECT_EQ(s.client.GetDataIV(), s.server->GetDataIV());
  EXPECT_EQ(s.client.GetCertificate(), Identity().certificate);

  // openssl opens the ClientKeyExchange envelope with the server's key.
  qvatest::TempDir dir;
  qvatest::WriteFile(dir.file("env.der"), Read(s.records[2]).data);
  ASSERT_EQ(qvatest::Run("openssl cms -decrypt -inform DER -in " + dir.file("env.der") + " -inkey " +
                         Identity().keyPem + " -recip " + Identity().certPem + " -out " + dir.file("secret")),
            0);
  EXPECT_EQ(qvatest::ReadFileBs(dir.file("secret")), s.client.GetSessionSecret());

  // Application data both ways, deciphered by openssl with the data key.
  const ByteString messages[] = {ByteString(""), ByteString("roaming message"), qvatest::RandomBytes(1000, 7),
                                 qvatest::RandomBytes(16, 8)};
  for (const ByteString& m : messages) {
    for (CLSecureManager* from : {&s.client, s.server.get()}) {
      CLSecureManager* to = from == &s.client ? s.server.get() : &s.client;
      ASSERT_EQ(from->MakeApplicationData(m), 0);
      const ByteString record = from->GetOutput();
      EXPECT_EQ(record.data()[0], 0x17);
      ASSERT_EQ(to->ParseApplicationData(record), 0) << Str(to->GetErrorMsg());
      EXPECT_EQ(to->GetOutput(), m);
      // The same key and IV for every record: equal plaintexts, equal ciphertexts.
      ASSERT_EQ(to->MakeApplicationData(m), 0);
      EXPECT_EQ(to->GetOutput(), record);
      qvatest::WriteFile(dir.file("c"), record.mid(10, record.length() - 10));
      ASSERT_EQ(qvatest::Run("openssl enc -d -des-ede3-cbc -K " + ToHex(s.client.GetDataKey()) + " -iv " +
                             ToHex(s.client.GetDataIV()) + " -in " + dir.file("c") + " -out " + dir.file("p")),
                0);
      EXPECT_EQ(qvatest::ReadFileBs(dir.file("p")), m);
    }
  }

  s.client.Release();
  for (const ByteString* bs : {&s.client.GetOutput(), &s.client.GetDataKey(), &s.client.GetDataIV(),
                               &s.client.GetSessionSecret(), &s.client.GetCertificate()})
    EXPECT_EQ(bs->length(), 0);
}

// Each refusal: the code, the whole trace (newest line first) and the more flag left alone.
TEST(SecureManager, Refusals) {
  ASSERT_TRUE(Identity().ok);
  Session s;
  auto handshake = [](int type, const ByteString& data) {
    CLHandshake h;
    EXPECT_EQ(h.MakeHandshake(1, type, data), 0);
    return h.GetRecord();
  };
  ByteString shortSke = Read(s.records[3]).data;
  shortSke = shortSke.mid(0, shortSke.length() - 1);
  ByteString otherEnvelope;
  {
    // A ClientKeyExchange sealed for another server certificate.
    qvatest::ServerIdentity other;
    ASSERT_TRUE(other.ok);
    CLSecureManager c(nullptr, nullptr);
    bool m;
    ASSERT_EQ(c.ProcessHandshake(handshake(2, other.certificate), &m), 0);
    otherEnvelope = c.GetOutput();
  }
  const std::string P = "CLSecureManager::ProcessHandshake - ";
  struct Row {
    const char* name;
    bool server;
    ByteString record;
    int code;
    std::string traceStart;
  } rows[] = {
      {"type 0", false, handshake(0, "x"), 148, P + "Unknown Handshake Type...(148)\r\n"},
      {"type 5", true, handshake(5, "x"), 148, P + "Unknown Handshake Type...(148)\r\n"},
      {"no type byte", true, Hex("160100000000"), 148, P + "Unknown Handshake Type...(148)\r\n"},
      {"ClientHello cut", true, Hex("16010000000a01000000054865"), 111,
       P + "ParseClientHello(111)\r\nCLSecureManager::ParseClientHello - handshake.ParseHandshake(111)\r\n"},
      {"ServerHello cut", false, Hex("1601000000050200000009"), 111,
       P + "ParseServerHello(111)\r\nCLSecureManager::ParseServerHello - handshake.ParseHandshake(111)\r\n"},
      {"ServerHello not a certificate", false, handshake(2, "not a certificate"), 30,
       P + "MakeClientKeyExchange(30)\r\nCLSecureManager::MakeClientHello - zenaWrapper.EnvelopData(30)\r\n"
           "CLZENAWrapper::EnvelopData - cLEnvelopedData.Envelop(30)\r\n"
           "CLEnvelopedData::Envelop - envData.addRecipientByCert(30)\r\n"},
      {"ClientKeyExchange cut", true, Hex("1601000000050300000009"), 111,
       P + "ParseClientKeyExchange(111)\r\nCLSecureManager::ParseClientHello - handshake.ParseHandshake(111)\r\n"},
      {"ClientKeyExchange for another key", true, otherEnvelope, 33,
       P + "ParseClientKeyExchange(33)\r\nCLSecureManager::ParseClientKeyExchange - "
           "zenaWrapper.OpenEnvelopedData(33)\r\nCLZENAWrapper::OpenEnvelopedData - cLEnvelopedData.OpenEnvelop(33)"
           "\r\nCLEnvelopedData::OpenEnvelop - envDataProcess.parseEnvelopedData(33)\r\n"},
      {"ServerKeyExchange not whole blocks", false, handshake(4, shortSke), 25,
       P + "ParseServerKeyExchange(25)\r\nCLSecureManager::ParseServerKeyExchange - zenaWrapper.Decrypt(25)\r\n"
           "CLZENAWrapper::Decrypt - cLCrypto.Decrypt(25)\r\nCLCrypto::Decrypt - encrypt.DecryptData_NoGenKey(25)\r\n"},
  };
  for (Row& r : rows) {
    SCOPED_TRACE(r.name);
    // A fresh pair that has run its first exchange, so every step has its inputs.
    Session fresh;
    CLSecureManager& m = r.server ? *fresh.server : fresh.client;
    m.ClearError();
    bool more = true;
    EXPECT_EQ(m.ProcessHandshake(r.record, &more), r.code);
    EXPECT_TRUE(more);
    EXPECT_EQ(Str(m.GetErrorMsg()).substr(0, r.traceStart.size()), r.traceStart);
  }

  // Application data before any key, and a record cut short.
  CLSecureManager fresh(nullptr, nullptr);
  EXPECT_EQ(fresh.MakeApplicationData("x"), 22);
  const std::string noKey = "CLSecureManager::MakeApplicationData - zenaWrapper.Encrypt(22)\r\n";
  EXPECT_EQ(Str(fresh.GetErrorMsg()).substr(0, noKey.size()), noKey);
  bool more = true;
  ASSERT_EQ(s.client.ProcessHandshake(s.records[3], &more), 0);
  ASSERT_EQ(s.client.MakeApplicationData("data"), 0);
  ByteString cut = s.client.GetOutput().mid(0, s.client.GetOutput().length() - 1);
  s.client.ClearError();
  EXPECT_EQ(s.server->ParseApplicationData(cut), 101);
  const std::string want = "CLSecureManager::ParseApplicationData - applicationData.ParseApplicationData(101)\r\n";
  EXPECT_EQ(Str(s.server->GetErrorMsg()).substr(0, want.size()), want);
}
