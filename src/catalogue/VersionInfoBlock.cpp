#include "catalogue/VersionInfoBlock.h"

#include "catalogue/LittleEndian.h"
#include "platform/AnsiText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::size_t kHeaderSize = 6; // Three words: length, value length, kind.

std::size_t Align(std::size_t offset)
{
    return (offset + 3) & ~std::size_t{3};
}

/// One node; views of its parts within the resource.
struct Node
{
    std::string_view name; ///< UTF-16 bytes without the terminating zero.
    bool isText = false;
    std::string_view value;
    std::string_view children;
};

std::string_view Part(std::string_view bytes, std::size_t start, std::size_t size)
{
    return start < bytes.size() ? bytes.substr(start, size) : std::string_view();
}

/// The node that fills @a bytes. Absent when it has no complete name.
std::optional<Node> ReadNode(std::string_view bytes)
{
    std::size_t nameEnd = kHeaderSize;
    while (nameEnd + 2 <= bytes.size() && Load16(bytes, nameEnd) != 0)
    {
        nameEnd += 2;
    }
    if (nameEnd + 2 > bytes.size())
    {
        return std::nullopt;
    }
    Node node;
    node.name = bytes.substr(kHeaderSize, nameEnd - kHeaderSize);
    node.isText = Load16(bytes, 4) != 0;
    const std::size_t valueStart = Align(nameEnd + 2);
    const std::size_t valueSize = std::size_t{Load16(bytes, 2)} * (node.isText ? 2 : 1);
    node.value = Part(bytes, valueStart, valueSize);
    node.children = Part(bytes, Align(valueStart + valueSize), std::string_view::npos);
    return node;
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// Compares UTF-16 bytes with an ASCII name.
bool IsNamed(const Node& node, std::string_view name)
{
    if (node.name.size() != name.size() * 2)
    {
        return false;
    }
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        if (node.name[2 * i + 1] != '\0' || Lower(node.name[2 * i]) != Lower(name[i]))
        {
            return false;
        }
    }
    return true;
}

std::optional<Node> FindChild(std::string_view children, std::string_view name)
{
    while (children.size() >= kHeaderSize)
    {
        const std::size_t length = Load16(children, 0);
        if (length < kHeaderSize)
        {
            return std::nullopt;
        }
        const auto node = ReadNode(children.substr(0, length));
        if (node && IsNamed(*node, name))
        {
            return node;
        }
        children = Part(children, Align(length), std::string_view::npos);
    }
    return std::nullopt;
}

std::optional<Node> ReadRoot(std::string_view bytes)
{
    if (bytes.size() < kHeaderSize)
    {
        return std::nullopt;
    }
    return ReadNode(bytes.substr(0, Load16(bytes, 0)));
}

} // namespace

VersionInfoBlock::VersionInfoBlock(std::string bytes) : m_bytes(std::move(bytes)) {}

std::optional<VersionInfoBlock> VersionInfoBlock::FromBytes(std::string bytes)
{
    const auto root = ReadRoot(bytes);
    if (!root || !IsNamed(*root, "VS_VERSION_INFO"))
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
    const auto root = ReadRoot(m_bytes);
    if (root && root->value.size() >= kFields.size() * 4)
    {
        for (std::size_t i = 0; i < kFields.size(); ++i)
        {
            info.*kFields[i] = Load32(root->value, i * 4);
        }
    }
    return info;
}

std::optional<std::string> VersionInfoBlock::Value(
    std::initializer_list<std::string_view> names) const
{
    auto node = ReadRoot(m_bytes);
    for (const std::string_view name : names)
    {
        node = node ? FindChild(node->children, name) : std::nullopt;
    }
    if (!node || node->value.empty())
    {
        return std::nullopt;
    }
    return node->isText ? platform::ToAnsi(platform::FromUtf16(node->value))
                        : std::string(node->value);
}

} // namespace velmo
