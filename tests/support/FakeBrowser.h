#pragma once

#include "platform/MFile.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/TestSystem.h"

#include <sstream>
#include <vector>

namespace velmo::test
{

/// As long as it lives, the program that the user's web addresses open in: it writes them down.
class FakeBrowser
{
  public:
    /// @a desktop must outlive it.
    explicit FakeBrowser(const TemporaryDesktop& desktop)
        : m_record(desktop.Write("opened.txt", "")), m_registered(RegisterBrowser(m_record))
    {}

    /// What has been opened so far; another process writes it, so wait for it.
    [[nodiscard]] std::vector<std::string> Opened() const
    {
        const auto record = platform::MFile::ReadAll(m_record); // It may be writing just now.
        std::istringstream lines(record ? record.Value() : std::string());
        std::vector<std::string> opened;
        for (std::string line; std::getline(lines, line);)
        {
            opened.push_back(line);
        }
        return opened;
    }

  private:
    std::string m_record;
    std::shared_ptr<void> m_registered; ///< As long as the system knows its browser.
};

} // namespace velmo::test
