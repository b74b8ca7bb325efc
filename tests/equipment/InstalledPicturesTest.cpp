#include "equipment/InstalledPictures.h"

#include "tests/equipment/EquipmentDesktop.h"

namespace velmo
{
namespace
{

constexpr std::chrono::year kThisYear{2026};
constexpr const char* kChecker = "unit.jpg";

class InstalledPicturesTest : public test::EquipmentDesktop
{
  protected:
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

    void Expect(const std::string& latestDate, const char* checker, const char* installedDate,
                const char* flag)
    {
        const InstalledPictures pictures = InspectPictures(
            {"Arcadia Air", m_desktop.Folder() + "EquipPic\\Arcadia Air\\", latestDate, checker},
            kThisYear, m_log);
        EXPECT_EQ(pictures.installedDate, installedDate);
        EXPECT_EQ(pictures.needsUpdate, flag);
        EXPECT_EQ(pictures.latestDate, latestDate.empty() ? " " : latestDate);
    }
};

TEST_F(InstalledPicturesTest, TheFoldersOwnDateComesFirst)
{
    WriteChecker(std::chrono::year{1999} / 1 / 1);
    WriteInformation("5/6/2007");
    Expect("5/7/2007", kChecker, "5/6/2007", "Yes");
    Expect("5/6/2007", kChecker, "5/6/2007", "No");
    Expect("", kChecker, "5/6/2007", "-");
    WriteInformation("soon");
    Expect("5/7/2007", kChecker, "soon", "-");
    WriteInformation("");
    Expect("5/7/2007", kChecker, "-", "-");
}

TEST_F(InstalledPicturesTest, ThenTheCheckerFilesTime)
{
    WriteChecker(std::chrono::year{2008} / 9 / 4);
    Expect("9/5/2008", kChecker, "9/4/2008", "Yes");
    Expect("9/4/2008", kChecker, "9/4/2008", "No");
    WriteInformation("-");
    Expect("9/3/2008", kChecker, "9/4/2008", "No");
}

TEST_F(InstalledPicturesTest, PicturesOfUnknownAgeAlwaysNeedAnUpdate)
{
    m_desktop.Write("EquipPic\\Arcadia Air\\other.jpg", "picture");
    m_desktop.Write("EquipPic\\secret.jpg", "not one of them");
    for (const char* checker : {kChecker, "", "..\\secret.jpg", "../secret.jpg"})
    {
        SCOPED_TRACE(checker);
        Expect("9/4/2008", checker, "Unknown", "Yes");
        Expect("", checker, "Unknown", "Yes");
    }
}

TEST_F(InstalledPicturesTest, WithoutAFolderNothingIsInstalled)
{
    Expect("9/4/2008", kChecker, "-", "-");
    Expect("", "", "-", "-");
}

} // namespace
} // namespace velmo
