#include "ZENALib/ASN1Pkix/RPBKDF2_params.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

namespace {
constexpr std::uint32_t kSaltTags = (1u << ASN1_TAG_OCTETSTRING) | (1u << ASN1_TAG_SEQUENCE);
}  // namespace

R_FIELDS(RPBKDF2_params);
const RSchema RPBKDF2_params::kSchema =
    R_SCHEMA(RPBKDF2_params, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);

RPBKDF2_params::RPBKDF2_params() {
  m_salt.setSecret(true);
}
