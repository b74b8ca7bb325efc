#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

/// What tests need of the system that they run on; one body for each.
namespace velmo::test
{

/// Makes @a folder and empties the stores that programs share; what is given back removes the folder
/// and empties them again when it goes, and ends the vendor's programs and the setups that still run
/// there: a test that failed leaves none behind. Throws std::runtime_error.
[[nodiscard]] std::shared_ptr<void> NewDesktop(const std::string& folder);

/// A Windows path as this machine's own functions know it.
[[nodiscard]] std::filesystem::path NativePath(std::string_view path);

/// The bytes of a program that does nothing and ends at once.
[[nodiscard]] std::string StartableProgram();

/// The program's path of a file that lies on the machine that builds, given as that machine has it;
/// under Wine its root is drive Z:.
[[nodiscard]] std::string BuildMachinePath(std::string path);

/// The program's path of a file under tests/data, given with "/".
[[nodiscard]] std::string TestDataPath(std::string_view relative);

/// True for the Windows build under Wine, whose answers differ from Windows' own here and there.
[[nodiscard]] bool RunsUnderWine();

/// Makes the recording browser the program that the user's web addresses open in, for this process
/// and those that it starts, until what is given back goes. The browser finds the path @a record in
/// the variable kRecordVariable. Throws std::runtime_error.
[[nodiscard]] std::shared_ptr<void> RegisterBrowser(const std::string& record);
inline constexpr char kRecordVariable[] = "VELMO_BROWSER_RECORD";

} // namespace velmo::test
