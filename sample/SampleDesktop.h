#pragma once

#include "platform/Result.h"
#include "sample/ProductVersion.h"
#include "updates/ProgramVersion.h"

#include <array>
#include <string>
#include <string_view>

/**
    A sample desktop: the vendor's common folder with some equipment databases and pictures, and some
    of its programs, installed as far as anybody who looks can tell. On Windows it uses the machine's own shared stores.
 */
namespace velmo::sample
{

/// Where a program's folder is recorded.
enum class FolderRecord
{
    WinIni,
    UserSettings,
    Both,   ///< In both; the user's settings name a folder that is gone.
    Derived ///< Nowhere: it is the common folder.
};

/// One installed program and what the program list says of it.
struct InstalledProgram
{
    std::string_view name; ///< As the catalogue displays it.
    std::string_view folder;
    ProgramVersion version; ///< Installed; the latest ones are in site/pub/demo/version.ini.
    FolderRecord record;
    std::string_view startupCheck; ///< "Ask", "Yes", "No" or "-".
    std::string_view needsUpdate;  ///< "Yes", "No" or "?".
    bool statesFileVersion = true; ///< False: its text "FileVersion" is empty, the numbers count.
    bool is64Bit = false;
};

// clang-format off
inline constexpr std::array<InstalledProgram, 14> kInstalledPrograms{{
    {"Airflow 3",        "Airflow",        {3, 10, 1207},  FolderRecord::Both,         "No",  "No"},
    {"Chillersize 5",    "Chillersize 5",  {5, 1, 8},      FolderRecord::UserSettings, "Yes", "No"},
    // A major number above the listed one, as a trial version has it.
    {"Ductsize 6",       "Ductsize",       {7, 0, 2},      FolderRecord::WinIni,       "-",   "Yes"},
    {"Loadcalc 8",       "Loadcalc",       {8, 2, 15},     FolderRecord::WinIni,       "Ask", "Yes", true, true},
    {"Loopfield 3",      "Loopfield",      {3, 1, 9},      FolderRecord::UserSettings, "-",   "Yes"},
    // A minor number above the listed one.
    {"Lumenplan 5",      "Lumenplan",      {5, 3, 0},      FolderRecord::WinIni,       "No",  "No"},
    // The version list does not know it.
    {"Manifold 4",       "Manifold",       {4, 0, 18},     FolderRecord::WinIni,       "-",   "?"},
    // Listed without a revision.
    {"Noisecheck 2",     "Noisecheck",     {2, 5, 3},      FolderRecord::WinIni,       "-",   "No"},
    {"Outletplan 4",     "Outletplan",     {4, 1, 22},     FolderRecord::WinIni,       "-",   "No", false},
    {"Panelplan 6",      "Panelplan",      {6, 3, 11},     FolderRecord::UserSettings, "Yes", "Yes"},
    {"Psychrochart 7",   "Psychrochart",   {7, 0, 45},     FolderRecord::WinIni,       "Ask", "No", true, true},
    // A major number below the listed one.
    {"Rooftop 4",        "Rooftop",        {3, 9, 41},     FolderRecord::WinIni,       "Yes", "Yes"},
    {"Wiring 2",         "Wiring",         {2, 11, 36},    FolderRecord::UserSettings, "-",   "No"},
    {"Update Manager 1", "Common",         kProductVersion, FolderRecord::Derived,     "-",   "No", true, true},
}};
// clang-format on

struct SampleDesktopChoices
{
    std::string root = "C:\\Velmo\\"; ///< The vendor's folder, ending in "\".
    std::string server;    ///< For the policy "WebServer"; empty: the policy stays as it is.
    bool equipment = true; ///< With equipment databases and pictures.
};

/// The common folder of a sample desktop, ending in "\": the settings file is in it, and it is where
/// equipment databases belong.
[[nodiscard]] std::string SampleCommonFolder(const SampleDesktopChoices& choices);

/// Lays the desktop out; what is there already is laid out anew. The first step that failed is the
/// error, the others are done all the same.
Result<Done> LayOutSampleDesktop(const SampleDesktopChoices& choices);

} // namespace velmo::sample
