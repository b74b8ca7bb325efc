#include "catalogue/ProgramCatalogue.h"

#include "catalogue/CatalogueChecks.h"

#include <gtest/gtest.h>

#include <tuple>

namespace velmo
{
namespace
{

TEST(ProgramCatalogueTest, NamesAndIndexesMapToOneAnother)
{
    for (std::int32_t index = 0; index < kProgramCount; ++index)
    {
        EXPECT_EQ(IndexOfName(NameOfIndex(index)), index);
    }
    EXPECT_EQ(NameOfIndex(kProgramCount), "Manufacturer Databases");
    EXPECT_EQ(NameOfIndex(kProgramCount + 1), "");
    EXPECT_EQ(NameOfIndex(-1), "");
    EXPECT_EQ(LocatorNumberOfIndex(kProgramCount), -1);
    for (const char* stranger : {"Manufacturer Databases", "rooftop 4", "Rooftop 4 ", ""})
    {
        EXPECT_EQ(IndexOfName(stranger), 0) << stranger;
        EXPECT_FALSE(NotifiesOfEquipmentByDefault(stranger)) << stranger;
    }
}

TEST(ProgramCatalogueTest, RowsAnswerWithTheirAddresses)
{
    const VendorServer server{"http://w", "http://d"};
    constexpr struct
    {
        const char* name;
        std::int32_t locatorNumber;
        const char* information;
        const char* update;
        const char* demo;
        bool notifies;
    } kRows[] = {
        {"Loadcalc 8", 12, "http://w/web/hvacr/loadcalc_info.html",
         "http://w/web/hvacr/loadcalc8_ver.html", "http://w/pub/demo/lc8setup.exe", false},
        {"Pipesize 3", -1, "http://w/web/plumbing/pipesize.htm",
         "http://w/web/errors/noupdatepage.txt", "http://w/pub/demo/pipesz30.exe", false},
        {"Chillersize 4", 2, "http://w/web/hvacr/chillersize_info.html",
         "http://w/web/hvacr/chillersize4_ver.html", "http://d/pub/chlsz40.exe", true},
        {"Update Manager 1", 31, "", "http://w/web/errors/noupdatepage.txt",
         "http://w/pub/demo/update_manager_setup.exe", false},
        {"", -1, "", "http://w/web/errors/noupdatepage.txt", "", false},
    };
    for (const auto& row : kRows)
    {
        SCOPED_TRACE(row.name);
        const std::int32_t index = *row.name == '\0' ? -1 : IndexOfName(row.name);
        EXPECT_EQ(LocatorNumberOfIndex(index), row.locatorNumber);
        EXPECT_EQ(InformationPageOfIndex(server, index), row.information);
        EXPECT_EQ(UpdatePageOfIndex(server, index), row.update);
        EXPECT_EQ(DemoSetupOfIndex(server, index), row.demo);
        EXPECT_EQ(NotifiesOfEquipmentByDefault(row.name), row.notifies);
    }
    EXPECT_EQ(kOwnRow, IndexOfName("Update Manager 1"));
    EXPECT_EQ(LocatorNumberOfIndex(IndexOfName("Panelplan 6")), 20);
}

TEST(ProgramCatalogueTest, TheFirstRowOnTheCommandLineIsTheCaller)
{
    EXPECT_EQ(CallerOfCommandLine("\"Wiring 2\" STARTUP DUCTSIZE 6 Pro"), "Ductsize 6");
    EXPECT_EQ(CallerOfCommandLine("Loadcalc8"), "");
}

TEST(CatalogueChecksTest, EachKindOfBrokenRowIsFoundAndNamed)
{
    using enum CatalogueFault;
    using Rows = std::vector<ProgramEntry>;
    const std::tuple<const char*, void (*)(Rows&), FaultyRow> rows[] = {
        {"none", [](Rows&) {}, {}},
        {"one more",
         [](Rows& r) {
             r.push_back({34, "Zoneplan 1", -1, "", "", "/pub/demo/z.exe", true});
         },
         {}},
        {"index", [](Rows& r) { r[5].index = 6; }, {5, IndexIsNotPosition}},
        {"no version",
         [](Rows& r) { r[4].displayName = "Loadcalc"; },
         {4, NameWithoutMajorVersion}},
        {"blanks", [](Rows& r) { r[4].displayName = "Loadcalc  8"; }, {4, NameWithoutMajorVersion}},
        {"name", [](Rows& r) { r[9].displayName = r[4].displayName; }, {9, NameTwice}},
        {"number twice", [](Rows& r) { r[4].locatorNumber = 1; }, {4, LocatorNumberTwice}},
        {"number 32",
         [](Rows& r) { r[4].locatorNumber = 32; },
         {4, LocatorNumberWithoutExecutable}},
        {"number 0", [](Rows& r) { r[4].locatorNumber = 0; }, {4, LocatorNumberWithoutExecutable}},
        {"another's", [](Rows& r) { r[33].locatorNumber = 27; }, {33, LocatedUnderAnotherName}},
        {"generations",
         [](Rows& r) { std::swap(r[14].locatorNumber, r[15].locatorNumber); },
         {14, LocatedUnderAnotherName}},
        {"area",
         [](Rows& r) { r[4].updatePage = "/web/heating/x.html"; },
         {4, PageNotInAProductArea}},
        {"kind",
         [](Rows& r) { r[4].informationPage = "/web/hvacr/x.txt"; },
         {4, PageNotInAProductArea}},
        {"deeper",
         [](Rows& r) { r[4].updatePage = "/web/hvacr/a/x.html"; },
         {4, PageNotInAProductArea}},
        {"shared", [](Rows& r) { r[5].updatePage = r[4].updatePage; }, {5, UpdatePageShared}},
        {"no setup", [](Rows& r) { r[4].demoSetup = ""; }, {4, DemoSetupPath}},
        {"setup's folder", [](Rows& r) { r[4].demoSetup = "/pub/x.exe"; }, {4, DemoSetupPath}},
        {"apart no more", [](Rows& r) { r[1].kind = ProgramKind::Ordinary; }, {1, DemoSetupPath}},
        {"two managers",
         [](Rows& r) { r[33].kind = ProgramKind::UpdateManager; },
         {33, UpdateManagerTwice}},
    };
    for (const auto& [change, make, found] : rows)
    {
        SCOPED_TRACE(change);
        Rows table(kPrograms.begin(), kPrograms.end());
        make(table);
        const FaultyRow fault = FirstFault(table, kLocatorTable);
        EXPECT_EQ(fault.index, found.index);
        EXPECT_EQ(fault.fault, found.fault);
    }
}

TEST(CatalogueChecksTest, EachKindOfBrokenNumberIsFoundAndNamed)
{
    using enum CatalogueFault;
    using Numbers = std::vector<LocatorEntry>;
    const std::tuple<const char*, void (*)(Numbers&), FaultyRow> rows[] = {
        {"none", [](Numbers&) {}, {}},
        {"place", [](Numbers& n) { n[5].number = 6; }, {5, IndexIsNotPosition}},
        {"folder", [](Numbers& n) { n[5].folderName = ""; }, {5, FolderNotNamed}},
        {"program", [](Numbers& n) { n[5].executable = ""; }, {5, IniFileWithoutExecutable}},
        {"file", [](Numbers& n) { n[7].iniFile = ""; }, {7, IniFileWithoutExecutable}},
    };
    for (const auto& [change, make, found] : rows)
    {
        SCOPED_TRACE(change);
        Numbers table(kLocatorTable.begin(), kLocatorTable.end());
        make(table);
        EXPECT_EQ(FirstFault(table), found);
    }
}

} // namespace
} // namespace velmo
