// The texts the qva commands share, each written once: what they print on
// stderr when an input cannot be read or an operation fails.
#pragma once

namespace qva_msg {

constexpr char kCannotRead[] = "qva: cannot read %s\n";       // the path
constexpr char kFailed[] = "qva: %s\n";                       // the error's trace
constexpr char kFailedOn[] = "qva: %s: %s\n";                 // the path, why
constexpr char kUnprintableName[] = "<unprintable name>";     // a name the DN writer refuses

}  // namespace qva_msg
