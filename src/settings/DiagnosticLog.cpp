#include "settings/DiagnosticLog.h"

#include "platform/ErrorCode.h"
#include "platform/FileReader.h"
#include "platform/MFile.h"
#include "platform/SharedLock.h"
#include "text/Utf8.h"

#include <array>
#include <cstdint>
#include <ctime>
#include <utility>

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;

constexpr std::uint64_t kMostBytes = 1U << 20;
constexpr int kOldFilesKept = 3;

/// A list of a hundred thousand bad names must not push out what the log held before.
constexpr int kMostLinesInASpell = 500;
constexpr std::chrono::minutes kSpell{1};
constexpr std::size_t kLongestMessage = 4'096;
constexpr std::chrono::seconds kLongestWait{1};

std::string OldName(const std::string& path, int age)
{
    const std::size_t dot = path.rfind('.');
    return path.substr(0, dot) + "." + std::to_string(age) +
           (dot == std::string::npos ? std::string() : path.substr(dot));
}

std::string TimeStamp(DiagnosticLog::TimePoint time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const std::tm* utc = std::gmtime(&seconds);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%SZ", utc);
    return text.data();
}

} // namespace

DiagnosticLog::DiagnosticLog(std::string path, Clock clock)
    : m_path(std::move(path)), m_clock(std::move(clock))
{
    if (m_path.empty())
    {
        m_whyOff = Error{error_code::kFolderMissing, "The vendor's common folder is not known"};
    }
}

void DiagnosticLog::Write(std::string_view message)
{
    if (m_path.empty())
    {
        return;
    }
    // The C library's calendar is one for all threads.
    const std::lock_guard lock(m_mutex);
    const auto now = m_clock();
    if (now - m_began > kSpell || now < m_began)
    {
        WriteLeftOut(now);
        m_began = now;
        m_lines = 0;
    }
    if (++m_lines <= kMostLinesInASpell)
    {
        Put(now, message);
    }
}

DiagnosticLog::~DiagnosticLog()
{
    WriteLeftOut(m_clock());
}

void DiagnosticLog::WriteLeftOut(TimePoint time)
{
    if (m_lines > kMostLinesInASpell)
    {
        Put(time, std::to_string(m_lines - kMostLinesInASpell) + " further lines are left out");
    }
}

void DiagnosticLog::Put(TimePoint time, std::string_view message)
{
    const std::string line =
        TimeStamp(time) + "  " + WithoutControls(message.substr(0, kLongestMessage));
    // Opened for each line: Windows lets nobody replace or delete a file that another has open.
    const auto file = Open();
    Keep(file ? file.Value().Write(line + "\r\n") : file.Failure());
}

Result<platform::OpenFile> DiagnosticLog::Open() const
{
    auto file = platform::OpenFile::Open(m_path, platform::OpenFile::For::Appending);
    if (file && file.Value().Size() >= kMostBytes)
    {
        Rotate();
        file = platform::OpenFile::Open(m_path, platform::OpenFile::For::Appending);
    }
    return file;
}

std::optional<Error> DiagnosticLog::WhyOff() const
{
    const std::lock_guard lock(m_mutex);
    return m_whyOff;
}

void DiagnosticLog::Failure(std::string_view attempt, const Error& error)
{
    Write(std::string(attempt) + ": " + error.description + " (" + std::to_string(error.code) +
          ")");
}

void DiagnosticLog::Rotate() const
{
    const auto lock = platform::SharedLock::Take(m_path, kLongestWait);
    const auto file = platform::FileReader::Open(m_path);
    if (!lock || !file || file.Value().Size() < kMostBytes)
    {
        return; // Another process did it meanwhile, or will.
    }
    for (int age = kOldFilesKept; age >= 1; --age)
    {
        const std::string younger = age == 1 ? m_path : OldName(m_path, age - 1);
        if (MFile::FileExists(younger))
        {
            (void)MFile::Rename(younger, OldName(m_path, age));
        }
    }
}

} // namespace velmo
