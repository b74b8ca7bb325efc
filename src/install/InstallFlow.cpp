#include "install/InstallFlow.h"

#include "platform/ErrorCode.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "text/ByteSizeText.h"
#include "text/PlainFileName.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <string_view>
#include <utility>

namespace velmo
{
namespace
{

constexpr const char* kSetupSettings = "SetupSettings";
constexpr const char* kNoWizard = "NoHVACWizard";
constexpr std::int32_t kFreshCopy = 16;

/// A file name as the last part of an address: what an address gives a meaning to is escaped.
std::string AddressPart(std::string_view fileName)
{
    std::string part;
    for (const char c : fileName)
    {
        switch (c)
        {
        case '%':
            part += "%25";
            break;
        case '#':
            part += "%23";
            break;
        case '?':
            part += "%3F";
            break;
        default:
            part += c;
        }
    }
    return part;
}

} // namespace

InstallFlow::InstallFlow(InstallOrder order, Surroundings surroundings)
    : m_order(std::move(order)), m_with(std::move(surroundings)),
      m_folder(m_with.commonFolder, m_with.log)
{
    for (const SetupFiles& setups : m_order.setups)
    {
        m_status.AddLine(setups.title + ": " + std::to_string(setups.files.Count()) +
                         ", Size: " + ByteSizeText(setups.bytes));
        m_filesOrdered += setups.files.Count();
        m_bytesOrdered += setups.bytes;
    }
    m_status.AddLine("Ready.  Click Start to begin.");
}

InstallFlow::~InstallFlow() = default;

std::string InstallFlow::CancelCaption() const
{
    return m_state == State::Ended ? "Close" : "Cancel";
}

bool InstallFlow::CancelOrClose()
{
    m_cancelRequested = m_state == State::Running;
    return !m_cancelRequested;
}

void InstallFlow::Start()
{
    if (m_state != State::Ready)
    {
        return;
    }
    SetState(State::Running);
    try
    {
        Run();
    }
    catch (const std::exception& fault)
    {
        Note(std::string("The installation broke off: ") + fault.what());
        m_status.AddLine(m_failures.back());
    }
    End();
}

void InstallFlow::Run()
{
    ShowBars({}, {});
    m_with.settings.MyWriteAppProfileBoolean(kSetupSettings, kNoWizard, true);
    NetGrab::Listener& self = *this;
    m_netGrab = std::make_unique<NetGrab>(m_with.loop, self, platform::SteadyTicks, m_with.limits);
    PrepareFolder();
    ShowBars({0, m_bytesOrdered, "0%"}, m_current);
    for (const SetupFiles& setups : m_order.setups)
    {
        for (const CDownloadFile& file : setups.files)
        {
            if (!m_cancelRequested)
            {
                Install(file, setups.folder);
            }
        }
    }

    const std::string endText = m_cancelRequested ? "Canceled" : "Finished";
    AwaitSetups();
    const InstallBar fullBar{100, 100, endText};
    ShowBars(fullBar, fullBar);
    m_status.AddLine(endText);
    WriteTotals();
}

void InstallFlow::End()
{
    m_netGrab.reset();
    m_folder.Remove();
    m_with.settings.MyWriteAppProfileBoolean(kSetupSettings, kNoWizard, false);
    SetState(State::Ended);
}

void InstallFlow::PrepareFolder()
{
    if (const auto prepared = m_folder.Prepare(); !prepared)
    {
        m_status.AddLine("The download folder could not be prepared: " +
                         prepared.Failure().description);
    }
}

void InstallFlow::Install(const CDownloadFile& file, const std::string& serverFolder)
{
    const std::string& name = file.FileName;
    if (!IsPlainFileName(name))
    {
        Note(name + ": this is no plain file name");
        m_status.AddLine(m_failures.back());
        return;
    }
    ShowBars(m_overall, {0, 100, "Connecting..."});
    m_currentSize = file.FileSize;
    m_currentReceived = 0;
    m_status.AddLine("Downloading " + name + " from folder " + serverFolder + " on server " +
                     m_order.server);
    Download(m_order.server + serverFolder + AddressPart(name));
    if (m_cancelRequested)
    {
        return;
    }
    const std::string path = m_folder.Path() + name;
    const Error error = TakeDownload(path);
    if (error.code != 0)
    {
        m_status.AddLine("Error number: " + std::to_string(error.code));
        m_status.AddLine("Error description: " + error.description);
        // Its setup is not there, so that there is nothing to run.
        Note(name + ": " + error.description);
        return;
    }
    ++m_installed;
    m_downloadedBytes += file.FileSize;
    RunSetup(file, path);
}

void InstallFlow::Download(const std::string& url)
{
    m_lastError = {};
    m_netGrab->DownloadStart(url, kFreshCopy);
    m_with.loop.RunUntil([this] { return !m_netGrab->Busy() || m_cancelRequested || IsTooLong(); });
    if (!m_cancelRequested && !IsTooLong())
    {
        return;
    }
    m_netGrab->DownloadCancel();
    // A moment for the download's own end, so that its lines stand above the last ones.
    constexpr std::chrono::milliseconds kMoment{300};
    const auto until = std::chrono::steady_clock::now() + kMoment;
    m_with.loop.RunUntil(
        [&] { return !m_netGrab->Busy() || std::chrono::steady_clock::now() >= until; });
}

bool InstallFlow::IsTooLong() const
{
    return m_currentSize > 0 && m_currentReceived > m_currentSize;
}

/// Saves what has come. The error's code is 0 when it is there.
Error InstallFlow::TakeDownload(const std::string& path)
{
    const auto received = static_cast<double>(m_netGrab->Bytes().size());
    const bool isComplete = m_lastError.code == 0 && received >= 2;
    if (IsTooLong() || (isComplete && m_currentSize > 0 && received != m_currentSize))
    {
        return {error_code::kDownloadFailed,
                "The file is not as large as it is listed: " +
                    ByteCountText(std::max(received, m_currentReceived)) + " instead of " +
                    ByteCountText(m_currentSize) + " bytes."};
    }
    // A single byte counts as nothing: no setup is that short.
    if (m_netGrab->Bytes().size() < 2)
    {
        const bool unexplained = m_lastError.code == 0 && m_lastError.description.empty();
        return unexplained ? Error{error_code::kDownloadFailed, "Download failed."} : m_lastError;
    }
    if (const auto usable = m_folder.CheckUsable(); !usable)
    {
        return usable.Failure();
    }
    return m_netGrab->SaveAs(path) ? m_lastError : m_netGrab->LastSaveFailure();
}

void InstallFlow::RunSetup(const CDownloadFile& file, const std::string& path)
{
    auto started = platform::StartProgram(path, " /s", platform::WindowState::Minimised);
    if (started)
    {
        m_setups.push_back({file.FileName, std::move(started).Value()});
        return;
    }
    Note(file.FileName + ": the setup could not be started: " + started.Failure().description);
}

std::vector<platform::StartedProgram> InstallFlow::RunningSetups() const
{
    std::vector<platform::StartedProgram> running;
    for (const StartedSetup& setup : m_setups)
    {
        if (setup.program.IsRunning())
        {
            running.push_back(setup.program);
        }
    }
    return running;
}

void InstallFlow::AwaitSetups()
{
    const std::size_t running = RunningSetups().size();
    if (running == 0 || m_cancelRequested)
    {
        return;
    }
    m_status.AddLine("Waiting for " + std::to_string(running) +
                     (running == 1 ? " setup that still runs." : " setups that still run."));
    const auto until = std::chrono::steady_clock::now() + m_with.longestWait;
    m_with.loop.RunUntil([&] {
        return m_cancelRequested || RunningSetups().empty() ||
               std::chrono::steady_clock::now() >= until;
    });
}

std::string InstallFlow::SetupsLine() const
{
    std::size_t well = 0;
    std::string others;
    for (const StartedSetup& setup : m_setups)
    {
        const auto code = setup.program.ExitCode();
        if (code == 0)
        {
            ++well;
            continue;
        }
        others += (others.empty() ? " (" : ", ") + setup.fileName +
                  (code ? ": exit code " + std::to_string(*code) : ": still runs");
    }
    return "Setups that ended well: " + std::to_string(well) +
           ", that did not: " + std::to_string(m_setups.size() - well) +
           (others.empty() ? "" : others + ")");
}

void InstallFlow::WriteTotals()
{
    m_status.AddLine("Total bytes downloaded: " + ByteSizeText(m_downloadedBytes));
    m_status.AddLine(
        "Number of files requested: " + std::to_string(m_filesOrdered) +
        "\r\nNumber of files actually downloaded and installed: " + std::to_string(m_installed));
    if (!m_failures.empty())
    {
        m_status.AddLine("Not installed:");
    }
    for (const std::string& failure : m_failures)
    {
        m_status.AddLine("  " + failure);
    }
    m_status.AddLine(SetupsLine());
}

void InstallFlow::Note(const std::string& failure)
{
    m_failures.push_back(failure);
    m_with.log.Write("Installing: " + failure);
}

void InstallFlow::DownloadComplete(std::int32_t nBytes)
{
    m_status.AddLine("Current file download complete: " + ByteSizeText(nBytes));
}

void InstallFlow::DownloadFailed(std::int32_t errNum, const std::string& errDesc)
{
    m_lastError = {errNum, errDesc};
    m_status.AddLine("Download failed: ");
    m_status.AddLine("Error Number: " + std::to_string(errNum));
    m_status.AddLine("Error Description: " + errDesc);
}

void InstallFlow::DownloadProgress(std::int32_t nBytes)
{
    m_currentReceived = nBytes;
    ShowBars(BarOfBytes(m_downloadedBytes + nBytes, m_bytesOrdered),
             BarOfBytes(nBytes, m_currentSize));
}

void InstallFlow::ShowBars(const InstallBar& overall, const InstallBar& current)
{
    m_overall = overall;
    m_current = current;
    if (m_observer != nullptr)
    {
        m_observer->OnBarsChanged();
    }
}

void InstallFlow::SetState(State state)
{
    m_state = state;
    if (m_observer != nullptr)
    {
        m_observer->OnStateChanged();
    }
}

void MendInterruptedInstall(CINIFileHandler& settings, const std::string& commonFolder,
                            DiagnosticLog& log)
{
    if (settings.MyGetAppProfileBoolean(kSetupSettings, kNoWizard, false))
    {
        log.Write("An installation was broken off; setups show their wizards again");
        settings.MyWriteAppProfileBoolean(kSetupSettings, kNoWizard, false);
    }
    DownloadFolder(commonFolder, log).Remove();
}

} // namespace velmo
