#include "updates/StartupCheck.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/ProgramCatalogue.h"
#include "settings/CINIFileHandler.h"
#include "text/TextCase.h"
#include "updates/StartupOptions.h"
#include "updates/VersionList.h"

#include <algorithm>
#include <array>

namespace velmo
{
namespace
{

/// Which question is asked when; "%p", "%d" and "%g" stand for the program and the two counts.
struct Question
{
    bool program;
    bool databases;
    bool pictures;
    std::string_view text;
};

constexpr std::array kQuestions{
    Question{true, true, true,
             "An update is available for %p, and updates are also available for %d of the HVAC "
             "equipment databases that you have installed, and %g of the HVAC equipment picture "
             "groups that you have installed.  Would you like to see the list of available "
             "updates?"},
    Question{true, true, false,
             "An update is available for %p, and updates are also available for %d of the HVAC "
             "equipment databases that you have installed.  Would you like to see the list of "
             "available updates?"},
    Question{true, false, true,
             "An update is available for %p, and updates are also available for %g of the HVAC "
             "equipment picture groups that you have installed.  Would you like to see the list "
             "of available updates?"},
    Question{false, true, true,
             "Updates are available for %d of the HVAC equipment databases that you have "
             "installed, and %g of the HVAC equipment picture groups that you have installed.  "
             "Would you like to see the list of available updates?"},
    Question{false, true, false,
             "Updates are available for %d of the HVAC equipment databases that you have "
             "installed.  Would you like to see the list of available updates?"},
    Question{false, false, true,
             "Updates are available for %g of the HVAC equipment picture groups that you have "
             "installed.  Would you like to see the list of available updates?"},
};

void Replace(std::string& text, std::string_view placeholder, std::string_view value)
{
    const std::size_t position = text.find(placeholder);
    if (position != std::string::npos)
    {
        text.replace(position, placeholder.size(), value);
    }
}

} // namespace

StartupRequest::StartupRequest(std::string_view commandLine)
    : text(Trimmed(commandLine)),
      startupMode(UpperCase(commandLine).find("STARTUP") != std::string::npos),
      databasesTab(commandLine.find(kEquipmentName) != std::string_view::npos),
      caller(CallerOfCommandLine(commandLine)), callerIndex(IndexOfName(caller))
{}

bool StartupRequest::AsksForStatus() const
{
    return !text.empty() && !startupMode && !databasesTab;
}

StartupOutcome StartupFindings::Outcome() const
{
    if (equipment.Any())
    {
        return StartupOutcome::Question;
    }
    return update ? StartupOutcome::Dialog : StartupOutcome::Nothing;
}

std::string StartupQuestion(const StartupFindings& findings, std::string_view caller)
{
    const auto* const question =
        std::find_if(kQuestions.begin(), kQuestions.end(), [&findings](const Question& row) {
            return row.program == findings.update.has_value() &&
                   row.databases == (findings.equipment.databases > 0) &&
                   row.pictures == (findings.equipment.pictures > 0);
        });
    if (question == kQuestions.end())
    {
        return {};
    }
    std::string text(question->text);
    Replace(text, "%d", std::to_string(findings.equipment.databases));
    Replace(text, "%g", std::to_string(findings.equipment.pictures));
    Replace(text, "%p", caller);
    return text;
}

void MarkCaller(CINIFileHandler& settings, const SettingsSnapshot& current,
                const StartupRequest& request)
{
    // Not written again at every start: that would cost a whole rewrite of the settings file.
    if (!request.caller.empty() && !IsIntegrated(current, request.caller))
    {
        MarkIntegrated(settings, request.caller);
    }
}

StartupFindings StartupCheck::CheckCaller(
    const StartupRequest& request, const Stores& stores, const Fetch& fetchLists,
    const std::function<EquipmentCounts()>& countEquipment) const
{
    StartupFindings findings;
    if (request.caller.empty())
    {
        return findings; // No program to compare, and nobody's option asks for equipment.
    }
    const StartupOptions options = ReadStartupOptions(stores.settings, request.caller);
    ProgramRow row{.index = request.callerIndex};
    if (options.option == startup_option::kCheck)
    {
        row.installed = LocatedVersion(m_locator, row.index, stores.shared);
    }
    if (!row.IsInstalled() && !options.notifyOfEquipment)
    {
        return findings;
    }
    const VersionList* latest = fetchLists();
    if (latest == nullptr)
    {
        return findings;
    }
    latest->Read(row);
    if (row.NeedsUpdate())
    {
        findings.update = row;
    }
    if (options.notifyOfEquipment)
    {
        findings.equipment = countEquipment();
    }
    return findings;
}

std::optional<ProgramRow> StartupCheck::CheckSelf(const ProgramVersion& running,
                                                  const VersionList& latest,
                                                  const SharedValues& stores) const
{
    ProgramRow row{.index = kOwnRow};
    latest.Read(row);
    row.installed = LocatedVersion(m_locator, row.index, stores);
    if (!row.IsInstalled())
    {
        row.installed = running;
    }
    // A version of zeros, as of a build without one, is older than any.
    const bool needsUpdate = row.latest.majorNumber != 0 && !IsUpToDate(row.installed, row.latest);
    return needsUpdate ? std::optional(row) : std::nullopt;
}

} // namespace velmo
