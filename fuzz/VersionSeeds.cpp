// Writes what the version fuzzer starts from into the folder given: an image of each width, the wider ones
// with two languages, and one version resource.
#include "sample/PeImageWriter.h"
#include "tests/version/NeImage.h"

#include <filesystem>
#include <fstream>

int main(int count, char** arguments)
{
    namespace sample = velmo::sample;
    if (count != 2)
    {
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    sample::VersionResource english;
    english.fileVersion = {1, 2, 3, 4};
    english.strings = {{u"040904B0", {{u"CompanyName", u"Arbor Works"}, {u"FileVersion", u"1.2"}}}};
    sample::VersionResource german = english;
    german.language = 0x0407;
    const auto write = [&](const char* name, const std::string& bytes) {
        return std::ofstream(folder / name, std::ios::binary) << bytes ? 0 : 1;
    };
    return write("image16", velmo::test::NeImage()) +
           write("image32", sample::WritePeImage({false, {english, german}})) +
           write("image64", sample::WritePeImage({true, {english, german}})) +
           write("resource", sample::WriteVersionResource(english));
}
