#pragma once

#include "platform/Result.h"
#include "platform/UserLocale.h"
#include "settings/SettingsSnapshot.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/**
    Reads and writes one settings file by section and entry (platform/PrivateProfile.h has the rules of
    the file). Each call goes to the file; nothing is kept here but its name. A file, section or entry
    that is missing reads as the default, a file that cannot be read does so with a line in the log; a
    write that fails leaves a line there too and is no error.
    One thread at a time; the log must outlive the handler.
 */
class CINIFileHandler
{
  public:
    /// @a decimalMark is the mark of the user's locale.
    explicit CINIFileHandler(DiagnosticLog& log, char decimalMark = platform::DecimalMark());

    /// The file that every operation works on, as it was given; empty at first.
    [[nodiscard]] const std::string& AppProfileFileName() const { return m_fileName; }
    void AppProfileFileName(std::string_view newVal) { m_fileName = newVal; }

    /// The whole file, read once now.
    [[nodiscard]] SettingsSnapshot Snapshot() const;

    /// One section, read once now: how "Win.ini" is read, whose sections Windows may keep elsewhere.
    [[nodiscard]] SettingsSnapshot Snapshot(std::string_view argSection) const;

    /// Empties the entry's value. The entry stays in the file and reads as the empty text from now on,
    /// not as a default.
    void MyDeleteAppProfileItem(std::string_view argSection, std::string_view argEntry);

    void MyDeleteAppProfileSection(std::string_view argSection);

    /// True for the word "True" in any case and for a leading number other than 0.
    [[nodiscard]] bool MyGetAppProfileBoolean(std::string_view argSection,
                                              std::string_view argEntry, bool argDefault) const;

    /// The leading number, rounded, a half to the even one. std::overflow_error when it does not fit.
    [[nodiscard]] std::int16_t MyGetAppProfileInteger(std::string_view argSection,
                                                      std::string_view argEntry,
                                                      std::int16_t argDefault) const;
    [[nodiscard]] std::int32_t MyGetAppProfileLong(std::string_view argSection,
                                                   std::string_view argEntry,
                                                   std::int32_t argDefault) const;

    /// The section's lines without comments, each ended by a NUL; 32,765 characters at most.
    [[nodiscard]] std::string MyGetAppProfileSection(std::string_view argSectionName) const;

    /// The leading number; the largest single where it is larger. Where the locale's mark is ".", the
    /// first "," reads as ".". Where it is ",", the first "." reads as ",", which ends the number:
    /// "2.5" is 2 there, and so is a default of 2.5. Other programs count on it.
    [[nodiscard]] float MyGetAppProfileSingle(std::string_view argSection,
                                              std::string_view argEntry, float argDefault) const;

    /// The first 255 characters of the value.
    [[nodiscard]] std::string MyGetAppProfileString(std::string_view argSection,
                                                    std::string_view argEntry,
                                                    std::string_view argDefault) const;

    /// Writes "1 'True" or "0 'False": a digit for programs, a word for people.
    void MyWriteAppProfileBoolean(std::string_view argSection, std::string_view argEntry,
                                  bool argValue);

    /// Replaces the section's lines by those of @a argValue, each ended by a NUL.
    void MyWriteAppProfileSection(std::string_view argSectionName, std::string_view argValue);

    /// Text with a line break or a NUL is not written.
    void MyWriteAppProfileString(std::string_view argSection, std::string_view argEntry,
                                 std::string_view argValue);

  private:
    [[nodiscard]] SettingsSnapshot WhatWasRead(const Result<platform::Profile>& profile) const;
    void LogUnless(const Result<Done>& written, std::string_view section,
                   std::string_view entry) const;

    DiagnosticLog& m_log;
    char m_decimalMark;
    std::string m_fileName;
};

} // namespace velmo
