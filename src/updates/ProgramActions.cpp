#include "updates/ProgramActions.h"

#include "catalogue/ProgramCatalogue.h"
#include "controls/UserPrompts.h"
#include "text/TextCase.h"
#include "updates/AddressOpener.h"
#include "updates/ProgramRow.h"

namespace velmo
{
namespace
{

constexpr char kReminderTitle[] = "Reminder to Close Open Programs";
constexpr char kReminder[] =
    "Once the download is finished, be sure to close this program (Update Manager) as well as any "
    "other programs you have open, especially the program you are about to download, before "
    "actually running the setup.";

} // namespace

ProgramActions::ProgramActions(const VendorServer& server, UserPrompts& prompts,
                               AddressOpener& opener)
    : m_server(server), m_prompts(prompts), m_opener(opener)
{}

void ProgramActions::Download(const ProgramRow& program)
{
    m_prompts.Notify(PromptIcon::Information, kReminder, kReminderTitle);
    const std::string_view listed = Trimmed(program.demoAddress);
    m_opener.Open(listed.empty() ? DemoSetupOfIndex(m_server, program.index) : std::string(listed));
}

void ProgramActions::OpenUpdatePage(std::int32_t index)
{
    m_opener.Open(UpdatePageOfIndex(m_server, index));
}

void ProgramActions::OpenInformationPage(std::int32_t index)
{
    m_opener.Open(InformationPageOfIndex(m_server, index));
}

} // namespace velmo
