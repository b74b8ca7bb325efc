#pragma once

#include "tests/support/TemporaryDesktop.h"

#include <memory>
#include <string>
#include <vector>

namespace velmo::test
{

/// As long as it lives, the program that the user's web addresses open in: it writes them down.
class FakeBrowser
{
  public:
    /// @a desktop must outlive it.
    explicit FakeBrowser(const TemporaryDesktop& desktop);
    ~FakeBrowser();
    FakeBrowser(const FakeBrowser&) = delete;
    FakeBrowser& operator=(const FakeBrowser&) = delete;

    /// What has been opened so far; another process writes it, so wait for it.
    [[nodiscard]] std::vector<std::string> Opened() const;

  private:
    class Registration;

    std::string m_record;
    std::unique_ptr<Registration> m_registration; ///< As the system knows its browser.
};

} // namespace velmo::test
