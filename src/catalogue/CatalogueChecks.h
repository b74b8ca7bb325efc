#pragma once

#include "catalogue/ProgramCatalogue.h"
#include "catalogue/ProgramTable.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

/// What must hold of the program table, checked while it is compiled: the name of the first fault
/// stands in the compiler's message.
namespace velmo
{

enum class CatalogueFault
{
    None,
    IndexIsNotPosition,
    NameWithoutMajorVersion,
    NameTwice,
    LocatorNumberTwiceOrOutOfRange,
    CountOfRowsWithoutLocatorNumber,
    PageNotInAProductArea,
    InformationPageSharedByOtherRows,
    UpdatePageShared,
    RowsWithoutUpdatePage,
    DemoSetupPath,
    OwnRow,
    RowsThatNotifyOfEquipment,
};

namespace catalogue_checks
{

using Rows = std::span<const ProgramEntry>;

inline constexpr std::array kWithoutLocatorNumber{9,  12, 16, 17, 18, 19, 20,
                                                  22, 23, 28, 29, 32, 33};
inline constexpr std::array kWithoutUpdatePage{7, 9, 16, 17, 18, 20, 28, 31, 32};
inline constexpr std::array kNotifying{0, 1, 2, 25, 27};
inline constexpr std::array<std::array<int, 2>, 3> kSharedInformationPages{
    {{1, 2}, {14, 15}, {19, 22}}};

template <std::size_t n>
constexpr bool In(const std::array<int, n>& list, std::int32_t index)
{
    return std::find(list.begin(), list.end(), index) != list.end();
}

constexpr bool IsName(std::string_view name)
{
    const std::size_t blank = name.rfind(' ');
    if (blank == std::string_view::npos || blank == 0 || name[blank - 1] == ' ' ||
        blank + 1 == name.size())
    {
        return false;
    }
    const std::string_view version = name.substr(blank + 1);
    return std::all_of(version.begin(), version.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Whether a file lies in that folder itself.
constexpr bool LiesIn(std::string_view folder, std::string_view path)
{
    return path.starts_with(folder) && path.rfind('/') + 1 == folder.size();
}

constexpr bool IsPage(std::string_view path)
{
    for (const std::string_view area : {"/web/hvacr/", "/web/electrical/", "/web/plumbing/"})
    {
        if (LiesIn(area, path))
        {
            return path.ends_with(".html") || path.ends_with(".htm");
        }
    }
    return path.empty();
}

constexpr bool IsDemoSetup(const ProgramEntry& row)
{
    const bool apart = row.index == kRowOnSecondDemoServer;
    return LiesIn(apart ? "/pub/" : "/pub/demo/", row.demoSetup) && row.demoSetup.ends_with(".exe");
}

constexpr bool MayShareInformationPage(std::int32_t a, std::int32_t b)
{
    return std::any_of(kSharedInformationPages.begin(), kSharedInformationPages.end(),
                       [=](const auto& pair) { return pair[0] == a && pair[1] == b; });
}

constexpr CatalogueFault FaultOfPair(const ProgramEntry& a, const ProgramEntry& b)
{
    if (a.displayName == b.displayName)
    {
        return CatalogueFault::NameTwice;
    }
    if (a.locatorNumber != kNoLocatorNumber && a.locatorNumber == b.locatorNumber)
    {
        return CatalogueFault::LocatorNumberTwiceOrOutOfRange;
    }
    if (!a.informationPage.empty() &&
        (a.informationPage == b.informationPage) != MayShareInformationPage(a.index, b.index))
    {
        return CatalogueFault::InformationPageSharedByOtherRows;
    }
    if (!a.updatePage.empty() && a.updatePage == b.updatePage)
    {
        return CatalogueFault::UpdatePageShared;
    }
    return CatalogueFault::None;
}

constexpr CatalogueFault FaultOfRow(const ProgramEntry& row)
{
    if (!IsName(row.displayName))
    {
        return CatalogueFault::NameWithoutMajorVersion;
    }
    if ((row.locatorNumber == kNoLocatorNumber) != In(kWithoutLocatorNumber, row.index))
    {
        return CatalogueFault::CountOfRowsWithoutLocatorNumber;
    }
    if (row.locatorNumber != kNoLocatorNumber && (row.locatorNumber < 1 || row.locatorNumber > 31))
    {
        return CatalogueFault::LocatorNumberTwiceOrOutOfRange;
    }
    if (!IsPage(row.informationPage) || !IsPage(row.updatePage))
    {
        return CatalogueFault::PageNotInAProductArea;
    }
    if (row.updatePage.empty() != In(kWithoutUpdatePage, row.index))
    {
        return CatalogueFault::RowsWithoutUpdatePage;
    }
    if (!IsDemoSetup(row))
    {
        return CatalogueFault::DemoSetupPath;
    }
    if (row.notifiesOfEquipment != In(kNotifying, row.index))
    {
        return CatalogueFault::RowsThatNotifyOfEquipment;
    }
    return CatalogueFault::None;
}

constexpr bool IsOwnRowRight(const ProgramEntry& row)
{
    return row.displayName == "Update Manager 1" && row.locatorNumber == 31 &&
           row.demoSetup == "/pub/demo/update_manager_setup.exe";
}

} // namespace catalogue_checks

/// The first thing that is wrong with a table of programs.
constexpr CatalogueFault FirstFault(catalogue_checks::Rows rows)
{
    using namespace catalogue_checks;
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        if (rows[i].index != static_cast<std::int32_t>(i))
        {
            return CatalogueFault::IndexIsNotPosition;
        }
        if (const CatalogueFault fault = FaultOfRow(rows[i]); fault != CatalogueFault::None)
        {
            return fault;
        }
        if (rows[i].informationPage.empty() != (rows[i].index == kOwnRow))
        {
            return CatalogueFault::OwnRow;
        }
        for (std::size_t k = i + 1; k < rows.size(); ++k)
        {
            if (const auto fault = FaultOfPair(rows[i], rows[k]); fault != CatalogueFault::None)
            {
                return fault;
            }
        }
    }
    return IsOwnRowRight(rows[kOwnRow]) ? CatalogueFault::None : CatalogueFault::OwnRow;
}

} // namespace velmo
