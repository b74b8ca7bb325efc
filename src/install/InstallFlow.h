#pragma once

#include "controls/StatusBoxModel.h"
#include "download/NetGrab.h"
#include "install/DownloadFolder.h"
#include "install/InstallOrder.h"
#include "install/InstallProgress.h"
#include "install/SetupWatch.h"
#include "platform/Processes.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velmo
{

class CINIFileHandler;
class DiagnosticLog;

/**
    Downloads the setups of an order one by one and runs each as soon as it has come, beside the next
    download: what the install dialog does, without the dialog. The loop runs meanwhile, so that the
    window lives and can cancel. A file that fails, or is not as large as it is listed, is told in the
    log and does not stop the others.

    While it runs, the settings tell the setups to skip their wizards ("NoHVACWizard"); they stop doing
    so however it ends. A setup may look at that at any time, so that after the last download the flow
    waits for the setups that still run, unless it is cancelled. User-interface thread.
 */
class InstallFlow final : private NetGrab::Listener
{
  public:
    /// What the dialog is told.
    class Observer
    {
      public:
        virtual ~Observer() = default;
        virtual void OnBarsChanged() = 0;
        virtual void OnStateChanged() = 0; ///< Buttons have another caption or state.
    };

    enum class State
    {
        Ready,
        Running,
        Ended, ///< Finished or cancelled.
    };

    /// What the flow works with; all references outlive it.
    struct Surroundings
    {
        platform::MessageLoop& loop;
        CINIFileHandler& settings; ///< On the application settings file.
        DiagnosticLog& log;
        std::string commonFolder; ///< Ends in "\".
        platform::HttpLimits limits = {};
        std::chrono::milliseconds longestWait = SetupWatch::kLongest; ///< For running setups.
    };

    /// Writes the summary of the order into the log.
    InstallFlow(InstallOrder order, Surroundings surroundings);
    ~InstallFlow() override;

    /// One observer; nullptr for none.
    void Observe(Observer* observer) { m_observer = observer; }

    /// Runs the order and returns when it has ended; only the first call does anything.
    void Start();

    /// The cancel button, and every other way to close the dialog: true when the dialog may close now;
    /// false when the flow was asked to end and will do so within a second.
    [[nodiscard]] bool CancelOrClose();

    /// Empties and removes the download folder; the last thing that a dialog does.
    void Close() const { m_folder.Remove(); }

    [[nodiscard]] State CurrentState() const { return m_state; }
    [[nodiscard]] bool StartEnabled() const { return m_state == State::Ready; }
    [[nodiscard]] std::string CancelCaption() const;

    /// The lines for the user.
    [[nodiscard]] StatusBoxModel& Status() { return m_status; }
    [[nodiscard]] const InstallBar& OverallBar() const { return m_overall; }
    [[nodiscard]] const InstallBar& CurrentBar() const { return m_current; }

    [[nodiscard]] std::int32_t FilesInstalled() const { return m_installed; }

    /// The setups that were started and have not ended.
    [[nodiscard]] std::vector<platform::StartedProgram> RunningSetups() const;

  private:
    void DownloadComplete(std::int32_t nBytes) override;
    void DownloadFailed(std::int32_t errNum, const std::string& errDesc) override;
    void DownloadProgress(std::int32_t nBytes) override;

    void Run();
    void End();
    void PrepareFolder();
    void Install(const CDownloadFile& file, const std::string& serverFolder);
    void Download(const std::string& url);
    [[nodiscard]] bool IsTooLong() const;
    [[nodiscard]] Error TakeDownload(const std::string& path);
    void RunSetup(const CDownloadFile& file, const std::string& path);
    void AwaitSetups();
    void WriteTotals();
    [[nodiscard]] std::string SetupsLine() const;
    void Note(const std::string& failure);
    void ShowBars(const InstallBar& overall, const InstallBar& current);
    void SetState(State state);

    InstallOrder m_order;
    std::size_t m_filesOrdered = 0;
    double m_bytesOrdered = 0;
    Surroundings m_with;
    DownloadFolder m_folder;
    std::unique_ptr<NetGrab> m_netGrab; ///< While it runs.
    StatusBoxModel m_status;
    InstallBar m_overall;
    InstallBar m_current;
    State m_state = State::Ready;
    bool m_cancelRequested = false;
    Error m_lastError;        ///< Of the current file.
    double m_currentSize = 0; ///< As it is listed; 0 or less: it is not.
    double m_currentReceived = 0;
    double m_downloadedBytes = 0; ///< Listed sizes of the files that were installed.
    std::int32_t m_installed = 0;
    std::vector<std::string> m_failures;
    struct StartedSetup
    {
        std::string fileName;
        platform::StartedProgram program;
    };
    std::vector<StartedSetup> m_setups;
    Observer* m_observer = nullptr;
};

/// Takes back what a run that was killed while it installed has left: the setting and the folder. For
/// the start of a program run that no other one beside it installs.
void MendInterruptedInstall(CINIFileHandler& settings, const std::string& commonFolder,
                            DiagnosticLog& log);

} // namespace velmo
