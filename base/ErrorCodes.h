// Result codes of the client, transport, protocol and facade layers.
//
// 0 is success and a positive number names the failure; a code raised deep
// down reaches the exported functions unchanged. The ranges are owned by
// class: 20s crypto wrapper, 30s enveloped data, 40s certificate and CRL
// checks, 50s PFX, 60s private key, 70s signed data, 80s hash, 90s facade,
// 100-130 protocol records, 148 secure manager, 150s socket client, 180 secure
// tunnel, 190s roaming message, 301 client, 2000 exported-function arguments,
// 9903/9904 Base64.
#pragma once

// Client object and exported functions.
constexpr int ERR_SUCCESS = 0;
constexpr int ERR_NO_MEMORY = 1;            // QVA_Initialize could not allocate
constexpr int ERR_CONNECT_CHECK = 1;        // socket not writable in time
constexpr int ERR_ITEM_INDEX = 1;           // item index beyond the count
constexpr int ERR_ITEM_COUNT_ZERO = 301;    // the server's answer holds no item
constexpr int ERR_INVALID_ARGUMENT = 2000;  // null argument or too small buffer

// Message types of the roaming message.
constexpr int MSG_TYPE_VERIFY = 106;
constexpr int MSG_TYPE_REGISTER_CERT = 107;

// Crypto wrapper.
constexpr int ERR_ENCRYPT_ALGORITHM = 20;
constexpr int ERR_ENCRYPT_MODE = 21;
constexpr int ERR_ENCRYPT = 22;
constexpr int ERR_DECRYPT_ALGORITHM = 23;
constexpr int ERR_DECRYPT_MODE = 24;
constexpr int ERR_DECRYPT = 25;
constexpr int ERR_RANDOM = 26;

// Enveloped data.
constexpr int ERR_ENVELOP_ADD_RECIPIENT = 30;
constexpr int ERR_ENVELOP_MAKE = 31;
constexpr int ERR_OPEN_SET_RECIPIENT = 32;
constexpr int ERR_OPEN_PARSE = 33;
constexpr int ERR_OPEN_GET_CONTENT = 34;

// Certificate and CRL checks.
constexpr int ERR_VERIFY_VID = 40;
constexpr int ERR_CERT_PARSE = 41;
constexpr int ERR_CERT_NO_POLICY = 42;
constexpr int ERR_CERT_VALIDITY = 43;
constexpr int ERR_CRL_PARSE = 45;
constexpr int ERR_CRL_CHECK = 46;
constexpr int ERR_CRL_IS_REVOKED = 47;
constexpr int ERR_TIMESTAMP_PARSE = 48;

// PFX.
constexpr int ERR_PFX_SET_DATA = 50;
constexpr int ERR_PFX_MANY_PAIRS = 51;
constexpr int ERR_PFX_GET_KEY_AND_CERT = 52;
constexpr int ERR_PFX_SET_KEY_AND_CERT = 53;
constexpr int ERR_PFX_MAKE = 54;

// Private key.
constexpr int ERR_PRIVKEY_DECRYPT = 60;
constexpr int ERR_PRIVKEY_PBE = 61;
constexpr int ERR_PRIVKEY_SET_INFO = 62;
constexpr int ERR_PRIVKEY_GET_PKCS8 = 63;
constexpr int ERR_PRIVKEY_SET_RANDOM = 64;
constexpr int ERR_PRIVKEY_GET_RANDOM = 65;

// Signed data.
constexpr int ERR_SIGN_FORMAT = 70;
constexpr int ERR_SIGN_SET_DATA = 71;
constexpr int ERR_SIGN_ADD_SIGNER_CERT = 72;
constexpr int ERR_SIGN_MAKE = 73;
constexpr int ERR_SIGN_PARSE = 74;
constexpr int ERR_SIGN_NO_SIGNER_CERT = 75;
constexpr int ERR_SIGN_VERIFY = 76;

// Hash.
constexpr int ERR_HASH_ALGORITHM = 80;
constexpr int ERR_HASH = 81;

// Facade.
constexpr int ERR_FACADE_RVALUE = 91;
constexpr int ERR_FACADE_VERIFY_CERT = 92;

// Protocol records.
constexpr int ERR_RECORD_VERSION = 100;
constexpr int ERR_APPLICATION_DATA_PARSE = 101;
constexpr int ERR_RECORD_TYPE = 110;
constexpr int ERR_HANDSHAKE_PARSE = 111;
constexpr int ERR_ALERT_PARSE = 120;
constexpr int ERR_PLAIN_PARSE = 130;

// Secure manager.
constexpr int ERR_UNKNOWN_HANDSHAKE = 148;

// Socket client.
constexpr int ERR_SOCKET_RECV = 150;
constexpr int ERR_SOCKET_CALLOC = 151;
constexpr int ERR_SOCKET_SEND = 152;
constexpr int ERR_SOCKET_RESOLVE = 154;
constexpr int ERR_SOCKET_CONNECT = 155;

// Secure tunnel.
constexpr int ERR_ALERT_FROM_SERVER = 180;

// Roaming message.
constexpr int ERR_ROAMING_NULL = 190;
constexpr int ERR_ROAMING_LENGTH = 191;

// Base64 through the facade.
constexpr int ERR_BASE64_DECODE = 9903;
constexpr int ERR_BASE64_ENCODE = 9904;
