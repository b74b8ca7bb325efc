#pragma once

#include <cstdint>
#include <string_view>

namespace velmo
{

class AddressOpener;
class UserPrompts;
struct VendorServer;

/// What can be done about one program, named by its row in the catalogue. Everything happens in the
/// user's browser. User-interface thread.
class ProgramActions
{
  public:
    /// References must outlive the object.
    ProgramActions(const VendorServer& server, UserPrompts& prompts, AddressOpener& opener);

    /// Reminds to close programs, then opens the setup's address: @a listedAddress, which the version
    /// list gives, or the catalogue's own where that is blank.
    void Download(std::int32_t index, std::string_view listedAddress);

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
