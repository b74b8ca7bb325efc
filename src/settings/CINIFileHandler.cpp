#include "settings/CINIFileHandler.h"

#include "platform/PrivateProfile.h"
#include "settings/DiagnosticLog.h"

namespace velmo
{

CINIFileHandler::CINIFileHandler(DiagnosticLog& log, char decimalMark)
    : m_log(log), m_decimalMark(decimalMark)
{}

void CINIFileHandler::MyDeleteAppProfileItem(std::string_view argSection, std::string_view argEntry)
{
    MyWriteAppProfileString(argSection, argEntry, "");
}

void CINIFileHandler::MyDeleteAppProfileSection(std::string_view argSection)
{
    LogUnless(platform::WritePrivateProfileText(argSection, std::nullopt, "0", m_fileName),
              argSection, "");
}

SettingsSnapshot CINIFileHandler::Snapshot() const
{
    return WhatWasRead(platform::ReadProfile(m_fileName));
}

SettingsSnapshot CINIFileHandler::Snapshot(std::string_view argSection) const
{
    return WhatWasRead(platform::ReadProfileSection(m_fileName, argSection));
}

SettingsSnapshot CINIFileHandler::WhatWasRead(const Result<platform::Profile>& profile) const
{
    if (!profile)
    {
        m_log.Failure("Reading \"" + m_fileName + "\"", profile.Failure());
        return {};
    }
    return SettingsSnapshot(profile.Value());
}

bool CINIFileHandler::MyGetAppProfileBoolean(std::string_view argSection, std::string_view argEntry,
                                             bool argDefault) const
{
    return Snapshot(argSection).Boolean(argSection, argEntry, argDefault);
}

std::int16_t CINIFileHandler::MyGetAppProfileInteger(std::string_view argSection,
                                                     std::string_view argEntry,
                                                     std::int16_t argDefault) const
{
    return Snapshot(argSection).Integer(argSection, argEntry, argDefault);
}

std::int32_t CINIFileHandler::MyGetAppProfileLong(std::string_view argSection,
                                                  std::string_view argEntry,
                                                  std::int32_t argDefault) const
{
    return Snapshot(argSection).Long(argSection, argEntry, argDefault);
}

float CINIFileHandler::MyGetAppProfileSingle(std::string_view argSection, std::string_view argEntry,
                                             float argDefault) const
{
    return Snapshot(argSection).Single(argSection, argEntry, argDefault, m_decimalMark);
}

std::string CINIFileHandler::MyGetAppProfileString(std::string_view argSection,
                                                   std::string_view argEntry,
                                                   std::string_view argDefault) const
{
    return Snapshot(argSection).String(argSection, argEntry, argDefault);
}

std::string CINIFileHandler::MyGetAppProfileSection(std::string_view argSectionName) const
{
    return Snapshot(argSectionName).Section(argSectionName);
}

void CINIFileHandler::MyWriteAppProfileBoolean(std::string_view argSection,
                                               std::string_view argEntry, bool argValue)
{
    MyWriteAppProfileString(argSection, argEntry, argValue ? "1 'True" : "0 'False");
}

void CINIFileHandler::MyWriteAppProfileSection(std::string_view argSectionName,
                                               std::string_view argValue)
{
    LogUnless(platform::WritePrivateProfileSectionBlock(argSectionName, argValue, m_fileName),
              argSectionName, "");
}

void CINIFileHandler::MyWriteAppProfileString(std::string_view argSection,
                                              std::string_view argEntry, std::string_view argValue)
{
    LogUnless(platform::WritePrivateProfileText(argSection, argEntry, argValue, m_fileName),
              argSection, argEntry);
}

void CINIFileHandler::LogUnless(const Result<Done>& written, std::string_view section,
                                std::string_view entry) const
{
    if (!written)
    {
        m_log.Failure("Writing [" + std::string(section) + "] " + std::string(entry) + " in \"" +
                          m_fileName + "\"",
                      written.Failure());
    }
}

} // namespace velmo
