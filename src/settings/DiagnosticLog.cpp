#include "settings/DiagnosticLog.h"

#include "platform/FileReader.h"
#include "platform/MFile.h"

#include <algorithm>
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

std::string OldName(const std::string& path, int age)
{
    const std::size_t dot = path.rfind('.');
    return path.substr(0, dot) + "." + std::to_string(age) +
           (dot == std::string::npos ? std::string() : path.substr(dot));
}

std::string TimeStamp(std::chrono::system_clock::time_point time)
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
{}

void DiagnosticLog::Write(std::string_view message)
{
    if (m_path.empty())
    {
        return;
    }
    // The C library's calendar is one for all threads.
    const std::lock_guard lock(m_mutex);
    std::string line = TimeStamp(m_clock()) + "  " + std::string(message);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    Rotate();
    // There is no better place to report a log that cannot be written.
    (void)MFile::Append(m_path, line + "\r\n");
}

void DiagnosticLog::Failure(std::string_view attempt, const Error& error)
{
    Write(std::string(attempt) + ": " + error.description + " (" + std::to_string(error.code) +
          ")");
}

void DiagnosticLog::Rotate() const
{
    const auto file = platform::FileReader::Open(m_path);
    if (!file || file.Value().Size() < kMostBytes)
    {
        return;
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
