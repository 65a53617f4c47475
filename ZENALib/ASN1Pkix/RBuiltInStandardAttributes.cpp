#include "ZENALib/ASN1Pkix/RBuiltInStandardAttributes.h"

#include <array>

namespace {
constexpr int kFieldCount = 9;
// Identifiers of [APPLICATION 1] and [APPLICATION 2] constructed.
constexpr unsigned char kCountryId = ASN1_CLASS_APPLICATION | ASN1_CONSTRUCTED | 1;
constexpr unsigned char kAdministrationId = ASN1_CLASS_APPLICATION | ASN1_CONSTRUCTED | 2;
}  // namespace

// Encoding uses this table as it stands: the two leading fields take any
// identifier and are written when present.
R_FIELDS(RBuiltInStandardAttributes);
const RSchema RBuiltInStandardAttributes::kSchema =
    R_SCHEMA(RBuiltInStandardAttributes, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);

const RSchema& RBuiltInStandardAttributes::decodeSchema(bool bCountry, bool bAdministration) {
  static_assert(sizeof(kFields) / sizeof(kFields[0]) == kFieldCount, "field count");
  struct Variant {
    std::array<RField, kFieldCount> fields;
    RSchema schema;
  };
  // Variant i: bit 0 country-name present, bit 1 administration-domain-name
  // present. A field of an absent leading component gets an empty tag mask,
  // which no identifier matches, so the engine skips it.
  static const std::array<Variant, 4> variants = [] {
    std::array<Variant, 4> v{};
    for (int i = 0; i < 4; ++i) {
      for (int f = 0; f < kFieldCount; ++f) v[i].fields[f] = kFields[f];
      for (int f = 0; f < 2; ++f) {
        if (i & (1 << f)) continue;
        v[i].fields[f].kind = RKind::Universal;
        v[i].fields[f].tags = 0;
      }
      v[i].schema = kSchema;
      v[i].schema.fields = v[i].fields.data();
    }
    return v;
  }();
  return variants[(bCountry ? 1 : 0) | (bAdministration ? 2 : 0)].schema;
}

int RBuiltInStandardAttributes::fromASN1View(const unsigned char* pData, int nData) {
  // Peek at the identifiers of the first two components; RReadHeader bounds
  // every read by the input.
  const unsigned char* p = pData;
  int n = nData;
  RElementHeader outer{}, h{};
  bool bCountry = false, bAdministration = false;
  if (RReadHeader(p, n, &outer) == 0) {
    p += outer.headerLength;
    n -= outer.headerLength;
    if (RReadHeader(p, n, &h) == 0 && h.first == kCountryId) {
      bCountry = true;
      p += h.totalLength;
      n -= h.totalLength;
    }
    bAdministration = RReadHeader(p, n, &h) == 0 && h.first == kAdministrationId;
  }
  m_pDecodeSchema = &decodeSchema(bCountry, bAdministration);
  const int rc = RStructure::fromASN1View(pData, nData);
  m_pDecodeSchema = nullptr;
  return rc;
}
