#include "manager/ListsFetch.h"

#include "catalogue/VendorPaths.h"
#include "controls/MousePointer.h"
#include "controls/StatusBoxModel.h"
#include "download/InternetErrorText.h"
#include "download/UrlToFile.h"
#include "manager/ShownLists.h"
#include "platform/MFile.h"
#include "platform/MessageLoop.h"
#include "settings/DiagnosticLog.h"

#include <utility>

namespace velmo
{

ListsFetch::ListsFetch(FetchedFiles files, VendorServer server, const Surroundings& surroundings)
    : m_files(std::move(files)), m_server(std::move(server)), m_with(surroundings)
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
    // Stale files must never be read.
    m_files.Delete(m_with.log);
    m_busy = true;
    m_cancelRequested = false;
    m_succeeded = false;
    if (shown != nullptr)
    {
        shown->ClearHeadlines();
        shown->Refresh();
    }
    m_busyChanged.Tell();
    m_with.statusBox.Clear();
    m_with.statusBox.AddLine("Attempting to connect...");
    m_with.loop.Yield();
    if (!m_cancelRequested)
    {
        Connect(shown);
    }
    if (m_cancelRequested)
    {
        m_with.statusBox.AddLine("Connection Canceled");
    }
    m_cancelRequested = false;
    m_busy = false;
    m_busyChanged.Tell();
    m_with.pointer.SetShape(PointerShape::Normal);
}

void ListsFetch::Connect(ShownLists* shown)
{
    if (!Download(FetchedFiles::kVersionListName, m_files.versionList))
    {
        m_with.loop.Yield();
        AddErrorLine();
        return;
    }
    // A missing manufacturer list is noticed by the equipment list.
    Download(FetchedFiles::kManufacturerListName, m_files.manufacturerList);
    m_with.loop.Yield();
    if (m_cancelRequested)
    {
        return;
    }
    if (!platform::MFile::FileExists(m_files.versionList))
    {
        m_with.statusBox.AddLine("Version information did not successfully download");
        m_with.loop.Yield();
        AddErrorLine();
        return;
    }
    m_succeeded = true;
    m_with.statusBox.AddLine("Version information successfully downloaded");
    if (shown != nullptr)
    {
        shown->Refresh();
        shown->LoadHeadlines();
        shown->ShowSelectedProgram();
    }
    m_with.statusBox.AddLine("Program and database lists have been refreshed");
}

bool ListsFetch::Download(std::string_view name, const std::string& path)
{
    const std::string address = m_server.Address(std::string(vendor_path::kLists).append(name));
    const Result<Done> outcome = m_with.urlToFile.Download(address, path);
    m_lastError = outcome ? Error{} : outcome.Failure();
    if (!outcome)
    {
        m_with.log.Failure("Downloading " + address, m_lastError);
    }
    return outcome.Ok();
}

void ListsFetch::AddErrorLine()
{
    if (!m_cancelRequested)
    {
        m_with.statusBox.AddLine(LastErrorText());
    }
}

std::string ListsFetch::LastErrorText() const
{
    return InternetErrorText(m_lastError.code, m_lastError.description);
}

} // namespace velmo
