#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// What the locator knows of each catalogue number.
namespace velmo
{

/// How a number's folder is found.
enum class FolderKind
{
    None,
    Stored,      ///< Under its value name in both shared stores; may be written there.
    ReadOnly,    ///< Likewise, but written by others only.
    PlainName,   ///< Stored, but a manufacturer's name and no folder.
    BelowCommon, ///< Below the common folder, or that folder itself.
};

struct LocatorEntry
{
    std::int32_t number; ///< The row's place.
    FolderKind folderKind;
    std::string_view folderName;      ///< Value name in the stores; for BelowCommon the subfolder.
    std::string_view executable;      ///< Empty when the number has none.
    std::string_view iniFile;         ///< The program's settings file; empty when it has none.
    std::string_view previousIniFile; ///< The previous generation's; the newer file is read.
};

/// Value name of the vendor's common folder.
inline constexpr std::string_view kCommonFolderName = "CommonDirectory";

/// The table to edit for a program that can be located; CatalogueChecks.h checks it too.
inline constexpr auto kLocatorTable = [] {
    using enum FolderKind;
    // clang-format off
    return std::to_array<LocatorEntry>({
    {0,  Stored,      kCommonFolderName,       "",                  "",                  ""},
    {1,  Stored,      "AirflowDirectory",      "Airflow3.exe",      "Airflow3.ini",      ""},
    {2,  Stored,      "ChillersizeDirectory",  "Chillersize4.exe",  "Chillersize4.ini",  ""},
    {3,  Stored,      "LoadcalcDirectory",     "Loadcalc7.exe",     "Loadcalc7.ini",     ""},
    {4,  Stored,      "DrawingDirectory",      "",                  "",                  ""},
    {5,  Stored,      "Chillersize5Directory", "Chillersize5.exe",  "Chillersize5.ini",  ""},
    {6,  Stored,      "TemplateDirectory",     "",                  "",                  ""},
    {7,  Stored,      "PsychrochartDirectory", "Psychrochartw.exe", "Psychrochartw.ini", "Psychrochart.ini"},
    {8,  Stored,      "DuctsizeDirectory",     "Ductsizew.exe",     "Ductsizew.ini",     ""},
    {9,  Stored,      "LoopfieldDirectory",    "Loopfield.exe",     "Loopfield.ini",     ""},
    {10, Stored,      "NoisecheckDirectory",   "Noisecheck.exe",    "",                  ""},
    {11, Stored,      "RefriglineDirectory",   "Refrigline.exe",    "Refrigline.ini",    ""},
    {12, Stored,      "LoadcalcDirectory",     "Loadcalc8.exe",     "Loadcalcw.ini",     "Loadcalc8.ini"},
    {13, PlainName,   "DefaultManufacturer",   "",                  "",                  ""},
    {14, Stored,      "RooftopDirectory",      "Rooftop.exe",       "Rooftop.ini",       ""},
    {15, None,        "",                      "",                  "",                  ""},
    {16, Stored,      "ManifoldDirectory",     "Manifold.exe",      "Manifold.ini",      ""},
    {17, Stored,      "SplitpairDirectory",    "Splitpair.exe",     "Splitpair.ini",     ""},
    {18, Stored,      "TanksizeDirectory",     "Tanksize.exe",      "",                  ""},
    {19, ReadOnly,    kCommonFolderName,       "",                  "",                  ""},
    {20, Stored,      "PanelplanDirectory",    "Panelplan6.exe",    "Panelplan6.ini",    ""},
    {21, Stored,      "PanelplanDirectory",    "Panelplan5.exe",    "Panelplan5.ini",    ""},
    {22, Stored,      "LumenplanDirectory",    "Lumenplan.exe",     "Lumenplan.ini",     ""},
    {23, Stored,      "MainsplanDirectory",    "Mainsplan.exe",     "Mainsplan.ini",     ""},
    {24, Stored,      "MotorstartDirectory",   "Motorstart.exe",    "",                  ""},
    {25, Stored,      "OutletplanDirectory",   "Outletplan.exe",    "Outletplan.ini",    ""},
    {26, Stored,      "WiringDirectory",       "Wiring2.exe",       "Wiring2.ini",       ""},
    {27, Stored,      "SpecwriterDirectory",   "Specwriter.exe",    "Specwriter.ini",    ""},
    {28, BelowCommon, "Document",              "Document.exe",      "Document.ini",      ""},
    {29, ReadOnly,    "CatalogDirectory",      "VelmoCatalog.ocx",  "",                  ""},
    {30, BelowCommon, "Bill of Materials",     "Billofmat.exe",     "Billofmat.ini",     ""},
    {31, BelowCommon, "",                      "VelmoUpd.exe",      "VelmoUpd.ini",      ""},
    });
    // clang-format on
}();

inline constexpr std::int32_t kCommonFolderNumber = 0;

/// The one program that the window can start, its executable of the previous generation, and the
/// title of its window.
inline constexpr std::int32_t kLaunchableNumber = 7;
inline constexpr std::string_view kPreviousLaunchable = "Psychrochart.exe";
inline constexpr std::string_view kLaunchableTitle = "Psychrochart";

} // namespace velmo
