#include "sample/InstalledEquipment.h"

#include "platform/MFile.h"
#include "sample/EquipmentDatabaseFile.h"
#include "sample/SampleSetups.h"

#include <array>
#include <chrono>

namespace velmo::sample
{
namespace
{

namespace MFile = platform::MFile;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::size_t kOneIn = 3; ///< Databases and groups of pictures.
constexpr std::chrono::days kBehind{407};

/// What the installed ones are, over and over.
constexpr std::array kDatabaseStates{
    InstalledState::Old,     InstalledState::Current, InstalledState::Old,
    InstalledState::Current, InstalledState::Damaged, InstalledState::Current,
};
constexpr std::array kPictureStates{
    InstalledState::Current,
    InstalledState::Old,
    InstalledState::Unknown,
    InstalledState::Current,
};

/// One in each cycle of states has a text as its date, which is of 2013.
bool HasTextDate(std::size_t installedNumber)
{
    return installedNumber % kDatabaseStates.size() == 2;
}

template <typename States>
InstalledState StateOf(const States& states, std::size_t number)
{
    return number % kOneIn == 0 ? states[number / kOneIn % states.size()] : InstalledState::None;
}

year_month_day Earlier(year_month_day date)
{
    return sys_days(date) - kBehind;
}

std::string InstalledBytes(const EquipmentDatabase& database, std::size_t number)
{
    const InstalledState state = InstalledDatabaseState(number);
    if (state == InstalledState::Old && HasTextDate(number / kOneIn))
    {
        return TextDatedDatabaseFile();
    }
    std::string file = EquipmentDatabaseFile(database.file, state == InstalledState::Old
                                                                ? Earlier(database.released)
                                                                : database.released);
    if (state == InstalledState::Damaged)
    {
        file.resize(file.size() / 100); // Broken off while it was copied.
    }
    return file;
}

Result<Done> InstallPictures(const EquipmentSection& section, InstalledState state,
                             const std::string& folder)
{
    if (auto made = MFile::CreateFolders(folder); !made)
    {
        return made;
    }
    if (state == InstalledState::Unknown)
    {
        return MFile::WriteAll(folder + "copied-by-hand.jpg", "In place of a picture.\r\n");
    }
    const year_month_day latest = section.pictures->modified;
    for (const auto& [name, bytes] :
         PictureFiles(section, state == InstalledState::Old ? Earlier(latest) : latest))
    {
        if (auto written = MFile::WriteAll(folder + name, bytes); !written)
        {
            return written;
        }
    }
    return Done{};
}

} // namespace

InstalledState InstalledDatabaseState(std::size_t number)
{
    return StateOf(kDatabaseStates, number);
}

InstalledState InstalledPictureState(std::size_t section)
{
    return StateOf(kPictureStates, section);
}

Result<Done> InstallSampleEquipment(const std::string& dataFolder)
{
    Result<Done> result = Done{};
    const auto keep = [&](Result<Done> step) {
        if (result && !step)
        {
            result = std::move(step);
        }
    };
    std::size_t database = 0;
    std::size_t number = 0;
    for (const EquipmentSection& section : SampleEquipment())
    {
        for (const EquipmentDatabase& each : section.databases)
        {
            if (InstalledDatabaseState(database) != InstalledState::None)
            {
                keep(MFile::WriteAll(dataFolder + each.file, InstalledBytes(each, database)));
            }
            ++database;
        }
        const InstalledState pictures = InstalledPictureState(number++);
        if (section.pictures && pictures != InstalledState::None)
        {
            keep(InstallPictures(section, pictures,
                                 dataFolder + "EquipPic\\" + section.name + "\\"));
        }
    }
    return result;
}

} // namespace velmo::sample
