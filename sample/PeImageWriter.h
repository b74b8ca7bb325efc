#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/**
    Sample programs: small executables that carry a version resource, made without a compiler or a
    resource compiler. Windows starts them (they end at once with exit code 0) and reads their
    version like that of any other program. Pure; any thread.
 */
namespace velmo::sample
{

/// One entry of the resource's list of translations.
struct VersionTranslation
{
    std::uint16_t language = 0x0409; ///< LANGID.
    std::uint16_t codePage = 1200;
};

/// One block of named texts. Each language has one; its name is language and code page in hex.
struct VersionStrings
{
    std::u16string block = u"040904B0";
    std::vector<std::pair<std::u16string, std::u16string>> values; ///< Name and text.
};

/// One version resource. What is not set describes a Windows application without texts.
struct VersionResource
{
    std::uint16_t id = 1; ///< Windows reads number 1 only.
    std::uint16_t language = 0x0409;
    std::uint32_t structureVersion = 0x00010000;
    std::array<std::uint16_t, 4> fileVersion{}; ///< Major, minor, build, revision.
    std::array<std::uint16_t, 4> productVersion{};
    std::uint32_t flagsMask = 0x3F;
    std::uint32_t flags = 0;
    std::uint32_t os = 0x00040004;
    std::uint32_t type = 1;
    std::uint32_t subtype = 0;
    std::vector<VersionTranslation> translations = std::vector<VersionTranslation>(1);
    std::vector<VersionStrings> strings{}; ///< Empty: no block of texts at all.
};

struct PeImage
{
    bool is64Bit = true;
    std::vector<VersionResource> versions; ///< Any order; (id, language) pairs are distinct.
};

/// The bytes of the executable file. Each version resource may take up to 64 KiB.
[[nodiscard]] std::string WritePeImage(const PeImage& image);

/// The bytes of one version resource alone, as they lie in the executable.
[[nodiscard]] std::string WriteVersionResource(const VersionResource& version);

} // namespace velmo::sample
