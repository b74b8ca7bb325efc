#pragma once

#include "platform/Result.h"

#include <chrono>
#include <optional>
#include <string>

namespace velmo
{

enum class FetchStage
{
    NotYet,
    Waiting, ///< For another update manager's fetch on this desktop.
    Running,
    Canceling,
    Done,
    Failed,
    Canceled,
};

/// What the program's tables and counts rest on: how the last fetch of the vendor's lists goes or went.
/// A plain value.
struct FetchReport
{
    FetchStage stage = FetchStage::NotYet;
    std::chrono::system_clock::time_point when{}; ///< Of Done.
    Error reason{};                               ///< Of Failed.
    std::optional<Error> equipmentFailure{};      ///< Of Done: why there is no equipment list.

    [[nodiscard]] bool Succeeded() const { return stage == FetchStage::Done; }
};

/// The report as a status bar has it, e.g. "Checked 11/23/2026 8:06 AM". Not beside other threads that
/// use the C library's calendar.
[[nodiscard]] std::string StatusBarText(const FetchReport& report);

} // namespace velmo
