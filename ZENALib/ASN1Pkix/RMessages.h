// The English texts of the structure classes, each defined once. The codec's
// texts ("ASN1 Format Error" and the rest) are in ZENALib/ASN1/ASN1Messages.h.
#pragma once

namespace r_msg {

constexpr char kComponentMissing[] = "%s component is missing.";
constexpr char kComponentNotTag[] = "%s component is not %s.";
constexpr char kComponentNotContext[] = "%s component is not [%d].";
constexpr char kItemNotTag[] = "item is not %s.";
constexpr char kNoAlternative[] = "No alternative is selected.";
constexpr char kNoAlternativeFor[] = "No alternative has the identifier 0x%02X.";

// Component-count texts that several classes share (a text only one class
// uses stays in its schema, spelled as that class has it).
constexpr char kAtLeast1[] = "At least 1 component is required.";
constexpr char kAtLeast2[] = "At least 2 components are required.";
constexpr char kAtLeast2Component[] = "At least 2 component is required.";
constexpr char kAtLeast3[] = "At least 3 components are required.";
constexpr char kAtLeast4[] = "At least 4 components are required.";
constexpr char kAtLeast5[] = "At least 5 components are required.";
constexpr char kNot2[] = "The number of components is not 2.";
constexpr char kNot3[] = "The number of components is not 3.";
constexpr char kNot4[] = "The number of components is not 4.";

}  // namespace r_msg
