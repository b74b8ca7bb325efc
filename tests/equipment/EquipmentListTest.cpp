#include "equipment/EquipmentList.h"

#include "equipment/InstalledVersion.h"
#include "tests/support/ProgramDesktop.h"
#include "tests/support/TestSystem.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace velmo
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kGeneral = "[Manufver General]\r\n"
                                      "Server Address HTTP=http://setups.example\r\n"
                                      "Server Folder MDBs HTTP=/mdb/\r\n"
                                      "Server Folder Pictures HTTP=/pic/\r\n";

class EquipmentListTest : public test::ProgramDesktop
{
  protected:
    void Show(std::string_view list)
    {
        m_list.Show(std::make_shared<const ManufacturerList>(
                        ParseManufacturerList(list, "http://default.example")),
                    SharedValues::Read());
    }

    /// Puts a database of the test data into the common folder.
    void InstallDatabase(std::string_view name,
                         std::string_view sample = "equipment/plain_datetime_v2000.mdb") const
    {
        const std::string path = test::TestDataPath("access/" + std::string(sample));
        m_desktop.Write(name, m_desktop.Read(path));
    }

    [[nodiscard]] std::string Cell(std::size_t row, EquipmentColumn column) const
    {
        return m_list.Grid().Text(row, column);
    }

    /// A column's cells, or a row's all.
    [[nodiscard]] std::vector<std::string> Cells(std::optional<std::size_t> row,
                                                 EquipmentColumn column = {}) const
    {
        std::vector<std::string> cells;
        const std::size_t count = row ? kEquipmentColumns : m_list.Grid().Rows().rows.size();
        for (std::size_t i = 0; i < count; ++i)
        {
            cells.push_back(
                m_list.Grid().Model().Rows().Text(row.value_or(i), row ? i : Index(column)));
        }
        return cells;
    }

    [[nodiscard]] std::vector<std::string> Column(EquipmentColumn column) const
    {
        return Cells(std::nullopt, column);
    }

    /// "server | folder of databases | folder of pictures" of an order.
    std::string Server()
    {
        if (m_list.Grid().Summary().starts_with("DB: 0"))
        {
            m_list.Grid().Toggle(0, Index(EquipmentColumn::InstallDatabase));
        }
        const InstallOrder order = m_list.PrepareInstall(m_prompts).value();
        return order.server + " | " + order.setups.at(0).folder + " | " + order.setups.at(1).folder;
    }

    EquipmentList m_list{m_locator, m_log,
                         [] { return std::chrono::sys_days(std::chrono::year{2026} / 6 / 1); }};
};

TEST_F(EquipmentListTest, ADatabaseIsARowOfWhatTheListAndTheDesktopSay)
{
    InstallDatabase("Kestrel.MDB"); // 3/15/2004
    m_desktop.Write("EquipPic\\KESTREL air\\PicInfo.ini",
                    "[Kestrel Air]\r\nDatePicturesModified=5/6/2007\r\n");
    Show(std::string(kGeneral) +
         "\r\n[Kestrel Air]\r\n"
         "PictureSetupFilename=KestrelPic.EXE\r\n"
         "DatePicturesModified=5/6/2008\r\n"
         "PictureSetupFileSize=2500000\r\n"
         "MDBSetupFileSize=1000\r\n"
         "1ManufacturerName=Kestrel Split\r\n1MDBFilename=kestrel.mdb\r\n"
         "1ReleaseDate=3/16/2004\r\n1AC=X\r\n12SpeedAC=2\r\n1WaterHeater=a=b\r\n"
         "2MDBFilename=other.mdb\r\n2ReleaseDate=1/2/2020\r\n2HP=X\r\n"
         "4MDBFilename=never.mdb\r\n");
    EXPECT_THAT(Cells(0),
                ElementsAre("Kestrel Air", "kestrel air.exe", "", "kestrelpic.exe", "", "1 KB",
                            "1000", "2.4 MB", "2500000", "Kestrel Split", "kestrel.mdb",
                            "3/15/2004", "3/16/2004", "Yes", "5/6/2007", "5/6/2008", "Yes", "X", "",
                            "", "", "", "", "", "", "", "", "", "2", "", "", "a=b"));
    EXPECT_THAT(Column(EquipmentColumn::Manufacturer), ElementsAre("Kestrel Split", "Kestrel Air"));
    EXPECT_THAT(Column(EquipmentColumn::DatabaseInstalled), ElementsAre("3/15/2004", "-"));
    EXPECT_THAT(Column(EquipmentColumn::DatabaseNeedsUpdate), ElementsAre("Yes", "-"));
    EXPECT_EQ(m_list.CountDatabasesThatNeedUpdate(), 1);
    EXPECT_EQ(m_list.CountPicturesThatNeedUpdate(), 1);
    EXPECT_EQ(LogText(), "");
}

