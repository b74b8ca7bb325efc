#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace velmo
{

/// The locator number of a program that cannot be located on this computer.
inline constexpr std::int32_t kNoLocatorNumber = -1;

/// What sets a program apart from the others.
enum class ProgramKind
{
    Ordinary,
    DemoOnSecondServer, ///< Its demo setup lies on the second demo server.
    Unlisted,           ///< A previous generation that the program list never shows.
    UpdateManager,      ///< The update manager's own row; one row bears it.
};

/// One row: paths are paths on the vendor's web server.
struct ProgramEntry
{
    std::int32_t index;               ///< The row's place: options and command lines go by it.
    std::string_view displayName;     ///< Name, one blank, major version.
    std::int32_t locatorNumber;       ///< Row in LocatorTable.h, or kNoLocatorNumber.
    std::string_view informationPage; ///< May be empty, as the update manager's own.
    std::string_view updatePage;      ///< Empty when the program has none.
    std::string_view demoSetup;       ///< Never empty.
    bool notifiesOfEquipment;         ///< Default of its option to check equipment at start-up.
    ProgramKind kind = ProgramKind::Ordinary;
};

/**
    The vendor's product list: this is the table to edit for a new program or page. A new row is all
    that a new program needs, and one in LocatorTable.h when it can be located. Columns: index,
    display name, locator number, information page, update page, demo setup, notifies of equipment,
    kind. What CatalogueChecks.h finds wrong with a row does not compile.
 */
inline constexpr auto kPrograms = [] {
    constexpr std::int32_t kNone = kNoLocatorNumber;
    // clang-format off
    return std::to_array<ProgramEntry>({
    {0, "Airflow 3", 1, "/web/hvacr/airflow_info.html",
     "/web/hvacr/airflow3_ver.html", "/pub/demo/aflow30.exe", true},
    {1, "Chillersize 4", 2, "/web/hvacr/chillersize_info.html",
     "/web/hvacr/chillersize4_ver.html", "/pub/chlsz40.exe", true,
     ProgramKind::DemoOnSecondServer},
    {2, "Chillersize 5", 5, "/web/hvacr/chillersize_info.html",
     "/web/hvacr/chillersize5_ver.html", "/pub/demo/chlsz50.exe", true},
    {3, "Ductsize 6", 8, "/web/hvacr/ductsize_info.html",
     "/web/hvacr/ductsize6_ver.html", "/pub/demo/ducsetup.exe", false},
    {4, "Loadcalc 8", 12, "/web/hvacr/loadcalc_info.html",
     "/web/hvacr/loadcalc8_ver.html", "/pub/demo/lc8setup.exe", false},
    {5, "Loopfield 3", 9, "/web/hvacr/loopfield_info.html",
     "/web/hvacr/loopfield3_ver.html", "/pub/demo/loopfd30.exe", false},
    {6, "Lumenplan 5", 22, "/web/electrical/lumenplan_info.html",
     "/web/electrical/lumenplan5_ver.html", "/pub/demo/lumsetup.exe", false},
    {7, "Mainsplan 2", 23, "/web/electrical/mainsplan_info.html",
     "", "/pub/demo/mains20.exe", false},
    {8, "Manifold 4", 16, "/web/plumbing/manifold_info.html",
     "/web/plumbing/manifold4_ver.html", "/pub/demo/manif40.exe", false},
    {9, "Meterbank 1", kNone, "/web/electrical/meterbank_info.html",
     "", "/pub/demo/metbnk10.exe", false},
    {10, "Motorstart 3", 24, "/web/electrical/motorstart_info.html",
     "/web/electrical/motorstart3_ver.html", "/pub/demo/motst30.exe", false},
    {11, "Noisecheck 2", 10, "/web/hvacr/noisecheck_info.html",
     "/web/hvacr/noisecheck2_ver.html", "/pub/demo/noise20.exe", false},
    {12, "Oilfire 1", kNone, "/web/hvacr/oilfire_info.html",
     "/web/hvacr/oilfire1_ver.html", "/pub/demo/oilfir10.exe", false},
    {13, "Outletplan 4", 25, "/web/electrical/outletplan_info.html",
     "/web/electrical/outletplan4_ver.html", "/pub/demo/outpl40.exe", false},
    {14, "Panelplan 6", 20, "/web/electrical/panelplan_info.html",
     "/web/electrical/panelplan6_ver.html", "/pub/demo/panel60.exe", false},
    {15, "Panelplan 5", 21, "/web/electrical/panelplan_info.html",
     "/web/electrical/panelplan5_ver.html", "/pub/demo/panel50.exe", false,
     ProgramKind::Unlisted},
    {16, "Parkvent 2", kNone, "/web/hvacr/parkvent_info.html",
     "", "/pub/demo/parkv20.exe", false},
    {17, "Phasebalance 1", kNone, "/web/electrical/phasebalance_info.html",
     "", "/pub/demo/phase10.exe", false},
    {18, "Pipebend 2", kNone, "/web/plumbing/pipebend_info.html",
     "", "/pub/demo/pbend20.exe", false},
    {19, "Pipehanger 1", kNone, "/web/plumbing/pipesupport_info.html",
     "/web/plumbing/pipehanger1_ver.html", "/pub/demo/phang10.exe", false},
    {20, "Pipesize 3", kNone, "/web/plumbing/pipesize.htm",
     "", "/pub/demo/pipesz30.exe", false},
    {21, "Psychrochart 7", 7, "/web/hvacr/psychrochart_info.html",
     "/web/hvacr/psychrochart7_ver.html", "/pub/demo/psysetup.exe", false},
    {22, "Pipesleeve 1", kNone, "/web/plumbing/pipesupport_info.html",
     "/web/plumbing/pipesleeve1_ver.html", "/pub/demo/pslev10.exe", false},
    {23, "Radiantfloor 2", kNone, "/web/hvacr/radiantfloor_info.html",
     "/web/hvacr/radiantfloor2_ver.html", "/pub/demo/radfl20.exe", false},
    {24, "Refrigline 3", 11, "/web/hvacr/refrigline_info.html",
     "/web/hvacr/refrigline3_ver.html", "/pub/demo/refln30.exe", false},
    {25, "Rooftop 4", 14, "/web/hvacr/rooftop_info.html",
     "/web/hvacr/rooftop4_ver.html", "/pub/demo/roofsetup.exe", true},
    {26, "Wiring 2", 26, "/web/electrical/wiring_info.html",
     "/web/electrical/wiring_ver.html", "/pub/demo/wirsetup.exe", false},
    {27, "Splitpair 2", 17, "/web/hvacr/splitpair_info.html",
     "/web/hvacr/splitpair2_ver.html", "/pub/demo/split20.exe", true},
    {28, "Sprinkler 3", kNone, "/web/plumbing/sprinkler_info.html",
     "", "/pub/demo/sprnk30.exe", false},
    {29, "Stackvent 1", kNone, "/web/plumbing/stackvent_info.html",
     "/web/plumbing/stackvent1_ver.html", "/pub/demo/stack10.exe", false},
    {30, "Tanksize 2", 18, "/web/plumbing/tanksize_info.html",
     "/web/plumbing/tanksize2_ver.html", "/pub/demo/tanksz20.exe", false},
    {31, "Update Manager 1", 31, "",
     "", "/pub/demo/update_manager_setup.exe", false,
     ProgramKind::UpdateManager},
    {32, "Voltdrop 2", kNone, "/web/electrical/voltdrop_info.html",
     "", "/pub/demo/voltd20.exe", false},
    {33, "Wastepipe 3", kNone, "/web/plumbing/wastepipe_info.html",
     "/web/plumbing/wastepipe3_ver.html", "/pub/demo/waste30.exe", false},
    });
    // clang-format on
}();

inline constexpr auto kProgramCount = static_cast<std::int32_t>(kPrograms.size());

/// The update manager's own row.
inline constexpr std::int32_t kOwnRow =
    std::ranges::find(kPrograms, ProgramKind::UpdateManager, &ProgramEntry::kind)->index;

} // namespace velmo
