#pragma once

#include "updates/ProgramVersion.h"

#include <string>
#include <string_view>

namespace velmo::sample
{

/// A version as the vendor writes it in full: "8.03.0004"; "2.05" when the revision is below 0. Pure.
[[nodiscard]] std::string FullVersionText(const ProgramVersion& version);

/// What the version resource of a sample program says. Texts are ASCII.
struct SampleImage
{
    std::string_view description;
    std::string_view product;
    std::string_view fileName;
    ProgramVersion version;        ///< With a revision.
    bool statesFileVersion = true; ///< False: the text "FileVersion" is there but empty.
    bool is64Bit = true;
};

/// An executable that does nothing and carries that version resource. Pure; any thread.
[[nodiscard]] std::string WriteSampleImage(const SampleImage& image);

} // namespace velmo::sample
