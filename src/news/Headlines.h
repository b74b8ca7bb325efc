#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmo
{

class DiagnosticLog;
class SettingsSnapshot;

struct Headline
{
    std::string text;
    std::string link; ///< An http, https or ftp address; empty: the headline cannot be clicked.
};

/// The section of the version list that holds them.
inline constexpr std::string_view kHeadlinesSection = "News Headlines";

/// Lines of it that are looked at.
inline constexpr std::size_t kMostHeadlines = 20;

/// Caption of the headline column.
inline constexpr std::string_view kHeadlinesTitle = "Latest Velmo Software News Headlines";

/// The headlines of a version list, from its section kHeadlinesSection: lines of the form
/// "headline|link"; a link is completed as one on the page @a newsPage. Without the section there are
/// none. A line without "|" is shown but cannot be clicked, nor can one whose link is no web address;
/// the latter leaves a line in @a log.
[[nodiscard]] std::vector<Headline> ReadHeadlines(const SettingsSnapshot& versionList,
                                                  std::string_view newsPage, DiagnosticLog& log);

} // namespace velmo
