#pragma once

#include "updates/ProgramVersion.h"

#include <string>
#include <string_view>

namespace velmo
{

/// What the program says of itself.
struct ProgramInformation
{
    std::string title;
    std::string version; ///< As it was written: "1.04.0012".
    std::string description;
    std::string copyright;
};

/// From the running executable's version resource; from the build's own texts where it has none, as
/// in the native build.
[[nodiscard]] ProgramInformation OwnInformation();

/// The numbers of a written version; a missing or unreadable one counts as 0.
[[nodiscard]] ProgramVersion VersionNumbers(std::string_view version);

/// "Version 1.04.12" of "1.04.0012": the minor number with at least two digits, the revision without
/// padding.
[[nodiscard]] std::string VersionLabel(std::string_view version);

} // namespace velmo
