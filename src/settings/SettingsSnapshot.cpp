#include "settings/SettingsSnapshot.h"

#include "platform/PrivateProfile.h"
#include "text/LenientNumber.h"
#include "text/TextCase.h"

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

std::string SettingsSnapshot::String(std::string_view section, std::string_view entry,
                                     std::string_view defaultText) const
{
    return platform::GetPrivateProfileText(section, entry, defaultText, kValueBuffer, m_profile);
}

bool SettingsSnapshot::Boolean(std::string_view section, std::string_view entry,
                               bool defaultValue) const
{
    const std::string value = String(section, entry, defaultValue ? "True" : "False");
    return UpperCase(Trimmed(value)) == "TRUE" || LenientNumber(value) != 0;
}

std::int16_t SettingsSnapshot::Integer(std::string_view section, std::string_view entry,
                                       std::int16_t defaultValue) const
{
    return RoundedTo16Bits(LenientNumber(String(section, entry, std::to_string(defaultValue))));
}

std::int32_t SettingsSnapshot::Long(std::string_view section, std::string_view entry,
                                    std::int32_t defaultValue) const
{
    return RoundedTo32Bits(LenientNumber(String(section, entry, std::to_string(defaultValue))));
}

float SettingsSnapshot::Single(std::string_view section, std::string_view entry, float defaultValue,
                               char decimalMark) const
{
    std::string value = String(section, entry, TextOf(defaultValue, decimalMark));
    const bool isUsual = decimalMark == '.' || decimalMark == ',';
    const std::size_t place = value.find(decimalMark == '.' ? ',' : '.');
    if (isUsual && place != std::string::npos)
    {
        value[place] = decimalMark;
    }
    return ToSingle(LenientNumber(value));
}

std::string SettingsSnapshot::Section(std::string_view section) const
{
    return platform::GetPrivateProfileSectionBlock(section, kSectionBuffer, m_profile);
}

} // namespace velmo
