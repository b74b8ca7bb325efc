#include "settings/CINIFileHandler.h"

#include "platform/PrivateProfile.h"
#include "settings/DiagnosticLog.h"
#include "settings/LenientNumber.h"
#include "settings/TextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace velmo
{
namespace
{

constexpr std::size_t kValueBuffer = 256;
constexpr std::size_t kSectionBuffer = 32'767;

std::string TextOf(float number, char decimalMark)
{
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.begin(), buffer.end(), number).ptr;
    std::string text(buffer.begin(), end);
    std::replace(text.begin(), text.end(), '.', decimalMark);
    return text;
}

float ToSingle(double number)
{
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(number, -kLargest, kLargest));
}

} // namespace

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

bool CINIFileHandler::MyGetAppProfileBoolean(std::string_view argSection, std::string_view argEntry,
                                             bool argDefault) const
{
    const std::string value =
        MyGetAppProfileString(argSection, argEntry, argDefault ? "True" : "False");
    return UpperCase(Trimmed(value)) == "TRUE" || LenientNumber(value) != 0;
}

std::int16_t CINIFileHandler::MyGetAppProfileInteger(std::string_view argSection,
                                                     std::string_view argEntry,
                                                     std::int16_t argDefault) const
{
    return RoundedTo16Bits(
        LenientNumber(MyGetAppProfileString(argSection, argEntry, std::to_string(argDefault))));
}

std::int32_t CINIFileHandler::MyGetAppProfileLong(std::string_view argSection,
                                                  std::string_view argEntry,
                                                  std::int32_t argDefault) const
{
    return RoundedTo32Bits(
        LenientNumber(MyGetAppProfileString(argSection, argEntry, std::to_string(argDefault))));
}

std::string CINIFileHandler::MyGetAppProfileSection(std::string_view argSectionName) const
{
    return platform::GetPrivateProfileSectionBlock(argSectionName, kSectionBuffer, m_fileName);
}

float CINIFileHandler::MyGetAppProfileSingle(std::string_view argSection, std::string_view argEntry,
                                             float argDefault) const
{
    std::string value =
        MyGetAppProfileString(argSection, argEntry, TextOf(argDefault, m_decimalMark));
    const bool isUsual = m_decimalMark == '.' || m_decimalMark == ',';
    const std::size_t place = value.find(m_decimalMark == '.' ? ',' : '.');
    if (isUsual && place != std::string::npos)
    {
        value[place] = m_decimalMark;
    }
    return ToSingle(LenientNumber(value));
}

std::string CINIFileHandler::MyGetAppProfileString(std::string_view argSection,
                                                   std::string_view argEntry,
                                                   std::string_view argDefault) const
{
    return platform::GetPrivateProfileText(argSection, argEntry, argDefault, kValueBuffer,
                                           m_fileName);
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

void CINIFileHandler::LogUnless(bool written, std::string_view section,
                                std::string_view entry) const
{
    if (!written)
    {
        m_log.Write("Writing [" + std::string(section) + "] " + std::string(entry) + " in \"" +
                    m_fileName + "\": " + platform::LastProfileFailure());
    }
}

} // namespace velmo
