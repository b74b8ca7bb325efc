#include "text/PlainFileName.h"

#include "text/TextCase.h"

#include <algorithm>
#include <array>
#include <string>

namespace velmo
{
namespace
{

constexpr std::size_t kLongest = 255;
constexpr std::string_view kForbidden = "\\/:*?\"<>|\x7F";

constexpr std::array<std::string_view, 6> kDevices{"con", "prn", "aux", "nul", "conin$", "conout$"};
constexpr std::array<std::string_view, 2> kNumberedDevices{"com", "lpt"};
/// Windows takes the raised digits 1 to 3 for digits here.
constexpr std::array<std::string_view, 13> kDeviceNumbers{
    "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

bool IsDevice(std::string_view name)
{
    // What follows the first dot does not matter, nor do blanks before it.
    const std::string stem = LowerCase(Trimmed(name.substr(0, name.find('.'))));
    const auto isNumbered = [&](std::string_view device) {
        return stem.starts_with(device) &&
               std::ranges::count(kDeviceNumbers, std::string_view(stem).substr(device.size())) > 0;
    };
    return std::ranges::count(kDevices, stem) > 0 ||
           std::ranges::any_of(kNumberedDevices, isNumbered);
}

bool IsForbidden(char c)
{
    return static_cast<unsigned char>(c) < ' ' || kForbidden.find(c) != std::string_view::npos;
}

} // namespace

bool IsPlainFileName(std::string_view name)
{
    return !name.empty() && name.size() <= kLongest && name.back() != '.' && name.back() != ' ' &&
           std::ranges::none_of(name, IsForbidden) && !IsDevice(name);
}

} // namespace velmo
