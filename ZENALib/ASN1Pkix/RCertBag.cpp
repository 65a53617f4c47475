#include "ZENALib/ASN1Pkix/RCertBag.h"

R_FIELDS(RCertBag);
const RSchema RCertBag::kSchema =
    R_SCHEMA(RCertBag, ASN1_TAG_SEQUENCE, R_EXACTLY(2, "The number of components is not two."), kFields);

int RCertBag::fromASN1View(const unsigned char* pData, int nData) {
  const int rc = RStructure::fromASN1View(pData, nData);
  if (rc != 0) return rc;
  // The base has checked both components; the [0] wrapper must end with its
  // one element (the value member reads only the first).
  const unsigned char* p = pData;
  int n = nData;
  RElementHeader outer{}, id{}, wrapper{}, inner{};
  if (RReadHeader(p, n, &outer) != 0) return 0;
  p += outer.headerLength;
  n -= outer.headerLength;
  if (RReadHeader(p, n, &id) != 0 || RReadHeader(p + id.totalLength, n - id.totalLength, &wrapper) != 0) return 0;
  p += id.totalLength + wrapper.headerLength;
  n -= id.totalLength + wrapper.headerLength;
  const int content =
      wrapper.contentLength >= 0 ? wrapper.contentLength : wrapper.totalLength - wrapper.headerLength - 2;
  if (RReadHeader(p, n, &inner) == 0 && inner.totalLength == content) return 0;
  return failAt(&kSchema, "fromASN1Object", "nCount", R_ERR_COUNT, "The number of components is not 1");
}
