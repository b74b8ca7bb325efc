#pragma once

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
    std::int32_t programNeedsUpdate; ///< 0 or 1.
    const char* installedVersion;
    const char* latestVersion;
    std::int32_t databases;
    std::int32_t pictures;
    const char* statusLines; ///< What the fetch wrote to the status box.
};

inline constexpr char kUiLibrary[] = "VelmoUpdUi";
inline constexpr char kUiFunction[] = "VelmoShowUi";

/// Shows what is asked for until the person has closed it, and returns the program's exit code, or
/// kOtherBuild, and nothing is shown, when the library is of another build.
using UiFunction = int (*)(const UiRequest* request);

inline constexpr int kOtherBuild = 70;

} // namespace velmo
