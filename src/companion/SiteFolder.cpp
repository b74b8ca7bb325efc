#include "companion/SiteFolder.h"

#include "catalogue/VendorPaths.h"
#include "manager/FetchedFiles.h"
#include "platform/ErrorCode.h"
#include "text/TextCase.h"

#include <algorithm>
#include <filesystem>

namespace velmo::companion
{
namespace
{

namespace fs = std::filesystem;

std::string Utf8(const std::u8string& text)
{
    return {text.begin(), text.end()};
}

SiteFile FileAt(const fs::path& site, const std::string& path)
{
    const std::u8string relative(path.begin() + 1, path.end());
    return {path, Utf8((site / relative).make_preferred().u8string())};
}

} // namespace

Result<std::vector<SiteFile>> SignableFiles(const std::string& site)
{
    std::error_code failure;
    const fs::path folder = fs::absolute(std::u8string(site.begin(), site.end()), failure);
    std::vector<SiteFile> files;
    for (const auto name : {FetchedFiles::kVersionListName, FetchedFiles::kManufacturerListName})
    {
        files.push_back(FileAt(folder, std::string(vendor_path::kLists) + std::string(name)));
    }
    fs::recursive_directory_iterator entry(folder, failure);
    for (; !failure && entry != fs::recursive_directory_iterator(); entry.increment(failure))
    {
        std::error_code
            ignored; // what cannot be looked at is no setup, and fails when it is asked for
        if (entry->is_regular_file(ignored) &&
            EqualInAnyCase(Utf8(entry->path().extension().u8string()), ".exe"))
        {
            const fs::path relative = entry->path().lexically_relative(folder);
            files.push_back(FileAt(folder, "/" + Utf8(relative.generic_u8string())));
        }
    }
    if (failure)
    {
        return Error{error_code::kFolderMissing,
                     "The folder " + site + " cannot be read: " + failure.message()};
    }
    std::ranges::sort(files, {}, &SiteFile::path);
    return files;
}

Result<FileDigest> DigestOfFile(const std::string& file)
{
    return platform::OpenFile::Open(file, platform::OpenFile::For::Reading)
        .Then([](const platform::OpenFile& open) { return DigestOf(open); });
}

} // namespace velmo::companion
