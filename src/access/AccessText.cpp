#include "access/AccessText.h"

#include "platform/AnsiText.h"
#include "text/TextCase.h"

namespace velmo
{
namespace
{

constexpr std::string_view kCompressedMark = "\xFF\xFE";

bool IsCompressed(std::string_view stored, const JetFormat& format)
{
    return format.textIsUnicode && stored.starts_with(kCompressedMark);
}

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
    const std::string_view bytes = stored.Chars();
    if (IsCompressed(bytes, format))
    {
        return platform::FromUtf16(Expand(bytes.substr(kCompressedMark.size())));
    }
    return format.textIsUnicode ? platform::FromUtf16(bytes) : platform::FromAnsi(bytes);
}

bool IsAccessName(ByteView stored, std::string_view name, const JetFormat& format)
{
    // Every name that a file stores is compared, so that none is converted first.
    std::string_view bytes = stored.Chars();
    std::size_t width = format.textIsUnicode ? 2 : 1;
    if (IsCompressed(bytes, format))
    {
        bytes.remove_prefix(kCompressedMark.size());
        width = 1;
    }
    if (bytes.size() != width * name.size())
    {
        return false;
    }
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const std::string_view unit = bytes.substr(width * i, width);
        if (LowerCase(unit.front()) != LowerCase(name[i]) || (width == 2 && unit.back() != '\0'))
        {
            return false;
        }
    }
    return true;
}

} // namespace velmo
