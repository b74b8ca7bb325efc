#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace velmo
{

/// The text of a box that lines are added to, newest last. User-interface thread.
class StatusBoxModel
{
  public:
    /// Called after each change; empty for nobody.
    void Observe(std::function<void()> changed) { m_changed = std::move(changed); }

    void AddLine(std::string_view line);
    void Clear();

    /// All lines, each ended by CR LF.
    [[nodiscard]] const std::string& Text() const { return m_text; }

  private:
    void Tell() const;

    std::string m_text;
    std::function<void()> m_changed;
};

} // namespace velmo
