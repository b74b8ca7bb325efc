#pragma once

#include "updates/StartupCheck.h"

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

    /// Takes the findings over; their texts must outlive the request.
    void Carry(const StartupFindings& findings)
    {
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
