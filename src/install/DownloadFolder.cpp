#include "install/DownloadFolder.h"

#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;

constexpr const char* kUnknownCommonFolder = "\\";

} // namespace

DownloadFolder::DownloadFolder(const std::string& commonFolder, DiagnosticLog& log)
    : m_path(commonFolder == kUnknownCommonFolder ? std::string() : commonFolder + "Temp\\"),
      m_log(log)
{}

Result<Done> DownloadFolder::Prepare() const
{
    if (m_path.empty())
    {
        return CheckUsable();
    }
    if (MFile::IsLink(m_path))
    {
        if (auto removed = Logged("Removing the link ", MFile::RemoveFolder(m_path)); !removed)
        {
            return removed;
        }
    }
    if (MFile::FolderExists(m_path))
    {
        return Logged("Emptying ", DeleteFiles());
    }
    return Logged("Creating ", MFile::CreateFolders(m_path));
}

Result<Done> DownloadFolder::CheckUsable() const
{
    if (m_path.empty())
    {
        return Error{error_code::kFolderMissing, "The vendor's common folder is not known."};
    }
    return MFile::IsLink(m_path)
               ? Result<Done>(Error{error_code::kRefused, "The folder " + m_path + " is a link."})
               : Done{};
}

void DownloadFolder::Remove() const
{
    if (m_path.empty())
    {
        return;
    }
    if (MFile::IsLink(m_path))
    {
        (void)Logged("Removing the link ", MFile::RemoveFolder(m_path));
    }
    else if (MFile::FolderExists(m_path) && Logged("Emptying ", DeleteFiles()))
    {
        (void)Logged("Removing ", MFile::RemoveFolder(m_path));
    }
}

Result<Done> DownloadFolder::DeleteFiles() const
{
    const auto names = MFile::FileNames(m_path);
    if (!names)
    {
        return names.Failure();
    }
    Result<Done> outcome = Done{};
    for (const std::string& name : names.Value())
    {
        if (auto deleted = MFile::DeleteIfExists(m_path + name); !deleted && outcome)
        {
            outcome = Error{deleted.Failure().code, name + ": " + deleted.Failure().description};
        }
    }
    return outcome;
}

Result<Done> DownloadFolder::Logged(const char* attempt, Result<Done> outcome) const
{
    if (!outcome)
    {
        m_log.Failure(attempt + m_path, outcome.Failure());
    }
    return outcome;
}

} // namespace velmo
