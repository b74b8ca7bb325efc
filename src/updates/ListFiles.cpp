#include "updates/ListFiles.h"

#include "catalogue/CommonFolder.h"
#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"

#include <utility>

namespace velmo
{
namespace
{

constexpr std::string_view kServerFolder = "/pub/demo/";

} // namespace

ListFiles::ListFiles(std::string folder)
    : programFolder(WithBackslash(std::move(folder))),
      versionList(programFolder + std::string(kVersionListName)),
      manufacturerList(programFolder + std::string(kManufacturerListName))
{}

std::string ListFiles::VersionListAddressPath()
{
    return std::string(kServerFolder) + std::string(kVersionListName);
}

std::string ListFiles::ManufacturerListAddressPath()
{
    return std::string(kServerFolder) + std::string(kManufacturerListName);
}

bool ListFiles::PointAtTestLists()
{
    return kVersionListName == kTestVersionListName ||
           kManufacturerListName == kTestManufacturerListName;
}

void ListFiles::Delete(DiagnosticLog& log) const
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
