#pragma once

#include "catalogue/VendorServer.h"
#include "controls/Observers.h"
#include "manager/FetchReport.h"
#include "manager/FetchedFiles.h"
#include "manager/VendorLists.h"
#include "platform/Result.h"

#include <chrono>
#include <functional>
#include <optional>
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
class SharedLock;
} // namespace platform

/**
    The fetch of the vendor's two lists into the program's folder, with its status lines, and what it
    brought: it is held here, and the files are there for whoever else looks for them. One fetch at a
    time on a desktop, in whatever process: the next one waits, at most a minute. Then, as in a folder
    that may not be written, it leaves the files alone, with a line in the log. A fetch blocks its caller
    but keeps the message loop going, so that the window lives. User-interface thread.
 */
class ListsFetch
{
  public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    /// What a fetch works with; must outlive it.
    struct Surroundings
    {
        UrlToFile& urlToFile;
        platform::MessageLoop& loop;
        StatusBoxModel& statusBox;
        MousePointer& pointer;
        DiagnosticLog& log;
        Clock now = std::chrono::system_clock::now;
    };

    ListsFetch(FetchedFiles files, VendorServer server, Surroundings surroundings);

    /// The whole procedure, from the old files' deletion to the refreshed lists; nullptr: nobody looks
    /// at any list. Does nothing when a fetch is under way.
    void Run(ShownLists* shown);

    /// Ends the fetch after the file that is being downloaded, and the waiting for another fetch at
    /// once. Without a fetch under way it does nothing.
    void Cancel();

    /// The same, without waiting for that file's end.
    void BreakOff();

    /// From @a end on nothing is waited for nor downloaded any more.
    void EndBy(std::chrono::steady_clock::time_point end);

    /// Takes the files over that another program run left, as of the time that they were written. Does
    /// nothing when there are none; one that cannot be read leaves a line in the log.
    void TakeFiles();

    /// Takes over what another part of this program run fetched, and what it told of that.
    void Take(ListBytes bytes, const FetchReport& report);

    /// Takes the values that say where the setups are out of the manufacturer list's file, unless
    /// another fetch on this desktop is writing its own there.
    void TakeOutServers();

    /// Deletes both files, unless another fetch on this desktop is writing its own there.
    void DeleteFiles();

    [[nodiscard]] bool Busy() const { return m_busy; }
    [[nodiscard]] Observers& BusyChanged() { return m_busyChanged; }

    [[nodiscard]] const FetchedFiles& Files() const { return m_files; }
    [[nodiscard]] const VendorServer& Server() const { return m_server; }

    /// What the last fetch brought, nothing when that was canceled or failed.
    [[nodiscard]] const VendorLists& Lists() const { return m_lists; }
    [[nodiscard]] const ListBytes& Bytes() const { return m_bytes; }

    [[nodiscard]] const FetchReport& Report() const { return m_report; }
    [[nodiscard]] Observers& ReportChanged() { return m_reportChanged; }

    /// Caption of the connect button.
    [[nodiscard]] static std::string_view ButtonCaption(bool busy);

  private:
    void Connect(ShownLists* shown);
    void Adopt(ShownLists* shown);
    [[nodiscard]] std::optional<platform::SharedLock> WaitForOthers();
    [[nodiscard]] Result<std::string> Download(std::string_view name, const std::string& path);
    [[nodiscard]] Result<std::string> ReadFile(const std::string& path) const;
    void Parse();
    void Fail(const Error& reason, const Error& lastOfDownloads);
    void Tell(FetchStage stage);

    FetchedFiles m_files;
    VendorServer m_server;
    Surroundings m_with;
    Observers m_busyChanged;
    Observers m_reportChanged;
    std::optional<std::chrono::steady_clock::time_point> m_end;
    FetchReport m_report;
    ListBytes m_bytes;
    VendorLists m_lists;
    bool m_busy = false;
    bool m_ownsFiles = false; ///< By their lock, as long as the fetch runs.
    bool m_cancelRequested = false;
};

} // namespace velmo
