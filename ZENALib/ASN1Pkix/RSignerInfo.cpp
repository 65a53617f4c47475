#include "ZENALib/ASN1Pkix/RSignerInfo.h"

#include "base/ByteReader.h"

const RField RSignerInfo::kFields[] = {
    R_FIELD(RSignerInfo, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD_ANY(RSignerInfo, sid, R_MANDATORY),
    R_FIELD(RSignerInfo, digestAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RSignerInfo, signedAttrs, 0, R_OPTIONAL),
    R_FIELD(RSignerInfo, signatureAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RSignerInfo, signature, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD_IMPLICIT(RSignerInfo, unsignedAttrs, 1, R_OPTIONAL),
};
const RSchema RSignerInfo::kSchema =
    R_SCHEMA(RSignerInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(5, "At least 5 components are required."), kFields);

int RSignerInfo::fromASN1Object(const ByteString& bsData) {
  m_bsRawSignedAttrs.clear();
  const int rc = RStructure::fromASN1Object(bsData);
  if (rc != 0 || !hasSignedAttrs()) return rc;
  // The fourth component is the [0] element the base just decoded: copy it
  // as it stands and give it back the SET identifier it is signed under.
  RElementHeader h{};
  const unsigned char* p = bsData.data();
  int n = bsData.length();
  if (RReadHeader(p, n, &h) != 0) return 0;
  int offset = h.headerLength;
  for (int i = 0; i < 4; ++i) {
    if (RReadHeader(p + offset, n - offset, &h) != 0) return 0;
    if (i < 3) offset += h.totalLength;
  }
  ByteWriter w;
  w.u8(ASN1_CONSTRUCTED | ASN1_TAG_SET).bytes(p + offset + h.idLength, static_cast<std::size_t>(h.totalLength - h.idLength));
  w.finish(&m_bsRawSignedAttrs);
  return 0;
}
