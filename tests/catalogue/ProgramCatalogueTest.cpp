#include "catalogue/ProgramCatalogue.h"

#include "catalogue/CatalogueChecks.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

using Rows = std::array<ProgramEntry, static_cast<std::size_t>(kProgramCount)>;

const VendorServer kServer{"http://server", "http://192.0.2.1"};

TEST(ProgramCatalogueTest, NamesAndIndexesMapToOneAnother)
{
    for (std::int32_t index = 0; index < kProgramCount; ++index)
    {
        EXPECT_EQ(IndexOfName(NameOfIndex(index)), index);
    }
    EXPECT_EQ(NameOfIndex(34), "Manufacturer Databases");
    EXPECT_EQ(NameOfIndex(35), "");
    EXPECT_EQ(NameOfIndex(-1), "");
    for (const char* stranger : {"Manufacturer Databases", "loadcalc 8", "Loadcalc 8 ", ""})
    {
        EXPECT_EQ(IndexOfName(stranger), 0) << stranger;
    }
}

TEST(ProgramCatalogueTest, AddressesAreServerAndPath)
{
    const std::string noUpdatePage = "http://server/web/errors/noupdatepage.txt";
    const struct
    {
        std::int32_t index;
        std::int32_t locatorNumber;
        std::string information;
        std::string update;
        std::string demo;
    } rows[] = {
        {4, 12, "http://server/web/hvacr/loadcalc_info.html",
         "http://server/web/hvacr/loadcalc8_ver.html", "http://server/pub/demo/lc8setup.exe"},
        {20, -1, "http://server/web/plumbing/pipesize.htm", noUpdatePage,
         "http://server/pub/demo/pipesz30.exe"},
        {26, 26, "http://server/web/electrical/wiring_info.html",
         "http://server/web/electrical/wiring_ver.html", "http://server/pub/demo/wirsetup.exe"},
        {31, 31, "", noUpdatePage, "http://server/pub/demo/update_manager_setup.exe"},
        {34, -1, "", noUpdatePage, ""},
        {-1, -1, "", noUpdatePage, ""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.index);
        EXPECT_EQ(LocatorNumberOfIndex(row.index), row.locatorNumber);
        EXPECT_EQ(InformationPageOfIndex(kServer, row.index), row.information);
        EXPECT_EQ(UpdatePageOfIndex(kServer, row.index), row.update);
        EXPECT_EQ(DemoSetupOfIndex(kServer, row.index), row.demo);
    }
    EXPECT_TRUE(DemoSetupOfIndex(kServer, 1).starts_with("http://192.0.2.1/pub/"));
}

TEST(ProgramCatalogueTest, OnlyExactNamesNotifyOfEquipment)
{
    EXPECT_TRUE(NotifiesOfEquipmentByDefault(NameOfIndex(27)));
    EXPECT_FALSE(NotifiesOfEquipmentByDefault("airflow 3"));
    EXPECT_FALSE(NotifiesOfEquipmentByDefault("Loadcalc 8"));
    EXPECT_FALSE(NotifiesOfEquipmentByDefault("Manufacturer Databases"));
}

TEST(ProgramCatalogueTest, TheFirstRowOnTheCommandLineIsTheCaller)
{
    constexpr std::pair<const char*, const char*> kRows[] = {
        {"startup loadcalc 8", "Loadcalc 8"},
        {"STARTUP LOADCALC 8 Pro", "Loadcalc 8"},
        {"\"Wiring 2\" Ductsize 6", "Ductsize 6"},
        {"Loadcalc8", ""},
        {"Manufacturer Databases", ""},
        {"", ""},
    };
    for (const auto& [line, caller] : kRows)
    {
        EXPECT_EQ(CallerOfCommandLine(line), caller) << line;
    }
}

