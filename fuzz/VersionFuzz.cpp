// Damaged executables and version resources: nothing that lies in a file may crash or hang the reader.
#include "version/VersionInfoBlock.h"
#include "version/VersionResource.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string_view>

namespace
{

/// The file that the input is put into: the reader reads files.
struct InputFile
{
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 ("velmo-version-" + std::to_string(std::random_device{}()));

    ~InputFile()
    {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
};

void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

void ReadTexts(std::string resource)
{
    const std::size_t size = resource.size();
    const auto block = velmo::VersionInfoBlock::FromBytes(std::move(resource));
    if (!block)
    {
        return;
    }
    (void)block->FixedInfo();
    Require(block->Value({"VarFileInfo", "Translation"}).value_or("").size() <= size);
    for (const char* name : {"CompanyName", "FileVersion", "ProductVersion"})
    {
        Require(block->Value({"StringFileInfo", "040904B0", name}).value_or("").size() <= size);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const InputFile input;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::ofstream(input.path, std::ios::binary) << bytes;
    const auto file = velmo::platform::FileReader::Open(input.path.string());
    Require(file.Ok());
    if (auto resource = velmo::ReadVersionResource(file.Value()))
    {
        Require(bytes.find(*resource) != std::string_view::npos);
        ReadTexts(std::move(*resource));
    }
    ReadTexts(std::string(bytes));
    return 0;
}
