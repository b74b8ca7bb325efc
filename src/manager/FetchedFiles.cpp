#include "manager/FetchedFiles.h"

#include "catalogue/CommonFolder.h"
#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"

#include <utility>

namespace velmo
{

FetchedFiles::FetchedFiles(std::string folder)
    : programFolder(WithBackslash(std::move(folder))),
      versionList(programFolder + std::string(kVersionListName)),
      manufacturerList(programFolder + std::string(kManufacturerListName)),
      lock(programFolder + "lists")
{}

void FetchedFiles::Delete(DiagnosticLog& log) const
{
    for (const std::string& path : {versionList, manufacturerList})
    {
        if (const auto deleted = platform::MFile::DeleteIfExists(path); !deleted)
        {
            log.Failure("Deleting " + path, deleted.Failure());
        }
    }
}

} // namespace velmo
