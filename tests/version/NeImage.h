#pragma once

#include <string>
#include <string_view>

namespace velmo::test
{

inline std::string Word(std::size_t number)
{
    return {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8)};
}

/// A node of a 16-bit version resource; its children are padded already.
inline std::string NeNode(std::string_view name, std::string_view value,
                          std::string_view children = {})
{
    const auto padded = [](std::string bytes) { return bytes.append(-bytes.size() % 4, '\0'); };
    std::string node = padded(std::string(4, '\0') + std::string(name) + '\0') + std::string(value);
    node = children.empty() ? node : padded(node) + std::string(children);
    node.replace(0, 4, Word(node.size()) + Word(value.size()));
    return padded(node);
}

/// A 16-bit Windows image with an icon and, as its second kind of resource, a version: 3.1.0.103, German.
inline std::string NeImage()
{
    using std::string_literals::operator""s;
    const std::string fixed = "\xBD\x04\xEF\xFE"s + Word(0) + Word(1) + Word(1) + Word(3) +
                              Word(103) + Word(0) + std::string(36, '\0');
    const std::string version = NeNode(
        "VS_VERSION_INFO", fixed,
        NeNode("StringFileInfo", "",
               NeNode("040704E4", "",
                      NeNode("CompanyName", "Arbor\0"s) + NeNode("FileVersion", "3.1 \xFC\0"s))) +
            NeNode("VarFileInfo", "", NeNode("Translation", Word(0x0407) + Word(0x04E4))));
    std::string image = "MZ" + std::string(58, '\0') + Word(0x40) + Word(0) + "NE";
    image.resize(0x40 + 0x24);
    image += Word(0x40) + Word(0x80); // Resources, and what lies behind them.
    image.resize(0x80);
    image += Word(4) + Word(0x8003) + Word(1) + std::string(4, '\0') + Word(0x0F) + Word(1) +
             std::string(8, '\0');
    image += Word(0x8010) + Word(1) + std::string(4, '\0') + Word(0x10) +
             Word((version.size() + 15) / 16) + Word(0) + Word(0x8001) + std::string(4, '\0') +
             Word(0);
    image.resize(0x100);
    image += version;
    image.resize(image.size() + 16); // The resource's size counts in steps of 16.
    return image;
}

} // namespace velmo::test
