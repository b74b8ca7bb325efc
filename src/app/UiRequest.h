#pragma once

#include "manager/ListsFetch.h"
#include "updates/StartupCheck.h"

#include <cstddef>
#include <cstdint>

/**
    What the program asks of the library that holds its windows. The library is loaded only when there
    is a window to show, since it brings the toolkit with it; most runs show none. The two sides have
    their own runtime, so only plain types cross.
 */
namespace velmo
{

enum class UiSubject : std::int32_t
{
    MainWindow,
    StartupFindings, ///< The question or the dialog that the findings lead to.
};

struct UiRequest
{
    const char* build;       ///< The program's version text; the library must be of the same build.
    void* module;            ///< The library as the system loaded it.
    const char* commandLine; ///< UTF-8, as all texts.
    UiSubject subject;
    // For StartupFindings:
    std::int32_t updateIndex; ///< Of the program that needs an update; -1 for none.
    ProgramVersion installed; ///< These three of that program.
    ProgramVersion latest;
    const char* demoAddress;
    std::int32_t databases;
    std::int32_t pictures;
    const char* statusLines; ///< What the fetch wrote to the status box.
    // What the fetch brought; see ListBytes and FetchReport.
    const char* versionList;
    std::size_t versionListSize;
    const char* manufacturerList;
    std::size_t manufacturerListSize;
    std::int64_t fetched; ///< System clock's ticks.
    std::int32_t equipmentError;
    const char* equipmentErrorText; ///< nullptr: the equipment list came.

    /// Takes the findings and what they rest on over; both must outlive the request.
    void Carry(const StartupFindings& findings, const ListsFetch& lists)
    {
        CarryLists(lists);
        subject = UiSubject::StartupFindings;
        updateIndex = findings.update ? findings.update->index : -1;
        if (findings.update)
        {
            installed = findings.update->installed;
            latest = findings.update->latest;
            demoAddress = findings.update->demoAddress.c_str();
        }
        databases = findings.equipment.databases;
        pictures = findings.equipment.pictures;
    }

    void CarryLists(const ListsFetch& lists)
    {
        versionList = lists.Bytes().versions.data();
        versionListSize = lists.Bytes().versions.size();
        manufacturerList = lists.Bytes().manufacturers.data();
        manufacturerListSize = lists.Bytes().manufacturers.size();
        const FetchReport& report = lists.Report();
        fetched = report.when.time_since_epoch().count();
        equipmentError = report.equipmentFailure ? report.equipmentFailure->code : 0;
        equipmentErrorText =
            report.equipmentFailure ? report.equipmentFailure->description.c_str() : nullptr;
    }

    [[nodiscard]] ListBytes Lists() const
    {
        return {std::string(versionList, versionListSize),
                std::string(manufacturerList, manufacturerListSize)};
    }

    /// Of a fetch that succeeded: no other leads to findings.
    [[nodiscard]] FetchReport Report() const
    {
        using Clock = std::chrono::system_clock;
        FetchReport report{.stage = FetchStage::Done,
                           .when = Clock::time_point(Clock::duration(fetched))};
        if (equipmentErrorText != nullptr)
        {
            report.equipmentFailure = Error{equipmentError, equipmentErrorText};
        }
        return report;
    }

    [[nodiscard]] StartupFindings Findings() const
    {
        StartupFindings findings{.equipment = {databases, pictures}};
        if (updateIndex >= 0)
        {
            findings.update = ProgramRow{.index = updateIndex,
                                         .installed = installed,
                                         .latest = latest,
                                         .demoAddress = demoAddress};
        }
        return findings;
    }
};

inline constexpr char kUiLibrary[] = "VelmoUpdUi";
inline constexpr char kUiFunction[] = "VelmoShowUi";

/// Shows what is asked for until the person has closed it, and returns the program's exit code, or
/// kOtherBuild, and nothing is shown, when the library is of another build.
using UiFunction = int (*)(const UiRequest* request);

inline constexpr int kOtherBuild = 70;

} // namespace velmo
