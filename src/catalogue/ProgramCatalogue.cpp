#include "catalogue/ProgramCatalogue.h"

#include "catalogue/CatalogueChecks.h"
#include "catalogue/VendorPaths.h"
#include "text/TextCase.h"

namespace velmo
{
namespace
{

constexpr FaultyRow kFaultyProgram = FirstFault(kPrograms, kLocatorTable);
constexpr FaultyRow kFaultyNumber = FirstFault(kLocatorTable);

const ProgramEntry* RowOf(std::int32_t index)
{
    return index >= 0 && index < kProgramCount ? &kPrograms[static_cast<std::size_t>(index)]
                                               : nullptr;
}

} // namespace

template struct RowOfProgramTable<kFaultyProgram.index, kFaultyProgram.fault>;
template struct RowOfLocatorTable<kFaultyNumber.index, kFaultyNumber.fault>;

std::string_view NameOfIndex(std::int32_t index)
{
    if (index == kEquipmentNameIndex)
    {
        return kEquipmentName;
    }
    const ProgramEntry* row = RowOf(index);
    return row != nullptr ? row->displayName : std::string_view();
}

std::int32_t IndexOfName(std::string_view displayName)
{
    for (const ProgramEntry& row : kPrograms)
    {
        if (row.displayName == displayName)
        {
            return row.index;
        }
    }
    return 0;
}

bool IsListed(std::int32_t index)
{
    const ProgramEntry* row = RowOf(index);
    return row != nullptr && row->kind != ProgramKind::Unlisted;
}

std::int32_t LocatorNumberOfIndex(std::int32_t index)
{
    const ProgramEntry* row = RowOf(index);
    return row != nullptr ? row->locatorNumber : kNoLocatorNumber;
}

std::string InformationPageOfIndex(const VendorServer& server, std::int32_t index)
{
    const ProgramEntry* row = RowOf(index);
    return row != nullptr ? server.Address(row->informationPage) : std::string();
}

std::string UpdatePageOfIndex(const VendorServer& server, std::int32_t index)
{
    const ProgramEntry* row = RowOf(index);
    const bool hasPage = row != nullptr && !row->updatePage.empty();
    return server.Address(hasPage ? row->updatePage : vendor_path::kNoUpdatePage);
}

std::string DemoSetupOfIndex(const VendorServer& server, std::int32_t index)
{
    const ProgramEntry* row = RowOf(index);
    if (row == nullptr)
    {
        return {};
    }
    if (row->kind == ProgramKind::DemoOnSecondServer)
    {
        return server.secondDemoServer + std::string(row->demoSetup);
    }
    return server.Address(row->demoSetup);
}

bool NotifiesOfEquipmentByDefault(std::string_view displayName)
{
    for (const ProgramEntry& row : kPrograms)
    {
        if (row.displayName == displayName)
        {
            return row.notifiesOfEquipment;
        }
    }
    return false;
}

std::string_view CallerOfCommandLine(std::string_view commandLine)
{
    const std::string upper = UpperCase(commandLine);
    for (const ProgramEntry& row : kPrograms)
    {
        if (upper.find(UpperCase(row.displayName)) != std::string::npos)
        {
            return row.displayName;
        }
    }
    return {};
}

} // namespace velmo
