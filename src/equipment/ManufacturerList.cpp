#include "equipment/ManufacturerList.h"

#include "platform/AnsiText.h"
#include "platform/MFile.h"
#include "settings/CINIFileHandler.h"
#include "settings/TextCase.h"

#include <cstdint>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::uint64_t kMostBytes = 16U << 20;
constexpr const char* kGeneral = "Manufver General";

EquipmentServer ReadServer(const std::string& path, const std::string& defaultAddress,
                           ServerValues values, DiagnosticLog& log)
{
    CINIFileHandler list(log);
    list.AppProfileFileName(path);
    EquipmentServer server{
        list.MyGetAppProfileString(kGeneral, "Server Address HTTP", defaultAddress),
        list.MyGetAppProfileString(kGeneral, "Server Folder MDBs HTTP", "/pub/mervala/mdb/"),
        list.MyGetAppProfileString(kGeneral, "Server Folder Pictures HTTP", "/pub/mervala/pic/"),
    };
    if (values == ServerValues::TakeOut)
    {
        list.MyDeleteAppProfileSection(kGeneral);
    }
    return server;
}

const std::string& Value(const CSectionData& section, std::string_view key)
{
    static const std::string none;
    const CEntry* entry = section.Entries.Item(key);
    return entry != nullptr ? entry->Value : none;
}

} // namespace

Result<ManufacturerList> ReadManufacturerList(const std::string& path,
                                              const std::string& defaultAddress,
                                              ServerValues values, DiagnosticLog& log)
{
    EquipmentServer server = ReadServer(path, defaultAddress, values, log);
    const auto bytes = platform::MFile::ReadAll(path, kMostBytes);
    if (!bytes)
    {
        return bytes.Failure();
    }
    return ManufacturerList{std::move(server),
                            LoadSectionData(platform::FromFileBytes(bytes.Value()))};
}

std::optional<PictureGroup> ListedPictures(const CSectionData& section,
                                           const std::string& pictureRoot)
{
    if (Value(section, "PictureSetupFilename").empty())
    {
        return std::nullopt;
    }
    return PictureGroup{section.Name, pictureRoot + section.Name + "\\",
                        Value(section, "DatePicturesModified"),
                        Value(section, "DateCheckerPictureFile")};
}

std::optional<ManufacturerEntry> ListedDatabase(const CSectionData& section, std::size_t number)
{
    const std::string prefix = std::to_string(number);
    const auto numbered = [&](std::string_view key) -> const std::string& {
        return Value(section, prefix + std::string(key));
    };
    const std::string& file = numbered("MDBFilename");
    if (file.empty())
    {
        return std::nullopt;
    }
    ManufacturerEntry entry;
    entry.SectionName = section.Name;
    entry.DatabaseSetupFile = LowerCase(section.Name + ".exe");
    entry.PictureSetupFile = LowerCase(Value(section, "PictureSetupFilename"));
    entry.DatabaseSetupSize = Value(section, "MDBSetupFileSize");
    entry.PictureSetupSize = Value(section, "PictureSetupFileSize");
    const std::string& manufacturer = numbered("ManufacturerName");
    entry.ManufacturerName = manufacturer.empty() ? section.Name : manufacturer;
    entry.DatabaseFile = file;
    entry.DatabaseLatestDate = numbered("ReleaseDate");
    if (const std::string& date = Value(section, "DatePicturesModified"); !date.empty())
    {
        entry.PicturesLatestDate = date;
    }
    for (std::size_t i = 0; i < kEquipmentKindKeys.size(); ++i)
    {
        entry.EquipmentKinds[i] = numbered(kEquipmentKindKeys[i]);
    }
    if (!entry.PictureSetupFile.empty())
    {
        entry.InstallPictures = TickState::Unticked;
    }
    return entry;
}

} // namespace velmo
