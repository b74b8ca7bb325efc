#pragma once

#include "catalogue/VendorServer.h"
#include "controls/Observers.h"
#include "manager/FetchedFiles.h"
#include "platform/Result.h"

#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;
class MousePointer;
class ShownLists;
class StatusBoxModel;
class UrlToFile;
namespace platform
{
class MessageLoop;
}

/**
    The fetch of the vendor's two lists into the program's folder, with its status lines. One at a
    time; it blocks its caller but keeps the message loop going, so that the window lives and Cancel
    is seen at once, although a running download finishes first. User-interface thread.
 */
class ListsFetch
{
  public:
    /// What a fetch works with; must outlive it.
    struct Surroundings
    {
        UrlToFile& urlToFile;
        platform::MessageLoop& loop;
        StatusBoxModel& statusBox;
        MousePointer& pointer;
        DiagnosticLog& log;
    };

    ListsFetch(FetchedFiles files, VendorServer server, const Surroundings& surroundings);

    /// The whole procedure, from the old files' deletion to the refreshed lists; nullptr: nobody looks
    /// at any list. Does nothing when a fetch is under way.
    void Run(ShownLists* shown);

    /// Asks the fetch to stop at its next step. Without a fetch under way it does nothing.
    void Cancel() { m_cancelRequested = m_busy; }

    [[nodiscard]] bool Busy() const { return m_busy; }
    [[nodiscard]] Observers& BusyChanged() { return m_busyChanged; }

    [[nodiscard]] const FetchedFiles& Files() const { return m_files; }
    [[nodiscard]] const VendorServer& Server() const { return m_server; }

    /// Whether the last fetch brought the version list; false before the first.
    [[nodiscard]] bool Succeeded() const { return m_succeeded; }

    /// The sentence for the last failed download.
    [[nodiscard]] std::string LastErrorText() const;

    /// Caption of the connect button.
    [[nodiscard]] static std::string_view ButtonCaption(bool busy);

  private:
    void Connect(ShownLists* shown);
    bool Download(std::string_view name, const std::string& path);
    void AddErrorLine();

    FetchedFiles m_files;
    VendorServer m_server;
    Surroundings m_with;
    Observers m_busyChanged;
    Error m_lastError;
    bool m_busy = false;
    bool m_cancelRequested = false;
    bool m_succeeded = false;
};

} // namespace velmo
