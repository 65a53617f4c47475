#include "ZENALib/ASN1Pkix/RPBKDF2_params.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

namespace {
constexpr std::uint32_t kSaltTags = (1u << ASN1_TAG_OCTETSTRING) | (1u << ASN1_TAG_SEQUENCE);
}  // namespace

const RField RPBKDF2_params::kFields[] = {
    R_FIELD_TAGS(RPBKDF2_params, salt, ASN1_TAG_OCTETSTRING, kSaltTags, R_MANDATORY),  // specified | otherSource
    R_FIELD(RPBKDF2_params, iterationCount, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RPBKDF2_params, keyLength, ASN1_TAG_INTEGER, R_OPTIONAL),
    R_FIELD(RPBKDF2_params, prf, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RPBKDF2_params::kSchema =
    R_SCHEMA(RPBKDF2_params, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);

RPBKDF2_params::RPBKDF2_params() {
  m_salt.setSecret(true);
}
