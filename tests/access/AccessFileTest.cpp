#include "access/AccessFile.h"

#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "tests/support/TestSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <sstream>
#include <tuple>
#include <vector>

namespace velmo
{
namespace
{

using State = AccessField::State;
using test::TestDataPath;

std::string StateText(State state)
{
    constexpr std::array kTexts{"value", "null", "no rows", "no table", "no field"};
    return kTexts.at(static_cast<std::size_t>(state));
}

/// Long texts are listed as their first 60 characters and "...{N characters, ...}".
std::string Shortened(const std::string& text, std::string_view expected)
{
    const std::size_t mark = expected.find("...{");
    if (mark == std::string_view::npos)
    {
        return text;
    }
    const auto characters = std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; });
    return text.substr(0, mark) + "...{" + std::to_string(characters) + " characters" +
           std::string(expected.substr(expected.find(',', mark)));
}

std::string Bytes(std::string_view relative)
{
    auto bytes = platform::MFile::ReadAll(TestDataPath(relative));
    EXPECT_TRUE(bytes) << relative;
    return bytes ? std::move(bytes).Value() : std::string();
}

/// "value 3/15/2004", "null", ..., or "error <code>".
std::string ReadField(Result<AccessFile> file, std::string_view table, std::string_view field)
{
    if (!file)
    {
        return "error " + std::to_string(file.Failure().code);
    }
    AccessFile opened = std::move(file).Value();
    const auto read = opened.FirstRecordField(table, field);
    if (!read)
    {
        EXPECT_FALSE(read.Failure().description.empty());
        return "error " + std::to_string(read.Failure().code);
    }
    return StateText(read.Value().state) +
           (read.Value().state == State::Value ? " " + read.Value().text : "");
}

std::string ReadReleaseDate(const std::string& bytes)
{
    return ReadField(AccessFile::OpenBytes(std::as_bytes(std::span(bytes))), "Header",
                     "ReleaseDate");
}

TEST(AccessFileTest, EveryFieldOfTheSoundFilesReadsAsListed)
{
    std::istringstream lines(Bytes("access/expected.tsv"));
    std::string line;
    std::getline(lines, line); // The columns' names.
    std::size_t fields = 0;
    for (; std::getline(lines, line); ++fields)
    {
        SCOPED_TRACE(line);
        std::string file, table, field, state, value, other;
        std::istringstream row(line);
        for (std::string* cell : {&file, &other, &table, &field, &other, &state, &value})
        {
            std::getline(row, *cell, '\t');
        }
        auto opened = AccessFile::Open(TestDataPath("access/" + file));
        ASSERT_TRUE(opened) << opened.Failure().description;
        AccessFile access = std::move(opened).Value();
        const auto read = access.FirstRecordField(table, field);
        ASSERT_TRUE(read) << read.Failure().description;
        EXPECT_EQ(StateText(read.Value().state), state);
        EXPECT_EQ(Shortened(read.Value().text, value), value);
        EXPECT_LE(access.BlocksRead(), 16U);
    }
    EXPECT_GT(fields, 250U);
}

TEST(AccessFileTest, FilesThatAreDamagedOrClosedGiveTheirError)
{
    constexpr auto kDamaged = error_code::kFileDamaged;
    constexpr auto kNoAccessFile = error_code::kBadFormat;
    const std::pair<const char*, std::int32_t> cases[] = {
        {"zero_bytes.mdb", kNoAccessFile},
        {"text_file.mdb", kNoAccessFile},
        {"wrong_magic.mdb", kNoAccessFile},
        {"cut_in_first_page.mdb", kDamaged},
        {"cut_after_first_page.mdb", kDamaged},
        {"cut_in_catalogue_definition.mdb", kDamaged},
        {"zeroed_table_page.mdb", kDamaged},
        {"table_page_out_of_range.mdb", kDamaged},
        {"definition_chain_cycle.mdb", kDamaged},
        {"overflow_row_to_itself.mdb", kDamaged},
        {"password.mdb", error_code::kWrongPassword},
        {"encoded_rc4.mdb", error_code::kFileEncoded}};
    for (const auto& [file, code] : cases)
    {
        SCOPED_TRACE(file);
        EXPECT_EQ(ReadField(AccessFile::Open(TestDataPath(std::string("access/broken/") + file)),
                            "Header", "ReleaseDate"),
                  "error " + std::to_string(code));
    }
    EXPECT_EQ(AccessFile::Open(TestDataPath("access/equipment/nowhere.mdb")).Failure().code, 2);
}

