#include "catalogue/CommonFolder.h"
#include "platform/FileReader.h"
#include "platform/MFile.h"
#include "sample/SetupPayload.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"

#include <algorithm>
#include <iostream>
#include <string>

/**
    The program of the sample vendor's equipment setups: with the switch "/s" it installs the files that
    it carries into the vendor's common folder, and writes down there that it did, and whether it was
    told to skip the wizard that a setup would otherwise show.
 */
namespace
{

using namespace velmo;
namespace MFile = platform::MFile;

Result<std::string> OwnBytes()
{
    const auto self = platform::FileReader::OpenOwnProgram();
    if (!self)
    {
        return self.Failure();
    }
    std::string bytes(static_cast<std::size_t>(self.Value().Size()), '\0');
    if (!self.Value().ReadAt(0, std::as_writable_bytes(std::span(bytes))))
    {
        return Error{0, "The setup cannot be read."};
    }
    return bytes;
}

Result<Done> Install(const sample::PayloadFile& file)
{
    const std::string path = CommonFolder() + file.path;
    auto made = MFile::CreateFolders(path.substr(0, path.rfind('\\') + 1));
    return made ? MFile::WriteAll(path, file.bytes) : made;
}

std::string InstallAll()
{
    const auto bytes = OwnBytes();
    const auto files = bytes ? sample::PayloadOf(bytes.Value()) : std::nullopt;
    if (!files)
    {
        return "failed: the setup is not complete";
    }
    std::string report = "installed";
    for (const sample::PayloadFile& file : *files)
    {
        const auto installed = Install(file);
        report += " " + file.path + (installed ? "" : ": " + installed.Failure().description);
    }
    return report;
}

} // namespace

int main(int argc, char** argv)
{
    if (std::none_of(argv + 1, argv + argc,
                     [](const char* word) { return word == std::string("/s"); }))
    {
        std::cerr << "This sample setup has no windows: start it with /s.\n";
        return 2;
    }
    const std::string report = InstallAll();
    // A setup may ask at any time while it runs.
    DiagnosticLog log("");
    CINIFileHandler settings(log);
    settings.AppProfileFileName(SettingsFilePath());
    const bool skipsWizard =
        settings.MyGetAppProfileBoolean("SetupSettings", "NoHVACWizard", false);
    const std::string line = report + (skipsWizard ? ", wizard skipped" : ", wizard not skipped");
    return MFile::Append(CommonFolder() + "setups.log", line + "\r\n") ? 0 : 1;
}
