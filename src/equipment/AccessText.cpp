#include "equipment/AccessText.h"

#include "platform/AnsiText.h"
#include "settings/TextCase.h"

namespace velmo
{
namespace
{

/// UTF-16 of compressed text: one byte a character, until a zero byte changes to two bytes a
/// character, and back again.
std::string Expand(std::string_view compressed)
{
    std::string units;
    units.reserve(2 * compressed.size());
    bool isCompressed = true;
    for (std::size_t i = 0; i < compressed.size(); ++i)
    {
        if (compressed[i] == '\0')
        {
            isCompressed = !isCompressed;
            continue;
        }
        units += compressed[i];
        if (isCompressed)
        {
            units += '\0';
        }
        else if (i + 1 < compressed.size())
        {
            units += compressed[++i];
        }
    }
    return units;
}

} // namespace

std::string AccessText(ByteView stored, const JetFormat& format)
{
    constexpr std::string_view kCompressedMark = "\xFF\xFE";
    const std::string_view bytes = stored.Chars();
    if (format.textIsUnicode && bytes.starts_with(kCompressedMark))
    {
        return platform::FromUtf16(Expand(bytes.substr(kCompressedMark.size())));
    }
    return AccessName(stored, format);
}

std::string AccessName(ByteView stored, const JetFormat& format)
{
    return format.textIsUnicode ? platform::FromUtf16(stored.Chars())
                                : platform::FromAnsi(stored.Chars());
}

bool IsSameAccessName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && LowerCase(a) == LowerCase(b);
}

} // namespace velmo
