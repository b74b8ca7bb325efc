#pragma once

#include "controls/ListViewModel.h"

#include <string>

namespace velmo
{

/// A message box's text and title.
struct StatusNotice
{
    std::string text;
    std::string title;
};

/// What a program is told that was named on the command line, from its row of the program list: that
/// it needs an update, is up to date, or that its status is not known. Pure.
[[nodiscard]] StatusNotice StatusNoticeOf(const ListRow& program);

} // namespace velmo
