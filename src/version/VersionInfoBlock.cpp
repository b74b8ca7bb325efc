#include "version/VersionInfoBlock.h"

#include "platform/AnsiText.h"
#include "text/ByteView.h"
#include "text/TextCase.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::string_view kRootName = "VS_VERSION_INFO";

/// A 16-bit executable's resource has neither the word that tells texts from bytes nor wide characters.
struct Layout
{
    std::size_t headerSize; ///< In words: length, value length, and the kind where there is one.
    std::size_t characterSize;
};
constexpr Layout kWide{6, 2};
constexpr Layout kNarrow{4, 1};

std::size_t Align(std::size_t offset)
{
    return (offset + 3) & ~std::size_t{3};
}

/// One node; views of its parts within the resource.
struct Node
{
    bool isText = false;
    ByteView value;
    ByteView children;            ///< From the first child to the resource's end.
    std::size_t childrenSize = 0; ///< Children start within this size.
};

/// Compares the name of the node at the start of @a bytes with an ASCII name.
bool IsNamed(ByteView bytes, Layout layout, std::string_view name)
{
    const std::size_t size = layout.characterSize;
    const std::size_t end = layout.headerSize + size * name.size();
    const auto unit = [&](std::size_t at) { return size == 2 ? bytes.U16(at) : bytes.U8(at); };
    if (!bytes.Has(end, size) || unit(end) != 0)
    {
        return false;
    }
    std::string stored;
    for (std::size_t at = layout.headerSize; at < end; at += size)
    {
        stored += unit(at) < 0x80 ? static_cast<char>(unit(at)) : '\0';
    }
    return EqualInAnyCase(stored, name);
}

/// The node at the start of @a bytes, when it bears that name. The bytes go on to the resource's end:
/// as in Windows, a node's length only says where the next one starts and which are its children.
std::optional<Node> ReadNode(ByteView bytes, Layout layout, std::string_view name)
{
    if (!IsNamed(bytes, layout, name))
    {
        return std::nullopt;
    }
    Node node;
    node.isText = layout.headerSize == kWide.headerSize && bytes.U16(4) != 0;
    const std::size_t valueStart =
        Align(layout.headerSize + layout.characterSize * (name.size() + 1));
    const std::size_t valueSize = std::size_t{bytes.U16(2)} * (node.isText ? 2 : 1);
    const ByteView value = bytes.From(valueStart);
    node.value = value.Part(0, std::min(valueSize, value.Size())).value_or(ByteView());
    const std::size_t childrenStart = Align(valueStart + valueSize);
    const std::size_t length = bytes.U16(0);
    node.children = bytes.From(childrenStart);
    node.childrenSize = length > childrenStart ? length - childrenStart : 0;
    return node;
}

std::optional<Node> FindChild(const Node& parent, Layout layout, std::string_view name)
{
    std::size_t start = 0;
    while (start < parent.childrenSize)
    {
        const ByteView bytes = parent.children.From(start);
        const std::size_t length = bytes.U16(0);
        if (length == 0 || !bytes.Has(0, layout.headerSize))
        {
            return std::nullopt;
        }
        if (auto node = ReadNode(bytes, layout, name))
        {
            return node;
        }
        start += Align(length);
    }
    return std::nullopt;
}

Layout LayoutOf(std::string_view resource)
{
    return IsNamed(ByteView(resource), kNarrow, kRootName) ? kNarrow : kWide;
}

std::optional<Node> Root(std::string_view resource)
{
    return ReadNode(ByteView(resource), LayoutOf(resource), kRootName);
}

} // namespace

VersionInfoBlock::VersionInfoBlock(std::string bytes) : m_bytes(std::move(bytes)) {}

std::optional<VersionInfoBlock> VersionInfoBlock::FromBytes(std::string bytes)
{
    if (!Root(bytes) || ByteView(bytes).U16(0) < LayoutOf(bytes).headerSize)
    {
        return std::nullopt;
    }
    return VersionInfoBlock(std::move(bytes));
}

FixedFileInfo VersionInfoBlock::FixedInfo() const
{
    constexpr std::array kFields{
        &FixedFileInfo::signature,
        &FixedFileInfo::structureVersion,
        &FixedFileInfo::fileVersionHigh,
        &FixedFileInfo::fileVersionLow,
        &FixedFileInfo::productVersionHigh,
        &FixedFileInfo::productVersionLow,
        &FixedFileInfo::flagsMask,
        &FixedFileInfo::flags,
        &FixedFileInfo::os,
        &FixedFileInfo::type,
        &FixedFileInfo::subtype,
        &FixedFileInfo::dateHigh,
        &FixedFileInfo::dateLow,
    };
    FixedFileInfo info;
    const auto root = Root(m_bytes);
    if (root && root->value.Size() >= kFields.size() * 4)
    {
        for (std::size_t i = 0; i < kFields.size(); ++i)
        {
            info.*kFields[i] = root->value.U32(i * 4);
        }
    }
    return info;
}

std::optional<std::string> VersionInfoBlock::Value(
    std::initializer_list<std::string_view> names) const
{
    auto node = Root(m_bytes);
    for (const std::string_view name : names)
    {
        node = node ? FindChild(*node, LayoutOf(m_bytes), name) : std::nullopt;
    }
    if (!node || node->value.Size() == 0)
    {
        return std::nullopt;
    }
    const std::string_view value = node->value.Chars();
    return node->isText ? platform::ToNearestAnsi(platform::FromUtf16(value)) : std::string(value);
}

} // namespace velmo
