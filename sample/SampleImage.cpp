#include "sample/SampleImage.h"

#include "sample/PeImageWriter.h"

#include <cstdint>
#include <cstdio>

namespace velmo::sample
{
namespace
{

std::u16string Wide(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

} // namespace

std::string FullVersionText(const ProgramVersion& version)
{
    const bool hasRevision = version.revision >= 0;
    char text[50];
    std::snprintf(text, sizeof text, hasRevision ? "%d.%02d.%04d" : "%d.%02d", version.majorNumber,
                  version.minorNumber, version.revision);
    return text;
}

std::string WriteSampleImage(const SampleImage& image)
{
    const ProgramVersion& version = image.version;
    const std::u16string text = Wide(FullVersionText(version));
    const auto word = [](std::int32_t number) { return static_cast<std::uint16_t>(number); };

    VersionResource resource;
    // The vendor's third group is build and revision side by side, two digits each.
    resource.fileVersion = {word(version.majorNumber), word(version.minorNumber),
                            word(version.revision / 100), word(version.revision % 100)};
    resource.productVersion = resource.fileVersion;
    resource.strings = {{u"040904B0",
                         {{u"CompanyName", u"Velmo Software"},
                          {u"FileDescription", Wide(image.description)},
                          {u"FileVersion", image.statesFileVersion ? text : std::u16string()},
                          {u"OriginalFilename", Wide(image.fileName)},
                          {u"ProductName", Wide(image.product)},
                          {u"ProductVersion", text}}}};
    return WritePeImage({image.is64Bit, {resource}});
}

} // namespace velmo::sample
