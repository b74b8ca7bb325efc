#pragma once

#include "equipment/EquipmentGrid.h"
#include "equipment/ManufacturerList.h"

namespace velmo
{

/// What the user ticked to be installed, and where it comes from.
struct InstallOrder
{
    EquipmentServer server;
    DownloadSelection databases;
    DownloadSelection pictures;
};

} // namespace velmo
