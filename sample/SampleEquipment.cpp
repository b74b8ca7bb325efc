#include "sample/SampleEquipment.h"

#include "text/TextCase.h"
#include "text/UnitedStatesDate.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velmo::sample
{
namespace
{

/// A line of products: what a manufacturer's database bears in its name, and what is in it.
struct ProductLine
{
    char letter;
    std::string_view name;
    std::array<std::string_view, 4> kinds;
};

constexpr std::array<ProductLine, 8> kLines{{
    {'C', "Comfort", {"AC", "HP", "2SpeedAC"}},
    {'S', "Splits", {"AC", "HP"}},
    {'R', "Rooftop", {"AC", "HP", "GasFurnace"}},
    {'F', "Furnaces", {"GasFurnace", "PropaneFurnace", "GasAndPropaneFurnace", "2SpeedFurnace"}},
    {'O', "Oil Heat", {"FuelOilFurnace", "FuelOilBoiler"}},
    {'B', "Boilers", {"GasBoiler", "PropaneBoiler", "GasAndPropaneBoiler"}},
    {'G', "Geothermal", {"GSHP", "2SpeedGSHP"}},
    {'W', "Water Heating", {"WaterHeater"}},
}};

struct Maker
{
    std::string_view name;
    std::string_view lines; ///< Letters of its product lines: one database each.
    bool hasPictures;
};

// clang-format off
constexpr std::array<Maker, 60> kMakers{{
    {"Aldervane", "SO", true},
    {"Arkenfold", "OW", true},
    {"Ashgrail", "RW", true},
    {"Barrowheat", "CROBW", true},
    {"Belquint", "SRG", true},
    {"Bramhollow", "RFG", true},
    {"Brenvick", "CBW", true},
    {"Calderfrost", "RFBGW", true},
    {"Carnwith", "CGW", true},
    {"Cindermoor", "O", true},
    {"Coldmerrow", "CBGW", true},
    {"Corvanne", "CBG", false},
    {"Dalewick", "FOBW", true},
    {"Darnbright", "OB", true},
    {"Drumkelda", "RBG", true},
    {"Dunholt", "CF", false},
    {"Eastmarl", "CSFOB", true},
    {"Elderforge", "CSR", true},
    {"Emberlyn", "SRFOBG", true},
    {"Fallowmere", "CSRFBW", false},
    {"Fennickel", "ROGW", true},
    {"Frostelm", "RBG", true},
    {"Garrowby", "CSBGW", true},
    {"Glimmerfen", "SRB", false},
    {"Gorsedale", "CFW", true},
    {"Hallowtarn", "CSRGW", true},
    {"Hazelcrook", "ROG", true},
    {"Heathmurk", "SOBW", true},
    {"Holmward", "CFOB", true},
    {"Icklewick", "FG", true},
    {"Inverbeck", "G", true},
    {"Jarrowfield", "CFBG", true},
    {"Kelderon", "CSFGW", true},
    {"Kestermoor", "CRFOGW", true},
    {"Kilnbrook", "CSOG", true},
    {"Larkenstove", "SR", true},
    {"Lindrake", "CW", true},
    {"Lowenfell", "SFOW", true},
    {"Marrowgate", "RFOGW", true},
    {"Merewyth", "CSFB", true},
    {"Nethervale", "CRFW", true},
    {"Northvane", "CRBW", true},
    {"Oakendraft", "FO", true},
    {"Orrinshaw", "CSROBW", true},
    {"Pellbrook", "COG", false},
    {"Pendrift", "COB", true},
    {"Quarrelby", "O", true},
    {"Quillmoor", "B", true},
    {"Ravenstoke", "RW", true},
    {"Rimeford", "FOG", false},
    {"Sallowby", "CSOBGW", false},
    {"Silverkiln", "SBGW", true},
    {"Skelderby", "RBW", true},
    {"Tarn-Elder", "C", true},
    {"Thornvent", "CRG", true},
    {"Ulverbrook", "SROGW", true},
    {"Vexmoor", "W", true},
    {"Wexholm", "B", false},
    {"Whitterlow", "CSBG", true},
    {"Yarrowkiln", "SFW", true},
}};
// clang-format on

constexpr std::size_t DatabaseCount()
{
    std::size_t count = 0;
    for (const Maker& maker : kMakers)
    {
        count += maker.lines.size();
    }
    return count;
}
static_assert(DatabaseCount() == 200);

const ProductLine& LineOf(char letter)
{
    return *std::find_if(kLines.begin(), kLines.end(),
                         [=](const ProductLine& line) { return line.letter == letter; });
}

std::span<const std::string_view> KindsOf(const ProductLine& line)
{
    const auto end = std::find(line.kinds.begin(), line.kinds.end(), std::string_view());
    return {line.kinds.begin(), end};
}

/// A working day between January 2019 and September 2026, spread by a number.
std::chrono::year_month_day WorkingDay(std::size_t number)
{
    using namespace std::chrono;
    constexpr sys_days kFirst = 2019y / January / 7;
    sys_days day = kFirst + days(number * 389 % 2800);
    const unsigned weekdayNumber = weekday(day).iso_encoding();
    if (weekdayNumber > 5)
    {
        day -= days(weekdayNumber - 5);
    }
    return day;
}

EquipmentDatabase MakeDatabase(const Maker& maker, std::size_t makerNumber, std::size_t number)
{
    const ProductLine& line = LineOf(maker.lines[number - 1]);
    const std::string name(maker.name);
    const bool isOnlyOne = maker.lines.size() == 1;
    const bool isNewFormat = (makerNumber + number) % 5 == 0;
    return {isOnlyOne ? std::string() : name + " " + std::string(line.name),
            LowerCase(name) + std::to_string(number) + (isNewFormat ? ".accdb" : ".mdb"),
            WorkingDay(makerNumber * 7 + number), KindsOf(line)};
}

EquipmentSection MakeSection(const Maker& maker, std::size_t makerNumber)
{
    const std::string name(maker.name);
    EquipmentSection section{name, LowerCase(name) + ".exe", 180'000, std::nullopt, {}};
    for (std::size_t number = 1; number <= maker.lines.size(); ++number)
    {
        section.databases.push_back(MakeDatabase(maker, makerNumber, number));
        section.setupSize += 90'000 + (makerNumber * 7'919 + number * 104'729) % 650'000;
    }
    if (maker.hasPictures)
    {
        section.pictures = PictureGroup{LowerCase(name) + "pic.exe", LowerCase(name) + "01.jpg",
                                        WorkingDay(makerNumber * 11 + 3),
                                        400'000 + makerNumber * 1'299'709 % 38'000'000};
    }
    return section;
}

std::string Line(std::string_view key, std::string_view value)
{
    return std::string(key) + "=" + std::string(value) + "\r\n";
}

std::string DatabaseLines(std::size_t number, const EquipmentDatabase& database)
{
    const std::string prefix = std::to_string(number);
    std::string text;
    if (!database.manufacturer.empty())
    {
        text += Line(prefix + "ManufacturerName", database.manufacturer);
    }
    text += Line(prefix + "MDBFilename", database.file);
    text += Line(prefix + "ReleaseDate", FormatDate(database.released));
    for (const std::string_view kind : database.kinds)
    {
        text += Line(prefix + std::string(kind), "X");
    }
    return text;
}

} // namespace

std::vector<EquipmentSection> SampleEquipment()
{
    std::vector<EquipmentSection> sections;
    for (const Maker& maker : kMakers)
    {
        sections.push_back(MakeSection(maker, sections.size() + 1));
    }
    return sections;
}

std::string ManufacturerListText(std::span<const EquipmentSection> sections,
                                 std::string_view server)
{
    std::string text = "[Manufver General]\r\n";
    text += Line("Server Address HTTP", server);
    text += Line("Server Folder MDBs HTTP", kDatabaseFolder);
    text += Line("Server Folder Pictures HTTP", kPictureFolder);
    for (const EquipmentSection& section : sections)
    {
        text += "\r\n[" + section.name + "]\r\n";
        text += Line("MDBSetupFileSize", std::to_string(section.setupSize));
        if (const auto& pictures = section.pictures)
        {
            text += Line("PictureSetupFilename", pictures->setup);
            text += Line("PictureSetupFileSize", std::to_string(pictures->setupSize));
            text += Line("DatePicturesModified", FormatDate(pictures->modified));
            text += Line("DateCheckerPictureFile", pictures->checker);
        }
        for (std::size_t i = 0; i < section.databases.size(); ++i)
        {
            text += DatabaseLines(i + 1, section.databases[i]);
        }
    }
    return text;
}

} // namespace velmo::sample
