#include "ZENALib/QSCrypto/QSAlgorithm.h"

#include "ZENALib/QSCrypto/ECSP.h"

namespace QSAlgorithm {

namespace {

struct Pair {
  int nLibrary;
  int nCore;
};

// 7060 and 7061 (RSA-PSS) have no row: the service classes refuse them even
// though the core knows such algorithms. 7052 (ECDSA with SHA-1 on
// secp160r1) was added as a row of its own, as every new algorithm is.
constexpr Pair kAlgorithms[] = {
    {1000, ecsp::kMD2},         {1001, ecsp::kMD4},          {1002, ecsp::kMD5},
    {1011, ecsp::kSHA1},        {1012, ecsp::kSHA256},       {1020, ecsp::kHAS160},
    {2000, ecsp::kRandom0},     {2010, ecsp::kRandom1},      {2020, ecsp::kRandom2},
    {3000, ecsp::kDES},         {3010, ecsp::kDES2},         {3011, ecsp::kTripleDES},
    {3020, ecsp::kSEED},        {3050, ecsp::kRC2_40},       {3051, ecsp::kRC2_64},
    {3052, ecsp::kRC2_128},     {3053, ecsp::kRC2_192},      {3054, ecsp::kRC2_256},
    {3060, 11400},              {3090, 11828},               {3091, 11828},
    {4000, ecsp::kRSA512},      {4001, ecsp::kRSA1024},      {4002, ecsp::kRSA2048},
    {4010, 120301},             {4011, 120402},              {4021, ecsp::kRSAOAEP1024},
    {4022, ecsp::kRSAOAEP2048}, {5010, 31001},               {5020, ecsp::kHMAC_MD5},
    {5030, ecsp::kHMAC_SHA1},   {6010, ecsp::kECDH_K163},    {6011, ecsp::kECDH_C2PNB163V1},
    {6012, ecsp::kDH},          {7000, ecsp::kMD5RSA512},    {7001, ecsp::kMD5RSA1024},
    {7002, ecsp::kMD5RSA2048},  {7010, ecsp::kSHA1RSA512},   {7011, ecsp::kSHA1RSA1024},
    {7012, ecsp::kSHA1RSA2048}, {7030, 140000},              {7031, ecsp::kKCDSA_SHA1_512},
    {7032, ecsp::kKCDSA_SHA1_1024}, {7033, ecsp::kKCDSA_SHA1_2048}, {7040, ecsp::kKCDSA_HAS160_512},
    {7041, ecsp::kKCDSA_HAS160_1024}, {7042, ecsp::kKCDSA_HAS160_2048}, {7050, ecsp::kECDSA_SHA1_K163},
    {7051, ecsp::kECDSA_SHA1_C2PNB163V1}, {7052, ecsp::kECDSA_SHA1_P160}, {7070, ecsp::kSHA256RSA1024}, {7071, ecsp::kSHA256RSA2048},
};

// Library modes 1..6 and padding types 0..4, indexed by the library number.
constexpr int kModes[] = {-1, 7, 6, ECSP_MODE_ECB, ECSP_MODE_CBC, ECSP_MODE_CFB, ECSP_MODE_OFB};
constexpr int kPaddings[] = {ECSP_PAD_NONE, ECSP_PAD_ZERO, ECSP_PAD_PKCS, ECSP_PAD_ISO9797_2, ECSP_PAD_ISO9797_2};

template <int N>
int Lookup(const int (&table)[N], int n) {
  return n >= 0 && n < N ? table[n] : -1;
}

}  // namespace

int TranslateAlgID(int nAlgID) {
  for (const Pair& p : kAlgorithms) {
    if (p.nLibrary == nAlgID) return p.nCore;
  }
  return -1;
}

int TranslateMode(int nMode) { return Lookup(kModes, nMode); }

int TranslatePadding(int nPaddingType) { return Lookup(kPaddings, nPaddingType); }

}  // namespace QSAlgorithm
