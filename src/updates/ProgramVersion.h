#pragma once

#include <cstdint>
#include <string>

namespace velmo
{

/// A version as the vendor counts it: three numbers.
struct ProgramVersion
{
    std::int32_t majorNumber = 0; ///< 0 = not installed, or not in the list.
    std::int32_t minorNumber = 0;
    std::int32_t revision = 0; ///< -1 in a list = the version has no revision part.

    friend bool operator==(const ProgramVersion&, const ProgramVersion&) = default;
};

/// True when @a installed needs no update. A different major number, higher or lower, always needs
/// one; a higher minor number or revision does not. Pure.
[[nodiscard]] bool IsUpToDate(const ProgramVersion& installed, const ProgramVersion& latest);

/// "8.02.15": the minor number with at least two digits, the revision as it is.
[[nodiscard]] std::string InstalledVersionText(const ProgramVersion& version);

/// As InstalledVersionText(), "8.02" for a version without revision, "?" when there is none.
[[nodiscard]] std::string LatestVersionText(const ProgramVersion& version);

} // namespace velmo
