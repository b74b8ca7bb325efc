#pragma once

#include <cstdint>

namespace velmo
{

class AddressOpener;
class UserPrompts;
struct ProgramRow;
struct VendorServer;

/// What can be done about one program. Everything happens in the user's browser. User-interface thread.
class ProgramActions
{
  public:
    /// References must outlive the object.
    ProgramActions(const VendorServer& server, UserPrompts& prompts, AddressOpener& opener);

    /// Reminds to close programs, then opens the setup's address: the one that the row has from the
    /// version list, or the catalogue's own where that is blank.
    void Download(const ProgramRow& program);

    /// Opens the page on the latest update, or the text that says that there is none.
    void OpenUpdatePage(std::int32_t index);

    /// Opens the product page; does nothing for a program without one.
    void OpenInformationPage(std::int32_t index);

  private:
    const VendorServer& m_server;
    UserPrompts& m_prompts;
    AddressOpener& m_opener;
};

} // namespace velmo
