#include "sample/SetupPayload.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace velmo::sample
{
namespace
{

// Behind the program: for each file a line "<size> <path>" and its bytes, then filling, then the mark,
// where the first file's line begins and how many files there are, as decimal digits of fixed width.
constexpr std::string_view kMark = "VELMO SAMPLE SETUP";
constexpr std::size_t kDigits = 12;
constexpr std::size_t kTail = kMark.size() + 2 * kDigits;

std::string Fixed(std::size_t number)
{
    const std::string digits = std::to_string(number);
    return std::string(kDigits - digits.size(), '0') + digits;
}

std::optional<std::size_t> Number(std::string_view digits)
{
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<PayloadFile> TakeFile(std::string_view& rest)
{
    const std::size_t lineEnd = rest.find('\n');
    const std::size_t blank = rest.find(' ');
    const auto size = Number(rest.substr(0, blank));
    if (lineEnd == std::string_view::npos || blank > lineEnd || !size ||
        *size > rest.size() - lineEnd - 1)
    {
        return std::nullopt;
    }
    PayloadFile file{std::string(rest.substr(blank + 1, lineEnd - blank - 1)),
                     std::string(rest.substr(lineEnd + 1, *size))};
    rest.remove_prefix(lineEnd + 1 + *size);
    return file;
}

} // namespace

std::string WithPayload(std::string_view program, const std::vector<PayloadFile>& files,
                        std::size_t size)
{
    std::string setup(program);
    for (const PayloadFile& file : files)
    {
        setup += std::to_string(file.bytes.size()) + " " + file.path + "\n" + file.bytes;
    }
    setup.resize(std::max(setup.size(), size - std::min(size, kTail)));
    return setup + std::string(kMark) + Fixed(program.size()) + Fixed(files.size());
}

std::optional<std::vector<PayloadFile>> PayloadOf(std::string_view setup)
{
    const std::string_view tail = setup.substr(setup.size() - std::min(setup.size(), kTail));
    if (!tail.starts_with(kMark))
    {
        return std::nullopt;
    }
    const auto begin = Number(tail.substr(kMark.size(), kDigits));
    const auto count = Number(tail.substr(kMark.size() + kDigits));
    if (!begin || !count || *begin > setup.size())
    {
        return std::nullopt;
    }
    std::string_view rest = setup.substr(*begin);
    std::vector<PayloadFile> files;
    while (files.size() < *count)
    {
        auto file = TakeFile(rest);
        if (!file)
        {
            return std::nullopt;
        }
        files.push_back(std::move(*file));
    }
    return files;
}

} // namespace velmo::sample
