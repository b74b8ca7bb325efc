#pragma once

#include "controls/Observers.h"

#include <string>
#include <string_view>

namespace velmo
{

/// The text of a box that lines are added to, newest last. User-interface thread.
class StatusBoxModel
{
  public:
    void AddLine(std::string_view line);
    void Clear();

    /// All lines, each ended by CR LF.
    [[nodiscard]] const std::string& Text() const { return m_text; }

    [[nodiscard]] Observers& Changed() { return m_changed; }

  private:
    std::string m_text;
    Observers m_changed;
};

} // namespace velmo
