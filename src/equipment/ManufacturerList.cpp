#include "equipment/ManufacturerList.h"

#include "catalogue/VendorPaths.h"
#include "platform/AnsiText.h"
#include "settings/CINIFileHandler.h"
#include "settings/CSectionDataCollection.h"
#include "settings/SettingsSnapshot.h"
#include "text/LenientNumber.h"
#include "text/TextCase.h"
#include "text/Utf8.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::size_t kMostSections = 20'000;
constexpr std::size_t kMostDatabases = 100'000;
constexpr std::size_t kLongestLine = 1'024;
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kMostComplaints = 20;
constexpr const char* kGeneral = "Manufver General";

/// Keys that a section has once, for all its databases.
enum SectionKey : std::size_t
{
    kPictureSetup,
    kPictureDate,
    kChecker,
    kPictureBytes,
    kDatabaseBytes,
    kSectionKeys,
};

constexpr std::array<std::string_view, kSectionKeys> kSectionKeyNames{
    "PictureSetupFilename", "DatePicturesModified", "DateCheckerPictureFile",
    "PictureSetupFileSize", "MDBSetupFileSize"};

/// Keys that have the number of a database before them.
enum NumberedKey : std::size_t
{
    kFile,
    kManufacturer,
    kDate,
    kFirstKind,
    kNumberedKeys = kFirstKind + kEquipmentKindKeys.size(),
};

constexpr auto kNumberedKeyNames = [] {
    std::array<std::string_view, kNumberedKeys> names{"MDBFilename", "ManufacturerName",
                                                      "ReleaseDate"};
    std::ranges::copy(kEquipmentKindKeys, names.begin() + kFirstKind);
    return names;
}();

/// The place of a key among those of one kind; their number when it is none of them.
template <std::size_t N>
std::size_t PlaceOf(std::string_view key, const std::array<std::string_view, N>& names)
{
    const auto found = std::ranges::find_if(
        names, [&](std::string_view name) { return EqualInAnyCase(key, name); });
    return static_cast<std::size_t>(found - names.begin());
}

/// One numbered value of the section that is being read.
struct NumberedValue
{
    std::uint32_t number;
    std::size_t key;
    std::string_view value;
};

/// The number and the key of a numbered entry. Numbers have no leading zeros; a kind's own name may
/// begin with a digit ("12SpeedAC" is database 1's "2SpeedAC").
std::optional<NumberedValue> Numbered(const SectionLine& line)
{
    const std::size_t digits =
        std::min(line.name.find_first_not_of("0123456789"), line.name.size());
    for (const std::size_t split : {digits, digits - 1})
    {
        if (split == 0 || split > digits || line.name.front() == '0')
        {
            break;
        }
        NumberedValue value{0, PlaceOf(line.name.substr(split), kNumberedKeyNames), line.value};
        const char* end = line.name.data() + split;
        const auto read = std::from_chars(line.name.data(), end, value.number);
        if (value.key < kNumberedKeys && read.ec == std::errc() && read.ptr == end)
        {
            return value;
        }
    }
    return std::nullopt;
}

/// Takes a section's lines one by one and makes its databases at its end.
class SectionReader
{
  public:
    explicit SectionReader(std::string_view name) { m_section.SectionName = name; }

    void Take(const SectionLine& line)
    {
        if (const std::size_t key = PlaceOf(line.name, kSectionKeyNames); key < kSectionKeys)
        {
            auto& value = m_values[key];
            value = value.value_or(line.value);
        }
        else if (auto numbered = Numbered(line))
        {
            m_numbered.push_back(*numbered);
        }
    }

    ManufacturerSection Finish()
    {
        const auto value = [&](SectionKey key) { return m_values[key].value_or(""); };
        m_section.DatabaseSetupFile = LowerCase(std::string(m_section.SectionName) + ".exe");
        m_section.PictureSetupFile = LowerCase(value(kPictureSetup));
        m_section.DatabaseSetupSize = LenientNumber(value(kDatabaseBytes));
        m_section.PictureSetupSize = LenientNumber(value(kPictureBytes));
        m_section.PicturesLatestDate = value(kPictureDate);
        m_section.DateCheckerPictureFile = value(kChecker);
        AddEntries();
        return std::move(m_section);
    }

