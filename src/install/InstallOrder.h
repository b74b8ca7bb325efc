#pragma once

#include "install/CDownloadFiles.h"

#include <string>
#include <vector>

namespace velmo
{

/// Setups of one kind, which lie in one folder of the server.
struct SetupFiles
{
    std::string title;  ///< What they are, e.g. "Databases to install".
    std::string folder; ///< On the server, from "/" to "/".
    CDownloadFiles files;
    double bytes = 0; ///< The sum of the files' listed sizes.

    /// A file that is there already counts once.
    void Add(const std::string& name, double size)
    {
        bytes += files.Add(name, size, name) != nullptr ? size : 0;
    }
};

/// What shall be installed, in the order in which it is, and where it comes from.
struct InstallOrder
{
    std::string server; ///< Scheme and host.
    std::vector<SetupFiles> setups;
};

} // namespace velmo
