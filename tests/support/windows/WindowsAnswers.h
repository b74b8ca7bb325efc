#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

/// What Windows itself makes of something that the program reads on its own. Windows build only.
namespace velmo::test
{

/// What Windows' own parser makes of an ASCII text in the United States' locale: seconds since the
/// start of December 30, 1899.
[[nodiscard]] std::optional<std::chrono::seconds> SystemParsedDate(const std::string& text);

/// What Windows' own version.dll says of a file, by its ANSI functions.
class VersionDll
{
  public:
    /// Absent when it finds no version resource. @a path is UTF-8.
    [[nodiscard]] static std::optional<VersionDll> Ask(const std::string& path);

    /// The bytes of a binary value, such as "\\VarFileInfo\\Translation"; none when it has none.
    [[nodiscard]] std::string Bytes(const std::string& block);

    /// The text of a value up to its terminating zero, as UTF-8. Absent when there is no such value
    /// or its length is zero.
    [[nodiscard]] std::optional<std::string> Text(const std::string& block);

    /// Its name for a language; empty when it has none.
    [[nodiscard]] static std::string LanguageName(std::uint16_t language);

  private:
    std::string m_data;
};

} // namespace velmo::test
