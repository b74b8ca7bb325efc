#pragma once

#include "sample/ProductVersion.h"
#include "updates/ProgramVersion.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// The sample vendor's version list. Pure; any thread.
namespace velmo::sample
{

/// In a list: the version has no revision part.
inline constexpr std::int32_t kNoRevision = -1;

struct ListedVersion
{
    std::int32_t index;     ///< The program's row in the catalogue.
    ProgramVersion version; ///< The latest one.
    std::string_view setup; ///< Path of its setup when the list names one ("Demo URL").
};

// clang-format off
/// Every program but one: the list does not know Manifold 4.
inline constexpr std::array<ListedVersion, 33> kListedVersions{{
    {0,  {3,  10, 1207}, ""},
    {1,  {4,  6,  52},   "/pub/chlsz40.exe"},
    {2,  {5,  1,  8},    ""},
    {3,  {6,  12, 40},   ""},
    {4,  {8,  3,  4},    "/pub/demo/lc8_803.exe"},
    {5,  {3,  4,  27},   ""},
    {6,  {5,  2,  11},   ""},
    {7,  {2,  0,  9},    ""},
    {9,  {1,  1,  3},    ""},
    {10, {3,  7,  14},   ""},
    {11, {2,  5,  kNoRevision}, ""},
    {12, {1,  0,  6},    ""},
    {13, {4,  1,  22},   ""},
    {14, {6,  3,  19},   ""},
    {15, {5,  9,  88},   ""},
    {16, {2,  2,  5},    ""},
    {17, {1,  4,  2},    ""},
    {18, {2,  1,  17},   ""},
    {19, {1,  3,  10},   ""},
    {20, {3,  2,  31},   ""},
    {21, {7,  0,  45},   ""},
    {22, {1,  2,  4},    ""},
    {23, {2,  6,  12},   ""},
    {24, {3,  5,  20},   ""},
    {25, {4,  1,  3},    ""},
    {26, {2,  11, 36},   ""},
    {27, {2,  3,  7},    ""},
    {28, {3,  1,  15},   ""},
    {29, {1,  0,  21},   ""},
    {30, {2,  4,  9},    ""},
    {31, kProductVersion, ""},
    {32, {2,  8,  1},    ""},
    {33, {3,  0,  13},   ""},
}};
// clang-format on

/// The listed version of a catalogue row; nullptr when the list does not know the program.
[[nodiscard]] const ListedVersion* ListedVersionOf(std::int32_t index);

/// A version as the vendor writes it in full: "8.03.0004", "2.05" without a revision.
[[nodiscard]] std::string FullVersionText(const ProgramVersion& version);

/// The file `version.ini` of a server ("http://host:port"): programs, then news headlines.
[[nodiscard]] std::string VersionListText(std::string_view server);

} // namespace velmo::sample
