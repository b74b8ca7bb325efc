#include "companion/CommandSetUp.h"
#include "companion/JsonText.h"
#include "companion/ListLint.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <ostream>
#include <string>

namespace velmo::companion
{
namespace
{

ExitCode PrintFaults(const std::string& site, bool json, Output output)
{
    const auto faults = LintSite(site);
    if (!faults)
    {
        output.errors << faults.Failure().description << "\n";
        return ExitCode::Failed;
    }
    auto list = nlohmann::ordered_json::array();
    for (const ListFault& fault : faults.Value())
    {
        if (json)
        {
            list.push_back({{"file", fault.file}, {"line", fault.line}, {"text", fault.text}});
        }
        else
        {
            output.out << fault.file << ":" << fault.line << ": " << fault.text << "\n";
        }
    }
    if (json)
    {
        output.out << JsonText({{"faults", list}});
    }
    return faults.Value().empty() ? ExitCode::Fine : ExitCode::FaultsFound;
}

} // namespace

Action SetUpLint(CLI::App& command)
{
    const auto site = std::make_shared<std::string>();
    const auto json = std::make_shared<bool>(false);
    command.add_option("SITE", *site, "The folder, laid out as the web server")->required();
    command.add_flag("--json", *json, "Print JSON");
    return [site, json](Output output) { return PrintFaults(*site, *json, output); };
}

} // namespace velmo::companion
