#include "catalogue/ProgramCatalogue.h"

#include "catalogue/CatalogueChecks.h"

#include <gtest/gtest.h>

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
    const std::pair<void (*)(Rows&), FaultyRow> rows[] = {
        {[](Rows& r) {
             r.push_back({34, "Zone 1", -1, "", "", "/pub/demo/z.exe", true});
         },
         {}},
        {[](Rows& r) { r[5].index = 6; }, {5, IndexIsNotPosition}},
        {[](Rows& r) { r[4].displayName = "Loadcalc"; }, {4, NameWithoutMajorVersion}},
        {[](Rows& r) { r[4].displayName = "Loadcalc  8"; }, {4, NameWithoutMajorVersion}},
        {[](Rows& r) { r[9].displayName = r[4].displayName; }, {9, NameTwice}},
        {[](Rows& r) { r[4].locatorNumber = 1; }, {4, LocatorNumberTwice}},
        {[](Rows& r) { r[4].locatorNumber = 32; }, {4, LocatorNumberWithoutExecutable}},
        {[](Rows& r) { r[4].locatorNumber = 0; }, {4, LocatorNumberWithoutExecutable}},
        {[](Rows& r) { r[33].locatorNumber = 27; }, {33, LocatedUnderAnotherName}},
        {[](Rows& r) { std::swap(r[14].locatorNumber, r[15].locatorNumber); },
         {14, LocatedUnderAnotherName}},
        {[](Rows& r) { r[4].updatePage = "/web/heating/x.html"; }, {4, PageNotInAProductArea}},
        {[](Rows& r) { r[4].informationPage = "/web/hvacr/x.txt"; }, {4, PageNotInAProductArea}},
        {[](Rows& r) { r[4].updatePage = "/web/hvacr/a/x.html"; }, {4, PageNotInAProductArea}},
        {[](Rows& r) { r[5].updatePage = r[4].updatePage; }, {5, UpdatePageShared}},
        {[](Rows& r) { r[4].demoSetup = ""; }, {4, DemoSetupPath}},
        {[](Rows& r) { r[4].demoSetup = "/pub/x.exe"; }, {4, DemoSetupPath}},
        {[](Rows& r) { r[1].kind = ProgramKind::Ordinary; }, {1, DemoSetupPath}},
        {[](Rows& r) { r[33].kind = ProgramKind::UpdateManager; }, {33, UpdateManagerTwice}},
    };
    for (const auto& [change, found] : rows)
    {
        Rows table(kPrograms.begin(), kPrograms.end());
        change(table);
        EXPECT_EQ(FirstFault(table, kLocatorTable), found);
    }
    using Numbers = std::vector<LocatorEntry>;
    const std::pair<void (*)(Numbers&), FaultyRow> numbers[] = {
        {[](Numbers& n) { n[5].number = 6; }, {5, IndexIsNotPosition}},
        {[](Numbers& n) { n[5].folderName = ""; }, {5, FolderNotNamed}},
        {[](Numbers& n) { n[5].executable = ""; }, {5, IniFileWithoutExecutable}},
        {[](Numbers& n) { n[7].iniFile = ""; }, {7, IniFileWithoutExecutable}},
    };
    for (const auto& [change, found] : numbers)
    {
        Numbers table(kLocatorTable.begin(), kLocatorTable.end());
        change(table);
        EXPECT_EQ(FirstFault(table), found);
    }
}

} // namespace
} // namespace velmo
