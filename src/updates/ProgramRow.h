#pragma once

#include "updates/ProgramVersion.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

class CVelmoProgramCommunicator;
class SharedValues;

/// What the two versions of a program say about updating it.
enum class UpdateStatus
{
    Unknown, ///< The version list has no version of it.
    UpToDate,
    NeedsUpdate,
    TryDemo,          ///< Not installed.
    TryDemoOfUnknown, ///< Whether it is installed cannot be found out.
};

/// Columns of the program list, numbered from 1.
enum class ProgramColumn : std::size_t
{
    Program = 1,
    CheckOnStartup,
    InstalledVersion,
    LatestVersion,
    NeedToUpdate,
};

/// What is known of one program of the catalogue. All decisions are taken from here; the texts that
/// people see are made by CellText() alone, and never read back. A plain value.
struct ProgramRow
{
    std::int32_t index = 0; ///< Row in the catalogue.
    ProgramVersion installed{};
    ProgramVersion latest{};
    std::optional<std::int32_t> startupOption{}; ///< None: it never started the update manager.
    std::string demoAddress{};                   ///< As the version list gives it; may be empty.

    /// Display name.
    [[nodiscard]] std::string Name() const;
    [[nodiscard]] UpdateStatus Status() const;
    [[nodiscard]] bool IsInstalled() const { return installed.majorNumber != 0; }
    [[nodiscard]] bool NeedsUpdate() const { return Status() == UpdateStatus::NeedsUpdate; }
};

/// The version that the locator finds of a program of the catalogue; zeros for none.
[[nodiscard]] ProgramVersion LocatedVersion(CVelmoProgramCommunicator& locator, std::int32_t index,
                                            const SharedValues& stores);

/// The one text that a row's cell has, wherever it is shown.
[[nodiscard]] std::string CellText(const ProgramRow& row, ProgramColumn column);

/// A message box's text and title.
struct StatusNotice
{
    std::string text;
    std::string title;
};

/// What a program is told that was named on the command line: that it needs an update, is up to date,
/// or that its status is not known.
[[nodiscard]] StatusNotice StatusNoticeOf(const ProgramRow& program);

} // namespace velmo
