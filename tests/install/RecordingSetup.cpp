#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

/// A setup that installs nothing: it writes down, beside the folder that it was started from, that it
/// ran, with which switches, and whether it was told to skip its wizard, which it asks at its very end:
/// when there is no file "hold.txt" there (any more; it gives up after a minute). Fails with 3 when
/// "bad" is in its name.
int main(int argc, char** argv)
{
    const std::filesystem::path self(argv[0]);
    const std::filesystem::path common = self.parent_path().parent_path();
    for (int i = 0; i < 6'000 && std::filesystem::exists(common / "hold.txt"); ++i)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::ifstream file(common / "VelmoUpd.ini");
    const std::string settings{std::istreambuf_iterator<char>(file), {}};
    std::string line = self.filename().string();
    for (int i = 1; i < argc; ++i)
    {
        line += std::string(" ") + argv[i];
    }
    line += settings.find("NoHVACWizard=1 'True") != std::string::npos ? " unattended" : "";
    std::ofstream record(common / "setups.log", std::ios::app | std::ios::binary);
    record << line << std::endl;
    if (!record)
    {
        return 1;
    }
    return self.filename().string().find("bad") != std::string::npos ? 3 : 0;
}
