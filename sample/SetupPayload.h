#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a sample setup installs, appended to its program: one file holds both. Pure; any thread.
namespace velmo::sample
{

struct PayloadFile
{
    std::string path; ///< Below the data folder, e.g. "EquipPic\Aldervane\PicInfo.ini".
    std::string bytes;
};

/// The program with the files behind it, filled up to @a size bytes when it is shorter.
[[nodiscard]] std::string WithPayload(std::string_view program,
                                      const std::vector<PayloadFile>& files, std::size_t size);

/// The files behind a program; nothing when it carries none.
[[nodiscard]] std::optional<std::vector<PayloadFile>> PayloadOf(std::string_view setup);

} // namespace velmo::sample