TEST(CatalogueChecksTest, EachKindOfBrokenTableIsFound)
{
    const struct
    {
        const char* change;
        void (*make)(Rows& rows);
        CatalogueFault fault;
    } rows[] = {
        {"none", [](Rows&) {}, CatalogueFault::None},
        {"index", [](Rows& r) { r[5].index = 6; }, CatalogueFault::IndexIsNotPosition},
        {"row left out", [](Rows& r) { r[33] = {}; }, CatalogueFault::IndexIsNotPosition},
        {"no version", [](Rows& r) { r[4].displayName = "Loadcalc"; },
         CatalogueFault::NameWithoutMajorVersion},
        {"two blanks", [](Rows& r) { r[4].displayName = "Loadcalc  8"; },
         CatalogueFault::NameWithoutMajorVersion},
        {"name", [](Rows& r) { r[9].displayName = r[4].displayName; }, CatalogueFault::NameTwice},
        {"number twice", [](Rows& r) { r[4].locatorNumber = 1; },
         CatalogueFault::LocatorNumberTwiceOrOutOfRange},
        {"number 32", [](Rows& r) { r[4].locatorNumber = 32; },
         CatalogueFault::LocatorNumberTwiceOrOutOfRange},
        {"number 0", [](Rows& r) { r[4].locatorNumber = 0; },
         CatalogueFault::LocatorNumberTwiceOrOutOfRange},
        {"number lost", [](Rows& r) { r[4].locatorNumber = -1; },
         CatalogueFault::CountOfRowsWithoutLocatorNumber},
        {"number gained", [](Rows& r) { r[33].locatorNumber = 3; },
         CatalogueFault::CountOfRowsWithoutLocatorNumber},
        {"area", [](Rows& r) { r[4].updatePage = "/web/heating/x.html"; },
         CatalogueFault::PageNotInAProductArea},
        {"page's kind", [](Rows& r) { r[4].informationPage = "/web/hvacr/x.txt"; },
         CatalogueFault::PageNotInAProductArea},
        {"page deeper", [](Rows& r) { r[4].updatePage = "/web/hvacr/a/x.html"; },
         CatalogueFault::PageNotInAProductArea},
        {"shared", [](Rows& r) { r[5].informationPage = r[4].informationPage; },
         CatalogueFault::InformationPageSharedByOtherRows},
        {"not shared", [](Rows& r) { r[2].informationPage = "/web/hvacr/x.html"; },
         CatalogueFault::InformationPageSharedByOtherRows},
        {"update page", [](Rows& r) { r[5].updatePage = r[4].updatePage; },
         CatalogueFault::UpdatePageShared},
        {"update page lost", [](Rows& r) { r[4].updatePage = ""; },
         CatalogueFault::RowsWithoutUpdatePage},
        {"update page gained", [](Rows& r) { r[7].updatePage = "/web/electrical/x.html"; },
         CatalogueFault::RowsWithoutUpdatePage},
        {"no setup", [](Rows& r) { r[4].demoSetup = ""; }, CatalogueFault::DemoSetupPath},
        {"setup's folder", [](Rows& r) { r[4].demoSetup = "/pub/x.exe"; },
         CatalogueFault::DemoSetupPath},
        {"apart no more", [](Rows& r) { r[1].demoSetup = "/pub/demo/x.exe"; },
         CatalogueFault::DemoSetupPath},
        {"own page", [](Rows& r) { r[31].informationPage = "/web/hvacr/x.html"; },
         CatalogueFault::OwnRow},
        {"page lost", [](Rows& r) { r[4].informationPage = ""; }, CatalogueFault::OwnRow},
        {"own setup", [](Rows& r) { r[31].demoSetup = "/pub/demo/x.exe"; }, CatalogueFault::OwnRow},
        {"notifies", [](Rows& r) { r[4].notifiesOfEquipment = true; },
         CatalogueFault::RowsThatNotifyOfEquipment},
    };
    for (const auto& row : rows)
    {
        Rows table = kPrograms;
        row.make(table);
        EXPECT_EQ(FirstFault(table), row.fault) << row.change;
    }
}

} // namespace
} // namespace velmo
