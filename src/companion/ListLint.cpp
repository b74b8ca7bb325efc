#include "companion/ListLint.h"

#include "catalogue/ProgramCatalogue.h"
#include "catalogue/VendorPaths.h"
#include "companion/LintedList.h"
#include "companion/SiteFolder.h"
#include "download/UrlToFile.h"
#include "equipment/ManufacturerList.h"
#include "manager/FetchedFiles.h"
#include "news/Headlines.h"
#include "platform/AnsiText.h"
#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"
#include "settings/SettingsSnapshot.h"
#include "text/PlainFileName.h"
#include "text/TextCase.h"
#include "text/UnitedStatesDate.h"
#include "text/WebAddress.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace velmo::companion
{
namespace
{

constexpr std::size_t kMostDigits = 9;

// ---- Values ----

bool IsNumber(std::string_view text)
{
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    return !text.empty() && text.size() <= kMostDigits && std::ranges::all_of(text, IsDigit);
}

bool IsDate(std::string_view text)
{
    // Without a year a date would mean another one each year.
    constexpr std::chrono::year kOne{2001};
    constexpr std::chrono::year kOther{2002};
    const auto date = ParseDate(text, kOne);
    const auto later = ParseDate(text, kOther);
    return date && later && date->day == later->day && date->day != kDayZero;
}

bool IsAddress(std::string_view text)
{
    return ParseWebAddress(text).has_value();
}

/// What a key's value has to be, unless it is empty.
struct ValueRule
{
    std::string_view key;
    bool numbered; ///< The number of a database stands before the key.
    bool (*isFine)(std::string_view);
    std::string_view fault;
};

constexpr std::string_view kNoNumber = " is no whole number: ";
constexpr std::string_view kNoDate = " is no date: ";
constexpr std::string_view kNoName = " is a file name that clients refuse: ";

constexpr std::array kVersionRules{
    ValueRule{"Major", false, IsNumber, kNoNumber},
    ValueRule{"Minor", false, IsNumber, kNoNumber},
    ValueRule{"Revision", false, IsNumber, kNoNumber},
    ValueRule{"Demo URL", false, IsAddress, " is no web address: "},
};

constexpr std::string_view kDatabaseFile = "MDBFilename";
constexpr std::string_view kDatabaseSize = "MDBSetupFileSize";
constexpr std::string_view kPictureSize = "PictureSetupFileSize";

constexpr std::array kEquipmentRules{
    ValueRule{kDatabaseFile, true, IsPlainFileName, kNoName},
    ValueRule{"ReleaseDate", true, IsDate, kNoDate},
    ValueRule{kDatabaseSize, false, IsNumber, kNoNumber},
    ValueRule{kPictureSize, false, IsNumber, kNoNumber},
    ValueRule{"PictureSetupFilename", false, IsPlainFileName, kNoName},
    ValueRule{"DateCheckerPictureFile", false, IsPlainFileName, kNoName},
    ValueRule{"DatePicturesModified", false, IsDate, kNoDate},
    ValueRule{"Server Address HTTP", false, IsAddress, " is no web address: "},
};

/// The number before a numbered key; nothing for another key. Clients take none with a leading zero.
std::optional<std::uint32_t> NumberBefore(std::string_view key, std::string_view name)
{
    if (key.size() <= name.size() || key.front() == '0' ||
        !EqualInAnyCase(key.substr(key.size() - name.size()), name))
    {
        return std::nullopt;
    }
    const char* const end = key.data() + key.size() - name.size();
    std::uint32_t number = 0;
    const auto read = std::from_chars(key.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

void LintValues(LintedList& lint, std::span<const ValueRule> rules)
{
    for (const ListedSection& section : lint.Sections())
    {
        for (const ListedLine& line : section.lines)
        {
            const auto rule = std::ranges::find_if(rules, [&](const ValueRule& each) {
                return each.numbered ? NumberBefore(line.key, each.key).has_value()
                                     : EqualInAnyCase(line.key, each.key);
            });
            if (rule != rules.end() && !line.value.empty() && !rule->isFine(line.value))
            {
                lint.Tell(line.line, std::string(line.key) + std::string(rule->fault) +
                                         std::string(line.value));
            }
        }
    }
}

// ---- Setups ----

using Site = std::map<std::string, std::string>; ///< Files by their paths on the server.

/// The setup's size; nothing, with the reason told, when it is not there or cannot be opened.
std::optional<std::uint64_t> LintSetup(LintedList& lint, const Site& site, const std::string& path,
                                       std::size_t line)
{
    const auto found = site.find(path);
    if (found == site.end())
    {
        lint.Tell(line, "The setup " + path + " is not there");
        return std::nullopt;
    }
    const auto file = platform::OpenFile::Open(found->second, platform::OpenFile::For::Reading);
    if (!file)
    {
        lint.Tell(line, "The setup " + path + " cannot be opened: " + file.Failure().description);
        return std::nullopt;
    }
    return file.Value().Size();
}

/// A setup of equipment, which has its size in the list.
void LintSizedSetup(LintedList& lint, const Site& site, const ListedSection& section,
                    const std::string& path, std::string_view sizeKey, double listed)
{
    const auto size = LintSetup(lint, site, path, section.line);
    if (size && static_cast<double>(*size) != listed)
    {
        const ListedLine* const line = section.Find(sizeKey);
        lint.Tell(line == nullptr ? section.line : line->line,
                  std::string(sizeKey) + " is not the size of " + path + ", " +
                      std::to_string(*size) + " bytes");
    }
}

// ---- The version list ----

void LintProducts(LintedList& lint, const Site& site)
{
    for (const ListedSection& section : lint.Sections())
    {
        const bool isProduct = std::ranges::any_of(kPrograms, [&](const ProgramEntry& program) {
            return EqualInAnyCase(program.displayName, section.name);
        });
        if (!isProduct && !EqualInAnyCase(section.name, kHeadlinesSection))
        {
            lint.Tell(section.line, "[" + std::string(section.name) + "] is no product's name");
        }
    }
    for (const ProgramEntry& program : kPrograms)
    {
        const ListedSection* const section = lint.Find(program.displayName);
        const bool liesHere = program.kind != ProgramKind::DemoOnSecondServer &&
                              IsListed(program.index) &&
                              (section == nullptr || section->Find("Demo URL") == nullptr);
        if (liesHere)
        {
            (void)LintSetup(lint, site, std::string(program.demoSetup),
                            section == nullptr ? 1 : section->line);
        }
    }
}

void LintHeadlines(LintedList& lint)
{
    const ListedSection* const section = lint.Find(kHeadlinesSection);
    if (section == nullptr)
    {
        return;
    }
    DiagnosticLog log("");
    for (std::size_t i = 0; i < section->lines.size(); ++i)
    {
        const ListedLine& line = section->lines[i];
        if (i == kMostHeadlines)
        {
            lint.Tell(line.line, "Only the 20 headlines before this one are shown");
        }
        const std::string alone =
            "[" + std::string(kHeadlinesSection) + "]\r\n" + platform::ToAnsi(line.text);
        const auto read =
            ReadHeadlines(SettingsSnapshot::Parse(alone), "http://server.example/news.htm", log);
        if (!read.empty() && read.front().link.empty())
        {
            lint.Tell(line.line, "The headline has no link: it cannot be clicked");
        }
    }
}

// ---- The manufacturer list ----

/// Clients read a section's databases from number 1 on, up to the first number without a file.
void LintNumbers(LintedList& lint)
{
    for (const ListedSection& section : lint.Sections())
    {
        std::map<std::uint32_t, std::size_t> lines;
        for (const ListedLine& line : section.lines)
        {
            const auto number = NumberBefore(line.key, kDatabaseFile);
            if (number && !line.value.empty())
            {
                lines.emplace(*number, line.line);
            }
        }
        std::uint32_t expected = 1;
        for (const auto& [number, line] : lines)
        {
            if (number != expected)
            {
                lint.Tell(line, "There is no " + std::to_string(expected) +
                                    std::string(kDatabaseFile) +
                                    ": clients look at none from there on");
                break;
            }
            ++expected;
        }
    }
}

void LintEquipment(LintedList& lint, const Site& site)
{
    const ManufacturerList list = ParseManufacturerList(lint.Bytes(), "");
    for (const ManufacturerSection& listed : list.sections)
    {
        const ListedSection* const section = lint.Find(listed.SectionName);
        if (section == nullptr || listed.entries.empty())
        {
            continue;
        }
        if (!IsPlainFileName(listed.DatabaseSetupFile))
        {
            lint.Tell(section->line, "The section's setup has a file name that clients refuse: " +
                                         listed.DatabaseSetupFile);
        }
        LintSizedSetup(lint, site, *section, list.databaseFolder + listed.DatabaseSetupFile,
                       kDatabaseSize, listed.DatabaseSetupSize);
        if (!listed.PictureSetupFile.empty())
        {
            LintSizedSetup(lint, site, *section, list.pictureFolder + listed.PictureSetupFile,
                           kPictureSize, listed.PictureSetupSize);
        }
    }
}

void LintVersions(LintedList& lint, const Site& site)
{
    LintValues(lint, kVersionRules);
    LintProducts(lint, site);
    LintHeadlines(lint);
}

void LintManufacturers(LintedList& lint, const Site& site)
{
    LintValues(lint, kEquipmentRules);
    LintNumbers(lint);
    LintEquipment(lint, site);
}

struct LintOfList
{
    std::string_view name;
    void (*lint)(LintedList& list, const Site& site);
};

constexpr std::array kLists{LintOfList{FetchedFiles::kVersionListName, LintVersions},
                            LintOfList{FetchedFiles::kManufacturerListName, LintManufacturers}};

} // namespace

Result<std::vector<ListFault>> LintSite(const std::string& site)
{
    const auto files = SignableFiles(site);
    if (!files)
    {
        return files.Failure();
    }
    Site byPath;
    for (const SiteFile& file : files.Value())
    {
        byPath.emplace(file.path, file.file);
    }
    std::vector<ListFault> faults;
    for (const LintOfList& list : kLists)
    {
        const std::string& file =
            byPath.at(std::string(vendor_path::kLists) + std::string(list.name));
        auto bytes = platform::MFile::ReadAll(file, kMostBytesOfAList);
        if (!bytes)
        {
            return Error{bytes.Failure().code, file + ": " + bytes.Failure().description};
        }
        LintedList linted(file, std::move(bytes).Value());
        list.lint(linted, byPath);
        std::ranges::move(linted.Faults(), std::back_inserter(faults));
    }
    return faults;
}

} // namespace velmo::companion
