#include "access/AccessFile.h"

#include "platform/MFile.h"
#include "tests/support/TestSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <vector>

namespace velmo
{
namespace
{

using State = AccessField::State;
using test::TestDataPath;

std::string StateText(State state)
{
    return std::array{"value", "null", "no rows", "no table", "no field"}.at(
        static_cast<std::size_t>(state));
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
    constexpr std::pair<const char*, const char*> kCases[] = {
        {"zero_bytes", "error 11"},
        {"text_file", "error 11"},
        {"wrong_magic", "error 11"},
        {"cut_in_first_page", "error 1392"},
        {"cut_after_first_page", "error 1392"},
        {"zeroed_table_page", "error 1392"},
        {"table_page_out_of_range", "error 1392"},
        {"definition_chain_cycle", "error 1392"},
        {"overflow_row_to_itself", "error 1392"},
        {"cut_in_catalogue_definition", "error 1392"},
        {"password", "error 86"},
        {"encoded_rc4", "error 6002"}};
    for (const auto& [file, error] : kCases)
    {
        EXPECT_EQ(ReadReleaseDate(Bytes(std::string("access/broken/") + file + ".mdb")), error)
            << file;
    }
    EXPECT_EQ(AccessFile::Open(TestDataPath("access/equipment/nowhere.mdb")).Failure().code, 2);
}

TEST(AccessFileTest, ANewerDatabaseWithAKeyOrAVersionThatDoesNotExistYetIsRefused)
{
    const std::string bytes = Bytes("access/equipment/plain_datetime_v2007.accdb");
    EXPECT_EQ(ReadReleaseDate(std::string(bytes).replace(0x3E, 1, "\x5A")), "error 86");
    EXPECT_EQ(ReadReleaseDate(std::string(bytes).replace(0x14, 1, "\x09")), "error 11");
}

} // namespace
} // namespace velmo
