// The English texts of the structure classes, each defined once (the
// component-count texts are each class's own, in its schema). The codec's
// texts ("ASN1 Format Error" and the rest) are in ZENALib/ASN1/ASN1Messages.h.
#pragma once

namespace r_msg {

constexpr char kComponentMissing[] = "%s component is missing.";
constexpr char kComponentNotTag[] = "%s component is not %s.";
constexpr char kComponentNotContext[] = "%s component is not [%d].";
constexpr char kItemNotTag[] = "item is not %s.";
constexpr char kNoAlternative[] = "No alternative is selected.";
constexpr char kNoAlternativeFor[] = "No alternative has the identifier 0x%02X.";

}  // namespace r_msg
