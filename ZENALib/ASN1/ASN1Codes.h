// The result codes of the ASN.1 codec, each defined once. A code is
// numbered within the operation that returns it (0 is success everywhere),
// so the same number means different things in different operations; the
// groups below follow the operations. Callers and tests compare these values,
// so they never change.
#pragma once

namespace asn1_code {

constexpr int kOk = 0;

// ASN1Object::fromASN1Object / fromASN1View: reading one element.
constexpr int kNoData = 1;                // null or shorter than 2 octets, or no memory for the value
constexpr int kBadIdentifier = 2;         // universal tag that is not a codec type
constexpr int kBadHighTag = 3;            // high tag number too long or cut off
constexpr int kOuterLongPast = 4;         // long-form outer length runs past the input
constexpr int kOuterIndefiniteNoEnd = 5;  // outer indefinite length without end-of-contents
constexpr int kOuterIndefinitePast = 6;   // outer end-of-contents past the input
constexpr int kOuterShortPast = 7;        // short-form outer length runs past the input
constexpr int kInnerBadIdentifier = 8;    // identifier inside an explicit tag
constexpr int kInnerLongPast = 9;
constexpr int kInnerIndefiniteNoEnd = 10;
constexpr int kInnerIndefinitePast = 11;
constexpr int kInnerShortPast = 12;

// Typed classes (INTEGER, strings, times, SEQUENCE, ...) decoding.
constexpr int kElement = 1;     // the element itself could not be read (wraps the codes above)
constexpr int kWrongTag = 2;    // the universal tag is not the class's own
constexpr int kComponents = 3;  // SEQUENCE/SET: the component walk failed
constexpr int kTimeText = 3;    // UTCTime/GeneralizedTime: the text check failed

// toASN1Object: encoding.
constexpr int kUntypedNotExplicit = 1;  // an untyped holder that is not explicitly tagged
constexpr int kNegativeTagNumber = 2;
constexpr int kEncodeNoMemory = 3;      // no memory, or larger than a ByteString holds

// setValue and the value setters of the typed classes.
constexpr int kBadValue = 1;       // a character or value the type does not allow
constexpr int kValueNoMemory = 2;  // no memory for the new value

// ASN1BitString::getBitString.
constexpr int kBitStringEmpty = 1;

// ASN1ObjectIdentifier::setOID / getOID.
constexpr int kOidArc = 1;      // an arc out of range, or a sub-identifier that cannot be read
constexpr int kOidTooShort = 2;  // fewer than two arcs, or no content

// checkASN1Member.
constexpr int kNotMember = 1;

// findIndefiniteLengEnd: walking indefinite-length contents.
constexpr int kEocBadIdentifier = 1;
constexpr int kEocBadHighTag = 2;
constexpr int kEocNested = 3;      // a nested indefinite length without end
constexpr int kEocLengthTooLong = 4;
constexpr int kEocMissing = 5;     // no end-of-contents octets, or nesting too deep

// ASN1Sequence::ExtractComponentInfo: walking the components.
constexpr int kWalkBadIdentifier = 1;
constexpr int kWalkTableGrowth = 2;
constexpr int kWalkBadHighTag = 3;
constexpr int kWalkLengthPast = 4;
constexpr int kWalkIndefiniteNoEnd = 5;

// ASN1Sequence::addComponent and ReallocCompontntInfo; getComponent and
// getComponentBytes for an index with no component.
constexpr int kComponentFailed = 1;
constexpr int kNoComponent = 1;

// ASN1UTCTime::checkUTCTime.
constexpr int kUtcLength = 1;
constexpr int kUtcSeconds = 2;
constexpr int kUtcMinutes = 3;
constexpr int kUtcHour = 4;
constexpr int kUtcMonth = 5;
constexpr int kUtcDay = 6;
constexpr int kUtcFormat = 7;
constexpr int kUtcUnrepresentable = 8;

// ASN1GeneralizedTime::checkGMTTime.
constexpr int kGmtLength = 1;
constexpr int kGmtSeconds = 2;
constexpr int kGmtMinutes = 3;
constexpr int kGmtHour = 4;
constexpr int kGmtMonth = 5;
constexpr int kGmtFebruaryDay = 6;
constexpr int kGmtDay = 7;
constexpr int kGmtFormat = 8;
constexpr int kGmtUnrepresentable = 9;

// setGMTTime of both time types: the time has no text in the type's range.
constexpr int kTimeOutOfRange = 1;

}  // namespace asn1_code
