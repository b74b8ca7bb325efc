#pragma once

#include "catalogue/CommonFolder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace velmo
{

class DiagnosticLog;
struct LocatorEntry;
class UserPrompts;

/// A report of an invalid argument or of a fault on the way: it does not stop the caller.
struct ErrorRecord
{
    std::int32_t number = 0;
    std::string description;
    std::string source;
};

/// The reader that ProgramINIValue() uses and the type of its answer, in the order of INIValue.
enum class INIValueKind : std::int32_t
{
    Boolean,
    Single,
    Long,
    Integer,
    String,
};

/// The last kind is the empty answer: an error is on record.
using INIValue = std::variant<bool, float, std::int32_t, std::int16_t, std::string, std::monostate>;

/**
    The program locator: where a program of the vendor is installed, which version its executable
    carries, and what its own INI file says. Programs are named by their catalogue number (the
    rows of LocatorTable.h). Stateless but for the last error record; every step that fails leaves its
    result empty (or the outputs untouched) and a line in the log. The folders come from @a stores where
    somebody has read them before, else from a reading of their own. User-interface thread.
 */
class CVelmoProgramCommunicator
{
  public:
    /// @a prompts serves Launch() only.
    CVelmoProgramCommunicator(DiagnosticLog& log, UserPrompts& prompts);

    /// The installed version. Parts that are missing or no numbers leave their output untouched, and
    /// a missing executable leaves all three.
    void SetFileVersion(std::int32_t number, std::int32_t& major, std::int32_t& minor,
                        std::int32_t& revision, const SharedValues& stores = SharedValues::Read());

    /// The program's folder, ending in "\"; empty when unknown. Number 13 is a manufacturer's name.
    [[nodiscard]] std::string FolderName(std::int32_t number,
                                         const SharedValues& stores = SharedValues::Read());

    /// A value of the program's own INI file; the kind of @a defaultValue is the kind of the answer.
    /// Empty for a number without INI file, for an unknown kind, and for a number too large for its kind.
    [[nodiscard]] INIValue ProgramINIValue(std::int32_t number, std::string_view section,
                                           std::string_view key, INIValueKind kind,
                                           const INIValue& defaultValue);

    /// Folder and name of the executable; just the folder when the number has no executable.
    [[nodiscard]] std::string GetEXEFileName(std::int32_t number,
                                             const SharedValues& stores = SharedValues::Read());

    /// Stores a program's folder in "Win.ini" and in the per-user settings, without a last "\".
    void WriteVelmoSoftwareEntry(std::int32_t number, std::string_view folder);

    /// Brings program 7 to the front or starts it; says so when it is not installed. Any other
    /// number does nothing.
    void Launch(std::int32_t number);

    /// The last invalid argument or fault, if there was one.
    [[nodiscard]] const std::optional<ErrorRecord>& LastError() const { return m_lastError; }

  private:
    void ReportInvalidArgument(std::string_view operation);
    void Report(std::string_view operation, std::int32_t number, std::string_view description);
    [[nodiscard]] std::string IniFilePath(const LocatorEntry& entry);

    DiagnosticLog& m_log;
    UserPrompts& m_prompts;
    std::optional<ErrorRecord> m_lastError;
};

} // namespace velmo
