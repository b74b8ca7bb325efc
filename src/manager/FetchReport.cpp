#include "manager/FetchReport.h"

#include "download/InternetErrorText.h"
#include "platform/ErrorCode.h"
#include "platform/UserLocale.h"
#include "text/TextCase.h"
#include "text/UnitedStatesDate.h"

namespace velmo
{
namespace
{

/// The internet's own codes begin here: smaller ones are this computer's.
constexpr std::int32_t kFirstInternetError = 12'001;

/// "11/23/2026 8:06 AM".
std::string TimeText(std::chrono::system_clock::time_point when)
{
    using namespace std::chrono;
    const sys_seconds local = platform::LocalTime(when);
    const sys_days day = floor<days>(local);
    const hh_mm_ss time(local - day);
    const std::string minute = std::to_string(time.minutes().count());
    return FormatDate(day) + " " + std::to_string(make12(time.hours()).count()) + ":" +
           (minute.size() < 2 ? "0" : "") + minute + (is_pm(time.hours()) ? " PM" : " AM");
}

/// The reason as the end of a sentence.
std::string Clause(const Error& reason)
{
    if (reason.code == error_code::kTimedOut)
    {
        return "the request timed out";
    }
    std::string text = ReasonText(reason);
    text.erase(text.find_last_not_of(". ") + 1);
    if (reason.code != error_code::kServerSaysWhy && text.size() > 1 &&
        LowerCase(text[1]) == text[1])
    {
        text.front() = LowerCase(text.front());
    }
    return text;
}

} // namespace

std::string StatusBarText(const FetchReport& report)
{
    switch (report.stage)
    {
    case FetchStage::Waiting:
        return "Waiting for another Update Manager that is checking...";
    case FetchStage::Running:
        return "Checking...";
    case FetchStage::Canceling:
        return "Canceling after the current file...";
    case FetchStage::Canceled:
        return "Not checked: canceled";
    case FetchStage::Failed:
        return (report.reason.code < kFirstInternetError ? "The lists could not be read: "
                                                         : "Server not reached: ") +
               Clause(report.reason);
    case FetchStage::Done:
        return "Checked " + TimeText(report.when) +
               (report.equipmentFailure
                    ? ". The equipment list could not be read: " + Clause(*report.equipmentFailure)
                    : "");
    case FetchStage::NotYet:
        break;
    }
    return "Not checked yet";
}

} // namespace velmo
