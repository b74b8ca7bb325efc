#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace velmo::test
{

/// A fresh desktop for one test: nothing of the vendor's is installed, no setting and no policy is set.
/// Natively a folder of its own that VELMO_HOME names. On Windows the files are in a folder of their
/// own, but the stores that programs share are the machine's: suites that use them say DESKTOP in their
/// velmo_suite(). Everything is removed at the end. A step that fails throws std::runtime_error.
class TemporaryDesktop
{
  public:
    TemporaryDesktop();
    TemporaryDesktop(const TemporaryDesktop&) = delete;
    TemporaryDesktop& operator=(const TemporaryDesktop&) = delete;

    /// The folder for the test's files, a Windows path such as "C:\velmo-test-17-1\".
    [[nodiscard]] const std::string& Folder() const { return m_folder; }

    /// Writes a file, by its path or by its name below Folder(), with the folders that it needs.
    /// Gives its path.
    std::string Write(std::string_view name, std::string_view bytes) const;

    /// Writes a program that this system can start and that ends at once. Gives its path.
    std::string WriteProgram(std::string_view name) const;

    /// All bytes of a file, by its path or by its name below Folder().
    [[nodiscard]] std::string Read(std::string_view name) const;
    /// A file below Folder() as this machine's own functions know it.
    [[nodiscard]] std::filesystem::path Native(std::string_view name) const;

    /// Sets a folder value of section "Velmo Software" in "Win.ini".
    void SetWinIniFolder(std::string_view name, std::string_view folder) const;
    /// Sets a folder value of the user's settings of "Velmo Software", section "Program Folders".
    void SetUserFolder(std::string_view name, std::string_view folder) const;
    void SetPolicy(std::string_view name, std::string_view value) const;

  private:
    [[nodiscard]] std::string PathOf(std::string_view name) const;

    std::string m_folder;
    std::shared_ptr<void> m_opened; ///< The system's part of the desktop, as long as it lives.
};

} // namespace velmo::test
