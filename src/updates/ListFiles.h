#pragma once

#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/// The vendor's two lists: their names on the server and here, and the folder they live in here.
struct ListFiles
{
    static constexpr std::string_view kVersionListName = "version.ini";
    static constexpr std::string_view kManufacturerListName = "manufver.ini";
    static constexpr std::string_view kTestVersionListName = "testversion.ini";
    static constexpr std::string_view kTestManufacturerListName = "testmanufver.ini";

    /// @a programFolder is the running executable's folder; a missing last "\" is added.
    explicit ListFiles(std::string programFolder);

    std::string programFolder; ///< Ends in "\".
    std::string versionList;   ///< Full path.
    std::string manufacturerList;

    /// Paths on the vendor's server.
    [[nodiscard]] static std::string VersionListAddressPath();
    [[nodiscard]] static std::string ManufacturerListAddressPath();

    /// True when the build points at the test lists, which must never ship.
    [[nodiscard]] static bool PointAtTestLists();

    /// Deletes both files, each only if it exists.
    void Delete(DiagnosticLog& log) const;
};

} // namespace velmo
