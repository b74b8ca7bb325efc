#include "catalogue/ProgramCatalogue.h"

#include "catalogue/CatalogueChecks.h"

#include <gtest/gtest.h>

#include <tuple>

namespace velmo
{
namespace
{

using Rows = std::array<ProgramEntry, static_cast<std::size_t>(kProgramCount)>;

TEST(ProgramCatalogueTest, NamesAndIndexesMapToOneAnother)
{
    for (std::int32_t index = 0; index < kProgramCount; ++index)
    {
        EXPECT_EQ(IndexOfName(NameOfIndex(index)), index);
    }
    EXPECT_EQ(NameOfIndex(34), "Manufacturer Databases");
    EXPECT_EQ(NameOfIndex(35), "");
    EXPECT_EQ(NameOfIndex(-1), "");
    EXPECT_EQ(LocatorNumberOfIndex(34), -1);
    for (const char* stranger : {"Manufacturer Databases", "rooftop 4", "Rooftop 4 ", ""})
    {
        EXPECT_EQ(IndexOfName(stranger), 0) << stranger;
        EXPECT_FALSE(NotifiesOfEquipmentByDefault(stranger)) << stranger;
    }
}

TEST(ProgramCatalogueTest, TheFirstRowOnTheCommandLineIsTheCaller)
{
    EXPECT_EQ(CallerOfCommandLine("\"Wiring 2\" STARTUP DUCTSIZE 6 Pro"), "Ductsize 6");
}

TEST(CatalogueChecksTest, EachKindOfBrokenTableIsFound)
{
    using enum CatalogueFault;
    const std::tuple<const char*, void (*)(Rows&), CatalogueFault> rows[] = {
        {"none", [](Rows&) {}, None},
        {"index", [](Rows& r) { r[5].index = 6; }, IndexIsNotPosition},
        {"no version", [](Rows& r) { r[4].displayName = "Loadcalc"; }, NameWithoutMajorVersion},
        {"two blanks", [](Rows& r) { r[4].displayName = "Loadcalc  8"; }, NameWithoutMajorVersion},
        {"name", [](Rows& r) { r[9].displayName = r[4].displayName; }, NameTwice},
        {"number twice", [](Rows& r) { r[4].locatorNumber = 1; }, LocatorNumberTwiceOrOutOfRange},
        {"number 32", [](Rows& r) { r[4].locatorNumber = 32; }, LocatorNumberTwiceOrOutOfRange},
        {"number 0", [](Rows& r) { r[4].locatorNumber = 0; }, LocatorNumberTwiceOrOutOfRange},
        {"number lost", [](Rows& r) { r[4].locatorNumber = -1; }, CountOfRowsWithoutLocatorNumber},
        {"number gained", [](Rows& r) { r[33].locatorNumber = 3; },
         CountOfRowsWithoutLocatorNumber},
        {"area", [](Rows& r) { r[4].updatePage = "/web/heating/x.html"; }, PageNotInAProductArea},
        {"page's kind", [](Rows& r) { r[4].informationPage = "/web/hvacr/x.txt"; },
         PageNotInAProductArea},
        {"page deeper", [](Rows& r) { r[4].updatePage = "/web/hvacr/a/x.html"; },
         PageNotInAProductArea},
        {"shared", [](Rows& r) { r[5].informationPage = r[4].informationPage; },
         InformationPageSharedByOtherRows},
        {"not shared", [](Rows& r) { r[2].informationPage = "/web/hvacr/x.html"; },
         InformationPageSharedByOtherRows},
        {"update page", [](Rows& r) { r[5].updatePage = r[4].updatePage; }, UpdatePageShared},
        {"update page lost", [](Rows& r) { r[4].updatePage = ""; }, RowsWithoutUpdatePage},
        {"update page gained", [](Rows& r) { r[7].updatePage = "/web/electrical/x.html"; },
         RowsWithoutUpdatePage},
        {"no setup", [](Rows& r) { r[4].demoSetup = ""; }, DemoSetupPath},
        {"setup's folder", [](Rows& r) { r[4].demoSetup = "/pub/x.exe"; }, DemoSetupPath},
        {"apart no more", [](Rows& r) { r[1].demoSetup = "/pub/demo/x.exe"; }, DemoSetupPath},
        {"own page", [](Rows& r) { r[31].informationPage = "/web/hvacr/x.html"; }, OwnRow},
        {"page lost", [](Rows& r) { r[4].informationPage = ""; }, OwnRow},
        {"own setup", [](Rows& r) { r[31].demoSetup = "/pub/demo/x.exe"; }, OwnRow},
        {"notifies", [](Rows& r) { r[4].notifiesOfEquipment = true; }, RowsThatNotifyOfEquipment},
    };
    for (const auto& [change, make, fault] : rows)
    {
        Rows table = kPrograms;
        make(table);
        EXPECT_EQ(FirstFault(table), fault) << change;
    }
}

} // namespace
} // namespace velmo
