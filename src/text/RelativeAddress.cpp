#include "text/RelativeAddress.h"

#include <algorithm>
#include <string>
#include <vector>

namespace velmo
{
namespace
{

/// An address cut where references attach: "http:" "//host" "/path" "?query#fragment".
struct Parts
{
    std::string_view scheme;
    std::string_view authority;
    std::string_view path;
    std::string_view rest;
};

Parts Cut(std::string_view address)
{
    Parts parts;
    const auto take = [&address](std::size_t count) {
        const std::string_view taken = address.substr(0, count);
        address.remove_prefix(taken.size());
        return taken;
    };
    const std::size_t colon = address.find_first_of(":/?#");
    if (colon != std::string_view::npos && address[colon] == ':')
    {
        parts.scheme = take(colon + 1);
    }
    if (address.starts_with("//"))
    {
        parts.authority = take(address.find_first_of("/?#", 2));
    }
    parts.path = take(address.find_first_of("?#"));
    parts.rest = address;
    return parts;
}

/// The path without "." and "..", which never lead above the server's root.
std::string Followed(std::string_view path)
{
    std::vector<std::string_view> steps;
    while (!path.empty())
    {
        const std::size_t end = std::min(path.find('/', 1), path.size());
        const std::string_view step = path.substr(0, end);
        path.remove_prefix(end);
        const bool isUp = step == "/..";
        if (isUp && !steps.empty())
        {
            steps.pop_back();
        }
        if (!isUp && step != "/.")
        {
            steps.push_back(step);
        }
        else if (path.empty())
        {
            steps.push_back("/");
        }
    }
    std::string followed;
    for (const std::string_view step : steps)
    {
        followed += step;
    }
    return followed;
}

} // namespace

std::optional<WebAddress> ResolveReference(std::string_view base, std::string_view reference)
{
    const Parts page = Cut(base);
    const Parts wanted = Cut(reference);
    if (reference.empty() || !wanted.scheme.empty())
    {
        return ParseWebAddress(reference);
    }
    std::string address(page.scheme);
    if (!wanted.authority.empty())
    {
        return ParseWebAddress(address.append(reference));
    }
    address += page.authority;
    if (wanted.path.empty())
    {
        const bool isPlace = wanted.rest.starts_with('#');
        address.append(page.path).append(isPlace ? page.rest.substr(0, page.rest.find('#')) : "");
        return ParseWebAddress(address.append(wanted.rest));
    }
    const std::string_view folder = page.path.substr(0, page.path.rfind('/') + 1);
    const std::string path = wanted.path.starts_with('/')
                                 ? std::string(wanted.path)
                                 : std::string(folder.empty() ? "/" : folder).append(wanted.path);
    return ParseWebAddress(address.append(Followed(path)).append(wanted.rest));
}

} // namespace velmo
