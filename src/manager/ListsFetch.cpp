#include "manager/ListsFetch.h"

#include "catalogue/VendorPaths.h"
#include "controls/MousePointer.h"
#include "controls/StatusBoxModel.h"
#include "download/InternetErrorText.h"
#include "download/UrlToFile.h"
#include "manager/ShownLists.h"
#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/MessageLoop.h"
#include "platform/SharedLock.h"
#include "settings/DiagnosticLog.h"

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;
using std::chrono::steady_clock;

/// What a list may take from a server: whoever holds the lock for longer has two slow ones.
constexpr std::chrono::seconds kLongestWait{60};

/// How long a folder that seems not to be writable is asked: Windows says so of a lock that is just
/// being given up, too.
constexpr std::chrono::milliseconds kLongestRefusal{500};
constexpr std::chrono::milliseconds kBetweenTries{15};

Error NoList(const char* which)
{
    return {error_code::kInvalidData,
            std::string("What the server sent is no ") + which + " list."};
}

} // namespace

ListsFetch::ListsFetch(FetchedFiles files, VendorServer server, Surroundings surroundings)
    : m_files(std::move(files)), m_server(std::move(server)), m_with(std::move(surroundings))
{}

std::string_view ListsFetch::ButtonCaption(bool busy)
{
    return busy ? "&Cancel" : "&Refresh Lists";
}

void ListsFetch::Run(ShownLists* shown)
{
    if (m_busy)
    {
        return;
    }
    m_with.pointer.SetShape(PointerShape::ArrowAndHourglass);
    // What is told from here on is not of an older list.
    m_bytes = {};
    m_lists = {};
    m_busy = true;
    m_cancelRequested = false;
    if (shown != nullptr)
    {
        shown->Empty();
    }
    m_busyChanged.Tell();
    Tell(FetchStage::Running);
    m_with.statusBox.Clear();
    m_with.statusBox.AddLine("Attempting to connect...");
    m_with.loop.Yield();
    const auto lock = WaitForOthers();
    m_ownsFiles = lock.has_value();
    if (m_ownsFiles)
    {
        m_files.Delete(m_with.log);
    }
    if (!m_cancelRequested)
    {
        Connect(shown);
    }
    if (m_cancelRequested)
    {
        m_bytes = {};
        m_lists = {};
        m_with.statusBox.AddLine("Connection Canceled");
        Tell(FetchStage::Canceled);
    }
    m_cancelRequested = false;
    m_busy = false;
    m_busyChanged.Tell();
    m_with.pointer.SetShape(PointerShape::Normal);
}

void ListsFetch::Connect(ShownLists* shown)
{
    Tell(FetchStage::Running);
    auto versions = Download(FetchedFiles::kVersionListName, m_files.versionList);
    if (!versions)
    {
        m_with.loop.Yield();
        Fail(versions.Failure(), versions.Failure());
        return;
    }
    if (m_cancelRequested)
    {
        return;
    }
    auto manufacturers = Download(FetchedFiles::kManufacturerListName, m_files.manufacturerList);
    m_with.loop.Yield();
    if (m_cancelRequested)
    {
        return;
    }
    if (m_ownsFiles && !MFile::FileExists(m_files.versionList))
    {
        m_with.statusBox.AddLine("Version information did not successfully download");
        m_with.loop.Yield();
        Fail({error_code::kFileMissing, m_files.versionList + " was deleted by another program."},
             manufacturers ? Error{} : manufacturers.Failure());
        return;
    }
    m_bytes.versions = std::move(versions).Value();
    m_report.equipmentFailure.reset();
    if (manufacturers)
    {
        m_bytes.manufacturers = std::move(manufacturers).Value();
    }
    else
    {
        m_report.equipmentFailure = manufacturers.Failure();
    }
    m_with.statusBox.AddLine("Version information successfully downloaded");
    Adopt(shown);
    m_with.statusBox.AddLine("Program and database lists have been refreshed");
}

/// Makes what came the lists that count, also what is none: nobody is told of an update then.
void ListsFetch::Adopt(ShownLists* shown)
{
    Parse();
    if (shown != nullptr)
    {
        if (m_ownsFiles && !m_bytes.manufacturers.empty())
        {
            TakeOutServerValues(m_files.manufacturerList, m_with.log);
        }
        shown->Refresh(m_lists);
        shown->ShowSelectedProgram();
    }
    if (m_lists.versions.IsList())
    {
        m_report.when = m_with.now();
        Tell(FetchStage::Done);
    }
    else
    {
        m_report.reason = NoList("version");
        m_with.log.Failure("Fetching the version list", m_report.reason);
        Tell(FetchStage::Failed);
    }
}

