#include "companion/CommandSetUp.h"
#include "companion/JsonText.h"
#include "companion/SiteFolder.h"
#include "platform/MFile.h"
#include "text/TextLine.h"
#include "text/UnitedStatesDate.h"
#include "trust/ListSignature.h"
#include "trust/ListsDecision.h"
#include "trust/UtcTime.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace velmo::companion
{
namespace
{

namespace MFile = platform::MFile;

std::chrono::sys_seconds Now()
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

ExitCode Failed(const std::string& file, const std::string& why, Output output)
{
    output.errors << file << ": " << why << "\n";
    return ExitCode::Failed;
}

/// What a signature takes of a file of signed lists, its comment included.
constexpr std::size_t kRoomForSignature = 16'384;

struct MakeOptions
{
    std::string site;
    std::string file;
    std::uint64_t serial = 0;
    int days = 90;
};

ExitCode Make(const MakeOptions& options, Output output)
{
    const auto files = SignableFiles(options.site);
    if (!files)
    {
        return Failed(options.site, files.Failure().description, output);
    }
    SignedLists lists{options.serial, Now(), Now() + std::chrono::days(options.days), {}};
    for (const SiteFile& file : files.Value())
    {
        const auto digest = DigestOfFile(file.file);
        if (!digest)
        {
            return Failed(file.file, digest.Failure().description, output);
        }
        lists.files.push_back({file.path, digest.Value()});
    }
    const std::string text = SignedListsText(lists);
    // What no desktop would take must not get as far as the key.
    if (const auto again = ParseSignedLists(text);
        !again || text.size() > kMostSignedBytes - kRoomForSignature)
    {
        output.errors << (again ? "The text is too large." : again.Failure().description) << "\n";
        return ExitCode::FaultsFound;
    }
    if (options.file.empty())
    {
        output.out << text << std::flush;
        return output.out ? ExitCode::Fine
                          : Failed("The output", "not all of the text could be written", output);
    }
    const auto written = MFile::WriteAll(MFile::FromCommandLine(options.file), text);
    return written ? ExitCode::Fine : Failed(options.file, written.Failure().description, output);
}

/// A key, or a file that minisign wrote it to, where it is the last line.
std::string KeyText(const std::string& keyOrFile)
{
    const auto bytes = MFile::ReadAll(MFile::FromCommandLine(keyOrFile), 1 << 16);
    std::string_view rest = bytes ? bytes.Value() : keyOrFile;
    std::string_view last;
    while (!rest.empty())
    {
        const std::string_view line = TakeLine(rest);
        last = line.empty() ? last : line;
    }
    return std::string(last);
}

struct VerifyOptions
{
    std::string file;
    std::vector<std::string> keys;
    std::string site;
    bool json = false;
};

/// What is wrong with the files of the site, and which signed ones it lacks.
Result<std::vector<std::string>> SiteFaults(const SignedLists& lists, const std::string& site)
{
    const auto files = SignableFiles(site);
    if (!files)
    {
        return files.Failure();
    }
    std::vector<std::string> faults;
    for (const SiteFile& file : files.Value())
    {
        const auto digest = DigestOfFile(file.file);
        const std::string fault = digest ? std::string(lists.FaultOf(file.path, digest.Value()))
                                         : ": " + digest.Failure().description;
        if (!fault.empty())
        {
            faults.push_back(file.path + fault);
        }
    }
    for (const SignedFile& file : lists.files)
    {
        if (std::ranges::find(files.Value(), file.path, &SiteFile::path) == files.Value().end())
        {
            faults.push_back(file.path + ": it is signed, but not there");
        }
    }
    return faults;
}

void PrintVerdict(const ListsDecision& decision, const std::vector<std::string>& faults, bool json,
                  std::ostream& out)
{
    if (json)
    {
        nlohmann::ordered_json verdict{{"verdict", decision.Mark()}, {"reason", decision.reason}};
        if (decision.lists)
        {
            verdict["serial"] = decision.lists->serial;
            verdict["published"] = UtcTimeText(decision.lists->published);
            verdict["expires"] = UtcTimeText(decision.lists->expires);
            verdict["files"] = decision.lists->files.size();
        }
        verdict["faults"] = faults;
        out << JsonText(verdict);
        return;
    }
    out << decision.Mark() << "\n" << decision.reason << (decision.reason.empty() ? "" : "\n");
    if (decision.lists)
    {
        out << "Serial " << decision.lists->serial << ", " << decision.lists->files.size()
            << " files, until " << UtcTimeText(decision.lists->expires) << "\n";
    }
    for (const std::string& fault : faults)
    {
        out << fault << "\n";
    }
}

ExitCode Verify(const VerifyOptions& options, Output output)
{
    const auto bytes = MFile::ReadAll(MFile::FromCommandLine(options.file), kMostSignedBytes);
    if (!bytes)
    {
        return Failed(options.file, bytes.Failure().description, output);
    }
    std::string keys;
    for (const std::string& key : options.keys)
    {
        keys += KeyText(key) + "\n";
    }
    const auto listKeys = ParseListKeys(keys);
    if (!listKeys)
    {
        output.errors << listKeys.Failure().description << "\n";
        return ExitCode::Failed;
    }
    const ListsDecision decision = DecideLists({bytes.Value(), {}}, {}, {listKeys.Value()}, Now());
    std::vector<std::string> faults;
    if (decision.lists && !options.site.empty())
    {
        auto found = SiteFaults(*decision.lists, options.site);
        if (!found)
        {
            return Failed(options.site, found.Failure().description, output);
        }
        faults = std::move(found).Value();
    }
    PrintVerdict(decision, faults, options.json, output.out);
    return decision.use == ListUse::Accept && faults.empty() ? ExitCode::Fine
                                                             : ExitCode::FaultsFound;
}

} // namespace

Action SetUpMake(CLI::App& command)
{
    const auto options = std::make_shared<MakeOptions>();
    command.add_option("SITE", options->site, "The folder, laid out as the web server")->required();
    command.add_option("--serial", options->serial, "Higher with each publication: 2026112301")
        ->required();
    command.add_option("--days", options->days, "How long desktops install from the lists")
        ->check(CLI::Range(1, 3650))
        ->capture_default_str();
    command.add_option("--output", options->file, "A file for the text; else it is printed");
    return [options](Output output) { return Make(*options, output); };
}

Action SetUpVerify(CLI::App& command)
{
    const auto options = std::make_shared<VerifyOptions>();
    command.add_option("FILE", options->file, "The file of signed lists")->required();
    command
        .add_option("--key", options->keys, "Public keys or minisign's files of them, newest first")
        ->allow_extra_args(false)
        ->required();
    command.add_option("--site", options->site, "Check the files of this folder too");
    command.add_flag("--json", options->json, "Print JSON");
    return [options](Output output) { return Verify(*options, output); };
}

} // namespace velmo::companion
