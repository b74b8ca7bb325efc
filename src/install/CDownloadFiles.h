#pragma once

#include "settings/KeyedCollection.h"

#include <string>
#include <string_view>

namespace velmo
{

/// One file to fetch.
struct CDownloadFile
{
    double FileSize = 0;  ///< Bytes, as the vendor's list gives them.
    std::string FileName; ///< On the server and here.
};

class CDownloadFiles : public KeyedCollection<CDownloadFile>
{
  public:
    /// The new file; nullptr when there is one of that key. Without a key it has none.
    CDownloadFile* Add(std::string_view argFileName, double argFileSize, std::string_view sKey = {})
    {
        return KeyedCollection::Add(sKey, {argFileSize, std::string(argFileName)});
    }
};

} // namespace velmo
