#pragma once

#include "catalogue/ProgramTable.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

/// What the locator knows of each catalogue number: edited together with ProgramTable.h.
namespace velmo
{

struct LocatorEntry
{
    std::int32_t number;
    std::string_view folderValueName; ///< In both shared stores; empty when the number has none.
    std::string_view executable;      ///< Empty when the number has none.
    std::string_view iniFile;         ///< The program's settings file; empty when it has none.
    std::string_view previousIniFile; ///< The previous generation's, for two products.
};

inline constexpr std::int32_t kLocatorCount = 32;

/// Numbers that mean something of their own.
namespace locator_number
{
inline constexpr std::int32_t kCommonFolder = 0;
inline constexpr std::int32_t kLaunchable = 7; ///< The one program that the window can start.
inline constexpr std::int32_t kDefaultManufacturer = 13; ///< A name, no folder.
inline constexpr std::int32_t kCommonFolderAgain = 19;
inline constexpr std::int32_t kDocument = 28;        ///< Below the common folder.
inline constexpr std::int32_t kCatalog = 29;         ///< A control library, no program.
inline constexpr std::int32_t kBillOfMaterials = 30; ///< Below the common folder.
inline constexpr std::int32_t kUpdateManager = 31;   ///< In the common folder.
} // namespace locator_number

// clang-format off
inline constexpr std::array<LocatorEntry, kLocatorCount> kLocatorTable{{
    {0,  "CommonDirectory",       "",                  "",                  ""},
    {1,  "AirflowDirectory",      "Airflow3.exe",      "Airflow3.ini",      ""},
    {2,  "ChillersizeDirectory",  "Chillersize4.exe",  "Chillersize4.ini",  ""},
    {3,  "LoadcalcDirectory",     "Loadcalc7.exe",     "Loadcalc7.ini",     ""},
    {4,  "DrawingDirectory",      "",                  "",                  ""},
    {5,  "Chillersize5Directory", "Chillersize5.exe",  "Chillersize5.ini",  ""},
    {6,  "TemplateDirectory",     "",                  "",                  ""},
    {7,  "PsychrochartDirectory", "Psychrochartw.exe", "Psychrochartw.ini", "Psychrochart.ini"},
    {8,  "DuctsizeDirectory",     "Ductsizew.exe",     "Ductsizew.ini",     ""},
    {9,  "LoopfieldDirectory",    "Loopfield.exe",     "Loopfield.ini",     ""},
    {10, "NoisecheckDirectory",   "Noisecheck.exe",    "",                  ""},
    {11, "RefriglineDirectory",   "Refrigline.exe",    "Refrigline.ini",    ""},
    {12, "LoadcalcDirectory",     "Loadcalc8.exe",     "Loadcalcw.ini",     "Loadcalc8.ini"},
    {13, "DefaultManufacturer",   "",                  "",                  ""},
    {14, "RooftopDirectory",      "Rooftop.exe",       "Rooftop.ini",       ""},
    {15, "",                      "",                  "",                  ""},
    {16, "ManifoldDirectory",     "Manifold.exe",      "Manifold.ini",      ""},
    {17, "SplitpairDirectory",    "Splitpair.exe",     "Splitpair.ini",     ""},
    {18, "TanksizeDirectory",     "Tanksize.exe",      "",                  ""},
    {19, "CommonDirectory",       "",                  "",                  ""},
    {20, "PanelplanDirectory",    "Panelplan6.exe",    "Panelplan6.ini",    ""},
    {21, "PanelplanDirectory",    "Panelplan5.exe",    "Panelplan5.ini",    ""},
    {22, "LumenplanDirectory",    "Lumenplan.exe",     "Lumenplan.ini",     ""},
    {23, "MainsplanDirectory",    "Mainsplan.exe",     "Mainsplan.ini",     ""},
    {24, "MotorstartDirectory",   "Motorstart.exe",    "",                  ""},
    {25, "OutletplanDirectory",   "Outletplan.exe",    "Outletplan.ini",    ""},
    {26, "WiringDirectory",       "Wiring2.exe",       "Wiring2.ini",       ""},
    {27, "SpecwriterDirectory",   "Specwriter.exe",    "Specwriter.ini",    ""},
    {28, "",                      "Document.exe",      "Document.ini",      ""},
    {29, "CatalogDirectory",      "VelmoCatalog.ocx",  "",                  ""},
    {30, "",                      "Billofmat.exe",     "Billofmat.ini",     ""},
    {31, "",                      "VelmoUpd.exe",      "VelmoUpd.ini",      ""},
}};
// clang-format on

/// The launchable program's executable of the previous generation, and its window's title.
inline constexpr std::string_view kPreviousLaunchable = "Psychrochart.exe";
inline constexpr std::string_view kLaunchableTitle = "Psychrochart";

namespace locator_checks
{

constexpr bool NumbersArePositions()
{
    std::int32_t expected = 0;
    return std::all_of(kLocatorTable.begin(), kLocatorTable.end(),
                       [&](const LocatorEntry& entry) { return entry.number == expected++; });
}

/// Every program of the catalogue that can be located bears the name that the locator looks for.
constexpr bool NamesAgree()
{
    return std::all_of(kPrograms.begin(), kPrograms.end(), [](const ProgramEntry& row) {
        if (row.locatorNumber == kNoLocatorNumber || row.index == kOwnRow)
        {
            return true;
        }
        const LocatorEntry& entry = kLocatorTable[static_cast<std::size_t>(row.locatorNumber)];
        const std::string_view word = row.displayName.substr(0, row.displayName.rfind(' '));
        return entry.folderValueName.starts_with(word) && entry.executable.starts_with(word);
    });
}

constexpr bool IsOneOf(std::int32_t number, std::initializer_list<std::int32_t> list)
{
    return std::find(list.begin(), list.end(), number) != list.end();
}

constexpr bool ExecutablesAreRight()
{
    return std::all_of(kLocatorTable.begin(), kLocatorTable.end(), [](const LocatorEntry& entry) {
        return entry.executable.empty() == IsOneOf(entry.number, {0, 4, 6, 13, 15, 19});
    });
}

constexpr bool TwoProductsHaveAPreviousIniFile()
{
    return std::count_if(kLocatorTable.begin(), kLocatorTable.end(), [](const LocatorEntry& entry) {
               return !entry.previousIniFile.empty() && !entry.iniFile.empty();
           }) == 2;
}

} // namespace locator_checks

static_assert(locator_checks::NumbersArePositions());
static_assert(locator_checks::NamesAgree());
static_assert(locator_checks::ExecutablesAreRight());
static_assert(locator_checks::TwoProductsHaveAPreviousIniFile());

} // namespace velmo
