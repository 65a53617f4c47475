// The English texts of the ASN.1 codec, each defined once. Traces quote them
// byte for byte (spacing and spelling included), so callers that compare
// messages compare against these.
#pragma once

namespace asn1_msg {

constexpr char kFormatError[] = "ASN1 Format Error";
constexpr char kLengthError[] = "ASN1 Format(Length) Error";
constexpr char kMemoryError[] = "Memory Allocation Error";
constexpr char kNullData[] = "The bsData is NULL pointer.";
constexpr char kIndefiniteEnd[] = "Error at finding Indefinitive Length End(0x00 0x00)";
constexpr char kTagTooLong[] = "Too Long(>4)";
constexpr char kNotMember[] = "Tag(%d) is not ASN1 Member";
constexpr char kOidFormat[] = "ASN1 OID Format Error";
constexpr char kOidValue[] = "Value(%.*s) is not ASN1 OID Format";
constexpr char kBitStringEmpty[] = "ASN1BitString Format Error(Length = 0)";

// Time texts; "%.*s" is the text checked.
constexpr char kGmtFormat[] = "Invalid GMT Format";
constexpr char kUtcFormat[] = "%.*s : UTC Time Format Error";
constexpr char kSecError[] = "%.*s : sec error";
constexpr char kSecondsError[] = "%.*s : seconds error";
constexpr char kMinutesError[] = "%.*s : minutes error";
constexpr char kHourError[] = "%.*s : hour error";
constexpr char kDayError[] = "%.*s : day error";
constexpr char kMonthError[] = "%.*s : month error";
constexpr char kInvalidFormat[] = "%.*s : invalid format";
constexpr char kUnrepresentable[] =
    "%.*s references a date before midnight, January 1, 1970, or if the calendar time cannot be represented.";
constexpr char kBefore1970[] = "%lld represents a date before midnight, January 1, 1970";

}  // namespace asn1_msg
