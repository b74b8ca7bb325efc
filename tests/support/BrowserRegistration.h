#pragma once

#include "tests/support/FakeBrowser.h"

namespace velmo::test
{

/// Makes a program the browser of this process and of those that it starts, until it goes.
class FakeBrowser::Registration
{
  public:
    /// @a browser writes into the file @a record.
    Registration(const std::string& record, const std::string& browser);
    ~Registration();
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// Names the record to the browser program.
inline constexpr char kRecordVariable[] = "VELMO_BROWSER_RECORD";

} // namespace velmo::test
