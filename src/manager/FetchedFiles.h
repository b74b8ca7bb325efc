#pragma once

#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/// The files that a fetch leaves in the program's folder, under the names that they bear on the
/// vendor's server.
struct FetchedFiles
{
    static constexpr std::string_view kVersionListName = "version.ini";
    static constexpr std::string_view kManufacturerListName = "manufver.ini";
    static constexpr std::string_view kTestVersionListName = "testversion.ini";
    static constexpr std::string_view kTestManufacturerListName = "testmanufver.ini";

    /// @a programFolder is the running executable's folder; a missing last "\" is added.
    explicit FetchedFiles(std::string programFolder);

    std::string programFolder; ///< Ends in "\".
    std::string versionList;   ///< Full path.
    std::string manufacturerList;
    std::string lock; ///< What a fetch holds while the files are its own (platform/SharedLock.h).

    /// True when the build points at the test lists, which must never ship.
    [[nodiscard]] static constexpr bool PointAtTestLists()
    {
        return kVersionListName == kTestVersionListName ||
               kManufacturerListName == kTestManufacturerListName;
    }

    /// Deletes both files, each only if it exists.
    void Delete(DiagnosticLog& log) const;
};

} // namespace velmo
