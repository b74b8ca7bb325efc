#pragma once

#include "tests/support/TemporaryDesktop.h"

namespace velmo::test
{

/// The system's part of a temporary desktop: makes @a folder and empties the shared stores, removes
/// and empties them again at the end.
class TemporaryDesktop::Stores
{
  public:
    explicit Stores(const std::string& folder);
    Stores(const Stores&) = delete;
    Stores& operator=(const Stores&) = delete;
    ~Stores();

    /// This process's number, for names that no other process uses.
    [[nodiscard]] static unsigned long ProcessNumber();

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace velmo::test
