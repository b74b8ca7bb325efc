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
constexpr std::string_view kRootName = "VS_VERSION_INFO";

std::size_t Align(std::size_t offset)
{
    return (offset + 3) & ~std::size_t{3};
}

std::string_view Part(std::string_view bytes, std::size_t start,
                      std::size_t size = std::string_view::npos)
{
    return start < bytes.size() ? bytes.substr(start, size) : std::string_view();
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// Compares the UTF-16 name of the node at the start of @a bytes with an ASCII name.
bool IsNamed(std::string_view bytes, std::string_view name)
{
    const std::size_t end = kHeaderSize + 2 * name.size();
    if (bytes.size() < end + 2 || Load16(bytes, end) != 0)
    {
        return false;
    }
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const std::size_t at = kHeaderSize + 2 * i;
        if (bytes[at + 1] != '\0' || Lower(bytes[at]) != Lower(name[i]))
        {
            return false;
        }
    }
    return true;
}

/// One node; views of its parts within the resource.
struct Node
{
    bool isText = false;
    std::string_view value;
    std::string_view children;    ///< From the first child to the resource's end.
    std::size_t childrenSize = 0; ///< Children start within this size.
};

/// The node at the start of @a bytes, when it bears that name. The bytes go on to the resource's end:
/// as in Windows, a node's length only says where the next one starts and which are its children.
std::optional<Node> ReadNode(std::string_view bytes, std::string_view name)
{
    if (!IsNamed(bytes, name))
    {
        return std::nullopt;
    }
    Node node;
    node.isText = Load16(bytes, 4) != 0;
    const std::size_t valueStart = Align(kHeaderSize + 2 * name.size() + 2);
    const std::size_t valueSize = std::size_t{Load16(bytes, 2)} * (node.isText ? 2 : 1);
    node.value = Part(bytes, valueStart, valueSize);
    const std::size_t childrenStart = Align(valueStart + valueSize);
    const std::size_t length = Load16(bytes, 0);
    node.children = Part(bytes, childrenStart);
    node.childrenSize = length > childrenStart ? length - childrenStart : 0;
    return node;
}

std::optional<Node> FindChild(const Node& parent, std::string_view name)
{
    std::size_t start = 0;
    while (start < parent.childrenSize && start + kHeaderSize <= parent.children.size())
    {
        const std::string_view bytes = parent.children.substr(start);
        const std::size_t length = Load16(bytes, 0);
        if (length == 0)
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
    if (!ReadNode(bytes, kRootName) || Load16(bytes, 0) < kHeaderSize)
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
    const auto root = ReadNode(m_bytes, kRootName);
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
    auto node = ReadNode(m_bytes, kRootName);
    for (const std::string_view name : names)
    {
        node = node ? FindChild(*node, name) : std::nullopt;
    }
    if (!node || node->value.empty())
    {
        return std::nullopt;
    }
    return node->isText ? platform::ToAnsi(platform::FromUtf16(node->value))
                        : std::string(node->value);
}

} // namespace velmo