TEST_F(EquipmentListTest, ASectionWithoutDatabasesHasNoRowAndOneWithoutPicturesNoBox)
{
    m_desktop.Write("EquipPic\\Empty\\a.jpg", "picture");
    Show("[Empty]\r\nPictureSetupFilename=empty.exe\r\n2MDBFilename=second.mdb\r\n"
         "[Bare]\r\n1MDBFilename=bare.mdb\r\n");
    ASSERT_THAT(Column(EquipmentColumn::SectionName), ElementsAre("Bare"));
    EXPECT_EQ(m_list.CountPicturesThatNeedUpdate(), 0);
    const GridSource& shown = m_list.Grid().Model().Rows();
    EXPECT_EQ(shown.Tick(0, Index(EquipmentColumn::InstallDatabase)), TickState::Unticked);
    EXPECT_EQ(shown.Tick(0, Index(EquipmentColumn::InstallPictures)), TickState::None);
    EXPECT_EQ(Cell(0, EquipmentColumn::InstallPictures), " ");
    EXPECT_EQ(Cell(0, EquipmentColumn::PicturesInstalled), "-");
    EXPECT_EQ(Cell(0, EquipmentColumn::PicturesLatest), " ");
}

TEST_F(EquipmentListTest, TheServersValuesHaveDefaultsAndAreTakenOutOfTheFile)
{
    const std::string list = std::string(kGeneral) + "[A]\r\n1MDBFilename=a.mdb\r\n";
    Show(list);
    EXPECT_EQ(Server(), "http://setups.example | /mdb/ | /pic/");
    Show("\xEF\xBB\xBF" + list);
    EXPECT_EQ(Server(), "http://setups.example | /mdb/ | /pic/");
    m_list.InspectAgain();
    EXPECT_EQ(Server(), "http://setups.example | /mdb/ | /pic/");
    Show("[A]\r\n1MDBFilename=a.mdb\r\n");
    EXPECT_EQ(Server(), "http://default.example | /pub/mervala/mdb/ | /pub/mervala/pic/");

    TakeOutServerValues(m_desktop.Write("manufver.ini", list), m_log);
    EXPECT_EQ(m_desktop.Read("manufver.ini"), "[A]\r\n1MDBFilename=a.mdb\r\n");
}

TEST_F(EquipmentListTest, AFolderThatCannotBeListedIsToldAMissingOneIsNot)
{
    const std::string list = "[A]\r\nPictureSetupFilename=p.exe\r\n1MDBFilename=a.mdb\r\n";
    Show(list);
    EXPECT_EQ(LogText(), "");
    m_desktop.Write("EquipPic", "a file");
    Show(list);
    EXPECT_THAT(LogText(), HasSubstr("Listing " + m_desktop.Folder() + "EquipPic\\: "));
}

TEST_F(EquipmentListTest, ASecondLookNeedsAList)
{
    m_list.InspectAgain();
    EXPECT_TRUE(m_list.Grid().Rows().rows.empty());
    Show("[A]\r\n1MDBFilename=a.mdb\r\n");
    InstallDatabase("a.mdb");
    m_list.InspectAgain();
    EXPECT_THAT(Column(EquipmentColumn::DatabaseInstalled), ElementsAre("3/15/2004"));
}

TEST_F(EquipmentListTest, ARefreshUnticksEverythingASecondLookNothingAndBothKeepThePosition)
{
    const std::string list = "[A]\r\nPictureSetupFilename=p.exe\r\n"
                             "1MDBFilename=a.mdb\r\n2MDBFilename=b.mdb\r\n"
                             "3MDBFilename=c.mdb\r\n";
    Show(list);
    GridModel& model = m_list.Grid().Model();
    m_list.Grid().Toggle(1, Index(EquipmentColumn::InstallDatabase));
    m_list.Grid().Toggle(1, Index(EquipmentColumn::InstallPictures));
    model.NotePosition({2, 9, 1, 3});
    InstallDatabase("b.mdb");
    m_list.InspectAgain();
    EXPECT_EQ(Cell(1, EquipmentColumn::DatabaseInstalled), "3/15/2004");
    EXPECT_EQ(model.Rows().Tick(1, Index(EquipmentColumn::InstallDatabase)), TickState::Ticked);
    EXPECT_EQ(m_list.Grid().Summary(), "DB: 1, Pic: 1, 0 Bytes");
    Show(list);
    EXPECT_EQ(model.Position(), (GridPosition{2, 9, 1, 3}));
    EXPECT_EQ(m_list.Grid().Summary(), "DB: 0, Pic: 0, 0 Bytes");
}

