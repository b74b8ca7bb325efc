#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

/// The fixed part of a version resource. Each version is two words, major and minor, then two more,
/// build and revision.
struct FixedFileInfo
{
    std::uint32_t signature = 0;
    std::uint32_t structureVersion = 0;
    std::uint32_t fileVersionHigh = 0;
    std::uint32_t fileVersionLow = 0;
    std::uint32_t productVersionHigh = 0;
    std::uint32_t productVersionLow = 0;
    std::uint32_t flagsMask = 0;
    std::uint32_t flags = 0;
    std::uint32_t os = 0;
    std::uint32_t type = 0;
    std::uint32_t subtype = 0;
    std::uint32_t dateHigh = 0;
    std::uint32_t dateLow = 0;
};

/**
    A version resource taken apart: a tree of named nodes with the fixed information at its root, in the
    layout of 32- and 64-bit executables or in that of 16-bit ones. Names are compared without regard to case. A damaged node ends the search in its branch: what lies
    behind it is absent. Safe for any input. A value; any thread.
 */
class VersionInfoBlock
{
  public:
    /// Takes the resource's bytes. Absent when they do not start with a version tree's root.
    [[nodiscard]] static std::optional<VersionInfoBlock> FromBytes(std::string bytes);

    /// All zero when the root does not have the whole of it, as of an executable with texts only.
    [[nodiscard]] FixedFileInfo FixedInfo() const;

    /// The value of the node at the end of @a names, top down from the root's children, without its
    /// padding. A text comes in the ANSI code page, as the system's own ANSI functions give it, and
    /// with its terminating zero if stored. Absent when there is no such node or its value is empty.
    [[nodiscard]] std::optional<std::string> Value(
        std::initializer_list<std::string_view> names) const;

  private:
    explicit VersionInfoBlock(std::string bytes);

    std::string m_bytes;
};

} // namespace velmo