TEST(AccessFileTest, ANewerDatabaseWithAKeyOrAVersionThatDoesNotExistYetIsRefused)
{
    constexpr std::tuple<std::size_t, char, const char*> kChanges[] = {{0x3E, '\x5A', "error 86"},
                                                                       {0x14, '\x09', "error 11"}};
    for (const auto& [place, byte, error] : kChanges)
    {
        std::string bytes = Bytes("access/equipment/plain_datetime_v2007.accdb");
        bytes.at(place) = byte;
        EXPECT_EQ(ReadReleaseDate(bytes), error);
    }
}

/// Sound files with all that a reader follows: maps of both kinds, moved rows, chained definitions
/// and texts, both layouts.
constexpr std::array kFilesToDamage = {
    "equipment/plain_datetime_v2000.mdb", "equipment/several_rows.mdb",
    "equipment/overflow_first_row.mdb",   "equipment/wide_90_columns.mdb",
    "equipment/long_memo_before.mdb",     "equipment/text_mixed_unicode.mdb",
    "microsoft/types_and_dates_1997.mdb", "microsoft/integers_and_text_1997.mdb"};

/// A few fields that together reach every kind of page.
constexpr std::array kFieldsToRead = {std::pair{"Header", "ReleaseDate"},
                                      std::pair{"Header", "Notes"}, std::pair{"Header", "Legal"},
                                      std::pair{"Table1", "G"}, std::pair{"Table1", "data"}};

/// Reads them and says how many are values. Each must end, and soon, in an answer or an error.
int ReadDamaged(std::string_view bytes)
{
    constexpr std::size_t kMostRequests = 2'000;
    auto file = AccessFile::OpenBytes(std::as_bytes(std::span(bytes)));
    if (!file)
    {
        EXPECT_NE(file.Failure().code, 0);
        return 0;
    }
    AccessFile opened = std::move(file).Value();
    int values = 0;
    for (const auto& [table, field] : kFieldsToRead)
    {
        const auto read = opened.FirstRecordField(table, field);
        values += read && read.Value().state == State::Value ? 1 : 0;
        EXPECT_TRUE(read || !read.Failure().description.empty());
    }
    EXPECT_LE(opened.PageRequests(), kMostRequests);
    return values;
}

TEST(AccessFileTest, AFileCutAnywhereEndsInAValueOrAnError)
{
    for (const char* file : kFilesToDamage)
    {
        SCOPED_TRACE(file);
        const std::string bytes = Bytes(std::string("access/") + file);
        ASSERT_GT(ReadDamaged(bytes), 0);
        for (std::size_t length = 0; length < bytes.size(); length += 509)
        {
            // A copy of its own, so that a read past its end is seen.
            const std::vector<char> cut(bytes.data(), bytes.data() + length);
            ReadDamaged({cut.data(), cut.size()});
        }
        EXPECT_EQ(ReadDamaged(std::string_view(bytes).substr(0, 3 * 2048 - 1)), 0);
    }
}

TEST(AccessFileTest, AFileWithWrongBytesEndsInAValueOrAnError)
{
    constexpr int kDamagesPerPage = 25;
    std::mt19937 random(20050409);
    for (const char* file : kFilesToDamage)
    {
        SCOPED_TRACE(file);
        std::string bytes = Bytes(std::string("access/") + file);
        ASSERT_FALSE(bytes.empty());
        const int whole = ReadDamaged(bytes);
        const std::size_t pageSize = bytes[0x14] == 0 ? 2048 : 4096;
        int spoilt = 0;
        for (std::size_t page = 0; page + pageSize <= bytes.size(); page += pageSize)
        {
            // Index pages are never looked at; damage to them would show nothing.
            const bool isRead =
                page == 0 || bytes[page] == 1 || bytes[page] == 2 || bytes[page] == 5;
            for (int i = 0; isRead && i < kDamagesPerPage; ++i)
            {
                // Most structure is at a page's start (head, offsets) and end (rows, null masks).
                const std::array<std::size_t, 3> places = {random() % 96, random() % (pageSize - 4),
                                                           pageSize - 4 - random() % 200};
                const std::size_t place = page + places[random() % places.size()];
                const std::string before = bytes.substr(place, 1 + random() % 4);
                const std::array<std::uint_fast32_t, 8> words = {
                    0, 1, 0x7F, 0xFFFF, 0x7FFFFFFF, 0xFFFFFFFF, random(), random()};
                const auto word = words[random() % words.size()];
                std::memcpy(&bytes[place], &word, before.size());
                spoilt += ReadDamaged(bytes) < whole ? 1 : 0;
                bytes.replace(place, before.size(), before);
            }
        }
        EXPECT_GT(spoilt, 0);
    }
}

} // namespace
} // namespace velmo
