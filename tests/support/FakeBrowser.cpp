#include "tests/support/FakeBrowser.h"

#include "platform/MFile.h"
#include "tests/support/BrowserRegistration.h"

#include <sstream>

namespace velmo::test
{

FakeBrowser::FakeBrowser(const TemporaryDesktop& desktop)
    : m_record(desktop.Write("opened.txt", "")),
      m_registration(std::make_unique<Registration>(m_record, VELMO_RECORDING_BROWSER))
{}

FakeBrowser::~FakeBrowser() = default;

std::vector<std::string> FakeBrowser::Opened() const
{
    const auto record = platform::MFile::ReadAll(m_record);
    std::istringstream lines(record ? record.Value() : std::string());
    std::vector<std::string> opened;
    for (std::string line; std::getline(lines, line);)
    {
        opened.push_back(line);
    }
    return opened;
}

} // namespace velmo::test
