#pragma once

#include "platform/Result.h"

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace velmo
{

/**
    The file that tells support what happened: one line for every failure that the program carries on
    past, with what was tried and the system's reason. The file is `VelmoUpd.log` in the vendor's
    common folder; at 1 MiB it becomes `VelmoUpd.1.log`, and three old ones are kept. A log that cannot
    be written is silent. Any thread.
 */
class DiagnosticLog
{
  public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    /// @a path is the log file's path; empty: lines are dropped.
    explicit DiagnosticLog(std::string path, Clock clock = std::chrono::system_clock::now);

    /// One line: the time, then the message. Line breaks inside become blanks.
    void Write(std::string_view message);

    /// "<attempt>: <description> (<code>)".
    void Failure(std::string_view attempt, const Error& error);

    [[nodiscard]] const std::string& Path() const { return m_path; }

  private:
    void Rotate() const;

    std::string m_path;
    Clock m_clock;
    std::mutex m_mutex;
};

} // namespace velmo
