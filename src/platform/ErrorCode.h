#pragma once

#include <cstdint>

/**
    Every number that an Error of this program's own making bears, under one name each. They are
    Windows' numbers on both systems, so that a log reads the same whoever wrote it; an Error that
    Windows itself gave may bear any other.
 */
namespace velmo::error_code
{

inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kDownloadFailed = 1; ///< Without anybody knowing why.
inline constexpr std::int32_t kFileMissing = 2;
inline constexpr std::int32_t kFolderMissing = 3;
inline constexpr std::int32_t kTooManyOpenFiles = 4;
inline constexpr std::int32_t kRefused = 5;
inline constexpr std::int32_t kOutOfMemory = 8;
inline constexpr std::int32_t kBadFormat = 11;
inline constexpr std::int32_t kInvalidData = 13;
inline constexpr std::int32_t kWriteProtected = 19;
inline constexpr std::int32_t kReadFault = 30;
inline constexpr std::int32_t kGeneralFailure = 31;
inline constexpr std::int32_t kInUse = 32;
inline constexpr std::int32_t kLocked = 33;
inline constexpr std::int32_t kWrongPassword = 86;
inline constexpr std::int32_t kInvalidParameter = 87;
inline constexpr std::int32_t kDiskFull = 112;
inline constexpr std::int32_t kModuleNotFound = 126;
inline constexpr std::int32_t kProcedureNotFound = 127;
inline constexpr std::int32_t kFolderNotEmpty = 145;
inline constexpr std::int32_t kAlreadyExists = 183;
inline constexpr std::int32_t kNameTooLong = 206;
inline constexpr std::int32_t kTooLarge = 223;
inline constexpr std::int32_t kNotAFolder = 267;
inline constexpr std::int32_t kInvalidArgument = 513; ///< The program locator's own.
inline constexpr std::int32_t kDeviceFault = 1117;
inline constexpr std::int32_t kElementNotFound = 1168;
inline constexpr std::int32_t kFileDamaged = 1392;
inline constexpr std::int32_t kFileEncoded = 6002;

// The internet's.
inline constexpr std::int32_t kTimedOut = 12002;
inline constexpr std::int32_t kServerSaysWhy = 12003; ///< The description is the server's own text.
inline constexpr std::int32_t kInternetBroken = 12004;
inline constexpr std::int32_t kInvalidAddress = 12005;
inline constexpr std::int32_t kUnknownScheme = 12006;
inline constexpr std::int32_t kUnknownHost = 12007;
inline constexpr std::int32_t kCancelled = 12017;
inline constexpr std::int32_t kNotOnServer = 12028;
inline constexpr std::int32_t kCannotConnect = 12029;
inline constexpr std::int32_t kEndedTooEarly = 12030;
inline constexpr std::int32_t kReset = 12031;
inline constexpr std::int32_t kUntrustedCertificate = 12045;
inline constexpr std::int32_t kNoHttp = 12152;
inline constexpr std::int32_t kBadRedirect = 12156;
inline constexpr std::int32_t kNoSecureChannel = 12157;

} // namespace velmo::error_code
