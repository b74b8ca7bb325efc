#pragma once

#include "catalogue/ProgramCatalogue.h"
#include "sample/SampleEquipment.h"

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace velmo::sample
{

struct SiteFile
{
    std::string contentType;
    std::string bytes;
};

/**
    All that the sample vendor's web server offers: the pages and the version list that lie under
    sample/site in this source tree, the manufacturer list, and a demo setup for each program.

    A page there is the inside of an HTML body; sample/frame.htm goes around it. Placeholders that are
    filled in: {{server}}, {{latest Loadcalc 8}} for the version that the list names, and {{major}},
    {{minor}}, {{revision}} of this build's own. A page that only the catalogue knows says so.

    The same for the same server. Making one throws std::runtime_error when the source tree has gone.
    Reading: any thread.
 */
class SampleVendorSite
{
  public:
    /// @a server: scheme, host and port of the server that offers it, for the addresses in the lists.
    /// @a equipment: what the manufacturer list names; its setups are SampleSetups'.
    explicit SampleVendorSite(std::string server,
                              std::span<const EquipmentSection> equipment = SampleEquipment());

    /// The file of a path; nullptr when there is none.
    [[nodiscard]] const SiteFile* Find(std::string_view path) const;

    /// All files by their paths.
    [[nodiscard]] const std::map<std::string, SiteFile, std::less<>>& Files() const
    {
        return m_files;
    }

  private:
    [[nodiscard]] std::string Filled(std::string text) const;
    void AddText(const std::string& path, std::string text);
    void AddProgram(const ProgramEntry& program);

    std::string m_server;
    std::string m_versions; ///< The version list, with its placeholders filled in.
    std::map<std::string, SiteFile, std::less<>> m_files;
};

} // namespace velmo::sample