TEST_F(EquipmentListTest, NamesThatLeadElsewhereAreNotLookedFor)
{
    InstallDatabase("..\\outside.mdb");
    InstallDatabase("sub\\inside.mdb");
    m_desktop.Write("PicInfo.ini", "[..\\..]\r\nDatePicturesModified=1/1/1\r\n");
    Show("[..\\..]\r\nPictureSetupFilename=p.exe\r\nDatePicturesModified=5/6/2008\r\n"
         "1MDBFilename=..\\outside.mdb\r\n2MDBFilename=sub\\inside.mdb\r\n");
    EXPECT_THAT(Column(EquipmentColumn::DatabaseInstalled), ElementsAre("-", "-"));
    EXPECT_EQ(Cell(0, EquipmentColumn::PicturesInstalled), "-");
    EXPECT_EQ(Cell(0, EquipmentColumn::PicturesLatest), "5/6/2008");
}

TEST_F(EquipmentListTest, WhatCannotBeReadIsLoggedTwentyTimesAtMost)
{
    InstallDatabase("locked.mdb", "broken/password.mdb");
    std::string list = "[A]\r\n";
    for (int number = 1; number <= 50; ++number)
    {
        list += std::to_string(number) +
                (number == 1 ? "MDBFilename=locked.mdb\r\n" : "MDBFilename=..\\x.mdb\r\n");
    }
    Show(list);
    EXPECT_THAT(LogText(), HasSubstr("locked.mdb: The database is protected by a password. (86)"));
    EXPECT_THAT(LogText(), HasSubstr("The same of 30 more"));
    EXPECT_EQ(std::ranges::count(LogText(), '\n'), 21);
}

TEST_F(EquipmentListTest, InstallingNeedsABoxThatIsTicked)
{
    Show("[A]\r\n1MDBFilename=a.mdb\r\n");
    EXPECT_FALSE(m_list.PrepareInstall(m_prompts));
    ASSERT_THAT(m_prompts.Lines(),
                ElementsAre("No Boxes Checked|You must check the box for at least one "
                            "database or picture before you can install updates."));
    EXPECT_EQ(m_prompts.notices[0].icon, PromptIcon::Information);
}

constexpr std::chrono::year kThisYear{2026};
constexpr const char* kChecker = "unit.jpg";

std::string Flag(EquipmentStatus status)
{
    return std::array{"-", "No", "Yes"}.at(static_cast<std::size_t>(status));
}

class InstalledVersionTest : public test::ProgramDesktop
{
  protected:
    InstalledVersion Database(std::string_view file, std::string_view latestDate)
    {
        return InspectDatabase(test::TestDataPath("access/" + std::string(file)), latestDate,
                               kThisYear);
    }

    void WriteInformation(const std::string& date) const
    {
        m_desktop.Write("EquipPic\\Arcadia Air\\PicInfo.ini",
                        "[Arcadia Air]\r\nDatePicturesModified=" + date + "\r\n");
    }

    /// Noon, so that it is that day in most of the world's time zones.
    void WriteChecker(std::chrono::sys_days day) const
    {
        const std::string path = m_desktop.Write("EquipPic\\Arcadia Air\\unit.jpg", "picture");
        ASSERT_TRUE(platform::MFile::SetModificationTime(path, day + std::chrono::hours(12)));
    }

    void ExpectPictures(const std::string& latestDate, const char* checker,
                        const char* installedDate, const char* flag)
    {
        const InstalledVersion pictures = InspectPictures(
            {"Arcadia Air", m_desktop.Folder() + "EquipPic\\Arcadia Air\\", latestDate, checker},
            kThisYear, m_log);
        EXPECT_EQ(pictures.Text(), installedDate);
        EXPECT_EQ(Flag(pictures.status), flag);
    }
};

