#include "companion/InspectDatabaseFile.h"

#include "equipment/AccessFile.h"
#include "equipment/InstalledDatabase.h"
#include "equipment/UnitedStatesDate.h"
#include "settings/DiagnosticLog.h"
#include "settings/TextCase.h"

#include <chrono>
#include <ostream>

namespace velmo::companion
{
namespace
{

constexpr const char* kHeader = "Header";
constexpr const char* kReleaseDate = "ReleaseDate";

Result<AccessField> Read(const std::string& path, const std::string& table,
                         const std::string& field)
{
    auto file = AccessFile::Open(path);
    if (!file)
    {
        return file.Failure();
    }
    return std::move(file).Value().FirstRecordField(table, field);
}

/// Why there is no record to take the field of; empty when there is one.
std::string WhyNone(AccessField::State state, const std::string& table, const std::string& field)
{
    switch (state)
    {
    case AccessField::State::NoTable:
        return "There is no table \"" + table + "\".";
    case AccessField::State::NoField:
        return "Table \"" + table + "\" has no field \"" + field + "\".";
    case AccessField::State::NoRows:
        return "Table \"" + table + "\" has no rows.";
    default:
        return {};
    }
}

} // namespace

bool IsDatabaseFile(const std::string& path)
{
    const std::string name = LowerCase(path);
    return name.ends_with(".mdb") || name.ends_with(".accdb") || AccessFile::Open(path).Ok();
}

ExitCode InspectField(const std::string& path, const std::string& table, const std::string& field,
                      Output output)
{
    const auto read = Read(path, table, field);
    const std::string why =
        read ? WhyNone(read.Value().state, table, field) : read.Failure().description;
    if (!why.empty())
    {
        output.errors << path << ": " << why << "\n";
        return ExitCode::Failed;
    }
    output.out << read.Value().text << "\n";
    return ExitCode::Fine;
}

ExitCode InspectEquipmentDatabase(const std::string& path, Output output)
{
    const std::chrono::year_month_day today(LocalDay(std::chrono::system_clock::now()));
    DiagnosticLog noLog("");
    const InstalledDatabase database = InspectDatabase(path, "", today.year(), noLog);
    output.out << "Database Installed Version: " << database.installedDate << "\n";
    const auto read = Read(path, kHeader, kReleaseDate);
    if (read && read.Value().state == AccessField::State::Value)
    {
        return ExitCode::Fine;
    }
    std::string why =
        read ? WhyNone(read.Value().state, kHeader, kReleaseDate) : read.Failure().description;
    output.errors << path << ": " << (why.empty() ? "The first release date is empty." : why)
                  << "\n";
    return ExitCode::Failed;
}

} // namespace velmo::companion
