#pragma once

#include "updates/ProgramVersion.h"

namespace velmo
{

/// What the program says of itself: in its about box, and in its version resource, which is made of
/// the same texts. The build's own are in BuildInformation.h.
struct ProgramInformation
{
    const char* title;
    const char* versionText; ///< As it is written: "1.04.0012".
    ProgramVersion version;
    const char* description;
    const char* copyright;
};

} // namespace velmo
