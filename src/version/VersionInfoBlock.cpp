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

constexpr std::size_t kHeaderSize = 6; // Three words: length, value length, kind.
constexpr std::string_view kRootName = "VS_VERSION_INFO";

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

/// Compares the UTF-16 name of the node at the start of @a bytes with an ASCII name.
bool IsNamed(ByteView bytes, std::string_view name)
{
    const std::size_t end = kHeaderSize + 2 * name.size();
    if (!bytes.Has(end, 2) || bytes.U16(end) != 0)
    {
        return false;
    }
    std::string stored;
    for (std::size_t at = kHeaderSize; at < end; at += 2)
    {
        const std::uint16_t unit = bytes.U16(at);
        stored += unit < 0x80 ? static_cast<char>(unit) : '\0';
    }
    return LowerCase(stored) == LowerCase(name);
}

/// The node at the start of @a bytes, when it bears that name. The bytes go on to the resource's end:
/// as in Windows, a node's length only says where the next one starts and which are its children.
std::optional<Node> ReadNode(ByteView bytes, std::string_view name)
{
    if (!IsNamed(bytes, name))
    {
        return std::nullopt;
    }
    Node node;
    node.isText = bytes.U16(4) != 0;
    const std::size_t valueStart = Align(kHeaderSize + 2 * name.size() + 2);
    const std::size_t valueSize = std::size_t{bytes.U16(2)} * (node.isText ? 2 : 1);
    const ByteView value = bytes.From(valueStart);
    node.value = value.Part(0, std::min(valueSize, value.Size())).value_or(ByteView());
    const std::size_t childrenStart = Align(valueStart + valueSize);
    const std::size_t length = bytes.U16(0);
    node.children = bytes.From(childrenStart);
    node.childrenSize = length > childrenStart ? length - childrenStart : 0;
    return node;
}

std::optional<Node> FindChild(const Node& parent, std::string_view name)
{
    std::size_t start = 0;
    while (start < parent.childrenSize)
    {
        const ByteView bytes = parent.children.From(start);
        const std::size_t length = bytes.U16(0);
        if (length == 0 || !bytes.Has(0, kHeaderSize))
        {
            return std::nullopt;
        }
        if (auto node = ReadNode(bytes, name))
        {
            return node;
        }
        start += Align(length);
    }
    return std::nullopt;
}

} // namespace

VersionInfoBlock::VersionInfoBlock(std::string bytes) : m_bytes(std::move(bytes)) {}

std::optional<VersionInfoBlock> VersionInfoBlock::FromBytes(std::string bytes)
{
    if (!ReadNode(ByteView(bytes), kRootName) || ByteView(bytes).U16(0) < kHeaderSize)
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
    const auto root = ReadNode(ByteView(m_bytes), kRootName);
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
    auto node = ReadNode(ByteView(m_bytes), kRootName);
    for (const std::string_view name : names)
    {
        node = node ? FindChild(*node, name) : std::nullopt;
    }
    if (!node || node->value.Size() == 0)
    {
        return std::nullopt;
    }
    const std::string_view value = node->value.Chars();
    return node->isText ? platform::ToAnsi(platform::FromUtf16(value)) : std::string(value);
}

} // namespace velmo
