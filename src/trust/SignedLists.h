#pragma once

#include "platform/Result.h"
#include "trust/FileDigest.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmo
{

/// A file that the signed text vouches for.
struct SignedFile
{
    std::string path; ///< On the server, "/pub/demo/version.ini": a mirror needs no trust.
    FileDigest digest;
};

/**
    What the vendor signs: which files are the ones that it published, and until when. A value; any
    thread. Its text, whose lines may end in LF or CRLF:

        [Velmo Lists]
        Format=1
        Serial=2026112301
        Published=2026-11-23T07:59:13Z
        Expires=2027-02-21T07:59:13Z
        [Files]
        /pub/demo/version.ini=2909 sha256:1136...
 */
struct SignedLists
{
    std::uint64_t serial = 0; ///< 1 to 18 digits; each publication has a higher one.
    std::chrono::sys_seconds published;
    std::chrono::sys_seconds expires; ///< Later than published.
    std::vector<SignedFile> files;    ///< By their paths, folded to lower case.

    /// What is signed of the file at exactly this path; nullptr when nothing is.
    [[nodiscard]] const FileDigest* Find(std::string_view path) const;

    /// What is wrong with a file, to be put behind its name: ": its size differs from the signed one".
    /// Empty: it is the signed one.
    [[nodiscard]] std::string_view FaultOf(std::string_view path, const FileDigest& digest) const;
};

/// A text with more files is refused.
inline constexpr std::size_t kMostSignedFiles = 10'000;

/// Whether a text may name a file by it: an absolute path whose parts are all plain file names
/// (PlainFileName.h), in UTF-8, of at most 1,024 bytes.
[[nodiscard]] bool IsServerPath(std::string_view path);

/// Reads the text. Error 13, with the line, for anything but the form above: another format, a key or a
/// path that comes twice (in any case: a desktop stores both under one name), no files. Keys of
/// "[Velmo Lists]" that are not known are passed over, for what later formats may add.
[[nodiscard]] Result<SignedLists> ParseSignedLists(std::string_view text);

/// Writes the text, with LF. Whether it can be read again is the caller's to check.
[[nodiscard]] std::string SignedListsText(const SignedLists& lists);

} // namespace velmo
