#pragma once

#include "catalogue/LocatorTable.h"
#include "catalogue/ProgramTable.h"
#include "text/TextCase.h"

#include <algorithm>
#include <span>
#include <string_view>

/// What must hold between the rows of the two tables, checked while they are compiled: row and fault
/// stand in the compiler's message. Any new check must pass for a table of today and one row more.
namespace velmo
{

enum class CatalogueFault
{
    None,
    IndexIsNotPosition,
    NameWithoutMajorVersion,
    NameTwice,
    LocatorNumberTwice,
    LocatorNumberWithoutExecutable,
    LocatedUnderAnotherName,
    PageNotInAProductArea,
    UpdatePageShared,
    DemoSetupPath,
    UpdateManagerTwice,
    FolderNotNamed,
    IniFileWithoutExecutable,
};

struct FaultyRow
{
    std::int32_t index = -1;
    CatalogueFault fault = CatalogueFault::None;

    friend constexpr bool operator==(const FaultyRow&, const FaultyRow&) = default;
};

namespace catalogue_checks
{

constexpr std::string_view WordOf(std::string_view displayName)
{
    return displayName.substr(0, displayName.rfind(' '));
}

constexpr std::string_view MajorOf(std::string_view displayName)
{
    return displayName.substr(displayName.rfind(' ') + 1);
}

constexpr bool IsName(std::string_view name)
{
    const std::size_t blank = name.rfind(' ');
    return blank != std::string_view::npos && blank != 0 && name[blank - 1] != ' ' &&
           blank + 1 != name.size() && std::ranges::all_of(MajorOf(name), IsDigit);
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

/// Executable and folder must be the program's: they begin with its word, and a generation's number
/// in the executable's name is the program's. Two generations may share a folder, so nothing else
/// would tell that their numbers were swapped.
constexpr bool BearsItsName(const LocatorEntry& entry, std::string_view displayName)
{
    const std::string_view word = WordOf(displayName);
    if (!entry.folderName.starts_with(word) || !entry.executable.starts_with(word))
    {
        return false;
    }
    std::string_view generation = entry.executable.substr(word.size());
    generation = generation.substr(0, generation.find('.'));
    return !std::ranges::all_of(generation, IsDigit) || generation.empty() ||
           generation == MajorOf(displayName);
}

constexpr CatalogueFault FaultOfLocation(const ProgramEntry& row,
                                         std::span<const LocatorEntry> locator)
{
    if (row.locatorNumber == kNoLocatorNumber)
    {
        return CatalogueFault::None;
    }
    const auto entry = std::ranges::find(locator, row.locatorNumber, &LocatorEntry::number);
    if (entry == locator.end() || entry->executable.empty())
    {
        return CatalogueFault::LocatorNumberWithoutExecutable;
    }
    if (row.kind != ProgramKind::UpdateManager && !BearsItsName(*entry, row.displayName))
    {
        return CatalogueFault::LocatedUnderAnotherName;
    }
    return CatalogueFault::None;
}

constexpr CatalogueFault FaultOfRow(const ProgramEntry& row)
{
    if (!IsName(row.displayName))
    {
        return CatalogueFault::NameWithoutMajorVersion;
    }
    if (!IsPage(row.informationPage) || !IsPage(row.updatePage))
    {
        return CatalogueFault::PageNotInAProductArea;
    }
    const bool apart = row.kind == ProgramKind::DemoOnSecondServer;
    if (!LiesIn(apart ? "/pub/" : "/pub/demo/", row.demoSetup) || !row.demoSetup.ends_with(".exe"))
    {
        return CatalogueFault::DemoSetupPath;
    }
    return CatalogueFault::None;
}

constexpr CatalogueFault FaultOfPair(const ProgramEntry& a, const ProgramEntry& b)
{
    if (a.displayName == b.displayName)
    {
        return CatalogueFault::NameTwice;
    }
    if (a.locatorNumber != kNoLocatorNumber && a.locatorNumber == b.locatorNumber)
    {
        return CatalogueFault::LocatorNumberTwice;
    }
    if (!a.updatePage.empty() && a.updatePage == b.updatePage)
    {
        return CatalogueFault::UpdatePageShared;
    }
    if (a.kind == ProgramKind::UpdateManager && b.kind == a.kind)
    {
        return CatalogueFault::UpdateManagerTwice;
    }
    return CatalogueFault::None;
}

constexpr CatalogueFault FaultOfEntry(const LocatorEntry& entry)
{
    const bool mayBeEmpty =
        entry.folderKind == FolderKind::None || entry.folderKind == FolderKind::BelowCommon;
    if (entry.folderName.empty() && !mayBeEmpty)
    {
        return CatalogueFault::FolderNotNamed;
    }
    if ((entry.executable.empty() && !entry.iniFile.empty()) ||
        (entry.iniFile.empty() && !entry.previousIniFile.empty()))
    {
        return CatalogueFault::IniFileWithoutExecutable;
    }
    return CatalogueFault::None;
}

} // namespace catalogue_checks

/// The first row with something wrong, and what that is.
constexpr FaultyRow FirstFault(std::span<const ProgramEntry> rows,
                               std::span<const LocatorEntry> locator)
{
    using namespace catalogue_checks;
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        const ProgramEntry& row = rows[i];
        const auto place = static_cast<std::int32_t>(i);
        CatalogueFault fault = FaultOfRow(row);
        for (std::size_t k = 0; k < i && fault == CatalogueFault::None; ++k)
        {
            fault = FaultOfPair(row, rows[k]);
        }
        if (fault == CatalogueFault::None)
        {
            fault = FaultOfLocation(row, locator);
        }
        if (row.index != place)
        {
            fault = CatalogueFault::IndexIsNotPosition;
        }
        if (fault != CatalogueFault::None)
        {
            return {place, fault};
        }
    }
    return {};
}

/// The first number of the locator with something wrong, and what that is.
constexpr FaultyRow FirstFault(std::span<const LocatorEntry> locator)
{
    for (std::size_t i = 0; i < locator.size(); ++i)
    {
        const auto place = static_cast<std::int32_t>(i);
        if (locator[i].number != place)
        {
            return {place, CatalogueFault::IndexIsNotPosition};
        }
        const CatalogueFault fault = catalogue_checks::FaultOfEntry(locator[i]);
        if (fault != CatalogueFault::None)
        {
            return {place, fault};
        }
    }
    return {};
}

/// Its arguments are what the compiler's message shows.
template <std::int32_t row, CatalogueFault fault>
struct RowOfProgramTable
{
    static_assert(fault == CatalogueFault::None, "ProgramTable.h: this row has this fault");
};

template <std::int32_t number, CatalogueFault fault>
struct RowOfLocatorTable
{
    static_assert(fault == CatalogueFault::None, "LocatorTable.h: this number has this fault");
};

} // namespace velmo
