#include "access/AccessFile.h"
#include "companion/CommandSetUp.h"
#include "equipment/InstalledVersion.h"
#include "platform/MFile.h"
#include "text/TextCase.h"
#include "version/CFileVersionInfo.h"

#include <CLI/CLI.hpp>

#include <array>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace velmo::companion
{
namespace
{

namespace MFile = platform::MFile;

struct Property
{
    const char* name;
    const std::string& (CFileVersionInfo::*value)() const;
};

constexpr std::array kProperties{
    Property{"FullPathName", &CFileVersionInfo::FullPathName},
    Property{"FileFlags", &CFileVersionInfo::FileFlags},
    Property{"FileOS", &CFileVersionInfo::FileOS},
    Property{"FileType", &CFileVersionInfo::FileType},
    Property{"FileSubType", &CFileVersionInfo::FileSubType},
    Property{"VerFile", &CFileVersionInfo::VerFile},
    Property{"VerProduct", &CFileVersionInfo::VerProduct},
    Property{"VerStructure", &CFileVersionInfo::VerStructure},
    Property{"CompanyName", &CFileVersionInfo::CompanyName},
    Property{"FileDescription", &CFileVersionInfo::FileDescription},
    Property{"FileVersion", &CFileVersionInfo::FileVersion},
    Property{"InternalName", &CFileVersionInfo::InternalName},
    Property{"Language", &CFileVersionInfo::Language},
    Property{"LegalCopyright", &CFileVersionInfo::LegalCopyright},
    Property{"LegalTrademarks", &CFileVersionInfo::LegalTrademarks},
    Property{"OriginalFilename", &CFileVersionInfo::OriginalFilename},
    Property{"ProductName", &CFileVersionInfo::ProductName},
    Property{"ProductVersion", &CFileVersionInfo::ProductVersion},
};

ExitCode InspectVersion(const std::string& file, Output output)
{
    const std::string path = MFile::FromCommandLine(file);
    if (!MFile::FileExists(path))
    {
        output.errors << "There is no file " << file << ".\n";
        return ExitCode::Failed;
    }
    CFileVersionInfo info;
    try
    {
        info.FullPathName(path);
    }
    catch (const TranslationCodeError& fault)
    {
        // The fixed numbers are there all the same.
        output.errors << file << ": " << fault.what() << "\n";
    }
    if (!info.Available())
    {
        output.errors << "The file " << file << " has no version resource.\n";
        return ExitCode::Failed;
    }
    for (const Property& property : kProperties)
    {
        output.out << property.name << ": " << (info.*property.value)() << "\n";
    }
    return ExitCode::Fine;
}

/// Whether the path's name or content says that it is an Access database.
bool IsDatabaseFile(const std::string& path)
{
    const std::string name = LowerCase(path);
    return name.ends_with(".mdb") || name.ends_with(".accdb") || AccessFile::Open(path).Ok();
}

/// Prints the first record's field, an empty line for none.
ExitCode InspectField(const std::string& path, const std::string& table, const std::string& field,
                      Output output)
{
    const auto read = ReadAccessField(path, table, field);
    if (!read)
    {
        output.errors << path << ": " << read.Failure().description << "\n";
        return ExitCode::Failed;
    }
    output.out << read.Value().value_or("") << "\n";
    return ExitCode::Fine;
}

/// Prints what the equipment grid would say of the database as an installed one.
ExitCode InspectEquipmentDatabase(const std::string& path, Output output)
{
    const auto date = ReadReleaseDate(path);
    output.out << "Database Installed Version: " << (date ? date.Value() : "-") << "\n";
    if (!date)
    {
        output.errors << path << ": " << date.Failure().description << "\n";
    }
    return date ? ExitCode::Fine : ExitCode::Failed;
}

ExitCode InspectFile(const std::string& file, Output output)
{
    const std::string path = MFile::FromCommandLine(file);
    return IsDatabaseFile(path) ? InspectEquipmentDatabase(path, output)
                                : InspectVersion(file, output);
}

/// FILE TABLE FIELD, rather than three files.
bool NamesAField(const std::vector<std::string>& arguments)
{
    return arguments.size() == 3 && IsDatabaseFile(MFile::FromCommandLine(arguments[0])) &&
           !MFile::FileExists(MFile::FromCommandLine(arguments[1]));
}

ExitCode InspectAll(const std::vector<std::string>& files, Output output)
{
    if (NamesAField(files))
    {
        return InspectField(MFile::FromCommandLine(files[0]), files[1], files[2], output);
    }
    ExitCode worst = ExitCode::Fine;
    for (const std::string& file : files)
    {
        if (&file != &files.front())
        {
            output.out << "\n";
        }
        if (InspectFile(file, output) != ExitCode::Fine)
        {
            worst = ExitCode::Failed;
        }
    }
    return worst;
}

} // namespace

Action SetUpInspect(CLI::App& command)
{
    const auto files = std::make_shared<std::vector<std::string>>();
    command.add_option("FILE", *files, "Files to look into, or a database, a table and a field")
        ->required();
    return [files](Output output) { return InspectAll(*files, output); };
}

} // namespace velmo::companion
