#include "settings/CSectionDataCollection.h"

#include <gtest/gtest.h>

#include <string>

namespace velmo
{
namespace
{

/// "[name]", then its entries as "<name>=<value>", for all sections in their order.
std::string Contents(const CSectionDataCollection& sections)
{
    std::string text;
    for (const CSectionData& section : sections)
    {
        text += "[" + section.Name + "]";
        for (const CEntry& entry : section.Entries)
        {
            text += "<" + entry.Name + ">=<" + entry.Value + ">";
        }
    }
    return text;
}

TEST(CEntriesTest, AnEntryIsFoundByPositionAndByNameInAnyCase)
{
    CEntries entries;
    CEntry* first = entries.Add("Key", "1");
    entries.Add("", "without key");
    entries.Add("", "another");
    entries.Add("Other", "2");
    EXPECT_EQ(entries.Add("KEY", "again"), nullptr);
    EXPECT_EQ(entries.Count(), 4U);
    entries.Add("\u00C4rmel", "sleeve");
    EXPECT_EQ(entries.Item("\u00E4RMEL"), entries.Item(5));
    EXPECT_EQ(entries.Item(1), first);
    EXPECT_EQ(entries.Item("kEY"), first);
    EXPECT_EQ(entries.Item(2)->Value, "without key");
    EXPECT_EQ(entries.Item(""), nullptr);
    EXPECT_EQ(entries.Item("none"), nullptr);
    EXPECT_EQ(entries.Item(std::size_t{0}), nullptr);
    EXPECT_EQ(entries.Item(6), nullptr);
}

TEST(CEntriesTest, ARemovedEntryFreesItsNameAndMovesTheOthersUp)
{
    CEntries entries;
    for (const char* name : {"a", "b", "c", "d"})
    {
        entries.Add(name, name);
    }
    const CEntry* last = entries.Item("d");
    entries.Remove("B");
    entries.Remove(1);
    entries.Remove("none");
    entries.Remove(3);
    EXPECT_EQ(entries.Count(), 2U);
    EXPECT_EQ(entries.Item(1)->Name, "c");
    EXPECT_EQ(entries.Item(2), last);
    EXPECT_EQ(entries.Item("a"), nullptr);
    EXPECT_NE(entries.Add("A", "new"), nullptr);
    std::string order;
    for (CEntry& entry : entries.NewEnum())
    {
        order += entry.Name;
    }
    EXPECT_EQ(order, "cdA");
}

TEST(LoadSectionDataTest, LinesBecomeSectionsAndEntriesUntrimmed)
{
    const auto sections = LoadSectionData("before=1\r\n[Pumps]\r\n k = a=b \r\nno mark\r\n\r\n"
                                          "=nameless\nK =second\nk=third\nK=fourth\n"
                                          "\xC3\xA4[Fans]\xC3\xA4\n[open=1\nx]\n"
                                          "[PUMPS]\nlost=1\n[]\nlast=1");
    EXPECT_EQ(Contents(sections), "[Pumps]< k >=< a=b ><>=<nameless><K >=<second><k>=<third>"
                                  "[[Fans]]<[open>=<1>[]<last>=<1>");
    EXPECT_EQ(sections.Item("pumps")->Entries.Item("K")->Value, "third");
    EXPECT_EQ(LoadSectionData("").Count(), 0U);
}

TEST(LoadSectionDataTest, FiftyThousandSectionsAreAllFound)
{
    constexpr std::size_t kSections = 50'000;
    std::string text;
    for (std::size_t i = 1; i <= kSections; ++i)
    {
        text += "[Section " + std::to_string(i) + "]\nMDBFilename=" + std::to_string(i) + ".mdb\n";
    }
    auto sections = LoadSectionData(text);
    ASSERT_EQ(sections.Count(), kSections);
    for (std::size_t i = 1; i <= kSections; ++i)
    {
        const auto* byName = sections.Item("SECTION " + std::to_string(i));
        ASSERT_EQ(byName, sections.Item(i));
        ASSERT_EQ(byName->Entries.Item("mdbfilename")->Value, std::to_string(i) + ".mdb");
    }
}

} // namespace
} // namespace velmo
