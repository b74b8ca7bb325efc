#pragma once

#include "catalogue/VendorServer.h"
#include "updates/ListFiles.h"

#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;
class MousePointer;
class StatusBoxModel;
class UrlToFile;
namespace platform
{
class MessageLoop;
}

/// What the rest of the program does while the lists are fetched. Called on the user-interface thread.
class ListsDownloadClient
{
  public:
    virtual ~ListsDownloadClient() = default;

    virtual void ClearHeadlines() = 0;
    /// Rebuilds the program list; the version list may be missing.
    virtual void RefreshLists() = 0;
    virtual void LoadHeadlines() = 0;
    /// Makes the program list's first and then its selected row visible.
    virtual void ShowSelectedProgram() = 0;
    virtual void RedrawProgramList() = 0;
    /// Busy or idle again: the connect button's caption and state, the action buttons, the counts.
    virtual void OnBusyChanged(bool busy) = 0;
};

/**
    The fetch of the vendor's two lists into the program's folder, with its status lines. One at a
    time; it blocks its caller but keeps the message loop going, so that the window lives and Cancel
    is seen at once, although a running download finishes first. User-interface thread.
 */
class ListsDownload
{
  public:
    /// All references must outlive the object.
    ListsDownload(ListFiles files, VendorServer server, UrlToFile& urlToFile,
                  platform::MessageLoop& loop, StatusBoxModel& statusBox, MousePointer& pointer,
                  DiagnosticLog& log);

    /// The whole procedure. Does nothing when a fetch is under way.
    void Fetch(ListsDownloadClient& client);

    /// Asks the fetch to stop at its next step. Without a fetch under way it does nothing.
    void Cancel();

    [[nodiscard]] bool Busy() const { return m_busy; }
    [[nodiscard]] const ListFiles& Files() const { return m_files; }
    [[nodiscard]] const VendorServer& Server() const { return m_server; }

    /// Whether the last fetch brought the version list; false before the first.
    [[nodiscard]] bool Succeeded() const { return m_succeeded; }

    /// The sentence for the last failed download.
    [[nodiscard]] std::string LastErrorText() const;

    /// Caption of the connect button.
    [[nodiscard]] static std::string_view ButtonCaption(bool busy);

  private:
    void Connect(ListsDownloadClient& client);
    void RefreshFromLists(ListsDownloadClient& client);
    bool Download(std::string_view addressPath, const std::string& path);
    void AddErrorLine();

    ListFiles m_files;
    VendorServer m_server;
    UrlToFile& m_urlToFile;
    platform::MessageLoop& m_loop;
    StatusBoxModel& m_statusBox;
    MousePointer& m_pointer;
    DiagnosticLog& m_log;
    bool m_busy = false;
    bool m_cancelRequested = false;
    bool m_succeeded = false;
};

} // namespace velmo
