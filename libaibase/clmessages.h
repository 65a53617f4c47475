// Trace texts of the protocol layer: the Class::Method tags and the labels
// its failures are recorded under. Every file of the layer refers to these
// names; the texts reach applications through the detail text, so each is
// kept byte for byte.
#pragma once

namespace cl_text {

// Records.
inline constexpr char kAlertParseMethod[] = "CLAlert::ParseAlert";
inline constexpr char kAlertWhat[] = "Alert Message";
inline constexpr char kApplicationDataParseMethod[] = "CLApplicationData::ParseApplicationData";
inline constexpr char kApplicationDataWhat[] = "Application Data Message";
inline constexpr char kHandshakeParseMethod[] = "CLHandshake::ParseHandshake";
inline constexpr char kHandshakeWhat[] = "Secure Message";
inline constexpr char kPlainParseMethod[] = "CLPlain::ParsePlain";
inline constexpr char kPlainWhat[] = "Plain Message";

// Roaming message (both forms report under the short form's tag).
inline constexpr char kRoamingParseMethod[] = "CLRoamingMessage::ParseRoamingMessage";
inline constexpr char kRoamingNull[] = "RoamingMessage is NULL.";

// Secure manager: its method, then the record call that failed.
inline constexpr char kManagerMakePlainMethod[] = "CLSecureManager::MakePlainData";
inline constexpr char kManagerMakePlainWhat[] = "plain.MakePlain";
inline constexpr char kManagerParsePlainMethod[] = "CLSecureManager::ParsePlain";
inline constexpr char kManagerParsePlainWhat[] = "plain.ParsePlain";
inline constexpr char kManagerMakeAlertMethod[] = "CLSecureManager::MakeAlert";
inline constexpr char kManagerMakeAlertWhat[] = "alert.MakeAlert";
inline constexpr char kManagerParseAlertMethod[] = "CLSecureManager::ParseAlert";
inline constexpr char kManagerParseAlertWhat[] = "alert.ParseAlert";

}  // namespace cl_text
