#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo
{

/// How many installed databases and installed picture groups need an update.
struct EquipmentCounts
{
    std::int32_t databases = 0;
    std::int32_t pictures = 0;

    [[nodiscard]] bool Any() const { return databases + pictures > 0; }
};

/// One program's versions as the update dialog tells them.
struct UpdateNotice
{
    std::int32_t index = 0; ///< Row in the catalogue.
    std::string program;    ///< Display name.
    std::string installedVersion;
    std::string latestVersion;
};

/// What a start-up run comes to.
enum class StartupOutcome
{
    Nothing,  ///< The program ends and nobody notices.
    Question, ///< Whether the person wants to see the list of updates.
    Dialog,   ///< The update dialog of the calling program.
};

/// What a start-up run found out for its caller. A plain value.
struct StartupFindings
{
    bool programNeedsUpdate = false;
    std::string installedVersion;
    std::string latestVersion;
    EquipmentCounts equipment;

    [[nodiscard]] StartupOutcome Outcome() const;
};

inline constexpr std::string_view kStartupQuestionTitle = "View Available Updates?";

/// The question that the findings lead to, for a caller of that display name; empty when they lead to
/// none.
[[nodiscard]] std::string StartupQuestion(const StartupFindings& findings, std::string_view caller);

} // namespace velmo
