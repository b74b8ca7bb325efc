#pragma once

#include "equipment/ManufacturerList.h"
#include "news/Headlines.h"
#include "updates/VersionList.h"

#include <memory>
#include <string>
#include <vector>

namespace velmo
{

/// The vendor's two lists as they came, in bytes; empty where one did not come.
struct ListBytes
{
    std::string versions;
    std::string manufacturers;
};

/// What the vendor's two lists say. A plain value.
struct VendorLists
{
    VersionList versions;
    std::vector<Headline> headlines;
    std::shared_ptr<const ManufacturerList> equipment; ///< Null: it could not be had.
};

} // namespace velmo
