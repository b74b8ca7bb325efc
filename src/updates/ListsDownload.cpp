#include "updates/ListsDownload.h"

#include "controls/MousePointer.h"
#include "controls/StatusBoxModel.h"
#include "download/InternetErrorText.h"
#include "download/UrlToFile.h"
#include "platform/MFile.h"
#include "platform/MessageLoop.h"
#include "settings/DiagnosticLog.h"

#include <utility>

namespace velmo
{

ListsDownload::ListsDownload(ListFiles files, VendorServer server, UrlToFile& urlToFile,
                             platform::MessageLoop& loop, StatusBoxModel& statusBox,
                             MousePointer& pointer, DiagnosticLog& log)
    : m_files(std::move(files)), m_server(std::move(server)), m_urlToFile(urlToFile), m_loop(loop),
      m_statusBox(statusBox), m_pointer(pointer), m_log(log)
{}

std::string_view ListsDownload::ButtonCaption(bool busy)
{
    return busy ? "&Cancel" : "&Refresh Lists";
}

void ListsDownload::Cancel()
{
    m_cancelRequested = m_busy;
}

void ListsDownload::Fetch(ListsDownloadClient& client)
{
    if (m_busy)
    {
        return;
    }
    m_pointer.SetShape(PointerShape::ArrowAndHourglass);
    // Stale files must never be read.
    m_files.Delete(m_log);
    client.ClearHeadlines();
    m_busy = true;
    m_cancelRequested = false;
    m_succeeded = false;
    client.RefreshLists();
    client.OnBusyChanged(true);
    m_statusBox.Clear();
    m_statusBox.AddLine("Attempting to connect...");
    m_loop.Yield();

    if (!m_cancelRequested)
    {
        Connect(client);
    }
    if (m_cancelRequested)
    {
        m_statusBox.AddLine("Connection Canceled");
    }
    else
    {
        client.RedrawProgramList();
    }

    m_cancelRequested = false;
    m_busy = false;
    client.OnBusyChanged(false);
    m_pointer.SetShape(PointerShape::Normal);
}

void ListsDownload::Connect(ListsDownloadClient& client)
{
    if (!Download(ListFiles::VersionListAddressPath(), m_files.versionList))
    {
        m_loop.Yield();
        AddErrorLine();
        return;
    }
    // A missing manufacturer list is noticed by the equipment list.
    Download(ListFiles::ManufacturerListAddressPath(), m_files.manufacturerList);
    m_loop.Yield();
    if (m_cancelRequested)
    {
        return;
    }
    if (platform::MFile::FileExists(m_files.versionList))
    {
        RefreshFromLists(client);
    }
    else
    {
        m_statusBox.AddLine("Version information did not successfully download");
        m_loop.Yield();
        AddErrorLine();
    }
}

void ListsDownload::RefreshFromLists(ListsDownloadClient& client)
{
    m_succeeded = true;
    m_statusBox.AddLine("Version information successfully downloaded");
    client.RefreshLists();
    client.LoadHeadlines();
    client.ShowSelectedProgram();
    m_statusBox.AddLine("Program and database lists have been refreshed");
}

bool ListsDownload::Download(std::string_view addressPath, const std::string& path)
{
    const std::string address = m_server.Address(addressPath);
    if (m_urlToFile.Download(address, path))
    {
        return true;
    }
    m_log.Failure("Downloading " + address, m_urlToFile.LastError());
    return false;
}

void ListsDownload::AddErrorLine()
{
    if (!m_cancelRequested)
    {
        m_statusBox.AddLine(LastErrorText());
    }
}

std::string ListsDownload::LastErrorText() const
{
    const Error& error = m_urlToFile.LastError();
    return InternetErrorText(error.code, error.description);
}

} // namespace velmo