  private:
    /// The databases from number 1 on, up to the first number without a file.
    void AddEntries()
    {
        const auto place = [](const NumberedValue& value) {
            return std::pair(value.number, value.key);
        };
        // Of equal keys the first in the list counts.
        std::ranges::stable_sort(m_numbered, {}, place);
        const auto repeated = std::ranges::unique(m_numbered, {}, place);
        m_numbered.erase(repeated.begin(), repeated.end());
        std::uint32_t number = 1;
        for (auto value = m_numbered.begin(); value != m_numbered.end(); ++number)
        {
            if (std::tuple(value->number, value->key, value->value.empty()) !=
                std::tuple(number, std::size_t{kFile}, false))
            {
                return;
            }
            ManufacturerEntry& entry = m_section.entries.emplace_back();
            for (; value != m_numbered.end() && value->number == number; ++value)
            {
                Fill(entry, *value);
            }
            if (entry.ManufacturerName.empty())
            {
                entry.ManufacturerName = m_section.SectionName;
            }
        }
    }

    static void Fill(ManufacturerEntry& entry, const NumberedValue& value)
    {
        switch (value.key)
        {
        case kFile:
            entry.DatabaseFile = value.value;
            break;
        case kManufacturer:
            entry.ManufacturerName = value.value;
            break;
        case kDate:
            entry.DatabaseLatestDate = value.value;
            break;
        default:
            entry.EquipmentKinds.at(value.key - kFirstKind) = value.value;
        }
    }

    ManufacturerSection m_section;
    std::array<std::optional<std::string_view>, kSectionKeys> m_values;
    std::vector<NumberedValue> m_numbered;
};

/// Takes a list's lines one by one and adds what they say to the list.
class ListReader
{
  public:
    explicit ListReader(ManufacturerList& list) : m_list(list) {}

    void ReadAll(std::string_view text)
    {
        while (!text.empty() && !m_isFull)
        {
            const SectionLine line = TakeSectionLine(text);
            if (CharacterCount(line.name) + CharacterCount(line.value) >= kLongestLine)
            {
                Complain("A line of more than 1,024 characters is left out");
            }
            else if (line.kind == SectionLine::Kind::Header)
            {
                EndSection();
                if (!m_isFull)
                {
                    Begin(line.name);
                }
            }
            else if (line.kind == SectionLine::Kind::Entry && m_section)
            {
                m_section->Take(line);
            }
        }
        EndSection();
    }

  private:
    void Begin(std::string_view name)
    {
        if (CharacterCount(name) > kLongestName)
        {
            Complain("A section with a name of more than 255 characters is left out");
        }
        else if (!m_names.insert(LowerCase(name)).second)
        {
            Complain("The second section \"" + std::string(name) + "\" is left out");
        }
        else if (m_names.size() > kMostSections)
        {
            Complain("What follows after 20,000 sections is left out");
            m_isFull = true;
        }
        else
        {
            m_section.emplace(name);
        }
    }

    void EndSection()
    {
        if (!m_section)
        {
            return;
        }
        ManufacturerSection section = m_section->Finish();
        m_section.reset();
        if (section.entries.size() > kMostDatabases - m_databases)
        {
            Complain("What follows after 100,000 databases is left out");
            section.entries.resize(kMostDatabases - m_databases);
            section.entries.shrink_to_fit();
            m_isFull = true;
        }
        m_databases += section.entries.size();
        m_list.sections.push_back(std::move(section));
    }

    void Complain(std::string complaint)
    {
        if (m_list.complaints.size() < kMostComplaints)
        {
            m_list.complaints.push_back(std::move(complaint));
        }
    }

    ManufacturerList& m_list;
    std::unordered_set<std::string> m_names; ///< In lower case.
    std::optional<SectionReader> m_section;
    std::size_t m_databases = 0;
    bool m_isFull = false;
};

} // namespace

ManufacturerList ParseManufacturerList(std::string_view bytes, std::string_view defaultAddress)
{
    // Profiles know no mark of UTF-8: the first section's name would begin with it.
    const bool isMarked = bytes.starts_with(platform::kUtf8Mark);
    const auto settings =
        SettingsSnapshot::Parse(bytes.substr(isMarked ? platform::kUtf8Mark.size() : 0));
    ManufacturerList list;
    list.serverAddress = settings.String(kGeneral, "Server Address HTTP", defaultAddress);
    list.databaseFolder =
        settings.String(kGeneral, "Server Folder MDBs HTTP", vendor_path::kDatabases);
    list.pictureFolder =
        settings.String(kGeneral, "Server Folder Pictures HTTP", vendor_path::kPictures);
    list.text = std::make_shared<const std::string>(platform::FromFileBytes(bytes));
    ListReader(list).ReadAll(*list.text);
    list.isList = !settings.Section(kGeneral).empty() ||
                  std::ranges::any_of(list.sections, [](const ManufacturerSection& section) {
                      return !section.entries.empty() || !section.PictureSetupFile.empty();
                  });
    return list;
}

void TakeOutServerValues(const std::string& path, DiagnosticLog& log)
{
    CINIFileHandler file(log);
    file.AppProfileFileName(path);
    file.MyDeleteAppProfileSection(kGeneral);
}

} // namespace velmo