TEST_F(InstalledVersionTest, TheServersDateMustBeAtLeastOneDayLater)
{
    constexpr std::array<const char*, 4> kCases[] = {
        {"equipment/plain_datetime_v2000.mdb", "3/16/2004", "3/15/2004", "Yes"},
        {"equipment/plain_datetime_v2000.mdb", "3/15/2004", "3/15/2004", "No"},
        {"equipment/plain_datetime_v2000.mdb", "15-Mar-2004 11 pm", "3/15/2004", "No"},
        {"equipment/plain_datetime_v2000.mdb", "3/14/2004", "3/15/2004", "No"},
        {"equipment/plain_datetime_v2000.mdb", "soon", "3/15/2004", "-"},
        {"equipment/plain_datetime_v2000.mdb", "", "3/15/2004", "-"},
        {"equipment/text_date_v2010.accdb", "1/1/2014", "9/30/2013", "Yes"},
        {"equipment/text_mixed_unicode.mdb", "1/1/2014", "Rev \u0416\u0434 of 5/9/2008", "-"},
        {"equipment/date_with_time_v2003.mdb", "6/1/2009", "6/1/2009 2:05:09 PM", "No"},
        {"equipment/date_with_time_v2003.mdb", "6/2/2009", "6/1/2009 2:05:09 PM", "Yes"},
        {"equipment/nowhere.mdb", "3/16/2004", "-", "-"},
        {"nowhere/nothing.mdb", "3/16/2004", "-", "-"},
    };
    for (const auto& [file, latestDate, installedDate, flag] : kCases)
    {
        SCOPED_TRACE(std::string(file) + " " + latestDate);
        const InstalledVersion installed = Database(file, latestDate);
        EXPECT_EQ(installed.Text(), installedDate);
        EXPECT_EQ(Flag(installed.status), flag);
    }
}

TEST_F(InstalledVersionTest, ADatabaseWithoutAReadableDateTellsWhy)
{
    const std::pair<const char*, const char*> cases[] = {
        {"equipment/no_header_table.mdb", "There is no table \"Header\"."},
        {"equipment/no_release_field.mdb", "has no field \"ReleaseDate\"."},
        {"equipment/header_no_rows.mdb", "Table \"Header\" has no rows."},
        {"equipment/date_null.mdb", "The first release date is empty."},
        {"broken/password.mdb", "protected by a password. (86)"},
        {"broken/encoded_rc4.mdb", "encoded. (6002)"},
        {"broken/zeroed_table_page.mdb", "(1392)"}};
    for (const auto& [file, reason] : cases)
    {
        SCOPED_TRACE(file);
        const InstalledVersion installed = Database(file, "3/16/2004");
        EXPECT_EQ(installed.Text(), "-");
        EXPECT_EQ(installed.status, EquipmentStatus::Undecided);
        EXPECT_THAT(installed.failure, HasSubstr(reason));
        EXPECT_EQ(installed.Reason(), installed.failure);
    }
    const char* sound = "equipment/plain_datetime_v2000.mdb";
    EXPECT_EQ(Database(sound, "3/16/2004").Reason(), "");
    EXPECT_EQ(Database(sound, "soon").Reason(), "The vendor's list has no date for it.");
    EXPECT_EQ(Database("equipment/text_mixed_unicode.mdb", "3/16/2004").Reason(),
              "What is installed has no date.");
    EXPECT_EQ(Database("equipment/nowhere.mdb", "3/16/2004").Reason(), "It is not installed.");
}

TEST_F(InstalledVersionTest, ThePicturesOwnDateComesFirst)
{
    WriteChecker(std::chrono::year{1999} / 1 / 1);
    WriteInformation("5/6/2007");
    ExpectPictures("5/7/2007", kChecker, "5/6/2007", "Yes");
    ExpectPictures("5/6/2007", kChecker, "5/6/2007", "No");
    ExpectPictures("", kChecker, "5/6/2007", "-");
    WriteInformation("soon");
    ExpectPictures("5/7/2007", kChecker, "soon", "-");
    WriteInformation("");
    ExpectPictures("5/7/2007", kChecker, "-", "-");
}

TEST_F(InstalledVersionTest, ThenTheCheckerFilesTime)
{
    WriteChecker(std::chrono::year{2008} / 9 / 4);
    ExpectPictures("9/5/2008", kChecker, "9/4/2008", "Yes");
    ExpectPictures("9/4/2008", kChecker, "9/4/2008", "No");
    WriteInformation("-");
    ExpectPictures("9/3/2008", kChecker, "9/4/2008", "No");
}

TEST_F(InstalledVersionTest, PicturesOfUnknownAgeAlwaysNeedAnUpdateAndMissingOnesNever)
{
    ExpectPictures("9/4/2008", kChecker, "-", "-");
    ExpectPictures("", "", "-", "-");
    m_desktop.Write("EquipPic\\Arcadia Air\\other.jpg", "picture");
    m_desktop.Write("EquipPic\\secret.jpg", "not one of them");
    for (const char* checker : {kChecker, "", "..\\secret.jpg", "../secret.jpg"})
    {
        SCOPED_TRACE(checker);
        ExpectPictures("9/4/2008", checker, "Unknown", "Yes");
        ExpectPictures("", checker, "Unknown", "Yes");
    }
}

} // namespace
} // namespace velmo
