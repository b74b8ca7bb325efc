#include "platform/ProfileText.h"

#include "platform/AnsiText.h"
#include "text/TextCase.h"
#include "text/Utf8.h"

#include <algorithm>

namespace velmo::platform::ProfileText
{
namespace
{

constexpr std::string_view kLineEnd = "\r\n";

std::string_view Trimmed(std::string_view text)
{
    return velmo::Trimmed(text, kBlanks);
}

bool EndsLine(char c)
{
    return c == '\r' || c == '\n';
}

bool IsAscii(std::string_view text)
{
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

/// Here the text is bytes: whichever encoding they are in, in one of the two the names are alike.
bool SameName(std::string_view a, std::string_view b)
{
    if (IsAscii(a) || IsAscii(b))
    {
        return EqualInAnyCase(a, b);
    }
    return FoldedCase(FromAnsi(a)) == FoldedCase(FromAnsi(b)) ||
           (IsValidUtf8(a) && IsValidUtf8(b) && FoldedCase(a) == FoldedCase(b));
}

enum class LineKind
{
    Blank,
    Comment,
    Header,
    Entry,
    Other
};

struct Line
{
    std::string_view whole; ///< With its line end.
    LineKind kind = LineKind::Blank;
    std::string_view name;  ///< The section's or the key's; the text of another line.
    std::string_view value; ///< Behind the "=".
};

Line Classified(std::string_view whole, std::string_view content)
{
    const std::string_view text = Trimmed(content.substr(0, content.find('\0')));
    if (text.empty())
    {
        return {whole, LineKind::Blank, {}, {}};
    }
    if (text.front() == ';')
    {
        return {whole, LineKind::Comment, {}, {}};
    }
    if (text.front() == '[')
    {
        return {whole, LineKind::Header, Trimmed(text.substr(1, text.find(']') - 1)), {}};
    }
    const std::size_t mark = text.find('=');
    if (mark == std::string_view::npos)
    {
        return {whole, LineKind::Other, text, {}};
    }
    return {whole, LineKind::Entry, Trimmed(text.substr(0, mark)), Trimmed(text.substr(mark + 1))};
}

/// Takes the first line off; CRLF, LF and CR end lines.
Line TakeLine(std::string_view& text)
{
    const auto end =
        static_cast<std::size_t>(std::find_if(text.begin(), text.end(), EndsLine) - text.begin());
    const std::size_t ends = text.substr(end).starts_with(kLineEnd) ? 2 : 1;
    const std::string_view whole = text.substr(0, end + ends);
    const std::string_view content = text.substr(0, end);
    text.remove_prefix(whole.size());
    return Classified(whole, content);
}

/// A text cut in three: what is before a section's lines (its header included), those lines, and the
/// rest from the next header on.
struct Cut
{
    std::string_view before;
    std::string_view header;
    std::string_view body;
    std::string_view after;
};

std::optional<Cut> CutAt(std::string_view text, std::string_view section)
{
    const std::string_view wanted = Trimmed(section);
    std::string_view rest = text;
    while (!rest.empty())
    {
        const Line line = TakeLine(rest);
        if (line.kind != LineKind::Header || !SameName(line.name, wanted))
        {
            continue;
        }
        std::string_view after = rest;
        while (!after.empty())
        {
            std::string_view next = after;
            if (TakeLine(next).kind == LineKind::Header)
            {
                break;
            }
            after = next;
        }
        const std::size_t headerAt = text.size() - rest.size() - line.whole.size();
        return Cut{text.substr(0, headerAt), line.whole, rest.substr(0, rest.size() - after.size()),
                   after};
    }
    return std::nullopt;
}

std::optional<Line> FindKey(std::string_view body, std::string_view key)
{
    const std::string_view wanted = Trimmed(key);
    while (!body.empty())
    {
        const Line line = TakeLine(body);
        if (line.kind == LineKind::Entry && SameName(line.name, wanted))
        {
            return line;
        }
    }
    return std::nullopt;
}

std::string_view WithoutQuotes(std::string_view value)
{
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == '"' || value.front() == '\'');
    return isQuoted ? value.substr(1, value.size() - 2) : value;
}

std::string EntryLine(std::string_view key, std::string_view value)
{
    return std::string(key) + "=" + std::string(value);
}

/// The line end that a line has; a last line may have none.
std::string_view EndOf(std::string_view line)
{
    return line.substr(line.find_last_not_of(kLineEnd) + 1);
}

/// Text so far, made ready for a line of its own.
std::string Ended(std::string_view text)
{
    const bool isOpen = !text.empty() && EndOf(text).empty();
    return std::string(text) + std::string(isOpen ? kLineEnd : std::string_view());
}

/// Lines of a block, each ended by CRLF instead of NUL.
std::string LinesOf(std::string_view block)
{
    std::string lines;
    while (!block.empty())
    {
        const std::string_view line = block.substr(0, block.find('\0'));
        block.remove_prefix(std::min(line.size() + 1, block.size()));
        lines += line.empty() ? std::string() : std::string(line) + std::string(kLineEnd);
    }
    return lines;
}

std::string CommentsOf(std::string_view body)
{
    std::string comments;
    while (!body.empty())
    {
        const Line line = TakeLine(body);
        comments += line.kind == LineKind::Comment ? line.whole : std::string_view();
    }
    return comments;
}

std::string NewSection(std::string_view text, std::string_view section, std::string_view lines)
{
    return Ended(text) + "[" + std::string(Trimmed(section)) + "]" + std::string(kLineEnd) +
           std::string(lines);
}

} // namespace

std::vector<Section> Sections(std::string_view text)
{
    std::vector<Section> sections;
    std::string_view rest = text;
    while (!rest.empty())
    {
        const Line line = TakeLine(rest);
        if (line.kind == LineKind::Header)
        {
            sections.push_back({line.name, rest.substr(0, 0)});
        }
        else if (!sections.empty())
        {
            std::string_view& body = sections.back().body;
            body = {body.data(), body.size() + line.whole.size()};
        }
    }
    return sections;
}

std::vector<Entry> Entries(std::string_view body)
{
    std::vector<Entry> entries;
    while (!body.empty())
    {
        const Line line = TakeLine(body);
        if (line.kind == LineKind::Entry)
        {
            entries.push_back({line.name, WithoutQuotes(line.value)});
        }
    }
    return entries;
}

std::optional<std::string_view> ValueIn(std::string_view body, std::string_view key)
{
    const auto line = FindKey(body, key);
    return line ? std::optional(WithoutQuotes(line->value)) : std::nullopt;
}

std::optional<std::string_view> Value(std::string_view text, std::string_view section,
                                      std::string_view key)
{
    const auto cut = CutAt(text, section);
    return cut ? ValueIn(cut->body, key) : std::nullopt;
}

std::string BlockOf(std::string_view body)
{
    std::string block;
    while (!body.empty())
    {
        const Line line = TakeLine(body);
        if (line.kind == LineKind::Entry)
        {
            block += EntryLine(line.name, line.value) + '\0';
        }
        else if (line.kind == LineKind::Other)
        {
            block += std::string(line.name) + '\0';
        }
    }
    return block;
}

std::string WithValue(std::string_view text, std::string_view section, std::string_view key,
                      std::string_view value)
{
    const auto cut = CutAt(text, section);
    if (!cut)
    {
        return NewSection(text, section, EntryLine(Trimmed(key), value) + std::string(kLineEnd));
    }
    if (const auto line = FindKey(cut->body, key))
    {
        std::string result(text);
        const auto at = static_cast<std::size_t>(line->whole.data() - text.data());
        return result.replace(at, line->whole.size(),
                              EntryLine(line->name, value) + std::string(EndOf(line->whole)));
    }
    // Empty lines at the section's end set it off from the next one.
    std::size_t end = cut->before.size() + cut->header.size();
    std::string_view rest = cut->body;
    while (!rest.empty())
    {
        const Line line = TakeLine(rest);
        if (line.kind != LineKind::Blank)
        {
            end = static_cast<std::size_t>(line.whole.data() - text.data()) + line.whole.size();
        }
    }
    return Ended(text.substr(0, end)) + EntryLine(Trimmed(key), value) + std::string(kLineEnd) +
           std::string(text.substr(end));
}

std::string WithoutKey(std::string_view text, std::string_view section, std::string_view key)
{
    std::string result(text);
    const auto cut = CutAt(text, section);
    if (const auto line = cut ? FindKey(cut->body, key) : std::nullopt)
    {
        result.erase(static_cast<std::size_t>(line->whole.data() - text.data()),
                     line->whole.size());
    }
    return result;
}

std::string WithoutSection(std::string_view text, std::string_view section)
{
    const auto cut = CutAt(text, section);
    return cut ? std::string(cut->before) + CommentsOf(cut->body) + std::string(cut->after)
               : std::string(text);
}

std::string WithSection(std::string_view text, std::string_view section, std::string_view block)
{
    const auto cut = CutAt(text, section);
    if (!cut)
    {
        return NewSection(text, section, LinesOf(block));
    }
    const std::string kept =
        Ended(std::string(cut->before) + std::string(cut->header) + CommentsOf(cut->body));
    return kept + LinesOf(block) + std::string(cut->after);
}

std::string Quoted(std::string_view value)
{
    const bool changes =
        Trimmed(value) != value || value.starts_with('"') || value.starts_with('\'');
    return changes ? '"' + std::string(value) + '"' : std::string(value);
}

} // namespace velmo::platform::ProfileText
