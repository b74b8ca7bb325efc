#include "equipment/ManufacturerList.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

namespace velmo
{
namespace
{

/// "Section: file manufacturer date, file ..." of each section, one a line.
std::string Databases(std::string_view list)
{
    std::string text;
    for (const ManufacturerSection& section : ParseManufacturerList(list, "").sections)
    {
        text += std::string(section.SectionName) + ":";
        for (const ManufacturerEntry& entry : section.entries)
        {
            text += " " + std::string(entry.DatabaseFile) + "(" +
                    std::string(entry.ManufacturerName) + "," +
                    std::string(entry.DatabaseLatestDate) + ")";
        }
        text += "\n";
    }
    return text;
}

TEST(ManufacturerListTest, DatabasesAreNumberedFromOneWithoutGapsInAnyOrder)
{
    const std::pair<const char*, const char*> cases[] = {
        {"[A]\n2MDBFilename=b\n1MDBFilename=a\n2ReleaseDate=d\n1ManufacturerName=m\n",
         "A: a(m,) b(A,d)\n"},
        {"[A]\n1MDBFilename=a\n3MDBFilename=c\n", "A: a(A,)\n"},
        {"[A]\n1MDBFilename=a\n2MDBFilename=\n3MDBFilename=c\n", "A: a(A,)\n"},
        {"[A]\n01MDBFilename=a\n0MDBFilename=a\n-1MDBFilename=a\nMDBFilename=a\n", "A:\n"},
        {"[A]\n2MDBFilename=b\n", "A:\n"},
        {"[A]\n1mdbfilename=first\n1MDBFilename=second\n", "A: first(A,)\n"},
        {"[A]\n1MDBFilename=a\n4294967297MDBFilename=b\n99999999999MDBFilename=c\n", "A: a(A,)\n"},
        {"1MDBFilename=before\n[A]\n1MDBFilename=a\n[B]\n1MDBFilename=b=c\n[a]\n1MDBFilename=d\n",
         "A: a(A,)\nB: b=c(B,)\n"},
        {"[A]\n1MDBFilename = a\n 1MDBFilename=b\n1MDBFilename= c\n", "A:  c(A,)\n"},
    };
    for (const auto& [list, databases] : cases)
    {
        EXPECT_EQ(Databases(list), databases) << list;
    }
}

TEST(ManufacturerListTest, EachKindOfEquipmentHasItsPlace)
{
    std::string text = "[A]\n12MDBFilename=no gap before it\n";
    for (std::size_t i = 1; i <= 12; ++i)
    {
        text += std::to_string(i) + "MDBFilename=x\n";
    }
    std::istringstream words("AC HP GSHP FuelOilFurnace GasFurnace PropaneFurnace "
                             "GasAndPropaneFurnace FuelOilBoiler GasBoiler PropaneBoiler "
                             "GasAndPropaneBoiler 2SpeedAC 2SpeedGSHP 2SpeedFurnace WaterHeater");
    const std::vector<std::string> keys{std::istream_iterator<std::string>(words), {}};
    for (const std::string& key : keys)
    {
        text += "1" + key + "=" + key + "\n12" + key + "=12 " + key + "\n";
    }
    const ManufacturerList list = ParseManufacturerList(text, "");
    const auto& entries = list.sections.at(0).entries;
    ASSERT_EQ(entries.size(), 12U);
    for (std::size_t i = 0; i < keys.size(); ++i)
    {
        EXPECT_EQ(entries[0].EquipmentKinds[i], keys[i]);
        EXPECT_EQ(entries[11].EquipmentKinds[i], "12 " + keys[i]);
    }
}

TEST(ManufacturerListTest, ASectionsValuesAreKeptOnce)
{
    const ManufacturerList list = ParseManufacturerList(
        "[Kestrel \xC4ir]\r\nPictureSetupFilename=KPic.EXE\r\nDatePicturesModified=5/6/2008\r\n"
        "DateCheckerPictureFile=K1.jpg\r\nPictureSetupFileSize=2500 or so\r\n"
        "MDBSetupFileSize=1e3\r\nMDBSetupFileSize=7\r\n",
        "");
    const ManufacturerList copy = list;
    const ManufacturerSection& section = copy.sections.at(0);
    EXPECT_EQ(section.SectionName, "Kestrel \u00C4ir");
    EXPECT_EQ(section.DatabaseSetupFile, "kestrel \u00C4ir.exe");
    EXPECT_EQ(section.PictureSetupFile, "kpic.exe");
    EXPECT_EQ(section.DatabaseSetupSize, 1000);
    EXPECT_EQ(section.PictureSetupSize, 2500);
    EXPECT_EQ(section.PicturesLatestDate, "5/6/2008");
    EXPECT_EQ(section.DateCheckerPictureFile, "K1.jpg");
    EXPECT_EQ(copy.text, list.text);
}

TEST(ManufacturerListTest, APageIsNoList)
{
    const std::pair<const char*, bool> rows[] = {
        {"", false},
        {"<html>[Sign in]</html>\n<a href=x>", false},
        {"[Loadcalc 8]\nMajor=8\n", false},
        {"[Manufver General]\nServer Address HTTP=http://s.example\n", true},
        {"[A]\n1MDBFilename=a\n", true},
        {"[A]\nPictureSetupFilename=p\n", true},
    };
    for (const auto& [text, isList] : rows)
    {
        EXPECT_EQ(ParseManufacturerList(text, "").isList, isList) << text;
    }
}

/// The counts of sections and databases, and the complaints.
std::string Bounds(const std::string& text)
{
    const ManufacturerList list = ParseManufacturerList(text, "");
    std::size_t databases = 0;
    for (const ManufacturerSection& section : list.sections)
    {
        databases += section.entries.size();
    }
    std::string said = std::to_string(list.sections.size()) + " " + std::to_string(databases);
    for (const std::string& complaint : list.complaints)
    {
        said += "; " + complaint;
    }
    return said;
}

TEST(ManufacturerListTest, WhatNoListOfTheVendorsHasIsLeftOut)
{
    const std::string file = "1MDBFilename=";
    const auto line = [&](std::size_t length) {
        return "[A]\n" + file + std::string(length - file.size(), 'x') + "\n";
    };
    EXPECT_EQ(Bounds(line(1024)), "1 1");
    EXPECT_EQ(Bounds(line(1025)), "1 0; A line of more than 1,024 characters is left out");
    EXPECT_EQ(Bounds("[" + std::string(255, 'n') + "]\n" + file + "a\n"), "1 1");
    EXPECT_EQ(Bounds("[A]\n[" + std::string(256, 'n') + "]\n" + file + "a\n"),
              "1 0; A section with a name of more than 255 characters is left out");
    std::string sections;
    for (int i = 0; i < 20'001; ++i)
    {
        sections += "[" + std::to_string(i) + "]\n";
    }
    EXPECT_EQ(Bounds(sections), "20000 0; What follows after 20,000 sections is left out");
    std::string databases = "[A]\n1MDBFilename=a\n[B]\n";
    for (int i = 1; i <= 100'000; ++i)
    {
        databases += std::to_string(i) + "MDBFilename=a\n";
    }
    EXPECT_EQ(Bounds(databases + "[C]\n1MDBFilename=a\n"),
              "2 100000; What follows after 100,000 databases is left out");
}

} // namespace
} // namespace velmo
