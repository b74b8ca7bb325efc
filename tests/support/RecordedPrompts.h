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
    }

    /// The notices as "title|text".
    [[nodiscard]] std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (const Notice& notice : notices)
        {
            lines.push_back(notice.title + "|" + notice.text);
        }
        return lines;
    }
};

} // namespace velmo::test
