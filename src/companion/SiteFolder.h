#pragma once

#include "platform/Result.h"
#include "trust/FileDigest.h"

#include <string>
#include <string_view>
#include <vector>

/// A folder that is laid out as the vendor's web server: what lies in it at "pub/demo/version.ini" is
/// the server's "/pub/demo/version.ini".
namespace velmo::companion
{

/// A file of it that is published with a signature.
struct SiteFile
{
    std::string path; ///< On the server.
    std::string file; ///< Here, as MFile takes it.
};

/// Both lists, whether they are there or not, and every setup: each file whose name ends in ".exe", in
/// sub-folders too, but through no link to a folder. By their paths. Error 3 without such a folder.
[[nodiscard]] Result<std::vector<SiteFile>> SignableFiles(const std::string& site);

/// Reads the file to its end. Errors as in MFile.h, 30.
[[nodiscard]] Result<FileDigest> DigestOfFile(const std::string& file);

} // namespace velmo::companion
