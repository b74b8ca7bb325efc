#include "equipment/InstalledVersion.h"

#include "tests/support/ProgramDesktop.h"
#include "tests/support/TestSystem.h"

#include <gmock/gmock.h>

#include <array>

namespace velmo
{
namespace
{

using testing::HasSubstr;

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
