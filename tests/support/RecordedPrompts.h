#pragma once

#include "controls/UserPrompts.h"

#include <string>
#include <vector>

namespace velmo::test
{

/// A person who reads every notice and presses OK.
class RecordedPrompts final : public UserPrompts
{
  public:
    struct Notice
    {
        PromptIcon icon;
        std::string text, title;
    };
    std::vector<Notice> notices;

    void Notify(PromptIcon icon, const std::string& text, const std::string& title) override
    {
        notices.push_back({icon, text, title});
        m_lines.push_back(title + "|" + text);
    }

    /// The notices as "title|text".
    [[nodiscard]] const std::vector<std::string>& Lines() const { return m_lines; }

  private:
    std::vector<std::string> m_lines;
};

} // namespace velmo::test
