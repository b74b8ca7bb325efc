#include "updates/StartupOptions.h"

#include "tests/support/ProgramDesktop.h"

namespace velmo
{
namespace
{

using StartupOptionsTest = test::ProgramDesktop;

TEST_F(StartupOptionsTest, AProgramThatNeverAllowedAskingKeepsItsEarlierChoice)
{
    const struct
    {
        const char* entries;
        std::int32_t option;
        const char* text;
        bool canAsk;
    } rows[] = {
        {"", 1, "Yes", false},
        {"CheckForUpdateOnStartup=0 'False", 2, "No", false},
        {"CheckForUpdateOnStartup=1 'True", 1, "Yes", false},
        {"CheckForUpdateOnStartupOption=1\r\nCheckForUpdateOnStartup=0", 1, "Yes", false},
        {"CheckForUpdateOnStartupOption=2", 2, "No", false},
        {"CheckForUpdateOnStartupOption=7", 7, "No", false},
        {"CheckForUpdateOnStartupOption=99999999999", 2, "No", false},
        {"CanAskAboutUpdating=tRUE", 0, "Ask", true},
        {"CanAskAboutUpdating=1 'True\r\nCheckForUpdateOnStartup=0", 0, "Ask", true},
        {"CanAskAboutUpdating=-1\r\nCheckForUpdateOnStartupOption=2", 2, "No", true},
        {"CanAskAboutUpdating=0 'False\r\nCheckForUpdateOnStartupOption=0", 1, "Yes", false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.entries);
        WriteSettings(std::string("[Wiring 2]\r\n") + row.entries + "\r\n");
        const StartupOptions options = ReadStartupOptions(m_settings.Snapshot(), "Wiring 2");
        EXPECT_EQ(options.option, row.option);
        EXPECT_EQ(StartupOptionText(options.option), row.text);
        EXPECT_EQ(options.canAsk, row.canAsk);
    }
}

TEST_F(StartupOptionsTest, EquipmentIsCheckedAsTheCatalogueSaysUnlessChosen)
{
    WriteSettings("[Chillersize 5]\r\nNotifyOfHVACEquipmentUpdateOnStartup=0 'False\r\n"
                  "[Wiring 2]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
    constexpr std::pair<const char*, bool> kRows[] = {
        {"Airflow 3", true}, {"Chillersize 5", false}, {"Wiring 2", true}, {"Ductsize 6", false}};
    for (const auto& [name, notify] : kRows)
    {
        EXPECT_EQ(ReadStartupOptions(m_settings.Snapshot(), name).notifyOfEquipment, notify)
            << name;
    }
}

TEST_F(StartupOptionsTest, WhatTheProgramsDecideIsNotWritten)
{
    const std::string theirs = "[Wiring 2]\r\nCanAskAboutUpdating=True\r\n"
                               "CheckForUpdateOnStartup=False\r\n";
    WriteSettings(theirs);
    WriteStartupOptions(m_settings, "Wiring 2", false, 2);
    EXPECT_EQ(Settings(), theirs + "NotifyOfHVACEquipmentUpdateOnStartup=0 'False\r\n"
                                   "CheckForUpdateOnStartupOption=2\r\n");
}

} // namespace
} // namespace velmo
