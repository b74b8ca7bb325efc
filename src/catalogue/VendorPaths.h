#pragma once

#include <string_view>

/// Where the vendor's server keeps what is no program's own page: all its fixed paths, in one place.
/// VendorServer::Address() puts the server before them.
namespace velmo::vendor_path
{

/// Where both lists lie, under the names that they bear here (manager/FetchedFiles.h).
inline constexpr std::string_view kLists = "/pub/demo/";

/// Told instead of an update page where a program has none.
inline constexpr std::string_view kNoUpdatePage = "/web/errors/noupdatepage.txt";

inline constexpr std::string_view kNews = "/web/newsroom/index.htm#latestnews";

/// Where setups of equipment lie unless the manufacturer list names other folders.
inline constexpr std::string_view kDatabases = "/pub/mervala/mdb/";
inline constexpr std::string_view kPictures = "/pub/mervala/pic/";

} // namespace velmo::vendor_path
