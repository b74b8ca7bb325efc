#include "equipment/AccessLongValue.h"

#include "equipment/AccessText.h"

#include <unordered_set>

namespace velmo
{
namespace
{

constexpr std::size_t kHeadSize = 12;
constexpr std::size_t kPointer = 4;
constexpr std::uint32_t kInline = 0x8000'0000;
constexpr std::uint32_t kInOneRow = 0x4000'0000;
constexpr std::uint32_t kLength = 0x3FFF'FFFF;

Error WrongText()
{
    return DamagedAccessFile("a long text is not where it should be");
}

Result<ByteView> Piece(AccessPages& pages, AccessRowPointer place)
{
    const auto page = pages.DataPage(place.page, AccessPages::kLongValues);
    if (!page)
    {
        return page.Failure();
    }
    const auto row = pages.Row(page.Value(), place.row);
    return row ? Result(row->bytes) : WrongText();
}

/// Each piece starts with where the next one is.
Result<std::string> ChainedText(AccessPages& pages, std::uint32_t place, std::size_t length)
{
    std::string bytes;
    std::unordered_set<std::uint32_t> visited;
    while (bytes.size() < length)
    {
        if (place == 0 || !visited.insert(place).second)
        {
            return WrongText();
        }
        const auto piece = Piece(pages, AccessRowPointer(place));
        if (!piece)
        {
            return piece.Failure();
        }
        bytes += piece.Value().From(4).Chars();
        place = piece.Value().U32(0);
    }
    bytes.resize(length);
    return AccessText(ByteView(std::as_bytes(std::span(bytes))), pages.Format());
}

} // namespace

Result<std::string> AccessLongText(AccessPages& pages, ByteView stored)
{
    const std::size_t length = stored.U32(0) & kLength;
    if (stored.Size() < kHeadSize || length > pages.FileSize())
    {
        return WrongText();
    }
    const std::uint32_t place = stored.U32(kPointer);
    if ((stored.U32(0) & (kInline | kInOneRow)) == 0)
    {
        return ChainedText(pages, place, length);
    }
    const bool isInline = (stored.U32(0) & kInline) != 0;
    const auto row =
        isInline ? Result(stored.From(kHeadSize)) : Piece(pages, AccessRowPointer(place));
    if (!row)
    {
        return row.Failure();
    }
    const auto bytes = row.Value().Part(0, length);
    return bytes ? Result(AccessText(*bytes, pages.Format())) : WrongText();
}

} // namespace velmo
