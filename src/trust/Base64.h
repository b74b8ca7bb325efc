#pragma once

#include <sodium.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace velmo
{

/// The bytes that a base64 text stands for, padding and all; nothing when it stands for another number of
/// them or has anything else in it. Any thread.
template <std::size_t Size>
[[nodiscard]] std::optional<std::array<unsigned char, Size>> FromBase64(std::string_view text)
{
    std::array<unsigned char, Size> bytes{};
    std::size_t size = 0;
    const int failed = sodium_base642bin(bytes.data(), Size, text.data(), text.size(), nullptr,
                                         &size, nullptr, sodium_base64_VARIANT_ORIGINAL);
    return failed == 0 && size == Size ? std::optional(bytes) : std::nullopt;
}

} // namespace velmo
