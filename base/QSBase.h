// Base64 (RFC 4648, standard alphabet, "=" padding) and PEM armour.
#pragma once

#include "base/ByteString.h"

// Results of QSBase::pemDecode.
constexpr int PEM_OK = 0;
constexpr int PEM_ENCODE_FAIL = 1;
constexpr int PEM_BASE64_FAIL = 2;
constexpr int PEM_NO_HEADER = 3;
constexpr int PEM_NO_FOOTER = 4;
constexpr int PEM_BEYOND_TEXT = 5;
constexpr int PEM_NO_MEMORY = 6;

// PEM types; each names the label between the dashes.
constexpr int PEM_CERTIFICATE = 1;
constexpr int PEM_WTLS_CERTIFICATE = 2;
constexpr int PEM_RSA_PRIVATE_KEY = 3;
constexpr int PEM_PRIVATE_KEY = 4;
constexpr int PEM_ENCRYPTED_PRIVATE_KEY = 5;
constexpr int PEM_X509_CRL = 6;
constexpr int PEM_PKCS7 = 7;
constexpr int PEM_CERTIFICATE_REQUEST = 8;
constexpr int PEM_PKCS7_2 = 9;

// Results of the Base64 functions.
constexpr int BASE64_OK = 0;
constexpr int BASE64_BAD_INPUT = 1;  // length not a multiple of 4, a character outside the alphabet, misplaced "="
constexpr int BASE64_NO_MEMORY = 2;

class QSBase {
 public:
  static int base64Encode(const ByteString& in, ByteString* out);
  static int base64Encode(const void* p, int n, ByteString* out);
  // Strict: every character must be in the alphabet and "=" may only pad
  // the last group. An empty text decodes to nothing.
  static int base64Decode(const ByteString& in, ByteString* out);
  static int base64Decode(const void* p, int n, ByteString* out);

  // The label of a PEM type, or null for a type without one.
  static const char* pemLabel(int type);
  // Header line, Base64 in lines of 64 characters, footer, each joined by
  // CR LF, no line break after the footer. A type without a label gives bare
  // Base64 lines. Returns 0 or 1.
  static int pemEncode(int type, const ByteString& der, ByteString* out);
  // The header must start the text; the body runs to the footer. Carriage
  // returns, line feeds and blanks are dropped before Base64 decoding.
  // Returns one of PEM_OK .. PEM_NO_MEMORY.
  static int pemDecode(int type, const ByteString& text, ByteString* der);
};
