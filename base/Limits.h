// Limits on hostile input, kept in one place for every parser.
#pragma once

namespace qva_limits {

// Deepest nesting of BER indefinite lengths the decoder follows.
constexpr int kMaxIndefiniteDepth = 64;
// Deepest nesting of constructed values any recursive walk follows.
constexpr int kMaxNestingDepth = 64;
// Identifier octets of a high tag number (first octet plus at most 3 more).
constexpr int kMaxTagOctets = 4;
// Length octets after the first in a long-form DER length.
constexpr int kMaxLengthOctets = 4;

}  // namespace qva_limits
