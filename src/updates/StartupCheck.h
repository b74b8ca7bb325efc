#pragma once

#include "updates/ProgramRow.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

class CINIFileHandler;
class CVelmoProgramCommunicator;
class SettingsSnapshot;
class SharedValues;
class VersionList;

/// What the command line asks for. It is searched, never split into words: the other programs of the
/// vendor write it in more than one way.
struct StartupRequest
{
    /// Pure.
    explicit StartupRequest(std::string_view commandLine);

    std::string text;             ///< The whole command line without blanks at its ends.
    bool startupMode = false;     ///< "STARTUP" in any case: speak up only when there is an update.
    bool databasesTab = false;    ///< "Manufacturer Databases": open on the equipment tab.
    std::string caller;           ///< Display name of the program that started this; may be empty.
    std::int32_t callerIndex = 0; ///< Its row in the catalogue; 0 without a caller.

    /// Whether it names a program whose status the user waits for.
    [[nodiscard]] bool AsksForStatus() const;
};

/// How many installed databases and installed picture groups need an update.
struct EquipmentCounts
{
    std::int32_t databases = 0;
    std::int32_t pictures = 0;

    [[nodiscard]] bool Any() const { return databases + pictures > 0; }
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
    std::optional<ProgramRow> update{}; ///< The caller's row, when it needs an update.
    EquipmentCounts equipment{};

    [[nodiscard]] StartupOutcome Outcome() const;
};

inline constexpr std::string_view kStartupQuestionTitle = "View Available Updates?";

/// The question that the findings lead to, for a caller of that display name; empty when they lead to
/// none.
[[nodiscard]] std::string StartupQuestion(const StartupFindings& findings, std::string_view caller);

/// Remembers that the calling program starts the update manager, so that its start-up options are
/// offered; for a start in either mode. Nothing without a caller, nor when @a current says it already.
void MarkCaller(CINIFileHandler& settings, const SettingsSnapshot& current,
                const StartupRequest& request);

/// Finds out whether there is something to tell: for a program that starts the update manager at its
/// own start, and about the update manager itself. No window. User-interface thread.
class StartupCheck
{
  public:
    /// @a locator must outlive the object.
    explicit StartupCheck(CVelmoProgramCommunicator& locator) : m_locator(locator) {}

    /// What this computer's stores say.
    struct Stores
    {
        const SettingsSnapshot& settings;
        const SharedValues& shared;
    };

    /// Fetches the lists; the version list, or nullptr when it could not be had.
    using Fetch = std::function<const VersionList*()>;

    /// What there is to tell to the caller, as its start-up options want it. @a fetchLists is called
    /// once at most, and only when there is something to compare. @a countEquipment counts by the
    /// fetched lists. Failures find nothing.
    [[nodiscard]] StartupFindings CheckCaller(
        const StartupRequest& request, const Stores& stores, const Fetch& fetchLists,
        const std::function<EquipmentCounts()>& countEquipment) const;

    /// The update manager's own row, when it needs an update by @a latest. @a running is what counts as
    /// installed when no version can be read where the locator looks, as when the program runs from
    /// another folder.
    [[nodiscard]] std::optional<ProgramRow> CheckSelf(const ProgramVersion& running,
                                                      const VersionList& latest,
                                                      const SharedValues& stores) const;

  private:
    CVelmoProgramCommunicator& m_locator;
};

} // namespace velmo