void ListsFetch::Parse()
{
    m_lists.versions = VersionList(m_bytes.versions);
    m_lists.headlines = ReadHeadlines(m_lists.versions.Sections(),
                                      m_server.Address(vendor_path::kNews), m_with.log);
    for (const std::string& complaint : m_lists.versions.Complaints())
    {
        m_with.log.Write("The version list: " + complaint);
    }
    if (m_bytes.manufacturers.empty())
    {
        return;
    }
    auto list = ParseManufacturerList(m_bytes.manufacturers, m_server.webServer);
    for (const std::string& complaint : list.complaints)
    {
        m_with.log.Write("The manufacturer list: " + complaint);
    }
    if (list.isList)
    {
        m_lists.equipment = std::make_shared<const ManufacturerList>(std::move(list));
    }
    else
    {
        m_report.equipmentFailure = NoList("manufacturer");
        m_with.log.Failure("Fetching the manufacturer list", *m_report.equipmentFailure);
    }
}

std::optional<platform::SharedLock> ListsFetch::WaitForOthers()
{
    const auto began = steady_clock::now();
    const auto end =
        std::min(began + kLongestWait, m_end.value_or(steady_clock::time_point::max()));
    std::optional<steady_clock::time_point> refused; // For the first time in a row.
    while (true)
    {
        auto lock = platform::SharedLock::Take(m_files.lock, std::chrono::milliseconds(0));
        if (lock)
        {
            return std::move(lock).Value();
        }
        const auto now = steady_clock::now();
        const bool isHeld = lock.Failure().code == error_code::kLocked;
        if (m_cancelRequested)
        {
            return std::nullopt;
        }
        refused = isHeld ? std::nullopt : std::optional(refused.value_or(now));
        if (now >= (isHeld ? end : *refused + kLongestRefusal))
        {
            m_with.log.Failure("The list files are left alone, as their lock cannot be had",
                               lock.Failure());
            return std::nullopt;
        }
        if (isHeld && m_report.stage != FetchStage::Waiting)
        {
            Tell(FetchStage::Waiting);
        }
        m_with.loop.WaitAndYield(kBetweenTries);
    }
}

Result<std::string> ListsFetch::Download(std::string_view name, const std::string& path)
{
    const std::string address = m_server.Address(std::string(vendor_path::kLists).append(name));
    auto bytes =
        m_ownsFiles ? m_with.urlToFile.Download(address, path) : m_with.urlToFile.Read(address);
    if (!bytes && !m_cancelRequested)
    {
        m_with.log.Failure("Downloading " + address, bytes.Failure());
    }
    return bytes;
}

void ListsFetch::Fail(const Error& reason, const Error& lastOfDownloads)
{
    if (m_cancelRequested)
    {
        return;
    }
    m_report.reason = reason;
    m_with.statusBox.AddLine(InternetErrorText(lastOfDownloads.code, lastOfDownloads.description));
    Tell(FetchStage::Failed);
}

void ListsFetch::Tell(FetchStage stage)
{
    m_report.stage = stage;
    m_reportChanged.Tell();
}

void ListsFetch::Cancel()
{
    if (m_busy && !m_cancelRequested)
    {
        m_cancelRequested = true;
        Tell(FetchStage::Canceling);
    }
}

void ListsFetch::BreakOff()
{
    Cancel();
    m_with.urlToFile.Cancel();
}

void ListsFetch::EndBy(steady_clock::time_point end)
{
    m_end = end;
    m_with.urlToFile.EndBy(end);
}

void ListsFetch::TakeFiles()
{
    const auto versions = ReadFile(m_files.versionList);
    const auto manufacturers = ReadFile(m_files.manufacturerList);
    if (!versions && !manufacturers)
    {
        return;
    }
    m_bytes = {versions ? versions.Value() : "", manufacturers ? manufacturers.Value() : ""};
    m_report.equipmentFailure.reset();
    if (!manufacturers)
    {
        m_report.equipmentFailure = manufacturers.Failure();
    }
    Parse();
    const auto written = MFile::ModificationTime(m_files.versionList);
    if (m_lists.versions.IsList() && written)
    {
        m_report.when = written.Value();
        m_report.stage = FetchStage::Done;
    }
    m_reportChanged.Tell();
}

Result<std::string> ListsFetch::ReadFile(const std::string& path) const
{
    auto bytes = MFile::ReadAll(path, kMostBytesOfAList);
    if (!bytes && bytes.Failure().code != error_code::kFileMissing)
    {
        m_with.log.Failure("Reading " + path, bytes.Failure());
    }
    return bytes;
}

void ListsFetch::Take(ListBytes bytes, const FetchReport& report)
{
    m_bytes = std::move(bytes);
    Parse();
    m_report = report;
    m_reportChanged.Tell();
}

void ListsFetch::TakeOutServers()
{
    if (!MFile::FileExists(m_files.manufacturerList))
    {
        return;
    }
    if (const auto lock = platform::SharedLock::Take(m_files.lock, kLongestRefusal); !lock)
    {
        m_with.log.Failure("The manufacturer list's file is left as it is", lock.Failure());
        return;
    }
    TakeOutServerValues(m_files.manufacturerList, m_with.log);
}

void ListsFetch::DeleteFiles()
{
    const auto lock = platform::SharedLock::Take(m_files.lock, kLongestRefusal);
    if (!lock && lock.Failure().code == error_code::kLocked)
    {
        m_with.log.Write("The list files are left to another update manager, which fetches them");
        return;
    }
    m_files.Delete(m_with.log);
}

} // namespace velmo
