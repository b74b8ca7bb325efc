#include "updates/StartupFindings.h"

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

StartupOutcome StartupFindings::Outcome() const
{
    if (equipment.Any())
    {
        return StartupOutcome::Question;
    }
    return programNeedsUpdate ? StartupOutcome::Dialog : StartupOutcome::Nothing;
}

std::string StartupQuestion(const StartupFindings& findings, std::string_view caller)
{
    const auto* const question =
        std::find_if(kQuestions.begin(), kQuestions.end(), [&findings](const Question& row) {
            return row.program == findings.programNeedsUpdate &&
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

} // namespace velmo
