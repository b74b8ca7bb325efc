#include "sample/SampleSetups.h"

#include "sample/EquipmentDatabaseFile.h"
#include "sample/SetupPayload.h"
#include "text/UnitedStatesDate.h"

#include <algorithm>
#include <utility>

namespace velmo::sample
{
namespace
{

std::string DatabaseSetup(std::string_view program, const EquipmentSection& section,
                          std::size_t size)
{
    std::vector<PayloadFile> files;
    for (const EquipmentDatabase& database : section.databases)
    {
        files.push_back({database.file, EquipmentDatabaseFile(database.file, database.released)});
    }
    return WithPayload(program, files, size);
}

std::string PictureSetup(std::string_view program, const EquipmentSection& section,
                         std::size_t size)
{
    std::vector<PayloadFile> files;
    for (auto& [name, bytes] : PictureFiles(section, section.pictures->modified))
    {
        files.push_back({"EquipPic\\" + section.name + "\\" + name, std::move(bytes)});
    }
    return WithPayload(program, files, size);
}

} // namespace

std::vector<std::pair<std::string, std::string>> PictureFiles(const EquipmentSection& section,
                                                              std::chrono::year_month_day modified)
{
    return {{section.pictures->checker, "In place of a picture of " + section.name + ".\r\n"},
            {"PicInfo.ini",
             "[" + section.name + "]\r\nDatePicturesModified=" + FormatDate(modified) + "\r\n"}};
}

SampleSetups::SampleSetups(std::string program)
    : m_program(std::move(program)), m_sections(SampleEquipment())
{
    if (m_program.empty())
    {
        return;
    }
    for (EquipmentSection& section : m_sections)
    {
        Add(kDatabaseFolder, section.setup, section.setupSize,
            [this, &section](std::size_t size) { return DatabaseSetup(m_program, section, size); });
        if (section.pictures)
        {
            Add(kPictureFolder, section.pictures->setup, section.pictures->setupSize,
                [this, &section](std::size_t size) {
                    return PictureSetup(m_program, section, size);
                });
        }
    }
}

void SampleSetups::Add(std::string_view folder, const std::string& name, std::uint64_t& size,
                       const Maker& make)
{
    // A setup that is larger than planned is listed as large as it is.
    size = std::max<std::uint64_t>(size, make(0).size());
    m_makers[std::string(folder) + name] = [make, &size] {
        return make(static_cast<std::size_t>(size));
    };
}

std::optional<std::string> SampleSetups::Make(std::string_view path) const
{
    const auto found = m_makers.find(path);
    return found == m_makers.end() ? std::nullopt : std::optional(found->second());
}

} // namespace velmo::sample
