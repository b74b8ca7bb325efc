#include "sample/SampleVendorSite.h"

#include "catalogue/ProgramTable.h"
#include "sample/ProductVersion.h"
#include "sample/SampleImage.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace velmo::sample
{
namespace
{

namespace fs = std::filesystem;

constexpr std::string_view kVersionList = "/pub/demo/version.ini";
constexpr std::string_view kManufacturerList = "/pub/demo/manufver.ini";

constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kTypes{{
    {".htm", "text/html; charset=utf-8"},
    {".html", "text/html; charset=utf-8"},
    {".txt", "text/plain; charset=utf-8"},
    {".ini", "text/plain; charset=windows-1252"},
}};

std::string_view TypeOf(std::string_view path)
{
    for (const auto& [ending, type] : kTypes)
    {
        if (path.ends_with(ending))
        {
            return type;
        }
    }
    return "application/octet-stream";
}

/// A file of the source tree, given from the folder sample/ on.
std::string ReadSource(const fs::path& name)
{
    std::ifstream file(fs::path(VELMO_SAMPLE_FOLDER) / name, std::ios::binary);
    std::ostringstream text;
    if (!(text << file.rdbuf()))
    {
        throw std::runtime_error("The sample vendor's site cannot be read: " + name.string());
    }
    return text.str();
}

std::string Replaced(std::string text, std::string_view what, std::string_view with)
{
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
    {
        text.replace(at, what.size(), with);
    }
    return text;
}

/// What stands between the first @a begin and the @a end behind it.
std::string Between(const std::string& text, std::string_view begin, std::string_view end)
{
    const std::size_t at = text.find(begin);
    return at == std::string::npos
               ? std::string()
               : text.substr(at + begin.size(), text.find(end, at) - at - begin.size());
}

/// The version that a list names for a program; 0.0 when it does not know it.
ProgramVersion ListedVersion(const std::string& list, std::string_view program)
{
    ProgramVersion version;
    const std::string section = Between(list, "[" + std::string(program) + "]\n", "[");
    std::sscanf(section.c_str(), "Major=%d\nMinor=%d\nRevision=%d", &version.majorNumber,
                &version.minorNumber, &version.revision);
    return version;
}

} // namespace

SampleVendorSite::SampleVendorSite(std::string server, std::span<const EquipmentSection> equipment)
    : m_server(std::move(server))
{
    m_versions = Filled(ReadSource("site" + std::string(kVersionList)));
    const fs::path root = fs::path(VELMO_SAMPLE_FOLDER) / "site";
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
    {
        if (entry.is_regular_file())
        {
            const fs::path name = fs::relative(entry.path(), root);
            AddText("/" + name.generic_string(), ReadSource("site" / name));
        }
    }
    AddText(std::string(kManufacturerList), ManufacturerListText(equipment, m_server));
    m_files["/"] = m_files.at("/index.htm");
    for (const ProgramEntry& program : kPrograms)
    {
        AddProgram(program);
    }
}

const SiteFile* SampleVendorSite::Find(std::string_view path) const
{
    const auto found = m_files.find(path);
    return found == m_files.end() ? nullptr : &found->second;
}

std::string SampleVendorSite::Filled(std::string text) const
{
    constexpr std::string_view kLatest = "{{latest ";
    text = Replaced(std::move(text), "{{server}}", m_server);
    text = Replaced(std::move(text), "{{major}}", std::to_string(kProductVersion.majorNumber));
    text = Replaced(std::move(text), "{{minor}}", std::to_string(kProductVersion.minorNumber));
    text = Replaced(std::move(text), "{{revision}}", std::to_string(kProductVersion.revision));
    for (std::string name; !(name = Between(text, kLatest, "}}")).empty();)
    {
        text = Replaced(std::move(text), std::string(kLatest) + name + "}}",
                        FullVersionText(ListedVersion(m_versions, name)));
    }
    return text;
}

void SampleVendorSite::AddText(const std::string& path, std::string text)
{
    const std::string_view type = TypeOf(path);
    text = Filled(std::move(text));
    if (type.starts_with("text/html"))
    {
        const std::string title = Between(text, "<h1>", "</h1>");
        text = Replaced(Replaced(ReadSource("frame.htm"), "{{title}}", title), "{{page}}", text);
    }
    else
    {
        text = Replaced(Replaced(std::move(text), "\r\n", "\n"), "\n", "\r\n");
    }
    m_files[path] = {std::string(type), std::move(text)};
}

void SampleVendorSite::AddProgram(const ProgramEntry& program)
{
    const std::string name(program.displayName);
    for (const std::string_view page : {program.informationPage, program.updatePage})
    {
        if (!page.empty() && Find(page) == nullptr)
        {
            AddText(std::string(page),
                    "<h1>" + name + "</h1>\n<p>This page is not written yet.</p>\n");
        }
    }
    ProgramVersion version = ListedVersion(m_versions, name);
    if (version.majorNumber == 0)
    {
        version = {1, 0, 0};
    }
    version.revision = std::max(version.revision, 0);
    const std::string listed =
        Between(Between(m_versions, "[" + name + "]\n", "["), "Demo URL=" + m_server, "\n");
    for (const std::string_view path : {program.demoSetup, std::string_view(listed)})
    {
        if (!path.empty())
        {
            m_files[std::string(path)] = {
                std::string(TypeOf(path)),
                WriteSampleImage({"Sample setup of " + name + "; installs nothing", name,
                                  path.substr(path.rfind('/') + 1), version})};
        }
    }
}

} // namespace velmo::sample
