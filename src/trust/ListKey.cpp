#include "trust/ListKey.h"

#include "platform/ErrorCode.h"
#include "trust/Base64.h"

#include <algorithm>
#include <optional>
#include <string>

namespace velmo
{
namespace
{

/// "Ed", the number, the key.
constexpr std::size_t kKeySize = 42;

std::optional<ListKey> ParseKey(std::string_view text)
{
    const auto bytes = FromBase64<kKeySize>(text);
    if (!bytes || (*bytes)[0] != 'E' || (*bytes)[1] != 'd')
    {
        return std::nullopt;
    }
    ListKey key;
    const auto number = bytes->begin() + 2;
    std::copy_n(number, key.number.size(), key.number.begin());
    std::copy_n(number + key.number.size(), key.key.size(), key.key.begin());
    return key;
}

} // namespace

Result<std::vector<ListKey>> ParseListKeys(std::string_view text)
{
    constexpr std::string_view kBetween = ", \t\r\n";
    std::vector<ListKey> keys;
    while (true)
    {
        text.remove_prefix(std::min(text.find_first_not_of(kBetween), text.size()));
        if (text.empty())
        {
            return keys;
        }
        const std::string_view word = text.substr(0, text.find_first_of(kBetween));
        const auto key = ParseKey(word);
        if (!key || keys.size() == kMostListKeys ||
            std::ranges::count(keys, key->number, &ListKey::number) > 0)
        {
            return Error{error_code::kInvalidData,
                         (key ? "One key too many, or twice: " : "This is no public key: ") +
                             std::string(word)};
        }
        keys.push_back(*key);
        text.remove_prefix(word.size());
    }
}

} // namespace velmo
