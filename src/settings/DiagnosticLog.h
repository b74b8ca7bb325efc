#pragma once

#include "platform/OpenFile.h"

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

/**
    The file that tells support what happened: one line for every failure that the program carries on
    past, with what was tried and the system's reason. The file is `VelmoUpd.log` in the vendor's
    common folder; at 1 MiB it becomes `VelmoUpd.1.log`, and three old ones are kept. Several processes
    may write it at once. A log that cannot be written is silent, but knows why. Any thread.
 */
class DiagnosticLog
{
  public:
    using TimePoint = std::chrono::system_clock::time_point;
    using Clock = std::function<TimePoint()>;

    /// @a path is the log file's path; empty: lines are dropped.
    explicit DiagnosticLog(std::string path, Clock clock = std::chrono::system_clock::now);

    DiagnosticLog(const DiagnosticLog&) = delete;
    DiagnosticLog& operator=(const DiagnosticLog&) = delete;

    /// Tells how many lines were left out, if any.
    ~DiagnosticLog();

    /// One line: the time, then the message without its control characters (text/Utf8.h) and at most
    /// 4,096 bytes of it. Of more than 500 lines in a minute the rest is left out and counted.
    void Write(std::string_view message);

    /// "<attempt>: <description> (<code>)".
    void Failure(std::string_view attempt, const Error& error);

    /// Why the last line, or any line, could not be written: folder unknown (3) or missing (3), file
    /// not writable (5). Nothing while lines arrive in the file, nor before the first.
    [[nodiscard]] std::optional<Error> WhyOff() const;

    [[nodiscard]] const std::string& Path() const { return m_path; }

  private:
    void WriteLeftOut(TimePoint time);
    void Put(TimePoint time, std::string_view message);
    [[nodiscard]] Result<platform::OpenFile> Open() const;
    void Rotate() const;

    template <typename T>
    void Keep(const Result<T>& result)
    {
        m_whyOff = result ? std::nullopt : std::optional(result.Failure());
    }

    std::string m_path;
    Clock m_clock;
    mutable std::mutex m_mutex;
    TimePoint m_began{}; ///< When the lines were last counted from none.
    int m_lines = 0;     ///< Since then, those left out included.
    std::optional<Error> m_whyOff;
};

} // namespace velmo
