#pragma once

#include "platform/Result.h"
#include "sample/SampleEquipment.h"

#include <cstddef>
#include <string>

/// What of the sample vendor's equipment is installed on the sample desktop. Always the same.
namespace velmo::sample
{

enum class InstalledState
{
    None,
    Current,
    Old,     ///< Of an earlier date than the list's.
    Damaged, ///< A database whose date cannot be read.
    Unknown, ///< Pictures whose age is not known.
};

/// Of the database of that number in the whole list, from 0. About a third is installed.
[[nodiscard]] InstalledState InstalledDatabaseState(std::size_t number);

/// Of the pictures of the section of that number, from 0.
[[nodiscard]] InstalledState InstalledPictureState(std::size_t section);

/// Installs it into the data folder (ends in "\"). The first step that failed is the error.
Result<Done> InstallSampleEquipment(const std::string& dataFolder);

} // namespace velmo::sample
